#pragma once

#include <cstdint>
#include <string>

namespace crownlab {

/// A height of this much or more is a blank node's or point's.
inline constexpr double kBlankHeightFrom = 1e37;

/// Count and extremes of the points of an x, y, z text. Minima start at 100,000 and maxima at -100,000, so that
/// points wholly beyond these keep them.
struct PointExtents {
    std::uint64_t Count = 0;
    double XMin = 100'000;
    double XMax = -100'000;
    double YMin = 100'000;
    double YMax = -100'000;
    double ZMin = 100'000;  ///< blank heights left out
    double ZMax = -100'000;

    void Take(double x, double y, double z);
};

/// Reads records of x, y, z to the end of the file. InputPastEnd if the last one is short, TypeMismatch for what isn't
/// a number, and what reading a file throws.
PointExtents ReadPointExtents(const std::string& path);

}  // namespace crownlab
