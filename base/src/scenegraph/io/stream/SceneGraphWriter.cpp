#include <vemo/scenegraph/io/NodeOutputStream.h>
#include <vemo/scenegraph/io/SceneGraphWriter.h>

#include <ostream>

namespace lum {

bool SceneGraphWriter::saveSceneFileToOutputStream(std::ostream& out) {
  _stream.takeScene(out);
  return static_cast<bool>(out.flush());
}

std::size_t SceneGraphWriter::getVtkDataCount() const {
  return _stream.getDataCount();
}

bool SceneGraphWriter::saveVtkDataToOutputStream(std::ostream& out) {
  return _stream.takeData(out) && out.flush();
}

}  // namespace lum
