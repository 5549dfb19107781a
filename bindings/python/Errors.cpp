#include "Errors.h"

#include "Text.h"
#include <vemo/base/InternalError.h>
#include <vemo/base/PrintableText.h>
#include <vemo/base/Progress.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/render/RenderErrors.h>
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/scenegraph/io/FileError.h>

#include <cerrno>
#include <new>
#include <pybind11/pybind11.h>
#include <system_error>

namespace py = pybind11;

namespace vemo::python {

namespace {

/// The path as Python has names of files; None when there is none.
py::object toPathText(const std::string& path) {
  return path.empty() ? py::object(py::none())
                      : py::reinterpret_steal<py::object>(PyUnicode_DecodeFSDefaultAndSize(
                            path.data(), static_cast<Py_ssize_t>(path.size())));
}

[[noreturn]] void raise(const py::object& exception) {
  PyErr_SetObject(py::type::of(exception).ptr(), exception.ptr());
  throw py::error_already_set();
}

/// @param where what is known of the place
[[noreturn]] void raise(const char* className, const std::string& message, const std::string& path,
                        const Finding& where = {}) {
  const py::object exception = py::module_::import("vemoscene._errors").attr(className);
  raise(exception(
      toPython(replaceBreaks(message, ' ')), py::arg("path") = toPathText(path),
      py::arg("entry") = toOptional(where.entry), py::arg("item") = toOptional(where.itemPath),
      py::arg("attribute") = toOptional(where.attribute), py::arg("line") = toOptional(where.line),
      py::arg("place") = toPython(describePlace(where.itemPath, where.line, where.entry, where.attribute))));
}

/// The subclass of OSError that belongs to the number.
[[noreturn]] void raiseSystemError(int number, const std::string& path) {
  const py::object error = py::reinterpret_borrow<py::object>(PyExc_OSError);
  raise(error(number, std::generic_category().message(number), toPathText(path)));
}

template <class... Kinds>
bool isAnyOf(const Exception& exception) {
  return (... || (dynamic_cast<const Kinds*>(&exception) != nullptr));
}

const char* classOf(const Exception& exception) {
  if (isAnyOf<XMLException, NumberFormatException>(exception)) {
    return "DescriptionError";
  }
  if (isAnyOf<FutureVersionException>(exception)) {
    return "UnsupportedVersionError";
  }
  return isAnyOf<IOException, ZipException>(exception) ? "ArchiveError" : "SceneError";
}

[[noreturn]] void raise(const lum::io::FileError& error, const WorkFiles& files) {
  using lum::io::FileIoStatus;
  switch (error.getStatus()) {
    case FileIoStatus::NotFound:
      raiseSystemError(ENOENT, files.source);
    case FileIoStatus::UnsupportedFormat:
      raise("UnsupportedFormatError", error.what(), files.source);
    case FileIoStatus::WriteError:
      raise("OutputError", error.what(), files.target);
    default:
      raise("DatabaseError", error.what(), files.source);
  }
}

}  // namespace

void rethrowAsPython(const WorkFiles& files) {
  try {
    throw;
  } catch (const Cancelled& cancelled) {
    raise(py::module_::import("vemoscene._errors").attr("Cancelled")(cancelled.what()));
  } catch (const FileNotFoundException&) {
    raiseSystemError(ENOENT, files.source);
  } catch (const OutputException& exception) {
    raise("OutputError", exception.getMessage(), files.target);
  } catch (const UnreadableException& exception) {
    raiseSystemError(exception.getError(), files.source);
  } catch (const Exception& exception) {
    raise(classOf(exception), describe(exception), files.source, findingOf(exception));
  } catch (const InternalError& error) {
    const Finding fault = findingOf(error);
    raise("ItemError", fault.text, files.source, fault);
  } catch (const lum::io::UnreadableFile& error) {
    raiseSystemError(error.getError() != 0 ? error.getError() : EIO, files.source);
  } catch (const lum::io::FileError& error) {
    raise(error, files);
  } catch (const RenderingUnavailable& error) {
    raise("RenderingUnavailableError", error.what(), files.source);
  } catch (const PictureWriteError& error) {
    raise("OutputError", error.what(), files.target);
  } catch (const RenderError& error) {
    raise("RenderError", error.what(), files.source);
  } catch (const SceneTooLarge& error) {
    raise("SceneTooLargeError", error.what(), files.source);
  }
}

}  // namespace vemo::python
