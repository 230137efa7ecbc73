#include "mapengine/data_file.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class DataFile : public ::testing::Test {
protected:
    DataPoints Read(const std::string& text, const DataColumns& columns = {}) {
        PutFile(folder_ / "in.dat", text);
        return ReadDataFile(folder_ / "in.dat", columns);
    }
    ::testing::AssertionResult Refuses(const std::string& text, const std::string& why,
                                       const DataColumns& columns = {}) {
        return FailsWith(
            FailureKind::AutomationFailed, [&] { Read(text, columns); }, (folder_ / "in.dat") + ": " + why);
    }
    TempFolder folder_;
};

const DataPoints kTwoPoints = {{.X = 1, .Y = -2.5, .Z = 3e2}, {.X = 4, .Y = 5, .Z = -6}};

TEST_F(DataFile, CommasBlanksAndTabsSeparate) {
    EXPECT_EQ(Read("1,-2.5,3e2\n4,5,-6\n"), kTwoPoints);
    EXPECT_EQ(Read("1 -2.5 3e2\n4 5 -6\n"), kTwoPoints);
    EXPECT_EQ(Read("1\t-2.5\t3e2\n4\t5\t-6\n"), kTwoPoints);
    EXPECT_EQ(Read("  1 , -2.5\t,  3e2 ,\n\t4  5 \t -6  "), kTwoPoints);
    EXPECT_EQ(Read(" 1            -2.5          300 \r\n 4             5            -6 \r\n"), kTwoPoints);
}

TEST_F(DataFile, LineEndsOfAllKindsAndAByteOrderMark) {
    EXPECT_EQ(Read("1,-2.5,300\r\n4,5,-6\r\n"), kTwoPoints);
    EXPECT_EQ(Read("1,-2.5,300\r4,5,-6"), kTwoPoints);
    EXPECT_EQ(Read("\xEF\xBB\xBF"
                   "1,-2.5,300\n4,5,-6"),
              kTwoPoints);
}

TEST_F(DataFile, EmptyLinesAreSkipped) {
    EXPECT_EQ(Read("\n\n1,-2.5,300\n \t \n\r\n4,5,-6\n\n"), kTwoPoints);
    EXPECT_TRUE(Read("").empty());
    EXPECT_TRUE(Read("\n \n").empty());
}

TEST_F(DataFile, ColumnsMayStandInAnyOrderAmongOthers) {
    EXPECT_EQ(Read("a 300 - 1 -2.5 b\n\"x\" -6 1e999 4 5\n", {.X = 4, .Y = 5, .Z = 2}), kTwoPoints);
    EXPECT_EQ(Read("7,8\n", {.X = 2, .Y = 1, .Z = 2}), (DataPoints{{.X = 8, .Y = 7, .Z = 8}}));
}

TEST_F(DataFile, ALineOfTooFewFieldsIsNamed) {
    EXPECT_TRUE(Refuses("1,2,3\n\n4,5\n6,7,8\n", "line 3 has 2 fields, 3 are needed"));
    EXPECT_TRUE(Refuses("1,2,3\r\n4,5,\r\n", "line 2 has 2 fields, 3 are needed"));
    EXPECT_TRUE(Refuses("1 2 3\n", "line 1 has 3 fields, 5 are needed", {.X = 1, .Y = 2, .Z = 5}));
    EXPECT_TRUE(Refuses("1 2 3\n", "line 1 has 3 fields, 2147483647 are needed", {.X = 1, .Y = 2, .Z = 2147483647}));
}

TEST_F(DataFile, ALineWithoutANumberIsNamed) {
    EXPECT_TRUE(Refuses("x,y,z\n1,2,3\n", "line 1 holds \"x\" where a number has to be"));
    EXPECT_TRUE(Refuses("1,2,3\n1,,3\n", "line 2 holds \"\" where a number has to be"));
    EXPECT_TRUE(Refuses("1,2,3z\n", "line 1 holds \"3z\" where a number has to be"));
    EXPECT_TRUE(Refuses("1 2 nan\n", "line 1 holds \"nan\""));
    EXPECT_TRUE(Refuses("1 2 inf\n", "line 1 holds \"inf\""));
    EXPECT_TRUE(Refuses("1 2 1e999\n", "line 1 holds \"1e999\""));
    EXPECT_TRUE(Refuses("1 2 \"3\"\n", "line 1 holds \"\"3\"\""));
    EXPECT_TRUE(Refuses(std::string("1 2 3\0\n", 7), "line 1 holds"));
}

TEST_F(DataFile, AMissingFileIsNamed) {
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadDataFile(folder_ / "no.dat", {}); }, "no.dat"));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadDataFile(folder_.Path(), {}); }, folder_.Path()));
}

TEST(ExclusionFilter, OnlyZAboveANumber) {
    EXPECT_EQ(ParseExclusionFilter("Z > 1E38"), 1e38);
    EXPECT_EQ(ParseExclusionFilter("z>1e38"), 1e38);
    EXPECT_EQ(ParseExclusionFilter("  Z  >\t-0.5 "), -0.5);
    for (const char* const other : {"", "Z", "Z >", "Z > ", "> 5", "Z >= 5", "Z < 5", "X > 5", "Z > 5 x", "Z > 1 2",
                                    "Z > five", "Z > 1e999", "Z > 5 OR X > 2", "ZZ > 5"}) {
        EXPECT_EQ(ParseExclusionFilter(other), std::nullopt) << other;
    }
}

}  // namespace
}  // namespace crownlab
