#include "convert/grid_lattice.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

PointExtents Box(double xMin, double xMax, double yMin, double yMax) {
    return {.Count = 2, .XMin = xMin, .XMax = xMax, .YMin = yMin, .YMax = yMax};
}

TEST(LatticeByIntervals, LimitsSnapHalvesToTheEvenMultiple) {
    // 0.5, 5.5 intervals of x and 4.5, 6.5 of y, exact in binary: 0, 6 and 4, 6.
    const GridLattice lattice = LatticeByIntervals(Box(0.25, 2.75, 1.125, 1.625), 0.5, 0.25);
    EXPECT_EQ(lattice.XMin, 0);
    EXPECT_EQ(lattice.XMax, 3);
    EXPECT_EQ(lattice.YMin, 1);
    EXPECT_EQ(lattice.YMax, 1.5);
    EXPECT_EQ(lattice.NumCols, 7);
    EXPECT_EQ(lattice.NumRows, 3);
}

TEST(LatticeByIntervals, NegativeLimitsSnapLikePositiveOnes) {
    const GridLattice lattice = LatticeByIntervals(Box(-2.75, -0.25, -0.7, 0.7), 0.5, 0.5);
    EXPECT_EQ(lattice.XMin, -3);
    EXPECT_EQ(lattice.XMax, 0);
    EXPECT_EQ(lattice.NumCols, 7);
    EXPECT_EQ(lattice.YMin, -0.5);
    EXPECT_EQ(lattice.YMax, 0.5);
    EXPECT_EQ(lattice.NumRows, 3);
}

TEST(LatticeByIntervals, AnEvenExtentHasOneNodeMoreThanIntervals) {
    const GridLattice lattice = LatticeByIntervals(Box(0, 0.3, 0, 0.09), 0.03, 0.03);
    EXPECT_EQ(lattice.NumCols, 11);
    EXPECT_EQ(lattice.NumRows, 4);
}

TEST(LatticeByIntervals, CountsAreWholeWhereTheDivisionIsNot) {
    // 0.3 / 0.1 is 2.9999999999999996.
    const GridLattice lattice = LatticeByIntervals(Box(0, 0.3, 0, 0.7), 0.1, 0.1);
    EXPECT_EQ(lattice.NumCols, 4);
    EXPECT_EQ(lattice.NumRows, 8);
}

TEST(LatticeByIntervals, OnlyRowsAreHeldTo16Bits) {
    EXPECT_EQ(LatticeByIntervals(Box(0, 32767, 0, 1), 1, 1).NumCols, 32768);
    EXPECT_EQ(LatticeByIntervals(Box(0, 1, 0, 32766), 1, 1).NumRows, 32767);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { LatticeByIntervals(Box(0, 1, 0, 32767), 1, 1); }, "NumRows"));
}

TEST(LatticeByIntervals, NoIntervalIsADivisionByZero) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { LatticeByIntervals(Box(0, 1, 0, 1), 0, 1); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { LatticeByIntervals(Box(0, 1, 0, 1), 1, 0); }));
}

TEST(LatticeByIntervals, OfNoPointsOverflowsInItsRows) {
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { LatticeByIntervals(PointExtents{}, 0.03, 0.03); }, "NumRows"));
}

TEST(LatticeByIntervals, LimitsAreMultiplesNextToTheDataOnSeededBoxes) {
    RandomNumbers random;
    for (int i = 0; i < 1000; ++i) {
        const double xInterval = static_cast<double>(1 + random.Below(64)) / 64;
        const double low = static_cast<double>(random.Below(20000)) / 1000 - 10;
        const double high = low + static_cast<double>(random.Below(20000)) / 1000;
        const GridLattice lattice = LatticeByIntervals(Box(low, high, 0, 1), xInterval, 1);
        SCOPED_TRACE(kRandomSeed);
        EXPECT_EQ(std::remainder(lattice.XMin, xInterval), 0);
        EXPECT_LE(std::fabs(lattice.XMin - low), xInterval / 2);
        EXPECT_LE(std::fabs(lattice.XMax - high), xInterval / 2);
        EXPECT_EQ(lattice.XMin + (lattice.NumCols - 1) * xInterval, lattice.XMax);
    }
}

TEST(LatticeByLongerSide, WideDataGiveColumnsFirst) {
    // 10 / 7 = 1.4286 -> 1.429; 5 / 1.429 = 3.499 -> 3 rows.
    const GridLattice lattice = LatticeByLongerSide(Box(2, 12, -1, 4), 8);
    EXPECT_EQ(lattice.NumCols, 8);
    EXPECT_EQ(lattice.NumRows, 3);
    EXPECT_EQ(lattice.XMin, 2);
    EXPECT_DOUBLE_EQ(lattice.XMax, 2 + 7 * 1.429);
    EXPECT_EQ(lattice.YMin, -1);
    EXPECT_DOUBLE_EQ(lattice.YMax, -1 + 3 * 1.429);
}

TEST(LatticeByLongerSide, TallDataGiveRowsFirst) {
    const GridLattice lattice = LatticeByLongerSide(Box(-1, 4, 2, 12), 8);
    EXPECT_EQ(lattice.NumRows, 8);
    EXPECT_EQ(lattice.NumCols, 3);
    EXPECT_DOUBLE_EQ(lattice.YMax, 2 + 7 * 1.429);
    EXPECT_DOUBLE_EQ(lattice.XMax, -1 + 3 * 1.429);
}

TEST(LatticeByLongerSide, SquareDataGiveRowsFirst) {
    // Rows get the 5 nodes over 4 intervals, columns only as many nodes as intervals.
    const GridLattice lattice = LatticeByLongerSide(Box(0, 4, 10, 14), 5);
    EXPECT_EQ(lattice.NumRows, 5);
    EXPECT_EQ(lattice.NumCols, 4);
    EXPECT_EQ(lattice.XMax, 4);
    EXPECT_EQ(lattice.YMax, 14);
}

TEST(LatticeByLongerSide, RowsAreHeldTo16BitsAndColumnsNot) {
    EXPECT_EQ(LatticeByLongerSide(Box(0, 40000, 0, 2), 40001).NumCols, 40001);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { LatticeByLongerSide(Box(0, 2, 0, 40000), 40001); }, "NumRows"));
}

TEST(LatticeByLongerSide, FailsWithoutAnInterval) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { LatticeByLongerSide(Box(0, 2, 0, 1), 1); }));
    // 0.01 over 199 intervals is 0.000 at three decimals.
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { LatticeByLongerSide(Box(0, 0.01, 0, 0.005), 200); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { LatticeByLongerSide(Box(1, 1, 2, 2), 200); }));
}

}  // namespace
}  // namespace crownlab
