#include "surferfns/unblanked_range.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "basis/number_text.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr int kColumns = 12;
constexpr int kRows = 11;

class UnblankedRangeTest : public ::testing::Test {
protected:
    /// The part round the given nodes, columns and rows from 1.
    static GridPart Round(const std::vector<std::pair<int, int>>& nodes, double height = 5) {
        std::string text;
        for (int row = 1; row <= kRows; ++row) {
            for (int column = 1; column <= kColumns; ++column) {
                const bool there = std::find(nodes.begin(), nodes.end(), std::pair{column, row}) != nodes.end();
                text += "0 0 " + (there ? RecordText(height) : std::string("1.70141E+38")) + "\r\n";
            }
        }
        PutFile("nodes.dat", text);
        return UnblankedRange("nodes.dat", {.NumCols = kColumns, .NumRows = kRows});
    }

    TempFolder folder_;
};

TEST_F(UnblankedRangeTest, HasThreeNodesAllAround) {
    EXPECT_EQ(Round({{6, 6}}), (GridPart{3, 9, 3, 9}));
    EXPECT_EQ(Round({{5, 7}, {7, 5}}), (GridPart{2, 10, 2, 10}));
    EXPECT_EQ(Round({{6, 6}}, -1e30), (GridPart{3, 9, 3, 9}));
}

TEST_F(UnblankedRangeTest, StopsAtTheEdge) {
    EXPECT_EQ(Round({{1, 11}}), (GridPart{1, 4, 8, 11}));
    EXPECT_EQ(Round({{12, 1}}), (GridPart{9, 12, 1, 4}));
    EXPECT_EQ(Round({{2, 10}}), (GridPart{1, 5, 7, 11}));
    EXPECT_EQ(Round({{4, 8}}), (GridPart{1, 7, 5, 11}));
    EXPECT_EQ(Round({{1, 1}, {12, 11}}), (GridPart{1, 12, 1, 11}));
}

TEST_F(UnblankedRangeTest, OfNothingIsTheWholeGrid) { EXPECT_EQ(Round({}), (GridPart{1, 12, 1, 11})); }

TEST_F(UnblankedRangeTest, AgreesWithWalkingOutwards) {
    // A step off the first node, then two more: each stops at the edge.
    const auto down = [](int first) { return std::max((first == 1 ? 1 : first - 1) - 2, 1); };
    const auto up = [](int last, int count) { return std::min((last == count ? count : last + 1) + 2, count); };
    RandomNumbers random;
    const auto upTo = [&random](int most) {
        const auto choices = static_cast<std::uint64_t>(most) + 1;
        return static_cast<int>(random.Below(choices));
    };
    for (int trial = 0; trial < 100; ++trial) {
        const int c1 = 1 + upTo(kColumns - 1);
        const int c2 = c1 + upTo(kColumns - c1);
        const int r1 = 1 + upTo(kRows - 1);
        const int r2 = r1 + upTo(kRows - r1);
        const GridPart expected{static_cast<double>(down(c1)), static_cast<double>(up(c2, kColumns)),
                                static_cast<double>(down(r1)), static_cast<double>(up(r2, kRows))};
        ASSERT_EQ(Round({{c1, r2}, {c2, r1}}), expected) << c1 << ' ' << c2 << ' ' << r1 << ' ' << r2;
    }
}

TEST_F(UnblankedRangeTest, NeedsAllNodes) {
    PutFile("nodes.dat", "0 0 1\n1 0 1\n");
    const auto read = [](double columns, double rows) {
        return UnblankedRange("nodes.dat", {.NumCols = columns, .NumRows = rows});
    };
    EXPECT_EQ(read(2, 1), (GridPart{1, 2, 1, 1}));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { read(2, 2); }));
    PutFile("nodes.dat", "0 0 x\n");
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { read(1, 1); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [] { UnblankedRange("none.dat", {}); }));
}

TEST(StepForMost, LeavesNoMoreIntervals) {
    const GridPart wide{1, 301, 1, 9};
    EXPECT_EQ(StepForMost(wide, 100), 4);
    EXPECT_EQ(StepForMost(wide, 300), 1);
    EXPECT_EQ(StepForMost(wide, 299), 2);
    EXPECT_EQ(StepForMost(wide, 1e9), 1);
    EXPECT_EQ(StepForMost({1, 101, 1, 9}, 100), 1);
    EXPECT_EQ(StepForMost({1, 9, 50, 350}, 100), 4) << "the longer side counts";
    EXPECT_EQ(StepForMost(wide, 0.5), 601);
}

TEST(StepForMost, HasSixteenBits) {
    const GridPart wide{1, 40'001, 1, 2};
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { StepForMost(wide, 0); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { StepForMost(wide, 1); }));
    EXPECT_EQ(StepForMost(wide, 2), 20'001);
    EXPECT_EQ(StepForMost(wide, -40'000), 0) << "what comes of such a step is for the program to say";
}

}  // namespace
}  // namespace crownlab
