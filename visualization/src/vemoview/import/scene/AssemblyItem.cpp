#include "vemoview/import/items/CollectionColoring.h"
#include "vemoview/import/items/SharedCollection.h"
#include "vemoview/import/reading/CopiedText.h"
#include "vemoview/import/reading/ElementVersion.h"
#include "vemoview/import/reading/ReadingContext.h"
#include "vemoview/import/scene/ChildElements.h"
#include <vemo/import/decorations/Legend.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/import/items/Transform.h>
#include <vemo/import/scene/AssemblyItem.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/Logger.h>

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

/// For the ledger: the legend that shows the colormap may have a title of its own.
void keepUnusedTitle(const Colormap& colormap, bool isTitleUsed, ReadingContext* context) {
  if (!isTitleUsed && !colormap.getTitle().empty()) {
    const ReadingContext::AttributeScope scope(context, "title");
    keepConsequence(context, FindingCode::ATTRIBUTE_WITHOUT_EFFECT);
  }
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
  checkVersion(element, reader, version());
  GraphicsItem::read(element, reader);
  readImpl(element, reader);
}

void AssemblyItem::readImpl(const QxElement& element, SceneFileReader* reader) {
  logChildrenFound(element.getChildren().size());
  if (getName().size() > MAX_COPIED_TEXT) {
    reader->report(FindingCode::TEXT_CHANGED, "The name is very long: qualified names contain the first " +
                                                  std::to_string(MAX_COPIED_TEXT) + " bytes of it");
  }
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
  lum::DrawableCollection& target = level == 0 ? collection : openCollection(shared, collection);
  logTarget(target, collection, _children.size(), getName());
  for (const auto& child : _children) {
    if (share) {
      shared.collection = &target;
    }
    const ReadingContext::ItemScope scope(shared.context, child->getPathName(), child->getPlace());
    child->addToCollection(shared, target, level + 1, getName());
  }
  return &target;
}

lum::DrawableCollection& AssemblyItem::openCollection(SharedBySiblings& shared,
                                                      lum::DrawableCollection& parent) const {
  const bool isHidden = GraphicsItem::hasHiddenItems() || shared.hidesItemsIndividually;
  auto* const other = parent.find<lum::DrawableCollection>(getName());
  if (other != nullptr) {
    reportSharing(shared, *other);
  }
  lum::DrawableCollection& target = shareCollection(parent, getName(), isHidden);
  if (other == nullptr) {
    addVisibilityAttrib(target, isHidden);
  }
  shared.hidesItemsIndividually = isHidden && isVisible(target);
  return target;
}

void AssemblyItem::addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                                   const std::string& /*parentName*/) const {
  logConversion();
  CollectionColoring::Scope coloring(shared);
  const Colormap* const outer = shared.colormap;
  const bool isOuterHidden = shared.isHidden;
  const bool outerHidesIndividually = shared.hidesItemsIndividually;
  if (outer == nullptr) {
    shared.colormap = getActiveColormap();
    shared.coloringAssembly = &getName();
  }
  shared.isHidden = isOuterHidden || GraphicsItem::hasHiddenItems();
  // At level 0 the collection is the caller's, which is not hidden.
  shared.hidesItemsIndividually = outerHidesIndividually || (level == 0 && shared.isHidden);
  lum::DrawableCollection* const target = processChildren(shared, collection, level, level == 1);
  if (target != nullptr) {
    convertExtras(shared, *target, level, outer != nullptr);
  } else if (!_isIncomplete) {
    reportEmpty(shared);
  }
  coloring.finish();
  shared.colormap = outer;
  shared.isHidden = isOuterHidden;
  shared.hidesItemsIndividually = outerHidesIndividually;
}

void AssemblyItem::reportEmpty(const SharedBySiblings& shared) const {
  if (_isPartlyLost || _lacksData) {
    keepConsequence(shared.context, FindingCode::ASSEMBLY_EMPTY);
    return;
  }
  std::string lost;
  const auto add = [&lost](bool isThere, const char* what) {
    lost += isThere ? (lost.empty() ? ", with its " : ", ") + std::string(what) : "";
  };
  add(!_colormaps.getAll().empty(), "colormaps");
  add(_legend != nullptr, "legend");
  add(_transform != nullptr, "transform");
  report(shared.context, FindingCode::ASSEMBLY_EMPTY,
         "The assembly " + ReadingContext::quoted(getName()) + " has no items and is left out" + lost);
}

void AssemblyItem::reportSharing(const SharedBySiblings& shared, lum::DrawableCollection& collection) const {
  reportSharedTransform(shared.context, collection, _transform != nullptr);
  const Colormap* const colormap = getActiveColormap();
  // An outer colormap replaces it in turn.
  if (colormap == nullptr || colormap != shared.colormap ||
      !shared.coloring->wouldChange(collection, *colormap)) {
    return;
  }
  const auto former = shared.colormapOrigins.find(&collection);
  if (shared.context != nullptr && former != shared.colormapOrigins.end()) {
    shared.context->reportReplaced(FindingCode::COLORMAP_REPLACED,
                                   "The colormap is replaced by the colormap " +
                                       ReadingContext::quoted(colormap->getName()) +
                                       " of a later item with the name " + ReadingContext::quoted(getName()),
                                   former->second);
  } else {
    report(shared.context, FindingCode::COLORMAP_REPLACED,
           "The colormap " + ReadingContext::quoted(colormap->getName()) +
               " also colours earlier items with the name " + ReadingContext::quoted(getName()));
  }
}

void AssemblyItem::convertExtras(SharedBySiblings& shared, lum::DrawableCollection& target, int level,
                                 bool isOuterColormap) const {
  if (level == 1) {
    target.setQualifiedName(beginOf(getName(), MAX_COPIED_TEXT));
  }
  // The colormap that the legend lacks may be what could not be read.
  if (_legend && (shared.colormap != nullptr || !_isIncomplete)) {
    convertLegend(shared, level);
  }
  const Colormap* const colormap = getActiveColormap();
  // An outer colormap replaces it.
  if (colormap != nullptr && !isOuterColormap && shared.coloring->color(target, *colormap)) {
    shared.usedColormaps[colormap] = true;
    shared.colormapOrigins[&target] = colormap->getPlace();
  }
  if (!_isIncomplete) {
    reportUnusedColormaps(shared);
  }
  applyTransform(shared, target);
}

void AssemblyItem::convertLegend(SharedBySiblings& shared, int level) const {
  shared.assemblyColormaps = &_colormaps;
  const ReadingContext::ItemScope scope(shared.context, _legend->getPathName(), _legend->getPlace());
  _legend->addToCollection(shared, shared.sceneNode->getForegroundCanvas().getDrawableCollection(), level,
                           getName());
  shared.assemblyColormaps = nullptr;
}

void AssemblyItem::reportUnusedColormaps(const SharedBySiblings& shared) const {
  for (const auto& [name, colormap] : _colormaps.getAll()) {
    const ReadingContext::ItemScope scope(shared.context, colormap->getPathName(), colormap->getPlace());
    if (const auto used = shared.usedColormaps.find(colormap.get()); used != shared.usedColormaps.end()) {
      keepUnusedTitle(*colormap, used->second, shared.context);
      continue;
    }
    const bool mayLackData = _lacksData && colormap.get() == shared.colormap;
    if (mayLackData) {
      keepConsequence(shared.context, FindingCode::COLORMAP_UNUSED);
    } else {
      report(shared.context, FindingCode::COLORMAP_UNUSED,
             "The colormap " + ReadingContext::quoted(name) + " colours neither data nor a legend");
    }
  }
}

void AssemblyItem::applyTransform(SharedBySiblings& shared, lum::DrawableCollection& target) const {
  if (!_transform) {
    return;
  }
  lum::BaseAttributes& base = target.getBaseAttributes();
  const lum::Transform* const former = base.getTransform();
  const auto changedBefore = former != nullptr ? former->getModificationTime() : 0;
  lum::Transform& transform = *_transform->makeLumTransform(base);
  const bool isOther = former != nullptr && &transform != former;
  _transform->apply(transform);
  if (isOther || (former != nullptr && transform.getModificationTime() != changedBefore)) {
    reportReplaced(
        shared, target, FindingCode::TRANSFORM_REPLACED,
        "The transform is replaced by that of a later item of the name " + ReadingContext::quoted(getName()));
  }
  shared.origins[&target] = _transform->getPlace();
}

}  // namespace vemo
