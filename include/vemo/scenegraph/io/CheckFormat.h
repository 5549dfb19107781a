#pragma once

#include <vemo/scenegraph/Export.h>

#include <iosfwd>

namespace vemo::sdb {

/// Whether the stream, read from its current position to its end, is a
/// scene-graph database: header and index are there, hold together and have
/// the right hashes. Arrays are not looked at. When it is not, `messages` gets a
/// line that says why. The stream must be seekable; its position
/// afterwards is unspecified. Throws nothing because of what it reads.
VEMO_SCENEGRAPH_EXPORT bool checkFormat(std::istream& in, std::ostream& messages);

}  // namespace vemo::sdb
