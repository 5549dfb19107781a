"""Failures are exceptions that say where."""

from __future__ import annotations

import os
import pathlib
import pickle
import subprocess
import sys
from typing import Any

import pytest

import vemoscene
from conftest import EXAMPLES, GEOMETRY, TRIANGLE, damage, run_program, scene_xml, write_archive

SCENE = scene_xml(GEOMETRY.format("g"))
Fault = tuple[type[vemoscene.SceneError], str, dict[str, bytes], dict[str, Any]]
FAULTS: dict[str, Fault] = {
    "not XML": (vemoscene.DescriptionError, "<scene>\n<geometry</scene>", TRIANGLE, {"line": 2, "entry": "scene.xml"}),
    "no number": (vemoscene.DescriptionError, SCENE.replace("ff0000ff", "00GG0000"), TRIANGLE,
                  {"line": 2, "attribute": "faceColor"}),
    "no entry": (vemoscene.ArchiveError, SCENE, {"t": TRIANGLE["t"]}, {"line": 2, "entry": "p", "item": "scene/g"}),
    "index outside": (vemoscene.ArchiveError, SCENE, {**TRIANGLE, "p": TRIANGLE["p"][:24]}, {"entry": "t"}),
    "negative count": (vemoscene.ItemError, SCENE, {**TRIANGLE, "t": b"\xff" * 16}, {"line": 2, "item": "scene/g"}),
    "no colour": (vemoscene.ItemError, SCENE.replace("faceColor", "fColor"), TRIANGLE, {"attribute": "faceColor"}),
    "future version": (vemoscene.UnsupportedVersionError, SCENE.replace("version='1'", "version='99'"), TRIANGLE,
                       {"line": 2, "item": "scene/g"}),
}


@pytest.mark.parametrize("fault", FAULTS)
def test_faults_of_archives(tmp_path: pathlib.Path, fault: str) -> None:
    error, description, entries, place = FAULTS[fault]
    path = write_archive(tmp_path / "fault.zip", description, entries)
    with pytest.raises(error) as caught:
        vemoscene.open(path)
    raised = caught.value
    assert type(raised) is error
    assert {key: getattr(raised, key) for key in place} == place and raised.path == str(path)
    assert all(str(value) in str(raised) for value in [path, *place.values()])
    again = pickle.loads(pickle.dumps(raised))
    assert (str(again), again.line) == (str(raised), raised.line)
    with pytest.raises(error) as of_bytes:
        vemoscene.open_bytes(path.read_bytes())
    assert of_bytes.value.path is None and of_bytes.value.line == raised.line


def test_message_is_that_of_the_program(tmp_path: pathlib.Path) -> None:
    path = write_archive(tmp_path / "fault.zip", SCENE, {})
    with pytest.raises(vemoscene.ArchiveError) as caught:
        vemoscene.open(path)
    assert run_program("info", path, messages=True) == f"vemoscene: {caught.value}\n"


@pytest.mark.parametrize("error, spoil", [
    (vemoscene.DatabaseError, damage),
    (vemoscene.UnsupportedFormatError, lambda content: b""),
    (vemoscene.UnsupportedFormatError, lambda content: b"text"),
])
def test_faults_of_other_files(database: pathlib.Path, error: type[vemoscene.SceneError], spoil: Any) -> None:
    database.write_bytes(spoil(database.read_bytes()))
    works: list[Any] = [vemoscene.open, lambda path: vemoscene.convert(path, database.with_name("copy.sdb"))]
    for work in works:
        with pytest.raises(error) as caught:
            work(database)
        assert caught.value.path == str(database)
    assert not database.with_name("copy.sdb").exists()


def test_a_zip_archive_that_ends_early(tmp_path: pathlib.Path) -> None:
    path = tmp_path / "short.zip"
    path.write_bytes((EXAMPLES / "drum.zip").read_bytes()[:2000])
    with pytest.raises(vemoscene.ArchiveError):
        vemoscene.open(path)
    assert [finding.severity for finding in vemoscene.check(path)] == [vemoscene.Severity.REFUSED]


@pytest.mark.parametrize("work", [vemoscene.open, vemoscene.check, vemoscene.render,
                                  lambda path: vemoscene.convert(path, "unused.sdb")])
def test_files_that_cannot_be_opened(tmp_path: pathlib.Path, work: Any) -> None:
    with pytest.raises(FileNotFoundError) as caught:
        work(tmp_path / "missing.zip")
    assert caught.value.filename == str(tmp_path / "missing.zip")
    with pytest.raises(IsADirectoryError):
        work(tmp_path)
    os.mkfifo(tmp_path / "pipe")
    with pytest.raises(OSError, match="regular file"):
        work(tmp_path / "pipe")
    with pytest.raises(TypeError):
        work(None)
    with open(tmp_path / "pipe", "rb", opener=lambda name, flags: os.open(name, flags | os.O_NONBLOCK)) as other:
        with pytest.raises(TypeError):
            work(other.fileno())
        os.fstat(other.fileno())


def test_results_that_cannot_be_written(tmp_path: pathlib.Path, triangle: vemoscene.Scene,
                                        database: pathlib.Path) -> None:
    nowhere = tmp_path / "missing" / "out"
    works: list[Any] = [lambda: vemoscene.convert(EXAMPLES / "drum.zip", nowhere),
                        lambda: vemoscene.convert(database, nowhere),
                        lambda: vemoscene.render(triangle, (8, 8), save=nowhere)]
    for work in works:
        with pytest.raises(vemoscene.OutputError, match="missing") as caught:
            work()
        assert caught.value.path == str(nowhere)


def test_too_little_memory(large_archive: pathlib.Path, tmp_path: pathlib.Path) -> None:
    database = tmp_path / "large.sdb"
    vemoscene.convert(large_archive, database)
    session = """
import resource, sys, vemoscene
pages = int(open("/proc/self/statm").read().split()[0])
free, limit = resource.getrlimit(resource.RLIMIT_AS)
resource.setrlimit(resource.RLIMIT_AS, (pages * resource.getpagesize() + 5_000_000, limit))
try:
    vemoscene.open(sys.argv[1])
except MemoryError:
    resource.setrlimit(resource.RLIMIT_AS, (free, limit))
    print(vemoscene.open(sys.argv[1]).root.class_name)
"""
    run = subprocess.run([sys.executable, "-c", session, str(database)], capture_output=True, check=False, text=True)
    assert run.stdout == "SceneNode\n", run.stderr


def test_arguments_are_checked(triangle: vemoscene.Scene) -> None:
    with pytest.raises(TypeError):
        vemoscene.open_bytes("text")  # type: ignore[arg-type]
    with pytest.raises(TypeError):
        vemoscene.open_bytes(5)  # type: ignore[arg-type]
    with pytest.raises(TypeError):
        triangle.root.find(b"x")  # type: ignore[arg-type]
    with pytest.raises(TypeError):
        vemoscene.open(str(triangle.path), 3)  # type: ignore[arg-type]
