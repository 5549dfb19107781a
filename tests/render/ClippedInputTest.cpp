#include "support/Meshes.h"
#include "vemoview/render/vtk/ClippedInput.h"
#include <vemo/resolve/ClipPlane.h>

#include <vtkIdList.h>
#include <vtkNew.h>
#include <vtkOpenGLPolyDataMapper.h>
#include <vtkPlane.h>
#include <vtkPlaneCollection.h>
#include <vtkPolyData.h>

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace vemo {

namespace {

/// VTK takes time with the square of their corners to find other triangles.
TEST(ClippedInputTest, CutsLargePolygonsAsFans) {
  std::vector<float> corners;
  std::vector<vtkIdType> polygon;
  for (int i = 0; i < 1001; ++i) {
    const double angle = 2.0 * M_PI * i / 1001;
    corners.insert(corners.end(), {static_cast<float>(std::cos(angle)), static_cast<float>(std::sin(angle))});
    polygon.push_back(i);
  }
  const vtkNew<vtkPlane> below;
  below->SetOrigin(0.0, 0.0, -1.0);
  const vtkNew<vtkPlaneCollection> planes;
  for (std::size_t i = 0; i <= HARDWARE_CLIP_PLANES; ++i) {
    planes->AddItem(below);
  }
  const vtkNew<vtkOpenGLPolyDataMapper> mapper;
  setClippedInput(*mapper, *makePolyData(flat(corners), {.polys = {polygon}}), *planes, nullptr);
  vtkPolyData& triangles = *mapper->GetInput();
  triangles.BuildLinks();
  const vtkNew<vtkIdList> fan;
  triangles.GetPointCells(triangles.FindPoint(1.0, 0.0, 0.0), fan);
  EXPECT_EQ(triangles.GetNumberOfCells(), 999);
  EXPECT_EQ(fan->GetNumberOfIds(), 999);
}

}  // namespace

}  // namespace vemo
