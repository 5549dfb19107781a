#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vemo {

/// Makes zip archives for tests, honest ones and others:
///
///     ArchiveBuilder().text("scene.xml", xml).floats("p.bin", {0, 0, 1}).write(folder / "scene.zip");
///
/// Entries stand in the order in which they were added; a name may be added
/// twice. Numbers are written most significant byte first.
class ArchiveBuilder {
 public:
  /// What the archive says of one entry, in its local header and in the
  /// directory. `data` are the bytes as they stand in the archive.
  struct Entry {
    std::string name;
    std::vector<unsigned char> data;
    std::uint16_t flags = 0;
    std::uint16_t method = 0;
    std::uint32_t crc = 0;
    std::uint32_t compressedSize = 0;
    std::uint32_t uncompressedSize = 0;
  };

  ArchiveBuilder& text(const std::string& name, std::string_view content);
  ArchiveBuilder& bytes(const std::string& name, std::vector<unsigned char> content);
  ArchiveBuilder& ints(const std::string& name, const std::vector<int>& values);
  ArchiveBuilder& floats(const std::string& name, const std::vector<float>& values);

  /// Adds what a line says: "@floats name 1 0.5 nan", or @ints, @bytes or @text, of one
  /// word. False if it says something else.
  bool add(const std::string& line);

  /// Stores all entries of the archive as they are; without this call they are
  /// deflated.
  ArchiveBuilder& stored();

  /// Falsifies the entry added last, after it was compressed:
  /// forge([](ArchiveBuilder::Entry& entry) { entry.crc ^= 1; }).
  ArchiveBuilder& forge(std::function<void(Entry&)> forgery);

  /// Makes the archive claim another number of entries than it has.
  ArchiveBuilder& claimEntryCount(std::uint64_t count);

  std::vector<unsigned char> build() const;

  /// Throws std::runtime_error when the file cannot be written.
  void write(const std::filesystem::path& path) const;

 private:
  struct Source {
    std::string name;
    std::vector<unsigned char> content;
    std::function<void(Entry&)> forgery;
  };

  template <class T>
  ArchiveBuilder& words(const std::string& name, const std::vector<T>& values);
  Entry makeEntry(const Source& source) const;

  std::vector<Source> _sources;
  bool _stored = false;
  std::optional<std::uint64_t> _claimedCount;
};

}  // namespace vemo
