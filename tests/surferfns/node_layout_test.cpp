#include "surferfns/node_layout.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/expect_failure.h"

namespace crownlab {
namespace {

PointExtents Box(double xMin, double xMax, double yMin, double yMax) {
    PointExtents extents;
    extents.Take(xMin, yMin, 0);
    extents.Take(xMax, yMax, 1);
    return extents;
}

TEST(NodeLayout, TheLongerSideHasTheCountAndTheShortOneIsANodeShort) {
    const GridShape wide = NodesAlongLongerSide(Box(-2, 8, 5, 9), 101);
    EXPECT_EQ(wide.NumCols, 101);
    EXPECT_DOUBLE_EQ(wide.SpacingX, 0.1);
    EXPECT_EQ(wide.NumRows, 40) << "41 would reach the far edge";
    EXPECT_EQ(wide.XMin, -2);
    EXPECT_DOUBLE_EQ(wide.XMax, 8);
    EXPECT_EQ(wide.YMin, 5);
    EXPECT_DOUBLE_EQ(wide.YMax, 8.9);

    const GridShape tall = NodesAlongLongerSide(Box(5, 9, -2, 8), 101);
    EXPECT_EQ(tall.NumRows, 101);
    EXPECT_EQ(tall.NumCols, 40);
    EXPECT_DOUBLE_EQ(tall.XMax, 8.9);
    EXPECT_DOUBLE_EQ(tall.YMax, 8);
}

TEST(NodeLayout, ASquareIsSetByItsRows) {
    const GridShape square = NodesAlongLongerSide(Box(0, 4, 10, 14), 5);
    EXPECT_EQ(square.NumRows, 5);
    EXPECT_EQ(square.NumCols, 4);
}

TEST(NodeLayout, TheSpacingIsRoundedToThreeDecimals) {
    // 10 / 149 = 0.06711...: the far edge falls short.
    const GridShape nodes = NodesAlongLongerSide(Box(0, 10, 0, 7), 150);
    EXPECT_DOUBLE_EQ(nodes.SpacingX, 0.067);
    EXPECT_DOUBLE_EQ(nodes.XMax, 149 * 0.067);
    EXPECT_EQ(nodes.NumRows, 104) << "7 / 0.067 = 104.48";
}

TEST(NodeLayout, HalvesGoToTheEvenCount) {
    EXPECT_EQ(NodesAlongLongerSide(Box(0, 4, 0, 2.5), 5).NumRows, 2);
    EXPECT_EQ(NodesAlongLongerSide(Box(0, 4, 0, 3.5), 5).NumRows, 4);
    EXPECT_EQ(NodesAlongLongerSide(Box(0, 4, 0, 2), 4.5).NumCols, 4);
}

TEST(NodeLayout, WhatHasNoSpacingFails) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { NodesAlongLongerSide(Box(0, 4, 0, 2), 1); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { NodesAlongLongerSide(Box(0, 4, 0, 2), 20001); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { NodesAlongLongerSide(Box(3, 3, 2, 2), 5); }));
}

TEST(NodeLayout, RoundingShrinksTheGridAndKeepsItsCounts) {
    const GridShape grid{.NumCols = 101,
                         .XMin = -0.0004,
                         .XMax = 1.0396,
                         .SpacingX = 0.0104,
                         .NumRows = 51,
                         .YMin = 2.0625,
                         .YMax = 2.5375,
                         .SpacingY = 0.0095};
    const GridShape rounded = RoundedToThousandths(grid);
    EXPECT_EQ(rounded.NumCols, 101);
    EXPECT_EQ(rounded.NumRows, 51);
    EXPECT_EQ(rounded.XMin, 0);
    EXPECT_DOUBLE_EQ(rounded.SpacingX, 0.010);
    EXPECT_DOUBLE_EQ(rounded.XMax, 1);
    EXPECT_DOUBLE_EQ(rounded.YMin, 2.062) << "half to even";
    EXPECT_DOUBLE_EQ(rounded.SpacingY, 0.010) << "half to even";
    EXPECT_DOUBLE_EQ(rounded.YMax, 2.562);
}

TEST(NodeLayout, OutlinesAreFoundByShorterNames) {
    EXPECT_EQ(OutlineOfGrid("dir/tooth1b", 1), "dir/tooth1blnpts.bln");
    EXPECT_EQ(OutlineOfGrid("dir/tooth1b150", 4), "dir/tooth1blnpts.bln");
    EXPECT_EQ(OutlineOfGrid("dir/tooth1", 0), "dir/tooth1blnpts.bln");
    EXPECT_EQ(OutlineOfGrid("dir/tooth1", -3), "dir/tooth1blnpts.bln");
    EXPECT_EQ(OutlineOfGrid("abc", 3), "blnpts.bln");
    EXPECT_EQ(OutlineOfGrid("abcd", 0.5), "abcdblnpts.bln") << "3.5 is nearest to 4, the even one";
    EXPECT_EQ(OutlineOfGrid("abcde", 0.5), "abcdblnpts.bln") << "4.5 is nearest to 4, the even one";
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { OutlineOfGrid("abc", 4); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { OutlineOfGrid("abc", 1e300); }));
    EXPECT_EQ(OutlineOfGrid("abc", -1e300), "abcblnpts.bln");
}

}  // namespace
}  // namespace crownlab
