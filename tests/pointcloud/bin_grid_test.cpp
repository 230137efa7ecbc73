#include "pointcloud/bin_grid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "pointcloud/clouds.h"
#include "pointcloud/literal_bins.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

PointCloud InBinOrder(const BinGrid& grid) {
    PointCloud cloud;
    for (std::size_t i = 0; i < grid.X.size(); ++i) cloud.push_back({grid.X[i], grid.Y[i], grid.Z[i]});
    return cloud;
}

void ExpectSame(const BinGrid& grid, const LiteralBins& literal) {
    EXPECT_EQ(grid.Plan().BinSize, literal.BinSize);
    EXPECT_EQ(grid.Plan().OriginX, literal.OriginX);
    EXPECT_EQ(grid.Plan().OriginY, literal.OriginY);
    EXPECT_EQ(grid.Plan().NumBinsX, literal.NumBinsX);
    EXPECT_EQ(grid.Plan().NumBinsY, literal.NumBinsY);
    PointCloud inOrder;
    std::size_t bin = 0;
    for (int by = 1; by <= literal.BoundY; ++by) {
        for (int bx = 1; bx <= literal.BoundX; ++bx) {
            const int count = literal.Count(bx, by);
            ASSERT_EQ(grid.Count(bx, by), static_cast<std::size_t>(count)) << bx << ' ' << by;
            if (count == 0) continue;
            ASSERT_LT(bin, grid.Bins().size());
            EXPECT_EQ(grid.Bins()[bin].Column, bx);
            EXPECT_EQ(grid.Bins()[bin].Row, by);
            EXPECT_EQ(grid.PointsOf(bin).First, inOrder.size());
            EXPECT_EQ(grid.PointsOf(bin).Last, inOrder.size() + static_cast<std::size_t>(count));
            for (int k = 1; k <= count; ++k) inOrder.push_back(literal.Point(bx, by, k));
            ++bin;
        }
    }
    EXPECT_EQ(bin, grid.Bins().size());
    EXPECT_EQ(InBinOrder(grid), inOrder);
}

/// Every range of three columns, on the plan and around it, holds the points of those bins.
void ExpectRangesFit(const BinGrid& grid, const LiteralBins& literal) {
    for (int by = -1; by <= literal.BoundY + 2; ++by) {
        for (int bx = -1; bx <= literal.BoundX + 2; ++bx) {
            std::size_t count = 0;
            for (int cx = bx - 1; cx <= bx + 1; ++cx) count += static_cast<std::size_t>(literal.CountOrNone(cx, by));
            const BinGrid::Range range = grid.PointsIn(bx - 1, bx + 1, by);
            ASSERT_EQ(range.Last - range.First, count) << bx << ' ' << by;
        }
    }
}

TEST(FillBins, FillsAllFamiliesAsTheTableOfThreeIndices) {
    int restarts = 0;
    for (const NamedCloud& cloud : AllCloudFamilies()) {
        for (const double factor : {0.4, 1.0, 3.0}) {
            SCOPED_TRACE(cloud.Name + ", bins of " + std::to_string(cloud.BinSize * factor));
            const double size = cloud.BinSize * factor;
            for (const bool rounded : {true, false}) {
                const LiteralBins literal = FillLiteralBins(cloud.Points, size, size, rounded);
                const BinGrid grid = FillBins(cloud.Points, FindCloudExtents(cloud.Points), size, size,
                                              rounded ? kUndercutBins : kOutlineBins);
                ExpectSame(grid, literal);
                if (literal.BoundX * literal.BoundY < 5000) ExpectRangesFit(grid, literal);
                restarts += literal.Restarts;
            }
        }
    }
    EXPECT_GT(restarts, 5);  // else no family begins again with larger bins
}

/// A plan that is mostly empty: points far apart, with small bins.
PointCloud Sparse(RandomNumbers& random) {
    PointCloud cloud;
    for (int i = 0; i < 3000; ++i) {
        cloud.push_back(
            {RandomDecimal(random, -5000, 5000), RandomDecimal(random, 0, 600), RandomDecimal(random, 0, 9)});
    }
    return cloud;
}

TEST(FillBins, OrdersWidePlansByRowColumnAndFile) {
    RandomNumbers random;
    const PointCloud cloud = Sparse(random);
    const double size = 0.02;
    const BinGrid grid = FillBins(cloud, FindCloudExtents(cloud), size, size, kUndercutBins);
    EXPECT_GT(grid.Plan().NumBinsX * grid.Plan().NumBinsY, 1e9);
    const auto binOf = [&](const CloudPoint& p) {
        return std::pair(std::floor(LiteralRound(p.y - grid.Plan().OriginY, 8) / size) + 1,
                         std::floor(LiteralRound(p.x - grid.Plan().OriginX, 8) / size) + 1);
    };
    PointCloud sorted = cloud;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](const CloudPoint& a, const CloudPoint& b) { return binOf(a) < binOf(b); });
    ASSERT_EQ(InBinOrder(grid), sorted);
    for (const BinGrid::Bin& bin : grid.Bins()) {
        const auto [row, column] = binOf(sorted[bin.First]);
        ASSERT_EQ(row, bin.Row);
        ASSERT_EQ(column, static_cast<double>(bin.Column));
    }
}

TEST(FillBins, FindsRangesInWidePlans) {
    RandomNumbers random;
    const PointCloud cloud = Sparse(random);
    const BinGrid grid = FillBins(cloud, FindCloudExtents(cloud), 0.02, 0.02, kUndercutBins);
    for (std::size_t b = 0; b < grid.Bins().size(); b += 7) {
        const BinGrid::Bin& bin = grid.Bins()[b];
        std::size_t count = 0;
        for (const BinGrid::Bin& other : grid.Bins()) {
            if (other.Row != bin.Row || other.Column < bin.Column - 500 || other.Column > bin.Column + 900) continue;
            count += grid.Count(other.Column, other.Row);
        }
        const BinGrid::Range range = grid.PointsIn(bin.Column - 500, bin.Column + 900, bin.Row);
        EXPECT_EQ(range.Last - range.First, count);
        EXPECT_LE(range.First, bin.First);
        EXPECT_GT(range.Last, bin.First);
    }
    EXPECT_EQ(grid.Count(-3, 1), 0u);
    EXPECT_EQ(grid.Count(1, 40000), 0u);
    EXPECT_EQ(grid.Count(1, 0), 0u);
}

TEST(LayBins, TakesTheFloorOfNegativeCoordinates) {
    CloudExtents e;
    e.XMin = -0.031;
    e.XMax = 0.031;
    e.YMin = -0.03;
    e.YMax = 0;
    const BinPlan plan = LayBins(e, 0.03, kUndercutBins);
    EXPECT_EQ(plan.OriginX, -0.06);
    EXPECT_EQ(plan.NumBinsX, 5);  // -0.06 to 0.09
    EXPECT_EQ(plan.OriginY, -0.03);
    EXPECT_EQ(plan.NumBinsY, 3);  // -0.03 to 0.06
}

TEST(LayBins, LeavesTwoBinsAroundAnOutline) {
    CloudExtents e;
    e.XMin = 0.5;
    e.XMax = 2.5;
    e.YMin = -1;
    e.YMax = -1;
    const BinPlan plan = LayBins(e, 1, kOutlineBins);
    EXPECT_EQ(plan.OriginX, -2);
    EXPECT_EQ(plan.NumBinsX, 7);
    EXPECT_EQ(plan.OriginY, -3);
    EXPECT_EQ(plan.NumBinsY, 5);
}

TEST(LayBins, RoundsOnlyForUndercuts) {
    CloudExtents e;
    e.XMin = 0.3;
    e.XMax = 0.95;
    e.YMin = 0.3;
    e.YMax = 0.95;
    EXPECT_EQ(LayBins(e, 0.1, kUndercutBins).NumBinsX, 9);
    const double origin = 0.1 * 2 - 2 * 0.1;
    const double limit = 0.1 * 10 + 2 * 0.1;
    EXPECT_EQ(LayBins(e, 0.1, kOutlineBins).NumBinsX, (limit - origin) / 0.1);
    EXPECT_NE(LayBins(e, 0.1, kOutlineBins).NumBinsX, 12);  // 11.999999999999998
}

TEST(LayBins, RefusesBinsOfNoSize) {
    const CloudExtents e = FindCloudExtents({{1, 2, 3}});
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { LayBins(e, 0, kUndercutBins); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { LayBins(e, 0, kOutlineBins); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { LayBins(e, -0.1, kUndercutBins); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { LayBins(e, 5e-324, kUndercutBins); }));
}

PointCloud Stack(int count, const CloudPoint& at) { return PointCloud(static_cast<std::size_t>(count), at); }

TEST(FillBins, HoldsTwentyWithoutATest) {
    // Far too many bins for the limit, but none runs full.
    const PointCloud cloud = Joined(Stack(20, {0, 0, 0}), {{100, 100, 0}});
    EXPECT_EQ(FillBins(cloud, FindCloudExtents(cloud), 0.01, 0.01, kUndercutBins).Plan().BinSize, 0.01);
}

TEST(FillBins, BeginsAgainInStepsOfHalfTheBox) {
    const PointCloud cloud = Joined(Stack(21, {0, 0, 0}), {{10, 10, 0}});
    // With capacity 40: 39 n² must not be above 5,000,000, so n is 358 at most: floor(10 / size) + 2.
    const BinGrid grid = FillBins(cloud, FindCloudExtents(cloud), 0.01, 0.01, kUndercutBins);
    double expected = 0.01;
    while (39 * std::pow(std::floor(10 / expected) + 2, 2) > 5000000) expected += 0.5 * 0.01;
    EXPECT_EQ(grid.Plan().BinSize, expected);
    // The step follows the text box, not the size in hand.
    EXPECT_EQ(FillBins(cloud, FindCloudExtents(cloud), 0.01, 0.2, kUndercutBins).Plan().BinSize, 0.01 + 0.5 * 0.2);
}

TEST(FillBins, TestsTheLimitStrictly) {
    // 2 bins in y (both lie in row 1); 39 x 2 x NumBinsX.
    const auto sizeFor = [](double farX) {
        const PointCloud cloud = Joined(Stack(21, {0, 0, 0}), {{farX, 0, 0}});
        return FillBins(cloud, FindCloudExtents(cloud), 1, 1, kUndercutBins).Plan().BinSize;
    };
    EXPECT_EQ(39.0 * 2 * 64102, 4999956);
    EXPECT_EQ(sizeFor(64100), 1);    // 64,102 bins: 4,999,956
    EXPECT_EQ(sizeFor(64101), 1.5);  // 64,103 bins: 5,000,034
}

TEST(FillBins, KeepsCapacityWithinSixteenBits) {
    const PointCloud fits = Stack(32760, {0, 0, 0});
    EXPECT_EQ(FillBins(fits, FindCloudExtents(fits), 1, 1, kUndercutBins).X.size(), 32760u);
    const PointCloud tooMany = Stack(32761, {0, 0, 0});
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { FillBins(tooMany, FindCloudExtents(tooMany), 1, 1, kUndercutBins); },
        "BinCapacity"));
}

TEST(FillBins, CountsRowsInSixteenBits) {
    const PointCloud fits{{0, 0, 0}, {0, 32766, 0}};
    EXPECT_EQ(FillBins(fits, FindCloudExtents(fits), 1, 1, kUndercutBins).Bins().back().Row, 32767);
    const PointCloud tooHigh{{0, 0, 0}, {0, 32767, 0}};
    EXPECT_TRUE(
        FailsWith(FailureKind::Overflow, [&] { FillBins(tooHigh, FindCloudExtents(tooHigh), 1, 1, kUndercutBins); }));
    // Columns aren't.
    const PointCloud wide{{0, 0, 0}, {900000, 0, 0}};
    EXPECT_EQ(FillBins(wide, FindCloudExtents(wide), 1, 1, kUndercutBins).Bins().back().Column, 900001);
}

TEST(FillBins, RefusesPointsOffThePlan) {
    // The scan of the extents doesn't find what lies beyond 1,000,000.
    const PointCloud far{{2000000, 0, 0}, {1500000, 1, 0}};
    const CloudExtents e = FindCloudExtents(far);
    EXPECT_EQ(FillBins(far, e, 1, 1, kUndercutBins).Bins().back().Row, 2);
    const PointCloud farther{{-2000000, 0, 0}};
    EXPECT_EQ(FillBins(farther, FindCloudExtents(farther), 100, 100, kUndercutBins).X.size(), 1u);
    CloudExtents narrow = e;
    narrow.XMin = 1900000;
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { FillBins(far, narrow, 1, 1, kUndercutBins); }));
}

TEST(FillBins, RoundsBeforeTheFloorForUndercutsOnly) {
    // 0.3 / 0.1 is a hair below 3 in binary; rounded, the point stands on the border and belongs above it.
    const PointCloud cloud{{0, 0, 0}, {0.7, 0.3 - 1e-10, 0}};
    const BinGrid rounded = FillBins(cloud, FindCloudExtents(cloud), 0.1, 0.1, kUndercutBins);
    EXPECT_EQ(rounded.Bins().back().Column, static_cast<std::int64_t>(std::floor(0.7 / 0.1)) + 1);
    EXPECT_EQ(rounded.Bins().back().Row, static_cast<std::int64_t>(std::floor(0.3 / 0.1)) + 1);
    const BinGrid plain = FillBins(cloud, FindCloudExtents(cloud), 0.1, 0.1, kOutlineBins);
    EXPECT_EQ(plain.Bins().back().Row, static_cast<std::int64_t>(std::floor((0.3 - 1e-10 + 2 * 0.1) / 0.1)) + 1);
}

}  // namespace
}  // namespace crownlab
