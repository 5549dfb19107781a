#include "vemoview/window/SceneWindow.h"

#include "vemoview/window/ErrorBox.h"
#include "vemoview/window/ItemText.h"
#include "vemoview/window/ItemsPanel.h"
#include "vemoview/window/RangeDialog.h"
#include "vemoview/window/SceneView.h"
#include "vemoview/window/ValueGroups.h"
#include "vemoview/window/ValuesPanel.h"
#include <vemo/render/Picture.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/resolve/Pick.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/edit/DataColoring.h>
#include <vemo/scenegraph/edit/Edges.h>
#include <vemo/scenegraph/edit/EditError.h>

#include <QAction>
#include <QCollator>
#include <QDir>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>
#include <algorithm>
#include <utility>

namespace vemo {

namespace {

constexpr QSize PREFERRED_SIZE(1280, 800);
constexpr int PANEL_WIDTH = 400;

constexpr const char* MOUSE_HINT =
    "Left button: rotate   Middle, or Shift and left: pan   Right, or wheel: zoom   Click: pick";

constexpr const char* HELP = R"(<table cellspacing="4">
<tr><td><b>Left button</b></td><td>rotate</td></tr>
<tr><td><b>Middle button</b>, or <b>Shift</b> and left &nbsp;</td><td>pan</td></tr>
<tr><td><b>Right button</b>, or <b>wheel</b></td><td>zoom</td></tr>
<tr><td><b>Click</b></td><td>pick an item, and read the values there</td></tr>
<tr><td><b>Click outside the model</b>, or <b>Esc</b></td><td>clear the selection</td></tr>
<tr><td><b>R</b></td><td>reset the view</td></tr>
<tr><td><b>F</b></td><td>frame all visible parts of the model</td></tr>
<tr><td><b>1</b> to <b>7</b></td><td>look from the front, back, left, right, top, bottom, or a corner (z is up)</td></tr>
<tr><td><b>E</b></td><td>show or hide the edges of surfaces</td></tr>
<tr><td><b>Ctrl+R</b></td><td>choose the range of the colours</td></tr>
<tr><td><b>H</b></td><td>hide the selected items</td></tr>
<tr><td><b>O</b></td><td>show only the selected items</td></tr>
<tr><td><b>A</b></td><td>show all items</td></tr>
<tr><td><b>Ctrl+O</b>, or drop a file</td><td>open another scene</td></tr>
<tr><td><b>Page Down</b>, <b>Page Up</b></td><td>open the next or previous scene of the folder</td></tr>
<tr><td><b>S</b>, <b>Ctrl+S</b></td><td>save a picture</td></tr>
<tr><td><b>Ctrl+C</b></td><td>copy the selected values</td></tr>
<tr><td><b>Ctrl+Q</b></td><td>quit</td></tr>
</table>)";

/// False also for what cannot be read, and for pipes, which could only be waited for.
bool isPngOrEmpty(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    return false;
  }
  const std::string start = file.read(static_cast<qint64>(Picture::PNG_SIGNATURE.size())).toStdString();
  return file.error() == QFileDevice::NoError && (start.empty() || start == Picture::PNG_SIGNATURE);
}

/// Throws PictureWriteError for a file that is no picture, such as the scene itself.
void requireSavable(const QString& path) {
  // Others may be a part of the name: "flow v1.2".
  static const QStringList OTHER_KINDS{"jpg", "jpeg", "bmp",  "gif", "tif", "tiff",
                                       "svg", "pdf",  "webp", "zip", "sdb"};
  if (OTHER_KINDS.contains(QFileInfo(path).suffix().toLower())) {
    throw PictureWriteError("\"" + path.toStdString() +
                            "\" does not end in \".png\": pictures are saved as PNG files");
  }
  if (QFileInfo::exists(path) && !isPngOrEmpty(path)) {
    throw PictureWriteError("\"" + path.toStdString() + "\" is not a PNG file and is not replaced");
  }
}

/// The preferred size, limited to the available part of the screen.
QSize initialSize() {
  constexpr double USABLE = 0.95;
  const QScreen* const screen = QGuiApplication::primaryScreen();
  return screen == nullptr ? PREFERRED_SIZE
                           : PREFERRED_SIZE.boundedTo(screen->availableGeometry().size() * USABLE);
}

/// The names of a file and of those beside it that have the extension of scenes, in the order of
/// their names: "step 9" comes before "step 10".
QStringList listScenes(const QFileInfo& file) {
  QStringList names = file.dir().entryList({"*.zip", "*.sdb"}, QDir::Files);
  if (!names.contains(file.fileName())) {
    names.append(file.fileName());
  }
  // The locale "C" has no order by numbers.
  QCollator order(QLocale::English);
  order.setNumericMode(true);
  order.setCaseSensitivity(Qt::CaseInsensitive);
  std::sort(names.begin(), names.end(), [&order](const QString& a, const QString& b) {
    const int sign = order.compare(a, b);
    return sign != 0 ? sign < 0 : a < b;
  });
  return names;
}

}  // namespace

struct SceneWindow::Command {
  const char* text;
  const char* toolTip;
  QList<QKeySequence> keys;
  std::function<void()> run;
};

SceneWindow::SceneWindow(lum::SceneNode& scene, const QString& title)
    : _scene(scene),
      _items(scene),
      _view(std::make_unique<SceneView>(
          scene, [this](const std::optional<Pick>& pick) { showPick(pick); }, this)),
      _list(std::make_unique<ItemsPanel>(
          _items, ItemsPanel::Listener{[this] { followVisibility(); }, [this](int item) { showItem(item); }},
          this)),
      _values(std::make_unique<ValuesPanel>(this)) {
  // Qt would replace "[*]".
  setWindowTitle(QString(title).replace("[*]", "[*][*]") + " - vemoscene");
  setWindowFilePath(title);
  setCentralWidget(_view.get());
  placePanels();
  addCommands();
  statusBar()->addPermanentWidget(new QLabel(MOUSE_HINT));
  resize(initialSize());
  _view->setFocus();
}

SceneWindow::~SceneWindow() = default;

void SceneWindow::placePanels() {
  const auto place = [this](const char* title, QWidget* panel) {
    auto* const dock = new QDockWidget(title, this);
    dock->setObjectName(title);
    dock->setWidget(panel);
    addDockWidget(Qt::LeftDockWidgetArea, dock);
    return dock;
  };
  QDockWidget* const list = place("Items", _list.get());
  QDockWidget* const values = place("Values", _values.get());
  resizeDocks({list, values}, {PANEL_WIDTH, PANEL_WIDTH}, Qt::Horizontal);
}

QAction* SceneWindow::add(const Command& command) {
  auto* const action = new QAction(command.text, this);
  action->setShortcuts(command.keys);
  const QString key = command.keys.isEmpty() ? QString() : command.keys[0].toString(QKeySequence::NativeText);
  action->setToolTip(QString("%1 (%2)").arg(command.toolTip, key));
  connect(action, &QAction::triggered, this, [this, run = command.run] { guard(run); });
  addAction(action);
  return action;
}

void SceneWindow::addCommands() {
  const auto selected = [this] { return _list->getSelected(); };
  auto* const save =
      add({"&Save picture...", "Write the current picture to a PNG file", {{"Ctrl+S"}, {"S"}}, [this] {
             askAndSavePicture();
           }});
  auto* const quit = add({"&Quit", "Close the window", {{"Ctrl+Q"}}, [this] { close(); }});
  auto* const reset =
      add({"&Reset view", "Restore the initial view", {{"R"}}, [this] { _view->resetView(); }});
  auto* const frame =
      add({"&Frame all", "Frame all visible parts of the model", {{"F"}}, [this] { _view->frameModel(); }});
  auto* const hide = add({"&Hide", "Hide the selected items", {{"H"}}, [this] { hideSelected(); }});
  auto* const only =
      add({"Show &only selected", "Hide all items except the selected ones", {{"O"}}, [this, selected] {
             _list->showOnly(selected());
           }});
  auto* const all =
      add({"Show &all items", "Show all items, including those hidden by the file", {{"A"}}, [this] {
             _list->showAll();
           }});
  auto* const none =
      add({"&Clear selection", "Clear selection and marker", {{"Esc"}}, [this] { clearSelection(); }});
  auto* const help =
      add({"&Mouse and keys", "Explain mouse buttons and keys", {{"F1"}}, [this] { showHelp(); }});

  _fileMenu = menuBar()->addMenu("&File");
  _fileMenu->addActions({save, quit});
  QMenu* const view = menuBar()->addMenu("&View");
  view->addActions({reset, frame});
  addViews(*view->addMenu("&Along an axis"));
  view->addSeparator();
  for (const QDockWidget* const dock : findChildren<QDockWidget*>()) {
    view->addAction(dock->toggleViewAction());
  }
  menuBar()->addMenu("&Items")->addActions({hide, only, all, none});
  addColors(*menuBar()->addMenu("&Colours"));
  menuBar()->addMenu("&Help")->addAction(help);

  QToolBar* const bar = addToolBar("Commands");
  bar->setObjectName("commands");
  bar->setMovable(false);
  bar->addActions({save, reset, frame});
  bar->addSeparator();
  bar->addActions({hide, only, all});
}

void SceneWindow::addViews(QMenu& menu) {
  const auto names = lum::EnumeratorsOf<lum::StandardView>::NAMES;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto view = static_cast<lum::StandardView>(i);
    menu.addAction(add({names[i],
                        "Show all visible parts along this direction, in parallel projection",
                        {QKeySequence(Qt::Key_1 + static_cast<int>(i))},
                        [this, view] { _view->look(view); }}));
  }
}

void SceneWindow::addColors(QMenu& menu) {
  QMenu* const arrays = menu.addMenu("&By array");
  arrays->setObjectName("arrays");
  connect(arrays, &QMenu::aboutToShow, this, [this, arrays] { listArrays(*arrays); });
  menu.addAction(add({"&Range...", "Choose the low and high end of the colours", {{"Ctrl+R"}}, [this] {
                        askAndSetRange();
                      }}));
  menu.addAction(
      add({"&Edges", "Show or hide the edges of all surfaces", {{"E"}}, [this] { toggleEdges(); }}));
}

/// The arrays of the scene, those in use checked.
void SceneWindow::listArrays(QMenu& menu) {
  menu.clear();
  const auto used = lum::listUsedColorArrays(_scene);
  for (const std::string& array : lum::listColorArrays(_scene)) {
    QAction* const action = menu.addAction(toMenuText(array));
    action->setCheckable(true);
    action->setChecked(std::ranges::find(used, array) != used.end());
    connect(action, &QAction::triggered, this, [this, array] {
      guard([&] {
        lum::colorByArray(_scene, array);
        followScene();
      });
    });
  }
}

void SceneWindow::askAndSetRange() {
  std::vector<RangeDialog::ColoringArray> arrays;
  for (const std::string& array : lum::listUsedColorArrays(_scene)) {
    arrays.push_back({array, lum::findColorRange(_scene, array).value()});
  }
  if (arrays.empty()) {
    QMessageBox::information(this, "Range of colours", "No geometry is coloured by an array.");
    return;
  }
  RangeDialog dialog(std::move(arrays), this);
  if (dialog.exec() == QDialog::Accepted) {
    lum::setColorRange(_scene, dialog.getRange(), dialog.getArray());
    followScene();
  }
}

void SceneWindow::toggleEdges() {
  lum::setEdgesShown(_scene, !lum::areEdgesShown(_scene));
  followScene();
}

void SceneWindow::followScene() {
  _list->followScene(_scene);
  _view->followScene();
}

void SceneWindow::followFiles(const QString& path, Files files) {
  _path = path;
  _files = std::move(files);
  setAcceptDrops(true);
  QAction* const first = _fileMenu->actions().first();
  _fileMenu->insertActions(
      first, {add({"&Open...", "Open another scene", {{"Ctrl+O"}}, [this] { askAndOpen(); }}),
              add({"&Next", "Open the next scene of the folder", {{"PgDown"}}, [this] { openNeighbour(1); }}),
              add({"&Previous", "Open the previous scene of the folder", {{"PgUp"}}, [this] {
                     openNeighbour(-1);
                   }})});
}

void SceneWindow::askAndOpen() {
  const QString path = QFileDialog::getOpenFileName(this, "Open a scene", QFileInfo(_path).path(),
                                                    "Scenes (*.zip *.sdb);;All files (*)");
  if (!path.isEmpty()) {
    _files.open(path);
  }
}

void SceneWindow::openNeighbour(int step) {
  const QFileInfo file(_path);
  const QStringList names = listScenes(file);
  for (int next = names.indexOf(file.fileName()) + step; next >= 0 && next < names.size(); next += step) {
    const QString path = file.dir().filePath(names[next]);
    if (_files.isScene(path)) {
      // One that cannot be opened does not keep the keys from those beyond it.
      _path = path;
      _files.open(path);
      return;
    }
  }
  statusBar()->showMessage(step > 0 ? "This is the last scene of the folder"
                                    : "This is the first scene of the folder");
}

void SceneWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (_files.open && urls.size() == 1 && urls.first().isLocalFile()) {
    event->acceptProposedAction();
  }
}

void SceneWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  _files.open(event->mimeData()->urls().first().toLocalFile());
}

void SceneWindow::guard(const std::function<void()>& action) {
  const auto report = [this](const std::exception& error) { showError(this, windowTitle(), error); };
  try {
    action();
  } catch (const RenderError& error) {
    report(error);
  } catch (const lum::EditError& error) {
    report(error);
  } catch (const SceneTooLarge& error) {
    report(error);
  }
}

void SceneWindow::followVisibility() {
  guard([this] { _view->followVisibility(); });
}

void SceneWindow::showItem(int item) {
  if (item == ItemTree::NONE) {
    _view->highlight({});
    _values->showValues({});
  } else {
    _view->highlight({.drawable = _items[item].drawable, .point = {}});
    _values->showValues(describeItem(_items, item));
  }
  statusBar()->clearMessage();
}

void SceneWindow::showPick(const std::optional<Pick>& pick) {
  if (!pick) {
    clearSelection();
    return;
  }
  const int item = _items.find(pick->drawable);
  _list->select(item);
  _view->highlight({.drawable = pick->drawable, .point = pick->pointPosition});
  _values->showValues(describePick(_items, *pick));
  statusBar()->showMessage(item == ItemTree::NONE ? QString() : pathOf(_items, item));
}

/// Hiding an item removes its highlight: the user wants to see what is behind it.
void SceneWindow::hideSelected() {
  _list->hideItems(_list->getSelected());
  _view->highlight({});
}

void SceneWindow::clearSelection() {
  _list->select(ItemTree::NONE);
  showItem(ItemTree::NONE);
}

void SceneWindow::savePicture(const QString& path) {
  requireSavable(path);
  _view->takePicture().writePng(QFile::encodeName(path).toStdString());
}

void SceneWindow::askAndSavePicture() {
  QFileDialog dialog(this, "Save picture", {}, "PNG pictures (*.png)");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("png");
  dialog.selectFile(QFileInfo(windowFilePath()).completeBaseName() + ".png");
  if (dialog.exec() == QDialog::Accepted) {
    savePicture(dialog.selectedFiles().first());
  }
}

void SceneWindow::showHelp() {
  QMessageBox box(QMessageBox::NoIcon, "Mouse and keys", HELP, QMessageBox::Close, this);
  box.setTextFormat(Qt::RichText);
  box.exec();
}

}  // namespace vemo
