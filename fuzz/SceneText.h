#pragma once

#include <string>

namespace vemo {

/// Writes the archive that a text describes, for all inputs to the same file in
/// memory: lines such as "@floats p 0 1 2" are entries (ArchiveBuilder::add), one such as
/// "@payload 1 20 255" is a scene graph with other bytes here and there, the
/// others the scene description, or the child elements of one (SceneXml.h). Targets
/// that use it get mutations that leave elements, attributes and numbers whole.
std::wstring writeArchive(const std::string& text);

}  // namespace vemo
