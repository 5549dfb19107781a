#pragma once

#include "vemoview/render/decorations/TextProperties.h"
#include "vemoview/resolve/decorations/TextStyleResolver.h"
#include <vemo/base/Vector.h>

#include <vtkSmartPointer.h>

#include <string>

class vtkRenderer;
class vtkTextActor;
namespace vemo {

class PropGroup;

/// A text of one or more lines that faces the viewer.
class TextLabel {
 public:
  /// Adds the text to the group.
  TextLabel(const std::string& text, const TextStyle& style, const TextAlignment& alignment,
            PropGroup& group);

  void setText(const std::string& text);

  /// The height of a line in pixels; nothing is seen of less than 1.
  void setLineHeight(double pixels, vtkRenderer& renderer);

  /// In pixels from the lower left corner of the renderer's part of the window.
  void moveTo(const Vector<2, double>& pixel);

  /// To a point of the model; hidden if that is behind the viewer in perspective.
  void moveTo(const Vector3& point, vtkRenderer& renderer);

  /// The width and height of what is written, in pixels.
  Vector<2, double> getSize(vtkRenderer& renderer) const;

  void hide();

 private:
  vtkSmartPointer<vtkTextActor> _actor;
  /// Of the text as it is seen; the actor's has escaped signs.
  LineHeightLimit _limit;
};

}  // namespace vemo
