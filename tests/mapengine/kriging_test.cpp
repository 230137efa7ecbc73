#include "mapengine/kriging.h"

#include <gtest/gtest.h>

#include <limits>

#include "mapengine/local_kriging.h"
#include "mapengine/scattered_points.h"

namespace crownlab {
namespace {

Grid Gridded(const DataPoints& points, const GridGeometry& shape) {
    Progress progress;
    return KrigingGrid(points, shape, progress);
}

/// Solves a system of equations, row by row with the right side last, by elimination with row exchanges.
std::vector<long double> Eliminated(std::vector<std::vector<long double>> rows) {
    const std::size_t size = rows.size();
    for (std::size_t k = 0; k < size; ++k) {
        std::size_t pivot = k;
        for (std::size_t i = k; i < size; ++i) {
            if (std::fabs(rows[i][k]) > std::fabs(rows[pivot][k])) pivot = i;
        }
        std::swap(rows[k], rows[pivot]);
        for (std::size_t i = k + 1; i < size; ++i) {
            const long double factor = rows[i][k] / rows[k][k];
            for (std::size_t j = k; j <= size; ++j) rows[i][j] -= factor * rows[k][j];
        }
    }
    std::vector<long double> solution(size);
    for (std::size_t i = size; i-- > 0;) {
        long double sum = rows[i][size];
        for (std::size_t j = i + 1; j < size; ++j) sum -= rows[i][j] * solution[j];
        solution[i] = sum / rows[i][i];
    }
    return solution;
}

long double DistanceOf(const DataPoint& a, double x, double y) {
    const long double dx = static_cast<long double>(a.X) - x;
    const long double dy = static_cast<long double>(a.Y) - y;
    return std::sqrt(dx * dx + dy * dy);
}

/// Ordinary kriging as it is written down: weights and multiplier of the whole system.
double Naive(const DataPoints& points, double x, double y) {
    const std::size_t count = points.size();
    std::vector<std::vector<long double>> rows(count + 1, std::vector<long double>(count + 2, 1));
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) rows[i][j] = DistanceOf(points[i], points[j].X, points[j].Y);
        rows[i][count + 1] = DistanceOf(points[i], x, y);
    }
    rows[count][count] = 0;
    const std::vector<long double> weights = Eliminated(std::move(rows));
    long double height = 0;
    for (std::size_t i = 0; i < count; ++i) height += weights[i] * points[i].Z;
    return static_cast<double>(height);
}

TEST(Kriging, BetweenTwoPointsIsTheStraightLine) {
    // On the line through both: weights 1 - t and t between them, the nearer one's height beyond.
    const Grid grid = Gridded({{0, 0, 10}, {4, 0, 20}}, ShapeOf(9, 2, -2, 6, 0, 1));
    for (int column = 0; column < 9; ++column) {
        const double x = std::clamp(column - 2.0, 0.0, 4.0);
        EXPECT_NEAR(grid.At(column, 0), 10 + 2.5 * x, 1e-12);
    }
}

TEST(Kriging, OnePointGivesItsHeightEverywhere) {
    for (const double z : Gridded({{3, 4, -7.5}}, ShapeOf(3, 3, 0, 10, 0, 10)).Z) EXPECT_EQ(z, -7.5);
}

TEST(Kriging, AConstantStaysConstant) {
    for (const std::size_t count : {2u, 5u, 250u, 251u, 3000u}) {
        const Grid grid = Gridded(RandomPoints(count, [](double, double) { return 7.25; }), ShapeOf(9, 7, 1, 9, 1, 5));
        for (const double z : grid.Z) EXPECT_NEAR(z, 7.25, 1e-12);
    }
}

TEST(Kriging, LikeTheWholeSystem) {
    for (const std::size_t count : {1u, 2u, 3u, 7u, 60u}) {
        const DataPoints points = RandomPoints(count);
        ExpectNodes(Gridded(points, ShapeOf(9, 8, -3, 13, -2, 8)), points, 1e-10, Naive);
    }
}

TEST(Kriging, LikeTheWholeSystemForAllOf250Points) {
    const DataPoints points = RandomPoints(250);
    ExpectNodes(Gridded(points, ShapeOf(3, 2, -3, 13, -2, 8)), points, 1e-10, Naive);
}

TEST(Kriging, LikeTheWholeSystemFrom251PointsOn) {
    for (const std::size_t count : {251u, 900u}) {
        const DataPoints points = RandomPoints(count);
        ExpectNodes(Gridded(points, ShapeOf(16, 12, -3, 13, -2, 8)), points, 1e-10, Naive);
    }
}

TEST(Kriging, LikeTheWholeSystemOnALatticeFullOfTies) {
    const DataPoints points = LatticePoints(23, 17);
    ExpectNodes(Gridded(points, ShapeOf(23, 33, 0, 22, 0, 16)), points, 1e-10, Naive);
}

TEST(Kriging, LikeTheWholeSystemOnClusters) {
    const DataPoints points = ClusteredPoints(400);
    const Grid grid = Gridded(points, ShapeOf(12, 10, -20, 140, -20, 100));
    ExpectNodes(grid, points, 1e-9, Naive);
    EXPECT_GT(BlankNodes(grid), 0u);
    EXPECT_LT(BlankNodes(grid), grid.Z.size());
}

TEST(Kriging, SmallAndLargeUnitsGiveTheSameHeights) {
    for (const double unit : {1e-8, 1e8}) {
        DataPoints points = RandomPoints(600);
        const Grid grid = Gridded(points, ShapeOf(8, 6, 1, 9, 1, 5));
        for (DataPoint& point : points) {
            point.X *= unit;
            point.Y *= unit;
        }
        const Grid scaled = Gridded(points, ShapeOf(8, 6, unit, 9 * unit, unit, 5 * unit));
        for (std::size_t i = 0; i < grid.Z.size(); ++i) EXPECT_NEAR(scaled.Z[i], grid.Z[i], 1e-9);
    }
}

TEST(Kriging, DenseDataGiveTheSurfaceBack) {
    struct Case {
        const char* Name;
        Surface Height;
        double Tolerance;
    };
    // Points stand 0.055 apart: so much may the cone's tip be cut.
    const Case cases[] = {
        {"plane", [](double x, double y) { return 2 + 0.5 * y - 0.25 * x; }, 2e-3},
        {"hemisphere", [](double x, double y) { return std::sqrt(100 - (x - 5) * (x - 5) - (y - 3) * (y - 3)); }, 3e-3},
        {"cone", [](double x, double y) { return 10 - std::hypot(x - 5, y - 3); }, 5.5e-2},
        {"paraboloid", [](double x, double y) { return ((x - 5) * (x - 5) + (y - 3) * (y - 3)) / 10; }, 3e-3},
    };
    for (const Case& surface : cases) {
        const DataPoints points = RandomPoints(20'000, surface.Height);
        const Grid grid = Gridded(points, ShapeOf(17, 9, 1, 9, 1, 5));
        for (int row = 0; row < 9; ++row) {
            for (int column = 0; column < 17; ++column) {
                const double expected = surface.Height(grid.Shape.X(column), grid.Shape.Y(row));
                EXPECT_NEAR(grid.At(column, row), expected, surface.Tolerance) << surface.Name;
            }
        }
    }
}

TEST(Kriging, ANodeOnAPointTakesItsHeightWhereNothingElseIsNear) {
    // The last point is alone in its part of the box: two points in reach make a blank node, itself a height.
    DataPoints points = ClusteredPoints(400);
    const DataPoint alone = points.back();
    const Grid grid = Gridded(points, ShapeOf(2, 2, 0, alone.X, 0, alone.Y));
    EXPECT_EQ(grid.At(1, 1), alone.Z);
}

TEST(Kriging, TheSameForAnyNumberOfThreads) {
    for (const std::size_t count : {200u, 3000u}) {
        const DataPoints points = RandomPoints(count);
        const GridGeometry shape = ShapeOf(60, 40, -1, 11, -1, 7);
        const ThreadsOf one(1);
        const Grid single = Gridded(points, shape);
        for (const int threads : {2, 3, 8}) {
            const ThreadsOf several(threads);
            EXPECT_EQ(Gridded(points, shape).Z, single.Z);
        }
    }
}

/// The first `count` points as neighbours of a place.
Neighbours NeighboursOf(const DataPoints& points, double x, double y) {
    Neighbours neighbours;
    neighbours.Count = points.size();
    for (std::size_t i = 0; i < points.size(); ++i) {
        neighbours.X[i] = points[i].X;
        neighbours.Y[i] = points[i].Y;
        neighbours.Z[i] = points[i].Z;
        const double dx = points[i].X - x;
        const double dy = points[i].Y - y;
        neighbours.Squared[i] = dx * dx + dy * dy;
    }
    return neighbours;
}

TEST(LocalKriging, BothWaysAgreeForEveryNumberOfNeighbours) {
    for (std::size_t count = 1; count <= Neighbours::kMost; ++count) {
        const DataPoints points = RandomPoints(count);
        const Neighbours neighbours = NeighboursOf(points, 4.5, 2.25);
        const double expected = Naive(points, 4.5, 2.25);
        EXPECT_NEAR(LocalKriging(neighbours), expected, 1e-11) << count;
        EXPECT_NEAR(LocalKrigingByLu(neighbours), expected, 1e-11) << count;
    }
}

// Points that differ in the last bits of their places: Cholesky's pivots are lost in rounding.
TEST(LocalKriging, PointsTooCloseTogetherStillGiveAHeight) {
    DataPoints points = RandomPoints(20, [](double, double) { return 4.0; });
    const std::size_t count = points.size();
    for (std::size_t i = 0; i < count; ++i) {
        DataPoint twin = points[i];
        twin.X = std::nextafter(twin.X, 100.0);
        points.push_back(twin);
    }
    EXPECT_NEAR(LocalKriging(NeighboursOf(points, 4.5, 2.25)), 4, 1e-9);
    for (DataPoint& point : points) point.Z = Waves(point.X, point.Y);
    const DataPoints halves(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(count));
    EXPECT_NEAR(LocalKriging(NeighboursOf(points, 4.5, 2.25)), Naive(halves, 4.5, 2.25), 1e-6);
}

}  // namespace
}  // namespace crownlab
