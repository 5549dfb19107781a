#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/SceneNode.h>
#include <vemo/scenegraph/attributes/RenderingAttributes.h>
#include <vemo/scenegraph/attributes/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/GeometryDrawables.h>
#include <vemo/scenegraph/drawables/Overlays.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>

#include <map>

namespace lum {

namespace {

using Create = Ptr<Node> (*)(const NodeInitializer&);

template <class... Classes>
std::map<std::string, Create> makeTable() {
  return {{Classes::getClassName(),
           [](const NodeInitializer& initializer) { return Ptr<Node>(new Classes(initializer)); }}...};
}

const std::map<std::string, Create>& getTable() {
  static const auto table = makeTable<  //
      SceneNode,                        //
      SceneCanvas,                      //
      AttributesCollection,             //
      AnnotationAttributes,             //
      BackgroundAttributes,             //
      BaseAttributes,                   //
      BaseCanvasAttributes,             //
      CameraAttributes,                 //
      CanvasPositionAttributes,         //
      ClipPlanesAttributes,             //
      ColorAttributes,                  //
      ContourAttributes,                //
      DataLocationAttributes,           //
      ImageAttributes,                  //
      LegendAttributes,                 //
      LightingAttributes,               //
      LineAttributes,                   //
      MaterialAttributes,               //
      MeshAttributes,                   //
      OrientationAttributes,            //
      PointAttributes,                  //
      PointScaleAttributes,             //
      PointSizeAttributes,              //
      PositionAttributes,               //
      ScalarAttributes,                 //
      SurfaceAttributes,                //
      TextAttributes,                   //
      TriadAttributes,                  //
      ColorLookupTable,                 //
      DataArrayAttributes,              //
      Light,                            //
      LightCollection,                  //
      Plane,                            //
      PlaneCollection,                  //
      DrawableCollection,               //
      ImageDrawable,                    //
      LegendDrawable,                   //
      PointSphereDrawable,              //
      PolyLineDrawable,                 //
      SurfaceDrawable,                  //
      TextDrawable,                     //
      TriadDrawable,                    //
      PolyDataNode,                     //
      PeriodicRepeatTransform,          //
      SimpleTransform,                  //
      SymmetricTransform>();
  return table;
}

}  // namespace

Ptr<Node> createNode(const NodeInitializer& initializer) {
  const auto found = getTable().find(initializer.getClassName());
  return found == getTable().end() ? Ptr<Node>() : found->second(initializer);
}

std::vector<std::string> getNodeClassNames() {
  std::vector<std::string> names;
  for (const auto& [name, create] : getTable()) {
    names.push_back(name);
  }
  return names;
}

}  // namespace lum
