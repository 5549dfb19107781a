#pragma once

#include <vemo/scenegraph/io/NodeStream.h>

#include <cstddef>
#include <memory>

namespace lum {

/// The writing end of a connection. It gathers what is written to it until
/// that is taken out as a scene stream and data streams (SceneGraphWriter).
/// Arrays are not copied: they are held until they are taken out.
class VEMO_SCENEGRAPH_EXPORT NodeOutputStream : public NodeStream {
 public:
  NodeOutputStream();
  ~NodeOutputStream() override;

  void write(const Node& root) override;
  void writeChanges(const Node& root) override;

  /// Takes what was written since the last call out as one scene stream.
  void takeScene(std::ostream& out);

  /// Takes the next array out as a data stream; false when there is none left.
  bool takeData(std::ostream& out);

  /// The number of arrays that wait to be taken out.
  std::size_t getDataCount() const;

 private:
  class Connection;
  std::unique_ptr<Connection> _connection;
};

}  // namespace lum
