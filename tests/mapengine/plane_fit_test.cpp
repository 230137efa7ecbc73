#include "mapengine/plane_fit.h"

#include <gtest/gtest.h>

#include "mapengine/scattered_points.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

void ExpectPlane(const DataPoints& points, double a, double b, double c, double tolerance) {
    const FittedPlane plane = FitPlane(points);
    EXPECT_NEAR(plane.A, a, tolerance);
    EXPECT_NEAR(plane.B, b, tolerance);
    EXPECT_NEAR(plane.C, c, tolerance);
}

TEST(PlaneFit, APlaneComesBack) {
    for (const std::size_t count : {3u, 4u, 1000u}) {
        ExpectPlane(RandomPoints(count, [](double x, double y) { return 12.5 - 0.25 * y + 0.125 * x; }), 12.5, -0.25,
                    0.125, 1e-12);
    }
}

TEST(PlaneFit, ThreePointsLieOnIt) {
    const DataPoints points = {{0, 0, 0}, {-0.25, 0.5, 1}, {0.75, 0.125, -3}};
    const FittedPlane plane = FitPlane(points);
    for (const DataPoint& point : points) EXPECT_NEAR(plane.A + plane.B * point.Y + plane.C * point.X, point.Z, 1e-14);
}

TEST(PlaneFit, LeastSquaresByHand) {
    // Corners of a square with one lifted by 4: the mean is 1, each slope 2 over the side of 2.
    ExpectPlane({{-1, -1, 0}, {1, -1, 0}, {-1, 1, 0}, {1, 1, 4}}, 1, 1, 1, 1e-15);
}

/// The residuals of least squares are square to 1, x and y.
TEST(PlaneFit, WhatIsLeftHasNoPlaneInIt) {
    const DataPoints points = RandomPoints(700);
    const FittedPlane plane = FitPlane(points);
    double sum = 0;
    double byX = 0;
    double byY = 0;
    for (const DataPoint& point : points) {
        const double left = point.Z - (plane.A + plane.B * point.Y + plane.C * point.X);
        sum += left;
        byX += left * point.X;
        byY += left * point.Y;
    }
    EXPECT_NEAR(sum, 0, 1e-9);
    EXPECT_NEAR(byX, 0, 1e-9);
    EXPECT_NEAR(byY, 0, 1e-9);
}

TEST(PlaneFit, FarFromTheOriginAndNearlyOnALine) {
    DataPoints points = RandomPoints(200, [](double x, double y) { return 3 * y - 2 * x; });
    for (DataPoint& point : points) {
        point.X += 1e6;
        point.Y += 1e6;
    }
    const FittedPlane far = FitPlane(points);
    EXPECT_NEAR(far.B, 3, 1e-8);
    EXPECT_NEAR(far.C, -2, 1e-8);
    const FittedPlane thin = FitPlane({{0, 0, 0}, {100, 100, 100}, {50, 50 + 1e-6, 50 + 3e-6}});
    EXPECT_NEAR(thin.B, 3, 1e-6);
    EXPECT_NEAR(thin.C, -2, 1e-6);
}

TEST(PlaneFit, TallAndWideData) {
    for (const bool tall : {false, true}) {
        DataPoints points = RandomPoints(50);
        for (DataPoint& point : points) (tall ? point.X : point.Y) *= 1e-3;
        SetHeights(points, [](double x, double y) { return 1 + 2 * y + 3 * x; });
        ExpectPlane(points, 1, 2, 3, 1e-10);
    }
}

TEST(PlaneFit, NoPlaneThroughALine) {
    const auto kind = FailureKind::AutomationFailed;
    EXPECT_TRUE(FailsWith(
        kind,
        [] {
            FitPlane({{1, 2, 3}});
        },
        "needs three points, there are 1"));
    EXPECT_TRUE(FailsWith(
        kind,
        [] {
            FitPlane({{1, 2, 3}, {2, 3, 4}});
        },
        "needs three points, there are 2"));
    EXPECT_TRUE(FailsWith(
        kind,
        [] {
            FitPlane({{0.1, 0.3, 1}, {0.2, 0.6, 5}, {0.3, 0.9, 2}});
        },
        "on a line"));
    EXPECT_TRUE(FailsWith(
        kind,
        [] {
            FitPlane({{5, 1, 1}, {5, 2, 5}, {5, 7, 2}});
        },
        "on a line"));
}

TEST(PlaneFit, EveryNodeIsOnThePlane) {
    Progress progress;
    const Grid grid = PlaneGrid({.A = 1, .B = 2, .C = -3}, ShapeOf(5, 3, -1, 1, 0, 4), progress);
    EXPECT_EQ(grid.At(0, 0), 4);
    EXPECT_EQ(grid.At(4, 0), -2);
    EXPECT_EQ(grid.At(0, 2), 12);
    EXPECT_EQ(grid.At(2, 1), 5);
}

}  // namespace
}  // namespace crownlab
