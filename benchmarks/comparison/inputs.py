"""Makes the files that are measured, from formulas: a wavy grid of two triangles a square, and its scalars."""

import array
import math
import pathlib
import struct
import sys
import zipfile
import zlib

BLOCK_BYTES = 1 << 15  # of VTK's compressed arrays: its default

ITEM = (
    '<geometry name="{name}" visibility="1" lineColor="000000ff" faceColor="c0c0c0ff" lineWidth="1"'
    ' showFaces="true" smoothShading="true" points="{points}" polys="{cells}">{arrays}</geometry>'
)
COLORMAP = '<colormap name="m" version="1" min="-1" max="1" title="h"/>'
BOX_POINTS = [0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1]
BOX_CELLS = [4, 0, 3, 2, 1, 4, 4, 5, 6, 7, 4, 0, 1, 5, 4, 4, 1, 2, 6, 5, 4, 2, 3, 7, 6, 4, 3, 0, 4, 7]


class Surface:
    """A grid of side x side squares; arrays of 32-bit values in the byte order of this machine."""

    def __init__(self, side):
        self.side = side
        self.points = array.array("f")
        self.scalars = array.array("f")
        self.corners = array.array("i")
        waves = [math.sin(0.05 * x) for x in range(side + 1)]
        for y in range(side + 1):
            height = math.cos(0.07 * y)
            self.points.extend(value for x, wave in enumerate(waves) for value in (x, y, 5 * wave * height))
            self.scalars.extend(wave * height for wave in waves)
        for y in range(side):
            first = y * (side + 1)
            above = side + 1
            self.corners.extend(
                corner
                for i in range(first, first + side)
                for corner in (i, i + 1, i + above + 1, i, i + above + 1, i + above)
            )

    def point_count(self):
        return len(self.scalars)

    def triangle_count(self):
        return len(self.corners) // 3

    def cells(self):
        """The corners of each triangle behind their number."""
        cells = array.array("i", bytes(16 * self.triangle_count()))
        cells[0::4] = array.array("i", [3]) * self.triangle_count()
        for i in range(3):
            cells[i + 1 :: 4] = self.corners[i::3]
        return cells


def big_endian(values):
    if sys.byteorder == "little":
        values = values[:]
        values.byteswap()
    return values.tobytes()


def write_archive(path, xml, entries, method=zipfile.ZIP_DEFLATED):
    with zipfile.ZipFile(path, "w", method) as archive:
        for name, values in entries.items():
            archive.writestr(name, big_endian(values))
        archive.writestr("scene.xml", xml)


def scene(content):
    return f'<scene name="s" version="1" background="ffffffff">{content}</scene>'


def write_scene(path, surface, method):
    data = '<array name="h" dim="1" vertexData="true" data="h.bin"/>'
    item = ITEM.format(name="surface", points="p.bin", cells="c.bin", arrays=data)
    xml = scene(f'<assembly name="a" visibility="1">{COLORMAP}{item}</assembly>')
    write_archive(path, xml, {"p.bin": surface.points, "c.bin": surface.cells(), "h.bin": surface.scalars}, method)


def write_items(path, count):
    """Boxes, a hundred to an assembly, which share their two entries."""
    xml = []
    for i in range(count):
        if i % 100 == 0:
            xml.append(("</assembly>" if i else "") + f'<assembly name="a{i}" visibility="1">')
        xml.append(ITEM.format(name=f"g{i}", points="p.bin", cells="c.bin", arrays=""))
    entries = {"p.bin": array.array("f", BOX_POINTS), "c.bin": array.array("i", BOX_CELLS)}
    write_archive(path, scene("".join(xml) + "</assembly>"), entries)


def write_copies(path, surface, count):
    """Items that share the entries of one surface."""
    items = "".join(ITEM.format(name=f"g{i}", points="p.bin", cells="c.bin", arrays="") for i in range(count))
    xml = scene(f'<assembly name="a" visibility="1">{items}</assembly>')
    write_archive(path, xml, {"p.bin": surface.points, "c.bin": surface.cells()})


def vtk_block(content, compressed):
    """An array as VTK's XML files append it."""
    if not compressed:
        return struct.pack("<Q", len(content)) + content
    blocks = [zlib.compress(content[i : i + BLOCK_BYTES]) for i in range(0, len(content), BLOCK_BYTES)]
    head = [len(blocks), BLOCK_BYTES, len(content) % BLOCK_BYTES, *map(len, blocks)]
    return struct.pack(f"<{len(head)}Q", *head) + b"".join(blocks)


def write_vtp(path, surface, compressed):
    offsets = array.array("i", range(3, 3 * surface.triangle_count() + 1, 3))
    blocks, xml = [], {}
    position = 0
    for name, kind, values in (
        ("h", "Float32", surface.scalars),
        ("Points", "Float32", surface.points),
        ("connectivity", "Int32", surface.corners),
        ("offsets", "Int32", offsets),
    ):
        blocks.append(vtk_block(values.tobytes(), compressed))
        components = ' NumberOfComponents="3"' if name == "Points" else ""
        xml[name] = f'<DataArray type="{kind}" Name="{name}"{components} format="appended" offset="{position}"/>'
        position += len(blocks[-1])
    compressor = ' compressor="vtkZLibDataCompressor"' if compressed else ""
    head = (
        f'<?xml version="1.0"?><VTKFile type="PolyData" version="1.0" byte_order="LittleEndian"'
        f' header_type="UInt64"{compressor}><PolyData><Piece NumberOfPoints="{surface.point_count()}"'
        f' NumberOfVerts="0" NumberOfLines="0" NumberOfStrips="0" NumberOfPolys="{surface.triangle_count()}">'
        f'<PointData Scalars="h">{xml["h"]}</PointData><Points>{xml["Points"]}</Points>'
        f'<Polys>{xml["connectivity"]}{xml["offsets"]}</Polys></Piece></PolyData>'
        f'<AppendedData encoding="raw">_'
    )
    with open(path, "wb") as file:
        file.write(head.encode())
        file.writelines(blocks)
        file.write(b"</AppendedData></VTKFile>\n")


def write_ply(path, surface):
    head = (
        f"ply\nformat binary_little_endian 1.0\nelement vertex {surface.point_count()}\n"
        "property float x\nproperty float y\nproperty float z\n"
        f"element face {surface.triangle_count()}\nproperty list uchar int vertex_indices\nend_header\n"
    )
    pack = struct.Struct("<B3i").pack
    corners = iter(surface.corners)
    with open(path, "wb") as file:
        file.write(head.encode())
        file.write(surface.points.tobytes())
        file.writelines(pack(3, *triangle) for triangle in zip(corners, corners, corners))


def make_all(folder, triangles, items, copies):
    """Files by name; those that are there from an earlier run are kept."""
    folder = pathlib.Path(folder)
    side = round(math.sqrt(triangles / 2))
    cache = {}

    def large():
        if "surface" not in cache:
            cache["surface"] = Surface(side)
        return cache["surface"]

    makers = {
        f"deflated-{triangles}.zip": lambda path: write_scene(path, large(), zipfile.ZIP_DEFLATED),
        f"stored-{triangles}.zip": lambda path: write_scene(path, large(), zipfile.ZIP_STORED),
        f"zlib-{triangles}.vtp": lambda path: write_vtp(path, large(), True),
        f"raw-{triangles}.vtp": lambda path: write_vtp(path, large(), False),
        f"binary-{triangles}.ply": lambda path: write_ply(path, large()),
        f"items-{items}.zip": lambda path: write_items(path, items),
        "ten-10.zip": lambda path: write_items(path, 10),
        f"copies-{copies}.zip": lambda path: write_copies(path, Surface(50), copies),
    }
    files = {}
    for name, make in makers.items():
        path = folder / name
        if not path.exists():
            make(path.with_suffix(".new"))
            path.with_suffix(".new").rename(path)
        files[name.rsplit("-")[0]] = path
    return files
