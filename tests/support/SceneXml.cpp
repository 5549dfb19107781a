#include "support/SceneXml.h"

namespace vemo {

namespace {

// On one line with the scene: failures name lines.
const std::string DEFAULTS =
    "<!DOCTYPE scene ["
    "<!ATTLIST scene background CDATA 'ff8000ff'>"
    "<!ATTLIST assembly visibility CDATA '1'>"
    "<!ATTLIST geometry name CDATA 'g' visibility CDATA '1' points CDATA 'p' lineColor CDATA 'ff000080'"
    " faceColor CDATA '00ff0040' showFaces CDATA 'true' smoothShading CDATA 'true'>]>";

}  // namespace

std::string geometry(const std::string& attributes, const std::string& children) {
  return "<geometry " + attributes + ">" + children + "</geometry>";
}

std::string assembly(const std::string& name, const std::string& children, const std::string& more) {
  return "<assembly name='" + name + "' " + more + ">" + children + "</assembly>";
}

std::string sceneXml(const std::string& children, const std::string& attributes) {
  return DEFAULTS + "<scene " + attributes + ">" + children + "</scene>";
}

std::string plainSceneXml(const std::string& children) {
  return "<scene background='ff8000ff'>" + children + "</scene>";
}

}  // namespace vemo
