#include "Command.h"
#include "ExitCode.h"
#include "LoadedScene.h"
#include "vemoview/window/ShowSceneWindow.h"

#include <CLI/CLI.hpp>
#include <dlfcn.h>
#include <filesystem>
#include <fmt/format.h>
#include <memory>

namespace {

/// The other commands shall not wait until the window's libraries are there, so
/// they are loaded when there is to be a window. Never unloaded: they have
/// registered much in the process.
decltype(&showSceneWindow) loadWindow() {
  void* const library = dlopen(VEMO_WINDOW_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  void* const function = library == nullptr ? nullptr : dlsym(library, "showSceneWindow");
  if (function == nullptr) {
    throw Failure(ExitCode::NO_OPENGL, fmt::format("The window's library cannot be loaded: {}", dlerror()));
  }
  return reinterpret_cast<decltype(&showSceneWindow)>(function);
}

void view(const std::string& file) {
  const LoadedScene scene(file);
  loadWindow()(scene.getSceneNode(), std::filesystem::path(file).filename().c_str());
}

}  // namespace

void addViewCommand(CLI::App& app, Command& command) {
  const auto file = std::make_shared<std::string>();
  CLI::App* const viewApp =
      app.add_subcommand("view", "Open a window on the scene: turn, pan, zoom, hide and pick");
  viewApp->add_option("FILE", *file, "The scene archive or database to read")->required();
  viewApp->callback([file, &command] { command = {*file, [file] { view(*file); }}; });
}
