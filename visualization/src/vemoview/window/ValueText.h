#pragma once

#include <vtkType.h>

#include <QString>

class vtkDataArray;

namespace vemo {

// What data arrays hold, in words.

/// The values of one tuple, with as many digits as it takes to tell them from
/// others of their type; of a vector its length, too. The array may have no
/// such tuple.
QString tupleText(vtkDataArray& array, vtkIdType tuple);

/// From the least to the greatest finite value; of vectors from the least to
/// the greatest length.
QString rangeText(vtkDataArray& array);

/// The same for one component.
QString rangeText(vtkDataArray& array, int component);

/// The array's name, made fit to be shown.
QString nameOf(vtkDataArray& array);

}  // namespace vemo
