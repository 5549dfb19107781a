#include "vemoview/import/items/SharedCollection.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/decorations/AxesItem.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <vtkCoordinate.h>
#include <vtkTextActor.h>
#include <vtkTextProperty.h>

#include <cstddef>
#include <cstdint>
#include <utility>

namespace vemo {

namespace {

/// Half the height of a parallel view that shows the triad and its labels, in triad lengths.
constexpr double TRIAD_SCALE = 2.2;
constexpr std::uint32_t OPAQUE_BLACK = 0x000000FF;

/// In axis lengths from the triad's origin.
constexpr double LABEL_DISTANCE = 1.2;
constexpr const char* TRIAD_NAME = "TriadDrawable";
constexpr const char* LABEL_TEXTS[] = {"X", "Y", "Z"};

vtkSmartPointer<vtkTextActor> makeLabel(const char* text) {
  auto label = vtkSmartPointer<vtkTextActor>::New();
  label->SetInput(text);
  label->GetTextProperty()->SetFontFamilyToArial();
  label->GetPositionCoordinate()->SetCoordinateSystemToWorld();
  return label;
}

/// A fixed view of the triad, which itself turns with the model's camera.
void setTriadView(lum::CameraAttributes& camera) {
  camera.setViewUp({0.0, 1.0, 0.0});
  camera.setFocalPoint({0.0, 0.0, 0.0});
  camera.setPosition({0.0, 0.0, -1.0});
  camera.setProjectionMode(lum::CameraAttributes::ProjectionMode::PARALLEL);
  camera.setParallelScale(TRIAD_SCALE);
}

}  // namespace

const KeyTable<AxesItem> AxesItem::KEYS({
    key::ifPresent<&AxesItem::_textColor>("textColor",
                                          "of the labels where VTK draws them; the scene graph's are black"),
    key::ifPresent<&AxesItem::_xAxis>("xaxis", "the axis where VTK draws it"),
    key::ifPresent<&AxesItem::_yAxis>("yaxis", "likewise"),
    key::ifPresent<&AxesItem::_zAxis>("zaxis", "likewise"),
});

AxesItem::AxesItem(std::string name) : GraphicsItem(std::move(name)) {}
AxesItem::~AxesItem() = default;

void AxesItem::setAxes(const Vector<3, double>& x, const Vector<3, double>& y, const Vector<3, double>& z) {
  _xAxis = x;
  _yAxis = y;
  _zAxis = z;
}

vtkTextActor* AxesItem::getLabel(int axis) {
  VEMO_REQUIRE(axis >= 0 && axis < 3, "A triad has three axes");
  const auto index = static_cast<std::size_t>(axis);
  auto& label = _labels[index];
  if (!label) {
    label = makeLabel(LABEL_TEXTS[index]);
  }
  const auto& direction = axis == 0 ? _xAxis : axis == 1 ? _yAxis : _zAxis;
  label->GetPositionCoordinate()->SetValue(LABEL_DISTANCE * direction[0], LABEL_DISTANCE * direction[1],
                                           LABEL_DISTANCE * direction[2]);
  label->GetTextProperty()->SetColor(_textColor.getRGB().data());
  return label;
}

void AxesItem::read(const QxElement& element, SceneFileReader* reader) {
  readAxes(element, reader);
  element.markUnused("name");
  // The triad shows how the model is turned.
  const ValueReader values(element, reader, OnBadValue::FAIL);
  const AxesItem unturned("");
  for (const auto& [key, member] :
       {std::pair("xaxis", &AxesItem::_xAxis), std::pair("yaxis", &AxesItem::_yAxis),
        std::pair("zaxis", &AxesItem::_zAxis)}) {
    if (this->*member != unturned.*member && !values.isUnknown(key)) {
      values.reportWithoutEffect(key);
    }
  }
}

void AxesItem::readAxes(const QxElement& element, SceneFileReader* reader) {
  KEYS.readElement<GraphicsItem>(*this, element, reader);
  if (_textColor != AxesItem("")._textColor) {
    ValueReader(element, reader, OnBadValue::FAIL).reportWithoutEffect("textColor");
  }
}

void AxesItem::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& /*collection*/,
                               int /*level*/, const std::string& /*parentName*/) const {
  VEMO_LOG_INFO("***** AxesItem::addToCollection is being added *****");
  lum::SceneCanvas& orientationCanvas = shared.sceneNode->getOrientationCanvas();
  const lum::SceneCanvas& modelCanvas = shared.sceneNode->getModelCanvas();

  lum::DrawableCollection& drawables = orientationCanvas.getDrawableCollection();
  const auto* const former = drawables.find<lum::TriadDrawable>(TRIAD_NAME);
  const bool isShownByOther = former != nullptr && isVisible(*former);
  auto& triad = drawables.findOrCreate<lum::TriadDrawable>(TRIAD_NAME);
  // The axes of a hidden assembly do not hide those of others; of several that
  // are not in one, the last decides.
  if (!isShownByOther || !shared.isHidden) {
    addVisibilityAttrib(triad, shared.isHidden);
  }
  if (isShownByOther && !isVisible(triad)) {
    reportReplaced(shared, triad, FindingCode::ITEM_REPLACED, "There is one triad, which later axes hide",
                   shared.axesPath);
  }
  if (!hasHiddenItems() && !shared.isHidden) {
    shared.origins[&triad] = getPlace();
    shared.axesPath = shared.context != nullptr ? shared.context->getItemPath() : std::string();
  }
  setTriadView(orientationCanvas.getCameraAttributes());

  VEMO_REQUIRE(modelCanvas.hasCameraAttributes(), "Must be already set by Scene");
  triad.setCameraAttributes(modelCanvas.hasCameraAttributes());
  triad.getTriadAttributes().setUseConstantPixelSize(false);
  triad.getTextAttributes().setForegroundColor(OPAQUE_BLACK);
}

}  // namespace vemo
