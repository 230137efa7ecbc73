#include "viewer/contour.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/expect_failure.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

double SlowRound(double x) {
    const double low = std::floor(x);
    const double fraction = x - low;
    if (fraction != 0.5) return fraction < 0.5 ? low : low + 1;
    return std::fmod(low, 2) == 0 ? low : low + 1;
}

struct Range {
    double Min = 1e16;
    double Max = -1e16;
};

Range SlowRange(const SurfaceGrid& grid) {
    Range range;
    for (const double z : grid.Z) {
        if (z == 9999) continue;
        range.Min = std::fmin(range.Min, z);
        range.Max = std::fmax(range.Max, z);
    }
    return range;
}

TEST(Contour, EqualsTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    int compared = 0;
    for (int round = 0; round < 5; ++round) {
        for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
            SCOPED_TRACE(surface.Name);
            const SurfaceGrid& work = surface.Grid;
            const Range range = SlowRange(work);
            const double step = 0.01 + Share(numbers);
            const double value = 1.01 + 9 * Share(numbers);
            SlowArray bySteps(work.NumX, work.NumY, 9999);
            SlowArray byRange(work.NumX, work.NumY, 9999);
            bool overflows = false;
            for (int j = 1; j <= work.NumY; ++j) {
                for (int i = 1; i <= work.NumX; ++i) {
                    const double z = work.z(i, j);
                    if (z == 9999) continue;
                    bySteps(i, j) = std::floor((std::floor(z / step) - std::floor(range.Min / step)) / value);
                    byRange(i, j) = SlowRound((z - range.Min) / ((range.Max - range.Min) / value));
                    overflows |= bySteps(i, j) > 32767;
                }
            }
            if (overflows) {
                ASSERT_TRUE(FailsWith(
                    FailureKind::Overflow, [&] { ContourBySteps(work, step, range.Min, value); }, "ContourLevel"));
            } else {
                ASSERT_TRUE(SameCells(bySteps, ContourBySteps(work, step, range.Min, value)));
            }
            if (range.Max == range.Min) {
                ASSERT_TRUE(FailsWith(
                    FailureKind::DivisionByZero, [&] { ContourByRange(work, range.Min, range.Max, value); },
                    "z range"));
            } else {
                ASSERT_TRUE(SameCells(byRange, ContourByRange(work, range.Min, range.Max, value)));
                ++compared;
            }
        }
    }
    EXPECT_GT(compared, 300);
}

TEST(Contour, BandsByHand) {
    const SurfaceGrid row = MakeGrid(7, 1, [](int i, int) { return i == 7 ? kEmptyCellZ : 0.5 * (i - 1); });
    EXPECT_EQ(ContourBySteps(row, 0.5, 0, 2).Z, (std::vector<double>{0, 0, 1, 1, 2, 2, 9999}));
    // Height 2.5 in 2 parts of 1.25: shares 0, .4, .8, 1.2, 1.6, 2.
    EXPECT_EQ(ContourByRange(row, 0, 2.5, 2).Z, (std::vector<double>{0, 0, 1, 1, 2, 2, 9999}));
    // Halves go to the even band.
    EXPECT_EQ(ContourByRange(row, 0, 2, 2).Z, (std::vector<double>{0, 0, 1, 2, 2, 2, 9999}));
    // Heights below the counted lowest have bands below 0.
    EXPECT_EQ(ContourBySteps(row, 0.5, 1, 2).Z, (std::vector<double>{-1, -1, 0, 0, 1, 1, 9999}));
}

TEST(Contour, FailsWhereABandCannotBe) {
    const SurfaceGrid row = MakeGrid(2, 1, [](int i, int) { return 1e6 * i; });
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [&] { ContourBySteps(row, 0, 0, 2); }, "StepX"));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { ContourBySteps(row, 1, 0, 2); }, "ContourLevel"));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { ContourByRange(row, 0, 1, 2); }, "ContourLevel"));
}

}  // namespace
}  // namespace crownlab
