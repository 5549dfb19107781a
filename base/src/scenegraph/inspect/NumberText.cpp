#include <vemo/scenegraph/inspect/NumberText.h>

#include <fmt/format.h>
#include <string_view>

namespace lum {

std::string describeNumber(double number) {
  return fmt::format("{:.6g}", number);
}

std::string groupDigits(std::int64_t count) {
  std::string digits = std::to_string(count);
  for (auto at = std::ssize(digits) - 3; at > (count < 0 ? 1 : 0); at -= 3) {
    digits.insert(static_cast<std::size_t>(at), 1, ',');
  }
  return digits;
}

std::string withNoun(const std::string& number, const std::string& noun) {
  return number + ' ' + noun + (number == "1" ? "" : "s");
}

std::string describeSize(double bytes) {
  constexpr double STEP = 1024.0;
  if (bytes < STEP) {
    return fmt::format("{} bytes", bytes);
  }
  std::string_view unit;
  for (const std::string_view larger : {"KiB", "MiB", "GiB", "TiB"}) {
    if (bytes < STEP) {
      break;
    }
    bytes /= STEP;
    unit = larger;
  }
  return fmt::format("{:.1f} {}", bytes, unit);
}

}  // namespace lum
