#pragma once

#include "OutputFile.h"

#include <string>

namespace vemo {

class Picture;

/// The values of --format, separated by "|".
inline constexpr const char* PICTURE_FORMATS = "png|jpeg";

/// The kind of picture that a value of --format names. Throws InvalidValue.
const FileKind& parsePictureFormat(const std::string& format);

/// The kind of picture that the name of an output says; for names without an extension that of the
/// option --format, or else PNG. Throws Failure with WRONG_USAGE for another extension.
/// @param wanted by --format; may be null
const FileKind& findPictureKind(const std::string& output, const FileKind* wanted);

/// Whether pictures of the kind have opacities.
bool hasOpacity(const FileKind& kind);

/// Writes to the output, which may be standard output.
void writePicture(const Picture& picture, const FileKind& kind, const std::string& output);

}  // namespace vemo
