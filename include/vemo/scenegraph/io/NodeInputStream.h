#pragma once

#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/NodeStream.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace lum {

/// The reading end of a connection. Decoded nodes belong to a session, whose
/// registry owns the roots until the session ends; with NO_SESSION the stream
/// itself owns them.
class VEMO_SCENEGRAPH_EXPORT NodeInputStream : public NodeStream {
 public:
  /// Throws InternalError for a number without an open session.
  explicit NodeInputStream(int sessionId);
  ~NodeInputStream() override;

  /// Scene streams with more nodes in all are refused: a node takes far more memory than its bytes,
  /// which may deflate to next to nothing. No limit unless this is called.
  void setNodeLimit(std::uint64_t count);

  void readScene(std::istream& in) override;
  void readData(std::istream& in) override;

  int getSessionId() const;

  /// The roots decoded so far that are still alive, in order.
  std::vector<Ptr<Node>> getRoots() const;

  /// How many arrays, of all that the scene streams announced for nodes, have not
  /// been read.
  std::size_t getMissingArrayCount() const;

  /// How many of the announced arrays no node has had. None where classes or fields were unknown, which
  /// may have them.
  std::size_t getUnusedArrayCount() const;

 private:
  class Connection;
  std::unique_ptr<Connection> _connection;
};

}  // namespace lum
