#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <algorithm>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <span>
#include <string_view>

namespace lum {

namespace {

constexpr std::size_t MAX_NUMBERS = 8;
constexpr std::size_t MAX_TEXT_BYTES = 80;

/// Says what a value is, with all its digits.
struct ValueText {
  std::string operator()(std::monostate /*none*/) const { return "none"; }
  std::string operator()(bool truth) const { return truth ? "yes" : "no"; }
  template <class T>
  requires std::is_arithmetic_v<T> std::string operator()(T number) const {
    return fmt::format("{}", number);
  }
  std::string operator()(const std::string& text) const {
    return text.size() <= MAX_TEXT_BYTES ? text : text.substr(0, MAX_TEXT_BYTES) + "...";
  }
  template <class T>
  std::string operator()(const std::vector<T>& numbers) const {
    const std::span<const T> first(numbers.data(), std::min(numbers.size(), MAX_NUMBERS));
    return fmt::format("({}{})", fmt::join(first, ", "), first.size() < numbers.size() ? ", ..." : "");
  }
};

std::string describeExtent(const Difference::Extent& extent) {
  const std::string place = extent.component ? fmt::format("{}[{}]", extent.index, *extent.component)
                                             : fmt::to_string(extent.index);
  return fmt::format(" ({} of {} differ, {} at {}{})", groupDigits(extent.count), groupDigits(extent.total),
                     extent.deviation ? "most" : "first", place,
                     extent.deviation ? fmt::format(", by {}", describeNumber(*extent.deviation)) : "");
}

/// Where two texts begin to differ, unless their beginnings show it.
std::string describeStart(const ComparedValue& left, const ComparedValue& right) {
  const auto* const a = std::get_if<std::string>(&left);
  const auto* const b = std::get_if<std::string>(&right);
  if (a == nullptr || b == nullptr) {
    return {};
  }
  const auto isHard = [](const std::string& text) {
    return text.size() > MAX_TEXT_BYTES ||
           std::ranges::any_of(text, [](unsigned char character) { return character < ' '; });
  };
  const auto start = std::ranges::mismatch(*a, *b).in1 - a->begin();
  return isHard(*a) || isHard(*b) ? fmt::format(" (from byte {} on)", start) : std::string();
}

}  // namespace

std::string describeDifference(const Difference& difference) {
  return fmt::format("{}: {}: {} against {}{}", difference.path.empty() ? "/" : difference.path,
                     difference.what, std::visit(ValueText(), difference.left),
                     std::visit(ValueText(), difference.right),
                     difference.extent ? describeExtent(*difference.extent)
                                       : describeStart(difference.left, difference.right));
}

}  // namespace lum
