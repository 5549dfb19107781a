#include "support/Databases.h"
#include "support/Nodes.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/io/NodeInputStream.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <sstream>
#include <vector>

namespace vemo {

namespace {

using Nodes = std::vector<Node*>;

void appendNodes(Node& root, Nodes& nodes) {
  lum::forEachNode(root, [&](Node& node) { nodes.push_back(&node); });
}

Nodes nodesOf(Node& root) {
  Nodes nodes;
  appendNodes(root, nodes);
  return nodes;
}

bool give(Node& owner, Node& node) {
  const lum::FieldList fields = owner.getFields();
  return std::ranges::any_of(fields, [&](const lum::Field& field) {
    if (const auto* slot = std::get_if<lum::OwnedSlot*>(&field.value)) {
      return (*slot)->getNode() == nullptr && (*slot)->put(owner, &node);
    }
    const auto* collection = std::get_if<lum::CollectionNode*>(&field.value);
    return collection != nullptr && (*collection)->addNode(node);
  });
}

void takeOut(Node& node) {
  Node& owner = *node.getOwner();
  for (const lum::Field& field : owner.getFields()) {
    if (const auto* slot = std::get_if<lum::OwnedSlot*>(&field.value)) {
      if ((*slot)->getNode() == &node) {
        (*slot)->put(owner, nullptr);
      }
    } else if (const auto* collection = std::get_if<lum::CollectionNode*>(&field.value)) {
      (*collection)->removeNode(node);
    }
  }
}

/// Takes nodes out of a graph and out of each other, and puts them somewhere else or, often much
/// later, back: what a user does with groups and attributes is a sequence of these.
class RandomEdits {
 public:
  explicit RandomEdits(Node& root) : _root(root) {}

  void edit() {
    switch (_random() % 8) {
      case 0:
        pick().setName(std::to_string(_random() % 10));
        break;
      case 1:
        give(pick(), *makeNode());
        break;
      case 2:
      case 3:
        takeOutAny();
        break;
      default:
        putAny();
    }
  }

  /// Most of what is nowhere in the graph now will never be there again.
  void forgetSome() {
    constexpr std::size_t KEPT = 10;
    if (_loose.size() > KEPT) {
      _loose.erase(_loose.begin(), _loose.end() - KEPT);
    }
  }

 private:
  Ptr<Node> makeNode() {
    constexpr const char* CLASSES[] = {"DrawableCollection",   "DrawableCollection", "SurfaceDrawable",
                                       "AttributesCollection", "BaseAttributes",     "SimpleTransform"};
    return lum::createNode(lum::ClassNameNodeInitializer(CLASSES[_random() % std::size(CLASSES)]));
  }

  Node& pick() {
    Nodes nodes = nodesOf(_root);
    for (const auto& node : _loose) {
      appendNodes(*node, nodes);
    }
    return *nodes[_random() % nodes.size()];
  }

  void takeOutAny() {
    Node& node = pick();
    if (node.getOwner() != nullptr) {
      _loose.emplace_back(&node);
      takeOut(node);
    }
  }

  void putAny() {
    if (_loose.empty()) {
      return;
    }
    const auto which = _loose.begin() + static_cast<std::ptrdiff_t>(_random() % _loose.size());
    for (int attempt = 0; attempt < 10; ++attempt) {
      if (give(pick(), **which)) {
        _loose.erase(which);
        return;
      }
    }
  }

  Node& _root;
  std::minstd_rand _random{18};
  std::vector<Ptr<Node>> _loose;
};

/// Reads a stream of changes, and compares what it has then with the graph it is of.
class Mirror {
 public:
  explicit Mirror(int session) : _session(session), _in(session) {}

  void read(const std::string& scene) {
    std::istringstream in(scene);
    _in.readScene(in);
  }

  void compare(Node& graph) {
    ASSERT_EQ(_in.getRoots().size(), 1U);
    const Ptr<Node> root = _in.getRoots()[0];
    ASSERT_EQ(firstDifference(graph, *root), "");
    const Nodes nodes = nodesOf(*root);
    EXPECT_EQ(countOfSession(), nodes.size()) << "what left the graph is released";
    keepIdentities(nodesOf(graph), nodes);
  }

 private:
  std::size_t countOfSession() const {
    std::size_t count = 0;
    for (const std::string& name : lum::getNodeClassNames()) {
      count += lum::NodeRegistry::getSingleton(_session).getNodes(name).size();
    }
    return count;
  }

  void keepIdentities(const Nodes& original, const Nodes& read) {
    std::map<Node*, Node*> next;
    for (std::size_t i = 0; i < original.size(); ++i) {
      const auto former = _readAs.find(original[i]);
      EXPECT_TRUE(former == _readAs.end() || former->second == read[i]) << "what moves is not made anew";
      next[original[i]] = read[i];
    }
    _readAs = next;
  }

  int _session;
  lum::NodeInputStream _in;
  std::map<Node*, Node*> _readAs;
};

TEST(StreamEditTest, CarriesEditsInAnyOrder) {
  auto& sessions = lum::NodeRegistrySessions::getSingleton();
  const int session = sessions.createSession();
  const auto root = make<lum::DrawableCollection>("root");
  RandomEdits edits(*root);
  lum::NodeOutputStream out;
  Mirror mirror(session);
  for (int message = 0; message < 300; ++message) {
    SCOPED_TRACE(message);
    for (int i = 0; i < 1 + message % 16; ++i) {
      edits.edit();
    }
    root->writeChanges(out);
    ASSERT_NO_THROW(mirror.read(Payload(out).scene));
    ASSERT_NO_FATAL_FAILURE(mirror.compare(*root));
    edits.forgetSome();
  }
  sessions.destroySession(session);
}

}  // namespace

}  // namespace vemo
