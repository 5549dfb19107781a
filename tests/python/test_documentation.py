"""The page about the module is a session that really runs."""

from __future__ import annotations

import doctest
import os
import pathlib
import subprocess
import sys

import numpy
import numpy.typing
import pytest
from vtkmodules.util.numpy_support import vtk_to_numpy
from vtkmodules.vtkIOImage import vtkPNGReader

import vemoscene
from conftest import EXAMPLES, SOURCES


def read_png(path: pathlib.Path) -> numpy.typing.NDArray[numpy.float64]:
    reader = vtkPNGReader()
    reader.SetFileName(str(path))
    reader.Update()
    return numpy.asarray(vtk_to_numpy(reader.GetOutput().GetPointData().GetScalars()), float)


def test_page(tmp_path: pathlib.Path, monkeypatch: pytest.MonkeyPatch) -> None:
    (tmp_path / "examples").symlink_to(EXAMPLES)
    monkeypatch.chdir(tmp_path)
    result = doctest.testfile(str(SOURCES / "docs/library/python.md"), module_relative=False, encoding="utf-8")
    assert result.attempted > 20 and result.failed == 0
    # OpenGL implementations differ a little.
    difference = numpy.abs(read_png(tmp_path / "python.png") - read_png(SOURCES / "docs/images/python.png"))
    assert difference.mean() < 1


@pytest.mark.parametrize("folder", [SOURCES, SOURCES / "apps"])
def test_module_is_not_taken_for_the_program(folder: pathlib.Path) -> None:
    """The folders have a script and a folder of that name."""
    found = subprocess.run([sys.executable, "-c", "import vemoscene; print(vemoscene.__file__)"], cwd=folder, check=True,
                           capture_output=True, text=True).stdout
    assert os.path.samefile(found.strip(), str(vemoscene.__file__))


def test_help_has_everything() -> None:
    classes = [vemoscene.Cells, vemoscene.Finding, vemoscene.Node]
    members = [member for one in classes for name, member in vars(one).items() if not name.startswith("_")]
    public = [*members, *(getattr(vemoscene, name) for name in vemoscene.__all__)]
    assert len(members) > 15 and [one for one in public if not (one.__doc__ or "").rstrip().endswith(".")] == []
