#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "formats/point_text.h"
#include "pointcloud/cloud.h"

namespace crownlab {

/// How the bins of a tool are laid.
struct BinLayout {
    int MarginLow = 0;   ///< bins added below the lowest coordinate
    int MarginHigh = 2;  ///< bins added above the floor of the highest
    /// Coordinates and numbers of bins are rounded at 8 decimals before the floor.
    bool Rounded = true;
};
inline constexpr BinLayout kUndercutBins{.MarginLow = 0, .MarginHigh = 2, .Rounded = true};
inline constexpr BinLayout kOutlineBins{.MarginLow = 2, .MarginHigh = 3, .Rounded = false};

/// The plan of bins: squares in x and y, one layer deep, numbered from 1.
struct BinPlan {
    double BinSize = 0;
    double OriginX = 0;  ///< low corner of bin (1, 1)
    double OriginY = 0;
    double NumBinsX = 0;  ///< bins along an axis
    double NumBinsY = 0;
};

/// Lays the plan over a cloud's extents. DivisionByZero for a bin size of 0, SubscriptOutOfRange for one below.
BinPlan LayBins(const CloudExtents& extents, double binSize, const BinLayout& layout);

/// Points by bin. Only occupied bins are kept, row after row from low y, in a row from low x, and the
/// points of a bin in the order of the file; their coordinates lie in three arrays in that order.
class BinGrid {
public:
    struct Bin {
        std::int32_t Row = 0;     ///< by, from 1 to 32767
        std::int64_t Column = 0;  ///< bx, from 1
        std::uint32_t First = 0;  ///< first of its points
    };
    struct Range {
        std::size_t First = 0;
        std::size_t Last = 0;  ///< one behind
    };

    const BinPlan& Plan() const { return plan_; }
    const std::vector<Bin>& Bins() const { return bins_; }
    /// Points of the i-th occupied bin.
    Range PointsOf(std::size_t bin) const;
    /// Points of the bins (columnLow..columnHigh, row); bins off the plan are left out.
    Range PointsIn(std::int64_t columnLow, std::int64_t columnHigh, std::int64_t row) const;
    /// Number of points of a bin; 0 off the plan.
    std::size_t Count(std::int64_t column, std::int64_t row) const;

    std::vector<double> X;
    std::vector<double> Y;
    std::vector<double> Z;

private:
    friend BinGrid FillBins(const PointCloud&, const CloudExtents&, double, double, const BinLayout&);
    std::size_t FirstBinAtOrAfter(std::int64_t column, std::int64_t row) const;

    BinPlan plan_;
    std::vector<Bin> bins_;
    std::vector<std::uint32_t> rowStart_;  ///< first bin of each row from 0 to the last, and one more
    /// Where the points of every bin of the plan end, rows of width_ from column 0; empty for a plan that is
    /// wide beside its cloud, where bins are searched for.
    std::vector<std::uint32_t> ends_;
    std::size_t width_ = 0;
};

/// Lays and fills the bins. A bin holds 20 points at first; when one runs full all hold 20 more, and if
/// then (capacity - 1) NumBinsX NumBinsY is above 5,000,000, the filling starts again with bins larger by
/// half of `sizeInBox`.
///
/// Throws Overflow for a point beyond row 32767 and for a capacity beyond 16 bits, SubscriptOutOfRange for
/// a point off the plan, OutOfMemory.
BinGrid FillBins(const PointCloud& cloud, const CloudExtents& extents, double binSize, double sizeInBox,
                 const BinLayout& layout);

}  // namespace crownlab
