#include "vemoview/import/archive/MemoryStream.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/WideStream.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SharedBySiblings.h>
#include <vemo/import/items/Gradient.h>
#include <vemo/import/items/Scene.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/SDBWriter.h>
#include <vemo/scenegraph/io/SceneGraphReader.h>

#include <utility>

namespace vemo {

using SceneNodePtr = lum::Ptr<lum::SceneNode>;

namespace {

/// A scene, with the blocks that it refers to without owning them.
class LoadedScene {
 public:
  LoadedScene() = default;
  LoadedScene(const LoadedScene&) = delete;
  LoadedScene& operator=(const LoadedScene&) = delete;
  ~LoadedScene() {
    if (_scene) {
      for (const auto& file : _scene->getLUMDataFiles()) {
        const ArrayOwner<unsigned char> released(file);
      }
    }
  }

  void read(SceneFileReader& reader) { reader.read(_scene); }
  const Scene& get() const { return *_scene; }

 private:
  std::unique_ptr<Scene> _scene;
};

/// A session of the node registry, or none yet; closed when it goes.
class Session {
 public:
  Session() = default;
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() { close(); }

  int open() { return _number = lum::NodeRegistrySessions::getSingleton().createSession(); }
  void leaveOpen() { _number = lum::NO_SESSION; }
  void close() {
    if (_number != lum::NO_SESSION) {
      lum::NodeRegistrySessions::getSingleton().destroySession(_number);
      leaveOpen();
    }
  }

 private:
  int _number = lum::NO_SESSION;
};

std::span<unsigned char> bytesOf(const Array_t<unsigned char>& file) {
  return {file.data, static_cast<std::size_t>(file.count)};
}

/// The scene node of the streams; empty when they hold none, or several.
SceneNodePtr decodeStreams(const Scene& scene, int session) {
  lum::NodeInputStream nodes(session);
  lum::SceneGraphReader reader(nodes);
  MemoryStream sceneStream(bytesOf(scene.getLUMSceneFile()));
  if (!reader.loadSceneFileFromInputStream(sceneStream)) {
    return {};
  }
  for (const auto& file : scene.getLUMDataFiles()) {
    MemoryStream dataStream(bytesOf(file));
    if (!reader.loadVtkDataFromInputStream(dataStream)) {
      VEMO_LOG_ERROR("Error parsing data input stream!");
      reportFinding(FindingCode::PAYLOAD_DAMAGED, "Data of the scene graph in the archive cannot be read");
    }
  }
  const auto found = lum::NodeRegistry::getSingleton(session).getNodes(lum::SceneNode::getClassName());
  return found.size() == 1 ? SceneNodePtr(found.front()) : SceneNodePtr();
}

SceneNodePtr decode(const Scene& scene, int session) {
  VEMO_LOG_INFO("\n\tparcing new, lum-based, format");
  SceneNodePtr sceneNode;
  if (scene.getLUMSceneFile().count != 0) {
    sceneNode = decodeStreams(scene, session);
  }
  VEMO_REQUIRE(sceneNode, "Can not get a SceneNode from the scene");
  return sceneNode;
}

void setUpCanvases(lum::SceneNode& sceneNode) {
  lum::SceneCanvas& orientationCanvas = sceneNode.getOrientationCanvas();
  orientationCanvas.getBaseCanvasAttributes().setSize({0.2, 0.2});
  orientationCanvas.getBaseCanvasAttributes().setErase(false);
  orientationCanvas.getAttributes<lum::CanvasPositionAttributes>().setPosition({0.0, 0.0});

  lum::SceneCanvas& modelCanvas = sceneNode.getModelCanvas();
  modelCanvas.getBaseCanvasAttributes().setSize({1.0, 1.0});
  modelCanvas.getBaseCanvasAttributes().setInteractive(true);
  modelCanvas.getAttributes<lum::CanvasPositionAttributes>().setPosition({0.0, 0.0});
}

void setBackground(lum::BackgroundAttributes& background, const Scene& scene) {
  const Gradient* const gradient = scene.getGradient();
  if (gradient == nullptr) {
    background.setColorMode(lum::BackgroundColorModes::SOLID);
    background.setSolidColor(scene.getBackgroundColor().getRGB());
    return;
  }
  VEMO_REQUIRE((gradient->getMode() != lum::BackgroundColorModes::SOLID),
               "Should not be the case. Investigate");
  background.setColorMode(gradient->getMode());
  background.setColor1(gradient->getTopColor().getRGB());
  background.setColor2(gradient->getBottomColor().getRGB());
}

SceneNodePtr convertItems(const Scene& scene, ReadingContext& context) {
  VEMO_LOG_INFO("\n\tparsing old, XML-based, format");
  SceneNodePtr sceneNode(new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName())));
  sceneNode->setName(scene.getName());
  setUpCanvases(*sceneNode);
  setBackground(sceneNode->getBackgroundCanvas().getBackgroundAttributes(), scene);

  SharedBySiblings shared;
  shared.sceneNode = sceneNode;
  shared.context = &context;
  const ReadingContext::ItemScope scope(&context, scene.getPathName(), scene.getLine());
  scene.addToCollection(shared, sceneNode->getModelCanvas().getDrawableCollection(), 0, "noname");
  return sceneNode;
}

}  // namespace

SceneConverter::SceneConverter(const std::wstring& inputPath, const std::wstring& outputPath)
    : _inputPath(inputPath), _outputPath(outputPath) {}

void SceneConverter::setObserver(Observer observer) {
  _observer = std::move(observer);
}

void SceneConverter::run() const {
  VEMO_LOG_INFO("Reading a file\n\t" << _inputPath << ", converting it, and writing to\n\t" << _outputPath);
  SceneFileReader reader{ZipFileReader(_inputPath)};
  LoadedScene scene;
  scene.read(reader);
  VEMO_LOG_INFO("\nThe scene has been read\nParsing...");

  Session session;
  SceneNodePtr sceneNode;
  if (scene.get().getLUMSceneFile().count != 0) {
    sceneNode = decode(scene.get(), session.open());
  } else {
    sceneNode = convertItems(scene.get(), reader);
  }
  VEMO_REQUIRE(sceneNode, "The scene node is expected to be created by this moment");
  VEMO_LOG_INFO("sceneNode with name \"" << sceneNode->getName() << "\" is here!");
  if (!write(*sceneNode)) {
    VEMO_LOG_ERROR("Can't open file for writing");
    session.leaveOpen();
    return;
  }
  if (_observer) {
    _observer(*sceneNode);
  }
  sceneNode = nullptr;
  session.close();
  VEMO_LOG_INFO("done");
}

bool SceneConverter::write(lum::SceneNode& sceneNode) const {
  lum::SDBWriter writer;
  if (writer.open(_outputPath, false, false) != lum::io::FileIoStatus::Success) {
    return false;
  }
  int recordNumber = 0;
  writer.addRecord("title", "description", "simUUID", sceneNode, recordNumber);
  writer.close();
  return true;
}

}  // namespace vemo
