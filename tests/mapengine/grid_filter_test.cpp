#include "mapengine/grid_filter.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "mapengine/test_grids.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

Grid Filter(const Grid& grid, const FilterWeights& weights, int passes = 1) {
    Progress progress;
    return FilterGrid(grid, weights, passes, progress);
}

/// The filter with that number, of size n where it has one.
FilterWeights Weights(int filter, int n, double alpha, const GridGeometry& shape) {
    return HasChosenSize(filter) ? SizedFilter(filter, n, alpha, shape) : FixedFilter(filter);
}

// ---- The literal way: weights by their table, neighbours one by one.

double LiteralWeight(int filter, int n, double alpha, int i, int j) {
    const double d = std::hypot(i, j);
    const int half = (n - 1) / 2;
    const double r = half;
    const auto inWindow = [&](int reach) { return std::abs(i) <= reach && std::abs(j) <= reach; };
    const auto by = [&](double centre, double side, double corner) {
        if (!inWindow(1)) return 0.0;
        if (i == 0 && j == 0) return centre;
        return i == 0 || j == 0 ? side : corner;
    };
    switch (filter) {
        case 1: return inWindow(static_cast<int>(r)) ? 1 : 0;
        case 2: return inWindow(static_cast<int>(r)) ? std::max(0.0, 1 - d / (r + 1)) : 0;
        case 3: return inWindow(static_cast<int>(r)) ? (d == 0 ? 1 : 1 / d) : 0;
        case 4: return inWindow(static_cast<int>(r)) ? std::exp(-alpha * d * d) : 0;
        case 6: return d == 0 || d == 2 ? 1 : 0;
        case 7: return d == 0 || (std::abs(i) == 2 && std::abs(j) == 2) ? 1 : 0;
        case 8: return by(1, 1, 1);
        case 9: return by(4, 2, 1);
        case 10: return by(1, 1, 1);
        case 11: return by(2, 1, 1);
        case 12: return by(4, 1, 1);
        case 14: return by(9, -1, -1);
        case 15: return by(5, -1, 0);
        case 16: return by(5, -2, 1);
        default: return 0;
    }
}

template <typename WeightAt>
Grid FilterLiterally(const Grid& grid, int reach, const WeightAt& weightAt) {
    Grid result(grid.Shape);
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            if (IsBlank(grid.At(column, row))) continue;
            double sum = 0;
            double weights = 0;
            for (int j = -reach; j <= reach; ++j) {
                for (int i = -reach; i <= reach; ++i) {
                    const int x = column + i;
                    const int y = row + j;
                    if (x < 0 || y < 0 || x >= grid.Shape.Columns || y >= grid.Shape.Rows) continue;
                    if (IsBlank(grid.At(x, y))) continue;
                    sum += weightAt(i, j) * grid.At(x, y);
                    weights += weightAt(i, j);
                }
            }
            if (weights != 0) result.At(column, row) = sum / weights;
        }
    }
    return result;
}

constexpr std::array kFilters{1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 12, 14, 15, 16};

TEST(GridFilter, EveryFilterAgreesWithTheLiteralTable) {
    RandomNumbers random;
    SCOPED_TRACE(kRandomSeed);
    for (const int filter : kFilters) {
        for (const int n : {1, 3, 5, 9}) {
            const GridGeometry shape =
                ShapeOf(2 + static_cast<int>(random.Below(40)), 2 + static_cast<int>(random.Below(40)));
            const Grid grid = RandomGrid(random, shape, n == 3 ? 0 : 6);
            const double alpha = 0.3;
            const int reach = HasChosenSize(filter) ? (n - 1) / 2 : 2;
            const Grid literal =
                FilterLiterally(grid, reach, [&](int i, int j) { return LiteralWeight(filter, n, alpha, i, j); });
            EXPECT_TRUE(GridsAgree(Filter(grid, Weights(filter, n, alpha, shape)), literal, 1e-12))
                << "filter " << filter << ", n " << n;
        }
    }
}

TEST(GridFilter, UserMatrixAgreesWithTheLiteralSum) {
    RandomNumbers random;
    SCOPED_TRACE(kRandomSeed);
    for (int round = 0; round < 30; ++round) {
        const GridGeometry shape =
            ShapeOf(2 + static_cast<int>(random.Below(40)), 2 + static_cast<int>(random.Below(20)));
        const Grid grid = RandomGrid(random, shape, 5);
        const int reach = static_cast<int>(random.Below(4));
        FilterWeights weights{.ColumnReach = reach, .RowReach = reach, .Values = {}};
        // Whole weights of both signs, so that sums of exactly 0 occur.
        for (int i = 0; i < (2 * reach + 1) * (2 * reach + 1); ++i) {
            weights.Values.push_back(static_cast<double>(random.Below(7)) - 3);
        }
        const Grid literal = FilterLiterally(grid, reach, [&](int i, int j) { return weights.At(i, j); });
        EXPECT_TRUE(SameBits(Filter(grid, weights).Z, literal.Z)) << "round " << round;
    }
}

TEST(GridFilter, PassesFilterTheLastResult) {
    RandomNumbers random;
    const Grid grid = RandomGrid(random, ShapeOf(21, 13), 9);
    const FilterWeights weights = SizedFilter(filter_number::kGaussian, 5, 0.5, grid.Shape);
    const Grid thrice = Filter(Filter(Filter(grid, weights), weights), weights);
    EXPECT_TRUE(SameBits(Filter(grid, weights, 3).Z, thrice.Z));
    EXPECT_TRUE(SameBits(Filter(grid, weights, 0).Z, grid.Z));
}

// ---- Closed forms: a weighted mean keeps a plane inside, and moves a paraboloid by its weights' second moment.

TEST(GridFilter, SymmetricFiltersKeepAPlaneInside) {
    const GridGeometry shape = ShapeOf(12, 11);
    const Grid plane = GridOf(shape, [](double x, double y) { return 3 * x - 2 * y + 1; });
    for (const int filter : kFilters) {
        const Grid filtered = Filter(plane, Weights(filter, 5, 1, shape));
        for (int row = 2; row + 2 < shape.Rows; ++row) {
            for (int column = 2; column + 2 < shape.Columns; ++column) {
                EXPECT_NEAR(filtered.At(column, row), plane.At(column, row), 1e-12) << filter;
            }
        }
    }
}

TEST(GridFilter, ConstantStaysEverywhere) {
    const Grid level = GridOf(ShapeOf(9, 7), [](double, double) { return 2.5; });
    for (const int filter : kFilters) {
        for (const double z : Filter(level, Weights(filter, 5, 1, level.Shape)).Z) EXPECT_NEAR(z, 2.5, 1e-14) << filter;
    }
}

TEST(GridFilter, ParaboloidRisesByTheSecondMoment) {
    // z = x² + y², nodes at distance 1: a mean adds the mean of the weighted squared distances.
    const GridGeometry shape{.Columns = 9, .Rows = 9, .XMin = 0, .XMax = 8, .YMin = 0, .YMax = 8};
    const Grid grid = GridOf(shape, [](double x, double y) { return x * x + y * y; });
    const auto rise = [&](int filter, int n) {
        return Filter(grid, Weights(filter, n, 1, shape)).At(4, 4) - grid.At(4, 4);
    };
    EXPECT_NEAR(rise(1, 3), 12.0 / 9, 1e-12);
    EXPECT_NEAR(rise(1, 5), (2 * 5 * (4 + 1 + 0 + 1 + 4)) / 25.0, 1e-12);
    EXPECT_NEAR(rise(2, 3), (4 * 0.5 + 4 * 2 * (1 - std::sqrt(0.5))) / (1 + 4 * 0.5 + 4 * (1 - std::sqrt(0.5))), 1e-12);
    EXPECT_NEAR(rise(3, 3), (4 + 4 * 2 / std::sqrt(2.0)) / (1 + 4 + 4 / std::sqrt(2.0)), 1e-12);
    EXPECT_NEAR(rise(4, 3), (4 * std::exp(-1) + 8 * std::exp(-2)) / (1 + 4 * std::exp(-1) + 4 * std::exp(-2)), 1e-12);
    EXPECT_NEAR(rise(6, 1), 16.0 / 5, 1e-12);
    EXPECT_NEAR(rise(7, 1), 32.0 / 5, 1e-12);
    EXPECT_NEAR(rise(8, 1), 12.0 / 9, 1e-12);
    EXPECT_NEAR(rise(9, 1), 1, 1e-12);
    EXPECT_NEAR(rise(11, 1), 12.0 / 10, 1e-12);
    EXPECT_NEAR(rise(12, 1), 12.0 / 12, 1e-12);
    EXPECT_NEAR(rise(14, 1), -12, 1e-12);
    EXPECT_NEAR(rise(15, 1), -4, 1e-12);
    EXPECT_NEAR(rise(16, 1), -8 + 8, 1e-12);
}

TEST(GridFilter, CornersUseTheNeighboursThereAre) {
    const Grid grid = GridOf({.Columns = 2, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1},
                             [](double x, double y) { return 1 + x + 4 * y; });  // 1 2 / 5 6
    EXPECT_EQ(Filter(grid, FixedFilter(14)).Z[0], (9 - 2 - 5 - 6) / 6.0);
    EXPECT_EQ(Filter(grid, FixedFilter(15)).Z[3], (5 * 6 - 2 - 5) / 3.0);
    EXPECT_EQ(Filter(grid, FixedFilter(6)).Z[1], 2);
    // A window far beyond the grid is the mean of all.
    EXPECT_EQ(Filter(grid, SizedFilter(1, 2147483647, 1, grid.Shape)).Z[2], 3.5);
}

TEST(GridFilter, BlankStaysBlankAndIsLeftOut) {
    Grid grid = GridOf(ShapeOf(3, 3), [](double, double) { return 6.0; });
    grid.At(1, 1) = kBlankHeight;
    grid.At(0, 0) = 3;
    const Grid mean = Filter(grid, FixedFilter(8));
    EXPECT_EQ(mean.At(1, 1), kBlankHeight);
    EXPECT_EQ(mean.At(0, 0), 5);
    EXPECT_EQ(mean.At(2, 2), 6);
}

TEST(GridFilter, WeightsThatSumToZeroGiveBlank) {
    // The mean of the neighbours less the node: 0 where all eight are there, else not.
    const Grid grid = GridOf(ShapeOf(3, 3), [](double, double) { return 6.0; });
    const FilterWeights weights{.ColumnReach = 1, .RowReach = 1, .Values = {1, 1, 1, 1, -8, 1, 1, 1, 1}};
    const Grid filtered = Filter(grid, weights);
    EXPECT_EQ(filtered.At(1, 1), kBlankHeight);
    EXPECT_EQ(filtered.At(0, 0), 6);
    EXPECT_EQ(Filter(grid, CentreWeighted(0, 0, grid.Shape)).At(2, 2), kBlankHeight);
}

TEST(GridFilter, ResultsBeyondTheBlankValueAreBlank) {
    const Grid grid = GridOf(ShapeOf(3, 3), [](double x, double) { return x < 3.2 ? 1.5e38 : -1.5e38; });
    const FilterWeights weights{.ColumnReach = 1, .RowReach = 0, .Values = {3, 0, -2}};
    EXPECT_EQ(Filter(grid, weights).At(1, 1), kBlankHeight);
}

TEST(GridFilter, MatrixRowsRunFromLowYAndColumnsFromLowX) {
    const Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 2},
                             [](double x, double y) { return x + 10 * y; });
    FilterWeights weights{.ColumnReach = 1, .RowReach = 1, .Values = {0, 0, 1, 0, 0, 0, 0, 0, 0}};
    EXPECT_EQ(Filter(grid, weights).At(1, 1), 2);
    weights.Values = {0, 0, 0, 0, 0, 0, 1, 0, 0};
    EXPECT_EQ(Filter(grid, weights).At(1, 1), 20);
}

TEST(GridFilter, CentreWeight) {
    const Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 2},
                             [](double x, double y) { return x == 1 && y == 1 ? 9.0 : 0.0; });
    EXPECT_EQ(Filter(grid, CentreWeighted(1, 4, grid.Shape)).At(1, 1), 36.0 / 12);
    EXPECT_EQ(Filter(grid, CentreWeighted(1, 4, grid.Shape)).At(0, 0), 9.0 / 7);
}

TEST(GridFilter, NumbersWithoutAFilterFail) {
    for (const int filter : {-1, 0, 13, 17, 100}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::AutomationFailed, [&] { FixedFilter(filter); },
            "Filter " + std::to_string(filter) + " stands for no filter"));
    }
}

TEST(GridFilter, WeightsThatAreNoNumbersFail) {
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [] { SizedFilter(4, 9, -1000, ShapeOf(20, 20)); }, "Param1"));
}

TEST(GridFilter, SameBitsForAnyNumberOfThreads) {
    RandomNumbers random;
    const Grid grid = RandomGrid(random, ShapeOf(131, 207), 20);
    const auto filtered = [&](const char* threads) {
        const ThreadBound bound(threads);
        return Filter(grid, SizedFilter(4, 7, 0.2, grid.Shape), 3).Z;
    };
    const std::vector<double> one = filtered("1");
    EXPECT_TRUE(SameBits(one, filtered("2")));
    EXPECT_TRUE(SameBits(one, filtered("5")));
}

}  // namespace
}  // namespace crownlab
