#include "viewer/sort_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

#include "support/expect_failure.h"

namespace crownlab {
namespace {

std::ptrdiff_t LastOf(const std::vector<double>& list) { return static_cast<std::ptrdiff_t>(list.size()) - 1; }

/// Lists that a choice of pivot likes to stumble over.
std::vector<std::vector<double>> Families() {
    std::vector<std::vector<double>> families{{}, {1}, {2, 1}, {1, 1}, {3, 1, 2}, {-0.5, 7, -0.5, 1e300, -1e300}};
    std::vector<double> rising(5000);
    std::iota(rising.begin(), rising.end(), -100.0);
    families.push_back(rising);
    families.emplace_back(rising.rbegin(), rising.rend());
    families.emplace_back(5000, 4.0);
    std::vector<double> organPipe = rising;
    organPipe.insert(organPipe.end(), rising.rbegin(), rising.rend());
    families.push_back(organPipe);
    std::mt19937 random(7);
    for (const unsigned kinds : {2u, 50u, 4000000000u}) {
        std::vector<double> list(3001);
        for (double& value : list) value = random() % kinds;
        families.push_back(list);
    }
    return families;
}

TEST(SortList, SortsAscending) {
    for (const std::vector<double>& family : Families()) {
        std::vector<double> list = family;
        std::vector<double> expected = family;
        std::sort(expected.begin(), expected.end());
        SortList(list, 0, LastOf(list));
        EXPECT_EQ(list, expected) << "of " << family.size();
    }
}

TEST(SortList, LeavesWhatLiesOutsideTheRange) {
    std::vector<double> list{9, 3, 2, 1, 0};
    SortList(list, 1, 3);
    EXPECT_EQ(list, (std::vector<double>{9, 1, 2, 3, 0}));
    SortList(list, 3, 2);
    EXPECT_EQ(list, (std::vector<double>{9, 1, 2, 3, 0}));
}

TEST(SortList, RefusesARangeOutsideTheList) {
    std::vector<double> list{2, 1};
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { SortList(list, 0, 2); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { SortList(list, -1, 1); }));
    EXPECT_EQ(list, (std::vector<double>{2, 1}));
}

TEST(SortListPaired, CompanionFollowsItsKey) {
    for (const std::vector<double>& family : Families()) {
        std::vector<double> keys = family;
        std::vector<double> companion(family.size());
        std::iota(companion.begin(), companion.end(), 0.0);
        SortListPaired(keys, companion, 0, LastOf(keys));
        EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
        for (std::size_t i = 0; i < keys.size(); ++i)
            EXPECT_EQ(keys[i], family[static_cast<std::size_t>(companion[i])]);
        std::sort(companion.begin(), companion.end());
        for (std::size_t i = 0; i < companion.size(); ++i) EXPECT_EQ(companion[i], static_cast<double>(i));
    }
}

TEST(SortListPaired, RefusesAShortCompanion) {
    std::vector<double> keys{2, 1, 3};
    std::vector<double> companion{1, 2};
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { SortListPaired(keys, companion, 0, 2); }));
    EXPECT_EQ(keys, (std::vector<double>{2, 1, 3}));
}

}  // namespace
}  // namespace crownlab
