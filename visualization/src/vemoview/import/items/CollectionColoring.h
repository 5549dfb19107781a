#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <unordered_map>
#include <vector>

namespace lum {
class DrawableCollection;
class Node;
class ScalarAttributes;
}  // namespace lum

namespace vemo {

class Colormap;
struct SharedBySiblings;

/// By which colormaps data are coloured. An assembly colours all data in its collection, also those that
/// earlier items of its name have put there. Very many may share a collection: the colours are set once,
/// when the outermost assembly has been converted.
class CollectionColoring {
 public:
  /// While the outermost item is converted, the shared record has an object for it and all in it.
  class Scope {
   public:
    explicit Scope(SharedBySiblings& shared);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    /// Sets the colours if the item is the outermost one.
    void finish();

   private:
    SharedBySiblings& _shared;
    bool _isOutermost;
  };

  /// Data of a drawable that is in its collection already. They have no colours until `color` is called;
  /// data that were added before keep theirs.
  void add(const lum::ScalarAttributes& data);

  /// Colours all data that are in a collection by now. The colormap must outlive the object.
  /// What a host has put there is coloured, too, but not counted.
  /// @return whether data were added there
  bool color(lum::DrawableCollection& collection, const Colormap& colormap);

  /// Whether that would change the colours of any data.
  bool wouldChange(const lum::DrawableCollection& collection, const Colormap& colormap);

  bool isColored(const lum::ScalarAttributes& data) const;

 private:
  /// Those that colour alike are equal.
  struct Precedes {
    bool operator()(const Colormap* a, const Colormap* b) const;
  };
  struct Coloring {
    const Colormap* colormap = nullptr;
    /// The representative in _colormaps of those that colour alike.
    const Colormap* known = nullptr;
    /// 0 if there is none.
    std::size_t number = 0;
    /// How many data had been added.
    std::size_t dataCount = 0;
  };
  struct Content {
    using Counts = std::map<const Colormap*, std::size_t>;

    /// How many data have the colours of a colormap; null for those that have none.
    Counts counts;
    /// The number of the latest coloring that the counts reflect.
    std::size_t knownColorings = 0;
    /// The latest of the collection itself.
    Coloring latest;

    /// Returns the former counts.
    Counts setColors(const Colormap* colormap);
    /// Of some of the data, which had other colours.
    void replace(const Counts& former, const Colormap* colormap);
  };

  /// Of the collections around a node, and of itself if it is one, outermost first.
  std::vector<Content*> contentsAround(const lum::Node& node);
  /// What colours data; null if nothing does.
  const Coloring* coloringOf(const lum::ScalarAttributes& data) const;
  void apply() const;

  /// In the order in which they were added, from 1 on.
  std::unordered_map<const lum::Node*, std::size_t> _data;
  std::unordered_map<const lum::Node*, Content> _contents;
  /// Those with a coloring of their own.
  std::vector<lum::DrawableCollection*> _colored;
  /// One of all that colour alike.
  std::set<const Colormap*, Precedes> _colormaps;
  std::size_t _coloringCount = 0;
};

}  // namespace vemo
