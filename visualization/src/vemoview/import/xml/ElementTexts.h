#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vemo {

/// The names and values of a document's elements. A name is kept once, and so is
/// a value that attributes of one name have one after the other. They stay where
/// they are until the document is gone.
class ElementTexts {
 public:
  struct Name {
    std::string text;
    /// What an attribute of the name was given last; null before the first.
    const std::string* latestValue = nullptr;
  };

  /// Of an element or attribute.
  Name& getName(std::string_view text);

  const std::string& getValue(Name& name, std::string_view text);

 private:
  /// By their texts.
  std::unordered_map<std::string_view, std::unique_ptr<Name>> _names;
  std::deque<std::string> _values;
};

}  // namespace vemo
