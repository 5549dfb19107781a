#include "SceneFixture.h"
#include "support/Files.h"
#include "support/GraphText.h"
#include "support/TemporaryFolder.h"
#include <vemo/import/OpenScene.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/io/FileError.h>

#include <fstream>
#include <gmock/gmock.h>

namespace vemo {

namespace {

class OpenSceneTest : public SceneFixture {
 protected:
  OpenSceneTest() {
    write(
        sceneXml(assembly("A", geometry("polys='quad' scalars='four' name='g'") + geometry("lines='line'"))));
    SceneConverter(archivePath(), wide(database())).run();
  }

  std::filesystem::path database() const { return _folder / "scene.sdb"; }

  /// The work that follows the report, with all of its fractions.
  using Work = std::function<void(const ProgressReport& report)>;
  std::vector<Work> works() const {
    return {[this](const ProgressReport& report) { openScene(archivePath(), report); },
            [this](const ProgressReport& report) { openScene(wide(database()), report); },
            [this](const ProgressReport& report) {
              SceneConverter converter(archivePath(), wide(_folder / "out.sdb"));
              converter.setProgress(report);
              converter.run();
            },
            [this](const ProgressReport& report) {
              SceneFormatHandler::releaseTemporaryFile(
                  SceneFormatHandler::convertZippedScene(archivePath(), report));
            }};
  }
};

std::string textOf(const OpenedScene& scene) {
  EXPECT_EQ(scene.records.size(), 1U);
  return scene.records.empty() ? "" : graphText(*scene.records.front().node);
}

auto countLines(const std::vector<std::string>& log, const std::string& part) {
  return std::ranges::count_if(log,
                               [&](const std::string& line) { return line.find(part) != std::string::npos; });
}

std::span<const std::byte> bytesOf(std::string_view text) {
  return std::as_bytes(std::span(text));
}

std::string messageFor(const auto& content) {
  try {
    openScene(content);
    return "opened";
  } catch (const lum::io::FileError& error) {
    return error.what();
  }
}

TEST_F(OpenSceneTest, OpensFilesBytesAndStreamsOfBothGenerations) {
  const std::string expected = textOf(openScene(archivePath()));
  for (const auto& path : {std::filesystem::path(toNativePath(archivePath())), database()}) {
    const std::string bytes = readFile(path);
    std::ifstream stream(path, std::ios::binary);
    stream.exceptions(std::ios::failbit | std::ios::badbit);
    for (const OpenedScene& scene :
         {openScene(wide(path)), openScene(std::as_bytes(std::span(bytes))), openScene(stream)}) {
      EXPECT_EQ(scene.kind, path == database() ? SceneKind::DATABASE : SceneKind::ARCHIVE);
      EXPECT_EQ(textOf(scene), expected);
      EXPECT_EQ(scene.findSceneNode(), scene.records.front().node.getObject());
    }
  }
}

TEST_F(OpenSceneTest, SaysWhyBytesAreNotAScene) {
  ArchiveBuilder().text("a/Scene.XML", "").write(_folder / "misnamed.zip");
  const std::string misnamed = readFile(_folder / "misnamed.zip");
  EXPECT_EQ(messageFor(bytesOf("")), "Unknown file format");
  EXPECT_THAT(messageFor(bytesOf("<scene/>")), testing::HasSubstr("It is XML"));
  EXPECT_THAT(messageFor(bytesOf(misnamed)), testing::HasSubstr("\"a/Scene.XML\""));
  const std::string bytes = readFile(database());
  EXPECT_THAT(messageFor(bytesOf(std::string_view(bytes).substr(0, bytes.size() - 1))),
              testing::HasSubstr("The file is truncated"));
}

TEST_F(OpenSceneTest, SaysWhatKeepsAFileFromBeingOpened) {
  std::filesystem::create_symlink("second", _folder / "first");
  std::filesystem::create_symlink("first", _folder / "second");
  EXPECT_THAT(messageFor(wide(_folder / "first")), testing::HasSubstr("Too many levels of symbolic links"));
  EXPECT_THAT(messageFor(wide(_folder / "absent")), testing::HasSubstr("does not exist"));
}

// Its absolute path is longer than the system takes.
TEST_F(OpenSceneTest, DoesNotDenyAFileInADeepFolder) {
  const WorkingFolder folder(_folder.path());
  const std::string part(250, 'd');
  for (int i = 0; i < 20; ++i) {
    std::filesystem::create_directory(part);
    std::filesystem::current_path(part);
  }
  std::ofstream("scene.zip") << "content";
  EXPECT_THAT(messageFor(std::wstring(L"scene.zip")), testing::HasSubstr("File name too long"));
}

TEST_F(OpenSceneTest, ProgressRisesToOne) {
  for (const Work& work : works()) {
    std::vector<double> fractions;
    work([&](double fraction) {
      fractions.push_back(fraction);
      return true;
    });
    EXPECT_GE(fractions.size(), 5U);
    EXPECT_TRUE(std::ranges::is_sorted(fractions)) << testing::PrintToString(fractions);
    EXPECT_GE(fractions.front(), 0);
    EXPECT_EQ(fractions.back(), 1);
    EXPECT_EQ(std::ranges::count(fractions, 1.0), 1) << "the end is reported once";
  }
}

// Also what would mean a fault of the file that is read or written.
TEST_F(OpenSceneTest, PassesOnWhatProgressThrows) {
  for (const Work& work : works()) {
    std::size_t reports = 0;
    work([&](double /*fraction*/) { return ++reports > 0; });
    for (; reports > 0; --reports) {
      std::size_t count = 0;
      const auto failAtLast = [&](double /*fraction*/) {
        if (++count == reports) {
          throw lum::io::FileError(lum::io::FileIoStatus::ReadError, "other file");
        }
        return true;
      };
      try {
        work(failAtLast);
        ADD_FAILURE() << reports;
      } catch (const lum::io::FileError& error) {
        EXPECT_STREQ(error.what(), "other file") << reports;
      }
    }
  }
}

// Wherever it is cancelled.
TEST_F(OpenSceneTest, CancelledWorkLeavesNothing) {
  const auto files = countFiles(_folder.path());
  for (const Work& work : works()) {
    std::size_t reports = 0;
    work([&](double fraction) {
      reports += fraction < 1 ? 1 : 0;
      return true;
    });
    std::filesystem::remove(_folder / "out.sdb");
    takeLog();
    for (std::size_t allowed = 0; allowed < reports; ++allowed) {
      std::size_t count = 0;
      EXPECT_THROW(work([&](double /*fraction*/) { return count++ < allowed; }), Cancelled) << allowed;
      EXPECT_EQ(countFiles(_folder.path()), files);
    }
    const auto log = takeLog();
    EXPECT_EQ(countLines(log, "Registering temporary file"),
              countLines(log, "has been successfully deleted"));
  }
}

}  // namespace

}  // namespace vemo
