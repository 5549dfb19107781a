#include "support/GraphReader.h"

#include "support/Meshes.h"
#include <vemo/base/InternalError.h>
#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkPointData.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <sstream>
#include <type_traits>

namespace vemo {

namespace {

// Arrays keep their order.
using json = nlohmann::ordered_json;

double numberOf(const json& value) {
  return value.is_string() ? std::stod(value.get<std::string>()) : value.get<double>();
}

std::vector<double> numbersOf(const json& list) {
  std::vector<double> numbers;
  std::ranges::transform(list, std::back_inserter(numbers), numberOf);
  return numbers;
}

/// Puts a value into a field.
class Setter {
 public:
  explicit Setter(const json& value) : _value(value) {}

  template <class T>
  requires std::is_arithmetic_v<T>
  void operator()(T* field) const {
    *field = _value.is_string() ? static_cast<T>(numberOf(_value)) : _value.get<T>();
  }
  void operator()(const lum::EnumerationField& field) const {
    const auto place = std::ranges::find(*field.names, _value.get<std::string>());
    VEMO_REQUIRE(place != field.names->end(), _value.dump());
    *field.value = static_cast<std::int32_t>(place - field.names->begin());
  }
  void operator()(std::string* field) const { *field = _value.get<std::string>(); }
  template <std::size_t N>
  void operator()(Vector<N, double>* field) const {
    std::ranges::copy(numbersOf(_value), field->begin());
  }
  void operator()(lum::SharedNumbers* field) const { *field = numbersOf(_value); }
  template <class T>
  void operator()(std::optional<T>* field) const {
    field->reset();
    if (!_value.is_null()) {
      (*this)(&field->emplace());
    }
  }
  void operator()(std::map<std::string, Vector3>* field) const {
    for (const auto& [key, value] : _value.items()) {
      Setter{value}(&(*field)[key]);
    }
  }
  /// Of an image.
  void operator()(vtkSmartPointer<vtkDataArray>* field) const {
    *field = makeArray<vtkUnsignedCharArray>("", _value.get<std::vector<unsigned char>>());
  }
  void operator()(auto /*field*/) const { throw std::logic_error("a field that texts cannot set"); }

 private:
  const json& _value;
};

vtkSmartPointer<vtkPolyData> meshOf(const json& fields) {
  if (fields.contains("square")) {
    const auto sides = fields["square"].get<std::array<float, 4>>();
    return makeRectangle(sides[0], sides[1], sides[2], sides[3]);
  }
  std::vector<std::array<float, 3>> points;
  for (const json& point : fields["points"]) {
    const auto place = numbersOf(point);
    points.push_back(
        {static_cast<float>(place[0]), static_cast<float>(place[1]), static_cast<float>(place[2])});
  }
  const auto cells = [&](const char* kind) { return fields.value(kind, Cells::List()); };
  return makePolyData(
      points,
      {.verts = cells("verts"), .lines = cells("lines"), .polys = cells("polys"), .strips = cells("strips")});
}

void addArrays(vtkDataSetAttributes& data, const json& arrays) {
  for (const auto& [name, values] : arrays.items()) {
    const bool isOfTuples = !values.empty() && values[0].is_array();
    const auto numbers = numbersOf(isOfTuples ? values.flatten() : values);
    data.AddArray(makeArray(name, {numbers.begin(), numbers.end()},
                            isOfTuples ? static_cast<int>(values[0].size()) : 1));
  }
}

/// Databases may have such cells, unlike poly data.
void addEmptyCells(lum::PolyDataNode& node, const json& fields) {
  lum::FieldList known;
  node.listFields(known);
  for (const lum::Field& field : known) {
    auto* const* const cells = std::get_if<vtkSmartPointer<vtkCellArray>*>(&field.value);
    if (cells != nullptr && **cells == nullptr && fields.contains(field.name)) {
      **cells = vtkSmartPointer<vtkCellArray>::New();
    }
  }
}

void setFields(lum::Node& node, const json& fields) {
  if (auto* const piece = dynamic_cast<lum::PolyDataNode*>(&node)) {
    const auto mesh = meshOf(fields);
    addArrays(*mesh->GetPointData(), fields.value("pointData", json::object()));
    addArrays(*mesh->GetCellData(), fields.value("cellData", json::object()));
    piece->setPolyData(mesh);
    addEmptyCells(*piece, fields);
    return;
  }
  lum::FieldList known;
  node.listFields(known);
  for (const auto& [name, value] : fields.items()) {
    const auto field =
        std::ranges::find(known, name, [](const lum::Field& each) { return std::string(each.name); });
    VEMO_REQUIRE(field != known.end() || name == "name", name + " of " + node.className());
    if (field != known.end()) {
      std::visit(Setter(value), field->value);
    }
  }
}

/// False if it has no empty slot for such a node.
bool putIntoSlot(lum::Node& owner, lum::Node& node) {
  lum::FieldList fields;
  owner.listFields(fields);
  return std::ranges::any_of(fields, [&](const lum::Field& field) {
    auto* const* const slot = std::get_if<lum::OwnedSlot*>(&field.value);
    return slot != nullptr && (*slot)->getNode() == nullptr && (*slot)->put(owner, &node);
  });
}

/// False if it cannot own such a node.
bool own(lum::Node& owner, lum::Node& node) {
  auto* const withAttributes = dynamic_cast<lum::AttributesOwner*>(&owner);
  auto* const canvas = dynamic_cast<lum::Canvas*>(&owner);
  auto* const collection = dynamic_cast<lum::CollectionNode*>(&owner);
  return (withAttributes != nullptr && withAttributes->getAttributesCollection().addNode(node)) ||
         (canvas != nullptr && canvas->getDrawableCollection().addNode(node)) || putIntoSlot(owner, node) ||
         (collection != nullptr && collection->addNode(node));
}

/// Those of the class that the owner has already.
lum::Node* findAttributes(lum::Node& owner, const std::string& className) {
  auto* const withAttributes = dynamic_cast<lum::AttributesOwner*>(&owner);
  return withAttributes != nullptr ? withAttributes->getAttributesCollection().find(className) : nullptr;
}

lum::Node& addNode(lum::Node& owner, const std::string& className, const std::string& name) {
  const auto node = lum::createNode(lum::ClassNameNodeInitializer(className));
  VEMO_REQUIRE(node, className);
  node->setName(name);
  VEMO_REQUIRE(own(owner, *node), className + " in " + owner.className());
  return *node;
}

lum::SceneCanvas* canvasOf(lum::SceneNode& scene, const std::string& name) {
  return name == "ModelCanvas"         ? &scene.getModelCanvas()
         : name == "ForegroundCanvas"  ? &scene.getForegroundCanvas()
         : name == "BackgroundCanvas"  ? &scene.getBackgroundCanvas()
         : name == "OrientationCanvas" ? &scene.getOrientationCanvas()
                                       : nullptr;
}

}  // namespace

void addNodes(lum::SceneNode& scene, const std::string& lines) {
  std::vector<lum::Node*> owners;
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) {
    const std::size_t indent = line.find_first_not_of(' ');
    std::istringstream words(line);
    std::string className;
    words >> className >> std::ws;
    const json fields = words.eof() ? json::object() : json::parse(words);
    owners.resize(indent / 2);
    lum::Node* node = canvasOf(scene, className);
    if (node == nullptr) {
      lum::Node& owner = owners.empty() ? scene.getModelCanvas() : *owners.back();
      node = findAttributes(owner, className);
      node = node != nullptr ? node : &addNode(owner, className, fields.value("name", className));
      setFields(*node, fields);
    }
    owners.push_back(node);
  }
}

}  // namespace vemo
