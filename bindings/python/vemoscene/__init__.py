"""Scenes of a viewer for simulation results, old archives as well as databases.

    import vemoscene
    scene = vemoscene.open("wing.zip")
    for node in scene.root.walk("PolyDataNode"):
        print(node.path, node.fields["points"].shape)

Arrays are numpy arrays, and poly data objects of vtkmodules, both without a copy. They are shared with
the scene, and with each other: copy them to change them.

Any thread may call any function. One works at a time; others wait, and Python goes on.
"""

from __future__ import annotations

import atexit
import builtins
import os
import stat
from typing import Callable, Optional, Union

from vemoscene._interpreter import require_main_interpreter

require_main_interpreter()

import numpy
import numpy.typing

from vemoscene import _native
from vemoscene._errors import (ArchiveError, Cancelled, DatabaseError, DescriptionError, ItemError, OutputError,
                               RenderError, RenderingUnavailableError, SceneError, SceneTooLargeError,
                               UnsupportedFormatError, UnsupportedVersionError)
from vemoscene._native import Cells, Finding, Node
from vemoscene._scene import Record, Scene
from vemoscene._severity import Severity

__all__ = [
    "ArchiveError", "Cancelled", "Cells", "DatabaseError", "DescriptionError", "Finding", "ItemError", "Node",
    "OutputError", "Record", "RenderError", "RenderingUnavailableError", "Scene", "SceneError", "SceneTooLargeError",
    "Severity", "UnsupportedFormatError", "UnsupportedVersionError", "check", "convert", "open", "open_bytes", "render"
]

__version__ = _native.VERSION

_Path = Union[str, bytes, "os.PathLike[str]", "os.PathLike[bytes]"]

_Progress = Optional[Callable[[float], object]]
"""Called with the share that is done, from 0 to 1, which never falls, by the thread that works. Returning False
cancels the work; raising does, too, and the caller gets that exception."""

atexit.register(_native.end_turns)
os.register_at_fork(before=_native.hold_turn, after_in_parent=_native.let_go_turn,
                    after_in_child=_native.let_go_turn_in_child)

MAX_PICTURE_SIZE = _native.MAX_PICTURE_SIZE


def open(path: _Path, progress: _Progress = None) -> Scene:
    """Opens a scene file of either generation. Writes no file.

    Raises SceneError, and OSError for a file that does not exist or may not be read.
    """
    file = _require_readable(path)
    is_archive, records, findings = _native.open(file, progress)
    return Scene(os.fsdecode(file), is_archive, tuple(Record(*record) for record in records), findings)


def open_bytes(data: bytes | bytearray | memoryview, progress: _Progress = None) -> Scene:
    """Opens the content of a scene file."""
    content = data if isinstance(data, bytes) else bytes(memoryview(data))
    is_archive, records, findings = _native.open_bytes(content, progress)
    return Scene(None, is_archive, tuple(Record(*record) for record in records), findings)


def convert(source: _Path, target: _Path, progress: _Progress = None, overwrite: bool = False) -> tuple[Finding, ...]:
    """Converts a scene file to a scene-graph database, and returns what was lost or changed.

    The target is written completely or not at all. An existing one raises FileExistsError unless `overwrite`.
    A database is checked and written again.
    """
    source_file, target_file = _require_readable(source), os.fsencode(target)
    if os.path.lexists(target_file):
        if _is_same_file(source_file, target_file):
            raise ValueError("source and target are the same file")
        if not overwrite:
            raise FileExistsError(f"{os.fsdecode(target_file)} exists: overwrite=True replaces it")
    return _native.convert(source_file, target_file, progress)


def check(path: _Path) -> tuple[Finding, ...]:
    """Lists everything wrong or suspicious in a scene file, also what drawing it would report."""
    return _native.check(_require_readable(path))


def render(scene: Scene | Node | _Path, size: tuple[int, int] = (1024, 768), *, save: _Path | None = None,
           findings: list[Finding] | None = None) -> numpy.typing.NDArray[numpy.uint8]:
    """Draws a scene without a display, and returns the picture: rows from top to bottom of pixels of red, green, blue.

    size: width and height in pixels.
    save: a PNG file (.png, or without an extension) or JPEG file (.jpg, .jpeg) to be written, too; it replaces an
        existing file.
    findings: a list to which what is not drawn, or drawn differently, is appended.
    """
    width, height = size
    if not (1 <= width <= MAX_PICTURE_SIZE and 1 <= height <= MAX_PICTURE_SIZE):
        raise ValueError(f"width and height must be from 1 to {MAX_PICTURE_SIZE}")
    if save is not None and not os.fsencode(save):
        raise ValueError("the picture's file has an empty name")
    file = b"" if save is None else os.fsencode(save)
    _require_other_file(scene, file)
    picture, found = _native.render(_root_of(scene), width, height, file, _is_jpeg(file))
    if findings is not None:
        findings.extend(found)
    return picture


def _is_same_file(one: str | bytes, other: str | bytes) -> bool:
    return os.path.exists(one) and os.path.exists(other) and os.path.samefile(one, other)


def _require_other_file(scene: Scene | Node | _Path, picture: bytes) -> None:
    if isinstance(scene, Node):
        return
    source = scene.path if isinstance(scene, Scene) else os.fsencode(scene)
    if source is not None and picture and _is_same_file(source, picture):
        raise ValueError("the picture would replace the scene")


def _is_jpeg(file: bytes) -> bool:
    extension = os.path.splitext(file)[1].lower()
    if extension not in (b"", b".png", b".jpg", b".jpeg"):
        raise ValueError(f"{os.fsdecode(file)} is neither a PNG file (.png) nor a JPEG file (.jpg, .jpeg)")
    return extension in (b".jpg", b".jpeg")


def _root_of(scene: Scene | Node | _Path) -> Node:
    if isinstance(scene, Node):
        return scene
    return scene.root if isinstance(scene, Scene) else open(scene).root


def _require_readable(path: _Path) -> bytes:
    """Raises the OSError of a file that cannot be read. Opening a pipe does not wait for a writer."""
    name = os.fsdecode(path)  # refuses numbers, which are the caller's open files
    with builtins.open(name, "rb", opener=lambda name, flags: os.open(name, flags | os.O_NONBLOCK)) as file:
        if not stat.S_ISREG(os.fstat(file.fileno()).st_mode):
            raise OSError(f"{name} is not a regular file")
    return os.fsencode(name)


for _name in __all__:
    # Where users find it.
    globals()[_name].__module__ = __name__
del _name
