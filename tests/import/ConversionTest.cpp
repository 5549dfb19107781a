// What elements of old scenes become in the scene graph, and what reading and
// converting them warns of or fails with: by the files in
// tests/data/expected/conversion. Each holds scenes of one kind:
//
//     ==== What is special about the first scene
//     @floats speed 1 2 nan
//     <geometry polys='tri'><array name='speed' dim='1' data='speed'/></geometry>
//     ----
//     warning: The array "speed" is left out: ... | scene/g:2:speed
//     SceneNode
//       ...
//
// Lines that begin with "@" add an entry to the archive of SceneFixture
// (@floats, @ints, @bytes or @text, name, values), falsify what the archive says of the
// entry before them (@forge, then crc, size or method, and its value, or several), take the default
// attributes of SceneXml.h away (@plain), or ask for the log (@log). Then come the
// children of the scene element, or after @xml the whole description; behind the dashes
// stands what they become.
//
// With @audit or @parts as the first line, the archive has no entries but the two
// points "p", and another text is asked for: what SceneAudit finds, or which parts
// of the scene and entries are not kept, and by which findings.
//
// With VEMO_UPDATE_EXPECTED set, the tests write what stands behind the dashes.

#include "SceneFixture.h"
#include "support/Expected.h"
#include "support/GraphText.h"
#include <vemo/import/SceneAudit.h>

#include <regex>
#include <sstream>

namespace vemo {

namespace {

std::string textOf(const Finding& finding) {
  return finding.getKind().name + ": " + finding.text + " | " + finding.itemPath + ":" +
         std::to_string(finding.line) + ":" + finding.entry + "\n";
}

std::string textOf(const LedgerRow& row) {
  std::string text = std::string(outcomeName(row.outcome)) + " " + row.path + row.entry;
  text += row.attribute.empty() ? "" : "@" + row.attribute;
  for (const FindingCode code : row.findings) {
    text += " " + Finding{code}.getKind().name;
  }
  return text + "\n";
}

std::string onOneLine(const std::string& text) {
  return std::regex_replace(text, std::regex("\n"), "\\n");
}

class ConversionTest : public SceneFixture, public testing::WithParamInterface<std::string> {
 protected:
  /// What becomes of one scene.
  std::string resultOf(const std::string& description) {
    const ArchiveBuilder archive = _archive;
    std::string children;
    std::istringstream lines(description);
    _isLogWanted = false;
    _hasDefaults = true;
    _isWhole = false;
    _result = &ConversionTest::graphOf;
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with('@')) {
        follow(line);
      } else {
        children += "\n" + line;
      }
    }
    std::string result = (this->*_result)(children);
    _archive = archive;
    return result;
  }

 private:
  using Result = std::string (ConversionTest::*)(const std::string& children);

  std::string graphOf(const std::string& children) {
    takeLog();
    const std::string failure = failureOf([&] { convert(children); });
    return findingsAndLog() +
           (failure.empty() ? graphText(*_sceneNode) : "failure: " + onOneLine(failure) + "\n");
  }

  std::string auditOf(const std::string& children) {
    _isWhole ? write(children) : writeScene(children);
    const SceneAudit audit(archivePath());
    std::string text;
    for (const Finding& finding : audit.getFindings()) {
      text += textOf(finding);
    }
    return text.empty() ? "no findings\n" : text;
  }

  std::string partsOf(const std::string& children) {
    writeScene(children);
    std::string text;
    for (const LedgerRow& row : rowsOf(archivePath())) {
      text += row.outcome == Outcome::KEPT ? "" : textOf(row);
    }
    return text;
  }

  void follow(const std::string& line) {
    const std::string kind = line.substr(0, line.find(' '));
    if (kind == "@forge") {
      forge(line);
    } else if (kind == "@audit" || kind == "@parts") {
      _archive = ArchiveBuilder().floats("p", {0, 0, 0, 1, 0, 0});
      _result = kind == "@audit" ? &ConversionTest::auditOf : &ConversionTest::partsOf;
    } else if (!_archive.add(line)) {
      _isLogWanted = _isLogWanted || kind == "@log";
      _hasDefaults = _hasDefaults && kind != "@plain";
      _isWhole = _isWhole || kind == "@xml";
    }
  }

  void forge(const std::string& line) {
    _archive.forge([line](ArchiveBuilder::Entry& last) {
      std::istringstream words(line.substr(line.find(' ')));
      std::string field;
      for (std::uint16_t value = 0; words >> field >> value;) {
        last.crc = field == "crc" ? value : last.crc;
        last.uncompressedSize = field == "size" ? value : last.uncompressedSize;
        last.method = field == "method" ? value : last.method;
      }
    });
  }

  /// All archives have the same entries, and all geometry has the same settings.
  static bool isOfEveryScene(const std::string& text) {
    return text.find("entry-unused") != std::string::npos;
  }

  std::string findingsAndLog() {
    std::string text;
    for (const Finding& finding : _reader->getFindings()) {
      text += isOfEveryScene(finding.getKind().name) ? "" : textOf(finding);
    }
    for (const std::string& line : takeLog()) {
      const bool isWanted = _isLogWanted && !isOfEveryScene(line);
      text += isWanted ? "log: " + onOneLine(line) + "\n" : "";
    }
    return text;
  }

  bool _isLogWanted = false;
  bool _isWhole = false;
  Result _result = nullptr;
};

TEST_P(ConversionTest, GivesWhatIsExpected) {
  expectCases("conversion/" + GetParam() + ".txt",
              [this](const std::string& scene) { return resultOf(scene); });
}

INSTANTIATE_TEST_SUITE_P(, ConversionTest, testing::ValuesIn(expectedFiles("conversion")),
                         [](const auto& file) { return file.param; });

}  // namespace

}  // namespace vemo
