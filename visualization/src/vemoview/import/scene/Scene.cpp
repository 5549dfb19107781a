#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/QxElement.h>
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Annotation.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Gradient.h>
#include <vemo/import/items/Light.h>
#include <vemo/import/items/Scene.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace vemo {

namespace {

/// A new node of class T in the session of the collection.
template <class T>
lum::Ptr<T> makeNodeFor(const lum::CollectionNode& collection) {
  return new T(lum::ClassNameAndSessionNodeInitializer(T::getClassName(), collection.getSessionId()));
}

template <class T>
std::unique_ptr<T> readNew(std::unique_ptr<T> object, const QxElement& element, SceneFileReader* reader) {
  object->read(element, reader);
  return object;
}

}  // namespace

Scene::View::~View() = default;

void Scene::View::read(const QxElement& element, SceneFileReader* /*reader*/) {
  checkVersion(element);
  element.getVector3(XML_POSITION, _camera.position);
  element.getVector3(XML_UP, _camera.viewUp);
  element.getVector3(XML_FOCAL_POINT, _camera.focalPoint);
  _camera.perspective = element.getBool(XML_ATTRIB_PERSPECTIVE);
  _camera.parallelScale = element.getDouble(XML_ATTRIB_PARALLEL_SCALE);
  _camera.windowWidth = element.getInt(XML_ATTRIB_WINDOW_WIDTH);
  _camera.windowHeight = element.getInt(XML_ATTRIB_WINDOW_HEIGHT);
  _camera.windowX = element.getInt(XML_ATTRIB_WINDOW_X);
  _camera.windowY = element.getInt(XML_ATTRIB_WINDOW_Y);
}

Scene::Scene(const std::string& name) : AssemblyItem(name) {}
Scene::~Scene() = default;

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

void Scene::read(const QxElement& element, SceneFileReader* reader) {
  AssemblyItem::read(element, reader);
  readImpl(element, reader);
}

void Scene::readImpl(const QxElement& element, SceneFileReader* reader) {
  _backgroundColor = element.getColor(XML_ATTRIB_BACKGROUND);
  for (const auto& child : element.getChildren()) {
    const SceneFileReader::ItemScope scope(reader, pathName(*child), child->getLine());
    readChild(*child, reader);
  }
}

/// Children of other kinds are the assembly's.
void Scene::readChild(const QxElement& element, SceneFileReader* reader) {
  const std::string& kind = element.getName();
  if (kind == ClippingPlane::XML_ENTITY) {
    addClippingPlane(readNew(std::make_unique<ClippingPlane>(), element, reader));
  } else if (kind == Light::XML_ENTITY) {
    addLight(readNew(std::make_unique<Light>(), element, reader));
  } else if (kind == View::XML_ENTITY) {
    _view.read(element, reader);
  } else if (kind == Gradient::XML_ENTITY) {
    _gradient = std::make_unique<Gradient>("background");
    _gradient->read(element, reader);
  } else if (kind == Annotation::XML_ENTITY) {
    add(readNew(std::make_unique<Annotation>(std::string()), element, reader));
  }
}

void Scene::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                            const std::string& /*parentName*/) const {
  lum::SceneCanvas& canvas = shared.sceneNode->getModelCanvas();
  convertCamera(canvas);
  processChildren(shared, collection, level, false);
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
  if (view.perspective) {
    camera.setProjectionMode(Mode::PERSPECTIVE);
  } else {
    camera.setProjectionMode(Mode::PARALLEL);
    camera.setParallelScale(view.parallelScale);
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
