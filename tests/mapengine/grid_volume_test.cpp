#include "mapengine/grid_volume.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "mapengine/quadrature.h"
#include "mapengine/test_grids.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

GridVolumes Measure(const Grid& upper, double constant) {
    Progress progress;
    return MeasureVolume(upper, {.Heights = nullptr, .Constant = constant}, progress);
}

GridVolumes Measure(const Grid& upper, const Grid& lower) {
    Progress progress;
    return MeasureVolume(upper, {.Heights = &lower, .Constant = 0}, progress);
}

// ---- The literal way: polygons in space, cut corner by corner.

struct SpacePoint {
    double x = 0, y = 0;
    double z = 0;  ///< of the upper surface
    double d = 0;  ///< upper less lower
};
using Polygon = std::vector<SpacePoint>;

/// The part of a polygon where sign * d is above 0, with the cuts (Sutherland and Hodgman).
Polygon Clip(const Polygon& polygon, double sign) {
    Polygon part;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const SpacePoint& a = polygon[i];
        const SpacePoint& b = polygon[(i + 1) % polygon.size()];
        if (sign * a.d >= 0) part.push_back(a);
        if (a.d * b.d < 0) {
            const double t = a.d / (a.d - b.d);
            part.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z), 0});
        }
    }
    return part;
}

struct Measured {
    double Volume = 0, Planar = 0, Surface = 0;
};

/// Adds a polygon as a fan of triangles; nothing where the difference is 0 all over it.
void Add(const Polygon& polygon, Measured& sums) {
    bool level = true;
    for (const SpacePoint& p : polygon) level = level && p.d == 0;
    if (level) return;
    for (std::size_t i = 2; i < polygon.size(); ++i) {
        const SpacePoint& a = polygon[0];
        const SpacePoint& b = polygon[i - 1];
        const SpacePoint& c = polygon[i];
        const std::array<double, 3> u{b.x - a.x, b.y - a.y, b.z - a.z};
        const std::array<double, 3> v{c.x - a.x, c.y - a.y, c.z - a.z};
        const double nx = u[1] * v[2] - u[2] * v[1];
        const double ny = u[2] * v[0] - u[0] * v[2];
        const double nz = u[0] * v[1] - u[1] * v[0];
        sums.Planar += std::abs(nz) / 2;
        sums.Surface += std::sqrt(nx * nx + ny * ny + nz * nz) / 2;
        sums.Volume += std::abs(nz) / 2 * std::abs(a.d + b.d + c.d) / 3;
    }
}

struct Literal {
    Measured Above, Below;
    double Blank = 0;
};

Literal MeasureLiterally(const Grid& upper, const Grid& lower) {
    Literal sums;
    const GridGeometry& shape = upper.Shape;
    for (int row = 0; row + 1 < shape.Rows; ++row) {
        for (int column = 0; column + 1 < shape.Columns; ++column) {
            Polygon corners;
            bool blank = false;
            SpacePoint middle;
            for (const auto& [i, j] : {std::pair{0, 0}, {1, 0}, {1, 1}, {0, 1}}) {
                const double z = upper.At(column + i, row + j);
                const double base = lower.At(column + i, row + j);
                blank = blank || IsBlank(z) || IsBlank(base);
                corners.push_back({shape.X(column + i), shape.Y(row + j), z, z - base});
                middle.x += corners.back().x / 4;
                middle.y += corners.back().y / 4;
                middle.z += z / 4;
                middle.d += (z - base) / 4;
            }
            if (blank) {
                sums.Blank += (corners[2].x - corners[0].x) * (corners[2].y - corners[0].y);
                continue;
            }
            for (std::size_t side = 0; side < 4; ++side) {
                const Polygon triangle{corners[side], corners[(side + 1) % 4], middle};
                Add(Clip(triangle, 1), sums.Above);
                Add(Clip(triangle, -1), sums.Below);
            }
        }
    }
    return sums;
}

void ExpectAgrees(const GridVolumes& volumes, const Literal& literal) {
    const double tolerance = 1e-9;
    EXPECT_NEAR(volumes.Above, literal.Above.Volume, tolerance);
    EXPECT_NEAR(volumes.PlanarAbove, literal.Above.Planar, tolerance);
    EXPECT_NEAR(volumes.SurfaceAbove, literal.Above.Surface, tolerance);
    EXPECT_NEAR(volumes.Below, literal.Below.Volume, tolerance);
    EXPECT_NEAR(volumes.PlanarBelow, literal.Below.Planar, tolerance);
    EXPECT_NEAR(volumes.SurfaceBelow, literal.Below.Surface, tolerance);
    EXPECT_NEAR(volumes.PlanarBlank, literal.Blank, tolerance);
}

TEST(GridVolume, RandomGridsAgreeWithClippedPolygons) {
    RandomNumbers random;
    SCOPED_TRACE(kRandomSeed);
    for (int round = 0; round < 60; ++round) {
        const GridGeometry shape =
            ShapeOf(2 + static_cast<int>(random.Below(40)), 2 + static_cast<int>(random.Below(70)));
        const std::uint64_t blanks = round % 3 == 0 ? 0 : 12;
        const Grid upper = RandomGrid(random, shape, blanks);
        const Grid lower = RandomGrid(random, shape, blanks * 2);
        ExpectAgrees(Measure(upper, lower), MeasureLiterally(upper, lower));
        const Grid level = GridOf(shape, [](double, double) { return 1.5; });
        ExpectAgrees(Measure(upper, 1.5), MeasureLiterally(upper, level));
    }
}

// ---- Closed forms.

TEST(GridVolume, TiltedPlaneCutsZeroInTheMiddle) {
    // z = x over [-1, 1] by [0, 3]: half above, half below, sloped by 45 degrees. The columns don't meet the zero line.
    const Grid plane = GridOf({.Columns = 4, .Rows = 5, .XMin = -1, .XMax = 1, .YMin = 0, .YMax = 3},
                              [](double x, double) { return x; });
    const GridVolumes volumes = Measure(plane, 0);
    EXPECT_NEAR(volumes.Above, 1.5, 1e-14);
    EXPECT_NEAR(volumes.Below, 1.5, 1e-14);
    EXPECT_NEAR(volumes.PlanarAbove, 3, 1e-14);
    EXPECT_NEAR(volumes.PlanarBelow, 3, 1e-14);
    EXPECT_NEAR(volumes.SurfaceAbove, 3 * std::numbers::sqrt2, 1e-14);
    EXPECT_NEAR(volumes.SurfaceBelow, 3 * std::numbers::sqrt2, 1e-14);
    EXPECT_NEAR(volumes.Simpson, 0, 1e-14);
    EXPECT_NEAR(volumes.ThreeEighths, 0, 1e-14);
    EXPECT_EQ(volumes.PlanarBlank, 0);
}

TEST(GridVolume, PlaneAcrossTheDiagonal) {
    // z = x + y - 1 over the unit square: above it the triangle beyond the diagonal, a tetrahedron of volume 1/6.
    for (const auto& [columns, rows] : {std::pair{2, 2}, {3, 3}, {5, 5}, {2, 7}, {6, 4}}) {
        const Grid plane = GridOf({.Columns = columns, .Rows = rows, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1},
                                  [](double x, double y) { return x + y - 1; });
        const GridVolumes volumes = Measure(plane, 0);
        EXPECT_NEAR(volumes.Above, 1.0 / 6, 1e-14) << columns << " by " << rows;
        EXPECT_NEAR(volumes.Below, 1.0 / 6, 1e-14);
        EXPECT_NEAR(volumes.PlanarAbove, 0.5, 1e-14);
        EXPECT_NEAR(volumes.SurfaceBelow, 0.5 * std::sqrt(3.0), 1e-14);
    }
}

TEST(GridVolume, PlaneAboveAPlane) {
    const GridGeometry shape{.Columns = 7, .Rows = 4, .XMin = 10, .XMax = 16, .YMin = 5, .YMax = 11};
    const Grid upper = GridOf(shape, [](double x, double y) { return 3 * x + 4 * y + 100; });
    const Grid lower = GridOf(shape, [](double x, double y) { return x - y; });
    // Difference 2x + 5y + 100, at the middle (13, 8) 166, over 36; the upper plane's area is sqrt(26) times that.
    const GridVolumes volumes = Measure(upper, lower);
    EXPECT_NEAR(volumes.Above, 166.0 * 36, 1e-10);
    EXPECT_EQ(volumes.Below, 0);
    EXPECT_EQ(volumes.PlanarAbove, 36);
    EXPECT_EQ(volumes.PlanarBelow, 0);
    EXPECT_NEAR(volumes.SurfaceAbove, 36 * std::sqrt(26.0), 1e-11);
    EXPECT_EQ(volumes.SurfaceBelow, 0);
    EXPECT_NEAR(volumes.Simpson, 166.0 * 36, 1e-10);
    EXPECT_NEAR(volumes.ThreeEighths, 166.0 * 36, 1e-10);
}

TEST(GridVolume, EqualSurfacesHaveNothingBetweenThem) {
    const Grid grid = GridOf(ShapeOf(5, 4), [](double x, double y) { return x * y; });
    const GridVolumes volumes = Measure(grid, grid);
    EXPECT_EQ(volumes.Above, 0);
    EXPECT_EQ(volumes.Below, 0);
    EXPECT_EQ(volumes.PlanarAbove, 0);
    EXPECT_EQ(volumes.PlanarBelow, 0);
    EXPECT_EQ(volumes.SurfaceAbove, 0);
    EXPECT_EQ(volumes.SurfaceBelow, 0);
}

TEST(GridVolume, SurfaceThatOnlyTouchesZeroLiesAboveIt) {
    // Zero on a whole row: the flat strip beyond it counts to neither side.
    const Grid grid = GridOf({.Columns = 3, .Rows = 4, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 3},
                             [](double, double y) { return std::max(0.0, y - 1); });
    const GridVolumes volumes = Measure(grid, 0);
    EXPECT_EQ(volumes.PlanarAbove, 4);
    EXPECT_EQ(volumes.PlanarBelow, 0);
    EXPECT_EQ(volumes.Above, 4);
    EXPECT_EQ(volumes.Below, 0);
}

TEST(GridVolume, Hemisphere) {
    const double radius = 2;
    const Grid grid =
        GridOf({.Columns = 601, .Rows = 501, .XMin = -2.5, .XMax = 2.5, .YMin = -2.25, .YMax = 2.25},
               [&](double x, double y) { return std::sqrt(std::max(0.0, radius * radius - x * x - y * y)); });
    const GridVolumes volumes = Measure(grid, 0);
    EXPECT_NEAR(volumes.Above, 2.0 / 3 * std::numbers::pi * 8, 0.01);
    EXPECT_NEAR(volumes.Simpson, 2.0 / 3 * std::numbers::pi * 8, 0.01);
    EXPECT_NEAR(volumes.PlanarAbove, std::numbers::pi * 4, 0.1);  // the ring of cells around the rim is above too
    // Above height 1 the rim is cut exactly: cap of height 1, base radius² 3.
    const GridVolumes cap = Measure(grid, 1);
    EXPECT_NEAR(cap.Above, std::numbers::pi * (3 * 2 - 1) / 3, 1e-3);
    EXPECT_NEAR(cap.PlanarAbove, std::numbers::pi * 3, 1e-3);
    EXPECT_NEAR(cap.SurfaceAbove, 2 * std::numbers::pi * 2 * 1, 1e-3);
}

TEST(GridVolume, Cone) {
    // Height 1 over a circle of radius 1, cut at z = 0: volume pi/3, mantle pi sqrt(2).
    const Grid grid = GridOf({.Columns = 401, .Rows = 301, .XMin = -1.5, .XMax = 1.5, .YMin = -1.25, .YMax = 1.25},
                             [](double x, double y) { return 1 - std::sqrt(x * x + y * y); });
    const GridVolumes volumes = Measure(grid, 0);
    EXPECT_NEAR(volumes.Above, std::numbers::pi / 3, 2e-4);
    EXPECT_NEAR(volumes.PlanarAbove, std::numbers::pi, 2e-4);
    EXPECT_NEAR(volumes.SurfaceAbove, std::numbers::pi * std::numbers::sqrt2, 4e-4);
}

TEST(GridVolume, Paraboloid) {
    // z = 1 - x² - y² above 0: volume pi/2, area pi/6 (5^1.5 - 1).
    const Grid grid = GridOf({.Columns = 501, .Rows = 401, .XMin = -1.25, .XMax = 1.25, .YMin = -1.5, .YMax = 1.5},
                             [](double x, double y) { return 1 - x * x - y * y; });
    const GridVolumes volumes = Measure(grid, 0);
    EXPECT_NEAR(volumes.Above, std::numbers::pi / 2, 1e-4);
    EXPECT_NEAR(volumes.PlanarAbove, std::numbers::pi, 1e-4);
    EXPECT_NEAR(volumes.SurfaceAbove, std::numbers::pi / 6 * (std::pow(5.0, 1.5) - 1), 1e-4);
}

TEST(GridVolume, BothRulesAreExactForCubics) {
    // Over [0, 6] by [0, 12]: x³ gives 324 * 12, 2 y³ gives 10368 * 6. Six and twelve intervals fit both rules.
    const Grid grid = GridOf({.Columns = 7, .Rows = 13, .XMin = 0, .XMax = 6, .YMin = 0, .YMax = 12},
                             [](double x, double y) { return x * x * x + 2 * y * y * y; });
    const GridVolumes volumes = Measure(grid, 0);
    EXPECT_NEAR(volumes.Simpson, 324.0 * 12 + 10368.0 * 6, 1e-8);
    EXPECT_NEAR(volumes.ThreeEighths, 324.0 * 12 + 10368.0 * 6, 1e-8);
}

TEST(GridVolume, BlankNodesCountZeroInTheRulesAndLeaveOutTheirCells) {
    Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 4},
                       [](double, double) { return 1.0; });
    grid.At(2, 2) = kBlankHeight;
    const GridVolumes volumes = Measure(grid, 0);
    EXPECT_EQ(volumes.PlanarBlank, 2);
    EXPECT_EQ(volumes.PlanarAbove, 6);
    EXPECT_EQ(volumes.Above, 6);
    EXPECT_NEAR(volumes.Simpson, 8 - 2.0 / 9, 1e-14);   // the corner weighs 1/3 by 1/3, in cells of area 2
    EXPECT_NEAR(volumes.ThreeEighths, 8 - 0.5, 1e-14);  // two intervals are too few: trapezoids, 1/2 by 1/2
}

TEST(GridVolume, AllBlank) {
    const GridVolumes volumes = Measure(Grid(ShapeOf(5, 3)), 0);
    EXPECT_EQ(volumes.PlanarBlank, 2 * 0.5);
    EXPECT_EQ(volumes.PlanarAbove, 0);
    EXPECT_EQ(volumes.Simpson, 0);
}

TEST(GridVolume, BlankNodesOfTheLowerGridCountToo) {
    const Grid upper = GridOf(ShapeOf(3, 2), [](double, double) { return 1.0; });
    Grid lower = GridOf(ShapeOf(3, 2), [](double, double) { return 0.0; });
    lower.At(0, 0) = kBlankHeight;
    const GridVolumes volumes = Measure(upper, lower);
    EXPECT_EQ(volumes.PlanarBlank, 0.125);
    EXPECT_EQ(volumes.PlanarAbove, 0.125);
}

TEST(GridVolume, HeightsFartherApartThanTheBlankValue) {
    const GridGeometry shape{.Columns = 2, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1};
    const Grid upper = GridOf(shape, [](double, double) { return 1e38; });
    const Grid lower = GridOf(shape, [](double, double) { return -1e38; });
    EXPECT_NEAR(Measure(upper, lower).Above, 2e38, 1e24);
    EXPECT_EQ(Measure(upper, lower).PlanarBlank, 0);
}

TEST(GridVolume, OnlyTheUpperGridsLimitsCount) {
    const Grid upper = GridOf(ShapeOf(3, 3), [](double, double) { return 1.0; });
    Grid lower = GridOf(ShapeOf(3, 3), [](double, double) { return 0.0; });
    lower.Shape.XMax = 1000;
    EXPECT_EQ(Measure(upper, lower).Above, 0.5);
}

TEST(GridVolume, ShapesThatDifferFail) {
    const Grid upper(ShapeOf(3, 4));
    const Grid lower(ShapeOf(4, 3));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Measure(upper, lower); },
        "the lower grid has 4 columns and 3 rows, the upper one 3 and 4"));
}

TEST(GridVolume, SumsBeyondNumbersFail) {
    const Grid grid = GridOf(ShapeOf(3, 4), [](double x, double) { return x < 3.2 ? -1e300 : 0.0; });
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Measure(grid, 0); }, "too large"));
}

TEST(GridVolume, SameBitsForAnyNumberOfThreads) {
    RandomNumbers random;
    const Grid upper = RandomGrid(random, ShapeOf(151, 213), 50);
    const Grid lower = RandomGrid(random, ShapeOf(151, 213), 0);
    const auto bits = [&](const char* threads) {
        const ThreadBound bound(threads);
        const GridVolumes v = Measure(upper, lower);
        return std::vector<double>{v.Simpson,     v.ThreeEighths, v.Above,        v.Below,      v.PlanarAbove,
                                   v.PlanarBelow, v.SurfaceAbove, v.SurfaceBelow, v.PlanarBlank};
    };
    const std::vector<double> one = bits("1");
    EXPECT_TRUE(SameBits(one, bits("2")));
    EXPECT_TRUE(SameBits(one, bits("7")));
}

TEST(Quadrature, WeightsOfShortRows) {
    EXPECT_EQ(SimpsonWeights(2), (std::vector<double>{0.5, 0.5}));
    EXPECT_EQ(ThreeEighthsWeights(2), (std::vector<double>{0.5, 0.5}));
    EXPECT_EQ(ThreeEighthsWeights(3), (std::vector<double>{0.5, 1, 0.5}));
    EXPECT_EQ(SimpsonWeights(4), (std::vector<double>{1.0 / 3, 4.0 / 3, 1.0 / 3 + 0.5, 0.5}));
    EXPECT_EQ(ThreeEighthsWeights(4), (std::vector<double>{0.375, 1.125, 1.125, 0.375}));
    EXPECT_EQ(ThreeEighthsWeights(6), (std::vector<double>{0.375, 1.125, 1.125, 0.875, 1, 0.5}));
    EXPECT_EQ(SimpsonWeights(5), (std::vector<double>{1.0 / 3, 4.0 / 3, 2.0 / 3, 4.0 / 3, 1.0 / 3}));
}

}  // namespace
}  // namespace crownlab
