#include "Command.h"
#include "FileArguments.h"
#include "FileChecks.h"
#include "LoadedScene.h"
#include "output/ExitCode.h"
#include "output/Messages.h"
#include "picture/PictureFile.h"
#include "picture/SceneChanges.h"
#include "picture/ValueTexts.h"
#include <vemo/base/PrintableText.h>
#include <vemo/render/ScenePicture.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <fmt/format.h>
#include <memory>

namespace vemo {

namespace {

struct RenderArguments {
  FileArguments files;
  SceneChanges changes;
  RenderOptions picture;
  /// Null for that of the output's name.
  const FileKind* format = nullptr;
  bool force = false;
};

Picture draw(const RenderArguments& arguments, const std::string& file) {
  const OpenedScene& scene = loadScene(file);
  const Progress progress(fmt::format("Drawing {}", toPrintableLine(file)));
  lum::SceneNode& node = scene.requireSceneNode();
  RenderOptions options = arguments.picture;
  applyChanges(arguments.changes, node, options);
  return renderPicture(node, options);
}

void render(const RenderArguments& arguments, const std::string& file, const std::string& output) {
  rejectSameFile(file, output);
  const FileKind& kind = findPictureKind(output, arguments.format);
  if (arguments.picture.isTransparent && !hasOpacity(kind)) {
    throw Failure(ExitCode::WRONG_USAGE, "A JPEG file cannot be transparent");
  }
  checkOutput(output, kind, arguments.force);
  writePicture(draw(arguments, file), kind, output);
}

void requireSize(const RenderOptions& picture) {
  if (std::max(picture.scaledWidth(), picture.scaledHeight()) > MAX_PICTURE_SIZE) {
    throw CLI::ValidationError(
        "--scale", fmt::format("gives {} x {} pixels, more than {} each way", picture.scaledWidth(),
                               picture.scaledHeight(), MAX_PICTURE_SIZE));
  }
  if (picture.scale * std::min(picture.width, picture.height) < 1.0) {
    throw CLI::ValidationError("--scale", "gives less than one pixel");
  }
}

void addPictureOptions(CLI::App& app, RenderOptions& picture) {
  addValueOption(
      app, "--size", "WxH",
      "Width and height of the picture in pixels, or W of one of 4 to 3 (default 1024x768)",
      [&picture](const std::string& text) { std::tie(picture.width, picture.height) = parseSize(text); });
  addValueOption(app, "--scale", "X",
                 "For paper: so many times as many pixels each way, with lines and points as much larger",
                 [&picture](const std::string& text) { picture.scale = parsePositive(text, MAX_SCALE); });
  app.add_flag("--transparent", picture.isTransparent,
               "Leave the background transparent, in a PNG file only");
}

void addRenderCommand(CLI::App& app, Command& command) {
  const auto arguments = std::make_shared<RenderArguments>();
  CLI::App* const renderApp =
      app.add_subcommand("render", "Draw a scene to a PNG or JPEG file; needs no display");
  arguments->files.addTo(*renderApp, "The picture to write, a PNG file (.png) or JPEG file (.jpg, .jpeg)");
  renderApp->add_flag("--force", arguments->force, "Also replace a file of another kind");
  addValueOption(
      *renderApp, "--format", PICTURE_FORMATS,
      "Format of pictures in the folder of -d, and of others whose name has no extension (default png)",
      [&format = arguments->format](const std::string& text) { format = &parsePictureFormat(text); });
  addPictureOptions(*renderApp, arguments->picture);
  addSceneChanges(*renderApp, arguments->changes);
  addFailOnOption(*renderApp, command);
  renderApp->callback([arguments, &command] {
    requireSize(arguments->picture);
    const char* const extension = findPictureKind("", arguments->format).extension;
    command.prepare = [arguments] { arguments->files.makeFolder(); };
    command.summarize = FileArguments::showFailures;
    command.jobs = FileArguments::makeJobs(
        arguments->files.getPaths(extension),
        [arguments](const FileArguments::Paths& paths) { render(*arguments, paths.file, paths.output); });
  });
}

const Subcommand RENDER(3, addRenderCommand);

}  // namespace

}  // namespace vemo
