#include "vemoview/import/archive/ArchiveFile.h"

#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>

#include <algorithm>
#include <span>

namespace vemo {

namespace {

/// For minizip: entries are read as they are compressed.
constexpr int RAW = 1;
/// Stored, deflated, bzip2: minizip rejects entries of other methods.
constexpr std::uint64_t METHODS_OF_MINIZIP[] = {0, 8, 12};

/// Of an entry's row in the directory, before its name, extra field and comment
/// (APPNOTE.TXT, section 4.3.12).
constexpr std::uint64_t DIRECTORY_ROW_SIZE = 46;
using Signature = std::array<unsigned char, 4>;
constexpr Signature DIRECTORY_ROW_SIGNATURE = {'P', 'K', 1, 2};

/// Of an entry's local header, before its name and extra field (APPNOTE.TXT, section 4.3.7).
using LocalHeader = std::array<unsigned char, 30>;
constexpr unsigned char LOCAL_HEADER_SIGNATURE[] = {'P', 'K', 3, 4};
constexpr std::size_t METHOD = 8;
constexpr std::size_t NAME_LENGTH = 26;
constexpr std::size_t EXTRA_LENGTH = 28;

unsigned read16(const LocalHeader& header, std::size_t at) {
  return header[at] + 256U * header[at + 1];
}

}  // namespace

ArchiveFile::ArchiveFile(const std::wstring& path) {
  zlib_filefunc64_def functions;
  fill_fopen64_filefunc(&functions);
  functions.zopen64_file = open;
  functions.zseek64_file = seek;
  functions.opaque = this;
  _handle = unzOpen2_64(path.c_str(), &functions);
  if (_handle == nullptr) {
    throw ZipException("Invalid zip file");
  }
}

ArchiveFile::~ArchiveFile() {
  unzClose(_handle);
}

voidpf ArchiveFile::open(voidpf archive, const void* path, int /*mode*/) {
  return static_cast<ArchiveFile*>(archive)->_stream = wideOpen(static_cast<const wchar_t*>(path), "rb");
}

long ArchiveFile::seek(voidpf archive, voidpf stream, ZPOS64_T offset, int origin) {
  if (origin == SEEK_SET) {
    static_cast<ArchiveFile*>(archive)->_position = offset;
  }
  return fseeko(static_cast<std::FILE*>(stream), static_cast<off_t>(offset), origin);
}

bool ArchiveFile::hasRowBehind(const unz_file_info64& row) {
  const std::uint64_t size =
      DIRECTORY_ROW_SIZE + row.size_filename + row.size_file_extra + row.size_file_comment;
  Signature found{};
  return seek(this, _stream, _position + size, SEEK_SET) == 0 &&
         std::fread(found.data(), 1, found.size(), _stream) == found.size() &&
         found == DIRECTORY_ROW_SIGNATURE;
}

std::optional<CompressedBlocks> ArchiveFile::openEntry(std::uint64_t method, std::uint64_t size) {
  if (!seekContent(method)) {
    return std::nullopt;
  }
  return [this, left = size]() mutable {
    const auto block = readBlock(std::min<std::uint64_t>(left, _block.size()));
    left -= block ? block->size() : 0;
    return block;
  };
}

bool ArchiveFile::seekContent(std::uint64_t method) {
  if (unzOpenCurrentFile2(_handle, nullptr, nullptr, RAW) == UNZ_OK) {
    const ZPOS64_T content = unzGetCurrentFileZStreamPos64(_handle);
    unzCloseCurrentFile(_handle);
    return seek(this, _stream, content, SEEK_SET) == 0;
  }
  return std::ranges::find(METHODS_OF_MINIZIP, method) == std::end(METHODS_OF_MINIZIP) &&
         skipLocalHeader(method);
}

/// Minizip goes to the local header before it rejects the method, and does not
/// say otherwise where that header is.
bool ArchiveFile::skipLocalHeader(std::uint64_t method) {
  LocalHeader header;
  return seek(this, _stream, _position, SEEK_SET) == 0 &&
         std::fread(header.data(), 1, header.size(), _stream) == header.size() &&
         std::ranges::equal(LOCAL_HEADER_SIGNATURE, std::span(header).first<4>()) &&
         read16(header, METHOD) == method &&
         seek(this, _stream, read16(header, NAME_LENGTH) + read16(header, EXTRA_LENGTH), SEEK_CUR) == 0;
}

std::optional<std::span<const char>> ArchiveFile::readBlock(std::uint64_t size) {
  const std::span block(_block.data(), static_cast<std::size_t>(size));
  return std::fread(block.data(), 1, block.size(), _stream) == block.size() ? std::optional(block)
                                                                            : std::nullopt;
}

}  // namespace vemo
