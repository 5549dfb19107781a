#include "export/database/Verification.h"

#include "DatabaseComparison.h"
#include "base/AtomicFile.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/ArrayPool.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <filesystem>
#include <fmt/format.h>
#include <functional>
#include <system_error>

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

[[noreturn]] void reject(const std::string& output, const std::string& reason) {
  std::error_code error;
  std::filesystem::remove(OS::followLinks(output), error);
  throw Failure(ExitCode::CANNOT_WRITE,
                fmt::format("\"{}\" differs from what was to be written and {}:\n{}", output,
                            error ? "cannot be removed" : "was removed", reason));
}

/// Calls compare(reader, first) with what was written.
template <class Compare>
void verify(const std::string& output, Compare&& compare) {
  FirstDifference first;
  DatabaseCounts counts;
  try {
    lum::SDBReader reader(toWidePath(output));
    counts = compare(reader, first);
  } catch (const lum::io::FileError& error) {
    reject(output, error.what());
  }
  if (!first.getText().empty()) {
    reject(output, first.getText());
  }
  ResultStream out;
  out << fmt::format("{}: verified, {} read back equal\n", toPrintableLine(output), describeCounts(counts));
  out.finish();
}

}  // namespace

void verifyScene(const std::string& output, lum::Node& written) {
  verify(output, [&](lum::SDBReader& reader, FirstDifference& first) {
    lum::ArrayPool arrays;
    arrays.addAll(written);
    const lum::Ptr<lum::Node> read = reader.readNode(0, lum::NO_SESSION, &arrays);
    return DatabaseCounts{
        1, lum::compareGraphs(written, *read, BITWISE,
                              [&](const lum::Difference& difference) { return first(0, difference); })};
  });
}

void verifyCopy(const std::string& output, const std::string& original) {
  verify(output, [&](lum::SDBReader& reader, FirstDifference& first) {
    // What is wrong with the original was reported when it was copied.
    LogCapture log;
    lum::SDBReader expected(toWidePath(original));
    const DatabaseCounts counts = compareDatabases(expected, reader, BITWISE, std::ref(first));
    log.take();
    return counts;
  });
}

}  // namespace vemo
