#pragma once

#include <vemo/base/Vector.h>
#include <vemo/scenegraph/edit/View.h>

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace vemo {

inline constexpr double MAX_SCALE = 100.0;

/// A text that is not a value of an option: it says what the text should be.
class InvalidValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Adds an option with a value, for `use`, which may throw InvalidValue.
/// @param value what help texts call the value
CLI::Option* addValueOption(CLI::App& app, const std::string& name, const std::string& value,
                            const std::string& description, std::function<void(const std::string&)> use);

// Values from their texts. All throw InvalidValue.

/// "1024x768", or the width of a size of 4 to 3, "1024".
std::pair<int, int> parseSize(const std::string& text);

/// A number above 0, up to `most`.
double parsePositive(const std::string& text, double most);

/// "0:1.5".
Vector<2, double> parseRange(const std::string& text);

/// "ffffff", or "ffffff,000000" for the colours at the top and bottom.
std::pair<Vector3, Vector3> parseBackground(const std::string& text);

struct CameraValue {
  lum::Viewpoint viewpoint;
  /// In degrees; of perspective.
  std::optional<double> angle;
};

/// "X,Y,Z,X,Y,Z,X,Y,Z", position, focal point and view-up, possibly followed by
/// ",angle=DEGREES" or ",scale=LENGTH".
CameraValue parseCamera(const std::string& text);

}  // namespace vemo
