#pragma once

#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <vtkPolyData.h>
#include <vtkSmartPointer.h>

namespace vemo {

/// Gives every field of a node a value that no default has, and that is easily
/// lost: a NaN with a payload, infinities, a negative zero, empty and long
/// texts, the ends of ranges. Gives it a node of every class that it can own.
void putUnusualValuesInto(lum::Node& node);

/// A triangle, a line and a vertex with two arrays, in 64-bit cells if asked.
vtkSmartPointer<vtkPolyData> makeGeometry(bool use64Bit);

/// A scene with all that travels by other ways than plain values: a reference
/// to another branch, arrays that two nodes share, empty ones, cells of both
/// widths.
lum::Ptr<lum::SceneNode> makeScene();

/// The drawables of such a scene.
lum::SurfaceDrawable& surfaceOf(lum::SceneNode& scene);
lum::TriadDrawable& triadOf(lum::SceneNode& scene);

/// A chain of collections, so many nodes long.
lum::Ptr<lum::Node> makeChain(int length);

}  // namespace vemo
