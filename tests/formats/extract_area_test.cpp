#include "formats/extract_area.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

/// 11 by 6 nodes, x from 2 by 0.5, y from -3 by 2.
const GridShape kGrid{
    .NumCols = 11, .XMin = 2, .XMax = 7, .SpacingX = 0.5, .NumRows = 6, .YMin = -3, .YMax = 7, .SpacingY = 2};

TEST(ExtractArea, TakesTheNodesInsideTheBox) {
    // Columns stand at 2, 2.5, 3, ...; rows at -3, -1, 1, ...
    EXPECT_EQ(RangeBetween(kGrid, {2.6, -2}, {4.4, 3.5}), (GridPart{3, 5, 2, 4}));
    EXPECT_EQ(RangeBetween(kGrid, {1.9, -3.5}, {7.2, 7.5}), (GridPart{1, 11, 1, 6}));
}

TEST(ExtractArea, OfCornersOnNodesTheLowerIsOutAndTheUpperIn) {
    EXPECT_EQ(RangeBetween(kGrid, {2.5, -1}, {4.5, 3}), (GridPart{3, 6, 3, 4}));
    EXPECT_EQ(RangeBetween(kGrid, {2, -3}, {7, 7}), (GridPart{2, 11, 2, 6}));
}

TEST(ExtractArea, IsNotCutToTheGrid) {
    EXPECT_EQ(RangeBetween(kGrid, {0.6, -8}, {8.4, 12}), (GridPart{-1, 13, -1, 8}));
}

TEST(ExtractArea, HoldsExactlyTheNodesBetweenTheCorners) {
    RandomNumbers random;
    for (int trial = 0; trial < 500; ++trial) {
        const auto place = [&] { return static_cast<double>(random.Below(4001)) / 256 - 4; };
        const PlanePoint lower{place(), place()};
        const PlanePoint upper{place(), place()};
        const GridPart part = RangeBetween(kGrid, lower, upper);
        for (int column = 1; column <= 11; ++column) {
            const double x = kGrid.XMin + (column - 1) * kGrid.SpacingX;
            const bool within = column >= part.FirstColumn && column <= part.LastColumn;
            ASSERT_EQ(within, x > lower.x && x <= upper.x) << x << " of " << lower.x << " to " << upper.x;
        }
        for (int row = 1; row <= 6; ++row) {
            const double y = kGrid.YMin + (row - 1) * kGrid.SpacingY;
            const bool within = row >= part.FirstRow && row <= part.LastRow;
            ASSERT_EQ(within, y > lower.y && y <= upper.y) << y << " of " << lower.y << " to " << upper.y;
        }
    }
}

TEST(ExtractArea, AGridWithoutSpacingHasNoColumns) {
    GridShape flat = kGrid;
    flat.SpacingY = 0;
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero,
        [&] {
            RangeBetween(flat, {3, 0}, {4, 1});
        },
        "spacing"));
}

TEST(ExtractArea, CornersHaveToRiseBothWays) {
    EXPECT_TRUE(CornersInOrder({0, 0}, {1, 1e-9}));
    EXPECT_FALSE(CornersInOrder({0, 0}, {1, 0}));
    EXPECT_FALSE(CornersInOrder({0, 0}, {0, 1}));
    EXPECT_FALSE(CornersInOrder({2, 0}, {1, 1}));
    EXPECT_FALSE(CornersInOrder({0, 2}, {1, 1}));
}

TEST(ExtractArea, TheWholeGridHasAllItsNodes) { EXPECT_EQ(WholeRange(kGrid), (GridPart{1, 11, 1, 6})); }

}  // namespace
}  // namespace crownlab
