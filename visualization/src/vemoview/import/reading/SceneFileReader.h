#pragma once

#include "vemoview/import/archive/ArchiveReader.h"
#include "vemoview/import/reading/ReadingContext.h"
#include <vemo/import/PartFilter.h>
#include <vemo/import/archive/ZipFileReader.h>
#include <vemo/import/xml/QxElement.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vemo {

class Scene;

/// Gives items what they need for reading: the entries of the archive, and the
/// context for errors and findings.
class SceneFileReader : public ArchiveReader, public ReadingContext {
 public:
  static const std::string SCENE_ENTRY;       ///< "scene.xml"
  static const std::string LUM_SCENE_ENTRY;   ///< "scene.lum"
  static const std::string LUM_ENTRY_PREFIX;  ///< "lum"

  explicit SceneFileReader(ZipFileReader archive);

  /// The document element of an XML entry. Throws IOException as readEntry
  /// does, and XMLException with the line for text that is not XML or exceeds
  /// the limits.
  std::unique_ptr<QxElement> readXml(const std::string& entryName);

  /// By default an element of the description is deleted once its item is read.
  void keepDescription() { _keepsDescription = true; }
  /// Releases what an element holds, unless the description is kept or some of
  /// it is still to be reported as unread.
  void dropUnlessNeeded(QxElement& element) const;
  /// Null unless it is kept and could be read.
  const QxElement* getDescription() const { return _description.get(); }
  /// Once nobody asks for it any more, nor for the entries that were used.
  void dropDescription();

  /// Whether the element, or one in it, names an entry of the archive.
  bool namesEntries(const QxElement& element) const;
  /// The entries that the element names do not count as unused, though they
  /// were not read.
  void excuseEntriesOf(const QxElement& element);
  bool isExcused(const std::string& entryName) const { return _excused.contains(entryName); }
  /// The same for an element that is ignored.
  void loseEntriesOf(const QxElement& element);
  bool isLost(const std::string& entryName) const { return _lost.contains(entryName); }

  /// From now on only the geometry that the function wants is read; of the rest the scene
  /// has all but points, cells and values. Must be called before reading.
  void setPartFilter(PartFilter wants) { _wantsPart = std::move(wants); }
  /// Numbers a geometry that is about to be read and tells whether it is wanted.
  bool startPart(const QxElement& geometry);
  /// A geometry that was started.
  struct Part {
    /// The number of its element.
    int element;
    std::set<std::string> entries;
  };
  /// By their numbers; empty without a filter.
  const std::vector<Part>& getParts() const { return _parts; }
  /// Whether the archive has a scene graph of its own, which replaces that of the items.
  bool hasPayload() const { return getArchive().getSize(LUM_SCENE_ENTRY) > 0; }
  /// Whether an entry cannot be of that scene graph, so that it is not used.
  bool isReplaced(const std::string& entryName) const;
  /// The entries with the arrays of that scene graph, in the order in which they are read.
  std::vector<std::string> getPayloadEntries() const;

  /// The shares of the time that an import takes: until the description is read, the
  /// entries are read, and the items are converted.
  static constexpr double DESCRIPTION_READ = 0.2;
  static constexpr double ENTRIES_READ = 0.65;
  static constexpr double ITEMS_CONVERTED = 1.0;

  /// Reads the whole scene into a new Scene. The result holds it from the
  /// start: if an exception is thrown, it is partly filled. Defined with the
  /// Scene: nothing else here depends on the items.
  std::unique_ptr<Scene>& read(std::unique_ptr<Scene>& result);

 private:
  void readItems(Scene& scene);
  void startReadingEntries(int elementCount);
  void addEntriesOf(const QxElement& element, std::set<std::string>& names) const;
  void noteBytesRead(std::uint64_t count) override { getProgress().advance(count); }
  void reportFlaws(const ZipFileReader::ContentFlaws& flaws, const std::string& entryName) override;

  bool _keepsDescription = false;
  std::unique_ptr<QxElement> _description;
  std::set<std::string> _excused;
  std::set<std::string> _lost;
  PartFilter _wantsPart;
  std::vector<Part> _parts;
};

}  // namespace vemo
