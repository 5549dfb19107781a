#pragma once

#include <vemo/scenegraph/Export.h>

#include <iosfwd>
#include <string>

namespace lum {

class NodeStream;

/// Reads scene and data streams into a node stream, which must outlive the
/// reader.
class VEMO_SCENEGRAPH_EXPORT SceneGraphReader {
 public:
  explicit SceneGraphReader(NodeStream& stream) : _stream(stream) {}

  /// Decodes a scene stream into the node stream. False, with the cause in
  /// getError and in the log, when it is not a
  /// scene stream.
  bool loadSceneFileFromInputStream(std::istream& in);

  /// Decodes a data stream of a scene stream read before, in any order. False,
  /// with the cause in the same places, when it does not belong to one or is
  /// damaged; the rest of the scene is unaffected.
  bool loadVtkDataFromInputStream(std::istream& in);

  /// The fault of the last stream; empty when there was none.
  const std::string& getError() const { return _error; }

 private:
  using Read = void (NodeStream::*)(std::istream&);
  bool load(Read read, std::istream& in);

  NodeStream& _stream;
  std::string _error;
};

}  // namespace lum
