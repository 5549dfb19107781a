#include "vemoview/import/scene/SceneImport.h"

#include "base/MemoryStream.h"
#include "vemoview/import/scene/PartList.h"
#include <vemo/base/WideStream.h>
#include <vemo/import/decorations/Gradient.h>
#include <vemo/import/items/SharedBySiblings.h>
#include <vemo/import/scene/Scene.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/Logger.h>
#include <vemo/scenegraph/NodeRegistry.h>
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/NodeInputStream.h>
#include <vemo/scenegraph/io/SceneGraphReader.h>

#include <algorithm>
#include <fmt/format.h>
#include <map>
#include <utility>
#include <vector>

namespace vemo {

namespace {

using SceneNodePtr = lum::Ptr<lum::SceneNode>;

std::span<const std::byte> bytesOf(const Array_t<unsigned char>& file) {
  return std::as_bytes(std::span(file.data, static_cast<std::size_t>(file.count)));
}

void reportDamage(const std::string& text) {
  reportFinding(FindingCode::PAYLOAD_DAMAGED, text);
}

/// Calls a function; what it reports is about an entry of the archive.
template <class Function>
void reportAbout(const std::string& entry, ReadingContext& context, Function&& function) {
  std::vector<Finding> findings;
  const auto forward = [&] {
    for (Finding& finding : findings) {
      finding.entry = entry;
      context.report(std::move(finding));
    }
  };
  try {
    const FindingCapture capture(findings);
    function();
  } catch (...) {
    forward();
    throw;
  }
  forward();
}

/// Releases each data file once it is decoded: arrays may take most of the memory.
void decodeDataFiles(Scene& scene, lum::NodeInputStream& nodes, SceneFileReader& context) {
  lum::SceneGraphReader reader(nodes);
  for (const std::string& entry : context.getPayloadEntries()) {
    if (scene.getLUMDataFiles().empty()) {
      // An audit goes on although this one could not be read.
      break;
    }
    const ArrayOwner<unsigned char> file = scene.takeLUMDataFile();
    MemoryStream dataStream(bytesOf(file.get()));
    reportAbout(entry, context, [&] {
      if (!reader.loadVtkDataFromInputStream(dataStream)) {
        VEMO_LOG_INFO("Error parsing data input stream!");
      }
    });
  }
  // Also after damage was reported, which need not be that of these arrays.
  const std::size_t missing = nodes.getMissingArrayCount();
  if (missing > 0) {
    reportDamage(fmt::format(
        "{} of the arrays of the scene graph are missing or damaged; geometry is left out", missing));
  }
}

/// What the streams have beside the scene.
void reportUnused(const lum::SceneNode& scene, lum::NodeInputStream& nodes) {
  const auto others = std::ranges::count_if(nodes.getRoots(), [&scene](const lum::Ptr<lum::Node>& root) {
    return root.get() != &scene && root->getOwner() == nullptr;
  });
  if (others > 0) {
    reportFinding(FindingCode::PAYLOAD_UNUSED,
                  fmt::format("{} of the graphs in the archive are not part of its scene", others));
  }
  if (const std::size_t arrays = nodes.getUnusedArrayCount()) {
    reportFinding(FindingCode::PAYLOAD_UNUSED,
                  fmt::format("{} of the arrays of the scene graph belong to no node", arrays));
  }
}

[[noreturn]] void failToDecode(const std::string& cause) {
  InternalError error("Can not get a SceneNode from the scene", "sceneNode", __FILE__, __LINE__);
  error.getProperties().set("cause", cause);
  error.getProperties().set("entry", SceneFileReader::LUM_SCENE_ENTRY);
  throw error;
}

void decodeScene(Scene& scene, lum::NodeInputStream& nodes, ReadingContext& context) {
  MemoryStream stream(bytesOf(scene.getLUMSceneFile()));
  try {
    reportAbout(SceneFileReader::LUM_SCENE_ENTRY, context, [&] { nodes.readScene(stream); });
  } catch (const lum::io::FileError& error) {
    failToDecode(error.what());
  }
}

/// The scene node of the streams, which must be the only one.
SceneNodePtr decode(Scene& scene, int session, SceneFileReader& context) {
  VEMO_LOG_INFO("\n\tparcing new, lum-based, format");
  lum::NodeInputStream nodes(session);
  nodes.setNodeLimit(context.getLimits().elements);
  decodeScene(scene, nodes, context);
  decodeDataFiles(scene, nodes, context);
  const auto found = lum::NodeRegistry::getSingleton(session).getNodes(lum::SceneNode::getClassName());
  if (found.size() != 1) {
    failToDecode(fmt::format("The scene graph has {} scene nodes", found.size()));
  }
  const SceneNodePtr sceneNode(found.front());
  reportUnused(*sceneNode, nodes);
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

SceneNodePtr convertItems(const Scene& scene, ReadingContext& context,
                          std::map<int, lum::PolyDataNode*>* geometryNodes) {
  VEMO_LOG_INFO("\n\tparsing old, XML-based, format");
  SceneNodePtr sceneNode(new lum::SceneNode(lum::ClassNameNodeInitializer(lum::SceneNode::getClassName())));
  sceneNode->setName(scene.getName());
  setUpCanvases(*sceneNode);

  SharedBySiblings shared;
  shared.sceneNode = sceneNode;
  shared.context = &context;
  shared.geometryNodes = geometryNodes;
  const ReadingContext::ItemScope scope(&context, Scene::XML_ENTITY, scene.getPlace());
  lum::BackgroundAttributes& background = sceneNode->getBackgroundCanvas().getBackgroundAttributes();
  const bool isBackgroundUsable = context.attempt([&] {
    const Gradient* const gradient = scene.getGradient();
    const ReadingContext::ItemScope backgroundScope(
        &context, gradient != nullptr ? gradient->getPathName() : Gradient::XML_ENTITY,
        gradient != nullptr ? gradient->getPlace() : scene.getPlace());
    const ReadingContext::AttributeScope modeScope(&context, "mode");
    setBackground(background, scene);
  });
  if (!isBackgroundUsable || !scene.isBackgroundSound()) {
    // No text is recoloured on it, which would only follow from the fault.
    background.setColorMode(lum::BackgroundColorModes::SOLID);
    background.setSolidColor({1, 1, 1});
  }
  scene.addToCollection(shared, sceneNode->getModelCanvas().getDrawableCollection(), 0, "noname");
  return sceneNode;
}

}  // namespace

SceneImport::Session::~Session() {
  close();
}

int SceneImport::Session::open() {
  return _number = lum::NodeRegistrySessions::getSingleton().createSession();
}

void SceneImport::Session::close() {
  if (_number != lum::NO_SESSION) {
    lum::NodeRegistrySessions::getSingleton().destroySession(_number);
    _number = lum::NO_SESSION;
  }
}

void SceneImport::Session::leaveOpen() {
  if (_number != lum::NO_SESSION) {
    lum::NodeRegistry::getSingleton(_number).release();
    _number = lum::NO_SESSION;
  }
}

SceneImport::SceneImport(ZipFileReader archive) : _reader(std::move(archive)) {}

SceneImport::~SceneImport() {
  _reserve.useForDestructors();
  while (_scene && !_scene->getLUMDataFiles().empty()) {
    _scene->takeLUMDataFile();
  }
}

void SceneImport::setPartFilter(PartFilter wants) {
  _wantsPart = std::move(wants);
  _reader.setPartFilter(_wantsPart);
}

void SceneImport::read() {
  _reader.read(_scene);
}

lum::SceneNode& SceneImport::convert() {
  _reader.getProgress().startPhase(SceneFileReader::ITEMS_CONVERTED,
                                   _reader.countItems() * SceneFileReader::BYTES_PER_ITEM);
  if (_scene->getLUMSceneFile().count != 0) {
    _reader.report(FindingCode::DESCRIPTION_REPLACED,
                   "The archive holds a scene graph, which is used instead of the items of the description",
                   SceneFileReader::SCENE_ENTRY);
    _sceneNode = decode(*_scene, _session.open(), _reader);
    if (_wantsPart && _sceneNode) {
      _parts = keepParts(*_sceneNode, _wantsPart);
    }
  } else if (_wantsPart) {
    std::map<int, lum::PolyDataNode*> nodes;
    _reader.callAndLocateFailures([&] { _sceneNode = convertItems(*_scene, _reader, &nodes); });
    _parts = listParts(_reader, nodes);
  } else {
    _reader.callAndLocateFailures([this] { _sceneNode = convertItems(*_scene, _reader, nullptr); });
  }
  // The scene graph has all of it that is needed from here on.
  _scene.reset();
  VEMO_REQUIRE(_sceneNode, "The scene node is expected to be created by this moment");
  return *_sceneNode;
}

void SceneImport::close() {
  _sceneNode = nullptr;
  _session.close();
}

void SceneImport::leaveSessionOpen() {
  _sceneNode = nullptr;
  _session.leaveOpen();
}

}  // namespace vemo
