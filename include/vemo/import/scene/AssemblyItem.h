#pragma once

#include <vemo/import/items/Colormaps.h>
#include <vemo/import/items/GraphicsItem.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vemo {

class Colormap;
class Legend;
class Transform;

/// A group of items. It also holds colormaps, of which the active one colours the
/// data in the group, a legend and a transform.
class VEMO_IMPORT_EXPORT AssemblyItem : public GraphicsItem {
 public:
  static inline const std::string XML_ENTITY = "assembly";

  explicit AssemblyItem(std::string name);
  ~AssemblyItem() override;

  void read(const QxElement& element, SceneFileReader* reader) override;
  bool isAssembly() override { return true; }

  /// Sets the assembly's own visibility and makes all children fully visible.
  void setVisibility(double visibility) override;

  /// Whether the assembly or one of its direct children is hidden.
  bool hasHiddenItems() const;

  /// In document order.
  std::vector<std::unique_ptr<GraphicsItem>>& getChildren() { return _children; }
  const std::vector<std::unique_ptr<GraphicsItem>>& getChildren() const { return _children; }
  void add(std::unique_ptr<GraphicsItem> child);

  /// Replaces a colormap of the same name.
  void addColormap(std::unique_ptr<Colormap> colormap);
  void setActiveArrayName(const std::string& name) { _colormaps.setActiveName(name); }

  /// The colormap named like the active array, else the first by name; null
  /// when there is none.
  const Colormap* getActiveColormap() const { return _colormaps.getActive(); }

  void setLegend(std::unique_ptr<Legend> legend);
  void setTransform(std::unique_ptr<Transform> transform);

  /// Something in the assembly could not be read: what seems to be missing may
  /// only be that.
  void setIncomplete() { _isIncomplete = true; }
  /// An element in it was ignored.
  void setPartlyLost() { _isPartlyLost = true; }
  /// Data in it were left out or ignored.
  void setLacksData() { _lacksData = true; }

  /// Converts the children, then legend, colormap and transform. An assembly
  /// without children is left out.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

 protected:
  int version() const { return VERSION; }
  bool alwaysHaveVersionSaved() const { return true; }

  /// The part of reading that assemblies and scenes share.
  void readBase(const QxElement& element, SceneFileReader* reader);
  /// Reads the child elements.
  void readImpl(const QxElement& element, SceneFileReader* reader);

  /// Converts the children into the collection itself at level 0, at any other
  /// level into the collection of the assembly's name in it. Returns the
  /// collection that received the children; null when there are none.
  /// @param share whether to set the collection of the shared record
  lum::DrawableCollection* processChildren(SharedBySiblings& shared, lum::DrawableCollection& collection,
                                           int level, bool share) const;

 private:
  /// Returns a new child, still to be read from the element; or reads what is
  /// not a child, and returns null.
  using ReadingCommand = std::unique_ptr<GraphicsItem> (*)(AssemblyItem& assembly, const QxElement& element,
                                                           SceneFileReader* reader);

  void makeReadingCommandsMap();

  lum::DrawableCollection& openCollection(SharedBySiblings& shared, lum::DrawableCollection& parent) const;
  void reportEmpty(const SharedBySiblings& shared) const;
  /// Of a collection that other items have been converted into.
  void reportSharing(const SharedBySiblings& shared, lum::DrawableCollection& collection) const;

  /// Converts everything but the children.
  /// @param isOuterColormap whether the colormap is that of an outer assembly
  void convertExtras(SharedBySiblings& shared, lum::DrawableCollection& target, int level,
                     bool isOuterColormap) const;
  void convertLegend(SharedBySiblings& shared, int level) const;
  void reportUnusedColormaps(const SharedBySiblings& shared) const;
  void applyTransform(SharedBySiblings& shared, lum::DrawableCollection& target) const;

  std::unique_ptr<Legend> _legend;
  std::vector<std::unique_ptr<GraphicsItem>> _children;
  Colormaps _colormaps;
  /// By the name of the child element; empty except while children are read.
  std::map<std::string, ReadingCommand> _readingCommands;
  std::unique_ptr<Transform> _transform;
  bool _isIncomplete = false;
  bool _isPartlyLost = false;
  bool _lacksData = false;
};

}  // namespace vemo
