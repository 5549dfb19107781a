#pragma once

#include <vemo/vtk/Export.h>

#include <vtkImporter.h>

#include <memory>
#include <string>

class vtkProp;
class vtkPropCollection;
namespace lum {
class SceneNode;
}

/// Imports a scene, of either generation, into a VTK renderer: the first one of the render
/// window, or a new one.
///
///     vtkNew<vtkVemoSceneImporter> importer;
///     importer->SetFileName("wing.zip");
///     importer->SetRenderWindow(window);
///     importer->Update();
///
/// The window then shows the picture that SceneRenderer draws:
///
/// - Each geometry becomes an actor for each of its instances, with a vtkPolyDataMapper: its
///   cells, all arrays that fit them or the points (shared with the scene), colours, lookup
///   table, edges, opacity, transform and clipping planes. Contours, translucent edges and
///   points of several sizes have actors of their own. Triangles that fill concave polygons have
///   only those data of cells that are drawn.
/// - All props have the name of their item, as vtkCompositeDataSet::NAME() in their property
///   keys.
/// - Hidden items become hidden props.
/// - The renderer gets the scene's camera, lights, and plain background.
/// - What is in front of the model or behind it (gradients, legends, texts, images, axes) is
///   drawn by renderers in layers of the same window, directly above and below that of the
///   renderer, in its part of the window.
/// - If anything is translucent, the renderer peels depths, and the window has no
///   multisampling.
///
/// An update replaces what the former one added. Everything else in the renderer stays:
/// actors, and lights except for the one that VTK creates for renderers without any. When an
/// update fails or is aborted, nothing has changed. What was imported outlives the importer.
///
/// StartEvent and EndEvent enclose an update. ProgressEvent has the fraction, which
/// GetProgress() returns, too; ErrorEvent has the text of a failure.
class VEMO_VTK_EXPORT vtkVemoSceneImporter : public vtkImporter {
 public:
  static vtkVemoSceneImporter* New();
  vtkTypeMacro(vtkVemoSceneImporter, vtkImporter)
  void PrintSelf(ostream& os, vtkIndent indent) override;
  vtkVemoSceneImporter(const vtkVemoSceneImporter&) = delete;
  vtkVemoSceneImporter& operator=(const vtkVemoSceneImporter&) = delete;

  /// The file to read, in UTF-8; null before the first is set.
  void SetFileName(VTK_FILEPATH const char* path);
  VTK_FILEPATH const char* GetFileName();

#ifndef __VTK_WRAP__
  /// A scene to import instead of a file, or null. It is not changed.
  void SetScene(lum::SceneNode* scene);
#endif

  /// Stops the update when an observer of ProgressEvent sets it. An update starts by
  /// clearing it.
  vtkSetMacro(AbortExecute, vtkTypeBool);
  vtkGetMacro(AbortExecute, vtkTypeBool);
  vtkBooleanMacro(AbortExecute, vtkTypeBool);

  /// The share of the update that is done, from 0 to 1.
  vtkGetMacro(Progress, double);

  /// Whether the last update imported a scene.
  vtkGetMacro(Succeeded, bool);

  /// Of the last update: a number of vtkErrorCode, and the text for a user; 0 and empty
  /// unless it failed.
  vtkGetMacro(ErrorCode, unsigned long);
  std::string GetErrorText();

  /// What the file loses or changes, each in one line without a line break.
  vtkIdType GetNumberOfFindings();
  std::string GetFinding(vtkIdType finding);

  /// The items that are drawn, from 0: those of the last update that succeeded.
  vtkIdType GetNumberOfItems();
  /// As "wing".
  std::string GetItemName(vtkIdType item);
  /// As "ModelCanvas/DrawableCollection/wing", for each item another one.
  std::string GetItemPath(vtkIdType item);
  /// The item of a prop; -1 for a prop that is not the importer's.
  vtkIdType FindItemOfProp(vtkProp* prop);
  /// The first item with the name, or else with the path or a part of it, such as
  /// "group/item"; -1 without any.
  vtkIdType FindItem(const std::string& nameOrPath);
  /// Appends the props that draw an item.
  void GetItemProps(vtkIdType item, vtkPropCollection* props);
  /// Shows or hides all props of an item. Those of texts, legends and axes decide about their
  /// visibility themselves while their item is shown.
  void SetItemVisibility(vtkIdType item, bool isVisible);
  bool GetItemVisibility(vtkIdType item);

  /// The items with their arrays.
  std::string GetOutputsDescription() override;

  /// The camera of the scene has the number 0; a negative number leaves the
  /// renderer's camera as it is.
  vtkIdType GetNumberOfCameras() override;
  std::string GetCameraName(vtkIdType camera) override;
  void SetCamera(vtkIdType camera) override;

  /// Removes what the importer added: actors, lights and layers. The renderer's settings, except
  /// for the camera, are then as they were.
  void Clear();

 protected:
  vtkVemoSceneImporter();
  ~vtkVemoSceneImporter() override;

  int ImportBegin() override;
  void ImportActors(vtkRenderer* renderer) override;
  void ImportCameras(vtkRenderer* renderer) override;
  void ImportLights(vtkRenderer* renderer) override;
  void ImportProperties(vtkRenderer* renderer) override;
  void ImportEnd() override;

 private:
  bool Report(double fraction);
  bool IsImporting();
  void Prepare();
  void TryPrepare();
  void Fail(unsigned long code, const std::string& text);

  struct State;
  std::unique_ptr<State> Data;
  vtkTypeBool AbortExecute = 0;
  double Progress = 0.0;
  bool Succeeded = false;
  unsigned long ErrorCode = 0;
};
