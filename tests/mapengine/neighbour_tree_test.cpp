#include "mapengine/neighbour_tree.h"

#include <gtest/gtest.h>

#include <limits>

#include "mapengine/scattered_points.h"

namespace crownlab {
namespace {

/// The search gives the same points in the same order as a sort of all.
void ExpectSameAsSort(const DataPoints& points, double x, double y, double radiusSquared) {
    const NeighbourTree tree(points);
    Neighbours found;
    tree.FindInQuadrants(x, y, radiusSquared, found);
    const std::vector<std::size_t> expected = SortedQuadrants(points, x, y, radiusSquared);
    ASSERT_EQ(found.Count, expected.size()) << x << " " << y;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const DataPoint& point = points[expected[i]];
        const DataPoint given{.X = found.X[i], .Y = found.Y[i], .Z = found.Z[i]};
        ASSERT_EQ(given, point) << x << " " << y << ", number " << i;
        const double dx = point.X - x;
        const double dy = point.Y - y;
        ASSERT_EQ(found.Squared[i], dx * dx + dy * dy);
    }
}

/// Heights that tell the points apart.
DataPoints Numbered(DataPoints points) {
    for (std::size_t i = 0; i < points.size(); ++i) points[i].Z = static_cast<double>(i);
    return points;
}

void ExpectSameAroundBox(const DataPoints& points) {
    const DataBox box = BoxOf(points);
    RandomNumbers random;
    for (int i = 0; i < 40; ++i) {
        const double x = box.XMin + (1.4 * Share(random) - 0.2) * box.Width();
        const double y = box.YMin + (1.4 * Share(random) - 0.2) * box.Height();
        for (const double radius : {0.02, 0.3, 1.0, 10.0}) {
            ExpectSameAsSort(points, x, y, radius * radius * box.Side() * box.Side());
        }
        const DataPoint& point = points[random.Below(points.size())];
        ExpectSameAsSort(points, point.X, point.Y, std::numeric_limits<double>::infinity());
    }
}

TEST(NeighbourTree, RandomPoints) { ExpectSameAroundBox(Numbered(RandomPoints(2'000))); }

TEST(NeighbourTree, ClusteredPoints) { ExpectSameAroundBox(Numbered(ClusteredPoints(2'000))); }

TEST(NeighbourTree, FewPoints) {
    for (const std::size_t count : {1u, 2u, 8u, 9u, 17u}) ExpectSameAroundBox(Numbered(RandomPoints(count)));
}

TEST(NeighbourTree, PointsOnALine) {
    DataPoints points = LatticePoints(500, 1);
    ExpectSameAroundBox(Numbered(points));
    for (DataPoint& point : points) std::swap(point.X, point.Y);
    ExpectSameAroundBox(Numbered(points));
}

// Every place of a lattice, its middles and its edges sees many points at equal distances.
TEST(NeighbourTree, LatticeFullOfTies) {
    const DataPoints points = Numbered(LatticePoints(23, 17));
    // Half steps, from two steps outside of the lattice.
    for (int row = -4; row <= 38; ++row) {
        for (int column = -4; column <= 50; ++column) {
            const double x = 0.5 * column;
            const double y = 0.5 * row;
            ExpectSameAsSort(points, x, y, 1e9);
            ExpectSameAsSort(points, x, y, 25);
        }
    }
}

TEST(NeighbourTree, TheCircleHoldsItsEdge) {
    const DataPoints points = {{3, 4, 1}, {-4, 3, 2}, {3, -4.0000000000000009, 3}, {0, -5, 4}};
    const NeighbourTree tree(points);
    Neighbours found;
    tree.FindInQuadrants(0, 0, 25, found);
    ASSERT_EQ(found.Count, 3u);
    EXPECT_EQ(found.Z[0], 1);
    EXPECT_EQ(found.Z[1], 2);
    EXPECT_EQ(found.Z[2], 4);
}

}  // namespace
}  // namespace crownlab
