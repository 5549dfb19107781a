#include "scenes.h"
#include "shapes.h"

#include <array>
#include <cstdint>
#include <string>

namespace examples {
namespace {

// Rock salt. Lengths are in Angstroem. Sources: edge of the cell, Wyckoff,
// "Crystal Structures", volume 1; radii of the ions in the neighbourhood of six,
// Shannon, Acta Crystallographica A 32 (1976), p. 751.
constexpr double CELL = 5.640;
constexpr double SODIUM_RADIUS = 1.02;
constexpr double CHLORIDE_RADIUS = 1.81;
/// The ions are drawn smaller than they are, or nothing would be seen between them.
constexpr double SHRINKAGE = 0.5;

/// Ions along each edge of the piece: half a cell lies between neighbours.
constexpr int IONS = 3;

Point placeOf(int x, int y, int z) {
  const auto coordinate = [](int i) { return CELL / 2.0 * (i - (IONS - 1) / 2.0); };
  return {coordinate(x), coordinate(y), coordinate(z)};
}

template <class Function>
void forEachIon(Function function) {
  for (int z = 0; z < IONS; ++z) {
    for (int y = 0; y < IONS; ++y) {
      for (int x = 0; x < IONS; ++x) {
        function(x, y, z);
      }
    }
  }
}

Geometry makeIons() {
  Geometry ions;
  ions.name = "ions";
  DataArray charge{"charge", true, {}};
  DataArray diameter{"diameter", true, {}};
  forEachIon([&](int x, int y, int z) {
    const bool isSodium = (x + y + z) % 2 != 0;
    Geometry::addCell(ions.verts, {static_cast<std::int32_t>(ions.points.size())});
    ions.points.push_back(placeOf(x, y, z));
    charge.values.push_back(isSodium ? 1.0 : -1.0);
    diameter.values.push_back(2.0 * (isSodium ? SODIUM_RADIUS : CHLORIDE_RADIUS));
  });
  ions.arrays = {charge, diameter};
  return ions;
}

Geometry makeBonds() {
  Geometry bonds;
  bonds.name = "neighbours";
  forEachIon([&](int x, int y, int z) {
    for (const auto& [nx, ny, nz] : {std::array{x + 1, y, z}, {x, y + 1, z}, {x, y, z + 1}}) {
      if (nx < IONS && ny < IONS && nz < IONS) {
        addLine(bonds, {placeOf(x, y, z), placeOf(nx, ny, nz)});
      }
    }
  });
  return bonds;
}

/// The edges and faces of the piece, which is one cell.
Geometry makeCell(const std::string& name) {
  Geometry cell;
  cell.name = name;
  for (int corner = 0; corner < 8; ++corner) {
    const auto end = [=](int axis) { return ((corner >> axis) & 1) * (IONS - 1); };
    cell.points.push_back(placeOf(end(0), end(1), end(2)));
  }
  for (const auto& face :
       {std::array{0, 2, 3, 1}, {4, 5, 7, 6}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 4, 6, 2}, {1, 3, 7, 5}}) {
    Geometry::addCell(cell.polys, {face[0], face[1], face[2], face[3]});
  }
  return cell;
}

void addTriad(SceneWriter& scene, const Point& place) {
  scene.begin("coordinatesystem", {{"name", "crystal axes"},
                                   {"version", "1"},
                                   {"visibility", "1"},
                                   {"textColor", "000000ff"},
                                   {"xlabel", "a"},
                                   {"ylabel", "b"},
                                   {"zlabel", "c"}});
  scene.addVector("origin", place);
  scene.addVector("xaxis", {1.0, 0.0, 0.0});
  scene.addVector("yaxis", {0.0, 1.0, 0.0});
  scene.addVector("zaxis", {0.0, 0.0, 1.0});
  scene.end();
}

}  // namespace

SceneWriter makeCrystal() {
  SceneWriter scene;
  scene.beginItem("scene", "Rock salt", {{"background", "ffffffff"}});
  scene.addView({15.0, -30.0, 13.0}, {0.3, 0.0, 0.4}, {0.0, 0.0, 1.0}, false, 5.6);
  scene.addGradient("c3cfddff", "ffffffff", "TOP_BOTTOM");
  scene.addLight(0.9, 35.0, 45.0, "ffffffff");
  scene.beginItem("assembly", "Crystal");
  scene.addColormap("charge", -1.0, 1.0, "Charge", {"58b368ff", "8a5fd0ff"});
  scene.addLegend({0.86, 0.36, 0.0}, {0.12, 0.28, 0.0}, "000000ff",
                  {{"numberOfLabels", "2"}, {"numberFormat", "%+.0f e"}});
  scene.addGeometry(makeBonds(), {{"lineColor", "8a939eff"}, {"lineWidth", "2"}});
  const double smallest = 2.0 * SODIUM_RADIUS;
  const double largest = 2.0 * CHLORIDE_RADIUS;
  Geometry ions = makeIons();
  scene.addScaledPoints(
      ions, "diameter", {smallest, largest}, {SHRINKAGE * smallest, SHRINKAGE * largest},
      {{"ambient", "0.4"}, {"diffuse", "0.6"}, {"specular", "0.4"}, {"specularPower", "30"}});
  scene.addGeometry(
      makeCell("edges"),
      {{"showFaces", "false"}, {"contour", "true"}, {"lineColor", "303846ff"}, {"lineWidth", "3"}});
  scene.addGeometry(makeCell("faces"), {{"faceColor", "5f9fd838"}, {"smoothShading", "false"}});
  addTriad(scene, {-5.9, -1.5, -3.4});
  scene.end();
  scene.addAnnotation(
      "Rock salt: sodium and chloride ions, edge of the cell 5.64 \u00c5", {0.5, 0.97, 0.0}, "000000ff",
      {{"horizontalAlignment", "CENTER"}, {"verticalAlignment", "TOP"}, {"textHeight", "0.045"}});
  scene.end();
  return scene;
}

}  // namespace examples
