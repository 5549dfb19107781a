#include "render/RenderScene.h"
#include "vemoview/render/EglRenderWindow.h"

#include <vtkActor.h>
#include <vtkCamera.h>
#include <vtkCellData.h>
#include <vtkLogLookupTable.h>
#include <vtkLookupTable.h>
#include <vtkPlaneSource.h>
#include <vtkPointData.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>
#include <vtkUnsignedCharArray.h>

#include <cmath>
#include <gtest/gtest.h>

namespace {

using Color = Vector<3, double>;

constexpr int SIZE = RenderScene::SIZE;

struct ColoringCase {
  std::string name;
  lum::DataLocation location = lum::DataLocation::POINTS;
  lum::ScaleMode scale = lum::ScaleMode::LINEAR;
  lum::RampMode ramp = lum::RampMode::LINEAR;
  int components = 1;
};

/// A square of 8 x 8 cells with values from 0.1 to about 12, growing to the
/// right and, a little, upwards.
vtkSmartPointer<vtkPolyData> makeGrid(const ColoringCase& wanted) {
  vtkNew<vtkPlaneSource> source;
  source->SetOrigin(-0.9, -0.9, 0);
  source->SetPoint1(0.9, -0.9, 0);
  source->SetPoint2(-0.9, 0.9, 0);
  source->SetResolution(8, 8);
  source->Update();
  vtkSmartPointer<vtkPolyData> grid = source->GetOutput();
  grid->GetPointData()->Initialize();
  const bool isAtCells = wanted.location == lum::DataLocation::CELLS;
  const vtkIdType count = isAtCells ? grid->GetNumberOfCells() : grid->GetNumberOfPoints();
  const vtkIdType inRow = isAtCells ? 8 : 9;
  std::vector<float> values;
  for (vtkIdType i = 0; i < count; ++i) {
    const vtkIdType row = i / inRow;
    values.push_back(0.1F + static_cast<float>(i % inRow) * 1.4F + static_cast<float>(row) * 0.05F);
    values.resize(values.size() + static_cast<std::size_t>(wanted.components) - 1, 100.0F);
  }
  const auto array = makeArray("pressure", values, wanted.components);
  static_cast<vtkDataSetAttributes*>(isAtCells ? static_cast<vtkDataSetAttributes*>(grid->GetCellData())
                                               : grid->GetPointData())
      ->AddArray(array);
  return grid;
}

constexpr int COLORS = 5;
constexpr unsigned char COLOR_BYTES[4 * COLORS] = {0, 0,   200, 255, 0,  200, 200, 255, 0, 200,
                                                   0, 255, 220, 220, 10, 255, 200, 0,   0, 255};

/// The scene, with colours from 0.5 to 10.
void fillScene(RenderScene& scene, const ColoringCase& wanted, vtkPolyData* grid) {
  auto& surface = scene.addSurface(grid, {1, 1, 1});
  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  surface.getAttributes<lum::DataLocationAttributes>().setDataLocation(wanted.location);
  auto& scalars = surface.getAttributes<lum::ScalarAttributes>();
  scalars.getDataArray().setDataArrayName("pressure");
  auto& table = scalars.getColorLookupTable();
  std::vector<double> colors;
  for (const unsigned char byte : COLOR_BYTES) {
    colors.push_back(byte / 255.0);
  }
  table.setColorValues(colors);
  table.setNumColor(COLORS);
  table.setScalarRange({0.5, 10.0});
  table.setScaleMode(wanted.scale);
  table.setRampMode(wanted.ramp);
}

/// The same, drawn by VTK alone.
Picture drawDirectly(const ColoringCase& wanted, vtkPolyData* grid) {
  vtkSmartPointer<vtkLookupTable> table = wanted.scale == lum::ScaleMode::LOG10
                                              ? vtkSmartPointer<vtkLogLookupTable>::New().Get()
                                              : vtkSmartPointer<vtkLookupTable>::New().Get();
  vtkNew<vtkUnsignedCharArray> colors;
  colors->SetNumberOfComponents(4);
  colors->SetNumberOfTuples(COLORS);
  std::copy(std::begin(COLOR_BYTES), std::end(COLOR_BYTES), colors->GetPointer(0));
  table->SetRange(0.5, 10.0);
  table->SetTable(colors);
  table->SetRamp(static_cast<int>(wanted.ramp));
  table->SetNumberOfTableValues(COLORS);
  vtkNew<vtkPolyDataMapper> mapper;
  mapper->SetInputData(grid);
  mapper->SetLookupTable(table);
  mapper->UseLookupTableScalarRangeOn();
  if (wanted.location == lum::DataLocation::CELLS) {
    mapper->SetScalarModeToUseCellFieldData();
  } else {
    mapper->SetScalarModeToUsePointFieldData();
  }
  mapper->SelectColorArray("pressure");
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  vtkNew<vtkRenderer> renderer;
  renderer->AddActor(actor);
  vtkCamera& camera = *renderer->GetActiveCamera();
  camera.SetPosition(0, 0, 5);
  camera.ParallelProjectionOn();
  camera.SetParallelScale(1);
  const auto window = EglRenderWindow::open(SIZE, SIZE);
  window->AddRenderer(renderer);
  window->Render();
  return Picture::of(*window);
}

class ScalarColoring : public testing::TestWithParam<ColoringCase> {};

TEST_P(ScalarColoring, GivesTheColoursOfVtkWithTheSameTable) {
  const auto grid = makeGrid(GetParam());
  RenderScene scene;
  fillScene(scene, GetParam(), grid);
  const Picture picture = scene.render();
  // One step of a channel, for lights that come by different ways.
  EXPECT_EQ(countDifferences(picture, drawDirectly(GetParam(), grid), 1), 0);
  const Picture::Pixel left = picture.at(SIZE / 10, SIZE / 2);
  const Picture::Pixel right = picture.at(SIZE - SIZE / 10, SIZE / 2);
  EXPECT_GT(left[2], left[0] + 50);
  EXPECT_GT(right[0], right[2] + 50);
}

INSTANTIATE_TEST_SUITE_P(
    All, ScalarColoring,
    testing::Values(
        ColoringCase{"Points"}, ColoringCase{"Cells", lum::DataLocation::CELLS},
        ColoringCase{"Logarithmic", lum::DataLocation::CELLS, lum::ScaleMode::LOG10},
        ColoringCase{"SCurve", lum::DataLocation::CELLS, lum::ScaleMode::LINEAR, lum::RampMode::SCURVE},
        ColoringCase{"SquareRoot", lum::DataLocation::POINTS, lum::ScaleMode::LOG10, lum::RampMode::SQRT},
        ColoringCase{"TwoComponents", lum::DataLocation::CELLS, lum::ScaleMode::LINEAR, lum::RampMode::LINEAR,
                     2},
        ColoringCase{"SixComponents", lum::DataLocation::POINTS, lum::ScaleMode::LINEAR,
                     lum::RampMode::LINEAR, 6}),
    [](const auto& one) { return one.param.name; });

/// Tables that say nothing useful still give different colours to different
/// values, the low ones bluer.
TEST(ScalarColoringTable, IsMadeUpWhereItIsOfNoUse) {
  const ColoringCase cells{"", lum::DataLocation::CELLS};
  const double nan = std::nan("");
  struct {
    const char* name;
    int count;
    Vector<2, double> range;
    lum::ScaleMode scale;
  } const cases[] = {{"no colours", 0, {0.5, 10}, lum::ScaleMode::LINEAR},
                     {"no colours, logarithmic", 0, {0.5, 10}, lum::ScaleMode::LOG10},
                     {"negative count", -3, {0.5, 10}, lum::ScaleMode::LINEAR},
                     {"count beyond the colours", 1000000, {0.5, 10}, lum::ScaleMode::LINEAR},
                     {"range reversed", COLORS, {10, 0.5}, lum::ScaleMode::LINEAR},
                     {"range not a number", COLORS, {nan, 10}, lum::ScaleMode::LINEAR},
                     {"logarithm of zero", COLORS, {0, 10}, lum::ScaleMode::LOG10}};
  for (const auto& wanted : cases) {
    SCOPED_TRACE(wanted.name);
    RenderScene scene;
    fillScene(scene, cells, makeGrid(cells));
    auto& surface = static_cast<lum::SurfaceDrawable&>(
        static_cast<lum::DrawableCollection&>(scene.drawables().getNode(0)).getNode(0));
    auto& table = surface.getAttributes<lum::ScalarAttributes>().getColorLookupTable();
    table.setNumColor(wanted.count);
    table.setScalarRange(wanted.range);
    table.setScaleMode(wanted.scale);
    const Picture picture = scene.render();
    const Picture::Pixel left = picture.at(SIZE / 10, SIZE / 2);
    const Picture::Pixel right = picture.at(SIZE - SIZE / 10, SIZE / 2);
    EXPECT_GT(left[2], left[0] + 100);
    EXPECT_GT(right[0], right[2] + 100);
  }
}

TEST(ScalarColoringTable, ColoursPlainlyWithoutTheArray) {
  RenderScene scene;
  auto& surface = scene.addSurface(makeRectangle(-1, 1, -1, 1), {1, 0, 0});
  surface.getColorAttributes()->setColorMode(lum::ColorMode::DATA);
  const auto count = [&] { return countPixels(scene.render(), {255, 0, 0}); };
  EXPECT_EQ(count(), SIZE * SIZE);
  surface.getAttributes<lum::ScalarAttributes>().getDataArray().setDataArrayName("gone");
  EXPECT_EQ(count(), SIZE * SIZE);
}

}  // namespace
