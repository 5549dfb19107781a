#pragma once

#include <vemo/import/Export.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vemo {

/// The entries of a zip archive, indexed by name once. Not supported, and
/// rejected when such an entry is read: encryption, methods other than "stored"
/// and "deflated", entries larger than an int counts. Of entries of the same
/// name the last in the archive wins.
///
/// What reads the file throws UnreadableException if the system fails to.
///
/// Copies share the open archive, which the last of them closes; they must not
/// be used at the same time.
class VEMO_IMPORT_EXPORT ZipFileReader {
 public:
  /// In bytes; what getSize returns for all larger entries, which cannot be read.
  /// The largest int that is a whole number of 32-bit values.
  static constexpr int SIZE_LIMIT = 0x7ffffffc;

  /// A deflated byte encodes at most four matches of 258 bytes: a match
  /// takes no fewer than two bits.
  static constexpr std::uint64_t MAX_DEFLATE_RATIO = 1032;

  /// Entries up to this size are read whatever their compressed size: they
  /// cannot exhaust memory.
  static constexpr std::uint64_t SMALL_ENTRY_SIZE = 0x10000;

  /// Where an entry's content contradicts the archive's directory.
  struct ContentFlaws {
    /// The bytes of content that exist, if fewer than its size; the rest is zero, if it was read.
    std::optional<std::size_t> bytesRead;
    bool isChecksumWrong = false;
  };

  /// Changes bytes in place.
  using Convert = std::function<void(std::span<char>)>;

  /// Throws FileNotFoundException, IOException when the owner has no
  /// permission to read or the file cannot be opened, or ZipException.
  explicit ZipFileReader(const std::wstring& path);

  /// An archive in memory; the bytes must outlive the reader and its copies. Throws
  /// ZipException.
  explicit ZipFileReader(std::span<const std::byte> bytes);

  /// The size of the archive in bytes.
  std::uint64_t getFileSize() const;

  /// The number of distinct names.
  int getEntryCount() const;

  /// Whether the archive has more entries than it says: those are not read.
  bool isMiscounted() const;

  /// Whether another archive is in front of this one.
  bool hasOtherInFront() const;

  /// Names that several entries have, each once.
  const std::vector<std::string>& getDuplicateNames() const;

  /// Names ascend byte by byte. An index of 0 or less gives the first name,
  /// one past the last an empty string.
  std::string getEntryName(int index) const;

  /// The size in bytes of the uncompressed content; -1 when there is no entry
  /// of exactly that name.
  int getSize(const std::string& name) const;

  /// The size in bytes as it stands in the archive; 0 when there is no such entry.
  std::uint64_t getCompressedSize(const std::string& name) const;

  /// Of the uncompressed content, CRC-32, as it stands in the archive's directory; 0 when there
  /// is no such entry.
  std::uint32_t getChecksum(const std::string& name) const;

  /// Whether the entry may be read: false for what is not supported, and for a
  /// large size that so many compressed bytes cannot have by any method. Check
  /// this before allocating memory: the size may be forged.
  bool isSizePossible(const std::string& name) const;

  /// Why an entry is not supported: "it is encrypted"; empty for others, which may be damaged.
  std::string describeUnsupported(const std::string& name) const;

  /// Whether an entry that can be read has another name in front of its content.
  bool hasOtherName(const std::string& name) const;

  /// Fills the buffer, of getSize bytes, with the entry's content. If the entry
  /// ends early, the rest is set to zero; what follows its size is ignored.
  /// False when there is no such entry, or it cannot be read, or if its size is more than 1 MiB
  /// beyond four times the content that exists.
  /// @param flaws if not null, receives what does not stop reading
  /// @param convert if not empty, is applied to the content, in blocks of a
  ///   multiple of 8 bytes except for the last
  bool read(const std::string& name, char* buffer, ContentFlaws* flaws = nullptr,
            const Convert& convert = nullptr) const;

 private:
  struct Archive;

  std::shared_ptr<const Archive> _archive;
};

}  // namespace vemo
