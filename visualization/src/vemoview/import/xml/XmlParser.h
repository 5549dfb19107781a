#pragma once

#include <memory>
#include <span>
#include <string>

namespace vemo {

class ProgressMeter;
class QxElement;
struct ReadingLimits;

struct XmlDocument {
  std::unique_ptr<QxElement> root;
  /// Whether it refers to declarations in other files, which are not read: the
  /// parser leaves their entities out.
  bool hasDeclarationsOutside = false;
  int elementCount = 0;
};

/// Parses an XML text. Throws XMLException, with the line, for
/// text that is not XML or exceeds a limit.
/// @param entryName the archive entry that the text is from, for errors
/// @param progress if not null, is advanced by the bytes of the text
XmlDocument parseXml(std::span<const unsigned char> text, const std::string& entryName,
                     const ReadingLimits& limits, ProgressMeter* progress = nullptr);

}  // namespace vemo
