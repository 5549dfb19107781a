#pragma once

#include <vemo/import/SceneItem.h>

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
  /// What is no more visible than this is hidden.
  static constexpr double VISIBILITY_THRESHOLD = 0.001;

  explicit GraphicsItem(std::string name);
  GraphicsItem(const GraphicsItem&) = default;
  GraphicsItem& operator=(const GraphicsItem&) = default;
  ~GraphicsItem() override;

  /// Reads name and visibility; an item whose element states no visibility is
  /// hidden.
  void read(const QxElement& element, SceneFileReader* reader) override;

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

  // These draw with VTK. The item's visibility is a factor of the opacity; what
  // is no more opaque than VISIBILITY_THRESHOLD is hidden, and its property
  // left alone.

  void setMyOpacity(vtkActor* actor, double opacity) const;
  /// What is hidden cannot be picked either. Of an assembly all parts are set
  /// before itself.
  void setMyOpacity(vtkProp* prop, vtkProperty* property, double opacity) const;
  /// Pickable or not stays as it is, and so do the parts of assemblies.
  void setMyOpacity(vtkProp* prop, vtkProperty2D* property, double opacity) const;

 private:
  static inline const std::string XML_ATTRIB_VISIBILITY = "visibility";

  double _visibility = 1.0;
};

}  // namespace vemo
