#include "viewer/tooth_file_name.h"

#include <gtest/gtest.h>

#include "basis/paths.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

std::string NameOf(const std::array<double, 11>& params) {
    const std::string path = ToothFileName("dir", params);
    const std::string folder = JoinPath(JoinPath("dir", "teeth"), "");
    EXPECT_EQ(path.substr(0, folder.size()), folder);
    return path.substr(folder.size());
}

TEST(ToothFileName, JoinsElevenParts) {
    EXPECT_EQ(NameOf({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}), "P100000_200000_30_0.4_500_600_7000_8000_9000_10000_0.011");
}

TEST(ToothFileName, Zeros) { EXPECT_EQ(NameOf({}), "P0_0_0_0_0_0_0_0_0_0_0"); }

TEST(ToothFileName, PartsOfTwoCharactersGetAZero) {
    // The 4th, 5th, 6th and 11th only; the 3rd keeps its two characters.
    EXPECT_EQ(NameOf({0, 0, 1.2, 120, 0.12, 0.5, 0.012, 0, 0, 0, 12000}), "P0_0_12_012_012_050_12_0_0_0_012");
}

TEST(ToothFileName, OtherLengthsStay) {
    EXPECT_EQ(NameOf({0, 0, 0, 10, 1, 0.01, 0, 0, 0, 0, 123000}), "P0_0_0_1_100_1_0_0_0_0_123");
    EXPECT_EQ(NameOf({0, 0, 0, -10, 0, 0, 0, 0, 0, 0, 500}), "P0_0_0_0-1_0_0_0_0_0_0_0.5");
}

TEST(ToothFileName, IntegerPartsAreFloors) {
    EXPECT_EQ(NameOf({0.000019, -0.000001, 0, 0, 0, 0, 0, 0, 0, 0, 0}), "P1_-1_0_0_0_0_0_0_0_0_0");
}

TEST(ToothFileName, PartsThatAreNotFiniteFail) {
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { NameOf({1e305, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}); }));
}

}  // namespace
}  // namespace crownlab
