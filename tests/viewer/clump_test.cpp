#include "viewer/clump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/expect_failure.h"
#include "viewer/slow_clump.h"

namespace crownlab {
namespace {

constexpr ClassRule kBands{.NumCategories = 100, .HalfSector = 0, .SectorWidth = 1, .VoidHoriz = false};

SlowClump SlowClumpOf(const SurfaceGrid& proc, const ClassRule& rule) {
    SlowClump slow = crownlab::SlowClumpOf(proc);
    slow.NumCategories = rule.NumCategories;
    slow.HalfSector = rule.HalfSector;
    slow.SectorWidth = rule.SectorWidth;
    slow.VoidHoriz = rule.VoidHoriz;
    return slow;
}

::testing::AssertionResult SameLabels(const SlowArray& expected, const LabelGrid& found) {
    for (int j = 1; j <= found.NumY; ++j) {
        for (int i = 1; i <= found.NumX; ++i) {
            const std::int16_t label = found.Labels[static_cast<std::size_t>((j - 1) * found.NumX + i - 1)];
            if (expected(i, j) != label) {
                return ::testing::AssertionFailure()
                       << "cell (" << i << ", " << j << ") has " << label << ", expected " << expected(i, j);
            }
        }
    }
    return ::testing::AssertionSuccess();
}

/// One pass of the product, cut at `cut` scan positions, as it is where other events are served in between.
LabelGrid DoPass(const std::vector<double>& category, const LabelGrid& labels, int pass, int numLabels, std::size_t cut,
                 const SlowClump& slow) {
    std::vector<std::int16_t> table = EmptyEquivTable();
    const std::vector<std::size_t> cells = CellsWithPairs(category, labels);
    const auto order = static_cast<Pass>(pass);
    FindEquiv(category, labels, cells, order, 0, cut, table);
    FindEquiv(category, labels, cells, order, cut, labels.Labels.size(), table);
    EXPECT_EQ(table, slow.TableAfterFind.at(static_cast<std::size_t>(pass))) << "found in pass " << pass;
    const int middle = std::min(numLabels, 406);
    ShortenEquivTable(table, numLabels, numLabels, middle + 1);
    ShortenEquivTable(table, numLabels, middle, 1);
    EXPECT_EQ(table, slow.TableAfterShorten.at(static_cast<std::size_t>(pass))) << "shortened in pass " << pass;
    LabelGrid fixed = EmptyLabels(labels.NumX, labels.NumY, labels.Places);
    FixEquiv(labels, table, 0, cut, fixed);
    FixEquiv(labels, table, cut, labels.Labels.size(), fixed);
    return fixed;
}

/// Every stage of the count against the slow version. Returns the number of labels.
int ExpectSameCount(const SurfaceGrid& proc, const ClassRule& rule, int minClumpSize, RandomNumbers& numbers) {
    SlowClump slow = SlowClumpOf(proc, rule);
    slow.MinClumpSize = minClumpSize;
    slow.Run();

    const std::vector<double> category = Categorise(proc, rule);
    for (std::size_t at = 0; at < category.size(); ++at) {
        const int i = static_cast<int>(at) % proc.NumX + 1;
        const int j = static_cast<int>(at) / proc.NumX + 1;
        if (slow.Level[1](i, j) != category[at]) ADD_FAILURE() << "category of (" << i << ", " << j << ")";
    }
    const FirstLabelsResult first = FirstLabels(category, proc);
    EXPECT_EQ(first.LastLabel, slow.NumLabels);
    EXPECT_TRUE(SameLabels(slow.Level[2], first.Labels));
    LabelGrid labels = first.Labels;
    for (int pass = 1; pass <= 4; ++pass) {
        const std::size_t cut = numbers.Below(labels.Labels.size() + 1);
        labels = DoPass(category, labels, pass, first.LastLabel, cut, slow);
        EXPECT_TRUE(SameLabels(slow.Level.at(static_cast<std::size_t>(pass + 2)), labels)) << "after pass " << pass;
    }
    const ClumpSelection selection = SelectClumps(labels, first.LastLabel, minClumpSize);
    EXPECT_EQ(selection.ClumpSizes, slow.ClumpSizes);
    EXPECT_TRUE(SameLabels(slow.Level[7], ClumpNumbers(labels, selection)));
    return slow.NumLabels;
}

TEST(Clump, EqualsTheSlowVersionAtEveryStage) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 6; ++round) {
        for (const auto& [numX, numY] : std::vector<std::pair<int, int>>{
                 {1, 1}, {1, 12}, {12, 1}, {2, 2}, {7, 7}, {3, 40}, {40, 3}, {33, 29}, {60, 61}}) {
            for (const NamedSurface& surface : CategorySurfaces(numX, numY, numbers)) {
                SCOPED_TRACE(surface.Name);
                ClassRule rule = kBands;
                rule.VoidHoriz = numbers.Below(2) == 0;
                ExpectSameCount(surface.Grid, rule, static_cast<int>(numbers.Below(5)) - 1, numbers);
                if (HasFailure()) return;
            }
        }
    }
}

TEST(Clump, OrientationsOfAllCategoryNumbersEqualTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    const auto orientation = [&](int, int) -> double {
        switch (numbers.Below(8)) {
            case 0: return -1;
            case 1: return 9999;
            case 2: return 22.5 * static_cast<double>(numbers.Below(17));
            case 3: return 360;
            default: return 360 * Share(numbers);
        }
    };
    for (const double categories : {1.0, 2.0, 3.0, 6.0, 7.0, 7.5, 8.0, 8.5, 11.0, 16.0, 360.0, 361.0, 700.0, -8.0}) {
        SCOPED_TRACE(categories);
        const ClassRule rule = OrientationRule(categories, numbers.Below(2) == 0);
        ExpectSameCount(MakeGrid(25, 30, orientation), rule, 0, numbers);
    }
}

/// Noise of three values that has exactly `labels` labels: from the cell on that would get one more all is void.
SurfaceGrid NoiseOfLabels(int numX, int numY, int labels, RandomNumbers& numbers) {
    SurfaceGrid grid = MakeGrid(numX, numY, [&](int, int) { return static_cast<double>(numbers.Below(3)); });
    int last = 2;
    for (std::size_t at = 1; at < grid.Size(); ++at) {
        const auto columns = static_cast<std::size_t>(numX);
        const bool left = at % columns != 0 && grid.Z[at] == grid.Z[at - 1];
        const bool below = at >= columns && grid.Z[at] == grid.Z[at - columns];
        if (left || below) continue;
        if (last == labels) {
            std::fill(grid.Z.begin() + static_cast<std::ptrdiff_t>(at), grid.Z.end(), kEmptyCellZ);
            return grid;
        }
        ++last;
    }
    ADD_FAILURE() << "the grid is too small for " << labels << " labels";
    return grid;
}

TEST(Clump, ManyLabelsEqualTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    // 9999 marks a cell without a label as well: a patch of that label is void.
    for (const int labels : {405, 406, 407, 9998, 9999, 10000}) {
        SCOPED_TRACE(labels);
        const int side = labels < 1000 ? 60 : 200;
        const SurfaceGrid noise = NoiseOfLabels(side, side, labels, numbers);
        EXPECT_EQ(ExpectSameCount(noise, kBands, 0, numbers), labels);
    }
}

/// A board on which every cell has a label of its own, and over it a maze that goes on up to the label `last`: a cell
/// that would need one more is void.
SurfaceGrid BoardWithMaze(int last, RandomNumbers& numbers) {
    const int numX = 99;
    const int boardRows = 100;
    int label = 0;
    SurfaceGrid grid = MakeGrid(numX, boardRows + 24, [&](int i, int j) {
        if (j <= boardRows) return static_cast<double>((i + j) % 2);
        const bool wall = j == boardRows + 1 || numbers.Below(100) < 38;
        return wall ? kEmptyCellZ : 7.0;
    });
    for (std::size_t at = 0; at < grid.Size(); ++at) {
        if (grid.Z[at] == kEmptyCellZ) continue;
        const bool left = at % numX != 0 && grid.Z[at] == grid.Z[at - 1];
        const bool below = at >= numX && grid.Z[at] == grid.Z[at - numX];
        if (left || below) continue;
        if (label == last) {
            grid.Z[at] = kEmptyCellZ;
        } else {
            label += label == 0 ? 2 : 1;
        }
    }
    EXPECT_EQ(label, last);
    return grid;
}

// Cells of label 9999 enter nothing into the table themselves, only their neighbours do.
TEST(Clump, MazesAtTheTablesEndEqualTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 25; ++round) {
        for (const int last : {9999, 10000}) {
            SCOPED_TRACE(last);
            EXPECT_EQ(ExpectSameCount(BoardWithMaze(last, numbers), kBands, 0, numbers), last);
        }
    }
}

TEST(Clump, ALabel9999CountsAsNone) {
    // 99 by 101 cells, no two of a kind side by side: cell number n has the label n + 1.
    const SurfaceGrid board = MakeGrid(99, 101, [](int i, int j) { return static_cast<double>((i + j) % 2); });
    const FirstLabelsResult first = FirstLabels(Categorise(board, kBands), board);
    EXPECT_EQ(first.LastLabel, 10000);
    EXPECT_EQ(first.Labels.Labels[9997], 9999);
    const ClumpSelection selection = SelectClumps(first.Labels, first.LastLabel, 0);
    // Label 2 is never given, 9999 isn't counted.
    EXPECT_EQ(selection.ClumpSizes.size(), 9998u);
    EXPECT_EQ(ClumpNumbers(first.Labels, selection).Labels[9997], kNoLabel);
    EXPECT_EQ(ClumpNumbers(first.Labels, selection).Labels[9998], 9998);
}

TEST(Clump, TheTableEndsAtTenThousandLabels) {
    const SurfaceGrid board = MakeGrid(100, 100, [](int i, int j) { return static_cast<double>((i + j) % 2); });
    const FirstLabelsResult first = FirstLabels(Categorise(board, kBands), board);
    EXPECT_EQ(first.LastLabel, 10001);
    std::vector<std::int16_t> table = EmptyEquivTable();
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { ShortenEquivTable(table, first.LastLabel, first.LastLabel, 1); },
        "EquivTable"));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] {
        SlowClump slow = SlowClumpOf(board, kBands);
        slow.Run();
    }));
    // A pair above it can't even be entered.
    RandomNumbers numbers;
    const SurfaceGrid noise = NoiseOfLabels(300, 300, 12000, numbers);
    const std::vector<double> category = Categorise(noise, kBands);
    const LabelGrid labels = FirstLabels(category, noise).Labels;
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange,
        [&] {
            FindEquiv(category, labels, CellsWithPairs(category, labels), Pass::One, 0, labels.Labels.size(), table);
        },
        "EquivTable"));
}

TEST(Clump, LabelsBeyondSixteenBitsOverflow) {
    const auto board = [](int numX, int numY) {
        return MakeGrid(numX, numY, [](int i, int j) { return static_cast<double>((i + j) % 2); });
    };
    const SurfaceGrid most = board(113, 290);  // 32770 cells
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { FirstLabels(Categorise(most, kBands), most); }, "NextClumpLabel"));
    const SurfaceGrid less = board(2, 16383);  // 32766 cells and the label that is left out
    EXPECT_EQ(FirstLabels(Categorise(less, kBands), less).LastLabel, 32767);
}

/// The plain loops: entries of the labels from NumLabels down, each with a walk through the whole table.
void SlowShorten(std::vector<std::int16_t>& table, int numLabels) {
    for (int k = numLabels; k >= 1; --k) {
        const std::int16_t m = table[static_cast<std::size_t>(k)];
        if (m == 0) continue;
        const std::int16_t t = table[static_cast<std::size_t>(m)];
        if (t == 0) continue;
        for (int q = numLabels; q >= t; --q) {
            if (table[static_cast<std::size_t>(q)] == m) table[static_cast<std::size_t>(q)] = t;
        }
    }
}

/// Entries are 0 or smaller than their label; chains are short, long or all to few labels.
std::vector<std::int16_t> RandomTable(int numLabels, RandomNumbers& numbers) {
    std::vector<std::int16_t> table = EmptyEquivTable();
    const std::uint64_t kind = numbers.Below(4);
    const std::uint64_t filled = 1 + numbers.Below(4);
    for (int label = 2; label <= numLabels; ++label) {
        if (numbers.Below(4) >= filled) continue;
        const auto lower = static_cast<std::uint64_t>(label - 1);
        const std::uint64_t reach = kind == 0   ? lower
                                    : kind == 1 ? std::min<std::uint64_t>(lower, 3)
                                                : std::min<std::uint64_t>(lower, 40);
        const std::uint64_t entry = kind == 3 ? 1 + numbers.Below(reach) : lower - numbers.Below(reach);
        table[static_cast<std::size_t>(label)] = static_cast<std::int16_t>(entry);
    }
    return table;
}

TEST(Clump, ShorteningEqualsThePlainLoops) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 4000; ++round) {
        const int numLabels = round < 6 ? 10000 - round : static_cast<int>(numbers.Below(round % 10 == 0 ? 1200 : 60));
        SCOPED_TRACE(numLabels);
        std::vector<std::int16_t> expected = RandomTable(numLabels, numbers);
        std::vector<std::int16_t> whole = expected;
        std::vector<std::int16_t> parts = expected;
        SlowShorten(expected, numLabels);
        ShortenEquivTable(whole, numLabels, numLabels, 1);
        ASSERT_EQ(whole, expected) << "round " << round;
        const int cut = static_cast<int>(numbers.Below(static_cast<std::uint64_t>(numLabels) + 1));
        ShortenEquivTable(parts, numLabels, numLabels, cut + 1);
        ShortenEquivTable(parts, numLabels, cut, 1);
        ASSERT_EQ(parts, expected) << "round " << round;
    }
}

TEST(Clump, PassesScanInTheirOwnOrder) {
    const int numX = 3;
    const int numY = 4;
    const auto cellAt = [&](Pass pass, std::size_t position) {
        for (int row = 1; row <= numY; ++row) {
            for (int column = 1; column <= numX; ++column) {
                if (ScanPosition(pass, numX, numY, column, row) == position) return std::pair(column, row);
            }
        }
        return std::pair(0, 0);
    };
    EXPECT_EQ(cellAt(Pass::One, 1), std::pair(2, 1));
    EXPECT_EQ(cellAt(Pass::One, 11), std::pair(3, 4));
    EXPECT_EQ(cellAt(Pass::Two, 1), std::pair(1, 2));
    EXPECT_EQ(cellAt(Pass::Two, 4), std::pair(2, 1));
    EXPECT_EQ(cellAt(Pass::Three, 0), std::pair(3, 4));
    EXPECT_EQ(cellAt(Pass::Three, 1), std::pair(2, 4));
    EXPECT_EQ(cellAt(Pass::Four, 1), std::pair(3, 3));
    EXPECT_EQ(cellAt(Pass::Four, 4), std::pair(2, 4));
}

double CategoryOfOne(double z, const ClassRule& rule) {
    return Categorise(MakeGrid(1, 1, [&](int, int) { return z; }), rule).front();
}

TEST(Clump, SectorsWrapAroundNorth) {
    const ClassRule eight = OrientationRule(8, false);
    EXPECT_EQ(eight.SectorWidth, 45);
    EXPECT_EQ(eight.HalfSector, 22.5);
    EXPECT_EQ(CategoryOfOne(350, eight), 1);
    EXPECT_EQ(CategoryOfOne(10, eight), 1);
    EXPECT_EQ(CategoryOfOne(22.5, eight), 2);
    EXPECT_EQ(CategoryOfOne(337.5, eight), 1);
    EXPECT_EQ(CategoryOfOne(360, eight), 1);
    EXPECT_EQ(CategoryOfOne(-1, eight), 9);
    EXPECT_EQ(CategoryOfOne(9999, eight), 9999);
    EXPECT_EQ(CategoryOfOne(-1, OrientationRule(8, true)), 9999);
    // 360 / 7 isn't whole: sectors of 51 degrees leave a rest that wraps.
    const ClassRule seven = OrientationRule(7, false);
    EXPECT_EQ(seven.SectorWidth, 51);
    EXPECT_EQ(seven.HalfSector, 360.0 / 7 / 2);
    EXPECT_EQ(CategoryOfOne(331, seven), 7);
    EXPECT_EQ(CategoryOfOne(350, seven), 1);
    // 360 / 16 is 22.5 and rounds to the even 22: the rest reaches two sectors on.
    const ClassRule sixteen = OrientationRule(16, false);
    EXPECT_EQ(sixteen.SectorWidth, 22);
    EXPECT_EQ(CategoryOfOne(360, sixteen), 1);
    // 360 / 50 is 7.2: the rest reaches a second sector.
    EXPECT_EQ(CategoryOfOne(349, OrientationRule(50, false)), 1);
    EXPECT_EQ(CategoryOfOne(360, OrientationRule(50, false)), 2);
    // With 100 it goes on beyond the wrap: (359 + 1.8) / 4 is 90.2.
    EXPECT_EQ(CategoryOfOne(359, OrientationRule(100, false)), 91);
}

TEST(Clump, CategoriesThatCannotBeFail) {
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [] { OrientationRule(0, false); }, "NumCategories"));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { OrientationRule(40000, false); }, "NumCategories"));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { ContourRule(0, 32767, false); }, "NumCategories"));
    EXPECT_EQ(ContourRule(-2, 5, false).NumCategories, 8);
    // 360 / 721 rounds to a width of 0.
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [] { CategoryOfOne(3, OrientationRule(721, false)); }, "SectorWidth"));
}

TEST(Clump, CornersDoNotJoin) {
    RandomNumbers numbers;
    const SurfaceGrid two = MakeGrid(2, 2, [](int i, int j) { return i == j ? 3.0 : kEmptyCellZ; });
    ExpectSameCount(two, kBands, 0, numbers);
    const FirstLabelsResult first = FirstLabels(Categorise(two, kBands), two);
    EXPECT_EQ(first.Labels.Labels, (std::vector<std::int16_t>{1, 9999, 9999, 3}));
    EXPECT_EQ(SelectClumps(first.Labels, first.LastLabel, 0).ClumpSizes.size(), 2u);
}

// One patch, given labels in the order in which the scan meets the feet of its teeth:
//
//     row 6    6 6 6 6 6 6 6 6 6 6       pass 1: the bar of label 6 takes the last label written, 5
//     row 5    . 3 . 2 . 1 . 4 . 5       pass 2: the bar, now 5, takes 4
//     row 4    . 3 . 2 . 1 . 4 . .       pass 3: the bar, now 4, takes 3
//     row 3    . 3 . 2 . 1 . . . .       pass 4: the bar, now 3, takes 2
//     row 2    . . . 2 . 1 . . . .       and the tooth of label 1 is left over: two patches
//     row 1    . . . . . 1 . . . .
TEST(Clump, FourPassesLeaveAWoundPatchInParts) {
    const std::vector<int> feet{9, 3, 9, 2, 9, 1, 9, 4, 9, 5};
    const SurfaceGrid comb = MakeGrid(
        10, 6, [&](int i, int j) { return j == 6 || j >= feet[static_cast<std::size_t>(i - 1)] ? 1.0 : kEmptyCellZ; });
    RandomNumbers numbers;
    EXPECT_EQ(ExpectSameCount(comb, kBands, 2, numbers), 6);
    SlowClump slow = SlowClumpOf(comb, kBands);
    slow.Run();
    EXPECT_EQ(slow.ClumpSizes, (std::vector<double>{5, 20}));
}

/// Bars over teeth whose feet lie at random heights, so that labels meet in every order.
TEST(Clump, CombsOfAllOrdersEqualTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    std::size_t patches = 0;
    for (int round = 0; round < 300; ++round) {
        std::vector<int> feet(40);
        for (int& foot : feet) foot = static_cast<int>(1 + numbers.Below(12));
        const SurfaceGrid comb = MakeGrid(40, 25, [&](int i, int j) {
            const int foot = feet[static_cast<std::size_t>(i - 1)];
            const bool tooth = i % 2 == 0 && (j % 13) >= foot;
            return tooth || j % 13 == 12 ? 1.0 : kEmptyCellZ;
        });
        ExpectSameCount(comb, kBands, 0, numbers);
        SlowClump slow = SlowClumpOf(comb, kBands);
        slow.Run();
        patches += slow.ClumpSizes.size();
    }
    // Two bars with their teeth each time, if passes went on until nothing changed.
    EXPECT_GT(patches, 600u);
}

TEST(Clump, InnerCellsAreThoseOffTheEdgeWithASurface) {
    EXPECT_EQ(CountInnerCells(MakeGrid(1, 1, [](int, int) { return 1.0; })), 0);
    EXPECT_EQ(CountInnerCells(MakeGrid(2, 9, [](int, int) { return 1.0; })), 0);
    EXPECT_EQ(CountInnerCells(MakeGrid(4, 5, [](int, int) { return 1.0; })), 6);
    EXPECT_EQ(CountInnerCells(MakeGrid(4, 5, [](int i, int j) { return i == 2 && j == 3 ? kEmptyCellZ : 1.0; })), 5);
}

TEST(Clump, DiversityIsOfAllInnerCells) {
    EXPECT_EQ(PatchDiversity({}, 0), 0);
    EXPECT_EQ(PatchDiversity({5}, 10), 4);
    EXPECT_EQ(PatchDiversity({4, 4, 4, 4}, 16), 4);
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [] { PatchDiversity({3}, 0); }, "TotalCells"));
}

TEST(Clump, PatchesHaveMoreCellsThanTheMinimum) {
    const SurfaceGrid row = MakeGrid(9, 1, [](int i, int) { return i <= 2 ? 0.0 : i <= 5 ? 1.0 : 2.0; });
    const FirstLabelsResult first = FirstLabels(Categorise(row, kBands), row);
    EXPECT_EQ(SelectClumps(first.Labels, first.LastLabel, 2).ClumpSizes, (std::vector<double>{3, 4}));
    EXPECT_EQ(SelectClumps(first.Labels, first.LastLabel, 4).ClumpSizes, std::vector<double>{});
    // The label 2, which cell (1, 1) leaves out, is a patch of no cells under a minimum below 0.
    EXPECT_EQ(SelectClumps(first.Labels, first.LastLabel, -1).ClumpSizes, (std::vector<double>{2, 0, 3, 4}));
}

TEST(Clump, AGridWithoutLabelsHasNoPatches) {
    const SurfaceGrid empty = MakeGrid(3, 3, [](int, int) { return kEmptyCellZ; });
    const FirstLabelsResult first = FirstLabels(Categorise(empty, kBands), empty);
    EXPECT_EQ(first.LastLabel, 0);
    EXPECT_TRUE(SelectClumps(first.Labels, 0, 2).ClumpSizes.empty());
}

}  // namespace
}  // namespace crownlab
