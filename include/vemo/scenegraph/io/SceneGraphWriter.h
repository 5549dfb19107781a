#pragma once

#include <vemo/scenegraph/Export.h>

#include <cstddef>
#include <iosfwd>

namespace lum {

class NodeOutputStream;

/// Outputs what Node::write put into a node stream as scene and data streams,
/// the counterpart of SceneGraphReader. The functions return false when writing
/// to the output fails.
class VEMO_SCENEGRAPH_EXPORT SceneGraphWriter {
 public:
  explicit SceneGraphWriter(NodeOutputStream& stream) : _stream(stream) {}

  /// Everything written to the node stream since the last call, as one scene
  /// stream.
  bool saveSceneFileToOutputStream(std::ostream& out);

  /// How many arrays, and so data streams, belong to it and are still to be
  /// saved.
  std::size_t getVtkDataCount() const;

  /// The next of them; false when there is none.
  bool saveVtkDataToOutputStream(std::ostream& out);

 private:
  NodeOutputStream& _stream;
};

}  // namespace lum
