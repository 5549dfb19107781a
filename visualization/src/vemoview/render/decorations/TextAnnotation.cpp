#include "vemoview/render/decorations/TextAnnotation.h"

#include "vemoview/render/decorations/TextLabel.h"
#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/render/vtk/Screen.h"

namespace vemo {

void addText(const TextDecoration& text, PropGroup& group) {
  TextLabel label(text.text, text.style, {text.horizontal, text.vertical}, group);
  group.beforeEachRender([label, height = text.lineHeight, position = text.position,
                          isInModel = text.isInModel](vtkRenderer& drawn) mutable {
    label.setLineHeight(height * windowHeight(drawn), drawn);
    if (isInModel && isBehindViewer(drawn, position)) {
      label.hide();
    } else if (isInModel) {
      label.moveTo(position, drawn);
    } else {
      const auto canvas = sizeInPixels(drawn);
      label.moveTo({position[0] * canvas[0], position[1] * canvas[1]});
    }
  });
}

}  // namespace vemo
