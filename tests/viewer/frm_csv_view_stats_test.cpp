#include <gmock/gmock.h>

#include <algorithm>

#include "basis/paths.h"
#include "forms/acts.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer/surface_area.h"
#include "viewer_window.h"

namespace crownlab {
namespace {

/// The window's teeth are made by hand here: the reader gathers a tooth in few cells, too few to tell rows from
/// columns.
class ViewerStatsTest : public ::testing::Test {
protected:
    void AddTooth(int numX, int numY, std::initializer_list<double> z) {
        Tooth tooth;
        tooth.NumX = tooth.Grid.NumX = numX;
        tooth.NumY = tooth.Grid.NumY = numY;
        tooth.Grid.Z = z;
        tooth.Grid.Places = std::make_shared<std::vector<Place>>(z.size(), Place{1, 1});
        tooth.ZMin = std::min(z);
        tooth.ZMax = std::max(z);
        tooth.Params[0] = static_cast<double>(State().Teeth.size() + 1);
        State().Teeth.push_back(tooth);
        State().NumTeeth = static_cast<int>(State().Teeth.size());
        State().StepX = State().StepY = 1;
    }
    /// Presses "All teeth" and confirms the name in the dialog.
    std::string Table() {
        window_.Screen.InModal = [](crownlab::Form& dialog) { cmdOK_Click(static_cast<FrmSaveFile&>(dialog)); };
        Press(Form().cmdCalcStatsAll);
        return FileBytes(folder_ / "testcalc.csv");
    }
    std::vector<double> FirstParams() {
        std::vector<double> params;
        for (const Tooth& tooth : State().Teeth) params.push_back(tooth.Params[0]);
        return params;
    }
    FrmCSVView& Form() { return window_.Form(); }
    ViewerState& State() { return Form().State; }

    TempFolder folder_;
    ViewerWindow window_;
};

TEST_F(ViewerStatsTest, OneTooth) {
    AddTooth(3, 2, {1, 1, 1, 1, 1, 1});
    Form().txtCurrTooth.Text = "1";
    Press(Form().cmdCalcStats);
    EXPECT_EQ(Form().txtSA.Text, "2");
    EXPECT_EQ(Form().txtVol.Text, "6");
    EXPECT_EQ(Form().txtSAVolRat.Text, "0.33333");
}

TEST_F(ViewerStatsTest, OneToothRounds) {
    AddTooth(2, 2, {0.001, 0, 0.123, 0.006});
    Form().txtCurrTooth.Text = "1 of 1";
    Press(Form().cmdCalcStats);
    EXPECT_EQ(Form().txtSA.Text, "1.01");
    EXPECT_EQ(Form().txtVol.Text, "0.13");
}

TEST_F(ViewerStatsTest, AVolumeOfZeroFailsBehindTheTwoSums) {
    AddTooth(2, 2, {0, 0, 0, 0});
    Form().txtCurrTooth.Text = "1";
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { Press(Form().cmdCalcStats); }));
    EXPECT_EQ(Form().txtSA.Text, "0");
    EXPECT_EQ(Form().txtVol.Text, "0");
    EXPECT_EQ(Form().txtSAVolRat.Text, "");
}

TEST_F(ViewerStatsTest, ZeroLevelIsTheTablesOnly) {
    AddTooth(2, 2, {0.1, 0.1, 0.1, 0.1});
    Form().chkCSSort.Checked = false;
    // Three cells of the last row and column stay.
    EXPECT_EQ(Table(), "\"ToothNo\",\"MaxHt\",\"TotalSA\",\"TotalVol\",\"TotalSAVolRat\",\r\n1,.1,0,.3,0,\r\n");
    SelectOption(Form().optCMinNA);
    EXPECT_EQ(Table(), "\"ToothNo\",\"MaxHt\",\"TotalSA\",\"TotalVol\",\"TotalSAVolRat\",\r\n1,.1,1,.4,2.5,\r\n");
    SelectOption(Form().optCMinProp);
    EXPECT_EQ(Table(), "\"ToothNo\",\"MaxHt\",\"TotalSA\",\"TotalVol\",\"TotalSAVolRat\",\r\n1,.1,0,.3,0,\r\n");
    Form().txtCurrTooth.Text = "1";
    Press(Form().cmdCalcStats);
    EXPECT_EQ(Form().txtSA.Text, "1");
}

TEST_F(ViewerStatsTest, OnlyCheckedColumns) {
    AddTooth(2, 2, {1, 1, 1, 2});
    AddTooth(2, 2, {3, 1, 1, 2});
    Form().chkCSSort.Checked = false;
    SetChecked(Form().chkCSSA, false);
    EXPECT_FALSE(Form().chkCSSAVolRat.Checked) << "the ratio needs both";
    EXPECT_EQ(Table(), "\"ToothNo\",\"MaxHt\",\"TotalVol\",\r\n1,2,5,\r\n2,3,7,\r\n");
    SetChecked(Form().chkCSVol, false);
    SetChecked(Form().chkCSMaxHt, false);
    EXPECT_EQ(Table(), "\"ToothNo\",\r\n1,\r\n2,\r\n");
    // A ratio without its parts is a division by zero, and no file is left.
    SetChecked(Form().chkCSSAVolRat, true);
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { Table(); }));
    EXPECT_EQ(FileBytes(folder_ / "testcalc.csv"), "\"ToothNo\",\r\n1,\r\n2,\r\n") << "the last whole file";
    EXPECT_EQ(folder_.EntryCount(), 1u);
}

TEST_F(ViewerStatsTest, TheRatioStaysWhileBothPartsAreChecked) {
    SetChecked(Form().chkCSSAVolRat, true);
    SetChecked(Form().chkCSVol, false);
    EXPECT_FALSE(Form().chkCSSAVolRat.Checked);
    SetChecked(Form().chkCSSAVolRat, true);
    SetChecked(Form().chkCSVol, true);
    EXPECT_TRUE(Form().chkCSSAVolRat.Checked);
}

TEST_F(ViewerStatsTest, ACancelledDialogWritesNothing) {
    AddTooth(2, 2, {1, 1, 1, 2});
    std::string proposed;
    window_.Screen.InModal = [&](crownlab::Form& dialog) {
        proposed = static_cast<FrmSaveFile&>(dialog).txtFileName.Text;
        cmdCancel_Click(static_cast<FrmSaveFile&>(dialog));
    };
    Press(Form().cmdCalcStatsAll);
    EXPECT_EQ(proposed, "testcalc.csv");
    EXPECT_EQ(folder_.EntryCount(), 0u);
    EXPECT_TRUE(State().Table.MaxHt.empty());
}

TEST_F(ViewerStatsTest, SortsTeethByTheChosenKey) {
    AddTooth(2, 2, {3, 3, 3, 9});  // volume 18
    AddTooth(2, 2, {1, 1, 1, 7});  // volume 10
    AddTooth(2, 2, {8, 8, 7, 2});  // volume 25
    Table();
    EXPECT_EQ(FirstParams(), (std::vector<double>{2, 3, 1})) << "by height";
    EXPECT_EQ(State().CurrTooth, 1);
    EXPECT_EQ(State().CellGrid.Z, (std::vector<double>{1, 1, 1, 7}));
    EXPECT_EQ(State().Data.ZMax, 7);
    EXPECT_EQ(State().Table.MaxHt, (std::vector<double>{7, 8, 9}));
    EXPECT_EQ(State().Table.Vol, (std::vector<double>{10, 25, 18}));
    SelectOption(Form().optCSVolSort);
    Press(Form().cmdCSSort);
    EXPECT_EQ(FirstParams(), (std::vector<double>{2, 1, 3}));
    EXPECT_EQ(State().Table.Vol, (std::vector<double>{10, 18, 25}));
    EXPECT_EQ(State().Table.MaxHt, (std::vector<double>{7, 9, 8}));
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(State().Table.SA[i], MeasureTooth(State().Teeth[i].Grid, 0.1).SurfaceArea);
        EXPECT_EQ(State().Table.SAVolRat[i], State().Table.SA[i] / State().Table.Vol[i]);
    }
}

TEST_F(ViewerStatsTest, SortsWithoutShowing) {
    AddTooth(2, 2, {3, 3, 3, 9});
    AddTooth(2, 2, {1, 1, 1, 7});
    Form().chkCSShowSorted.Checked = false;
    Table();
    EXPECT_EQ(FirstParams(), (std::vector<double>{1, 2}));
    EXPECT_EQ(State().Table.MaxHt, (std::vector<double>{9, 7}));
    EXPECT_TRUE(State().CellGrid.Empty());
}

TEST_F(ViewerStatsTest, NoKeyNoSort) {
    AddTooth(2, 2, {3, 3, 3, 9});
    AddTooth(2, 2, {1, 1, 1, 7});
    SelectOption(Form().optCSLaPSort);
    Table();
    EXPECT_EQ(FirstParams(), (std::vector<double>{1, 2}));
    // A key whose column was never checked isn't there.
    State().Table = {};
    SelectOption(Form().optCSSASort);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Press(Form().cmdCSSort); }, "sort key"));
}

TEST_F(ViewerStatsTest, KeysOfAnotherFileAreTooFew) {
    AddTooth(2, 2, {3, 3, 3, 9});
    Table();
    AddTooth(2, 2, {1, 1, 1, 7});
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Press(Form().cmdCSSort); }));
}

TEST_F(ViewerStatsTest, AllTeethBeforeAnyRead) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Table(); }));
    EXPECT_EQ(folder_.EntryCount(), 0u);
}

TEST_F(ViewerStatsTest, AToothWithoutCellsIsALineOfZeros) {
    AddTooth(2, 2, {3, 3, 3, 9});
    State().Teeth.emplace_back();
    State().NumTeeth = 2;
    Form().chkCSSort.Checked = false;
    SetChecked(Form().chkCSSAVolRat, false);
    EXPECT_THAT(Table(), ::testing::EndsWith("\r\n2,0,0,0,\r\n"));
}

TEST_F(ViewerStatsTest, AnEmptyToothThatComesFirstCannotBeShown) {
    AddTooth(2, 2, {3, 3, 3, 9});
    State().Teeth.emplace_back();
    State().NumTeeth = 2;
    SetChecked(Form().chkCSSAVolRat, false);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Table(); }, "MultiGrid"));
    EXPECT_TRUE(IsFile(folder_ / "testcalc.csv"));
    EXPECT_EQ(FirstParams(), (std::vector<double>{0, 1}));
    EXPECT_EQ(State().Table.MaxHt, (std::vector<double>{0, 9}));
}

TEST_F(ViewerStatsTest, AreasBeyondNumbersOverflow) {
    AddTooth(2, 2, {1e200, 0, 0, 0});
    Form().txtCurrTooth.Text = "1";
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Press(Form().cmdCalcStats); }, "SA"));
}

TEST_F(ViewerStatsTest, ShannonHeightOfTheWorkingCopy) {
    PutFile(folder_ / "s.csv", "0,0,1\n1,0,1\n2,0,3\n0,1,1\n1,1,1.9\n2,1,1\n");
    window_.Choose("s.csv");
    Press(Form().cmdReadCSV);
    Press(Form().cmdShannonInfo);
    // Rows of bands 1 1 3 and 1 1 1: runs of 2, 1 and 3 of 6 cells.
    EXPECT_EQ(Form().lblShannonInfo.Caption, "2.5714");
    EXPECT_EQ(State().ProcGrid.z(1, 1), kEmptyCellZ);
    EXPECT_EQ(State().ProcGrid.z(2, 2), 0);
}

}  // namespace
}  // namespace crownlab
