#include "pointcloud/bin_grid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>
#include <string>
#include <utility>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

constexpr int kCapacityStep = 20;
/// Bins the tools allow themselves, counted as capacity less one by columns by rows.
constexpr double kMostBinPlaces = 5000000;
constexpr int kRoundedDecimals = 8;
/// Bin keys are row and column in 64 bits.
constexpr int kColumnBits = 47;

/// Largest whole number not above `value`, which is within 64 bits; without a call for each point.
std::int64_t Floor(double value) {
    const auto whole = static_cast<std::int64_t>(value);
    return whole - (static_cast<double>(whole) > value);
}

double Rounded(double value, const BinLayout& layout) {
    return layout.Rounded ? RoundDecimals(value, kRoundedDecimals) : value;
}

std::int64_t BinNumber(double coordinate, double origin, double size, const BinLayout& layout) {
    constexpr double limit = static_cast<double>(std::int64_t{1} << kColumnBits);
    const double steps = Rounded(coordinate - origin, layout) / size;
    if (!(steps < limit && steps > -limit)) throw Failure(FailureKind::Overflow, "bin number");
    return Floor(steps) + 1;
}

/// One axis of a plan.
struct Axis {
    double Origin = 0;
    double NumBins = 0;
};

Axis LayAxis(double low, double high, double size, const BinLayout& layout) {
    Axis axis;
    axis.Origin = size * std::floor(Divide(low, size, "BinSize")) - layout.MarginLow * size;
    // The high corner is reckoned in the same terms as the low one, so that both have the same rounding.
    const double limit = layout.Rounded ? size * (std::floor(high / size) + layout.MarginHigh)
                                        : size * (std::floor(high / size) + 1) + (layout.MarginHigh - 1) * size;
    axis.NumBins = Rounded(std::fabs(axis.Origin - limit) / size, layout);
    Finite(axis.NumBins, "NumBinsX");
    return axis;
}

/// Row and column of a bin in one number that sorts like them.
using BinKey = std::uint64_t;

BinKey KeyOf(std::int64_t column, std::int64_t row) {
    return (static_cast<BinKey>(row) << kColumnBits) | static_cast<BinKey>(column);
}
std::int64_t ColumnOf(BinKey key) { return static_cast<std::int64_t>(key & ((BinKey{1} << kColumnBits) - 1)); }
std::int64_t RowOf(BinKey key) { return static_cast<std::int64_t>(key >> kColumnBits); }

/// Running counts of bins: an array over the whole plan where that is small beside the cloud, else a table
/// of the bins met.
class BinCounts {
public:
    BinCounts(const BinPlan& plan, std::size_t points)
        : columns_(static_cast<std::size_t>(std::min(plan.NumBinsX + 2, 1e15))) {
        const double places = (plan.NumBinsX + 2) * (plan.NumBinsY + 2);
        dense_ = places <= std::max(1e6, 4.0 * static_cast<double>(points));
        if (dense_) {
            counts_.assign(static_cast<std::size_t>(places) + columns_, 0);
        } else {
            std::size_t size = 16;
            while (size < 2 * points) size *= 2;
            RequireMemory(size * (sizeof(BinKey) + sizeof(std::uint32_t)), "BinCount");
            keys_.assign(size, 0);
            counts_.assign(size, 0);
        }
    }

    bool Dense() const { return dense_; }
    std::uint32_t& Of(BinKey key) { return counts_[dense_ ? DensePlace(key) : TablePlace(key)]; }
    std::size_t DensePlace(BinKey key) const {
        return static_cast<std::size_t>(RowOf(key)) * columns_ + static_cast<std::size_t>(ColumnOf(key));
    }
    std::vector<std::uint32_t>& Counts() { return counts_; }
    std::size_t Columns() const { return columns_; }

private:
    std::size_t TablePlace(BinKey key) {
        const std::size_t mask = keys_.size() - 1;
        std::size_t at = static_cast<std::size_t>((key * 0x9E3779B97F4A7C15u) >> 17) & mask;
        while (keys_[at] != 0 && keys_[at] != key) at = (at + 1) & mask;
        keys_[at] = key;  // no key is 0: rows and columns start at 1
        return at;
    }

    std::size_t columns_;
    bool dense_ = true;
    std::vector<std::uint32_t> counts_;
    std::vector<BinKey> keys_;
};

/// Keys of all points in file order. Nothing if a bin ran full and larger bins are wanted.
std::optional<std::vector<BinKey>> KeysOf(const PointCloud& cloud, const BinPlan& plan, const BinLayout& layout,
                                          BinCounts& counts) {
    constexpr int lastRow = std::numeric_limits<std::int16_t>::max();
    RequireMemory(cloud.size() * sizeof(BinKey), "BinPoints");
    std::vector<BinKey> keys;
    keys.reserve(cloud.size());
    HintLargePages(keys.data(), cloud.size() * sizeof(BinKey));
    const double columns = RoundHalfEven(plan.NumBinsX);
    const double rows = RoundHalfEven(plan.NumBinsY);
    std::uint32_t capacity = kCapacityStep;
    for (const CloudPoint& p : cloud) {
        const std::int64_t column = BinNumber(p.x, plan.OriginX, plan.BinSize, layout);
        const std::int64_t row = BinNumber(p.y, plan.OriginY, plan.BinSize, layout);
        if (row > lastRow) throw Failure(FailureKind::Overflow, "bin row of a point");
        if (column < 1 || row < 1 || static_cast<double>(column) > columns || static_cast<double>(row) > rows) {
            throw Failure(FailureKind::SubscriptOutOfRange, "BinCount");
        }
        keys.push_back(KeyOf(column, row));
        std::uint32_t& count = counts.Of(keys.back());
        if (count == capacity) {
            capacity += kCapacityStep;
            if (capacity > static_cast<std::uint32_t>(std::numeric_limits<std::int16_t>::max())) {
                throw Failure(FailureKind::Overflow, "BinCapacity");
            }
            if ((capacity - 1.0) * plan.NumBinsX * plan.NumBinsY > kMostBinPlaces) return std::nullopt;
        }
        ++count;
    }
    return keys;
}

/// The places of the points in the order of the bins, file order within a bin, as a counted fill. The
/// counts become the ends of the bins.
std::vector<std::uint32_t> OrderByCounts(const std::vector<BinKey>& keys, BinCounts& counts) {
    std::uint32_t start = 0;
    for (std::uint32_t& count : counts.Counts()) start += std::exchange(count, start);
    std::vector<std::uint32_t> order(keys.size());
    for (std::size_t i = 0; i < keys.size(); ++i)
        order[counts.Counts()[counts.DensePlace(keys[i])]++] = static_cast<std::uint32_t>(i);
    return order;
}

/// The same where the plan is too wide for an array.
std::vector<std::uint32_t> OrderBySorting(const std::vector<BinKey>& keys) {
    std::vector<std::uint32_t> order(keys.size());
    std::iota(order.begin(), order.end(), 0u);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) { return keys[a] < keys[b]; });
    return order;
}

std::vector<BinGrid::Bin> OccupiedBins(const std::vector<BinKey>& keys, const std::vector<std::uint32_t>& order) {
    std::vector<BinGrid::Bin> bins;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const BinKey key = keys[order[i]];
        if (i > 0 && key == keys[order[i - 1]]) continue;
        bins.push_back({static_cast<std::int32_t>(RowOf(key)), ColumnOf(key), static_cast<std::uint32_t>(i)});
    }
    return bins;
}

}  // namespace

BinPlan LayBins(const CloudExtents& extents, double binSize, const BinLayout& layout) {
    if (binSize < 0) throw Failure(FailureKind::SubscriptOutOfRange, "BinSize below 0");
    const Axis x = LayAxis(extents.XMin, extents.XMax, binSize, layout);
    const Axis y = LayAxis(extents.YMin, extents.YMax, binSize, layout);
    return {.BinSize = binSize, .OriginX = x.Origin, .OriginY = y.Origin, .NumBinsX = x.NumBins, .NumBinsY = y.NumBins};
}

BinGrid FillBins(const PointCloud& cloud, const CloudExtents& extents, double binSize, double sizeInBox,
                 const BinLayout& layout) {
    BinGrid grid;
    while (true) {
        grid.plan_ = LayBins(extents, binSize, layout);
        BinCounts counts(grid.plan_, cloud.size());
        const std::optional<std::vector<BinKey>> keys = KeysOf(cloud, grid.plan_, layout, counts);
        if (!keys) {
            const double larger = binSize + 0.5 * sizeInBox;
            if (!(larger > binSize)) throw Failure(FailureKind::InvalidCall, "bins that can't grow");
            binSize = larger;
            continue;
        }
        const std::vector<std::uint32_t> order = counts.Dense() ? OrderByCounts(*keys, counts) : OrderBySorting(*keys);
        grid.bins_ = OccupiedBins(*keys, order);
        RequireMemory(cloud.size() * 3 * sizeof(double), "BinPoints");
        for (std::vector<double>* const values : {&grid.X, &grid.Y, &grid.Z}) {
            values->reserve(cloud.size());
            HintLargePages(values->data(), cloud.size() * sizeof(double));
        }
        for (const std::uint32_t i : order) {
            grid.X.push_back(cloud[i].x);
            grid.Y.push_back(cloud[i].y);
            grid.Z.push_back(cloud[i].z);
        }
        if (counts.Dense()) {
            grid.ends_ = std::move(counts.Counts());
            grid.width_ = counts.Columns();
        }
        const int lastRow = grid.bins_.empty() ? 0 : grid.bins_.back().Row;
        grid.rowStart_.assign(static_cast<std::size_t>(lastRow) + 2, 0);
        for (const BinGrid::Bin& bin : grid.bins_) ++grid.rowStart_[static_cast<std::size_t>(bin.Row) + 1];
        std::partial_sum(grid.rowStart_.begin(), grid.rowStart_.end(), grid.rowStart_.begin());
        return grid;
    }
}

BinGrid::Range BinGrid::PointsOf(std::size_t bin) const {
    return {bins_[bin].First, bin + 1 < bins_.size() ? bins_[bin + 1].First : X.size()};
}

/// Index of the first occupied bin of the row with that column or a higher one.
std::size_t BinGrid::FirstBinAtOrAfter(std::int64_t column, std::int64_t row) const {
    const auto first = bins_.begin() + rowStart_[static_cast<std::size_t>(row)];
    const auto last = bins_.begin() + rowStart_[static_cast<std::size_t>(row) + 1];
    const auto found =
        std::lower_bound(first, last, column, [](const Bin& bin, std::int64_t c) { return bin.Column < c; });
    return static_cast<std::size_t>(found - bins_.begin());
}

BinGrid::Range BinGrid::PointsIn(std::int64_t columnLow, std::int64_t columnHigh, std::int64_t row) const {
    if (row < 1 || row + 1 >= static_cast<std::int64_t>(rowStart_.size()) || columnHigh < columnLow) return {};
    if (!ends_.empty()) {
        const auto last = static_cast<std::int64_t>(width_) - 1;
        if (columnHigh < 1 || columnLow > last) return {};
        const std::uint32_t* const ends = &ends_[static_cast<std::size_t>(row) * width_];
        // Column 0 holds nothing, so its end is where column 1 begins.
        return {ends[std::max<std::int64_t>(columnLow, 1) - 1], ends[std::min(columnHigh, last)]};
    }
    const auto pointAt = [this](std::size_t bin) -> std::size_t {
        return bin < bins_.size() ? bins_[bin].First : X.size();
    };
    return {pointAt(FirstBinAtOrAfter(columnLow, row)), pointAt(FirstBinAtOrAfter(columnHigh + 1, row))};
}

std::size_t BinGrid::Count(std::int64_t column, std::int64_t row) const {
    const Range range = PointsIn(column, column, row);
    return range.Last - range.First;
}

}  // namespace crownlab
