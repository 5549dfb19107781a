#pragma once

#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/Owned.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <bit>
#include <cmath>
#include <limits>

namespace vemo {

/// Gives every field of a node a value that no default has, and that is easily
/// lost: a NaN with a payload, infinities, a negative zero, empty and long
/// texts, the ends of ranges.
class UnusualValues {
 public:
  static void putInto(lum::Node& node) {
    node.setName(std::string("n\0\xff\n", 4) + node.className());
    node.setQualifiedName("");
    lum::FieldList fields;
    node.listFields(fields);
    for (const lum::Field& field : fields) {
      std::visit(UnusualValues{node}, field.value);
    }
  }

  void operator()(bool* value) const { *value = !*value; }
  void operator()(std::int32_t* value) const { *value = std::numeric_limits<std::int32_t>::min(); }
  void operator()(std::uint32_t* value) const { *value = std::numeric_limits<std::uint32_t>::max(); }
  void operator()(float* value) const { *value = -0.0F; }
  void operator()(double* value) const { *value = std::bit_cast<double>(0x7FF8'0000'DEAD'BEEFULL); }
  void operator()(const lum::EnumerationField& field) const {
    *field.value = (*field.value + 1) % field.count;
  }
  void operator()(std::string* value) const { value->assign(300, 'x').push_back('\0'); }
  template <std::size_t N>
  void operator()(Vector<N, double>* value) const {
    for (std::size_t i = 0; i < N; ++i) {
      (*value)[i] = i == 0 ? -0.0 : std::numeric_limits<double>::infinity();
    }
  }
  void operator()(std::vector<double>* value) const { *value = {0.1, std::nan("7"), 5e-324}; }
  void operator()(std::optional<double>* value) const { *value = 0.0; }
  void operator()(std::optional<Vector<3, double>>* value) const { *value = {{0.0, -0.0, 1e308}}; }
  void operator()(std::map<std::string, Vector<3, double>>* value) const {
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

/// A triangle, a line and a vertex with two arrays, in 64-bit cells if asked.
inline vtkSmartPointer<vtkPolyData> makeGeometry(bool use64Bit) {
  auto polyData = vtkSmartPointer<vtkPolyData>::New();
  vtkNew<vtkPoints> points;
  points->InsertNextPoint(0, 0, 0);
  points->InsertNextPoint(1, std::nanf("3"), 0);
  points->InsertNextPoint(0, 1, -0.0);
  polyData->SetPoints(points);
  const auto cells = [&](std::initializer_list<vtkIdType> ids) {
    auto array = vtkSmartPointer<vtkCellArray>::New();
    use64Bit ? array->Use64BitStorage() : array->Use32BitStorage();
    array->InsertNextCell(ids);
    return array;
  };
  polyData->SetVerts(cells({2}));
  polyData->SetLines(cells({0, 1}));
  polyData->SetPolys(cells({0, 1, 2}));
  vtkNew<vtkFloatArray> scalars;
  scalars->SetName("p");
  scalars->SetNumberOfTuples(3);
  scalars->FillComponent(0, std::numeric_limits<double>::infinity());
  polyData->GetPointData()->AddArray(scalars);
  vtkNew<vtkDoubleArray> normals;
  normals->SetName("Normals");
  normals->SetNumberOfComponents(3);
  normals->SetNumberOfTuples(3);
  normals->Fill(0.5);
  polyData->GetCellData()->AddArray(normals);
  return polyData;
}

template <class T>
lum::Ptr<T> make() {
  return lum::Ptr<T>(new T(lum::ClassNameNodeInitializer(T::getClassName())));
}

/// A scene with all that travels by other ways than plain values: a reference
/// to another branch, arrays that two nodes share, empty ones, cells of both
/// widths.
inline lum::Ptr<lum::SceneNode> makeScene() {
  using namespace lum;
  const Ptr<SceneNode> scene = make<SceneNode>();
  scene->setName("scene");
  auto& drawables = scene->getModelCanvas().getDrawableCollection();
  auto& surface = drawables.findOrCreate<SurfaceDrawable>("surface");
  const auto geometry = makeGeometry(false);
  surface.findOrCreate<PolyDataNode>("first").setPolyData(geometry);
  surface.findOrCreate<PolyDataNode>("second").setPolyData(geometry);
  surface.findOrCreate<PolyDataNode>("wide").setPolyData(makeGeometry(true));
  surface.findOrCreate<PolyDataNode>("none");
  vtkNew<vtkPolyData> empty;
  empty->SetPoints(vtkNew<vtkPoints>());
  surface.findOrCreate<PolyDataNode>("empty").setPolyData(empty);
  surface.getColorAttributes()->setColor({0.25, 0.5, 0.75}, false);
  auto& triad = scene->getOrientationCanvas().getDrawableCollection().findOrCreate<TriadDrawable>("triad");
  triad.setCameraAttributes(&scene->getModelCanvas().getCameraAttributes());
  return scene;
}

}  // namespace vemo
