#include "SceneText.h"

#include "support/ArchiveBuilder.h"
#include "support/Databases.h"
#include "support/SampleGraphs.h"
#include "support/SceneXml.h"
#include <vemo/scenegraph/io/NodeOutputStream.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vemo {

namespace {

using Random = std::minstd_rand;

constexpr auto NPOS = std::string_view::npos;

/// The parts that are exchanged for others of their kind; a value is a number of an
/// entry, too.
enum class Kind { ELEMENT, ATTRIBUTE, VALUE };
constexpr unsigned KIND_COUNT = 3;

std::size_t lengthOfElement(std::string_view text) {
  int depth = 0;
  std::size_t end = 0;
  do {
    const std::size_t start = text.find('<', end);
    end = text.find('>', std::min(start, text.size()));
    if (end == NPOS) {
      return NPOS;
    }
    depth += text[start + 1] == '/' ? -1 : text[end - 1] == '/' ? 0 : 1;
  } while (depth > 0);
  return end + 1;
}

/// 0 where none begins.
std::size_t lengthOf(Kind kind, std::string_view text, char former) {
  if (kind == Kind::ELEMENT) {
    return text[0] == '<' && text.find_first_of("/>?!") > 1 ? lengthOfElement(text) : 0;
  }
  const std::size_t end = std::min(text.find_first_of("= '<>\n"), text.size());
  if (kind == Kind::VALUE) {
    return former == ' ' || former == '\'' ? end : 0;
  }
  return former == ' ' && text.substr(end).starts_with("='") ? text.find('\'', end + 2) + 1 : 0;
}

/// A part of the text; empty if there is none of the kind behind a random place.
std::string_view pick(std::string_view text, Kind kind, Random& random) {
  for (std::size_t i = text.empty() ? 0 : random() % text.size(); i < text.size(); ++i) {
    if (const std::size_t length = lengthOf(kind, text.substr(i), i > 0 ? text[i - 1] : '\0')) {
      return text.substr(i, length);
    }
  }
  return text.substr(text.size());
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

std::string anotherValue(std::string_view text, Random& random) {
  constexpr std::string_view VALUES[] = {"0",   "1",    "-1",    "0.5",        "nan",
                                         "inf", "1e38", "-1e99", "2147483647", "4294967296"};
  if (random() % 4 == 0) {
    return std::string(VALUES[random() % std::size(VALUES)]);
  }
  std::string value(text);
  value.resize(text.size() + 4);
  value.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(value.data()), text.size(), value.size()));
  const auto breaksText = [](char c) { return c < ' ' || c > '~' || c == '<' || c == '&' || c == '\''; };
  std::ranges::replace_if(value, breaksText, '0');
  return value;
}

/// Leaves a part of the text out, changes it, or puts one of the donor in its place
/// or in front of it.
std::size_t mix(std::string_view text, std::string_view donor, unsigned seed, std::uint8_t* out,
                std::size_t maximumSize) {
  Random random(seed);
  const auto kind = static_cast<Kind>(random() % KIND_COUNT);
  const std::string_view part = pick(text, kind, random);
  const auto start = static_cast<std::size_t>(part.data() - text.data());
  std::string result(text.substr(0, start));
  const unsigned action = random() % 4;
  if (action == 1 && kind == Kind::VALUE) {
    result += anotherValue(part, random);
  } else if (action > 0) {
    result += pick(donor, kind, random);
    result += action == 2 ? " " + std::string(part) : "";
  }
  result += text.substr(start + part.size());
  return result.copy(reinterpret_cast<char*>(out), maximumSize);
}

std::string_view view(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Entries of a scene graph in which some bytes are others: "@payload ENTRY POSITION
/// BYTE ...". False for another line.
bool addPayload(ArchiveBuilder& archive, const std::string& line) {
  static const std::vector<std::string> sample = [] {
    lum::NodeOutputStream stream;
    makeScene()->write(stream);
    Payload payload(stream);
    payload.data.insert(payload.data.begin(), payload.scene);
    return payload.data;
  }();
  std::istringstream words(line);
  std::string word;
  if (!(words >> word) || word != "@payload") {
    return false;
  }
  std::vector<std::string> entries = sample;
  unsigned entry = 0, position = 0, byte = 0;
  while (words >> entry >> position >> byte) {
    std::string& content = entries[entry % entries.size()];
    content[position % content.size()] = static_cast<char>(byte);
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    archive.text(i == 0 ? "scene.lum" : "lum" + std::to_string(i), entries[i]);
  }
  return true;
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned seed) {
  return seed % 16 == 0 ? LLVMFuzzerMutate(data, size, maximumSize)
                        : mix(view(data, size), view(data, size), seed, data, maximumSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t maximumSize, unsigned seed) {
  return mix(view(first, firstSize), view(second, secondSize), seed, out, maximumSize);
}

std::vector<unsigned char> buildArchive(const std::string& text) {
  ArchiveBuilder archive;
  std::string description;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    try {
      description += addPayload(archive, line) || archive.add(line) ? "" : line + "\n";
    } catch (const std::logic_error&) {
      // A word that is not a number.
    }
  }
  const bool isWhole = description.starts_with("<?xml") || description.starts_with("<!DOCTYPE");
  archive.stored().text("scene.xml", isWhole ? description : sceneXml(description));
  return archive.build();
}

}  // namespace vemo
