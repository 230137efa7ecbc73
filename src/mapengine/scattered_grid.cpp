#include "mapengine/scattered_grid.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "basis/rounding.h"
#include "mapengine/engine_call.h"
#include "mapengine/inverse_distance.h"
#include "mapengine/kriging.h"
#include "mapengine/triangulation_grid.h"

namespace crownlab {
namespace {

/// Nodes along the longer side of a grid for which no count is asked.
constexpr int kNodesAlongLongerSide = 100;

/// Nodes along a side in proportion to the longer one.
int DefaultNodes(double side, double longer) {
    const double intervals = RoundHalfEven((kNodesAlongLongerSide - 1) * (side / longer));
    return std::max(static_cast<int>(intervals) + 1, 2);
}

/// A power of two by which places are multiplied before distances are squared; 1 unless their squares would leave the
/// range of 64-bit floats. All methods but the plane's slopes are free of scale.
double PlaceFactor(const DataPoints& points, const GridGeometry& shape) {
    constexpr double large = 0x1p300;
    constexpr double small = 0x1p-300;
    double ofPoints = 0;
    for (const DataPoint& point : points) ofPoints = std::max({ofPoints, std::fabs(point.X), std::fabs(point.Y)});
    if (ofPoints > large) return std::ldexp(1.0, -std::ilogb(ofPoints));
    const double ofAll = std::max(
        {ofPoints, std::fabs(shape.XMin), std::fabs(shape.XMax), std::fabs(shape.YMin), std::fabs(shape.YMax)});
    // The factor that the very smallest numbers need is beyond the largest one.
    return ofAll < small ? std::ldexp(1.0, std::min(-std::ilogb(ofAll), 1000)) : 1;
}

void MultiplyPlaces(double factor, DataPoints& points, GridGeometry& shape) {
    for (DataPoint& point : points) {
        point.X *= factor;
        point.Y *= factor;
    }
    shape.XMin *= factor;
    shape.XMax *= factor;
    shape.YMin *= factor;
    shape.YMax *= factor;
}

ScatteredGrid GridPlane(const DataPoints& points, const GridGeometry& shape, Progress& progress) {
    const FittedPlane plane = FitPlane(points);
    return {.Heights = PlaneGrid(plane, shape, progress), .Plane = plane};
}

ScatteredGrid RunMethod(GriddingMethod method, const DataPoints& points, const GridGeometry& shape,
                        Progress& progress) {
    switch (method) {
        case GriddingMethod::InverseDistance:
            return {.Heights = InverseDistanceGrid(points, shape, progress), .Plane = {}};
        case GriddingMethod::Kriging: return {.Heights = KrigingGrid(points, shape, progress), .Plane = {}};
        case GriddingMethod::Triangulation: return {.Heights = TriangulationGrid(points, shape, progress), .Plane = {}};
        case GriddingMethod::Plane: break;
    }
    return GridPlane(points, shape, progress);
}

bool IsFinite(const FittedPlane& plane) {
    return std::isfinite(plane.A) && std::isfinite(plane.B) && std::isfinite(plane.C);
}

/// Grids by places whose squares are in range.
ScatteredGrid GridInRange(GriddingMethod method, const DataPoints& points, const GridGeometry& shape,
                          Progress& progress) {
    const double factor = PlaceFactor(points, shape);
    if (factor == 1) return RunMethod(method, points, shape, progress);
    DataPoints near = points;
    GridGeometry nearShape = shape;
    MultiplyPlaces(factor, near, nearShape);
    ScatteredGrid result = RunMethod(method, near, nearShape, progress);
    result.Heights.Shape = shape;
    if (result.Plane) {
        result.Plane->B *= factor;
        result.Plane->C *= factor;
    }
    return result;
}

}  // namespace

GridGeometry GeometryFor(const WantedGeometry& wanted, const DataPoints& points) {
    const DataBox box = BoxOf(points);
    GridGeometry shape{.Columns = 2,
                       .Rows = 2,
                       .XMin = wanted.XMin.value_or(box.XMin),
                       .XMax = wanted.XMax.value_or(box.XMax),
                       .YMin = wanted.YMin.value_or(box.YMin),
                       .YMax = wanted.YMax.value_or(box.YMax)};
    RequireGeometry(shape);
    const double width = shape.XMax - shape.XMin;
    const double height = shape.YMax - shape.YMin;
    const double longer = std::max(width, height);
    shape.Columns = wanted.Columns.value_or(DefaultNodes(width, longer));
    shape.Rows = wanted.Rows.value_or(DefaultNodes(height, longer));
    RequireGeometry(shape);
    return shape;
}

ScatteredGrid GridPoints(GriddingMethod method, const DataPoints& points, const GridGeometry& shape,
                         Progress& progress) {
    ScatteredGrid result = GridInRange(method, points, shape, progress);
    if (result.Plane && !IsFinite(*result.Plane)) FailCall("the plane is beyond 64-bit floats");
    return result;
}

}  // namespace crownlab
