#include "vemoview/render/draw/MeshProps.h"

#include "geometry/Bounds.h"
#include "geometry/drawing/ContourEdges.h"
#include "vemoview/render/draw/MeshMerger.h"
#include "vemoview/render/draw/RenderMesh.h"
#include "vemoview/render/resources/CanvasResources.h"
#include "vemoview/render/vtk/ClippedInput.h"
#include "vemoview/render/vtk/Matrix.h"
#include "vemoview/render/vtk/MeshActor.h"
#include "vemoview/render/vtk/MeshMapper.h"
#include "vemoview/render/vtk/PropGroup.h"
#include <vemo/base/Vector.h>
#include <vemo/resolve/ClipPlane.h>

#include <vtkActor.h>
#include <vtkMatrix4x4.h>
#include <vtkPlaneCollection.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>

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
    // Exporters give the table the mapper's own range.
    mapper.SetScalarRange(mesh.scalars->table->GetRange());
    // Data are blended between points, and not their colours, which would pass
    // through colours of other values.
    mapper.InterpolateScalarsBeforeMappingOn();
  } else {
    mapper.SetColorModeToDirectScalars();
  }
}

/// In its own colour, whatever material and lights are.
void makeUnlit(vtkProperty& property) {
  property.LightingOff();
  property.SetAmbient(1.0);
  property.SetDiffuse(0.0);
}

/// On smaller ones shading cannot be seen, and a ball of one pixel has no inside.
constexpr double MIN_SPHERE_PIXELS = 4.0;
/// The property's size for points of a size in the model, which are large in a close view.
constexpr double BALL_PIXELS = 10.0;

void setPointSize(vtkProperty& property, double pixels) {
  const bool isBall = pixels >= MIN_SPHERE_PIXELS;
  property.SetPointSize(static_cast<float>(pixels));
  property.SetRenderPointsAsSpheres(isBall);
  if (!isBall) {
    makeUnlit(property);
  }
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
  if (mesh.isEdges || appearance.kind == Appearance::Kind::LINES) {
    makeUnlit(property);
  }
  if (mesh.isWireframe) {
    property.SetRepresentationToWireframe();
  }
  if (appearance.kind == Appearance::Kind::POINTS) {
    setPointSize(property, appearance.isPointSizeInModelUnits ? BALL_PIXELS : appearance.pointSize);
  }
}

vtkSmartPointer<vtkPolyDataMapper> makeMapper(const RenderMesh& mesh, vtkPlaneCollection& planes,
                                              const InstanceTransform* transform) {
  const auto mapper = vtkSmartPointer<MeshMapper>::New();
  if (mesh.appearance.isPointSizeInModelUnits) {
    mapper->setPointSizeInModel(mesh.appearance.pointSize, MAX_POINT_PIXELS, MIN_SPHERE_PIXELS / BALL_PIXELS);
  }
  if (mesh.appearance.isClipped) {
    setClippedInput(*mapper, *mesh.geometry, planes, transform);
  } else {
    mapper->SetInputData(mesh.geometry);
  }
  colorByScalars(mesh, *mapper);
  return mapper;
}

MeshActor::Layer layerOf(const RenderMesh& mesh) {
  if (mesh.isEdges) {
    return MeshActor::Layer::EDGES;
  }
  return mesh.appearance.kind == Appearance::Kind::SURFACE ? MeshActor::Layer::FACES
                                                           : MeshActor::Layer::LINES;
}

vtkSmartPointer<MeshActor> makeActor(const RenderMesh& mesh, const InstanceTransform* transform) {
  auto actor = vtkSmartPointer<MeshActor>::New();
  actor->setLayer(layerOf(mesh));
  if (transform != nullptr) {
    const auto matrix = toMatrix(*transform);
    actor->SetUserMatrix(matrix);
    actor->setMirrored(matrix->Determinant() < 0.0);
  }
  return actor;
}

vtkSmartPointer<vtkProperty> makeProperty(const RenderMesh& mesh) {
  auto property = vtkSmartPointer<vtkProperty>::New();
  applyProperties(mesh, *property);
  return property;
}

/// VTK's mappers clip by the first planes; the others cut the geometry.
bool isCutBeforehand(const RenderMesh& mesh, vtkPlaneCollection& planes) {
  return mesh.appearance.isClipped && planes.GetNumberOfItems() > static_cast<int>(HARDWARE_CLIP_PLANES);
}

/// What is cut, too, is part of a view of everything.
SharedBoxes partsOf(const RenderMesh& mesh, bool isCut) {
  return mesh.parts == nullptr && isCut
             ? std::make_shared<const std::vector<Box>>(1, boundsOfCells(*mesh.geometry))
             : mesh.parts;
}

MapperKey keyOf(const RenderMesh& mesh) {
  MapperKey key{mesh.geometry, mesh.appearance, mesh.isEdges, ScalarLocation::POINTS, {}, nullptr};
  if (mesh.scalars) {
    key.location = mesh.scalars->location;
    key.arrayName = mesh.scalars->arrayName;
    key.table = mesh.scalars->table;
  }
  return key;
}

/// Of all instances, which are not cut beforehand.
vtkSmartPointer<vtkPolyDataMapper> sharedMapper(const RenderMesh& mesh, CanvasResources& resources) {
  const auto make = [&] { return makeMapper(mesh, *resources.clipPlanes, nullptr); };
  return mesh.isShared ? resources.mappers.get(keyOf(mesh), make) : make();
}

using ActorUse = std::function<void(MeshActor&)>;

/// One actor for each instance. All have the same property and, unless each is cut differently,
/// the same mapper.
void makeActorsOf(const RenderMesh& mesh, CanvasResources& resources, const ActorUse& use) {
  vtkPlaneCollection& planes = *resources.clipPlanes;
  const bool isCut = isCutBeforehand(mesh, planes);
  const SharedBoxes parts = partsOf(mesh, isCut);
  const auto property = makeProperty(mesh);
  const auto mapper = isCut ? nullptr : sharedMapper(mesh, resources);
  forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
    const auto actor = makeActor(mesh, transform);
    actor->setQueue(resources.queue);
    actor->setParts(parts);
    if (mesh.isEdges || mesh.appearance.kind == Appearance::Kind::LINES) {
      actor->setWidthOfLines(mesh.appearance.lineWidth);
    } else if (mesh.appearance.kind == Appearance::Kind::SURFACE) {
      actor->setBehind(resources.widestLines);
    }
    actor->SetMapper(isCut ? makeMapper(mesh, planes, transform) : mapper);
    actor->SetProperty(property);
    use(*actor);
  });
}

/// Lines in the edges' colour.
void becomeEdges(RenderMesh& mesh) {
  mesh.scalars.reset();
  mesh.color = mesh.appearance.edgeColor;
  mesh.appearance.opacity = mesh.appearance.edgeOpacity;
  mesh.isEdges = true;
}

/// As lines of their own: what VTK draws with faces lacks the half of its width that is beyond
/// them, and has their opacity.
void makeEdges(const RenderMesh& mesh, CanvasResources& resources, const ActorUse& use) {
  RenderMesh edges = mesh;
  becomeEdges(edges);
  edges.isWireframe = true;
  if (isCutBeforehand(mesh, *resources.clipPlanes)) {
    // Cutting faces makes new edges.
    edges.geometry = faceEdges(*mesh.geometry);
    edges.isShared = false;
  }
  makeActorsOf(edges, resources, use);
}

/// The contour of each mesh by itself: where two of them meet, both have a border.
std::vector<MeshInstance> contoursOf(const std::vector<const MeshInstance*>& meshes, Contours& known) {
  std::vector<MeshInstance> contours;
  for (const MeshInstance* const mesh : meshes) {
    const auto lines = known.get(*mesh->geometry);
    if (lines->GetNumberOfCells() > 0) {
      MeshInstance& contour = contours.emplace_back(*mesh);
      contour.geometry = lines;
      contour.scalars.reset();
    }
  }
  return contours;
}

void makeContours(const std::vector<const MeshInstance*>& meshes, CanvasResources& resources,
                  const ActorUse& use) {
  const std::vector<MeshInstance> contours = contoursOf(meshes, resources.contours);
  if (contours.empty()) {
    return;
  }
  std::vector<const MeshInstance*> members;
  std::ranges::transform(contours, std::back_inserter(members),
                         [](const MeshInstance& contour) { return &contour; });
  RenderMesh contour = merge(members, resources.tables);
  becomeEdges(contour);
  makeActorsOf(contour, resources, use);
}

/// As polygons are filled.
RenderMesh mergeFaces(const std::vector<const MeshInstance*>& meshes, LookupTables& tables) {
  std::vector<MeshInstance> filled;
  std::vector<const MeshInstance*> members = meshes;
  filled.reserve(meshes.size());
  for (const MeshInstance*& member : members) {
    if (member->filling != nullptr) {
      filled.push_back(*member);
      filled.back().geometry = member->filling;
      member = &filled.back();
    }
  }
  return merge(members, tables);
}

bool isFilledOtherwise(const MeshInstance* mesh) {
  return mesh->filling != nullptr;
}

}  // namespace

void makeActors(const std::vector<const MeshInstance*>& meshes, CanvasResources& resources,
                const std::function<void(MeshActor&)>& use) {
  const RenderMesh mesh = merge(meshes, resources.tables);
  const Appearance& appearance = mesh.appearance;
  const bool isSurface = appearance.kind == Appearance::Kind::SURFACE;
  if (!isSurface || appearance.hasFaces) {
    const bool hasFilling = std::ranges::any_of(meshes, isFilledOtherwise);
    makeActorsOf(hasFilling ? mergeFaces(meshes, resources.tables) : mesh, resources, use);
  }
  if (isSurface && appearance.hasEdges) {
    makeEdges(mesh, resources, use);
  }
  // Last: at the same depth it covers the rest.
  if (isSurface && appearance.hasContour) {
    makeContours(meshes, resources, use);
  }
}

void addProps(const std::vector<const MeshInstance*>& meshes, CanvasResources& resources, PropGroup& group) {
  makeActors(meshes, resources, [&group](MeshActor& actor) { group.add(&actor); });
}

}  // namespace vemo
