#pragma once

#include <vemo/scenegraph/Finding.h>

#include <functional>
#include <string>
#include <vector>

namespace vemo {

/// Receives all findings of the process. Without a sink they are logged: notes
/// as info lines, others as warnings. Like the rest of the system, for one thread
/// at a time.
class VEMO_SCENEGRAPH_EXPORT Findings {
 public:
  using Sink = std::function<void(const Finding& finding)>;

  /// Lives until the process ends, like the Logger.
  static Findings& getSingleton();

  /// Sets the sink, or none, and returns the former one, which can be called in any
  /// case. An exception from the sink is passed on to the caller of the operation.
  Sink setSink(Sink sink);

  void report(const Finding& finding) const;

 private:
  Findings();

  Sink _sink;
};

/// During its lifetime, appends findings to a list instead of handing them to the
/// sink.
class VEMO_SCENEGRAPH_EXPORT FindingCapture {
 public:
  /// The list must outlive the capture.
  explicit FindingCapture(std::vector<Finding>& list);
  ~FindingCapture();
  FindingCapture(const FindingCapture&) = delete;
  FindingCapture& operator=(const FindingCapture&) = delete;

 private:
  Findings::Sink _former;
};

/// Reports a finding about a node of a scene graph, or about none.
VEMO_SCENEGRAPH_EXPORT void reportFinding(FindingCode code, std::string text, std::string itemPath = {});

}  // namespace vemo
