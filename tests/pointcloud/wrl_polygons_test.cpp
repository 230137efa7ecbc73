#include "pointcloud/wrl_polygons.h"

#include <gmock/gmock.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

WrlPolygons Parse(const std::string& text) { return ParseWrlPolygons(text, "m.wrl"); }

const std::string kHead = "point [\n";
const std::string kPoints = "0 0 0,\n1 0 0,\n0 1 0,\n]\n";
const std::string kMid = "coordIndex [\n";

std::string WithPoints(const std::string& points) { return kHead + points + kMid + "0,1,2,-1\n]\n"; }
std::string WithFaces(const std::string& faces) { return kHead + kPoints + kMid + faces; }

TEST(WrlPolygons, TakesAModelApart) {
    const WrlPolygons model = Parse(
        "#VRML V2.0 utf8\r\n\r\n        coord Coordinate {\r\n          point [\r\n"
        "            0 0.5 -1,\r\n            1 0 0,\r\n            0 1 0,\r\n          ]\r\n        }\r\n"
        "        colorIndex [ ]\r\n        coordIndex [\r\n          0, 1, 2, -1,\r\n          2, 1, 0, -1,\r\n"
        "        ]\r\n      }\r\n}");
    EXPECT_THAT(model.HeadLines, ElementsAre("#VRML V2.0 utf8", "", "        coord Coordinate {", "          point ["));
    EXPECT_EQ(model.Points, (PointCloud{{0, 0.5, -1}, {1, 0, 0}, {0, 1, 0}}));
    EXPECT_THAT(model.MidLines, ElementsAre("        }", "        colorIndex [ ]", "        coordIndex ["));
    EXPECT_THAT(model.Faces, ElementsAre(PolyFace{0, 1, 2}, PolyFace{2, 1, 0}));
    EXPECT_THAT(model.TailLines, ElementsAre("      }", "}"));
}

TEST(WrlPolygons, PointsAreTokensWhateverTheLines) {
    const PointCloud expected{{1, 2, 3}, {4, 5, 6}};
    EXPECT_EQ(Parse(WithPoints("1 2 3,\n4 5 6,\n]\n")).Points, expected);
    EXPECT_EQ(Parse(WithPoints("1 2 3\n4 5 6\n]\n")).Points, expected);
    EXPECT_EQ(Parse(WithPoints("1,2,3,4,5,6 ]\n")).Points, expected);
    EXPECT_EQ(Parse(WithPoints("  \t1 2 3 , 4\n5\n\n\n6 ,\n\n  ]  \n")).Points, expected);
    EXPECT_EQ(Parse(WithPoints("1 2 3,,4 5 6,\n]\n")).Points, expected) << "one empty token is passed over";
    EXPECT_EQ(Parse(WithPoints("1e0 +2 3.0,\n4. 5 6,\n,]\n")).Points, expected);
}

TEST(WrlPolygons, WhatFollowsAListOnItsLastLineIsALine) {
    const WrlPolygons model = Parse("point [\n1 2 3 ] } \ncoordIndex [\n0 0 0 -1 ] }\nsolid TRUE");
    EXPECT_THAT(model.MidLines, ElementsAre("} ", "coordIndex ["));
    EXPECT_THAT(model.TailLines, ElementsAre("}", "solid TRUE"));
}

TEST(WrlPolygons, FourthCornersAreLost) {
    const auto faces = ElementsAre(PolyFace{0, 1, 2}, PolyFace{2, 1, 0});
    EXPECT_THAT(Parse(WithFaces("0,1,2,3,-1,\n2,1,0,-1,\n]")).Faces, faces);
    EXPECT_THAT(Parse(WithFaces("0 1 2 -1 2 1 0 7 -1\n]")).Faces, faces);
}

TEST(WrlPolygons, FiveCornersPutTheReaderOutOfStep) {
    // The fifth corner is taken for the -1, which then starts a face of its own.
    EXPECT_THAT(Parse(WithFaces("0,1,2,3,4,-1,\n0,2,-1\n]")).Faces, ElementsAre(PolyFace{0, 1, 2}, PolyFace{-1, 0, 2}));
}

TEST(WrlPolygons, CornersAreRoundedToWholeNumbers) {
    EXPECT_THAT(Parse(WithFaces("0.4,1.5,2.5,-1\n]")).Faces, ElementsAre(PolyFace{0, 2, 2}));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Parse(WithFaces("0,1,2147483648,-1\n]")); }));
}

TEST(WrlPolygons, TheEndOfTheFileEndsALine) {
    EXPECT_THAT(Parse(WithFaces("0,1,2,-1")).Faces, ElementsAre(PolyFace{0, 1, 2}));
    EXPECT_THAT(Parse(WithFaces("0,1,2")).Faces, ElementsAre(PolyFace{0, 1, 2}));
    EXPECT_THAT(Parse(WithFaces("0,1,2,3")).Faces, ElementsAre(PolyFace{0, 1, 2}));
    EXPECT_THAT(Parse(WithFaces("0,1,2,-1\n\n  ,")).Faces, ElementsAre(PolyFace{0, 1, 2}));
    EXPECT_THAT(Parse(WithFaces("0,1,2,-1")).TailLines, IsEmpty());
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { Parse(WithFaces("0,1,2,-1\n3,4")); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { Parse(kHead + "0 0 0,\n1"); }));
}

TEST(WrlPolygons, EmptyListsHaveNoBounds) {
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse(""); }, "no points"));
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse("#VRML V2.0 utf8\nShape { }\n"); }, "no points"));
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse(WithPoints("]\n")); }, "no points"));
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse(WithFaces("]\n")); }, "no faces"));
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse(kHead + kPoints + "}\n"); }, "no faces"));
    // Both words have to start their line.
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse("coord { point [\n" + kPoints); }, "no points"));
}

TEST(WrlPolygons, WhatIsNoNumber) {
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [] { Parse(WithPoints("a 0 0,\n]\n")); }, "\"a\""));
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [] { Parse(WithPoints("0 b 0,\n]\n")); }, "b"));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Parse(WithPoints("0 0 0]\n")); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [] { Parse(WithPoints("0 0 0,\n]}\n")); }, "]}"));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Parse(WithPoints("0 0 0,,,\n]\n")); })) << "two empty tokens";
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Parse(WithFaces("0,x,2,-1\n]")); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Parse(WithPoints("nan 0 0,\n]\n")); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Parse(WithPoints("1e999 0 0,\n]\n")); }));
}

std::string Repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i) all += text;
    return all;
}

TEST(WrlPolygons, AThousandLinesAGroup) {
    EXPECT_EQ(Parse(Repeated("#\n", 999) + WithFaces("0,1,2,-1\n]\n")).HeadLines.size(), 1000u);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse(Repeated("#\n", 1000) + WithFaces("0,1,2,-1\n]\n")); },
        "1000 lines before"));
    const std::string lists = kHead + kPoints;
    EXPECT_EQ(Parse(lists + Repeated("}\n", 999) + kMid + "0,1,2,-1\n]\n").MidLines.size(), 1000u);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Parse(lists + Repeated("}\n", 1000) + kMid + "0,1,2,-1\n]\n"); },
        "1000 lines between"));
    EXPECT_EQ(Parse(WithFaces("0,1,2,-1\n]\n") + Repeated("}\n", 1000)).TailLines.size(), 1000u);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [] { Parse(WithFaces("0,1,2,-1\n]\n") + Repeated("}\n", 1001)); },
        "1000 lines behind"));
}

TEST(WrlPolygons, AMillionEntriesAList) {
    const std::string million = Repeated("1 2 3,\n", 1000000);
    EXPECT_EQ(Parse(WithPoints(million + "]\n")).Points.size(), 1000000u);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Parse(WithPoints(million + "1 2 3,\n]\n")); }, "points"));
    const std::string faces = Repeated("0,1,2,-1\n", 1000000);
    EXPECT_EQ(Parse(WithFaces(faces)).Faces.size(), 1000000u);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Parse(WithFaces(faces + "0,1,2,-1\n")); }, "faces"));
}

TEST(WrlPolygons, ReadsFiles) {
    const TempFolder folder;
    PutFile(folder / "m.wrl", "\xEF\xBB\xBF" + WithFaces("0,1,2,-1\n]\n"));
    EXPECT_EQ(ReadWrlPolygons(folder / "m.wrl").Points.size(), 3u);
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { ReadWrlPolygons(folder / "none.wrl"); }, "none.wrl"));
}

}  // namespace
}  // namespace crownlab
