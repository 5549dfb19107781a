"""The exceptions of vemoscene."""

from __future__ import annotations


class Cancelled(Exception):
    """A progress callback returned False. Nothing is left half written."""


class SceneError(Exception):
    """A scene cannot be read, converted or drawn."""

    message: str
    path: str | None
    """The file; None for a scene in memory."""
    entry: str | None
    """The entry of the archive concerned."""
    item: str | None
    """The item that was being read, such as "scene/wing/pressure"."""
    attribute: str | None
    """The attribute of the item that was being read."""
    line: int | None
    """The line of the scene description, from 1."""

    def __init__(self, message: str, *, path: str | None = None, entry: str | None = None, item: str | None = None,
                 attribute: str | None = None, line: int | None = None, place: str = "") -> None:
        super().__init__(message)
        self.message = message
        self.path = path
        self.entry = entry
        self.item = item
        self.attribute = attribute
        self.line = line
        self._place = place

    def __str__(self) -> str:
        is_named = self.path is None or self.path in self.message
        text = self.message if is_named else f"{self.path}: {self.message}"
        return f"{text} ({self._place})" if self._place else text


class UnsupportedFormatError(SceneError):
    """The file is not a scene, or a database of a later version."""


class ArchiveError(SceneError):
    """An archive is damaged, or one of its entries is missing or invalid."""


class DescriptionError(SceneError):
    """The scene description of an archive cannot be parsed."""


class UnsupportedVersionError(SceneError):
    """An element of the scene description is newer than this version of vemoscene."""


class ItemError(SceneError):
    """The values of an item contradict each other."""


class DatabaseError(SceneError):
    """A database is damaged."""


class OutputError(SceneError):
    """The result cannot be written. The target is unchanged."""


class RenderError(SceneError):
    """A picture cannot be drawn."""


class RenderingUnavailableError(RenderError):
    """There is no OpenGL, or none that draws pictures of this size."""


class SceneTooLargeError(RenderError):
    """Drawing the scene would take too much memory."""
