#pragma once

#include "geometry/Box.h"
#include <vemo/resolve/MeshInstance.h>

#include <span>
#include <vector>

namespace vemo {

struct CanvasCamera;
class ViewVolume;

/// Where the meshes of a canvas are, and which of them cannot be visible, or not precisely:
/// OpenGL computes with single precision, and pictures have pixels.
class ModelExtent {
 public:
  /// Reports what is too far away.
  /// @param statedView null for a view that shows everything
  ModelExtent(const std::vector<MeshInstance>& meshes, const ViewVolume* statedView);

  /// Around all instances.
  const Box& getBox() const { return _box; }

  /// Of a canvas that shows everything.
  /// @param side of all that it shows, above 0
  void reportInvisible(const ViewVolume& view, double side) const;

  /// Of a canvas with a stated view.
  void reportUnsuitableView(const ViewVolume& view, const CanvasCamera& camera) const;

 private:
  /// The instances of a geometry that are in the view: at least one.
  struct Item {
    const lum::PolyDataNode* node = nullptr;
    Box box;
    double largestSide = 0.0;
    /// Lines and points are visible however small they are.
    bool isOfFaces = true;

    bool isTiny(const ViewVolume& view) const;
  };

  void add(std::span<const MeshInstance> parts, const ViewVolume* statedView);
  double largestSide() const;
  bool areAllTiny(const ViewVolume& view) const;
  void reportIfImprecise(const ViewVolume& view, double parallelScale) const;
  void reportTiny(const ViewVolume& view) const;

  Box _box;
  std::vector<Item> _items;
  bool _isTooFar = false;
};

}  // namespace vemo
