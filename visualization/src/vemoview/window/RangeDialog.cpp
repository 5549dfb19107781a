#include "vemoview/window/RangeDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <limits>

namespace vemo {

namespace {

double valueOf(const QLineEdit& line) {
  bool isNumber = false;
  const double value = line.text().toDouble(&isNumber);
  return isNumber ? value : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace

RangeDialog::RangeDialog(const QStringList& arrays, QWidget* parent)
    : QDialog(parent), _array(new QComboBox), _low(new QLineEdit), _high(new QLineEdit) {
  setWindowTitle("Range of colours");
  _low->setObjectName("low");
  _high->setObjectName("high");
  _array->addItems(arrays);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QFormLayout(this);
  layout->addRow("&Array", _array);
  layout->addRow("&Lowest value", _low);
  layout->addRow("&Highest value", _high);
  layout->addRow(buttons);
}

std::size_t RangeDialog::getArray() const {
  return static_cast<std::size_t>(_array->currentIndex());
}

Vector<2, double> RangeDialog::getRange() const {
  return {valueOf(*_low), valueOf(*_high)};
}

}  // namespace vemo
