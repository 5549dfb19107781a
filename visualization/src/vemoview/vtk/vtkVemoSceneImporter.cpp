#include "scenegraph/RepeatedFindings.h"
#include "vemoview/vtk/ImportedScene.h"
#include <vemo/base/PrintableText.h>
#include <vemo/base/WidePath.h>
#include <vemo/import/Exception.h>
#include <vemo/import/FaultFinding.h>
#include <vemo/import/OpenScene.h>
#include <vemo/scenegraph/Findings.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/io/FileError.h>
#include <vemo/vtk/vtkVemoSceneImporter.h>

#include <vtkActor.h>
#include <vtkCollection.h>
#include <vtkCommand.h>
#include <vtkDataSet.h>
#include <vtkErrorCode.h>
#include <vtkIndent.h>
#include <vtkInformation.h>
#include <vtkInformationObjectBaseKey.h>
#include <vtkMapper.h>
#include <vtkObjectFactory.h>
#include <vtkPropCollection.h>
#include <vtkRenderWindow.h>
#include <vtkRenderer.h>
#include <vtkWeakPointer.h>

#include <optional>
#include <set>
#include <utility>
#include <vector>

vtkStandardNewMacro(vtkVemoSceneImporter);

namespace {
using vemo::Finding;
using vemo::ImportedItem;
using vemo::ImportedScene;

/// The part of the work that reading a file is.
constexpr double READING = 0.8;

/// Owns an imported scene, on behalf of a renderer.
class SceneOwner final : public vtkObject {
 public:
  static SceneOwner* New();

  std::shared_ptr<ImportedScene> scene;
};
vtkStandardNewMacro(SceneOwner);

/// What a renderer owns. VTK's own key for several objects does not release them.
vtkCollection& ownersOf(vtkRenderer& renderer) {
  static auto* const key = new vtkInformationObjectBaseKey("IMPORTED_SCENES", "vtkVemoSceneImporter");
  vtkInformation* const information = renderer.GetInformation();
  if (!key->Has(information)) {
    key->Set(information, vtkNew<vtkCollection>());
  }
  return *vtkCollection::SafeDownCast(key->Get(information));
}

std::string toLine(const std::string& text) {
  return vemo::toPrintableLine(vemo::replaceBreaks(text, ' '));
}

std::vector<std::string> toLines(const std::vector<Finding>& findings) {
  vemo::RepeatedFindings all;
  std::vector<std::string> lines;
  for (const Finding& finding : findings) {
    if (!all.isRepeated(finding)) {
      lines.push_back(toLine(describe(finding)));
    }
  }
  return lines;
}

unsigned long codeOf(const lum::io::FileError& error) {
  using Status = lum::io::FileIoStatus;
  return error.getStatus() == Status::NotFound            ? vtkErrorCode::FileNotFoundError
         : error.getStatus() == Status::UnsupportedFormat ? vtkErrorCode::UnrecognizedFileTypeError
                                                          : vtkErrorCode::FileFormatError;
}

}  // namespace

struct vtkVemoSceneImporter::State {
  /// Null when there is none, or its renderer has ended.
  std::shared_ptr<ImportedScene> getShown() const { return shown.lock(); }

  /// Null for an index out of range.
  ImportedItem* getItem(vtkIdType index) const {
    const auto scene = getShown();
    const bool isItem =
        scene != nullptr && index >= 0 && static_cast<std::size_t>(index) < scene->getItems().size();
    return isItem ? &scene->getItems()[static_cast<std::size_t>(index)] : nullptr;
  }

  /// Removes from the renderer what it shows.
  void clear() {
    if (renderer != nullptr && owner != nullptr) {
      ownersOf(*renderer).RemoveItem(owner);
    }
  }

  /// What was given to a renderer before is removed from that.
  void give(vtkRenderer& to, std::shared_ptr<ImportedScene> scene) {
    clear();
    shown = scene;
    vtkNew<SceneOwner> newOwner;
    newOwner->scene = std::move(scene);
    ownersOf(to).AddItem(newOwner);
    renderer = &to;
    owner = newOwner;
  }

  std::optional<std::string> fileName;
  lum::Ptr<lum::SceneNode> givenScene;
  bool usesCamera = true;
  std::string errorText;
  std::vector<std::string> findings;
  /// An update, whose observers may call Clear, or take the renderer out of the window. Null when there is
  /// none, or it has failed.
  struct Update {
    vtkSmartPointer<vtkRenderer> renderer;
    vtkSmartPointer<vtkRenderWindow> window;
    /// Null until it is read and prepared.
    std::shared_ptr<ImportedScene> scene;
  };
  std::unique_ptr<Update> update;

  /// An exception ends the update.
  template <class Step>
  void duringUpdate(Step&& step) {
    try {
      step();
    } catch (...) {
      update.reset();
      throw;
    }
  }
  std::weak_ptr<ImportedScene> shown;
  vtkWeakPointer<vtkRenderer> renderer;
  vtkWeakPointer<vtkObject> owner;
};

vtkVemoSceneImporter::vtkVemoSceneImporter() : Data(std::make_unique<State>()) {}

vtkVemoSceneImporter::~vtkVemoSceneImporter() = default;

void vtkVemoSceneImporter::PrintSelf(ostream& os, vtkIndent indent) {
  Superclass::PrintSelf(os, indent);
  os << indent << "FileName: " << Data->fileName.value_or("(none)") << '\n'
     << indent << "Scene: " << static_cast<const void*>(Data->givenScene.getObject()) << '\n'
     << indent << "AbortExecute: " << AbortExecute << '\n'
     << indent << "Progress: " << Progress << '\n'
     << indent << "Succeeded: " << Succeeded << '\n'
     << indent << "ErrorCode: " << ErrorCode << '\n'
     << indent << "ErrorText: " << Data->errorText << '\n'
     << indent << "Findings: " << Data->findings.size() << '\n'
     << indent << "Items: " << GetNumberOfItems() << '\n';
}

void vtkVemoSceneImporter::SetFileName(const char* path) {
  const auto wanted = path != nullptr ? std::optional<std::string>(path) : std::nullopt;
  if (wanted != Data->fileName) {
    Data->fileName = wanted;
    Modified();
  }
}

const char* vtkVemoSceneImporter::GetFileName() {
  return Data->fileName ? Data->fileName->c_str() : nullptr;
}

void vtkVemoSceneImporter::SetScene(lum::SceneNode* scene) {
  if (scene != Data->givenScene.getObject()) {
    Data->givenScene = scene;
    Modified();
  }
}

std::string vtkVemoSceneImporter::GetErrorText() {
  return Data->errorText;
}

vtkIdType vtkVemoSceneImporter::GetNumberOfFindings() {
  return static_cast<vtkIdType>(Data->findings.size());
}

std::string vtkVemoSceneImporter::GetFinding(vtkIdType finding) {
  const bool isFinding = finding >= 0 && finding < GetNumberOfFindings();
  return isFinding ? Data->findings[static_cast<std::size_t>(finding)] : std::string();
}

vtkIdType vtkVemoSceneImporter::GetNumberOfItems() {
  const auto scene = Data->getShown();
  return scene != nullptr ? static_cast<vtkIdType>(scene->getItems().size()) : 0;
}

std::string vtkVemoSceneImporter::GetItemName(vtkIdType item) {
  const ImportedItem* const found = Data->getItem(item);
  return found != nullptr ? found->name : std::string();
}

std::string vtkVemoSceneImporter::GetItemPath(vtkIdType item) {
  const ImportedItem* const found = Data->getItem(item);
  return found != nullptr ? Data->getShown()->getItems().getPath(*found) : std::string();
}

vtkIdType vtkVemoSceneImporter::FindItemOfProp(vtkProp* prop) {
  const auto scene = Data->getShown();
  const auto found = scene != nullptr ? scene->getItems().find(prop) : std::nullopt;
  return found ? static_cast<vtkIdType>(*found) : -1;
}

vtkIdType vtkVemoSceneImporter::FindItem(const std::string& nameOrPath) {
  const auto scene = Data->getShown();
  const auto found = scene != nullptr ? scene->getItems().find(nameOrPath) : std::nullopt;
  return found ? static_cast<vtkIdType>(*found) : -1;
}

void vtkVemoSceneImporter::GetItemProps(vtkIdType item, vtkPropCollection* props) {
  if (const ImportedItem* const found = Data->getItem(item); found != nullptr && props != nullptr) {
    for (const auto& group : found->groups) {
      group->forEachProp([props](vtkProp& prop) { props->AddItem(&prop); });
    }
  }
}

void vtkVemoSceneImporter::SetItemVisibility(vtkIdType item, bool isVisible) {
  if (ImportedItem* const found = Data->getItem(item)) {
    Data->getShown()->setVisibility(*found, isVisible);
  }
}

bool vtkVemoSceneImporter::GetItemVisibility(vtkIdType item) {
  const ImportedItem* const found = Data->getItem(item);
  return found != nullptr && found->isVisible;
}

std::string vtkVemoSceneImporter::GetOutputsDescription() {
  std::string description;
  for (vtkIdType i = 0; i < GetNumberOfItems(); ++i) {
    description += GetItemPath(i) + '\n';
    std::set<vtkDataSet*> described;
    for (const auto& group : Data->getItem(i)->groups) {
      group->forEachProp([&](vtkProp& prop) {
        auto* const actor = vtkActor::SafeDownCast(&prop);
        vtkMapper* const mapper = actor != nullptr ? actor->GetMapper() : nullptr;
        vtkDataSet* const data = mapper != nullptr ? mapper->GetInput() : nullptr;
        if (data != nullptr && described.insert(data).second) {
          description += GetDataSetDescription(data, vtkIndent(2));
        }
      });
    }
  }
  return description;
}

vtkIdType vtkVemoSceneImporter::GetNumberOfCameras() {
  return 1;
}

std::string vtkVemoSceneImporter::GetCameraName(vtkIdType camera) {
  return camera == 0 ? "Scene" : "";
}

void vtkVemoSceneImporter::SetCamera(vtkIdType camera) {
  if (Data->usesCamera != (camera >= 0)) {
    Data->usesCamera = camera >= 0;
    Modified();
  }
}

void vtkVemoSceneImporter::Clear() {
  Data->clear();
}

/// Returns whether the work goes on.
bool vtkVemoSceneImporter::Report(double fraction) {
  Progress = fraction;
  InvokeEvent(vtkCommand::ProgressEvent, &Progress);
  return AbortExecute == 0;
}

void vtkVemoSceneImporter::Fail(unsigned long code, const std::string& text) {
  ErrorCode = code;
  Data->errorText = toLine(text);
  vtkErrorMacro(<< Data->errorText);
}

/// Reads the file, if no scene is given, and prepares what is shown.
void vtkVemoSceneImporter::Prepare() {
  const vemo::ProgressReport report = [this](double fraction) { return Report(fraction); };
  lum::Ptr<lum::SceneNode> scene = Data->givenScene;
  if (!scene) {
    const std::wstring path = vemo::toWidePath(Data->fileName.value());
    scene = &vemo::openScene(path, vemo::partOf(report, 0.0, READING)).requireSceneNode();
  }
  if (AbortExecute != 0) {
    throw vemo::Cancelled();
  }
  Data->update->scene =
      std::make_shared<ImportedScene>(*scene, *Data->update->renderer, vemo::partOf(report, READING, 1.0));
}

int vtkVemoSceneImporter::ImportBegin() {
  if (Data->update != nullptr) {
    vtkErrorMacro("An observer of an update cannot start another one");
    return 0;
  }
  Data->update = std::make_unique<State::Update>(State::Update{Renderer, RenderWindow, nullptr});
  AbortExecute = 0;
  Progress = 0.0;
  Succeeded = false;
  ErrorCode = vtkErrorCode::NoError;
  Data->errorText.clear();
  Data->findings.clear();
  InvokeEvent(vtkCommand::StartEvent);
  if (!Data->fileName && !Data->givenScene) {
    Fail(vtkErrorCode::NoFileNameError, "No file is set");
  } else {
    TryPrepare();
  }
  if (Data->update->scene == nullptr) {
    Data->update.reset();
    InvokeEvent(vtkCommand::EndEvent);
    return 0;
  }
  return 1;
}

/// Before a step. An update without a window fails, and what it has added is removed.
bool vtkVemoSceneImporter::IsImporting() {
  if (Data->update != nullptr && Data->update->renderer->GetRenderWindow() != Data->update->window) {
    Data->update.reset();
    Data->clear();
    Fail(vtkErrorCode::UnknownError, "The renderer was taken out of its window during the update");
  }
  return Data->update != nullptr;
}

void vtkVemoSceneImporter::TryPrepare() {
  std::vector<Finding> findings;
  try {
    const vemo::FindingCapture capture(findings);
    Prepare();
  } catch (const vemo::Cancelled&) {
    vtkDebugMacro(<< "Aborted");
  } catch (const vemo::FileNotFoundException& error) {
    Fail(vtkErrorCode::FileNotFoundError, describe(error));
  } catch (const vemo::UnreadableException& error) {
    Fail(vtkErrorCode::CannotOpenFileError, describe(error));
  } catch (const lum::io::UnreadableFile& error) {
    Fail(vtkErrorCode::CannotOpenFileError, error.what());
  } catch (const vemo::Exception& error) {
    Fail(vtkErrorCode::FileFormatError, describe(findingOf(error)));
  } catch (const vemo::Error& error) {
    Fail(vtkErrorCode::FileFormatError, describe(findingOf(error)));
  } catch (const lum::io::FileError& error) {
    Fail(codeOf(error), error.what());
  } catch (const std::exception& error) {
    Fail(vtkErrorCode::UnknownError, error.what());
  }
  Data->findings = toLines(findings);
}

void vtkVemoSceneImporter::ImportActors(vtkRenderer* /*renderer*/) {
  if (IsImporting()) {
    Data->duringUpdate([&] { Data->give(*Data->update->renderer, Data->update->scene); });
  }
  // The window's first renderer may have been a layer of what was there before.
  if (IsImporting()) {
    Data->duringUpdate([&] { Data->update->scene->show(); });
  }
}

void vtkVemoSceneImporter::ImportCameras(vtkRenderer* /*renderer*/) {
  if (IsImporting()) {
    Data->duringUpdate([&] { Data->update->scene->setCamera(Data->usesCamera); });
  }
}

void vtkVemoSceneImporter::ImportLights(vtkRenderer* /*renderer*/) {
  if (IsImporting()) {
    Data->duringUpdate([&] { Data->update->scene->addLights(); });
  }
}

void vtkVemoSceneImporter::ImportProperties(vtkRenderer* /*renderer*/) {
  if (IsImporting()) {
    Data->duringUpdate([&] { Data->update->scene->setProperties(); });
  }
}

void vtkVemoSceneImporter::ImportEnd() {
  Succeeded = IsImporting();
  if (Succeeded) {
    Report(1.0);
  }
  Data->update.reset();
  InvokeEvent(vtkCommand::EndEvent);
}
