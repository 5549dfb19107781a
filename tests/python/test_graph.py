"""Node graphs: fields, paths and identity."""

from __future__ import annotations

import json
import pathlib
import pickle
from typing import Any

import numpy
import pytest

import vemoscene
from conftest import EXAMPLES, GEOMETRY, SOURCES, run_program, scene_xml, write_archive

SCENES = [*sorted(EXAMPLES.glob("*.zip")), *sorted((SOURCES / "tests/data").glob("*.sdb"))]


def is_printed_as(value: Any, printed: Any) -> bool:
    """Whether the program prints a field's value in this way."""
    if isinstance(value, numpy.ndarray):
        numbers = printed["values"] if isinstance(printed, dict) else printed
        return numpy.array_equal(value.ravel(), numpy.array(numbers, value.dtype), equal_nan=True)
    if isinstance(value, vemoscene.Cells):
        return len(value) == printed["cells"] and all(
            is_printed_as(getattr(value, name), printed[name]) for name in ("offsets", "connectivity"))
    if isinstance(value, dict):
        return value.keys() == printed.keys() and all(is_printed_as(value[name], printed[name]) for name in value)
    if isinstance(value, vemoscene.Node):
        return bool(printed == {"reference": value.path})
    is_enumerator = isinstance(value, str) and isinstance(printed, int)
    return is_enumerator or bool((list(value) if isinstance(value, tuple) else value) == printed)


def compare(node: vemoscene.Node, printed: dict[str, Any]) -> None:
    assert node.class_name == printed["class"] and node.name == printed["name"]
    assert node.qualified_name == printed.get("qualifiedName")
    for name, value in printed["fields"].items():
        assert is_printed_as(node.fields[name], value), f"{node.path}: {name}"
    for child, expected in zip(node.children, printed["nodes"], strict=True):
        compare(child, expected)


@pytest.mark.parametrize("path", SCENES, ids=[path.name for path in SCENES])
def test_graph_is_what_the_program_prints(path: pathlib.Path) -> None:
    scene = vemoscene.open(path)
    printed = json.loads(run_program("info", "--values", path))
    assert scene.is_archive == (printed["format"] == "ZippedScene")
    for record, expected in zip(scene.records, printed["records"], strict=True):
        assert (record.title, record.description, record.sim_uuid) == (expected["title"], expected["description"],
                                                                       expected["simUUID"])
        compare(record.root, expected["node"])


def test_values_of_each_kind() -> None:
    """Those that the program prints in another form, or not at all."""
    root = vemoscene.open(EXAMPLES / "wing.zip").root
    canvas = root.fields["modelCanvas"]
    assert canvas == root.find("ModelCanvas") and canvas.fields["drawables"].fields["nodes"] == tuple(
        canvas.fields["drawables"].children[-1:])
    color = next(root.walk("ColorAttributes")).fields
    assert color["colorMode"] == "by data" and color["color"] is None
    table = next(root.walk("ColorLookupTable")).fields["colorValues"]
    assert table.shape == (260,) and table.dtype == numpy.float64
    with pytest.raises(TypeError):
        color["opacity"] = 1  # type: ignore[index]


def test_paths_lead_to_their_nodes(tmp_path: pathlib.Path) -> None:
    names = ["plain", "a/b", "~", "~1", "", "ünï", "plain/"]
    assemblies = "".join(f"<assembly name='{name}' visibility='1'>{GEOMETRY.format(name)}</assembly>" for name in names)
    root = vemoscene.open(write_archive(tmp_path / "names.zip", scene_xml(assemblies))).root
    paths = [node.path for node in root.walk()]
    assert len(set(paths)) == len(paths) > len(names)
    assert [root.find(path) for path in paths] == list(root.walk())
    assert {"ModelCanvas/DrawableCollection/a~1b/a~1b", "ModelCanvas/DrawableCollection/~01/~01",
            "ModelCanvas/DrawableCollection/~e"} <= set(paths)
    collection = root.find("ModelCanvas/DrawableCollection")
    assert collection is not None
    below = collection.find("plain/plain")
    assert below is not None and below.path == "ModelCanvas/DrawableCollection/plain/plain"
    for absent in ["nonsense", "ModelCanvas/", "ModelCanvas//DrawableCollection", "/ModelCanvas", "ModelCanvas~#2"]:
        assert root.find(absent) is None


def test_siblings_of_one_name_are_told_apart() -> None:
    lights = next(vemoscene.open(EXAMPLES / "wing.zip").root.walk("LightCollection"))
    assert [lights.find(step) for step in ["~e", "~e~#2", "~e~#3"]] == [*lights.children, None]
    assert lights.children[0] != lights.children[1]


def test_objects_of_a_node_are_equal(triangle: vemoscene.Scene) -> None:
    root = triangle.root
    nodes = list(root.walk())
    assert len({*nodes, *root.walk()}) == len(nodes)
    assert all(child.parent == node for node in nodes for child in node.children)
    assert root.parent is None and root != object() and (root == None) is False  # noqa: E711
    assert root != vemoscene.open(str(triangle.path)).root


def test_walk_visits_owners_first_and_may_choose_a_class() -> None:
    root = vemoscene.open(EXAMPLES / "wing.zip").root

    def visit(node: vemoscene.Node) -> list[vemoscene.Node]:
        return [node, *(below for child in node.children for below in visit(child))]

    assert list(root.walk()) == visit(root)
    assert list(root.walk("Light")) == [node for node in visit(root) if node.class_name == "Light"]


def test_only_the_library_makes_its_objects() -> None:
    root = vemoscene.open(EXAMPLES / "drum.zip").root
    cells = next(root.walk("PolyDataNode")).fields["polys"]
    for made in (root, root.walk(), cells):
        for protocol in range(pickle.HIGHEST_PROTOCOL + 1):
            with pytest.raises(TypeError, match="cannot pickle"):
                pickle.dumps(made, protocol)
        make_by: tuple[Any, ...] = (type(made).__new__, object.__new__, lambda made_class: made_class())
        for make in make_by:
            with pytest.raises(TypeError):
                make(type(made))
