#include "support/ArchiveBuilder.h"
#include "support/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vemo {

// Whole conversions, each in a process of its own so that its memory can be
// told: "vemoscene convert ARCHIVE DATABASE". The time is that of the process,
// start and end included; "peak/entries" is its largest memory over the bytes
// of the archive's entries.

namespace {

struct Archive {
  std::filesystem::path path;
  double entryBytes = 0.0;
};

/// Seconds of processor time and bytes of memory at most.
struct Usage {
  double seconds = 0.0;
  double peakBytes = 0.0;
};

Usage convert(const std::filesystem::path& archive, const std::filesystem::path& database) {
  std::vector<std::string> words{VEMOSCENE_PROGRAM, "convert", archive, database};
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  pid_t process = 0;
  int status = -1;
  rusage usage{};
  if (posix_spawn(&process, VEMOSCENE_PROGRAM, nullptr, nullptr, arguments.data(), environ) != 0 ||
      wait4(process, &status, 0, &usage) != process || status != 0) {
    return {};
  }
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
  };
  return {seconds(usage.ru_utime) + seconds(usage.ru_stime), 1024.0 * static_cast<double>(usage.ru_maxrss)};
}

/// Runs a function in a process of its own: what a process has ever held counts
/// as the largest memory of those that it starts.
template <class Function>
void runApart(Function&& function) {
  const pid_t process = fork();
  if (process == 0) {
    function();
    _exit(0);
  }
  waitpid(process, nullptr, 0);
}

void measure(benchmark::State& state, const Archive& archive, const std::filesystem::path& folder) {
  double peakBytes = 0.0;
  for ([[maybe_unused]] const auto _ : state) {
    const Usage usage = convert(archive.path, folder / "scene.sdb");
    if (usage.seconds == 0.0) {
      state.SkipWithError("the conversion failed");
      return;
    }
    state.SetIterationTime(usage.seconds);
    peakBytes = usage.peakBytes;
  }
  state.counters["peakMB"] = peakBytes / 1e6;
  state.counters["peak/entries"] = peakBytes / archive.entryBytes;
}

const std::string SCENE_HEAD = R"(<scene name="s" version="1" background="ffffffff">)";

std::string geometryElement(const std::string& name, const std::string& points, const std::string& polys) {
  return "<geometry name=\"" + name +
         "\" visibility=\"1\" lineColor=\"000000ff\" faceColor=\"c0c0c0ff\" lineWidth=\"1\" "
         "showFaces=\"true\""
         " smoothShading=\"true\" points=\"" +
         points + "\" polys=\"" + polys + "\"/>";
}

/// A number of boxes, a hundred to an assembly, which share their two entries.
void manyItems(benchmark::State& state) {
  const TemporaryFolder folder;
  std::string xml = SCENE_HEAD;
  for (int i = 0; i < state.range(0); ++i) {
    if (i % 100 == 0) {
      xml +=
          (i == 0 ? "" : "</assembly>") + ("<assembly name=\"a" + std::to_string(i)) + "\" visibility=\"1\">";
    }
    xml += geometryElement("g" + std::to_string(i), "p.bin", "c.bin");
  }
  xml += "</assembly></scene>";
  const Archive archive{folder.path() / "scene.zip", static_cast<double>(xml.size()) + 96 + 120};
  ArchiveBuilder()
      .text("scene.xml", xml)
      .floats("p.bin", {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 0, 0, 1, 1, 0, 1, 1, 1, 1, 0, 1, 1})
      .ints("c.bin",
            {4, 0, 3, 2, 1, 4, 4, 5, 6, 7, 4, 0, 1, 5, 4, 4, 1, 2, 6, 5, 4, 2, 3, 7, 6, 4, 3, 0, 4, 7})
      .write(archive.path);
  measure(state, archive, folder.path());
}
BENCHMARK(manyItems)->Arg(50000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// As many entries, half of them used, two to a geometry.
void manyEntries(benchmark::State& state) {
  const TemporaryFolder folder;
  ArchiveBuilder builder;
  std::string xml = SCENE_HEAD + "<assembly name=\"a\" visibility=\"1\">";
  for (int i = 0; i < state.range(0) / 2; ++i) {
    const std::string number = std::to_string(i);
    builder.floats("p" + number, {0, 0, 0, 1, 0, 0, 0, 1, 0}).ints("c" + number, {3, 0, 1, 2});
    if (i % 2 == 0) {
      xml += geometryElement("g" + number, "p" + number, "c" + number);
    }
  }
  xml += "</assembly></scene>";
  const Archive archive{folder.path() / "scene.zip",
                        static_cast<double>(xml.size()) + 26.0 * static_cast<double>(state.range(0))};
  builder.text("scene.xml", xml).write(archive.path);
  measure(state, archive, folder.path());
}
BENCHMARK(manyEntries)->Arg(50000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Writes one wavy surface of 2 x side x side triangles.
void writeSurface(const std::filesystem::path& path, int side) {
  std::vector<float> points;
  std::vector<int> polys;
  for (int y = 0; y <= side; ++y) {
    for (int x = 0; x <= side; ++x) {
      const auto height =
          0.1F * std::sin(0.05F * static_cast<float>(x)) * std::cos(0.07F * static_cast<float>(y));
      points.insert(points.end(), {static_cast<float>(x), static_cast<float>(y), height});
      if (x < side && y < side) {
        const int corner = y * (side + 1) + x;
        polys.insert(polys.end(), {3, corner, corner + 1, corner + side + 2});
        polys.insert(polys.end(), {3, corner, corner + side + 2, corner + side + 1});
      }
    }
  }
  ArchiveBuilder()
      .text("scene.xml", SCENE_HEAD + "<assembly name=\"a\" visibility=\"1\">" +
                             geometryElement("surface", "p.bin", "c.bin") + "</assembly></scene>")
      .floats("p.bin", points)
      .ints("c.bin", polys)
      .write(path);
}

void manyTriangles(benchmark::State& state) {
  const TemporaryFolder folder;
  const int side = static_cast<int>(std::sqrt(static_cast<double>(state.range(0)) / 2.0));
  const double pointBytes = 12.0 * (side + 1) * (side + 1);
  const double polygonBytes = 32.0 * side * side;
  const Archive archive{folder / "scene.zip", pointBytes + polygonBytes};
  runApart([&] { writeSurface(archive.path, side); });
  measure(state, archive, folder.path());
}
BENCHMARK(manyTriangles)->Arg(4500000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace vemo
