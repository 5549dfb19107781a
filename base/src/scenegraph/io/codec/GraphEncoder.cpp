#include "scenegraph/io/codec/GraphEncoder.h"

#include "scenegraph/inspect/NodeDescription.h"
#include "scenegraph/io/codec/GraphFormat.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/io/FileError.h>

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace lum::io {

GraphEncoder::GraphEncoder(TableWriter& tables, std::uint64_t firstNumber)
    : _tables(tables), _firstNumber(firstNumber) {}

void GraphEncoder::setKnown(const KnownNodes& known, FindNode findElsewhere) {
  _known = &known;
  _findElsewhere = std::move(findElsewhere);
}

void GraphEncoder::encode(Node& root, ByteWriter& out) {
  _waiting.push_back({&root, 1, 0});
  while (!_waiting.empty()) {
    const Step step = _waiting.back();
    _waiting.pop_back();
    encodeNode(step);
  }
  encodeReferences(root);
  encodeReleased();
  finish(out);
}

const KnownNode* GraphEncoder::findKnown(const Node& node) const {
  if (_known == nullptr) {
    return nullptr;
  }
  const auto found = _known->find(&node);
  return found != _known->end() ? &found->second : nullptr;
}

void GraphEncoder::encodeNode(const Step& step) {
  if (step.depth > Node::MAX_DEPTH) {
    throw FileError(FileIoStatus::WriteError,
                    fmt::format("The scene is nested more than {} nodes deep", Node::MAX_DEPTH));
  }
  Node& node = *step.node;
  const KnownNode* known = findKnown(node);
  _fields.clear();
  node.listFields(_fields);
  if (known != nullptr && !known->isChanged) {
    encodeHead(step, known, nullptr);
    pushOwned(step, true);
    return;
  }
  const TableWriter::Class& nodeClass = _tables.getClass(node);
  encodeHead(step, known, &nodeClass);
  encodeValues(node, nodeClass);
  gatherReferences(known != nullptr ? known->number : _firstNumber + _newCount++);
  pushOwned(step, false);
}

void GraphEncoder::encodeHead(const Step& step, const KnownNode* known, const TableWriter::Class* nodeClass) {
  if (known != nullptr) {
    _records.number(KNOWN_NODE);
    _records.number(known->number);
  } else {
    _records.number(nodeClass->number + 1);
  }
  if (step.depth == 1) {
    _records.number(ROOT_POSITION);
  } else {
    _records.number(_lastDepth - step.depth + 2);
    _records.number(step.field);
  }
  _lastDepth = step.depth;
  ++_recordCount;
}

void GraphEncoder::encodeValues(Node& node, const TableWriter::Class& nodeClass) {
  if (nodeClass.hasArrays) {
    const std::string fault = _check.findFault(node);
    if (!fault.empty()) {
      throw FileError(FileIoStatus::WriteError, describeNode(node) + ": " + fault);
    }
  }
  const auto valueCount =
      std::ranges::count_if(_fields, [](const Field& field) { return isInRecord(kindOf(field.value)); });
  const std::size_t bits = _records.size();
  const auto setBit = [&](std::size_t bit) {
    char& byte = _records[bits + bit / 8];
    byte = static_cast<char>(byte | 1 << bit % 8);
  };
  _records.fill((FIRST_FIELD_BIT + static_cast<std::size_t>(valueCount) + 7) / 8);
  if (!node.getName().empty()) {
    setBit(NAME_BIT);
    _records.number(node.getName() == node.className() ? nodeClass.name : _tables.addString(node.getName()));
  }
  if (node.getQualifiedName()) {
    setBit(QUALIFIED_NAME_BIT);
    _records.number(_tables.addString(*node.getQualifiedName()));
  }
  std::size_t bit = FIRST_FIELD_BIT;
  auto defaultValue = nodeClass.defaults.begin();
  for (const Field& field : _fields) {
    const std::size_t start = _records.size();
    writeValue(_records, _tables, field.value);
    if (_records.view(start) != *defaultValue++) {
      setBit(bit);
    } else {
      _records.truncate(start);
    }
    bit += isInRecord(kindOf(field.value)) ? 1 : 0;
  }
}

void GraphEncoder::gatherReferences(std::uint64_t number) {
  std::size_t index = 0;
  for (const Field& field : _fields) {
    if (const auto* slot = std::get_if<ReferenceSlot*>(&field.value)) {
      if (const Node* target = (*slot)->getNode()) {
        _references.push_back({number, index, target});
      }
    }
    ++index;
  }
}

void GraphEncoder::pushOwned(const Step& step, bool onlyChanges) {
  const std::size_t start = _waiting.size();
  const auto push = [&](Node* node, std::size_t field) {
    const KnownNode* known = onlyChanges ? findKnown(*node) : nullptr;
    if (known == nullptr || known->leadsToChange) {
      _waiting.push_back({node, step.depth + 1, field});
    }
  };
  std::size_t index = 0;
  for (const Field& field : _fields) {
    if (const auto* slot = std::get_if<OwnedSlot*>(&field.value)) {
      if (Node* node = (*slot)->getNode()) {
        push(node, index);
      }
    } else if (const auto* collection = std::get_if<CollectionNode*>(&field.value)) {
      for (const auto& node : (*collection)->getNodes()) {
        push(static_cast<Node*>(node.getObject()), index);
      }
    }
    ++index;
  }
  std::reverse(_waiting.begin() + static_cast<std::ptrdiff_t>(start), _waiting.end());
}

// Only the few nodes that something refers to need a number that can be looked
// up: a second walk in the same order finds it.
void GraphEncoder::numberTargets(Node& root) {
  for (const ReferenceRow& row : _references) {
    _targets.emplace(row.target, 0);
  }
  std::uint64_t next = _firstNumber;
  std::unordered_map<const Node*, std::uint64_t> found;
  forEachNode(root, [&](Node& node) {
    const KnownNode* known = findKnown(node);
    const std::uint64_t number = known != nullptr ? known->number : next++;
    if (_targets.contains(&node)) {
      found.emplace(&node, number);
    }
  });
  _targets = std::move(found);
}

void GraphEncoder::encodeReferences(Node& root) {
  if (!_references.empty()) {
    numberTargets(root);
  }
  std::uint64_t count = 0;
  ByteWriter rows;
  for (const ReferenceRow& row : _references) {
    const auto found = _targets.find(row.target);
    std::uint64_t target = 0;
    if (found != _targets.end()) {
      target = found->second;
    } else if (!_findElsewhere || !_findElsewhere(*row.target, target)) {
      vemo::reportFinding(
          vemo::FindingCode::REFERENCE_LOST,
          "A reference to " + describeNode(*row.target) + " leads out of the graph and is not written");
      continue;
    }
    rows.number(row.node);
    rows.number(row.field);
    rows.number(target);
    ++count;
  }
  _records.number(count);
  _records.bytes(rows.view().data(), rows.size());
}

// Where older readers expect zeros, which they ignore.
void GraphEncoder::encodeReleased() {
  if (_known == nullptr) {
    return;
  }
  const std::vector<std::uint64_t> released = _tables.takeReleased();
  if (released.empty()) {
    return;
  }
  _records.number(released.size());
  for (const std::uint64_t number : released) {
    _records.number(number);
  }
}

void GraphEncoder::finish(ByteWriter& out) {
  ByteWriter head;
  head.number(_recordCount);
  std::vector<std::uint64_t> changed;
  if (_known != nullptr) {
    for (const auto& [node, known] : *_known) {
      if (known.isChanged) {
        changed.push_back(known.number);
      }
    }
  }
  std::ranges::sort(changed);
  head.number(changed.size());
  for (const std::uint64_t number : changed) {
    head.number(number);
  }
  const std::size_t needed = _recordCount * MIN_NODE_BYTES;
  _records.fill(needed > _records.size() ? needed - _records.size() : 0);
  out.number(head.size() + _records.size());
  out.bytes(head.view().data(), head.size());
  out.bytes(_records.view().data(), _records.size());
}

}  // namespace lum::io
