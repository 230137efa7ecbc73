#include "mapengine/bilinear_height.h"

#include <algorithm>

#include "mapengine/grid_axis.h"

namespace crownlab {
namespace {

/// A place along an axis: the node before it, and the weight of the next one.
struct AxisPlace {
    int Node = 0;
    double NextWeight = 0;
};

AxisPlace Locate(const GridAxis& axis, double at) {
    AxisPlace place{.Node = axis.IntervalOf(at), .NextWeight = 0};
    const double low = axis.Position(place.Node);
    const double width = axis.Position(place.Node + 1) - low;
    if (width > 0) place.NextWeight = std::clamp((at - low) / width, 0.0, 1.0);
    return place;
}

/// The same place, put on the node that it is within `tolerance` of.
AxisPlace OnNode(const GridAxis& axis, double at, double tolerance) {
    AxisPlace place = Locate(axis, at);
    if (at - axis.Position(place.Node) <= tolerance) place.NextWeight = 0;
    if (axis.Position(place.Node + 1) - at <= tolerance) place.NextWeight = 1;
    return place;
}

/// Blank only if an end that counts is blank.
double Between(double first, double second, double secondWeight) {
    if (secondWeight == 0) return first;
    if (secondWeight == 1) return second;
    if (IsBlank(first) || IsBlank(second)) return kBlankHeight;
    return first + (second - first) * secondWeight;
}

double HeightAt(const Grid& grid, const AxisPlace& x, const AxisPlace& y) {
    const double low = Between(grid.At(x.Node, y.Node), grid.At(x.Node + 1, y.Node), x.NextWeight);
    const double high = Between(grid.At(x.Node, y.Node + 1), grid.At(x.Node + 1, y.Node + 1), x.NextWeight);
    const double z = Between(low, high, y.NextWeight);
    return IsBlank(z) ? kBlankHeight : z;
}

bool IsOn(const GridAxis& axis, double at, double tolerance) {
    return at >= axis.Min() - tolerance && at <= axis.Max() + tolerance;
}

}  // namespace

double BilinearHeight(const Grid& grid, double x, double y) {
    const GridAxis columns(grid.Shape, GridAxis::Direction::X);
    const GridAxis rows(grid.Shape, GridAxis::Direction::Y);
    const double tolerance = grid.Shape.Tolerance();
    if (!IsOn(columns, x, tolerance) || !IsOn(rows, y, tolerance)) return kBlankHeight;
    const double z = HeightAt(grid, Locate(columns, x), Locate(rows, y));
    if (!IsBlank(z)) return z;
    return HeightAt(grid, OnNode(columns, x, tolerance), OnNode(rows, y, tolerance));
}

}  // namespace crownlab
