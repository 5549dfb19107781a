#include "DatabaseComparison.h"

#include "scenegraph/inspect/Matching.h"
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/inspect/NumberText.h>
#include <vemo/scenegraph/io/ArrayPool.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <fmt/format.h>
#include <utility>
#include <vector>

namespace vemo {

namespace {

using lum::Matching;
using Record = lum::SDBReader::Record;

Matching matchByTitle(const std::vector<Record>& left, const std::vector<Record>& right) {
  const auto keysOf = [](const std::vector<Record>& records) {
    std::vector<Matching::Key> keys;
    keys.reserve(records.size());
    for (const Record& record : records) {
      keys.emplace_back(record.title, "");
    }
    return keys;
  };
  return {keysOf(left), keysOf(right)};
}

class DatabaseComparison {
 public:
  DatabaseComparison(lum::SDBReader& left, lum::SDBReader& right, const lum::ComparisonRules& rules,
                     const RecordDifferenceSink& sink)
      : _left(left), _right(right), _rules(rules), _sink(sink) {}

  DatabaseCounts run() {
    const Matching matching = matchByTitle(_left.getRecords(), _right.getRecords());
    for (const std::size_t i : matching.findMoved()) {
      report(i, {"",
                 "position",
                 static_cast<std::int64_t>(i),
                 static_cast<std::int64_t>(matching.getCounterparts()[i]),
                 {}});
    }
    auto unmatched = matching.getOnlyRight().begin();
    const auto end = matching.getOnlyRight().end();
    for (std::size_t i = 0; i < _left.getRecords().size(); ++i) {
      const std::size_t counterpart = matching.getCounterparts()[i];
      if (counterpart != Matching::NONE) {
        compareRecords(i, counterpart);
      } else if (unmatched != end) {
        compareRecords(i, *unmatched++);
      } else {
        report(i, {"", "record", _left.getRecords()[i].title, {}, {}});
      }
    }
    for (; unmatched != end; ++unmatched) {
      report(*unmatched, {"", "record", {}, _right.getRecords()[*unmatched].title, {}});
    }
    return _counts;
  }

 private:
  void compareRecords(std::size_t left, std::size_t right) {
    if (_isStopped) {
      return;
    }
    const Record& first = _left.getRecords()[left];
    const Record& second = _right.getRecords()[right];
    compareTexts(left, "title", first.title, second.title);
    compareTexts(left, "description", first.description, second.description);
    compareTexts(left, "simUUID", first.simUUID, second.simUUID);
    lum::ArrayPool arrays;
    const lum::Ptr<lum::Node> leftNode = _left.readNode(left, lum::NO_SESSION, &arrays);
    const lum::Ptr<lum::Node> rightNode = _right.readNode(right, lum::NO_SESSION, &arrays);
    const lum::ComparisonCounts counts =
        lum::compareGraphs(*leftNode, *rightNode, _rules, [&](const lum::Difference& difference) {
          report(left, difference);
          return !_isStopped;
        });
    ++_counts.records;
    _counts.graphs.nodes += counts.nodes;
    _counts.graphs.arrays += counts.arrays;
  }

  void compareTexts(std::size_t record, const char* what, const std::string& left, const std::string& right) {
    if (left != right) {
      report(record, {"", what, left, right, {}});
    }
  }

  void report(std::size_t record, const lum::Difference& difference) {
    _isStopped = _isStopped || !_sink(record, difference);
  }

  lum::SDBReader& _left;
  lum::SDBReader& _right;
  lum::ComparisonRules _rules;
  const RecordDifferenceSink& _sink;
  DatabaseCounts _counts;
  bool _isStopped = false;
};

std::string countOf(std::size_t count, const char* what) {
  return fmt::format("{} {}{}", lum::groupDigits(static_cast<std::int64_t>(count)), what,
                     count == 1 ? "" : "s");
}

}  // namespace

std::string describeCounts(const DatabaseCounts& counts) {
  return fmt::format("{}, {} and {}", countOf(counts.records, "record"), countOf(counts.graphs.nodes, "node"),
                     countOf(counts.graphs.arrays, "array"));
}

DatabaseCounts compareDatabases(lum::SDBReader& left, lum::SDBReader& right,
                                const lum::ComparisonRules& rules, const RecordDifferenceSink& sink) {
  return DatabaseComparison(left, right, rules, sink).run();
}

}  // namespace vemo
