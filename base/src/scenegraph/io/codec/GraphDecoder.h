#pragma once

#include "scenegraph/io/bytes/ByteReader.h"
#include "scenegraph/io/bytes/ContentBudget.h"
#include "scenegraph/io/codec/ArrayBinder.h"
#include "scenegraph/io/codec/TableReader.h"
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lum::io {

/// Makes nodes of one graph in the format of GraphFormat.h. Every fault in it
/// is a FileError, and destroys the nodes made so far.
class GraphDecoder {
 public:
  using KnownNodes = std::vector<WeakPtr<Node>>;

  /// The binder learns which arrays the nodes wait for.
  GraphDecoder(const TableReader& tables, ArrayBinder& binder, ContentBudget& budget, int sessionId);

  /// The graph may change these, the nodes that graphs before it made. What it moves
  /// takes time without taking bytes: `movableNodes` is how many of them it may
  /// still move, and is reduced by those that it does.
  void setKnown(const KnownNodes& known, std::uint64_t& movableNodes);

  /// Decodes a graph, given without its size; returns its root.
  Ptr<Node> decode(std::string_view bytes);

  /// The new nodes by their numbers; null for those that are left out.
  const std::vector<Node*>& getNewNodes() const { return _newNodes; }

  /// How many new nodes there are of which class of the file, without those that are left
  /// out with their owners.
  const std::map<std::size_t, std::size_t>& getNodeCounts() const { return _nodeCounts; }

 private:
  /// A node on the way from the root to the one that is being read; null when
  /// it is left out.
  struct Level {
    Node* node = nullptr;
    const FileClass* fileClass = nullptr;
    FieldList fields;
    // Whether the graph has its values, and all that it owns.
    bool isComplete = true;
    // Whether it may be deeper than before.
    bool isMoved = false;
  };
  /// A node in the file.
  struct Record {
    const FileClass* fileClass;
    Node* known;
    bool isNew;
    bool isComplete;
  };

  void readChanged(ByteReader& in);
  void disownAll(Node& node);
  void readNode(ByteReader& in, bool isFirst);
  Record readRecord(ByteReader& in);
  const FileField* readPosition(ByteReader& in, bool isFirst);
  Ptr<Node> findOrMake(const Record& record, const FileField* ownerField);
  void attach(Level& owner, const FileField& ownerField, Node& node);
  void takeOutOfRemoved(const Node& node);
  void checkEmptied() const;
  void readValues(ByteReader& in, Level& level, bool isNew);
  void readNames(ByteReader& in, Node* node, const std::string_view& presence);
  void readField(ByteReader& in, const Level& level, const FileField& field);
  void setAbsent(const Level& level, const FileField& field, bool isNew);
  void readReferences(ByteReader& in);
  void readReference(ByteReader& in);
  void readReleased(ByteReader& in);
  Node* findNode(std::size_t number) const;
  const FileClass& classOf(const Node& node) const;
  bool isMoved(const Record& record, const Node* node) const;
  void checkDepth(const Node& moved);

  const TableReader& _tables;
  ArrayBinder& _binder;
  ContentBudget& _budget;
  int _sessionId;
  const KnownNodes* _known = nullptr;
  std::size_t _knownCount = 0;
  std::uint64_t* _movableNodes = nullptr;
  std::set<std::size_t> _changed;
  Ptr<Node> _root;
  std::vector<Node*> _newNodes;
  std::map<std::size_t, std::size_t> _nodeCounts;
  // The first _depth are in use.
  std::vector<Level> _levels;
  std::size_t _depth = 0;
  // Nodes taken out of their owners, until they have an owner again or are
  // released.
  std::vector<Ptr<Node>> _disowned;
  // By nodes taken out of them.
  std::unordered_map<const Node*, const Node*> _formerOwners;
  // Those that did not change, as they left the graph.
  std::vector<const Node*> _emptied;
  std::vector<std::size_t> _chunks;
};

}  // namespace lum::io
