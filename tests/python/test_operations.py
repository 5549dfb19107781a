"""Opening, converting, checking and drawing, as the program does it."""

from __future__ import annotations

import json
import pathlib
from typing import Any, Callable

import numpy
import pytest
from vtkmodules.util.numpy_support import vtk_to_numpy
from vtkmodules.vtkIOImage import vtkPNGReader

import vemoscene
from conftest import EXAMPLES, GEOMETRY, damage, run_program, scene_xml, write_archive

Report = Callable[[float], object]


def names(scene: vemoscene.Scene) -> list[str]:
    return [node.path for node in scene.root.walk()]


def test_scene_from_bytes_equals_that_of_the_file(database: pathlib.Path) -> None:
    for path in [EXAMPLES / "wing.zip", database]:
        content = path.read_bytes()
        from_file = vemoscene.open(path)
        for data in [content, bytearray(content), memoryview(content)]:
            scene = vemoscene.open_bytes(data)
            assert (scene.path, scene.is_archive, names(scene)) == (None, from_file.is_archive, names(from_file))


def test_paths_of_all_types(tmp_path: pathlib.Path) -> None:
    odd = tmp_path / b"\xff \xc3\xbc.zip".decode("utf-8", "surrogateescape")
    odd.write_bytes((EXAMPLES / "drum.zip").read_bytes())
    paths: list[Any] = [odd, str(odd), bytes(odd)]
    for path in paths:
        assert vemoscene.open(path).path == str(odd)


def test_conversion_is_that_of_the_program(tmp_path: pathlib.Path, database: pathlib.Path) -> None:
    run_program("convert", EXAMPLES / "wing.zip", tmp_path / "expected.sdb")
    assert database.read_bytes() == (tmp_path / "expected.sdb").read_bytes()
    vemoscene.convert(database, tmp_path / "copy.sdb")
    assert (tmp_path / "copy.sdb").read_bytes() == database.read_bytes()


def test_conversion_replaces_a_file_only_when_asked(tmp_path: pathlib.Path) -> None:
    target = tmp_path / "out.sdb"
    target.write_text("precious")
    with pytest.raises(FileExistsError):
        vemoscene.convert(EXAMPLES / "drum.zip", target)
    assert target.read_text() == "precious"
    vemoscene.convert(EXAMPLES / "drum.zip", target, overwrite=True)
    assert vemoscene.open(target).records
    link = tmp_path / "link.sdb"
    link.symlink_to(target)
    with pytest.raises(ValueError, match="same file"):
        vemoscene.convert(target, link, overwrite=True)
    picture = tmp_path / "scene.png"
    picture.symlink_to(target)
    scenes: tuple[Any, ...] = (target, vemoscene.open(target))
    for scene in scenes:
        with pytest.raises(ValueError, match="replace the scene"):
            vemoscene.render(scene, (8, 8), save=picture)
    assert vemoscene.open(target).records


def test_findings(tmp_path: pathlib.Path) -> None:
    path = write_archive(tmp_path / "odd.zip", scene_xml("<vectors name='wind'/>", GEOMETRY.format("g")))
    lost = [finding for finding in vemoscene.open(path).findings if finding.severity == vemoscene.Severity.LOST]
    assert [(finding.code, finding.item, finding.line, finding.entry) for finding in lost
            ] == [("kind-not-shown", "scene/wind", 2, None)]
    assert str(lost[0]).startswith("lost: ") and lost[0].text in str(lost[0])
    assert [str(finding) for finding in vemoscene.convert(path, tmp_path / "odd.sdb")
            ] == [str(finding) for finding in vemoscene.open(path).findings]


def test_check_finds_what_the_program_does(tmp_path: pathlib.Path, database: pathlib.Path) -> None:
    damaged = tmp_path / "damaged.sdb"
    damaged.write_bytes(damage(database.read_bytes()))
    entry_missing = write_archive(tmp_path / "missing.zip", scene_xml(GEOMETRY.format("g"), "<lght/>"), {})
    for path in [damaged, entry_missing, EXAMPLES / "orbital.zip"]:
        printed = json.loads(run_program("check", "--json", path))["findings"]
        found = [{"code": finding.code, "severity": finding.severity.name.lower(), "text": finding.text,
                  "item": finding.item, "line": finding.line, "entry": finding.entry}
                 for finding in vemoscene.check(path)]
        assert found == [{"code": finding["code"], "severity": finding["severity"], "text": finding["text"],
                          "item": finding["itemPath"] or None, "line": finding["line"] or None, "entry": finding["entry"] or None}
                         for finding in printed]


def test_picture_is_that_of_the_program(tmp_path: pathlib.Path) -> None:
    run_program("render", EXAMPLES / "drum.zip", tmp_path / "expected.png", "--size", "160x90")
    scene = vemoscene.open(EXAMPLES / "drum.zip")
    picture = vemoscene.render(scene, (160, 90), save=tmp_path / "saved.png")
    assert (tmp_path / "saved.png").read_bytes() == (tmp_path / "expected.png").read_bytes()
    reader = vtkPNGReader()
    reader.SetFileName(str(tmp_path / "expected.png"))
    reader.Update()
    pixels = vtk_to_numpy(reader.GetOutput().GetPointData().GetScalars()).reshape(90, 160, 3)[::-1]
    assert picture.dtype == numpy.uint8 and (picture == pixels).all() and picture.std() > 1
    other_forms: list[Any] = [scene.root, EXAMPLES / "drum.zip"]
    for same in other_forms:
        assert (vemoscene.render(same, (160, 90)) == picture).all()
    picture[:] = 0


def test_extension_says_which_kind_of_picture(tmp_path: pathlib.Path) -> None:
    path = EXAMPLES / "drum.zip"
    run_program("render", path, tmp_path / "expected.jpg", "--size", "160x90")
    for name in ["saved.jpg", "saved.JPEG"]:
        vemoscene.render(path, (160, 90), save=tmp_path / name)
        assert (tmp_path / name).read_bytes() == (tmp_path / "expected.jpg").read_bytes()
    for unusable, message in [(str(tmp_path / "saved.bmp"), "saved.bmp is neither"), ("", "empty name")]:
        with pytest.raises(ValueError, match=message):
            vemoscene.render(path, (160, 90), save=unusable)
    assert not (tmp_path / "saved.bmp").exists()


def test_version_is_that_of_the_program() -> None:
    assert run_program("--version") == f"vemoscene {vemoscene.__version__}\n"


def test_drawing_reports_what_it_does_not_draw(tmp_path: pathlib.Path) -> None:
    annotation = "<annotation name='label' text='&#x0378;' visibility='1' version='1'/>"
    path = write_archive(tmp_path / "text.zip", scene_xml(annotation, GEOMETRY.format("g")))
    findings: list[vemoscene.Finding] = []
    vemoscene.render(path, (64, 48), findings=findings)
    (missing,) = [finding for finding in findings if finding.code == "glyph-missing"]
    assert missing.node_path is not None and vemoscene.open(path).root.find(missing.node_path) is not None


@pytest.mark.parametrize("size", [(0, 10), (10, 0), (16385, 10)])
def test_sizes_that_cannot_be_drawn(size: tuple[int, int]) -> None:
    with pytest.raises(ValueError):
        vemoscene.render(EXAMPLES / "drum.zip", size)


def test_only_scenes_are_drawn() -> None:
    with pytest.raises(ValueError, match="SceneCanvas"):
        vemoscene.render(vemoscene.open(EXAMPLES / "drum.zip").root.children[0])


def works(source: pathlib.Path, database: pathlib.Path, target: pathlib.Path) -> list[Callable[[Report], Any]]:
    return [
        lambda progress: vemoscene.open(source, progress),
        lambda progress: vemoscene.open(database, progress),
        lambda progress: vemoscene.open_bytes(source.read_bytes(), progress),
        lambda progress: vemoscene.convert(source, target, progress, overwrite=True),
        lambda progress: vemoscene.convert(database, target, progress, overwrite=True),
    ]


@pytest.mark.parametrize("index", range(5))
def test_progress_and_cancelling(tmp_path: pathlib.Path, database: pathlib.Path, index: int) -> None:
    target = tmp_path / "out.sdb"
    work = works(EXAMPLES / "wing.zip", database, target)[index]
    fractions: list[float] = []
    work(fractions.append)
    assert len(fractions) > 3 and fractions == sorted(fractions) and fractions[-1] == 1
    target.write_text("before")
    files = sorted(tmp_path.iterdir())

    def fail(fraction: float) -> None:
        if fraction > 0.4:
            raise ZeroDivisionError(fraction)

    with pytest.raises(vemoscene.Cancelled):
        work(lambda fraction: fraction < 0.4)
    with pytest.raises(ZeroDivisionError):
        work(fail)
    assert target.read_text() == "before" and sorted(tmp_path.iterdir()) == files


def test_what_the_last_report_raises_arrives() -> None:
    def fail(fraction: float) -> None:
        if fraction == 1:
            raise ZeroDivisionError

    with pytest.raises(ZeroDivisionError):
        vemoscene.open(EXAMPLES / "drum.zip", fail)
    vemoscene.open(EXAMPLES / "drum.zip", lambda fraction: fraction < 1)


def test_callbacks_cannot_call_the_library() -> None:
    with pytest.raises(RuntimeError, match="callback"):
        vemoscene.open(EXAMPLES / "drum.zip", lambda fraction: vemoscene.check(EXAMPLES / "drum.zip"))
    assert vemoscene.open(EXAMPLES / "drum.zip").records
