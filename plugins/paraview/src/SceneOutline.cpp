#include "SceneOutline.h"

#include "vemoview/resolve/canvas/CameraResolver.h"
#include <vemo/base/InternalError.h>
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <new>

namespace vemo {

namespace {

std::string describeFault(const Finding& fault) {
  const std::string place = describePlace(fault.itemPath, fault.line, fault.entry, fault.attribute);
  return replaceBreaks(fault.text, ' ') + (place.empty() ? "" : " (" + place + ")");
}

}  // namespace

SceneOutline outlineScene(const std::string& path, const ProgressReport& progress) {
  // All of them are found again when geometry is read.
  std::vector<Finding> ignored;
  const FindingCapture capture(ignored);
  SceneOutline outline;
  const OpenedScene opened = openSceneParts(
      toWidePath(path), [](std::size_t) { return false; }, outline.parts, progress);
  outline.kind = opened.kind;
  lum::SceneNode& scene = opened.requireSceneNode();
  outline.name = scene.getName();
  outline.camera = resolveCamera(scene.getModelCanvas().hasCameraAttributes());
  outline.blocks = listBlocks(scene, outline.parts);
  outline.choices = choicesOf(outline.blocks);
  for (SceneBlock& block : outline.blocks) {
    block.drawable = nullptr;
    block.node = nullptr;
  }
  for (SceneParts::Part& part : outline.parts.parts) {
    part.node = nullptr;
  }
  return outline;
}

LoadedBlocks loadBlocks(const std::string& path, const PartFilter& wants, const ProgressReport& progress) {
  LoadedBlocks loaded;
  const FindingCapture capture(loaded.findings);
  SceneParts parts;
  loaded.scene = openSceneParts(toWidePath(path), wants, parts, progress);
  loaded.blocks = listBlocks(loaded.scene.requireSceneNode(), parts);
  return loaded;
}

std::string describeFailure() {
  try {
    throw;
  } catch (const Cancelled&) {
    return {};
  } catch (const Exception& exception) {
    return describeFault(findingOf(exception));
  } catch (const InternalError& error) {
    return describeFault(findingOf(error));
  } catch (const std::bad_alloc&) {
    return "Out of memory";
  } catch (const std::exception& error) {
    return error.what();
  }
}

}  // namespace vemo
