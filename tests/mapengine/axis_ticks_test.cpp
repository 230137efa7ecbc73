#include "mapengine/axis_ticks.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "basis/failure.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

double Between(RandomNumbers& random, double low, double high) {
    return low + (high - low) * static_cast<double>(random.Below(1u << 30)) / (1u << 30);
}

TEST(RoundNumbers, AreTheNextOneTwoOrFive) {
    EXPECT_EQ(RoundNumberFrom(0.3).Value(), 0.5);
    EXPECT_EQ(RoundNumberFrom(0.5).Value(), 0.5);
    EXPECT_EQ(RoundNumberFrom(5.1).Value(), 10);
    EXPECT_EQ(RoundNumberFrom(1e-7).Value(), 1e-7);
    EXPECT_EQ(RoundNumberUpTo(0.3).Value(), 0.2);
    EXPECT_EQ(RoundNumberUpTo(0.2).Value(), 0.2);
    EXPECT_EQ(RoundNumberUpTo(999).Value(), 500);
    EXPECT_EQ(RoundNumberUpTo(1000).Value(), 1000);
    for (const double bad : {0.0, -1.0, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [bad] { RoundNumberFrom(bad); }));
        EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [bad] { RoundNumberUpTo(bad); }));
    }
}

TEST(RoundNumbers, EncloseWhatTheyAreMadeOf) {
    RandomNumbers random;
    for (int i = 0; i < 2000; ++i) {
        const double value = std::pow(10.0, Between(random, -200, 200));
        const double above = RoundNumberFrom(value).Value(), below = RoundNumberUpTo(value).Value();
        EXPECT_GE(above, value);
        EXPECT_LT(above, 2.6 * value);
        EXPECT_LE(below, value);
        EXPECT_GT(below, value / 2.6);
    }
}

TEST(Ticks, StandAtTheNearestDoublesOfRoundNumbers) {
    EXPECT_THAT(TicksBetween(0.05, 0.75, 8).At, ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7));
    EXPECT_THAT(TicksBetween(-1, 1, 5).At, ElementsAre(-1, -0.5, 0, 0.5, 1));
    EXPECT_THAT(TicksBetween(1000.1, 1000.9, 4).At, ElementsAre(1000.2, 1000.4, 1000.6, 1000.8));
    EXPECT_FALSE(std::signbit(TicksBetween(-1, 1, 5).At[2]));
}

TEST(Ticks, AreNeverMoreThanAsked) {
    RandomNumbers random;
    for (int i = 0; i < 3000; ++i) {
        const double low = Between(random, -1000, 1000);
        const double high = low + std::pow(10.0, Between(random, -5, 5));
        const int most = 1 + i % 12;
        const AxisTicks ticks = TicksBetween(low, high, most);
        EXPECT_LE(ticks.At.size(), static_cast<std::size_t>(most));
        // Half as many at least, up to the jump from 2 to 5.
        EXPECT_GE(static_cast<double>(ticks.At.size()), most / 3.2 - 2);
        for (const double at : ticks.At) EXPECT_TRUE(at >= low && at <= high);
    }
}

TEST(Ticks, OfLimitsWithoutRoomAreNone) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_THAT(TicksBetween(1, 1, 5).At, IsEmpty());
    EXPECT_THAT(TicksBetween(2, 1, 5).At, IsEmpty());
    EXPECT_THAT(TicksBetween(0, 1, 0).At, IsEmpty());
    EXPECT_THAT(TicksBetween(0, infinity, 5).At, IsEmpty());
    EXPECT_THAT(TicksBetween(std::nan(""), 1, 5).At, IsEmpty());
    EXPECT_THAT(TicksBetween(-1.7e308, 1.7e308, 5).At, IsEmpty());
    EXPECT_THAT(TicksBetween(1e17, std::nextafter(1e17, 2e17), 5).At, IsEmpty());
}

TEST(Ticks, TextHasTheDecimalsOfTheStep) {
    const auto text = [](double low, double high, double at) { return TickText(TicksBetween(low, high, 5), at); };
    EXPECT_EQ(text(0, 1, 0.2), "0.2");
    EXPECT_EQ(text(0, 1, 0), "0.0");
    EXPECT_EQ(text(0, 10, 10), "10");
    EXPECT_EQ(text(-1, -0.9, -0.98), "-0.98");
    EXPECT_EQ(text(0, 4e20, 2e20), "2E+20");
    EXPECT_EQ(text(0, 4e-12, 2e-12), "0.000000000002");
    EXPECT_EQ(text(-1, 1, -0.0), "0.0");
}

}  // namespace
}  // namespace crownlab
