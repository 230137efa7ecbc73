#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "formats/point_text.h"

namespace crownlab {

/// How the search for one point's nearest neighbour ended.
struct ThicknessSearch {
    std::size_t Point = 0;  ///< place in the first cloud, from 0
    CloudPoint At;
    double FaceX = 0;  ///< distance to the nearer of the search box's two faces across x
    double FaceY = 0;
    double FaceZ = 0;
    double Nearest = 0;           ///< distance to the nearest point of the second cloud
    std::int64_t ShellReach = 0;  ///< bins by which the search box reaches beyond the point's own
    friend bool operator==(const ThicknessSearch&, const ThicknessSearch&) = default;
};

/// For each point of `cloudA` the exact distance to the nearest point of `cloudB`, in the order of `cloudA`.
///
/// Space is laid out in cubic bins of side `boxSize` over both clouds. The search box of a point is its own bin
/// at first and is widened by a shell of bins on all sides until a point of `cloudB` was found in it and none of
/// its faces is nearer than that. `accepted` is told how each search ended, in the order of bins (z outermost,
/// x innermost) and within a bin in the order of the file.
///
/// Throws DivisionByZero for a bin size of 0, SubscriptOutOfRange for one below, for an empty cloud and for a point
/// off the bins (which rounding can bring about at a bin's border); Overflow for more than 32767 points in
/// `cloudB`, a bin beyond 32767 in z, more than 32765 points in one bin (its capacity is 16-bit and grows from 100 by
/// 5), a nearest distance of 1,000,000 or more, and for bins so small that their numbers aren't whole any more (some
/// 10^15 of them from 0 to a coordinate). Cost: a tree search a point, whatever the size of the bins.
std::vector<double> EnamelThickness(const PointCloud& cloudA, const PointCloud& cloudB, double boxSize,
                                    const std::function<void(const ThicknessSearch&)>& accepted);

}  // namespace crownlab
