#include "vemoview/import/geometry/GeometryProperties.h"

#include <vemo/import/geometry/GeometrySettings.h>

#include <vtkProperty.h>

namespace vemo {

void applyLineProperties(vtkProperty& property, const GeometrySettings& settings, bool asEdges) {
  property.SetColor(settings.lineColor.getRGB().data());
  property.SetEdgeVisibility(false);
  property.SetLighting(false);
  if (asEdges) {
    property.SetRepresentationToWireframe();
  } else {
    property.SetRepresentationToSurface();
  }
}

void applyFaceProperties(vtkProperty& property, const GeometrySettings& settings) {
  property.SetColor(settings.faceColor.getRGB().data());
  // Highlights have the colour of the light.
  property.SetSpecularColor(1.0, 1.0, 1.0);
  property.SetEdgeColor(settings.lineColor.getRGB().data());
  property.SetEdgeVisibility(settings.showEdges);
  property.SetRepresentationToSurface();
  property.SetLighting(true);
  if (settings.smoothShading) {
    property.SetInterpolationToGouraud();
  } else {
    property.SetInterpolationToFlat();
  }
  if (settings.hasLighting()) {
    property.SetAmbient(settings.ambient);
    property.SetDiffuse(settings.diffuse);
    property.SetSpecular(settings.specular);
    property.SetSpecularPower(settings.specularPower);
  }
}

void applySphereProperties(vtkProperty& property, const GeometrySettings& settings) {
  property.SetPointSize(static_cast<float>(settings.pointSize));
  property.SetRenderPointsAsSpheres(true);
}

double surfaceOpacity(const GeometrySettings& settings) {
  if (settings.showFaces) {
    return settings.faceColor.getOpacity();
  }
  return settings.showEdges ? settings.lineColor.getOpacity() : 0.0;
}

}  // namespace vemo
