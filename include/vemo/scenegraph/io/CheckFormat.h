#pragma once

#include <vemo/scenegraph/Export.h>

#include <iosfwd>

namespace vemo::sdb {

/// Whether the stream, read from its current position to its end, is a
/// scene-graph database: header and index are complete, consistent and have
/// the right hashes. Arrays are not checked. Otherwise `messages` receives a
/// line with the reason. The stream must be seekable; its position
/// afterwards is unspecified. Throws nothing because of the content, but lum::io::UnreadableFile where
/// the stream fails.
VEMO_SCENEGRAPH_EXPORT bool checkFormat(std::istream& in, std::ostream& messages);

}  // namespace vemo::sdb
