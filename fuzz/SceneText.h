#pragma once

#include <string>
#include <vector>

namespace vemo {

/// The archive that a text describes: lines such as "@floats p 0 1 2" are entries
/// (ArchiveBuilder::add), one such as "@payload 1 20 255" is a scene graph with other
/// bytes here and there, the others the scene description, or the child elements of one
/// (SceneXml.h). Targets that use it get mutations that leave elements, attributes and
/// numbers whole.
std::vector<unsigned char> buildArchive(const std::string& text);

}  // namespace vemo
