#pragma once

#include <vemo/scenegraph/Export.h>

#include <charconv>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace lum {

/// Writes JSON to a stream call by call, without holding the document:
///
///     json.beginObject();
///     json.key("size");
///     json.value(3);
///     json.endObject();
///
/// The caller checks the stream for errors.
class VEMO_SCENEGRAPH_EXPORT JsonWriter {
 public:
  /// How an object or array is laid out; the content of a ONE_LINE one is on
  /// the same line.
  enum class Layout { LINES, ONE_LINE };

  explicit JsonWriter(std::ostream& out);
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  void beginObject(Layout layout = Layout::LINES) { begin('{', '}', layout); }
  void endObject() { end(); }
  void beginArray(Layout layout = Layout::LINES) { begin('[', ']', layout); }
  void endArray() { end(); }

  /// Starts a member of the current object; its value must follow.
  void key(std::string_view name);

  /// Bytes that are not UTF-8 are written as U+FFFD.
  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  void value(bool truth);
  void null();

  /// Writes the shortest digits that read back as the same number of this type;
  /// null for a number that is not finite.
  template <class T>
  requires std::is_arithmetic_v<T> &&(!std::same_as<T, bool>)void value(T number) {
    separate();
    appendNumber(number);
    flushWhenLarge();
  }

  /// An array of numbers on one line.
  template <class T>
  void values(std::span<const T> numbers) {
    beginArray(Layout::ONE_LINE);
    for (const T number : numbers) {
      value(number);
    }
    endArray();
  }

  /// A text value written in parts.
  void beginText();
  void appendText(std::string_view part);
  void endText();

  /// Ends the document with a line end and hands all of it to the stream.
  void finish();

 private:
  struct Level {
    char closing;
    Layout layout;
    bool empty = true;
  };

  template <class T>
  void appendNumber(T number) {
    if constexpr (std::is_floating_point_v<T>) {
      if (!std::isfinite(number)) {
        _buffer += "null";
        return;
      }
      // Without a fraction readers would take it for the integer, which has no
      // sign.
      if (number == 0 && std::signbit(number)) {
        _buffer += "-0.0";
        return;
      }
    }
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, number);
    _buffer.append(digits, result.ptr);
  }

  void begin(char opening, char closing, Layout layout);
  void end();
  void separate();
  void breakLine();
  void flushWhenLarge();
  void flush();

  std::ostream& _out;
  std::string _buffer;
  std::vector<Level> _levels;
  bool _afterKey = false;
};

}  // namespace lum
