#include "basis/rounding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "basis/arc_tangent.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(RoundHalfEven, GoesToTheEvenNeighbourFromTheMiddle) {
    EXPECT_EQ(RoundHalfEven(0.5), 0);
    EXPECT_EQ(RoundHalfEven(1.5), 2);
    EXPECT_EQ(RoundHalfEven(2.5), 2);
    EXPECT_EQ(RoundHalfEven(-0.5), 0);
    EXPECT_EQ(RoundHalfEven(-1.5), -2);
    EXPECT_EQ(RoundHalfEven(-2.5), -2);
    EXPECT_EQ(RoundHalfEven(2.4999999999), 2);
    EXPECT_EQ(RoundHalfEven(2.5000000001), 3);
}

TEST(RoundDecimals, ScalesWithThePowerOfTen) {
    EXPECT_EQ(RoundDecimals(0.125, 2), 0.12);
    EXPECT_EQ(RoundDecimals(0.375, 2), 0.38);
    EXPECT_EQ(RoundDecimals(-0.125, 2), -0.12);
    EXPECT_EQ(RoundDecimals(1234.5678, 0), 1235);
    EXPECT_EQ(RoundDecimals(1.0 / 3, 6), 0.333333);
    EXPECT_EQ(RoundDecimals(1e300, 15), 1e300) << "it has no such decimals";
}

TEST(RoundDecimals, StaysWithinHalfAStep) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 10000; ++i) {
        const double value = random.ShortDecimal();
        EXPECT_LE(std::fabs(RoundDecimals(value, 3) - value), 0.0005 * (1 + 1e-9) + std::fabs(value) * 1e-15);
    }
}

TEST(ToInt16, RoundsAndOverflows) {
    EXPECT_EQ(ToInt16(32767.4, "NumX"), 32767);
    EXPECT_EQ(ToInt16(-32768.5, "NumX"), -32768);
    EXPECT_EQ(ToInt16(2.5, "NumX"), 2);
    for (const double value : {32767.5, -32768.6, 1e300, kInfinity, -kInfinity, std::nan("")}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::Overflow, [value] { ToInt16(value, "NumX"); }, "NumX"))
            << value;
    }
}

TEST(ToInt32, RoundsAndOverflows) {
    EXPECT_EQ(ToInt32(2147483647.4, "n"), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5, "n"), -2147483648LL);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { ToInt32(2147483647.5, "n"); }, "n"));
}

TEST(FloorToInt16, RoundsDownAndOverflows) {
    EXPECT_EQ(FloorToInt16(2.9, "n"), 2);
    EXPECT_EQ(FloorToInt16(-0.1, "n"), -1);
    EXPECT_EQ(FloorToInt16(32767.9, "n"), 32767);
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { FloorToInt16(-32768.1, "n"); }));
}

TEST(Divide, FailsForADivisorOfZeroWhateverTheDividend) {
    EXPECT_EQ(Divide(1, 4, "a"), 0.25);
    for (const double dividend : {0.0, 1.0, -1.0, kInfinity}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::DivisionByZero, [dividend] { Divide(dividend, 0, "step"); }, "step"));
        EXPECT_TRUE(FailsWith(
            FailureKind::DivisionByZero, [dividend] { Divide(dividend, -0.0, "step"); }, "step"));
    }
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Divide(1e300, 1e-300, "step"); }));
}

TEST(Finite, PassesNumbersOnly) {
    EXPECT_EQ(Finite(5, "a"), 5);
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Finite(kInfinity, "a"); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Finite(std::nan(""), "a"); }));
}

TEST(SquareRoot, RefusesNegativeNumbers) {
    EXPECT_EQ(SquareRoot(9, "a"), 3);
    EXPECT_EQ(SquareRoot(0, "a"), 0);
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [] { SquareRoot(-1e-300, "a"); }, "a"));
}

TEST(Power, RefusesNegativeBasesWithFractionalExponents) {
    EXPECT_EQ(Power(-2, 3, "a"), -8);
    EXPECT_EQ(Power(2, 0.5, "a"), std::sqrt(2.0));
    EXPECT_EQ(Power(0, 0, "a"), 1);
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { Power(-2, 0.5, "a"); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { Power(0, -1, "a"); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Power(10, 400, "a"); }));
}

TEST(Logarithm, RefusesZeroAndBelow) {
    EXPECT_EQ(Logarithm(1, "a"), 0);
    EXPECT_DOUBLE_EQ(Log10(1000), 3);
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { Logarithm(0, "a"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { Log10(-1); }));
}

/// Units in the last place between two numbers of one sign.
double UlpsApart(double a, double b) {
    const double ulp = std::nextafter(std::fabs(b), kInfinity) - std::fabs(b);
    return std::fabs(a - b) / ulp;
}

TEST(ArcTangent, IsExactAtOneAndAtTheEnds) {
    EXPECT_EQ(ArcTangent(1), kFullPi / 4);
    EXPECT_EQ(ArcTangent(-1), -kFullPi / 4);
    EXPECT_EQ(ArcTangent(0), 0);
    EXPECT_TRUE(std::signbit(ArcTangent(-0.0)));
    EXPECT_EQ(ArcTangent(kInfinity), kFullPi / 2);
    EXPECT_EQ(ArcTangent(-kInfinity), -kFullPi / 2);
    EXPECT_EQ(ArcTangent(1e300), kFullPi / 2);
    EXPECT_TRUE(std::isnan(ArcTangent(std::nan(""))));
}

TEST(ArcTangent, StaysWithinOneUlpOfTheLibrary) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    double worst = 0;
    for (int i = 0; i < 500000; ++i) {
        const double exponent = static_cast<double>(random.Below(120)) / 4 - 15;
        const double mantissa = 1 + static_cast<double>(random.Bits() >> 12) * 0x1p-52;
        const double x = std::pow(2.0, exponent) * mantissa;
        worst = std::max(worst, UlpsApart(ArcTangent(x), std::atan(x)));
    }
    EXPECT_LE(worst, 1);
}

TEST(ArcTangent, StaysWithinOneUlpWhereTheReductionChanges) {
    double worst = 0;
    for (const double edge : {0.66, 2.41421356237309504880, 1.0}) {
        double below = edge;
        double above = edge;
        for (int i = 0; i < 1000; ++i) {
            worst = std::max({worst, UlpsApart(ArcTangent(below), std::atan(below)),
                              UlpsApart(ArcTangent(above), std::atan(above))});
            below = std::nextafter(below, 0);
            above = std::nextafter(above, kInfinity);
        }
    }
    EXPECT_LE(worst, 1);
}

TEST(ArcTangent, IsOdd) {
    RandomNumbers random;
    for (int i = 0; i < 10000; ++i) {
        const double x = random.Mixed();
        ASSERT_EQ(ArcTangent(-x), -ArcTangent(x));
    }
}

TEST(ArcCos, IsExactInTheMiddle) {
    EXPECT_EQ(ArcCos(0), kFullPi / 2);
    EXPECT_NEAR(ArcCos(0.5), kFullPi / 3, 1e-15);
    EXPECT_NEAR(ArcCos(-0.5), 2 * kFullPi / 3, 1e-15);
}

TEST(ArcCos, FollowsTheLibraryInside) {
    for (int i = -999; i < 1000; ++i) EXPECT_NEAR(ArcCos(i / 1000.0), std::acos(i / 1000.0), 1e-14);
}

TEST(ArcCos, ClampsNothing) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { ArcCos(1); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { ArcCos(-1); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { ArcCos(1.0000001); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { ArcCos(-2); }));
}

}  // namespace
}  // namespace crownlab
