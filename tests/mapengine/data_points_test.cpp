#include "mapengine/data_points.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "mapengine/scattered_points.h"

namespace crownlab {
namespace {

TEST(DataPoints, BlankHeightsAreLeftOut) {
    const DataPoints points = {{1, 1, 9.99e36}, {2, 1, 1e37}, {3, 1, 1.70141e38}, {4, 1, -1e300}};
    EXPECT_EQ(PointsToGrid(points, std::nullopt), (DataPoints{{1, 1, 9.99e36}, {4, 1, -1e300}}));
}

TEST(DataPoints, HeightsAboveTheBoundAreLeftOutAndThoseAtItStay) {
    const DataPoints points = {{1, 1, 5}, {2, 1, 5.000001}, {3, 1, -7}};
    EXPECT_EQ(PointsToGrid(points, 5), (DataPoints{{1, 1, 5}, {3, 1, -7}}));
}

TEST(DataPoints, OfEqualPlacesTheFirstWithAHeightStays) {
    const DataPoints points = {{0, 2, 1e38}, {0.0, 2, 1}, {1, 2, 3}, {-0.0, 2, 4}, {1, 2, 3}, {2, 1, 5}};
    EXPECT_EQ(PointsToGrid(points, std::nullopt), (DataPoints{{0, 2, 1}, {1, 2, 3}, {2, 1, 5}}));
}

TEST(DataPoints, ManyEqualPlaces) {
    RandomNumbers random;
    DataPoints points;
    DataPoints first;
    std::set<std::pair<double, double>> seen;
    for (int i = 0; i < 20'000; ++i) {
        const DataPoint point{.X = double(random.Below(90)) / 8, .Y = double(random.Below(70)), .Z = double(i)};
        points.push_back(point);
        if (seen.emplace(point.X, point.Y).second) first.push_back(point);
    }
    ASSERT_LT(first.size(), points.size() / 3);
    EXPECT_EQ(PointsToGrid(points, std::nullopt), first);
}

TEST(DataPoints, NoneStaysNone) { EXPECT_TRUE(PointsToGrid({}, 3).empty()); }

TEST(DataPoints, TheBoxHoldsAll) {
    const DataBox box = BoxOf({{3, -1, 0}, {-2, 5, 0}, {0, 0, 0}});
    EXPECT_EQ(box.XMin, -2);
    EXPECT_EQ(box.XMax, 3);
    EXPECT_EQ(box.YMin, -1);
    EXPECT_EQ(box.YMax, 5);
    EXPECT_EQ(box.Side(), 6);
}

TEST(DataPoints, OnALineMeansWithinTheShareOfTheLongerSide) {
    EXPECT_TRUE(AllOnALine({{0, 0, 0}, {1, 5, 1}}, 1e-9));
    EXPECT_TRUE(AllOnALine({{0.1, 0.3, 0}, {0.2, 0.6, 0}, {0.3, 0.9, 0}, {-7.7, -23.1, 0}}, 1e-9));
    EXPECT_TRUE(AllOnALine({{5, 1, 0}, {5, 2, 0}, {5, -3, 0}}, 1e-9));
    EXPECT_TRUE(AllOnALine({{0, 0, 0}, {100, 0, 0}, {50, 0.9e-7, 0}}, 1e-9));
    EXPECT_FALSE(AllOnALine({{0, 0, 0}, {100, 0, 0}, {50, 1.1e-7, 0}}, 1e-9));
    EXPECT_FALSE(AllOnALine({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, 1e-9));
}

}  // namespace
}  // namespace crownlab
