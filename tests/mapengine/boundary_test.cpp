#include "mapengine/boundary.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

std::vector<Boundary> Parse(const std::string& text) { return ParseBoundaries(text, "a.bln"); }

::testing::AssertionResult Refuses(const std::string& text, const std::string& sentence) {
    return FailsWith(
        FailureKind::AutomationFailed, [&] { Parse(text); }, "a.bln" + sentence);
}

const std::vector<PlanePoint> kCorner{{1, 2}, {3, -4}, {0.5, 0}};

const std::string kByteOrderMark = "\xEF\xBB\xBF";

TEST(Boundary, ReadsTheSeparatorsAndLineEndsThatProgramsWrite) {
    const std::vector<std::string> forms{
        "3,1\n1,2\n3,-4\n.5,0\n",
        "3 1\r\n1 2\r\n3 -4\r\n.5 0\r\n",
        " 3            1 \r\n 1            2 \r\n 3           -4 \r\n .5            0 \r\n",
        "3\t1\r1\t2\r3\t-4\r5e-1\t0",
        kByteOrderMark + "3 , 1\n1 , 2\n+3,-4.0\n0.5 ,0,\n\n\n",
        "\n3,1,\"name of it\"\n\n1,2,7\n3,-4,8,9\n \t\n.5,0 third\n",
    };
    for (const std::string& text : forms) {
        const std::vector<Boundary> boundaries = Parse(text);
        ASSERT_EQ(boundaries.size(), 1U) << text;
        EXPECT_EQ(boundaries[0].Points, kCorner) << text;
        EXPECT_TRUE(boundaries[0].BlanksInside) << text;
    }
}

TEST(Boundary, TheFlagMayBeAbsentOrAnyNumber) {
    for (const std::string head : {"1", "1,0", "1 0", "1,0.0", "1,-0", "1,", "1 \t"}) {
        EXPECT_FALSE(Parse(head + "\n5,6\n")[0].BlanksInside) << head;
    }
    for (const std::string head : {"1,1", "1 -1", "1,0.5", "1 2"}) {
        EXPECT_TRUE(Parse(head + "\n5,6\n")[0].BlanksInside) << head;
    }
}

TEST(Boundary, ReadsSeveralRings) {
    const std::vector<Boundary> boundaries = Parse("2,1\n1,2\n3,4\n0,0\n1\n5,6\n3 1\n1 2\n3 -4\n.5 0\n");
    ASSERT_EQ(boundaries.size(), 4U);
    EXPECT_EQ(boundaries[0].Points, (std::vector<PlanePoint>{{1, 2}, {3, 4}}));
    EXPECT_TRUE(boundaries[0].BlanksInside);
    EXPECT_TRUE(boundaries[1].Points.empty());
    EXPECT_EQ(boundaries[2].Points, (std::vector<PlanePoint>{{5, 6}}));
    EXPECT_FALSE(boundaries[2].BlanksInside);
    EXPECT_EQ(boundaries[3].Points, kCorner);
}

TEST(Boundary, NamesTheLineOfWhatIsNoNumber) {
    EXPECT_TRUE(Refuses("three,1\n1,2\n", ", line 1: \"three\" is not a number"));
    EXPECT_TRUE(Refuses("2,inside\n1,2\n3,4\n", ", line 1: \"inside\" is not a number"));
    EXPECT_TRUE(Refuses("2,1\n\n1,2\n3,y\n", ", line 4: \"y\" is not a number"));
    EXPECT_TRUE(Refuses("2,1\n1,2\n3\n", ", line 3: a number is missing"));
    EXPECT_TRUE(Refuses("2,1\n1,2\n3,,4\n", ", line 3: a number is missing"));
    EXPECT_TRUE(Refuses("2,1\n1,2\nnan,4\n", ", line 3: \"nan\" is not a number"));
    EXPECT_TRUE(Refuses("2,1\n1,2\n1e999,4\n", ", line 3: \"1e999\" is not a number"));
    EXPECT_TRUE(Refuses("2,1\n1,2\n3x,4\n", ", line 3: \"3x\" is not a number"));
    // A ring shorter than its count takes the next head for a point, and then the numbers run out.
    EXPECT_TRUE(Refuses("2,1\n1,2\n2\n3,4\n5,6\n", ", line 3: a number is missing"));
}

TEST(Boundary, NamesTheLineOfAWrongCount) {
    EXPECT_TRUE(Refuses("3,1\n1,2\n3,4\n", ", line 3: the file ends after 2 of 3 points"));
    EXPECT_TRUE(Refuses("1e15\n1,2\n", ", line 2: the file ends after 1 of 1E+15 points"));
    EXPECT_TRUE(Refuses("-1,1\n", ", line 1: -1 is no count of points"));
    EXPECT_TRUE(Refuses("1.5,1\n1,2\n3,4\n", ", line 1: 1.5 is no count of points"));
    // A ring longer than its count leaves a point that reads as the next head.
    EXPECT_TRUE(Refuses("1,1\n1,2\n3.5,4\n", ", line 3: 3.5 is no count of points"));
    EXPECT_TRUE(Refuses("", ": there is no boundary in it"));
    EXPECT_TRUE(Refuses("\r\n \r\n", ": there is no boundary in it"));
}

TEST(Boundary, ReadsWhatTheToolsWrite) {
    const TempFolder folder;
    FileTable files;
    for (const BoundaryFlag::Form form : {BoundaryFlag::Form::Number, BoundaryFlag::Form::Text}) {
        WriteRingFile(files, folder / "ring.bln", kCorner, {.Sense = 1, .As = form});
        const std::vector<Boundary> boundaries = ReadBoundaries(folder / "ring.bln");
        ASSERT_EQ(boundaries.size(), 1U);
        EXPECT_EQ(boundaries[0].Points, (std::vector<PlanePoint>{{1, 2}, {3, -4}, {0.5, 0}, {1, 2}}));
        EXPECT_TRUE(boundaries[0].BlanksInside);
    }
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadBoundaries(folder / "none.bln"); },
        "there is no file " + (folder / "none.bln")));
}

}  // namespace
}  // namespace crownlab
