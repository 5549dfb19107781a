#include "Command.h"
#include "FileChecks.h"
#include "LoadedScene.h"
#include "OutputFile.h"
#include "output/Messages.h"
#include "output/ResultStream.h"
#include <vemo/base/PrintableText.h>
#include <vemo/render/ScenePicture.h>

#include <CLI/CLI.hpp>
#include <charconv>
#include <fmt/format.h>
#include <memory>
#include <optional>
#include <vector>

namespace vemo {

namespace {

constexpr int MAX_SIZE = 16384;

struct RenderArguments {
  std::string file;
  std::string output;
  RenderOptions picture;
  bool force = false;
};

constexpr FileKind PNG{".png", "PNG file", Picture::PNG_SIGNATURE, true};

/// A text that is a valid number of pixels, and nothing else.
std::optional<int> parsePixels(std::string_view text) {
  int pixels = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, pixels);
  const bool isValid = result.ec == std::errc() && result.ptr == end && pixels >= 1 && pixels <= MAX_SIZE;
  return isValid ? std::optional(pixels) : std::nullopt;
}

/// Returns an error message for the parser, empty for a valid size.
std::string parseSize(const std::string& text, RenderOptions& picture) {
  const std::size_t separator = text.find('x');
  if (separator != std::string::npos) {
    const auto width = parsePixels(std::string_view(text).substr(0, separator));
    const auto height = parsePixels(std::string_view(text).substr(separator + 1));
    if (width && height) {
      picture.width = *width;
      picture.height = *height;
      return {};
    }
  }
  return fmt::format("\"{}\" is not a size such as 1024x768, with 1 to {} pixels each way", text, MAX_SIZE);
}

Picture draw(const RenderArguments& options) {
  const OpenedScene& scene = loadScene(options.file);
  const Progress progress(fmt::format("Drawing {}", toPrintable(options.file)));
  return renderPicture(requireSceneNode(scene, options.file), options.picture);
}

void render(const RenderArguments& options) {
  rejectSameFile(options.file, options.output);
  if (!hasExtension(options.output, PNG)) {
    rejectOtherExtension(options.output, fmt::format("{} ({})", PNG.description, PNG.extension));
  }
  checkOutput(options.output, PNG, options.force);
  const Picture picture = draw(options);
  if (isStandardOutput(options.output)) {
    const std::vector<std::uint8_t> bytes = picture.toPng();
    ResultStream out;
    out.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    out.finish();
  } else {
    picture.writePng(options.output);
  }
}

void addRenderCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<RenderArguments>();
  CLI::App* const renderApp = app.add_subcommand("render", "Draw a scene to a PNG file; needs no display");
  renderApp->add_option("FILE", options->file, "The scene archive or database to read")->required();
  renderApp
      ->add_option("OUT", options->output, "The picture to write, a PNG file (.png); - is standard output")
      ->required();
  renderApp->add_flag("--force", options->force, "Also replace a file of another kind");
  renderApp
      ->add_option_function<std::string>("--size",
                                         [options](const std::string& text) {
                                           const std::string complaint = parseSize(text, options->picture);
                                           if (!complaint.empty()) {
                                             throw CLI::ValidationError("--size", complaint);
                                           }
                                         })
      ->option_text("WxH")
      ->description("Width and height of the picture in pixels (default 1024x768)");
  addFailOnOption(*renderApp, command);
  renderApp->callback([options, &command] {
    command.file = options->file;
    command.run = [options] { render(*options); };
  });
}

const Subcommand RENDER(3, addRenderCommand);

}  // namespace

}  // namespace vemo
