#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/ClipPlane.h>
#include <vemo/resolve/MeshInstance.h>

#include <span>
#include <vector>

namespace vemo {

struct CanvasCamera;
struct UsualCanvas;
class ViewVolume;

/// Where the meshes of a canvas are, and which of them cannot be visible, or not precisely:
/// OpenGL computes with single precision, and pictures have pixels.
class ModelExtent {
 public:
  /// Reports what is too far away.
  /// @param meshes must outlive it
  /// @param statedView null for a view that shows everything
  ModelExtent(const std::vector<MeshInstance>& meshes, const ViewVolume* statedView);

  /// Around all instances.
  const Box& getBox() const { return _box; }

  /// Of a canvas that shows everything, which is at a single point.
  void reportCollapsed() const;

  /// Of a canvas that shows everything.
  /// @param side of all that it shows, above 0
  void reportInvisible(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes, double side) const;

  /// Of a canvas with a stated view.
  void reportUnsuitableView(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes,
                            const CanvasCamera& camera) const;

 private:
  /// The instances of a geometry that are in the view: at least one.
  struct Item {
    /// Parts of one mesh, which share its points.
    std::span<const MeshInstance> parts;
    Box box;
    double largestSide = 0.0;
    /// Then it is invisible if it is tiny; lines may be visible.
    bool isOfFaces = true;
    /// These are visible however small the mesh is.
    bool hasPoints = false;

    bool isTiny(const ViewVolume& view) const;
  };

  void add(std::span<const MeshInstance> parts, const ViewVolume* statedView);
  double largestSide() const;
  bool areAllTiny(const ViewVolume& view) const;
  bool shows(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) const;
  /// Returns whether it is.
  bool reportIfImprecise(const ViewVolume& view, const CanvasCamera& camera) const;
  void reportTooNear(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) const;
  /// Tiny meshes, and points that are too large.
  void reportUnusualSizes(const UsualCanvas& canvas, std::span<const ClipPlane> clipPlanes) const;
  /// What no view shows, beside what this one shows.
  void reportShapeless(const ViewVolume& view) const;

  Box _box;
  std::vector<Item> _items;
  bool _isTooFar = false;
};

}  // namespace vemo
