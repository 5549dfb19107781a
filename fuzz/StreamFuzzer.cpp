// Scene streams of two messages, with the right hashes: the second may change
// what the first one made. The parts of the input are the messages.

#include "Fuzzing.h"
#include "support/Databases.h"
#include "support/SampleGraphs.h"
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>

#include <sstream>

namespace vemo {

namespace {

constexpr std::size_t SIGNATURE_SIZE = 8;
constexpr std::size_t FRAME_SIZE = 16;

std::string framed(const std::string& message) {
  const std::uint64_t frame[] = {message.size(), hashOfPart(message.data(), message.size())};
  return std::string(reinterpret_cast<const char*>(frame), sizeof frame) + message;
}

std::string takeMessage(lum::NodeOutputStream& out) {
  std::ostringstream scene;
  out.takeScene(scene);
  return scene.str().substr(SIGNATURE_SIZE + FRAME_SIZE);
}

}  // namespace

FuzzInput makeSample() {
  const auto scene = makeScene();
  lum::NodeOutputStream out;
  scene->write(out);
  const std::string whole = takeMessage(out);
  surfaceOf(*scene).getColorAttributes()->setOpacity(0.5, false);
  scene->getModelCanvas().getDrawableCollection().findOrCreate<lum::DrawableCollection>("group");
  scene->writeChanges(out);
  return {whole, takeMessage(out)};
}

void readInput(const FuzzInput& input) {
  lum::NodeInputStream stream(lum::NO_SESSION);
  std::istringstream in("LUMSCN1\n" + framed(input.first) + framed(input.second));
  stream.readScene(in);
  for (const auto& root : stream.getRoots()) {
    requireRoundTrip(*root);
  }
}

}  // namespace vemo
