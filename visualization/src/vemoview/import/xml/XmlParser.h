#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace vemo {

class QxElement;

/// What a document may have at most.
struct XmlLimits {
  std::size_t depth;
  /// Attributes count as elements.
  std::uint64_t elements;
};

/// The document element of an XML text. Throws XMLException, with the line, for
/// text that is not XML or exceeds a limit.
/// @param entryName the archive entry that the text is from, for errors
std::unique_ptr<QxElement> parseXml(std::span<const unsigned char> text, const std::string& entryName,
                                    const XmlLimits& limits);

}  // namespace vemo
