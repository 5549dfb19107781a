// Scene streams. The parts of the input are two messages, of which the second may
// change what the first one made, or a message and an array of it.

#include "Fuzzing.h"
#include "TwoParts.h"
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

TwoParts makeSample() {
  const auto scene = makeScene();
  auto& drawables = scene->getModelCanvas().getDrawableCollection();
  const lum::Ptr<lum::DrawableCollection> group(&drawables.findOrCreate<lum::DrawableCollection>("group"));
  const lum::Ptr<lum::DrawableCollection> inner(&group->findOrCreate<lum::DrawableCollection>("inner"));
  lum::NodeOutputStream out;
  scene->write(out);
  const std::string whole = takeMessage(out);
  surfaceOf(*scene).getColorAttributes()->setOpacity(0.5, false);
  group->removeNode(*inner);
  drawables.removeNode(*group);
  drawables.findOrCreate<lum::DrawableCollection>("other").addNode(*inner);
  scene->writeChanges(out);
  return {whole, takeMessage(out)};
}

void readInput(const std::string& input) {
  const TwoParts parts = takeApart(input);
  const bool isOld = (parts.bits & 1U) != 0, hasData = (parts.bits & 2U) != 0;
  lum::NodeInputStream stream(lum::NO_SESSION);
  std::istringstream scene((isOld ? "LUMSCN1\n" : "LUMSCN2\n") + framed(parts.first) +
                           (hasData ? std::string() : framed(parts.second)));
  stream.readScene(scene);
  if (hasData) {
    std::istringstream data("LUMDAT1\n" + parts.second);
    stream.readData(data);
  }
  for (const auto& root : stream.getRoots()) {
    requireRoundTrip(*root);
  }
}

}  // namespace vemo
