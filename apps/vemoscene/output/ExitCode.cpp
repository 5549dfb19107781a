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

/// Adds the file's name to a message that does not begin with it or quote it; standard input has none.
std::string withFile(const std::string& file, const std::string& message) {
  const bool isNamed = file.empty() || file == "-" || message.starts_with(file + ": ") ||
                       message.find('"' + file + '"') != std::string::npos;
  return isNamed ? message : fmt::format("{}: {}", file, message);
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

Failure currentFailure(const std::string& file) {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const FileNotFoundException& exception) {
    return {ExitCode::NOT_FOUND, withFile(file, describeWithPlace(exception))};
  } catch (const OutputException& exception) {
    return {ExitCode::CANNOT_WRITE, exception.getMessage()};
  } catch (const Exception& exception) {
    return {ExitCode::READ_ERROR, withFile(file, describeWithPlace(exception))};
  } catch (const InternalError& error) {
    return {ExitCode::READ_ERROR, withFile(file, describeWithPlace(error))};
  } catch (const lum::io::FileError& error) {
    return {static_cast<ExitCode>(error.getStatus()), withFile(file, error.what())};
  } catch (const RenderingUnavailable& error) {
    return {ExitCode::UNAVAILABLE, error.what()};
  } catch (const lum::EditError& error) {
    return {ExitCode::WRONG_USAGE, withFile(file, error.what())};
  } catch (const NothingToFit& error) {
    return {ExitCode::WRONG_USAGE, withFile(file, error.what())};
  } catch (const PictureWriteError& error) {
    return {ExitCode::CANNOT_WRITE, error.what()};
  } catch (const OS::FileWriteError& error) {
    return {ExitCode::CANNOT_WRITE, error.what()};
  } catch (const std::bad_alloc&) {
    return {ExitCode::UNEXPECTED, withFile(file, "Out of memory")};
  } catch (const std::exception& error) {
    return {ExitCode::UNEXPECTED, withFile(file, error.what())};
  } catch (...) {
    return {ExitCode::UNEXPECTED, withFile(file, "Unknown error")};
  }
}

ExitCode reportFailure(const std::string& file) {
  try {
    const Failure failure = currentFailure(file);
    // What cannot be written is logged by the library.
    if (failure.what() != lastLogged()) {
      showMessage(failure.what());
    }
    return failure.getCode();
  } catch (const std::bad_alloc&) {
    // There is none for the message either.
    constexpr std::string_view MESSAGE = "vemoscene: Out of memory\n";
    [[maybe_unused]] const auto written = write(STDERR_FILENO, MESSAGE.data(), MESSAGE.size());
    return ExitCode::UNEXPECTED;
  }
}

}  // namespace vemo
