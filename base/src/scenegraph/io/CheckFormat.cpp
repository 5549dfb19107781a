#include "scenegraph/io/CheckFormat.h"

#include "scenegraph/io/DatabaseFormat.h"

#include <exception>
#include <ostream>

namespace sdb {

bool checkFormat(std::istream& in, std::ostream& messages) {
  try {
    lum::io::InputSource source(in);
    const lum::io::DatabaseIndex index(source);
    return true;
  } catch (const std::exception& error) {
    messages << "This is no scene-graph database: " << error.what() << '\n';
    return false;
  }
}

}  // namespace sdb
