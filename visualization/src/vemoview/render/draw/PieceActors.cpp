#include "vemoview/render/draw/PieceActors.h"

#include "geometry/DrawableCells.h"
#include "vemoview/render/draw/PieceActor.h"
#include "vemoview/render/draw/PropGroup.h"
#include "vemoview/render/draw/Screen.h"
#include <vemo/base/Vector.h>

#include <vtkActor.h>
#include <vtkAppendPolyData.h>
#include <vtkCleanPolyData.h>
#include <vtkClipPolyData.h>
#include <vtkFeatureEdges.h>
#include <vtkMatrix4x4.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkPlaneCollection.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkTriangleFilter.h>

#include <algorithm>

namespace vemo {

namespace {

void colorByScalars(const Piece& piece, vtkPolyDataMapper& mapper) {
  mapper.SetScalarVisibility(piece.coloring != Piece::Coloring::PLAIN);
  if (piece.coloring == Piece::Coloring::CELL_SCALARS) {
    mapper.SetScalarModeToUseCellFieldData();
  } else {
    mapper.SetScalarModeToUsePointFieldData();
  }
  mapper.SelectColorArray(piece.scalars.c_str());
  if (piece.table != nullptr) {
    mapper.SetColorModeToMapScalars();
    mapper.SetLookupTable(piece.table);
    mapper.UseLookupTableScalarRangeOn();
    // Data are blended between points, and not their colours, which would come
    // through others that stand for other values.
    mapper.InterpolateScalarsBeforeMappingOn();
  } else {
    mapper.SetColorModeToDirectScalars();
  }
}

vtkSmartPointer<vtkPolyData> clipped(vtkPolyData& geometry, vtkPlane& plane) {
  vtkNew<vtkClipPolyData> clipper;
  clipper->SetInputData(&geometry);
  clipper->SetClipFunction(&plane);
  clipper->Update();
  return clipper->GetOutput();
}

vtkSmartPointer<vtkPolyData> trianglesOf(vtkPolyData& strips) {
  vtkNew<vtkTriangleFilter> triangles;
  triangles->SetInputData(&strips);
  triangles->Update();
  return triangles->GetOutput();
}

/// Of one kind after the other, and without strips: VTK mixes up the data of
/// cells of several kinds, and that of the triangles of strips.
vtkSmartPointer<vtkPolyData> clippedByKind(vtkPolyData& geometry, vtkPlane& plane) {
  vtkNew<vtkAppendPolyData> all;
  for (const CellKindTraits& kind : CELL_KINDS) {
    if (kind.get(geometry)->GetNumberOfCells() > 0) {
      auto cells = drawableCells(geometry, kind.kind);
      all->AddInputData(clipped(kind.kind == CellKind::STRIPS ? *trianglesOf(*cells) : *cells, plane));
    }
  }
  all->Update();
  return all->GetOutput();
}

/// The plane in the coordinates of what is placed.
vtkSmartPointer<vtkPlane> planeWithin(vtkPlane& plane, const double* placement) {
  auto result = vtkSmartPointer<vtkPlane>::New();
  const auto matrix = toMatrix(placement);
  // A point p of the model is M q: n (M q) is (transposed M n) q.
  Vector<4, double> normal{plane.GetNormal()[0], plane.GetNormal()[1], plane.GetNormal()[2], 0.0};
  Vector<4, double> origin{plane.GetOrigin()[0], plane.GetOrigin()[1], plane.GetOrigin()[2], 1.0};
  vtkNew<vtkMatrix4x4> inverse;
  vtkMatrix4x4::Invert(matrix, inverse);
  inverse->MultiplyPoint(origin.data(), origin.data());
  matrix->Transpose();
  matrix->MultiplyPoint(normal.data(), normal.data());
  result->SetNormal(normal.data());
  result->SetOrigin(origin.data());
  return result;
}

/// The first planes cut in the mapper; the others, which it would not take, cut
/// the geometry itself.
vtkSmartPointer<vtkPolyData> cutByFurtherPlanes(vtkPolyData& geometry, vtkPlaneCollection& planes,
                                                const double* placement) {
  vtkSmartPointer<vtkPolyData> result = &geometry;
  for (int i = PLANES_IN_MAPPER; i < planes.GetNumberOfItems(); ++i) {
    vtkPlane& plane = *planes.GetItem(i);
    result = clippedByKind(*result, placement == nullptr ? plane : *planeWithin(plane, placement));
  }
  return result;
}

void applyProperties(const Appearance& appearance, vtkProperty& property) {
  property.SetColor(appearance.color[0], appearance.color[1], appearance.color[2]);
  property.SetOpacity(appearance.opacity);
  property.SetLineWidth(static_cast<float>(appearance.lineWidth));
  property.SetPointSize(static_cast<float>(appearance.pointSize));
  property.SetAmbient(appearance.ambient);
  property.SetDiffuse(appearance.diffuse);
  property.SetSpecular(appearance.specular);
  property.SetSpecularPower(appearance.specularPower);
  // Highlights have the colour of the light.
  property.SetSpecularColor(1.0, 1.0, 1.0);
  if (appearance.kind == Appearance::Kind::POINTS) {
    // Smaller ones have no side that could be seen to face a light.
    constexpr double LEAST_BALL_PIXELS = 4.0;
    const bool isBall = appearance.hasModelSize || appearance.pointSize >= LEAST_BALL_PIXELS;
    property.SetRenderPointsAsSpheres(isBall);
    property.SetLighting(isBall);
  }
}

vtkSmartPointer<vtkPolyDataMapper> makeMapper(const Piece& piece, vtkPlaneCollection& planes,
                                              const double* placement) {
  auto mapper = vtkSmartPointer<vtkPolyDataMapper>::New();
  vtkSmartPointer<vtkPolyData> geometry = piece.geometry;
  if (piece.appearance.isClipped) {
    for (int i = 0; i < std::min(planes.GetNumberOfItems(), PLANES_IN_MAPPER); ++i) {
      mapper->AddClippingPlane(planes.GetItem(i));
    }
    geometry = cutByFurtherPlanes(*geometry, planes, placement);
  }
  mapper->SetInputData(geometry);
  colorByScalars(piece, *mapper);
  return mapper;
}

vtkSmartPointer<vtkActor> makeActor(const Piece& piece, const double* placement) {
  auto actor = vtkSmartPointer<PieceActor>::New();
  actor->setNearer(piece.isOnFaces);
  if (piece.appearance.hasContour) {
    actor->setWidthOfLinesOnFaces(piece.appearance.lineWidth);
  }
  if (placement != nullptr) {
    const auto matrix = toMatrix(placement);
    actor->SetUserMatrix(matrix);
    actor->setMirrored(matrix->Determinant() < 0.0);
  }
  return actor;
}

/// Points as large as the scale at the middle of the piece makes them.
void keepModelSize(const Piece& piece, const double* placement, vtkProperty* property, PropGroup& group) {
  const Vector3 center = placed(piece.getBounds().center(), placement);
  const vtkSmartPointer<vtkProperty> kept = property;
  group.beforeEachRender([kept, center, size = piece.appearance.pointSize](vtkRenderer& drawn) {
    const double pixels = size * pixelsPerUnit(drawn, center);
    kept->SetPointSize(static_cast<float>(std::clamp(pixels, 1.0, Appearance::MOST_POINT_PIXELS)));
  });
}

vtkSmartPointer<vtkProperty> makeProperty(const Appearance& appearance) {
  auto property = vtkSmartPointer<vtkProperty>::New();
  applyProperties(appearance, *property);
  return property;
}

/// One actor for each placement. All have the same property, unless their sizes
/// are the model's, and, unless each is cut differently, the same mapper.
vtkProperty& addPlaced(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group) {
  const bool isCutHere = piece.appearance.isClipped && planes.GetNumberOfItems() > PLANES_IN_MAPPER;
  auto property = makeProperty(piece.appearance);
  vtkSmartPointer<vtkPolyDataMapper> mapper;
  forEachPlacement(piece.placements, [&](const double* placement) {
    if (mapper == nullptr || isCutHere) {
      mapper = makeMapper(piece, planes, placement);
    }
    const auto actor = makeActor(piece, placement);
    if (piece.appearance.hasModelSize) {
      property = makeProperty(piece.appearance);
      keepModelSize(piece, placement, property, group);
    }
    actor->SetMapper(mapper);
    actor->SetProperty(property);
    group.add(actor);
  });
  return *property;
}

/// The piece with cells of some kinds only; without geometry when it has none.
Piece part(const Piece& piece, CellKinds kinds) {
  Piece result = piece;
  result.geometry = drawableCells(*piece.geometry, kinds);
  return result;
}

void addEdges(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group) {
  Piece edges = part(piece, CellKind::POLYS | CellKind::STRIPS);
  if (edges.geometry->GetNumberOfCells() == 0) {
    return;
  }
  edges.coloring = Piece::Coloring::PLAIN;
  edges.appearance.color = edges.appearance.edgeColor;
  vtkProperty& property = addPlaced(edges, planes, group);
  property.SetRepresentationToWireframe();
  property.LightingOff();
}

/// Border edges, and edges at which the faces bend. Points at the same place
/// are made one before: faces that meet there have no border between them.
vtkSmartPointer<vtkPolyData> contourOf(vtkPolyData& faces) {
  constexpr double LEAST_BEND_DEGREES = 30.0;
  vtkNew<vtkPolyData> shape;
  shape->SetPoints(faces.GetPoints());
  shape->SetPolys(faces.GetPolys());
  shape->SetStrips(faces.GetStrips());
  vtkNew<vtkTriangleFilter> triangles;
  triangles->SetInputData(shape);
  vtkNew<vtkCleanPolyData> cleaned;
  cleaned->SetInputConnection(triangles->GetOutputPort());
  cleaned->SetTolerance(0.0);
  vtkNew<vtkFeatureEdges> edges;
  edges->SetInputConnection(cleaned->GetOutputPort());
  edges->SetFeatureAngle(LEAST_BEND_DEGREES);
  edges->NonManifoldEdgesOff();
  edges->ColoringOff();
  edges->Update();
  return edges->GetOutput();
}

void addContour(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group) {
  Piece contour = part(piece, CellKind::POLYS | CellKind::STRIPS);
  if (contour.geometry->GetNumberOfCells() == 0) {
    return;
  }
  contour.geometry = contourOf(*contour.geometry);
  if (contour.geometry->GetNumberOfCells() == 0) {
    return;
  }
  contour.isOnFaces = true;
  contour.coloring = Piece::Coloring::PLAIN;
  contour.appearance.color = contour.appearance.edgeColor;
  // It shows the shape of a body that is hardly seen itself.
  contour.appearance.opacity = 1.0;
  addPlaced(contour, planes, group).LightingOff();
}

void addWithoutFaces(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group) {
  if (piece.appearance.hasEdges) {
    addEdges(piece, planes, group);
  }
  // Lines and vertices of a surface are no faces: they stay.
  const Piece rest = part(piece, CellKind::VERTS | CellKind::LINES);
  if (rest.geometry->GetNumberOfCells() > 0) {
    addPlaced(rest, planes, group);
  }
}

}  // namespace

void addActors(const Piece& piece, vtkPlaneCollection& planes, PropGroup& group) {
  const Appearance& appearance = piece.appearance;
  if (appearance.kind != Appearance::Kind::SURFACE || appearance.hasFaces) {
    vtkProperty& property = addPlaced(piece, planes, group);
    property.SetEdgeVisibility(appearance.kind == Appearance::Kind::SURFACE && appearance.hasEdges);
    property.SetEdgeColor(appearance.edgeColor[0], appearance.edgeColor[1], appearance.edgeColor[2]);
  } else {
    addWithoutFaces(piece, planes, group);
  }
  // Last: of what lies as deep it is seen.
  if (appearance.hasContour) {
    addContour(piece, planes, group);
  }
}

}  // namespace vemo
