#include "vemoview/import/SceneFileReader.h"

#include <vemo/base/InternalError.h>
#include <vemo/import/Exception.h>
#include <vemo/import/QxElement.h>
#include <vemo/scenegraph/Logger.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <exception>
#include <expat.h>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace vemo {

const std::string SceneFileReader::SCENE_ENTRY = "scene.xml";
const std::string SceneFileReader::LUM_SCENE_ENTRY = "scene.lum";
const std::string SceneFileReader::LUM_ENTRY_PREFIX = "lum";

namespace {

/// Of an item's name in a path: a stranger's name may be as long as the file.
constexpr std::size_t MAX_NAME_LENGTH = 60;

template <class T>
[[noreturn]] void failAt(const std::string& message, const std::string& entry, int line = 0) {
  T exception(message);
  exception.setEntry(entry);
  exception.setLine(line);
  throw exception;
}

[[noreturn]] void failIncomplete(const std::string& entryName) {
  failAt<IOException>("Could not completely read entry '" + entryName + "'<br>Your file may be corrupt.",
                      entryName);
}

/// Turns big-endian words into this machine's, in place.
void turnWords(unsigned char* bytes, std::size_t size) {
  if constexpr (std::endian::native == std::endian::big) {
    return;
  }
  for (std::size_t i = 0; i + 4 <= size; i += 4) {
    std::uint32_t word = 0;
    std::memcpy(&word, bytes + i, 4);
    word = __builtin_bswap32(word);
    std::memcpy(bytes + i, &word, 4);
  }
}

/// The bytes of a name that fit into a path, cut between characters.
std::string shortened(const std::string& name) {
  if (name.size() <= MAX_NAME_LENGTH) {
    return name;
  }
  std::size_t end = MAX_NAME_LENGTH;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) {
    --end;
  }
  return name.substr(0, end) + "...";
}

/// Builds the tree of one XML entry from the parser's calls.
class TreeBuilder {
 public:
  /// @param mostElements what may be made, attributes counted as elements
  TreeBuilder(const std::string& entryName, std::uint64_t mostElements)
      : _entryName(entryName),
        _elementsLeft(mostElements),
        _parser(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (!_parser) {
      failAt<XMLException>("Couldn't allocate memory for XML parser", entryName);
    }
    XML_SetUserData(_parser.get(), this);
    XML_SetElementHandler(_parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(_parser.get(), setText);
  }

  std::unique_ptr<QxElement> build(std::span<const unsigned char> text) {
    const XML_Status status = XML_Parse(_parser.get(), reinterpret_cast<const char*>(text.data()),
                                        static_cast<int>(text.size()), 1);
    if (_failure) {
      std::rethrow_exception(_failure);
    }
    if (status == XML_STATUS_ERROR) {
      failAt<XMLException>("Parse error in scene.xml at line" + std::to_string(getLine()), _entryName,
                           getLine());
    }
    return std::move(_document);
  }

 private:
  static void startElement(void* user, const char* name, const char** attributes) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    builder.guard([&] { builder.push(name, attributes); });
  }

  static void endElement(void* user, const char* /*name*/) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    // A parser that was stopped at an empty element's start still tells its end.
    if (!builder._failure) {
      builder._open.pop_back();
    }
  }

  static void setText(void* user, const char* text, int length) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    builder.guard([&] { builder._open.back()->setText({text, static_cast<std::size_t>(length)}); });
  }

  /// Keeps exceptions out of the parser, which is C: it is stopped instead.
  template <class Function>
  void guard(Function&& function) {
    try {
      function();
    } catch (...) {
      _failure = std::current_exception();
      XML_StopParser(_parser.get(), XML_FALSE);
    }
  }

  void push(const char* name, const char** attributes) {
    if (_open.size() >= SceneFileReader::MAX_ELEMENT_DEPTH) {
      failHere("Elements in " + _entryName + " are nested deeper than " +
               std::to_string(SceneFileReader::MAX_ELEMENT_DEPTH));
    }
    countElement();
    auto element = std::make_unique<QxElement>(name);
    element->setLine(getLine());
    for (; *attributes != nullptr; attributes += 2) {
      countElement();
      element->setAttribute(attributes[0], attributes[1]);
    }
    QxElement* const opened = element.get();
    if (_open.empty()) {
      _document = std::move(element);
    } else {
      _open.back()->addChild(std::move(element));
    }
    _open.push_back(opened);
  }

  void countElement() {
    if (_elementsLeft-- == 0) {
      failHere(_entryName + " has more elements and attributes than an archive of this size should hold");
    }
  }

  [[noreturn]] void failHere(const std::string& message) const {
    failAt<XMLException>(message + " at line " + std::to_string(getLine()), _entryName, getLine());
  }

  int getLine() const { return static_cast<int>(XML_GetCurrentLineNumber(_parser.get())); }

  const std::string& _entryName;
  std::uint64_t _elementsLeft;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> _parser;
  std::unique_ptr<QxElement> _document;
  /// Those that have started and not ended, outermost first.
  std::vector<QxElement*> _open;
  std::exception_ptr _failure;
};

}  // namespace

SceneFileReader::SceneFileReader(ZipFileReader archive) : _archive(std::move(archive)) {}

Array_t<unsigned char> SceneFileReader::readEntry(const std::string& entryName) const {
  const int size = _archive.getSize(entryName);
  if (size < 0) {
    failAt<IOException>("Requested non-existent entry '" + entryName + "'.<br>Your file may be corrupt.",
                        entryName);
  }
  if (!_archive.isSizePossible(entryName)) {
    failIncomplete(entryName);
  }
  countBytesRead(size, entryName);
  // Not set to zero beforehand: the archive does so with what it does not fill.
  std::unique_ptr<unsigned char[]> block(new (std::nothrow) unsigned char[static_cast<std::size_t>(size)]);
  if (!block || !_archive.read(entryName, reinterpret_cast<char*>(block.get()))) {
    failIncomplete(entryName);
  }
  return {block.release(), size};
}

void SceneFileReader::countBytesRead(int size, const std::string& entryName) const {
  _bytesRead += static_cast<std::uint64_t>(size);
  if (_bytesRead > std::max(LEAST_BYTES_BOUND, _archive.getFileSize() * ZipFileReader::MAX_DEFLATE_RATIO)) {
    failAt<IOException>("Entry '" + entryName +
                            "' cannot be read: the scene asks for more data than an archive of this size can "
                            "hold.<br>Your file may be corrupt.",
                        entryName);
  }
}

/// The bytes of an entry of words, turned; `kind` is the user's word for them.
Array_t<unsigned char> SceneFileReader::readWords(const std::string& entryName, const char* kind) const {
  if (_archive.getSize(entryName) % 4 != 0) {
    failAt<IOException>(std::string("Bad size for ") + kind + " buffer;  not a multiple of 4", entryName);
  }
  const Array_t<unsigned char> bytes = readEntry(entryName);
  turnWords(bytes.data, static_cast<std::size_t>(bytes.count));
  return bytes;
}

Array_t<int> SceneFileReader::readIntBuffer(const std::string& entryName) const {
  const Array_t<unsigned char> bytes = readWords(entryName, "integer");
  return {reinterpret_cast<int*>(bytes.data), bytes.count / 4};
}

Array_t<float> SceneFileReader::readFloatBuffer(const std::string& entryName) const {
  const Array_t<unsigned char> bytes = readWords(entryName, "float");
  return {reinterpret_cast<float*>(bytes.data), bytes.count / 4};
}

std::unique_ptr<QxElement> SceneFileReader::readXml(const std::string& entryName) const {
  const ArrayOwner<unsigned char> text(readEntry(entryName));
  const std::uint64_t mostElements = std::max(LEAST_ELEMENTS_BOUND, 4 * _archive.getFileSize());
  return TreeBuilder(entryName, mostElements).build(text.values());
}

SceneFileReader::ItemScope::ItemScope(SceneFileReader* reader, const std::string& name, int line)
    : _reader(reader), _exceptions(std::uncaught_exceptions()) {
  if (_reader != nullptr) {
    _reader->_items.push_back({shortened(name), line});
    _reader->_failure = {};
  }
}

SceneFileReader::ItemScope::~ItemScope() {
  if (_reader == nullptr) {
    return;
  }
  // The innermost scope goes first: its place is the exception's.
  if (std::uncaught_exceptions() > _exceptions && _reader->_failure.itemPath.empty()) {
    _reader->_failure = _reader->getPlace();
  }
  _reader->_items.pop_back();
}

std::string SceneFileReader::getItemPath() const {
  std::string path;
  for (const Item& item : _items) {
    path += (path.empty() ? "" : "/") + item.name;
  }
  return path;
}

SceneFileReader::Place SceneFileReader::getPlace() const {
  return {getItemPath(), _items.empty() ? 0 : _items.back().line};
}

void SceneFileReader::addPlaceTo(Exception& exception) const {
  const Place place = _failure.itemPath.empty() ? getPlace() : _failure;
  exception.setItemPath(place.itemPath);
  // A line in hand is one of the entry that was being parsed.
  exception.setLine(place.line);
}

void SceneFileReader::addPlaceTo(Error& error) const {
  const Place place = _failure.itemPath.empty() ? getPlace() : _failure;
  if (error.getProperties().get("itemPath").empty()) {
    error.getProperties().set("itemPath", place.itemPath);
    error.getProperties().set("sceneLine", std::to_string(place.line));
  }
}

void SceneFileReader::addWarning(const std::string& text, const std::string& entry) {
  if (_warnings.size() > MAX_WARNINGS) {
    return;
  }
  const Place place = getPlace();
  if (_warnings.size() == MAX_WARNINGS) {
    _warnings.push_back({"Further warnings are left out", {}, {}, 0});
  } else {
    _warnings.push_back({text, entry, place.itemPath, place.line});
  }
  const SceneWarning& warning = _warnings.back();
  VEMO_LOG_WARNING(warning.text << (warning.entry.empty() ? "" : ", entry '" + warning.entry + "'")
                                << (warning.itemPath.empty() ? "" : ", item " + warning.itemPath));
}

}  // namespace vemo
