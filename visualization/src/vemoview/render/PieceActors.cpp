#include "vemoview/render/PieceActors.h"

#include "vemoview/render/SoundGeometry.h"

#include <vtkActor.h>
#include <vtkClipPolyData.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkPlaneCollection.h>
#include <vtkPolyDataMapper.h>
#include <vtkProperty.h>
#include <vtkRenderer.h>

namespace {

/// More planes than these VTK does not give to OpenGL.
constexpr int PLANES_IN_MAPPER = 6;

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

/// Planes cut in the mapper as long as it takes them; the others cut the
/// geometry itself.
void clip(vtkPlaneCollection& planes, vtkPolyDataMapper& mapper, vtkSmartPointer<vtkPolyData>& geometry) {
  for (int i = 0; i < planes.GetNumberOfItems(); ++i) {
    if (i < PLANES_IN_MAPPER) {
      mapper.AddClippingPlane(planes.GetItem(i));
    } else {
      geometry = clipped(*geometry, *planes.GetItem(i));
    }
  }
}

void applyProperties(const Appearance& appearance, vtkProperty& property) {
  property.SetColor(appearance.color[0], appearance.color[1], appearance.color[2]);
  property.SetOpacity(appearance.opacity);
  property.SetLineWidth(static_cast<float>(appearance.lineWidth));
  property.SetPointSize(static_cast<float>(appearance.pointSize));
  if (appearance.kind == Appearance::Kind::POINTS) {
    // A point has no side that could face a light.
    property.LightingOff();
  }
}

vtkActor& addActor(const Piece& piece, vtkPlaneCollection& planes, vtkRenderer& renderer) {
  vtkNew<vtkPolyDataMapper> mapper;
  vtkSmartPointer<vtkPolyData> geometry = piece.geometry;
  if (piece.appearance.isClipped) {
    clip(planes, *mapper, geometry);
  }
  mapper->SetInputData(geometry);
  colorByScalars(piece, *mapper);
  vtkNew<vtkActor> actor;
  actor->SetMapper(mapper);
  applyProperties(piece.appearance, *actor->GetProperty());
  renderer.AddActor(actor);
  return *actor;
}

/// The piece with cells of some kinds only; without geometry when it has none.
Piece part(const Piece& piece, unsigned kinds) {
  Piece result = piece;
  result.geometry = drawableCells(*piece.geometry, kinds);
  return result;
}

void addEdges(const Piece& piece, vtkPlaneCollection& planes, vtkRenderer& renderer) {
  Piece edges = part(piece, POLYGON_CELLS | STRIP_CELLS);
  if (edges.geometry->GetNumberOfCells() == 0) {
    return;
  }
  edges.coloring = Piece::Coloring::PLAIN;
  edges.appearance.color = edges.appearance.edgeColor;
  vtkProperty& property = *addActor(edges, planes, renderer).GetProperty();
  property.SetRepresentationToWireframe();
  property.LightingOff();
}

}  // namespace

void addActors(const Piece& piece, vtkPlaneCollection& planes, vtkRenderer& renderer) {
  const Appearance& appearance = piece.appearance;
  if (appearance.kind != Appearance::Kind::SURFACE || appearance.hasFaces) {
    vtkProperty& property = *addActor(piece, planes, renderer).GetProperty();
    property.SetEdgeVisibility(appearance.kind == Appearance::Kind::SURFACE && appearance.hasEdges);
    property.SetEdgeColor(appearance.edgeColor[0], appearance.edgeColor[1], appearance.edgeColor[2]);
    return;
  }
  if (appearance.hasEdges) {
    addEdges(piece, planes, renderer);
  }
  // Lines and vertices of a surface are no faces: they stay.
  const Piece rest = part(piece, VERTEX_CELLS | LINE_CELLS);
  if (rest.geometry->GetNumberOfCells() > 0) {
    addActor(rest, planes, renderer);
  }
}
