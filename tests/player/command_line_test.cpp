#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/temp_folder.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace crownlab {
namespace {

/// What a run of the program left.
struct Outcome {
    int Status = -1;
    std::string Out;
    std::string Err;
};

/// Runs crownlab-play through the shell; `words` stands behind its name.
Outcome RunPlayer(const std::string& words) {
    const std::string command = "'" CROWNLAB_PLAYER "' " + words + " > run.out 2> run.err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileBytes("run.out"), FileBytes("run.err")};
}

constexpr const char* kUsage = "usage: crownlab-play [--trace] [--keep-going] SCRIPT [NAME=VALUE ...]\n";

class CommandLineTest : public ::testing::Test {
protected:
    TempFolder Folder;
};

TEST_F(CommandLineTest, SaysHowItIsUsed) {
    for (const char* const words : {"", "--trace", "--wrong a.play", "a.play noassignment", "a.play =x", "--",
                                    "a.play --trace", "a.play A=1 --keep-going"}) {
        PutFile("a.play", "");
        const Outcome run = RunPlayer(words);
        EXPECT_EQ(run.Status, 2) << words;
        EXPECT_EQ(run.Err, kUsage) << words;
        EXPECT_EQ(run.Out, "");
    }
}

TEST_F(CommandLineTest, ReadsTheScriptFromAFile) {
    PutFile("a.play", "start\nshow frmStartup.mnuSurf8\n");
    const Outcome run = RunPlayer("a.play");
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Out, "show frmStartup.mnuSurf8 = \"on\"\n");
    EXPECT_EQ(run.Err, "");
}

TEST_F(CommandLineTest, ReadsTheScriptFromStandardInput) {
    PutFile("a.play", "start\nset frmStartup.txtSurferPID $PID\nshow frmStartup.txtSurferPID");
    const Outcome run = RunPlayer("- PID=12 < a.play");
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Out, "show frmStartup.txtSurferPID = \"12\"\n");
}

TEST_F(CommandLineTest, NamesTheScriptInItsComplaints) {
    PutFile("a.play", "start\n\nwrong\n");
    EXPECT_EQ(RunPlayer("a.play").Err, "a.play: line 3: unknown statement \"wrong\"\n");
    EXPECT_EQ(RunPlayer("- < a.play").Err, "-: line 3: unknown statement \"wrong\"\n");
}

TEST_F(CommandLineTest, AMissingScriptIsAWrongScript) {
    const Outcome run = RunPlayer("gone.play");
    EXPECT_EQ(run.Status, 2);
    EXPECT_EQ(run.Err, "FileNotFound: gone.play\n");
    EXPECT_EQ(RunPlayer(".").Status, 2);
}

TEST_F(CommandLineTest, TakesOptionsAndValues) {
    PutFile("a.play", "open frmCSVView\npress frmCSVView.cmdViewCSV\nset frmCSVView.Text1 $A\nshow frmCSVView.Text1\n");
    const Outcome stops = RunPlayer("a.play A=1");
    EXPECT_EQ(stops.Status, 3);
    EXPECT_EQ(stops.Out.find("show"), std::string::npos);
    const Outcome goes = RunPlayer("--trace --keep-going a.play 'A=x = y'");
    EXPECT_EQ(goes.Status, 3);
    EXPECT_NE(goes.Out.find("show frmCSVView.Text1 = \"x = y\"\n"), std::string::npos);
}

TEST_F(CommandLineTest, AnExpectationThatFailsEndsWithOne) {
    PutFile("a.play", "start\nexpect frmStartup.mnuSurf6 on\n");
    const Outcome run = RunPlayer("a.play");
    EXPECT_EQ(run.Status, 1);
    EXPECT_EQ(run.Out, "expected frmStartup.mnuSurf6 = \"on\", found \"off\"\n");
}

TEST_F(CommandLineTest, ExitEndsWithZero) {
    PutFile("a.play", "start\npress frmStartup.mnuExit\nwrong\n");
    EXPECT_EQ(RunPlayer("a.play").Status, 0);
}

#ifdef __linux__
TEST_F(CommandLineTest, AFullDiskIsAFailureAndNoCrash) {
    PutFile("a.csv", "0,0,1\n1,0,2\n0,1,3\n1,1,4\n");
    PutFile("a.play",
            "open frmCSVView\nset frmCSVView.Text1 a.csv\npress frmCSVView.cmdReadCSV\n"
            "press frmCSVView.cmdOutputCSV\nset frmSaveFile.txtFileName out.csv\npress frmSaveFile.cmdOK\n");
    ASSERT_EQ(RunPlayer("a.play").Status, 0);
    std::filesystem::remove("out.csv");
    // No file may grow beyond nothing: the settings are there already, the printed lines go to a pipe.
    const std::string command = "(ulimit -f 0; '" CROWNLAB_PLAYER "' a.play) 2>&1 | cat > run.out";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(FileBytes("run.out"),
              "failure DiskFull in frmCSVView.cmdOutputCSV_Click: " + Folder.Path() + "/out.csv\n");
    EXPECT_FALSE(std::filesystem::exists("out.csv"));
}
#endif

}  // namespace
}  // namespace crownlab
