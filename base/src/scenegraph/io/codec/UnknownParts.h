#pragma once

#include "scenegraph/io/codec/TableReader.h"
#include <vemo/scenegraph/Finding.h>

#include <cstddef>
#include <map>
#include <set>
#include <string>

namespace lum::io {

/// Reports the classes and fields of a file's nodes that this program does not
/// know, each once. A file may have a great many, with long names.
class UnknownParts {
 public:
  /// `nodeCounts`: how many nodes a graph has of which class. A stream of many small graphs may
  /// have many classes.
  void report(const TableReader& tables, const std::map<std::size_t, std::size_t>& nodeCounts);

  /// Whether anything was reported.
  bool hasAny() const { return !_reported.empty(); }

 private:
  void reportOnce(vemo::FindingCode code, const std::string& text);

  std::set<std::string> _reported;
};

}  // namespace lum::io
