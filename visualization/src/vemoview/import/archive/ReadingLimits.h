#pragma once

#include <vemo/import/archive/ZipFileReader.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace vemo {

/// What a scene may ask for at most. Memory and time follow from what the archive
/// asks for, so what it may ask for follows from the bytes that it really has:
/// each limit is a number per byte of the archive, and for small archives a number
/// of its own.
///
/// A scene of a million items with 30 attributes each is within all of them: items
/// that are alike deflate to some three bytes each, their text to a 120th.
struct ReadingLimits {
  /// Reading and converting items is recursive.
  static constexpr std::size_t MAX_DEPTH = 128;

  /// Of attributes, in the document type: the parser compares each with all before it.
  static constexpr std::uint64_t MAX_DECLARATIONS = 10'000;

  /// Names, values and text of elements: what one byte of the description may stand for in UTF-8, and
  /// what entities and default values may repeat.
  static constexpr std::uint64_t MOST_TEXT_PER_BYTE = 2;
  static constexpr std::uint64_t MOST_REPEATED_TEXT = 16U << 20U;

  static constexpr std::uint64_t ELEMENTS_PER_BYTE = 16;
  static constexpr std::uint64_t ELEMENTS_OF_SMALL_ARCHIVE = 500'000;

  static constexpr std::uint64_t DESCRIPTION_BYTES_PER_BYTE = 256;
  static constexpr std::uint64_t DESCRIPTION_BYTES_OF_SMALL_ARCHIVE = 64U << 20U;

  /// Entries may overlap: no more than deflating could have put into the file.
  static constexpr std::uint64_t BYTES_PER_BYTE = ZipFileReader::MAX_DEFLATE_RATIO;
  static constexpr std::uint64_t BYTES_OF_SMALL_ARCHIVE = 256U << 20U;

  /// Reading compressed bytes takes time even if they give hardly any content; entries may also
  /// share them. Entries that may be read again are within it.
  static constexpr std::uint64_t COMPRESSED_BYTES_PER_BYTE = 40;
  static constexpr std::uint64_t COMPRESSED_BYTES_OF_SMALL_ARCHIVE = 64U << 20U;

  /// What is made of the content of entries, for each byte of it: entries that are read again for
  /// another use, and normals with the corners of their faces. Very many items may share very many
  /// points or cells.
  static constexpr std::uint64_t COPIES_PER_BYTE = 32;
  static constexpr std::uint64_t COPIES_OF_SMALL_CONTENT = 64U << 20U;

  /// Arrays without values, in memory: half of what a small database may take for these and for texts.
  static constexpr std::uint64_t BYTES_OF_EMPTY_ARRAYS = 16U << 20U;

  /// Names of data arrays, each time that one is used: what is beyond a length that the node of a database
  /// makes up for.
  static constexpr std::uint64_t BYTES_OF_LONG_NAMES = 8U << 20U;
  static constexpr std::uint64_t LONG_NAME = 200;

  /// Of elements in elements.
  std::size_t depth = MAX_DEPTH;
  /// Elements and attributes, and nodes of a scene graph.
  std::uint64_t elements = ELEMENTS_OF_SMALL_ARCHIVE;
  /// Of the text of the description.
  std::uint64_t descriptionBytes = DESCRIPTION_BYTES_OF_SMALL_ARCHIVE;
  /// Read from the archive in all.
  std::uint64_t bytes = BYTES_OF_SMALL_ARCHIVE;

  /// The same, as they stand in the archive.
  std::uint64_t compressedBytes = COMPRESSED_BYTES_OF_SMALL_ARCHIVE;

  /// Made of what was read, in bytes.
  std::uint64_t copies = COPIES_OF_SMALL_CONTENT;

  /// @param content the bytes of all entries, inflated
  static ReadingLimits ofArchive(std::uint64_t size, std::uint64_t content) {
    return {MAX_DEPTH,
            std::max(ELEMENTS_OF_SMALL_ARCHIVE, ELEMENTS_PER_BYTE * size),
            std::max(DESCRIPTION_BYTES_OF_SMALL_ARCHIVE, DESCRIPTION_BYTES_PER_BYTE * size),
            std::max(BYTES_OF_SMALL_ARCHIVE, BYTES_PER_BYTE * size),
            COMPRESSED_BYTES_OF_SMALL_ARCHIVE + COMPRESSED_BYTES_PER_BYTE * size,
            COPIES_OF_SMALL_CONTENT + COPIES_PER_BYTE * content};
  }
};

}  // namespace vemo
