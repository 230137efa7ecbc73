// The gateway's tools against the map engine itself, as an application holds the two together.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "application/application.h"
#include "basis/paths.h"
#include "mapengine/grid_file.h"
#include "mapengine/map_engine.h"
#include "player/player_desk.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "surfer/digitise_step.h"
#include "surfer/grid_info.h"
#include "surfer/plot_driver.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

class GatewayTest : public ::testing::Test {
protected:
    GatewayTest() {
        PutFile("Crownlab.ini", Folder.Path() + "\r\nSurferV8\r\n");
        Desk_.SetKeyTarget(Engine);
        App.Start();
        State.Objects = &Objects;
        State.SurferVersion = "SurferV8";
        Ties = {.Windows = &App.Windows(), .Screen = &Desk_, .Files = &Files};
    }

    void ChooseVersion(int version) {
        App.Windows().Get<MenuItem>("frmStartup", "mnuSurf6").Checked = version == 6;
        App.Windows().Get<MenuItem>("frmStartup", "mnuSurf8").Checked = version == 8;
        State.SurferVersion = version == 6 ? "SurferV6" : "SurferV8";
    }

    /// 4 columns from 0 to 6, 3 rows from 10 to 13; z = column + 10 row + 5.
    std::string PutGrid(const std::string& name) {
        Grid grid(GridGeometry{.Columns = 4, .Rows = 3, .XMin = 0, .XMax = 6, .YMin = 10, .YMax = 13});
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 4; ++column) grid.At(column, row) = column + 10 * row + 5;
        }
        WriteGrid(Files, Folder / name, grid, GridFormat::Binary64);
        return Folder / name;
    }

    void OpenReport(const std::string& value) {
        Worksheet report;
        report.SetCell(166, 1, "A00");
        report.SetCell(166, 2, value);
        Engine.Session().OpenReport(report);
    }
    std::string ReportText(const std::string& value) {
        std::string text;
        for (int row = 1; row < 166; ++row) text += "\r\n";
        return text + "A00\t" + value + "\r\n";
    }

    void Plot(int type, int slot, const std::string& path) {
        const LateBound program = AttachSurfer(State, App.Windows());
        PlotSurfer(
            State, App.Windows(), program,
            {.GridPath = path, .BaseName = "a", .NameAddition = "_c", .Type = type, .Slot = slot, .Label = true});
    }
    const PlotDocument& Page() { return *Engine.Session().ActivePlot(); }
    const PlotMap& Map(std::size_t index) { return std::get<PlotMap>(Page().Shapes.at(index)); }
    const PlotText& Text(std::size_t index) { return std::get<PlotText>(Page().Shapes.at(index)); }

    TempFolder Folder;
    std::vector<std::string> Lines;
    FileTable Files;
    PlayerDesk Desk_{[this](const std::string& line) { Lines.push_back(line); }, Files};
    MapEngine Engine{Desk_};
    ActiveObjects Objects{Engine};
    Application App{Desk_, Folder.Path(), Objects};
    Session State;
    Services Ties;
};

TEST_F(GatewayTest, AnOpenReportIsCaptured) {
    OpenReport("1.25");
    const std::string file = CaptureReport(Ties, Folder / "", "1");
    EXPECT_EQ(file, Folder / "Report1.txt");
    EXPECT_EQ(FileBytes(file), ReportText("1.25"));
    EXPECT_FALSE(Engine.Session().HasReport()) << "it was closed";
}

TEST_F(GatewayTest, AReportReplacesTheOneOfTheRunBefore) {
    for (const char* const value : {"1.25", "-7"}) {
        OpenReport(value);
        CaptureReport(Ties, Folder / "", "1");
        EXPECT_EQ(FileBytes("Report1.txt"), ReportText(value));
    }
}

TEST_F(GatewayTest, ACapturedReportIsReadAsAWorksheet) {
    OpenReport("1.25");
    const std::string file = CaptureReport(Ties, Folder / "", "1");
    const LateBound program = AttachSurfer(State, App.Windows());
    program.Object("Documents").Call("Open", {file});
    EXPECT_EQ(NumberOf(program.Object("ActiveDocument").Call("Cells", {"B166"}), "B166"), 1.25);
    program.Object("ActiveWindow").Call("Close");
    EXPECT_EQ(program.Object("ActiveDocument").GetText("Name"), "Plot1");
}

TEST_F(GatewayTest, WithoutAReportTheJunkIsWhatIsRead) {
    CaptureReport(Ties, Folder / "", "1");
    EXPECT_EQ(FileBytes("Report1.txt"), "junk\r\n");
}

TEST_F(GatewayTest, TheProcessThatIsNamedHasToBeTheEngines) {
    App.Windows().Get<CheckBox>("frmStartup", "chkSurferPID").Checked = true;
    auto& process = App.Windows().Get<TextBox>("frmStartup", "txtSurferPID");
    process.Text = std::to_string(getpid() + 1);
    OpenReport("1.25");
    CaptureReport(Ties, Folder / "", "1");
    EXPECT_EQ(FileBytes("Report1.txt"), "junk\r\n") << "the keys went elsewhere";
    EXPECT_TRUE(Engine.Session().HasReport());
    process.Text = std::to_string(getpid());
    CaptureReport(Ties, Folder / "", "1");
    EXPECT_EQ(FileBytes("Report1.txt"), ReportText("1.25"));
}

TEST_F(GatewayTest, TheShapeOfAGridIsLearnedUnderBothVersions) {
    const std::string grid = PutGrid("tooth.grd");
    for (const int version : {8, 6}) {
        ChooseVersion(version);
        const HeightLimits own = ReadGridInfo(State, Ties, grid);
        std::vector<double> numbers;
        for (int i = 1; i <= 10; ++i) numbers.push_back(State.Info(i));
        EXPECT_THAT(numbers, ElementsAre(4, 0, 6, 2, 3, 10, 13, 1.5, 0, 28));
        EXPECT_EQ(own.Low, 5);
        EXPECT_EQ(own.High, 28);
        EXPECT_FALSE(IsFile(Folder / "toothtemp.dat"));
    }
}

TEST_F(GatewayTest, AMissingGridHasNoShape) {
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadGridInfo(State, Ties, Folder / "none.grd"); }, "none.grd"));
    EXPECT_FALSE(IsFile(Folder / "nonetemp.dat"));
}

TEST_F(GatewayTest, StartingLeavesASessionThatToolsFindUnderEitherVersion) {
    Objects.SetFound(false);
    StartSurfer(State, App.Windows());
    EXPECT_EQ(Page().Name, "Plot1");
    EXPECT_TRUE(Engine.Session().Visible);
    ChooseVersion(6);
    const std::string grid = PutGrid("tooth.grd");
    Plot(1, 1, grid);
    EXPECT_EQ(Page().Shapes.size(), 2U) << "a map and its text";
}

TEST_F(GatewayTest, ASheetIsLaidOutUnderVersionEight) {
    const std::string grid = PutGrid("tooth.grd");
    Plot(1, 1, grid);
    Plot(4, 9, grid);
    ASSERT_EQ(Page().Shapes.size(), 4U);
    // 15 by 7.5 page units; the middle of a page is 13.97 high.
    EXPECT_DOUBLE_EQ(Map(0).Left, 18 + 10.19 - 7.5);
    EXPECT_DOUBLE_EQ(Map(0).Top, 13.97 + 3.75);
    EXPECT_EQ(Text(1).Text, "a_c.grd");
    EXPECT_DOUBLE_EQ(Text(1).X, 18 + 10.44 - 7.5);
    EXPECT_DOUBLE_EQ(Text(1).Y, 13.5 - 3.75);
    EXPECT_EQ(Text(1).Font.HAlign, 1);
    EXPECT_EQ(Text(1).Font.VAlign, 4);
    EXPECT_DOUBLE_EQ(Map(2).Left, 18 + 10.19 - 7.5);
    EXPECT_DOUBLE_EQ(Map(2).Top, 13.97 + 3.75 - 18);
    EXPECT_EQ(Map(2).Layer.ZMapPerPU, Map(2).Layer.XMapPerPU);
    EXPECT_EQ(Map(2).Layer.LightAzimuth, 135);
    EXPECT_EQ(Map(2).Layer.ViewTilt, 30);
    EXPECT_DOUBLE_EQ(Text(3).Y, 13.5 - 3.75 - 18);
}

TEST_F(GatewayTest, TheImageTypeShowsTheSampleSurface) {
    Plot(3, 1, "no such grid");
    EXPECT_EQ(Map(0).Kind, MapKind::Surface);
    EXPECT_TRUE(Map(0).GridFilename.ends_with("demogrid.grd")) << Map(0).GridFilename;
    EXPECT_TRUE(IsFile(Map(0).GridFilename));
}

TEST_F(GatewayTest, ASheetIsLaidOutUnderVersionSix) {
    ChooseVersion(6);
    const std::string grid = PutGrid("tooth.grd");
    Plot(2, 11, grid);
    ASSERT_EQ(Page().Shapes.size(), 2U);
    EXPECT_EQ(Map(0).Kind, MapKind::Relief);
    EXPECT_DOUBLE_EQ(Map(0).Left, 10.795 - 7.5 + 4);
    EXPECT_DOUBLE_EQ(Map(0).Top, 13.97 + 3.75 - 7);
    EXPECT_EQ(Text(1).Text, "a");
    EXPECT_EQ(Text(1).X, 4 + 4 + 4);
    EXPECT_EQ(Text(1).Y, 6 + 2.25 - 7);
    EXPECT_TRUE(Page().Selection.empty());
}

TEST_F(GatewayTest, MapsPileUpOnTheActiveDocument) {
    const std::string grid = PutGrid("tooth.grd");
    Plot(1, 1, grid);
    PrepareSurfer(State, App.Windows(), true);
    EXPECT_TRUE(Page().Shapes.empty()) << "a new session has a document of its own";
    Plot(2, 1, grid);
    Plot(2, 2, grid);
    PrepareSurfer(State, App.Windows(), false);
    EXPECT_EQ(Page().Shapes.size(), 4U);
}

TEST_F(GatewayTest, WithNothingOpenAPlotFailsUnderVersionEight) {
    Objects.Create("Surfer.Application");
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Plot(1, 1, PutGrid("tooth.grd")); }, "no document is open"));
}

TEST_F(GatewayTest, WithTheProgramOffNothingIsPlotted) {
    Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Plot(1, 1, PutGrid("tooth.grd")); }, "Surfer"));
    EXPECT_TRUE(Page().Shapes.empty());
}

}  // namespace
}  // namespace crownlab
