#include "scenegraph/io/database/DatabaseFormat.h"
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/FileError.h>

#include <exception>
#include <new>
#include <ostream>

namespace vemo::sdb {

bool checkFormat(std::istream& in, std::ostream& messages) {
  try {
    lum::io::InputSource source(in);
    const lum::io::DatabaseIndex index(source);
    return true;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const lum::io::UnreadableFile&) {
    throw;
  } catch (const std::exception& error) {
    messages << "Not a scene-graph database: " << error.what() << '\n';
    return false;
  }
}

}  // namespace vemo::sdb
