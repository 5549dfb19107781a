#pragma once

#include <vemo/scenegraph/Export.h>

#include <iosfwd>
#include <string>

namespace lum {

class NodeStream;

/// Reads scene and data streams into the stream that it was given, which must
/// outlive it.
class VEMO_SCENEGRAPH_EXPORT SceneGraphReader {
 public:
  explicit SceneGraphReader(NodeStream& stream) : _stream(stream) {}

  /// Decodes a scene stream; its nodes then are where the node stream puts
  /// them. False, with the cause in getError and in the log, when it is not a
  /// scene stream.
  bool loadSceneFileFromInputStream(std::istream& in);

  /// Decodes one data stream that belongs to a scene stream read before. In any
  /// order. False, with the cause likewise, when it does not belong there or is
  /// broken; the rest of the scene stays as it is.
  bool loadVtkDataFromInputStream(std::istream& in);

  /// What was wrong with the last stream; empty when nothing was.
  const std::string& getError() const { return _error; }

 private:
  using Read = void (NodeStream::*)(std::istream&);
  bool load(Read read, std::istream& in);

  NodeStream& _stream;
  std::string _error;
};

}  // namespace lum
