#include "scenegraph/io/codec/GraphDecoder.h"

#include "base/Utf8.h"
#include "scenegraph/inspect/NodeDescription.h"
#include "scenegraph/io/codec/FieldReader.h"
#include "scenegraph/io/codec/GraphFormat.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>
#include <utility>

namespace lum::io {

namespace {

[[noreturn]] void fail(const std::string& text) {
  throw FileError(FileIoStatus::ReadError, text);
}

bool isPresent(std::string_view presence, std::size_t bit) {
  return (static_cast<unsigned char>(presence[bit / 8]) >> bit % 8 & 1) != 0;
}

const Node& topOf(const Node& node) {
  const Node* top = &node;
  while (top->getOwner() != nullptr) {
    top = top->getOwner();
  }
  return *top;
}

}  // namespace

GraphDecoder::GraphDecoder(const TableReader& tables, ArrayBinder& binder, ContentBudget& budget,
                           int sessionId)
    : _tables(tables), _binder(binder), _budget(budget), _sessionId(sessionId) {}

void GraphDecoder::setKnown(const KnownNodes& known, std::uint64_t& movableNodes) {
  _known = &known;
  _movableNodes = &movableNodes;
  _knownCount = known.size();
}

Ptr<Node> GraphDecoder::decode(std::string_view bytes) {
  ByteReader graph(bytes);
  const std::size_t count = graph.count("nodes", MIN_NODE_BYTES);
  _budget.useNodes(count);
  readChanged(graph);
  for (std::size_t i = 0; i < count; ++i) {
    try {
      readNode(graph, i == 0);
    } catch (const FileError& error) {
      throw FileError(error.getStatus(), fmt::format("Node {} of {}: {}", i + 1, count, error.what()));
    }
  }
  if (!_changed.empty()) {
    fail(fmt::format("Changed node {} has no record", *_changed.begin()));
  }
  if (!_root) {
    fail("A graph has no root");
  }
  checkEmptied();
  readReferences(graph);
  if (_known != nullptr) {
    readReleased(graph);
  }
  return _root;
}

// The graph has all that they own, which may now be elsewhere and in any order.
void GraphDecoder::readChanged(ByteReader& in) {
  for (std::size_t count = in.count("changed nodes", 1); count > 0; --count) {
    const std::size_t number = in.index("changed node", _knownCount);
    _changed.insert(number);
    if (Node* node = findNode(number)) {
      disownAll(*node);
    }
  }
}

void GraphDecoder::disownAll(Node& node) {
  FieldList fields;
  node.listFields(fields);
  for (const Field& field : fields) {
    if (const auto* slot = std::get_if<OwnedSlot*>(&field.value)) {
      _formerOwners[(*slot)->getNode()] = &node;
      _disowned.emplace_back((*slot)->getNode());
      (*slot)->put(node, nullptr);
    } else if (const auto* collection = std::get_if<CollectionNode*>(&field.value)) {
      const auto nodes = (*collection)->getNodes();
      for (const auto& owned : nodes) {
        _formerOwners[static_cast<Node*>(owned.getObject())] = &node;
      }
      _disowned.insert(_disowned.end(), nodes.begin(), nodes.end());
      (*collection)->removeAllNodes();
    }
  }
}

void GraphDecoder::readNode(ByteReader& in, bool isFirst) {
  const Record record = readRecord(in);
  const FileField* ownerField = readPosition(in, isFirst);
  const Ptr<Node> node = findOrMake(record, ownerField);
  if (isFirst) {
    if (!node) {
      fail("The root is of class " + vemo::shortName(record.fileClass->name) + ", which is unknown here");
    }
    _root = node;
  }
  if (_levels.size() <= _depth) {
    _levels.emplace_back();
  }
  const bool isMovedNow = ownerField != nullptr && isMoved(record, node.get());
  Level& level = _levels[_depth++];
  level.isMoved = isMovedNow;
  level.node = node.get();
  level.fileClass = record.fileClass;
  level.isComplete = record.isComplete;
  level.fields.clear();
  if (level.node != nullptr) {
    level.node->listFields(level.fields);
  }
  if (record.isNew) {
    _newNodes.push_back(level.node);
  }
  if (record.isComplete) {
    readValues(in, level, record.isNew);
  }
  if (ownerField != nullptr && level.node != nullptr) {
    attach(_levels[_depth - 2], *ownerField, *level.node);
  }
  if (level.isMoved && level.node != nullptr && !record.isComplete) {
    checkDepth(*level.node);
  }
}

GraphDecoder::Record GraphDecoder::readRecord(ByteReader& in) {
  const std::uint64_t tag = in.number("class of a node");
  if (tag != KNOWN_NODE) {
    if (tag > _tables.getClasses().size()) {
      fail(fmt::format("Class index {} out of range ({})", tag - 1, _tables.getClasses().size()));
    }
    return {&_tables.getClasses()[tag - 1], nullptr, true, true};
  }
  const std::size_t number = in.index("known node", _knownCount);
  Node* node = findNode(number);
  const bool isChanged = _changed.erase(number) != 0;
  if (node == nullptr) {
    fail(fmt::format("Node {}, which changed, is no longer there", number));
  }
  return {&classOf(*node), node, false, isChanged};
}

/// The field of the owner, which is at the deepest level left; null for a root.
const FileField* GraphDecoder::readPosition(ByteReader& in, bool isFirst) {
  const std::uint64_t position = in.number("position of a node");
  if ((position == ROOT_POSITION) != isFirst) {
    fail(isFirst ? "The first node has an owner" : "There is more than one root");
  }
  if (isFirst) {
    return nullptr;
  }
  if (position > _depth) {
    fail(fmt::format("Its owner is {} levels up, but the depth is {}", position - 1, _depth));
  }
  _depth -= position - 1;
  if (_depth >= static_cast<std::size_t>(Node::MAX_DEPTH)) {
    fail(fmt::format("The scene is nested more than {} nodes deep", Node::MAX_DEPTH));
  }
  const FileClass& owner = *_levels[_depth - 1].fileClass;
  const FileField& field = owner.fields[in.index("field of the owner", owner.fields.size())];
  if (field.kind != FieldKinds::kindOf<OwnedSlot*>() && field.kind != FieldKinds::kindOf<CollectionNode*>()) {
    fail("It is in a field of " + vemo::shortName(owner.name) + " that holds no nodes");
  }
  return &field;
}

/// Empty for a node that is left out: with its owner, or because its class or
/// the owner's field are unknown here. The values of a known node that is left
/// out stay as they are.
Ptr<Node> GraphDecoder::findOrMake(const Record& record, const FileField* ownerField) {
  const Level* owner = ownerField != nullptr ? &_levels[_depth - 1] : nullptr;
  if (owner != nullptr && (owner->node == nullptr || ownerField->index == FileField::NONE)) {
    return {};
  }
  if (owner != nullptr && !owner->isComplete && (record.isNew || record.known->getOwner() != owner->node)) {
    fail("It belongs to a node that did not change");
  }
  if (!record.isNew) {
    if (owner == nullptr && record.known->getOwner() != nullptr) {
      fail("The first node has an owner");
    }
    return Ptr<Node>(record.known);
  }
  ++_nodeCounts[static_cast<std::size_t>(record.fileClass - _tables.getClasses().data())];
  const NodeConstructor construct = record.fileClass->construct;
  return construct != nullptr
             ? construct(ClassNameAndSessionNodeInitializer(record.fileClass->name, _sessionId))
             : Ptr<Node>();
}

void GraphDecoder::attach(Level& owner, const FileField& ownerField, Node& node) {
  if (!owner.isComplete) {
    return;
  }
  takeOutOfRemoved(node);
  const Field& field = owner.fields[ownerField.index];
  bool done = false;
  if (const auto* slot = std::get_if<OwnedSlot*>(&field.value)) {
    done = (*slot)->getNode() == nullptr && (*slot)->put(*owner.node, &node);
  } else {
    done = std::get<CollectionNode*>(field.value)->append(node);
  }
  if (!done) {
    fail(fmt::format("The field {} of {} does not take {}", field.name, describeNode(*owner.node),
                     describeNode(node)));
  }
}

/// A node may come from an owner that left the graph, of which the graph has nothing. All
/// that the owner has is taken at once: one by one would take time with the square of it.
void GraphDecoder::takeOutOfRemoved(const Node& node) {
  Node* const owner = node.getOwner();
  if (owner != nullptr && _formerOwners.contains(&topOf(*owner))) {
    disownAll(*owner);
    _emptied.push_back(owner);
  }
}

void GraphDecoder::checkEmptied() const {
  for (const Node* node : _emptied) {
    if (&topOf(*node) == _root.get()) {
      fail(describeNode(*node) + " did not change, but what it owned is elsewhere");
    }
  }
}

void GraphDecoder::readValues(ByteReader& in, Level& level, bool isNew) {
  const std::string_view presence = in.take(level.fileClass->presenceBytes, "presence bits");
  bool isWaiting = false;
  if (!isNew && level.node != nullptr) {
    level.node->_qualifiedName.reset();
    level.node->modified();
    // It no longer waits for what it waited for before.
    _binder.expectFor(*level.node, false);
    isWaiting = true;
  }
  readNames(in, level.node, presence);
  std::size_t bit = FIRST_FIELD_BIT;
  for (const FileField& field : level.fileClass->fields) {
    const bool isSet = isInRecord(field.kind) && isPresent(presence, bit);
    bit += isInRecord(field.kind) ? 1 : 0;
    if (!isSet) {
      setAbsent(level, field, isNew);
      continue;
    }
    _chunks.clear();
    readField(in, level, field);
    if (_chunks.empty() || level.node == nullptr || field.index == FileField::NONE) {
      continue;
    }
    if (!std::exchange(isWaiting, true)) {
      _binder.expectFor(*level.node, isNew);
    }
    _budget.use(ArrayBinder::USE_BYTES * _chunks.size());
    for (const std::size_t chunk : _chunks) {
      // What is made of a node has the names of its arrays.
      _budget.useText(_tables.getName(_tables.getChunks()[chunk]));
      _binder.expect(field.index, chunk);
    }
  }
}

void GraphDecoder::readNames(ByteReader& in, Node* node, const std::string_view& presence) {
  FieldReader reader(in, _tables, _budget, _chunks);
  if (isPresent(presence, NAME_BIT)) {
    const std::string name(reader.readString());
    if (node != nullptr) {
      node->setName(name);
    }
  } else if (node != nullptr) {
    node->setName("");
  }
  if (isPresent(presence, QUALIFIED_NAME_BIT)) {
    const std::string name(reader.readString());
    if (node != nullptr) {
      node->setQualifiedName(name);
    }
  }
}

void GraphDecoder::readField(ByteReader& in, const Level& level, const FileField& field) {
  FieldReader reader(in, _tables, _budget, _chunks);
  if (level.node == nullptr || field.index == FileField::NONE) {
    reader.skip(field.kind);
    return;
  }
  std::visit(reader, level.fields[field.index].value);
}

void GraphDecoder::setAbsent(const Level& level, const FileField& field, bool isNew) {
  if (level.node == nullptr || field.index == FileField::NONE || (isNew && !field.mustSetDefault)) {
    return;
  }
  if (field.kind.content == FieldContent::ARRAYS) {
    // Emptied, when a changed node no longer has them.
    ArrayBinder::clear(level.fields[field.index]);
  } else if (field.kind == FieldKinds::kindOf<ReferenceSlot*>()) {
    std::get<ReferenceSlot*>(level.fields[field.index].value)->put(nullptr);
  } else if (isInRecord(field.kind)) {
    ByteReader defaultValue(field.defaultValue);
    readField(defaultValue, level, field);
  }
}

void GraphDecoder::readReferences(ByteReader& in) {
  for (std::size_t count = in.count("references", 3); count > 0; --count) {
    readReference(in);
  }
}

void GraphDecoder::readReference(ByteReader& in) {
  const std::size_t nodeCount = _knownCount + _newNodes.size();
  Node* node = findNode(in.index("node with a reference", nodeCount));
  const std::size_t number = in.number("field of a reference");
  Node* target = findNode(in.index("node referred to", nodeCount));
  if (node == nullptr || target == nullptr) {
    return;
  }
  const FileClass& fileClass = classOf(*node);
  if (number >= fileClass.fields.size() ||
      fileClass.fields[number].kind != FieldKinds::kindOf<ReferenceSlot*>()) {
    fail(describeNode(*node) + " has a reference in a field of another kind");
  }
  const std::size_t index = fileClass.fields[number].index;
  if (index == FileField::NONE) {
    return;
  }
  FieldList fields;
  node->listFields(fields);
  const Field& field = fields[index];
  if (!std::get<ReferenceSlot*>(field.value)->put(target)) {
    fail(fmt::format("The field {} of {} does not refer to {}", field.name, describeNode(*node),
                     describeNode(*target)));
  }
}

// Streams of older versions have zeros here, or nothing.
void GraphDecoder::readReleased(ByteReader& in) {
  for (std::size_t count = in.left() > 0 ? in.count("released arrays", 1) : 0; count > 0; --count) {
    _binder.release(in.index("released array", _tables.getChunks().size()));
  }
}

Node* GraphDecoder::findNode(std::size_t number) const {
  return number < _knownCount ? (*_known)[number].get() : _newNodes[number - _knownCount];
}

const FileClass& GraphDecoder::classOf(const Node& node) const {
  const FileClass* fileClass = _tables.findClass(node.className());
  if (fileClass == nullptr) {
    fail("The class " + node.className() + " is not in the class table");
  }
  return *fileClass;
}

/// Whether a node, which is below the deepest level left, was elsewhere before.
bool GraphDecoder::isMoved(const Record& record, const Node* node) const {
  const Level& owner = _levels[_depth - 1];
  if (record.isNew || owner.isMoved || !owner.isComplete) {
    return record.isNew || owner.isMoved;
  }
  const auto former = _formerOwners.find(node);
  return former == _formerOwners.end() || former->second != owner.node;
}

/// What a node at the deepest level owns, of which the graph has nothing, moved along
/// with it.
void GraphDecoder::checkDepth(const Node& moved) {
  std::vector<std::pair<const Node*, std::size_t>> waiting{{&moved, _depth}};
  while (!waiting.empty()) {
    const auto [node, depth] = waiting.back();
    waiting.pop_back();
    if (depth > static_cast<std::size_t>(Node::MAX_DEPTH)) {
      fail(fmt::format("The scene is nested more than {} nodes deep", Node::MAX_DEPTH));
    }
    if ((*_movableNodes)-- == 0) {
      fail("The scene stream moves too many nodes");
    }
    for (const Node* owned : node->getDependents()) {
      waiting.emplace_back(owned, depth + 1);
    }
  }
}

}  // namespace lum::io
