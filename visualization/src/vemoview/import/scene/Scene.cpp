#include "scenegraph/attributes/CameraLimits.h"
#include "vemoview/import/items/CollectionColoring.h"
#include "vemoview/import/reading/HeldFindings.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/scene/ChildElements.h"
#include <vemo/base/Vector.h>
#include <vemo/import/decorations/Gradient.h>
#include <vemo/import/decorations/Legend.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/Light.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/import/scene/Scene.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

namespace vemo {

namespace {

constexpr const char* POSITION = "position";
constexpr const char* VIEW_UP = "up";
constexpr const char* FOCAL_POINT = "focalPt";
constexpr const char* PARALLEL_SCALE = "parallelScale";

/// A new node of class T in the session of the collection.
template <class T>
lum::Ptr<T> makeNodeFor(const lum::CollectionNode& collection) {
  return new T(lum::ClassNameAndSessionNodeInitializer(T::getClassName(), collection.getSessionId()));
}

}  // namespace

const KeyTable<Scene> Scene::KEYS({
    key::always<&Scene::_backgroundColor>(XML_ATTRIB_BACKGROUND, "the background; its alpha is not used")
        .withoutAlpha(),
});

const KeyTable<Camera> Scene::View::KEYS({
    key::ifPresent<&Camera::position>(POSITION, "the position of the camera"),
    key::ifPresent<&Camera::viewUp>(VIEW_UP, "the direction that is up in the picture"),
    key::ifPresent<&Camera::focalPoint>(FOCAL_POINT, "the point that the camera looks at"),
    key::always<&Camera::perspective>("perspective", "perspective or parallel projection"),
    key::always<&Camera::parallelScale>(
        PARALLEL_SCALE, "half the height of the picture in model units, in parallel projection"),
    key::always<&Camera::windowWidth>("windowWidth",
                                      "kept; has no effect on pictures, as the other window keys")
        .withoutEffect(),
    key::always<&Camera::windowHeight>("windowHeight", "see above").withoutEffect(),
    key::always<&Camera::windowX>("windowX", "see above").withoutEffect(),
    key::always<&Camera::windowY>("windowY", "see above").withoutEffect(),
});

Scene::View::~View() = default;

void Scene::View::read(const QxElement& element, SceneFileReader* reader) {
  HeldFindings held(reader, {PARALLEL_SCALE});
  KEYS.readElement(_camera, element, reader);
  if (_camera.perspective || lum::isUsableParallelScale(_camera.parallelScale)) {
    held.release();
  }
  const ValueReader values(element, reader, OnBadValue::FAIL);
  for (const char* const vector : {POSITION, FOCAL_POINT, VIEW_UP}) {
    if (element.findChild(vector) != nullptr) {
      _isUnknown[vector] = values.isUnknown(vector);
    }
  }
  if (_camera.perspective) {
    element.markUnused(PARALLEL_SCALE);
  }
  _place = element.getPlace();
}

void Scene::View::noteUnknown(lum::CameraAttributes& camera) const {
  const auto isUnknown = [this](const char* vector) {
    const auto found = _isUnknown.find(vector);
    return found != _isUnknown.end() && found->second;
  };
  if (isUnknown(POSITION) || isUnknown(FOCAL_POINT)) {
    camera.setViewUnknown();
  }
  if (isUnknown(VIEW_UP)) {
    camera.setViewUpUnknown();
  }
}

void Scene::View::reportUnusable(const lum::CameraAttributes& camera, ReadingContext* context) const {
  const ReadingContext::ItemScope scope(context, "view", _place);
  if (const auto fault = lum::describeDirectionFault(camera)) {
    report(context, FindingCode::VIEW_ADJUSTED, *fault);
  }
  if (_camera.perspective) {
    return;
  }
  if (const auto fault = lum::describeScaleFault(_camera.parallelScale)) {
    const ReadingContext::AttributeScope attribute(context, PARALLEL_SCALE);
    report(context, FindingCode::VIEW_ADJUSTED, *fault);
  }
}

Scene::Scene(const std::string& name) : AssemblyItem(name) {}
Scene::~Scene() = default;

void Scene::reportWithoutEffect(const QxElement& element, SceneFileReader& reader) const {
  if (_gradient) {
    element.markUnused(XML_ATTRIB_BACKGROUND);
  }
  const std::set<std::string> ofAssemblies = {Colormap::XML_ENTITY, Legend::XML_ENTITY,
                                              GeometryTransform::XML_ENTITY, RepeatTransform::XML_ENTITY,
                                              ReflectTransform::XML_ENTITY};
  for (const auto& child : element.getChildren()) {
    if (ofAssemblies.contains(child->getName())) {
      const ReadingContext::ItemScope scope(&reader, pathName(*child), child->getPlace());
      reader.report(FindingCode::ELEMENT_WITHOUT_EFFECT,
                    "A " + ReadingContext::quoted(child->getName()) + " has no effect outside assemblies");
    }
  }
}

void Scene::addClippingPlane(std::unique_ptr<ClippingPlane> plane) {
  _clippingPlanes.push_back(std::move(plane));
}

std::vector<ClippingPlane*> Scene::getClippingPlanes() const {
  std::vector<ClippingPlane*> planes;
  std::ranges::transform(_clippingPlanes, std::back_inserter(planes),
                         [](const auto& plane) { return plane.get(); });
  return planes;
}

void Scene::addLight(std::unique_ptr<Light> light) {
  _lights.push_back(std::move(light));
}

void Scene::setLUMSceneFile(Array_t<unsigned char> file) {
  static_cast<void>(_lumSceneFile.release());
  _lumSceneFile = ArrayOwner(file);
}

void Scene::addLUMDataFile(Array_t<unsigned char> file) {
  _lumDataFiles.push_back(file);
}

ArrayOwner<unsigned char> Scene::takeLUMDataFile() {
  ArrayOwner file(_lumDataFiles.front());
  _lumDataFiles.pop_front();
  return file;
}

void Scene::read(const QxElement& element, SceneFileReader* reader) {
  AssemblyItem::read(element, reader);
  readImpl(element, reader);
}

void Scene::readImpl(const QxElement& element, SceneFileReader* reader) {
  _isBackgroundSound = KEYS.read(*this, element, reader);
  readChildren(*this, makeReadingCommands(sceneElements()), element, reader);
  if (reader != nullptr) {
    reportWithoutEffect(element, *reader);
  }
}

void Scene::readView(const QxElement& element, SceneFileReader* reader) {
  _view.read(element, reader);
  _hasView = true;
}

void Scene::readGradient(const QxElement& element, SceneFileReader* reader) {
  _gradient = std::make_unique<Gradient>("background");
  const std::size_t faults = countFaults(reader);
  _isBackgroundSound = false;
  _gradient->read(element, reader);
  _isBackgroundSound = countFaults(reader) == faults;
}

void Scene::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                            const std::string& /*parentName*/) const {
  lum::SceneCanvas& canvas = shared.sceneNode->getModelCanvas();
  convertCamera(canvas);
  if (_hasView) {
    // Not while reading: a later view or a scene graph in the archive may replace it.
    _view.reportUnusable(canvas.getCameraAttributes(), shared.context);
  }
  CollectionColoring::Scope coloring(shared);
  processChildren(shared, collection, level, false);
  coloring.finish();
  convertClipPlanes(canvas);
  convertLights(canvas);
}

void Scene::convertCamera(lum::SceneCanvas& canvas) const {
  using Mode = lum::CameraAttributes::ProjectionMode;
  const Camera& view = getCamera();
  lum::CameraAttributes& camera = canvas.getCameraAttributes();
  camera.setFocalPoint(view.focalPoint);
  camera.setPosition(view.position);
  camera.setViewUp(view.viewUp);
  camera.setProjectionMode(view.perspective ? Mode::PERSPECTIVE : Mode::PARALLEL);
  // A scale also distinguishes a stated view from an unset camera.
  if (_hasView) {
    camera.setParallelScale(view.parallelScale);
    _view.noteUnknown(camera);
  }
}

void Scene::convertClipPlanes(lum::SceneCanvas& canvas) const {
  if (_clippingPlanes.empty()) {
    return;
  }
  lum::PlaneCollection& planes = canvas.getClipPlanesAttributes().getClippingPlanes();
  for (const auto& plane : _clippingPlanes) {
    const auto node = makeNodeFor<lum::Plane>(planes);
    plane->convertTo(*node);
    planes.addNode(*node);
  }
}

void Scene::convertLights(lum::SceneCanvas& canvas) const {
  if (_lights.empty()) {
    return;
  }
  lum::LightCollection& lights = canvas.getLightingAttributes().getLights();
  for (const auto& light : _lights) {
    const auto node = makeNodeFor<lum::Light>(lights);
    light->convertTo(*node);
    lights.addNode(*node);
  }
}

}  // namespace vemo
