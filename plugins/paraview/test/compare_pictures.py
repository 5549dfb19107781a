"""Compares the pictures that check_reader.py has drawn in a folder: they are the same however many processes drew them,
and show what the scene has."""
import pathlib
import sys

import numpy
from vtkmodules.util.numpy_support import vtk_to_numpy
from vtkmodules.vtkIOImage import vtkPNGReader

WAYS = ("1", "2", "4", "2-server")


def pixels(path):
    reader = vtkPNGReader()
    reader.SetFileName(str(path))
    reader.Update()
    return vtk_to_numpy(reader.GetOutput().GetPointData().GetScalars())[:, :3].astype(int)


folder = pathlib.Path(sys.argv[1])
pictures = {(scene, way): pixels(folder / f"{scene}-{way}.png") for scene in ("zip", "sdb") for way in WAYS}
first = pictures["zip", "1"]
assert 0.1 < numpy.mean((first != (32, 64, 96)).any(axis=1)) < 0.9
for scene in ("zip", "sdb"):
    colored = pixels(folder / f"{scene}-colors.png")
    for color in ((0, 255, 0), (192, 192, 192), (32, 64, 96)):
        assert numpy.count_nonzero((colored == color).all(axis=1)) > 100, (scene, color)
for key, picture in pictures.items():
    different = numpy.count_nonzero(abs(picture - first).max(axis=1) > 8)
    assert different < 0.001 * len(first), (key, different)
