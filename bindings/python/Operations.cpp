#include "Operations.h"

#include "FoundFindings.h"
#include "NodeHandle.h"
#include "ProgressBridge.h"
#include "Text.h"
#include "shared/CheckScene.h"
#include "shared/CopyDatabase.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/Exception.h>
#include <vemo/import/OpenScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/render/ScenePicture.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <memory>
#include <pybind11/numpy.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace py = pybind11;

namespace vemo::python {

namespace {

/// An opened scene as Python is to hold it.
struct HeldScene {
  struct Record {
    lum::SDBReader::Record names;
    std::shared_ptr<Graph> graph;
  };

  bool isArchive = false;
  std::vector<Record> records;
  std::vector<Finding> findings;
};

/// The arguments of the class Scene in vemoscene/_scene.py, but for the path.
py::tuple toArguments(const HeldScene& scene) {
  py::list records;
  for (const HeldScene::Record& record : scene.records) {
    records.append(py::make_tuple(toPython(record.names.title), toPython(record.names.description),
                                  toPython(record.names.simUUID),
                                  toPython(record.graph, &record.graph->getRoot())));
  }
  return py::make_tuple(scene.isArchive, records, toTuple(scene.findings));
}

/// @param source a path, or bytes
template <class Source>
py::tuple open(const std::string& path, const Source& source, const py::object& progress) {
  return toArguments(runInTurn({.source = path}, progress, [&source](const ProgressReport& report) {
    HeldScene held;
    const FindingCapture capture(held.findings);
    OpenedScene opened = openScene(source, report);
    held.isArchive = opened.kind == SceneKind::ARCHIVE;
    for (OpenedScene::Record& record : opened.records) {
      const lum::SDBReader::Record& names = record;
      held.records.push_back({names, std::make_shared<Graph>(std::move(record.node))});
    }
    return held;
  }));
}

py::tuple openFile(const std::string& path, const py::object& progress) {
  return open(path, toWidePath(path), progress);
}

py::tuple openBytes(const py::bytes& bytes, const py::object& progress) {
  return open({}, std::as_bytes(std::span(std::string_view(bytes))), progress);
}

void convertArchive(const std::wstring& source, const std::wstring& target, const ProgressReport& report) {
  SceneConverter converter(source, target);
  converter.setProgress(report);
  converter.setWriteFailureObserver([](const std::string& cause) { throw OutputException(cause); });
  converter.run();
}

py::tuple convert(const std::string& source, const std::string& target, const py::object& progress) {
  return toTuple(runInTurn({source, target}, progress, [&](const ProgressReport& report) {
    std::vector<Finding> findings;
    const FindingCapture capture(findings);
    if (detectScene(toWidePath(source)) == SceneKind::ARCHIVE) {
      convertArchive(toWidePath(source), toWidePath(target), report);
    } else {
      copyDatabase(toWidePath(source), toWidePath(target), report, {});
    }
    return findings;
  }));
}

py::tuple check(const std::string& path) {
  return toTuple(runInTurn({.source = path}, py::none(),
                           [&](const ProgressReport&) { return checkScene(toWidePath(path)); }));
}

struct DrawnPicture {
  std::unique_ptr<Picture> picture;
  std::vector<Finding> findings;
};

DrawnPicture draw(const lum::SceneNode& scene, const RenderOptions& options, const std::string& file,
                  bool isJpeg) {
  DrawnPicture drawn;
  const FindingCapture capture(drawn.findings);
  drawn.picture = std::make_unique<Picture>(renderPicture(scene, options));
  if (!file.empty()) {
    isJpeg ? drawn.picture->writeJpeg(file) : drawn.picture->writePng(file);
  }
  return drawn;
}

/// The picture's own memory.
py::array toNumpy(std::unique_ptr<Picture> picture) {
  const std::vector<py::ssize_t> shape{picture->getHeight(), picture->getWidth(), Picture::CHANNELS};
  const std::uint8_t* const bytes = picture->getBytes().data();
  const py::capsule owner(picture.release(), [](void* kept) { delete static_cast<Picture*>(kept); });
  return py::array_t<std::uint8_t>(shape, bytes, owner);
}

const lum::SceneNode& requireScene(const lum::Node& node) {
  if (node.className() != lum::SceneNode::getClassName()) {
    throw py::value_error("only a SceneNode can be drawn, not a " + node.className());
  }
  return dynamic_cast<const lum::SceneNode&>(node);
}

/// @param file for the picture; empty for none
py::tuple render(const NodeHandle& root, int width, int height, const std::string& file, bool isJpeg) {
  const lum::SceneNode& scene = requireScene(*root.node);
  DrawnPicture drawn = runInTurn({.target = file}, py::none(), [&](const ProgressReport&) {
    return draw(scene, {.width = width, .height = height}, file, isJpeg);
  });
  return py::make_tuple(toNumpy(std::move(drawn.picture)), toTuple(drawn.findings));
}

/// With the interpreter lock, unlike all other work.
py::object inTurn(const py::function& work) {
  const LibraryTurn turn;
  const py::gil_scoped_acquire acquired;
  return work();
}

}  // namespace

void defineOperations(py::module_& module) {
  module.attr("VERSION") = VEMO_VERSION;
  module.attr("MAX_PICTURE_SIZE") = MAX_PICTURE_SIZE;
  module.def("open", openFile, py::arg("path"), py::arg("progress"));
  module.def("open_bytes", openBytes, py::arg("data"), py::arg("progress"));
  module.def("convert", convert, py::arg("source"), py::arg("target"), py::arg("progress"));
  module.def("check", check, py::arg("path"));
  module.def("render", render, py::arg("root"), py::arg("width"), py::arg("height"), py::arg("file"),
             py::arg("is_jpeg"));
  module.def("in_turn", inTurn, py::arg("work"));
  module.def("end_turns", endTurns);
  module.def("hold_turn", holdTurn);
  module.def("let_go_turn", letGoTurn);
  module.def("let_go_turn_in_child", letGoTurnInChild);
}

}  // namespace vemo::python
