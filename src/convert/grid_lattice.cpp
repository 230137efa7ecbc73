#include "convert/grid_lattice.h"

#include <cmath>

#include "basis/rounding.h"

namespace crownlab {
namespace {

/// One axis of a lattice.
struct Axis {
    double Min = 0;
    double Max = 0;
    double Nodes = 0;
};

double Snapped(double limit, double interval) { return RoundHalfEven(Divide(limit, interval, "interval")) * interval; }

Axis AxisByInterval(double min, double max, double interval) {
    Axis axis{Snapped(min, interval), Snapped(max, interval)};
    axis.Nodes = RoundHalfEven(Divide(std::fabs(axis.Max - axis.Min), interval, "interval") + 1);
    return axis;
}

/// The interval that lays `most` nodes over `range`.
double IntervalOver(double range, double most) {
    constexpr int decimals = 3;
    return RoundDecimals(Divide(range, most - 1, "txtMaxNoRows"), decimals);
}

Axis LongerAxis(double min, double most, double interval) {
    return {min, Finite(min + (most - 1) * interval, "longer side"), RoundHalfEven(most)};
}

Axis ShorterAxis(double min, double range, double interval) {
    const double nodes = RoundHalfEven(Divide(range, interval, "interval"));
    return {min, Finite(min + nodes * interval, "shorter side"), nodes};
}

GridLattice LatticeOf(const Axis& x, const Axis& y) {
    return {.NumCols = x.Nodes,
            .NumRows = static_cast<double>(ToInt16(y.Nodes, "NumRows")),
            .XMin = x.Min,
            .XMax = x.Max,
            .YMin = y.Min,
            .YMax = y.Max};
}

}  // namespace

GridLattice LatticeByIntervals(const PointExtents& extents, double xInterval, double yInterval) {
    return LatticeOf(AxisByInterval(extents.XMin, extents.XMax, xInterval),
                     AxisByInterval(extents.YMin, extents.YMax, yInterval));
}

GridLattice LatticeByLongerSide(const PointExtents& extents, double most) {
    const double xRange = std::fabs(extents.XMax - extents.XMin);
    const double yRange = std::fabs(extents.YMax - extents.YMin);
    if (xRange > yRange) {
        const double interval = IntervalOver(xRange, most);
        return LatticeOf(LongerAxis(extents.XMin, most, interval), ShorterAxis(extents.YMin, yRange, interval));
    }
    const double interval = IntervalOver(yRange, most);
    return LatticeOf(ShorterAxis(extents.XMin, xRange, interval), LongerAxis(extents.YMin, most, interval));
}

}  // namespace crownlab
