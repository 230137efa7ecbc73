#include "convert/picza_file.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr double kBlank = 1.70141e38;

std::string Scan(const std::string& window, const std::string& lines, const std::string& steps = "X\n40\nY\n20\n") {
    return "VERSION=5\n" + steps + "Z\n0\nOther\nW\n" + window + "\nT\nL\n210\n" + lines;
}

class PiczaFiles : public ::testing::Test {
protected:
    PiczaScan Read(const std::string& content) {
        PutFile(Folder / "a.pix", content);
        return ReadPiczaScan(Folder / "a.pix", [this] { ++Yields; });
    }
    std::string Points(const std::string& content, double unit = kPiczaUnit) {
        PutFile(Folder / "a.pix", content);
        WritePiczaPoints(Files, Folder / "a.pix", Folder / "a.csv", unit);
        return FileBytes(Folder / "a.csv");
    }
    std::string Places(const std::string& content, double unit = 1) {
        WriteAllPlaces(Files, Folder / "b.csv", Read(content), unit);
        return FileBytes(Folder / "b.csv");
    }

    TempFolder Folder;
    FileTable Files;
    int Yields = 0;
};

TEST_F(PiczaFiles, PointsBeginAtTheWindowsCorner) {
    EXPECT_EQ(Points(Scan("200,-60,240,-40", "S\n200,-60,4\n240,-60,-8\nS\nA1200,-40,1\nE\nrest")),
              "0,0,.1\r\n1,0,-.2\r\n\r\n0,.5,.025\r\n");
    EXPECT_EQ(Points(Scan("200,-60,240,-40", "S\n200,-60,4\nE\n"), 25), "0,0,100\r\n");
}

TEST_F(PiczaFiles, KeysMayHaveOtherLinesBetweenThem) {
    EXPECT_EQ(Points("x\nx\n40\nx\n20\nx\n7\nV\nW \nW\n0,0,40,20\nS \ns\nS\n0,0,40\nE\n"), "0,0,1\r\n");
}

TEST_F(PiczaFiles, MissingKeysRunOffTheEnd) {
    for (const char* const text : {"", "V\nX\n40\nY\n20\nZ\n0\n", "V\nX\n40\nY\n20\nZ\n0\nW\n0,0,1\n"}) {
        EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Points(text); })) << text;
        EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read(text); })) << text;
    }
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Points(Scan("0,0,40,20", "1,2,3\nE\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Points(Scan("0,0,40,20", "S\n0,0,1\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Points(Scan("0,0,40,20", "S\n0,0\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Points(Scan("0,0,40,20", "S\nA1,0,1\nE\n")); }));
}

TEST(ExtentOfPicza, AColumnMoreThanIntervalsAndOne) {
    PiczaCounts counts;
    const PiczaExtent extent =
        ExtentOfPicza({.XStep = 40, .YStep = 20, .X0 = 200, .Y0 = -60, .X1 = 360, .Y1 = 5}, kPiczaUnit, counts);
    EXPECT_EQ(counts.NumCols, 6);  // 5 columns, and one
    EXPECT_EQ(counts.NumRows, 5);  // 4.25 rows
    EXPECT_DOUBLE_EQ(extent.Width, 5);
    EXPECT_DOUBLE_EQ(extent.Height, 2);
}

TEST(ExtentOfPicza, MultiplesOfAHundredKeepTheCountAndTheWindow) {
    PiczaCounts counts{.NumCols = 17, .NumRows = 3};
    const PiczaExtent extent =
        ExtentOfPicza({.XStep = 40, .YStep = 40, .X0 = 0, .Y0 = 0, .X1 = 3960, .Y1 = 7960}, kPiczaUnit, counts);
    EXPECT_EQ(counts.NumCols, 17);
    EXPECT_EQ(counts.NumRows, 3);
    EXPECT_DOUBLE_EQ(extent.Width, 99);
    EXPECT_DOUBLE_EQ(extent.Height, 199);
    PiczaCounts fresh;
    ExtentOfPicza({.XStep = 40, .YStep = 40, .X0 = 0, .Y0 = 0, .X1 = 3920, .Y1 = 4000}, kPiczaUnit, fresh);
    EXPECT_EQ(fresh.NumCols, 100);  // 99 and one
    EXPECT_EQ(fresh.NumRows, 102);  // 101 and one
}

TEST(ExtentOfPicza, NoStepIsADivisionByZero) {
    PiczaCounts counts;
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero,
                          [&] { ExtentOfPicza({.XStep = 0, .YStep = 1, .X1 = 5, .Y1 = 5}, 1, counts); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero,
                          [&] { ExtentOfPicza({.XStep = 1, .YStep = 0, .X1 = 5, .Y1 = 5}, 1, counts); }));
}

TEST_F(PiczaFiles, PlacesAreCountedFromTheWindow) {
    EXPECT_EQ(Read(Scan("0,0,80,40", "E\n")).Cols, 3);
    EXPECT_EQ(Read(Scan("0,0,80,40", "E\n")).Rows, 3);
    EXPECT_EQ(Read(Scan("0,0,81,59", "E\n")).Cols, 4);  // 2.025 steps
    EXPECT_EQ(Read(Scan("0,0,81,59", "E\n")).Rows, 4);
    EXPECT_EQ(Read(Scan("0,0,80,0", "E\n")).Rows, 1);
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(Scan("40,0,0,20", "E\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::OutOfMemory, [&] { Read(Scan("0,0,2e9,2e9", "E\n", "X\n1\nY\n1\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { Read(Scan("0,0,9e9,1", "E\n", "X\n1\nY\n1\n")); }));
}

TEST_F(PiczaFiles, EachLineYieldsOnce) {
    const PiczaScan scan = Read(Scan("0,0,40,40",
                                     "S\n0,0,1\n40,0,2\nS\nS\nA9"
                                     "0,40,3\nE\n"));
    EXPECT_EQ(Yields, 3);
    ASSERT_EQ(scan.Lines.size(), 3u);
    EXPECT_EQ(scan.Lines[0].size(), 2u);
    EXPECT_TRUE(scan.Lines[1].empty());
    EXPECT_EQ(scan.Lines[2].front(), (CloudPoint{0, 40, 3}));
}

TEST_F(PiczaFiles, OnePointAndOneLineOverAreTaken) {
    const std::string two = "S\n0,0,1\n0,0,2\n";
    EXPECT_EQ(Read(Scan("0,0,0,0", two + "S\n0,0,3\nE\n")).Lines.size(), 2u);
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(Scan("0,0,0,0", two + "0,0,3\nE\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(Scan("0,0,0,0", two + "S\nS\nE\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(Scan("0,0,0,0", "0,0,3\nS\nE\n")); }));
}

TEST_F(PiczaFiles, GapsTakeTheLastHeightMet) {
    // Row 1: a gap before the first point. Row 2: no points. Row 3: a gap behind. Row 4: no line.
    EXPECT_EQ(Places(Scan("200,-60,280,0", "S\n240,-60,7\nS\nS\n200,-20,5\nE\n")),
              "200,-60,0\r\n240,-60,7\r\n280,-60,7\r\n"
              "200,-40,0\r\n240,-40,7\r\n280,-40,7\r\n"
              "200,-20,5\r\n240,-20,5\r\n280,-20,5\r\n"
              "200,0,5\r\n240,0,5\r\n280,0,5\r\n");
}

TEST_F(PiczaFiles, PointsAtOnePlaceCountByTheLast) {
    EXPECT_EQ(Places(Scan("0,0,40,0", "S\n0,0,1\n0,0,2\n40,0,3\nE\n"), 0.5), "0,0,1\r\n20,0,1.5\r\n");
}

TEST_F(PiczaFiles, PointsOffTheirPlacesAreNeverMet) {
    EXPECT_EQ(Places(Scan("0,0,40,20", "S\n1,0,9\n40,0,9\nS\n0,20,4\nE\n")),
              "0,0,0\r\n40,0,0\r\n0,20,4\r\n40,20,4\r\n");
}

TEST_F(PiczaFiles, ScannedPointsAsTheyAre) {
    WriteScannedPoints(Files, Folder / "b.csv", Read(Scan("200,-60,240,0", "S\n201,3,4\nS\n7,8,9\nE\n")), kPiczaUnit);
    EXPECT_EQ(FileBytes(Folder / "b.csv"), "5.025,.075,.1\r\n.175,.2,.225\r\n");
}

TEST_F(PiczaFiles, WhatIsWrittenCanBeReadToHalfAUnit) {
    Lattice lattice{.Cols = 4, .Rows = 3, .Nodes = {}};
    for (int j = 0; j < 3; ++j) {
        for (int i = 0; i < 4; ++i) lattice.Nodes.push_back({0.03 * i, 0.05 * j, 0.0377 * i - 0.0219 * j});
    }
    lattice.At(2, 2).z = kBlank;
    WritePiczaFile(Files, Folder / "a.pix", lattice, 40);
    WritePiczaPoints(Files, Folder / "a.pix", Folder / "a.csv", kPiczaUnit);
    const PointCloud points = ReadPointText([this] {
        // Without the empty lines between the scan lines, each of which would count as a point.
        std::string text = FileBytes(Folder / "a.csv");
        for (std::size_t at = text.find("\n\r\n"); at != std::string::npos; at = text.find("\n\r\n"))
            text.erase(at + 1, 2);
        PutFile(Folder / "a.csv", text);
        return Folder / "a.csv";
    }());
    ASSERT_EQ(points.size(), lattice.Nodes.size());
    constexpr double half = 0.0125 + 1e-12;
    for (std::size_t k = 0; k < points.size(); ++k) {
        EXPECT_NEAR(points[k].x, lattice.Nodes[k].x, half);
        EXPECT_NEAR(points[k].y, lattice.Nodes[k].y, half);
        const double z = lattice.Nodes[k].z;
        EXPECT_NEAR(points[k].z, z == kBlank ? 0 : z, half);
    }
}

TEST_F(PiczaFiles, AHeadStatesSpacingAndWidth) {
    const Lattice lattice{
        .Cols = 2, .Rows = 2, .Nodes = {{0, 0, 1}, {0.30004, 0, 2}, {0, 0.25, -3}, {0.30004, 0.25, 4}}};
    WritePiczaFile(Files, Folder / "a.pix", lattice, 40);
    const std::string text = FileBytes(Folder / "a.pix");
    EXPECT_EQ(text.find("VERSION=5\r\nX\r\n12\r\nY\r\n10\r\nZ\r\n0\r\nD\r\n0\r\nB\r\n0\r\nW\r\n0,0,12,0\r\nT\r\n"), 0u);
    EXPECT_NE(text.find("L\r\n210\r\nS\r\n0,0,40\r\n12,0,80\r\nS\r\n0,10,-120\r\n12,10,160\r\nE\r\nFaceColor\r\n"),
              std::string::npos);
}

TEST(SpacingOf, NeedsTwoColumnsAndRows) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] {
        SpacingOf({.Cols = 1, .Rows = 2, .Nodes = {{0, 0, 0}, {0, 1, 0}}});
    }));
}

}  // namespace
}  // namespace crownlab
