#include "vemoview/resolve/mesh/DrawnArea.h"

#include "geometry/Bounds.h"
#include "geometry/Cells.h"
#include "geometry/Points.h"
#include "vemoview/resolve/canvas/LayerCount.h"
#include "vemoview/resolve/canvas/ShownShapes.h"
#include "vemoview/resolve/decorations/ImageResolver.h"
#include "vemoview/resolve/drawables/InstanceBounds.h"
#include "vemoview/resolve/mesh/DrawingLoad.h"
#include "vemoview/resolve/values/NodeFindings.h"
#include <vemo/resolve/SceneTooLarge.h>
#include <vemo/resolve/UsualPicture.h>
#include <vemo/scenegraph/drawables/Drawable.h>
#include <vemo/scenegraph/drawables/PolyDataNode.h>

#include <vtkCellArray.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <variant>

namespace vemo {

namespace {

using Kind = Appearance::Kind;
using Place = PictureSamples::Place;

constexpr double PIXELS = 1.0 * USUAL_WIDTH * USUAL_HEIGHT;

/// Calls visit(corner, corner, corner) for the triangles of all faces.
template <class Visit>
void forEachTriangleOf(vtkPolyData& geometry, const Visit& visit) {
  forEachFace(geometry, [&visit](const auto& corners) {
    for (std::size_t i = 2; i < corners.size(); ++i) {
      visit(corners[0], corners[i - 1], corners[i]);
    }
  });
}

/// Calls visit(from, to) for all lines, and for the edges of all faces.
template <class Visit>
void forEachSegment(vtkPolyData& geometry, const Visit& visit) {
  forEachCell(*geometry.GetLines(), [&visit](const auto& corners) {
    for (std::size_t i = 1; i < corners.size(); ++i) {
      visit(corners[i - 1], corners[i]);
    }
  });
  forEachFace(geometry, [&visit](const auto& corners) {
    for (std::size_t i = 0; i < corners.size(); ++i) {
      visit(corners[i], corners[(i + 1) % corners.size()]);
    }
  });
}

/// Of corners beyond as many as the first ones of each cell.
double countCorners(vtkCellArray& cells, double first) {
  return static_cast<double>(cells.GetNumberOfConnectivityIds()) -
         first * static_cast<double>(cells.GetNumberOfCells());
}

/// At least as many as there are triangles, lines or points.
double countShapes(Kind kind, vtkPolyData& geometry) {
  switch (kind) {
    case Kind::SURFACE:
      return countCorners(*geometry.GetPolys(), 2.0) + countCorners(*geometry.GetStrips(), 2.0);
    case Kind::LINES:
      return countCorners(*geometry.GetLines(), 1.0) + countCorners(*geometry.GetPolys(), 0.0) +
             3.0 * countCorners(*geometry.GetStrips(), 2.0);
    case Kind::POINTS:
      break;
  }
  return countCorners(*geometry.GetVerts(), 0.0);
}

double countInstances(const MeshInstance& mesh) {
  return mesh.transforms != nullptr ? static_cast<double>(mesh.transforms->size()) : 1.0;
}

/// By how much a transform enlarges areas at most.
double greatestEnlargement(const InstanceTransform* transform) {
  if (transform == nullptr) {
    return 1.0;
  }
  double squares = 0.0;
  for (const std::size_t row : {std::size_t{0}, std::size_t{4}, std::size_t{8}}) {
    const Vector3 axis{(*transform)[row], (*transform)[row + 1], (*transform)[row + 2]};
    squares += axis.squaredLength();
  }
  return squares / 2.0;
}

double coverOfPoint(double pixels) {
  return std::min(1.0, pixels * pixels / PIXELS);
}

double coverOfLine(double pixels, double width) {
  return std::min(1.0, pixels * width / PIXELS);
}

bool isTranslucent(const ImageDecoration& image) {
  const int components = image.pixels->GetNumberOfComponents();
  return image.isInModel && (image.opacity < 1.0 || components == 2 || components == 4);
}

/// Of an image in the window, as a part of the canvas.
double coverOfWindowImage(const ImageDecoration& image) {
  double area = 1.0;
  for (std::size_t i = 0; i < 2; ++i) {
    const double ends[] = {0.0, image.xAxis[i], image.yAxis[i], image.xAxis[i] + image.yAxis[i]};
    const auto [low, high] = std::ranges::minmax(ends);
    const double shown = std::min(image.corner[i] + high, 1.0) - std::max(image.corner[i] + low, 0.0);
    area *= std::clamp(shown, 0.0, 1.0);
  }
  return area;
}

/// Of so many shapes, any of which may be behind each other.
Cover mostOfShapes(double greatest, double count, bool areTranslucent) {
  Cover cover;
  cover.add(greatest * count, areTranslucent);
  if (areTranslucent) {
    cover.layeredShapes = count;
    cover.layers = count;
  }
  return cover;
}

}  // namespace

double Cover::drawn() const {
  const double times = std::clamp(layers, 1.0, 1.0 * AreaLimits::MOST_LAYERS);
  return opaque + times * (translucent + AreaLimits::PICTURES_PER_LAYERED_SHAPE * layeredShapes);
}

Cover& Cover::operator+=(const Cover& other) {
  opaque += other.opaque;
  translucent += other.translucent;
  layeredShapes += other.layeredShapes;
  layers += other.layers;
  return *this;
}

Cover& Cover::operator-=(const Cover& other) {
  return *this += {-other.opaque, -other.translucent, -other.layeredShapes, -other.layers};
}

/// A view in which shapes cover parts of the picture.
class DrawnArea::View {
 public:
  View(const UsualCanvas& canvas, const Vector<2, double>& size, std::span<const ClipPlane> clipPlanes)
      : _canvas(canvas),
        _size(size),
        _clipPlanes(clipPlanes),
        _layers(canvas.samples, AreaLimits::MOST_LAYERS) {}

  /// Of the translucent shapes that were looked at.
  double layers() const { return _layers.getMost(); }

  /// Of faces in a box that have some area together.
  double mostOfFaces(double area, const Box& box) const {
    return share() * area * _canvas.view.greatestCover(box, _canvas.nearest);
  }

  bool misses(const Box& box) const { return _canvas.view.misses(box); }

  /// Of a mesh; stops when it is more than a limit.
  double coverOf(const MeshInstance& mesh, const Part& part, const InstanceTransform* transform,
                 double limit) {
    const PointReader points(*part.geometry->GetPoints()->GetData());
    Looks shapes = looksAt(mesh.appearance.isClipped, part.isTranslucent);
    const auto at = [&](vtkIdType point) { return transformedPoint(transform, points[point]); };
    double sum = 0.0;
    const auto add = [&](const auto& cover, const auto... corners) {
      sum += sum > limit ? 0.0 : cover(at(corners)...);
    };
    switch (part.kind) {
      case Kind::SURFACE:
        forEachTriangleOf(*part.geometry, [&](auto a, auto b, auto c) {
          add([&](const auto&... corners) { return coverOfFace(shapes, {corners...}); }, a, b, c);
        });
        break;
      case Kind::LINES:
        forEachSegment(*part.geometry, [&](auto from, auto to) {
          add([&](const auto&... ends) { return coverOfLineIn(shapes, {ends...}, mesh.appearance); }, from,
              to);
        });
        break;
      case Kind::POINTS:
        forEachCell(*part.geometry->GetVerts(), [&](const auto& cell) {
          for (const auto point : cell) {
            add([&](const Vector3& place) { return coverOfPointIn(shapes, place, mesh.appearance); }, point);
          }
        });
        break;
    }
    return sum;
  }

  double coverOf(const ImageDecoration& image) {
    if (!image.isInModel) {
      return share() * coverOfWindowImage(image);
    }
    Looks shapes = looksAt(image.isClipped, isTranslucent(image));
    const auto [a, b, c, d] = cornersOf(image);
    return coverOfFace(shapes, {a, b, c, d});
  }

 private:
  /// Of the canvas in the picture.
  double share() const { return _size[0] * _size[1]; }

  /// At shapes of one mesh or image.
  struct Looks {
    ShownShapes shapes;
    bool areTranslucent;
  };

  Looks looksAt(bool isClipped, bool areTranslucent) const {
    return {{_canvas, isClipped ? _clipPlanes : std::span<const ClipPlane>()}, areTranslucent};
  }

  double pixelsOf(std::size_t axis) const {
    return _size[axis] * (axis == 0 ? 1.0 * USUAL_WIDTH : 1.0 * USUAL_HEIGHT);
  }

  /// A line, or a point of which both ends are the same, that is so many pixels wide.
  void addLayer(const Looks& looks, const Place& from, const Place& to, double width) {
    if (!looks.areTranslucent) {
      return;
    }
    const Place along{(to[0] - from[0]) * pixelsOf(0), (to[1] - from[1]) * pixelsOf(1)};
    const double pixels = std::hypot(along[0], along[1]);
    const Place direction = pixels > 0.0 ? 1.0 / pixels * along : Place{1.0, 0.0};
    const Place aside{-direction[1] * width / 2.0 / pixelsOf(0), direction[0] * width / 2.0 / pixelsOf(1)};
    const Place beyond = pixels > 0.0 ? Place{} : Place{width / 2.0 / pixelsOf(0), 0.0};
    const Place corners[] = {from - beyond - aside, to + beyond - aside, to + beyond + aside,
                             from - beyond + aside};
    _layers.add(corners);
  }

  double coverOfFace(Looks& looks, std::initializer_list<Vector3> corners) {
    const std::span<const Place> shown = looks.shapes.shownPart(corners);
    if (looks.areTranslucent) {
      _layers.add(shown);
    }
    return shown.size() < 3 ? 0.0 : share() * std::min(1.0, PictureSamples::areaOf(shown));
  }

  double coverOfLineIn(Looks& looks, std::initializer_list<Vector3> ends, const Appearance& appearance) {
    const std::span<const Place> shown = looks.shapes.shownPart(ends);
    if (shown.size() < 2) {
      return 0.0;
    }
    addLayer(looks, shown.front(), shown.back(), appearance.lineWidth);
    const Place line = shown.back() - shown.front();
    const double pixels = std::hypot(line[0] * pixelsOf(0), line[1] * pixelsOf(1));
    return coverOfLine(pixels, appearance.lineWidth);
  }

  double coverOfPointIn(Looks& looks, const Vector3& place, const Appearance& appearance) {
    const std::span<const Place> shown = looks.shapes.shownPart({place});
    if (shown.empty()) {
      return 0.0;
    }
    const double pixels = pixelsOfPoint(place, appearance);
    addLayer(looks, shown.front(), shown.front(), pixels);
    return coverOfPoint(pixels);
  }

  double pixelsOfPoint(const Vector3& place, const Appearance& appearance) const {
    if (!appearance.isPointSizeInModelUnits) {
      return appearance.pointSize;
    }
    const double perUnit = pixelsOf(1) / _canvas.view.heightAt(_canvas.view.depthOf(place));
    return std::min(MAX_POINT_PIXELS, appearance.pointSize * perUnit);
  }

  const UsualCanvas& _canvas;
  Vector<2, double> _size;
  std::span<const ClipPlane> _clipPlanes;
  LayerCount _layers;
};

std::vector<DrawnArea::Part> DrawnArea::partsOf(const MeshInstance& mesh) {
  const Appearance& appearance = mesh.appearance;
  const double ofLine = coverOfLine(USUAL_WIDTH + USUAL_HEIGHT, appearance.lineWidth);
  const bool areTranslucent = isTranslucent(mesh);
  if (appearance.kind == Kind::POINTS) {
    const double pixels = appearance.isPointSizeInModelUnits ? MAX_POINT_PIXELS : appearance.pointSize;
    return {{Kind::POINTS, mesh.geometry, areTranslucent, coverOfPoint(pixels)}};
  }
  if (appearance.kind == Kind::LINES) {
    return {{Kind::LINES, mesh.geometry, areTranslucent, ofLine}};
  }
  std::vector<Part> parts;
  if (appearance.hasFaces && appearance.opacity > 0.0) {
    vtkPolyData* const faces = mesh.filling != nullptr ? mesh.filling : mesh.geometry;
    parts.push_back({Kind::SURFACE, faces, areTranslucent, 1.0});
  }
  if (appearance.hasEdges || appearance.hasContour) {
    parts.push_back({Kind::LINES, mesh.geometry, hasTranslucentEdges(mesh), ofLine});
  }
  return parts;
}

DrawnArea::DrawnArea(std::span<const MeshInstance> meshes, std::span<const Decoration> decorations)
    : _meshes(meshes), _decorations(decorations) {
  ContentCount content;
  for (const MeshInstance& mesh : _meshes) {
    _limit += AreaLimits::PICTURES_PER_ELEMENT * static_cast<double>(content.add(*mesh.node));
  }
}

/// Of all its shapes, drawn so many times.
Cover DrawnArea::mostOf(const Part& part, double times) {
  return mostOfShapes(part.greatest, countShapes(part.kind, *part.geometry) * times, part.isTranslucent);
}

bool DrawnArea::isSmall() const {
  Cover cover;
  for (const MeshInstance& mesh : _meshes) {
    for (const Part& part : partsOf(mesh)) {
      cover += mostOf(part, countInstances(mesh));
    }
  }
  for (const Decoration& decoration : _decorations) {
    if (const auto* const image = std::get_if<ImageDecoration>(&decoration.content)) {
      cover += mostOfShapes(1.0, 1.0, isTranslucent(*image));
    }
  }
  return cover.drawn() <= _limit;
}

const DrawnArea::Extent& DrawnArea::extentOf(vtkPolyData& geometry) {
  const auto [known, isNew] = _extents.try_emplace(&geometry);
  Extent& extent = known->second;
  if (isNew) {
    extent.bounds = boundsOfCells(geometry);
    PointReader(*geometry.GetPoints()->GetData()).visit([&](const auto& points) {
      double doubled = 0.0;
      forEachTriangleOf(geometry, [&](auto a, auto b, auto c) {
        const Vector3 from = points[a];
        doubled += length(cross(points[b] - from, points[c] - from));
      });
      extent.area = doubled / 2.0;
    });
  }
  return extent;
}

Box DrawnArea::bounds() {
  Box result;
  for (const MeshInstance& mesh : _meshes) {
    const Box& box = extentOf(*mesh.geometry).bounds;
    forEachInstance(mesh.transforms,
                    [&](const InstanceTransform* transform) { result.add(instanceBounds(transform, box)); });
  }
  for (const Decoration& decoration : _decorations) {
    const auto* const image = std::get_if<ImageDecoration>(&decoration.content);
    if (image != nullptr && image->isInModel) {
      std::ranges::for_each(cornersOf(*image), [&result](const Vector3& corner) { result.add(corner); });
    }
  }
  return result;
}

/// Without a look at single shapes.
Cover DrawnArea::mostOf(const Part& part, const InstanceTransform* transform, const View& view) {
  const Extent& extent = extentOf(*part.geometry);
  const Box box = instanceBounds(transform, extent.bounds);
  if (view.misses(box)) {
    return {};
  }
  Cover most = mostOf(part, 1.0);
  if (part.kind == Kind::SURFACE) {
    double& area = part.isTranslucent ? most.translucent : most.opaque;
    area = std::min(area, view.mostOfFaces(extent.area * greatestEnlargement(transform), box));
  }
  return most;
}

Cover DrawnArea::mostOf(const View& view) {
  Cover cover;
  for (const MeshInstance& mesh : _meshes) {
    for (const Part& part : partsOf(mesh)) {
      forEachInstance(mesh.transforms,
                      [&](const InstanceTransform* transform) { cover += mostOf(part, transform, view); });
    }
  }
  return cover;
}

void DrawnArea::requireDrawn(const Cover& cover, const std::string& example) const {
  if (cover.drawn() > _limit) {
    throw SceneTooLarge(fmt::format(
        "The scene is too large to be drawn: its faces, lines, points and images would cover the picture "
        "more than {:.0f} times, those of \"{}\" among them",
        _limit, example));
  }
}

void DrawnArea::requireDrawn(const UsualCanvas& canvas, const Vector<2, double>& size,
                             std::span<const ClipPlane> clipPlanes) {
  View view(canvas, size, clipPlanes);
  Cover known;
  for (const Decoration& decoration : _decorations) {
    if (const auto* const image = std::get_if<ImageDecoration>(&decoration.content)) {
      known.add(view.coverOf(*image), isTranslucent(*image));
      known.layers = view.layers();
      requireDrawn(known, itemNameOf(*decoration.drawable));
    }
  }
  // Of all that was not looked at yet.
  Cover rest = mostOf(view);
  const auto mayBeTooLarge = [&] {
    Cover most = known;
    return (most += rest).drawn() > _limit;
  };
  for (const MeshInstance& mesh : _meshes) {
    for (const Part& part : partsOf(mesh)) {
      forEachInstance(mesh.transforms, [&](const InstanceTransform* transform) {
        if (!mayBeTooLarge()) {
          return;
        }
        const Cover most = mostOf(part, transform, view);
        if (most.drawn() > 0.0) {
          rest -= most;
          known.add(view.coverOf(mesh, part, transform, _limit), part.isTranslucent);
          known.layeredShapes += most.layeredShapes;
          known.layers = view.layers();
        }
        requireDrawn(known, itemNameOf(*mesh.node));
      });
    }
  }
}

}  // namespace vemo
