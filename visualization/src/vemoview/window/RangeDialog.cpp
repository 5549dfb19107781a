#include "vemoview/window/RangeDialog.h"

#include "vemoview/window/ItemText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>
#include <limits>
#include <utility>

namespace vemo {

namespace {

double valueOf(const QLineEdit& line) {
  bool isNumber = false;
  const double value = line.text().toDouble(&isNumber);
  return isNumber ? value : std::numeric_limits<double>::quiet_NaN();
}

QString textOf(double value) {
  return QString::number(value, 'g', QLocale::FloatingPointShortest);
}

}  // namespace

RangeDialog::RangeDialog(std::vector<ColoringArray> arrays, QWidget* parent)
    : QDialog(parent),
      _arrays(std::move(arrays)),
      _array(new QComboBox),
      _low(new QLineEdit),
      _high(new QLineEdit) {
  setWindowTitle("Range of colours");
  _low->setObjectName("low");
  _high->setObjectName("high");
  for (const ColoringArray& array : _arrays) {
    _array->addItem(toText(array.name));
  }
  showPresentRange();
  connect(_array, qOverload<int>(&QComboBox::currentIndexChanged), this, &RangeDialog::showPresentRange);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QFormLayout(this);
  layout->addRow("&Array", _array);
  layout->addRow("&Lowest value", _low);
  layout->addRow("&Highest value", _high);
  layout->addRow(buttons);
}

const RangeDialog::ColoringArray& RangeDialog::chosen() const {
  return _arrays.at(static_cast<std::size_t>(_array->currentIndex()));
}

void RangeDialog::showPresentRange() {
  _low->setText(textOf(chosen().range[0]));
  _high->setText(textOf(chosen().range[1]));
}

const std::string& RangeDialog::getArray() const {
  return chosen().name;
}

Vector<2, double> RangeDialog::getRange() const {
  return {valueOf(*_low), valueOf(*_high)};
}

}  // namespace vemo
