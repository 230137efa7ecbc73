#include "viewer/aspect_slope.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "basis/arc_tangent.h"
#include "support/expect_failure.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

constexpr double kSteps[] = {0.25, 1, 0.02};

struct SlowResult {
    SlowArray Slope;
    SlowArray Aspect;
};

bool AnyNeighbourEmpty(const SurfaceGrid& work, int i, int j) {
    for (int dj = -1; dj <= 1; ++dj) {
        for (int di = -1; di <= 1; ++di) {
            if ((di != 0 || dj != 0) && work.z(i + di, j + dj) == 9999) return true;
        }
    }
    return false;
}

template <typename ArcTan>
double SlowOrientation(double dzdx, double dzdy, ArcTan arcTan) {
    const double factor = 180 / 3.14159265358979;
    if (dzdx != 0 && dzdy == 0) return dzdx < 0 ? 90 : 270;
    if (dzdx != 0) {
        const double a = arcTan(dzdx / dzdy) * factor;
        if (dzdy > 0) return a + 180;
        return dzdx > 0 ? a + 360 : a;
    }
    if (dzdy > 0) return 180;
    if (dzdy < 0) return 0;
    return 9999;
}

/// Cell by cell in the order of the rows, one rule after the other.
template <typename ArcTan>
SlowResult SlowAspectSlope(const SurfaceGrid& work, const AspectSlopeOptions& options, ArcTan arcTan) {
    const double pi = 3.14159265358979323846;
    SlowResult result{SlowArray(work.NumX, work.NumY, 0), SlowArray(work.NumX, work.NumY, 0)};
    for (int j = 1; j <= work.NumY; ++j) {
        for (int i = 1; i <= work.NumX; ++i) {
            double slope = 9999;
            double aspect = 9999;
            const bool edge = i == 1 || j == 1 || i == work.NumX || j == work.NumY;
            if (!edge && !AnyNeighbourEmpty(work, i, j)) {
                const auto z = [&](int di, int dj) { return work.z(i + di, j + dj); };
                const double dzdx = (z(1, -1) + 2 * z(1, 0) + z(1, 1) - z(-1, -1) - 2 * z(-1, 0) - z(-1, 1)) / 8;
                const double dzdy = (z(-1, 1) + 2 * z(0, 1) + z(1, 1) - z(-1, -1) - 2 * z(0, -1) - z(1, -1)) / 8;
                slope = std::sqrt(dzdy * dzdy + dzdx * dzdx) / options.StepX;
                aspect = SlowOrientation(dzdx, dzdy, arcTan);
                if (options.UseMinSlope && options.MinSlope > arcTan(slope) * (180 / pi)) aspect = -1;
            }
            result.Slope(i, j) = slope;
            result.Aspect(i, j) = aspect;
        }
    }
    return result;
}

struct Grids {
    SurfaceGrid Slope;
    SurfaceGrid Aspect;
};

Grids ResultsOf(const SurfaceGrid& work, const AspectSlopeOptions& options) {
    Grids grids{SurfaceGrid(work, -77), SurfaceGrid(work, -77)};
    AspectSlope(work, options, grids.Slope, grids.Aspect);
    return grids;
}

TEST(AspectSlope, EqualsTheSlowVersionBitForBit) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 5; ++round) {
        for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
            for (const bool useMinSlope : {false, true}) {
                SCOPED_TRACE(surface.Name + (useMinSlope ? ", minimum slope" : ""));
                const AspectSlopeOptions options{
                    .StepX = kSteps[numbers.Below(3)], .UseMinSlope = useMinSlope, .MinSlope = 90 * Share(numbers)};
                const Grids found = ResultsOf(surface.Grid, options);
                const SlowResult slow = SlowAspectSlope(surface.Grid, options, [](double x) { return ArcTangent(x); });
                ASSERT_TRUE(SameCells(slow.Slope, found.Slope));
                ASSERT_TRUE(SameCells(slow.Aspect, found.Aspect));
            }
        }
    }
}

TEST(AspectSlope, AgreesWithTheLibrarysArcTangent) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    const auto libraryArcTan = [](double x) { return std::atan(x); };
    int compared = 0;
    for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
        SCOPED_TRACE(surface.Name);
        const AspectSlopeOptions options{.StepX = 0.25};
        const Grids found = ResultsOf(surface.Grid, options);
        const SlowResult slow = SlowAspectSlope(surface.Grid, options, libraryArcTan);
        for (int j = 1; j <= surface.Grid.NumY; ++j) {
            for (int i = 1; i <= surface.Grid.NumX; ++i) {
                ASSERT_NEAR(slow.Aspect(i, j), found.Aspect.z(i, j), 1e-12) << i << ", " << j;
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 20000);
}

// A part of a row gives what the whole pass gives: the pass stops at one cell to serve other events.
TEST(AspectSlope, PartsOfARowMakeTheWhole) {
    RandomNumbers numbers;
    for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
        SCOPED_TRACE(surface.Name);
        const SurfaceGrid& work = surface.Grid;
        const AspectSlopeOptions options{.StepX = 1, .UseMinSlope = true, .MinSlope = 30};
        const Grids whole = ResultsOf(work, options);
        Grids parts{SurfaceGrid(work, -77), SurfaceGrid(work, -77)};
        for (int row = 1; row <= work.NumY; ++row) {
            const int cut = static_cast<int>(numbers.Below(static_cast<std::uint64_t>(work.NumX) + 1));
            AspectSlopeCells(work, options, row, 1, cut, parts.Slope, parts.Aspect);
            AspectSlopeCells(work, options, row, cut + 1, work.NumX, parts.Slope, parts.Aspect);
        }
        ASSERT_EQ(whole.Slope.Z, parts.Slope.Z);
        ASSERT_EQ(whole.Aspect.Z, parts.Aspect.Z);
    }
}

TEST(AspectSlope, PlanesFaceDownhill) {
    const AspectSlopeOptions options{.StepX = 0.5};
    const auto facing = [&](double perColumn, double perRow) {
        return ResultsOf(MakeGrid(3, 3, [&](int i, int j) { return perColumn * i + perRow * j; }), options)
            .Aspect.z(2, 2);
    };
    EXPECT_EQ(facing(1, 0), 270);
    EXPECT_EQ(facing(-1, 0), 90);
    EXPECT_EQ(facing(0, 1), 180);
    EXPECT_EQ(facing(0, -1), 0);
    EXPECT_EQ(facing(0, 0), 9999);
    EXPECT_NEAR(facing(1, 1), 225, 1e-12);
    EXPECT_NEAR(facing(-1, 1), 135, 1e-12);
    EXPECT_NEAR(facing(-1, -1), 45, 1e-12);
    EXPECT_NEAR(facing(1, -1), 315, 1e-12);
    // 0.5 a column of 0.5: the rise is 1.
    EXPECT_EQ(ResultsOf(MakeGrid(3, 3, [](int i, int) { return 0.5 * i; }), options).Slope.z(2, 2), 1);
}

TEST(AspectSlope, TheCellsOwnHeightDoesNotMatter) {
    const auto grid = [](double centre) {
        return MakeGrid(3, 3, [&](int i, int j) { return i == 2 && j == 2 ? centre : 1.0 * i; });
    };
    const Grids low = ResultsOf(grid(2), {.StepX = 1});
    const Grids empty = ResultsOf(grid(kEmptyCellZ), {.StepX = 1});
    EXPECT_EQ(low.Aspect.z(2, 2), 270);
    EXPECT_EQ(empty.Aspect.z(2, 2), 270);
    EXPECT_EQ(empty.Slope.z(2, 2), 1);
}

TEST(AspectSlope, ACellOfExactlyTheMinimumKeepsItsOrientation) {
    const SurfaceGrid plane = MakeGrid(3, 3, [](int i, int) { return 1.0 * i; });
    const auto aspect = [&](double minimum) {
        return ResultsOf(plane, {.StepX = 1, .UseMinSlope = true, .MinSlope = minimum}).Aspect.z(2, 2);
    };
    EXPECT_EQ(SlopeDegrees(1), 45);
    EXPECT_EQ(aspect(45), 270);
    EXPECT_EQ(aspect(std::nextafter(45, 90)), -1);
    EXPECT_EQ(aspect(std::nextafter(45, 0)), 270);
}

TEST(AspectSlope, ALevelCellIsBelowAMinimumAboveZero) {
    const SurfaceGrid level = MakeGrid(3, 3, [](int, int) { return 4.0; });
    EXPECT_EQ(ResultsOf(level, {.StepX = 1, .UseMinSlope = true, .MinSlope = 10}).Aspect.z(2, 2), -1);
    EXPECT_EQ(ResultsOf(level, {.StepX = 1, .UseMinSlope = true, .MinSlope = 0}).Aspect.z(2, 2), 9999);
    EXPECT_EQ(ResultsOf(level, {.StepX = 1}).Aspect.z(2, 2), 9999);
    // No value at all is never "below".
    EXPECT_EQ(ResultsOf(level, {.StepX = 1, .UseMinSlope = true, .MinSlope = 10}).Aspect.z(1, 1), 9999);
}

TEST(AspectSlope, FailsWhereANumberCannotBe) {
    const SurfaceGrid plane = MakeGrid(3, 3, [](int i, int) { return 1.0 * i; });
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [&] { ResultsOf(plane, {.StepX = 0}); }, "StepX"));
    const double huge = std::numeric_limits<double>::max() / 4;
    const SurfaceGrid cliff = MakeGrid(3, 3, [&](int i, int) { return huge * (i - 2); });
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { ResultsOf(cliff, {.StepX = 1}); }, "SlopeGrid"));
}

}  // namespace
}  // namespace crownlab
