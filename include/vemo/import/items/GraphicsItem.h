#pragma once

#include <vemo/import/items/SceneItem.h>

#include <string>

class vtkActor;
class vtkProp;
class vtkProperty;
class vtkProperty2D;
namespace lum {
class Drawable;
class DrawableCollection;
}  // namespace lum

namespace vemo {

struct SharedBySiblings;

/// A part of a scene that can be seen, or hidden.
class VEMO_IMPORT_EXPORT GraphicsItem : public SceneItem {
 public:
  static const KeyTable<GraphicsItem> KEYS;

  static inline const std::string XML_ATTRIB_VISIBILITY = "visibility";

  /// Items of this visibility or less are hidden.
  static constexpr double VISIBILITY_THRESHOLD = 0.001;

  explicit GraphicsItem(std::string name);
  GraphicsItem(const GraphicsItem&) = default;
  GraphicsItem& operator=(const GraphicsItem&) = default;
  ~GraphicsItem() override;

  /// Reads name and visibility; an item whose element states no visibility is
  /// hidden.
  void read(const QxElement& element, SceneFileReader* reader) override;

  static bool statesVisibility(const QxElement& element);

  /// From 0 (hidden) to 1; a factor of the item's opacities.
  virtual void setVisibility(double visibility) { _visibility = visibility; }
  double getVisibility() const { return _visibility; }
  bool hasHiddenItems() const { return _visibility <= VISIBILITY_THRESHOLD; }

  /// Converts the item: what it draws is appended to the collection.
  /// @param level the item's depth in the item tree
  /// @param parentName the name of the item that holds this one
  virtual void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                               const std::string& parentName) const = 0;

 protected:
  void readImpl(const QxElement& element, SceneFileReader* reader);

  /// Shows or hides the drawable as the item is shown or hidden.
  void addVisibilityAttrib(lum::Drawable& drawable) const;
  /// The same for an item that something around it may hide too.
  void addVisibilityAttrib(lum::Drawable& drawable, bool isHiddenAnyway) const;

  /// What the scene graph has for the visibility.
  enum class VisibilityUse {
    NONE,    ///< Reading reports one that is not 1.
    SWITCH,  ///< One between 0 and 1 counts as 1, which reading reports.
    OPACITY,
  };
  virtual VisibilityUse getVisibilityUse() const { return VisibilityUse::SWITCH; }

  // These draw with VTK. The opacity is multiplied by the item's visibility. A
  // prop of an opacity of VISIBILITY_THRESHOLD or less is hidden; its property
  // is not changed.

  void setMyOpacity(vtkActor* actor, double opacity) const;
  /// A hidden prop cannot be picked either. The parts of an assembly are set
  /// before the assembly itself.
  void setMyOpacity(vtkProp* prop, vtkProperty* property, double opacity) const;
  /// Changes neither pickability nor the parts of assemblies.
  void setMyOpacity(vtkProp* prop, vtkProperty2D* property, double opacity) const;

 private:
  void reportVisibility(const QxElement& element, SceneFileReader& reader) const;

  double _visibility = 1.0;
};

}  // namespace vemo
