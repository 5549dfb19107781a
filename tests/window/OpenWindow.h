#pragma once

#include "render/RenderScene.h"
#include "vemoview/window/SceneWindow.h"
#include <vemo/base/InternalError.h>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTreeWidget>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <cmath>

namespace vemo {

inline Picture toPicture(const QImage& image) {
  const QImage rgb = image.convertToFormat(QImage::Format_RGB888);
  Picture picture(rgb.width(), rgb.height());
  for (int row = 0; row < rgb.height(); ++row) {
    for (int column = 0; column < rgb.width(); ++column) {
      const int offset = Picture::CHANNELS * column;
      const uchar* const pixel = rgb.constScanLine(row) + offset;
      picture.set(column, row, {pixel[0], pixel[1], pixel[2]});
    }
  }
  return picture;
}

/// How many pixels are pink, a colour that no axis has.
inline int countPink(const Picture& picture) {
  return boxWhere(picture, [](const auto& pixel) { return std::min(pixel[0], pixel[2]) > pixel[1] + 100; })
      .count;
}

/// A window on the screen, used as a user does: what is done comes as events,
/// what is asked is seen.
class OpenWindow {
 public:
  explicit OpenWindow(lum::SceneNode& scene) : _window(scene, "scene.zip") {
    // The view is wider than 4 to 3, so that its height alone says how large things are.
    _window.resize(1216, 660);
    _window.show();
    _window.activateWindow();
    VEMO_REQUIRE(QTest::qWaitForWindowActive(&_window), "the window does not appear");
  }

  SceneWindow& window() { return _window; }
  QWidget& view() const { return child<QWidget>("view"); }
  QTreeView& list() const { return child<QTreeView>("items"); }
  QTreeWidget& values() const { return child<QTreeWidget>("values"); }

  /// The pixels of the view, from the screen.
  Picture look() {
    // What was drawn comes to the screen with the events.
    constexpr int MILLISECONDS = 50;
    QTest::qWait(MILLISECONDS);
    const QRect part(view().mapTo(&_window, {0, 0}), view().size());
    return toPicture(_window.screen()
                         ->grabWindow(_window.winId(), part.x(), part.y(), part.width(), part.height())
                         .toImage());
  }

  /// Where a point of the plane z = 0 is seen in the beginning.
  QPoint placeOf(double x, double y) const {
    const double half = halfHeight();
    return {static_cast<int>(std::floor(view().width() / 2.0 + x * half)),
            static_cast<int>(std::floor(view().height() / 2.0 - y * half))};
  }

  /// What one unit of the model measures in the beginning.
  double halfHeight() const { return view().height() / 2.0; }

  void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton) {
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
  void turnWheel(int steps) {
    const QPointF place = view().rect().center();
    QWheelEvent event(place, view().mapToGlobal(place.toPoint()), {},
                      {0, steps * QWheelEvent::DefaultDeltasPerStep}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view(), &event);
  }
  void click(const QPoint& place) { QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier, place); }
  void press(Qt::Key key) { QTest::keyClick(&view(), key); }
  void pressButton(const char* name) { QTest::mouseClick(&child<QPushButton>(name), Qt::LeftButton); }
  void type(const QString& filter) {
    auto& line = child<QLineEdit>("filter");
    line.clear();
    QTest::keyClicks(&line, filter);
  }

  /// The row with this name; not valid when it is not listed.
  QModelIndex row(const QString& name) const {
    const QAbstractItemModel& model = *list().model();
    return model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
  }
  void selectRow(const QString& name) {
    const QModelIndex index = row(name);
    list().scrollTo(index);
    QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, list().visualRect(index).center());
  }
  /// Clicks on the row and uses its check box.
  void toggle(const QString& name) {
    selectRow(name);
    QTest::keyClick(&list(), Qt::Key_Space);
  }
  bool isChecked(const QString& name) const { return row(name).data(Qt::CheckStateRole) == Qt::Checked; }

  /// What stands beside a name in the table of values; empty if nothing does.
  std::string value(const QString& name) const {
    const auto rows = values().findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
    return rows.isEmpty() ? std::string() : rows.first()->text(1).toStdString();
  }

 private:
  template <class T>
  T& child(const char* name) const {
    T* const found = _window.findChild<T*>(name);
    VEMO_REQUIRE(found, std::string("there is no ") + name);
    return *found;
  }

  SceneWindow _window;
};

}  // namespace vemo
