#pragma once

#include <vemo/import/Export.h>

#include <map>
#include <memory>
#include <string>

namespace vemo {

class Colormap;

/// The colormaps of an assembly, by name. One of them is active.
class VEMO_IMPORT_EXPORT Colormaps {
 public:
  Colormaps();
  ~Colormaps();
  Colormaps(const Colormaps&) = delete;
  Colormaps& operator=(const Colormaps&) = delete;

  /// Replaces a colormap of the same name.
  void add(std::unique_ptr<Colormap> colormap);
  void setActiveName(const std::string& name);

  /// Null when there is none of that name.
  const Colormap* find(const std::string& name) const;
  /// The colormap of the active name, else the first by name; null when there
  /// is none.
  const Colormap* getActive() const;

  using ByName = std::map<std::string, std::unique_ptr<Colormap>>;
  const ByName& getAll() const { return _byName; }

 private:
  ByName _byName;
  /// Null until set.
  std::unique_ptr<std::string> _activeName;
};

}  // namespace vemo
