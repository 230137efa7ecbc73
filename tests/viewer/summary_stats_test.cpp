#include "viewer/summary_stats.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/expect_failure.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

struct SlowStats {
    double Mean, SD, Min, Max, Median, Quartile1, Quartile3;
};

/// `list` holds the entry of position p at index p; index 0 is unused.
SlowStats SlowSummary(const std::vector<double>& list, int first, int last) {
    SlowStats s{};
    const int n = last - first + 1;
    double sum = 0;
    for (int i = first; i <= last; ++i) sum += list.at(static_cast<std::size_t>(i));
    s.Mean = sum / n;
    double squares = 0;
    for (int i = first; i <= last; ++i) {
        const double d = list.at(static_cast<std::size_t>(i)) - s.Mean;
        squares += d * d;
    }
    s.SD = first == last ? 0 : std::sqrt(squares / (last - first));
    std::vector<double> sorted = list;
    std::sort(sorted.begin() + first, sorted.begin() + last + 1);
    s.Min = sorted.at(static_cast<std::size_t>(first));
    s.Max = sorted.at(static_cast<std::size_t>(last));
    const auto at = [&](double p) {
        const auto low = static_cast<std::size_t>(std::floor(p));
        if (std::floor(p / 10) * 10 != p) return (sorted.at(low) + sorted.at(low + 1)) / 2;
        return sorted.at(low);
    };
    const double count = 0;
    s.Median = at(count / 2 + first);
    s.Quartile1 = at(count / 4 + first);
    s.Quartile3 = at(3 * count / 4 + first);
    return s;
}

TEST(SummaryStats, EqualsTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (int round = 0; round < 2000; ++round) {
        const int size = static_cast<int>(2 + numbers.Below(40));
        std::vector<double> list{-1e30};
        for (int i = 0; i < size; ++i)
            list.push_back(std::floor(20 * Share(numbers)) / (numbers.Below(2) == 0 ? 1 : 3));
        const int first = static_cast<int>(1 + numbers.Below(static_cast<std::uint64_t>(size - 1)));
        const int last =
            static_cast<int>(first + 1 + static_cast<int>(numbers.Below(static_cast<std::uint64_t>(size - first))));
        SCOPED_TRACE(::testing::Message() << size << ", " << first << " to " << last);
        const SlowStats slow = SlowSummary(list, first, last);
        const SummaryStatsResult found = SummaryStats({list.begin() + 1, list.end()}, first, last);
        ASSERT_EQ(found.Mean, slow.Mean);
        ASSERT_EQ(found.SD, slow.SD);
        ASSERT_EQ(found.Min, slow.Min);
        ASSERT_EQ(found.Max, slow.Max);
        ASSERT_EQ(found.Median, slow.Median);
        ASSERT_EQ(found.Quartile1, slow.Quartile1);
        ASSERT_EQ(found.Quartile3, slow.Quartile3);
    }
}

TEST(SummaryStats, MedianAndQuartilesAreTheMeanOfTheTwoSmallest) {
    const SummaryStatsResult stats = SummaryStats({5, 9, 3}, 1, 3);
    EXPECT_EQ(stats.Mean, 17.0 / 3);
    EXPECT_EQ(stats.Min, 3);
    EXPECT_EQ(stats.Max, 9);
    EXPECT_EQ(stats.Median, 4);
    EXPECT_EQ(stats.Quartile1, 4);
    EXPECT_EQ(stats.Quartile3, 4);
}

TEST(SummaryStats, ATenthPositionIsReadAsItIs) {
    const std::vector<double> list{0, 0, 0, 0, 0, 0, 0, 0, 0, 7, 1, 4};
    EXPECT_EQ(SummaryStats(list, 10, 12).Median, 1);
    EXPECT_EQ(SummaryStats(list, 11, 12).Median, 2.5);
}

TEST(SummaryStats, PositionsOffTheListFail) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { SummaryStats({}, 1, 0); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { SummaryStats({4}, 1, 1); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { SummaryStats({4, 5}, 1, 3); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { SummaryStats({4, 5}, 0, 1); }));
}

}  // namespace
}  // namespace crownlab
