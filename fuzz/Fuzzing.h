#pragma once

#include <vemo/scenegraph/Node.h>

#include <string>
#include <string_view>

namespace vemo {

/// What each target defines: reads an input, and requires what must hold of all
/// that is accepted. An exception that says what is wrong with the input is as it
/// should be.
void readInput(const std::string& input);

void require(bool condition, const std::string& text);

/// What was accepted must be writable, and be the same graph when it is read
/// again.
void requireRoundTrip(const lum::Node& node);

/// A file in memory with these bytes; for all inputs the same one.
std::wstring putIntoFile(std::string_view bytes);

}  // namespace vemo
