#pragma once

#include <vemo/scenegraph/Export.h>

#include <iosfwd>

namespace lum {

class Node;

/// One end of a connection over which node graphs travel: a scene stream
/// carries nodes, and data streams carry the arrays that they hold, one each.
/// Numbers of nodes, arrays and texts hold for the life of the connection.
///
/// An end that only reads throws InternalError when it is written to, and the
/// other way round.
class VEMO_SCENEGRAPH_EXPORT NodeStream {
 public:
  NodeStream(const NodeStream&) = delete;
  NodeStream& operator=(const NodeStream&) = delete;
  virtual ~NodeStream();

  /// Writes a node and all that it owns. Throws io::FileError for a graph that
  /// cannot be stored: deeper than Node::MAX_DEPTH, or with poly data whose
  /// arrays do not fit each other.
  virtual void write(const Node& root);

  /// Writes what changed in a graph since it was last written; all of it, when
  /// it never was.
  virtual void writeChanges(const Node& root);

  /// Reads a scene stream, from the current position to its end. The stream
  /// must be seekable. Throws io::FileError that says what is
  /// wrong; after it nothing more can be read over this connection.
  virtual void readScene(std::istream& in);

  /// Reads a data stream likewise. A poly data node gets its arrays when the
  /// last of them has been read; until then it is empty, and it stays empty when
  /// they do not fit each other. A failure leaves the connection usable.
  virtual void readData(std::istream& in);

 protected:
  NodeStream() = default;
};

}  // namespace lum
