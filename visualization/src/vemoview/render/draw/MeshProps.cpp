#include "vemoview/render/draw/MeshProps.h"

#include "geometry/Bounds.h"
#include "geometry/drawing/ContourEdges.h"
#include "geometry/drawing/DrawableCells.h"
#include "vemoview/render/vtk/ClippedInput.h"
#include "vemoview/render/vtk/Matrix.h"
#include "vemoview/render/vtk/MeshActor.h"
#include "vemoview/render/vtk/MeshMapper.h"
#include "vemoview/render/vtk/PropGroup.h"
#include "vemoview/render/vtk/Screen.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/ClipPlane.h>

#include <vtkActor.h>
#include <vtkMatrix4x4.h>
#include <vtkPlaneCollection.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

#include <algorithm>

namespace vemo {

namespace {

void colorByScalars(const RenderMesh& mesh, vtkPolyDataMapper& mapper) {
  mapper.SetScalarVisibility(mesh.scalars.has_value());
  if (!mesh.scalars) {
    return;
  }
  if (mesh.scalars->location == ScalarLocation::CELLS) {
    mapper.SetScalarModeToUseCellFieldData();
  } else {
    mapper.SetScalarModeToUsePointFieldData();
  }
  mapper.SelectColorArray(mesh.scalars->arrayName.c_str());
  if (mesh.scalars->table != nullptr) {
    mapper.SetColorModeToMapScalars();
    mapper.SetLookupTable(mesh.scalars->table);
    mapper.UseLookupTableScalarRangeOn();
    // Data are blended between points, and not their colours, which would pass
    // through colours of other values.
    mapper.InterpolateScalarsBeforeMappingOn();
  } else {
    mapper.SetColorModeToDirectScalars();
  }
}

void setPointSize(vtkProperty& property, double pixels) {
  // On smaller ones shading cannot be seen, and a ball of one pixel has no inside.
  constexpr double MIN_SPHERE_PIXELS = 4.0;
  const bool isBall = pixels >= MIN_SPHERE_PIXELS;
  property.SetPointSize(static_cast<float>(pixels));
  property.SetRenderPointsAsSpheres(isBall);
  property.SetLighting(isBall);
}

void applyProperties(const RenderMesh& mesh, vtkProperty& property) {
  const Appearance& appearance = mesh.appearance;
  property.SetColor(mesh.color[0], mesh.color[1], mesh.color[2]);
  property.SetOpacity(appearance.opacity);
  property.SetLineWidth(static_cast<float>(appearance.lineWidth));
  property.SetAmbient(appearance.ambient);
  property.SetDiffuse(appearance.diffuse);
  property.SetSpecular(appearance.specular);
  property.SetSpecularPower(appearance.specularPower);
  // Highlights have the colour of the light.
  property.SetSpecularColor(1.0, 1.0, 1.0);
  if (appearance.kind == Appearance::Kind::POINTS) {
    setPointSize(property, appearance.pointSize);
  }
}

vtkSmartPointer<vtkPolyDataMapper> makeMapper(const RenderMesh& mesh, vtkPlaneCollection& planes,
                                              const InstanceTransform* transform) {
  vtkSmartPointer<vtkPolyDataMapper> mapper = vtkSmartPointer<MeshMapper>::New();
  if (mesh.appearance.isClipped) {
    setClippedInput(*mapper, *mesh.geometry, planes, transform);
  } else {
    mapper->SetInputData(mesh.geometry);
  }
  colorByScalars(mesh, *mapper);
  return mapper;
}

vtkSmartPointer<vtkActor> makeActor(const RenderMesh& mesh, const InstanceTransform* transform) {
  auto actor = vtkSmartPointer<MeshActor>::New();
  actor->setNearer(mesh.isOnFaces || mesh.appearance.isOfSurface);
  if (mesh.appearance.hasContour || mesh.appearance.hasEdges) {
    actor->setWidthOfLinesOnFaces(mesh.appearance.lineWidth);
  }
  if (transform != nullptr) {
    const auto matrix = toMatrix(*transform);
    actor->SetUserMatrix(matrix);
    actor->setMirrored(matrix->Determinant() < 0.0);
  }
  return actor;
}

/// Points as large as the scale at the middle of the mesh makes them.
void keepModelSize(const RenderMesh& mesh, const InstanceTransform* transform, vtkProperty* property,
                   PropGroup& group) {
  const Vector3 center = transformedPoint(transform, boundsOf(*mesh.geometry).center());
  const vtkSmartPointer<vtkProperty> kept = property;
  group.beforeEachRender([kept, center, size = mesh.appearance.pointSize](vtkRenderer& drawn) {
    const double pixels = size * pixelsPerUnit(drawn, center);
    setPointSize(*kept, std::clamp(pixels, 1.0, MAX_POINT_PIXELS));
  });
}

vtkSmartPointer<vtkProperty> makeProperty(const RenderMesh& mesh) {
  auto property = vtkSmartPointer<vtkProperty>::New();
  applyProperties(mesh, *property);
  return property;
}

/// One actor for each instance. All have the same property, unless their sizes
/// are the model's, and, unless each is cut differently, the same mapper.
vtkProperty& addActors(const RenderMesh& mesh, vtkPlaneCollection& planes, PropGroup& group) {
  const bool isCutHere =
      mesh.appearance.isClipped && planes.GetNumberOfItems() > static_cast<int>(HARDWARE_CLIP_PLANES);
  auto property = makeProperty(mesh);
  vtkSmartPointer<vtkPolyDataMapper> mapper;
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    if (mapper == nullptr || isCutHere) {
      mapper = makeMapper(mesh, planes, transform);
    }
    const auto actor = makeActor(mesh, transform);
    if (mesh.appearance.isPointSizeInModelUnits) {
      property = makeProperty(mesh);
      keepModelSize(mesh, transform, property, group);
    }
    actor->SetMapper(mapper);
    actor->SetProperty(property);
    group.add(actor);
  });
  return *property;
}

/// Lines in the edges' colour.
void becomeEdges(RenderMesh& mesh) {
  mesh.scalars.reset();
  mesh.color = mesh.appearance.edgeColor;
  mesh.appearance.opacity = mesh.appearance.edgeOpacity;
}

/// As lines of their own: what VTK draws with faces lacks the half of its width that is beyond
/// them, and has their opacity.
void addEdges(const RenderMesh& mesh, vtkPlaneCollection& planes, PropGroup& group) {
  RenderMesh edges = mesh;
  becomeEdges(edges);
  edges.isOnFaces = mesh.appearance.hasFaces;
  vtkProperty& property = addActors(edges, planes, group);
  property.SetRepresentationToWireframe();
  property.LightingOff();
}

void addContour(const RenderMesh& mesh, vtkPlaneCollection& planes, PropGroup& group) {
  RenderMesh contour = mesh;
  contour.geometry = contourEdges(*mesh.geometry, CONTOUR_BEND_DEGREES);
  if (contour.geometry->GetNumberOfCells() == 0) {
    return;
  }
  becomeEdges(contour);
  contour.isOnFaces = true;
  addActors(contour, planes, group).LightingOff();
}

void addSurface(const RenderMesh& mesh, vtkPlaneCollection& planes, PropGroup& group) {
  const Appearance& appearance = mesh.appearance;
  if (appearance.hasFaces) {
    addActors(mesh, planes, group);
  }
  if (appearance.hasEdges) {
    addEdges(mesh, planes, group);
  }
  // Last: at the same depth it covers the rest.
  if (appearance.hasContour) {
    addContour(mesh, planes, group);
  }
}

}  // namespace

void addProps(const RenderMesh& mesh, vtkPlaneCollection& planes, PropGroup& group) {
  if (mesh.appearance.kind == Appearance::Kind::SURFACE) {
    addSurface(mesh, planes, group);
  } else {
    addActors(mesh, planes, group);
  }
}

}  // namespace vemo
