#include "Command.h"
#include "DatabaseComparison.h"
#include "InputFile.h"
#include "SceneDatabase.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>
#include <vemo/scenegraph/inspect/NumberText.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <CLI/CLI.hpp>
#include <cmath>
#include <fmt/format.h>
#include <memory>
#include <string>
#include <utility>

namespace vemo {

namespace {

constexpr std::size_t MAX_LINES = 100;

struct DiffArguments {
  std::string left;
  std::string right;
  lum::ComparisonRules rules;
  bool json = false;
};

/// Writes a value of either side. A number that is not finite is a text, so that
/// it differs from a value that is not there.
class ValuePrinter {
 public:
  explicit ValuePrinter(lum::JsonWriter& json) : _json(json) {}

  void operator()(std::monostate /*none*/) const { _json.null(); }
  void operator()(bool truth) const { _json.value(truth); }
  void operator()(const std::string& text) const { _json.value(text); }
  template <class T>
  requires std::is_arithmetic_v<T>
  void operator()(T number) const {
    if (std::isfinite(static_cast<double>(number))) {
      _json.value(number);
    } else {
      _json.value(fmt::format("{}", number));
    }
  }
  template <class T>
  void operator()(const std::vector<T>& numbers) const {
    _json.beginArray(lum::JsonWriter::Layout::ONE_LINE);
    for (const T number : numbers) {
      (*this)(number);
    }
    _json.endArray();
  }

 private:
  lum::JsonWriter& _json;
};

void printExtent(lum::JsonWriter& json, const lum::Difference::Extent& extent) {
  const auto print = [&json](const char* name, auto number) {
    json.key(name);
    json.value(number);
  };
  print("count", extent.count);
  print("of", extent.total);
  print("index", extent.index);
  if (extent.component) {
    print("component", *extent.component);
  }
  if (extent.deviation) {
    print("deviation", *extent.deviation);
  }
}

void print(lum::JsonWriter& json, std::size_t record, const lum::Difference& difference) {
  json.beginObject(lum::JsonWriter::Layout::ONE_LINE);
  json.key("record");
  json.value(record);
  json.key("path");
  json.value(difference.path);
  json.key("what");
  json.value(difference.what);
  json.key("a");
  std::visit(ValuePrinter(json), difference.left);
  json.key("b");
  std::visit(ValuePrinter(json), difference.right);
  if (difference.extent) {
    printExtent(json, *difference.extent);
  }
  json.endObject();
}

/// Returns whether the scenes are equal.
bool printJson(std::ostream& out, lum::SDBReader& left, lum::SDBReader& right,
               const lum::ComparisonRules& rules) {
  lum::JsonWriter json(out);
  bool areEqual = true;
  json.beginArray();
  compareDatabases(left, right, rules, [&](std::size_t record, const lum::Difference& difference) {
    areEqual = false;
    print(json, record, difference);
    return true;
  });
  json.endArray();
  json.finish();
  return areEqual;
}

/// Returns whether the scenes are equal.
bool printText(std::ostream& out, lum::SDBReader& left, lum::SDBReader& right,
               const lum::ComparisonRules& rules) {
  const bool hasRecords = left.getRecords().size() > 1 || right.getRecords().size() > 1;
  std::size_t count = 0;
  const auto print = [&](std::size_t record, const lum::Difference& difference) {
    if (++count <= MAX_LINES) {
      out << toPrintableLine((hasRecords ? fmt::format("record {}: ", record) : "") +
                             lum::describeDifference(difference))
          << '\n';
    }
    return true;
  };
  const DatabaseCounts counts = compareDatabases(left, right, rules, print);
  if (count > MAX_LINES) {
    out << fmt::format("... and {} more\n", lum::groupDigits(static_cast<std::int64_t>(count - MAX_LINES)));
  }
  out << fmt::format("{} in {}\n",
                     count == 0 ? "No differences"
                                : lum::groupDigits(static_cast<std::int64_t>(count)) +
                                      (count == 1 ? " difference" : " differences"),
                     describeCounts(counts));
  return count == 0;
}

SceneDatabase open(const std::string& file, Command& command) {
  command.file = file;
  requireReadable(toWidePath(readableFile(file)));
  return SceneDatabase(file);
}

void diff(const DiffArguments& options, Command& command) {
  // Converting an archive takes more memory than its result. So both are
  // converted before either is read.
  const SceneDatabase first = open(options.left, command);
  const SceneDatabase second = open(options.right, command);
  const auto left = first.open();
  const auto right = second.open();
  // The reader names the file that is damaged.
  command.file.clear();
  const Progress progress("Comparing");
  ResultStream out;
  const bool areEqual = options.json ? printJson(out, *left, *right, options.rules)
                                     : printText(out, *left, *right, options.rules);
  out.finish();
  command.result = areEqual ? ExitCode::DONE : ExitCode::FOUND;
}

/// Returns an error message for the parser, empty for a valid tolerance.
std::string checkTolerance(const std::string& text) {
  double tolerance = 0.0;
  const bool isNumber = CLI::detail::lexical_cast(text, tolerance);
  return isNumber && std::isfinite(tolerance) && tolerance >= 0.0
             ? std::string()
             : fmt::format("\"{}\" is not a tolerance such as 1e-6", text);
}

void addDiffCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<DiffArguments>();
  CLI::App* const diffApp =
      app.add_subcommand("diff", "Compare the content of two scenes, archives or databases");
  diffApp->add_option("A", options->left, "A scene archive or database")->required();
  diffApp->add_option("B", options->right, "The scene archive or database to compare it with")->required();
  diffApp
      ->add_option("--tolerance", options->rules.tolerance,
                   "Floating-point numbers a and b are equal if |a - b| <= X * max(1, |a|, |b|) (default 0)")
      ->option_text("X")
      ->check(checkTolerance);
  diffApp->add_flag("--json", options->json, "Print a list of all differences, for programs");
  diffApp->footer(R"(Exit status:
   0  the scenes are equal
   1  they differ
   2  an error for which other commands exit with 2 to 6 or 70
  64  wrong usage)");
  diffApp->callback([options, &command] {
    command.failureCode = ExitCode::TROUBLE;
    command.jobs.push_back({options->left, [options, &command] { diff(*options, command); }});
  });
}

const Subcommand DIFF(6, addDiffCommand);

}  // namespace

}  // namespace vemo
