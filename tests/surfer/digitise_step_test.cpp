#include "surfer/digitise_step.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "surfer/scripted_program.h"

namespace crownlab {
namespace {

class Digitise : public ::testing::Test {
protected:
    bool Ask() { return AskToDigitise(Services_.Ties, Step); }
    const MessageBox& Box() { return Services_.Screen.Boxes.at(0); }

    TempFolder Folder;
    TestServices Services_;
    DigitiseStep Step{.Folder = Folder / "",
                      .Base = "tooth",
                      .Prompt = {"Use 'Digitise' to outline cusp."},
                      .CopySuffix = "points.dat"};
};

TEST_F(Digitise, TheBoxAsksWithThePromptAndTheSaveInstruction) {
    EXPECT_TRUE(Ask());
    EXPECT_EQ(Box().Title, "Digitise map");
    EXPECT_EQ(Box().Text,
              "Use 'Digitise' to outline cusp.\n\r"
              "Save as digit.dat in same directory as grid then press 'OK'.");
    EXPECT_EQ(Box().Buttons, (std::vector<Button>{Button::Ok, Button::Cancel}));
}

TEST_F(Digitise, FurtherLinesStandBetween) {
    Step.Prompt = {"Use 'Digitise' to define three points: ", "1) point on crest to take rake angle from.",
                   "2) point along crest. ", "3) point on rake surface. "};
    Step.File = "digit2.dat";
    Ask();
    EXPECT_EQ(Box().Text,
              "Use 'Digitise' to define three points: \n\r"
              "1) point on crest to take rake angle from.\n\r"
              "2) point along crest. \n\r"
              "3) point on rake surface. \n\r"
              "Save as digit2.dat in same directory as grid then press 'OK'.");
}

TEST_F(Digitise, TheBoxOffersTheMapOfTheGrid) {
    Ask();
    EXPECT_EQ(Box().Digitise.Grid, Folder / "tooth.grd");
    EXPECT_EQ(Box().Digitise.PointFile, Folder / "digit.dat");
    Services_.Screen.Boxes.clear();
    Step.Extension = ".GRD";
    Ask();
    EXPECT_EQ(Box().Digitise.Grid, Folder / "tooth.GRD");
}

TEST_F(Digitise, CancelSaysSoAndChangesNothing) {
    PutFile("digit.dat", "1,2\n");
    Services_.Screen.Answers = {Button::Cancel};
    EXPECT_FALSE(Ask());
    EXPECT_EQ(Folder.EntryCount(), 1U);
}

TEST_F(Digitise, TheCopyReplacesAnOlderOneByteForByte) {
    PutFile("digit.dat", "1,2\n3 4\r\nno number");
    PutFile("toothpoints.dat", "older and longer than the new one\r\n");
    CopyDigitised(Services_.Ties, Step);
    EXPECT_EQ(FileBytes("toothpoints.dat"), "1,2\n3 4\r\nno number");
    EXPECT_EQ(FileBytes("digit.dat"), "1,2\n3 4\r\nno number") << "the person's file stays";
}

TEST_F(Digitise, WhatIsThereIsTakenForDigitised) {
    PutFile("digit.dat", "old\n");
    EXPECT_TRUE(Ask());
    CopyDigitised(Services_.Ties, Step);
    EXPECT_EQ(FileBytes("toothpoints.dat"), "old\n");
}

TEST_F(Digitise, AMissingFileFailsAndLeavesAnOlderCopyAlone) {
    PutFile("toothpoints.dat", "older\n");
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { CopyDigitised(Services_.Ties, Step); }, "digit.dat"));
    EXPECT_EQ(FileBytes("toothpoints.dat"), "older\n");
}

TEST_F(Digitise, AMissingFolderFails) {
    Step.Folder = Folder / "missing/";
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { CopyDigitised(Services_.Ties, Step); }));
}

}  // namespace
}  // namespace crownlab
