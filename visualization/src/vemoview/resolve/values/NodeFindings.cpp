#include "vemoview/resolve/values/NodeFindings.h"

#include "base/Utf8.h"
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <utility>

namespace vemo {

namespace {

/// What is being resolved; null outside of all scopes.
const lum::Node* currentNode = nullptr;

}  // namespace

NodeScope::NodeScope(const lum::Node& node) : _former(std::exchange(currentNode, &node)) {}

NodeScope::~NodeScope() {
  currentNode = _former;
}

std::string wholeItemNameOf(const lum::Node& node) {
  const lum::Node* named = &node;
  while (named->getName() == named->className() && named->getOwner() != nullptr) {
    named = named->getOwner();
  }
  return named->getName();
}

std::string itemNameOf(const lum::Node& node) {
  return shortName(wholeItemNameOf(node));
}

NodeFindings::Scope::Scope(NodeFindings& findings) : _findings(findings), _paths(findings._scene) {
  auto& all = Findings::getSingleton();
  _former = all.setSink([this](const Finding& finding) { pass(finding); });
}

void NodeFindings::Scope::pass(Finding finding) {
  constexpr int MAX_FINDINGS = 1000;
  int& count = _findings._counts[finding.code];
  if (count > MAX_FINDINGS) {
    return;
  }
  if (currentNode != nullptr) {
    finding.nodePath = _paths.getPath(*currentNode).value_or("");
  }
  if (!_findings._reported.emplace(finding.code, finding.nodePath, finding.text).second) {
    return;
  }
  if (++count > MAX_FINDINGS) {
    finding = {finding.code, "Further findings of this kind are not listed"};
  }
  _former(finding);
}

NodeFindings::Scope::~Scope() {
  Findings::getSingleton().setSink(std::move(_former));
}

}  // namespace vemo
