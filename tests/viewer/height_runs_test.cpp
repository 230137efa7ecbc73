#include "viewer/height_runs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <vector>

#include "grids.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

constexpr double kEmpty = kEmptyCellZ;

double IndexOf(const SurfaceGrid& grid, double zMin = 0, double bandWidth = 1) {
    SurfaceGrid marked;
    return HeightRunIndex(grid, zMin, bandWidth, marked);
}

SurfaceGrid RandomGrid(int numX, int numY, unsigned seed) {
    std::mt19937 random(seed);
    SurfaceGrid grid;
    grid.NumX = numX;
    grid.NumY = numY;
    grid.Places = std::make_shared<std::vector<Place>>(static_cast<std::size_t>(numX * numY));
    for (int i = 0; i < numX * numY; ++i) grid.Z.push_back(random() % 5 == 0 ? kEmpty : random() % 40 / 10.0 - 1);
    return grid;
}

/// The index as its definition reads: rows of bands without the cells that take no part, cut where they change.
double SlowIndex(const SurfaceGrid& grid, double zMin, double bandWidth) {
    std::vector<double> runs;
    double total = 0;
    for (int row = 2; row < grid.NumY; ++row) {
        std::vector<double> bands;
        for (int column = 2; column < grid.NumX; ++column) {
            const double low = bandWidth * std::floor(zMin / bandWidth);
            if (grid.z(column, row) != kEmpty) bands.push_back(1 + std::floor((grid.z(column, row) - low) / bandWidth));
        }
        for (std::size_t i = 0; i < bands.size(); ++i) {
            if (i == 0 || bands[i] != bands[i - 1]) runs.push_back(0);
            ++runs.back();
            ++total;
        }
    }
    double sum = 0;
    for (const double run : runs) sum += (run / total) * (run / total);
    return 1 / sum;
}

TEST(HeightRunIndex, OneRowOfOneBandIsOneRun) {
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9, 9, 9}, {9, 1, 1, 1, 9}, {9, 9, 9, 9, 9}})), 1);
}

TEST(HeightRunIndex, TheNextRowStartsANewRunInTheSameBand) {
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9, 9}, {9, 1, 1, 9}, {9, 1, 1, 9}, {9, 9, 9, 9}})), 2);
}

TEST(HeightRunIndex, CellsAtABandsLowerEdgeBelongToIt) {
    // 1.99 lies in the band from 1, 2 in the next one.
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9, 9}, {9, 1.99, 2, 9}, {9, 9, 9, 9}})), 2);
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9, 9}, {9, 1.99, 1, 9}, {9, 9, 9, 9}})), 1);
}

TEST(HeightRunIndex, UnequalRuns) {
    // Runs of 3 and 1 of 4 cells: 1 / (9/16 + 1/16).
    EXPECT_DOUBLE_EQ(IndexOf(GridOfRows({{9, 9, 9, 9, 9, 9}, {9, 1, 1, 1, 5, 9}, {9, 9, 9, 9, 9, 9}})), 1.6);
}

TEST(HeightRunIndex, ARunGoesOnBehindAnEmptyCell) {
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9, 9, 9}, {9, 1, kEmpty, 1, 9}, {9, 9, 9, 9, 9}})), 1);
}

TEST(HeightRunIndex, AHeightJustBelowTheLowestBandIsARunOfItsOwn) {
    // The noise below 0 that extents leave out falls into band 0, also at the start of a row.
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9, 9}, {9, -0.00005, 0.5, 9}, {9, 9, 9, 9}})), 2);
    EXPECT_EQ(IndexOf(GridOfRows({{9, 9, 9}, {9, -0.00005, 9}, {9, -0.00005, 9}, {9, 9, 9}})), 2);
}

TEST(HeightRunIndex, MarksCellsThatTakeNoPart) {
    const SurfaceGrid grid = GridOfRows({{9, 9, 9, 9}, {9, 1, kEmpty, 9}, {9, 9, 9, 9}});
    SurfaceGrid marked;
    HeightRunIndex(grid, 0, 1, marked);
    EXPECT_EQ(marked.NumX, 4);
    EXPECT_EQ(marked.NumY, 3);
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column) {
            EXPECT_EQ(marked.z(column, row), column == 2 && row == 2 ? 0 : kEmpty) << column << ", " << row;
        }
    }
}

TEST(HeightRunIndex, AgreesWithTheSlowVersion) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const SurfaceGrid grid = RandomGrid(4 + static_cast<int>(seed % 7), 30 - static_cast<int>(seed % 9), seed);
        for (const double width : {0.3, 1.0, 7.0}) {
            EXPECT_DOUBLE_EQ(IndexOf(grid, -1, width), SlowIndex(grid, -1, width)) << "seed " << seed;
        }
    }
}

TEST(HeightRunIndex, FailsWhereNothingTakesPart) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { IndexOf(GridOfRows({{1, 1}, {1, 1}})); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] {
        IndexOf(GridOfRows({{1, 1, 1}, {1, kEmpty, 1}, {1, 1, 1}}));
    }));
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { IndexOf(SurfaceGrid{}); }, "WorkGrid"));
}

TEST(HeightRunIndex, FailsForABandWidthOfZeroAndBandsBeyond32Bits) {
    const SurfaceGrid grid = GridOfRows({{9, 9, 9}, {9, 5, 9}, {9, 9, 9}});
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { IndexOf(grid, 0, 0); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { IndexOf(grid, 0, 1e-9); }, "HeightBand"));
}

TEST(HeightRunIndex, HoldsAMillionRuns) {
    // One cell takes part in each row, and each is a run of its own.
    const auto column = [](int rows) {
        SurfaceGrid grid;
        grid.NumX = 3;
        grid.NumY = rows + 2;
        grid.Z.assign(static_cast<std::size_t>(grid.NumX) * static_cast<std::size_t>(grid.NumY), 1);
        grid.Places = std::make_shared<std::vector<Place>>(grid.Z.size());
        return grid;
    };
    EXPECT_NEAR(IndexOf(column(1000000)), 1e6, 1e-3);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { IndexOf(column(1000001)); }, "RunLengths"));
}

}  // namespace
}  // namespace crownlab
