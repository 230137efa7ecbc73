#include "viewer/random_teeth.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace crownlab {
namespace {

TEST(NextRandom, LiesBetweenZeroAndOne) {
    RandomSource random;
    double sum = 0;
    for (int i = 0; i < 10000; ++i) {
        const double number = NextRandom(random);
        ASSERT_GE(number, 0);
        ASSERT_LT(number, 1);
        sum += number;
    }
    EXPECT_NEAR(sum / 10000, 0.5, 0.02);
}

TEST(SeedRandom, StepsByDayMinuteAndSecond) {
    // Day 2, half past, 18 seconds: 2 + 0.5 + 0.005 gives 2505 steps behind the first.
    RandomSource seeded;
    SeedRandom(seeded, {.Day = 2, .Minute = 30, .Second = 18});
    RandomSource stepped;
    for (int i = 0; i < 1 + 2505; ++i) NextRandom(stepped);
    EXPECT_EQ(NextRandom(seeded), NextRandom(stepped));
}

TEST(SeedRandom, OtherTimesGiveOtherNumbers) {
    std::set<double> first;
    for (int second = 0; second < 60; second += 4) {
        RandomSource random;
        SeedRandom(random, {.Day = 31, .Minute = 59, .Second = second});
        first.insert(NextRandom(random));
    }
    EXPECT_EQ(first.size(), 15u);
}

TEST(PresentClock, IsADayOfAMonth) {
    const ClockReading clock = PresentClock();
    EXPECT_TRUE(clock.Day >= 1 && clock.Day <= 31 && clock.Minute >= 0 && clock.Minute < 60 && clock.Second >= 0);
}

TEST(PickTeeth, PicksDifferentNumbersInOrder) {
    RandomSource random;
    for (const int count : {1, 2, 3, 10, 1000}) {
        for (int picks = 0; picks <= count; picks += std::max(1, count / 7)) {
            const std::vector<double> numbers = PickTeeth(count, picks, random);
            ASSERT_EQ(numbers.size(), static_cast<std::size_t>(picks));
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                EXPECT_EQ(numbers[i], static_cast<int>(numbers[i]));
                EXPECT_TRUE(numbers[i] >= 1 && numbers[i] <= count);
                EXPECT_TRUE(i == 0 || numbers[i - 1] < numbers[i]);
            }
        }
    }
}

TEST(PickTeeth, TakesAllWhereMoreAreAskedFor) {
    RandomSource random;
    EXPECT_EQ(PickTeeth(3, 5, random), (std::vector<double>{1, 2, 3}));
    EXPECT_TRUE(PickTeeth(0, 5, random).empty());
    EXPECT_TRUE(PickTeeth(5, -1, random).empty());
}

TEST(PickTeeth, EveryToothIsAsLikely) {
    RandomSource random;
    std::vector<int> picked(11, 0);
    constexpr int rounds = 20000;
    for (int i = 0; i < rounds; ++i) {
        for (const double number : PickTeeth(10, 3, random)) ++picked[static_cast<std::size_t>(number)];
    }
    for (int number = 1; number <= 10; ++number)
        EXPECT_NEAR(picked[static_cast<std::size_t>(number)], rounds * 0.3, 300);
}

TEST(PickTeeth, TheSameGeneratorPicksTheSame) {
    RandomSource a;
    RandomSource b;
    EXPECT_EQ(PickTeeth(1000, 20, a), PickTeeth(1000, 20, b));
    EXPECT_NE(PickTeeth(1000, 20, a), PickTeeth(1000, 21, b));
}

}  // namespace
}  // namespace crownlab
