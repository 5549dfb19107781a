#include <vemo/base/PrintableText.h>
#include <vemo/scenegraph/CollectionNode.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/inspect/FieldText.h>
#include <vemo/scenegraph/inspect/NumberText.h>

#include <vtkCellArray.h>
#include <vtkDataArray.h>
#include <vtkSmartPointer.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>
#include <string_view>

namespace lum {

namespace {

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

bool isColor(std::string_view field, const Vector3& value) {
  const auto isChannel = [](double channel) { return channel >= 0.0 && channel <= 1.0; };
  return isColorName(field) && std::ranges::all_of(value, isChannel);
}

/// Says what one field of a node holds, whatever its kind.
class Describer {
 public:
  explicit Describer(std::string_view field) : _field(field) {}

  std::string operator()(const bool* truth) const { return *truth ? "yes" : "no"; }
  std::string operator()(const std::int32_t* number) const { return std::to_string(*number); }
  std::string operator()(const std::uint32_t* number) const {
    return isColorName(_field) ? fmt::format("#{:08x}", *number) : std::to_string(*number);
  }
  std::string operator()(const float* number) const { return describeNumber(*number); }
  std::string operator()(const double* number) const { return describeNumber(*number); }
  std::string operator()(const EnumerationField& field) const {
    const bool hasName = *field.value >= 0 && *field.value < field.count();
    return hasName ? (*field.names)[static_cast<std::size_t>(*field.value)] : std::to_string(*field.value);
  }
  std::string operator()(const std::string* text) const {
    return fmt::format("\"{}\"", vemo::toPrintableLine(*text));
  }

  template <std::size_t N>
  std::string operator()(const Vector<N, double>* vector) const {
    return describeNumbers(*vector);
  }
  std::string operator()(const Vector3* vector) const {
    if (!isColor(_field, *vector)) {
      return describeNumbers(*vector);
    }
    const auto byte = [&](std::size_t channel) { return std::lround((*vector)[channel] * 255.0); };
    return fmt::format("#{:02x}{:02x}{:02x}", byte(0), byte(1), byte(2));
  }

  std::string operator()(const SharedNumbers* shared) const {
    const std::vector<double>* const numbers = &shared->get();
    constexpr std::size_t FEW = 4;
    return numbers->size() <= FEW ? describeNumbers(*numbers)
                                  : fmt::format("{} numbers", groupDigits(std::ssize(*numbers)));
  }
  template <class T>
  std::string operator()(const std::optional<T>* optional) const {
    return optional->has_value() ? (*this)(&**optional) : std::string();
  }
  std::string operator()(const std::map<std::string, Vector3>* table) const {
    constexpr std::size_t FEW = 4;
    std::vector<std::string> texts;
    for (const auto& [key, value] : *table) {
      if (texts.size() == FEW) {
        texts.push_back(fmt::format("{} more", groupDigits(std::ssize(*table) - std::ssize(texts))));
        break;
      }
      texts.push_back(fmt::format("\"{}\" {}", vemo::toPrintableLine(key), (*this)(&value)));
    }
    return texts.empty() ? std::string() : fmt::format("({})", fmt::join(texts, ", "));
  }
  std::string operator()(const ReferenceSlot* slot) const {
    const Node* const node = slot->getNode();
    return node == nullptr ? std::string() : fmt::format("-> \"{}\"", vemo::toPrintableLine(node->getName()));
  }

  std::string operator()(const vtkSmartPointer<vtkDataArray>*) const { return {}; }
  std::string operator()(const vtkSmartPointer<vtkCellArray>*) const { return {}; }
  std::string operator()(const ArrayTable*) const { return {}; }
  std::string operator()(const OwnedSlot*) const { return {}; }
  std::string operator()(const CollectionNode*) const { return {}; }

 private:
  std::string_view _field;
};

}  // namespace

std::string describeField(const Field& field) {
  return std::visit(Describer(field.name), field.value);
}

std::string describeFields(const Node& node) {
  std::string text;
  for (const Field& field : node.getFields()) {
    const std::string value = describeField(field);
    if (!value.empty()) {
      text += fmt::format("{}{} {}", text.empty() ? "" : ", ", field.name, value);
    }
  }
  return text;
}

}  // namespace lum
