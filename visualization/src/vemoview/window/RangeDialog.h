#pragma once

#include <vemo/base/Vector.h>

#include <QDialog>
#include <cstddef>

class QComboBox;
class QLineEdit;

namespace vemo {

/// Asks for an array, and for the values of its first and last colour.
class RangeDialog final : public QDialog {
 public:
  RangeDialog(const QStringList& arrays, QWidget* parent);

  /// The index of the chosen array.
  std::size_t getArray() const;
  /// NaN for what is not a number.
  Vector<2, double> getRange() const;

 private:
  QComboBox* _array;
  QLineEdit* _low;
  QLineEdit* _high;
};

}  // namespace vemo
