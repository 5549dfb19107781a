// Scene streams of up to two messages, with the right hashes: the second may
// change what the first one made. The input is the messages, behind 4 bytes:
// the size of the first.

#include "Fuzzing.h"
#include "support/SampleGraphs.h"
#include <vemo/scenegraph/io/FileError.h>

#include <algorithm>
#include <cstring>
#include <xxhash.h>

namespace vemo {

namespace {

constexpr std::size_t SIGNATURE_SIZE = 8;
constexpr std::size_t FRAME_SIZE = 16;

void appendMessage(std::string& scene, const std::string& message) {
  const std::uint64_t frame[] = {message.size(), XXH3_64bits(message.data(), message.size())};
  scene.append(reinterpret_cast<const char*>(frame), sizeof frame).append(message);
}

std::string takeMessage(lum::NodeOutputStream& out) {
  std::ostringstream scene;
  out.takeScene(scene);
  return scene.str().substr(SIGNATURE_SIZE + FRAME_SIZE);
}

std::string makeSample() {
  const auto scene = makeScene();
  auto& drawables = scene->getModelCanvas().getDrawableCollection();
  lum::NodeOutputStream out;
  scene->write(out);
  const std::string whole = takeMessage(out);
  drawables.find<lum::SurfaceDrawable>()->getColorAttributes()->setOpacity(0.5, false);
  drawables.findOrCreate<lum::DrawableCollection>("group");
  scene->writeChanges(out);
  const auto size = static_cast<std::uint32_t>(whole.size());
  return std::string(reinterpret_cast<const char*>(&size), 4) + whole + takeMessage(out);
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned /*seed*/) {
  static const std::string sample = makeSample();
  return mutate(sample, data, size, maximumSize);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::uint32_t first = 0;
  if (size < sizeof first) {
    return 0;
  }
  std::memcpy(&first, data, sizeof first);
  const std::string messages(reinterpret_cast<const char*>(data) + 4, size - 4);
  const std::size_t split = std::min<std::size_t>(first, messages.size());
  std::string scene = "LUMSCN1\n";
  appendMessage(scene, messages.substr(0, split));
  appendMessage(scene, messages.substr(split));
  lum::NodeInputStream stream(lum::NO_SESSION);
  std::istringstream in(scene);
  try {
    stream.readScene(in);
    for (const auto& root : stream.getRoots()) {
      requireRoundTrip(*root);
    }
  } catch (const lum::io::FileError& error) {
    require(error.what()[0] != '\0', "An error without a text");
  }
  return 0;
}

}  // namespace vemo
