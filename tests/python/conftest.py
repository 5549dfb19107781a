"""What the tests of the Python module share."""

from __future__ import annotations

import os
import pathlib
import random
import subprocess
import zipfile

import numpy
import pytest

import vemoscene

SOURCES = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = SOURCES / "examples"

# In an archive numbers are written most significant byte first.
TRIANGLE = {
    "p": numpy.array([[0, 0, 0], [1, 0, 0], [0, 1, 0]], ">f4").tobytes(),
    "t": numpy.array([3, 0, 1, 2], ">i4").tobytes(),
    "heat": numpy.array([1, 2, 3], ">f4").tobytes(),
}
GEOMETRY = ("<geometry name='{}' version='1' visibility='1' lineColor='ff000080' faceColor='ff0000ff' showFaces='true' points='p'"
            " polys='t'>"
            "<array name='heat' dim='1' vertexData='true' data='heat'/></geometry>")


def scene_xml(*children: str) -> str:
    return "<scene background='204060ff'>\n" + "".join(children) + "</scene>"


def write_archive(path: pathlib.Path, description: str, entries: dict[str, bytes] = TRIANGLE) -> pathlib.Path:
    with zipfile.ZipFile(path, "w", zipfile.ZIP_DEFLATED, compresslevel=1) as archive:
        archive.writestr("scene.xml", description)
        for name, content in entries.items():
            archive.writestr(name, content)
    return path


def damage(content: bytes) -> bytes:
    middle = len(content) // 2
    return content[:middle] + bytes([content[middle] ^ 0xFF]) + content[middle + 1:]


def run_program(*arguments: str | pathlib.Path, messages: bool = False) -> str:
    """What the program prints, or its messages. Its exit status is ignored."""
    run = subprocess.run([os.environ["VEMOSCENE_PROGRAM"], *arguments], capture_output=True, check=False, text=True)
    return run.stderr if messages else run.stdout


@pytest.fixture
def database(tmp_path: pathlib.Path) -> pathlib.Path:
    """A database of a scene that has nearly everything."""
    path = tmp_path / "wing.sdb"
    vemoscene.convert(EXAMPLES / "wing.zip", path)
    return path


@pytest.fixture
def triangle(tmp_path: pathlib.Path) -> vemoscene.Scene:
    return vemoscene.open(write_archive(tmp_path / "triangle.zip", scene_xml(GEOMETRY.format("g"))))


@pytest.fixture(scope="session")
def large_archive(tmp_path_factory: pytest.TempPathFactory) -> pathlib.Path:
    """Takes some tenths of a second to read."""
    entries = {
        # Digits take much longer to be inflated than zeros.
        "p": random.Random(1).randbytes(6 * 1_500_000).hex().encode(),
        # Without area, or they would cover the picture too often.
        "t": TRIANGLE["t"] + numpy.array([3, 0, 1, 1], ">i4").tobytes() * 499_999,
        "heat": bytes(4 * 1_500_000),
    }
    return write_archive(tmp_path_factory.mktemp("large") / "large.zip", scene_xml(GEOMETRY.format("g")), entries)
