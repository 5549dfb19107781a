#include "ProgramRun.h"
#include "SampleArchive.h"
#include "support/ArchiveBuilder.h"
#include "support/Databases.h"
#include "support/Expected.h"
#include "support/Nodes.h"
#include "support/SceneXml.h"
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/io/SDBReader.h>

#include <chrono>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <regex>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace vemo {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

/// A folder with files that commands are tried on.
class CommandLineTest : public ProgramTest {
 protected:
  CommandLineTest() {
    makeArchive(makeDescription("heat")).write(_folder / "scene.zip");
    makeArchive(makeDescription("heat"))
        .bytes("heat", {})
        .forge([](ArchiveBuilder::Entry& entry) { entry.compressedSize = 0x10000000; })
        .write(_folder / "incomplete.zip");
    makeArchive(makeDescription("cold")).write(_folder / "cold.zip");
    makeArchive(std::regex_replace(makeDescription("heat"), std::regex("z=\"5\""), "z=\"0\""))
        .write(_folder / "view.zip");
    makeArchive(makeDescription("heat", "2")).write(_folder / "future.zip");
    makeArchive("<scene><view></scene>").write(_folder / "unclosed.zip");
    ArchiveBuilder().text("a/Scene.XML", "").write(_folder / "deep.zip");
    writeFile(_folder / "text.txt", "no scene at all");
    for (const char* const file : {"text", "replaced"}) {
      writeFile(_folder / file, "no scene at all");
    }
    writeFile(_folder / "empty", "");
    writeFile(_folder / "cut.zip", "PK\3\4");
    writeFile(_folder / "scene.xml", makeDescription("heat"));
    fs::create_directory(_folder / "folder");
    fs::create_symlink("loop", _folder / "loop");
    fs::create_symlink("new.sdb", _folder / "link-to-new");
    EXPECT_EQ(mkfifo((_folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(run({"convert", "scene.zip", "scene.sdb"}).exitCode, 0);
    std::string bytes = readFile(_folder / "scene.sdb");
    // Arrays stand behind the header, each on a boundary of 64 bytes.
    bytes.at(bytes.find(std::string("\0\0\x20\x40", 4))) = '\1';
    writeFile(_folder / "wrong.sdb", bytes);
    writeFile(_folder / "cut.sdb", bytes.substr(0, bytes.size() / 2));
  }
};

TEST_F(CommandLineTest, AnswersAsInTheTranscript) {
  std::string description = makeDescription("heat");
  description.insert(description.find("<geometry"), "<vectors name=\"wind\"/><streamlines name=\"paths\"/>");
  makeArchive(description).write(_folder / "more.zip");
  DatabaseBytes newer(readFile(_folder / "scene.sdb"));
  newer.replaceInIndex("MeshAttributes", "WarpAttributes");
  writeFile(_folder / "newer.sdb", newer.join());
  std::string damaged = readFile(_folder / "scene.sdb");
  for (const auto& array : lum::SDBReader((_folder / "scene.sdb").wstring()).getArrays()) {
    damaged.at(array.offset) ^= 1;
  }
  writeFile(_folder / "damaged.sdb", damaged);

  std::istringstream lines(readFile(testData("expected/commands.txt")));
  std::string answers;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('#')) {
      answers += line + "\n";
    } else if (line.starts_with('$')) {
      answers += answerTo(line);
      expectNoTemporaryFiles();
    }
  }
  expectAsInFile(answers, "commands.txt");
  EXPECT_FALSE(fs::exists(_folder / "x.sdb"));
  EXPECT_FALSE(fs::exists(_folder / "x.png"));
  EXPECT_TRUE(fs::exists(_folder / "more.sdb"));
  for (const char* const file : {"kept.sdb", "replaced", "copy.sdb"}) {
    EXPECT_TRUE(readFile(_folder / file) == readFile(_folder / "scene.sdb")) << file;
  }
  EXPECT_THAT(readFile(_folder / "cold.jsonl"), HasSubstr(R"("value": "cold", "findings": )"));
}

TEST_F(CommandLineTest, ReadsStandardInput) {
  fs::copy(_folder / "scene.zip", _folder / ".in");
  EXPECT_TRUE(run({"convert", "-", "-"}).out == readFile(_folder / "scene.sdb"));
  EXPECT_THAT(run({"info", "-"}).out, HasSubstr("SceneNode"));
  EXPECT_EQ(run({"diff", "-", "scene.sdb"}).exitCode, 0);
  writeFile(_folder / ".in", "no scene at all");
  const ProgramResult result = run({"check", "-", "scene.zip"});
  EXPECT_EQ(result.exitCode, 3);
  EXPECT_EQ(result.err, "vemoscene: Unknown file format \"standard input\"\n");
  fs::copy_file(_folder / "cut.sdb", _folder / ".in", fs::copy_options::overwrite_existing);
  EXPECT_THAT(run({"check", "-"}).out, HasSubstr("refused: The file is truncated"));
  expectNoTemporaryFiles();
  fs::remove(_folder / ".in");
  fs::create_directory(_folder / ".in");
  EXPECT_THAT(run({"info", "-"}).err, HasSubstr("Standard input cannot be read: Is a directory"));
}

/// Standard input may have no end.
TEST_F(CommandLineTest, CopiesOfStandardInputOnlyWhatMayBeAScene) {
  constexpr std::size_t BYTES = std::size_t{4} << 20U;
  rlimit former{};
  getrlimit(RLIMIT_FSIZE, &former);
  const rlimit limit{BYTES / 2, former.rlim_max};
  const auto infoOf = [&](const std::string& start) {
    writeFile(_folder / ".in", start + std::string(BYTES, 'x'));
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::string message = run({"info", "-"}).err;
    setrlimit(RLIMIT_FSIZE, &former);
    return message;
  };
  EXPECT_EQ(infoOf("no scene"), "vemoscene: Unknown file format \"standard input\"\n");
  EXPECT_EQ(infoOf("PK\3\4"), "vemoscene: Cannot write a temporary copy of standard input: File too large\n");
}

TEST_F(CommandLineTest, AnswersInTheWordsOfTheParser) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {{{"--help"}, "Exit status:"},
                                                                    {{"--version"}, "vemoscene "},
                                                                    {{"-V"}, "vemoscene "},
                                                                    {{"help"}, "Exit status:"},
                                                                    {{"help", "render"}, "--size WxH"},
                                                                    {{"convert", "--help"}, "database (.sdb"},
                                                                    {{"render", "--help"}, "--size WxH"}};
  for (const auto& [arguments, expected] : cases) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 0) << expected;
    EXPECT_THAT(result.out, HasSubstr(expected));
    EXPECT_EQ(result.err, "");
  }
  EXPECT_EQ(run({"info", "scene.zip", "--fail-on", "all"}).exitCode, 64);
}

TEST_F(CommandLineTest, AcceptsAnyFileName) {
  const std::string name = "sc\xC3\xA8ne \xFF.zip";
  fs::copy_file(_folder / "scene.zip", _folder / name);
  EXPECT_THAT(run({"info", name}).out, HasSubstr("sc\xC3\xA8ne \xEF\xBF\xBD.zip"));
  EXPECT_EQ(run({"convert", name, "\xFE.sdb"}).exitCode, 0);
  EXPECT_TRUE(fs::exists(_folder / "\xFE.sdb"));
  // What the message says of any file.
  fs::copy_file(_folder / "cut.zip", _folder / "zip");
  EXPECT_EQ(run({"info", "zip"}).err, "vemoscene: zip: Invalid zip file\n");
}

TEST_F(CommandLineTest, PrintsNamesWithLineBreaksInOneLine) {
  makeArchive(std::regex_replace(makeDescription("heat"), std::regex("\"piece\""), "\"a&#10;b\""))
      .write(_folder / "broken.zip");
  EXPECT_THAT(run({"info", "broken.zip"}).out, HasSubstr("DrawableCollection \"a b\"\n"));
}

/// What drawing makes of it follows from what reading has reported, unless what could be read is at fault.
TEST_F(CommandLineTest, ReportsAFaultOnce) {
  const auto points = [](const std::string& children) {
    return geometry("pointScaleMode='1' pointScaleScalarName='heat'", children);
  };
  const std::string array = "<array name='heat' dim='1' data='heat' vertexData='true'/>";
  const std::string sizes = "<pointScaleScalarMapTo x='1' y='9'/>";
  const auto colored = [&](const std::string& colormap) {
    return assembly("A", geometry("polys='polys'", array) + "<colormap name='c' " + colormap + "</colormap>");
  };
  const std::string seen = geometry("polys='polys'");
  const std::string triad = "<coordinatesystem name='t' visibility='1'>";
  const std::string view = "<view perspective='true'>";
  const std::string colors = "<c>ff0000ff</c><c>0000ffff</c>";
  const struct {
    std::string scene;
    std::vector<std::string> codes;
  } cases[] = {
      {colored("min='0' max=''>" + colors), {"value-unreadable"}},
      {colored("min='x' max='5' log10='true'>" + colors), {"value-unreadable"}},
      {colored("min='0' max=''>"), {"value-unreadable", "colormap-adjusted"}},
      {colored("min='0' max='0'>" + colors), {"colormap-adjusted"}},
      {colored("min='-5' max='x' log10='true'>" + colors), {"value-unreadable", "colormap-adjusted"}},
      {colored("min='x' max='-5' log10='true'>" + colors), {"value-unreadable", "colormap-adjusted"}},
      {colored("min='9x' max='5'>" + colors), {"value-unreadable"}},
      {points("<array name='heat' dim='1' data='p' vertexData='true'/>" + sizes), {"array-left-out"}},
      {points(sizes), {"points-not-scaled"}},
      {points(array + sizes + "<pointScaleScalarRange x='0' y='none'/>"), {"value-unreadable"}},
      {points(array + sizes + "<pointScaleScalarRange x='0' y='0'/>"), {"points-not-scaled"}},
      {points(array + "<pointScaleScalarMapTo x='1' y='none'/>"), {"value-unreadable"}},
      {points(array + "<pointScaleScalarMapTo x='1' y='0'/>"), {"point-scale-adjusted"}},
      {points(array + "<pointScaleScalarMapTo x='none' y='-1'/>"),
       {"value-unreadable", "point-scale-adjusted"}},
      {seen + "<clip><normal x='none'/></clip>", {"value-unreadable"}},
      {seen + "<clip><normal x='0none'/></clip>", {"value-unreadable"}},
      {seen + triad + "<yaxis y='1e'/><zaxis z='1'/></coordinatesystem>", {"value-unreadable"}},
      {seen + triad + "<yaxis y='none'/><zaxis/></coordinatesystem>", {"value-unreadable", "value-ignored"}},
      {seen + view + "<position z='none'/></view>", {"value-unreadable"}},
      {seen + view + "<position z='0none'/></view>", {"value-unreadable"}},
      {seen + view + "<position z='9'/><up y='none'/></view>", {"value-unreadable"}},
      {seen + view + "<position z='none'/><up/></view>", {"value-unreadable", "view-adjusted"}},
      {seen + view + "<position z='none'/></view>" + view + "<position/></view>",
       {"value-unreadable", "element-replaced", "view-adjusted"}},
  };
  for (const auto& [scene, codes] : cases) {
    ArchiveBuilder()
        .text("scene.xml", sceneXml(scene))
        .floats("p", {0, 0, 0, 1, 0, 0, 0, 1, 0})
        .floats("heat", {1, 2, 3})
        .ints("polys", {3, 0, 1, 2})
        .write(_folder / "fault.zip");
    const std::string out = run({"check", "fault.zip"}).out;
    std::vector<std::string> found;
    const std::regex code("\\(([a-z-]+)[;)]");
    for (std::sregex_iterator match(out.begin(), out.end(), code), end; match != end; ++match) {
      if ((*match)[1] != "entry-unused" && (*match)[1] != "attribute-without-effect") {
        found.push_back((*match)[1]);
      }
    }
    EXPECT_EQ(found, codes) << out;
  }
}

TEST_F(CommandLineTest, PrintsNoValuesOutOfProportion) {
  const auto write = [this](const char* file, const std::string& colormap, int count) {
    std::string sharing = colormap;
    for (int i = 0; i < count; ++i) {
      sharing += geometry("points='p' name='" + std::to_string(i) + "'",
                          "<array name='d' dim='1' vertexData='true' data='d'/>");
    }
    ArchiveBuilder()
        .text("scene.xml", sceneXml(assembly("", sharing)))
        .floats("p", std::vector<float>(300'000))
        .floats("d", std::vector<float>(100'000))
        .write(_folder / file);
  };
  const auto expectRefusal = [this](const char* option, const char* file, const char* cause) {
    const ProgramResult refused = run({"info", option, file});
    EXPECT_EQ(refused.exitCode, 5) << file;
    EXPECT_EQ(refused.out, "");
    EXPECT_THAT(refused.err, HasSubstr(cause));
  };
  write("shared.zip", "", 400);
  EXPECT_EQ(run({"info", "--json", "shared.zip"}).exitCode, 0);
  expectRefusal("--values", "shared.zip", "share arrays");
  std::string colors;
  for (int i = 0; i < 100'000; ++i) {
    colors += "<rgba>ff0000ff</rgba>";
  }
  write("colors.zip", "<colormap name='m' max='1'>" + colors + "</colormap>", 400);
  expectRefusal("--json", "colors.zip", "share lists of colours");
  expectRefusal("--values", "colors.zip", "share lists of colours");
}

TEST_F(CommandLineTest, WritesOverNoFileOfAnotherNameThatIsRead) {
  fs::create_directory(_folder / "linked");
  fs::create_hard_link(_folder / "cold.zip", _folder / "linked/scene.sdb");
  EXPECT_THAT(run({"convert", "scene.zip", "cold.zip", "-d", "linked", "--force"}).err,
              HasSubstr("\"scene.zip\" would be written over \"cold.zip\""));
}

TEST_F(CommandLineTest, ReportsThatADatabaseHoldsNoScene) {
  const auto group = make<lum::DrawableCollection>();
  ASSERT_TRUE(isSuccess(writeDatabase(_folder / "group.sdb", *group)));
  EXPECT_THAT(run({"check", "group.sdb"}).out,
              HasSubstr("lost: The database holds no scene (scene-not-drawn)"));
}

TEST_F(CommandLineTest, FindsWhatKeepsADatabaseFromBeingRead) {
  const std::string sound = readFile(_folder / "scene.sdb");
  writeFile(_folder / "header.sdb", std::regex_replace(sound, std::regex("\"hash\""), "\"hush\""));
  writeFile(_folder / "longer.sdb", sound + "x");
  DatabaseBytes later(sound);
  later.replaceInIndex("SceneNode", "SceneNodx");
  writeFile(_folder / "root.sdb", later.join());
  for (const char* const file : {"header.sdb", "longer.sdb", "root.sdb"}) {
    const ProgramResult check = run({"check", "--json", file});
    EXPECT_EQ(check.exitCode, 5) << file;
    EXPECT_THAT(check.out, HasSubstr("\"database-damaged\"")) << file;
    EXPECT_EQ(run({"info", file}).exitCode, 5) << file;
  }
}

TEST_F(CommandLineTest, NeedsNoArraysThatNoNodeHas) {
  DatabaseBytes later(readFile(_folder / "wrong.sdb"));
  later.replaceInIndex("PolyDataNode", "PolyDataNodx");
  writeFile(_folder / "later.sdb", later.join());
  const ProgramResult check = run({"check", "later.sdb"});
  EXPECT_EQ(check.exitCode, 0);
  EXPECT_THAT(check.out, HasSubstr("changed: later.sdb: Array 3 \"heat\": hash mismatch"));
  EXPECT_EQ(run({"info", "later.sdb"}).exitCode, 0);
  EXPECT_EQ(run({"convert", "later.sdb", "x.sdb", "--verify"}).exitCode, 0);
  EXPECT_EQ(run({"diff", "later.sdb", "x.sdb"}).exitCode, 0);
}

TEST_F(CommandLineTest, ConvertsToStandardOutput) {
  for (const char* output : {"-", "/dev/stdout"}) {
    const ProgramResult result = run({"convert", "scene.zip", output});
    EXPECT_EQ(result.exitCode, 0) << result.err;
    EXPECT_TRUE(result.out == readFile(_folder / "scene.sdb"));
    expectNoTemporaryFiles();
  }
  EXPECT_EQ(run({"convert", "scene.zip", "-", "--ledger", "both"}, _folder / "both").exitCode, 64);
}

TEST_F(CommandLineTest, DrawsOrReportsMissingOpenGl) {
  const ProgramResult result = run({"render", "scene.zip", "scene.png", "--size", "30x20"});
  expectNoTemporaryFiles();
  if (result.exitCode == 69) {
    EXPECT_FALSE(result.err.empty());
    EXPECT_FALSE(fs::exists(_folder / "scene.png"));
    GTEST_SKIP() << "no OpenGL: " << result.err;
  }
  EXPECT_EQ(result.exitCode, 0) << result.err;
  const std::string picture = readFile(_folder / "scene.png");
  ASSERT_GT(picture.size(), 24U);
  EXPECT_EQ(picture.substr(16, 8), std::string("\0\0\0\x1E\0\0\0\x14", 8)) << "width and height";
  EXPECT_EQ(run({"render", "scene.sdb", "again.png", "--size", "30x20"}).exitCode, 0);
  EXPECT_TRUE(readFile(_folder / "again.png") == picture);
  EXPECT_EQ(run({"render", "scene.sdb", "-", "--size", "128"}).out.substr(16, 8),
            std::string("\0\0\0\x80\0\0\0\x60", 8));
  EXPECT_EQ(run({"render", "scene.sdb", "-", "--size", "1"}).out.substr(16, 8),
            std::string("\0\0\0\x01\0\0\0\x01", 8));
  EXPECT_EQ(run({"render", "scene.zip", "-d", "pictures", "--format", "jpeg"}).exitCode, 0);
  EXPECT_TRUE(readFile(_folder / "pictures/scene.jpg").starts_with("\xFF\xD8\xFF"));
  EXPECT_TRUE(run({"render", "scene.zip", "-", "--format", "jpeg"}).out.starts_with("\xFF\xD8\xFF"));
  EXPECT_TRUE(run({"render", "scene.sdb", "-", "--size", "30x20"}).out == picture);
  const std::string drawn = run({"render", "view.zip", "view.png"}).err;
  EXPECT_THAT(drawn, HasSubstr("view-adjusted"));
  EXPECT_EQ(drawn.find("view-adjusted"), drawn.rfind("view-adjusted")) << drawn;
}

TEST_F(CommandLineTest, SaysThatStandardInputIsClosed) {
  const int former = dup(STDIN_FILENO);
  close(STDIN_FILENO);
  const ProgramResult result = run({"convert", "-", "x.sdb"});
  dup2(former, STDIN_FILENO);
  close(former);
  EXPECT_EQ(result.exitCode, 5);
  EXPECT_EQ(result.err, "vemoscene: Standard input cannot be read: Bad file descriptor\n");
}

TEST_F(CommandLineTest, BeginsNoLinesThatNamesHold) {
  const std::string name = "a\nvemoscene: forged<br>vemoscene: forged";
  fs::copy(_folder / "scene.zip", _folder / name);
  fs::copy(_folder / "incomplete.zip", _folder / (name + ".cut"));
  const std::vector<std::string> commands[] = {{"info", name},
                                               {"info", name, "scene.zip"},
                                               {"check", name},
                                               {"check", name, "scene.zip"},
                                               {"check", name + ".cut", "scene.zip"},
                                               {"info", name + ".cut"},
                                               {"info", name + ".zip"},
                                               {"convert", name, name + ".sdb", "--verify"},
                                               {"help", name},
                                               {name},
                                               {"check", "scene.zip", "--" + name}};
  for (const auto& command : commands) {
    const ProgramResult result = run(command);
    EXPECT_THAT("\n" + result.out + result.err,
                testing::AllOf(HasSubstr("forged"), Not(HasSubstr("\nvemoscene: forged"))));
  }
}

TEST_F(CommandLineTest, OpensNoWindowWithoutADisplay) {
  unsetenv("DISPLAY");
  unsetenv("QT_QPA_PLATFORM");
  const ProgramResult result = run({"view", "scene.zip"});
  EXPECT_EQ(result.exitCode, 69);
  EXPECT_THAT(result.err, HasSubstr(VEMO_HAS_WINDOW ? "no display" : "Cannot load the window library"));
  expectNoTemporaryFiles();
  setenv("DISPLAY", ":no such display", 1);
  EXPECT_EQ(run({"view", "scene.zip"}).exitCode, 69);
  EXPECT_EQ(run({"view", "nowhere.zip"}).exitCode, 2);
  // Qt aborts the process then.
  setenv("QT_QPA_PLATFORM", "no such platform", 1);
  const ProgramResult aborted = run({"view", "scene.zip"});
  EXPECT_EQ(aborted.exitCode, 69);
  EXPECT_THAT(aborted.err, HasSubstr(VEMO_HAS_WINDOW ? "vemoscene: This application failed to start"
                                                     : "Cannot load the window library"));
  unsetenv("QT_QPA_PLATFORM");
}

#if VEMO_HAS_WINDOW
/// A display of its own.
class XServer {
 public:
  explicit XServer(const fs::path& folder) : _screen(folder / "Xvfb_screen0") {
    int numbers[2] = {-1, -1};
    EXPECT_EQ(pipe(numbers), 0);
    _process = fork();
    if (_process == 0) {
      const std::string number = std::to_string(numbers[1]);
      execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-screen", "0", "640x480x24", "-fbdir",
             _screen.parent_path().c_str(), nullptr);
      _exit(127);
    }
    close(numbers[1]);
    for (char digit = 0; read(numbers[0], &digit, 1) == 1 && digit != '\n';) {
      _number += digit;
    }
    close(numbers[0]);
  }
  XServer(const XServer&) = delete;
  XServer& operator=(const XServer&) = delete;
  ~XServer() { stop(); }

  bool isRunning() const { return !_number.empty(); }
  std::string getDisplay() const { return ":" + _number; }

  /// Whether anything is on the screen, which is black at first.
  bool showsAnything() const {
    const std::string screen = readFile(_screen);
    constexpr std::size_t PIXEL_BYTES = std::size_t{4} * 640 * 480;
    return screen.size() > PIXEL_BYTES &&
           screen.find_first_not_of('\0', screen.size() - PIXEL_BYTES) != std::string::npos;
  }

  void stop() {
    if (_process > 0) {
      kill(_process, SIGTERM);
      waitpid(std::exchange(_process, -1), nullptr, 0);
    }
  }

 private:
  fs::path _screen;
  pid_t _process = -1;
  std::string _number;
};

TEST_F(CommandLineTest, SaysThatTheDisplayHasGone) {
  XServer server(_temporary.path());
  if (!server.isRunning()) {
    GTEST_SKIP() << "There is no Xvfb";
  }
  setenv("DISPLAY", server.getDisplay().c_str(), 1);
  // Qt's libraries copy texts that need not end, which the sanitizer's strict checks refuse.
  const char* const options = getenv("ASAN_OPTIONS");
  setenv("ASAN_OPTIONS", fmt::format("{}:strict_string_checks=0", options != nullptr ? options : "").c_str(),
         1);
  const ProgramRun view({"view", "scene.zip"}, _folder.path(), _temporary.path());
  // At any time before that, the outcome is the same.
  for (int i = 0; i < 1000 && !server.showsAnything(); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  server.stop();
  const ProgramResult result = view.finish();
  EXPECT_EQ(result.exitCode, 69);
  EXPECT_THAT(result.err, HasSubstr("vemoscene: The display \"" + server.getDisplay() + "\" "));
}
#endif

TEST_F(CommandLineTest, WorksWithoutThreadsWhereItCan) {
  rlimit limit{};
  getrlimit(RLIMIT_STACK, &limit);
  // No memory is large enough for the stack of another thread. Limits of processes do not concern root.
  const rlimit excessive{rlim_t{1} << 50U, limit.rlim_max};
  if (setrlimit(RLIMIT_STACK, &excessive) != 0) {
    GTEST_SKIP() << "the stack cannot be that large";
  }
  const ProgramResult converted = run({"convert", "scene.zip", "x.sdb"});
  const ProgramResult drawn = run({"render", "scene.zip", "x.png"});
  setrlimit(RLIMIT_STACK, &limit);
  EXPECT_EQ(converted.exitCode, 0) << converted.err;
  EXPECT_TRUE(readFile(_folder / "x.sdb") == readFile(_folder / "scene.sdb"));
  EXPECT_EQ(drawn.exitCode, 69);
  EXPECT_THAT(drawn.err, HasSubstr("Cannot start a thread: "));
  expectNoTemporaryFiles();
}

TEST_F(CommandLineTest, ReportsResultsThatCannotBeWritten) {
  EXPECT_EQ(run({"convert", "scene.zip", "-"}, "/dev/full").exitCode, 6);
  EXPECT_EQ(run({"convert", "scene.zip", "-"}, _folder / "scene.zip").exitCode, 64);
  const ProgramResult full = run({"info", "scene.zip"}, "/dev/full");
  EXPECT_EQ(full.exitCode, 6);
  EXPECT_THAT(full.err, HasSubstr("standard output"));
  EXPECT_EQ(run({"info", "scene.zip", "scene.zip"}, "/dev/full").err, full.err)
      << "one message for all files";
  EXPECT_EQ(run({"--help"}, "/dev/full").exitCode, 6);
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlimit little{1024, limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &little);
  const std::vector<std::string> commands[] = {
      {"convert", "scene.zip", "x.sdb"}, {"convert", "scene.sdb", "x.sdb"}, {"info", "scene.zip"}};
  for (const auto& arguments : commands) {
    const ProgramResult result = run(arguments);
    EXPECT_EQ(result.exitCode, 6) << arguments[1];
    EXPECT_THAT(result.err, testing::MatchesRegex("vemoscene: Cannot write [^\n]*: File too large\n"));
  }
  setrlimit(RLIMIT_FSIZE, &limit);
  for (const auto& file : fs::directory_iterator(_folder.path())) {
    EXPECT_NE(file.path().extension(), ".tmp") << file;
  }
  EXPECT_EQ(run({"diff", "scene.sdb", "scene.zip"}, "/dev/full").exitCode, 2);
  expectNoTemporaryFiles();
  // A folder in which nobody can make files.
  const ProgramResult homeless = ProgramRun({"convert", "scene.zip", "-"}, _folder.path(), "/proc").finish();
  EXPECT_EQ(homeless.exitCode, 6);
  EXPECT_THAT(homeless.err, HasSubstr("Cannot create a folder for temporary files in /proc"));
}

}  // namespace

}  // namespace vemo
