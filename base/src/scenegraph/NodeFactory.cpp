#include <vemo/scenegraph/NodeFactory.h>
#include <vemo/scenegraph/attributes/AnnotationAttributes.h>
#include <vemo/scenegraph/attributes/AttributesCollection.h>
#include <vemo/scenegraph/attributes/BaseAttributes.h>
#include <vemo/scenegraph/attributes/CameraAttributes.h>
#include <vemo/scenegraph/attributes/ContourAttributes.h>
#include <vemo/scenegraph/attributes/ImageAttributes.h>
#include <vemo/scenegraph/attributes/LegendAttributes.h>
#include <vemo/scenegraph/attributes/LineAttributes.h>
#include <vemo/scenegraph/attributes/MaterialAttributes.h>
#include <vemo/scenegraph/attributes/MeshAttributes.h>
#include <vemo/scenegraph/attributes/OrientationAttributes.h>
#include <vemo/scenegraph/attributes/PointAttributes.h>
#include <vemo/scenegraph/attributes/PointScaleAttributes.h>
#include <vemo/scenegraph/attributes/PointSizeAttributes.h>
#include <vemo/scenegraph/attributes/PositionAttributes.h>
#include <vemo/scenegraph/attributes/SurfaceAttributes.h>
#include <vemo/scenegraph/attributes/TextAttributes.h>
#include <vemo/scenegraph/attributes/TriadAttributes.h>
#include <vemo/scenegraph/canvas/BackgroundAttributes.h>
#include <vemo/scenegraph/canvas/BaseCanvasAttributes.h>
#include <vemo/scenegraph/canvas/CanvasPositionAttributes.h>
#include <vemo/scenegraph/canvas/ClipPlanesAttributes.h>
#include <vemo/scenegraph/canvas/Light.h>
#include <vemo/scenegraph/canvas/LightCollection.h>
#include <vemo/scenegraph/canvas/LightingAttributes.h>
#include <vemo/scenegraph/canvas/Plane.h>
#include <vemo/scenegraph/canvas/PlaneCollection.h>
#include <vemo/scenegraph/canvas/SceneCanvas.h>
#include <vemo/scenegraph/canvas/SceneNode.h>
#include <vemo/scenegraph/coloring/ColorAttributes.h>
#include <vemo/scenegraph/coloring/ColorLookupTable.h>
#include <vemo/scenegraph/coloring/DataArrayAttributes.h>
#include <vemo/scenegraph/coloring/DataLocationAttributes.h>
#include <vemo/scenegraph/coloring/ScalarAttributes.h>
#include <vemo/scenegraph/drawables/DrawableCollection.h>
#include <vemo/scenegraph/drawables/ImageDrawable.h>
#include <vemo/scenegraph/drawables/LegendDrawable.h>
#include <vemo/scenegraph/drawables/PointSphereDrawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>
#include <vemo/scenegraph/drawables/PolyLineDrawable.h>
#include <vemo/scenegraph/drawables/SurfaceDrawable.h>
#include <vemo/scenegraph/drawables/TextDrawable.h>
#include <vemo/scenegraph/drawables/TriadDrawable.h>
#include <vemo/scenegraph/transforms/PeriodicRepeatTransform.h>
#include <vemo/scenegraph/transforms/SimpleTransform.h>
#include <vemo/scenegraph/transforms/SymmetricTransform.h>

#include <map>

namespace lum {

namespace {

template <class... Classes>
std::map<std::string, NodeConstructor> makeTable() {
  return {{Classes::getClassName(),
           [](const NodeInitializer& initializer) { return Ptr<Node>(new Classes(initializer)); }}...};
}

const std::map<std::string, NodeConstructor>& getTable() {
  static const auto& table = *new auto(makeTable<                 //
                                       SceneNode,                 //
                                       SceneCanvas,               //
                                       AttributesCollection,      //
                                       AnnotationAttributes,      //
                                       BackgroundAttributes,      //
                                       BaseAttributes,            //
                                       BaseCanvasAttributes,      //
                                       CameraAttributes,          //
                                       CanvasPositionAttributes,  //
                                       ClipPlanesAttributes,      //
                                       ColorAttributes,           //
                                       ContourAttributes,         //
                                       DataLocationAttributes,    //
                                       ImageAttributes,           //
                                       LegendAttributes,          //
                                       LightingAttributes,        //
                                       LineAttributes,            //
                                       MaterialAttributes,        //
                                       MeshAttributes,            //
                                       OrientationAttributes,     //
                                       PointAttributes,           //
                                       PointScaleAttributes,      //
                                       PointSizeAttributes,       //
                                       PositionAttributes,        //
                                       ScalarAttributes,          //
                                       SurfaceAttributes,         //
                                       TextAttributes,            //
                                       TriadAttributes,           //
                                       ColorLookupTable,          //
                                       DataArrayAttributes,       //
                                       Light,                     //
                                       LightCollection,           //
                                       Plane,                     //
                                       PlaneCollection,           //
                                       DrawableCollection,        //
                                       ImageDrawable,             //
                                       LegendDrawable,            //
                                       PointSphereDrawable,       //
                                       PolyLineDrawable,          //
                                       SurfaceDrawable,           //
                                       TextDrawable,              //
                                       TriadDrawable,             //
                                       PolyDataNode,              //
                                       PeriodicRepeatTransform,   //
                                       SimpleTransform,           //
                                       SymmetricTransform>());
  return table;
}

}  // namespace

Ptr<Node> createNode(const NodeInitializer& initializer) {
  const NodeConstructor construct = findNodeConstructor(initializer.getClassName());
  return construct != nullptr ? construct(initializer) : Ptr<Node>();
}

NodeConstructor findNodeConstructor(const std::string& className) {
  const auto found = getTable().find(className);
  return found != getTable().end() ? found->second : nullptr;
}

std::vector<std::string> getNodeClassNames() {
  std::vector<std::string> names;
  for (const auto& [name, create] : getTable()) {
    names.push_back(name);
  }
  return names;
}

}  // namespace lum
