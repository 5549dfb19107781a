"""Reads the scenes in a folder with the plugin, and draws pictures of them. Runs in pvpython, also as the client of
a server, and in pvbatch:
  check_reader.py FOLDER PROCESSES [HOST:PORT]"""
import os
import pathlib
import shutil
import sys

from paraview.simple import *  # noqa: F403
from vtkmodules.vtkCommonCore import vtkFileOutputWindow, vtkOutputWindow

folder, processes = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2])
if len(sys.argv) > 3:
    host, port = sys.argv[3].split(":")
    Connect(host, int(port))

SHOWN = ["Both sides/blade", "Hull/Cells & more/plating", "Hull/frame", "Hull/probes", "Tiles/tile"] + [
    f"Tiles/tile ({i})" for i in range(2, 7)
]
HIDDEN = "Hull/spare"
TILES = sum(size**2 for size in range(4, 10))
CELLS = {"blade": 2 * 20**2, "plating": 15**2, "frame": 1, "probes": 3, "tiles": TILES}


def messages_of(action):
    """What VTK says in this process meanwhile."""
    path = folder / f"messages-{os.getpid()}.txt"
    window, former = vtkFileOutputWindow(), vtkOutputWindow.GetInstance()
    window.SetFileName(str(path))
    window.SetFlush(True)
    vtkOutputWindow.SetInstance(window)
    try:
        action()
    except RuntimeError:
        pass
    finally:
        vtkOutputWindow.SetInstance(former)
    return path.read_text() if path.exists() else ""


def open_scene(name):
    reader = OpenDataFile(str(folder / name))
    assert reader.GetXMLName() == "VemoSceneReader", reader.GetXMLName()
    return reader


def cells_of(reader):
    reader.UpdatePipeline()
    return reader.GetDataInformation().GetNumberOfCells()


def check_structure(reader):
    assert sorted(reader.Blocks) == sorted(SHOWN), list(reader.Blocks)
    assert sorted(reader.Blocks.Available) == sorted([*SHOWN, HIDDEN]), reader.Blocks.Available
    assert cells_of(reader) == sum(CELLS.values()), cells_of(reader)
    information = reader.GetDataInformation()
    assert information.GetCompositeDataClassName() == "vtkPartitionedDataSetCollection"
    assembly = information.GetDataAssembly()
    node = assembly.GetFirstNodeByPath("/Scene/Hull/Cellsmore")
    assert assembly.GetAttributeOrDefault(node, "label", "") == "Cells & more", assembly.SerializeToXML(None)
    assert information.DataInformation.GetBounds()[2] < -2.6
    # With its mirror image.
    blade = ExtractBlock(Input=reader, Assembly="Assembly", Selectors=["/Scene/Bothsides/blade"])
    blade.UpdatePipeline()
    assert blade.GetDataInformation().GetBounds()[2:4] == (-1.5, 1.5), blade.GetDataInformation().GetBounds()
    assert blade.PointData["heat"].GetRange() == (0.0, 1.0)
    Delete(blade)


def blocks_of(data):
    """The instances of each block that a process has, by its name."""
    blocks = {}
    for i in range(data.GetNumberOfPartitionedDataSets()):
        for j in range(data.GetNumberOfPartitions(i)):
            blocks.setdefault(data.GetMetaData(i).Get(data.NAME()), []).append(data.GetPartitionAsDataObject(i, j))
    return blocks


def check_fields(reader):
    by_rank = FetchData(reader)
    data = by_rank[0]
    by_name = {name: instances for rank in by_rank.values() for name, instances in blocks_of(rank).items()}
    assert sorted(by_name) == sorted(SHOWN), by_name.keys()
    # The normals of the mirror image have turned with its cells.
    normals = [blade.GetCellData().GetNormals().GetTuple(0) for blade in by_name["Both sides/blade"]]
    assert normals == [(0, 0, 1), (0, 0, -1)], normals
    frame = by_name["Hull/frame"][0]
    assert frame.GetFieldData().GetArray("Color").GetTuple(0) == (0.0, 1.0, 0.0)
    assert frame.GetPointData().GetArray("Colors").GetTuple(2) == (0.0, 255.0, 0.0)
    plating = by_name["Hull/Cells & more/plating"][0]
    colors = plating.GetCellData().GetArray("Colors")
    assert [colors.GetTuple(i) for i in (0, colors.GetNumberOfTuples() - 1)] == [(0, 0, 255), (255, 0, 0)]
    assert plating.GetFieldData().GetAbstractArray("ColorArray").GetValue(0) == "heat"
    names = [reader.FieldData.GetArray(i).Name for i in range(reader.FieldData.GetNumberOfArrays())]
    assert {"CameraPosition", "Findings"} <= set(names), names
    camera = reader.FieldData["CameraPosition"]
    assert [camera.GetRange(i)[0] for i in range(3)] == [1.5, 0.0, 5.0]
    if processes == 1:
        # FetchData does not bring those of the collection from elsewhere.
        assert data.GetFieldData().GetArray("CameraPosition").GetTuple(0) == (1.5, 0.0, 5.0)
        assert "element-unknown" in data.GetFieldData().GetAbstractArray("Findings").GetValue(0)


def check_choice(reader):
    reader.Blocks = [HIDDEN, "Hull/frame"]
    assert cells_of(reader) == 10**2 + 1
    assert reader.GetDataInformation().GetNumberOfDataSets() == 2
    reader.Blocks = []
    assert cells_of(reader) == 0
    reader.Blocks = SHOWN


def check_shares(reader):
    """No process has a block of another, and all have about as much."""
    blocks = [blocks_of(data) for data in FetchData(reader).values()]
    assert len(blocks) == processes
    assert sum(map(len, blocks)) == len(SHOWN)
    sizes = [sum(piece.GetNumberOfPoints() for each in own.values() for piece in each) for own in blocks]
    assert processes == 1 or max(sizes) < 0.75 * sum(sizes), sizes


def draw(reader, name, has_own_colors):
    """Several processes would sort what has colours of its own by depth, which loses geometry with the expat of
    Debian's updates."""
    view = CreateView("RenderView")
    view.ViewSize = [400, 300]
    view.OrientationAxesVisibility = 0
    view.UseColorPaletteForBackground = 0
    view.Background = [0.125, 0.25, 0.375]
    view.EnableRayTracing = 0
    shown = Show(reader, view)
    shown.ColorArrayName = ["POINTS", "Colors" if has_own_colors else ""]
    shown.MapScalars = 0 if has_own_colors else 1
    shown.Ambient, shown.Diffuse = 1.0, 0.0
    # The first picture of a view sets its camera.
    Render(view)
    view.CameraParallelProjection = 1
    view.CameraPosition, view.CameraFocalPoint = [1.5, 0, 5], [1.5, 0, 0]
    view.CameraViewUp, view.CameraParallelScale = [0, 1, 0], 2.5
    Render(view)
    SaveScreenshot(str(folder / f"{name}.png"), view, ImageResolution=[400, 300])
    Delete(view)


def check_faults():
    try:
        OpenDataFile(str(folder / "text.zip"))
        raise AssertionError("text.zip was opened")
    except RuntimeError as error:
        assert "No reader found" in str(error), error
    for name, messages in {
        "broken.zip": ["Parse error in scene.xml"],
        "damaged.zip": ["refers to point 99, but the geometry has only 3 points", "item scene/bad"],
    }.items():
        reader = open_scene(name)
        said = messages_of(reader.UpdatePipeline)
        assert all(message in said for message in messages), said
        assert reader.GetDataInformation().GetNumberOfCells() == 0
    reader.Blocks = ["good"]
    assert cells_of(reader) == 4**2


def check_many():
    reader = open_scene("many.zip")
    assert list(reader.Blocks) == ["Many"], reader.Blocks
    assert list(reader.Blocks.Available) == ["Many", "Many (hidden)"], reader.Blocks.Available
    assert cells_of(reader) == 2001
    reader.Blocks = ["Many (hidden)"]
    assert cells_of(reader) == 1


def check_abort(reader):
    """Only where the reader is in this process."""
    algorithm = reader.GetClientSideObject()
    if algorithm is None or processes > 1:
        return
    fractions = []

    def stop(*_):
        fractions.append(algorithm.GetProgress())
        algorithm.SetAbortExecute(1 if len(fractions) == 3 else 0)

    reader.Blocks = ["Tiles/tile"]
    observer = algorithm.AddObserver("ProgressEvent", stop)
    assert cells_of(reader) == 0
    assert fractions == sorted(fractions) and fractions[2] < 1, fractions
    algorithm.RemoveObserver(observer)
    algorithm.Update()
    assert algorithm.GetOutputDataObject(0).GetNumberOfCells() == 4**2


def replace(name, version):
    """As a solver does that writes its next result."""
    shutil.copy(folder / version, folder / "next.tmp")
    os.replace(folder / "next.tmp", folder / name)


def check_replaced():
    """Replaced after the reader was told what the file holds."""
    for version, expected in {
        "swapped.zip": {"wing": 2**2, "tail": 3**2},
        "after.zip": {"wing": 4**2, "nose": 5**2, "tail": 6**2},
    }.items():
        replace("replaced.zip", "before.zip")
        reader = open_scene("replaced.zip")
        reader.UpdatePipelineInformation()
        replace("replaced.zip", version)
        reader.UpdatePipeline()
        blocks = [blocks_of(data) for data in FetchData(reader).values()]
        cells = {name: pieces[0].GetNumberOfCells() for own in blocks for name, pieces in own.items()}
        assert cells == expected, cells
        reader.UpdatePipelineInformation()
        assert sorted(reader.Blocks.Available) == sorted(expected), reader.Blocks.Available
        Delete(reader)


def check_versions():
    """Processes in different folders see different files under a relative path."""
    if processes == 1 or len(sys.argv) > 3:
        return
    other = folder / "other"
    other.mkdir(exist_ok=True)
    for own, version in (("step1.zip", "step0.zip"), ("before.zip", "swapped.zip"), ("before.zip", "after.zip")):
        replace("versions.zip", own)
        replace("other/versions.zip", version)
        os.chdir(other)
        reader = OpenDataFile("versions.zip")
        said = messages_of(reader.UpdatePipeline)
        os.chdir(folder)
        assert "The processes read different versions of the file" in said, said
        assert reader.GetDataInformation().GetNumberOfCells() == 0
        # The first process now sees the file of the others.
        assert ReloadFiles(reader)
        assert cells_of(reader) == (2**2 if own == "step1.zip" else 2**2 + 3**2)
        Delete(reader)


for scene in ("scene.zip", "scene.sdb"):
    reader = open_scene(scene)
    check_structure(reader)
    if scene == "scene.zip":
        check_fields(reader)
        check_shares(reader)
    draw(reader, f"{scene[-3:]}-{processes}" + ("-server" if len(sys.argv) > 3 else ""), False)
    if processes == 1:
        draw(reader, f"{scene[-3:]}-colors", True)
    check_choice(reader)
    check_abort(reader)
check_faults()
check_many()
check_replaced()
check_versions()
print("all checks passed")
