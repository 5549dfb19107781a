#include "LoadedScene.h"

#include "InputFile.h"
#include "output/Messages.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>

#include <fmt/format.h>
#include <optional>

namespace vemo {

const OpenedScene& loadScene(const std::string& file) {
  // Never destroyed.
  static auto& scene = *new std::optional<OpenedScene>;
  scene.reset();
  Progress progress(fmt::format("Reading {}", toPrintableLine(file)));
  return scene.emplace(openScene(toWidePath(readableFile(file)), progress.getReport()));
}

}  // namespace vemo
