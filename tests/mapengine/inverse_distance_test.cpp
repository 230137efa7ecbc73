#include "mapengine/inverse_distance.h"

#include <gtest/gtest.h>

#include "mapengine/scattered_points.h"

namespace crownlab {
namespace {

Grid Gridded(const DataPoints& points, const GridGeometry& shape) {
    Progress progress;
    return InverseDistanceGrid(points, shape, progress);
}

/// The definition, in the widest numbers there are.
double Naive(const DataPoints& points, double x, double y) {
    long double sum = 0;
    long double weights = 0;
    for (const DataPoint& point : points) {
        const long double dx = point.X - x;
        const long double dy = point.Y - y;
        const long double weight = 1 / (dx * dx + dy * dy);
        sum += weight * point.Z;
        weights += weight;
    }
    return static_cast<double>(sum / weights);
}

TEST(InverseDistance, TwoPointsByHand) {
    // Squared distances 1 and 4: weights 4 to 1.
    const Grid grid = Gridded({{0, 0, 10}, {3, 0, 20}}, ShapeOf(4, 2, 0, 3, 0, 1));
    EXPECT_EQ(grid.At(0, 0), 10);
    EXPECT_DOUBLE_EQ(grid.At(1, 0), (4 * 10 + 20) / 5.0);
    EXPECT_DOUBLE_EQ(grid.At(2, 0), (10 + 4 * 20) / 5.0);
    EXPECT_EQ(grid.At(3, 0), 20);
}

TEST(InverseDistance, AConstantStaysConstant) {
    for (const std::size_t count : {1u, 5u, 250u, 251u, 3000u}) {
        const Grid grid = Gridded(RandomPoints(count, [](double, double) { return 7.25; }), ShapeOf(9, 7, 1, 9, 1, 5));
        for (const double z : grid.Z) EXPECT_NEAR(z, 7.25, 1e-12);
    }
}

TEST(InverseDistance, LikeTheDefinition) {
    for (const std::size_t count : {1u, 2u, 7u, 249u, 250u, 251u, 900u}) {
        const DataPoints points = RandomPoints(count);
        const GridGeometry shape = ShapeOf(14, 11, -3, 13, -2, 8);
        ExpectNodes(Gridded(points, shape), points, 1e-12, Naive);
    }
}

TEST(InverseDistance, LikeTheDefinitionOnALatticeFullOfTies) {
    const DataPoints points = LatticePoints(23, 17);
    const GridGeometry shape = ShapeOf(45, 33, 0, 22, 0, 16);
    ExpectNodes(Gridded(points, shape), points, 1e-12, Naive);
}

TEST(InverseDistance, LikeTheDefinitionOnClusters) {
    const DataPoints points = ClusteredPoints(400);
    const Grid grid = Gridded(points, ShapeOf(12, 10, -20, 140, -20, 100));
    ExpectNodes(grid, points, 1e-12, Naive);
    EXPECT_GT(BlankNodes(grid), 0u);
    EXPECT_LT(BlankNodes(grid), grid.Z.size());
}

TEST(InverseDistance, TheSameForAnyNumberOfThreads) {
    const DataPoints points = RandomPoints(3'000);
    const GridGeometry shape = ShapeOf(60, 40, -1, 11, -1, 7);
    const ThreadsOf one(1);
    const Grid single = Gridded(points, shape);
    for (const int threads : {2, 3, 8}) {
        const ThreadsOf several(threads);
        EXPECT_EQ(Gridded(points, shape).Z, single.Z);
    }
}

TEST(InverseDistance, HeightsStayBetweenTheirNeighbours) {
    const Grid grid = Gridded({{0, 0, -1e300}, {1, 1, 1e36}, {1e-160, 0, 3}}, ShapeOf(5, 5, 0, 1, 0, 1));
    for (const double z : grid.Z) EXPECT_TRUE(z >= -1e300 && z <= 1e36) << z;
}

}  // namespace
}  // namespace crownlab
