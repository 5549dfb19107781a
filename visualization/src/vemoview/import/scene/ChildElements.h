#pragma once

#include "vemoview/import/reading/DescriptionWalk.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/scene/SceneFormat.h"
#include <vemo/import/items/GraphicsItem.h>
#include <vemo/import/xml/QxElement.h>

#include <map>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vemo {

class AssemblyItem;
class Scene;

/// Returns a new item, still to be read from the element and added to the
/// container. An element that is not an item is read directly: null.
template <class Container>
using ReadingCommand = std::unique_ptr<GraphicsItem> (*)(Container& container, const QxElement& element,
                                                         SceneFileReader* reader);

/// By the name of the element.
template <class Container>
using ReadingCommands = std::map<std::string, ReadingCommand<Container>>;

/// An element that a container may hold.
template <class Container>
struct ChildElement {
  const std::string& name;
  ReadingCommand<Container> command;
  /// The tables of its keys.
  std::vector<ElementTable> (*describe)();
};

std::span<const ChildElement<AssemblyItem>> assemblyElements();
/// Those that an assembly may not hold.
std::span<const ChildElement<Scene>> sceneElements();

template <class Container>
ReadingCommands<Container> makeReadingCommands(std::span<const ChildElement<Container>> elements) {
  ReadingCommands<Container> commands;
  for (const ChildElement<Container>& element : elements) {
    commands.emplace(element.name, element.command);
  }
  return commands;
}

/// Reports which of the elements of a container are replaced by later ones.
class SingleElements {
 public:
  explicit SingleElements(SceneFileReader* reader) : _reader(reader) {}

  void add(const QxElement& element);

 private:
  /// A view keeps the vectors of earlier ones that it does not state itself.
  void addVectors(const QxElement& view);
  /// For a replaced view, `, except for its "up"`; empty for other elements.
  std::string describeKeptVectors(const QxElement& former) const;

  SceneFileReader* _reader;
  /// The latest of each kind that a container can have only one of.
  std::map<std::string, const QxElement*> _latest;
  /// The vectors of views, by name.
  std::map<std::string, const QxElement*> _vectors;
};

/// Reports an item that is hidden because it states no visibility.
void readItem(GraphicsItem& item, const QxElement& element, SceneFileReader* reader);

/// Notes that data are lost with an element that has no command.
void noteUnknown(const QxElement& element, SceneFileReader* reader);

/// Runs the commands for the child elements, in document order. Elements without
/// a command are ignored.
template <class Container>
void readChildren(Container& container, const ReadingCommands<Container>& commands, const QxElement& element,
                  SceneFileReader* reader) {
  SingleElements singles(reader);
  for (const auto& child : element.getChildren()) {
    const auto command = commands.find(child->getName());
    if (command == commands.end()) {
      // A scene has two sets of commands, but nothing of its own that may be missing.
      container.setPartlyLost();
      noteUnknown(*child, reader);
      continue;
    }
    child->markRead();
    const std::size_t faults = countFaults(reader);
    const std::size_t losses = countLosses(reader);
    bool isItem = false;
    const bool isRead = attempt(reader, [&] {
      const ReadingContext::ItemScope scope(reader, SceneItem::pathName(*child), child->getPlace());
      if (auto item = command->second(container, *child, reader)) {
        isItem = true;
        readItem(*item, *child, reader);
        // With only a part of its data, an item would appear to have more
        // faults than it has.
        if (item->isAssembly() || countFaults(reader) == faults) {
          container.add(std::move(item));
        }
      }
    });
    if (!isRead) {
      // One finding covers all of it.
      markTreeRead(*child);
    }
    if (countLosses(reader) != losses) {
      container.setLacksData();
    }
    if (countFaults(reader) == faults) {
      singles.add(*child);
      if (isItem && reader != nullptr) {
        reader->dropUnlessNeeded(*child);
      }
    } else {
      container.setIncomplete();
      reader->excuseEntriesOf(*child);
    }
  }
}

}  // namespace vemo
