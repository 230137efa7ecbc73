#include "mapengine/plane_fit.h"

#include <string>
#include <utility>

#include "mapengine/engine_call.h"
#include "mapengine/node_heights.h"

namespace crownlab {
namespace {

/// Points nearer to one line than this share of their box's longer side fix no plane; closer ones are rounding.
constexpr double kLineShare = 1e-13;

DataPoint Centre(const DataPoints& points) {
    DataPoint sum;
    for (const DataPoint& point : points) {
        sum.X += point.X;
        sum.Y += point.Y;
        sum.Z += point.Z;
    }
    const auto count = static_cast<double>(points.size());
    return {.X = sum.X / count, .Y = sum.Y / count, .Z = sum.Z / count};
}

/// Sum of the products of two coordinates.
double Product(const DataPoints& points, double DataPoint::*a, double DataPoint::*b) {
    double sum = 0;
    for (const DataPoint& point : points) sum += point.*a * point.*b;
    return sum;
}

/// Takes the part along `a` out of `b` and returns its factor.
double TakeOut(DataPoints& points, double DataPoint::*a, double DataPoint::*b) {
    const double factor = Product(points, a, b) / Product(points, a, a);
    for (DataPoint& point : points) point.*b -= factor * (point.*a);
    return factor;
}

/// Slopes of centred points, by modified Gram-Schmidt (A. Björck, "Solving linear least squares problems by
/// Gram-Schmidt orthogonalization", 1967): the longer column first.
FittedPlane Slopes(DataPoints points) {
    auto first = &DataPoint::X;
    auto second = &DataPoint::Y;
    if (Product(points, first, first) < Product(points, second, second)) std::swap(first, second);
    const double between = TakeOut(points, first, second);
    const double along = TakeOut(points, first, &DataPoint::Z);
    const double across = TakeOut(points, second, &DataPoint::Z);
    const double alongFirst = along - between * across;
    if (first == &DataPoint::X) return {.A = 0, .B = across, .C = alongFirst};
    return {.A = 0, .B = alongFirst, .C = across};
}

}  // namespace

FittedPlane FitPlane(const DataPoints& points) {
    if (points.size() < 3) FailCall("a plane needs three points, there are " + std::to_string(points.size()));
    if (AllOnALine(points, kLineShare)) FailCall("a plane needs points that don't all lie on a line");
    const DataPoint centre = Centre(points);
    DataPoints centred = points;
    for (DataPoint& point : centred) {
        point.X -= centre.X;
        point.Y -= centre.Y;
        point.Z -= centre.Z;
    }
    FittedPlane plane = Slopes(std::move(centred));
    plane.A = centre.Z - plane.B * centre.Y - plane.C * centre.X;
    return plane;
}

Grid PlaneGrid(const FittedPlane& plane, const GridGeometry& shape, Progress& progress) {
    Grid grid(shape);
    FillNodes(grid, progress, [&](double x, double y) { return plane.A + plane.B * y + plane.C * x; });
    return grid;
}

}  // namespace crownlab
