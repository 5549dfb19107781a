#include "vemoview/import/items/CollectionColoring.h"

#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace vemo {

CollectionColoring::Scope::Scope(SharedBySiblings& shared)
    : _shared(shared), _isOutermost(shared.coloring == nullptr) {
  if (_isOutermost) {
    shared.coloring = std::make_shared<CollectionColoring>();
  }
}

CollectionColoring::Scope::~Scope() {
  if (_isOutermost) {
    _shared.coloring.reset();
  }
}

void CollectionColoring::Scope::finish() {
  if (_isOutermost) {
    _shared.coloring->apply();
  }
}

bool CollectionColoring::Precedes::operator()(const Colormap* a, const Colormap* b) const {
  return a->precedes(*b);
}

CollectionColoring::Content::Counts CollectionColoring::Content::setColors(const Colormap* colormap) {
  Counts former = std::exchange(counts, {});
  std::size_t total = 0;
  for (const auto& [colors, count] : former) {
    total += count;
  }
  if (total > 0) {
    counts[colormap] = total;
  }
  return former;
}

void CollectionColoring::Content::replace(const Counts& former, const Colormap* colormap) {
  for (const auto& [colors, count] : former) {
    const auto counted = counts.find(colors);
    counted->second -= count;
    if (counted->second == 0) {
      counts.erase(counted);
    }
    counts[colormap] += count;
  }
}

std::vector<CollectionColoring::Content*> CollectionColoring::contentsAround(const lum::Node& node) {
  std::vector<const lum::Node*> collections;
  for (const lum::Node* around = &node; around != nullptr; around = around->getOwner()) {
    if (dynamic_cast<const lum::DrawableCollection*>(around) != nullptr) {
      collections.push_back(around);
    }
  }
  std::ranges::reverse(collections);
  std::vector<Content*> contents;
  Coloring outer;
  for (const lum::Node* const collection : collections) {
    Content& content = _contents[collection];
    if (outer.number > content.knownColorings) {
      content.setColors(outer.known);
    }
    content.knownColorings = _coloringCount;
    if (content.latest.number > outer.number) {
      outer = content.latest;
    }
    contents.push_back(&content);
  }
  return contents;
}

void CollectionColoring::add(const lum::ScalarAttributes& data) {
  if (!_data.try_emplace(&data, _data.size() + 1).second) {
    return;
  }
  for (Content* const content : contentsAround(data)) {
    ++content->counts[nullptr];
  }
}

bool CollectionColoring::color(lum::DrawableCollection& collection, const Colormap& colormap) {
  const Colormap* const known = *_colormaps.insert(&colormap).first;
  std::vector<Content*> around = contentsAround(collection);
  Content& content = *around.back();
  around.pop_back();
  if (content.latest.number == 0) {
    _colored.push_back(&collection);
  }
  const Content::Counts former = content.setColors(known);
  content.latest = {&colormap, known, ++_coloringCount, _data.size()};
  content.knownColorings = _coloringCount;
  for (Content* const outer : around) {
    outer->replace(former, known);
    outer->knownColorings = _coloringCount;
  }
  return !content.counts.empty();
}

bool CollectionColoring::wouldChange(const lum::DrawableCollection& collection, const Colormap& colormap) {
  const auto known = _colormaps.find(&colormap);
  return std::ranges::any_of(contentsAround(collection).back()->counts, [&](const auto& counted) {
    return known == _colormaps.end() || counted.first != *known;
  });
}

const CollectionColoring::Coloring* CollectionColoring::coloringOf(const lum::ScalarAttributes& data) const {
  const auto added = _data.find(&data);
  // What a host has put into the collection counts as there before all others.
  const std::size_t number = added != _data.end() ? added->second : 0;
  const Coloring* latest = nullptr;
  for (const lum::Node* around = data.getOwner(); around != nullptr; around = around->getOwner()) {
    const auto content = _contents.find(around);
    if (content == _contents.end() || content->second.latest.number == 0) {
      continue;
    }
    const Coloring& coloring = content->second.latest;
    if (number <= coloring.dataCount && (latest == nullptr || coloring.number > latest->number)) {
      latest = &coloring;
    }
  }
  return latest;
}

bool CollectionColoring::isColored(const lum::ScalarAttributes& data) const {
  return coloringOf(data) != nullptr;
}

void CollectionColoring::apply() const {
  const auto isInColored = [this](const lum::Node& collection) {
    for (const lum::Node* around = collection.getOwner(); around != nullptr; around = around->getOwner()) {
      const auto content = _contents.find(around);
      if (content != _contents.end() && content->second.latest.number > 0) {
        return true;
      }
    }
    return false;
  };
  for (lum::DrawableCollection* const collection : _colored) {
    if (isInColored(*collection)) {
      continue;
    }
    lum::forEachNodeOf<lum::ScalarAttributes>(*collection, [this](lum::ScalarAttributes& data) {
      if (const Coloring* const coloring = coloringOf(data)) {
        coloring->colormap->applyTo(data);
      }
    });
  }
}

}  // namespace vemo
