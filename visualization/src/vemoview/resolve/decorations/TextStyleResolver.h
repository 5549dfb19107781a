#pragma once

#include <vemo/base/Vector.h>
#include <vemo/resolve/Decoration.h>
#include <vemo/resolve/Export.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace vemo {

class FontResolver;

/// How readable texts are written; null has the style of fresh attributes. The
/// owner of the texts is for a finding.
TextStyle resolveTextStyle(const lum::TextAttributes* attributes,
                           std::initializer_list<std::string_view> texts, const std::string& owner,
                           FontResolver& fonts);

/// The height of a line as a fraction of the window's, or the default where the
/// attributes (or null) leave it open.
double resolveLineHeight(const lum::TextAttributes* attributes, double fallback);

/// The width and height that a text has at most, in heights of a line.
Vector<2, double> textExtent(std::string_view text);

/// How many pictures of the usual shape a text fills at most, once it is small enough for LineHeightLimit.
double picturesFilledBy(std::string_view text, double lineHeight);

/// The greatest height of lines, in pixels, at which a text still fits into a texture, and
/// does not fill many more pixels than the window has.
class VEMO_RESOLVE_EXPORT LineHeightLimit {
 public:
  explicit LineHeightLimit(std::string_view text);

  double in(const Vector<2, double>& window) const;

 private:
  Vector<2, double> _extent;
};

/// Reports a text that is too large for that, or may be in pictures of usual sizes.
void reportIfTooLong(std::string_view text, double lineHeight, const std::string& owner);

/// Reports lines of less than a pixel, which are not drawn.
void reportIfTooSmall(double lineHeight, const std::string& owner);

}  // namespace vemo
