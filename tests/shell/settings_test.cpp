#include "shell/settings.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "basis/result_file.h"
#include "shell/shell_state.h"
#include "support/expect_failure.h"
#include "support/ordinary_user.h"
#include "support/temp_folder.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

class SettingsTest : public ::testing::Test {
protected:
    SettingsTest() {
        Shell.ProgramFolder = Folder.Path();
        Shell.Surfer = &Surfer;
        Shell.Files = &Files;
    }
    static void Put(const std::string& bytes) { PutFile("Crownlab.ini", bytes); }

    TempFolder Folder;
    FileTable Files;
    Session Surfer;
    ShellState Shell;
};

TEST_F(SettingsTest, ReadsTwoLines) {
    Put("/my/teeth\r\nSurverV8\r\n");
    EXPECT_EQ(ReadSettings(Shell).DefaultDir, "/my/teeth");
    EXPECT_EQ(ReadSettings(Shell).VersionWord, "SurverV8");
    EXPECT_EQ(ReadDefaultDir(Shell), "/my/teeth");
}

TEST_F(SettingsTest, ReadsWholeLinesWithBlanksAndCommas) {
    Put(" /my teeth, all \nSurferV6");
    EXPECT_EQ(ReadSettings(Shell).DefaultDir, " /my teeth, all ");
    EXPECT_EQ(ReadSettings(Shell).VersionWord, "SurferV6");
}

TEST_F(SettingsTest, LooksAtNoThirdLine) {
    Put("a\nb\nc\n");
    EXPECT_EQ(ReadSettings(Shell).VersionWord, "b");
}

TEST_F(SettingsTest, ReadingTheFolderChangesNothingInMemory) {
    Put("/my/teeth\nSurferV6\n");
    Shell.DefaultDir = "/before";
    ReadDefaultDir(Shell);
    EXPECT_EQ(Shell.DefaultDir, "/before");
}

TEST_F(SettingsTest, FailsOnMissingLinesAndFiles) {
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { ReadSettings(Shell); }, "Crownlab.ini"));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { SaveSettings(Shell); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { SaveDefaultDir(Shell, "/x"); }));
    EXPECT_FALSE(std::filesystem::exists("Crownlab.ini")) << "the program never makes it";
    Put("/my/teeth\n");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { ReadSettings(Shell); }));
    EXPECT_EQ(ReadDefaultDir(Shell), "/my/teeth");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { SaveSettings(Shell); }));
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/my/teeth\n") << "read before it is written";
    Put("");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { ReadDefaultDir(Shell); }));
}

TEST_F(SettingsTest, SavesTheVersionInItsOtherSpelling) {
    Put("/my/teeth\nSurferV8\n");
    Surfer.SurferVersion = "SurferV6";
    SaveSettings(Shell);
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/my/teeth\r\nSurverV6\r\n");
    EXPECT_EQ(Shell.DefaultDir, "/my/teeth");
    Surfer.SurferVersion = "SurferV8";
    SaveSettings(Shell);
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/my/teeth\r\nSurverV8\r\n");
}

TEST_F(SettingsTest, SavesNoSecondLineForAnyOtherWord) {
    Put("/my/teeth\nSurferV8\n");
    Surfer.SurferVersion = "SurverV8";
    SaveSettings(Shell);
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/my/teeth\r\n");
}

TEST_F(SettingsTest, SavesTheFolderAndCopiesTheSecondLine) {
    Put("/my/teeth\nwhatever it is \n");
    Surfer.SurferVersion = "SurferV6";
    SaveDefaultDir(Shell, "/new");
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/new\r\nwhatever it is \r\n");
    EXPECT_EQ(Shell.DefaultDir, "/my/teeth") << "memory keeps the old folder";
    EXPECT_EQ(Surfer.SurferVersion, "whatever it is ");
}

TEST_F(SettingsTest, SavingClosesAllFilesOfTheProcess) {
    Put("/my/teeth\nSurferV8\n");
    ResultFile running(Files, "running.csv");
    running.Line("half");
    SaveDefaultDir(Shell, "/new");
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { running.Line("more"); }, "running.csv"));
    EXPECT_FALSE(std::filesystem::exists("running.csv"));
    ResultFile other(Files, "other.csv");
    Surfer.SurferVersion = "SurferV8";
    SaveSettings(Shell);
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { other.Commit(); }, "other.csv"));
}

TEST_F(SettingsTest, AProtectedFileStaysAsItIs) {
    using std::filesystem::perms;
    Put("/my/teeth\nSurferV8\n");
    std::filesystem::permissions("Crownlab.ini", perms::owner_read | perms::group_read | perms::others_read);
    const OrdinaryUser user(Folder.Path());
    ASSERT_TRUE(user.Holds());
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [&] { SaveDefaultDir(Shell, "/new"); }, "Crownlab.ini"));
    EXPECT_EQ(FileBytes("Crownlab.ini"), "/my/teeth\nSurferV8\n");
}

}  // namespace
}  // namespace crownlab
