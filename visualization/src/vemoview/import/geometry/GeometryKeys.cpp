#include "vemoview/import/geometry/GeometryKeys.h"

#include "vemoview/import/reading/KeyTable.h"

namespace vemo {

const KeyTable<GeometryEntries> GeometryEntries::KEYS({
    key::always<&GeometryEntries::points>("points", "floats, three a point").defaultingTo("required"),
    key::always<&GeometryEntries::verts>("verts",
                                         "vertex cells, as all lists of cells: for each cell the number of "
                                         "its points and their indices, from 0"),
    key::always<&GeometryEntries::lines>("lines", "lines"),
    key::always<&GeometryEntries::strips>("strips", "strips of triangles"),
    key::always<&GeometryEntries::polys>("polys",
                                         "polygons. With polygons or strips the geometry is a surface, else "
                                         "with lines it is lines, else points"),
});

const KeyTable<GeometryArray> GeometryArray::KEYS({
    key::always<&GeometryArray::name>(
        "name",
        "the name of the array; one named `Normals` is not data, and computed normals may replace it"),
    key::always<&GeometryArray::components>(
        COMPONENTS, "the number of values a point or cell; triples are replaced by their lengths"),
    key::always<&GeometryArray::entry>("data", "floats. An array that does not fit is left out")
        .defaultingTo("required"),
    key::always<&GeometryArray::isOfPoints>(
        OF_POINTS,
        "one tuple for each point, or for each cell in the order vertices, lines, polygons, strips"),
});

}  // namespace vemo
