#include "player/player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "player/played.h"

namespace crownlab {
namespace {
namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* kSurface = "0,0,1\n1,0,2\n0,1,3\n1,1,4\n";

class PlayerTest : public ::testing::Test {
protected:
    PlayerTest() { PutFile("a.csv", kSurface); }

    /// The script is wrong in its last line, and says this about it.
    static void ExpectScriptError(const std::string& script, const std::string& text) {
        const Played played = Play(script);
        EXPECT_EQ(played.Status, kStatusScript) << script;
        const auto line = std::count(script.begin(), script.end(), '\n') + 1;
        EXPECT_THAT(played.Complaints, ElementsAre("line " + std::to_string(line) + ": " + text)) << script;
    }

    TempFolder Folder;
};

TEST_F(PlayerTest, AnEmptyScriptIsGoodAndOpensNothing) {
    const Played played = Play("# nothing\n\n");
    EXPECT_EQ(played.Status, kStatusGood);
    EXPECT_FALSE(fs::exists("Crownlab.ini")) << "no statement needed a window";
}

TEST_F(PlayerTest, WritesSettingsWhereThereAreNone) {
    EXPECT_EQ(Play("start").Status, kStatusGood);
    EXPECT_EQ(FileBytes("Crownlab.ini"), Folder.Path() + "\r\nSurferV8\r\n");
}

TEST_F(PlayerTest, LeavesSettingsAlone) {
    PutFile("Crownlab.ini", "/x\r\nSurferV6\r\n");
    EXPECT_EQ(Play("start\nexpect frmStartup.mnuSurf6 on").Status, kStatusGood);
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/x\r\nSurferV6\r\n");
}

TEST_F(PlayerTest, ProgramTellsWhereTheSettingsLie) {
    fs::create_directory("own");
    PutFile("own/Crownlab.ini", "/x\r\nSurferV6\r\n");
    EXPECT_EQ(Play("program own\nexpect frmStartup.mnuSurf6 on").Status, kStatusGood) << "starts by itself";
    EXPECT_FALSE(fs::exists("Crownlab.ini"));
    ExpectScriptError("program gone", "no folder gone");
    ExpectScriptError("start\nprogram own", "program comes too late: a window is open");
}

TEST_F(PlayerTest, FolderChangesWhereTheProcessStands) {
    fs::create_directory("sub");
    EXPECT_EQ(Play("folder sub\nopen frmDefDir\nexpect frmDefDir.Dir1 \"" + (Folder / "sub") + "\"").Status,
              kStatusGood);
    EXPECT_TRUE(fs::exists(Folder / "sub/Crownlab.ini")) << "the application's own folder is the current one";
}

TEST_F(PlayerTest, FolderHasToBeThere) { ExpectScriptError("folder gone", "PathNotFound: gone"); }

TEST_F(PlayerTest, RefusesWhatIsNoStatement) {
    ExpectScriptError("start\npres frmStartup.mnuSurf6", "unknown statement \"pres\"");
    ExpectScriptError("Start", "unknown statement \"Start\"");
    ExpectScriptError("\"\"", "unknown statement \"\"");
}

TEST_F(PlayerTest, NamesTheUsageOfAStatement) {
    ExpectScriptError("program", "usage: program DIR");
    ExpectScriptError("folder a b", "usage: folder DIR");
    ExpectScriptError("start now", "usage: start");
    ExpectScriptError("open", "usage: open FORM");
    ExpectScriptError("close", "usage: close FORM");
    ExpectScriptError("set a.b", "usage: set FORM.CONTROL VALUE");
    ExpectScriptError("set a.b c d", "usage: set FORM.CONTROL VALUE");
    ExpectScriptError("press", "usage: press FORM.CONTROL");
    ExpectScriptError("double", "usage: double FORM.CONTROL");
    ExpectScriptError("key a.b", "usage: key FORM.CONTROL NAME");
    ExpectScriptError("key-at-yield 1 a.b", "usage: key-at-yield N FORM.CONTROL NAME");
    ExpectScriptError("press-at-yield 1", "usage: press-at-yield N FORM.CONTROL");
    ExpectScriptError("close-at-yield 1", "usage: close-at-yield N FORM");
    ExpectScriptError("move a.b 1", "usage: move FORM.PICTURE X Y");
    ExpectScriptError("answer", "usage: answer BUTTON [write FILE X,Y ...]");
    ExpectScriptError("answer OK read f", "usage: answer BUTTON [write FILE X,Y ...]");
    ExpectScriptError("digitise", "usage: digitise FILE X,Y ...");
    ExpectScriptError("surfer", "usage: surfer on|off");
    ExpectScriptError("surfer maybe", "usage: surfer on|off");
    ExpectScriptError("show", "usage: show FORM.CONTROL");
    ExpectScriptError("save a.b", "usage: save FORM.PICTURE FILE");
    ExpectScriptError("expect a.b", "usage: expect FORM.CONTROL VALUE");
    ExpectScriptError("expect-file a", "usage: expect-file FILE GOLDEN");
    ExpectScriptError("expect-no-file", "usage: expect-no-file FILE");
}

TEST_F(PlayerTest, RefusesWindowsAndControlsThatAreNotThere) {
    ExpectScriptError("open frmGone", "no menu item opens frmGone");
    ExpectScriptError("open frmSaveFile", "no menu item opens frmSaveFile");
    ExpectScriptError("close frmDefDir", "the window frmDefDir is not open");
    ExpectScriptError("press frmDefDir.DirC", "the window frmDefDir is not open");
    ExpectScriptError("start\npress frmStartup.cmdGone", "there is no control frmStartup.cmdGone");
    ExpectScriptError("start\nshow frmStartup.cmdGone", "there is no control frmStartup.cmdGone");
    ExpectScriptError("start\nshow frmStartup", "\"frmStartup\" is not FORM.CONTROL");
    ExpectScriptError("start\nshow frmStartup.Line1", "frmStartup.Line1 has no value");
}

TEST_F(PlayerTest, RefusesWhatAPersonCannotReach) {
    ExpectScriptError("start\nclose frmStartup\npress frmStartup.mnuSurf6", "the window frmStartup is hidden");
    ExpectScriptError("start\nclose frmStartup\nclose frmStartup", "the window frmStartup is hidden");
    ExpectScriptError("open frmCSVView\npress frmCSVView.proGone", "there is no control frmCSVView.proGone");
    ExpectScriptError("open frmCSVView\npress frmCSVView.Text1", "frmCSVView.Text1 can't be pressed; use set");
    ExpectScriptError("open frmCSVView\npress frmCSVView.chkViewOnClick",
                      "frmCSVView.chkViewOnClick can't be pressed; use set");
    ExpectScriptError("open frmCSVView\ndouble frmCSVView.File1", "frmCSVView.File1 has no selected entry");
}

TEST_F(PlayerTest, ReadsWhatIsHidden) {
    EXPECT_EQ(Play("start\nclose frmStartup\nexpect frmStartup.mnuSurf8 on").Status, kStatusGood);
}

TEST_F(PlayerTest, SetsAndShowsEachKindOfControl) {
    const Played played = Play(
        "open frmCSVView\n"
        "show frmCSVView.Text1\nset frmCSVView.Text1 \"a b\"\nshow frmCSVView.Text1\n"
        "show frmCSVView.chkUseMinSlope\nset frmCSVView.chkUseMinSlope on\nshow frmCSVView.chkUseMinSlope\n"
        "set frmCSVView.optProcSlope on\nshow frmCSVView.optProcSlope\nshow frmCSVView.optProcAspect\n"
        "show frmCSVView.cmbPicBoxCopyTo\nset frmCSVView.cmbPicBoxCopyTo 4\nshow frmCSVView.cmbPicBoxCopyTo\n"
        "set frmCSVView.cmbPicBoxCopyTo \"\"\nshow frmCSVView.cmbPicBoxCopyTo\n"
        "set frmCSVView.vscSRHoriz 20\nshow frmCSVView.vscSRHoriz\nset frmCSVView.vscSRHoriz 9999\n"
        "show frmCSVView.vscSRHoriz\n"
        "show frmCSVView.cmdExit\nshow frmCSVView.fraContour\nshow frmCSVView.lblCopyTo\nshow frmCSVView.picBoxD\n"
        "show frmStartup.mnuSurf8\nshow frmStartup.mnuFile\nshow frmCSVView.MousePointer\n"
        "show frmCSVView.File1\nset frmCSVView.chkViewOnClick off\nset frmCSVView.File1 a.csv\nshow "
        "frmCSVView.Text1\n");
    EXPECT_THAT(played.Complaints, IsEmpty());
    EXPECT_THAT(played.Lines,
                ElementsAre("show frmCSVView.Text1 = \"\"", "show frmCSVView.Text1 = \"a b\"",
                            "show frmCSVView.chkUseMinSlope = \"off\"", "show frmCSVView.chkUseMinSlope = \"on\"",
                            "show frmCSVView.optProcSlope = \"on\"", "show frmCSVView.optProcAspect = \"off\"",
                            "show frmCSVView.cmbPicBoxCopyTo = \"1\"", "show frmCSVView.cmbPicBoxCopyTo = \"4\"",
                            "show frmCSVView.cmbPicBoxCopyTo = \"\"", "show frmCSVView.vscSRHoriz = \"20\"",
                            "show frmCSVView.vscSRHoriz = \"359\"", "show frmCSVView.cmdExit = \"Exit\"",
                            "show frmCSVView.fraContour = \"Contour\"", "show frmCSVView.lblCopyTo = \"to\"",
                            "show frmCSVView.picBoxD = \"313x313\"", "show frmStartup.mnuSurf8 = \"on\"",
                            "show frmStartup.mnuFile = \"&File\"", "show frmCSVView.MousePointer = \"0\"",
                            "show frmCSVView.File1 = \"a.csv\"", "show frmCSVView.Text1 = \"a.csv\""));
}

TEST_F(PlayerTest, RefusesValuesThatDoNotFit) {
    const std::string open = "open frmCSVView\n";
    const auto refused = [&](const std::string& control, const std::string& value) {
        ExpectScriptError(open + "set frmCSVView." + control + " \"" + value + "\"",
                          "frmCSVView." + control + " can't be set to \"" + value + "\"");
    };
    refused("chkUseMinSlope", "yes");
    refused("optProcSlope", "off");
    refused("cmbPicBoxCopyTo", "9");
    refused("vscSRHoriz", "x");
    refused("vscSRHoriz", "1 2");
    refused("vscSRHoriz", "");
    refused("File1", "gone.csv");
    refused("cmdExit", "x");
    refused("lblCopyTo", "x");
    refused("picBoxD", "x");
    refused("fraContour", "x");
}

TEST_F(PlayerTest, AnExpectationThatFailsEndsTheScriptWithOne) {
    const Played played = Play("start\nexpect frmStartup.mnuSurf8 off\nshow frmStartup.mnuSurf8");
    EXPECT_EQ(played.Status, kStatusExpectation);
    EXPECT_THAT(played.Lines, ElementsAre("expected frmStartup.mnuSurf8 = \"off\", found \"on\""));
    EXPECT_THAT(played.Complaints, IsEmpty());
}

TEST_F(PlayerTest, KeepGoingIsForFailuresOnly) {
    EXPECT_EQ(Play("start\nexpect frmStartup.mnuSurf8 off\n", {.KeepGoing = true, .Values = {}}).Status,
              kStatusExpectation);
    EXPECT_EQ(Play("start\nwrong\n", {.KeepGoing = true, .Values = {}}).Status, kStatusScript);
}

TEST_F(PlayerTest, ComparesFilesByteForByte) {
    PutFile("same", "x\r\ny\r\n");
    PutFile("golden", "x\r\ny\r\n");
    PutFile("other", "x\r\nz\r\n");
    PutFile("longer", "x\r\ny\r\nz");
    EXPECT_EQ(Play("expect-file same golden").Status, kStatusGood);
    EXPECT_THAT(Play("expect-file other golden").Lines,
                ElementsAre("expected file \"other\" = \"golden\", found a difference at byte 3, line 2"));
    EXPECT_THAT(Play("expect-file longer golden").Lines,
                ElementsAre("expected file \"longer\" = \"golden\", found a difference at byte 6, line 3"));
    EXPECT_EQ(Play("expect-file golden longer").Status, kStatusExpectation);
    EXPECT_THAT(Play("expect-file gone golden").Lines, ElementsAre("expected file \"gone\", found none"));
    ExpectScriptError("expect-file same gone", "FileNotFound: gone");
}

TEST_F(PlayerTest, LooksForFilesThatShouldNotBeThere) {
    EXPECT_EQ(Play("expect-no-file gone").Status, kStatusGood);
    EXPECT_THAT(Play("expect-no-file a.csv").Lines, ElementsAre("expected no file \"a.csv\", found one"));
    EXPECT_EQ(Play("expect-no-file .").Status, kStatusExpectation) << "nor folders";
}

TEST_F(PlayerTest, AFailureEndsTheScriptWithThree) {
    const Played played = Play("open frmCSVView\npress frmCSVView.cmdViewCSV\nshow frmCSVView.Text1");
    EXPECT_EQ(played.Status, kStatusFailure);
    ASSERT_EQ(played.Lines.size(), 1U);
    EXPECT_EQ(played.Lines[0].substr(0, 57), "failure SubscriptOutOfRange in frmCSVView.cmdViewCSV_Clic");
}

TEST_F(PlayerTest, KeepGoingGoesOnAndStillEndsWithThree) {
    const Played played = Play("open frmCSVView\npress frmCSVView.cmdViewCSV\nshow frmCSVView.cmdExit",
                               {.KeepGoing = true, .Values = {}});
    EXPECT_EQ(played.Status, kStatusFailure);
    ASSERT_EQ(played.Lines.size(), 2U);
    EXPECT_EQ(played.Lines[1], "show frmCSVView.cmdExit = \"Exit\"");
}

TEST_F(PlayerTest, AnswersBoxesInTheirOrder) {
    const Played played =
        Play("open frmCSVView\nanswer OK\npress frmCSVView.cmdReadCSV\npress frmCSVView.cmdReadCSV\n");
    EXPECT_THAT(played.Lines, ElementsAre("box \"Filename\" \"Choose csv filename\" -> OK",
                                          "box \"Filename\" \"Choose csv filename\" -> OK"));
    ExpectScriptError("answer Maybe", "\"Maybe\" is not a button");
    ExpectScriptError("open frmCSVView\nanswer Yes\npress frmCSVView.cmdReadCSV",
                      "the box \"Choose csv filename\" has no button Yes");
}

TEST_F(PlayerTest, DigitisesWhileABoxWaits) {
    const Played played = Play(
        "open frmCSVView\nanswer OK write digit.dat 1,2 3.5,4\nexpect-no-file digit.dat\npress frmCSVView.cmdReadCSV");
    EXPECT_EQ(played.Status, kStatusGood);
    EXPECT_EQ(FileBytes("digit.dat"), "1,2\r\n3.5,4\r\n");
    ExpectScriptError("answer OK write", "a file name is missing");
    ExpectScriptError("answer OK write f 12", "\"12\" is not a point x,y");
}

TEST_F(PlayerTest, DigitisesAtOnce) {
    EXPECT_EQ(Play("digitise digit.dat 1,2\nexpect-no-file gone").Status, kStatusGood);
    EXPECT_EQ(FileBytes("digit.dat"), "1,2\r\n");
    EXPECT_EQ(Play("digitise digit.dat").Status, kStatusGood);
    EXPECT_EQ(FileBytes("digit.dat"), "") << "a file without points";
    ExpectScriptError("digitise gone/digit.dat 1,2", "PathNotFound: gone/digit.dat");
}

TEST_F(PlayerTest, SavesPictures) {
    const Played played = Play(
        "open frmCSVView\nset frmCSVView.Text1 a.csv\npress frmCSVView.cmdReadCSV\nsave frmCSVView.picBoxD d.bmp\n");
    EXPECT_EQ(played.Status, kStatusGood);
    EXPECT_EQ(FileBytes("d.bmp").substr(0, 2), "BM");
    ExpectScriptError("open frmCSVView\nsave frmCSVView.picBoxD d.bmp", "frmCSVView.picBoxD holds no picture");
    ExpectScriptError("open frmCSVView\nsave frmCSVView.Text1 d.bmp", "frmCSVView.Text1 is not a picture box");
}

TEST_F(PlayerTest, MovesOverPicturesOnly) {
    ExpectScriptError("open frmCSVView\nmove frmCSVView.Text1 1 2", "frmCSVView.Text1 is not a picture box");
    ExpectScriptError("open frmCSVView\nmove frmCSVView.picBoxD 1 x", "\"x\" is not a position");
    ExpectScriptError("open frmCSVView\nmove frmCSVView.picBoxD \"\" 1", "\"\" is not a position");
    EXPECT_EQ(Play("open frmCSVView\nmove frmCSVView.picBoxD 1.5 -2").Status, kStatusGood);
}

TEST_F(PlayerTest, CountsYieldsFromOne) {
    for (const char* const count : {"0", "-1", "1.5", "x", "\"\"", "1e10"}) {
        EXPECT_EQ(Play("close-at-yield " + std::string(count) + " frmCSVView").Status, kStatusScript) << count;
    }
    EXPECT_EQ(Play("close-at-yield 1 frmCSVView").Status, kStatusGood) << "nothing yields, so nothing happens";
}

TEST_F(PlayerTest, SpeaksOfSurferAlready) { EXPECT_EQ(Play("surfer off\nsurfer on").Status, kStatusGood); }

TEST_F(PlayerTest, ReplacesNames) {
    EXPECT_EQ(Play("expect-no-file $NAME", {.Values = {{"NAME", "gone"}}}).Status, kStatusGood);
    ExpectScriptError("start\nset frmStartup.txtSurferPID $NAME", "unknown name $NAME");
}

TEST_F(PlayerTest, ExitEndsWithZero) {
    const Played played = Play("start\npress frmStartup.mnuExit\nwrong");
    EXPECT_EQ(played.Status, kStatusGood);
    EXPECT_THAT(played.Complaints, IsEmpty());
}

TEST_F(PlayerTest, AModalWindowTakesTheNextStatements) {
    const std::string read = "open frmCSVView\nset frmCSVView.Text1 a.csv\npress frmCSVView.cmdReadCSV\n";
    const std::string ask = read + "press frmCSVView.cmdOutputCSV\n";
    EXPECT_EQ(Play(ask + "set frmSaveFile.txtFileName b.csv\npress frmSaveFile.cmdOK\nexpect-file b.csv b.csv").Status,
              kStatusGood);
    ExpectScriptError(ask + "show frmCSVView.Text1", "frmSaveFile waits for an answer; frmCSVView can't be touched");
    ExpectScriptError(ask + "close frmCSVView", "frmSaveFile waits for an answer; frmCSVView can't be touched");
    ExpectScriptError(ask + "open frmStartup", "frmSaveFile waits for an answer; frmStartup can't be touched");
    const Played ends = Play(ask);
    EXPECT_EQ(ends.Status, kStatusScript);
}

TEST_F(PlayerTest, ExitInsideAModalWindowIsOutOfReach) {
    ExpectScriptError(
        "open frmCSVView\nset frmCSVView.Text1 a.csv\npress frmCSVView.cmdReadCSV\npress frmCSVView.cmdOutputCSV\n"
        "press frmStartup.mnuExit",
        "frmSaveFile waits for an answer; frmStartup can't be touched");
}

}  // namespace
}  // namespace crownlab
