// The elements of the scene format, one row each.

#include "vemoview/import/scene/ChildElements.h"

#include "vemoview/import/geometry/GeometryKeys.h"
#include "vemoview/import/reading/ElementVersion.h"
#include "vemoview/import/reading/KeyTable.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/import/decorations/Annotation.h>
#include <vemo/import/decorations/CoordinateSystemItem.h>
#include <vemo/import/decorations/Gradient.h>
#include <vemo/import/decorations/Image2D.h>
#include <vemo/import/decorations/Image3D.h>
#include <vemo/import/decorations/Legend.h>
#include <vemo/import/geometry/GeometryItem.h>
#include <vemo/import/items/ClippingPlane.h>
#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/Light.h>
#include <vemo/import/items/ReflectTransform.h>
#include <vemo/import/items/RepeatTransform.h>
#include <vemo/import/items/Streamlines.h>
#include <vemo/import/items/VectorGlyphs.h>
#include <vemo/import/scene/Scene.h>

#include <algorithm>
#include <concepts>
#include <iterator>
#include <type_traits>
#include <utility>

namespace vemo {

namespace {

template <class T>
std::unique_ptr<T> make() {
  if constexpr (std::is_constructible_v<T, std::string>) {
    return std::make_unique<T>(std::string());
  } else {
    return std::make_unique<T>();
  }
}

/// What an element has to itself in its parent; empty when there can be several.
std::string singleKindOf(const QxElement& element) {
  const std::string& name = element.getName();
  const auto is = [&name](auto... kinds) { return ((name == kinds) || ...); };
  if (name == Colormap::XML_ENTITY) {
    return name + ' ' + SceneItem::statedName(element);
  }
  if (is(GeometryTransform::XML_ENTITY, RepeatTransform::XML_ENTITY, ReflectTransform::XML_ENTITY)) {
    return GeometryTransform::XML_ENTITY;
  }
  return is(Legend::XML_ENTITY, Gradient::XML_ENTITY, Scene::View::XML_ENTITY) ? name : std::string();
}

/// The keys of T, in the section of its own element, else in that of the Item.
template <class T, class Item, class Target>
ElementTable describeTable(const KeyTable<Target>& keys) {
  ElementTable table{Item::XML_ENTITY, keys.getOnBadValue(), {}};
  if constexpr (requires { T::XML_ENTITY; }) {
    table.element = T::XML_ENTITY;
  }
  if constexpr (std::is_base_of_v<Target, Item>) {
    table.keys = keys.describe(*make<Item>());
  } else {
    table.keys = keys.describe(*make<Target>());
  }
  return table;
}

template <class Item, class... Described>
std::vector<ElementTable> describe() {
  return {describeTable<Described, Item>(Described::KEYS)...};
}

/// The tables of the classes, else the Item's own one, if it has any.
template <class Item, class... Described>
constexpr auto describeAll() {
  if constexpr (sizeof...(Described) > 0) {
    return &describe<Item, Described...>;
  } else if constexpr (std::same_as<decltype(Item::KEYS), const KeyTable<Item>>) {
    return &describe<Item, Item>;
  } else {
    return &describe<Item>;
  }
}

// A row names the container, the class of the element, and the classes whose
// KEYS the element has, if it has others than its own.

/// An item of the container.
template <class Container, class Item, class... Described>
ChildElement<Container> item() {
  return {Item::XML_ENTITY,
          [](Container&, const QxElement&, SceneFileReader*) -> std::unique_ptr<GraphicsItem> {
            return make<Item>();
          },
          describeAll<Item, Described...>()};
}

/// Something that the container is given when it has been read.
template <class Container, class Part, auto ADD, class... Described>
ChildElement<Container> part() {
  return {Part::XML_ENTITY,
          [](Container& container, const QxElement& element,
             SceneFileReader* reader) -> std::unique_ptr<GraphicsItem> {
            auto made = make<Part>();
            if constexpr (std::derived_from<Part, GraphicsItem>) {
              readItem(*made, element, reader);
            } else {
              made->read(element, reader);
            }
            if constexpr (std::derived_from<Part, Transform>) {
              made->setPlace(element.getPlace());
            }
            (container.*ADD)(std::move(made));
            return nullptr;
          },
          describeAll<Part, Described...>()};
}

/// Something that the container reads itself.
template <class Container, class Part, auto READ>
ChildElement<Container> readBy() {
  return {Part::XML_ENTITY,
          [](Container& container, const QxElement& element,
             SceneFileReader* reader) -> std::unique_ptr<GraphicsItem> {
            (container.*READ)(element, reader);
            return nullptr;
          },
          describe<Part, Part>};
}

/// Only a warning.
template <class Container, class Part>
ChildElement<Container> notShown() {
  return {Part::XML_ENTITY,
          [](Container&, const QxElement& element, SceneFileReader* reader) -> std::unique_ptr<GraphicsItem> {
            Part().read(element, reader);
            return nullptr;
          },
          describe<Part>};
}

}  // namespace

void SingleElements::addVectors(const QxElement& view) {
  // Of several of one name the first counts.
  const auto add = [this](const auto& child) {
    if (const auto* const former = std::exchange(_vectors[child->getName()], child.get())) {
      former->setOutlivesParent(false);
    }
    child->setOutlivesParent(true);
  };
  std::for_each(view.getChildren().rbegin(), view.getChildren().rend(), add);
}

void noteUnknown(const QxElement& element, SceneFileReader* reader) {
  if (reader != nullptr && !element.isRead() && reader->namesEntries(element)) {
    reader->noteLoss();
  }
}

std::string SingleElements::describeKeptVectors(const QxElement& former) const {
  std::string text;
  for (const auto& child : former.getChildren()) {
    if (child->isRead() && child->outlivesParent()) {
      text += (text.empty() ? ", except for its " : ", ") + ReadingContext::quoted(child->getName());
    }
  }
  return text;
}

void SingleElements::add(const QxElement& element) {
  const std::string kind = singleKindOf(element);
  if (kind.empty()) {
    return;
  }
  if (kind == Scene::View::XML_ENTITY) {
    addVectors(element);
  }
  const QxElement* const former = std::exchange(_latest[kind], &element);
  if (former != nullptr && _reader != nullptr) {
    const ReadingContext::ItemScope scope(_reader, SceneItem::pathName(*former), former->getPlace());
    _reader->report(FindingCode::ELEMENT_REPLACED, "A later " + ReadingContext::quoted(element.getName()) +
                                                       " in its parent replaces it" +
                                                       describeKeptVectors(*former));
  }
}

void readItem(GraphicsItem& item, const QxElement& element, SceneFileReader* reader) {
  item.read(element, reader);
  if (reader != nullptr && !GraphicsItem::statesVisibility(element)) {
    reader->report(FindingCode::HIDDEN_BY_DEFAULT, "The item is hidden: it states no visibility");
  }
}

std::span<const ChildElement<AssemblyItem>> assemblyElements() {
  using A = AssemblyItem;
  static const ChildElement<A> ELEMENTS[] = {
      part<A, Colormap, &A::addColormap>(),
      part<A, Legend, &A::setLegend, Legend, Legend::Rectangle, Font>(),
      part<A, GeometryTransform, &A::setTransform>(),
      part<A, RepeatTransform, &A::setTransform>(),
      part<A, ReflectTransform, &A::setTransform>(),
      item<A, AxesItem>(),
      item<A, CoordinateSystemItem>(),
      item<A, Image2D, Image::PixelSource, Image, Image2D>(),
      item<A, Image3D, Image::PixelSource, Image, Image3D>(),
      item<A, GeometryItem, GeometryEntries, GeometrySettings, GeometryArray>(),
      notShown<A, VectorGlyphs>(),
      notShown<A, Streamlines>(),
      item<A, AssemblyItem>(),
  };
  return ELEMENTS;
}

std::span<const ChildElement<Scene>> sceneElements() {
  static const ChildElement<Scene> ELEMENTS[] = {
      part<Scene, ClippingPlane, &Scene::addClippingPlane>(),
      part<Scene, Light, &Scene::addLight>(),
      readBy<Scene, Scene::View, &Scene::readView>(),
      readBy<Scene, Gradient, &Scene::readGradient>(),
      item<Scene, Annotation>(),
  };
  return ELEMENTS;
}

std::vector<ElementTable> describeSceneFormat() {
  ElementTable common{"", OnBadValue::FAIL, ElementVersion::KEYS.describe({})};
  std::ranges::move(SceneItem::KEYS.describe(AssemblyItem("")), std::back_inserter(common.keys));
  std::ranges::move(GraphicsItem::KEYS.describe(AssemblyItem("")), std::back_inserter(common.keys));
  std::vector<ElementTable> tables = {common, describeTable<Scene, Scene>(Scene::KEYS)};
  const auto addAll = [&tables](const auto& elements) {
    for (const auto& element : elements) {
      std::ranges::move(element.describe(), std::back_inserter(tables));
    }
  };
  addAll(sceneElements());
  addAll(assemblyElements());
  return tables;
}

}  // namespace vemo
