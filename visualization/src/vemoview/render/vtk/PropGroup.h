#pragma once

#include <vemo/render/Export.h>

#include <vtkSmartPointer.h>
#include <vtkWeakPointer.h>

#include <functional>
#include <vector>

class vtkProp;
class vtkProperty;
class vtkRenderer;

namespace vemo {

/// Props of a renderer that are shown and hidden together. They are removed from
/// the renderer at the end, if it still exists.
class VEMO_RENDER_EXPORT PropGroup {
 public:
  explicit PropGroup(vtkRenderer& renderer);
  ~PropGroup();
  PropGroup(const PropGroup&) = delete;
  PropGroup& operator=(const PropGroup&) = delete;

  /// Adds a prop to the renderer. The group must not be hidden.
  void add(vtkProp* prop);

  /// Calls a function each time before the renderer draws the group, when the
  /// renderer's size and camera are known. The function may hide and show
  /// single props.
  void beforeEachRender(std::function<void(vtkRenderer&)> function);

  void show(bool isShown);
  bool isShown() const { return _isShown; }

  /// Calls visit(vtkProp&) for each.
  template <class Visit>
  void forEachProp(Visit&& visit) const {
    for (const Member& member : _members) {
      visit(*member.prop);
    }
  }

  /// Makes lines and points wider by a factor. Members that lay themselves out in
  /// pixels ask for the product of all factors.
  void scalePixels(double factor);
  double getPixelScale() const { return _pixelScale; }
  static void scalePixels(vtkProperty& property, double factor);

 private:
  struct Member {
    vtkSmartPointer<vtkProp> prop;
    /// Whether it is seen when the group is.
    bool isShown;
  };

  vtkWeakPointer<vtkRenderer> _renderer;
  std::vector<Member> _members;
  std::vector<unsigned long> _observers;
  bool _isShown = true;
  double _pixelScale = 1.0;
};

}  // namespace vemo
