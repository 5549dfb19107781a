#include "FieldText.h"

#include "Messages.h"
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <string_view>

namespace vemo {

namespace {

struct EnumerationNames {
  std::string_view className;
  std::string_view field;
  std::vector<std::string_view> names;
};

/// The enumerators by number, as a person calls them.
const std::vector<EnumerationNames>& enumerationTable() {
  static const std::vector<EnumerationNames> table = {
      {"AnnotationAttributes", "coordinateSpace", {"window", "model"}},
      {"AnnotationAttributes", "horizontalAlignment", {"left", "center", "right"}},
      {"AnnotationAttributes", "verticalAlignment", {"bottom", "center", "top"}},
      {"BackgroundAttributes",
       "colorMode",
       {"solid", "top to bottom", "bottom to top", "left to right", "right to left", "radial"}},
      {"CameraAttributes", "projectionMode", {"perspective", "parallel"}},
      {"ColorAttributes", "colorMode", {"plain", "by key", "by data"}},
      {"ColorLookupTable", "colorSpace", {"RGB", "RGBA"}},
      {"ColorLookupTable", "scaleMode", {"linear", "logarithmic"}},
      {"ColorLookupTable", "rampMode", {"linear", "s-curve", "square root"}},
      {"DataLocationAttributes", "dataLocation", {"cells", "points"}},
      {"ImageAttributes", "coordinateSpace", {"window", "model"}},
      {"LegendAttributes", "orientation", {"vertical", "horizontal"}},
      {"PointScaleAttributes", "scaleMode", {"constant", "linear", "logarithmic"}},
  };
  return table;
}

std::string describeEnumerator(const lum::Node& node, std::string_view field, std::int32_t value) {
  for (const EnumerationNames& entry : enumerationTable()) {
    const auto index = static_cast<std::size_t>(value);
    if (entry.className == node.className() && entry.field == field && index < entry.names.size()) {
      return std::string(entry.names[index]);
    }
  }
  return std::to_string(value);
}

std::string describeNumber(double number) {
  return fmt::format("{:.6g}", number);
}

std::string describeInterval(double low, double high) {
  return fmt::format("{} .. {}", describeNumber(low), describeNumber(high));
}

template <class Numbers>
std::string describeNumbers(const Numbers& numbers) {
  std::string text;
  for (const double number : numbers) {
    text += (text.empty() ? "" : ", ") + describeNumber(number);
  }
  return "(" + text + ")";
}

bool isColorName(std::string_view field) {
  return field.find("color") != std::string_view::npos || field.find("Color") != std::string_view::npos;
}

bool isColor(std::string_view field, const Vector<3, double>& value) {
  const auto isChannel = [](double channel) { return channel >= 0.0 && channel <= 1.0; };
  return isColorName(field) && std::ranges::all_of(value, isChannel);
}

/// Says what one field of a node holds, whatever its kind.
class Describer {
 public:
  Describer(const lum::Node& node, std::string_view field) : _node(node), _field(field) {}

  std::string operator()(const bool* truth) const { return *truth ? "yes" : "no"; }
  std::string operator()(const std::int32_t* number) const { return std::to_string(*number); }
  std::string operator()(const std::uint32_t* number) const {
    return isColorName(_field) ? fmt::format("#{:08x}", *number) : std::to_string(*number);
  }
  std::string operator()(const float* number) const { return describeNumber(*number); }
  std::string operator()(const double* number) const { return describeNumber(*number); }
  std::string operator()(const lum::EnumerationField& field) const {
    return describeEnumerator(_node, _field, *field.value);
  }
  std::string operator()(const std::string* text) const { return fmt::format("\"{}\"", toPrintable(*text)); }

  template <std::size_t N>
  std::string operator()(const Vector<N, double>* vector) const {
    return describeNumbers(*vector);
  }
  std::string operator()(const Vector<3, double>* vector) const {
    if (!isColor(_field, *vector)) {
      return describeNumbers(*vector);
    }
    const auto byte = [&](std::size_t channel) { return std::lround((*vector)[channel] * 255.0); };
    return fmt::format("#{:02x}{:02x}{:02x}", byte(0), byte(1), byte(2));
  }

  std::string operator()(const std::vector<double>* numbers) const {
    constexpr std::size_t FEW = 4;
    return numbers->size() <= FEW ? describeNumbers(*numbers)
                                  : fmt::format("{} numbers", groupDigits(std::ssize(*numbers)));
  }
  template <class T>
  std::string operator()(const std::optional<T>* optional) const {
    return optional->has_value() ? (*this)(&**optional) : std::string();
  }
  std::string operator()(const std::map<std::string, Vector<3, double>>* table) const {
    constexpr std::size_t FEW = 4;
    std::vector<std::string> texts;
    for (const auto& [key, value] : *table) {
      if (texts.size() == FEW) {
        texts.push_back(fmt::format("{} more", groupDigits(std::ssize(*table) - std::ssize(texts))));
        break;
      }
      texts.push_back(fmt::format("\"{}\" {}", toPrintable(key), (*this)(&value)));
    }
    return texts.empty() ? std::string() : fmt::format("({})", fmt::join(texts, ", "));
  }
  std::string operator()(const lum::ReferenceSlot* slot) const {
    const lum::Node* const node = slot->getNode();
    return node == nullptr ? std::string() : fmt::format("-> \"{}\"", toPrintable(node->getName()));
  }

  std::string operator()(const vtkSmartPointer<vtkDataArray>*) const { return {}; }
  std::string operator()(const vtkSmartPointer<vtkCellArray>*) const { return {}; }
  std::string operator()(const lum::ArrayTable*) const { return {}; }
  std::string operator()(const lum::OwnedSlot*) const { return {}; }
  std::string operator()(const lum::CollectionNode*) const { return {}; }

 private:
  const lum::Node& _node;
  std::string_view _field;
};

}  // namespace

std::string describeField(const lum::Node& node, const lum::Field& field) {
  return std::visit(Describer(node, field.name), field.value);
}

std::string describeFields(const lum::Node& node) {
  std::string text;
  for (const lum::Field& field : node.getFields()) {
    const std::string value = describeField(node, field);
    if (!value.empty()) {
      text += fmt::format("{}{} {}", text.empty() ? "" : ", ", field.name, value);
    }
  }
  return text;
}

std::string describeType(const vtkDataArray& array) {
  auto& mutableArray = const_cast<vtkDataArray&>(array);
  const int type = mutableArray.GetDataType();
  const bool isFloat = type == VTK_FLOAT || type == VTK_DOUBLE;
  const bool isSigned = mutableArray.GetDataTypeMin() < 0;
  const std::string name = fmt::format("{}{}",
                                       isFloat    ? "float"
                                       : isSigned ? "int"
                                                  : "uint",
                                       8 * mutableArray.GetDataTypeSize());
  const int components = mutableArray.GetNumberOfComponents();
  return components == 1 ? name : fmt::format("{} x {}", name, components);
}

std::string describeRange(vtkDataArray& array) {
  constexpr int LENGTHS = -1;
  const int components = array.GetNumberOfComponents();
  const auto describe = [&array](int component) {
    std::array<double, 2> range{};
    array.GetFiniteRange(range.data(), component);
    return range[0] <= range[1] ? describeInterval(range[0], range[1]) : std::string("none finite");
  };
  switch (components) {
    case 1:
      return describe(0);
    case 3:
      return fmt::format("x {}, y {}, z {}", describe(0), describe(1), describe(2));
    default:
      return "length " + describe(LENGTHS);
  }
}

std::string groupDigits(std::int64_t count) {
  std::string digits = std::to_string(count);
  for (auto at = std::ssize(digits) - 3; at > (count < 0 ? 1 : 0); at -= 3) {
    digits.insert(static_cast<std::size_t>(at), 1, ',');
  }
  return digits;
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

}  // namespace vemo
