#include "support/Files.h"
#include "support/TemporaryFolder.h"
#include <vemo/base/Platform.h>
#include <vemo/base/WideStream.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iomanip>
#include <random>
#include <set>
#include <sstream>
#include <sys/stat.h>

namespace vemo {

namespace {

TEST(WidePathTest, ConvertsBothWays) {
  const std::pair<const char*, std::wstring> cases[] = {
      {"", L""},
      {"/tmp/a.zip", L"/tmp/a.zip"},
      {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", L"\u00E9\u20AC\U0001F600"},
      {"\xF4\x8F\xBF\xBF", L"\U0010FFFF"},
      // No valid UTF-8: a lone byte, one cut short, too long a form, a
      // surrogate, beyond the last character.
      {"a\xE9z", {L'a', 0xDCE9, L'z'}},
      {"\xE2\x82", {0xDCE2, 0xDC82}},
      {"\xC0\xAF", {0xDCC0, 0xDCAF}},
      {"\xE0\x80\xAF", {0xDCE0, 0xDC80, 0xDCAF}},
      {"\xED\xA0\x80", {0xDCED, 0xDCA0, 0xDC80}},
      {"\xF4\x90\x80\x80", {0xDCF4, 0xDC90, 0xDC80, 0xDC80}},
      {"\xFF", {0xDCFF}},
  };
  for (const auto& [native, wide] : cases) {
    EXPECT_EQ(toWidePath(native), wide) << native;
    EXPECT_EQ(toNativePath(wide), native) << native;
  }
}

TEST(WidePathTest, KeepsEveryName) {
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    std::string name(random() % 8, '\0');
    for (char& byte : name) {
      // Mostly bytes of the kinds that make, or nearly make, sequences.
      byte = static_cast<char>(random() % 4 == 0 ? random() % 256 : 0x80 + random() % 0x80);
    }
    ASSERT_EQ(toNativePath(toWidePath(name)), name);
  }
}

TEST(WidePathTest, EncodesInvalidCharacters) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(toNativePath(std::wstring{0xD83D, 0xDE00}), "\xF0\x9F\x98\x80");  // a pair
  EXPECT_EQ(toNativePath(std::wstring{0xD83D}), replacement);
  EXPECT_EQ(toNativePath(std::wstring{0xD83D, L'a'}), replacement + "a");
  EXPECT_EQ(toNativePath(std::wstring{0xDC00, 0xDFFF}), replacement + replacement);
  EXPECT_EQ(toNativePath(std::wstring{0x110000, static_cast<wchar_t>(-1)}), replacement + replacement);
}

TEST(WideStreamTest, WritesUtf8AndRawBytes) {
  std::ostringstream out;
  out << "File \"" << std::wstring{L'\u00E9', 0xDCFF} << "\" " << std::setw(3) << std::wstring(L"a");
  EXPECT_EQ(out.str(), "File \"\xC3\xA9\xFF\"   a");
}

TEST(WidePathTest, OpensAndQueriesFilesWithAnyName) {
  const TemporaryFolder folder;
  const std::wstring path = wide(folder / "caf\xE9 \xE2\x82\xAC");
  struct stat status {};
  EXPECT_EQ(wideStat(path.c_str(), &status), -1);
  EXPECT_EQ(wideOpen(path.c_str(), "rb"), nullptr);
  std::FILE* file = wideOpen(path.c_str(), "wb");
  ASSERT_NE(file, nullptr);
  std::fputs("four", file);
  std::fclose(file);
  ASSERT_EQ(wideStat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_size, 4);
  EXPECT_TRUE(std::filesystem::exists(folder / "caf\xE9 \xE2\x82\xAC"));
}

TEST(FileSystemTest, GivesAbsoluteNormalPaths) {
  const TemporaryFolder made;
  const std::filesystem::path folder = std::filesystem::canonical(made.path());
  std::filesystem::create_directory(folder / "real");
  writeFile(folder / "real" / "file", "x");
  std::filesystem::create_symlink("real", folder / "link");
  std::filesystem::create_symlink("circle", folder / "circle");
  const std::string longName(5000, 'n');
  const std::pair<std::filesystem::path, std::filesystem::path> CASES[] = {
      {folder / "real" / "file", folder / "real" / "file"},
      {folder / "link" / "." / "file", folder / "real" / "file"},
      {folder / "link" / ".." / "missing", folder / "missing"},
      {folder / "missing" / "deep" / ".." / "x", folder / "missing" / "x"},
      {folder / "circle" / ".." / "y", folder / "y"},
      {folder / longName, folder / longName},
      {folder / "\xFF", folder / "\xFF"},
      {"name", std::filesystem::canonical(std::filesystem::current_path()) / "name"},
  };
  for (const auto& [given, expected] : CASES) {
    EXPECT_EQ(Platform::filesystem().getFilePath(wide(given)), wide(expected)) << given;
  }
  EXPECT_EQ(Platform::filesystem().getFilePath(L""), L"");
}

TEST(FileSystemTest, FindsAndDeletesFiles) {
  const TemporaryFolder folder;
  const OS::FileSystem& files = Platform::filesystem();
  const std::wstring path = wide(folder / "f\xFF");
  writeFile(folder / "f\xFF", "x");
  std::filesystem::create_symlink("nowhere", folder / "dangling");
  EXPECT_TRUE(files.exists(path));
  EXPECT_TRUE(files.exists(wide(folder.path())));
  EXPECT_FALSE(files.exists(wide(folder / "dangling")));
  EXPECT_FALSE(files.exists(L""));

  EXPECT_NE(files.remove(wide(folder / "missing")), 0);
  EXPECT_NE(files.remove(wide(folder.path())), 0);
  // The system would take this for the file in front of the zero.
  const std::wstring longer = path + L'\0' + L"tail";
  EXPECT_FALSE(files.exists(longer));
  EXPECT_NE(files.remove(longer), 0);
  EXPECT_TRUE(files.exists(path));
  EXPECT_EQ(files.remove(path), 0);
  EXPECT_FALSE(files.exists(path));
}

/// Sends temporary files to another folder for a while.
class TemporaryFolderVariable {
 public:
  explicit TemporaryFolderVariable(const std::filesystem::path& folder) {
    if (const char* value = std::getenv("TMPDIR")) {
      _before = value;
    }
    setenv("TMPDIR", folder.c_str(), 1);
    Platform::reset();
  }
  ~TemporaryFolderVariable() {
    _before.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", _before.c_str(), 1);
    Platform::reset();
  }

 private:
  std::string _before;
};

TEST(FileSystemTest, MakesPrivateTemporaryFilesInTheFolderKnownSinceReset) {
  const TemporaryFolder first;
  const TemporaryFolder second;
  const TemporaryFolderVariable variable(first.path());
  std::set<std::wstring> paths;
  const auto expectNewFileIn = [&](const std::filesystem::path& folder, const std::wstring& part) {
    const std::wstring path = Platform::filesystem().makeTemporaryFile(part);
    struct stat status {};
    ASSERT_EQ(wideStat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFREG | 0600));
    EXPECT_EQ(status.st_size, 0);
    EXPECT_EQ(std::filesystem::path(toNativePath(path)).parent_path(), folder);
    EXPECT_TRUE(paths.insert(path).second);
  };
  for (const std::wstring& part :
       {std::wstring(), std::wstring(L"../up/\u00E9"), std::wstring(1000, L'n'), std::wstring{0xDCFF}}) {
    expectNewFileIn(first.path(), part);
  }
  setenv("TMPDIR", second.path().c_str(), 1);
  expectNewFileIn(first.path(), L"");
  Platform::reset();
  expectNewFileIn(second.path(), L"");
  std::filesystem::remove_all(second.path());
  EXPECT_EQ(Platform::filesystem().makeTemporaryFile(L""), L"");
  EXPECT_EQ(errno, ENOENT);
  setenv("TMPDIR", std::filesystem::relative(first.path()).c_str(), 1);
  Platform::reset();
  EXPECT_TRUE(Platform::filesystem().makeTemporaryFile(L"").starts_with(L'/'));
}

/// Registered before anything else uses the platform, so that it runs after
/// the static objects of that use are gone.
void usePlatformAtExit() {
  const std::wstring path = Platform::filesystem().makeTemporaryFile(L"exit");
  Platform::reset();
  std::_Exit(Platform::filesystem().exists(path) && Platform::filesystem().remove(path) == 0 ? 7 : 8);
}

TEST(PlatformDeathTest, WorksAtExit) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        std::atexit(usePlatformAtExit);
        Platform::filesystem().exists(L"/");
        std::exit(0);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace

}  // namespace vemo
