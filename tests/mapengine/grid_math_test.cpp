#include "mapengine/grid_math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>

#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

/// A 2 by 2 grid of one height.
Grid GridOf(double z) {
    Grid grid(GridGeometry{.Columns = 2, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    grid.Z.assign(4, z);
    return grid;
}

Grid Result(const std::string& function, Grid a, const Grid& b) {
    Progress progress;
    ApplyGridFormula(ParseGridFormula(function), a, &b, progress);
    return a;
}

double ValueOf(const std::string& function, double a = 3, double b = 2) {
    return Result(function, GridOf(a), GridOf(b)).Z.front();
}

::testing::AssertionResult Refuses(const std::string& function, const std::string& why = {}) {
    return FailsWith(
        FailureKind::AutomationFailed, [&] { ParseGridFormula(function); },
        "the formula \"" + function + "\" can't be understood: " + why);
}

TEST(GridMath, TakesTheFormulasOfTheTools) {
    EXPECT_EQ(ValueOf("C=max(A,B)"), 3);
    EXPECT_EQ(ValueOf("C=min(A,B)"), 2);
    EXPECT_EQ(ValueOf("C=A"), 3);
    EXPECT_EQ(ValueOf("C=A-B"), 1);
    EXPECT_EQ(ValueOf("C=1/A", 4), 0.25);
    EXPECT_EQ(ValueOf("C=9.5-A +1.5"), 8);
    EXPECT_EQ(ValueOf("C=9.5-A +-5"), 1.5);
    EXPECT_EQ(ValueOf("C=-1-A +-5"), -9);
    EXPECT_EQ(ValueOf("C = A - -2"), 5);
    EXPECT_EQ(ValueOf("C = A - 1.25"), 1.75);
    EXPECT_EQ(ValueOf("C = A +-0.5"), 2.5);
    EXPECT_EQ(ValueOf("C = A +1.23456789012345E-02"), 3 + 1.23456789012345e-02);
    EXPECT_EQ(ValueOf("C = A - 1.70141E+37"), 3 - 1.70141e37);
}

TEST(GridMath, BindsAsArithmeticDoes) {
    EXPECT_EQ(ValueOf("C=2+3*4"), 14);
    EXPECT_EQ(ValueOf("C=(2+3)*4"), 20);
    EXPECT_EQ(ValueOf("C=20-8-2"), 10);
    EXPECT_EQ(ValueOf("C=20-(8-2)"), 14);
    EXPECT_EQ(ValueOf("C=24/4/2"), 3);
    EXPECT_EQ(ValueOf("C=24/4*2"), 12);
    EXPECT_EQ(ValueOf("C=2*3^2"), 18);
    EXPECT_EQ(ValueOf("C=2^3^2"), 512);
    EXPECT_EQ(ValueOf("C=(2^3)^2"), 64);
    EXPECT_EQ(ValueOf("C=-2^2"), -4);
    EXPECT_EQ(ValueOf("C=(-2)^2"), 4);
    EXPECT_EQ(ValueOf("C=-A^B"), -9);
    EXPECT_EQ(ValueOf("C=1-A^2"), -8);
    EXPECT_EQ(ValueOf("C=2^-3"), 0.125);
    EXPECT_EQ(ValueOf("C=2^-1^2"), 0.5);
    EXPECT_EQ(ValueOf("C=2^-2*8"), 2);
    EXPECT_EQ(ValueOf("C=2*-3"), -6);
    EXPECT_EQ(ValueOf("C=12/-3*2"), -8);
    EXPECT_EQ(ValueOf("C=-12/3"), -4);
    EXPECT_EQ(ValueOf("C=2- -3"), 5);
    EXPECT_EQ(ValueOf("C=2--3"), 5);
    EXPECT_EQ(ValueOf("C=2-+3"), -1);
    EXPECT_EQ(ValueOf("C=+A"), 3);
    EXPECT_EQ(ValueOf("C=-(A-5)"), 2);
    EXPECT_EQ(ValueOf("C=-max(A,B)^2"), -9);
    EXPECT_EQ(ValueOf("C=((((A))))"), 3);
}

TEST(GridMath, HasFunctions) {
    EXPECT_EQ(ValueOf("C=abs(A-5)"), 2);
    EXPECT_EQ(ValueOf("C=sqrt(16)"), 4);
    EXPECT_EQ(ValueOf("C=log10(1000)"), 3);
    EXPECT_NEAR(ValueOf("C=exp(1)"), std::numbers::e, 1e-15);
    EXPECT_NEAR(ValueOf("C=ln(10)"), std::numbers::ln10, 1e-15);
    EXPECT_NEAR(ValueOf("C=sin(1)"), 0.8414709848078965, 1e-15);
    EXPECT_NEAR(ValueOf("C=cos(1)"), 0.5403023058681398, 1e-15);
    EXPECT_NEAR(ValueOf("C=tan(1)"), 1.5574077246549023, 1e-15);
    EXPECT_NEAR(ValueOf("C=asin(1)"), std::numbers::pi / 2, 1e-15);
    EXPECT_NEAR(ValueOf("C=acos(-1)"), std::numbers::pi, 1e-15);
    EXPECT_NEAR(ValueOf("C=4*atan(1)"), std::numbers::pi, 1e-15);
    EXPECT_EQ(ValueOf("C=max(A,B,7)"), 7);
    EXPECT_EQ(ValueOf("C=min(max(A,B),abs(-1.5))"), 1.5);
}

TEST(GridMath, DisregardsLetterCaseAndBlanks) {
    EXPECT_EQ(ValueOf("c=MAX(a,B)"), 3);
    EXPECT_EQ(ValueOf(" C\t= Sqrt ( a + 1E0 ) * b "), 4);
    EXPECT_EQ(ValueOf("C=Log10(1e3)"), 3);
    EXPECT_EQ(ValueOf("C=max \t (A,abs (-9) )"), 9);
    EXPECT_EQ(ValueOf("C=A-.5"), 2.5);
    EXPECT_EQ(ValueOf("C=A+5."), 8);
    EXPECT_EQ(ValueOf("C=A*1e-400"), 0);
}

TEST(GridMath, RoundsEveryOperationByItself) {
    // Regrouped to A + (0.1 + 0.2) or A * 0.3 these would differ in the last digit.
    EXPECT_EQ(ValueOf("C=A+0.1+0.2", 0.6), (0.6 + 0.1) + 0.2);
    EXPECT_NE((0.6 + 0.1) + 0.2, 0.6 + (0.1 + 0.2));
    EXPECT_EQ(ValueOf("C=A*0.1*3", 0.7), (0.7 * 0.1) * 3);
    EXPECT_EQ(ValueOf("C=0.1*A+0.2*A", 0.7), 0.1 * 0.7 + 0.2 * 0.7);
    EXPECT_EQ(ValueOf("C=5.3-A +1.7", 1.1), (5.3 - 1.1) + 1.7);
    EXPECT_NE((5.3 - 1.1) + 1.7, -1.1 + (5.3 + 1.7));
    RandomNumbers random;
    for (int i = 0; i < 300; ++i) {
        const double a = random.ShortDecimal(), b = random.ShortDecimal();
        EXPECT_EQ(ValueOf("C=0.1-A*3.3/B+A-1.7", a, b), 0.1 - a * 3.3 / b + a - 1.7) << a << " " << b;
    }
}

TEST(GridMath, BlankOperandsThatOccurMakeBlanks) {
    EXPECT_EQ(ValueOf("C=A", kBlankHeight), kBlankHeight);
    EXPECT_EQ(ValueOf("C=max(A,B)", kBlankHeight, 1), kBlankHeight);
    EXPECT_EQ(ValueOf("C=min(A,B)", 1, kBlankHeight), kBlankHeight);
    EXPECT_EQ(ValueOf("C=A-B", kBlankHeight, kBlankHeight), kBlankHeight);
    EXPECT_EQ(ValueOf("C=0*A", kBlankHeight), kBlankHeight);
    // One that doesn't occur doesn't matter.
    EXPECT_EQ(ValueOf("C=A", 1, kBlankHeight), 1);
    EXPECT_EQ(ValueOf("C=B", kBlankHeight, 1), 1);
    EXPECT_EQ(ValueOf("C=7", kBlankHeight, kBlankHeight), 7);
}

TEST(GridMath, ValuesThatAreNotFiniteAreBlank) {
    for (const char* const function : {"C=1/(A-3)", "C=-1/(A-3)", "C=(A-3)/(A-3)", "C=sqrt(-A)", "C=ln(A-3)",
                                       "C=log10(-A)", "C=asin(A)", "C=acos(A)", "C=(-A)^0.5", "C=exp(1000*A)",
                                       "C=10^400", "C=max(A,sqrt(-1))", "C=min(sqrt(-1),A)", "C=1e38*A"}) {
        EXPECT_EQ(ValueOf(function), kBlankHeight) << function;
    }
    EXPECT_EQ(ValueOf("C=min(1/(A-3),A)"), 3);
    EXPECT_EQ(ValueOf("C=1/exp(1000)"), 0);
}

TEST(GridMath, RefusesWhatDoesNotParse) {
    EXPECT_TRUE(Refuses("", "it doesn't start with C="));
    EXPECT_TRUE(Refuses("A-B", "it doesn't start with C="));
    EXPECT_TRUE(Refuses("D=A", "it doesn't start with C="));
    EXPECT_TRUE(Refuses("CA", "it doesn't start with C="));
    EXPECT_TRUE(Refuses("C=A+D", "\"D\" is neither A, B nor a function"));
    EXPECT_TRUE(Refuses("C=log(A)", "\"log\" is neither A, B nor a function"));
    EXPECT_TRUE(Refuses("C=2A", "Unexpected"));
    EXPECT_TRUE(Refuses("C=AB", "\"AB\" is neither A, B nor a function"));
    EXPECT_TRUE(Refuses("C=A=B", "there is no operator \"=\""));
    EXPECT_TRUE(Refuses("C=A<B", "there is no operator \"<\""));
    EXPECT_TRUE(Refuses("C=A&&B", "there is no operator \"&\""));
    EXPECT_TRUE(Refuses("C=A?B:A", "there is no operator \"?\""));
    EXPECT_TRUE(Refuses("C=_pi", "there is no operator \"_\""));
    EXPECT_TRUE(Refuses("C=A;", "there is no operator \";\""));
    EXPECT_TRUE(Refuses("C=A,B", "a comma stands outside a function"));
    EXPECT_TRUE(Refuses("C=1,5", "a comma stands outside a function"));
    EXPECT_TRUE(Refuses("C=.", "a point is not a number"));
    EXPECT_TRUE(Refuses("C=1e999", "\"1e999\" is too large a number"));
    EXPECT_TRUE(Refuses("C=1e", "\"e\" is neither"));
    for (const char* const function :
         {"C=",         "C= ",     "C=A+",    "C=*A",   "C=A**B",  "C=A B",    "C=A 2",       "C=(A",
          "C=A)",       "C=()",    "C=max",   "C=max(", "C=max()", "C=max(A,", "C=max(A,,B)", "C=max A",
          "C=abs(A,B)", "C=(A,B)", "C=1.5.2", "C=A(B)", "C=2(A)",  "C=sqrt",   "C=-",         "C=abs()",
          "C=A^",       "C=^A",    "C=,",     "C=A+,B", "C=sin(A"}) {
        EXPECT_TRUE(Refuses(function)) << function;
    }
}

TEST(GridMath, AgreesWithPlainLoopsForAnyNumberOfThreads) {
    RandomNumbers random;
    Grid a(GridGeometry{.Columns = 300, .Rows = 211, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    Grid b(GridGeometry{.Columns = 300, .Rows = 211, .XMin = 5, .XMax = 7, .YMin = 0, .YMax = 1});
    for (double& z : a.Z) z = random.Below(10) == 0 ? kBlankHeight : random.ShortDecimal();
    for (double& z : b.Z) z = random.Below(10) == 0 ? kBlankHeight : random.ShortDecimal();
    std::vector<double> expected(a.Z.size(), kBlankHeight);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (!IsBlank(a.Z[i]) && !IsBlank(b.Z[i])) expected[i] = std::sqrt(a.Z[i]) - b.Z[i] / 2;
        if (!std::isfinite(expected[i])) expected[i] = kBlankHeight;
    }
    for (const char* const threads : {"1", "2", "7"}) {
        setenv("CROWNLAB_THREADS", threads, 1);
        const Grid result = Result("C=sqrt(A)-B/2", a, b);
        EXPECT_EQ(result.Shape, a.Shape);
        EXPECT_EQ(result.Z, expected) << threads;
    }
    unsetenv("CROWNLAB_THREADS");
}

}  // namespace
}  // namespace crownlab
