#pragma once

#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>
#include <vemo/scenegraph/io/SceneGraphReader.h>
#include <vemo/scenegraph/io/SceneGraphWriter.h>

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace vemo {

/// What an archive carries of a scene: a scene stream and data streams.
struct StreamPayload {
  explicit StreamPayload(lum::NodeOutputStream& stream) {
    lum::SceneGraphWriter writer(stream);
    std::ostringstream out;
    EXPECT_TRUE(writer.saveSceneFileToOutputStream(out));
    scene = out.str();
    for (std::size_t left = writer.getVtkDataCount(); left > 0; --left) {
      std::ostringstream dataOut;
      EXPECT_TRUE(writer.saveVtkDataToOutputStream(dataOut));
      data.push_back(dataOut.str());
    }
    EXPECT_FALSE(writer.saveVtkDataToOutputStream(out));
  }

  /// How many of the streams do not decode.
  int loadInto(lum::NodeInputStream& stream) const {
    lum::SceneGraphReader reader(stream);
    std::istringstream in(scene);
    int failures = reader.loadSceneFileFromInputStream(in) ? 0 : 1;
    for (const std::string& each : data) {
      std::istringstream dataIn(each);
      failures += reader.loadVtkDataFromInputStream(dataIn) ? 0 : 1;
    }
    return failures;
  }

  std::string scene;
  std::vector<std::string> data;
};

/// The graph after it went through streams; empty when it does not decode.
inline lum::Ptr<lum::Node> throughStreams(const lum::Node& node) {
  lum::NodeOutputStream out;
  node.write(out);
  lum::NodeInputStream in(lum::NO_SESSION);
  return StreamPayload(out).loadInto(in) == 0 ? in.getRoots().at(0) : lum::Ptr<lum::Node>();
}

}  // namespace vemo
