#include "output/ExitCode.h"

#include "base/AtomicFile.h"
#include "output/Messages.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/edit/EditError.h>
#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>
#include <new>
#include <string>
#include <string_view>
#include <unistd.h>

namespace vemo {

namespace {

/// What happened, and where in the scene.
std::string describe(const std::string& message, const Finding& fault) {
  const std::string place = describePlace(fault.itemPath, fault.line, fault.entry, fault.attribute);
  return place.empty() ? message : fmt::format("{} ({})", message, place);
}

std::string describeWithPlace(const Exception& exception) {
  return describe(describe(exception), findingOf(exception));
}

std::string describeWithPlace(const InternalError& error) {
  const Finding fault = findingOf(error);
  return describe(fault.text, fault);
}

ExitCode report(ExitCode code, const std::string& message) {
  // What cannot be written is logged by the library.
  if (message != lastLogged()) {
    showMessage(message);
  }
  return code;
}

/// Adds the file's name to a message that does not contain it; standard input has none.
ExitCode report(ExitCode code, const std::string& file, const std::string& message) {
  const bool isNamed = file == "-" || message.find(file) != std::string::npos;
  return report(code, isNamed ? message : fmt::format("{}: {}", file, message));
}

ExitCode reportCurrentException(const std::string& file) {
  try {
    throw;
  } catch (const Failure& failure) {
    return report(failure.getCode(), failure.what());
  } catch (const FileNotFoundException& exception) {
    return report(ExitCode::NOT_FOUND, file, describeWithPlace(exception));
  } catch (const OutputException& exception) {
    return report(ExitCode::CANNOT_WRITE, exception.getMessage());
  } catch (const Exception& exception) {
    return report(ExitCode::READ_ERROR, file, describeWithPlace(exception));
  } catch (const InternalError& error) {
    return report(ExitCode::READ_ERROR, file, describeWithPlace(error));
  } catch (const lum::io::FileError& error) {
    return report(static_cast<ExitCode>(error.getStatus()), file, error.what());
  } catch (const RenderingUnavailable& error) {
    return report(ExitCode::UNAVAILABLE, error.what());
  } catch (const lum::EditError& error) {
    return report(ExitCode::WRONG_USAGE, file, error.what());
  } catch (const NothingToFit& error) {
    return report(ExitCode::WRONG_USAGE, file, error.what());
  } catch (const PictureWriteError& error) {
    return report(ExitCode::CANNOT_WRITE, error.what());
  } catch (const OS::FileWriteError& error) {
    return report(ExitCode::CANNOT_WRITE, error.what());
  } catch (const std::bad_alloc&) {
    return report(ExitCode::UNEXPECTED, file, "Out of memory");
  } catch (const std::exception& error) {
    return report(ExitCode::UNEXPECTED, file, error.what());
  } catch (...) {
    return report(ExitCode::UNEXPECTED, file, "Unknown error");
  }
}

}  // namespace

std::string describeExitCodes() {
  return R"(Exit status:
   0  done
   1  done, but a finding is as severe as --fail-on says; "diff": the scenes differ
   2  FILE does not exist; "diff": any error except wrong usage
   3  FILE has an unknown scene format
   5  FILE cannot be read, or its content is invalid
   6  the result cannot be written
  64  wrong usage
  69  no OpenGL, no display, or built without the window
  70  anything else unexpected)";
}

ExitCode reportFailure(const std::string& file) {
  try {
    return reportCurrentException(file);
  } catch (const std::bad_alloc&) {
    // There is none for the message either.
    constexpr std::string_view MESSAGE = "vemoscene: Out of memory\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, MESSAGE.data(), MESSAGE.size());
    return ExitCode::UNEXPECTED;
  }
}

}  // namespace vemo
