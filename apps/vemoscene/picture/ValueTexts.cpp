#include "picture/ValueTexts.h"

#include <vemo/base/PrintableText.h>
#include <vemo/render/ScenePicture.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <fmt/format.h>
#include <string_view>
#include <vector>

namespace vemo {

namespace {

[[noreturn]] void rejectValue(const std::string& text, const std::string& what) {
  throw InvalidValue(fmt::format("\"{}\" is not {}", toPrintableLine(text), what));
}

/// All of a text as a finite number; nothing for any other text.
template <class T>
std::optional<T> parseNumber(std::string_view text) {
  T number{};
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  const bool isValid = result.ec == std::errc() && result.ptr == end;
  return isValid && std::isfinite(static_cast<double>(number)) ? std::optional(number) : std::nullopt;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) {
      return parts;
    }
    text.remove_prefix(end + 1);
  }
}

std::optional<int> parsePixels(std::string_view text) {
  const auto pixels = parseNumber<int>(text);
  return pixels && *pixels >= 1 && *pixels <= MAX_PICTURE_SIZE ? pixels : std::nullopt;
}

/// Nothing for another text than six hexadecimal digits, possibly after "#".
std::optional<Vector3> parseColor(std::string_view text) {
  constexpr std::size_t DIGITS = 6;
  constexpr double MOST = 255.0;
  if (text.starts_with('#')) {
    text.remove_prefix(1);
  }
  std::uint32_t color = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, color, 16);
  if (text.size() != DIGITS || result.ec != std::errc() || result.ptr != end) {
    return std::nullopt;
  }
  const auto channel = [color](unsigned shift) { return ((color >> shift) & 0xFFU) / MOST; };
  return Vector3{channel(16), channel(8), channel(0)};
}

/// What follows the nine coordinates; false for anything unknown.
bool parseProjection(std::string_view text, CameraValue& camera) {
  constexpr double MOST_DEGREES = 179.0;
  const std::size_t separator = text.find('=');
  const auto number =
      separator != std::string_view::npos ? parseNumber<double>(text.substr(separator + 1)) : std::nullopt;
  if (text.starts_with("angle=") && number && *number > 0.0 && *number <= MOST_DEGREES) {
    camera.angle = number;
    return true;
  }
  if (text.starts_with("scale=") && number && *number > 0.0) {
    camera.viewpoint.parallelScale = number;
    return true;
  }
  return false;
}

}  // namespace

CLI::Option* addValueOption(CLI::App& app, const std::string& name, const std::string& value,
                            const std::string& description, std::function<void(const std::string&)> use) {
  const auto check = [name, use = std::move(use)](const std::string& text) {
    try {
      use(text);
    } catch (const InvalidValue& error) {
      throw CLI::ValidationError(name, error.what());
    }
  };
  return app.add_option_function<std::string>(name, check, description)->option_text(value);
}

std::pair<int, int> parseSize(const std::string& text) {
  const auto parts = split(text, 'x');
  const auto width = parsePixels(parts.front());
  if (parts.size() == 1 && width) {
    return {*width, std::max(*width * 3 / 4, 1)};
  }
  const auto height = parsePixels(parts.back());
  if (parts.size() != 2 || !width || !height) {
    rejectValue(text, fmt::format("a size such as 1024x768, with 1 to {} pixels each way", MAX_PICTURE_SIZE));
  }
  return {*width, *height};
}

double parsePositive(const std::string& text, double most) {
  const auto number = parseNumber<double>(text);
  if (!number || *number <= 0.0 || *number > most) {
    rejectValue(text, fmt::format("a number above 0, up to {}", most));
  }
  return *number;
}

Vector<2, double> parseRange(const std::string& text) {
  const auto parts = split(text, ':');
  const auto low = parseNumber<double>(parts.front());
  const auto high = parseNumber<double>(parts.back());
  if (parts.size() != 2 || !low || !high || *low >= *high) {
    rejectValue(text, "a range such as 0:1.5, of two numbers, the lower first");
  }
  return {*low, *high};
}

std::pair<Vector3, Vector3> parseBackground(const std::string& text) {
  const auto parts = split(text, ',');
  const auto top = parseColor(parts.front());
  const auto bottom = parseColor(parts.back());
  if (parts.size() > 2 || !top || !bottom) {
    rejectValue(text, "a colour such as ff8000, or two for top and bottom such as ffffff,a0a0a0");
  }
  return {*top, *bottom};
}

CameraValue parseCamera(const std::string& text) {
  constexpr std::size_t COORDINATES = 9;
  const auto parts = split(text, ',');
  CameraValue camera;
  bool isValid = parts.size() == COORDINATES ||
                 (parts.size() == COORDINATES + 1 && parseProjection(parts.back(), camera));
  Vector3* const vectors[] = {&camera.viewpoint.position, &camera.viewpoint.focalPoint,
                              &camera.viewpoint.viewUp};
  for (std::size_t i = 0; isValid && i < COORDINATES; ++i) {
    const auto number = parseNumber<double>(parts[i]);
    isValid = number.has_value();
    (*vectors[i / 3])[i % 3] = number.value_or(0.0);
  }
  if (!isValid) {
    rejectValue(text,
                "a camera such as 0,-10,5,0,0,0,0,0,1: position, focal point and view-up, then possibly "
                ",angle=30 for perspective or ,scale=2 for a parallel view");
  }
  return camera;
}

}  // namespace vemo
