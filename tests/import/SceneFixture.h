#pragma once

#include "support/ArchiveBuilder.h"
#include "support/SceneXml.h"
#include "support/TemporaryFolder.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/SceneLedger.h>
#include <vemo/import/geometry/GeometryItem.h>
#include <vemo/import/scene/Scene.h>
#include <vemo/import/xml/QxElement.h>
#include <vemo/scenegraph/canvas/SceneNode.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vemo {

/// What the process has logged since it was last asked. Everything is logged,
/// from the start of the program on.
std::vector<std::string> takeLog();
/// Whether a line was logged since.
bool logHas(const std::vector<std::string>& log, const std::string& line);

/// An element of its own, as the reader would make it from the text.
std::unique_ptr<QxElement> elementOf(const std::string& xml);

/// What the function throws: "IOException: message | item:line:entry" or
/// "InternalError: message | expression", with " | item:line" behind it if that
/// is known; empty when it throws nothing.
std::string failureOf(const std::function<void()>& function);

/// What becomes of the parts of a scene in its conversion, even of one that fails.
std::vector<LedgerRow> rowsOf(const std::wstring& archive);

/// Archives become scenes and scene nodes here. The archive has entries to
/// start with: "p", four points; "tri", one triangle; "quad", two; "strip", a
/// strip of two triangles; "line", two lines; "vert", four vertices; "four" and
/// "two", that many floats.
class SceneFixture : public testing::Test {
 protected:
  SceneFixture();

  std::wstring archivePath() const;
  /// Writes the archive with the scene element.
  void write(const std::string& xml);
  /// Writes the archive with the scene of the children.
  void writeScene(const std::string& children);
  /// Reads the scene with the children; the reader stays in `_reader`.
  std::unique_ptr<Scene> read(const std::string& children);
  /// Reads a scene that has one geometry and stays in `_scene`.
  GeometryItem& readItem(const std::string& attributes, const std::string& children = "");
  /// Converts the items of the scene with the children.
  lum::SceneNode& convert(const std::string& children);
  /// What is in the model canvas: by the collections' names, as "A/B".
  lum::DrawableCollection& collection(const std::string& path);
  /// The first drawable of its class in the collection.
  template <class T>
  T& drawable(const std::string& path) {
    T* const found = collection(path).template find<T>();
    EXPECT_TRUE(found) << path;
    return *found;
  }

  TemporaryFolder _folder;
  ArchiveBuilder _archive;
  /// Whether the elements of SceneXml.h have their default attributes.
  bool _hasDefaults = true;
  std::optional<SceneFileReader> _reader;
  std::unique_ptr<Scene> _scene;
  lum::Ptr<lum::SceneNode> _sceneNode;
};

}  // namespace vemo
