#include "base/MemoryReserve.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include "vemoview/import/scene/FormatDetection.h"
#include <vemo/base/Platform.h>
#include <vemo/base/WidePath.h>
#include <vemo/base/WideStream.h>
#include <vemo/import/Exception.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/import/archive/ZipFileReader.h>
#include <vemo/scenegraph/Logger.h>

#include <cerrno>
#include <cstdlib>
#include <fmt/format.h>
#include <ostream>
#include <system_error>
#include <unistd.h>

namespace vemo {

using lum::io::FileError;
using lum::io::FileIoStatus;

std::list<std::wstring>& SceneFormatHandler::_filesToDelete = *new std::list<std::wstring>;

namespace {

/// A new temporary file.
std::wstring makeTemporaryFile() {
  std::wstring path = Platform::filesystem().makeTemporaryFile(L"");
  if (path.empty()) {
    const int error = errno;
    throw OutputException(fmt::format("Cannot create a file for the converted scene in {}: {}",
                                      Platform::filesystem().getTemporaryFolder().native(),
                                      std::generic_category().message(error)));
  }
  return path;
}

/// A forked child inherits the list of files and the functions called at exit, but
/// the files are its parent's.
void forgetFilesOfParent(std::list<std::wstring>& files) {
  static pid_t process = getpid();
  if (process != getpid()) {
    process = getpid();
    files.clear();
  }
}

FileIoStatus reportFailure(const std::wstring& path, int error, std::ostream& messages) {
  try {
    failToOpen(path, error);
  } catch (const FileError& cause) {
    messages << cause.what() << std::endl;
    return cause.getStatus();
  }
}

void deleteTemporaryFile(const std::wstring& path) {
  if (!Platform::filesystem().exists(path)) {
    return;
  }
  if (Platform::filesystem().remove(path) == 0) {
    VEMO_LOG_INFO("Temporary file \"" << path << "\" has been successfully deleted");
  } else {
    VEMO_LOG_ERROR("Can not delete temporary file \"" << path << "\"");
  }
}

}  // namespace

bool SceneFormatHandler::containsSceneInZip(const std::wstring& path) {
  const ZipFileReader archive(path);
  for (int i = 0; i < archive.getEntryCount(); ++i) {
    if (archive.getEntryName(i) == SceneFileReader::SCENE_ENTRY) {
      return true;
    }
  }
  return false;
}

std::wstring SceneFormatHandler::convertZippedScene(const std::wstring& path,
                                                    const ProgressReport& progress) {
  // The place in the list comes first: without memory for it, nobody would delete the file.
  forgetFilesOfParent(_filesToDelete);
  std::list<std::wstring> made(1);
  made.front() = makeTemporaryFile();
  _filesToDelete.splice(_filesToDelete.end(), made);
  const std::wstring temporaryPath = _filesToDelete.back();
  VEMO_LOG_INFO("Registering temporary file \"" << temporaryPath << "\" to be deleted later");
  if (std::atexit(clearTemporaryFiles) != 0) {
    VEMO_LOG_ERROR("Failed to register a function for cleaning temporary files");
  }
  SceneConverter converter(path, temporaryPath);
  converter.setWriteFailureObserver([](const std::string& cause) { throw OutputException(cause); });
  converter.setProgress(progress);
  try {
    converter.run();
  } catch (const Cancelled&) {
    releaseTemporaryFile(temporaryPath);
    throw;
  }
  return temporaryPath;
}

// A copy: the host may change its function meanwhile.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
FileIoStatus SceneFormatHandler::loadVemoScene(const std::wstring& path, LoadingFunction load,
                                               std::ostream& messages, const ProgressReport& progress) {
  std::wstring pathToLoad = path;
  const DetectedFormat detected = detectFormat(path, messages);
  switch (detected.format) {
    case FileMissing:
    case FileUnreadable:
      return reportFailure(path, detected.error, messages);
    case ZippedScene:
      VEMO_LOG_INFO("Old format, converting...\n");
      pathToLoad = convertZippedScene(path, progress);
      break;
    case SceneDatabase:
      break;
    default:
      messages << "\nUnknown file format \"" << path << "\"" << std::endl;
      return FileIoStatus::UnsupportedFormat;
  }
  if (!load(pathToLoad)) {
    messages << "Error loading \"" << pathToLoad << "\"" << std::endl;
    return FileIoStatus::ReadError;
  }
  return FileIoStatus::Success;
}

void SceneFormatHandler::releaseTemporaryFile(const std::wstring& path) {
  forgetFilesOfParent(_filesToDelete);
  if (_filesToDelete.remove(path) > 0) {
    deleteTemporaryFile(path);
  }
}

void SceneFormatHandler::clearTemporaryFiles() {
  forgetFilesOfParent(_filesToDelete);
  for (const std::wstring& path : _filesToDelete) {
    OS::stopWithoutMemory([&path] { deleteTemporaryFile(path); });
  }
  _filesToDelete.clear();
  Platform::reset();
}

}  // namespace vemo
