#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/io/NodeStream.h>

namespace lum {

namespace {

[[noreturn]] void refuse(const char* operation) {
  throw vemo::InternalError(std::string("This end of a node stream does not ") + operation, operation,
                            __FILE__, __LINE__);
}

}  // namespace

NodeStream::~NodeStream() = default;

void NodeStream::write(const Node& /*root*/) {
  refuse("write");
}
void NodeStream::writeChanges(const Node& /*root*/) {
  refuse("write");
}
void NodeStream::readScene(std::istream& /*in*/) {
  refuse("read");
}
void NodeStream::readData(std::istream& /*in*/) {
  refuse("read");
}

void Node::write(NodeStream& stream) const {
  stream.write(*this);
}
void Node::writeChanges(NodeStream& stream) const {
  stream.writeChanges(*this);
}

}  // namespace lum
