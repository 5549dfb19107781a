#include "vemoview/render/decorations/Decorations.h"

#include "vemoview/render/decorations/ImageQuad.h"
#include "vemoview/render/decorations/LegendBar.h"
#include "vemoview/render/decorations/TextAnnotation.h"
#include "vemoview/render/decorations/Triad.h"
#include "vemoview/render/vtk/DrawQueue.h"

#include <vtkNew.h>
#include <vtkRenderer.h>

#include <cstddef>
#include <utility>
#include <variant>

namespace vemo {

namespace {

/// Adds each kind of decoration to a group.
struct DecorationAdder {
  void operator()(const LegendDecoration& legend) const { addLegend(legend, group); }
  void operator()(const TextDecoration& text) const { addText(text, group); }
  void operator()(const ImageDecoration& image) const { addImage(image, resources, group); }
  void operator()(const TriadDecoration& triad) const { addTriad(triad, cameras, resources, group); }

  const CanvasCameras& cameras;
  CanvasResources& resources;
  PropGroup& group;
};

}  // namespace

void addProps(const Decoration& decoration, const CanvasCameras& cameras, CanvasResources& resources,
              PropGroup& group) {
  std::visit(DecorationAdder{cameras, resources, group}, decoration.content);
}

Box framedPlaces(const std::vector<Decoration>& decorations) {
  Box places;
  for (const Decoration& decoration : decorations) {
    const auto* const text = std::get_if<TextDecoration>(&decoration.content);
    if (text != nullptr && text->isInModel && text->isFramed) {
      places.add(text->position);
    }
  }
  return places;
}

void Decorations::add(const std::vector<Decoration>& decorations, const CanvasCameras& cameras) {
  constexpr std::size_t BETWEEN_PAUSES = 32;
  for (const Decoration& decoration : decorations) {
    auto props = std::make_unique<PropGroup>(*_resources.renderer);
    addProps(decoration, cameras, _resources, *props);
    if (_members.size() % BETWEEN_PAUSES == BETWEEN_PAUSES - 1) {
      props->add(vtkNew<DrawPause>());
    }
    props->scalePixels(_pixelScale);
    _members.push_back({decoration.drawable, std::move(props)});
  }
}

void Decorations::show(const DrawableSet& visible) {
  for (const Member& member : _members) {
    member.props->show(visible.contains(member.drawable));
  }
}

void Decorations::scalePixels(double factor) {
  _pixelScale *= factor;
  for (const Member& member : _members) {
    member.props->scalePixels(factor);
  }
}

}  // namespace vemo
