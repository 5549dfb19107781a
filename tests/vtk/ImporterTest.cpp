#include "support/ArchiveBuilder.h"
#include "support/Expected.h"
#include "support/SceneBuilder.h"
#include "support/SceneXml.h"
#include "support/TemporaryFolder.h"
#include "vtk/ImportWindow.h"

#include <vtkCallbackCommand.h>
#include <vtkCamera.h>
#include <vtkCellData.h>
#include <vtkCellPicker.h>
#include <vtkCommand.h>
#include <vtkCompositeDataSet.h>
#include <vtkCullerCollection.h>
#include <vtkErrorCode.h>
#include <vtkGLTFExporter.h>
#include <vtkHardwareSelector.h>
#include <vtkInformation.h>
#include <vtkInformationStringKey.h>
#include <vtkLight.h>
#include <vtkLookupTable.h>
#include <vtkMatrix4x4.h>
#include <vtkOpenGLRenderer.h>
#include <vtkPointData.h>
#include <vtkProperty.h>
#include <vtkSelection.h>
#include <vtkSelectionNode.h>

#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <span>

namespace vemo {

namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;

/// Calls a function at an event.
unsigned long onEvent(vtkObject& object, unsigned long event, std::function<void(void*)>& function) {
  vtkNew<vtkCallbackCommand> command;
  command->SetClientData(&function);
  command->SetCallback([](vtkObject*, unsigned long, void* client, void* data) {
    (*static_cast<std::function<void(void*)>*>(client))(data);
  });
  return object.AddObserver(event, command);
}

std::string nameOf(vtkProp& prop) {
  vtkInformation* const keys = prop.GetPropertyKeys();
  return keys != nullptr && keys->Has(vtkCompositeDataSet::NAME()) != 0
             ? keys->Get(vtkCompositeDataSet::NAME())
             : "";
}

/// A scene of two items: "plate", coloured by data, and "sign", which is hidden.
class ImporterTest : public testing::Test {
 protected:
  ImporterTest() {
    const auto geometry = makeRectangle(-0.5F, 0.5F, -0.5F, 0.5F);
    geometry->GetPointData()->AddArray(pressure);
    geometry->GetCellData()->AddArray(makeArray("id", {7}));
    plate.setName("plate");
    const auto mesh = make<lum::PolyDataNode>();
    mesh->setPolyData(geometry);
    plate.addNode(*mesh);
    colorByArray(plate, "pressure", lum::DataLocation::POINTS, {1, 0, 0, 1, 0, 0, 1, 1});
    sign.setName("sign");
    sign.getBaseAttributes().setVisibility(false, false);
    importer->SetScene(&scene.node());
  }

  void import() { window.import(*importer); }

  /// In the layer before the model.
  void addNote() {
    scene.node()
        .getForegroundCanvas()
        .getDrawableCollection()
        .findOrCreate<lum::TextDrawable>("note")
        .getAnnotationAttributes()
        .setText("!");
  }

  void setFile(const std::string& path) {
    importer->SetScene(nullptr);
    importer->SetFileName(path.c_str());
  }

  SceneBuilder scene;
  vtkSmartPointer<vtkFloatArray> pressure = makeArray("pressure", {0, 1, 2, 3});
  lum::SurfaceDrawable& plate = scene.drawables().findOrCreate<lum::SurfaceDrawable>("plate");
  lum::SurfaceDrawable& sign = scene.addSurface(makeRectangle(-1, 1, -1, 1, -1), {0, 1, 0});
  ImportWindow window;
  vtkSmartPointer<vtkVemoSceneImporter> importer = vtkSmartPointer<vtkVemoSceneImporter>::New();
};

TEST_F(ImporterTest, GivesActorsWithNamesArraysAndColors) {
  repeat(plate, {0.1, 0, 0}, 2);
  import();
  ASSERT_TRUE(importer->GetSucceeded());
  ASSERT_EQ(importer->GetNumberOfItems(), 2);
  EXPECT_EQ(importer->GetItemName(0), "plate");
  EXPECT_EQ(importer->GetItemPath(0), "ModelCanvas/DrawableCollection/plate");
  vtkNew<vtkPropCollection> props;
  importer->GetItemProps(0, props);
  ASSERT_EQ(props->GetNumberOfItems(), 2) << "one for each instance";
  auto* const actor = vtkActor::SafeDownCast(props->GetItemAsObject(1));
  EXPECT_EQ(nameOf(*actor), "plate");
  EXPECT_EQ(importer->FindItemOfProp(actor), 0);
  EXPECT_EQ(importer->FindItem("DrawableCollection/plate"), 0);
  EXPECT_EQ(importer->FindItem("DrawableCollection"), 0);
  EXPECT_EQ(importer->FindItem("sign"), 1);
  EXPECT_EQ(importer->FindItem("late"), -1);
  EXPECT_EQ(actor->GetMatrix()->GetElement(0, 3), 0.1);
  auto& mapper = dynamic_cast<vtkPolyDataMapper&>(*actor->GetMapper());
  EXPECT_EQ(mapper.GetInput()->GetPointData()->GetArray("pressure"), pressure) << "is shared";
  EXPECT_TRUE(mapper.GetInput()->GetCellData()->HasArray("id"));
  EXPECT_STREQ(mapper.GetArrayName(), "pressure");
  EXPECT_EQ(mapper.GetLookupTable()->GetNumberOfAvailableColors(), 2);
  EXPECT_THAT(std::span(mapper.GetScalarRange(), 2), ElementsAreArray(mapper.GetLookupTable()->GetRange(), 2))
      << "exporters set the table's range to it";
  EXPECT_THAT(importer->GetOutputsDescription(), HasSubstr("ModelCanvas/DrawableCollection/plate\n"));
  EXPECT_THAT(importer->GetOutputsDescription(), HasSubstr("pressure"));
}

TEST_F(ImporterTest, GivesItemsInAGroupTheirPaths) {
  auto& group = scene.collectionIn(scene.drawables());
  group.setName("g");
  for (const char* const name : {"a", "b"}) {
    const auto mesh = make<lum::PolyDataNode>();
    mesh->setPolyData(makeRectangle(0, 1, 0, 1));
    group.findOrCreate<lum::SurfaceDrawable>(name).addNode(*mesh);
  }
  import();
  ASSERT_TRUE(importer->GetSucceeded());
  EXPECT_EQ(importer->GetItemPath(importer->FindItem("a")), "ModelCanvas/DrawableCollection/g/a");
  EXPECT_EQ(importer->GetItemPath(importer->FindItem("g/b")), "ModelCanvas/DrawableCollection/g/b");
}

TEST_F(ImporterTest, RefusesPropsOutOfProportionToTheScene) {
  // Each prop has the name.
  auto& many = scene.addSurface(makeRectangle(0, 1, 0, 1), {1, 0, 0});
  many.setName(std::string(150'000, 'n'));
  repeat(many, {0.001, 0, 0}, 10'000);
  many.getBaseAttributes().setVisibility(false, false);
  import();
  ASSERT_TRUE(importer->GetSucceeded()) << importer->GetErrorText();
  EXPECT_EQ(importer->GetNumberOfItems(), 1) << "hidden ones are left out";
  ASSERT_EQ(importer->GetNumberOfFindings(), 1);
  EXPECT_THAT(importer->GetFinding(0), HasSubstr("Hidden items are left out. The scene is too large"));
  many.getBaseAttributes().setVisibility(true, false);
  import();
  EXPECT_FALSE(importer->GetSucceeded());
  EXPECT_THAT(importer->GetErrorText(), HasSubstr("The scene is too large to be drawn"));
  EXPECT_EQ(importer->GetNumberOfItems(), 1) << "what was imported before stays";
}

TEST_F(ImporterTest, KeepsWhatIsHidden) {
  import();
  vtkActor& hidden = *actorOf(*importer, 1);
  EXPECT_EQ(hidden.GetVisibility(), 0);
  EXPECT_FALSE(importer->GetItemVisibility(1));
  importer->SetItemVisibility(1, true);
  EXPECT_NE(hidden.GetVisibility(), 0);
  importer->SetItemVisibility(0, false);
  EXPECT_EQ(actorOf(*importer, 0)->GetVisibility(), 0);
}

TEST_F(ImporterTest, SetsCameraLightsAndBackground) {
  scene.canvas().getCameraAttributes().setPosition({1, 2, 3});
  scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>("lamp").setIntensity(0.5);
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({0.25, 0.5, 0.75});
  window.renderer->SetActiveCamera(vtkSmartPointer<vtkCamera>::Take(window.renderer->MakeCamera()));
  import();
  vtkCamera& camera = *window.renderer->GetActiveCamera();
  EXPECT_EQ(toVector(camera.GetPosition()), (Vector3{1, 2, 3}));
  EXPECT_EQ(camera.GetParallelScale(), 1.0);
  ASSERT_EQ(window.renderer->GetLights()->GetNumberOfItems(), 1);
  EXPECT_EQ(vtkLight::SafeDownCast(window.renderer->GetLights()->GetItemAsObject(0))->GetIntensity(), 0.5);
  EXPECT_EQ(toVector(window.renderer->GetBackground()), (Vector3{0.25, 0.5, 0.75}));
}

TEST_F(ImporterTest, LeavesTheCameraThatTheProgramWantsToKeep) {
  vtkCamera& camera = *window.renderer->GetActiveCamera();
  camera.SetPosition(7, 8, 9);
  importer->SetCamera(-1);
  import();
  EXPECT_EQ(toVector(camera.GetPosition()), (Vector3{7, 8, 9}));
  EXPECT_EQ(importer->GetNumberOfCameras(), 1);
  importer->SetCamera(0);
  importer->Update();
  EXPECT_EQ(toVector(camera.GetPosition()), (Vector3{0, 0, 5}));
}

TEST_F(ImporterTest, ReplacesWhatItHasAddedAndNothingElse) {
  addNote();
  vtkActor& ball = window.addBall();
  vtkNew<vtkRenderer> overlay;
  overlay->SetLayer(1);
  window.window->SetNumberOfLayers(2);
  window.window->AddRenderer(overlay);
  vtkNew<vtkLight> lamp;
  window.renderer->AddLight(lamp);
  const auto before = window.count();
  import();
  window.draw();
  const auto once = window.count();
  EXPECT_EQ(once, (std::vector<int>{3, 2, 3, 3, 0}));
  EXPECT_EQ(overlay->GetLayer(), 2) << "before what is imported";
  importer->Update();
  window.draw();
  EXPECT_EQ(window.count(), once);
  EXPECT_NE(window.renderer->HasViewProp(&ball), 0);
  importer->Clear();
  EXPECT_EQ(window.count(), before);
  EXPECT_EQ(overlay->GetLayer(), 1);
  EXPECT_EQ(importer->GetNumberOfItems(), 0);
}

TEST_F(ImporterTest, LeavesOtherScenesInWhateverOrderTheyAreCleared) {
  SceneBuilder other;
  other.addSurface(makeRectangle(0.5F, 1, 0.5F, 1), {0, 1, 0});
  other.node().getBackgroundCanvas().getBackgroundAttributes().setColorMode(
      lum::BackgroundColorModes::RADIAL);
  vtkNew<vtkVemoSceneImporter> otherImporter;
  otherImporter->SetScene(&other.node());
  window.addBall();
  const auto before = window.count();
  for (const bool isOtherFirst : {false, true}) {
    vtkVemoSceneImporter& first = isOtherFirst ? *otherImporter : *importer;
    vtkVemoSceneImporter& second = isOtherFirst ? *importer : *otherImporter;
    window.import(second);
    window.draw();
    const auto alone = window.count();
    second.Clear();
    window.import(first);
    window.import(second);
    first.Clear();
    window.draw();
    EXPECT_EQ(window.count(), alone);
    second.Clear();
    EXPECT_EQ(window.count(), before);
  }
}

/// What is protected in a renderer.
struct OpenGlRenderer : vtkOpenGLRenderer {
  static bool hasPeelingPass(vtkRenderer& renderer) {
    return dynamic_cast<vtkOpenGLRenderer&>(renderer).*(&OpenGlRenderer::DepthPeelingPass) != nullptr;
  }
};

TEST_F(ImporterTest, LeavesTheRendererAsItWas) {
  plate.getColorAttributes()->setOpacity(0.3, false);
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setSolidColor({1, 0, 1});
  scene.canvas().getLightingAttributes().getLights().findOrCreate<lum::Light>("lamp").setIntensity(0.3);
  vtkRenderer& renderer = *window.renderer;
  window.addBall(0.5);
  renderer.SetBackground(0, 0, 0.5);
  renderer.GradientBackgroundOn();
  const auto settings = [&] {
    return std::vector<double>{static_cast<double>(renderer.GetAutomaticLightCreation()),
                               static_cast<double>(renderer.GetUseDepthPeeling()),
                               static_cast<double>(OpenGlRenderer::hasPeelingPass(renderer)),
                               static_cast<double>(renderer.GetCullers()->GetNumberOfItems()),
                               static_cast<double>(window.window->GetMultiSamples()),
                               renderer.GetNearClippingPlaneTolerance()};
  };
  for (const int createsLight : {0, 1}) {
    renderer.SetAutomaticLightCreation(createsLight);
    renderer.ResetCamera();
    const Picture picture = window.draw();
    window.window->SetMultiSamples(2);
    const auto before = settings();
    vtkNew<vtkVemoSceneImporter> other;
    other->SetScene(&scene.node());
    other->SetCamera(-1);
    importer->SetCamera(-1);
    import();
    window.import(*other);
    ASSERT_NE(settings(), before);
    importer->Clear();
    EXPECT_NE(settings(), before) << "the other is still there";
    other->Clear();
    EXPECT_EQ(settings(), before);
    window.window->SetMultiSamples(0);
    EXPECT_EQ(window.draw(), picture) << createsLight;
  }
}

TEST_F(ImporterTest, TellsFailures) {
  import();
  const auto before = window.count();
  std::string message;
  std::function<void(void*)> keep = [&](void* text) { message = static_cast<const char*>(text); };
  onEvent(*importer, vtkCommand::ErrorEvent, keep);
  const TemporaryFolder folder;
  std::ofstream(folder / "text.zip") << "no scene";
  ArchiveBuilder().text("scene.xml", "<scene><").write(folder / "broken.zip");
  for (const auto& [path, code, text] : {std::tuple(folder / "none.zip", vtkErrorCode::FileNotFoundError, ""),
                                         {folder / "text.zip", vtkErrorCode::UnrecognizedFileTypeError, ""},
                                         {folder / "broken.zip", vtkErrorCode::FileFormatError, "line 1"}}) {
    setFile(path.string());
    message.clear();
    importer->Update();
    EXPECT_FALSE(importer->GetSucceeded());
    EXPECT_EQ(importer->GetErrorCode(), static_cast<unsigned long>(code)) << path;
    EXPECT_FALSE(importer->GetErrorText().empty());
    EXPECT_THAT(importer->GetErrorText(), HasSubstr(text));
    EXPECT_THAT(message, HasSubstr(importer->GetErrorText()));
    EXPECT_EQ(window.count(), before) << "what was imported before stays";
  }
  importer->SetFileName(nullptr);
  importer->Update();
  EXPECT_EQ(importer->GetErrorCode(), static_cast<unsigned long>(vtkErrorCode::NoFileNameError));
  setFile(testData("version-1.sdb"));
  importer->Update();
  EXPECT_TRUE(importer->GetSucceeded());
  EXPECT_EQ(importer->GetErrorCode(), 0U);
  EXPECT_EQ(importer->GetErrorText(), "");
}

TEST_F(ImporterTest, ReportsRisingProgressBetweenStartAndEnd) {
  setFile(VEMO_SOURCE_FOLDER "/examples/wing.zip");
  std::vector<double> events;
  std::function<void(void*)> start = [&](void*) { events.push_back(-1); };
  std::function<void(void*)> progress = [&](void* fraction) {
    events.push_back(*static_cast<double*>(fraction));
  };
  std::function<void(void*)> end = [&](void*) { events.push_back(2); };
  onEvent(*importer, vtkCommand::StartEvent, start);
  onEvent(*importer, vtkCommand::ProgressEvent, progress);
  onEvent(*importer, vtkCommand::EndEvent, end);
  import();
  EXPECT_TRUE(std::ranges::is_sorted(events));
  EXPECT_GT(events.size(), 10U);
  EXPECT_EQ(events.front(), -1);
  EXPECT_EQ(events.at(events.size() - 2), 1.0);
  EXPECT_EQ(events.back(), 2);
}

TEST_F(ImporterTest, ChangesNothingWhenAborted) {
  window.addBall(0.5);
  const auto before = window.count();
  setFile(VEMO_SOURCE_FOLDER "/examples/wing.zip");
  double stop = 0.0;
  std::vector<std::vector<int>> drawn;
  std::function<void(void*)> abort = [&](void* fraction) {
    importer->SetAbortExecute(*static_cast<double*>(fraction) >= stop);
  };
  onEvent(*importer, vtkCommand::ProgressEvent, abort);
  for (const double share : {0.0, 0.3, 0.8, 0.9}) {
    stop = share;
    import();
    EXPECT_NE(importer->GetAbortExecute(), 0) << share;
    EXPECT_FALSE(importer->GetSucceeded());
    EXPECT_EQ(importer->GetErrorCode(), 0U);
    EXPECT_EQ(window.count(), before) << share;
    EXPECT_EQ(window.renderer->IsActiveCameraCreated(), 0);
  }
  stop = 2.0;
  import();
  EXPECT_TRUE(importer->GetSucceeded());
}

TEST_F(ImporterTest, SurvivesItsObservers) {
  scene.node().getBackgroundCanvas().getBackgroundAttributes().setColorMode(
      lum::BackgroundColorModes::RADIAL);
  struct {
    vtkObject* object;
    unsigned long event;
    std::function<void(void*)> work;
    bool succeeds;
  } cases[] = {
      {importer, vtkCommand::StartEvent, [&](void*) { window.window->RemoveRenderer(window.renderer); },
       false},
      {importer, vtkCommand::ProgressEvent, [&](void*) { window.window->RemoveRenderer(window.renderer); },
       false},
      {importer, vtkCommand::StartEvent, [&](void*) { importer->SetRenderWindow(nullptr); }, true},
      {importer, vtkCommand::StartEvent, [&](void*) { importer->Update(); }, true},
      {window.renderer, vtkCommand::ModifiedEvent, [&](void*) { importer->Clear(); }, true},
  };
  for (auto& [object, event, work, succeeds] : cases) {
    const unsigned long observer = onEvent(*object, event, work);
    import();
    object->RemoveObserver(observer);
    EXPECT_EQ(importer->GetSucceeded(), succeeds);
    window.window->RemoveRenderer(window.renderer);
    window.window->AddRenderer(window.renderer);
    importer->Clear();
    EXPECT_EQ(window.count(), (std::vector<int>{0, 0, 1, 1, 0}));
  }
  import();
  EXPECT_TRUE(importer->GetSucceeded());
  importer->GetItemProps(0, nullptr);
  actorOf(*importer, 0)->SetMapper(nullptr);
  EXPECT_THAT(importer->GetOutputsDescription(), HasSubstr("plate"));
}

TEST_F(ImporterTest, ListsFindingsAsLines) {
  const TemporaryFolder folder;
  ArchiveBuilder()
      .text("scene.xml", sceneXml("<nonsense/>" + geometry("")))
      .floats("p", {0, 0, 0, 1, 0, 0, 1, 1, 0})
      .write(folder / "scene.zip");
  setFile((folder / "scene.zip").string());
  import();
  ASSERT_TRUE(importer->GetSucceeded()) << importer->GetErrorText();
  std::string all;
  for (vtkIdType i = 0; i < importer->GetNumberOfFindings(); ++i) {
    all += importer->GetFinding(i) + '\n';
  }
  EXPECT_THAT(all, HasSubstr("nonsense"));
  EXPECT_THAT(all, HasSubstr("element-unknown"));
}

TEST_F(ImporterTest, LeavesASceneThatDoesNotNeedIt) {
  addNote();
  import();
  const Picture picture = window.draw();
  importer = nullptr;
  EXPECT_EQ(window.draw(), picture);
}

TEST_F(ImporterTest, MovesToAnotherWindow) {
  scene.node().getOrientationCanvas().getDrawableCollection().findOrCreate<lum::TriadDrawable>("axes");
  auto other = std::make_unique<ImportWindow>();
  other->import(*importer);
  other->draw();
  import();
  EXPECT_EQ(other->count(), (std::vector<int>{0, 0, 1, 1, 0}));
  other.reset();
  EXPECT_EQ(importer->GetNumberOfItems(), 3);
  window.draw();
}

TEST_F(ImporterTest, LetsProgramsPickItems) {
  import();
  window.draw();
  vtkNew<vtkCellPicker> picker;
  constexpr double MIDDLE = ImportWindow::SIZE / 2.0;
  ASSERT_NE(picker->Pick(MIDDLE, MIDDLE, 0, window.renderer), 0);
  EXPECT_EQ(importer->FindItemOfProp(picker->GetViewProp()), 0);
  vtkNew<vtkHardwareSelector> selector;
  selector->SetRenderer(window.renderer);
  selector->SetArea(140, 140, 160, 160);
  selector->SetFieldAssociation(vtkDataObject::FIELD_ASSOCIATION_CELLS);
  const auto selection = vtk::TakeSmartPointer(selector->Select());
  ASSERT_EQ(selection->GetNumberOfNodes(), 1U);
  auto* const prop =
      vtkProp::SafeDownCast(selection->GetNode(0)->GetProperties()->Get(vtkSelectionNode::PROP()));
  EXPECT_EQ(importer->FindItemOfProp(prop), 0);
}

TEST_F(ImporterTest, LetsExportersWriteItems) {
  import();
  window.draw();
  const TemporaryFolder folder;
  const std::string path = (folder / "scene.gltf").string();
  vtkNew<vtkGLTFExporter> exporter;
  exporter->SetRenderWindow(window.window);
  exporter->SetFileName(path.c_str());
  exporter->InlineDataOn();
  exporter->Write();
  std::ifstream file(path);
  const auto json = nlohmann::json::parse(file);
  EXPECT_EQ(json.at("meshes").size(), 1U);
  EXPECT_EQ(json.at("accessors").at(0).at("count"), 4);
}

TEST_F(ImporterTest, PrintsItself) {
  importer->SetFileName("wing.zip");
  std::ostringstream text;
  importer->Print(text);
  EXPECT_THAT(text.str(), HasSubstr("FileName: wing.zip\n"));
}

}  // namespace

}  // namespace vemo
