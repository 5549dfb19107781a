#pragma once

#include <vtkMapper.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <array>
#include <cstddef>

class vtkWindow;

namespace vemo {

/// Keeps the mappers that were used last, for actors that exist only while they are drawn: the next ones
/// often share them.
class RecentMappers {
 public:
  void keep(vtkMapper& mapper) {
    if (std::find(_mappers.begin(), _mappers.end(), &mapper) == _mappers.end()) {
      _mappers[_next] = &mapper;
      _next = (_next + 1) % _mappers.size();
    }
  }

  void release(vtkWindow* window) {
    for (vtkSmartPointer<vtkMapper>& mapper : _mappers) {
      if (mapper != nullptr) {
        mapper->ReleaseGraphicsResources(window);
      }
    }
    _mappers = {};
  }

 private:
  /// Those of faces, edges and a contour, and of lines among them.
  std::array<vtkSmartPointer<vtkMapper>, 4> _mappers;
  std::size_t _next = 0;
};

}  // namespace vemo
