#include "Command.h"
#include "LoadedScene.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/DetectScene.h>
#include <vemo/import/Exception.h>
#include <vemo/render/ScenePicture.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/window/ShowSceneWindow.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fmt/format.h>
#include <memory>
#include <string>

namespace vemo {

namespace {

/// In the folder of another of our libraries. The loader's own search would use
/// the run path of the caller of dlopen, which can be a sanitizer.
std::filesystem::path findWindowLibrary() {
  Dl_info neighbour{};
  if (dladdr(reinterpret_cast<const void*>(&renderPicture), &neighbour) == 0) {
    return VEMO_WINDOW_LIBRARY;
  }
  return std::filesystem::path(neighbour.dli_fname).parent_path() / VEMO_WINDOW_LIBRARY;
}

/// Loaded on demand, so that other commands start without the window's
/// libraries. Never unloaded: they register themselves in the process.
decltype(&showSceneFile) loadWindow() {
  void* const library = dlopen(findWindowLibrary().c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const function = library == nullptr ? nullptr : dlsym(library, "showSceneFile");
  if (function == nullptr) {
    throw Failure(ExitCode::UNAVAILABLE, fmt::format("Cannot load the window library: {}", dlerror()));
  }
  return reinterpret_cast<decltype(&showSceneFile)>(function);
}

lum::Ptr<lum::SceneNode> openForWindow(const std::string& file) {
  return lum::Ptr<lum::SceneNode>(&loadScene(file).requireSceneNode());
}

/// Further files are opened in the window, which shows what happens.
lum::Ptr<lum::SceneNode> openNext(const std::string& file) {
  try {
    startMessages(file);
    return openForWindow(file);
  } catch (...) {
    throw currentFailure(file);
  }
}

/// A damaged one is: opening it tells the user about the damage.
bool isScene(const std::string& file) {
  try {
    detectScene(toWidePath(file));
    return true;
  } catch (const lum::io::FileError& error) {
    return error.getStatus() != lum::io::FileIoStatus::UnsupportedFormat;
  } catch (const Exception&) {
    return true;
  }
}

[[noreturn]] void endWithoutDisplay(const std::string& cause) {
  showMessage(cause);
  std::exit(static_cast<int>(ExitCode::UNAVAILABLE));
}

void view(const std::string& file) {
  loadWindow()(openForWindow(file), file.c_str(), {openNext, isScene}, endWithoutDisplay);
}

void addViewCommand(CLI::App& app, Command& command) {
  const auto file = std::make_shared<std::string>();
  CLI::App* const viewApp =
      app.add_subcommand("view", "Open a window to explore a scene: rotate, pan, zoom, hide and pick");
  viewApp->add_option("FILE", *file, "The scene archive or database to read")->required();
  viewApp->callback([file, &command] { command.jobs.push_back({*file, [file] { view(*file); }}); });
}

const Subcommand VIEW(4, addViewCommand);

}  // namespace

}  // namespace vemo
