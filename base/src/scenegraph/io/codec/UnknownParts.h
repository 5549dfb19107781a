#pragma once

#include "scenegraph/io/codec/TableReader.h"
#include <vemo/scenegraph/Finding.h>

#include <cstddef>
#include <set>
#include <span>
#include <string>

namespace lum::io {

/// Reports the classes and fields of a file's nodes that this program does not
/// know, each once. A file may have a great many, with long names.
class UnknownParts {
 public:
  /// `nodeCounts`: by class, how many nodes of it a graph has.
  void report(const TableReader& tables, std::span<const std::size_t> nodeCounts);

 private:
  void reportOnce(vemo::FindingCode code, const std::string& text);

  std::set<std::string> _reported;
};

}  // namespace lum::io
