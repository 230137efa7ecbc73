#include "viewer/multi_grid.h"

#include <gtest/gtest.h>

namespace crownlab {
namespace {

TEST(FindToothSteps, FindsNothingWhereYAlwaysChanges) {
    const SurfaceSteps steps = FindToothSteps({{1, 1, 0}, {2, 2, 0}, {2, 1, 0}}, "");
    EXPECT_EQ(steps.X, kNoStep);
    EXPECT_EQ(steps.Y, kNoStep);
}

TEST(FindToothSteps, EqualYInARowMakesTheStepZero) {
    EXPECT_EQ(FindToothSteps({{1, 1, 0}, {2, 2, 0}, {3, 2, 0}}, "").Y, 0);
    // Equal, but not in a row.
    EXPECT_EQ(FindToothSteps({{1, 1, 0}, {2, 2, 0}, {3, 1, 0}}, "").Y, kNoStep);
    // Equal at six decimals only.
    EXPECT_EQ(FindToothSteps({{1, 1, 0}, {2, 1.0000001, 0}}, "").Y, kNoStep);
}

TEST(FindToothSteps, TakesXFromTheDirectionTold) {
    const std::vector<SurfacePoint> points{{1, 1, 0}, {3.5, 2, 0}, {2, 1, 0}, {2.25, 3, 0}};
    EXPECT_EQ(FindToothSteps(points, "XUp").X, 0.25);
    EXPECT_EQ(FindToothSteps(points, "XDown").X, 1.5);
    EXPECT_EQ(FindToothSteps(points, "").X, kNoStep);
    EXPECT_EQ(FindToothSteps(points, "xup").X, kNoStep);
}

TEST(FindToothSteps, NoneAndOnePoint) {
    EXPECT_EQ(FindToothSteps({}, "XUp").X, kNoStep);
    EXPECT_EQ(FindToothSteps({{1, 1, 0}}, "XUp").Y, kNoStep);
}

}  // namespace
}  // namespace crownlab
