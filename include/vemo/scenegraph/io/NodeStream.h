#pragma once

#include <vemo/scenegraph/Export.h>

#include <iosfwd>

namespace lum {

class Node;

/// One end of a connection over which node graphs travel: a scene stream
/// carries nodes, and data streams carry the arrays that they hold, one each.
/// Numbers of nodes, arrays and texts are valid for the whole connection. Neither end
/// keeps arrays that the writing program has released or changed.
///
/// Writing to an end that only reads throws InternalError, and so does reading
/// from one that only writes.
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
  /// must be seekable. Throws io::FileError with the cause; the connection cannot
  /// be used after that.
  virtual void readScene(std::istream& in);

  /// Reads a data stream in the same way. A poly data node is empty until the
  /// last of its arrays has been read, and stays empty when they do not fit each
  /// other. The connection remains usable after a failure.
  virtual void readData(std::istream& in);

 protected:
  NodeStream() = default;
};

}  // namespace lum
