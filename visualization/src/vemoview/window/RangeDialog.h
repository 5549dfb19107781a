#pragma once

#include <vemo/base/Vector.h>

#include <QDialog>
#include <string>
#include <vector>

class QComboBox;
class QLineEdit;

namespace vemo {

/// Asks for an array, and for the values of its first and last colour.
class RangeDialog final : public QDialog {
 public:
  struct ColoringArray {
    std::string name;
    /// The present values.
    Vector<2, double> range;
  };

  RangeDialog(std::vector<ColoringArray> arrays, QWidget* parent);

  /// The name of the chosen array.
  const std::string& getArray() const;
  /// NaN for what is not a number.
  Vector<2, double> getRange() const;

 private:
  const ColoringArray& chosen() const;
  void showPresentRange();

  std::vector<ColoringArray> _arrays;
  QComboBox* _array;
  QLineEdit* _low;
  QLineEdit* _high;
};

}  // namespace vemo
