#include "convert/tiff_text.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

std::vector<double> ValuesOf(const std::string& text) {
    return ReadTiffValues(text, "image.txt", ShapeOfTiffText(text, "image.txt"));
}

TEST(ShapeOfTiffText, ColumnsAreTheFirstLinesTabsAndOne) {
    const TiffShape shape = ShapeOfTiffText("1\t2\t3\r\n4\t5\t6\r\n", "image.txt");
    EXPECT_EQ(shape.Columns, 3u);
    EXPECT_EQ(shape.Rows, 2u);
    EXPECT_EQ(ShapeOfTiffText("7", "image.txt").Columns, 1u);
    EXPECT_EQ(ShapeOfTiffText("7", "image.txt").Rows, 1u);
    EXPECT_EQ(ShapeOfTiffText("\xEF\xBB\xBF"
                              "7\t8\n9\t10",
                              "image.txt")
                  .Columns,
              2u);
}

TEST(ShapeOfTiffText, CountsATabTooManyAndAnEmptyLineToo) {
    EXPECT_EQ(ShapeOfTiffText("1\t2\t\n3\t4\n", "image.txt").Columns, 3u);
    EXPECT_EQ(ShapeOfTiffText("1\t2\n3\t4\n\n", "image.txt").Rows, 3u);
}

TEST(ShapeOfTiffText, OfNoTextIsPastTheEnd) {
    EXPECT_TRUE(FailsWith(
        FailureKind::InputPastEnd, [] { ShapeOfTiffText("", "image.txt"); }, "image.txt"));
}

TEST(ReadTiffValues, RowAfterRowTheTopFirst) {
    EXPECT_EQ(ValuesOf("1\t2\t3\n4\t5\t6\n"), (std::vector<double>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(ValuesOf("0\t255"), (std::vector<double>{0, 255}));
}

TEST(ReadTiffValues, TakesWhatAShortLineMissesFromTheNext) {
    // Three columns by its first line, three rows: nine places, and seven values.
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { ValuesOf("1\t2\t3\n4\t5\n6\t7\n"); }));
    // A longer line makes up for it; what is left over at the end isn't looked at.
    EXPECT_EQ(ValuesOf("1\t2\n3\n4\t5\t6\tx\n"), (std::vector<double>{1, 2, 3, 4, 5, 6}));
}

TEST(ReadTiffValues, ValuesThatRunOutArePastTheEnd) {
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { ValuesOf("1\t2\t\n3\t4\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { ValuesOf("1\t2\n3\t4\n\n"); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [] { ValuesOf("1\tx\n"); }, "line 1"));
}

TEST(ReadTiffValues, ManyTabsAndLinesAskForNoMoreRoomThanTheyFill) {
    // A million columns by a million rows in two megabytes: refused by what it holds, not for want of memory.
    const std::string text = "1" + std::string(1'000'000, '\t') + std::string(1'000'000, '\n');
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&text] { ValuesOf(text); }));
}

std::string PointsOf(const std::string& text, const TiffScale& scale) {
    TempFolder folder;
    FileTable files;
    const TiffShape shape = ShapeOfTiffText(text, "image.txt");
    ResultFile file(files, folder / "points.csv");
    WriteTiffPoints(file, ReadTiffValues(text, "image.txt", shape), shape, scale);
    file.Commit();
    return FileBytes(folder / "points.csv");
}

TEST(WriteTiffPoints, TurnsTheImageOverSoThatItsTopIsFarthestUp) {
    EXPECT_EQ(PointsOf("10\t20\t30\n40\t50\t60\n", {.XInterval = 0.5, .YInterval = 2, .ZInterval = 0.1}),
              "0,0,4\r\n.5,0,5\r\n1,0,6\r\n"
              "0,2,1\r\n.5,2,2\r\n1,2,3\r\n");
}

TEST(WriteTiffPoints, OneRowAndOneColumn) {
    EXPECT_EQ(PointsOf("1\t2\n", {.XInterval = 1, .YInterval = 1, .ZInterval = 1}), "0,0,1\r\n1,0,2\r\n");
    EXPECT_EQ(PointsOf("1\n2\n", {.XInterval = 1, .YInterval = 3, .ZInterval = 1}), "0,0,2\r\n0,3,1\r\n");
}

TEST(WriteTiffPoints, AHeightBeyondNumbersOverflows) {
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { PointsOf("1e300\t1\n", {1, 1, 1e300}); }));
}

}  // namespace
}  // namespace crownlab
