#include "window/OpenWindow.h"

#include "render/RenderScene.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace vemo {

int countPink(const Picture& picture) {
  return countWhere(picture, [](const auto& pixel) { return std::min(pixel[0], pixel[2]) > pixel[1] + 100; });
}

Picture toPicture(const QImage& image) {
  Picture picture(image.width(), image.height());
  for (int row = 0; row < image.height(); ++row) {
    for (int column = 0; column < image.width(); ++column) {
      const QColor color = image.pixelColor(column, row);
      picture.set(column, row,
                  {static_cast<std::uint8_t>(color.red()), static_cast<std::uint8_t>(color.green()),
                   static_cast<std::uint8_t>(color.blue())});
    }
  }
  return picture;
}

OpenWindow::OpenWindow(lum::SceneNode& scene) : _window(scene, "scene.zip") {
  _window.show();
  _window.activateWindow();
  if (!QTest::qWaitForWindowActive(&_window)) {
    throw std::runtime_error("the window does not appear");
  }
}

template <class T>
T& OpenWindow::child(const char* name) const {
  T* const found = _window.findChild<T*>(name);
  if (found == nullptr) {
    throw std::runtime_error(std::string("there is no ") + name);
  }
  return *found;
}

QWidget& OpenWindow::view() const {
  return child<QWidget>("view");
}

QTreeView& OpenWindow::list() const {
  return child<QTreeView>("items");
}

QTreeWidget& OpenWindow::values() const {
  return child<QTreeWidget>("values");
}

Picture OpenWindow::look() {
  // What was drawn comes to the screen with the events.
  constexpr int MILLISECONDS = 50;
  QTest::qWait(MILLISECONDS);
  const QRect part(view().mapTo(&_window, {0, 0}), view().size());
  return toPicture(_window.screen()
                       ->grabWindow(_window.winId(), part.x(), part.y(), part.width(), part.height())
                       .toImage());
}

int OpenWindow::countPink() {
  return vemo::countPink(look());
}

QPoint OpenWindow::placeOf(double x, double y) const {
  const double half = view().height() / 2.0;
  return {static_cast<int>(std::floor(view().width() / 2.0 + x * half)),
          static_cast<int>(std::floor(half - y * half))};
}

void OpenWindow::drag(const QPoint& from, const QPoint& to, Qt::MouseButton button) {
  const auto send = [&](QEvent::Type type, const QPoint& place, Qt::MouseButton changed,
                        Qt::MouseButtons held) {
    QMouseEvent event(type, place, view().mapToGlobal(place), changed, held, Qt::NoModifier);
    QApplication::sendEvent(&view(), &event);
  };
  send(QEvent::MouseButtonPress, from, button, button);
  send(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, button);
  send(QEvent::MouseMove, to, Qt::NoButton, button);
  send(QEvent::MouseButtonRelease, to, button, Qt::NoButton);
}

void OpenWindow::click(const QPoint& place) {
  QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, place);
}

void OpenWindow::turnWheel(int steps) {
  const QPointF place = view().rect().center();
  QWheelEvent event(place, view().mapToGlobal(place.toPoint()), {},
                    {0, steps * QWheelEvent::DefaultDeltasPerStep}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&view(), &event);
}

void OpenWindow::press(Qt::Key key) {
  QTest::keyClick(&view(), key);
}

void OpenWindow::type(const QString& filter) {
  auto& line = child<QLineEdit>("filter");
  line.clear();
  QTest::keyClicks(&line, filter);
}

void OpenWindow::pressButton(const char* name) {
  QTest::mouseClick(&child<QPushButton>(name), Qt::LeftButton);
}

QModelIndex OpenWindow::row(const QString& name) const {
  const QAbstractItemModel& model = *list().model();
  const auto found =
      model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
  if (found.isEmpty()) {
    throw std::runtime_error("there is no row " + name.toStdString());
  }
  return found.first();
}

void OpenWindow::selectRow(const QString& name) {
  const QModelIndex index = row(name);
  list().scrollTo(index);
  QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, list().visualRect(index).center());
}

void OpenWindow::toggle(const QString& name) {
  selectRow(name);
  QTest::keyClick(&list(), Qt::Key_Space);
}

bool OpenWindow::isChecked(const QString& name) const {
  return row(name).data(Qt::CheckStateRole) == Qt::Checked;
}

std::string OpenWindow::value(const QString& name) const {
  const auto rows = values().findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
  return rows.isEmpty() ? std::string() : rows.first()->text(1).toStdString();
}

}  // namespace vemo
