#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/GraphEncoder.h"
#include "scenegraph/io/codec/TableWriter.h"
#include "scenegraph/io/stream/StreamFormat.h"
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <deque>
#include <ostream>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace lum {

class NodeOutputStream::Connection final : private io::ArraySink {
 public:
  Connection() : _tables(*this, true) {}

  void write(Node& root) {
    _known.clear();
    encode(root, _nextNumber);
  }

  void writeChanges(Node& root) {
    const Seen* seen = find(root);
    if (seen == nullptr || seen->root != seen->number) {
      write(root);
      return;
    }
    const std::uint64_t number = seen->number;
    findChanges(root, number);
    if (_known.at(&root).leadsToChange) {
      encode(root, number);
    }
  }

  void takeScene(std::ostream& out) {
    out << io::SCENE_SIGNATURE << _messages.view();
    _messages.clear();
  }

  bool takeData(std::ostream& out) {
    if (_arrays.empty()) {
      return false;
    }
    const auto [array, row] = _arrays.front();
    _arrays.pop_front();
    io::ByteWriter head;
    head.number(_nextArray++);
    io::writeRow(head, row);
    out << io::DATA_SIGNATURE << static_cast<char>(head.size()) << head.view() << io::bytesOf(*array);
    return true;
  }

  std::size_t getDataCount() const { return _arrays.size(); }

 private:
  /// A node as it was when it was written.
  struct Seen {
    WeakPtr<Node> node;
    std::uint64_t number = 0;
    std::uint64_t root = 0;
    std::uint64_t time = 0;
    std::uint64_t message = 0;
  };

  void put(vtkDataArray& array, io::ChunkRow& row) override {
    row.hash = io::hashOf(io::bytesOf(array));
    _arrays.emplace_back(&array, row);
  }

  /// Null for a node that was never written; another one may have been where
  /// it now is.
  const Seen* find(const Node& node) const {
    const auto found = _seen.find(&node);
    return found != _seen.end() && found->second.node ? &found->second : nullptr;
  }

  void findChanges(Node& root, std::uint64_t rootNumber) {
    _known.clear();
    std::vector<const Node*> changed;
    std::unordered_set<const Node*> added;
    forEachNode(root, [&](Node& node) {
      const Seen* seen = find(node);
      const bool isKnown = seen != nullptr && seen->root == rootNumber;
      const bool isChanged = !isKnown || seen->time != node.getModificationTime();
      if (isKnown) {
        _known[&node] = {seen->number, isChanged, isChanged};
      } else {
        added.insert(&node);
      }
      if (isChanged) {
        changed.push_back(&node);
      }
    });
    if (!added.empty()) {
      markReferring(root, added, changed);
    }
    markOwners(changed);
  }

  /// What left the graph and came back has another number: the reader has lost the references to it.
  void markReferring(Node& root, const std::unordered_set<const Node*>& added,
                     std::vector<const Node*>& changed) {
    FieldList fields;
    forEachNode(root, [&](Node& node) {
      const auto known = _known.find(&node);
      if (known == _known.end() || known->second.isChanged) {
        return;
      }
      fields.clear();
      node.listFields(fields);
      const bool refers = std::ranges::any_of(fields, [&](const Field& field) {
        const auto* slot = std::get_if<ReferenceSlot*>(&field.value);
        return slot != nullptr && added.contains((*slot)->getNode());
      });
      if (refers) {
        known->second.isChanged = true;
        known->second.leadsToChange = true;
        changed.push_back(&node);
      }
    });
  }

  void markOwners(const std::vector<const Node*>& changed) {
    for (const Node* node : changed) {
      for (const Node* above = node->getOwner(); above != nullptr; above = above->getOwner()) {
        const auto known = _known.find(above);
        if (known == _known.end() || std::exchange(known->second.leadsToChange, true)) {
          break;
        }
      }
    }
  }

  void encode(Node& root, std::uint64_t rootNumber) {
    io::GraphEncoder encoder(_tables, _nextNumber);
    encoder.setKnown(_known, [this](const Node& node, std::uint64_t& number) {
      const Seen* seen = find(node);
      number = seen != nullptr ? seen->number : 0;
      return seen != nullptr;
    });
    io::ByteWriter graph;
    encoder.encode(root, graph);
    io::ByteWriter message;
    _tables.take(message);
    message.bytes(graph.view().data(), graph.size());
    _messages.raw(std::uint64_t{message.size()});
    _messages.raw(io::hashOf(message.view()));
    _messages.bytes(message.view().data(), message.size());
    remember(root, rootNumber);
  }

  void remember(Node& root, std::uint64_t rootNumber) {
    ++_messageCount;
    forEachNode(root, [&](Node& node) {
      const auto known = _known.find(&node);
      Seen& seen = _seen[&node];
      seen = {&node, known != _known.end() ? known->second.number : _nextNumber++, rootNumber,
              node.getModificationTime(), _messageCount};
    });
    // The reader has released nodes that left the graph.
    std::erase_if(_seen, [&](const auto& entry) {
      return entry.second.root == rootNumber && entry.second.message != _messageCount;
    });
  }

  io::TableWriter _tables;
  io::ByteWriter _messages;
  std::deque<std::pair<vtkSmartPointer<vtkDataArray>, io::ChunkRow>> _arrays;
  std::uint64_t _nextArray = 0;
  std::uint64_t _nextNumber = 0;
  std::uint64_t _messageCount = 0;
  std::unordered_map<const Node*, Seen> _seen;
  io::GraphEncoder::KnownNodes _known;
};

NodeOutputStream::NodeOutputStream() : _connection(std::make_unique<Connection>()) {}
NodeOutputStream::~NodeOutputStream() = default;

// Listing fields needs a mutable node; nothing is changed.
void NodeOutputStream::write(const Node& root) {
  _connection->write(const_cast<Node&>(root));
}
void NodeOutputStream::writeChanges(const Node& root) {
  _connection->writeChanges(const_cast<Node&>(root));
}
void NodeOutputStream::takeScene(std::ostream& out) {
  _connection->takeScene(out);
}
bool NodeOutputStream::takeData(std::ostream& out) {
  return _connection->takeData(out);
}
std::size_t NodeOutputStream::getDataCount() const {
  return _connection->getDataCount();
}

}  // namespace lum
