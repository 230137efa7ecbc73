#include "viewer/render.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "basis/arc_tangent.h"
#include "support/expect_failure.h"
#include "viewer/aspect_slope.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

struct SlowPixel {
    Colour Drawn;
    double Value = 0;
};

double SlowRound(double x) {
    const double low = std::floor(x);
    const double fraction = x - low;
    if (fraction != 0.5) return fraction < 0.5 ? low : low + 1;
    return std::fmod(low, 2) == 0 ? low : low + 1;
}

std::uint8_t Part(double value) { return static_cast<std::uint8_t>(std::clamp(SlowRound(value), 0.0, 255.0)); }

SlowPixel Packed(Colour c) { return {c, c.Red + 256.0 * c.Green + 65536.0 * c.Blue}; }

SlowPixel Grey(double g) { return {{Part(g), Part(g), Part(g)}, g}; }

SlowPixel SlowAspectPixel(double z) {
    if (z == 9999) return {};
    if (z == -1) return Packed({128, 128, 128});
    if ((z > 337.5 && z <= 360) || (z >= 0 && z <= 22.5)) return Packed({255, 255, 0});
    if (z > 22.5 && z <= 67.5) return Packed({0, 255, 255});
    if (z > 67.5 && z <= 112.5) return Packed({0, 0, 255});
    if (z > 112.5 && z <= 157.5) return Packed({0, 255, 0});
    if (z > 157.5 && z <= 202.5) return Packed({0, 103, 52});
    if (z > 202.5 && z <= 247.5) return Packed({255, 0, 255});
    if (z > 247.5 && z <= 292.5) return Packed({255, 0, 0});
    if (z > 292.5 && z <= 337.5) return Packed({103, 52, 52});
    return {};
}

SlowPixel SlowSlopePixel(double z, const SlopeColours& options) {
    if (z == 9999) return {};
    const double g = z / options.Max * 255;
    const double pi = 3.14159265358979323846;
    const bool steep = ArcTangent(z) * (180 / pi) > options.MinSlope;
    if (!options.UseMinSlope || steep) return {{0, Part(g), 0}, g};
    return {{Part(255 - g), 0, 0}, g};
}

SlowPixel SlowShadedPixel(double slope, double aspect, const Light& light) {
    if (slope == 9999 && aspect == 9999) return {};
    const double pi = 3.14159265358979;
    const double s = slope * pi / 180;
    const double z = (90 - light.Vert) * pi / 180;
    const double az = light.Horiz * pi / 180;
    const double a = aspect == 9999 ? 0 : aspect * pi / 180;
    const double cosI = std::sin(s) * std::sin(z) * std::cos(a - az) + std::cos(z) * std::cos(s);
    const double specular = std::pow(2 * cosI * std::cos(s) - std::cos(z), light.b);
    const double g = 255 * (specular * (1 - light.w) + cosI * light.w);
    return Grey(g <= 0 ? 0 : g);
}

SlowPixel SlowContourPixel(double z, const ValueRange& range) {
    if (z == 9999) return {};
    const double p = (z - range.Min) / (range.Max - range.Min);
    const double m = range.Max;
    return Grey(255 * (1 / m + p) / (1 / m + 1));
}

/// `pixelOf(column, row)` is asked for cells of the grid. Values may differ by the last place of the formula.
::testing::AssertionResult SameRendering(const SurfaceGrid& grid, const Rendering& found,
                                         const std::function<SlowPixel(int, int)>& pixelOf) {
    if (found.Picture.Width != grid.NumX + 4 || found.Picture.Height != grid.NumY + 4) {
        return ::testing::AssertionFailure() << "size";
    }
    for (int j = 1; j <= grid.NumY; ++j) {
        for (int i = 1; i <= grid.NumX; ++i) {
            const SlowPixel expected = pixelOf(i, grid.NumY - j + 1);
            const double value = found.Values.at(grid.At(i, j));
            const bool same = found.Picture.At(i - 1, j - 1) == expected.Drawn && value == SlowRound(expected.Value);
            if (!same) return ::testing::AssertionFailure() << "pixel " << i - 1 << ", " << j - 1 << ": " << value;
        }
    }
    for (int y = 0; y < found.Picture.Height; ++y) {
        for (int x = y < grid.NumY ? grid.NumX : 0; x < found.Picture.Width; ++x) {
            if (found.Picture.At(x, y) != Colour{255, 255, 255}) return ::testing::AssertionFailure() << "margin";
        }
    }
    return ::testing::AssertionSuccess();
}

struct Grids {
    SurfaceGrid Slope;
    SurfaceGrid Aspect;
};

Grids GridsOf(const SurfaceGrid& work, double minSlope) {
    Grids grids{SurfaceGrid(work, 0), SurfaceGrid(work, 0)};
    AspectSlope(work, {.StepX = 0.25, .UseMinSlope = minSlope > 0, .MinSlope = minSlope}, grids.Slope, grids.Aspect);
    return grids;
}

TEST(Render, EqualsTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
        SCOPED_TRACE(surface.Name);
        const Grids g = GridsOf(surface.Grid, numbers.Below(2) == 0 ? 0 : 40);
        ASSERT_TRUE(SameRendering(g.Aspect, RenderAspect(g.Aspect),
                                  [&](int i, int j) { return SlowAspectPixel(g.Aspect.z(i, j)); }));
        ASSERT_TRUE(SameRendering(g.Aspect, RenderBlack(g.Aspect), [](int, int) { return SlowPixel{}; }));

        const ValueRange range = RangeOf(g.Slope);
        if (range.Max > 0) {
            for (const bool useMinSlope : {false, true}) {
                const SlopeColours colours{
                    .Max = range.Max, .UseMinSlope = useMinSlope, .MinSlope = 90 * Share(numbers)};
                ASSERT_TRUE(SameRendering(g.Slope, RenderSlope(g.Slope, colours),
                                          [&](int i, int j) { return SlowSlopePixel(g.Slope.z(i, j), colours); }));
            }
        }
        const Light light{.Horiz = std::floor(360 * Share(numbers)),
                          .Vert = std::floor(91 * Share(numbers)),
                          .b = static_cast<double>(numbers.Below(51)),
                          .w = numbers.Below(2) == 0 ? 0 : Share(numbers)};
        ASSERT_TRUE(SameRendering(g.Slope, RenderShadedRelief(g.Slope, g.Aspect, light), [&](int i, int j) {
            return SlowShadedPixel(g.Slope.z(i, j), g.Aspect.z(i, j), light);
        }));
    }
}

TEST(Render, SectorsEndWhereTheyAreTold) {
    std::vector<double> values{0,   22.5, std::nextafter(22.5, 90), 337.5, std::nextafter(337.5, 360), 360, -1, 9999,
                               361, -0.5};
    for (int half = 1; half < 8; ++half) {
        values.push_back(45.0 * half + 22.5);
        values.push_back(std::nextafter(45.0 * half + 22.5, 400));
    }
    const SurfaceGrid row = MakeGrid(static_cast<int>(values.size()), 1,
                                     [&](int i, int) { return values[static_cast<std::size_t>(i - 1)]; });
    EXPECT_TRUE(SameRendering(row, RenderAspect(row), [&](int i, int j) { return SlowAspectPixel(row.z(i, j)); }));
}

TEST(Render, ASlopeOfExactlyTheMinimumIsRed) {
    const SurfaceGrid row = MakeGrid(3, 1, [](int i, int) { return i == 1 ? 0 : i == 2 ? 1.0 : 2.0; });
    const Rendering found = RenderSlope(row, {.Max = 2, .UseMinSlope = true, .MinSlope = 45});
    EXPECT_EQ(found.Picture.At(0, 0), (Colour{255, 0, 0}));
    EXPECT_EQ(found.Picture.At(1, 0), (Colour{128, 0, 0}));  // 255 - 127.5 rounds to the even 128
    EXPECT_EQ(found.Picture.At(2, 0), (Colour{0, 255, 0}));
    EXPECT_EQ(found.Values, (std::vector<std::int32_t>{0, 128, 255}));
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [&] { RenderSlope(row, {.Max = 0}); }, "ProcZMax"));
}

TEST(Render, LevelCellsOfShadedReliefAreShaded) {
    const SurfaceGrid slope = MakeGrid(2, 1, [](int i, int) { return i == 1 ? 0 : kEmptyCellZ; });
    const SurfaceGrid aspect = MakeGrid(2, 1, [](int, int) { return kEmptyCellZ; });
    // S = 0: cosI is cos(Z), and the specular base cos(Z) itself; with w 1 the grey is 255 cos(45 degrees).
    const Rendering found = RenderShadedRelief(slope, aspect, {.Horiz = 315, .Vert = 45, .b = 5, .w = 1});
    EXPECT_EQ(found.Picture.At(0, 0), (Colour{180, 180, 180}));
    EXPECT_EQ(found.Picture.At(1, 0), Colour{});
    const SurfaceGrid steep = MakeGrid(2, 1, [](int, int) { return 80.0; });
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall,
                          [&] { RenderShadedRelief(steep, aspect, {.Horiz = 180, .Vert = 10, .b = 2.5, .w = 0}); }));
}

TEST(Render, ContoursGoFromDarkToLight) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 100; ++round) {
        const std::uint64_t bands = 2 + numbers.Below(12);
        const SurfaceGrid grid = MakeGrid(8, 5, [&](int i, int j) {
            if (i == 1 && j == 1) return 0.0;
            return numbers.Below(5) == 0 ? kEmptyCellZ : static_cast<double>(numbers.Below(bands));
        });
        const ValueRange range = RangeOf(grid);
        if (range.Max == 0) continue;
        EXPECT_TRUE(SameRendering(grid, RenderContour(grid, range),
                                  [&](int i, int j) { return SlowContourPixel(grid.z(i, j), range); }));
    }
    // Bands 0 to 4: the lowest is 255 * .25 / 1.25.
    const SurfaceGrid row = MakeGrid(5, 1, [](int i, int) { return i - 1.0; });
    EXPECT_EQ(RenderContour(row, RangeOf(row)).Values, (std::vector<std::int32_t>{51, 102, 153, 204, 255}));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { RenderContour(row, {.Min = 3, .Max = 3}); }));
}

TEST(Render, RangesLeaveOutCellsWithoutAValue) {
    const ValueRange none = RangeOf(MakeGrid(2, 1, [](int, int) { return kEmptyCellZ; }));
    EXPECT_EQ(none.Min, 1e16);
    EXPECT_EQ(none.Max, -1e16);
    const ValueRange range = RangeOf(MakeGrid(3, 1, [](int i, int) { return i == 2 ? kEmptyCellZ : 5.0 - i; }));
    EXPECT_EQ(range.Min, 2);
    EXPECT_EQ(range.Max, 4);
}

}  // namespace
}  // namespace crownlab
