#include "surferfns/terrain_statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr double kNarrow = 11.25;

/// The bin from 1 of one value, by the counts.
int BinOf(double value, Terrain terrain, double binWidth) {
    const std::vector<int> counts = CountInBins({value}, terrain, binWidth);
    EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), 0), 1);
    for (std::size_t b = 0; b < counts.size(); ++b) {
        if (counts[b] == 1) return static_cast<int>(b) + 1;
    }
    return 0;
}

bool IsOffTheScale(double value, Terrain terrain, double binWidth) {
    return FailsWith(FailureKind::SubscriptOutOfRange, [&] { CountInBins({value}, terrain, binWidth); });
}

TEST(TerrainBins, AreCentredOnTheMultiplesOfTheirWidth) {
    EXPECT_EQ(CountInBins({}, Terrain::Slope, kNarrow).size(), 8U);
    EXPECT_EQ(BinOf(0, Terrain::Slope, kNarrow), 1);
    EXPECT_EQ(BinOf(5, Terrain::Slope, kNarrow), 1);
    EXPECT_EQ(BinOf(6, Terrain::Slope, kNarrow), 2);
    EXPECT_EQ(BinOf(5.625, Terrain::Slope, kNarrow), 2) << "a border is the upper bin's";
    EXPECT_EQ(BinOf(84.3, Terrain::Slope, kNarrow), 8);
}

TEST(TerrainBins, WrapBelowTheTopOfTheScale) {
    EXPECT_EQ(BinOf(84.375, Terrain::Slope, kNarrow), 1);
    EXPECT_EQ(BinOf(90, Terrain::Slope, kNarrow), 1);
    for (const double width : {11.25, 22.5, 45.0, 90.0}) {
        EXPECT_EQ(CountInBins({}, Terrain::Aspect, width).size(), static_cast<std::size_t>(360 / width));
        EXPECT_EQ(BinOf(355, Terrain::Aspect, width), 1) << width;
        EXPECT_EQ(BinOf(360 - width / 2, Terrain::Aspect, width), 1) << width;
        EXPECT_EQ(BinOf(359 - width / 2, Terrain::Aspect, width), static_cast<int>(360 / width)) << width;
        EXPECT_EQ(BinOf(180, Terrain::Aspect, width), static_cast<int>(180 / width) + 1) << width;
    }
}

TEST(TerrainBins, HaveNoPlaceOffTheScale) {
    EXPECT_TRUE(IsOffTheScale(-5.7, Terrain::Slope, kNarrow));
    EXPECT_EQ(BinOf(-5.6, Terrain::Slope, kNarrow), 1) << "half a bin below 0 counts with 0";
    EXPECT_TRUE(IsOffTheScale(95.625, Terrain::Slope, kNarrow));
    EXPECT_EQ(BinOf(95.6, Terrain::Slope, kNarrow), 1);
    EXPECT_TRUE(IsOffTheScale(405, Terrain::Aspect, 90));
    EXPECT_TRUE(IsOffTheScale(1e38, Terrain::Aspect, kNarrow));
    EXPECT_TRUE(IsOffTheScale(std::numeric_limits<double>::quiet_NaN(), Terrain::Slope, kNarrow));
}

TEST(TerrainBins, HoldTenThousandValuesEach) {
    std::vector<double> values(10'000, 30);
    values.insert(values.end(), 10'000, 80);
    EXPECT_EQ(CountInBins(values, Terrain::Slope, kNarrow), (std::vector<int>{0, 0, 0, 10'000, 0, 0, 0, 10'000}));
    values.push_back(30);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { CountInBins(values, Terrain::Slope, kNarrow); }, "values in a bin"));
}

TEST(TerrainBins, AgreeWithDistancesOnTheCircle) {
    RandomNumbers random;
    for (const double width : {11.25, 22.5, 45.0, 90.0}) {
        for (int trial = 0; trial < 300; ++trial) {
            // Never on a border between bins.
            const double value = (static_cast<double>(random.Below(36000)) + 0.25) / 100;
            const double centre = (BinOf(value, Terrain::Aspect, width) - 1) * width;
            const double apart = std::abs(value - centre);
            ASSERT_LT(std::min(apart, 360 - apart), width / 2) << value << " in bins of " << width;
        }
    }
}

class TerrainFiles : public ::testing::Test {
protected:
    std::string Written(const std::vector<double>& values, Terrain terrain) {
        WriteTerrainResults(files_, "r.csv", values, terrain);
        return FileBytes("r.csv");
    }
    static std::size_t Tables(const std::string& text) {
        std::size_t count = 0;
        for (std::size_t at = text.find("\"Bin\""); at != std::string::npos; at = text.find("\"Bin\"", at + 1)) ++count;
        return count;
    }

    TempFolder folder_;
    FileTable files_;
};

TEST_F(TerrainFiles, SlopeHasOneTableMeanAndDeviation) {
    PutFile("r.csv", "old\n");
    // Mean 10; squares 100 + 1 + 121 + 0 over 3.
    EXPECT_EQ(Written({0, 9, 21, 10}, Terrain::Slope),
              "\"Bin\",\"Frequency\"\r\n\"0\",\"1\"\r\n\"11.25\",\"2\"\r\n\"22.5\",\"1\"\r\n\"33.75\",\"0\"\r\n"
              "\"45\",\"0\"\r\n\"56.25\",\"0\"\r\n\"67.5\",\"0\"\r\n\"78.75\",\"0\"\r\n\r\n"
              "\"Mean Slope\",\"SD Slope\"\r\n\"10\",\"8.60232526704263\"\r\n\r\n");
}

TEST_F(TerrainFiles, NumbersBelowOneHaveNoZeroBeforeThePoint) {
    const std::string text = Written({0.25, 0.75}, Terrain::Slope);
    EXPECT_NE(text.find("\r\n\".5\",\".353553390593274\"\r\n\r\n"), std::string::npos) << text;
}

TEST_F(TerrainFiles, AspectHasFourTables) {
    const std::string text = Written({355, 10, 90}, Terrain::Aspect);
    EXPECT_EQ(Tables(text), 4U);
    EXPECT_EQ(text.find("Mean"), std::string::npos);
    EXPECT_EQ(text.substr(text.rfind("\"Bin\"")),
              "\"Bin\",\"Frequency\"\r\n\"0\",\"2\"\r\n\"90\",\"1\"\r\n\"180\",\"0\"\r\n\"270\",\"0\"\r\n\r\n");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4 * 2 + 32 + 16 + 8 + 4);
}

TEST_F(TerrainFiles, TablesBeforeAFullBinStay) {
    // 9000 each at 90 and 101.25 are two bins of the first table and one of the second.
    std::vector<double> values(9000, 90);
    values.insert(values.end(), 9000, 100);
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Written(values, Terrain::Aspect); }));
    const std::string text = FileBytes("r.csv");
    EXPECT_EQ(Tables(text), 1U);
    EXPECT_NE(text.find("\"90\",\"9000\"\r\n\"101.25\",\"9000\"\r\n"), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\"348.75\",\"0\"\r\n\r\n"));
}

TEST_F(TerrainFiles, AFullBinOfTheFirstTableLeavesTheOldFile) {
    PutFile("r.csv", "old\n");
    EXPECT_TRUE(
        FailsWith(FailureKind::SubscriptOutOfRange, [&] { Written(std::vector<double>(10'001, 45), Terrain::Slope); }));
    EXPECT_EQ(FileBytes("r.csv"), "old\n");
    EXPECT_EQ(folder_.EntryCount(), 1U);
}

TEST_F(TerrainFiles, TooFewSlopesLeaveTheTable) {
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [&] { Written({}, Terrain::Slope); }, "mean"));
    EXPECT_TRUE(FileBytes("r.csv").ends_with("\"78.75\",\"0\"\r\n\r\n"));
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero, [&] { Written({80}, Terrain::Slope); }, "SD"));
    EXPECT_TRUE(FileBytes("r.csv").ends_with("\"78.75\",\"1\"\r\n\r\n"));
    EXPECT_EQ(Tables(Written({}, Terrain::Aspect)), 4U) << "aspects have no mean";
}

TEST_F(TerrainFiles, NoFolderIsPathNotFound) {
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] {
        WriteTerrainResults(files_, "no/r.csv", {1, 2}, Terrain::Slope);
    }));
}

class TerrainValues : public ::testing::Test {
protected:
    static std::vector<double> Read(const std::string& text) {
        PutFile("nodes.dat", text);
        return ReadTerrainValues("nodes.dat");
    }

    TempFolder folder_;
};

TEST_F(TerrainValues, AreTheThirdFieldsThatAreNotBlank) {
    EXPECT_EQ(Read("0 0 45\r\n1 0 1.70141E+38\r\n0,1,-2.5\r\n1 1 1E38\r\n"), (std::vector<double>{45, -2.5, 1e38}));
    EXPECT_TRUE(Read("").empty());
    EXPECT_TRUE(Read("0 0 1.70141E+38\r\n").empty());
}

TEST_F(TerrainValues, ComeThreeFieldsATime) {
    EXPECT_EQ(Read("0\n0\n45 1 0\n46"), (std::vector<double>{45, 46}));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { Read("0 0 45\n1 0"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Read("0 0 steep\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [] { ReadTerrainValues("none.dat"); }));
}

TEST_F(TerrainValues, AreAMillionAtMost) {
    constexpr int most = 1'000'000;
    std::string text;
    for (int i = 0; i < most; ++i) text += "0 0 7\n";
    EXPECT_EQ(Read(text + "0 0 1.70141E+38\n").size(), static_cast<std::size_t>(most)) << "blanks don't count";
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(text + "0 0 7\n"); }));
}

}  // namespace
}  // namespace crownlab
