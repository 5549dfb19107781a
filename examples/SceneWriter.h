#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace examples {

using Point = std::array<double, 3>;

/// Numbers that belong to the points or to the cells of a geometry, one after
/// the other.
struct DataArray {
  std::string name;
  bool isOnPoints = true;
  std::vector<double> values;
};

/// Points with cells over them. A list of cells is flat: each cell is its number
/// of points, then the points.
struct Geometry {
  std::string name;
  std::vector<Point> points;
  std::vector<std::int32_t> verts;
  std::vector<std::int32_t> lines;
  std::vector<std::int32_t> polys;
  std::vector<DataArray> arrays;

  /// Adds a cell to one of the lists.
  static void addCell(std::vector<std::int32_t>& cells, const std::vector<std::int32_t>& points);
};

/// XML attributes in the order in which they are written.
using Attributes = std::vector<std::pair<std::string, std::string>>;

/// Writes an old-generation scene archive: "scene.xml" and one big-endian entry
/// for each array. The same calls give the same bytes, today and tomorrow: dates
/// are fixed, and every number is rounded so coarsely that mathematical
/// libraries which differ in the last bit make no difference.
class SceneWriter {
 public:
  SceneWriter() = default;

  /// Begins an element; what is written until the matching end() is inside it.
  void begin(const std::string& element, const Attributes& attributes);
  void end();
  /// An element that holds a text or nothing.
  void add(const std::string& element, const Attributes& attributes, const std::string& text = {});

  /// A visible item with that name: "scene", "assembly" ...
  void beginItem(const std::string& element, const std::string& name, const Attributes& attributes = {});
  void addView(const Point& position, const Point& focalPoint, const Point& up, bool isPerspective,
               double parallelScale);
  void addLight(double intensity, double azimuth, double elevation, const std::string& color);
  void addGradient(const std::string& topColor, const std::string& bottomColor, const std::string& mode);
  /// Keeps what the normal points to.
  void addClip(const Point& origin, const Point& normal);
  void addColormap(const std::string& name, double min, double max, const std::string& title,
                   const std::vector<std::string>& colors, bool isLogarithmic = false);
  /// The settings replace those that a shaded surface has by default.
  void addGeometry(const Geometry& geometry, const Attributes& settings = {});
  /// Points as balls in the model, whose diameters follow an array over them: the
  /// two values have the two diameters.
  void addScaledPoints(const Geometry& geometry, const std::string& array,
                       const std::array<double, 2>& values, const std::array<double, 2>& diameters,
                       const Attributes& settings = {});
  /// Turns the open assembly about an axis through the origin, in quarter turns,
  /// then moves it.
  void addTransform(const Point& axis, double quarterTurns, const Point& translation);
  /// The colour bar of the open assembly's first colormap. The position is the
  /// lower left corner; it and the size are fractions of the window.
  void addLegend(const Point& position, const Point& size, const std::string& textColor,
                 const Attributes& settings = {});
  /// The triad in the corner of the window.
  void addAxes();
  /// A text in the window, or where the settings say so in the model.
  void addAnnotation(const std::string& text, const Point& position, const std::string& textColor,
                     const Attributes& settings = {});
  void addVector(const std::string& element, const Point& vector);
  /// Bytes of pixels, from the bottom row up; their entry's name.
  std::string addPixels(const std::string& bytes) { return addEntry("pixels", bytes); }

  /// Writes the archive; all elements must be ended. Throws std::runtime_error.
  void save(const std::string& path) const;

 private:
  /// What is there already is not written again.
  std::string addEntry(const std::string& kind, const std::string& bytes);
  void addFont(const std::string& color);
  void beginGeometry(const Geometry& geometry, const Attributes& settings);
  void openTag(const std::string& element, const Attributes& attributes);

  std::string _xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
  std::vector<std::string> _openElements;
  int _overlays = 0;
  std::vector<std::pair<std::string, std::string>> _entries;
};

/// The shortest decimal text of a number.
std::string text(double value);

}  // namespace examples
