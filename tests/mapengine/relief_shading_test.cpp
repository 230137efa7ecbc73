#include "mapengine/relief_shading.h"

#include <gmock/gmock.h>

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "sample_grids.h"

namespace crownlab {
namespace {

constexpr double kDegree = std::numbers::pi / 180;
const GridGeometry kShape{.Columns = 41, .Rows = 31, .XMin = -2, .XMax = 2, .YMin = 10, .YMax = 16};

/// What a face with the downhill normal (nx, ny, nz) gets.
int Expected(double nx, double ny, double nz, const ReliefLight& light) {
    const double up = std::sin(light.AltitudeDegrees * kDegree), along = std::cos(light.AltitudeDegrees * kDegree);
    const double cosine = (nx * along * std::cos(light.AzimuthDegrees * kDegree) +
                           ny * along * std::sin(light.AzimuthDegrees * kDegree) + nz * up) /
                          std::sqrt(nx * nx + ny * ny + nz * nz);
    return 1 + static_cast<int>(std::lround(254 * std::max(cosine, 0.0)));
}

TEST(Relief, OfAPlaneIsTheCosineToTheLight) {
    for (const double azimuth : {0.0, 90.0, 135.0, 200.0, 315.0}) {
        for (const double altitude : {5.0, 45.0, 90.0}) {
            const ReliefLight light{.AzimuthDegrees = azimuth, .AltitudeDegrees = altitude, .HeightFactor = 3};
            const Grid plane = GridOf(kShape, [](double x, double y) { return 0.25 * x - 0.5 * y + 7; });
            for (const std::uint8_t shade : ShadeRelief(plane, light)) {
                EXPECT_NEAR(shade, Expected(-0.75, 1.5, 1, light), 1) << azimuth << " " << altitude;
            }
        }
    }
}

TEST(Relief, OfAHemisphereIsThatOfTheSphere) {
    const GridGeometry shape{.Columns = 201, .Rows = 201, .XMin = -1, .XMax = 1, .YMin = -1, .YMax = 1};
    const auto height = [](double x, double y) { return std::sqrt(std::max(0.0, 4 - x * x - y * y)); };
    const ReliefLight light;
    const std::vector<std::uint8_t> shades = ShadeRelief(GridOf(shape, height), light);
    const Grid index(shape);
    for (int row = 1; row < 200; row += 7) {
        for (int column = 1; column < 200; column += 7) {
            const double x = shape.X(column), y = shape.Y(row);
            EXPECT_NEAR(shades[index.Index(column, row)], Expected(x, y, height(x, y), light), 1.5);
        }
    }
}

TEST(Relief, IsLightTowardsTheLight) {
    const Grid ridge = GridOf(kShape, [](double x, double) { return -std::abs(x); });
    const std::vector<std::uint8_t> shades = ShadeRelief(ridge, {});
    const Grid index(kShape);
    EXPECT_GT(shades[index.Index(5, 15)], shades[index.Index(35, 15)] + 100) << "the light comes from the left";
}

TEST(Relief, OfASoftLightReachesIntoTheShade) {
    // The sun stands level behind the plane: the cosine is -0.6 (a slope of 3 in 4), then 0 on the level.
    const Grid slope = GridOf(kShape, [](double x, double) { return 0.75 * x; });
    const ReliefLight hard{.AzimuthDegrees = 0, .AltitudeDegrees = 0};
    ReliefLight soft = hard;
    soft.Softness = 1;
    EXPECT_EQ(ShadeRelief(slope, hard)[7], 1);
    EXPECT_NEAR(ShadeRelief(slope, soft)[7], 1 + 254 * 0.4 / 2, 1);
    EXPECT_NEAR(ShadeRelief(GridOf(kShape, [](double, double) { return 5; }), soft)[7], 1 + 254 * 0.5, 1);
}

TEST(Relief, LeavesBlankNodesOut) {
    const double b = std::nan("");
    const Grid grid = GridOfRows({{b, 1, 1}, {1, b, 1}, {1, 1, 1}});
    const std::vector<std::uint8_t> shades = ShadeRelief(grid, {});
    const std::uint8_t level = shades[0];
    EXPECT_NEAR(level, 1 + 254 * std::sin(45 * kDegree), 1);
    EXPECT_THAT(shades, ::testing::ElementsAre(level, level, level, level, 0, level, 0, level, level));
}

TEST(Relief, BesideABlankTakesTheSlopeOfTheOtherSide) {
    const double b = std::nan("");
    const std::vector<std::uint8_t> whole = ShadeRelief(GridOfRows({{0, 1, 2, 3}, {0, 1, 2, 3}}), {});
    const std::vector<std::uint8_t> cut = ShadeRelief(GridOfRows({{0, 1, b, 3}, {0, 1, 2, 3}}), {});
    EXPECT_EQ(cut[5], whole[5]);
    EXPECT_EQ(cut[4], whole[4]);
}

TEST(Relief, OfSteepWallsIsDark) {
    const Grid wall = GridOfRows({{0, 1e38, 0}, {0, 1e38, 0}});
    for (const std::uint8_t shade : ShadeRelief(wall, {})) EXPECT_GE(shade, 1);
    const Grid edge = GridOfRows({{1e6, 0}, {1e6, 0}});
    EXPECT_EQ(ShadeRelief(edge, {.AzimuthDegrees = 180})[0], 1);
}

TEST(Relief, IsTheSameOnOneThread) {
    const Grid waves = GridOf(kShape, [](double x, double y) { return std::sin(3 * x) * std::cos(2 * y); });
    const std::vector<std::uint8_t> many = ShadeRelief(waves, {});
    setenv("CROWNLAB_THREADS", "1", 1);
    EXPECT_EQ(ShadeRelief(waves, {}), many);
    unsetenv("CROWNLAB_THREADS");
}

}  // namespace
}  // namespace crownlab
