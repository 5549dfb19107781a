#pragma once

#include <vemo/import/Array_t.h>
#include <vemo/import/Export.h>
#include <vemo/import/ZipFileReader.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vemo {

class Error;
class Exception;
class QxElement;
class Scene;

/// Something in a scene file that is left out or mended, and where.
struct SceneWarning {
  std::string text;
  /// The archive entry concerned; empty when there is none.
  std::string entry;
  /// As "scene/wing/pressure".
  std::string itemPath;
  /// Of the scene description; 0 when unknown.
  int line = 0;
};

/// Gives the items of a scene what its archive holds: the element tree, numeric
/// arrays, blocks of bytes. It also knows which item is being read, so that
/// errors and warnings can name it.
class VEMO_IMPORT_EXPORT SceneFileReader {
 public:
  /// Elements nested deeper are refused: items are read and converted by
  /// functions that call themselves.
  static constexpr std::size_t MAX_ELEMENT_DEPTH = 128;
  /// Many items may name one entry, and entries may overlap: what is read from
  /// an archive all together is bounded by what deflating could have put into a
  /// file of its size, but not below this number of bytes.
  static constexpr std::uint64_t LEAST_BYTES_BOUND = 256U << 20U;
  /// A description that deflates well is far smaller than the tree made of it:
  /// its elements and attributes are bounded by four to a byte of the archive,
  /// but not below this number.
  static constexpr std::uint64_t LEAST_ELEMENTS_BOUND = 4'000'000;
  /// Of more warnings than these only one is kept, which says so.
  static constexpr std::size_t MAX_WARNINGS = 1000;

  static const std::string SCENE_ENTRY;       ///< "scene.xml"
  static const std::string LUM_SCENE_ENTRY;   ///< "scene.lum"
  static const std::string LUM_ENTRY_PREFIX;  ///< "lum"

  explicit SceneFileReader(ZipFileReader archive);

  const ZipFileReader& getArchive() const { return _archive; }

  /// The whole content of an entry; the caller owns the block. Throws
  /// IOException when the entry is missing or cannot be read, or when more is
  /// read from the archive than it can hold.
  Array_t<unsigned char> readEntry(const std::string& entryName) const;

  /// An entry of big-endian 32-bit numbers, in the byte order of this machine;
  /// the caller owns the block. Throws IOException as readEntry does, and when
  /// the size (-1 for a missing entry) is not a multiple of 4.
  Array_t<int> readIntBuffer(const std::string& entryName) const;
  Array_t<float> readFloatBuffer(const std::string& entryName) const;

  /// The document element of an XML entry. Throws IOException as readEntry
  /// does, and XMLException with the line for what is no XML, nests deeper than
  /// MAX_ELEMENT_DEPTH or has too many elements.
  std::unique_ptr<QxElement> readXml(const std::string& entryName) const;

  /// Reads the whole scene into a new Scene, which the result holds from the
  /// start: also, partly filled, when an exception follows.
  std::unique_ptr<Scene>& read(std::unique_ptr<Scene>& result);

  /// Says that an item is being read, from construction to destruction:
  /// `const SceneFileReader::ItemScope scope(reader, element.getName(), element.getLine());`
  /// A null reader is accepted.
  class VEMO_IMPORT_EXPORT ItemScope {
   public:
    ItemScope(SceneFileReader* reader, const std::string& name, int line = 0);
    ~ItemScope();
    ItemScope(const ItemScope&) = delete;
    ItemScope& operator=(const ItemScope&) = delete;

   private:
    SceneFileReader* _reader;
    int _exceptions;
  };

  /// The items being read, outermost first, as "scene/wing/pressure".
  std::string getItemPath() const;

  /// Adds to an exception on its way out the item that was being read when it
  /// was thrown (to an Error as properties "itemPath" and "sceneLine").
  void addPlaceTo(Exception& exception) const;
  void addPlaceTo(Error& error) const;

  /// Keeps the warning, with the item being read, and logs it.
  void addWarning(const std::string& text, const std::string& entry = {});
  const std::vector<SceneWarning>& getWarnings() const { return _warnings; }

 private:
  struct Item {
    std::string name;
    int line;
  };
  struct Place {
    std::string itemPath;
    int line = 0;
  };

  Array_t<unsigned char> readWords(const std::string& entryName, const char* kind) const;
  void countBytesRead(int size, const std::string& entryName) const;
  Place getPlace() const;

  ZipFileReader _archive;
  mutable std::uint64_t _bytesRead = 0;
  std::vector<Item> _items;
  /// Where the exception was thrown that is unwinding the items.
  Place _failure;
  std::vector<SceneWarning> _warnings;
};

}  // namespace vemo
