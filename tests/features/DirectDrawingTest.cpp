// Each feature of old scenes that is a matter of geometry and colours: that its
// picture is the one that VTK draws of the same data.

#include "features/DirectDrawing.h"
#include "render/Pixels.h"
#include "support/Meshes.h"

#include <vtkCellData.h>
#include <vtkImageData.h>
#include <vtkLight.h>
#include <vtkPlaneSource.h>
#include <vtkPointData.h>
#include <vtkTexture.h>
#include <vtkTransform.h>
#include <vtkUnsignedCharArray.h>

#include <functional>
#include <gtest/gtest.h>
#include <numeric>
#include <ostream>

namespace vemo {

namespace {

constexpr int TOLERANCE = 8;
constexpr int PIXELS = FeatureScene::SIZE * FeatureScene::SIZE;

double meanDifference(const Picture& a, const Picture& b) {
  return std::transform_reduce(a.getBytes().begin(), a.getBytes().end(), b.getBytes().begin(), 0.0,
                               std::plus(), [](int x, int y) { return std::abs(x - y); }) /
         (Picture::CHANNELS * PIXELS);
}

struct Feature {
  const char* name;
  /// Of the scene element.
  std::string children;
  std::function<void(DirectDrawing&)> draw = &DirectDrawing::addGeometry;

  friend void PrintTo(const Feature& feature, std::ostream* out) { *out << feature.name; }
};

class FeatureTest : public testing::TestWithParam<Feature> {};

TEST_P(FeatureTest, LooksAsVtkDrawsIt) {
  const FeatureScene scene(GetParam().children);
  const Picture seen = scene.draw();
  DirectDrawing direct(scene.items());
  GetParam().draw(direct);
  const Picture expected = direct.draw();
  // Two ways of drawing may smooth edges a little differently; a shape of the
  // size that they have here changes 0.2 % of the pixels when it moves by one.
  EXPECT_LE(countDifferences(seen, expected, TOLERANCE), 0.001 * PIXELS);
  // Light may come by two ways to colours that are a rounding apart, no more.
  EXPECT_LE(meanDifference(seen, expected), 0.1);
  EXPECT_GE(countDifferences(expected, Picture(seen.getWidth(), seen.getHeight()), TOLERANCE),
            0.005 * PIXELS);
}

std::string nameOf(const testing::TestParamInfo<Feature>& info) {
  return info.param.name;
}

/// As lines in front of the faces: VTK's own edges end at the borders of faces, with half of
/// their width.
void drawEdgesInFront(DirectDrawing& direct) {
  direct.addGeometry();
  vtkActor& faces = *direct.renderer().GetActors()->GetLastActor();
  faces.GetProperty()->EdgeVisibilityOff();
  vtkActor& edges = direct.addPlain(vtkPolyData::SafeDownCast(faces.GetMapper()->GetInput()),
                                    toVector(faces.GetProperty()->GetEdgeColor()));
  edges.GetProperty()->SetRepresentationToWireframe();
  edges.AddPosition(0, 0, 0.01);
}

// ---- Transforms ----

const std::string OPAQUE = " lineColor='ff8000ff' faceColor='40a0ffff'";
const std::string FLAG = geometry("points='flag' polys='flagFaces' smoothShading='false'" + OPAQUE);
const std::string HILL = "points='hill' polys='hillFaces'" + OPAQUE;

/// A place of an assembly: the steps in the order in which they are taken.
vtkSmartPointer<vtkMatrix4x4> placeAfter(const std::function<void(vtkTransform&)>& steps) {
  vtkNew<vtkTransform> transform;
  transform->PostMultiply();
  steps(*transform);
  auto matrix = vtkSmartPointer<vtkMatrix4x4>::New();
  matrix->DeepCopy(transform->GetMatrix());
  return matrix;
}

/// An assembly "A" with a transform, and where VTK is to show it.
Feature transformed(const char* name, const std::string& element,
                    const std::vector<std::function<void(vtkTransform&)>>& places) {
  return {name, assembly("A", element + FLAG), [places](DirectDrawing& direct) {
            DirectDrawing::Matrices matrices;
            std::ranges::transform(places, std::back_inserter(matrices), placeAfter);
            direct.place("A", std::move(matrices));
            direct.addGeometry();
          }};
}

INSTANTIATE_TEST_SUITE_P(
    Transforms, FeatureTest,
    testing::Values(
        transformed(
            "Rotate",
            "<transform rotAngle='0.4'><rotAxis x='3' z='4'/><rotOrigin x='0.3' y='0.2'/></transform>",
            {[](vtkTransform& steps) {
              steps.Translate(-0.3, -0.2, 0);
              steps.RotateWXYZ(36, 3, 0, 4);
              steps.Translate(0.3, 0.2, 0);
            }}),
        transformed("MirrorByScale", "<transform><scale x='-1' y='1' z='1'/></transform>",
                    {[](vtkTransform& steps) { steps.Scale(-1, 1, 1); }}),
        transformed(
            "ScaleThenRotateThenMove",
            "<transform rotAngle='1'><rotAxis z='1'/><rotOrigin x='0.1'/><translation x='0.5' y='-0.3'/>"
            "<scale x='2' y='1' z='1'/></transform>",
            {[](vtkTransform& steps) {
              steps.Scale(2, 1, 1);
              steps.Translate(-0.1, 0, 0);
              steps.RotateZ(90);
              steps.Translate(0.6, -0.3, 0);
            }}),
        transformed("Reflect",
                    "<reflect version='2' planeEqnCoeffA='3' planeEqnCoeffB='4' planeEqnCoeffD='0.1'/>",
                    // The mirror turned to lie across x, and moved to the middle.
                    {[](vtkTransform&) {},
                     [](vtkTransform& steps) {
                       const double turn = 53.13010235415598;
                       steps.RotateZ(-turn);
                       steps.Translate(0.1, 0, 0);
                       steps.Scale(-1, 1, 1);
                       steps.Translate(-0.1, 0, 0);
                       steps.RotateZ(turn);
                     }}),
        transformed("Repeat", "<repeat nRepeats='3'/>", {[](vtkTransform&) {}}),
        Feature{"Nested",
                assembly("A", "<transform><translation x='-0.5'/></transform>" +
                                  assembly("B", "<transform><scale x='2' y='2' z='1'/></transform>" + FLAG)),
                [](DirectDrawing& direct) {
                  direct.place("A", {placeAfter([](vtkTransform& steps) { steps.Translate(-0.5, 0, 0); })});
                  direct.place("B", {placeAfter([](vtkTransform& steps) { steps.Scale(2, 2, 1); })});
                  direct.addGeometry();
                }}),
    nameOf);

// ---- Clipping planes ----

INSTANTIATE_TEST_SUITE_P(
    Clipping, FeatureTest,
    testing::Values(Feature{
        "PlanesCutWhatDoesNotIgnoreThemWhereverItIsMoved",
        "<clip><origin x='0.1'/><normal x='3' y='1'/></clip><clip><origin y='0.45'/><normal y='-1'/></clip>" +
            assembly("moved", "<transform><translation x='0.05' y='-0.1'/></transform>" + FLAG) +
            geometry("points='flag' lines='flagFaces' ignoreClip='true' lineWidth='2'" + OPAQUE),
        [](DirectDrawing& direct) {
          direct.place("moved", {placeAfter([](vtkTransform& steps) { steps.Translate(0.05, -0.1, 0); })});
          direct.addGeometry();
        }}),
    nameOf);

// ---- Colormaps ----

/// The hill coloured by an array, in five colours from 0.5 to 10.
Feature colored(const char* name, const std::string& array, const std::string& colormap,
                const std::string& more = "smoothShading='true'",
                const std::function<void(DirectDrawing&)>& draw = &DirectDrawing::addGeometry) {
  return {name,
          assembly("A", "<colormap min='0.5' max='10' title='Speed' " + colormap +
                            "><c>0000c8ff</c><c>00c8c8ff</c><c>00c800ff</c><c>dcdc0aff</c>"
                            "<c>c80000ff</c></colormap>" +
                            geometry(HILL + " " + more, "<array name='" + COLOR_ARRAY + "' " + array + "/>")),
          draw};
}

INSTANTIATE_TEST_SUITE_P(
    Colormaps, FeatureTest,
    testing::Values(colored("AtCells", "dim='1' data='byCell'", "ramp='scurve'"),
                    colored("AtPoints", "dim='1' vertexData='true' data='byPoint'", "ramp='sqrt'"),
                    colored("LogarithmicAtCells", "dim='1' data='byCell'", "log10='true'",
                            "smoothShading='false' showEdges='true'", drawEdgesInFront),
                    colored("LogarithmicAtPoints", "dim='1' vertexData='true' data='byPoint'",
                            "log10='true'"),
                    colored("PairsByTheirFirst", "dim='2' data='pairs'", ""),
                    colored("TriplesByTheirLengths", "dim='3' data='triples'", "")),
    nameOf);

// ---- Light ----

struct LightCase {
  double intensity, azimuth, elevation;
  std::string color;
};

/// The hill under lights, and under no others.
Feature lit(const char* name, const std::vector<LightCase>& lights) {
  std::string elements;
  for (const auto& [intensity, azimuth, elevation, color] : lights) {
    elements += "<light intensity='" + std::to_string(intensity) + "' azimuth='" + std::to_string(azimuth) +
                "' elevation='" + std::to_string(elevation) + "' color='" + color + "'/>";
  }
  return {name, elements + geometry(HILL), [=](DirectDrawing& direct) {
            direct.renderer().AutomaticLightCreationOff();
            for (const auto& [intensity, azimuth, elevation, hex] : lights) {
              vtkNew<vtkLight> light;
              auto color = Color::parse(hex).getRGB();
              light->SetLightTypeToCameraLight();
              light->SetIntensity(intensity);
              light->SetColor(color.data());
              light->SetDirectionAngle(elevation, azimuth);
              direct.renderer().AddLight(light);
            }
            direct.addGeometry();
          }};
}

INSTANTIATE_TEST_SUITE_P(Lights, FeatureTest,
                         testing::Values(lit("FromTheRight", {{1, 50, 0, "ffffffff"}}),
                                         lit("FromTheLeftAndAboveInColours",
                                             {{0.75, -60, 0, "ff0000ff"}, {0.5, 0, 60, "00ffffff"}})),
                         nameOf);

INSTANTIATE_TEST_SUITE_P(
    Materials, FeatureTest,
    testing::Values(Feature{"Ambient", geometry(HILL + " ambient='0.75'")},
                    Feature{"Translucent", geometry("points='hill' polys='hillFaces' faceColor='40a0ff80'")},
                    Feature{"Dull", geometry(HILL + " ambient='0.25' diffuse='0.5' specularPower='1'")},
                    Feature{"Shiny", geometry(HILL + " diffuse='0.5' specular='1' specularPower='20'")}),
    nameOf);

// ---- Faces ----

/// With a normal for each triangle, as VTK computes it while it draws.
INSTANTIATE_TEST_SUITE_P(Faces, FeatureTest,
                         testing::Values(Feature{
                             "CrossingThemselves",
                             "<light intensity='1' azimuth='40' elevation='0' color='ffffffff'/>" +
                                 geometry("points='bow' polys='bowFace' smoothShading='false'" + OPAQUE),
                             [](DirectDrawing& direct) {
                               direct.addGeometry();
                               vtkActor& bow = *direct.renderer().GetActors()->GetLastActor();
                               bow.GetMapper()->GetInput()->GetCellData()->SetNormals(nullptr);
                               vtkNew<vtkLight> light;
                               light->SetLightTypeToCameraLight();
                               light->SetDirectionAngle(0, 40);
                               direct.renderer().AddLight(light);
                             }}),
                         nameOf);

// ---- Edges ----

INSTANTIATE_TEST_SUITE_P(
    Edges, FeatureTest,
    testing::Values(Feature{"Alone", geometry(HILL + " showFaces='false' showEdges='true' lineWidth='3'"),
                            [](DirectDrawing& direct) {
                              direct.addGeometry();
                              direct.renderer().GetActors()->GetLastActor()->GetProperty()->LightingOff();
                            }},
                    Feature{"OnFaces", geometry(HILL + " showEdges='true' lineWidth='1'"), drawEdgesInFront}),
    nameOf);

// ---- Contours ----

/// Three strips side by side, the second with points of its own at the same
/// places as the first's. The third bends down by 45 degrees: it covers parts of wider lines.
Feature contour(const char* name, const std::string& faces) {
  return {name,
          geometry("points='strips' polys='stripFaces' strips='stripStrips' contour='true' lineWidth='2' " +
                   faces + OPAQUE),
          [](DirectDrawing& direct) {
            direct.addGeometry();
            // Where the border and the bend are, nearer than the faces: no line
            // where two points stand at one place, none across a face.
            const auto lines = makePolyData({{-0.8F, -0.5F, 0.1F},
                                             {0.2F, -0.5F, 0.1F},
                                             {0.7F, -0.5F, 0.1F},
                                             {0.7F, 0.5F, 0.1F},
                                             {0.2F, 0.5F, 0.1F},
                                             {-0.8F, 0.5F, 0.1F}},
                                            {.lines = {{0, 1, 2, 3, 4, 5, 0}, {1, 4}}});
            direct.addPlain(lines, {1, 128 / 255.0, 0}).GetProperty()->SetLineWidth(2);
          }};
}

INSTANTIATE_TEST_SUITE_P(Contours, FeatureTest,
                         testing::Values(contour("Alone", "showFaces='false'"),
                                         contour("OnFaces", "showFaces='true'")),
                         nameOf);

// ---- Point scaling ----

/// Four points of the values 1, 10, 100 and none, and their sizes in pixels.
Feature scaledPoints(const char* name, const std::string& scalars, const std::string& attributes,
                     const std::array<double, 4>& sizes) {
  const bool isInPixels = attributes.find("PixelsSize='0'") == std::string::npos;
  return {
      name,
      assembly("A", "<colormap min='0' max='1'><c>ffffffff</c></colormap>" +
                        geometry("points='four' verts='fourVerts' pointSize='16' "
                                 "pointScaleScalarName='" +
                                     scalars + "' " + attributes,
                                 "<array name='size' dim='1' vertexData='true' data='fourSizes'/>"
                                 "<pointScaleScalarRange x='1' y='100'/><pointScaleScalarMapTo " +
                                     std::string(isInPixels ? "x='4' y='34'" : "x='0.1' y='0.4'") + "/>")),
      [=](DirectDrawing& direct) {
        for (std::size_t i = 0; i < sizes.size(); ++i) {
          const auto point = makePolyData({{-0.6F + 0.4F * static_cast<float>(i), 0, 0}}, {.verts = {{0}}});
          // The last has the colour that VTK's tables give what is not a number.
          const bool isLast = i + 1 == sizes.size();
          vtkProperty& property =
              *direct.addPlain(point, isLast ? Vector3{0.5, 0, 0} : Vector3{1, 1, 1}).GetProperty();
          property.SetPointSize(static_cast<float>(sizes.at(i)));
          property.SetRenderPointsAsSpheres(true);
          property.SetLighting(true);
        }
      }};
}

INSTANTIATE_TEST_SUITE_P(
    PointScaling, FeatureTest,
    testing::Values(scaledPoints("Not", "size", "pointScaleMode='0'", {16, 16, 16, 16}),
                    scaledPoints("ByNoArray", "none", "pointScaleMode='1'", {16, 16, 16, 16}),
                    // One of sixteen steps between the sizes.
                    scaledPoints("Linear", "size", "pointScaleMode='1'", {4, 6, 34, 4}),
                    scaledPoints("Logarithmic", "size", "pointScaleMode='2'", {4, 20, 34, 4}),
                    scaledPoints("InModelUnits", "size", "pointScaleMode='1' pointScalePixelsSize='0'",
                                 {15, 18, 60, 15})),
    nameOf);

// ---- Images ----

/// Where the lower left corner stands, and from there the lower right and the
/// upper left one.
struct Plate {
  Vector3 corner, right, up;
};

/// The archive's pixels over a parallelogram of the model.
void drawImage(DirectDrawing& direct, int components, const Plate& plate, double opacity) {
  vtkNew<vtkImageData> pixels;
  pixels->SetDimensions(4, 3, 1);
  pixels->GetPointData()->SetScalars(
      makeArray<vtkUnsignedCharArray>("pixels", FeatureScene::pixels(components), components));
  vtkNew<vtkTexture> texture;
  texture->SetInputData(pixels);
  texture->SetColorModeToDirectScalars();
  texture->InterpolateOn();
  texture->RepeatOff();
  texture->EdgeClampOn();
  vtkNew<vtkPlaneSource> source;
  source->SetOrigin(Vector3(plate.corner).data());
  source->SetPoint1((plate.corner + plate.right).data());
  source->SetPoint2((plate.corner + plate.up).data());
  source->Update();
  vtkActor& actor = direct.addPlain(source->GetOutput(), {1, 1, 1});
  actor.SetTexture(texture);
  actor.GetProperty()->SetOpacity(opacity);
}

/// An image in an assembly that moves by 0.1 along x.
/// @param shown where it is seen in the model
Feature image(const char* name, const std::string& element, const std::string& attributes,
              const std::string& place, int components, const Plate& shown, double opacity = 1) {
  const std::string count = std::to_string(components);
  return {name,
          assembly("A", "<transform><translation x='0.1'/></transform><" + element +
                            " name='i' width='4' height='3' pixels='pixels" + count + "' components='" +
                            count + "' " + attributes + ">" + place + "</" + element + ">"),
          [=](DirectDrawing& direct) { drawImage(direct, components, shown, opacity); }};
}

INSTANTIATE_TEST_SUITE_P(
    Images, FeatureTest,
    testing::Values(
        image("FlatInTheWindow", "image2d", "visibility='1'",
              "<position x='0.25' y='0.1'/><size x='0.5' y='0.75'/>", 4,
              {{-0.5, -0.8, 0}, {1, 0, 0}, {0, 1.5, 0}}),
        image("FlatInTheModel", "image2d", "visibility='0.5' opacity='0.5' coordinateSystem='MODEL'",
              "<position x='-0.6' y='-0.5'/><size x='1' y='1'/>", 2, {{-0.5, -0.5, 0}, {1, 0, 0}, {0, 1, 0}},
              0.25),
        image("SlantedInTheModel", "image3d", "visibility='1'",
              "<origin x='-0.5' y='-0.5' z='-1'/><xaxis x='1' y='0.5' z='1'/><yaxis x='-0.3' y='0.75'/>", 3,
              {{-0.4, -0.5, -1}, {1, 0.5, 1}, {-0.3, 0.75, 0}}),
        image("SolidInTheWindow", "image3d", "visibility='1' coordinateSystem='WINDOW'",
              "<origin x='0.1' y='0.1'/><xaxis x='0.5'/><yaxis y='0.5'/>", 1,
              {{-0.8, -0.8, 0}, {1, 0, 0}, {0, 1, 0}})),
    nameOf);

}  // namespace

}  // namespace vemo
