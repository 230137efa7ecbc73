#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "support/random_numbers.h"

namespace crownlab {

/// A number from 0 up to 1.
inline double Share(RandomNumbers& random) { return static_cast<double>(random.Bits() >> 11) * 0x1p-53; }

/// Height as a function of the place.
using Surface = std::function<double(double x, double y)>;

inline double Waves(double x, double y) { return 3 + std::sin(1.7 * x) * std::cos(1.3 * y) + 0.25 * x - 0.5 * y; }

inline void SetHeights(DataPoints& points, const Surface& surface) {
    for (DataPoint& point : points) point.Z = surface(point.X, point.Y);
}

/// Points at random places of a box of 10 by 6.
inline DataPoints RandomPoints(std::size_t count, const Surface& surface = Waves) {
    RandomNumbers random;
    DataPoints points(count);
    for (DataPoint& point : points) {
        point.X = 10 * Share(random);
        point.Y = 6 * Share(random);
    }
    SetHeights(points, surface);
    return points;
}

/// Whole-numbered places, in an order that isn't the lattice's.
inline DataPoints LatticePoints(int columns, int rows, const Surface& surface = Waves) {
    DataPoints points;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < columns; ++x) points.push_back({.X = double(x), .Y = double(y), .Z = 0});
    }
    RandomNumbers random;
    for (std::size_t i = points.size(); i > 1; --i) std::swap(points[i - 1], points[random.Below(i)]);
    SetHeights(points, surface);
    return points;
}

/// Four tight clusters far from one another, and one point far off all.
inline DataPoints ClusteredPoints(std::size_t count, const Surface& surface = Waves) {
    RandomNumbers random;
    DataPoints points;
    for (std::size_t i = 0; i < count; ++i) {
        const double x = static_cast<double>(i % 2) * 8 + 0.01 * Share(random);
        const double y = static_cast<double>(i / 2 % 2) * 5 + 0.01 * Share(random);
        points.push_back({.X = x, .Y = y, .Z = 0});
    }
    points.push_back({.X = 100, .Y = 60, .Z = 0});
    SetHeights(points, surface);
    return points;
}

inline GridGeometry ShapeOf(int columns, int rows, double xMin, double xMax, double yMin, double yMax) {
    return {.Columns = columns, .Rows = rows, .XMin = xMin, .XMax = xMax, .YMin = yMin, .YMax = yMax};
}

/// Sets the number of worker threads until it goes.
class ThreadsOf {
public:
    explicit ThreadsOf(int threads) { setenv("CROWNLAB_THREADS", std::to_string(threads).c_str(), 1); }
    ThreadsOf(const ThreadsOf&) = delete;
    ThreadsOf& operator=(const ThreadsOf&) = delete;
    ~ThreadsOf() { unsetenv("CROWNLAB_THREADS"); }
};

/// Places of the points of each quadrant around x, y as a plain sort finds them, 16 of each at most: quadrants in the
/// order of Neighbours, nearest first, equally near ones as they are listed.
inline std::vector<std::size_t> SortedQuadrants(const DataPoints& points, double x, double y, double radiusSquared) {
    const auto squared = [&](std::size_t i) {
        const double dx = points[i].X - x;
        const double dy = points[i].Y - y;
        return dx * dx + dy * dy;
    };
    std::vector<std::size_t> found;
    for (const bool up : {true, false}) {
        for (const bool right : {true, false}) {
            std::vector<std::size_t> quadrant;
            for (std::size_t i = 0; i < points.size(); ++i) {
                const bool inside = (points[i].X >= x) == right && (points[i].Y >= y) == up;
                if (inside && squared(i) <= radiusSquared) quadrant.push_back(i);
            }
            std::stable_sort(quadrant.begin(), quadrant.end(),
                             [&](std::size_t a, std::size_t b) { return squared(a) < squared(b); });
            if (quadrant.size() > 16) quadrant.resize(16);
            found.insert(found.end(), quadrant.begin(), quadrant.end());
        }
    }
    return found;
}

/// What the rule for many points finds at a place, blank where it finds too few or has no rule for a place on a point:
/// the points that count there, all of them for up to 250.
struct CountingPoints {
    DataPoints Points;
    bool OnPoint = false;  ///< then Points holds that one alone
};
inline CountingPoints PointsThatCount(const DataPoints& points, double x, double y) {
    for (const DataPoint& point : points) {
        if (point.X == x && point.Y == y) return {.Points = {point}, .OnPoint = true};
    }
    if (points.size() <= 250) return {.Points = points, .OnPoint = false};
    const DataBox box = BoxOf(points);
    const double radiusSquared = (box.Width() * box.Width() + box.Height() * box.Height()) / 4;
    CountingPoints counting;
    for (const std::size_t i : SortedQuadrants(points, x, y, radiusSquared)) counting.Points.push_back(points[i]);
    if (counting.Points.size() < 8) counting.Points.clear();
    return counting;
}

/// Holds each node against `height` of the points that count there.
inline void ExpectNodes(const Grid& grid, const DataPoints& points, double tolerance,
                        const std::function<double(const DataPoints&, double, double)>& height) {
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            const double x = grid.Shape.X(column);
            const double y = grid.Shape.Y(row);
            const CountingPoints counting = PointsThatCount(points, x, y);
            if (counting.OnPoint) {
                EXPECT_EQ(grid.At(column, row), counting.Points[0].Z) << x << " " << y;
            } else if (counting.Points.empty()) {
                EXPECT_EQ(grid.At(column, row), kBlankHeight) << x << " " << y;
            } else {
                EXPECT_NEAR(grid.At(column, row), height(counting.Points, x, y), tolerance) << x << " " << y;
            }
        }
    }
}

inline std::size_t BlankNodes(const Grid& grid) {
    std::size_t blank = 0;
    for (const double z : grid.Z) blank += z == kBlankHeight ? 1 : 0;
    return blank;
}

}  // namespace crownlab
