#pragma once

#include <vemo/scenegraph/Node.h>

#include <string>

namespace vemo {

/// An input of a fuzz target: two parts, behind the size of the first in four
/// bytes.
struct FuzzInput {
  std::string first;
  std::string second;
};

// What each target defines.

/// An input that is right: the interesting ones are near it.
FuzzInput makeSample();
/// Reads an input. What it throws as FileError is as it should be.
void readInput(const FuzzInput& input);

// What targets use.

void require(bool condition, const std::string& text);

/// What was accepted must be writable, and be the same graph when it is read
/// again.
void requireRoundTrip(const lum::Node& node);

}  // namespace vemo
