#include "viewer/multi_tooth_file.h"

#include <gtest/gtest.h>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

using Lines = std::vector<std::int64_t>;

TEST(ScanSentinels, CountsLinesThatHold666) {
    const SentinelScan scan = ScanSentinels("0,1\n1,2\n666\n0,1\nabc 666 def\n", "f");
    EXPECT_EQ(scan.SentinelLine, (Lines{0, 3, 5}));
    EXPECT_EQ(scan.NumTeeth(), 2);
}

TEST(ScanSentinels, ACoordinateWithTheDigitsEndsATooth) {
    EXPECT_EQ(ScanSentinels("1,0.6667,2\n1,2,3\n666\n", "f").SentinelLine, (Lines{0, 1, 3}));
    EXPECT_EQ(ScanSentinels("66\n6\n66,6\n", "f").SentinelLine, (Lines{0, 4}));
}

TEST(ScanSentinels, TheLastToothMayEndWithTheFile) {
    EXPECT_EQ(ScanSentinels("1\n2\n3", "f").SentinelLine, (Lines{0, 4}));
    EXPECT_EQ(ScanSentinels("1\n666\n3\n", "f").SentinelLine, (Lines{0, 2, 4}));
    EXPECT_EQ(ScanSentinels("1\n666", "f").SentinelLine, (Lines{0, 2}));
    // An empty line behind the last sentinel is a last line without one.
    EXPECT_EQ(ScanSentinels("1\n666\n\n", "f").SentinelLine, (Lines{0, 2, 4}));
}

TEST(ScanSentinels, AllLineEndsAndAByteOrderMark) {
    const Lines expected{0, 2, 4};
    EXPECT_EQ(ScanSentinels("1\r\n666\r\n1\r\n666\r\n", "f").SentinelLine, expected);
    EXPECT_EQ(ScanSentinels("1\r666\r1\r666", "f").SentinelLine, expected);
    EXPECT_EQ(ScanSentinels("\xEF\xBB\xBF"
                            "1\n666\n1\n666",
                            "f")
                  .SentinelLine,
              expected);
}

TEST(ScanSentinels, RefusesAnEmptyFile) {
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { ScanSentinels("", "f"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [] { ScanSentinels("\xEF\xBB\xBF", "f"); }));
}

TEST(ScanSentinels, HoldsAMillionTeeth) {
    std::string text;
    for (int i = 0; i < 1000000; ++i) text += "666\n";
    EXPECT_EQ(ScanSentinels(text, "f").NumTeeth(), 1000000);
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ScanSentinels(text + "666\n", "f"); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ScanSentinels(text + "1\n", "f"); }));
}

TEST(ToothPoints, AreTheLinesBetweenParametersAndSentinel) {
    const SentinelScan scan = ScanSentinels("0,1\np\n1,2,3\n4,5,6\n666\n0,1\np\n666\n666\n0,1\np\n1,2,3\n", "f");
    ASSERT_EQ(scan.NumTeeth(), 4);
    EXPECT_EQ(scan.ToothPoints(1), 2);
    EXPECT_EQ(scan.ToothPoints(2), 0);
    EXPECT_EQ(scan.ToothPoints(3), -2);
    EXPECT_EQ(scan.ToothPoints(4), 1);
}

TEST(ReadToothParams, TakesElevenAfterTheUnusedOne) {
    FieldReader reader("77,11\n1,2,3,4,5,6,7,8,9,10\n5,5,5\n", "f");
    const std::array<double, 11> params = ReadToothParams(reader);
    for (std::size_t i = 0; i < params.size(); ++i) EXPECT_EQ(params[i], static_cast<double>(i + 1));
    EXPECT_EQ(reader.ReadLine(), "5,5,5");
}

TEST(ReadToothParams, MalformedFiles) {
    const auto read = [](const char* text) {
        FieldReader reader(text, "f");
        ReadToothParams(reader);
    };
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { read("1,2\n1,2,3\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { read("1,two\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { read("1,,2\n"); }));
}

TEST(ReadToothPoints, TakesTriplesAndStopsBeforeTheSentinel) {
    FieldReader reader("1,2,3\r\n4 5 6\r\n666\r\nnext", "f");
    const std::vector<SurfacePoint> points = ReadToothPoints(reader, 2);
    EXPECT_EQ(points, (std::vector<SurfacePoint>{{1, 2, 3}, {4, 5, 6}}));
    EXPECT_EQ(reader.ReadLine(), "666");
    EXPECT_EQ(reader.ReadLine(), "next");
}

class SplitMultiToothFileTest : public ::testing::Test {
protected:
    TempFolder folder_;
    FileTable files_;
};

TEST_F(SplitMultiToothFileTest, CutsBehindEachFullNumberOfSentinels) {
    EXPECT_EQ(SplitMultiToothFile(files_, "a\n666\nb\n666 b\nc\n0.666\n", 2, folder_ / "m"), 2);
    EXPECT_EQ(FileBytes(folder_ / "m-1.csv"), "a\r\n666\r\nb\r\n666 b\r\n");
    EXPECT_EQ(FileBytes(folder_ / "m-2.csv"), "c\r\n0.666\r\n");
    EXPECT_EQ(folder_.EntryCount(), 2u);
}

TEST_F(SplitMultiToothFileTest, WritesNoEmptyLastPart) {
    EXPECT_EQ(SplitMultiToothFile(files_, "a\n666\nb\n666", 1, folder_ / "m"), 2);
    EXPECT_EQ(folder_.EntryCount(), 2u);
}

TEST_F(SplitMultiToothFileTest, KeepsALastToothWithoutASentinel) {
    EXPECT_EQ(SplitMultiToothFile(files_, "a\n666\n  b , c", 1, folder_ / "m"), 2);
    EXPECT_EQ(FileBytes(folder_ / "m-2.csv"), "  b , c\r\n");
}

TEST_F(SplitMultiToothFileTest, PartsTogetherAreTheFile) {
    std::string text;
    std::string together;
    for (int tooth = 0; tooth < 57; ++tooth) text += "1," + std::to_string(tooth) + "\r\n\r\n666\r\n";
    const int parts = SplitMultiToothFile(files_, text, 10, folder_ / "m");
    EXPECT_EQ(parts, 6);
    for (int part = 1; part <= parts; ++part) {
        const std::string bytes = FileBytes(folder_ / ("m-" + std::to_string(part) + ".csv"));
        EXPECT_EQ(ScanSentinels(bytes, "part").NumTeeth(), part < parts ? 10 : 7);
        together += bytes;
    }
    EXPECT_EQ(together, text);
}

}  // namespace
}  // namespace crownlab
