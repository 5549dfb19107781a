#include "vemoview/window/ErrorBox.h"

#include "vemoview/window/ItemText.h"
#include <vemo/base/PrintableText.h>

#include <QMessageBox>

namespace vemo {

void showError(QWidget* parent, const QString& title, const std::exception& error) {
  QMessageBox box(QMessageBox::Critical, title, {}, QMessageBox::Ok, parent);
  box.setTextFormat(Qt::PlainText);
  box.setText(toText(replaceBreaks(error.what(), ' ')));
  box.exec();
}

}  // namespace vemo
