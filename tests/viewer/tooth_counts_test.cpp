#include "viewer/tooth_counts.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer/multi_tooth_file.h"

namespace crownlab {
namespace {

class ToothCountsTest : public ::testing::Test {
protected:
    std::vector<ModelFileCount> Read(const std::string& text) {
        PutFile(folder_ / "counts.csv", text);
        return ReadToothCounts(folder_ / "counts.csv");
    }

    TempFolder folder_;
    FileTable files_;
};

std::vector<std::int32_t> Shares(std::initializer_list<std::int32_t> counts, std::int32_t sampleSize) {
    std::vector<ModelFileCount> files;
    for (const std::int32_t count : counts) files.push_back({.File = "f", .Count = count});
    return SampleShares(files, sampleSize);
}

TEST_F(ToothCountsTest, ListsModelFilesByNumber) {
    for (const char* name : {"netregu10.dat", "netregu9.dat", "NETREGU100.DAT", "netregu.dat", "netregu1a.dat",
                             "netregu7.csv", "xnetregu7.dat", "netregu_e1000.dat", "netregu010.dat"}) {
        PutFile(folder_ / name, "");
    }
    EXPECT_EQ(ListModelFiles(folder_.Path()),
              (std::vector<std::string>{"netregu9.dat", "netregu010.dat", "netregu10.dat", "NETREGU100.DAT"}));
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { ListModelFiles(folder_ / "gone"); }));
}

TEST_F(ToothCountsTest, CountsSentinelLines) {
    EXPECT_EQ(CountTeeth(""), 0);
    EXPECT_EQ(CountTeeth("1,2\n3\n"), 0);
    EXPECT_EQ(CountTeeth("1,2\n666 666\n0.6665\r\n1,2"), 2);
}

TEST_F(ToothCountsTest, WritesHeaderAndALineAFile) {
    WriteToothCounts(files_, folder_ / "ToothCount.csv", {{"netregu1.dat", 3}, {"netregu2.dat", 0}});
    EXPECT_EQ(FileBytes(folder_ / "ToothCount.csv"),
              "\"File\",\"Count\"\r\n\"netregu1.dat\",3\r\n\"netregu2.dat\",0\r\n");
}

TEST_F(ToothCountsTest, ReadsWhatItWrote) {
    WriteToothCounts(files_, folder_ / "c.csv", {{"netregu1.dat", 3}, {"net regu.dat", 2000000000}});
    const std::vector<ModelFileCount> counts = ReadToothCounts(folder_ / "c.csv");
    ASSERT_EQ(counts.size(), 2u);
    EXPECT_EQ(counts[0].File, "netregu1.dat");
    EXPECT_EQ(counts[0].Count, 3);
    EXPECT_EQ(counts[1].File, "net regu.dat");
    EXPECT_EQ(counts[1].Count, 2000000000);
}

TEST_F(ToothCountsTest, ReadsCountsWithoutHeaderAndQuotes) {
    const std::vector<ModelFileCount> counts = Read("netregu1.dat, 3\n\n netregu2.dat ,4");
    ASSERT_EQ(counts.size(), 2u);
    EXPECT_EQ(counts[1].File, "netregu2.dat");
    EXPECT_EQ(counts[1].Count, 4);
}

TEST_F(ToothCountsTest, MalformedCounts) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(""); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read("\"File\",\"Count\"\r\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read("\"File\",\"Count\"\r\n\"netregu1.dat\"\r\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read("File"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Read("a,b\r\nc,d\r\n"); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { Read("a,-1\r\n"); }, "count of a"));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Read("a,3000000000\r\n"); }, "count of a"));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { ReadToothCounts(folder_ / "gone.csv"); }));
}

TEST(SampleShares, AreRoundedHalfToEven) {
    EXPECT_EQ(Shares({100, 300, 600}, 10), (std::vector<std::int32_t>{1, 3, 6}));
    // 2.5 and 7.5: to 2 and 8.
    EXPECT_EQ(Shares({25, 75}, 10), (std::vector<std::int32_t>{2, 8}));
    EXPECT_EQ(Shares({1, 1, 1}, 1), (std::vector<std::int32_t>{0, 0, 0}));
    EXPECT_EQ(Shares({5, 0}, 3), (std::vector<std::int32_t>{3, 0}));
}

TEST(SampleShares, NoFileGivesMoreThanItHas) {
    EXPECT_EQ(Shares({2, 3}, 1000), (std::vector<std::int32_t>{2, 3}));
    EXPECT_EQ(Shares({2000000000, 2000000000}, 2147483647), (std::vector<std::int32_t>{1073741824, 1073741824}));
}

TEST(SampleShares, Refusals) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { Shares({0, 0}, 10); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { Shares({1}, -1); }));
    EXPECT_EQ(Shares({1}, 0), (std::vector<std::int32_t>{0}));
}

constexpr std::string_view kModelFile = "a1\na2\n666\nb1\n666\nc1\nc2\nx666\nd1\n";

TEST(FindTeeth, TakesAllLinesOfATooth) {
    const std::vector<PickedTooth> teeth = FindTeeth(kModelFile, {1, 3}, "f");
    ASSERT_EQ(teeth.size(), 2u);
    EXPECT_EQ(teeth[0].Number, 1);
    EXPECT_EQ(teeth[0].FirstLine, 1);
    EXPECT_EQ(teeth[0].Lines, (std::vector<std::string_view>{"a1", "a2", "666"}));
    EXPECT_EQ(teeth[1].Number, 3);
    EXPECT_EQ(teeth[1].FirstLine, 6);
    EXPECT_EQ(teeth[1].Lines, (std::vector<std::string_view>{"c1", "c2", "x666"}));
}

TEST(FindTeeth, NoneAndMissingOnes) {
    EXPECT_TRUE(FindTeeth(kModelFile, {}, "f").empty());
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { FindTeeth(kModelFile, {2, 4}, "f"); })) << "no sentinel";
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { FindTeeth(kModelFile, {9}, "f"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { FindTeeth("", {1}, "f"); }));
}

TEST_F(ToothCountsTest, SamplesCollect) {
    AppendToSample(files_, "one.dat", FindTeeth(kModelFile, {2}, "f"), folder_ / "s.csv", folder_ / "s_pos.csv");
    AppendToSample(files_, "two.dat", FindTeeth(kModelFile, {1, 2}, "f"), folder_ / "s.csv", folder_ / "s_pos.csv");
    EXPECT_EQ(FileBytes(folder_ / "s.csv"), "b1\r\n666\r\na1\r\na2\r\n666\r\nb1\r\n666\r\n");
    EXPECT_EQ(FileBytes(folder_ / "s_pos.csv"), "\"one.dat\",2,4\r\n\"two.dat\",1,1\r\n\"two.dat\",2,4\r\n");
    EXPECT_EQ(ScanSentinels(FileBytes(folder_ / "s.csv"), "s").NumTeeth(), 3);
}

}  // namespace
}  // namespace crownlab
