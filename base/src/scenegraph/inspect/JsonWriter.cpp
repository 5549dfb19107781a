#include <vemo/base/WidePath.h>
#include <vemo/scenegraph/inspect/JsonWriter.h>

#include <algorithm>

namespace lum {

namespace {

constexpr std::size_t BUFFER_SIZE = 1 << 16;
constexpr std::size_t INDENT = 2;

bool isPlain(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte >= 0x20 && character != '"' && character != '\\';
}

void appendEscaped(std::string& out, char character) {
  static constexpr std::string_view ESCAPED = "\"\\\b\f\n\r\t";
  static constexpr std::string_view LETTERS = "\"\\bfnrt";
  static constexpr std::string_view DIGITS = "0123456789abcdef";
  const std::size_t known = ESCAPED.find(character);
  if (known != std::string_view::npos) {
    out += {'\\', LETTERS[known]};
    return;
  }
  const auto byte = static_cast<unsigned char>(character);
  out += {'\\', 'u', '0', '0', DIGITS[byte >> 4], DIGITS[byte & 0xF]};
}

/// The text with a U+FFFD in place of each byte that is not UTF-8.
std::string toValidUtf8(std::string_view text) {
  std::wstring characters = vemo::toWidePath(text);
  const auto isStrayByte = [](wchar_t character) { return character >= 0xDC80 && character <= 0xDCFF; };
  std::ranges::replace_if(characters, isStrayByte, L'\xFFFD');
  return vemo::toNativePath(characters);
}

bool isAscii(std::string_view text) {
  return std::ranges::all_of(text,
                             [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

void appendText(std::string& out, std::string_view text) {
  while (!text.empty()) {
    const auto special = std::ranges::find_if_not(text, isPlain);
    const auto plain = static_cast<std::size_t>(special - text.begin());
    out.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (!text.empty()) {
      appendEscaped(out, text.front());
      text.remove_prefix(1);
    }
  }
}

}  // namespace

JsonWriter::JsonWriter(std::ostream& out) : _out(out) {
  _buffer.reserve(BUFFER_SIZE + BUFFER_SIZE / 16);
}

void JsonWriter::begin(char opening, char closing, Layout layout) {
  separate();
  _buffer += opening;
  const bool isInLine = !_levels.empty() && _levels.back().layout == Layout::ONE_LINE;
  _levels.push_back({closing, isInLine ? Layout::ONE_LINE : layout});
}

void JsonWriter::end() {
  const Level level = _levels.back();
  _levels.pop_back();
  if (!level.empty && level.layout == Layout::LINES) {
    breakLine();
  }
  _buffer += level.closing;
  flushWhenLarge();
}

void JsonWriter::separate() {
  if (_afterKey || _levels.empty()) {
    _afterKey = false;
    return;
  }
  Level& level = _levels.back();
  if (!level.empty) {
    _buffer += level.layout == Layout::ONE_LINE ? ", " : ",";
  }
  if (level.layout == Layout::LINES) {
    breakLine();
  }
  level.empty = false;
}

void JsonWriter::breakLine() {
  _buffer += '\n';
  _buffer.append(INDENT * _levels.size(), ' ');
}

void JsonWriter::key(std::string_view name) {
  value(name);
  _buffer += ": ";
  _afterKey = true;
}

void JsonWriter::value(std::string_view text) {
  beginText();
  appendText(text);
  endText();
}

void JsonWriter::value(bool truth) {
  separate();
  _buffer += truth ? "true" : "false";
}

void JsonWriter::null() {
  separate();
  _buffer += "null";
}

void JsonWriter::beginText() {
  separate();
  _buffer += '"';
}

void JsonWriter::appendText(std::string_view part) {
  if (isAscii(part)) {
    lum::appendText(_buffer, part);
  } else {
    lum::appendText(_buffer, toValidUtf8(part));
  }
  flushWhenLarge();
}

void JsonWriter::endText() {
  _buffer += '"';
}

void JsonWriter::finish() {
  _buffer += '\n';
  flush();
  _out.flush();
}

void JsonWriter::flushWhenLarge() {
  if (_buffer.size() >= BUFFER_SIZE) {
    flush();
  }
}

void JsonWriter::flush() {
  _out.write(_buffer.data(), static_cast<std::streamsize>(_buffer.size()));
  _buffer.clear();
}

}  // namespace lum
