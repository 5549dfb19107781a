#pragma once

#include "vemoview/window/ItemTree.h"

#include <QString>
#include <cstdint>
#include <string_view>

namespace lum {
class Drawable;
}

namespace vemo {

// How items are called in the window.

/// A text of the scene for one line, as toPrintableLine has it.
QString toText(std::string_view text);

/// The same for a tool tip, which would take some texts for HTML.
QString toToolTip(const QString& text);

/// The same for a menu, where "&" marks the letter of a key.
QString toMenuText(std::string_view text);

/// "Surface", "Lines" and the like; "Group" for what only holds others.
QString kindOf(const lum::Drawable& drawable);

/// An unnamed item is called by its kind.
QString nameOf(const ItemTree& items, int item);

/// The names from the canvas's to the item's own.
QString pathOf(const ItemTree& items, int item);

/// A count with thousands separators: 1,234,567.
QString countText(std::int64_t count);

}  // namespace vemo
