#include "vemoview/import/xml/XmlParser.h"

#include "base/MemoryReserve.h"
#include "vemoview/import/Failure.h"
#include "vemoview/import/archive/ReadingLimits.h"
#include "vemoview/import/xml/ElementTexts.h"
#include <vemo/base/Progress.h>
#include <vemo/import/xml/QxElement.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <expat.h>
#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace vemo {

namespace {

/// Between two reports of progress.
constexpr int ELEMENTS_PER_REPORT = 256;

/// With a byte order mark.
bool isMarkedAsUtf8(std::span<const unsigned char> text) {
  constexpr std::array<unsigned char, 3> MARK = {0xEF, 0xBB, 0xBF};
  return text.size() >= MARK.size() && std::ranges::equal(text.first(MARK.size()), MARK);
}

/// Builds the tree of one XML entry from the parser's calls.
class TreeBuilder {
 public:
  TreeBuilder(const std::string& entryName, const ReadingLimits& limits, ProgressMeter* progress)
      : _entryName(entryName),
        _limits(limits),
        _progress(progress),
        _parser(XML_ParserCreate(nullptr), XML_ParserFree) {
    if (!_parser) {
      failAt<XMLException>("Couldn't allocate memory for XML parser", entryName);
    }
    XML_SetUserData(_parser.get(), this);
    XML_SetElementHandler(_parser.get(), startElement, endElement);
    XML_SetCharacterDataHandler(_parser.get(), setText);
    XML_SetAttlistDeclHandler(_parser.get(), countDeclaration);
    XML_SetNotStandaloneHandler(_parser.get(), noteDeclarationsOutside);
    // The former is not called for a document that claims to be standalone.
    XML_SetStartDoctypeDeclHandler(_parser.get(), noteDocumentType);
    XML_SetEntityDeclHandler(_parser.get(), noteEntityDeclared);
    XML_SetExternalEntityRefHandler(_parser.get(), noteEntityOutside);
  }

  XmlDocument build(std::span<const unsigned char> text) {
    if (isMarkedAsUtf8(text)) {
      // The parser would believe the declaration, which writers often copy.
      XML_SetEncoding(_parser.get(), "UTF-8");
    }
    _mostText = ReadingLimits::MOST_TEXT_PER_BYTE * text.size() + ReadingLimits::MOST_REPEATED_TEXT;
    const XML_Status status = XML_Parse(_parser.get(), reinterpret_cast<const char*>(text.data()),
                                        static_cast<int>(text.size()), 1);
    if (_failure) {
      std::rethrow_exception(_failure);
    }
    if (status == XML_STATUS_ERROR) {
      if (XML_GetErrorCode(_parser.get()) == XML_ERROR_NO_MEMORY) {
        OS::throwNoMemory();
      }
      failAt<XMLException>("Parse error in scene.xml at line" + std::to_string(getLine()), _entryName,
                           getLine());
    }
    return {std::move(_document), _hasDeclarationsOutside, _number};
  }

 private:
  static void startElement(void* user, const char* name, const char** attributes) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    builder.guard([&] { builder.push(name, attributes); });
  }

  static void endElement(void* user, const char* /*name*/) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    // A parser that was stopped at an empty element's start still reports its end.
    if (!builder._failure) {
      builder._open.pop_back();
    }
  }

  static void setText(void* user, const char* text, int length) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    builder.guard([&] {
      builder.countText(static_cast<std::size_t>(length));
      builder._open.back()->setText({text, static_cast<std::size_t>(length)});
    });
  }

  static void countDeclaration(void* user, const char* /*element*/, const char* /*attribute*/,
                               const char* /*type*/, const char* /*value*/, int /*isRequired*/) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    builder.guard([&] {
      if (++builder._declarations > ReadingLimits::MAX_DECLARATIONS) {
        builder.failHere(builder._entryName + " declares more than " +
                         std::to_string(ReadingLimits::MAX_DECLARATIONS) + " attributes");
      }
    });
  }

  static int noteDeclarationsOutside(void* user) {
    noteOutside(user, true);
    return XML_STATUS_OK;
  }

  static void noteDocumentType(void* user, const char* /*name*/, const char* systemId,
                               const char* /*publicId*/, int /*hasInternalSubset*/) {
    noteOutside(user, systemId != nullptr);
  }

  /// One that is used in declarations; others are noted where they are used in the document.
  static void noteEntityDeclared(void* user, const char* /*name*/, int isParameter, const char* /*value*/,
                                 int /*length*/, const char* /*base*/, const char* systemId,
                                 const char* /*publicId*/, const char* /*notation*/) {
    noteOutside(user, isParameter != 0 && systemId != nullptr);
  }

  static int noteEntityOutside(XML_Parser parser, const char* /*context*/, const char* /*base*/,
                               const char* /*systemId*/, const char* /*publicId*/) {
    return noteDeclarationsOutside(XML_GetUserData(parser));
  }

  static void noteOutside(void* user, bool isOutside) {
    auto& builder = *static_cast<TreeBuilder*>(user);
    builder._hasDeclarationsOutside = builder._hasDeclarationsOutside || isOutside;
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
    if (_open.size() >= _limits.depth) {
      failHere("Elements in " + _entryName + " are nested deeper than " + std::to_string(_limits.depth));
    }
    countElement(name);
    if (++_number % ELEMENTS_PER_REPORT == 0) {
      reportProgress();
    }
    for (const char** attribute = attributes; *attribute != nullptr; attribute += 2) {
      countElement(attribute[0]);
      countText(std::strlen(attribute[1]));
    }
    auto element = std::make_unique<QxElement>(name, _texts);
    element->setPlace({getLine(), _number});
    element->setAttributes(attributes);
    QxElement* const opened = element.get();
    if (_open.empty()) {
      _document = std::move(element);
    } else {
      _open.back()->addChild(std::move(element));
    }
    _open.push_back(opened);
  }

  void reportProgress() {
    if (_progress == nullptr) {
      return;
    }
    const XML_Index position = XML_GetCurrentByteIndex(_parser.get());
    // The parser may be in an entity.
    if (position > _reported) {
      _progress->advance(static_cast<std::uint64_t>(position - _reported));
      _reported = position;
    }
  }

  void countElement(const char* name) {
    countText(std::strlen(name));
    if (++_elements > _limits.elements) {
      failHere(_entryName + " has more elements and attributes than an archive of this size should hold");
    }
  }

  void countText(std::size_t size) {
    _text += size;
    if (_text > _mostText) {
      failHere(_entryName + " repeats text with entities or default values to more than " +
               std::to_string(_mostText) + " bytes");
    }
  }

  [[noreturn]] void failHere(const std::string& message) const {
    failAt<XMLException>(message + " at line " + std::to_string(getLine()), _entryName, getLine());
  }

  int getLine() const { return static_cast<int>(XML_GetCurrentLineNumber(_parser.get())); }

  const std::string& _entryName;
  ReadingLimits _limits;
  ProgressMeter* _progress;
  XML_Index _reported = 0;
  std::uint64_t _elements = 0;
  std::uint64_t _declarations = 0;
  /// Bytes of names, values and text.
  std::uint64_t _text = 0;
  std::uint64_t _mostText = 0;
  /// Of the element that started last.
  int _number = 0;
  std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> _parser;
  std::shared_ptr<ElementTexts> _texts = std::make_shared<ElementTexts>();
  std::unique_ptr<QxElement> _document;
  bool _hasDeclarationsOutside = false;
  /// Those that have started and not ended, outermost first.
  std::vector<QxElement*> _open;
  std::exception_ptr _failure;
};

}  // namespace

XmlDocument parseXml(std::span<const unsigned char> text, const std::string& entryName,
                     const ReadingLimits& limits, ProgressMeter* progress) {
  return TreeBuilder(entryName, limits, progress).build(text);
}

}  // namespace vemo
