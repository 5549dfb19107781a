"""Arrays and poly data are shared with the scene, not copied, and live as long as they are used."""

from __future__ import annotations

import gc
import pathlib
from typing import Any

import numpy
import pytest
from vtkmodules.util.numpy_support import vtk_to_numpy
from vtkmodules.vtkCommonDataModel import vtkPolyData
from vtkmodules.vtkFiltersCore import vtkMassProperties

import vemoscene
from conftest import EXAMPLES


def address(array: Any) -> int:
    return int(array.__array_interface__["data"][0])


def mesh(scene: vemoscene.Scene) -> vemoscene.Node:
    return next(scene.root.walk("PolyDataNode"))


def test_numpy_and_vtk_have_the_same_memory(triangle: vemoscene.Scene) -> None:
    fields, poly_data = mesh(triangle).fields, mesh(triangle).poly_data
    polys = poly_data.GetPolys()
    for ours, theirs in [(fields["points"], poly_data.GetPoints().GetData()),
                         (fields["nodeDataArrays"]["heat"], poly_data.GetPointData().GetArray("heat")),
                         (fields["polys"].offsets, polys.GetOffsetsArray()),
                         (fields["polys"].connectivity, polys.GetConnectivityArray())]:
        assert address(ours) == address(vtk_to_numpy(theirs))
        assert ours.tolist() == vtk_to_numpy(theirs).tolist()


def test_arrays_cannot_be_written(triangle: vemoscene.Scene) -> None:
    fields = mesh(triangle).fields
    for array in [fields["points"], fields["polys"].offsets, fields["nodeDataArrays"]["heat"]]:
        with pytest.raises(ValueError, match="read-only"):
            array[0] = 1


def test_users_keep_arrays_alive_and_nothing_else_does(tmp_path: pathlib.Path) -> None:
    scene = vemoscene.open(EXAMPLES / "wing.zip")
    array = mesh(scene).poly_data.GetPoints().GetData()
    view = mesh(scene).fields["points"][1:]
    expected = view.copy()
    with_view = array.GetReferenceCount()
    del scene
    gc.collect()
    assert array.GetReferenceCount() < with_view, "the graph was not freed"
    del array
    # Freed memory would be used again.
    others = [vemoscene.open(EXAMPLES / "wing.zip") for _ in range(3)]
    assert (view == expected).all() and others


def test_views_return_their_references(triangle: vemoscene.Scene) -> None:
    array = mesh(triangle).poly_data.GetPoints().GetData()
    before = array.GetReferenceCount()
    views = [mesh(triangle).fields["points"] for _ in range(10)]
    assert array.GetReferenceCount() == before + len(views)
    views.clear()
    assert array.GetReferenceCount() == before


@pytest.mark.parametrize("holder", [lambda scene: scene.root, lambda scene: mesh(scene), lambda scene: scene.root.walk(),
                                    lambda scene: mesh(scene).fields["polys"]])
def test_whatever_leads_to_a_graph_keeps_it(holder: Any) -> None:
    held = holder(vemoscene.open(EXAMPLES / "wing.zip"))
    gc.collect()
    others = [vemoscene.open(EXAMPLES / "drum.zip") for _ in range(3)]
    nodes = [held, *held.walk()] if isinstance(held, vemoscene.Node) else list(held)
    assert len(nodes) >= 1 and others
    assert all(repr(node) for node in nodes)


def test_poly_data_works_in_a_pipeline(triangle: vemoscene.Scene) -> None:
    poly_data = mesh(triangle).poly_data
    assert type(poly_data) is vtkPolyData
    properties = vtkMassProperties()
    properties.SetInputData(poly_data)
    assert properties.GetSurfaceArea() == pytest.approx(0.5)
    assert triangle.root.poly_data is None


def test_cells_are_a_sequence(triangle: vemoscene.Scene) -> None:
    cells = mesh(triangle).fields["polys"]
    assert len(cells) == 1 and [cell.tolist() for cell in cells] == [[0, 1, 2]] and cells[-1].tolist() == [0, 1, 2]
    for outside in [1, -2]:
        with pytest.raises(IndexError):
            cells[outside]
    wing = mesh(vemoscene.open(EXAMPLES / "wing.zip")).fields["polys"]
    assert numpy.concatenate(list(wing)).tolist() == wing.connectivity.tolist()


def test_shapes_and_types(tmp_path: pathlib.Path) -> None:
    fields = mesh(vemoscene.open(EXAMPLES / "wing.zip")).fields
    assert (fields["points"].shape[1:], fields["points"].dtype) == ((3,), numpy.float32)
    assert fields["nodeDataArrays"]["Cp"].shape == fields["points"].shape[:1]
    kind = mesh(vemoscene.open(pathlib.Path(__file__).parents[1] / "data/version-2.sdb")).fields["cellDataArrays"]["kind"]
    assert (kind.dtype, kind.tolist()) == (numpy.uint8, [7, 255])


def test_pyvista_takes_poly_data(triangle: vemoscene.Scene) -> None:
    pyvista = pytest.importorskip("pyvista")
    assert pyvista.wrap(mesh(triangle).poly_data).n_points == 3
