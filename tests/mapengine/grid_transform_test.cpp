#include "mapengine/grid_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/expect_failure.h"

namespace crownlab {
namespace {

/// Three columns, two rows:   4 5 6      y 10 to 14, x 1 to 2
///                            1 2 3
Grid SmallGrid() {
    Grid grid(GridGeometry{.Columns = 3, .Rows = 2, .XMin = 1, .XMax = 2, .YMin = 10, .YMax = 14});
    grid.Z = {1, 2, 3, 4, 5, kBlankHeight};
    return grid;
}

/// Height 100 column + row, whatever the size.
Grid NumberedGrid(int columns, int rows) {
    Grid grid(GridGeometry{.Columns = columns, .Rows = rows, .XMin = -1, .XMax = 0.7, .YMin = 3, .YMax = 4.1});
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) grid.At(column, row) = 1000 * column + row;
    }
    return grid;
}

TEST(GridTransform, OffsetsLimitsOnly) {
    Grid grid = SmallGrid();
    OffsetLimits(grid, -1, 0.5);
    EXPECT_EQ(grid.Shape, (GridGeometry{.Columns = 3, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 10.5, .YMax = 14.5}));
    EXPECT_EQ(grid.Z, SmallGrid().Z);
    // So far off that the limits can't be told apart.
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { OffsetLimits(grid, 1e300, 0); }, "x limits 1E+300 to 1E+300 don't rise"));
}

TEST(GridTransform, ReversesColumns) {
    Grid grid = SmallGrid();
    ReverseColumns(grid);
    EXPECT_EQ(grid.Shape, SmallGrid().Shape);
    EXPECT_EQ(grid.Z, (std::vector<double>{3, 2, 1, kBlankHeight, 5, 4}));
}

TEST(GridTransform, ReversesRows) {
    Grid grid = SmallGrid();
    ReverseRows(grid);
    EXPECT_EQ(grid.Shape, SmallGrid().Shape);
    EXPECT_EQ(grid.Z, (std::vector<double>{4, 5, kBlankHeight, 1, 2, 3}));
    for (const int rows : {2, 3, 4, 5}) {
        const Grid before = NumberedGrid(4, rows);
        Grid after = before;
        ReverseRows(after);
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < 4; ++column) {
                EXPECT_EQ(after.At(column, row), before.At(column, rows - 1 - row));
            }
        }
    }
}

TEST(GridTransform, TurnsCounterClockwise) {
    // . on the upper right corner:  4 5 .   ->   . 3
    //                               1 2 3        5 2
    //                                            4 1
    const Grid quarter = TurnGrid(SmallGrid(), 90);
    EXPECT_EQ(quarter.Shape, (GridGeometry{.Columns = 2, .Rows = 3, .XMin = 1, .XMax = 5, .YMin = 10, .YMax = 11}));
    EXPECT_EQ(quarter.Z, (std::vector<double>{4, 1, 5, 2, kBlankHeight, 3}));

    const Grid half = TurnGrid(SmallGrid(), 180);
    EXPECT_EQ(half.Shape, SmallGrid().Shape);
    EXPECT_EQ(half.Z, (std::vector<double>{kBlankHeight, 5, 4, 3, 2, 1}));

    const Grid clockwise = TurnGrid(SmallGrid(), -90);
    EXPECT_EQ(clockwise.Shape, quarter.Shape);
    EXPECT_EQ(clockwise.Z, (std::vector<double>{3, kBlankHeight, 2, 5, 1, 4}));
}

TEST(GridTransform, TurnsByAnyMultipleOfAQuarter) {
    const Grid grid = NumberedGrid(70, 131);
    for (const int quarters : {-9, -4, -3, -2, -1, 0, 1, 2, 3, 4, 5, 40}) {
        Grid expected = grid;
        for (int i = 0; i < ((quarters % 4) + 4) % 4; ++i) expected = TurnGrid(expected, 90);
        EXPECT_EQ(TurnGrid(grid, 90.0 * quarters).Z, expected.Z) << quarters;
    }
    EXPECT_EQ(TurnGrid(grid, 360).Shape, grid.Shape);
    for (const double degrees : {45.0, 1e-9, 90.5, std::numeric_limits<double>::infinity()}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::AutomationFailed, [&] { TurnGrid(grid, degrees); }, "a grid can't be turned by "))
            << degrees;
    }
}

TEST(GridTransform, ATurnedPlaneSlopesTheOtherWay) {
    // z = 2 x + 5 y, turned by 90 degrees about the origin, is z = 2 y' - 5 x'.
    Grid grid(GridGeometry{.Columns = 11, .Rows = 6, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 1});
    for (int row = 0; row < 6; ++row) {
        for (int column = 0; column < 11; ++column) {
            grid.At(column, row) = 2 * grid.Shape.X(column) + 5 * grid.Shape.Y(row);
        }
    }
    const Grid turned = TurnGrid(grid, 90);
    for (int row = 0; row < 11; ++row) {
        for (int column = 0; column < 6; ++column) {
            // The lower left corner is kept: x' runs from 0 to 1 where it was -1 to 0.
            const double x = turned.Shape.X(column) - 1;
            EXPECT_NEAR(turned.At(column, row), 2 * turned.Shape.Y(row) - 5 * x, 1e-12);
        }
    }
}

TEST(GridExtract, TakesEveryNthNode) {
    const Grid grid = NumberedGrid(10, 9);
    const NodeRange columns{.First = 1, .Last = 8, .Step = 3}, rows{.First = 2, .Last = 8, .Step = 2};
    const Grid extracted = ExtractNodes(grid, columns, rows);
    EXPECT_EQ(extracted.Shape, (GridGeometry{.Columns = 3,
                                             .Rows = 4,
                                             .XMin = grid.Shape.X(1),
                                             .XMax = grid.Shape.X(7),
                                             .YMin = grid.Shape.Y(2),
                                             .YMax = 4.1}));
    EXPECT_EQ(extracted.Z,
              (std::vector<double>{1002, 4002, 7002, 1004, 4004, 7004, 1006, 4006, 7006, 1008, 4008, 7008}));
}

TEST(GridExtract, TheWholeGridIsTheGrid) {
    const Grid grid = NumberedGrid(5, 4);
    const Grid extracted = ExtractNodes(grid, {.First = 0, .Last = 4, .Step = 1}, {.First = 0, .Last = 3, .Step = 1});
    EXPECT_EQ(extracted.Shape, grid.Shape);
    EXPECT_EQ(extracted.Z, grid.Z);
}

TEST(GridExtract, NeedsTwoOfEach) {
    const Grid grid = NumberedGrid(5, 4);
    const NodeRange all{.First = 0, .Last = 3, .Step = 1};
    for (const NodeRange few :
         {NodeRange{.First = 2, .Last = 2, .Step = 1}, NodeRange{.First = 1, .Last = 3, .Step = 3},
          NodeRange{.First = 3, .Last = 1, .Step = 1}}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::AutomationFailed, [&] { ExtractNodes(grid, few, all); }, "columns and 4 rows are left"));
        EXPECT_TRUE(FailsWith(
            FailureKind::AutomationFailed, [&] { ExtractNodes(grid, all, few); }, "only 4 columns and "));
    }
}

}  // namespace
}  // namespace crownlab
