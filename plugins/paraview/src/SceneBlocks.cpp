#include "SceneBlocks.h"

#include "vemoview/resolve/drawables/VisibleDrawables.h"
#include "vemoview/resolve/mesh/AppearanceResolver.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/drawables/GeometryDrawable.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace vemo {

namespace {

/// ParaView's lists of choices take time that grows with the square of their length.
constexpr std::size_t MAX_CHOICES = 2000;

bool hasOwnName(const lum::Node& node) {
  return !node.getName().empty() && node.getName() != node.className();
}

/// The names from below the root down to the drawable: collections carry those of assemblies
/// and items.
std::vector<std::string> namesOf(const lum::Drawable& drawable, const lum::Drawable& root) {
  std::vector<std::string> names;
  for (const lum::Node* node = &drawable; node != nullptr && node != &root; node = node->getOwner()) {
    if (hasOwnName(*node)) {
      names.push_back(node->getName());
    }
  }
  std::ranges::reverse(names);
  return names;
}

/// Assemblies have another choice for what is hidden in them, so that choosing what is visible does not
/// show it.
std::vector<std::string> choicesOfDepth(const std::vector<SceneBlock>& blocks, std::size_t depth) {
  std::vector<std::string> choices;
  std::set<std::string> visible;
  for (const SceneBlock& block : blocks) {
    choices.push_back(depth > 0 ? joinPath(block.path, depth) : "all");
    if (block.isVisible) {
      visible.insert(choices.back());
    }
  }
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    while (!blocks[i].isVisible && visible.contains(choices[i])) {
      choices[i] += " (hidden)";
    }
  }
  return choices;
}

/// Whether a surface shows more than nothing.
bool hasVisibleParts(const lum::GeometryDrawable& drawable) {
  const Appearance::Kind kind = kindOf(drawable);
  const Appearance appearance = resolveAppearance(drawable, kind);
  return kind != Appearance::Kind::SURFACE || appearance.hasFaces || appearance.hasEdges ||
         appearance.hasContour;
}

void showAll(lum::Drawable& root) {
  lum::forEachNodeOf<lum::Drawable>(root, [](lum::Drawable& drawable) {
    if (drawable.findAttributes<lum::BaseAttributes>() != nullptr) {
      drawable.getBaseAttributes().setVisibility(true, false);
    }
  });
}

/// Numbers the second and further blocks of a path.
class PathNames {
 public:
  std::vector<std::string> makeUnique(std::vector<std::string> path) {
    if (path.empty()) {
      path.emplace_back("geometry");
    }
    const std::string name = path.back();
    for (std::size_t& count = _counts[joinPath(path)]; !_taken.insert(joinPath(path)).second;) {
      path.back() = name + " (" + std::to_string(++count + 1) + ')';
    }
    return path;
  }

 private:
  std::map<std::string, std::size_t> _counts;
  std::set<std::string> _taken;
};

}  // namespace

std::string joinPath(const std::vector<std::string>& path, std::size_t length) {
  std::string text;
  for (std::size_t i = 0; i < std::min(length, path.size()); ++i) {
    text += (i > 0 ? "/" : "") + path[i];
  }
  return text;
}

std::vector<SceneBlock> listBlocks(lum::SceneNode& scene, const SceneParts& parts) {
  NodeFindings findings(scene);
  const NodeFindings::Scope scope(findings);
  lum::Drawable& root = scene.getModelCanvas().getDrawableCollection();
  std::map<const lum::Node*, std::size_t> partsByNode;
  for (std::size_t i = 0; i < parts.parts.size(); ++i) {
    partsByNode.emplace(parts.parts[i].node.get(), i);
  }
  std::set<const lum::Drawable*> visible;
  for (const VisibleDrawable& shown : collectVisible(root)) {
    visible.insert(shown.drawable);
  }
  showAll(root);
  PathNames names;
  std::vector<SceneBlock> blocks;
  for (const VisibleDrawable& shown : collectVisible(root)) {
    const auto* const drawable = dynamic_cast<const lum::GeometryDrawable*>(shown.drawable);
    if (drawable == nullptr) {
      continue;
    }
    const bool isVisible = visible.contains(drawable) && hasVisibleParts(*drawable);
    for (const auto& owned : drawable->getNodes()) {
      const auto* const node = dynamic_cast<const lum::PolyDataNode*>(owned.get());
      const auto part = partsByNode.find(node);
      if (node != nullptr && part != partsByNode.end()) {
        blocks.push_back({part->second, names.makeUnique(namesOf(*drawable, root)), isVisible, drawable, node,
                          shown.transforms});
      }
    }
  }
  return blocks;
}

std::vector<std::string> choicesOf(const std::vector<SceneBlock>& blocks) {
  std::size_t depth = 0;
  for (const SceneBlock& block : blocks) {
    depth = std::max(depth, block.path.size());
  }
  for (; depth > 0; --depth) {
    const std::vector<std::string> choices = choicesOfDepth(blocks, depth);
    if (std::set(choices.begin(), choices.end()).size() <= MAX_CHOICES) {
      return choices;
    }
  }
  return choicesOfDepth(blocks, 0);
}

}  // namespace vemo
