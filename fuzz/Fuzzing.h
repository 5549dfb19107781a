#pragma once

#include <vemo/scenegraph/NodeInitializer.h>
#include <vemo/scenegraph/inspect/Compare.h>
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/NodeOutputStream.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

namespace vemo {

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

inline void require(bool condition, const std::string& text) {
  if (!condition) {
    std::cerr << text << '\n';
    std::abort();
  }
}

/// The graph after it was written to streams and read from them.
inline lum::Ptr<lum::Node> throughStreams(const lum::Node& node) {
  lum::NodeOutputStream out;
  node.write(out);
  std::stringstream scene;
  out.takeScene(scene);
  lum::NodeInputStream in(lum::NO_SESSION);
  in.readScene(scene);
  while (out.getDataCount() > 0) {
    std::stringstream data;
    out.takeData(data);
    in.readData(data);
  }
  return in.getRoots().at(0);
}

/// What was accepted must be writable, and be the same graph when it is read
/// again.
inline void requireRoundTrip(const lum::Node& node) {
  const lum::Ptr<lum::Node> again = throughStreams(node);
  const std::string difference = lum::firstDifference(node, *again);
  require(difference.empty(), "Not the same after a round trip: " + difference);
}

/// Mutates the input; a short one is made the sample first, from which the
/// interesting places are near.
inline std::size_t mutate(const std::string& sample, std::uint8_t* data, std::size_t size,
                          std::size_t maximumSize) {
  if (size < 64 && sample.size() <= maximumSize) {
    sample.copy(reinterpret_cast<char*>(data), sample.size());
    size = sample.size();
  }
  return LLVMFuzzerMutate(data, size, maximumSize);
}

}  // namespace vemo
