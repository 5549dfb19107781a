#include "geometry/Normals.h"

#include <vtkCellArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataNormals.h>
#include <vtkSmartPointer.h>

#include <benchmark/benchmark.h>
#include <cmath>

namespace vemo {

namespace {

constexpr int SIDE = 708;  ///< of a grid of squares: 1,002,528 triangles

vtkSmartPointer<vtkPoints> wavyGrid() {
  auto points = vtkSmartPointer<vtkPoints>::New();
  points->SetNumberOfPoints(vtkIdType{SIDE + 1} * (SIDE + 1));
  vtkIdType next = 0;
  for (int row = 0; row <= SIDE; ++row) {
    for (int column = 0; column <= SIDE; ++column) {
      points->SetPoint(next++, column, row, 5.0 * std::sin(0.1 * column) * std::cos(0.07 * row));
    }
  }
  return points;
}

vtkSmartPointer<vtkPolyData> meshOfTriangles() {
  vtkNew<vtkCellArray> polys;
  polys->Use32BitStorage();
  for (vtkIdType row = 0; row < SIDE; ++row) {
    for (vtkIdType column = 0; column < SIDE; ++column) {
      const vtkIdType corner = row * (SIDE + 1) + column;
      polys->InsertNextCell({corner, corner + 1, corner + SIDE + 2});
      polys->InsertNextCell({corner, corner + SIDE + 2, corner + SIDE + 1});
    }
  }
  auto mesh = vtkSmartPointer<vtkPolyData>::New();
  mesh->SetPoints(wavyGrid());
  mesh->SetPolys(polys);
  return mesh;
}

vtkSmartPointer<vtkPolyData> meshOfStrips() {
  vtkNew<vtkCellArray> strips;
  strips->Use32BitStorage();
  for (vtkIdType row = 0; row < SIDE; ++row) {
    strips->InsertNextCell(2 * (SIDE + 1));
    for (vtkIdType column = 0; column <= SIDE; ++column) {
      strips->InsertCellPoint((row + 1) * (SIDE + 1) + column);
      strips->InsertCellPoint(row * (SIDE + 1) + column);
    }
  }
  auto mesh = vtkSmartPointer<vtkPolyData>::New();
  mesh->SetPoints(wavyGrid());
  mesh->SetStrips(strips);
  return mesh;
}

using MakeMesh = vtkSmartPointer<vtkPolyData> (*)();

template <auto COMPUTE, MakeMesh MAKE>
void ours(benchmark::State& state) {
  const auto mesh = MAKE();
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(COMPUTE(*mesh));
  }
}

template <bool AT_POINTS, MakeMesh MAKE>
void filter(benchmark::State& state) {
  const auto mesh = MAKE();
  for ([[maybe_unused]] const auto _ : state) {
    vtkNew<vtkPolyDataNormals> normals;
    normals->SetInputData(mesh);
    normals->SplittingOff();
    normals->ConsistencyOff();
    normals->SetComputePointNormals(AT_POINTS);
    normals->SetComputeCellNormals(!AT_POINTS);
    normals->Update();
    benchmark::DoNotOptimize(normals->GetOutput());
  }
}

BENCHMARK(ours<pointNormals, meshOfTriangles>)->Name("pointNormals/triangles")->Unit(benchmark::kMillisecond);
BENCHMARK(filter<true, meshOfTriangles>)
    ->Name("vtkPolyDataNormals/points/triangles")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ours<cellNormals, meshOfTriangles>)->Name("cellNormals/triangles")->Unit(benchmark::kMillisecond);
BENCHMARK(filter<false, meshOfTriangles>)
    ->Name("vtkPolyDataNormals/cells/triangles")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ours<pointNormals, meshOfStrips>)->Name("pointNormals/strips")->Unit(benchmark::kMillisecond);
BENCHMARK(filter<true, meshOfStrips>)
    ->Name("vtkPolyDataNormals/points/strips")
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
