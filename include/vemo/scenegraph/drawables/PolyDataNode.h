#pragma once

#include <vemo/geometry/CellKind.h>
#include <vemo/scenegraph/Node.h>

#include <vtkSmartPointer.h>

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class vtkPolyData;

namespace lum {

/// Points, cells on them, and data arrays over both: a piece of geometry.
/// Arrays are shared with the poly data given and handed out, never copied.
class VEMO_SCENEGRAPH_EXPORT PolyDataNode final : public Node {
  LUM_NODE(PolyDataNode, Node)
  LUM_FIELD(Vector3, _attachmentPoint)
  LUM_FIELD(vtkSmartPointer<vtkDataArray>, _points)
  LUM_FIELD(vtkSmartPointer<vtkCellArray>, _verts)
  LUM_FIELD(vtkSmartPointer<vtkCellArray>, _lines)
  LUM_FIELD(vtkSmartPointer<vtkCellArray>, _strips)
  LUM_FIELD(vtkSmartPointer<vtkCellArray>, _polys)
  LUM_FIELD(ArrayTable, _nodeDataArrays)
  LUM_FIELD(ArrayTable, _cellDataArrays)

 public:
  /// A reference point of the geometry, such as its centre, in model coordinates.
  const Vector3& getAttachmentPoint() const { return _attachmentPoint; }
  /// `flag`: 0 sets the point and leaves the geometry where it is; any other
  /// value is refused with InternalError.
  void setAttachmentPoint(const Vector3& point, int flag);

  /// Replaces points, cells and data arrays by those of the poly data, which are
  /// shared.
  void setPolyData(vtkPolyData* polyData);

  /// A poly data that shares the arrays held, with the three-component arrays named
  /// "Normals" as its normals.
  vtkSmartPointer<vtkPolyData> getPolyData() const;

  /// Adds an array over the points, or over the cells; replaces one of the same
  /// name. Names must not change from then on.
  void setNodeDataArray(vtkDataArray* array);
  void setCellDataArray(vtkDataArray* array);

  const ArrayTable& getNodeDataArrays() const { return _nodeDataArrays; }
  const ArrayTable& getCellDataArrays() const { return _cellDataArrays; }
  /// Null when the node has no points, or no such cells.
  vtkDataArray* getPoints() const;
  vtkCellArray* getCells(vemo::CellKind kind) const;
  vtkCellArray* getVerts() const { return getCells(vemo::CellKind::VERTS); }
  vtkCellArray* getLines() const { return getCells(vemo::CellKind::LINES); }
  vtkCellArray* getStrips() const { return getCells(vemo::CellKind::STRIPS); }
  vtkCellArray* getPolys() const { return getCells(vemo::CellKind::POLYS); }

  /// The names of arrays over the points that reading has left out, with a finding: that
  /// they are missing is not another one. Not stored.
  const std::vector<std::string>& getArraysLeftOut() const { return _arraysLeftOut; }
  void setArraysLeftOut(std::vector<std::string> names) { _arraysLeftOut = std::move(names); }

 private:
  using Cells = vtkSmartPointer<vtkCellArray>;
  static Cells PolyDataNode::*memberOf(vemo::CellKind kind);

  std::vector<std::string> _arraysLeftOut;
  /// Where arrays are in their tables, by name; null while none has been set.
  std::unique_ptr<std::unordered_map<std::string, std::size_t>> _nodeDataPlaces;
  std::unique_ptr<std::unordered_map<std::string, std::size_t>> _cellDataPlaces;
};

}  // namespace lum
