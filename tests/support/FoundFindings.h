#pragma once

#include <vemo/scenegraph/Findings.h>

#include <string>
#include <utility>
#include <vector>

namespace vemo {

/// Collects the findings that are reported while it lives.
class FoundFindings {
 public:
  FoundFindings()
      : _former(Findings::getSingleton().setSink(
            [this](const Finding& finding) { _codes.push_back(finding.getKind().name); })) {}
  ~FoundFindings() { Findings::getSingleton().setSink(std::move(_former)); }
  FoundFindings(const FoundFindings&) = delete;
  FoundFindings& operator=(const FoundFindings&) = delete;

  /// As "array-left-out", in their order.
  const std::vector<std::string>& codes() const { return _codes; }

 private:
  std::vector<std::string> _codes;
  Findings::Sink _former;
};

}  // namespace vemo
