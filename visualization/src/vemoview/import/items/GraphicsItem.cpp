#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/drawables/Drawable.h>

#include <vtkActor.h>
#include <vtkAssembly.h>
#include <vtkProp3DCollection.h>
#include <vtkProperty.h>
#include <vtkProperty2D.h>

#include <fmt/format.h>
#include <utility>

namespace vemo {

const KeyTable<GraphicsItem> GraphicsItem::KEYS({
    key::always<&GraphicsItem::_visibility>(
        XML_ATTRIB_VISIBILITY,
        "0.001 and below is hidden, and so is an item without the key; all above is shown. Images alone are "
        "translucent in between: 0.5 is half their opacity. Without effect in `scene` and `gradient`. Not in "
        "`colormap` and in elements without a name"),
});

GraphicsItem::GraphicsItem(std::string name) : SceneItem(std::move(name)) {}
GraphicsItem::~GraphicsItem() = default;

void GraphicsItem::read(const QxElement& element, SceneFileReader* reader) {
  SceneItem::read(element, reader);
  readImpl(element, reader);
}

void GraphicsItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {XML_ATTRIB_VISIBILITY});
  // How it is written does not matter if it has no effect.
  KEYS.read(*this, element, getVisibilityUse() == VisibilityUse::NONE ? nullptr : reader);
  const bool isFault = hasHiddenItems() && held.reportHidden({XML_ATTRIB_VISIBILITY}, "the item is hidden");
  held.release();
  if (reader != nullptr && !isFault) {
    reportVisibility(element, *reader);
  }
}

void GraphicsItem::reportVisibility(const QxElement& element, SceneFileReader& reader) const {
  const VisibilityUse use = getVisibilityUse();
  if (use == VisibilityUse::NONE) {
    if (statesVisibility(element) && _visibility != 1.0) {
      ValueReader(element, &reader, OnBadValue::FAIL).reportWithoutEffect(XML_ATTRIB_VISIBILITY);
    }
  } else if (_visibility < 0.0 || _visibility > 1.0) {
    reader.report(FindingCode::VALUE_UNREADABLE,
                  fmt::format("The visibility {:g} is out of range: the item is {}", _visibility,
                              _visibility < 0.0 ? "hidden" : "shown"),
                  {}, XML_ATTRIB_VISIBILITY);
  } else if (use == VisibilityUse::SWITCH && _visibility > VISIBILITY_THRESHOLD && _visibility < 1.0) {
    reader.report(FindingCode::VISIBILITY_PARTIAL,
                  fmt::format("The visibility {:g} counts as 1: the item is not translucent", _visibility),
                  {}, XML_ATTRIB_VISIBILITY);
  }
}

bool GraphicsItem::statesVisibility(const QxElement& element) {
  return element.findAttribute(XML_ATTRIB_VISIBILITY) != nullptr;
}

void GraphicsItem::addVisibilityAttrib(lum::Drawable& drawable) const {
  drawable.getBaseAttributes().setVisibility(_visibility > VISIBILITY_THRESHOLD, false);
}

void GraphicsItem::addVisibilityAttrib(lum::Drawable& drawable, bool isHiddenAnyway) const {
  if (isHiddenAnyway) {
    drawable.getBaseAttributes().setVisibility(false, false);
  } else {
    addVisibilityAttrib(drawable);
  }
}

void GraphicsItem::setMyOpacity(vtkActor* actor, double opacity) const {
  setMyOpacity(actor, actor->GetProperty(), opacity);
}

void GraphicsItem::setMyOpacity(vtkProp* prop, vtkProperty* property, double opacity) const {
  if (auto* const assembly = vtkAssembly::SafeDownCast(prop)) {
    vtkProp3DCollection& parts = *assembly->GetParts();
    vtkCollectionSimpleIterator place = nullptr;
    parts.InitTraversal(place);
    while (vtkProp3D* const part = parts.GetNextProp3D(place)) {
      setMyOpacity(part, property, opacity);
    }
  }
  const double effective = _visibility * opacity;
  const bool isShown = effective > VISIBILITY_THRESHOLD;
  prop->SetVisibility(isShown);
  prop->SetPickable(isShown);
  if (isShown) {
    property->SetOpacity(effective);
  }
  prop->Modified();
}

void GraphicsItem::setMyOpacity(vtkProp* prop, vtkProperty2D* property, double opacity) const {
  const double effective = opacity * _visibility;
  const bool isShown = effective > VISIBILITY_THRESHOLD;
  prop->SetVisibility(isShown);
  if (isShown) {
    property->SetOpacity(effective);
  }
}

}  // namespace vemo
