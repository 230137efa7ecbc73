#include "formats/point_text.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class PointText : public ::testing::Test {
protected:
    PointCloud Read(const std::string& bytes) const {
        PutFile(folder_ / "scan.txt", bytes);
        return ReadPointText(folder_ / "scan.txt");
    }
    ::testing::AssertionResult Refuses(FailureKind kind, const std::string& bytes,
                                       const std::string& words = {}) const {
        return FailsWith(
            kind, [&] { Read(bytes); }, words);
    }
    std::string Written(const PointCloud& points) {
        WritePointText(files_, folder_ / "out.txt", points);
        return FileBytes(folder_ / "out.txt");
    }

    TempFolder folder_;
    FileTable files_;
};

const std::string kByteOrderMark = "\xEF\xBB\xBF";
const PointCloud kTwo{{1, -2, 3.5}, {0.25, 5, -6}};

TEST_F(PointText, ReadsWhatEditorsScannersAndSpreadsheetsWrite) {
    const std::vector<std::string> forms{
        "1,-2,3.5\n.25,5,-6\n",
        "1,-2,3.5\r\n.25,5,-6\r\n",
        "1,-2,3.5\r.25,5,-6\r",
        "1,-2,3.5\n.25,5,-6",
        kByteOrderMark + "1,-2,3.5\r\n.25,5,-6\r\n",
        "1 -2 3.5\n.25 5 -6\n",
        "1\t-2\t3.5\n.25\t5\t-6\n",
        "   1   -2\t 3.5  \n\t.25 ,5 , -6 \n",
        "1, -2, 3.5\n0.25, 5, -6\n",
        "1,-2,3.5,\n.25,5,-6,\n",
        "+1,-2.0,3.5E0\n2.5e-1,+5.,-6.000000\n",
        "1,-2,3.5\n.25,5,-6   ",
    };
    for (const std::string& form : forms) EXPECT_EQ(Read(form), kTwo) << form;
}

TEST_F(PointText, TakesWhatALineMissesFromTheNext) {
    EXPECT_TRUE(Refuses(FailureKind::InputPastEnd, "1,2,3\n4,5\n6,7,8\n"));
    // Where another line has more, the stream comes out even: three lines, nine numbers.
    EXPECT_EQ(Read("1,2,3\n4,5\n6,7,8,9\n"), (PointCloud{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    // Numbers beyond three a line are left over at the end, and shift the points before.
    EXPECT_EQ(Read("1,2,3,4\n5,6,7,8\n"), (PointCloud{{1, 2, 3}, {4, 5, 6}}));
}

TEST_F(PointText, CountsBlankLinesAsPoints) {
    EXPECT_TRUE(Refuses(FailureKind::InputPastEnd, "1,2,3\n\n"));
    EXPECT_TRUE(Refuses(FailureKind::InputPastEnd, "\n1,2,3\n"));
    EXPECT_TRUE(Refuses(FailureKind::InputPastEnd, "1,2,3\r\n\r\n4,5,6\r\n"));
    EXPECT_TRUE(Refuses(FailureKind::InputPastEnd, "1,2,3\n   "));
    EXPECT_EQ(Read("\n1,2,3,4,5,6\n"), (PointCloud{{1, 2, 3}, {4, 5, 6}}));
}

TEST_F(PointText, RefusesWhatIsNoNumber) {
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "x,y,z\n1,2,3\n", "line 1"));
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "1,2,3\n4,,6\n", "line 2"));
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "1,2,3\n1;2;3\n", "line 2"));
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "1,2,nan\n"));
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "1,2,inf\n"));
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "1,2,3mm\n"));
    EXPECT_TRUE(Refuses(FailureKind::TypeMismatch, "\"1\",\"2\",\"3\"\n"));
    EXPECT_TRUE(Refuses(FailureKind::Overflow, "1,2,1E999\n"));
}

TEST_F(PointText, RefusesFilesWithoutALine) {
    EXPECT_TRUE(Refuses(FailureKind::SubscriptOutOfRange, ""));
    EXPECT_TRUE(Refuses(FailureKind::SubscriptOutOfRange, kByteOrderMark));
    EXPECT_TRUE(Refuses(FailureKind::InputPastEnd, "\n"));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { ReadPointText(folder_ / "none.txt"); }));
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { ReadPointText(folder_ / "none/scan.txt"); }));
}

TEST_F(PointText, ReadsAFourthNumber) {
    PutFile(folder_ / "t.txt", "1,2,3,0.25\r\n4 5 6 7");
    const ValuedCloud cloud = ReadValuedPointText(folder_ / "t.txt");
    EXPECT_EQ(cloud.Points, (PointCloud{{1, 2, 3}, {4, 5, 6}}));
    EXPECT_EQ(cloud.Values, (std::vector<double>{0.25, 7}));
    PutFile(folder_ / "t.txt", "1,2,3\n4,5,6\n");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { ReadValuedPointText(folder_ / "t.txt"); }));
}

TEST_F(PointText, WritesGeneralForm) {
    EXPECT_EQ(Written({{1, -2.5, 0.125}, {-0.5, -0.0, 1234567}}), "1,-2.5,0.125\r\n-0.5,0,1234567\r\n");
    EXPECT_EQ(Written({{0.1 + 0.2, 1.0 / 3, 1e20}}), "0.3,0.333333333333333,1E+20\r\n");
    EXPECT_EQ(Written({}), "");
}

TEST_F(PointText, ComesBackWithFifteenDigits) {
    RandomNumbers random;
    PointCloud points;
    for (int i = 0; i < 2000; ++i)
        points.push_back({random.ShortDecimal(), random.ShortDecimal(), random.ShortDecimal()});
    EXPECT_EQ(Read(Written(points)), points);
    // What lies beyond 15 digits is lost.
    EXPECT_EQ(Read(Written({{0.12345678901234567, 0, 0}}))[0].x, 0.123456789012346);
}

TEST_F(PointText, WritesWholeFilesOrNone) {
    PutFile(folder_ / "out.txt", "old");
    {
        ResultFile file(files_, folder_ / "out.txt");
        WritePointLine(file, {1, 2, 3});
    }
    EXPECT_EQ(FileBytes(folder_ / "out.txt"), "old");
    EXPECT_EQ(folder_.EntryCount(), 1u);
}

TEST_F(PointText, WritesLinesOfAnyLength) {
    ResultFile file(files_, folder_ / "line.txt");
    WriteNumberLine(file, {});
    WriteNumberLine(file, {7});
    WriteNumberLine(file, {1, 2, 3, 4, 5, 6, 7, -1.23456789012345E-300, 9});
    file.Commit();
    EXPECT_EQ(FileBytes(folder_ / "line.txt"), "\r\n7\r\n1,2,3,4,5,6,7,-1.23456789012345E-300,9\r\n");
}

}  // namespace
}  // namespace crownlab
