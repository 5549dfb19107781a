#pragma once

#include "vemoview/resolve/decorations/LegendPlacement.h"
#include "vemoview/resolve/decorations/TriadResolver.h"
#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/values/ColorTableResolver.h"
#include <vemo/resolve/Background.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/SceneResolver.h>

#include <utility>
#include <vector>

namespace vemo {

/// Resolves the drawables of a canvas that have no geometry of their own:
/// triads, legends, texts, images.
class DecorationResolver {
 public:
  /// Cameras and tables must outlive it.
  DecorationResolver(const Background& background, const CameraIndices& cameras, ColorTables& tables)
      : _background(background), _cameras(cameras), _tables(tables) {}

  /// The decorations among drawables, in order, up to the limit.
  /// @param visibleNow all that is visible, resolved earlier or not
  std::vector<Decoration> resolve(const std::vector<VisibleDrawable>& drawables,
                                  const DrawableSet& visibleNow);

  /// What limits and places further decorations.
  struct Taken {
    LegendPlacement legends;
    int count = 0;
    // Of texts and images in them.
    int pieces = 0;
    double pictures = 0.0;
    bool isFull = false;
  };
  const Taken& getTaken() const { return _taken; }
  /// As if it had not resolved any since then.
  void setTaken(Taken taken) { _taken = std::move(taken); }

 private:
  /// Counts a further decoration; false once the limit is reached.
  bool takeRoom(const Decoration::Content& content);

  Background _background;
  const CameraIndices& _cameras;
  ColorTables& _tables;
  Taken _taken;
};

}  // namespace vemo
