#include "resolve/ResolvedText.h"

#include <vemo/geometry/CellKind.h>
#include <vemo/scenegraph/drawables/Drawable.h>

#include <vtkCellData.h>
#include <vtkPointData.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace vemo {

namespace {

using Json = nlohmann::ordered_json;

/// Without what roundings make of it.
Json toJson(double number) {
  constexpr double NOISE = 1e-14;
  return std::abs(number) < NOISE ? 0.0 : std::stod(fmt::format("{:.6g}", number));
}

template <std::size_t N>
Json toJson(const Vector<N, double>& vector) {
  Json list = Json::array();
  for (const double number : vector) {
    list.push_back(toJson(number));
  }
  return list;
}

/// Of many colours only the first and the last.
Json toJson(const ColorTable& table) {
  constexpr std::size_t MANY = 5;
  Json colors = Json::array();
  const std::size_t count = table.rgba.get().size() / 4;
  for (std::size_t i = 0; i < count; i += count < MANY ? 1 : count - 1) {
    const std::uint8_t* const rgba = &table.rgba.get()[4 * i];
    colors.push_back(fmt::format("{:02x}{:02x}{:02x}{:02x}", rgba[0], rgba[1], rgba[2], rgba[3]));
  }
  return {{"count", count}, {"colors", colors}, {"range", toJson(table.range)}, {"isLog10", table.isLog10}};
}

Json toJson(const Appearance& appearance) {
  return {{"hasFaces", appearance.hasFaces},
          {"hasEdges", appearance.hasEdges},
          {"hasContour", appearance.hasContour},
          {"isClipped", appearance.isClipped},
          {"edgeColor", toJson(appearance.edgeColor)},
          {"edgeOpacity", toJson(appearance.edgeOpacity)},
          {"opacity", toJson(appearance.opacity)},
          {"lineWidth", toJson(appearance.lineWidth)},
          {"pointSize", toJson(appearance.pointSize)},
          {"isPointSizeInModelUnits", appearance.isPointSizeInModelUnits},
          {"ambient", toJson(appearance.ambient)},
          {"diffuse", toJson(appearance.diffuse)},
          {"specular", toJson(appearance.specular)},
          {"specularPower", toJson(appearance.specularPower)}};
}

void addArrays(Json& text, const char* key, vtkDataSetAttributes& data) {
  for (int i = 0; i < data.GetNumberOfArrays(); ++i) {
    vtkDataArray& array = *data.GetArray(i);
    for (vtkIdType value = 0; value < array.GetNumberOfValues(); ++value) {
      text[key][array.GetName()].push_back(toJson(array.GetVariantValue(value).ToDouble()));
    }
  }
}

/// @param former the table of the mesh before
Json toJson(const MeshInstance& mesh, const ColorTable* former) {
  Json text{{"of", mesh.drawable->getName()}, {"color", toJson(mesh.color)}};
  const Json appearance = toJson(mesh.appearance);
  const Json usual = toJson(Appearance());
  for (const auto& [name, value] : appearance.items()) {
    if (value != usual[name]) {
      text[name] = value;
    }
  }
  text["points"] = mesh.geometry->GetNumberOfPoints();
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (const auto count = kind.get(*mesh.geometry)->GetNumberOfCells(); count > 0) {
      text[kind.name] = count;
    }
  }
  addArrays(text, "pointData", *mesh.geometry->GetPointData());
  addArrays(text, "cellData", *mesh.geometry->GetCellData());
  if (mesh.filling != nullptr) {
    text["filledBy"] = mesh.filling->GetNumberOfPolys();
    addArrays(text, "filledData", *mesh.filling->GetCellData());
  }
  if (mesh.scalars) {
    text["coloredBy"] = mesh.scalars->arrayName;
    text["isByCell"] = mesh.scalars->location == ScalarLocation::CELLS;
    text["table"] = mesh.scalars->table.get() == former ? "the same" : toJson(*mesh.scalars->table);
  }
  if (mesh.transforms) {
    text["instances"] = mesh.transforms->size();
    text["lastX"] = toJson(transformedPoint(&mesh.transforms->back(), {1, 0, 0}));
  }
  return text;
}

Json toJson(const TextStyle& style) {
  return {style.rgba[0], style.rgba[1], style.rgba[2], style.rgba[3]};
}

struct ContentText {
  Json operator()(const LegendDecoration& legend) const {
    constexpr int USUAL_LABELS = 5;
    Json result{{"legend", legend.title},
                {"position", toJson(legend.position)},
                {"size", toJson(legend.size)},
                {"labelFormat", legend.labelFormat},
                {"table", toJson(legend.table)}};
    if (legend.labelCount != USUAL_LABELS) {
      result["labelCount"] = legend.labelCount;
    }
    return result;
  }
  Json operator()(const TextDecoration& text) const {
    return {{"text", text.text},
            {"position", toJson(text.position)},
            {"isInModel", text.isInModel},
            {"isFramed", text.isFramed},
            {"rgba", toJson(text.style)}};
  }
  Json operator()(const ImageDecoration& image) const {
    Json result = {{"image", image.isInModel ? "in the model" : "in the window"},
                   {"corner", toJson(image.corner)}};
    if (image.opacity != 1.0) {
      result["opacity"] = image.opacity;
    }
    return result;
  }
  Json operator()(const TriadDecoration& triad) const {
    Json axes = Json::array();
    for (const Vector3& axis : triad.axes) {
      axes.push_back(toJson(axis));
    }
    Json result{{"triad", triad.labels ? Json(*triad.labels) : Json()}, {"axes", axes}};
    if (triad.labelHeight != TriadDecoration().labelHeight) {
      result["labelHeight"] = toJson(triad.labelHeight);
    }
    return result;
  }
};

/// The ground, unless it is black or white.
struct GroundText {
  std::string operator()(const SolidBackground& ground) const {
    const bool isUsual = ground.color == Vector3{0, 0, 0} || ground.color == Vector3{1, 1, 1};
    return isUsual ? "" : "ground " + toJson(ground.color).dump() + "\n";
  }
  std::string operator()(const LinearBackground& ground) const {
    return "ground " + toJson(ground.corners.front()).dump() + toJson(ground.corners.back()).dump() + "\n";
  }
  std::string operator()(const RadialBackground& ground) const {
    return "ground " + toJson(ground.center).dump() + toJson(ground.corners).dump() + "\n";
  }
};

/// A line for each of a list, or for the first of many.
template <class List>
std::string linesOf(const std::string& name, const List& list, const auto& toJson) {
  constexpr std::size_t SHOWN = 4;
  std::string lines;
  for (std::size_t i = 0; i < std::min(SHOWN, list.size()); ++i) {
    lines += "  " + name + " " + toJson(list[i]).dump() + "\n";
  }
  return list.size() <= SHOWN ? lines : lines + fmt::format("  {} in all\n", list.size());
}

std::string textOf(const ResolvedCanvas& canvas) {
  static const char* const ROLES[] = {"background", "model", "foreground", "orientation"};
  static const char* const KINDS[] = {"surface", "lines", "points"};
  std::string text =
      fmt::format("{} {} {}{}\n", ROLES[static_cast<int>(canvas.role)], toJson(canvas.lowerLeft).dump(),
                  toJson(canvas.upperRight).dump(), canvas.camera.framesAll() ? " framed" : "");
  text += linesOf("light", canvas.lights, [](const DirectionalLight& light) {
    return Json{toJson(light.color), toJson(light.intensity), toJson(light.azimuth), toJson(light.elevation)};
  });
  text += linesOf("plane", canvas.clipPlanes, [](const ClipPlane& plane) {
    return Json{toJson(plane.origin), toJson(plane.normal)};
  });
  const ColorTable* table = nullptr;
  for (const MeshInstance& mesh : canvas.meshes) {
    text +=
        fmt::format("  {} {}\n", KINDS[static_cast<int>(mesh.appearance.kind)], toJson(mesh, table).dump());
    table = mesh.scalars ? mesh.scalars->table.get() : nullptr;
  }
  return text + linesOf("decoration", canvas.decorations, [](const Decoration& decoration) {
           return std::visit(ContentText(), decoration.content);
         });
}

}  // namespace

std::string resolvedText(const ResolvedScene& scene) {
  std::string text = std::visit(GroundText(), scene.background);
  for (const ResolvedCanvas& canvas : scene.canvases) {
    text += textOf(canvas);
  }
  return text;
}

}  // namespace vemo
