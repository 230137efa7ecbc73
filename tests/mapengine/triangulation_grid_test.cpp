#include "mapengine/triangulation_grid.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>

#include "mapengine/delaunay.h"
#include "mapengine/scattered_points.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

Grid Gridded(const DataPoints& points, const GridGeometry& shape) {
    Progress progress;
    return TriangulationGrid(points, shape, progress);
}

/// Twice the area of a triangle, above 0 if its corners run counter-clockwise.
long double Turn(const DataPoint& a, const DataPoint& b, const DataPoint& c) {
    return (static_cast<long double>(b.X) - a.X) * (static_cast<long double>(c.Y) - a.Y) -
           (static_cast<long double>(b.Y) - a.Y) * (static_cast<long double>(c.X) - a.X);
}

/// Above 0 if `p` lies in the circle through a, b, c, which run counter-clockwise.
long double InCircle(const DataPoint& a, const DataPoint& b, const DataPoint& c, const DataPoint& p) {
    const auto row = [&](const DataPoint& q) {
        const long double x = static_cast<long double>(q.X) - p.X;
        const long double y = static_cast<long double>(q.Y) - p.Y;
        return std::array<long double, 3>{x, y, x * x + y * y};
    };
    const auto [ax, ay, aw] = row(a);
    const auto [bx, by, bw] = row(b);
    const auto [cx, cy, cw] = row(c);
    return ax * (by * cw - bw * cy) - ay * (bx * cw - bw * cx) + aw * (bx * cy - by * cx);
}

/// Every triangle turns left and has no point in its circle; together they cover the hull once.
void ExpectDelaunay(const DataPoints& points) {
    const Triangulation triangulation = Triangulate(points);
    long double area = 0;
    for (const auto& [i, j, k] : triangulation.Triangles) {
        const long double turn = Turn(points[i], points[j], points[k]);
        EXPECT_GT(turn, 0);
        area += turn;
        for (const DataPoint& point : points) {
            EXPECT_LE(InCircle(points[i], points[j], points[k], point), 1e-12);
        }
    }
    long double hull = 0;
    for (const auto& [from, to] : triangulation.Hull) hull += Turn({}, points[from], points[to]);
    EXPECT_NEAR(static_cast<double>(std::fabs(hull)), static_cast<double>(area), 1e-9 * static_cast<double>(area));
    // Euler: a triangulation of n points with h of them on the hull has 2 n - 2 - h triangles.
    EXPECT_EQ(triangulation.Triangles.size(), 2 * points.size() - 2 - triangulation.Hull.size());
}

TEST(Delaunay, NoPointLiesInACircle) {
    for (const std::size_t count : {3u, 4u, 10u, 200u}) ExpectDelaunay(RandomPoints(count));
    ExpectDelaunay(LatticePoints(9, 7));
    ExpectDelaunay(ClusteredPoints(60));
}

TEST(Delaunay, TheSameTrianglesEachTime) {
    const DataPoints points = LatticePoints(40, 30);
    const Triangulation first = Triangulate(points);
    const Triangulation second = Triangulate(points);
    EXPECT_EQ(first.Triangles, second.Triangles);
    EXPECT_EQ(first.Hull, second.Hull);
}

TEST(Delaunay, PointsOnALineHaveNoTriangles) {
    EXPECT_TRUE(Triangulate(LatticePoints(5, 1)).Triangles.empty());
    EXPECT_TRUE(Triangulate({{1, 1, 1}}).Triangles.empty());
}

TEST(TriangulationGrid, APlaneComesBackAndOutsideIsBlank) {
    const Surface plane = [](double x, double y) { return 2 + 0.5 * y - 0.25 * x; };
    const DataPoints points = RandomPoints(500, plane);
    const Grid grid = Gridded(points, ShapeOf(41, 31, -1, 11, -1, 7));
    std::size_t blank = 0;
    for (int row = 0; row < 31; ++row) {
        for (int column = 0; column < 41; ++column) {
            const double x = grid.Shape.X(column);
            const double y = grid.Shape.Y(row);
            const double z = grid.At(column, row);
            if (z == kBlankHeight) {
                ++blank;
                EXPECT_TRUE(x < 0.5 || x > 9.5 || y < 0.5 || y > 5.5) << x << " " << y;
            } else {
                EXPECT_NEAR(z, plane(x, y), 1e-12);
                EXPECT_TRUE(x > 0 && x < 10 && y > 0 && y < 6) << x << " " << y;
            }
        }
    }
    EXPECT_GT(blank, 0u);
}

/// Heights by the triangles that hold a place, one after the other: several where it lies on an edge.
std::vector<double> NaiveHeights(const DataPoints& points, const Triangulation& triangulation, double x, double y) {
    std::vector<double> heights;
    const DataPoint place{.X = x, .Y = y, .Z = 0};
    for (const auto& [i, j, k] : triangulation.Triangles) {
        const long double a = Turn(points[j], points[k], place);
        const long double b = Turn(points[k], points[i], place);
        const long double c = Turn(points[i], points[j], place);
        if (a < -1e-13L || b < -1e-13L || c < -1e-13L) continue;
        heights.push_back(static_cast<double>((a * points[i].Z + b * points[j].Z + c * points[k].Z) / (a + b + c)));
    }
    return heights;
}

void ExpectLinearInTriangles(const DataPoints& points, const GridGeometry& shape) {
    const Grid grid = Gridded(points, shape);
    const Triangulation triangulation = Triangulate(points);
    for (int row = 0; row < shape.Rows; ++row) {
        for (int column = 0; column < shape.Columns; ++column) {
            const std::vector<double> heights = NaiveHeights(points, triangulation, shape.X(column), shape.Y(row));
            const double z = grid.At(column, row);
            if (heights.empty()) {
                EXPECT_EQ(z, kBlankHeight) << shape.X(column) << " " << shape.Y(row);
                continue;
            }
            const auto nearest = std::min_element(heights.begin(), heights.end(), [&](double a, double b) {
                return std::fabs(a - z) < std::fabs(b - z);
            });
            EXPECT_NEAR(z, *nearest, 1e-11) << shape.X(column) << " " << shape.Y(row);
        }
    }
}

TEST(TriangulationGrid, LinearInEachTriangle) {
    ExpectLinearInTriangles(RandomPoints(150), ShapeOf(37, 29, -1, 11, -1, 7));
    ExpectLinearInTriangles(RandomPoints(3), ShapeOf(37, 29, -1, 11, -1, 7));
    ExpectLinearInTriangles(RandomPoints(40), ShapeOf(2, 200, 4, 5, -1, 7));
    ExpectLinearInTriangles(LatticePoints(7, 6), ShapeOf(29, 23, -0.5, 6.5, -0.25, 5.25));
}

TEST(TriangulationGrid, NodesOnPointsTakeTheirHeights) {
    const DataPoints points = LatticePoints(12, 9);
    const Grid grid = Gridded(points, ShapeOf(12, 9, 0, 11, 0, 8));
    for (const DataPoint& point : points) EXPECT_EQ(grid.At(int(point.X), int(point.Y)), point.Z);
}

TEST(TriangulationGrid, TheHullsEdgeIsInside) {
    // A triangle with a level, an upright and a slanted edge, by nodes on all of them.
    const DataPoints points = {{0, 0, 0}, {3, 0, 3}, {0, 3, 6}};
    const Grid grid = Gridded(points, ShapeOf(11, 11, 0, 3, 0, 3));
    for (int i = 0; i <= 10; ++i) {
        EXPECT_NEAR(grid.At(i, 0), 0.3 * i, 1e-12);
        EXPECT_NEAR(grid.At(0, i), 0.6 * i, 1e-12);
        EXPECT_NEAR(grid.At(i, 10 - i), 0.3 * i + 0.6 * (10 - i), 1e-12);
        if (i > 0) {
            EXPECT_EQ(grid.At(i, 11 - i), kBlankHeight);
        }
    }
    EXPECT_EQ(BlankNodes(grid), 55u);
}

TEST(TriangulationGrid, TheEdgeReachesAsFarAsItsTolerance) {
    const DataPoints points = {{0, 0, 1}, {4, 0, 5}, {4, 2, 5}, {0, 2, 1}};
    const double side = 10;
    for (const double off : {0.9e-9 * side, 1.1e-9 * side}) {
        const Grid grid = Gridded(points, ShapeOf(3, 2, -side + 4 + off, 4 + off, 1, 2 + off));
        EXPECT_EQ(grid.At(2, 0) == kBlankHeight, off > 1e-9 * side);
        // In the corner the distance is that to the corner.
        EXPECT_EQ(grid.At(2, 1), kBlankHeight);
        if (off < 1e-9 * side) {
            EXPECT_EQ(grid.At(2, 0), 5);
        }
        EXPECT_EQ(grid.At(0, 0), kBlankHeight);
    }
}

TEST(TriangulationGrid, ThinTrianglesKeepBetweenTheirCorners) {
    DataPoints points;
    for (int i = 0; i <= 50; ++i) {
        points.push_back({.X = 0.2 * i, .Y = 1e-7 * (i % 3), .Z = double(i % 7)});
        points.push_back({.X = 0.2 * i, .Y = 3 + 1e-7 * (i % 2), .Z = double(i % 5)});
    }
    const Grid grid = Gridded(points, ShapeOf(301, 101, 0, 10, 0, 3));
    for (const double z : grid.Z) {
        if (z != kBlankHeight) {
            EXPECT_TRUE(z >= 0 && z <= 6) << z;
        }
    }
    EXPECT_EQ(BlankNodes(Gridded(points, ShapeOf(301, 101, 0, 10, 1e-6, 2.999999))), 0u);
}

// No node may fall between two triangles, wherever their edges run.
TEST(TriangulationGrid, TheInsideHasNoHoles) {
    for (const double unit : {1e-8, 1.0, 1e8}) {
        DataPoints points = RandomPoints(4'000);
        for (DataPoint& point : points) {
            point.X *= unit;
            point.Y *= unit;
        }
        const Grid grid = Gridded(points, ShapeOf(300, 200, 0.5 * unit, 9.5 * unit, 0.5 * unit, 5.5 * unit));
        EXPECT_EQ(BlankNodes(grid), 0u);
    }
}

TEST(TriangulationGrid, TheSameForAnyNumberOfThreads) {
    for (const DataPoints& points : {RandomPoints(3'000), LatticePoints(50, 40)}) {
        const GridGeometry shape = ShapeOf(99, 79, -1, 49, -1, 41);
        const ThreadsOf one(1);
        const Grid single = Gridded(points, shape);
        for (const int threads : {2, 3, 8}) {
            const ThreadsOf several(threads);
            EXPECT_EQ(Gridded(points, shape).Z, single.Z);
        }
    }
}

TEST(TriangulationGrid, TooFewPointsOrALine) {
    const GridGeometry shape = ShapeOf(3, 3, 0, 1, 0, 1);
    const auto kind = FailureKind::AutomationFailed;
    EXPECT_TRUE(FailsWith(
        kind,
        [&] {
            Gridded({{1, 2, 3}}, shape);
        },
        "needs three points, there are 1"));
    EXPECT_TRUE(FailsWith(
        kind,
        [&] {
            Gridded({{1, 2, 3}, {3, 1, 1}}, shape);
        },
        "needs three points, there are 2"));
    EXPECT_TRUE(FailsWith(
        kind,
        [&] {
            Gridded({{0.1, 0.3, 1}, {0.2, 0.6, 1}, {0.3, 0.9, 1}}, shape);
        },
        "don't all lie on a line"));
}

}  // namespace
}  // namespace crownlab
