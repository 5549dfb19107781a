#pragma once

#include "vemoview/window/SceneWindow.h"
#include <vemo/render/Picture.h>

#include <QPoint>
#include <string>

class QImage;
class QModelIndex;
class QTreeView;
class QTreeWidget;
class QWidget;

namespace vemo {

int countPink(const Picture& picture);
Picture toPicture(const QImage& image);

/// A window on the screen, used as a user does: what is done comes as events,
/// what is asked is seen.
class OpenWindow {
 public:
  explicit OpenWindow(lum::SceneNode& scene);

  SceneWindow& window() { return _window; }
  QWidget& view() const;
  QTreeView& list() const;
  QTreeWidget& values() const;

  /// The pixels of the view, from the screen.
  Picture look();
  /// How many of them are pink, a colour that no axis has.
  int countPink();

  /// Where a point of the plane z = 0 is seen in the beginning.
  QPoint placeOf(double x, double y) const;

  void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton);
  void click(const QPoint& place);
  void turnWheel(int steps);
  void press(Qt::Key key);
  void type(const QString& filter);
  void pressButton(const char* name);

  /// The row with this name, which must be there.
  QModelIndex row(const QString& name) const;
  void selectRow(const QString& name);
  /// Clicks on the row and uses its check box.
  void toggle(const QString& name);
  bool isChecked(const QString& name) const;

  /// What stands beside a name in the table of values; empty if nothing does.
  std::string value(const QString& name) const;

 private:
  template <class T>
  T& child(const char* name) const;

  SceneWindow _window;
};

}  // namespace vemo
