#pragma once

#include "geometry/data/PolyDataContent.h"

#include <vtkSmartPointer.h>

namespace vemo {

/// A poly data for a moment. Each thread has one that is used again and again: making one takes
/// a good part of the time that a small geometry takes.
class VEMO_GEOMETRY_EXPORT PolyDataLoan {
 public:
  /// Lends an empty one.
  PolyDataLoan();
  /// Lends one that holds the content.
  explicit PolyDataLoan(const PolyDataContent& content);
  /// Lends that of somebody else, who keeps it.
  explicit PolyDataLoan(vtkSmartPointer<vtkPolyData> kept);
  ~PolyDataLoan();
  PolyDataLoan(const PolyDataLoan&) = delete;
  PolyDataLoan& operator=(const PolyDataLoan&) = delete;

  vtkPolyData& operator*() const { return *_polyData; }
  vtkPolyData* operator->() const { return _polyData; }

 private:
  vtkSmartPointer<vtkPolyData> _polyData;
  bool _isKept = false;
};

/// The poly data of all who have the same points, cells and arrays. There is none until somebody
/// needs it for longer than a moment.
class VEMO_GEOMETRY_EXPORT SharedPolyData {
 public:
  SharedPolyData() = default;
  explicit SharedPolyData(PolyDataContent content);
  /// One that its owner may change.
  explicit SharedPolyData(vtkPolyData& polyData);

  /// From now on the poly data counts, not the content.
  vtkPolyData* keep();
  PolyDataLoan lend() const { return _polyData ? PolyDataLoan(_polyData) : PolyDataLoan(_content); }

  const PolyDataContent& getContent() const { return _content; }

 private:
  PolyDataContent _content;
  vtkSmartPointer<vtkPolyData> _polyData;
};

}  // namespace vemo
