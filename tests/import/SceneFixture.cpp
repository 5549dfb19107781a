#include "SceneFixture.h"

#include "support/Files.h"
#include "support/Nodes.h"
#include <vemo/import/SceneConverter.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/scenegraph/Logger.h>

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <sstream>
#include <typeinfo>
#include <utility>

namespace vemo {

namespace {

/// Never destroyed: lines are logged until the process is gone.
std::vector<std::string>& lines() {
  static auto& kept = *new std::vector<std::string>;
  return kept;
}

// Places that log look at their flag once: it is set before any of them runs.
const bool LOGGING = [] {
  Logger::getSingleton().setFlags(Logger::INFO_FLAG | Logger::WARNING_FLAG | Logger::ERROR_FLAG);
  Logger::getSingleton().setSink([](const std::string& line) { lines().push_back(line); });
  return true;
}();

std::string nameOf(const Exception& exception) {
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(typeid(exception).name(), nullptr, nullptr, nullptr), &std::free);
  return std::string(name.get()).substr(std::string("vemo::").size());
}

}  // namespace

std::vector<std::string> takeLog() {
  return std::exchange(lines(), {});
}

bool logHas(const std::vector<std::string>& log, const std::string& line) {
  return std::ranges::find(log, line) != log.end();
}

std::unique_ptr<QxElement> elementOf(const std::string& xml) {
  const TemporaryFolder folder;
  ArchiveBuilder().text("e", xml).write(folder / "a.zip");
  return SceneFileReader(ZipFileReader(wide(folder / "a.zip"))).readXml("e");
}

std::string failureOf(const std::function<void()>& function) {
  try {
    function();
  } catch (const Exception& exception) {
    const std::string line = exception.getLine() > 0 ? std::to_string(exception.getLine()) : "";
    return nameOf(exception) + ": " + exception.getMessage() + " | " + exception.getItemPath() + ":" + line +
           ":" + exception.getEntry();
  } catch (const InternalError& error) {
    const Properties& properties = error.getProperties();
    const std::string& item = properties.get("itemPath");
    const std::string& entry = properties.get("entry");
    const std::string place = item + ":" + properties.get("sceneLine") + (entry.empty() ? "" : ":" + entry);
    return "InternalError: " + error.getMessage() + " | " + error.getExpression() +
           (item.empty() ? "" : " | " + place);
  }
  return "";
}

std::vector<LedgerRow> rowsOf(const std::wstring& archive) {
  const TemporaryFolder folder;
  std::vector<LedgerRow> rows;
  SceneConverter converter(archive, wide(folder / "scene.sdb"));
  converter.setLedgerObserver([&rows](const SceneLedger& ledger) {
    ledger.list([&rows](const LedgerRow& row) { rows.push_back(row); });
  });
  failureOf([&converter] { converter.run(); });
  return rows;
}

SceneFixture::SceneFixture() {
  _archive.floats("p", {0, 0, 0, 2, 0, 0, 2, 4, 0, 0, 4, 0})
      .ints("tri", {3, 0, 1, 2})
      .ints("quad", {3, 0, 1, 2, 3, 0, 2, 3})
      .ints("strip", {4, 0, 1, 2, 3})
      .ints("line", {2, 0, 1, 2, 2, 3})
      .ints("vert", {1, 0, 1, 1, 1, 2, 1, 3})
      .floats("four", {1, 2, 3, 4})
      .floats("two", {5, 6});
  takeLog();
}

std::wstring SceneFixture::archivePath() const {
  return wide(_folder / "scene.zip");
}

void SceneFixture::write(const std::string& xml) {
  ArchiveBuilder(_archive).text("scene.xml", xml).write(_folder / "scene.zip");
}

void SceneFixture::writeScene(const std::string& children) {
  write(_hasDefaults ? sceneXml(children) : plainSceneXml(children));
}

std::unique_ptr<Scene> SceneFixture::read(const std::string& children) {
  writeScene(children);
  _reader.emplace(ZipFileReader(archivePath()));
  std::unique_ptr<Scene> scene;
  return std::move(_reader->read(scene));
}

GeometryItem& SceneFixture::readItem(const std::string& attributes, const std::string& children) {
  _scene = read(geometry(attributes, children));
  return static_cast<GeometryItem&>(*_scene->getChildren().at(0));
}

lum::SceneNode& SceneFixture::convert(const std::string& children) {
  _sceneNode = make<lum::SceneNode>();
  SharedBySiblings shared;
  shared.sceneNode = _sceneNode;
  const auto scene = read(children);
  shared.context = &*_reader;
  const ReadingContext::ItemScope scope(shared.context, scene->getPathName(), scene->getPlace());
  scene->addToCollection(shared, _sceneNode->getModelCanvas().getDrawableCollection(), 0, "noname");
  return *_sceneNode;
}

lum::DrawableCollection& SceneFixture::collection(const std::string& path) {
  lum::DrawableCollection* found = &_sceneNode->getModelCanvas().getDrawableCollection();
  std::istringstream names(path);
  for (std::string name; std::getline(names, name, '/');) {
    found = found->find<lum::DrawableCollection>(name);
    VEMO_REQUIRE(found, "There is no collection " + path);
  }
  return *found;
}

}  // namespace vemo
