"""Writes the scene archives that the tests read:
  make_scenes.py FOLDER             small ones
  make_scenes.py --large FILE.zip   one of 64 surfaces, for measuring memory"""
import pathlib
import struct
import sys
import zipfile

COLORMAP = """<colormap name="map" version="1" min="0" max="1" log10="false" ramp="linear" title="T">
  <color>0000ffff</color><color>00ff00ff</color><color>ff0000ff</color></colormap>"""


class Archive:
    """Geometries of patches of a square lattice, which have `size` cells along each side."""

    def __init__(self):
        self.entries = {}

    def entry(self, kind, values):
        name = f"{kind}{len(self.entries)}.bin"
        self.entries[name] = struct.pack(f">{len(values)}{'i' if kind == 'cells' else 'f'}", *values)
        return name

    def patch(self, name, size, x, y, data="", **settings):
        nodes = range(size + 1)
        points = [c for i in nodes for j in nodes for c in (x + i / size, y + j / size, 0.0)]
        corners = [i * (size + 1) + j for i in range(size) for j in range(size)]
        cells = [c for k in corners for c in (4, k, k + size + 1, k + size + 2, k + 1)]
        array = ""
        if data:
            count = (size + 1) ** 2 if data == "point" else size**2
            entry = self.entry("array", [i / (count - 1) for i in range(count)])
            of_points = "true" if data == "point" else "false"
            array = f'<array name="heat" dim="1" vertexData="{of_points}" data="{entry}"/>'
        return self.geometry(name, points, f'polys="{self.entry("cells", cells)}"', array, **settings)

    def geometry(self, name, points, cells, children="", visibility=1, color="ff8000ff"):
        return f"""<geometry name="{name}" version="1" visibility="{visibility}" lineColor="{color}"
  faceColor="{color}" lineWidth="3" showEdges="false" showFaces="true" smoothShading="false" pointSize="5"
  points="{self.entry("points", points)}" {cells}>{children}</geometry>"""

    def write(self, path, content, compression=zipfile.ZIP_DEFLATED):
        view = '<view version="1" perspective="false" parallelScale="2.5"><position x="1.5" y="0" z="5"/>'
        view += '<up x="0" y="1" z="0"/><focalPt x="1.5" y="0" z="0"/></view>'
        with zipfile.ZipFile(path, "w", compression, compresslevel=1) as archive:
            archive.writestr("scene.xml", f'<scene name="test" version="1" background="204060ff">{view}{content}</scene>')
            for name, content in self.entries.items():
                archive.writestr(name, content)


def assembly(name, *children):
    return f'<assembly name="{name}" version="1" visibility="1">{"".join(children)}</assembly>'


def write_small(folder):
    archive = Archive()
    mirror = '<reflect version="2" planeEqnCoeffA="0" planeEqnCoeffB="1" planeEqnCoeffC="0" planeEqnCoeffD="0" flip="true"/>'
    content = [
        assembly("Both sides", mirror, COLORMAP, archive.patch("blade", 20, 0.0, 0.5, "point")),
        assembly("Hull", assembly("Cells &amp; more", COLORMAP, archive.patch("plating", 15, 1.2, 0.5, "cell")),
                 archive.patch("spare", 10, 0.0, 0.0, visibility=0),
                 archive.geometry("frame", [2.5, -1, 0, 2.5, 1, 0, 3, 0, 0], f'lines="{archive.entry("cells", [3, 0, 1, 2])}"',
                                  color="00ff00ff"),
                 archive.geometry("probes", [3.2, -1, 0, 3.2, 0, 0, 3.2, 1, 0], f'verts="{archive.entry("cells", [1, 0, 1, 1, 1, 2])}"')),
        assembly("Tiles", *(archive.patch("tile", 4 + i, 0.5 * i, -2.7, color="c0c0c0ff") for i in range(6))),
    ]
    archive.write(folder / "scene.zip", "".join(content) + "<odd/>")

    archive = Archive()
    outside = archive.entry("cells", [3, 0, 1, 99])
    archive.write(folder / "damaged.zip", archive.patch("good", 4, 0, 0)
                  + archive.geometry("bad", [0, 0, 0, 1, 0, 0, 1, 1, 0], f'polys="{outside}"'))
    archive = Archive()
    tile = archive.geometry("tile", [0, 0, 0, 1, 0, 0, 1, 1, 0], f'polys="{archive.entry("cells", [3, 0, 1, 2])}"')
    hidden = tile.replace('visibility="1"', 'visibility="0"')
    archive.write(folder / "many.zip", assembly("Many", *[tile] * 2001, hidden))
    for name, patches in {"before": {"wing": 2, "tail": 3}, "swapped": {"tail": 3, "wing": 2},
                          "after": {"wing": 4, "nose": 5, "tail": 6}}.items():
        archive = Archive()
        archive.write(folder / f"{name}.zip", "".join([archive.patch(*patch, 0, 0) for patch in patches.items()]))
    for step in range(2):
        # Of the same size, with a directory of 1.3 MB that begins with the difference.
        archive = Archive()
        wing = archive.patch("wing", 2, 100 * step, 0)
        archive.entries |= {f"unused {i:05}".ljust(600, "."): b"" for i in range(2000)}
        archive.write(folder / f"step{step}.zip", wing, zipfile.ZIP_STORED)
    Archive().write(folder / "broken.zip", "<assembly>")
    (folder / "text.zip").write_text("This is not a scene.")


def write_large(path):
    archive = Archive()
    patches = [archive.patch(f"patch {i}", 300, i % 8, i // 8, "point") for i in range(64)]
    archive.write(path, assembly("Patches", COLORMAP, *patches))


if sys.argv[1] == "--large":
    write_large(pathlib.Path(sys.argv[2]))
else:
    write_small(pathlib.Path(sys.argv[1]))
