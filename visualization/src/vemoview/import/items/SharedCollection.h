#pragma once

#include <vemo/scenegraph/Finding.h>

#include <string>

namespace lum {
class Drawable;
class DrawableCollection;
class Node;
}  // namespace lum

namespace vemo {

class ReadingContext;
struct SharedBySiblings;

/// Individually, whatever owns it.
bool isVisible(const lum::Drawable& drawable);

// Items with the same name and parent share a collection. It is hidden while
// all of them are hidden. Once one is shown, the others are hidden
// individually.

/// The collection of that name, created visible if necessary. A hidden one
/// becomes visible for an item that is shown; what it held is hidden instead.
/// @param isHidden whether the item is
lum::DrawableCollection& shareCollection(lum::DrawableCollection& parent, const std::string& name,
                                         bool isHidden);

/// Reports that the current item replaces what a node came from.
/// @param path of that; by default that of the current item
void reportReplaced(const SharedBySiblings& shared, const lum::Node& node, FindingCode code,
                    const std::string& text, const std::string& path = {});

/// Reports when items that share a collection get the transform of others.
/// @param hasTransform whether the item converted into it has one
void reportSharedTransform(ReadingContext* context, const lum::DrawableCollection& collection,
                           bool hasTransform);

}  // namespace vemo
