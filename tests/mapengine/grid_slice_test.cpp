#include "mapengine/grid_slice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "mapengine/bilinear_height.h"
#include "mapengine/test_grids.h"

namespace crownlab {
namespace {

/// x from 0 to 4 and y from 0 to 6, each by 1 and 2: columns at 0 1 2 3 4, rows at 0 2 4 6.
constexpr GridGeometry kShape{.Columns = 5, .Rows = 4, .XMin = 0, .XMax = 4, .YMin = 0, .YMax = 6};

Grid Plane() {
    return GridOf(kShape, [](double x, double y) { return 10 + 2 * x - 3 * y; });
}

std::vector<SlicePlace> Slice(const Grid& grid, const std::vector<PlanePoint>& line) {
    std::vector<SlicePlace> places;
    WalkSlice(grid, line, [&](const SlicePlace& place) { places.push_back(place); });
    return places;
}

std::vector<PlanePoint> PlacesOf(const std::vector<SlicePlace>& slice) {
    std::vector<PlanePoint> places;
    places.reserve(slice.size());
    for (const SlicePlace& place : slice) places.push_back({place.X, place.Y});
    return places;
}

using Places = std::vector<PlanePoint>;

TEST(GridSlice, VerticesAndCrossingsInOrder) {
    //  y=2 ----+----+----      from (0.5, 1) to (2.5, 3): column 1 at (1, 1.5), row 2 at (1.5, 2), column 2 at
    //          |  / |          (2, 2.5)
    const auto slice = Slice(Plane(), {{0.5, 1}, {2.5, 3}});
    EXPECT_EQ(PlacesOf(slice), (Places{{0.5, 1}, {1, 1.5}, {1.5, 2}, {2, 2.5}, {2.5, 3}}));
    for (std::size_t i = 0; i < slice.size(); ++i) {
        EXPECT_NEAR(slice[i].Z, 10 + 2 * slice[i].X - 3 * slice[i].Y, 1e-14);
        EXPECT_NEAR(slice[i].Distance, 0.5 * std::sqrt(2.0) * static_cast<double>(i), 1e-14);
    }
}

TEST(GridSlice, BackwardsIsTheSameTurnedRound) {
    const auto there = PlacesOf(Slice(Plane(), {{0.25, 5.5}, {3.75, 0.25}}));
    auto back = PlacesOf(Slice(Plane(), {{3.75, 0.25}, {0.25, 5.5}}));
    std::reverse(back.begin(), back.end());
    ASSERT_EQ(there.size(), back.size());
    for (std::size_t i = 0; i < there.size(); ++i) {
        EXPECT_NEAR(there[i].x, back[i].x, 1e-14);
        EXPECT_NEAR(there[i].y, back[i].y, 1e-14);
    }
}

TEST(GridSlice, ThroughNodesEachPlaceOnce) {
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{0, 0}, {3, 6}})), (Places{{0, 0}, {1, 2}, {2, 4}, {3, 6}}));
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{0.5, 1}, {2.5, 5}})), (Places{{0.5, 1}, {1, 2}, {2, 4}, {2.5, 5}}));
}

TEST(GridSlice, AlongGridLines) {
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{0.5, 2}, {2.5, 2}})), (Places{{0.5, 2}, {1, 2}, {2, 2}, {2.5, 2}}));
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{3, 5}, {3, 1}})), (Places{{3, 5}, {3, 4}, {3, 2}, {3, 1}}));
    // On the edge of the grid, from off it to off it.
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{4, -1}, {4, 7}})), (Places{{4, -1}, {4, 0}, {4, 2}, {4, 4}, {4, 6}, {4, 7}}));
}

TEST(GridSlice, VerticalAndLevelLinesBetweenGridLines) {
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{1.5, 0.5}, {1.5, 5}})), (Places{{1.5, 0.5}, {1.5, 2}, {1.5, 4}, {1.5, 5}}));
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{3.5, 3}, {1.5, 3}})), (Places{{3.5, 3}, {3, 3}, {2, 3}, {1.5, 3}}));
}

TEST(GridSlice, OffTheGridThereAreOnlyVertices) {
    const auto slice = Slice(Plane(), {{-2, 3}, {-1, 3}, {0.5, 3}, {0.5, 8}, {9, 8}});
    EXPECT_EQ(PlacesOf(slice), (Places{{-2, 3}, {-1, 3}, {0, 3}, {0.5, 3}, {0.5, 4}, {0.5, 6}, {0.5, 8}, {9, 8}}));
    const std::vector<double> z{kBlankHeight, kBlankHeight, 1, 2, -1, -7, kBlankHeight, kBlankHeight};
    const std::vector<double> distance{0, 1, 2, 2.5, 3.5, 5.5, 7.5, 16};
    for (std::size_t i = 0; i < slice.size(); ++i) {
        EXPECT_DOUBLE_EQ(slice[i].Z, z[i]) << i;
        EXPECT_DOUBLE_EQ(slice[i].Distance, distance[i]) << i;
    }
}

TEST(GridSlice, LinePastTheGridHasItsVerticesOnly) {
    // It crosses the columns' and rows' lengthenings, but never the grid.
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{-3, 5}, {1, 9}, {3, 9}})), (Places{{-3, 5}, {1, 9}, {3, 9}}));
}

TEST(GridSlice, CornerOfTheGridIsTouchedOnce) {
    const auto slice = Slice(Plane(), {{-1, 1}, {1, -1}});
    EXPECT_EQ(PlacesOf(slice), (Places{{-1, 1}, {0, 0}, {1, -1}}));
    EXPECT_EQ(slice[1].Z, 10);
}

TEST(GridSlice, RepeatedVerticesAreOnePlace) {
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{1, 2}, {1, 2}, {1, 2}})), (Places{{1, 2}}));
    EXPECT_EQ(PlacesOf(Slice(Plane(), {{0.5, 1}, {0.5, 1}, {1.5, 1}, {1.5, 1}, {2, 1}})),
              (Places{{0.5, 1}, {1, 1}, {1.5, 1}, {2, 1}}));
}

TEST(GridSlice, PlaceThatIsComeToAgainIsToldAgain) {
    const auto slice = Slice(Plane(), {{0.5, 1}, {1.5, 1}, {0.5, 1}});
    EXPECT_EQ(PlacesOf(slice), (Places{{0.5, 1}, {1, 1}, {1.5, 1}, {1, 1}, {0.5, 1}}));
    EXPECT_DOUBLE_EQ(slice.back().Distance, 2);
}

TEST(GridSlice, NoVertexAndOneVertex) {
    EXPECT_TRUE(Slice(Plane(), {}).empty());
    const auto slice = Slice(Plane(), {{2.5, 1}});
    ASSERT_EQ(slice.size(), 1u);
    EXPECT_EQ(slice[0].Z, 12);
    EXPECT_EQ(slice[0].Distance, 0);
}

TEST(GridSlice, BilinearInsideACell) {
    Grid grid(kShape);
    grid.At(1, 1) = 0;
    grid.At(2, 1) = 8;
    grid.At(1, 2) = 4;
    grid.At(2, 2) = 20;
    EXPECT_EQ(Slice(grid, {{1.5, 3}})[0].Z, 8);
    EXPECT_EQ(Slice(grid, {{1.25, 2.5}})[0].Z, 0.75 * 0.75 * 0 + 0.25 * 0.75 * 8 + 0.75 * 0.25 * 4 + 0.25 * 0.25 * 20);
}

TEST(GridSlice, BlankNodesMatterWhereTheyWeigh) {
    Grid grid = Plane();
    grid.At(2, 1) = kBlankHeight;  // at (2, 2)
    const auto slice = Slice(grid, {{0.5, 2}, {3.5, 2}});
    EXPECT_EQ(PlacesOf(slice), (Places{{0.5, 2}, {1, 2}, {2, 2}, {3, 2}, {3.5, 2}}));
    EXPECT_EQ(slice[0].Z, 5);
    EXPECT_EQ(slice[1].Z, 6);  // a node of its own: the blank one next to it weighs nothing
    EXPECT_EQ(slice[2].Z, kBlankHeight);
    EXPECT_EQ(slice[3].Z, 10);
    // On the grid line above, and inside the four cells around the blank node.
    EXPECT_EQ(Slice(grid, {{1.5, 4}})[0].Z, 1);
    EXPECT_EQ(Slice(grid, {{1.5, 3.9}})[0].Z, kBlankHeight);
    EXPECT_EQ(Slice(grid, {{2, 3}})[0].Z, kBlankHeight);
    EXPECT_EQ(Slice(grid, {{1, 3}})[0].Z, 3);
}

TEST(GridSlice, WithinTheToleranceOfTheEdgeIsOnIt) {
    // The larger side is 6: 6e-9.
    EXPECT_DOUBLE_EQ(Slice(Plane(), {{-5e-9, 3}})[0].Z, 1);
    EXPECT_EQ(Slice(Plane(), {{-7e-9, 3}})[0].Z, kBlankHeight);
    EXPECT_DOUBLE_EQ(Slice(Plane(), {{2, 6 + 5e-9}})[0].Z, -4);
    EXPECT_EQ(Slice(Plane(), {{2, 6 + 7e-9}})[0].Z, kBlankHeight);
    // A line a hair's breadth off the edge still meets the columns there.
    const auto slice = Slice(Plane(), {{0.5, -4e-9}, {2.5, -4e-9}});
    EXPECT_EQ(PlacesOf(slice), (Places{{0.5, -4e-9}, {1, 0}, {2, 0}, {2.5, -4e-9}}));
}

TEST(GridSlice, FarAndHugeCoordinatesComeToAnEnd) {
    const auto slice = Slice(Plane(), {{-1e300, 3}, {1e300, 3}, {1e308, -1e308}, {-1e308, 1e308}});
    EXPECT_EQ(slice.front().Z, kBlankHeight);
    EXPECT_EQ(slice.back().Z, kBlankHeight);
    const auto far = Slice(Plane(), {{-1e9, 3}, {1e9, 3}});
    EXPECT_EQ(far.size(), 7u);
}

TEST(GridSlice, PositionsAreTheGridsOwn) {
    // Spacings that no 64-bit float holds: crossings carry the column's very position, and the last one is the limit.
    const Grid grid = GridOf({.Columns = 8, .Rows = 4, .XMin = 0.1, .XMax = 0.8, .YMin = 0, .YMax = 0.3},
                             [](double x, double) { return x; });
    const auto slice = Slice(grid, {{0.05, 0.123}, {0.95, 0.123}});
    ASSERT_EQ(slice.size(), 10u);
    for (int column = 0; column < 8; ++column) {
        EXPECT_EQ(slice[static_cast<std::size_t>(column) + 1].X, grid.Shape.X(column));
        EXPECT_EQ(slice[static_cast<std::size_t>(column) + 1].Z, grid.Shape.X(column));
    }
}

// ---- The literal way: go along the line in small steps, and where the cell changes, halve until the place is found.

int CellNumber(double at, double low, double spacing) { return static_cast<int>(std::floor((at - low) / spacing)); }

struct Stepper {
    PlanePoint From, To;
    PlanePoint At(double t) const { return {From.x + t * (To.x - From.x), From.y + t * (To.y - From.y)}; }
};

/// Shares of the way from `from` to `to` at which the column or row changes, in order.
std::vector<double> CrossingsBySteps(const GridGeometry& shape, const Stepper& way) {
    constexpr int steps = 20000;
    std::vector<double> crossings;
    const auto cell = [&](double t, bool x) {
        const PlanePoint p = way.At(t);
        return x ? CellNumber(p.x, shape.XMin, shape.SpacingX()) : CellNumber(p.y, shape.YMin, shape.SpacingY());
    };
    for (const bool x : {true, false}) {
        for (int i = 0; i < steps; ++i) {
            double low = static_cast<double>(i) / steps;
            double high = static_cast<double>(i + 1) / steps;
            if (cell(low, x) == cell(high, x)) continue;
            const int before = cell(low, x);
            for (int k = 0; k < 60; ++k) (cell((low + high) / 2, x) == before ? low : high) = (low + high) / 2;
            const PlanePoint p = way.At(high);
            const double slack = 1e-9;
            if (p.x < shape.XMin - slack || p.x > shape.XMax + slack) continue;
            if (p.y < shape.YMin - slack || p.y > shape.YMax + slack) continue;
            crossings.push_back(high);
        }
    }
    std::sort(crossings.begin(), crossings.end());
    return crossings;
}

double LiteralHeight(const Grid& grid, const PlanePoint& p) {
    const GridGeometry& shape = grid.Shape;
    double sum = 0;
    for (int row = 0; row < shape.Rows; ++row) {
        for (int column = 0; column < shape.Columns; ++column) {
            const double u = 1 - std::abs(p.x - shape.X(column)) / shape.SpacingX();
            const double v = 1 - std::abs(p.y - shape.Y(row)) / shape.SpacingY();
            if (u <= 1e-9 || v <= 1e-9) continue;
            if (IsBlank(grid.At(column, row))) return kBlankHeight;
            sum += u * v * grid.At(column, row);
        }
    }
    return sum;
}

TEST(GridSlice, RandomLinesAgreeWithSmallSteps) {
    RandomNumbers random;
    SCOPED_TRACE(kRandomSeed);
    const auto between = [&](double low, double high) {
        return low + (high - low) * static_cast<double>(random.Below(1000003)) / 1000003;
    };
    for (int round = 0; round < 40; ++round) {
        const GridGeometry shape =
            ShapeOf(3 + static_cast<int>(random.Below(7)), 3 + static_cast<int>(random.Below(9)));
        const Grid grid = RandomGrid(random, shape, 9);
        const Stepper way{{between(shape.XMin - 1, shape.XMax + 1), between(shape.YMin - 1, shape.YMax + 1)},
                          {between(shape.XMin - 1, shape.XMax + 1), between(shape.YMin - 1, shape.YMax + 1)}};
        const std::vector<double> crossings = CrossingsBySteps(shape, way);
        const auto slice = Slice(grid, {way.From, way.To});
        ASSERT_EQ(slice.size(), crossings.size() + 2) << "round " << round;
        for (std::size_t i = 0; i < crossings.size(); ++i) {
            const PlanePoint p = way.At(crossings[i]);
            const SlicePlace& place = slice[i + 1];
            EXPECT_NEAR(place.X, p.x, 1e-9);
            EXPECT_NEAR(place.Y, p.y, 1e-9);
            EXPECT_NEAR(place.Distance, crossings[i] * std::hypot(way.To.x - way.From.x, way.To.y - way.From.y), 1e-9);
            const double height = LiteralHeight(grid, {place.X, place.Y});
            if (IsBlank(height) || IsBlank(place.Z)) {
                EXPECT_EQ(place.Z, height) << place.X << ", " << place.Y;
            } else {
                EXPECT_NEAR(place.Z, height, 1e-9);
            }
        }
    }
}

TEST(BilinearHeight, EveryNodeHasItsOwnHeight) {
    RandomNumbers random;
    for (const double low : {0.1, -1e8, 1e-8}) {
        const GridGeometry shape{.Columns = 23, .Rows = 17, .XMin = low, .XMax = low + 0.7, .YMin = 1, .YMax = 1.3};
        const Grid grid = RandomGrid(random, shape, 4);
        for (int row = 0; row < shape.Rows; ++row) {
            for (int column = 0; column < shape.Columns; ++column) {
                EXPECT_EQ(BilinearHeight(grid, shape.X(column), shape.Y(row)), grid.At(column, row));
            }
        }
    }
}

TEST(BilinearHeight, PlaceThatIsNoNumberHasNone) {
    EXPECT_EQ(BilinearHeight(Plane(), std::nan(""), 1), kBlankHeight);
    EXPECT_EQ(BilinearHeight(Plane(), 1, HUGE_VAL), kBlankHeight);
}

}  // namespace
}  // namespace crownlab
