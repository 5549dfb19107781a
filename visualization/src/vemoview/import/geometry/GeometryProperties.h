#pragma once

class vtkProperty;

namespace vemo {

struct GeometrySettings;

// How geometry is drawn, in the properties of VTK's actors.

/// @param asEdges draws the edges of polygons instead of their faces
void applyLineProperties(vtkProperty& property, const GeometrySettings& settings, bool asEdges);
void applyFaceProperties(vtkProperty& property, const GeometrySettings& settings);
/// For points.
void applySphereProperties(vtkProperty& property, const GeometrySettings& settings);

/// Of the visible parts of a surface: its faces, else its edges; 0 without both.
double surfaceOpacity(const GeometrySettings& settings);

}  // namespace vemo
