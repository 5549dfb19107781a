#include "scenegraph/io/codec/ArrayBinder.h"
#include "scenegraph/io/codec/ChunkIO.h"
#include "scenegraph/io/codec/GraphDecoder.h"
#include "scenegraph/io/codec/UnknownParts.h"
#include "scenegraph/io/stream/StreamFormat.h"
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/NodeInputStream.h>

#include <algorithm>
#include <fmt/format.h>
#include <unordered_map>
#include <utility>

namespace lum {

namespace {

/// Of one scene stream: it may move a few nodes, and all that they own with them, again
/// and again.
constexpr std::uint64_t MOVABLE_NODES = 10'000'000;
constexpr std::uint64_t MOVABLE_NODES_PER_BYTE = 10;

[[noreturn]] void fail(const std::string& text) {
  throw io::FileError(io::FileIoStatus::ReadError, text);
}

[[noreturn]] void refuseSignature(const char* what) {
  throw io::FileError(io::FileIoStatus::UnsupportedFormat, fmt::format("Not a {} stream", what));
}

std::string readSignature(io::InputSource& source, std::string_view signature, const char* what) {
  if (source.getLeft() < signature.size()) {
    refuseSignature(what);
  }
  return source.read(signature.size());
}

}  // namespace

class NodeInputStream::Connection {
 public:
  explicit Connection(int sessionId) : _sessionId(sessionId) {
    VEMO_REQUIRE(sessionId == NO_SESSION || NodeRegistrySessions::getSingleton().hasSession(sessionId),
                 "Unknown session " + std::to_string(sessionId));
  }

  int getSessionId() const { return _sessionId; }

  void setNodeLimit(std::uint64_t count) { _budget.setNodeLimit(count); }

  void readScene(io::InputSource& source) {
    // Numbers are out of step after a failure.
    if (std::exchange(_isBroken, true)) {
      fail("An earlier scene stream was invalid");
    }
    const std::string signature = readSignature(source, io::SCENE_SIGNATURE, "scene");
    const bool hasLists = signature == io::SCENE_SIGNATURE;
    if (!hasLists && signature != io::OLD_SCENE_SIGNATURE) {
      refuseSignature("scene");
    }
    std::uint64_t movableNodes = MOVABLE_NODES + MOVABLE_NODES_PER_BYTE * source.getLeft();
    std::vector<Ptr<Node>> roots;
    while (source.getLeft() > 0) {
      roots.push_back(readMessage(source, hasLists, movableNodes));
    }
    for (const auto& root : roots) {
      keep(*root);
    }
    _isBroken = false;
    requireFit(_binder.provideKnown());
  }

  void readData(io::InputSource& source) {
    if (readSignature(source, io::DATA_SIGNATURE, "data") != io::DATA_SIGNATURE) {
      refuseSignature("data");
    }
    std::uint8_t size = 0;
    source.read(&size, 1);
    const std::string bytes = source.read(size);
    io::ByteReader head(bytes);
    const std::size_t chunk = head.index("array", _tables.getChunks().size());
    const io::ChunkRow row = io::readRow(head, _tables.getStringCount());
    if (row != _tables.getChunks()[chunk] || head.left() != 0 || source.getLeft() != row.bytes()) {
      fail(fmt::format("This is not array {} of the scene stream", chunk));
    }
    if (_binder.has(chunk)) {
      fail(fmt::format("Duplicate array {}", chunk));
    }
    const auto array = io::readArray(source, row);
    if (row.name != 0) {
      array->SetName(_tables.getName(row).c_str());
    }
    requireFit(_binder.provide(chunk, *array));
  }

  std::vector<Ptr<Node>> getRoots() const {
    std::vector<Ptr<Node>> roots;
    for (const auto& root : _roots) {
      if (root) {
        roots.emplace_back(root.get());
      }
    }
    return roots;
  }

  std::size_t getMissingArrayCount() {
    const std::vector<std::size_t> expected = _binder.getExpected();
    return static_cast<std::size_t>(
        std::ranges::count_if(expected, [this](std::size_t chunk) { return !_binder.has(chunk); }));
  }

  std::size_t getUnusedArrayCount() {
    return _unknown.hasAny() ? 0 : _tables.getChunks().size() - _binder.getExpected().size();
  }

 private:
  Ptr<Node> readMessage(io::InputSource& source, bool hasLists, std::uint64_t& movableNodes) {
    std::uint64_t sizeAndHash[2];
    source.read(sizeAndHash, sizeof sizeAndHash);
    const std::string bytes = source.read(sizeAndHash[0]);
    if (io::hashOf(bytes) != sizeAndHash[1]) {
      fail("The scene stream is damaged");
    }
    _budget.allow(bytes.size());
    io::ByteReader in(bytes);
    _tables.read(in, hasLists);
    io::GraphDecoder decoder(_tables, _binder, _budget, _sessionId);
    decoder.setKnown(_nodes, movableNodes);
    const Ptr<Node> root = decoder.decode(in.text("graph"));
    if (in.left() != 0) {
      fail(fmt::format("{} bytes follow a graph", in.left()));
    }
    _unknown.report(_tables, decoder.getNodeCounts());
    _nodes.insert(_nodes.end(), decoder.getNewNodes().begin(), decoder.getNewNodes().end());
    return root;
  }

  void keep(Node& root) {
    WeakPtr<Node>& known = _rootsByAddress[&root];
    if (known) {
      return;
    }
    known = &root;
    _roots.emplace_back(&root);
    if (_sessionId != NO_SESSION) {
      NodeRegistry::getSingleton(_sessionId).keep(root);
    } else {
      _kept.emplace_back(&root);
    }
  }

  static void requireFit(const std::string& fault) {
    if (!fault.empty()) {
      fail(fault);
    }
  }

  int _sessionId;
  bool _isBroken = false;
  io::ContentBudget _budget;
  io::TableReader _tables{_budget};
  io::UnknownParts _unknown;
  io::ArrayBinder _binder;
  // By their numbers.
  io::GraphDecoder::KnownNodes _nodes;
  std::vector<WeakPtr<Node>> _roots;
  // What is found at an address may be gone.
  std::unordered_map<const Node*, WeakPtr<Node>> _rootsByAddress;
  std::vector<Ptr<Node>> _kept;
};

NodeInputStream::NodeInputStream(int sessionId) : _connection(std::make_unique<Connection>(sessionId)) {}
NodeInputStream::~NodeInputStream() = default;

void NodeInputStream::setNodeLimit(std::uint64_t count) {
  _connection->setNodeLimit(count);
}

void NodeInputStream::readScene(std::istream& in) {
  io::InputSource source(in);
  _connection->readScene(source);
}

void NodeInputStream::readData(std::istream& in) {
  io::InputSource source(in);
  _connection->readData(source);
}

int NodeInputStream::getSessionId() const {
  return _connection->getSessionId();
}

std::vector<Ptr<Node>> NodeInputStream::getRoots() const {
  return _connection->getRoots();
}

std::size_t NodeInputStream::getMissingArrayCount() const {
  return _connection->getMissingArrayCount();
}

std::size_t NodeInputStream::getUnusedArrayCount() const {
  return _connection->getUnusedArrayCount();
}

}  // namespace lum
