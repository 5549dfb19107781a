#include "export/database/Verification.h"

#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/ArrayPool.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <fmt/format.h>
#include <functional>
#include <optional>
#include <string>

namespace vemo {

namespace {

constexpr lum::ComparisonRules BITWISE{.isBitwise = true};

/// Keeps the first difference.
class FirstDifference {
 public:
  bool operator()(std::size_t record, const lum::Difference& difference) {
    _text = fmt::format("record {}: {}", record, lum::describeDifference(difference));
    return false;
  }
  const std::string& getText() const { return _text; }

 private:
  std::string _text;
};

[[noreturn]] void reject(const std::string& output, const char* fault, const std::string& reason) {
  throw Failure(
      ExitCode::CANNOT_WRITE,
      fmt::format("\"{}\" is missing or unchanged: what was written {}:\n{}", output, fault, reason));
}

/// An error of a file by the name that the user knows.
std::string renameInError(std::string error, const std::wstring& file, const std::string& name) {
  const std::string native = toNativePath(file);
  return error.starts_with(native) ? error.replace(0, native.size(), name) : error;
}

/// Calls compare(reader, first) with what was written.
template <class Compare>
DatabaseCounts verify(const std::wstring& database, const std::string& output, Compare&& compare) {
  FirstDifference first;
  try {
    lum::SDBReader reader(database);
    const DatabaseCounts counts = compare(reader, first);
    if (first.getText().empty()) {
      return counts;
    }
  } catch (const lum::io::FileError& error) {
    reject(output, "cannot be read back", renameInError(error.what(), database, output));
  }
  reject(output, "differs from what was to be written", first.getText());
}

}  // namespace

DatabaseCounts verifyScene(const std::wstring& database, lum::Node& written, const std::string& output) {
  return verify(database, output, [&](lum::SDBReader& reader, FirstDifference& first) {
    lum::ArrayPool arrays;
    arrays.addAll(written);
    const lum::Ptr<lum::Node> read = reader.readNode(0, lum::NO_SESSION, &arrays);
    return DatabaseCounts{
        1, lum::compareGraphs(written, *read, BITWISE,
                              [&](const lum::Difference& difference) { return first(0, difference); })};
  });
}

DatabaseCounts verifyCopy(const std::wstring& database, const std::string& original,
                          const std::string& output) {
  // What is wrong with the original was reported when it was copied.
  std::optional<lum::SDBReader> expected;
  {
    LogCapture log;
    expected.emplace(toWidePath(original));
    log.take();
  }
  return verify(database, output, [&](lum::SDBReader& reader, FirstDifference& first) {
    LogCapture log;
    const DatabaseCounts counts = compareDatabases(*expected, reader, BITWISE, std::ref(first));
    log.take();
    return counts;
  });
}

}  // namespace vemo
