#pragma once

#include <vemo/resolve/Decoration.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace vemo {

/// The file of a font for readable texts, like the style's: empty where the
/// built-in fonts have all their characters, or no file has more of them. A finding
/// names the owner of the texts, and the characters that no font has.
std::string resolveFontFile(const TextStyle& style, std::initializer_list<std::string_view> texts,
                            const std::string& owner);

}  // namespace vemo
