#include <vemo/import/items/Colormap.h>
#include <vemo/import/items/Colormaps.h>

#include <utility>

namespace vemo {

Colormaps::Colormaps() = default;
Colormaps::~Colormaps() = default;

void Colormaps::add(std::unique_ptr<Colormap> colormap) {
  const std::string& name = colormap->getName();
  _byName.insert_or_assign(name, std::move(colormap));
}

void Colormaps::setActiveName(const std::string& name) {
  _activeName = std::make_unique<std::string>(name);
}

const Colormap* Colormaps::find(const std::string& name) const {
  const auto found = _byName.find(name);
  return found != _byName.end() ? found->second.get() : nullptr;
}

const Colormap* Colormaps::getActive() const {
  const Colormap* const active = _activeName ? find(*_activeName) : nullptr;
  if (active != nullptr || _byName.empty()) {
    return active;
  }
  return _byName.begin()->second.get();
}

}  // namespace vemo
