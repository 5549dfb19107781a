"""The table: what is measured against what. A new row is one more Pair, a new input a line in inputs.make_all."""

import pathlib

from measure import Pair

# Debian's own Python: it is the one that has Debian's VTK.
VTK = ["/usr/bin/python3", pathlib.Path(__file__).parent / "vtk_program.py"]

F3D = ["f3d", "--scalars", "--resolution=1024,768"]


def rows(program, files, folder):
    database = folder / "scene.sdb"
    large = folder / "large.sdb"
    convert = [program, "convert"]
    return [
        Pair(
            "convert / unzip -t, deflated",
            [*convert, files["deflated"], large],
            ["unzip", "-tq", files["deflated"]],
            0.6,
        ),
        Pair(
            "convert / unzip -t, stored",
            [*convert, files["stored"], database],
            ["unzip", "-tq", files["stored"]],
            0.5,
        ),
        Pair(
            "convert / VTK: read zlib .vtp, normals, write raw",
            [*convert, files["deflated"], database],
            [*VTK, files["zlib"], folder / "normals.vtp"],
            0.25,
        ),
        Pair(
            "convert / assimp export of a binary .ply",
            [*convert, files["deflated"], database],
            ["assimp", "export", files["binary"], folder / "scene.assbin"],
            0.3,
        ),
        Pair(
            "info of the database / VTK: read raw .vtp",
            [program, "info", large],
            [*VTK, files["raw"]],
            0.5,
        ),
        Pair(
            "render an archive / f3d of the zlib .vtp",
            [program, "render", files["deflated"], folder / "scene.png"],
            [*F3D, f"--output={folder}/other.png", files["zlib"]],
            0.6,
        ),
        Pair(
            "render a database / f3d of the raw .vtp",
            [program, "render", large, folder / "scene.png"],
            [*F3D, f"--output={folder}/other.png", files["raw"]],
            0.7,
        ),
    ]


def lone_commands(program, files, folder):
    """What is measured alone: its name, the command, the most seconds and MB."""
    database = folder / "lone.sdb"
    return [
        ("many items, convert", [program, "convert", files["items"], database], 2.5, 450),
        ("many items, info", [program, "info", files["items"]], 1.2, 400),
        ("copies of one part, convert", [program, "convert", files["copies"], database], 0.5, 100),
        ("10 items, convert", [program, "convert", files["ten"], database], 0.025, None),
        ("10 items, render", [program, "render", files["ten"], folder / "ten.png"], 0.25, None),
    ]
