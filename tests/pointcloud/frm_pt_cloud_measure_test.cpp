#include <gmock/gmock.h>

#include <memory>

#include "forms/acts.h"
#include "pointcloud/frm_pt_cloud.h"
#include "shell/shell_state.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "support/test_desk.h"

namespace crownlab {
namespace {

/// The window without a screen, over a folder of its own.
class PointCloudMeasureTest : public ::testing::Test {
protected:
    PointCloudMeasureTest() {
        shell_.Files = &services_.Files;
        services_.Windows.AddMaker("frmPtCloud",
                                   [this] { return std::make_shared<FrmPtCloud>(services_.Ties, shell_); });
        services_.Windows.Show("frmPtCloud");
    }
    FrmPtCloud& Form() { return static_cast<FrmPtCloud&>(*services_.Windows.Load("frmPtCloud")); }
    /// Adds a file of the folder to the batch.
    void Add(const std::string& name) { Form().Batch.push_back(MakeBatchFile(folder_.Path(), name)); }
    /// A file of points along x, eight to a unit, each with more columns behind it.
    void PutRow(const std::string& name, int count, const std::string& more = {}) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += std::to_string(i / 8) + "." + std::to_string(i % 8 * 125) + ",0,0" + more + "\n";
        PutFile(folder_ / name, text);
    }

    TempFolder folder_;
    TestServices services_;
    ShellState shell_;
};

TEST_F(PointCloudMeasureTest, TheSecondFileIsLimitedTheFirstIsNot) {
    PutRow("large.txt", 32768);
    PutRow("fit.txt", 32767);
    Add("large.txt");
    Add("fit.txt");
    Press(Form().cmdEnamThickCalc);
    EXPECT_EQ(Form().txtNoPtsPrcd.Text, "32768");
    EXPECT_EQ(services_.Screen.Redraws, 32768 / 100 + 1) << "each hundredth and the last";
    EXPECT_EQ(folder_.EntryCount(), 4u);

    Add("fit.txt");
    Add("large.txt");
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Press(Form().cmdEnamThickCalc); }, "32767"));
    EXPECT_EQ(folder_.EntryCount(), 4u) << "no file is left half-written";
    EXPECT_EQ(Form().MousePointer, kPointerHourglass);
    EXPECT_TRUE(Form().pbarPtsPrcd.Visible);
    EXPECT_EQ(Form().Batch.size(), 2u);
}

TEST_F(PointCloudMeasureTest, TheNextRunPutsPointerAndBarRight) {
    PutRow("cloud.txt", 3);
    Add("cloud.txt");
    Press(Form().cmdPointsToWrl);
    EXPECT_EQ(Form().MousePointer, kPointerHourglass);
    EXPECT_TRUE(Form().pbarPtsPrcd.Visible);
    Add("cloud.txt");
    Press(Form().cmdEnamThickCalc);
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
    EXPECT_FALSE(Form().pbarPtsPrcd.Visible);
    EXPECT_EQ(Form().pbarPtsPrcd.Max, 3);
}

TEST_F(PointCloudMeasureTest, TheMatchShowsItsProgress) {
    PutRow("cloud.txt", 250, ",0.5");
    PutFile(folder_ / "model.wrl", "point [\n0 0 0,\n0.125 0 0,\n31.125 0 0,\n]\ncoordIndex [\n0,1,2,-1\n]\n");
    Add("cloud.txt");
    Add("model.wrl");
    Press(Form().cmdPointsToWrl);
    EXPECT_EQ(services_.Screen.Redraws, 3);
    EXPECT_EQ(Form().pbarPtsPrcd.Value, 250);
    EXPECT_EQ(Form().txtNoPtsPrcd.Text, "250");
    EXPECT_THAT(FileBytes(folder_ / "cloud_poly.wrl"), ::testing::HasSubstr("\r\n0,1,249,-1\r\n"));
}

TEST_F(PointCloudMeasureTest, ResultsThatCannotBeWritten) {
    PutRow("cloud.txt", 3);
    std::filesystem::create_directory(folder_ / "cloud_dist.txt");
    Add("cloud.txt");
    Add("cloud.txt");
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [&] { Press(Form().cmdEnamThickCalc); }, "cloud_dist.txt"));
    EXPECT_EQ(folder_.EntryCount(), 2u);
}

}  // namespace
}  // namespace crownlab
