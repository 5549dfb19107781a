#include "geometry/Connectivity.h"

#include <vtkCellArray.h>
#include <vtkIdTypeArray.h>
#include <vtkNew.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>
#include <vector>

namespace vemo {

namespace {

constexpr std::int32_t TRIANGLES = 1'000'000;

/// A list of triangles whose points lie near one another in memory, as in a
/// scene.
std::vector<std::int32_t> triangleList() {
  std::vector<std::int32_t> list;
  list.reserve(std::size_t{4} * TRIANGLES);
  for (std::int32_t i = 0; i < TRIANGLES; ++i) {
    list.insert(list.end(), {3, i, i + 1, i + 2});
  }
  return list;
}

EntryBlock blockOf(const std::vector<std::int32_t>& list) {
  EntryBlock block(new unsigned char[list.size() * sizeof(std::int32_t)]);
  std::memcpy(block.get(), list.data(), list.size() * sizeof(std::int32_t));
  return block;
}

void reportIntegers(benchmark::State& state, std::size_t integers) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(integers * sizeof(std::int32_t)));
}

void countCells(benchmark::State& state) {
  const auto list = triangleList();
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(vemo::countCells(list));
  }
  reportIntegers(state, list.size());
}

void importCells(benchmark::State& state) {
  const auto list = triangleList();
  for ([[maybe_unused]] const auto _ : state) {
    state.PauseTiming();
    auto block = blockOf(list);
    state.ResumeTiming();
    auto imported = vemo::importCells(std::move(block), static_cast<std::int32_t>(list.size()),
                                      CellKind::POLYS, TRIANGLES + 2);
    benchmark::DoNotOptimize(imported);
    state.PauseTiming();
    imported.cells = nullptr;
    state.ResumeTiming();
  }
  reportIntegers(state, list.size());
}

/// VTK's own way from such a list to cells, which copies it twice and checks
/// nothing.
void importWithVtk(benchmark::State& state) {
  const auto list = triangleList();
  for ([[maybe_unused]] const auto _ : state) {
    vtkNew<vtkIdTypeArray> ids;
    ids->SetNumberOfValues(static_cast<vtkIdType>(list.size()));
    std::copy(list.begin(), list.end(), ids->GetPointer(0));
    vtkNew<vtkCellArray> cells;
    cells->ImportLegacyFormat(ids);
    benchmark::DoNotOptimize(cells->GetNumberOfCells());
  }
  reportIntegers(state, list.size());
}

BENCHMARK(countCells)->Unit(benchmark::kMillisecond);
BENCHMARK(importCells)->Unit(benchmark::kMillisecond);
BENCHMARK(importWithVtk)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
