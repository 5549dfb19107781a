#pragma once

#include <vtkOpenGLPolyDataMapper.h>

namespace vemo {

/// VTK's mapper, without some of its work on large meshes: it takes bounds from
/// every corner of every cell, copies the indices of triangles one by one before
/// OpenGL copies them all, and shades each pixel with highlights and gaps that
/// nothing has.
class MeshMapper : public vtkOpenGLPolyDataMapper {
 public:
  static MeshMapper* New();

 protected:
  void ComputeBounds() override;
  void BuildIBO(vtkRenderer* renderer, vtkActor* actor, vtkPolyData* geometry) override;
  void ReplaceShaderValues(std::map<vtkShader::Type, vtkShader*> shaders, vtkRenderer* renderer,
                           vtkActor* actor) override;

 private:
  bool hasOnlyTriangles(vtkActor& actor, vtkPolyData& geometry) const;
  void uploadTriangles(vtkCellArray& triangles);

  vtkMTimeType _boundsTime = 0;
  /// Of the triangles that OpenGL has from their own array; 0 for none.
  vtkMTimeType _trianglesTime = 0;
};

}  // namespace vemo
