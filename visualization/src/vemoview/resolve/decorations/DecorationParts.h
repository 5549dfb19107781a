#pragma once

#include <vemo/resolve/TextMeasure.h>

#include <span>
#include <vector>

namespace vemo {

class ViewVolume;

/// A part of a decoration: what is around a place in the picture, as large wherever that is.
struct DecorationPart {
  Vector3 place;
  TextBox extent{};
};

/// What surrounds a decoration.
struct DecorationParts {
  std::vector<DecorationPart> parts;
  /// Whether the decoration reaches to all of the borders, or at most so far.
  bool isExact = true;
};

/// Measures decorations for the usual picture.
class DecorationMeasure {
 public:
  /// @param view must outlive it, as must the measure
  /// @param canvas its width and height in pixels
  DecorationMeasure(const ViewVolume& view, const Vector<2, double>& canvas, const TextMeasure& measureText)
      : _view(view), _canvas(canvas), _measureText(measureText) {}

  /// No parts for a text of which nothing is drawn.
  DecorationParts operator()(const TextDecoration& text) const;
  DecorationParts operator()(const TriadDecoration& triad) const;

 private:
  DecorationParts partsOfTurning(const TriadDecoration& triad, double axisLength, double labelHeight) const;
  void addText(const TextDecoration& text, double lineHeight, DecorationParts& result) const;

  const ViewVolume& _view;
  Vector<2, double> _canvas;
  const TextMeasure& _measureText;
};

}  // namespace vemo
