#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace vemo {

class QxElement;

/// As attributes have names in findings, the text of an element has this one.
inline constexpr const char* TEXT_NAME = "text()";

/// An element of the scene description, and the path that findings name it by.
struct PlacedElement {
  const QxElement* element = nullptr;
  std::string path;
  /// Of the document element: 0.
  std::size_t depth = 0;
};

/// Visits the elements in document order.
/// @param visit returns whether to visit the children of the element
void walkDescription(const QxElement& root, const std::function<bool(const PlacedElement&)>& visit);

/// The element counts as read, with all that it holds.
void markTreeRead(const QxElement& root);

}  // namespace vemo
