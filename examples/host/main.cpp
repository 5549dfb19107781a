// The smallest host: opens a scene file of either generation and says what is
// in it.

#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/Traversal.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <iostream>

namespace {

/// What the module calls with a scene-graph database, whatever was opened.
bool load(const std::wstring& path) {
  lum::SDBReader reader(path);
  const lum::Ptr<lum::Node> scene = reader.readNode(0);
  int meshes = 0;
  lum::forEachNodeOf<lum::PolyDataNode>(*scene, [&meshes](lum::PolyDataNode&) { ++meshes; });
  std::cout << scene->getName() << ": " << meshes << " meshes\n";
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: host FILE\n";
    return 64;
  }
  try {
    return static_cast<int>(
        vemo::SceneFormatHandler::loadVemoScene(vemo::toWidePath(argv[1]), load, std::cerr));
  } catch (const vemo::Exception& error) {
    std::cerr << error.getMessage() << '\n' << error.getPlace() << '\n';
  } catch (const std::exception& error) {  // lum::io::FileError, InternalError
    std::cerr << error.what() << '\n';
  }
  return static_cast<int>(lum::io::FileIoStatus::ReadError);
}
