"""What opening a scene returns."""

from __future__ import annotations

import dataclasses

from vemoscene._native import Finding, Node


@dataclasses.dataclass(frozen=True)
class Record:
    """One record of a scene file: a node graph and its names."""

    title: str
    description: str
    sim_uuid: str
    root: Node


@dataclasses.dataclass(frozen=True)
class Scene:
    """The content of a scene file in memory."""

    path: str | None
    """The file; None for a scene from bytes."""
    is_archive: bool
    """Whether it was an archive of the old generation, not a database."""
    records: tuple[Record, ...]
    """One of an archive, any number of a database."""
    findings: tuple[Finding, ...] = dataclasses.field(repr=False)
    """What reading the file lost or changed."""

    @property
    def root(self) -> Node:
        """The root of the first record that has a scene, else of the first record."""
        roots = [record.root for record in self.records]
        if not roots:
            raise ValueError("the database has no records")
        return next((root for root in roots if root.class_name == "SceneNode"), roots[0])
