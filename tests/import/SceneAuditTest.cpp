// What becomes of each part of a scene; no part is lost without a finding.

#include "SceneFixture.h"
#include "support/Files.h"
#include "support/GraphText.h"
#include "vemoview/import/reading/SceneFileReader.h"
#include <vemo/import/SceneAudit.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneLedger.h>
#include <vemo/scenegraph/inspect/Compare.h>

#include <algorithm>
#include <gmock/gmock.h>
#include <set>
#include <utility>

namespace vemo {

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::Lt;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;

/// Of a conversion; a failure does not matter here.
std::vector<LedgerRow> rowsOf(const std::wstring& archive) {
  const TemporaryFolder folder;
  std::vector<LedgerRow> rows;
  SceneConverter converter(archive, wide(folder / "scene.sdb"));
  converter.setLedgerObserver([&rows](const SceneLedger& ledger) {
    ledger.list([&rows](const LedgerRow& row) { rows.push_back(row); });
  });
  failureOf([&converter] { converter.run(); });
  return rows;
}

/// "lost scene/wing@flip array-left-out", but for what is kept.
std::vector<std::string> changesIn(const std::wstring& archive) {
  std::vector<std::string> texts;
  for (const LedgerRow& row : rowsOf(archive)) {
    std::string text = std::string(outcomeName(row.outcome)) + " " + row.path + row.entry;
    text += row.attribute.empty() ? "" : "@" + row.attribute;
    for (const FindingCode code : row.findings) {
      text += " " + Finding{code}.getKind().name;
    }
    if (row.outcome != Outcome::KEPT) {
      texts.push_back(text);
    }
  }
  return texts;
}

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

  std::vector<std::string> changesIn(const std::string& children) {
    write(sceneXml(children));
    return vemo::changesIn(archivePath());
  }
};

TEST_F(SceneAuditTest, ListsWhatBecomesOfEachPart) {
  _archive.floats("bad", {1, 2, 3}).text("stray", "x").text("flow", "x");
  EXPECT_THAT(
      changesIn(geometry("colour='red'", "<array name='a' dim='1' data='bad' vertexData='true'/>") +
                "<flow a='flow'><in>text</in></flow><vectors name='v'><b c='d'/></vectors>"
                "<reflect planeEqnCoeffA='1' flip='true'/><view windowWidth='5' up='1'>loose</view>"),
      ElementsAre("unknown scene/g@colour attribute-unknown", "unused scene/g@lineColor",
                  "unused scene/g@faceColor", "unused scene/g@showFaces", "unused scene/g@smoothShading",
                  "lost scene/g/a array-left-out", "lost scene/g/a@name", "lost scene/g/a@dim",
                  "lost scene/g/a@data", "lost scene/g/a@vertexData", "unknown scene/flow element-unknown",
                  "unknown scene/flow@a", "unknown scene/flow/in", "unknown scene/flow/in@text()",
                  "lost scene/v kind-not-shown", "lost scene/v@name", "lost scene/v/b", "lost scene/v/b@c",
                  "lost scene/reflect element-without-effect", "lost scene/reflect@planeEqnCoeffA",
                  "lost scene/reflect@flip", "changed scene/view view-adjusted",
                  "unused scene/view@windowWidth", "unknown scene/view@up attribute-unknown",
                  "lost scene/view@text() text-ignored", "lost bad array-left-out", "lost flow entry-unused",
                  "lost stray entry-unused"));
}

TEST_F(SceneAuditTest, TellsApartElementsOfOnePathAndLine) {
  EXPECT_THAT(
      changesIn("<light intensity='1' color='ffffffff'/><light name='k' intensity='' color='ffffffff'/>"
                "<gradient topColor='000000ff' bottomColor='000000ff' mode='RADIAL' visibility='1'/>"
                "<gradient topColor='000000ff' bottomColor='000000ff' mode='RADIAL' visibility='1'/>"
                "<annotation text='a' visibility='1' textHeight='x'/>"
                "<annotation text='a' visibility='1'><position x='q'/></annotation>"),
      ElementsAre("unused scene@background", "unknown scene/light@name attribute-unknown",
                  "changed scene/light@intensity value-unreadable", "lost scene/gradient element-replaced",
                  "lost scene/gradient@topColor", "lost scene/gradient@bottomColor",
                  "lost scene/gradient@mode", "lost scene/gradient@visibility",
                  "changed scene/annotation@textHeight value-ignored",
                  "changed scene/annotation/position value-ignored", "lost p entry-unused"));
}

TEST_F(SceneAuditTest, ListsWhatLaterElementsReplaceAsLost) {
  _archive.floats("d", {1, 2}).floats("e", {3, 4});
  const std::string array = "<array name='a' dim='1' vertexData='true' data=";
  const auto moved = [](const std::string& axis) {
    return assembly("A", "<transform><translation " + axis + "='1'/></transform>" + geometry(""));
  };
  std::vector<std::string> rows = changesIn(
      "<view><position z='5'/><up x='1'/></view><view perspective='true'><up y='2'/></view>"
      "<coordinatesystem name='c' visibility='1'/><coordinatesystem name='c' visibility='1'/>" +
      assembly("H", "<axes visibility='1'/>") + "<axes visibility='0'/>" + moved("x") + moved("y") +
      geometry("", array + "'d'/>" + array + "'e'/>"));
  std::erase_if(rows, [](const std::string& row) {
    return row.starts_with("unused") || (row.find('@') != std::string::npos && row.back() != 'x');
  });
  EXPECT_THAT(rows,
              ElementsAre("lost scene/view element-replaced", "lost scene/view/up", "lost scene/view/up@x",
                          "lost scene/c item-replaced", "lost scene/H/axes item-replaced",
                          "lost scene/A/transform transform-replaced", "lost scene/A/transform/translation",
                          "lost scene/A/transform/translation@x", "lost scene/g/a array-replaced",
                          "lost d array-replaced"));
}

TEST_F(SceneAuditTest, ListsWhatIsKnownOfARefusedScene) {
  _archive.ints("cells", {3, 0, 1, 9}).text("stray", "x").text("unread", "x");
  EXPECT_THAT(
      changesIn("<light intensity='1' color='ab'/><light intensity='1' color='ffffffff' odd='1'/>"
                "<assembly name='A' visibility='1' version='7'><axes of='unread'/></assembly>" +
                geometry("polys='cells'")),
      ElementsAre("refused scene/light@color item-invalid", "unknown scene/light@odd attribute-unknown",
                  "refused scene/A version-too-new", "refused scene/A@name", "refused scene/A@visibility",
                  "refused scene/A@version", "refused scene/A/axes", "refused scene/A/axes@of",
                  "refused scene/g@polys entry-invalid", "unused scene/g@lineColor",
                  "unused scene/g@faceColor", "unused scene/g@showFaces", "unused scene/g@smoothShading",
                  "refused cells entry-invalid", "lost stray entry-unused", "refused unread"));
}

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
}

TEST_F(SceneAuditTest, GoesOnAfterFaults) {
  _archive.ints("cells", {3, 0, 1, 9});
  const SceneAudit result =
      audit(geometry("name='outside' polys='cells' lines='none'") + geometry("name='gone' points='missing'") +
            "<assembly name='A' visibility='1' version='7'/><light intensity='1' color='ab'/>" +
            geometry("name='good'"));
  std::vector<std::string> refused;
  for (const Finding& finding : result.getFindings()) {
    if (finding.getSeverity() == Severity::REFUSED) {
      refused.push_back(finding.itemPath + " " + finding.getKind().name);
    }
  }
  EXPECT_THAT(refused,
              ElementsAre("scene/outside entry-invalid", "scene/outside entry-invalid",
                          "scene/gone entry-invalid", "scene/A version-too-new", "scene/light item-invalid"));
  ASSERT_TRUE(result.getSceneNode());
  EXPECT_NE(graphText(*result.getSceneNode()).find("\"good\""), std::string::npos);
}

TEST_F(SceneAuditTest, DoesNotRefuseAnArchiveForAnEntryWithoutUse) {
  _archive.text("stray", "x").forge([](ArchiveBuilder::Entry& entry) { entry.method = 12; });
  const SceneAudit result = audit(geometry(""));
  ASSERT_TRUE(result.getSceneNode());
  EXPECT_THAT(codesIn(result), ElementsAre("entry-unused"));
}

TEST_F(SceneAuditTest, ReportsNoConsequencesOfFaults) {
  _archive.ints("cells", {3, 0, 1, 9}).text("pixels", "rgb");
  const SceneAudit result =
      audit(geometry("faceColor='x'", "<array name='a' data='p' dim='3' vertexData='true'/>") +
            "<light color='x'/><assembly version='7' name='A'><geometry/></assembly>"
            "<gradient topColor='000000ff' bottomColor='000000ff' mode='SOLID'/><assembly name='empty'/>"
            "<assembly name='points' visibility='1'><colormap name='m'/>" +
            geometry("points='gone' polys='cells'", "<array name='a' data='p' dim='1' vertexData='true'/>") +
            "</assembly><image2d name='i' visibility='1' pixels='pixels' width='x1' height='1'/>");
  EXPECT_THAT(codesIn(result),
              UnorderedElementsAre("item-invalid", "array-magnitude", "item-invalid", "version-too-new",
                                   "item-invalid", "assembly-empty", "entry-invalid", "number-invalid"));
}

TEST_F(SceneAuditTest, NamesVeryDeepElementsByShortPaths) {
  std::string deep = geometry("unknown='1'");
  for (int i = 0; i < 100; ++i) {
    deep = assembly(std::string(60, 'n'), deep);
  }
  EXPECT_THAT(changesIn(deep), Contains(AllOf(StartsWith("unknown scene/nnn"),
                                              EndsWith("/...@unknown attribute-unknown"), SizeIs(Lt(1200)))));
}

TEST_F(SceneAuditTest, ReportsFilesThatItCannotOpenOrParse) {
  const auto codeOf = [this](const std::string& content) {
    writeFile(_folder / "file", content);
    const SceneAudit result(wide(_folder / "file"));
    EXPECT_FALSE(result.getSceneNode());
    EXPECT_EQ(result.getFindings().size(), 1U);
    return result.getFindings().empty() ? "" : result.getFindings()[0].getKind().name;
  };
  EXPECT_EQ(codeOf("PK\3\4 no archive"), "archive-invalid");
  ArchiveBuilder().text("scene.xml", "<scene>").write(_folder / "open.zip");
  EXPECT_EQ(codeOf(readFile(_folder / "open.zip")), "xml-invalid");
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
      // The name of a colormap only tells it from others.
      if (seen.insert(kind).second && kind != "colormap@name") {
        EXPECT_TRUE(example.mattersOrIsReported(part))
            << kind << " in line " << part.element->getLine() << " of " << file;
      }
    }
  }
  EXPECT_GT(seen.size(), 100U);
}

/// A coordinate system with other axes than the default.
std::string axes(const std::string& vectors) {
  return "<coordinatesystem name='c' visibility='1'>" + vectors + "</coordinatesystem>";
}

std::string view(const std::string& vectors) {
  return "<view parallelScale='1'>" + vectors + "</view>";
}

std::string turned(const std::string& axis) {
  return assembly("A", "<transform rotAngle='1'><rotAxis " + axis + "/></transform>" + geometry(""));
}

/// Two assemblies of one name, with data.
std::string twins(const std::string& first, const std::string& second) {
  const std::string data = "<array name='a' dim='1' data='d' vertexData='true'/>";
  return assembly("A", first + geometry("", data)) + assembly("A", second + geometry("name='h'", data));
}

std::string text(const std::string& children) {
  return "<annotation text='t' visibility='1'>" + children + "</annotation>";
}

std::string colormap(const std::string& attributes) {
  return "<colormap " + attributes + "><color>ff0000ff</color></colormap>";
}

TEST_F(SceneAuditTest, TellsWhatCannotBeUsedFromWhatIsSound) {
  const std::string red = colormap("name='c' max='1'");
  const std::string turn = "<transform rotAngle='1'><rotAxis z='1'/></transform>";
  const std::string tri = "polys='tri' pointScaleMode='1' ";
  _archive.floats("d", {1, 2}).ints("tri", {3, 0, 1, 0}).ints("vert", {1, 0}).text("rgb", "rgb");
  const struct {
    const char* name;
    std::string xml;
    std::vector<std::string> codes;
  } cases[] = {
      {"an x axis that follows", sceneXml(axes("<xaxis y='7'/><yaxis x='-2'/>")), {}},
      {"an x axis of its own", sceneXml(axes("<xaxis z='1'/>")), {"attribute-without-effect"}},
      {"a slanting y axis", sceneXml(axes("<yaxis y='1' z='1'/>")), {"value-ignored"}},
      {"a rotation axis with rounded digits", sceneXml(turned("x='1e-9'")), {}},
      {"a rotation axis too long", sceneXml(turned("x='1e200'")), {"transform-unusable"}},
      {"a view along its upward direction",
       sceneXml(view("<position z='5'/><up z='1' y='1e-8'/>")),
       {"view-adjusted"}},
      {"a view close to it", sceneXml(view("<position z='5'/><up z='1' y='1e-3'/>")), {}},
      {"a view from too far", sceneXml(view("<position x='1e200'/>")), {"view-adjusted"}},
      {"a view from too near", sceneXml(view("<position z='1e-21'/>")), {"view-adjusted"}},
      {"a contour without faces",
       plainSceneXml("<geometry points='p' polys='tri' contour='true' visibility='1' lineColor='00000000' "
                     "faceColor='00000000'/>"),
       {}},
      {"a width that is not a number", sceneXml(geometry("lineWidth='1e400'")), {"value-unreadable"}},
      {"a version that is not a number", sceneXml(geometry("version='-2'")), {"version-too-new"}},
      {"no vertices to be scaled", sceneXml(geometry(tri)), {}},
      {"vertices of a surface", sceneXml(geometry(tri + "verts='vert'")), {"points-not-scaled"}},
      {"no pixels",
       sceneXml("<image3d visibility='1' width='2' odd=''/>"),
       {"attribute-unknown", "image-without-pixels"}},
      {"equal colormaps", sceneXml(twins(red, red)), {}},
      {"others", sceneXml(twins(red, colormap("name='c' max='2'"))), {"colormap-replaced"}},
      {"colormaps that another replaces",
       sceneXml(assembly("O", red + twins(red, colormap("name='d'")))),
       {"colormap-unused", "colormap-unused"}},
      {"equal transforms", sceneXml(twins(red + turn, red + turn)), {}},
      {"others", sceneXml(twins(turn, "<reflect planeEqnCoeffA='1'/>")), {"transform-replaced"}},
      {"a font without colour", sceneXml(text("<font version='?' bold='true'/>")), {"value-ignored"}},
      {"a position without numbers", sceneXml(text("<position x='' y='1'/>")), {"value-ignored"}},
      {"a position with depth", sceneXml(text("<position z='1'/>")), {"attribute-without-effect"}},
      {"sizes of points below 0",
       sceneXml(geometry("", "<pointScaleScalarMapTo y='-5' z='1'/>")),
       {"attribute-without-effect"}},
      {"pixels without components",
       sceneXml("<image2d visibility='1' pixels='rgb' width='1' height='1' components='3.0'/>"),
       {"value-ignored"}},
      {"a legend of the outer colours",
       sceneXml(assembly("O", red + assembly("I", "<legend visibility='1' colormap='c'/>" + geometry("")))),
       {}},
      {"colours for data that are left out",
       sceneXml(assembly("O", red + assembly("I", geometry("", "<array name='a' dim='1' data='d'/>")))),
       {"array-left-out"}},
      {"colours for data in an unknown item",
       sceneXml(assembly("A", red + "<assembly name='I'><Geometry points='d'/></assembly>")),
       {"element-unknown"}},
      {"colours beside an unknown element",
       sceneXml(assembly("A", red + "<odd/>" + geometry(""))),
       {"element-unknown", "colormap-unused"}},
      {"settings without effect",
       sceneXml(geometry("polys='tri'") +
                geometry("polys='tri' lineWidth='2' lineColor='000000ff' pointSize='3'")),
       {}},
      {"settings of edges",
       sceneXml(geometry("polys='tri' showEdges='true'") +
                geometry("polys='tri' showEdges='true' lineWidth='2'")),
       {"settings-replaced"}},
      {"settings of vertices",
       sceneXml(geometry("polys='tri' verts='vert'") + geometry("polys='tri' pointSize='3'")),
       {"settings-replaced"}},
      {"an assembly of unknown items", sceneXml(assembly("A", "<Geometry/>")), {"element-unknown"}},
      {"an assembly of items that are not shown", sceneXml(assembly("A", "<vectors/>")), {"kind-not-shown"}},
      {"a translucent scene", sceneXml("", "visibility='?'"), {"attribute-without-effect"}},
      {"a gradient without mode",
       sceneXml("<gradient topColor='000000ff' bottomColor='000000ff' mode='radial' visibility='0.5'/>"),
       {"attribute-without-effect", "item-invalid"}},
      {"a scale that is no number",
       sceneXml(assembly("A", "<transform><scale x='1' y='nan' z='1'/></transform>" + geometry(""))),
       {"value-unreadable"}},
      {"a mirror that is no number",
       sceneXml(assembly("A", "<reflect planeEqnCoeffB='nan'/>" + geometry(""))),
       {"value-unreadable"}},
      {"a plane that is no number", sceneXml("<clip><normal x='nan'/></clip>"), {"value-unreadable"}},
      {"a light that darkens", sceneXml("<light intensity='-1' color='ffffffff'/>"), {}},
  };
  for (const auto& [name, xml, expected] : cases) {
    SCOPED_TRACE(name);
    write(xml);
    const SceneAudit audit(archivePath());
    std::vector<std::string> codes;
    for (const Finding& finding : audit.getFindings()) {
      if (finding.code != FindingCode::ENTRY_UNUSED) {
        codes.push_back(finding.getKind().name);
      }
    }
    EXPECT_EQ(codes, expected);
  }
}

TEST_F(SceneAuditTest, ListsSettingsThatATypeDoesNotUse) {
  _archive = ArchiveBuilder().floats("p", {0, 0, 0, 1, 0, 0}).ints("tri", {3, 0, 1, 0});
  EXPECT_THAT(
      changesIn(geometry("polys='tri' specularPower='9' pointScaleMode='1' pointScaleScalarName='a'")),
      ElementsAre("unused scene/g@specularPower", "unused scene/g@pointScaleMode",
                  "unused scene/g@pointScaleScalarName"));
}

}  // namespace

}  // namespace vemo
