#pragma once

#include "vemoview/render/resources/Expiry.h"
#include <vemo/resolve/Appearance.h>
#include <vemo/resolve/MeshInstance.h>

#include <vtkPolyDataMapper.h>
#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <compare>
#include <map>
#include <string>

class vtkLookupTable;
class vtkPolyData;

namespace vemo {

/// What actors must have in common to share a mapper: all that it depends on. Their colours and
/// places may differ.
struct MapperKey {
  const vtkPolyData* geometry = nullptr;
  Appearance appearance;
  bool isEdges = false;
  ScalarLocation location = ScalarLocation::POINTS;
  /// Empty if no array colours.
  std::string arrayName;
  const vtkLookupTable* table = nullptr;

  auto operator<=>(const MapperKey&) const = default;
};

/// The mappers of a canvas, and what OpenGL has of them: one for all that is drawn alike.
class SharedMappers {
 public:
  /// The one that some actor has, or what make() returns.
  template <class Make>
  vtkSmartPointer<vtkPolyDataMapper> get(const MapperKey& key, const Make& make) {
    _expiry.drop(_mappers, [](const auto& mapper) { return mapper == nullptr; });
    // A mapper that exists keeps its geometry, so that no other has the same address.
    vtkWeakPointer<vtkPolyDataMapper>& known = _mappers[key];
    vtkSmartPointer<vtkPolyDataMapper> mapper = known.Get();
    if (mapper == nullptr) {
      mapper = make();
      known = mapper;
    }
    return mapper;
  }

 private:
  std::map<MapperKey, vtkWeakPointer<vtkPolyDataMapper>> _mappers;
  Expiry _expiry;
};

}  // namespace vemo
