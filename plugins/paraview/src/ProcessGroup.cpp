#include "ProcessGroup.h"

#include <vtkCommunicator.h>
#include <vtkMultiProcessController.h>
#include <vtkType.h>

#include <numeric>
#include <set>
#include <sstream>

namespace vemo {

namespace {

vtkMultiProcessController* findController(int processes) {
  vtkMultiProcessController* const controller = vtkMultiProcessController::GetGlobalController();
  return controller != nullptr && processes > 1 && controller->GetNumberOfProcesses() == processes
             ? controller
             : nullptr;
}

std::vector<std::string> differentLines(const std::string& text) {
  std::vector<std::string> lines;
  std::set<std::string> known;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (known.insert(line).second) {
      lines.push_back(line);
    }
  }
  return lines;
}

}  // namespace

ProcessGroup::ProcessGroup(int processes) : _controller(findController(processes)) {}

bool ProcessGroup::isFirst() const {
  return _controller == nullptr || _controller->GetLocalProcessId() == 0;
}

std::optional<std::string> ProcessGroup::findFailure(const std::optional<std::string>& own) {
  if (_controller == nullptr) {
    return own;
  }
  const int none = _controller->GetNumberOfProcesses();
  const int candidate = own ? _controller->GetLocalProcessId() : none;
  int first = none;
  _controller->AllReduce(&candidate, &first, 1, vtkCommunicator::MIN_OP);
  if (first == none) {
    return std::nullopt;
  }
  std::string text = own.value_or("");
  auto size = static_cast<vtkIdType>(text.size());
  _controller->Broadcast(&size, 1, first);
  text.resize(static_cast<std::size_t>(size));
  _controller->Broadcast(text.data(), size, first);
  return text;
}

bool ProcessGroup::isSame(std::uint64_t own) {
  if (_controller == nullptr) {
    return true;
  }
  std::uint64_t least = own;
  std::uint64_t greatest = own;
  _controller->AllReduce(&own, &least, 1, vtkCommunicator::MIN_OP);
  _controller->AllReduce(&own, &greatest, 1, vtkCommunicator::MAX_OP);
  return least == greatest;
}

std::vector<std::string> ProcessGroup::gather(const std::vector<std::string>& own) {
  std::string text;
  for (const std::string& line : own) {
    text += line + '\n';
  }
  if (_controller == nullptr) {
    return differentLines(text);
  }
  const auto processes = static_cast<std::size_t>(_controller->GetNumberOfProcesses());
  const auto size = static_cast<vtkIdType>(text.size());
  std::vector<vtkIdType> sizes(processes);
  _controller->Gather(&size, sizes.data(), 1, 0);
  std::vector<vtkIdType> offsets(processes);
  std::exclusive_scan(sizes.begin(), sizes.end(), offsets.begin(), vtkIdType{0});
  std::string all(isFirst() ? static_cast<std::size_t>(offsets.back() + sizes.back()) : 0, '\0');
  _controller->GatherV(text.data(), all.data(), size, sizes.data(), offsets.data(), 0);
  return differentLines(isFirst() ? all : text);
}

}  // namespace vemo
