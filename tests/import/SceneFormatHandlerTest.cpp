#include "SceneFixture.h"
#include "support/Files.h"
#include "support/OrdinaryUser.h"
#include <vemo/base/Platform.h>
#include <vemo/import/SceneConverter.h>
#include <vemo/import/SceneFormatHandler.h>
#include <vemo/scenegraph/Logger.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vemo {

namespace {

using Handler = SceneFormatHandler;

class SceneFormatHandlerTest : public SceneFixture {
 protected:
  std::wstring path(const std::string& name) const { return wide(_folder / name); }
  void file(const std::string& name, const std::string& content) const { writeFile(_folder / name, content); }

  /// The status as a number, then what was told.
  std::string load(const std::string& name, bool loads = true) {
    _loaded.clear();
    std::ostringstream messages;
    const auto status = Handler::loadVemoScene(
        path(name),
        [&](const std::wstring& loaded) {
          _loaded.push_back(loaded);
          return loads;
        },
        messages);
    return std::to_string(static_cast<int>(status)) + " " + messages.str();
  }
  std::string quoted(const std::string& name) const { return "\"" + (_folder / name).string() + "\""; }

  std::vector<std::wstring> _loaded;
};

TEST_F(SceneFormatHandlerTest, DistinguishesFormats) {
  write(sceneXml(""));
  SceneConverter(archivePath(), path("new.sdb")).run();
  ArchiveBuilder()
      .text("scene.lum", "")
      .text("Scene.xml", "")
      .text("a/scene.xml", "")
      .write(_folder / "near.zip");
  file("empty", "");
  file("short", "PK\x03");
  file("near", "PK\x05\x06 and so on");
  file("brace", "{\"format\": \"something else\"}");
  file("text", "hello");
  mkfifo((_folder / "pipe").c_str(), 0600);
  for (const char* signature : {"PK\x03\x05", "PK\x05\x06", "pk\x03\x04"}) {
    EXPECT_FALSE(Handler::isZipSignature(signature)) << signature;
  }
  const std::pair<const char*, Handler::SceneFormat> files[] = {{"absent", Handler::FileMissing},
                                                                {"scene.zip", Handler::ZippedScene},
                                                                {"new.sdb", Handler::SceneDatabase},
                                                                {"pipe", Handler::FileUnreadable}};
  std::ostringstream messages;
  for (const auto& [name, format] : files) {
    EXPECT_EQ(Handler::detectSceneFormat(path(name), messages), format) << name;
  }
  for (const char* name : {"near.zip", "empty", "short", "near", "brace", "text", "."}) {
    EXPECT_EQ(Handler::detectSceneFormat(path(name), messages), Handler::UnknownFormat) << name;
  }
  EXPECT_FALSE(messages.str().empty()) << "the database's reader says what is wrong";
}

TEST_F(SceneFormatHandlerTest, AnArchiveWithoutADirectoryThrows) {
  file("torn.zip", "PK\x03\x04 torn");
  EXPECT_THROW(load("torn.zip"), ZipException);
}

TEST_F(SceneFormatHandlerTest, LoadsAnOldSceneFromItsConversion) {
  write(sceneXml(assembly("A", geometry("polys='tri'"))));
  EXPECT_EQ(load("scene.zip"), "0 ");
  ASSERT_EQ(_loaded.size(), 1U);
  EXPECT_NE(_loaded[0], archivePath());
  std::ostringstream messages;
  EXPECT_EQ(Handler::detectSceneFormat(_loaded[0], messages), Handler::SceneDatabase);
  const std::string converted = toNativePath(_loaded[0]);
  const auto log = takeLog();
  EXPECT_TRUE(logHas(log, "Old format, converting...\n"));
  EXPECT_TRUE(logHas(log, "Registering temporary file \"" + converted + "\" to be deleted later"));

  const std::string result = load("scene.zip", false);
  EXPECT_EQ(result, "5 Error loading \"" + toNativePath(_loaded[0]) + "\"\n");
}

TEST_F(SceneFormatHandlerTest, LoadsANewSceneAsItIs) {
  write(sceneXml(""));
  SceneConverter(archivePath(), path("new.sdb")).run();
  EXPECT_EQ(load("new.sdb"), "0 ");
  EXPECT_THAT(_loaded, testing::ElementsAre(path("new.sdb")));
  EXPECT_EQ(load("new.sdb", false), "5 Error loading " + quoted("new.sdb") + "\n");
  std::ostringstream messages;
  EXPECT_THROW(Handler::loadVemoScene(path("new.sdb"), {}, messages), std::bad_function_call);
}

TEST_F(SceneFormatHandlerTest, ReportsWhatItDoesNotLoad) {
  file("text", "hello");
  EXPECT_EQ(load("absent"), "2 File " + quoted("absent") + " does not exist\n");
  EXPECT_EQ(load("text"), "3 \nUnknown file format " + quoted("text") + "\n");
  mkfifo((_folder / "pipe").c_str(), 0600);
  EXPECT_EQ(load("pipe"), "5 Can't open file " + quoted("pipe") + "\n");
  std::filesystem::create_symlink("circle", _folder / "circle");
  EXPECT_EQ(load("circle"),
            "5 Can't open file " + quoted("circle") + ": Too many levels of symbolic links\n");
  EXPECT_EQ(load("text/a"), "2 File " + quoted("text/a") + " does not exist\n");
  std::filesystem::create_directory(_folder / "closed");
  chmod((_folder / "closed").c_str(), 0);
  {
    const AsOrdinaryUser user;
    EXPECT_EQ(load("closed/a"), "5 Can't open file " + quoted("closed/a") + ": Permission denied\n")
        << "it may exist";
  }
  chmod((_folder / "closed").c_str(), 0700);
  EXPECT_TRUE(_loaded.empty());
}

/// What a child process returns.
int exitCodeOf(const std::function<int()>& child) {
  const pid_t process = fork();
  if (process == 0) {
    std::exit(child());
  }
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(SceneFormatHandlerTest, ThrowsWhenTheConversionCannotBeWritten) {
  write(sceneXml(assembly("A", geometry("polys='tri'"))));
  const auto temporaryFolder = _folder / "temporary";
  std::filesystem::create_directory(temporaryFolder);
  const int result = exitCodeOf([&] {
    setenv("TMPDIR", temporaryFolder.c_str(), 1);
    Platform::reset();
    Platform::filesystem();
    const rlimit oneBlock{512, 512};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &oneBlock);
    EXPECT_THAT(failureOf([&] { load("scene.zip"); }),
                testing::MatchesRegex("OutputException: Cannot write " + temporaryFolder.string() +
                                      "/vemo-......: File too large .*"));
    std::filesystem::remove_all(temporaryFolder);
    EXPECT_THAT(failureOf([&] { load("scene.zip"); }),
                testing::HasSubstr("in " + temporaryFolder.string() + ": No such file or directory"));
    EXPECT_TRUE(_loaded.empty());
    return HasFailure() ? 1 : 0;
  });
  EXPECT_EQ(result, 0);
}

TEST_F(SceneFormatHandlerTest, AForkedChildDeletesOnlyItsOwnFiles) {
  write(sceneXml(""));
  load("scene.zip");
  const std::wstring parents = _loaded.at(0);
  const int result = exitCodeOf([&] {
    load("scene.zip");
    writeFile(_folder / "child's", toNativePath(_loaded.at(0)));
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_TRUE(Platform::filesystem().exists(parents));
  EXPECT_FALSE(std::filesystem::exists(readFile(_folder / "child's")));
}

TEST_F(SceneFormatHandlerTest, DeletesItsTemporaryFilesAtExit) {
  write(sceneXml(""));
  ArchiveBuilder().text("scene.xml", "<scene").write(_folder / "broken.zip");
  const auto temporaryFolder = _folder / "temporary";
  std::filesystem::create_directory(temporaryFolder);
  const auto filesLeft = [&] { return countFiles(temporaryFolder); };
  const int result = exitCodeOf([&] {
    setenv("TMPDIR", temporaryFolder.c_str(), 1);
    Platform::reset();
    Logger::getSingleton().setSink([log = (_folder / "log").string()](const std::string& line) {
      std::ofstream(log, std::ios::app) << line << "\n";
    });
    bool done = load("scene.zip") == "0 " && load("scene.zip") == "0 " && load("scene.zip") == "0 ";
    done = done && std::filesystem::remove(toNativePath(_loaded.back()));
    done = done && !failureOf([&] { load("broken.zip"); }).empty();
    return done ? static_cast<int>(filesLeft()) : 100;
  });
  EXPECT_EQ(result, 3) << "two conversions and one that failed";
  EXPECT_EQ(filesLeft(), 0);
  std::ifstream log(_folder / "log");
  int deleted = 0;
  for (std::string line; std::getline(log, line);) {
    EXPECT_EQ(line.find("Can not delete"), std::string::npos) << line;
    deleted += line.starts_with("Temporary file \"" + temporaryFolder.string()) ? 1 : 0;
  }
  EXPECT_EQ(deleted, 3) << "a second deletion finds nothing and reports nothing";
}

/// As a host's global object that uses the library in its destructor.
struct WorksAtEnd {
  WorksAtEnd() = default;
  WorksAtEnd(const WorksAtEnd&) = delete;
  WorksAtEnd& operator=(const WorksAtEnd&) = delete;
  ~WorksAtEnd() {
    if (work) {
      std::_Exit(work());
    }
  }

  std::function<int()> work;
};

WorksAtEnd worksAtEnd;

TEST_F(SceneFormatHandlerTest, ConvertsUntilTheProcessIsGone) {
  write(sceneXml(assembly("A", geometry("polys='tri'"))));
  const int result = exitCodeOf([&] {
    load("scene.zip");
    worksAtEnd.work = [&] {
      return failureOf([&] { SceneConverter(archivePath(), path("late.sdb")).run(); }).empty() ? 0 : 1;
    };
    return 2;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(load("late.sdb"), "0 ");
}

}  // namespace

}  // namespace vemo
