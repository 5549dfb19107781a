#include "BlockData.h"

#include "FieldDataWriter.h"
#include "geometry/drawing/DrawableCells.h"
#include "scenegraph/coloring/ColoringScalars.h"
#include "vemoview/common/VtkForms.h"
#include "vemoview/resolve/mesh/AppearanceResolver.h"
#include <vemo/scenegraph/coloring/ColorTable.h>

#include <vtkCellData.h>
#include <vtkFieldData.h>
#include <vtkLookupTable.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPolyData.h>
#include <vtkReverseSense.h>
#include <vtkTransform.h>
#include <vtkTransformPolyDataFilter.h>
#include <vtkUnsignedCharArray.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vemo {

struct BlockColors {
  UsableColorTables tables;
  VtkColors forms;
};

namespace {

constexpr const char* COLORS = "Colors";
constexpr int RGB_CHANNELS = 3;

/// The array that colours a block.
struct BlockScalars {
  vtkDataArray* values;
  bool isOfCells;
  ColorTable table;
  /// The table's, which other blocks may share.
  vtkUnsignedCharArray& rgba;
};

std::optional<BlockScalars> findScalars(const lum::GeometryDrawable& drawable, vtkPolyData& data,
                                        BlockColors& colors) {
  const auto* const scalars = lum::findColoringScalars(drawable);
  if (scalars == nullptr) {
    return std::nullopt;
  }
  const bool isOfCells = lum::coloringLocation(drawable) == lum::DataLocation::CELLS;
  vtkDataSetAttributes* const attributes =
      isOfCells ? static_cast<vtkDataSetAttributes*>(data.GetCellData()) : data.GetPointData();
  vtkDataArray* const values = attributes->GetArray(scalars->hasDataArray()->getDataArrayName().c_str());
  if (values == nullptr) {
    return std::nullopt;
  }
  attributes->SetActiveScalars(values->GetName());
  ColorTable table = colors.tables.make(*scalars->hasColorLookupTable()).table;
  vtkUnsignedCharArray& rgba = colors.forms.get(table.rgba);
  return BlockScalars{values, isOfCells, std::move(table), rgba};
}

std::uint8_t toByte(double channel) {
  return static_cast<std::uint8_t>(std::lround(channel * 255.0));
}

void addColors(vtkPolyData& data, const Vector3& plain, const std::optional<BlockScalars>& scalars) {
  vtkSmartPointer<vtkUnsignedCharArray> colors;
  if (scalars) {
    colors.TakeReference(makeVtkLookupTable(scalars->table, scalars->rgba)
                             ->MapScalars(scalars->values, VTK_COLOR_MODE_MAP_SCALARS, 0, VTK_RGB));
  } else {
    colors = vtkSmartPointer<vtkUnsignedCharArray>::New();
    colors->SetNumberOfComponents(RGB_CHANNELS);
    colors->SetNumberOfTuples(data.GetNumberOfPoints());
    for (int channel = 0; channel < RGB_CHANNELS; ++channel) {
      colors->FillComponent(channel, toByte(plain[static_cast<std::size_t>(channel)]));
    }
  }
  colors->SetName(COLORS);
  vtkDataSetAttributes* const attributes = scalars && scalars->isOfCells
                                               ? static_cast<vtkDataSetAttributes*>(data.GetCellData())
                                               : data.GetPointData();
  attributes->AddArray(colors);
}

std::string nameOf(Appearance::Kind kind) {
  return kind == Appearance::Kind::SURFACE ? "surface" : kind == Appearance::Kind::LINES ? "lines" : "points";
}

void describe(vtkPolyData& data, const SceneBlock& block, const Appearance& appearance, const Vector3& color,
              const std::optional<BlockScalars>& scalars) {
  FieldDataWriter fields(*data.GetFieldData());
  fields.add("Path", {joinPath(block.path)});
  fields.add("Kind", {nameOf(appearance.kind)});
  fields.add("Color", color);
  fields.add("Opacity", appearance.opacity);
  fields.add("LineWidth", appearance.lineWidth);
  fields.add("PointSize", appearance.pointSize);
  if (appearance.kind == Appearance::Kind::SURFACE) {
    fields.add("Faces", appearance.hasFaces ? 1.0 : 0.0);
    fields.add("Edges", appearance.hasEdges ? 1.0 : 0.0);
    fields.add("EdgeColor", appearance.edgeColor);
  }
  if (scalars) {
    fields.add("ColorArray", {std::string(scalars->values->GetName())});
    fields.add("ColorTable", scalars->rgba);
    fields.add("ColorRange", scalars->table.range);
    fields.add("ColorLog10", scalars->table.isLog10 ? 1.0 : 0.0);
  }
}

vtkSmartPointer<vtkPolyData> geometryOf(const SceneBlock& block) {
  const auto data = block.node->getPolyData();
  // ParaView shows no points without cells.
  const bool hasPointsOnly = kindOf(*block.drawable) == Appearance::Kind::POINTS &&
                             data->GetNumberOfCells() == 0 && data->GetNumberOfPoints() > 0;
  return hasPointsOnly ? pointsAsVertices(*data) : drawableCells(*data);
}

bool isIdentity(const InstanceTransform* matrix) {
  constexpr InstanceTransform IDENTITY{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  return matrix == nullptr || *matrix == IDENTITY;
}

vtkSmartPointer<vtkPolyData> transformed(vtkPolyData& data, const InstanceTransform& matrix) {
  const vtkNew<vtkTransform> transform;
  transform->SetMatrix(matrix.data());
  const vtkNew<vtkTransformPolyDataFilter> filter;
  filter->SetInputData(&data);
  filter->SetTransform(transform);
  filter->Update();
  if (transform->GetMatrix()->Determinant() > 0.0) {
    return filter->GetOutput();
  }
  // Cells of a mirror image have the other sense, and what they have is shared: with
  // normals of the other sense both agree again.
  const vtkNew<vtkReverseSense> reverse;
  reverse->SetInputData(filter->GetOutput());
  reverse->ReverseCellsOff();
  reverse->ReverseNormalsOn();
  reverse->Update();
  return reverse->GetOutput();
}

}  // namespace

std::shared_ptr<BlockColors> makeBlockColors() {
  return std::make_shared<BlockColors>();
}

std::vector<vtkSmartPointer<vtkPolyData>> makeBlockData(const SceneBlock& block, BlockColors& colors,
                                                        bool withColors) {
  const vtkSmartPointer<vtkPolyData> data = geometryOf(block);
  const Appearance appearance = resolveAppearance(*block.drawable, kindOf(*block.drawable));
  const Vector3 color = resolveColor(*block.drawable, appearance.kind, block.node->getName());
  const auto scalars = findScalars(*block.drawable, *data, colors);
  if (withColors) {
    addColors(*data, color, scalars);
  }
  describe(*data, block, appearance, color, scalars);
  std::vector<vtkSmartPointer<vtkPolyData>> instances;
  forEachInstance(block.transforms, [&](const InstanceTransform* matrix) {
    instances.push_back(isIdentity(matrix) ? data : transformed(*data, *matrix));
  });
  return instances;
}

}  // namespace vemo
