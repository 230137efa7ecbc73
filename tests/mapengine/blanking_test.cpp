#include "mapengine/blanking.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>

#include "support/random_numbers.h"

namespace crownlab {
namespace {

Grid FlatGrid(int columns, int rows, double xMin, double xMax, double yMin, double yMax) {
    Grid grid(GridGeometry{.Columns = columns, .Rows = rows, .XMin = xMin, .XMax = xMax, .YMin = yMin, .YMax = yMax});
    for (double& z : grid.Z) z = 1;
    return grid;
}

/// One unit between nodes, x from 0 to 8, y from 0 to 5.
Grid UnitGrid() { return FlatGrid(9, 6, 0, 8, 0, 5); }

/// The grid as it stands on a page, highest row first: "#" for a node that is left, "." for a blank.
std::string Picture(const Grid& grid) {
    std::string picture;
    for (int row = grid.Shape.Rows - 1; row >= 0; --row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            picture += IsBlank(grid.At(column, row)) ? '.' : '#';
        }
        picture += '\n';
    }
    return picture;
}

std::string Blanked(Grid grid, const Boundary& boundary) {
    Progress progress;
    BlankByBoundary(grid, boundary, progress);
    return Picture(grid);
}

std::vector<PlanePoint> Box(double x1, double y1, double x2, double y2) {
    return {{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}};
}

const std::string kAll = "#########\n#########\n#########\n#########\n#########\n#########\n";
const std::string kNone = ".........\n.........\n.........\n.........\n.........\n.........\n";

TEST(Blanking, TakesTheInsideOrTheOutside) {
    EXPECT_EQ(Blanked(UnitGrid(), {Box(1.5, 0.5, 5.5, 3.5), true}),
              "#########\n"
              "#########\n"
              "##....###\n"
              "##....###\n"
              "##....###\n"
              "#########\n");
    EXPECT_EQ(Blanked(UnitGrid(), {Box(1.5, 0.5, 5.5, 3.5), false}),
              ".........\n"
              ".........\n"
              "..####...\n"
              "..####...\n"
              "..####...\n"
              ".........\n");
}

TEST(Blanking, LeavesTheEdgeAlone) {
    EXPECT_EQ(Blanked(UnitGrid(), {Box(1, 1, 5, 4), true}),
              "#########\n"
              "#########\n"
              "##...####\n"
              "##...####\n"
              "#########\n"
              "#########\n");
    EXPECT_EQ(Blanked(UnitGrid(), {Box(1, 1, 5, 4), false}),
              ".........\n"
              ".#####...\n"
              ".#####...\n"
              ".#####...\n"
              ".#####...\n"
              ".........\n");
    // A sloping edge passes through nodes too, and through vertices.
    EXPECT_EQ(Blanked(UnitGrid(), {{{0, 0}, {8, 4}, {0, 4}}, false}),
              ".........\n"
              "#########\n"
              "#######..\n"
              "#####....\n"
              "###......\n"
              "#........\n");
}

TEST(Blanking, TheEdgeReachesAThousandMillionthOfTheLargerSide) {
    // Larger side 8: 8E-9. What is 4E-9 off the edge lies on it, what is 1.6E-8 off doesn't.
    for (const double off : {4e-9, -4e-9}) {
        EXPECT_EQ(Blanked(UnitGrid(), {Box(1 - off, 1 - off, 5 + off, 4 + off), true}),
                  Blanked(UnitGrid(), {Box(1, 1, 5, 4), true}));
        EXPECT_EQ(Blanked(UnitGrid(), {Box(1 - off, 1 - off, 5 + off, 4 + off), false}),
                  Blanked(UnitGrid(), {Box(1, 1, 5, 4), false}));
    }
    EXPECT_EQ(Blanked(UnitGrid(), {Box(1 - 1.6e-8, 1 - 1.6e-8, 5 + 1.6e-8, 4 + 1.6e-8), true}),
              Blanked(UnitGrid(), {Box(0.5, 0.5, 5.5, 4.5), true}));
    EXPECT_EQ(Blanked(UnitGrid(), {Box(1 + 1.6e-8, 1 + 1.6e-8, 5 - 1.6e-8, 4 - 1.6e-8), false}),
              Blanked(UnitGrid(), {Box(1.5, 1.5, 4.5, 3.5), false}));
}

TEST(Blanking, ClosesAnOpenRing) {
    std::vector<PlanePoint> closed = Box(1.5, 0.5, 5.5, 3.5);
    closed.push_back(closed.front());
    EXPECT_EQ(Blanked(UnitGrid(), {closed, true}), Blanked(UnitGrid(), {Box(1.5, 0.5, 5.5, 3.5), true}));
}

TEST(Blanking, CountsCrossings) {
    // Twice around is outside again; a bow tie has two insides.
    std::vector<PlanePoint> twice = Box(1.5, 0.5, 5.5, 3.5);
    twice.push_back(twice.front());
    twice.insert(twice.end(), twice.begin(), twice.begin() + 4);
    EXPECT_EQ(Blanked(UnitGrid(), {twice, true}), kAll);
    EXPECT_EQ(Blanked(UnitGrid(), {{{0.5, 0.5}, {7.5, 4.5}, {7.5, 0.5}, {0.5, 4.5}}, true}),
              "#########\n"
              "#.#####.#\n"
              "#...#...#\n"
              "#...#...#\n"
              "#.#####.#\n"
              "#########\n");
}

TEST(Blanking, ARingOfFewerThanThreePointsHasNoInside) {
    for (const std::vector<PlanePoint>& points : {
             std::vector<PlanePoint>{},
             {{2.5, 2.5}},
             {{2.5, 2.5}, {2.5, 2.5}, {2.5, 2.5}},
             {{0.5, 0.5}, {6.5, 3.5}},
             {{0.5, 0.5}, {6.5, 3.5}, {0.5, 0.5}, {6.5, 3.5}, {0.5, 0.5}},
         }) {
        EXPECT_EQ(Blanked(UnitGrid(), {points, true}), kAll);
        EXPECT_EQ(Blanked(UnitGrid(), {points, false}), kNone);
    }
    // It has an edge all the same.
    EXPECT_EQ(Blanked(UnitGrid(), {{{1, 1}, {7, 4}}, false}),
              ".........\n"
              ".......#.\n"
              ".....#...\n"
              "...#.....\n"
              ".#.......\n"
              ".........\n");
    EXPECT_EQ(Blanked(UnitGrid(), {{{3, 2}}, false}),
              ".........\n"
              ".........\n"
              ".........\n"
              "...#.....\n"
              ".........\n"
              ".........\n");
}

TEST(Blanking, LeavesBlanksAsTheyAre) {
    Grid grid = UnitGrid();
    grid.At(0, 0) = kBlankHeight;
    grid.At(3, 2) = kBlankHeight;
    Progress progress;
    BlankByBoundary(grid, {Box(1.5, 0.5, 5.5, 3.5), true}, progress);
    EXPECT_EQ(grid.At(0, 0), kBlankHeight);
    EXPECT_EQ(grid.At(3, 2), kBlankHeight);
    EXPECT_EQ(grid.At(8, 5), 1);
}

TEST(Blanking, ARingMayReachBeyondTheGridAndAnyNumber) {
    EXPECT_EQ(Blanked(UnitGrid(), {Box(-10, -10, 100, 100), true}), kNone);
    EXPECT_EQ(Blanked(UnitGrid(), {Box(-10, -10, 100, 100), false}), kAll);
    EXPECT_EQ(Blanked(UnitGrid(), {Box(-1e308, -1e308, 1.5e308, 1.5e308), true}), kNone);
    EXPECT_EQ(Blanked(UnitGrid(), {Box(20, 20, 30, 30), true}), kAll);
    EXPECT_EQ(Blanked(UnitGrid(), {Box(-1e308, 2.5, 1.5e308, 1e308), true}),
              ".........\n.........\n.........\n#########\n#########\n#########\n");
}

TEST(Blanking, ADiscHasTheAreaOfACircle) {
    constexpr double radius = 0.8;
    constexpr int nodes = 1001;
    Grid grid = FlatGrid(nodes, nodes, -1, 1, -1, 1);
    Boundary circle{{}, false};
    for (int i = 0; i < 3000; ++i) {
        const double angle = 2 * std::numbers::pi * i / 3000;
        circle.Points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    Progress progress;
    BlankByBoundary(grid, circle, progress);
    int left = 0;
    for (int row = 0; row < nodes; ++row) {
        for (int column = 0; column < nodes; ++column) {
            const double distance = std::hypot(grid.Shape.X(column), grid.Shape.Y(row));
            const bool isLeft = !IsBlank(grid.At(column, row));
            left += isLeft ? 1 : 0;
            // A chord runs at most radius (1 - cos(pi / 3000)), 4.4E-7, inside its circle.
            if (std::fabs(distance - radius) > 1e-6) {
                ASSERT_EQ(isLeft, distance < radius) << column << " " << row;
            }
        }
    }
    const double area = left * grid.Shape.SpacingX() * grid.Shape.SpacingY();
    EXPECT_NEAR(area, std::numbers::pi * radius * radius, 1e-3);
}

/// Every node against every edge.
bool StaysAfter(const Boundary& boundary, double x, double y, double tolerance) {
    const std::vector<PlanePoint>& points = boundary.Points;
    bool inside = false;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const PlanePoint a = points[i];
        const PlanePoint b = points[(i + 1) % points.size()];
        const double dx = b.x - a.x, dy = b.y - a.y;
        const double length = dx * dx + dy * dy;
        const double t = length > 0 ? std::fmin(std::fmax(((x - a.x) * dx + (y - a.y) * dy) / length, 0), 1) : 0;
        if (std::hypot(x - a.x - t * dx, y - a.y - t * dy) <= tolerance) return true;
        if ((a.y > y) != (b.y > y) && x > a.x + (y - a.y) / dy * dx) inside = !inside;
    }
    return inside != boundary.BlanksInside;
}

void ExpectAsByBruteForce(const Boundary& boundary, const Grid& grid) {
    Grid blanked = grid;
    Progress progress;
    BlankByBoundary(blanked, boundary, progress);
    Grid expected = grid;
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            if (!StaysAfter(boundary, grid.Shape.X(column), grid.Shape.Y(row), grid.Shape.Tolerance())) {
                expected.At(column, row) = kBlankHeight;
            }
        }
    }
    ASSERT_EQ(Picture(blanked), Picture(expected));
}

TEST(Blanking, AgreesWithBruteForceOnRandomRings) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 200; ++i) {
        const Grid grid = FlatGrid(2 + static_cast<int>(random.Below(40)), 2 + static_cast<int>(random.Below(90)), -3,
                                   4, 100, 100.5 + static_cast<double>(random.Below(20)));
        Boundary boundary{{}, random.Below(2) == 0};
        for (std::uint64_t count = random.Below(30); count > 0; --count) {
            // A vertex on a node, in line with nodes, or anywhere near the grid.
            const auto part = [&] { return static_cast<double>(random.Below(1400)) / 1000 - 0.2; };
            const double x =
                random.Below(3) == 0
                    ? grid.Shape.X(static_cast<int>(random.Below(static_cast<std::uint64_t>(grid.Shape.Columns))))
                    : -3 + 7 * part();
            const double y =
                random.Below(3) == 0
                    ? grid.Shape.Y(static_cast<int>(random.Below(static_cast<std::uint64_t>(grid.Shape.Rows))))
                    : 100 + (grid.Shape.YMax - 100) * part();
            boundary.Points.push_back({x, y});
        }
        ExpectAsByBruteForce(boundary, grid);
    }
}

TEST(Blanking, IsTheSameForAnyNumberOfThreads) {
    Boundary star{{}, true};
    for (int i = 0; i < 101; ++i) {
        const double angle = 2 * std::numbers::pi * 40 * i / 101;
        star.Points.push_back({std::cos(angle), std::sin(angle)});
    }
    std::string first;
    for (const char* const threads : {"1", "2", "7"}) {
        setenv("CROWNLAB_THREADS", threads, 1);
        const std::string picture = Blanked(FlatGrid(300, 301, -1, 1, -1, 1), star);
        EXPECT_TRUE(first.empty() || picture == first);
        first = picture;
    }
    unsetenv("CROWNLAB_THREADS");
}

}  // namespace
}  // namespace crownlab
