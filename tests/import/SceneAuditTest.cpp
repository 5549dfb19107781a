// That no part of a scene is lost without a finding. What becomes of the parts of other
// scenes, and what is found in them, is in tests/data/expected/conversion.

#include "SceneFixture.h"
#include "support/Files.h"
#include "support/GraphText.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneAudit.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <set>
#include <utility>

namespace vemo {

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Lt;
using testing::SizeIs;
using testing::StartsWith;

/// Of findings that are not notes.
std::vector<std::string> codesIn(const SceneAudit& audit) {
  std::vector<std::string> codes;
  for (const Finding& finding : audit.getFindings()) {
    if (finding.getSeverity() > Severity::NOTE) {
      codes.push_back(finding.getKind().name);
    }
  }
  return codes;
}

class SceneAuditTest : public SceneFixture {
 protected:
  SceneAuditTest() { _archive = ArchiveBuilder().floats("p", {0, 0, 0, 1, 0, 0}); }

  SceneAudit audit(const std::string& children) {
    write(sceneXml(children));
    return SceneAudit(archivePath());
  }
};

TEST_F(SceneAuditTest, ReportsWhatADirectoryDoesNotCountOrNamesOtherwiseAndAStrangeRoot) {
  ArchiveBuilder()
      .text("scene.xml", "<Szene version='1' visibility='1' background='ffffffff'/>")
      .text("behind", "x")
      .write(_folder / "scene.zip");
  std::string bytes = readFile(_folder / "scene.zip");
  // The number of entries, on this disk and in all.
  const std::size_t end = bytes.rfind("PK\5\6");
  bytes[end + 8] = bytes[end + 10] = 1;
  // In front of the content.
  bytes[bytes.find("scene.xml")] = 'S';
  writeFile(_folder / "scene.zip", bytes);
  EXPECT_THAT(codesIn(SceneAudit(archivePath())),
              ElementsAre("entries-not-counted", "root-unknown", "entry-name-differs"));
  bytes[end + 8] = bytes[end + 10] = 2;
  writeFile(_folder / "two.zip", bytes + bytes);
  EXPECT_THAT(codesIn(SceneAudit((_folder / "two.zip").wstring())), testing::Contains("entries-not-counted"));
}

TEST_F(SceneAuditTest, ReportsThatTheArchiveCannotBeOpened) {
  write(sceneXml(""));
  std::filesystem::permissions(_folder / "scene.zip", std::filesystem::perms::none);
  EXPECT_THAT(codesIn(SceneAudit(archivePath())), ElementsAre("archive-invalid"));
}

TEST_F(SceneAuditTest, ReportsDeclarationsElsewhereOfADocumentThatClaimsToStandAlone) {
  for (const std::string type : {"SYSTEM 'x.dtd'", "[<!ENTITY % e SYSTEM 'x.ent'> %e;]"}) {
    write("<?xml version='1.0' standalone='yes'?><!DOCTYPE scene " + type +
          "><scene background='000000ff'/>");
    EXPECT_THAT(codesIn(SceneAudit(archivePath())), testing::Contains("declarations-not-read")) << type;
  }
}

TEST_F(SceneAuditTest, BelievesAByteOrderMarkMoreThanTheDeclaration) {
  write("\xEF\xBB\xBF<?xml version='1.0' encoding='iso-8859-1'?>" +
        sceneXml("<annotation name='a' visibility='1' text='1 \xC2\xB5m'/>"));
  EXPECT_THAT(graphText(*SceneAudit(archivePath()).getSceneNode()), testing::HasSubstr("\"1 \xC2\xB5m\""));
}

TEST_F(SceneAuditTest, ConvertsWhatIsSoundBesideFaults) {
  const SceneAudit result =
      audit(geometry("name='bad' polys='none'") + "<light color='x'/>" + geometry("name='good'"));
  ASSERT_TRUE(result.getSceneNode());
  EXPECT_NE(graphText(*result.getSceneNode()).find("\"good\""), std::string::npos);
}

TEST_F(SceneAuditTest, LeavesTheGroundWhiteIfItsColoursAreFaulty) {
  const std::string black = "topColor='000000ff' bottomColor='000000ff'";
  for (const std::string& xml :
       {sceneXml("", "background='x'"), sceneXml("<gradient mode='RADIAL' topColor='x'/>"),
        sceneXml("<gradient mode='q' " + black + "/>"),
        sceneXml("<gradient version='7' mode='RADIAL' " + black + "/>")}) {
    write(xml);
    const SceneAudit result(archivePath());
    EXPECT_EQ(result.getSceneNode()->getBackgroundCanvas().getBackgroundAttributes().getSolidColor(),
              (Vector3{1, 1, 1}))
        << "black texts would be recoloured: " << xml;
  }
}

TEST_F(SceneAuditTest, NamesVeryDeepElementsByShortPaths) {
  std::string deep = geometry("unknown='1'");
  for (int i = 0; i < 100; ++i) {
    deep = assembly(std::string(60, 'n'), deep);
  }
  write(sceneXml(deep));
  const auto rows = rowsOf(archivePath());
  const auto row = std::ranges::find(rows, "unknown", &LedgerRow::attribute);
  ASSERT_NE(row, rows.end());
  EXPECT_THAT(row->path, AllOf(StartsWith("scene/nnn"), EndsWith("/..."), SizeIs(Lt(1200))));
}

/// An element, or one of its attributes.
struct Part {
  const QxElement* element;
  std::string attribute;
};

enum class Change { REMOVED, ALTERED };

std::string escaped(const std::string& text) {
  std::string result;
  for (const char character : text) {
    result += character == '&'    ? "&amp;"
              : character == '<'  ? "&lt;"
              : character == '"'  ? "&quot;"
              : character == '\n' ? "&#10;"
                                  : std::string(1, character);
  }
  return result;
}

/// Another value that means something else.
std::string altered(const std::string& value) {
  static const std::map<std::string, std::string> OTHERS = {
      {"true", "false"}, {"false", "true"}, {"WINDOW", "MODEL"}, {"MODEL", "WINDOW"}, {"linear", "sqrt"}};
  const auto other = OTHERS.find(value);
  const bool isNumber = !value.empty() && value.find_first_not_of("-.0123456789") == std::string::npos;
  return other != OTHERS.end() ? other->second
         : value.size() == 8   ? "12345678"
         : isNumber            ? "0.5" + value
                               : "other";
}

std::string xmlOf(const QxElement& element, const Part& part, Change change) {
  const bool isWhole = part.element == &element && part.attribute.empty();
  if (isWhole && change == Change::REMOVED) {
    return "";
  }
  std::string xml = "<" + element.getName();
  for (const QxElement::Attribute& attribute : element.getAttributes()) {
    const std::string& name = attribute.getName();
    const bool isPart = isWhole || (part.element == &element && part.attribute == name);
    if (!isPart || change == Change::ALTERED) {
      xml +=
          " " + name + "=\"" + escaped(isPart ? altered(attribute.getValue()) : attribute.getValue()) + "\"";
    }
  }
  xml += ">" + escaped(element.peekText());
  for (const auto& child : element.getChildren()) {
    xml += xmlOf(*child, part, change);
  }
  return xml + "</" + element.getName() + ">";
}

std::string placeOf(int line, const std::string& element, const std::string& attribute) {
  return std::to_string(line) + element + "@" + attribute;
}

std::string kindAndAttribute(const Finding& finding) {
  return finding.getKind().name + finding.attribute;
}

/// Whether the scenes are equal, and what is reported, too.
bool areEqual(const SceneAudit& left, const SceneAudit& right) {
  bool result =
      std::ranges::equal(left.getFindings(), right.getFindings(), {}, kindAndAttribute, kindAndAttribute) &&
      left.getSceneNode() != nullptr && right.getSceneNode() != nullptr;
  if (result) {
    lum::compareGraphs(*left.getSceneNode(), *right.getSceneNode(), {},
                       [&result](const lum::Difference&) { return result = false; });
  }
  return result;
}

/// An example, and what becomes of it without its parts.
class Example {
 public:
  explicit Example(const fs::path& file)
      : _reader(ZipFileReader(wide(file))), _description(_reader.readXml("scene.xml")), _whole(wide(file)) {
    for (const LedgerRow& row : rowsOf(wide(file))) {
      if (row.outcome != Outcome::KEPT || !row.findings.empty()) {
        _reported.insert(placeOf(row.line, row.element, row.attribute));
      }
    }
    _entries.stored();
    for (int i = 0; i < _reader.getArchive().getEntryCount(); ++i) {
      const std::string name = _reader.getArchive().getEntryName(i);
      if (name != "scene.xml") {
        const ArrayOwner<unsigned char> content(_reader.readEntry(name));
        _entries.bytes(name, {content.data(), content.data() + content.count()});
      }
    }
    EXPECT_FALSE(matters({}, Change::ALTERED)) << "nothing is";
    collectParts(*_description);
    _parts.erase(_description->getName());
  }

  const std::map<std::string, Part>& getParts() const { return _parts; }

  /// What states the default can be taken away without a difference, but not
  /// changed.
  bool mattersOrIsReported(const Part& part) const {
    return _reported.contains(placeOf(part.element->getLine(), part.element->getName(), part.attribute)) ||
           matters(part, Change::REMOVED) || matters(part, Change::ALTERED);
  }

 private:
  /// By their kind, one of each.
  void collectParts(const QxElement& element) {
    _parts.try_emplace(element.getName(), Part{&element, ""});
    for (const QxElement::Attribute& attribute : element.getAttributes()) {
      _parts.try_emplace(element.getName() + "@" + attribute.getName(), Part{&element, attribute.getName()});
    }
    for (const auto& child : element.getChildren()) {
      collectParts(*child);
    }
  }

  bool matters(const Part& part, Change change) const {
    ArchiveBuilder(_entries)
        .text("scene.xml", xmlOf(*_description, part, change))
        .write(_folder / "scene.zip");
    return !areEqual(_whole, SceneAudit(wide(_folder / "scene.zip")));
  }

  TemporaryFolder _folder;
  SceneFileReader _reader;
  std::unique_ptr<QxElement> _description;
  SceneAudit _whole;
  ArchiveBuilder _entries;
  std::set<std::string> _reported;
  std::map<std::string, Part> _parts;
};

/// The small ones first.
std::vector<fs::path> examples() {
  std::vector<fs::path> files;
  for (const auto& file : fs::directory_iterator(fs::path(VEMO_SOURCE_FOLDER) / "examples")) {
    if (file.path().extension() == ".zip") {
      files.push_back(file.path());
    }
  }
  std::ranges::sort(files, {}, [](const fs::path& file) { return fs::file_size(file); });
  return files;
}

TEST(CompletenessTest, EachKindOfPartMattersOrIsReported) {
  std::set<std::string> seen;
  for (const fs::path& file : examples()) {
    const Example example(file);
    for (const auto& [kind, part] : example.getParts()) {
      if (seen.insert(kind).second) {
        EXPECT_TRUE(example.mattersOrIsReported(part))
            << kind << " in line " << part.element->getLine() << " of " << file;
      }
    }
  }
  EXPECT_GT(seen.size(), 100U);
}

}  // namespace

}  // namespace vemo
