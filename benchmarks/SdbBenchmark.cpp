#include "ManyItems.h"
#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace vemo {

namespace {

/// A file for one run; gone with it.
struct File {
  ~File() { std::filesystem::remove(path); }
  std::wstring wide() const { return toWidePath(path.native()); }
  const std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("vemo-benchmark-" + std::to_string(getpid()) + ".sdb");
};

void writeDatabase(const File& file, lum::Node& node) {
  lum::SDBWriter writer;
  int number = 0;
  writer.open(file.wide(), false, false);
  writer.addRecord("title", "description", "simUUID", node, number);
  writer.close();
}

void writeSmallGeometries(benchmark::State& state) {
  const auto scene = makeManyItems(state.range(0));
  const File file;
  for ([[maybe_unused]] const auto _ : state) {
    writeDatabase(file, *scene);
  }
  lum::SDBReader reader(file.wide());
  const auto arrays = reader.getArrays();
  const auto items = static_cast<double>(state.range(0));
  double arrayBytes = 0;
  for (const auto& array : arrays) {
    arrayBytes += static_cast<double>(array.bytes);
  }
  const std::uint64_t end = arrays.back().offset + arrays.back().bytes;
  state.counters["array bytes/item"] = arrayBytes / items;
  state.counters["index bytes/item"] =
      static_cast<double>(std::filesystem::file_size(file.path) - end) / items;
}
BENCHMARK(writeSmallGeometries)->Arg(10'000)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);

void readSmallGeometries(benchmark::State& state) {
  const File file;
  writeDatabase(file, *makeManyItems(state.range(0)));
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(lum::SDBReader(file.wide()).readNode(0));
  }
}
BENCHMARK(readSmallGeometries)->Arg(10'000)->Arg(20'000)->Arg(40'000)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
