#pragma once

#include <vemo/scenegraph/io/NodeStream.h>

#include <cstddef>
#include <memory>

namespace lum {

/// The writing end of a connection. It buffers what is written to it until
/// SceneGraphWriter takes it out as a scene stream and data streams.
/// Arrays are shared, not copied, until then.
class VEMO_SCENEGRAPH_EXPORT NodeOutputStream : public NodeStream {
 public:
  NodeOutputStream();
  ~NodeOutputStream() override;

  void write(const Node& root) override;
  void writeChanges(const Node& root) override;

  /// Outputs everything written since the last call as one scene stream.
  void takeScene(std::ostream& out);

  /// Outputs the next array as a data stream; false when there is none left.
  bool takeData(std::ostream& out);

  /// The number of arrays that takeData has not output yet.
  std::size_t getDataCount() const;

 private:
  class Connection;
  std::unique_ptr<Connection> _connection;
};

}  // namespace lum
