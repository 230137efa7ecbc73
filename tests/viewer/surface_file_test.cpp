#include "viewer/surface_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

/// To the nearest whole number, halves to the even one, by looking at the fraction.
double SlowRound(double x) {
    const double low = std::floor(x);
    const double fraction = x - low;
    if (fraction < 0.5) return low;
    if (fraction > 0.5) return low + 1;
    return std::fmod(low, 2) == 0 ? low : low + 1;
}

double SlowRound(double x, int decimals) {
    double scale = 1;
    for (int i = 0; i < decimals; ++i) scale *= 10;
    return SlowRound(x * scale) / scale;
}

struct SlowSurface {
    std::vector<SurfacePoint> Points;
    SurfaceExtents Data;
    double ZOrigin = 0;
    SurfaceSteps Steps;
    GridLimits Limits;
    int NumX = 0;
    int NumY = 0;
    SlowArray x, y, z;
};

void SlowExtents(SlowSurface& s, bool originalModelFile) {
    if (originalModelFile) {
        for (SurfacePoint& p : s.Points) p.z = -p.z;
    }
    s.Data = {100000, -100000, 100000, -100000, 100000, -100000};
    for (const SurfacePoint& p : s.Points) {
        if (p.x < s.Data.XMin) s.Data.XMin = p.x;
        if (p.x > s.Data.XMax) s.Data.XMax = p.x;
        if (p.y < s.Data.YMin) s.Data.YMin = p.y;
        if (p.y > s.Data.YMax) s.Data.YMax = p.y;
        if (p.z < s.Data.ZMin) {
            if (p.z > -0.0001 && p.z < 0) continue;
            s.Data.ZMin = p.z;
        }
    }
    for (SurfacePoint& p : s.Points) {
        if (p.z > 1e36) p.z = s.Data.ZMin;
        if (p.z > s.Data.ZMax) s.Data.ZMax = p.z;
    }
    if (originalModelFile) {
        for (SurfacePoint& p : s.Points) p.z = p.z - s.Data.ZMin;
        s.ZOrigin = s.Data.ZMin;
        s.Data.ZMax = s.Data.ZMax - s.ZOrigin;
        s.Data.ZMin = 0;
    }
}

void SlowStep(double now, double before, double& step) {
    const double d = SlowRound(now - before, 6);
    if (std::fabs(d) < step && std::fabs(d) > 0) step = std::fabs(SlowRound(now - before, 10));
}

void SlowSteps(SlowSurface& s) {
    s.Steps = {.X = 10000, .Y = 10000};
    for (std::size_t i = 1; i < s.Points.size(); ++i) {
        SlowStep(s.Points[i].x, s.Points[i - 1].x, s.Steps.X);
        SlowStep(s.Points[i].y, s.Points[i - 1].y, s.Steps.Y);
    }
}

void SlowLimits(SlowSurface& s, int mode) {
    if (mode == 1) {
        s.Limits = {1, 24, 1, 24};
    } else {
        s.Limits = {s.Data.XMin - s.Steps.X, s.Data.XMax + s.Steps.X, s.Data.YMin - s.Steps.Y, s.Data.YMax + s.Steps.Y};
    }
    s.NumX = static_cast<int>(SlowRound(1 + (s.Limits.XMax - s.Limits.XMin) / s.Steps.X));
    s.NumY = static_cast<int>(SlowRound(1 + (s.Limits.YMax - s.Limits.YMin) / s.Steps.Y));
}

/// False if a point lies outside.
bool SlowCells(SlowSurface& s) {
    s.x = s.y = s.z = SlowArray(s.NumX, s.NumY, 0);
    for (const SurfacePoint& p : s.Points) {
        const double column = 1 + SlowRound((p.x - s.Limits.XMin) / s.Steps.X);
        const double row = 1 + SlowRound((p.y - s.Limits.YMin) / s.Steps.Y);
        if (column < 1 || column > s.NumX || row < 1 || row > s.NumY) return false;
        s.x(static_cast<int>(column), static_cast<int>(row)) = p.x;
        s.y(static_cast<int>(column), static_cast<int>(row)) = p.y;
        s.z(static_cast<int>(column), static_cast<int>(row)) = p.z;
    }
    for (int j = 1; j <= s.NumY; ++j) {
        for (int i = 1; i <= s.NumX; ++i) {
            if (s.x(i, j) != 0 || s.y(i, j) != 0 || s.z(i, j) != 0) continue;
            s.x(i, j) = (i - 1) * s.Steps.X + s.Limits.XMin;
            s.y(i, j) = (j - 1) * s.Steps.Y + s.Limits.YMin;
            s.z(i, j) = 9999;
        }
    }
    return true;
}

double RandomHeight(RandomNumbers& numbers) {
    switch (numbers.Below(12)) {
        case 0: return 1.70141e38;
        case 1: return 9999;
        case 2: return -0.0001 * Share(numbers);
        case 3: return -0.0001;
        case 4: return 0;
        case 5: return 100000 + 100 * Share(numbers);
        case 6: return 1e36;
        default: return 30 * Share(numbers) - 10;
    }
}

/// Points near the nodes of a lattice, some of them twice, some missing, in order or shuffled.
std::vector<SurfacePoint> RandomPoints(RandomNumbers& numbers, bool insideDefaultGrid) {
    const auto side = [&] { return static_cast<int>(1 + numbers.Below(20)); };
    const double stepX = insideDefaultGrid ? 1 : 0.05 * static_cast<double>(1 + numbers.Below(20));
    const double stepY = insideDefaultGrid ? 1 : (numbers.Below(3) == 0 ? 0.1 : stepX);
    const double startX = insideDefaultGrid ? 1 : 10 * Share(numbers) - 5;
    const double startY = insideDefaultGrid ? 1 : 10 * Share(numbers) - 5;
    const double jitter = numbers.Below(3) == 0 ? 0.5 : numbers.Below(2) == 0 ? 0.1 : 0;
    std::vector<SurfacePoint> points;
    const int rows = side();
    const int columns = side();
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < columns; ++i) {
            if (numbers.Below(7) == 0) continue;
            const auto shift = [&] { return numbers.Below(4) == 0 ? jitter : 0; };
            points.push_back({startX + (i + shift()) * stepX, startY + (j + shift()) * stepY, RandomHeight(numbers)});
        }
    }
    if (numbers.Below(4) == 0) points.push_back({0, 0, 0});
    if (points.empty()) points.push_back({startX, startY, 1});
    if (numbers.Below(5) == 0) {
        for (std::size_t i = points.size(); i > 1; --i) std::swap(points[i - 1], points[numbers.Below(i)]);
    }
    return points;
}

bool SamePlaces(const SlowSurface& slow, const SurfaceGrid& grid) {
    for (int j = 1; j <= grid.NumY; ++j) {
        for (int i = 1; i <= grid.NumX; ++i) {
            const SurfacePoint p = grid.Point(i, j);
            if (!SameBits(p.x, slow.x(i, j)) || !SameBits(p.y, slow.y(i, j))) return false;
        }
    }
    return true;
}

void ExpectSameExtents(const SurfaceExtents& a, const SurfaceExtents& b) {
    EXPECT_EQ(a.XMin, b.XMin);
    EXPECT_EQ(a.XMax, b.XMax);
    EXPECT_EQ(a.YMin, b.YMin);
    EXPECT_EQ(a.YMax, b.YMax);
    EXPECT_EQ(a.ZMin, b.ZMin);
    EXPECT_EQ(a.ZMax, b.ZMax);
}

TEST(SurfaceFile, EqualsTheSlowVersionBitForBit) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    int built = 0;
    int outside = 0;
    for (int round = 0; round < 3000; ++round) {
        SCOPED_TRACE(round);
        const int mode = static_cast<int>(1 + numbers.Below(2));
        const bool model = numbers.Below(4) == 0;
        SlowSurface slow;
        slow.Points = RandomPoints(numbers, mode == 1 && numbers.Below(4) != 0);
        std::vector<SurfacePoint> points = slow.Points;
        SlowExtents(slow, model);
        SlowSteps(slow);
        SlowLimits(slow, mode);

        double zOrigin = 0;
        const SurfaceExtents data = FindSurfaceExtents(points, model, zOrigin);
        ExpectSameExtents(slow.Data, data);
        ASSERT_EQ(slow.ZOrigin, zOrigin);
        ASSERT_EQ(slow.Points, points);
        const SurfaceSteps steps = FindSteps(points);
        ASSERT_EQ(slow.Steps.X, steps.X);
        ASSERT_EQ(slow.Steps.Y, steps.Y);
        const GridLimits limits = LimitsForMode(mode, data, steps, {});
        if (slow.NumX > 32767 || slow.NumY > 32767) {
            ASSERT_TRUE(FailsWith(FailureKind::Overflow, [&] { SizeOfGrid(limits, steps); }));
            continue;
        }
        const GridSize size = SizeOfGrid(limits, steps);
        ASSERT_EQ(slow.NumX, size.NumX);
        ASSERT_EQ(slow.NumY, size.NumY);
        if (static_cast<std::int64_t>(size.NumX) * size.NumY > 4000000) continue;
        if (!SlowCells(slow)) {
            ASSERT_TRUE(FailsWith(
                FailureKind::SubscriptOutOfRange, [&] { BuildCells(points, limits, steps, size, CellRule::Rounded); },
                "CellGrid"));
            ++outside;
            continue;
        }
        const SurfaceGrid grid = BuildCells(points, limits, steps, size, CellRule::Rounded);
        ASSERT_TRUE(SameCells(slow.z, grid));
        ASSERT_TRUE(SamePlaces(slow, grid));
        ++built;
    }
    EXPECT_GT(built, 2000);
    EXPECT_GT(outside, 50);
}

TEST(SurfaceFile, AHalfStepGoesByTheRoundedNumberOfSteps) {
    // 1 + round(steps): half a step rounds to the even number of steps, so 0.5 to cell 1, 1.5 and 2.5 to cell 3.
    const std::vector<SurfacePoint> points{{0.5, 0, 1}, {1.5, 0, 2}, {2.5, 0, 3}, {3.5, 0, 4}};
    const SurfaceGrid grid =
        BuildCells(points, {0, 4, 0, 1}, {.X = 1, .Y = 1}, {.NumX = 5, .NumY = 2}, CellRule::Rounded);
    EXPECT_EQ(grid.Z, (std::vector<double>{1, 9999, 3, 9999, 4, 9999, 9999, 9999, 9999, 9999}));
    // The number of cells rounds 1 + the steps: 2.5 more make 3.5, which goes to 4.
    EXPECT_EQ(SizeOfGrid({0, 2.5, 0, 1.5}, {.X = 1, .Y = 1}).NumX, 4);
    EXPECT_EQ(SizeOfGrid({0, 2.5, 0, 1.5}, {.X = 1, .Y = 1}).NumY, 2);
}

TEST(SurfaceFile, StepsAreFoundBetweenConsecutivePointsOnly) {
    EXPECT_EQ(FindSteps({{0, 0, 0}}).X, kNoStep);
    EXPECT_EQ(FindSteps({{0, 0, 0}, {0, 0.5, 0}}).X, kNoStep);
    EXPECT_EQ(FindSteps({{0, 0, 0}, {0, 0.5, 0}}).Y, 0.5);
    EXPECT_EQ(FindSteps({{3, 0, 0}, {1, 7, 0}, {1.5, 0, 0}}).X, 0.5);
    // Below half of a millionth two coordinates are one; above, the difference counts at ten decimals.
    EXPECT_EQ(FindSteps({{0, 0, 0}, {0.0000004, 0, 0}}).X, kNoStep);
    EXPECT_EQ(FindSteps({{0, 0, 0}, {0.00000060004, 0, 0}}).X, 0.0000006);
    // A difference is compared at six decimals and kept at ten, so that a greater one can take a lesser one's place.
    EXPECT_EQ(FindSteps({{0, 0, 0}, {0.1234561, 0, 0}, {0, 0, 0}, {0.1234564, 0, 0}}).X, 0.1234564);
    EXPECT_EQ(FindSteps({{0, 0, 0}, {10000, 20000, 0}}).X, kNoStep);
}

TEST(SurfaceFile, LimitsOfAHundredThousandBoundExtents) {
    std::vector<SurfacePoint> points{{200000, -200000, 200000}, {300000, -300000, 300000}};
    double zOrigin = 0;
    const SurfaceExtents data = FindSurfaceExtents(points, false, zOrigin);
    ExpectSameExtents(
        data, {.XMin = 100000, .XMax = 300000, .YMin = -300000, .YMax = -100000, .ZMin = 100000, .ZMax = 300000});
}

TEST(SurfaceFile, ZeroPointCountsAsNotReached) {
    const SurfaceGrid grid =
        BuildCells({{0, 0, 0}, {1, 0, 0}}, {0, 1, 0, 0}, {.X = 1, .Y = 1}, {.NumX = 2, .NumY = 1}, CellRule::Rounded);
    EXPECT_EQ(grid.z(1, 1), 9999);
    EXPECT_EQ(grid.z(2, 1), 0);
}

TEST(SurfaceFile, GridsBeyondSixteenBitsOverflow) {
    const SurfaceSteps one{.X = 1, .Y = 1};
    EXPECT_EQ(SizeOfGrid({0, 32766, 0, 1}, one).NumX, 32767);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow,
        [&] {
            SizeOfGrid({0, 32767, 0, 1}, one);
        },
        "NumX"));
    EXPECT_EQ(SizeOfGrid({0, 1, 0, 32766.4}, one).NumY, 32767);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow,
        [&] {
            SizeOfGrid({0, 1, 0, 32767}, one);
        },
        "NumY"));
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero,
        [&] {
            SizeOfGrid({0, 1, 0, 1}, {.X = 0, .Y = 1});
        },
        "NumX"));
}

TEST(SurfaceFile, OtherModesKeepTheLimits) {
    const GridLimits limits = LimitsForMode(0, {1, 2, 3, 4, 5, 6}, {.X = 1, .Y = 1}, {7, 8, 9, 10});
    EXPECT_EQ(limits.XMin, 7);
    EXPECT_EQ(limits.XMax, 8);
    EXPECT_EQ(limits.YMin, 9);
    EXPECT_EQ(limits.YMax, 10);
}

TEST(SurfaceFile, ReadsAsManyTriplesAsThereAreLines) {
    const TempFolder folder;
    const auto read = [&](const std::string& bytes) {
        PutFile(folder / "a.csv", bytes);
        return ReadPointText(folder / "a.csv");
    };
    EXPECT_EQ(read("1,2,3\r\n4,5,6\r\n"), (std::vector<SurfacePoint>{{1, 2, 3}, {4, 5, 6}}));
    EXPECT_EQ(read("1 2 3\n4 , 5 ,6"), (std::vector<SurfacePoint>{{1, 2, 3}, {4, 5, 6}}));
    // A short line shifts what follows; the last line's rest is never read.
    EXPECT_EQ(read("1,2\n3,4,5,6,7,8\n"), (std::vector<SurfacePoint>{{1, 2, 3}, {4, 5, 6}}));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { read("1,2,3\n4,5\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { read("1,2,3\n\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { read("x,y,z\n1,2,3\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { read(""); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { ReadPointText(folder / "none.csv"); }));
}

TEST(SurfaceFile, WritesCellsRowByRow) {
    const TempFolder folder;
    FileTable files;
    const SurfaceGrid grid = MakeGrid(2, 2, [](int i, int j) { return i == 2 && j == 2 ? kEmptyCellZ : i + 0.5 * j; });
    WriteSurfaceFile(files, folder / "out.csv", grid);
    EXPECT_EQ(FileBytes(folder / "out.csv"), "-.75,30.25,1.5\r\n-.5,30.25,2.5\r\n-.75,30.5,2\r\n-.5,30.5,9999\r\n");
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { WriteSurfaceFile(files, folder / "none.csv", {}); }));
    EXPECT_EQ(folder.EntryCount(), 1u);
}

}  // namespace
}  // namespace crownlab
