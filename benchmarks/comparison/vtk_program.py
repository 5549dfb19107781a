"""What VTK needs for the work of a conversion: read a .vtp, compute normals, write it raw."""

import sys

from vtkmodules.vtkFiltersCore import vtkPolyDataNormals
from vtkmodules.vtkIOXML import vtkXMLPolyDataReader, vtkXMLPolyDataWriter

reader = vtkXMLPolyDataReader()
reader.SetFileName(sys.argv[1])
if len(sys.argv) == 2:
    reader.Update()
    sys.exit(0 if reader.GetOutput().GetNumberOfPoints() else 1)
normals = vtkPolyDataNormals()
normals.SetInputConnection(reader.GetOutputPort())
normals.SplittingOff()
writer = vtkXMLPolyDataWriter()
writer.SetInputConnection(normals.GetOutputPort())
writer.SetFileName(sys.argv[2])
writer.SetDataModeToAppended()
writer.EncodeAppendedDataOff()
writer.SetCompressorTypeToNone()
sys.exit(0 if writer.Write() else 1)
