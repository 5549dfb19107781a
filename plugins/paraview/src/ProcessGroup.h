#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class vtkMultiProcessController;

namespace vemo {

/// The processes of a parallel server. All of them call each member together.
class ProcessGroup {
 public:
  /// @param processes that share the work: if the server has another number, each works alone
  explicit ProcessGroup(int processes);

  bool isFirst() const;

  /// The first failure among those of all processes.
  std::optional<std::string> findFailure(const std::optional<std::string>& own);

  /// Whether all processes have the same number.
  bool isSame(std::uint64_t own);

  /// In the first process, the lines of all; in the others their own. Each line once.
  std::vector<std::string> gather(const std::vector<std::string>& own);

 private:
  /// Null for a process that works alone.
  vtkMultiProcessController* _controller;
};

}  // namespace vemo
