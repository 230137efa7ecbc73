#include "basis/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

TEST(LowerCase, ChangesAToZAlone) {
    EXPECT_EQ(LowerCase("AbZ[@`{"), "abz[@`{");
    EXPECT_EQ(LowerCase("\xC3\x84"), "\xC3\x84") << "bytes of other letters stay in every locale";
    EXPECT_EQ(LowerCase(std::string("A\0B", 3)), std::string("a\0b", 3));
}

TEST(EqualNoCase, DisregardsCase) {
    EXPECT_TRUE(EqualNoCase("Tooth.CSV", "tooth.csv"));
    EXPECT_FALSE(EqualNoCase("tooth", "tooth "));
}

TEST(LessNoCase, OrdersWithoutCaseAndTiesByBytes) {
    std::vector<std::string> names{"b", "a", "B", "A", "_", "a1", "Z"};
    std::sort(names.begin(), names.end(), [](const auto& x, const auto& y) { return LessNoCase(x, y); });
    EXPECT_EQ(names, (std::vector<std::string>{"_", "A", "a", "a1", "B", "b", "Z"}));
    EXPECT_FALSE(LessNoCase("a", "a"));
}

TEST(Trimmed, TakesBlanksOffBothEnds) {
    EXPECT_EQ(Trimmed("  a b  "), "a b");
    EXPECT_EQ(Trimmed("   "), "");
    EXPECT_EQ(Trimmed(""), "");
    EXPECT_EQ(Trimmed("\ta"), "\ta") << "a tab isn't a blank";
}

TEST(MatchesPattern, TakesStarsAndQuestionMarks) {
    EXPECT_TRUE(MatchesPattern("a.csv", "*.csv"));
    EXPECT_TRUE(MatchesPattern("A.CSV", "*.csv"));
    EXPECT_TRUE(MatchesPattern("a.csv", "*.CSV"));
    EXPECT_TRUE(MatchesPattern("a.b.csv", "*.csv"));
    EXPECT_TRUE(MatchesPattern("netregu12", "netregu*"));
    EXPECT_TRUE(MatchesPattern("a1b", "a?b"));
    EXPECT_FALSE(MatchesPattern("ab", "a?b"));
    EXPECT_FALSE(MatchesPattern("a.csvx", "*.csv"));
    EXPECT_FALSE(MatchesPattern("acsv", "*.csv"));
    EXPECT_FALSE(MatchesPattern("a", ""));
    EXPECT_TRUE(MatchesPattern("", "*"));
    EXPECT_TRUE(MatchesPattern("a[1].csv", "a[1].*")) << "brackets mean themselves";
}

TEST(MatchesPattern, TakesAnyOfSeveral) {
    EXPECT_TRUE(MatchesPattern("a.dat", "*.csv;*.dat;*.txt"));
    EXPECT_TRUE(MatchesPattern("a.dat", "*.csv; *.dat "));
    EXPECT_FALSE(MatchesPattern("a.grd", "*.csv;*.dat;*.txt"));
}

TEST(MatchesPattern, TakesStarPointStarForAll) {
    EXPECT_TRUE(MatchesPattern("README", "*.*"));
    EXPECT_TRUE(MatchesPattern("README", "*.csv;*.*"));
}

/// The rule by its definition, exponential and obvious.
bool SlowMatch(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern.front() == '*') {
        return SlowMatch(name, pattern.substr(1)) || (!name.empty() && SlowMatch(name.substr(1), pattern));
    }
    return !name.empty() && (pattern.front() == '?' || pattern.front() == name.front()) &&
           SlowMatch(name.substr(1), pattern.substr(1));
}

TEST(MatchesPattern, AgreesWithTheSlowRule) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 50000; ++i) {
        std::string name;
        std::string pattern;
        for (std::uint64_t n = random.Below(8); n > 0; --n) name += "ab."[random.Below(3)];
        for (std::uint64_t n = random.Below(6); n > 0; --n) pattern += "ab.*?"[random.Below(5)];
        if (pattern == "*.*") continue;
        ASSERT_EQ(MatchesPattern(name, pattern), SlowMatch(name, pattern)) << name << " " << pattern;
    }
}

TEST(MatchesPattern, StaysFastOnManyStars) {
    const std::string name(5000, 'a');
    std::string pattern;
    for (int i = 0; i < 50; ++i) pattern += "*a";
    EXPECT_FALSE(MatchesPattern(name, pattern + "b"));
}

TEST(LessLast, CutsOrFails) {
    EXPECT_EQ(LessLast("tooth.csv", 4, "name"), "tooth");
    EXPECT_EQ(LessLast(".csv", 4, "name"), "");
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [] { LessLast("csv", 4, "file name"); }, "file name"));
}

TEST(QuotedText, ShowsLineEndsQuotesAndBackslashes) {
    EXPECT_EQ(QuotedText("a\nb\r\"c\"\\"), "\"a\\nb\\r\\\"c\\\"\\\\\"");
    EXPECT_EQ(QuotedText(""), "\"\"");
}

}  // namespace
}  // namespace crownlab
