#pragma once

#include "scenegraph/io/bytes/ByteWriter.h"
#include "scenegraph/io/codec/PolyDataCheck.h"
#include "scenegraph/io/codec/TableWriter.h"
#include <vemo/scenegraph/Node.h>

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace lum::io {

/// A node that the reader of a stream has already.
struct KnownNode {
  std::uint64_t number;
  bool isChanged;
  /// Whether it, or something that it owns, is new or changed.
  bool leadsToChange;
};

/// Writes one graph in the format of GraphFormat.h.
class GraphEncoder {
 public:
  using KnownNodes = std::unordered_map<const Node*, KnownNode>;
  /// Finds the number of a node that another graph of the stream holds; returns
  /// false when there is none.
  using FindNode = std::function<bool(const Node&, std::uint64_t&)>;

  GraphEncoder(TableWriter& tables, std::uint64_t firstNumber);

  /// What the reader knows of this graph; of other graphs, how to find a node.
  void setKnown(const KnownNodes& known, FindNode findElsewhere);

  /// Appends the graph. Throws FileError (WriteError) for one that cannot be
  /// stored.
  void encode(Node& root, ByteWriter& out);

 private:
  struct Step {
    Node* node;
    std::size_t depth;
    std::size_t field;
  };
  struct ReferenceRow {
    std::uint64_t node;
    std::size_t field;
    const Node* target;
  };

  const KnownNode* findKnown(const Node& node) const;
  void encodeNode(const Step& step);
  void encodeHead(const Step& step, const KnownNode* known, const TableWriter::Class* nodeClass);
  void encodeValues(Node& node, const TableWriter::Class& nodeClass);
  void gatherReferences(std::uint64_t number);
  void pushOwned(const Step& step, bool onlyChanges);
  void numberTargets(Node& root);
  void encodeReferences(Node& root);
  void encodeReleased();
  void finish(ByteWriter& out);

  TableWriter& _tables;
  const KnownNodes* _known = nullptr;
  FindNode _findElsewhere;
  PolyDataCheck _check;
  std::uint64_t _firstNumber;
  std::uint64_t _newCount = 0;
  std::uint64_t _recordCount = 0;
  std::size_t _lastDepth = 0;
  ByteWriter _records;
  FieldList _fields;
  std::vector<Step> _waiting;
  std::vector<ReferenceRow> _references;
  std::unordered_map<const Node*, std::uint64_t> _targets;
};

}  // namespace lum::io
