#include "shell/frm_startup.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>

#include "basis/paths.h"
#include "forms/acts.h"
#include "shell/frm_about.h"
#include "shell/shell_state.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "support/test_desk.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

class StartupTest : public ::testing::Test {
protected:
    StartupTest() {
        Shell.ProgramFolder = Folder.Path();
        Shell.Surfer = &Surfer;
        Shell.Files = &Services_.Files;
        Services_.Windows.AddMaker("frmStartup",
                                   [this] { return std::make_shared<FrmStartup>(Services_.Ties, Shell); });
        Services_.Windows.AddMaker("frmAbout", [this] { return std::make_shared<FrmAbout>(Services_.Ties); });
    }
    FrmStartup& Start(const std::string& settings) {
        PutFile("Crownlab.ini", settings);
        Services_.Windows.Show("frmStartup");
        return static_cast<FrmStartup&>(*Services_.Windows.Find("frmStartup"));
    }

    TempFolder Folder;
    TestServices Services_;
    Session Surfer;
    ShellState Shell;
};

TEST_F(StartupTest, TakesBothLines) {
    Start("/my/teeth\nSurferV6\n");
    EXPECT_EQ(Shell.DefaultDir, "/my/teeth");
    EXPECT_EQ(Surfer.SurferVersion, "SurferV6");
    EXPECT_EQ(SurferClassName(Surfer, Services_.Windows), "Surfer.APP");
}

TEST_F(StartupTest, KeepsAnUnknownWordUntilAToolAsksForTheVersion) {
    const FrmStartup& form = Start("/my/teeth\nSurverV6\n");
    EXPECT_EQ(Surfer.SurferVersion, "SurverV6");
    EXPECT_TRUE(form.mnuSurf8.Checked);
    EXPECT_FALSE(form.mnuSurf6.Checked);
    EXPECT_EQ(SurferClassName(Surfer, Services_.Windows), "Surfer.Application");
    EXPECT_EQ(Surfer.SurferVersion, "SurferV8");
}

TEST_F(StartupTest, WithNeitherVersionCheckedThereIsNoClass) {
    FrmStartup& form = Start("/my/teeth\nSurferV8\n");
    form.mnuSurf8.Checked = false;
    Surfer.SurferVersion = "as it was";
    EXPECT_EQ(SurferClassName(Surfer, Services_.Windows), "");
    EXPECT_EQ(Surfer.SurferVersion, "as it was");
}

TEST_F(StartupTest, DoesNotComeUpWithoutItsSettings) {
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { Services_.Windows.Show("frmStartup"); }));
    EXPECT_FALSE(Services_.Windows.IsLoaded("frmStartup"));
    EXPECT_TRUE(Services_.Screen.Shown.empty());
}

TEST_F(StartupTest, OnlyTheNameClickedLastIsRed) {
    FrmStartup& form = Start("/my/teeth\nSurferV8\n");
    const std::vector<Label*> names{&form.lblConversion, &form.lblTooth,     &form.lblOutlines,
                                    &form.lblPlane,      &form.lblTransform, &form.lblLandmark};
    for (Label* const clicked : names) {
        Press(*clicked);
        for (const Label* const name : names) EXPECT_EQ(name->ForeColour, name == clicked ? kRed : kButtonTextColour);
        EXPECT_NE(form.lblDescrip.Caption, "");
    }
    Press(form.Label2);
    for (const Label* const name : names) EXPECT_EQ(name->ForeColour, kButtonTextColour);
    EXPECT_EQ(form.lblDescrip.Caption, "");
}

TEST_F(StartupTest, EachMenuItemOpensAWindowOfItsOwn) {
    const FrmStartup& form = Start("/my/teeth\nSurferV8\n");
    std::set<std::string> windows;
    for (const MenuWindow& entry : MenuWindows()) {
        EXPECT_NE(form.Find(entry.Item), nullptr) << entry.Item;
        windows.insert(entry.Window);
    }
    EXPECT_EQ(windows.size(), 16U) << "frmSaveFile, the seventeenth, has no menu item";
}

TEST_F(StartupTest, OpensNoSecondWindow) {
    FrmStartup& form = Start("/my/teeth\nSurferV8\n");
    Press(form.mnuAbout);
    const std::shared_ptr<Form> about = Services_.Windows.Find("frmAbout");
    Press(form.mnuAbout);
    EXPECT_EQ(Services_.Windows.Find("frmAbout"), about);
    EXPECT_EQ(Services_.Screen.Shown, (std::vector<std::string>{"frmStartup", "frmAbout", "frmAbout"}));
}

TEST_F(StartupTest, AboutTellsWhenTheProgramWasMade) {
    Start("/my/teeth\nSurferV8\n");
    EXPECT_EQ(Services_.Windows.Get<Label>("frmAbout", "Label5").Caption, "Created: " + FileTimeText(CROWNLAB_PROGRAM));
}

TEST_F(StartupTest, ExitIsNoFailure) {
    FrmStartup& form = Start("/my/teeth\nSurferV8\n");
    EXPECT_THROW(Press(form.mnuExit), ExitProgram);
}

TEST_F(StartupTest, NewEndsInAFailure) {
    FrmStartup& form = Start("/my/teeth\nSurferV8\n");
    EXPECT_TRUE(FailsWith(FailureKind::ObjectNotSet, [&] { Press(form.mnuNew); }));
}

}  // namespace
}  // namespace crownlab
