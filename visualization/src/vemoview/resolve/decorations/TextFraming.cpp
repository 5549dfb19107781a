#include "vemoview/resolve/decorations/TextFraming.h"

#include "base/Utf8.h"
#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/drawables/Drawable.h>

namespace vemo {

namespace {

/// What is framed in any case.
void addFramed(const Decoration::Content& content, Box& box) {
  if (const auto* const image = std::get_if<ImageDecoration>(&content);
      image != nullptr && image->isInModel) {
    box.add(boundsOf(*image));
  } else if (const auto* const triad = std::get_if<TriadDecoration>(&content)) {
    box.add(triad->position);
  }
}

/// Whether a box around the model and the point would be much larger than the model.
bool isFar(const Vector3& point, const Box& model) {
  constexpr double MOST_TIMES = 10.0;
  Box both = model;
  both.add(point);
  return both.longestSide() > MOST_TIMES * model.longestSide();
}

}  // namespace

Box chooseFramedTexts(std::vector<Decoration>& decorations, Box& model) {
  for (const Decoration& decoration : decorations) {
    addFramed(decoration.content, model);
  }
  Box framed = model;
  for (Decoration& decoration : decorations) {
    auto* const text = std::get_if<TextDecoration>(&decoration.content);
    if (text != nullptr && text->isInModel) {
      // Beside a single point, nothing is far.
      text->isFramed = model.longestSide() <= 0.0 || !isFar(text->position, model);
      if (text->isFramed) {
        framed.add(text->position);
      }
    }
  }
  return framed;
}

void reportUnframedTexts(const std::vector<Decoration>& decorations) {
  for (const auto& [drawable, content] : decorations) {
    const auto* const text = std::get_if<TextDecoration>(&content);
    if (text != nullptr && !text->isFramed) {
      const NodeScope scope(*drawable);
      reportFinding(FindingCode::TEXT_NOT_FRAMED,
                    "The text \"" + shortName(drawable->getName()) +
                        "\" may be outside the picture: it is too far from the model for a view of both");
    }
  }
}

}  // namespace vemo
