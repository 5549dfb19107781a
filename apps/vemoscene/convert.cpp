#include "Command.h"
#include "ExitCode.h"
#include "FileChecks.h"
#include "Messages.h"
#include "TemporaryFiles.h"
#include <vemo/base/WidePath.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/Ptr.h>
#include <vemo/scenegraph/io/CheckFormat.h>
#include <vemo/scenegraph/io/SDBReader.h>
#include <vemo/scenegraph/io/SDBWriter.h>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <fstream>
#include <memory>
#include <sstream>

namespace vemo {

namespace {

using lum::io::FileIoStatus;

struct Options {
  std::string file;
  std::string output;
};

[[noreturn]] void failToWrite(const std::string& output) {
  throw Failure(ExitCode::CANNOT_WRITE, fmt::format("\"{}\" cannot be written", output));
}

/// The converter does not tell whether it could write; what it left does.
void convertArchive(const Options& options) {
  const ReplacementWatch watch(options.output);
  SceneConverter(toWidePath(options.file), toWidePath(options.output)).run();
  // Opened only now: what was there before may be a pipe, and would keep us
  // waiting.
  if (!watch.isReplaced()) {
    failToWrite(options.output);
  }
  std::ifstream written(options.output, std::ios::binary);
  std::ostringstream messages;
  if (!sdb::checkFormat(written, messages)) {
    showMessage(messages.str());
    failToWrite(options.output);
  }
}

/// Reading a record checks all of it, its arrays too.
void copyDatabase(const Options& options) {
  lum::SDBReader reader(toWidePath(options.file));
  lum::SDBWriter writer;
  bool isWritten = writer.open(toWidePath(options.output), false, false) == FileIoStatus::Success;
  for (std::size_t i = 0; isWritten && i < reader.getRecords().size(); ++i) {
    const lum::SDBReader::Record& record = reader.getRecords()[i];
    const lum::Ptr<lum::Node> node = reader.readNode(i);
    int number = 0;
    isWritten = writer.addRecord(record.title, record.description, record.simUUID, *node, number) ==
                FileIoStatus::Success;
  }
  if (!isWritten || writer.close() != FileIoStatus::Success) {
    failToWrite(options.output);
  }
}

void convert(const Options& options) {
  refuseSameFile(options.file, options.output);
  removePartialOutputWhenEnded(options.output);
  const Progress progress(fmt::format("Converting {}", toPrintable(options.file)));
  std::ostringstream messages;
  switch (SceneFormatHandler::detectSceneFormat(toWidePath(options.file), messages)) {
    case SceneFormatHandler::ZippedScene:
      return convertArchive(options);
    case SceneFormatHandler::SceneDatabase:
      return copyDatabase(options);
    case SceneFormatHandler::FileMissing:
      throw Failure(ExitCode::NOT_FOUND, fmt::format("File \"{}\" does not exist", options.file));
    case SceneFormatHandler::FileUnreadable:
      throw Failure(ExitCode::READ_ERROR, fmt::format("Can't open file \"{}\"", options.file));
    case SceneFormatHandler::UnknownFormat:
      break;
  }
  throw Failure(ExitCode::UNSUPPORTED_FORMAT,
                fmt::format("{}\nUnknown file format \"{}\"", messages.str(), options.file));
}

}  // namespace

void addConvertCommand(CLI::App& app, Command& command) {
  const auto options = std::make_shared<Options>();
  CLI::App* const convertApp = app.add_subcommand(
      "convert", "Convert an old scene archive to a scene-graph database; a database is checked and copied");
  convertApp->add_option("FILE", options->file, "The scene archive or database to read")->required();
  convertApp->add_option("OUT", options->output, "The database to write, by custom NAME.sdb")->required();
  convertApp->callback([options, &command] { command = {options->file, [options] { convert(*options); }}; });
}

}  // namespace vemo
