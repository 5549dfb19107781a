#include "vemoview/render/vtk/MeshMapper.h"

#include "geometry/Bounds.h"

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellArray.h>
#include <vtkMath.h>
#include <vtkMatrix4x4.h>
#include <vtkObjectFactory.h>
#include <vtkOpenGLIndexBufferObject.h>
#include <vtkPolyData.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkShader.h>
#include <vtkShaderProgram.h>
#include <vtkTypeInt32Array.h>
#include <vtk_glew.h>

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

void MeshMapper::ReleaseGraphicsResources(vtkWindow* window) {
  _trianglesTime = 0;
  vtkOpenGLPolyDataMapper::ReleaseGraphicsResources(window);
}

void MeshMapper::RenderPieceDraw(vtkRenderer* renderer, vtkActor* actor) {
  if (_pointSizeInModel > 0.0) {
    glEnable(GL_PROGRAM_POINT_SIZE);
  }
  vtkOpenGLPolyDataMapper::RenderPieceDraw(renderer, actor);
  glDisable(GL_PROGRAM_POINT_SIZE);
}

void MeshMapper::sizePoints(vtkShader* vertices, vtkShader* pixels) {
  vtkShaderProgram::Substitute(vertices, "//VTK::PositionVC::Dec",
                               "uniform float pointPixelsAtOne;\nuniform float mostPointPixels;\n"
                               "uniform float usualPointPixels;\nout float pointScale;\n"
                               "//VTK::PositionVC::Dec");
  vtkShaderProgram::Substitute(
      vertices, "//VTK::PositionVC::Impl",
      "//VTK::PositionVC::Impl\n"
      "  gl_PointSize = clamp(pointPixelsAtOne / gl_Position.w, 1.0, mostPointPixels);\n"
      "  pointScale = gl_PointSize / usualPointPixels;\n");
  vtkShaderProgram::Substitute(pixels, "//VTK::PositionVC::Dec",
                               "in float pointScale;\nuniform float leastLit;\n//VTK::PositionVC::Dec");
}

/// Small ones have their own colour; the others are as deep as they are wide.
void MeshMapper::shadeSizedPoints(vtkShader* pixels) {
  vtkShaderProgram::Substitute(pixels, "= ambientIntensity *",
                               "= mix(1.0, ambientIntensity, step(leastLit, pointScale)) *");
  vtkShaderProgram::Substitute(pixels, "ambientColor + diffuse + specular",
                               "ambientColor + step(leastLit, pointScale) * (diffuse + specular)");
  vtkShaderProgram::Substitute(pixels, "*ZCalcR", "*ZCalcR*pointScale");
}

void MeshMapper::SetCameraShaderParameters(vtkOpenGLHelper& cells, vtkRenderer* renderer, vtkActor* actor) {
  vtkOpenGLPolyDataMapper::SetCameraShaderParameters(cells, renderer, actor);
  if (_pointSizeInModel > 0.0) {
    vtkMatrix4x4* const projection =
        renderer->GetActiveCamera()->GetProjectionTransformMatrix(renderer->GetTiledAspectRatio(), -1.0, 1.0);
    const double pixels = _pointSizeInModel * projection->GetElement(1, 1) * renderer->GetSize()[1] / 2.0;
    cells.Program->SetUniformf("pointPixelsAtOne", static_cast<float>(pixels));
    cells.Program->SetUniformf("leastLit", static_cast<float>(_leastLit));
    cells.Program->SetUniformf("mostPointPixels", static_cast<float>(_mostPixels));
    cells.Program->SetUniformf("usualPointPixels", actor->GetProperty()->GetPointSize());
  }
}

/// VTK computes with the squares of lengths in the model, and of those of a pixel, which leave the
/// range of single precision long before the lengths do.
void MeshMapper::keepInRange(vtkShader* pixels) {
  vtkShaderProgram::Substitute(pixels, "cross(fdx,fdy)", "cross(inRange(fdx),inRange(fdy))");
  vtkShaderProgram::Substitute(pixels, "normalize(-vertexVC.xyz)", "normalize(inRange(-vertexVC.xyz))");
}

/// Removes code without effect from the fragment shader, and makes it right for the smallest and
/// largest models. Where VTK's source differs from the text expected here, it is left as it is.
void MeshMapper::ReplaceShaderValues(std::map<vtkShader::Type, vtkShader*> shaders, vtkRenderer* renderer,
                                     vtkActor* actor) {
  vtkShader* const pixels = shaders[vtkShader::Fragment];
  vtkShaderProgram::Substitute(pixels, "//VTK::Normal::Dec",
                               "vec3 inRange(vec3 v) {\n"
                               "  float size = max(max(abs(v.x), abs(v.y)), abs(v.z));\n"
                               "  return size > 0.0 ? v / size : v;\n}\n"
                               "//VTK::Normal::Dec");
  if (_pointSizeInModel > 0.0) {
    sizePoints(shaders[vtkShader::Vertex], pixels);
  }
  vtkOpenGLPolyDataMapper::ReplaceShaderValues(shaders, renderer, actor);
  keepInRange(pixels);
  if (_pointSizeInModel > 0.0) {
    shadeSizedPoints(pixels);
  }
  if (actor->GetProperty()->GetSpecular() == 0.0) {
    vtkShaderProgram::Substitute(pixels, "ambientColor + diffuse + specular", "ambientColor + diffuse");
  }
  if (actor->IsRenderingTranslucentPolygonalGeometry() == 0) {
    // OpenGL writes depths sooner where no pixel can be discarded.
    vtkShaderProgram::Substitute(pixels, "if (fragOutput0.a <= 0.0)", "if (false)");
  }
}

}  // namespace vemo
