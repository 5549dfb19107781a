#include "support/SampleGraphs.h"

#include "support/Meshes.h"
#include "support/Nodes.h"
#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/Owned.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPoints.h>

#include <bit>
#include <cmath>
#include <limits>

namespace vemo {

namespace {

class UnusualValues {
 public:
  void operator()(bool* value) const { *value = !*value; }
  void operator()(std::int32_t* value) const { *value = std::numeric_limits<std::int32_t>::min(); }
  void operator()(std::uint32_t* value) const { *value = std::numeric_limits<std::uint32_t>::max(); }
  void operator()(float* value) const { *value = -0.0F; }
  void operator()(double* value) const { *value = std::bit_cast<double>(0x7FF8'0000'DEAD'BEEFULL); }
  void operator()(const lum::EnumerationField& field) const {
    *field.value = (*field.value + 1) % field.count();
  }
  void operator()(std::string* value) const { value->assign(300, 'x').push_back('\0'); }
  template <std::size_t N>
  void operator()(Vector<N, double>* value) const {
    for (std::size_t i = 0; i < N; ++i) {
      (*value)[i] = i == 0 ? -0.0 : std::numeric_limits<double>::infinity();
    }
  }
  void operator()(lum::SharedNumbers* value) const { *value = {0.1, std::nan("7"), 5e-324}; }
  void operator()(std::optional<double>* value) const { *value = 0.0; }
  void operator()(std::optional<Vector3>* value) const { *value = {{0.0, -0.0, 1e308}}; }
  void operator()(std::map<std::string, Vector3>* value) const {
    *value = {{"", {}}, {"\xff", {1.0, 2.0, 3.0}}, {"a", {0.5, -0.0, 0.0}}};
  }
  // Poly data must fit together: see `makeGeometry`.
  void operator()(vtkSmartPointer<vtkDataArray>* /*value*/) const {}
  void operator()(vtkSmartPointer<vtkCellArray>* /*value*/) const {}
  void operator()(lum::ArrayTable* /*value*/) const {}
  void operator()(lum::ReferenceSlot* /*slot*/) const {}
  void operator()(lum::OwnedSlot* slot) const {
    for (const std::string& name : lum::getNodeClassNames()) {
      const lum::Ptr<lum::Node> owned = lum::createNode(lum::ClassNameNodeInitializer(name));
      if (slot->put(owner, owned.get())) {
        owned->setName(name);
      }
    }
  }
  void operator()(lum::CollectionNode* collection) const {
    for (const std::string& name : lum::getNodeClassNames()) {
      collection->addNode(*lum::createNode(lum::ClassNameNodeInitializer(name)));
    }
  }

  lum::Node& owner;
};

}  // namespace

void putUnusualValuesInto(lum::Node& node) {
  node.setName(std::string("n\0\xff\n", 4) + node.className());
  node.setQualifiedName("");
  lum::FieldList fields;
  node.listFields(fields);
  for (const lum::Field& field : fields) {
    std::visit(UnusualValues{node}, field.value);
  }
}

vtkSmartPointer<vtkPolyData> makeGeometry(bool use64Bit) {
  auto polyData = makePolyData({{0, 0, 0}, {1, std::nanf("3"), 0}, {0, 1, -0.0F}},
                               {.verts = {{2}}, .lines = {{0, 1}}, .polys = {{0, 1, 2}}});
  for (vtkCellArray* const cells : {polyData->GetVerts(), polyData->GetLines(), polyData->GetPolys()}) {
    use64Bit ? cells->ConvertTo64BitStorage() : cells->ConvertTo32BitStorage();
  }
  polyData->GetPointData()->AddArray(makeArray("p", {INFINITY, INFINITY, INFINITY}));
  polyData->GetCellData()->AddArray(
      makeArray<vtkDoubleArray>("Normals", {.5, .5, .5, .5, .5, .5, .5, .5, .5}, 3));
  return polyData;
}

lum::Ptr<lum::SceneNode> makeScene() {
  const auto scene = make<lum::SceneNode>("scene");
  auto& surface =
      scene->getModelCanvas().getDrawableCollection().findOrCreate<lum::SurfaceDrawable>("surface");
  const auto geometry = makeGeometry(false);
  surface.findOrCreate<lum::PolyDataNode>("first").setPolyData(geometry);
  surface.findOrCreate<lum::PolyDataNode>("second").setPolyData(geometry);
  surface.findOrCreate<lum::PolyDataNode>("wide").setPolyData(makeGeometry(true));
  surface.findOrCreate<lum::PolyDataNode>("none");
  vtkNew<vtkPolyData> empty;
  empty->SetPoints(vtkNew<vtkPoints>());
  surface.findOrCreate<lum::PolyDataNode>("empty").setPolyData(empty);
  surface.getColorAttributes()->setColor({0.25, 0.5, 0.75}, false);
  scene->getOrientationCanvas()
      .getDrawableCollection()
      .findOrCreate<lum::TriadDrawable>("triad")
      .setCameraAttributes(&scene->getModelCanvas().getCameraAttributes());
  return scene;
}

lum::SurfaceDrawable& surfaceOf(lum::SceneNode& scene) {
  return *scene.getModelCanvas().getDrawableCollection().find<lum::SurfaceDrawable>();
}

lum::TriadDrawable& triadOf(lum::SceneNode& scene) {
  return *scene.getOrientationCanvas().getDrawableCollection().find<lum::TriadDrawable>();
}

lum::Ptr<lum::Node> makeChain(int length) {
  const auto root = make<lum::DrawableCollection>();
  lum::DrawableCollection* last = &*root;
  for (int i = 1; i < length; ++i) {
    last = &last->findOrCreate<lum::DrawableCollection>();
  }
  return lum::Ptr<lum::Node>(root);
}

}  // namespace vemo
