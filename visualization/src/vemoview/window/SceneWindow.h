#pragma once

#include "vemoview/window/ItemTree.h"

#include <QMainWindow>
#include <functional>
#include <memory>
#include <optional>

class QAction;
class QMenu;
namespace lum {
class SceneNode;
}

namespace vemo {

class ItemsPanel;
class SceneView;
class ValuesPanel;
struct Pick;

/// A window that shows a scene: picture, item list, picked values and commands.
class SceneWindow final : public QMainWindow {
 public:
  /// The scene must outlive the window. Throws SceneTooLarge.
  SceneWindow(lum::SceneNode& scene, const QString& title);
  ~SceneWindow() override;

  struct Files {
    std::function<void(const QString&)> open;
    std::function<bool(const QString&)> isScene;
  };
  /// Adds commands that open another file than that of the scene: one that the user chooses or
  /// drops, or the nearest scene before or after it in the folder.
  void followFiles(const QString& path, Files files);

  /// Writes the current picture to a PNG file, which may replace another one but no other file. Throws
  /// PictureWriteError.
  void savePicture(const QString& path);

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  struct Command;

  void placePanels();
  void addCommands();
  void addViews(QMenu& menu);
  void addColors(QMenu& menu);
  QAction* add(const Command& command);

  void followVisibility();
  /// Shows the scene after its colours or edges have changed.
  void followScene();
  void listArrays(QMenu& menu);
  void askAndSetRange();
  void toggleEdges();
  void showItem(int item);
  void showPick(const std::optional<Pick>& pick);
  void hideSelected();
  void clearSelection();
  void askAndSavePicture();
  void showHelp();
  void askAndOpen();
  void openNeighbour(int step);
  /// Runs an action and shows its drawing and writing errors in a dialog.
  void guard(const std::function<void()>& action);

  lum::SceneNode& _scene;
  QMenu* _fileMenu = nullptr;
  /// Of the scene, or what was tried instead last.
  QString _path;
  /// Empty in a window that cannot open others.
  Files _files;
  ItemTree _items;
  // They refer to the items and must be destroyed before them.
  std::unique_ptr<SceneView> _view;
  std::unique_ptr<ItemsPanel> _list;
  std::unique_ptr<ValuesPanel> _values;
};

}  // namespace vemo
