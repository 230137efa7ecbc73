#include "desktop/digitised_points.h"

#include <gmock/gmock.h>

#include <cmath>

#include "support/expect_failure.h"
#include "support/random_numbers.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

TEST(DigitisedTexts, AreALineAPointAndALineBetweenAreas) {
    EXPECT_EQ(DigitisedText({{{1.5, -2}, {0.1, 1e-7}}, {}, {{-0.0, 1234567.125}}}),
              "1.5,-2\r\n0.1,1e-07\r\n-1\r\n0,1234567.125\r\n");
    EXPECT_EQ(DigitisedText({{}}), "");
    EXPECT_EQ(DigitisedText({{}, {{1, 2}}, {}}), "1,2\r\n") << "no line for areas without points";
}

TEST(DigitisedTexts, FallOnTheSpotWhenReadAgain) {
    const TempFolder folder;
    RandomNumbers random;
    DigitisedAreas areas{{}, {}};
    for (int i = 0; i < 500; ++i)
        areas[static_cast<std::size_t>(i % 2)].push_back({random.AnyFinite(), random.Mixed()});
    PutFile(folder / "digit.dat", DigitisedText(areas));
    EXPECT_EQ(ReadPointFile(folder / "digit.dat"), areas) << kRandomSeed;
    // And as the tools read one area.
    PutFile(folder / "one.dat", DigitisedText({areas[0]}));
    EXPECT_EQ(ReadDigitisedPoints(folder / "one.dat"), areas[0]);
}

TEST(DigitisedTexts, OfOthersAreReadToo) {
    const TempFolder folder;
    PutFile(folder / "a.dat", "\xEF\xBB\xBF 1 2\n\n3,4\r\n-1\r\n-1\n5\t6");
    EXPECT_EQ(ReadPointFile(folder / "a.dat"), (DigitisedAreas{{{1, 2}, {3, 4}}, {{5, 6}}}));
    PutFile(folder / "empty.dat", "");
    EXPECT_EQ(ReadPointFile(folder / "empty.dat"), DigitisedAreas{{}});
    for (const char* const bad : {"1,2\n3\n", "1,2,3\n", "a,b\n", "1;2\n", "nan,1\n", "-1,\n"}) {
        PutFile(folder / "bad.dat", bad);
        EXPECT_TRUE(FailsWith(
            FailureKind::TypeMismatch, [&] { ReadPointFile(folder / "bad.dat"); }, "bad.dat"))
            << bad;
    }
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { ReadPointFile(folder / "none.dat"); }));
}

TEST(DigitisedPoints, GoToTheLastArea) {
    DigitisedPoints points;
    points.StartNextArea();
    EXPECT_EQ(points.Areas().size(), 1u) << "the first is still empty";
    EXPECT_EQ(points.Add({1, 1}), (PointPlace{0, 0}));
    points.StartNextArea();
    points.StartNextArea();
    EXPECT_EQ(points.Add({2, 2}), (PointPlace{1, 0}));
    EXPECT_EQ(points.Areas(), (DigitisedAreas{{{1, 1}}, {{2, 2}}}));
    EXPECT_EQ(points.Count(), 2u);
}

TEST(DigitisedPoints, TakeEachChangeBackAndForth) {
    DigitisedPoints points;
    points.Add({1, 1});
    points.Add({2, 2});
    points.StartNextArea();
    points.Add({3, 3});
    points.Move({0, 1}, {2.5, 2}, DigitisedPoints::Drag::Begins);
    points.Move({0, 1}, {2.7, 2}, DigitisedPoints::Drag::GoesOn);
    points.Remove({1, 0});
    EXPECT_EQ(points.Areas(), (DigitisedAreas{{{1, 1}, {2.7, 2}}})) << "an emptied area goes";
    points.Undo();
    EXPECT_EQ(points.Areas(), (DigitisedAreas{{{1, 1}, {2.7, 2}}, {{3, 3}}}));
    points.Undo();
    EXPECT_EQ(points.Areas(), (DigitisedAreas{{{1, 1}, {2, 2}}, {{3, 3}}})) << "a drag is one change";
    points.Redo();
    EXPECT_EQ(points.At({0, 1}).x, 2.7);
    points.Add({9, 9});
    EXPECT_FALSE(points.CanRedo());
    while (points.CanUndo()) points.Undo();
    EXPECT_EQ(points.Areas(), DigitisedAreas{{}});
    points.Undo();
    EXPECT_EQ(points.Count(), 0u);
}

TEST(DigitisedPoints, KnowWhetherTheyAreSaved) {
    DigitisedPoints points;
    EXPECT_TRUE(points.IsSaved()) << "nothing would be lost";
    points.Add({1, 1});
    EXPECT_FALSE(points.IsSaved());
    points.MarkSaved();
    EXPECT_TRUE(points.IsSaved());
    points.StartNextArea();
    EXPECT_TRUE(points.IsSaved()) << "an area without points isn't written";
    points.Add({2, 2});
    EXPECT_FALSE(points.IsSaved());
    points.Undo();
    EXPECT_TRUE(points.IsSaved());
    points.Reset({{{4, 4}}});
    EXPECT_TRUE(points.IsSaved());
    EXPECT_FALSE(points.CanUndo());
    points.Replace({});
    EXPECT_TRUE(points.CanUndo());
    EXPECT_EQ(points.Areas(), DigitisedAreas{{}});
}

TEST(DigitisedPoints, DisregardPlacesThatArentThere) {
    DigitisedPoints points;
    points.Remove({0, 0});
    points.Move({3, 1}, {1, 1}, DigitisedPoints::Drag::Begins);
    EXPECT_FALSE(points.CanUndo());
    points.Add({1, 1});
    points.Remove({0, 0});
    EXPECT_EQ(points.Areas(), DigitisedAreas{{}}) << "the only area stays";
}

}  // namespace
}  // namespace crownlab
