#include "pointcloud/cloud.h"

#include <gtest/gtest.h>

#include <limits>

#include "pointcloud/clouds.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

TEST(FindCloudExtents, FindsTheExtremes) {
    const CloudExtents e = FindCloudExtents({{1, -2, 3}, {-4, 5, -6}, {0, 0, 0}});
    EXPECT_EQ(e.XMin, -4);
    EXPECT_EQ(e.XMax, 1);
    EXPECT_EQ(e.YMin, -2);
    EXPECT_EQ(e.YMax, 5);
    EXPECT_EQ(e.ZMin, -6);
    EXPECT_EQ(e.ZMax, 3);
}

TEST(FindCloudExtents, DoesNotFindWhatLiesBeyondAMillion) {
    const CloudExtents e = FindCloudExtents({{2000000, -2000000, 1000000}, {2000000, -3000000, 1000000}});
    EXPECT_EQ(e.XMin, 1000000);
    EXPECT_EQ(e.XMax, 2000000);
    EXPECT_EQ(e.YMin, -3000000);
    EXPECT_EQ(e.YMax, -1000000);
    EXPECT_EQ(e.ZMin, 1000000);
    EXPECT_EQ(e.ZMax, 1000000);
}

TEST(MouldFlip, TurnsAboutTheYAxis) {
    PointCloud cloud{{1, 2, 3}, {-4, -5, -6}};
    MouldFlip(cloud);
    EXPECT_EQ(cloud, (PointCloud{{-1, 2, -3}, {4, -5, 6}}));
    MouldFlip(cloud);
    EXPECT_EQ(cloud, (PointCloud{{1, 2, 3}, {-4, -5, -6}}));
}

TEST(ReZero, BringsTheLowestCoordinatesToZero) {
    PointCloud cloud{{1.5, -2, 3}, {4, 5.25, -1}};
    ReZero(cloud);
    EXPECT_EQ(cloud, (PointCloud{{0, 0, 4}, {2.5, 7.25, 0}}));
}

TEST(ReZero, RoundsAtSixDecimals) {
    PointCloud cloud{{0, 0, 0}, {0.1234565, 1.0000004, 2.1234567}};
    ReZero(cloud);
    EXPECT_EQ(cloud[1].x, 0.123456);  // half to even
    EXPECT_EQ(cloud[1].y, 1);
    EXPECT_EQ(cloud[1].z, 2.123457);
}

TEST(ReZero, PassesThroughFifteenDigits) {
    // 16 digits: the last is lost before the lowest is taken off.
    PointCloud cloud{{-1234567890.123456, 0, 0}, {-1234567890, 0, 0}};
    ReZero(cloud);
    EXPECT_EQ(cloud[1].x, 0.12346);
    EXPECT_EQ(cloud[0].x, 0);
}

TEST(Shift, AddsToEachPoint) {
    PointCloud cloud{{1, 2, 3}, {0, 0, 0}};
    Shift(cloud, {-0.5, 0.25, 8});
    EXPECT_EQ(cloud, (PointCloud{{0.5, 2.25, 11}, {-0.5, 0.25, 8}}));
}

TEST(Shift, OverflowsBeyondFloats) {
    constexpr double most = std::numeric_limits<double>::max();
    PointCloud cloud{{most, 0, 0}};
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { Shift(cloud, {most, 0, 0}); }));
}

}  // namespace
}  // namespace crownlab
