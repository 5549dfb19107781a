#pragma once

#include <string>

namespace vemo {

// Scene descriptions. In one that sceneXml makes, geometry is named "g", visible,
// smooth, with faces and translucent colours, over the points of entry "p", and
// assemblies are visible, unless their attributes say something else.

std::string geometry(const std::string& attributes, const std::string& children = "");
std::string assembly(const std::string& name, const std::string& children, const std::string& more = "");
std::string sceneXml(const std::string& children, const std::string& attributes = "");
/// Without any defaults.
std::string plainSceneXml(const std::string& children);

}  // namespace vemo
