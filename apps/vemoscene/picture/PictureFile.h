#pragma once

#include "OutputFile.h"

#include <string>

namespace vemo {

class Picture;

/// The kind of picture that the name of an output says; PNG for names without an extension.
/// Throws Failure with WRONG_USAGE for any other extension.
const FileKind& findPictureKind(const std::string& output);

/// Whether pictures of the kind have opacities.
bool hasOpacity(const FileKind& kind);

/// Writes to the output, which may be standard output.
void writePicture(const Picture& picture, const FileKind& kind, const std::string& output);

}  // namespace vemo
