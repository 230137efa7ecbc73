#include "forms/acts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "forms/sample_form.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "support/test_desk.h"

namespace crownlab {
namespace {
namespace fs = std::filesystem;

using Events = std::vector<std::string>;

class ActsTest : public ::testing::Test {
protected:
    ActsTest() {
        Services_.Windows.AddMaker("frmSample", [this] { return std::make_shared<SampleForm>(Services_.Ties); });
        Held = Services_.Windows.Load("frmSample");
        Window().Events.clear();
    }
    SampleForm& Window() { return static_cast<SampleForm&>(*Held); }
    Events Seen() { return std::exchange(Window().Events, {}); }

    TempFolder Folder;
    TestServices Services_;
    std::shared_ptr<Form> Held;
};

TEST_F(ActsTest, AssigningAFieldFiresNothing) {
    Window().txtA.Text = "x";
    Window().chkA.Checked = true;
    Window().cmbA.Selected = 1;
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(ActsTest, ATextFiresOneChangeIfItDiffers) {
    SetText(Window().txtA, "first");
    EXPECT_EQ(Seen(), Events{});
    SetText(Window().txtA, "second");
    EXPECT_EQ(Seen(), Events{"txtA_Change"});
    EXPECT_EQ(Window().txtA.Text, "second");
}

TEST_F(ActsTest, ATickFiresAClickIfItDiffers) {
    SetChecked(Window().chkA, false);
    EXPECT_EQ(Seen(), Events{});
    SetChecked(Window().chkA, true);
    EXPECT_EQ(Seen(), Events{"chkA_Click"});
}

TEST_F(ActsTest, OptionsOfOneParentExcludeOneAnother) {
    SelectOption(Window().optB);
    EXPECT_FALSE(Window().optA.Selected);
    EXPECT_TRUE(Window().optB.Selected);
    EXPECT_TRUE(Window().optC.Selected) << "it lies on the form, not in the frame";
    EXPECT_EQ(Seen(), Events{"optB_Click"}) << "the one that goes out hears nothing";
    SelectOption(Window().optB);
    EXPECT_EQ(Seen(), Events{"optB_Click"}) << "a selection clicks always";
}

TEST_F(ActsTest, AComboBoxTakesItsEntries) {
    SelectEntry(Window().cmbA, "two");
    EXPECT_EQ(Window().cmbA.Selected, 1);
    SelectEntry(Window().cmbA, "two");
    EXPECT_EQ(Seen(), (Events{"cmbA_Click", "cmbA_Click"}));
    SelectEntry(Window().cmbA, "");
    EXPECT_EQ(Window().cmbA.Selected, -1);
    EXPECT_EQ(Seen(), Events{"cmbA_Click"});
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { SelectEntry(Window().cmbA, "three"); }, "three"));
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { SelectEntry(Window().cmbA, 2); }, "cmbA"));
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { SelectEntry(Window().cmbA, -2); }, "cmbA"));
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(ActsTest, BarsAreLimitedToTheirRange) {
    SetValue(Window().scrA, 15);
    EXPECT_EQ(Window().scrA.Value, 15);
    SetValue(Window().scrA, 99);
    EXPECT_EQ(Window().scrA.Value, 20);
    SetValue(Window().scrA, 50);
    EXPECT_EQ(Seen(), (Events{"scrA_Change", "scrA_Change"})) << "at the end already: no change";
    SetValue(Window().scrA, -5);
    EXPECT_EQ(Window().scrA.Value, 10);
    SetValue(Window().sldA, 3);
    EXPECT_EQ(Seen(), (Events{"scrA_Change", "sldA_Change"}));
}

TEST_F(ActsTest, TabsTurnToTheirPages) {
    SelectPage(Window().tabA, 1);
    EXPECT_EQ(Window().tabA.Index, 1);
    SelectPage(Window().tabA, 1);
    EXPECT_EQ(Seen(), (Events{"tabA_Click", "tabA_Click"}));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { SelectPage(Window().tabA, 2); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { SelectPage(Window().tabA, -1); }));
}

TEST_F(ActsTest, ListsStartInTheCurrentFolder) {
    EXPECT_EQ(Window().dirA.Path, Folder.Path());
    EXPECT_EQ(Window().filA.Path, Folder.Path());
    EXPECT_EQ(Window().drvA.Drive, "/");
}

TEST_F(ActsTest, ADriveIsTheRootWhereThereAreNone) {
    SetPath(Window().drvA, "/");
    SetPath(Window().drvA, "/ho");
    SetPath(Window().drvA, "/home/someone");
    EXPECT_EQ(Window().drvA.Drive, "/");
    EXPECT_EQ(Seen(), Events{}) << "it holds that already";
    Window().drvA.Drive = "elsewhere";
    SetPath(Window().drvA, "/ho");
    EXPECT_EQ(Window().drvA.Drive, "/");
    EXPECT_EQ(Seen(), Events{"drvA_Change"});
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { SetPath(Window().drvA, ""); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::PathNotFound, [&] { SetPath(Window().drvA, "home"); }, "home"));
}

TEST_F(ActsTest, AFolderListKeepsAbsolutePathsWithoutASeparatorAtTheEnd) {
    fs::create_directory("sub");
    SetPath(Window().dirA, "sub/");
    EXPECT_EQ(Window().dirA.Path, Folder / "sub");
    SetPath(Window().dirA, Folder / "sub/../sub");
    EXPECT_EQ(Seen(), Events{"dirA_Change"}) << "the same folder is no change";
    SetPath(Window().dirA, "/");
    EXPECT_EQ(Window().dirA.Path, "/");
    for (const char* const path : {"", "gone", "/gone/deeper"}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::PathNotFound, [&] { SetPath(Window().dirA, path); }, path))
            << path;
    }
    PutFile(Folder / "file", "");
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { SetPath(Window().dirA, Folder / "file"); }));
    EXPECT_EQ(Window().dirA.Path, "/");
}

TEST_F(ActsTest, AFileListIsReadAnewWhenItsFolderOrPatternIsSet) {
    fs::create_directory("sub");
    PutFile("sub/b.csv", "");
    PutFile("sub/A.CSV", "");
    PutFile("sub/c.txt", "");
    SetPath(Window().filA, "sub");
    EXPECT_EQ(Window().filA.Entries, (Events{"A.CSV", "b.csv"}));
    PutFile("sub/d.csv", "");
    EXPECT_EQ(Window().filA.Entries, (Events{"A.CSV", "b.csv"})) << "not before it is read again";
    Refresh(Window().filA);
    EXPECT_EQ(Window().filA.Entries, (Events{"A.CSV", "b.csv", "d.csv"}));
    SetPattern(Window().filA, "*.txt");
    EXPECT_EQ(Window().filA.Entries, Events{"c.txt"});
    EXPECT_EQ(Seen(), Events{});
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { SetPath(Window().filA, "gone"); }));
}

TEST_F(ActsTest, AFileIsSelectedWithItsClick) {
    PutFile("a.csv", "");
    PutFile("b.csv", "");
    SelectEntry(Window().filA, "b.csv");
    EXPECT_EQ(Window().filA.FileName, "b.csv");
    SelectEntry(Window().filA, "b.csv");
    EXPECT_EQ(Seen(), (Events{"filA_Click", "filA_Click"}));
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { SelectEntry(Window().filA, "c.csv"); }, "c.csv"));
    Refresh(Window().filA);
    EXPECT_EQ(Window().filA.FileName, "b.csv") << "still there";
    fs::remove("b.csv");
    Refresh(Window().filA);
    EXPECT_EQ(Window().filA.FileName, "");
    SelectEntry(Window().filA, "a.csv");
    SetPattern(Window().filA, "*.*");
    EXPECT_EQ(Window().filA.FileName, "") << "a new pattern selects none";
}

TEST_F(ActsTest, PressesKeysAndMovesReachTheirHandlers) {
    Press(Window().cmdA);
    Press(Window().picA);
    Press(Window().lblA);
    DoubleClick(Window().filA);
    PressKey(Window().cmdA, "Escape");
    MoveMouse(Window().picA, 1.5, 2);
    EXPECT_EQ(Seen(), (Events{"cmdA_Click", "picA_Click", "filA_DblClick", "key Escape", "move 1.5 2"}));
}

}  // namespace
}  // namespace crownlab
