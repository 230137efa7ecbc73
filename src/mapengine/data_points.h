#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace crownlab {

/// A height measured at a place.
struct DataPoint {
    double X = 0;
    double Y = 0;
    double Z = 0;
    friend bool operator==(const DataPoint&, const DataPoint&) = default;
};

/// Scattered heights in the order of their file.
using DataPoints = std::vector<DataPoint>;

/// A height of this much or more was blank where it comes from.
inline constexpr double kNoHeightFrom = 1e37;

/// The points that gridding uses, in their order: without those of no height, without those higher than `above`, and
/// of what remains at equal x and y only the first.
DataPoints PointsToGrid(DataPoints points, std::optional<double> above);

/// The smallest box around points.
struct DataBox {
    double XMin = 0;
    double XMax = 0;
    double YMin = 0;
    double YMax = 0;

    double Width() const { return XMax - XMin; }
    double Height() const { return YMax - YMin; }
    /// The longer of its sides.
    double Side() const { return Width() > Height() ? Width() : Height(); }
};
/// Box of one point at least.
DataBox BoxOf(const DataPoints& points);

/// True if no point is farther off one straight line than `share` of the box's longer side; so for fewer than three.
/// Squares of the coordinates have to be in range.
bool AllOnALine(const DataPoints& points, double share);

}  // namespace crownlab
