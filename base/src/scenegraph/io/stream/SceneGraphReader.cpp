#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/scenegraph/io/NodeStream.h>
#include <vemo/scenegraph/io/SceneGraphReader.h>

namespace lum {

bool SceneGraphReader::loadSceneFileFromInputStream(std::istream& in) {
  return load(&NodeStream::readScene, in);
}

bool SceneGraphReader::loadVtkDataFromInputStream(std::istream& in) {
  return load(&NodeStream::readData, in);
}

bool SceneGraphReader::load(Read read, std::istream& in) {
  _error.clear();
  try {
    (_stream.*read)(in);
  } catch (const io::FileError& error) {
    _error = error.what();
    vemo::reportFinding(vemo::FindingCode::STREAM_INVALID, _error);
  }
  return _error.empty();
}

}  // namespace lum
