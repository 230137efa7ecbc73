#pragma once

#include <cstdint>
#include <vector>

#include "formats/point_text.h"
#include "pointcloud/cloud.h"

namespace crownlab {

/// Number of a cubic bin along the three axes, from 1.
struct Box {
    std::int64_t X = 0;
    std::int64_t Y = 0;
    std::int64_t Z = 0;
    friend bool operator==(const Box&, const Box&) = default;
};

/// One axis of the bins.
struct BoxAxis {
    double Origin = 0;  ///< low corner of bin 1
    std::int64_t Count = 0;
};

/// Cubic bins over two clouds. Only the numbers of bins are kept, not the bins, so that there may be any number.
struct BoxGrid {
    double BoxSize = 0;
    BoxAxis X;
    BoxAxis Y;
    BoxAxis Z;
};

/// Lays bins over the extents of both clouds. DivisionByZero for a size of 0; SubscriptOutOfRange for one below;
/// Overflow where bin numbers wouldn't be whole.
BoxGrid LayBoxes(const CloudExtents& a, const CloudExtents& b, double boxSize);

/// The bins of all points. Overflow beyond 32767 in z, SubscriptOutOfRange off the grid.
std::vector<Box> BoxesOf(const PointCloud& cloud, const BoxGrid& grid);

/// Points by bin, z outermost and x innermost, those of one bin in their order. Overflow if a bin holds more than
/// 32765 of them: its capacity is 16-bit and grows from 100 in steps of 5.
std::vector<std::uint32_t> OrderByBox(const std::vector<Box>& boxes, const BoxGrid& grid);

}  // namespace crownlab
