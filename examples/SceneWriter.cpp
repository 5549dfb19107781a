#include "SceneWriter.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <fmt/format.h>
#include <memory>
#include <stdexcept>
#include <zip.h>

namespace examples {
namespace {

/// Every number is a multiple of this, far finer than a picture shows.
constexpr double RESOLUTION = 1.0 / 65536.0;
/// 1980-01-01, the first day that a zip archive can name.
constexpr unsigned long FIRST_DAY = 0x00210000;

double rounded(double value) {
  return std::round(value / RESOLUTION) * RESOLUTION;
}

std::uint32_t word(double value) {
  return std::bit_cast<std::uint32_t>(static_cast<float>(rounded(value)));
}

std::vector<std::uint32_t> words(const std::vector<std::int32_t>& values) {
  return {values.begin(), values.end()};
}

std::vector<std::uint32_t> words(const std::vector<double>& values) {
  std::vector<std::uint32_t> result(values.size());
  std::transform(values.begin(), values.end(), result.begin(), word);
  return result;
}

std::vector<std::uint32_t> words(const std::vector<Point>& points) {
  std::vector<std::uint32_t> result;
  result.reserve(points.size() * 3);
  for (const Point& point : points) {
    std::transform(point.begin(), point.end(), std::back_inserter(result), word);
  }
  return result;
}

std::string bigEndian(const std::vector<std::uint32_t>& words) {
  std::string bytes;
  bytes.reserve(words.size() * 4);
  for (const std::uint32_t word : words) {
    for (int shift = 24; shift >= 0; shift -= 8) {
      bytes.push_back(static_cast<char>(static_cast<unsigned char>(word >> shift)));
    }
  }
  return bytes;
}

void require(bool isDone, const std::string& path) {
  if (!isDone) {
    throw std::runtime_error("cannot write " + path);
  }
}

struct CloseZip {
  void operator()(void* zip) const { zipClose(zip, nullptr); }
};

void writeEntry(zipFile zip, const std::string& name, const std::string& bytes, const std::string& path) {
  zip_fileinfo info{};
  info.dosDate = FIRST_DAY;
  require(zipOpenNewFileInZip(zip, name.c_str(), &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED,
                              Z_BEST_COMPRESSION) == ZIP_OK,
          path);
  require(zipWriteInFileInZip(zip, bytes.data(), static_cast<unsigned>(bytes.size())) == ZIP_OK, path);
  require(zipCloseFileInZip(zip) == ZIP_OK, path);
}

/// How a geometry is shown when nothing else is said.
Attributes defaultSettings() {
  return {{"lineColor", "303030ff"}, {"faceColor", "d0d4dcff"}, {"lineWidth", "1"},
          {"showEdges", "false"},    {"showFaces", "true"},     {"smoothShading", "true"},
          {"contour", "false"},      {"ambient", "0.1"},        {"diffuse", "0.8"},
          {"specular", "0.1"},       {"specularPower", "10"},   {"ignoreClip", "false"},
          {"pointSize", "3"}};
}

void replace(Attributes& attributes, const Attributes& replacements) {
  for (const auto& replacement : replacements) {
    const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const auto& attribute) {
      return attribute.first == replacement.first;
    });
    if (found == attributes.end()) {
      attributes.push_back(replacement);
    } else {
      *found = replacement;
    }
  }
}

}  // namespace

std::string text(double value) {
  return fmt::format("{}", rounded(value));
}

void Geometry::addCell(std::vector<std::int32_t>& cells, const std::vector<std::int32_t>& points) {
  cells.push_back(static_cast<std::int32_t>(points.size()));
  cells.insert(cells.end(), points.begin(), points.end());
}

void SceneWriter::openTag(const std::string& element, const Attributes& attributes) {
  _xml += fmt::format("{:{}}<{}", "", 2 * _openElements.size(), element);
  for (const auto& [name, value] : attributes) {
    _xml += fmt::format(" {}=\"{}\"", name, value);
  }
}

void SceneWriter::begin(const std::string& element, const Attributes& attributes) {
  openTag(element, attributes);
  _xml += ">\n";
  _openElements.push_back(element);
}

void SceneWriter::end() {
  const std::string element = _openElements.back();
  _openElements.pop_back();
  _xml += fmt::format("{:{}}</{}>\n", "", 2 * _openElements.size(), element);
}

void SceneWriter::add(const std::string& element, const Attributes& attributes, const std::string& text) {
  openTag(element, attributes);
  _xml += text.empty() ? "/>\n" : fmt::format(">{}</{}>\n", text, element);
}

void SceneWriter::beginItem(const std::string& element, const std::string& name,
                            const Attributes& attributes) {
  Attributes all{{"name", name}, {"version", "1"}, {"visibility", "1"}};
  replace(all, attributes);
  begin(element, all);
}

void SceneWriter::addVector(const std::string& element, const Point& vector) {
  add(element, {{"x", text(vector[0])}, {"y", text(vector[1])}, {"z", text(vector[2])}});
}

void SceneWriter::addView(const Point& position, const Point& focalPoint, const Point& up, bool isPerspective,
                          double parallelScale) {
  begin("view", {{"version", "1"},
                 {"perspective", isPerspective ? "true" : "false"},
                 {"parallelScale", text(parallelScale)},
                 {"windowX", "0"},
                 {"windowY", "0"},
                 {"windowWidth", "1024"},
                 {"windowHeight", "768"}});
  addVector("position", position);
  addVector("up", up);
  addVector("focalPt", focalPoint);
  end();
}

void SceneWriter::addLight(double intensity, double azimuth, double elevation, const std::string& color) {
  add("light", {{"version", "1"},
                {"intensity", text(intensity)},
                {"azimuth", text(azimuth)},
                {"elevation", text(elevation)},
                {"color", color}});
}

void SceneWriter::addGradient(const std::string& topColor, const std::string& bottomColor,
                              const std::string& mode) {
  add("gradient", {{"version", "1"},
                   {"visibility", "1"},
                   {"topColor", topColor},
                   {"bottomColor", bottomColor},
                   {"mode", mode}});
}

void SceneWriter::addClip(const Point& origin, const Point& normal) {
  begin("clip", {{"version", "1"}});
  addVector("origin", origin);
  addVector("normal", normal);
  end();
}

void SceneWriter::addTransform(const Point& axis, double quarterTurns, const Point& translation) {
  begin("transform", {{"version", "1"}, {"rotAngle", text(quarterTurns)}});
  addVector("rotAxis", axis);
  addVector("translation", translation);
  addVector("scale", {1.0, 1.0, 1.0});
  end();
}

void SceneWriter::addFont(const std::string& color) {
  add("font", {{"version", "1"}, {"textColor", color}});
}

void SceneWriter::addLegend(const Point& position, const Point& size, const std::string& textColor,
                            const Attributes& settings) {
  beginItem("legend", fmt::format("legend {}", ++_overlays), settings);
  addVector("position", position);
  addVector("size", size);
  addFont(textColor);
  end();
}

void SceneWriter::addAnnotation(const std::string& text, const Point& position, const std::string& textColor,
                                const Attributes& settings) {
  Attributes attributes{{"text", text}, {"mode", "WINDOW"}};
  replace(attributes, settings);
  beginItem("annotation", fmt::format("text {}", ++_overlays), attributes);
  addVector("position", position);
  addFont(textColor);
  end();
}

void SceneWriter::addAxes() {
  beginItem("axes", "axes", {{"textColor", "000000ff"}});
  end();
}

void SceneWriter::addColormap(const std::string& name, double min, double max, const std::string& title,
                              const std::vector<std::string>& colors, bool isLogarithmic) {
  begin("colormap", {{"name", name},
                     {"version", "1"},
                     {"min", text(min)},
                     {"max", text(max)},
                     {"log10", isLogarithmic ? "true" : "false"},
                     {"ramp", "linear"},
                     {"title", title}});
  for (const std::string& color : colors) {
    add("color", {}, color);
  }
  end();
}

std::string SceneWriter::addEntry(const std::string& kind, const std::string& bytes) {
  const auto same = std::find_if(_entries.begin(), _entries.end(), [&](const auto& entry) {
    return entry.first.starts_with(kind) && entry.second == bytes;
  });
  if (same != _entries.end()) {
    return same->first;
  }
  std::string name = fmt::format("{}_{:05}.bin", kind, _entries.size() + 1);
  _entries.emplace_back(name, bytes);
  return name;
}

void SceneWriter::beginGeometry(const Geometry& geometry, const Attributes& settings) {
  Attributes attributes = defaultSettings();
  replace(attributes, settings);
  attributes.emplace_back("points", addEntry("points", bigEndian(words(geometry.points))));
  const std::pair<const char*, const std::vector<std::int32_t>&> lists[] = {
      {"verts", geometry.verts}, {"lines", geometry.lines}, {"polys", geometry.polys}};
  for (const auto& [kind, cells] : lists) {
    if (!cells.empty()) {
      attributes.emplace_back(kind, addEntry(kind, bigEndian(words(cells))));
    }
  }
  beginItem("geometry", geometry.name, attributes);
  for (const DataArray& array : geometry.arrays) {
    add("array", {{"name", array.name},
                  {"dim", "1"},
                  {"vertexData", array.isOnPoints ? "true" : "false"},
                  {"data", addEntry("array", bigEndian(words(array.values)))}});
  }
}

void SceneWriter::addGeometry(const Geometry& geometry, const Attributes& settings) {
  beginGeometry(geometry, settings);
  end();
}

void SceneWriter::addScaledPoints(const Geometry& geometry, const std::string& array,
                                  const std::array<double, 2>& values, const std::array<double, 2>& diameters,
                                  const Attributes& settings) {
  Attributes attributes{
      {"pointScaleMode", "1"}, {"pointScalePixelsSize", "0"}, {"pointScaleScalarName", array}};
  replace(attributes, settings);
  beginGeometry(geometry, attributes);
  addVector("pointScaleScalarRange", {values[0], values[1], 0.0});
  addVector("pointScaleScalarMapTo", {diameters[0], diameters[1], 0.0});
  end();
}

void SceneWriter::save(const std::string& path) const {
  if (!_openElements.empty()) {
    throw std::logic_error("element " + _openElements.back() + " is not ended");
  }
  std::unique_ptr<void, CloseZip> zip(zipOpen(path.c_str(), APPEND_STATUS_CREATE));
  require(zip != nullptr, path);
  writeEntry(zip.get(), "scene.xml", _xml, path);
  for (const auto& [name, bytes] : _entries) {
    writeEntry(zip.get(), name, bytes, path);
  }
  require(zipClose(zip.release(), nullptr) == ZIP_OK, path);
}

}  // namespace examples
