#pragma once

#include <vemo/import/Camera.h>
#include <vemo/import/ElementPlace.h>
#include <vemo/import/archive/Array_t.h>
#include <vemo/import/scene/AssemblyItem.h>
#include <vemo/import/xml/Color.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace lum {
class CameraAttributes;
class SceneCanvas;
}  // namespace lum

namespace vemo {

class ClippingPlane;
class Gradient;
class Light;
class ReadingContext;

/// The root of an old scene: the items, and the settings of the whole picture.
/// It also carries the blocks of a scene graph that an archive may hold.
class VEMO_IMPORT_EXPORT Scene : public AssemblyItem {
 public:
  static inline const std::string XML_ENTITY = "scene";
  static inline const std::string XML_ATTRIB_BACKGROUND = "background";
  static const KeyTable<Scene> KEYS;

  /// The camera and the window as they were when the scene was saved.
  class VEMO_IMPORT_EXPORT View : public Readable {
   public:
    static inline const std::string XML_ENTITY = "view";
    static const KeyTable<Camera> KEYS;

    ~View() override;

    /// Vectors that the element does not state are kept, everything else is
    /// replaced.
    void read(const QxElement& element, SceneFileReader* reader) override;

    const Camera& getCamera() const { return _camera; }

    /// Tells the camera which of its vectors have numbers that could not be read.
    void noteUnknown(lum::CameraAttributes& camera) const;

    /// Reports what of the view, which has become the camera, cannot be used for drawing.
    void reportUnusable(const lum::CameraAttributes& camera, ReadingContext* context) const;

   private:
    Camera _camera;
    /// By the names of the vectors.
    std::map<std::string, bool> _isUnknown;
    ElementPlace _place;
  };

  explicit Scene(const std::string& name);
  ~Scene() override;

  void read(const QxElement& element, SceneFileReader* reader) override;

  /// Converts the camera, the items, the clipping planes and the lights into
  /// the scene node of the shared record. Planes and lights are added to the
  /// existing ones.
  void addToCollection(SharedBySiblings& shared, lum::DrawableCollection& collection, int level,
                       const std::string& parentName) const override;

  void addClippingPlane(std::unique_ptr<ClippingPlane> plane);
  /// In document order, as the mappers of VTK need them.
  std::vector<ClippingPlane*> getClippingPlanes() const;
  void addLight(std::unique_ptr<Light> light);
  void readView(const QxElement& element, SceneFileReader* reader);
  /// Replaces the gradient.
  void readGradient(const QxElement& element, SceneFileReader* reader);

  Color getBackgroundColor() const { return _backgroundColor; }
  /// Replaces the background colour; null when there is none.
  const Gradient* getGradient() const { return _gradient.get(); }
  /// False if faults are collected, and there is one in the background.
  bool isBackgroundSound() const { return _isBackgroundSound; }
  const Camera& getCamera() const { return _view.getCamera(); }

  /// The scene takes ownership of the block. A block set before is not freed:
  /// it is the caller's again.
  void setLUMSceneFile(Array_t<unsigned char> file);
  Array_t<unsigned char> getLUMSceneFile() const { return _lumSceneFile.get(); }

  /// The caller keeps ownership of the block.
  void addLUMDataFile(Array_t<unsigned char> file);
  /// In the order in which they were added.
  const std::list<Array_t<unsigned char>>& getLUMDataFiles() const { return _lumDataFiles; }
  /// Removes the first of these and gives it to the caller.
  ArrayOwner<unsigned char> takeLUMDataFile();

 protected:
  bool alwaysHaveVersionSaved() const { return false; }

  void readImpl(const QxElement& element, SceneFileReader* reader);

  VisibilityUse getVisibilityUse() const override { return VisibilityUse::NONE; }

 private:
  /// Reports settings of assemblies that have no effect on a scene.
  void reportWithoutEffect(const QxElement& element, SceneFileReader& reader) const;
  void convertCamera(lum::SceneCanvas& canvas) const;
  void convertClipPlanes(lum::SceneCanvas& canvas) const;
  void convertLights(lum::SceneCanvas& canvas) const;

  Color _backgroundColor{0, 0, 0, 255};
  std::unique_ptr<Gradient> _gradient;
  bool _isBackgroundSound = true;
  std::vector<std::unique_ptr<ClippingPlane>> _clippingPlanes;
  std::vector<std::unique_ptr<Light>> _lights;
  View _view;
  bool _hasView = false;
  ArrayOwner<unsigned char> _lumSceneFile;
  std::list<Array_t<unsigned char>> _lumDataFiles;
};

}  // namespace vemo
