#include "LedgerFile.h"

#include "base/AtomicFile.h"
#include "output/ResultStream.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneAudit.h>
#include <vemo/import/SceneLedger.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <array>
#include <cstdint>
#include <fmt/format.h>
#include <functional>
#include <sstream>
#include <string_view>
#include <utility>

namespace vemo {

namespace {

/// Takes a part of the ledger: there may be a great many lines, with long paths.
using PutLines = std::function<void(std::string_view lines)>;

class LedgerPrinter {
 public:
  explicit LedgerPrinter(PutLines put) : _put(std::move(put)) {}

  void print(const LedgerRow& row) {
    ++_counts[static_cast<std::size_t>(row.outcome)];
    lum::JsonWriter json(_lines);
    json.beginObject(lum::JsonWriter::Layout::ONE_LINE);
    const auto put = [&json](const char* name, std::string_view text) {
      json.key(name);
      json.value(text);
    };
    put("outcome", outcomeName(row.outcome));
    if (row.entry.empty()) {
      put("path", row.path);
      json.key("line");
      json.value(row.line);
      put("element", row.element);
    } else {
      put("entry", row.entry);
    }
    if (!row.attribute.empty()) {
      put("attribute", row.attribute);
      put("value", row.value);
    }
    if (!row.findings.empty()) {
      json.key("findings");
      json.beginArray();
      for (const FindingCode code : row.findings) {
        json.value(Finding{code}.getKind().name);
      }
      json.endArray();
    }
    json.endObject();
    json.finish();
    if (_lines.view().size() >= PART_SIZE) {
      putLines();
    }
  }

  /// Must be called at the end.
  void putLines() {
    _put(_lines.view());
    _lines.str({});
  }

  std::string getSummary() const {
    std::string summary;
    for (std::size_t i = 0; i < _counts.size(); ++i) {
      const auto outcome = static_cast<Outcome>(i);
      if (outcome != Outcome::REFUSED || _counts[i] > 0) {
        summary +=
            fmt::format("{}{} {}", i == 0 ? "" : ", ", lum::groupDigits(_counts[i]), outcomeName(outcome));
      }
    }
    return "Elements, attributes and entries: " + summary;
  }

 private:
  static constexpr std::size_t PART_SIZE = std::size_t{1} << 20;

  PutLines _put;
  std::ostringstream _lines;
  std::array<std::int64_t, OUTCOME_COUNT> _counts{};
};

}  // namespace

const FileKind LEDGER_KIND{"", "ledger", R"({"outcome": )", true};

std::string writeLedger(const SceneLedger& ledger, const std::string& file) {
  const auto print = [&ledger](const PutLines& put) {
    LedgerPrinter printer(put);
    ledger.list([&printer](const LedgerRow& row) { printer.print(row); });
    printer.putLines();
    return printer.getSummary();
  };
  if (isStandardOutput(file)) {
    ResultStream out;
    std::string summary = print([&out](std::string_view lines) { out << lines; });
    out.finish();
    return summary;
  }
  OS::SequentialFile out(file);
  std::string summary = print([&out](std::string_view lines) {
    out.append({reinterpret_cast<const std::uint8_t*>(lines.data()), lines.size()});
  });
  out.commit();
  return summary;
}

}  // namespace vemo
