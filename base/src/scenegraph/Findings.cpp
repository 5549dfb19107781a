#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Logger.h>

#include <utility>

namespace vemo {

namespace {

void log(const Finding& finding) {
  if (finding.getSeverity() == Severity::NOTE) {
    VEMO_LOG_INFO(describe(finding));
  } else {
    VEMO_LOG_WARNING(describe(finding));
  }
}

}  // namespace

Findings::Findings() : _sink(log) {}

Findings& Findings::getSingleton() {
  static auto& singleton = *new Findings;
  return singleton;
}

Findings::Sink Findings::setSink(Sink sink) {
  return std::exchange(_sink, sink ? std::move(sink) : Sink(log));
}

void Findings::report(const Finding& finding) const {
  _sink(finding);
}

FindingCapture::FindingCapture(std::vector<Finding>& list)
    : _former(
          Findings::getSingleton().setSink([&list](const Finding& finding) { list.push_back(finding); })) {}

FindingCapture::~FindingCapture() {
  Findings::getSingleton().setSink(std::move(_former));
}

void reportFinding(FindingCode code, std::string text, std::string itemPath) {
  Findings::getSingleton().report({code, std::move(text), {}, std::move(itemPath), 0});
}

}  // namespace vemo
