#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/reading/ValueReader.h"
#include "vemoview/import/scene/ChildElements.h"
#include <vemo/import/QxElement.h>
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/AssemblyItem.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/Legend.h>
#include <vemo/import/items/Transform.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>

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
  ValueReader(element, reader, OnBadValue::FAIL).checkVersion(version());
  GraphicsItem::read(element, reader);
  readImpl(element, reader);
}

void AssemblyItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  logChildrenFound(element.getChildren().size());
  makeReadingCommandsMap();
  readChildren(*this, _readingCommands, element, reader);
  // Scenes may hold a great many assemblies; none is read twice.
  _readingCommands.clear();
}

void AssemblyItem::makeReadingCommandsMap() {
  _readingCommands = makeReadingCommands(assemblyElements());
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
    const ReadingContext::ItemScope scope(shared.context, child->getPathName(), child->getLine());
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
    reportUnusedColormaps(shared);
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

/// One colormap colours an assembly: the outermost active one.
void AssemblyItem::reportUnusedColormaps(const SharedBySiblings& shared) const {
  for (const Colormap* const colormap : _colormaps.getAll()) {
    const bool isUsed =
        shared.colormap == colormap || (_legend && _legend->getColormapName() == colormap->getName());
    if (!isUsed) {
      const ReadingContext::ItemScope scope(shared.context, colormap->getPathName(), colormap->getLine());
      report(shared.context, FindingCode::COLORMAP_UNUSED,
             "The colormap \"" + colormap->getName() + "\" is not used: another one colours the data");
    }
  }
}

void AssemblyItem::convertLegend(SharedBySiblings& shared, int level) const {
  shared.assemblyColormaps = &_colormaps;
  const ReadingContext::ItemScope scope(shared.context, _legend->getPathName(), _legend->getLine());
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
