#include "SceneFixture.h"

#include "support/CollectionAt.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/SharedBySiblings.h>
#include <vemo/scenegraph/Logger.h>

#include <algorithm>
#include <iterator>
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
  return SceneFileReader(ZipFileReader(toWidePath((folder / "a.zip").native()))).readXml("e");
}

std::string failureOf(const std::function<void()>& function) {
  const auto told = [](const char* type, const Exception& exception) {
    const std::string line = exception.getLine() > 0 ? std::to_string(exception.getLine()) : "";
    return std::string(type) + ": " + exception.getMessage() + " | " + exception.getItemPath() + ":" + line +
           ":" + exception.getEntry();
  };
  try {
    function();
  } catch (const IOException& exception) {
    return told("IOException", exception);
  } catch (const XMLException& exception) {
    return told("XMLException", exception);
  } catch (const NumberFormatException& exception) {
    return told("NumberFormatException", exception);
  } catch (const FutureVersionException& exception) {
    return told("FutureVersionException", exception);
  } catch (const Exception& exception) {
    return told("Exception", exception);
  } catch (const InternalError& error) {
    return "InternalError: " + error.getMessage() + " | " + error.getExpression();
  }
  return "";
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
  return toWidePath((_folder / "scene.zip").native());
}

void SceneFixture::write(const std::string& xml) {
  ArchiveBuilder(_archive).text("scene.xml", xml).write(_folder / "scene.zip");
}

std::unique_ptr<Scene> SceneFixture::read(const std::string& children) {
  write(sceneXml(children));
  _reader.emplace(ZipFileReader(archivePath()));
  std::unique_ptr<Scene> scene;
  return std::move(_reader->read(scene));
}

lum::SceneNode& SceneFixture::convert(const std::string& children) {
  _sceneNode = new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName()));
  SharedBySiblings shared;
  shared.sceneNode = _sceneNode;
  read(children)->addToCollection(shared, _sceneNode->getModelCanvas().getDrawableCollection(), 0, "noname");
  return *_sceneNode;
}

std::vector<std::string> SceneFixture::warnings() const {
  std::vector<std::string> texts;
  std::ranges::transform(_reader->getWarnings(), std::back_inserter(texts), &SceneWarning::text);
  return texts;
}

lum::DrawableCollection& SceneFixture::collection(const std::string& path) {
  return collectionAt(*_sceneNode, path);
}

}  // namespace vemo
