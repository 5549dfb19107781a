#pragma once

#include <string>

namespace vemo {

// Elements of scene descriptions.

/// A geometry named "g", visible, smooth and with faces, over the points of entry "p", with
/// translucent colours; attributes that are given replace these.
std::string geometry(const std::string& attributes, const std::string& children = "");
std::string assembly(const std::string& name, const std::string& children, const std::string& more = "");
/// A scene element; a background is given unless the attributes have one.
std::string sceneXml(const std::string& children, const std::string& attributes = "");

}  // namespace vemo
