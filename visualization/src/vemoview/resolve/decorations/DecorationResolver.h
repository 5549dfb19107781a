#pragma once

#include "vemoview/resolve/decorations/TriadResolver.h"
#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/values/ColorTableResolver.h"
#include <vemo/resolve/Decoration.h>

#include <vector>

namespace vemo {

/// Resolves the drawables of a canvas that have no geometry of their own:
/// triads, legends, texts, images.
class DecorationResolver {
 public:
  /// Cameras and tables must outlive it.
  DecorationResolver(const CameraIndices& cameras, ColorTables& tables)
      : _cameras(cameras), _tables(tables) {}

  /// The decorations among drawables, in order, as long as there are not too
  /// many.
  std::vector<Decoration> resolve(const std::vector<VisibleDrawable>& drawables);

 private:
  bool hasRoom();

  const CameraIndices& _cameras;
  ColorTables& _tables;
  int _count = 0;
  bool _isFull = false;
};

}  // namespace vemo
