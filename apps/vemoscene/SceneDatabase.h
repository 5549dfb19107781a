#pragma once

#include <memory>
#include <string>

namespace lum {
class SDBReader;
}

namespace vemo {

/// A scene file of either generation as a database: the file itself, or a
/// temporary one that an archive was converted into.
class SceneDatabase {
 public:
  /// Converts an archive. Throws Failure and the exceptions of the libraries.
  explicit SceneDatabase(const std::string& file);

  std::unique_ptr<lum::SDBReader> open() const;

 private:
  std::wstring _database;
};

}  // namespace vemo
