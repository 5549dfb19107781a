#pragma once

#include <vemo/scenegraph/inspect/Compare.h>

#include <cstddef>
#include <functional>
#include <string>

namespace lum {
class SDBReader;
}

namespace vemo {

struct DatabaseCounts {
  /// Records that both have.
  std::size_t records = 0;
  lum::ComparisonCounts graphs;
};

/// "1 record, 12 nodes and 5 arrays".
std::string describeCounts(const DatabaseCounts& counts);

/// Takes the number of a record, in the left database or else in the right one,
/// and a difference, and returns whether to go on.
using RecordDifferenceSink = std::function<bool(std::size_t record, const lum::Difference& difference)>;

/// Compares records of the same title, the first with the first and so on, then
/// the rest in their order. Holds two records in memory at a time, and arrays that
/// are equal once.
DatabaseCounts compareDatabases(lum::SDBReader& left, lum::SDBReader& right,
                                const lum::ComparisonRules& rules, const RecordDifferenceSink& sink);

}  // namespace vemo
