#pragma once

#include "vemoview/resolve/VisibleDrawables.h"
#include "vemoview/resolve/decorations/TriadResolver.h"
#include <vemo/resolve/Decoration.h>

#include <vector>

namespace vemo {

/// Resolves the drawables of a canvas that have no geometry of their own:
/// triads, legends, texts, images.
class DecorationResolver {
 public:
  /// The cameras must outlive it.
  explicit DecorationResolver(const CameraIndices& cameras) : _cameras(cameras) {}

  /// The decorations among drawables, in order, as long as there are not too
  /// many.
  std::vector<Decoration> resolve(const std::vector<VisibleDrawable>& drawables);

 private:
  bool hasRoom();

  const CameraIndices& _cameras;
  int _count = 0;
  bool _isFull = false;
};

}  // namespace vemo
