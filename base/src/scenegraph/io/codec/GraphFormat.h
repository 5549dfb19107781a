#pragma once

#include <vemo/scenegraph/FieldKinds.h>

#include <cstddef>
#include <cstdint>

/// How a graph is written, in databases and in streams:
///
///   tables    strings   count, (length, bytes) each
///             lists     count, (number of values, 8 bytes each) each; from version 2 on
///             classes   count, (name, number of fields, (name, kind, default) each) each
///             chunks    count, rows (ChunkRow)
///   graph     size in bytes of what follows
///             count of nodes; numbers of the nodes that changed
///             nodes, owners first, each followed by all that it owns:
///               class + 1, or 0 and the number of a node written before
///               position: 0 for the root; 1 for a node owned by the one just
///               before it, 2 for one owned by that one's owner, and so on
///               number of the owner's field that holds the node (not for the root)
///               of new and changed nodes: presence bits (name, qualified name,
///               then the fields that have values, lowest bit first) and what
///               is present; what equals the class's default is not
///             references: count, (node, field, target) each
///             chunks that no later graph uses: count, numbers; only in streams
///             zeros, up to 8 bytes a node
///
/// A node that changed is followed by all that it owns, which it had before, which is new,
/// or which others had before: nodes that changed, or that are no longer in the graph.
/// The graph does not name those that left it.
///
/// New nodes are numbered in their order, on from the last graph of the stream.
/// Ownership follows from the position: no file can say that a node has two owners,
/// or owns itself. Defaults are in the file because those of a later version
/// may be others. Names and texts are numbers of strings.
namespace lum::io {

/// The least number of bytes for each node, which limits what a file of a given
/// size can make us allocate.
inline constexpr std::size_t MIN_NODE_BYTES = 8;

/// Presence bits of names.
inline constexpr std::size_t NAME_BIT = 0;
inline constexpr std::size_t QUALIFIED_NAME_BIT = 1;
inline constexpr std::size_t FIRST_FIELD_BIT = 2;

/// Whether a node's record has presence bits for fields of this kind.
constexpr bool isInRecord(FieldKind kind) {
  return kind.content != FieldContent::NOTHING;
}

inline constexpr std::uint64_t KNOWN_NODE = 0;
inline constexpr std::uint64_t ROOT_POSITION = 0;

}  // namespace lum::io
