#pragma once

#include <vemo/import/ElementPlace.h>
#include <vemo/import/reading/Readable.h>

#include <optional>
#include <string>

namespace vemo {

/// The archive entries that the points and cells of a geometry are in.
struct GeometryEntries {
  static const KeyTable<GeometryEntries> KEYS;

  std::optional<std::string> points;
  std::optional<std::string> verts;
  std::optional<std::string> lines;
  std::optional<std::string> strips;
  std::optional<std::string> polys;
};

/// A child element of a geometry: an array over its points or cells.
struct GeometryArray {
  static inline const std::string XML_ENTITY = "array";
  static constexpr const char* COMPONENTS = "dim";
  static constexpr const char* OF_POINTS = "vertexData";
  static const KeyTable<GeometryArray> KEYS;

  std::string name;
  int components = 0;
  std::optional<std::string> entry;
  bool isOfPoints = false;
  /// Not a key.
  ElementPlace place{};
};

}  // namespace vemo
