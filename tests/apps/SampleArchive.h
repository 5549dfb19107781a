#pragma once

#include "support/ArchiveBuilder.h"
#include "support/Expected.h"
#include "support/Files.h"

#include <cstddef>
#include <regex>
#include <string>
#include <vector>

namespace vemo {

inline std::string makeDescription(const std::string& arrayEntry, const std::string& version = "1") {
  const std::string text =
      std::regex_replace(readFile(testData("plate.xml")), std::regex("ENTRY"), arrayEntry);
  return std::regex_replace(text, std::regex("VERSION"), version);
}

/// A triangle, with as many further points as are asked for. Its size depends on no
/// version of zlib.
inline ArchiveBuilder makeArchive(const std::string& description, std::size_t furtherPoints = 0) {
  std::vector<float> points{0, 0, 0, 1, 0, 0, 0, 1, 0};
  points.resize(points.size() + 3 * furtherPoints, 0.1F);
  std::vector<float> heat{2.5F, -1, 0.1F};
  heat.resize(heat.size() + furtherPoints, 0.1F);
  return ArchiveBuilder()
      .text("scene.xml", description)
      .floats("points", points)
      .floats("heat", heat)
      .ints("polys", {3, 0, 1, 2})
      .stored();
}

}  // namespace vemo
