#include "ExitCode.h"

#include "Messages.h"
#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/scenegraph/io/FileError.h>

#include <fmt/format.h>
#include <new>
#include <string>

namespace vemo {

namespace {

/// The message of an exception of the import module, completed where it is only
/// a value or empty.
std::string describe(const Exception& exception) {
  std::string message = exception.getMessage();
  if (dynamic_cast<const FutureVersionException*>(&exception) != nullptr && message.empty()) {
    message = "The scene was written by a newer version of the software";
  } else if (dynamic_cast<const NumberFormatException*>(&exception) != nullptr) {
    message = fmt::format("\"{}\" is not a number", message);
  }
  const std::string place = exception.getPlace();
  return place.empty() ? message : fmt::format("{}\n({})", message, place);
}

/// The place in the scene, worded as for its own exceptions, then the place in
/// the program.
std::string describe(const InternalError& error) {
  const Properties& properties = error.getProperties();
  Exception scene(error.getMessage());
  scene.setItemPath(properties.get("itemPath"));
  scene.setEntry(properties.get("entry"));
  const std::string& line = properties.get("sceneLine");
  scene.setLine(line.empty() ? 0 : std::stoi(line));
  return fmt::format("{}\n({}:{}: {})", describe(scene), error.getFile(), error.getLine(),
                     error.getExpression());
}

ExitCode report(ExitCode code, const std::string& message) {
  showMessage(message);
  return code;
}

/// Adds the file's name to a message that does not contain it.
ExitCode report(ExitCode code, const std::string& file, const std::string& message) {
  const bool isNamed = message.find(file) != std::string::npos;
  return report(code, isNamed ? message : fmt::format("{}: {}", file, message));
}

}  // namespace

std::string describeExitCodes() {
  return R"(Exit status:
   0  done
   1  done, with findings that --fail-on names; "diff": the scenes differ
   2  FILE does not exist; "diff": any trouble but wrong usage
   3  FILE has an unknown scene format
   5  FILE cannot be read, or its content is invalid
   6  the result cannot be written
  64  wrong usage
  69  no OpenGL on this machine, or no display
  70  anything else unexpected)";
}

ExitCode reportFailure(const std::string& file) {
  try {
    throw;
  } catch (const Failure& failure) {
    return report(failure.getCode(), failure.what());
  } catch (const FileNotFoundException& exception) {
    return report(ExitCode::NOT_FOUND, file, describe(exception));
  } catch (const Exception& exception) {
    return report(ExitCode::READ_ERROR, file, describe(exception));
  } catch (const InternalError& error) {
    return report(ExitCode::READ_ERROR, file, describe(error));
  } catch (const lum::io::FileError& error) {
    return report(static_cast<ExitCode>(error.getStatus()), file, error.what());
  } catch (const RenderingUnavailable& error) {
    return report(ExitCode::NO_OPENGL, error.what());
  } catch (const PictureWriteError& error) {
    return report(ExitCode::CANNOT_WRITE, error.what());
  } catch (const std::bad_alloc&) {
    return report(ExitCode::UNEXPECTED, file, "Out of memory");
  } catch (const std::exception& error) {
    return report(ExitCode::UNEXPECTED, file, error.what());
  } catch (...) {
    return report(ExitCode::UNEXPECTED, file, "Unknown error");
  }
}

}  // namespace vemo
