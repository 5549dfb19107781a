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

  /// Each point has this size in units of the model, as its own distance makes it, instead of
  /// that of the property, up to a number of pixels.
  /// @param leastLit what is smaller than this part of the property's size has its own colour
  void setPointSizeInModel(double size, double mostPixels, double leastLit) {
    _pointSizeInModel = size;
    _mostPixels = mostPixels;
    _leastLit = leastLit;
  }

  void RenderPieceDraw(vtkRenderer* renderer, vtkActor* actor) override;

  /// Another actor with this mapper may still be drawn afterwards.
  void ReleaseGraphicsResources(vtkWindow* window) override;

 protected:
  void ComputeBounds() override;
  void BuildIBO(vtkRenderer* renderer, vtkActor* actor, vtkPolyData* geometry) override;
  void ReplaceShaderValues(std::map<vtkShader::Type, vtkShader*> shaders, vtkRenderer* renderer,
                           vtkActor* actor) override;
  void SetCameraShaderParameters(vtkOpenGLHelper& cells, vtkRenderer* renderer, vtkActor* actor) override;

 private:
  static void sizePoints(vtkShader* vertices, vtkShader* pixels);
  static void shadeSizedPoints(vtkShader* pixels);
  static void keepInRange(vtkShader* pixels);
  bool hasOnlyTriangles(vtkActor& actor, vtkPolyData& geometry) const;
  void uploadTriangles(vtkCellArray& triangles);

  vtkMTimeType _boundsTime = 0;
  /// 0 for that of the property.
  double _pointSizeInModel = 0.0;
  double _mostPixels = 0.0;
  double _leastLit = 0.0;
  /// Of the triangles that OpenGL has from their own array; 0 for none.
  vtkMTimeType _trianglesTime = 0;
};

}  // namespace vemo
