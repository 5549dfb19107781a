#include "support/ArchiveBuilder.h"
#include "support/TemporaryFolder.h"
#include "vemoview/import/archive/ByteOrder.h"
#include "vemoview/import/archive/Inflate.h"
#include <vemo/base/WidePath.h>

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstring>
#include <fstream>
#include <span>
#include <vector>

namespace vemo {

namespace {

constexpr std::size_t POINTS = 1'000'000;

/// The coordinates of a wavy line: they compress as those of a surface do.
std::vector<float> coordinates() {
  std::vector<float> values;
  for (std::size_t i = 0; i < POINTS; ++i) {
    const auto x = static_cast<float>(i % 1000);
    values.insert(values.end(), {x, static_cast<float>(i) / 1000.0F, std::sin(0.05F * x)});
  }
  return values;
}

template <auto INFLATE>
void inflate(benchmark::State& state) {
  const TemporaryFolder folder;
  ArchiveBuilder::Entry entry;
  ArchiveBuilder()
      .floats("p", coordinates())
      .forge([&](ArchiveBuilder::Entry& made) { entry = made; })
      .build();
  const auto path = folder / "deflated";
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(entry.data.data()),
             static_cast<std::streamsize>(entry.data.size()));
  const ArchiveFile file(toWidePath(path.native()));
  std::vector<char> content(entry.uncompressedSize);
  for ([[maybe_unused]] const auto _ : state) {
    benchmark::DoNotOptimize(INFLATE(CompressedBytes(file, 0, file.getSize()), content));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(content.size()));
}

/// As large as the content of an entry, to be turned in place or copied.
void turnBytes(benchmark::State& state) {
  std::vector<unsigned char> bytes(POINTS * 12);
  for ([[maybe_unused]] const auto _ : state) {
    convertWords(bytes);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

/// The physical limit of whatever reads and writes as many bytes.
void copyBytes(benchmark::State& state) {
  const std::vector<unsigned char> bytes(POINTS * 12, 1);
  std::vector<unsigned char> copy(bytes.size());
  for ([[maybe_unused]] const auto _ : state) {
    std::memcpy(copy.data(), bytes.data(), bytes.size());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

BENCHMARK(inflate<inflateInBlocks>)->Name("inflate/in blocks")->Unit(benchmark::kMillisecond);
BENCHMARK(inflate<inflateWhole>)->Name("inflate/whole")->Unit(benchmark::kMillisecond);
BENCHMARK(turnBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(copyBytes)->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
