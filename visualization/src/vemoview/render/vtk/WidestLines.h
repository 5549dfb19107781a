#pragma once

#include <vtkWeakPointer.h>

class vtkRenderer;

namespace vemo {

/// A prop that may draw lines, edges or contours.
class LinesProp {
 public:
  /// The width for which faces behind them make room, in pixels of this picture; 0 for no lines.
  virtual double getRoomBehind() = 0;

 protected:
  ~LinesProp() = default;
};

/// The width in pixels of the widest lines, edges and contours that a renderer shows, up to a few pixels:
/// all its faces are moved back behind them alike, so that none comes in front of another.
class WidestLines {
 public:
  explicit WidestLines(vtkRenderer& renderer);
  ~WidestLines();
  WidestLines(const WidestLines&) = delete;
  WidestLines& operator=(const WidestLines&) = delete;

  /// 0 for no such lines.
  double get() const { return _pixels; }

 private:
  void update();

  vtkWeakPointer<vtkRenderer> _renderer;
  unsigned long _observer;
  double _pixels = 0.0;
};

}  // namespace vemo
