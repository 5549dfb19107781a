#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/QxElement.h>
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/AssemblyItem.h>
#include <vemo/import/items/AxesItem.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/CoordinateSystemItem.h>
#include <vemo/import/items/GeometryItem.h>
#include <vemo/import/items/Image2D.h>
#include <vemo/import/items/Image3D.h>
#include <vemo/import/items/Legend.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/import/items/Streamlines.h>
#include <vemo/import/items/VectorGlyphs.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/Traversal.h>

#include <algorithm>
#include <utility>

namespace vemo {

namespace {

// Items are read and converted by functions that call themselves, on whatever
// stack the host's thread has: the streams of the log stay out of their frames.
[[gnu::noinline]] void logChildrenFound(std::size_t count) {
  VEMO_LOG_INFO("AssemblyItem::read: " << count << " children found");
}

[[gnu::noinline]] void logEmpty(const std::string& name) {
  VEMO_LOG_INFO("dropping empty assembly \"" << name << "\"\n");
}

[[gnu::noinline]] void logConversion() {
  VEMO_LOG_INFO("***** Annotation::addToCollection is being processed *****");
}

[[gnu::noinline]] void logTarget(const lum::Node& target, const lum::Node& parent, std::size_t childCount,
                                 const std::string& name) {
  VEMO_LOG_INFO("DrawableCollection " << target.getName() << " for parent " << parent.getName());
  VEMO_LOG_INFO(childCount << " children detected in the assembly \"" << name << "\"");
}

}  // namespace

AssemblyItem::AssemblyItem(std::string name) : GraphicsItem(std::move(name)) {}
AssemblyItem::~AssemblyItem() = default;

void AssemblyItem::setVisibility(double visibility) {
  GraphicsItem::setVisibility(visibility);
  for (const auto& child : _children) {
    child->setVisibility(1.0);
  }
}

bool AssemblyItem::hasHiddenItems() const {
  return GraphicsItem::hasHiddenItems() || std::ranges::any_of(_children, [](const auto& child) {
           return child->getVisibility() <= VISIBILITY_THRESHOLD;
         });
}

void AssemblyItem::add(std::unique_ptr<GraphicsItem> child) {
  _children.push_back(std::move(child));
}

void AssemblyItem::addColormap(std::unique_ptr<Colormap> colormap) {
  _colormaps.add(std::move(colormap));
}

void AssemblyItem::setLegend(std::unique_ptr<Legend> legend) {
  _legend = std::move(legend);
}

void AssemblyItem::setTransform(std::unique_ptr<Transform> transform) {
  _transform = std::move(transform);
}

void AssemblyItem::read(const QxElement& element, SceneFileReader* reader) {
  readBase(element, reader);
}

void AssemblyItem::readBase(const QxElement& element, SceneFileReader* reader) {
  checkVersion(element, version());
  GraphicsItem::read(element, reader);
  readImpl(element, reader);
}

void AssemblyItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  logChildrenFound(element.getChildren().size());
  makeReadingCommandsMap();
  for (const auto& child : element.getChildren()) {
    readChild(*child, reader);
  }
  // Scenes may hold a great many assemblies; none is read twice.
  _readingCommands.clear();
}

void AssemblyItem::makeReadingCommandsMap() {
  _readingCommands = {
      {Colormap::XML_ENTITY, &AssemblyItem::readColormap},
      {Legend::XML_ENTITY, &AssemblyItem::readLegend},
      {GeometryTransform::XML_ENTITY, &AssemblyItem::readTransform<GeometryTransform>},
      {RepeatTransform::XML_ENTITY, &AssemblyItem::readTransform<RepeatTransform>},
      {ReflectTransform::XML_ENTITY, &AssemblyItem::readTransform<ReflectTransform>},
      {AxesItem::XML_ENTITY, &AssemblyItem::makeChild<AxesItem>},
      {CoordinateSystemItem::XML_ENTITY, &AssemblyItem::makeChild<CoordinateSystemItem>},
      {Image2D::XML_ENTITY, &AssemblyItem::makeChild<Image2D>},
      {Image3D::XML_ENTITY, &AssemblyItem::makeChild<Image3D>},
      {GeometryItem::XML_ENTITY, &AssemblyItem::makeChild<GeometryItem>},
      {VectorGlyphs::XML_ENTITY, &AssemblyItem::readAside<VectorGlyphs>},
      {Streamlines::XML_ENTITY, &AssemblyItem::readAside<Streamlines>},
      {AssemblyItem::XML_ENTITY, &AssemblyItem::makeChild<AssemblyItem>},
  };
}

void AssemblyItem::readChild(const QxElement& element, SceneFileReader* reader) {
  const auto command = _readingCommands.find(element.getName());
  if (command == _readingCommands.end()) {
    return;
  }
  const SceneFileReader::ItemScope scope(reader, pathName(element), element.getLine());
  if (auto child = (this->*command->second)(element, reader)) {
    child->read(element, reader);
    add(std::move(child));
  }
}

template <class T>
std::unique_ptr<GraphicsItem> AssemblyItem::makeChild(const QxElement& /*element*/,
                                                      SceneFileReader* /*reader*/) {
  return std::make_unique<T>(std::string());
}

template <class T>
std::unique_ptr<GraphicsItem> AssemblyItem::readTransform(const QxElement& element, SceneFileReader* reader) {
  auto transform = std::make_unique<T>();
  transform->read(element, reader);
  setTransform(std::move(transform));
  return nullptr;
}

template <class T>
std::unique_ptr<GraphicsItem> AssemblyItem::readAside(const QxElement& element, SceneFileReader* reader) {
  T().read(element, reader);
  return nullptr;
}

std::unique_ptr<GraphicsItem> AssemblyItem::readColormap(const QxElement& element, SceneFileReader* reader) {
  auto colormap = std::make_unique<Colormap>();
  colormap->read(element, reader);
  addColormap(std::move(colormap));
  return nullptr;
}

std::unique_ptr<GraphicsItem> AssemblyItem::readLegend(const QxElement& element, SceneFileReader* reader) {
  auto legend = std::make_unique<Legend>(std::string());
  legend->read(element, reader);
  setLegend(std::move(legend));
  return nullptr;
}

lum::DrawableCollection* AssemblyItem::processChildren(SharedBySiblings& shared,
                                                       lum::DrawableCollection& collection, int level,
                                                       bool share) const {
  if (_children.empty()) {
    logEmpty(getName());
    return nullptr;
  }
  lum::DrawableCollection& target =
      level == 0 ? collection : collection.findOrCreate<lum::DrawableCollection>(getName());
  logTarget(target, collection, _children.size(), getName());
  for (const auto& child : _children) {
    if (share) {
      shared.collection = &target;
    }
    child->addToCollection(shared, target, level + 1, getName());
  }
  return &target;
}

void AssemblyItem::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                                   const std::string& /*parentName*/) const {
  logConversion();
  const Colormap* const outer = shared.colormap;
  if (outer == nullptr) {
    shared.colormap = getActiveColormap();
  }
  lum::DrawableCollection* const target = processChildren(shared, collection, level, level == 1);
  if (target != nullptr) {
    convertExtras(shared, *target, level);
  }
  shared.colormap = outer;
}

void AssemblyItem::convertExtras(SharedBySiblings& shared, lum::DrawableCollection& target, int level) const {
  if (level == 1) {
    target.setQualifiedName(getName());
  }
  if (level != 0) {
    addVisibilityAttrib(target);
  }
  if (_legend) {
    convertLegend(shared, level);
  }
  applyColormap(target);
  applyTransform(target);
}

void AssemblyItem::convertLegend(SharedBySiblings& shared, int level) const {
  shared.assemblyColormaps = &_colormaps;
  _legend->addToCollection(shared, shared.sceneNode->getForegroundCanvas().getDrawableCollection(), level,
                           getName());
  shared.assemblyColormaps = nullptr;
}

void AssemblyItem::applyColormap(lum::Node& target) const {
  if (const Colormap* const colormap = getActiveColormap()) {
    lum::forEachNodeOf<lum::ScalarAttributes>(
        target, [colormap](lum::ScalarAttributes& attributes) { colormap->applyTo(attributes); });
  }
}

void AssemblyItem::applyTransform(lum::DrawableCollection& target) const {
  if (_transform) {
    _transform->apply(*_transform->makeLumTransform(target.getBaseAttributes()));
  }
}

}  // namespace vemo
