#pragma once

#include "vemoview/render/resources/Contours.h"
#include "vemoview/render/resources/LookupTables.h"
#include "vemoview/render/resources/RecentMappers.h"
#include "vemoview/render/resources/SharedMappers.h"
#include "vemoview/render/resources/Textures.h"
#include "vemoview/render/vtk/DrawQueue.h"
#include "vemoview/render/vtk/WidestLines.h"
#include <vemo/render/Export.h>
#include <vemo/resolve/ResolvedScene.h>

#include <vtkPlaneCollection.h>
#include <vtkPolyDataMapper.h>
#include <vtkRenderer.h>
#include <vtkSmartPointer.h>

#include <memory>

namespace vemo {

/// Resources shared by everything drawn in a canvas.
struct CanvasResources {
  vtkSmartPointer<vtkRenderer> renderer;
  vtkSmartPointer<vtkPlaneCollection> clipPlanes;
  LookupTables tables;
  Textures textures;
  SharedMappers mappers;
  RecentMappers recentMappers;
  Contours contours;
  /// Of triads; null until there is one.
  vtkSmartPointer<vtkPolyDataMapper> arrows;
  std::shared_ptr<const WidestLines> widestLines;
  std::shared_ptr<DrawQueue> queue;
};

/// A renderer for the canvas's part of the window.
VEMO_RENDER_EXPORT vtkSmartPointer<vtkRenderer> makeRenderer(const ResolvedCanvas& canvas);

/// To draw a canvas with a renderer.
VEMO_RENDER_EXPORT CanvasResources makeResources(const ResolvedCanvas& canvas, vtkRenderer& renderer);

}  // namespace vemo
