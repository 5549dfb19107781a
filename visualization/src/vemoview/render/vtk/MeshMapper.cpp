#include "vemoview/render/vtk/MeshMapper.h"

#include "geometry/Bounds.h"

#include <vtkActor.h>
#include <vtkCellArray.h>
#include <vtkMath.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLIndexBufferObject.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkShader.h>
#include <vtkShaderProgram.h>
#include <vtkTypeInt32Array.h>

namespace vemo {

vtkStandardNewMacro(MeshMapper);

void MeshMapper::ComputeBounds() {
  vtkPolyData& geometry = *GetInput();
  const vtkMTimeType now = geometry.GetMTime();
  if (now == _boundsTime) {
    return;
  }
  _boundsTime = now;
  // What planes cut away wholly has no points.
  const Box box = geometry.GetPoints() != nullptr ? boundsOfCells(geometry) : Box();
  vtkMath::UninitializeBounds(Bounds);
  for (std::size_t axis = 0; axis < 3 && !box.isEmpty(); ++axis) {
    Bounds[2 * axis] = box.low[axis];
    Bounds[2 * axis + 1] = box.high[axis];
  }
}

/// With 32-bit indices, and nothing but the faces to be drawn. Data at cells
/// need VTK's own numbering of triangles.
bool MeshMapper::hasOnlyTriangles(vtkActor& actor, vtkPolyData& geometry) const {
  vtkProperty& property = *actor.GetProperty();
  vtkCellArray& faces = *geometry.GetPolys();
  return property.GetRepresentation() == VTK_SURFACE && property.GetVertexVisibility() == 0 &&
         !HaveCellScalars && !HaveCellNormals && geometry.GetNumberOfCells() == faces.GetNumberOfCells() &&
         !faces.IsStorage64Bit() && faces.IsHomogeneous() == 3;
}

void MeshMapper::BuildIBO(vtkRenderer* renderer, vtkActor* actor, vtkPolyData* geometry) {
  if (hasOnlyTriangles(*actor, *geometry)) {
    uploadTriangles(*geometry->GetPolys());
  } else {
    _trianglesTime = 0;
    vtkOpenGLPolyDataMapper::BuildIBO(renderer, actor, geometry);
  }
}

void MeshMapper::uploadTriangles(vtkCellArray& triangles) {
  const vtkMTimeType now = triangles.GetMTime();
  if (now == _trianglesTime) {
    return;
  }
  _trianglesTime = now;
  // What VTK has built before, it must not believe to be still there.
  IBOBuildState.Clear();
  for (vtkOpenGLHelper& primitives : Primitives) {
    primitives.IBO->IndexCount = 0;
  }
  vtkTypeInt32Array& indices = *triangles.GetConnectivityArray32();
  const auto count = static_cast<std::size_t>(indices.GetNumberOfValues());
  vtkOpenGLIndexBufferObject& buffer = *Primitives[PrimitiveTris].IBO;
  buffer.Upload(indices.GetPointer(0), count, vtkOpenGLIndexBufferObject::ElementArrayBuffer);
  buffer.IndexCount = count;
}

/// Removes code without effect from the fragment shader. Where VTK's source differs
/// from the text expected here, it is left as it is.
void MeshMapper::ReplaceShaderValues(std::map<vtkShader::Type, vtkShader*> shaders, vtkRenderer* renderer,
                                     vtkActor* actor) {
  vtkOpenGLPolyDataMapper::ReplaceShaderValues(shaders, renderer, actor);
  vtkShader* const pixels = shaders[vtkShader::Fragment];
  if (actor->GetProperty()->GetSpecular() == 0.0) {
    vtkShaderProgram::Substitute(pixels, "ambientColor + diffuse + specular", "ambientColor + diffuse");
  }
  if (actor->IsRenderingTranslucentPolygonalGeometry() == 0) {
    // OpenGL writes depths sooner where no pixel can be discarded.
    vtkShaderProgram::Substitute(pixels, "if (fragOutput0.a <= 0.0)", "if (false)");
  }
}

}  // namespace vemo
