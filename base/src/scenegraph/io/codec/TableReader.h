#pragma once

#include "scenegraph/io/bytes/ByteReader.h"
#include "scenegraph/io/bytes/ContentBudget.h"
#include "scenegraph/io/codec/ChunkRow.h"
#include <vemo/scenegraph/Node.h>
#include <vemo/scenegraph/NodeFactory.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace lum::io {

/// A field of a class as a file describes it.
struct FileField {
  /// The index where the class of this program has no such field.
  static constexpr std::size_t NONE = static_cast<std::size_t>(-1);

  FieldKind kind;
  /// Its index among the fields of the class of this program.
  std::size_t index = NONE;
  /// The value where the record of a node has none.
  std::string defaultValue;
  /// Whether a new node of this program has another value.
  bool mustSetDefault = false;
};

struct FileClass {
  std::string name;
  /// Null when the class is unknown here.
  NodeConstructor construct = nullptr;
  std::vector<FileField> fields;
  std::size_t presenceBytes = 0;
  /// Numbers of the names of those that the class of this program does not have.
  std::vector<std::size_t> unknownFields;
};

/// The string, list, class and chunk tables of a file, checked.
class TableReader {
 public:
  explicit TableReader(ContentBudget& budget) : _budget(budget) {}

  /// Takes what `TableWriter::take` wrote, after what was read before.
  /// `hasLists`: whether there is a table of lists, as there is from version 2 on.
  void read(ByteReader& in, bool hasLists);

  std::size_t getStringCount() const { return _stringEnds.size(); }
  /// Valid until more is read.
  std::string_view getString(std::size_t number) const {
    const std::size_t start = number > 0 ? _stringEnds[number - 1] : 0;
    return std::string_view(_text).substr(start, _stringEnds[number] - start);
  }
  /// Whether records have numbers of lists instead of lists.
  bool hasLists() const { return _hasLists; }
  const std::vector<SharedNumbers>& getLists() const { return _lists; }
  const std::vector<FileClass>& getClasses() const { return _classes; }
  /// Null when there is none of this name.
  const FileClass* findClass(const std::string& name) const;
  const std::vector<ChunkRow>& getChunks() const { return _chunks; }
  std::string getName(const ChunkRow& row) const {
    return row.name == 0 ? std::string() : std::string(getString(row.name - 1));
  }

 private:
  FileClass readClass(ByteReader& in);
  void matchFields(FileClass& fileClass, const std::vector<std::size_t>& names);

  ContentBudget& _budget;
  // One after the other: a file may have a great many short ones.
  std::string _text;
  std::vector<std::size_t> _stringEnds;
  bool _hasLists = true;
  std::vector<SharedNumbers> _lists;
  std::vector<FileClass> _classes;
  std::unordered_map<std::string, std::size_t> _classNumbers;
  std::vector<ChunkRow> _chunks;
};

/// A list: the count of its numbers, and these.
SharedNumbers readList(ByteReader& in);

}  // namespace lum::io
