"""Scenes in the renderers of VTK programs."""

from __future__ import annotations

from vemoscene import _native, _vtk

__all__ = ["vtkVemoSceneImporter"]


class vtkVemoSceneImporter(_vtk.vtkVemoSceneImporter):
    """VTK's importer of scenes. It waits while another thread is in vemoscene."""

    def Update(self) -> None:
        _native.in_turn(super().Update)

    def Read(self) -> None:
        self.Update()

    def Clear(self) -> None:
        _native.in_turn(super().Clear)
