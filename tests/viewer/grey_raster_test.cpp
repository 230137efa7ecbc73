#include "viewer/grey_raster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/expect_failure.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kGreen{0, 255, 0};

double SlowRound(double x) {
    const double low = std::floor(x);
    const double fraction = x - low;
    if (fraction != 0.5) return fraction < 0.5 ? low : low + 1;
    return std::fmod(low, 2) == 0 ? low : low + 1;
}

/// What the pixel of a cell shows, by the steps of the display.
Colour SlowPixel(double cellZ, const GreyOptions& options) {
    double view = options.ZMin;
    double proportion = 0;
    if (cellZ != 9999) {
        view = cellZ;
        if (options.ZMax != options.ZMin) proportion = (cellZ - options.ZMin) / (options.ZMax - options.ZMin);
    }
    if (options.Threshold && view <= *options.Threshold) return kGreen;
    const double grey = std::clamp(SlowRound(255 * proportion), 0.0, 255.0);
    const auto part = static_cast<std::uint8_t>(grey);
    return {part, part, part};
}

::testing::AssertionResult SamePixels(const SurfaceGrid& grid, const GreyOptions& options, const Raster& raster) {
    if (raster.Width != grid.NumX + 4 || raster.Height != grid.NumY + 4) return ::testing::AssertionFailure() << "size";
    for (int y = 0; y < raster.Height; ++y) {
        for (int x = 0; x < raster.Width; ++x) {
            const bool cell = x < grid.NumX && y < grid.NumY;
            // Pixel (I - 1, J - 1) is the cell (I, NumY - J + 1).
            const Colour expected = cell ? SlowPixel(grid.z(x + 1, grid.NumY - (y + 1) + 1), options) : kWhite;
            if (raster.At(x, y) != expected) return ::testing::AssertionFailure() << "pixel " << x << ", " << y;
        }
    }
    return ::testing::AssertionSuccess();
}

TEST(GreyRaster, EqualsTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
        SCOPED_TRACE(surface.Name);
        GreyOptions options{.ZMin = -12 + 20 * Share(numbers), .ZMax = 0, .Threshold = {}, .EmptyRangeFails = true};
        options.ZMax = options.ZMin + 20 * Share(numbers) + 0.3;
        if (surface.Name.find("huge") != std::string::npos) options.ZMax = 3e9;
        ASSERT_TRUE(SamePixels(surface.Grid, options, DrawGrey(surface.Grid, options)));
        options.Threshold = 8 * Share(numbers) - 4;
        ASSERT_TRUE(SamePixels(surface.Grid, options, DrawGrey(surface.Grid, options)));
    }
}

TEST(GreyRaster, ThresholdTurnsEmptyCellsGreenWithTheLowest) {
    const SurfaceGrid grid = MakeGrid(3, 1, [](int i, int) { return i == 3 ? kEmptyCellZ : i - 1.0; });
    const Raster raster = DrawGrey(grid, {.ZMin = 0, .ZMax = 1, .Threshold = 0.0, .EmptyRangeFails = true});
    EXPECT_EQ(raster.At(0, 0), kGreen);
    EXPECT_EQ(raster.At(1, 0), kWhite);
    EXPECT_EQ(raster.At(2, 0), kGreen);
}

TEST(GreyRaster, AnEmptyRangeFailsOrIsDark) {
    const SurfaceGrid level = MakeGrid(2, 2, [](int, int) { return 3.0; });
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero,
                          [&] { DrawGrey(level, {.ZMin = 3, .ZMax = 3, .Threshold = {}, .EmptyRangeFails = true}); }));
    const GreyOptions slot{.ZMin = 3, .ZMax = 3, .Threshold = {}, .EmptyRangeFails = false};
    EXPECT_TRUE(SamePixels(level, slot, DrawGrey(level, slot)));
    // Without a cell that has a surface nothing is divided.
    const SurfaceGrid empty = MakeGrid(2, 2, [](int, int) { return kEmptyCellZ; });
    EXPECT_EQ(DrawGrey(empty, {.ZMin = 3, .ZMax = 3, .Threshold = {}, .EmptyRangeFails = true}).At(0, 0), Colour{});
}

TEST(GreyRaster, GreysRoundHalfToEvenAndOverflowBeyondSixteenBits) {
    EXPECT_EQ(GreyOf(0.5, 0, 255), 0);
    EXPECT_EQ(GreyOf(1.5, 0, 255), 2);
    EXPECT_EQ(GreyOf(2.5, 0, 255), 2);
    EXPECT_EQ(GreyOf(-5, 0, 255), 0);
    EXPECT_EQ(GreyOf(32767, 0, 255), 255);
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { GreyOf(32768, 0, 255); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { GreyOf(1, 2, 2); }));
}

TEST(GreyRaster, BoxesKeepTheLongSide) {
    const auto size = [](int numX, int numY, int longSide) {
        const BoxSize box = SizeOfBox(numX, numY, longSide);
        return std::pair(box.Width, box.Height);
    };
    EXPECT_EQ(size(100, 50, 313), std::pair(313, 156));
    EXPECT_EQ(size(50, 100, 313), std::pair(156, 313));
    EXPECT_EQ(size(7, 7, 249), std::pair(249, 249));
    EXPECT_EQ(size(3, 2, 161), std::pair(161, 107));
    EXPECT_EQ(size(1, 400, 313), std::pair(0, 313));
}

TEST(GreyRaster, LabelsAreDrawnAsTheirNumbersWouldBe) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 50; ++round) {
        const int most = static_cast<int>(1 + numbers.Below(round % 2 == 0 ? 6 : 32766));
        const SurfaceGrid heights = MakeGrid(9, 7, [&](int, int) {
            return numbers.Below(4) == 0 ? kEmptyCellZ
                                         : static_cast<double>(1 + numbers.Below(static_cast<std::uint64_t>(most)));
        });
        LabelGrid labels{.NumX = 9, .NumY = 7, .Places = heights.Places, .Labels = {}};
        GreyOptions options{.ZMin = 100000000, .ZMax = -100000000, .Threshold = {}, .EmptyRangeFails = false};
        for (const double z : heights.Z) {
            labels.Labels.push_back(static_cast<std::int16_t>(z));
            if (z == 9999) continue;
            options.ZMin = std::min(options.ZMin, z);
            options.ZMax = std::max(options.ZMax, z);
        }
        ASSERT_TRUE(SamePixels(heights, options, DrawGrey(labels, options)));
    }
}

TEST(GreyRaster, NoCellsNoRaster) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { BlankRaster(0, 4); }));
    EXPECT_EQ(BlankRaster(2, 3).Pixels, std::vector<Colour>(42, kWhite));
}

}  // namespace
}  // namespace crownlab
