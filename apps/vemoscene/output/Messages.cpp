#include "output/Messages.h"

#include "base/MemoryReserve.h"
#include "output/TryAgain.h"
#include "scenegraph/RepeatedFindings.h"
#include <vemo/base/PrintableText.h>
#include <vemo/scenegraph/Logger.h>

#include <algorithm>
#include <chrono>
#include <fmt/format.h>
#include <system_error>
#include <unistd.h>

namespace vemo {

namespace {

constexpr std::string_view CLEAR_LINE = "\r\x1b[K";

bool isTerminal() {
  static const bool result = isatty(STDERR_FILENO) != 0;
  return result;
}

/// In one call, so that lines of several threads do not mix. A failure cannot be
/// reported anywhere.
void writeError(std::string_view text) {
  const std::string whole = isTerminal() ? fmt::format("{}{}", CLEAR_LINE, text) : std::string(text);
  writeAll(STDERR_FILENO, whole);
}

std::string& lastLine() {
  static std::string line;
  return line;
}

void showLogged(const std::string& line) {
  lastLine() = line;
  showMessage(line);
}

std::optional<Severity>& worst() {
  static std::optional<Severity> severity;
  return severity;
}

RepeatedFindings& repeated() {
  static RepeatedFindings findings;
  return findings;
}

/// A file, and its name in messages; the file is empty if there is none.
std::pair<std::string, std::string>& renamedFile() {
  static std::pair<std::string, std::string> names;
  return names;
}

std::string rename(std::string text) {
  const auto& [file, name] = renamedFile();
  for (std::size_t at = 0; !file.empty() && (at = text.find(file, at)) != std::string::npos;
       at += name.size()) {
    text.replace(at, file.size(), name);
  }
  return text;
}

std::string& findingPrefix() {
  static std::string prefix;
  return prefix;
}

Findings::Sink setFindingSink(const Findings::Sink& sink) {
  return Findings::getSingleton().setSink([sink](const Finding& finding) {
    if (!repeated().isRepeated(finding)) {
      noteFinding(finding);
      sink(finding);
    }
  });
}

void show(const Finding& finding) {
  if (finding.getSeverity() > Severity::NOTE) {
    showMessage(findingPrefix() + describe(finding));
  }
}

}  // namespace

void showMessage(std::string_view message) {
  // Whatever names hold, no further line begins as a message does.
  std::string text = replaceBreaks(toPrintableLine(rename(std::string(message))), '\n');
  for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos;) {
    text.insert(++at, "  ");
  }
  showUsage(text);
}

void showUsage(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \n");
  if (first != std::string::npos) {
    const std::size_t last = text.find_last_not_of(" \n");
    writeError(fmt::format("vemoscene: {}\n", text.substr(first, last - first + 1)));
  }
}

void nameInMessages(const std::string& file, const std::string& name) {
  renamedFile() = {file, name};
}

void showLog() {
  Logger& logger = Logger::getSingleton();
  logger.setFlags(Logger::WARNING_FLAG | Logger::ERROR_FLAG);
  logger.setSink(showLogged);
  setFindingSink(show);
}

void startMessages(const std::string& prefix) {
  findingPrefix() = prefix.empty() ? prefix : prefix + ": ";
  repeated() = {};
}

const std::string& lastLogged() {
  return lastLine();
}

void noteFinding(const Finding& finding) {
  worst() = std::max(worst(), std::optional(finding.getSeverity()));
}

std::optional<Severity> worstFinding() {
  return worst();
}

LogCapture::LogCapture() {
  Logger::getSingleton().setSink([this](const std::string& line) { _log.lines.push_back(line); });
  _former = setFindingSink([this](const Finding& finding) { _log.findings.push_back(finding); });
}

LogCapture::~LogCapture() {
  Logger::getSingleton().setSink(showLogged);
  Findings::getSingleton().setSink(std::move(_former));
  OS::stopWithoutMemory([this] {
    std::ranges::for_each(_log.findings, show);
    std::ranges::for_each(_log.lines, showLogged);
  });
}

Progress::Progress(const std::string& activity) {
  if (!isTerminal()) {
    return;
  }
  try {
    _thread = std::thread([this, activity] { run(activity); });
  } catch (const std::system_error&) {
    // The work matters more than what is shown of it.
  }
}

Progress::~Progress() {
  if (!_thread.joinable()) {
    return;
  }
  {
    const std::lock_guard lock(_mutex);
    _ended = true;
  }
  _wakeUp.notify_one();
  _thread.join();
}

ProgressReport Progress::getReport() {
  return [this](double fraction) {
    _percent = static_cast<int>(fraction * 100);
    return true;
  };
}

std::string Progress::describeShare() const {
  const int percent = _percent;
  return percent == UNKNOWN ? std::string() : fmt::format("{} %, ", percent);
}

void Progress::run(const std::string& activity) {
  std::unique_lock lock(_mutex);
  for (int seconds = 1; !_wakeUp.wait_for(lock, std::chrono::seconds(1), [this] { return _ended; });
       ++seconds) {
    writeError(fmt::format("{} ... {}{} s", activity, describeShare(), seconds));
  }
  writeError({});
}

}  // namespace vemo
