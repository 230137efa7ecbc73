// What the converter of scanner points asks of the mapping program, and the files around it.
#include <gmock/gmock.h>

#include "conversion_window.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ConvertTxtGrd : public ConversionWindow {
protected:
    ConvertTxtGrd() { SelectTypes("Text file (Hawk) (*.txt)", "Surfer grid file (*.grd)"); }

    /// Points of which the limits lie half-way between multiples of 0.5 in x and 0.25 in y.
    void ChooseHalfWay() {
        Choose("crown.txt", "0.25,1.125,2\n2.75,1.625,3\n1,1.25,1.70141E+38\n");
        SetText(Form().txtXInt, "0.5");
        SetText(Form().txtYInt, "0.25");
    }
};

TEST_F(ConvertTxtGrd, ByNameUnderVersionEight) {
    ChooseHalfWay();
    Press(Form().cmdConvert);
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"", "set Application.Visible = True",
                                   "call Application.GridData(DataFile=\"crown.txt\", XCol=1, yCol=2, zCol=3, "
                                   "NumCols=7, NumRows=3, XMin=0, XMax=3, YMin=1, YMax=1.5, Algorithm=2, "
                                   "ShowReport=False, OutGrid=\"crown.grd\")"));
    EXPECT_EQ(Form().txtNoFiles.Text, "0");
    EXPECT_EQ(Form().txtProgress.Text, "");
    EXPECT_EQ(Form().txtCurrentFilename.Text, "");
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
}

TEST_F(ConvertTxtGrd, ByPositionUnderVersionSixWhateverTheMethod) {
    UseVersionSix();
    ChooseHalfWay();
    SelectOption(Form().optInvDist);
    Press(Form().cmdConvert);
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.APP\"",
                                   "call Application.GridData(\"crown.txt\", 0, 1, 2, 0, 3, 1, 1.5, 7, 3, -, -, 1, "
                                   "\"crown.grd\")"));
}

TEST_F(ConvertTxtGrd, InverseDistanceUnderVersionEight) {
    ChooseHalfWay();
    SelectOption(Form().optInvDist);
    Press(Form().cmdConvert);
    ASSERT_EQ(TraceOf("GridData").size(), 1u);
    EXPECT_NE(Trace.back().find("Algorithm=1, "), std::string::npos);
}

TEST_F(ConvertTxtGrd, WithNoMethodVersionEightMakesNoGrid) {
    ChooseHalfWay();
    Form().optKrig.Selected = false;
    Press(Form().cmdConvert);
    EXPECT_THAT(TraceOf("GridData"), IsEmpty());
    UseVersionSix();
    Press(Form().cmdConvert);
    EXPECT_EQ(TraceOf("GridData").size(), 1u);
}

TEST_F(ConvertTxtGrd, WithAVersionOfNoNameNothingIsAsked) {
    ChooseHalfWay();
    Services_.Windows.Get<MenuItem>("frmStartup", "mnuSurf8").Checked = false;
    Session_.SurferVersion = "SurverV8";
    Press(Form().cmdConvert);
    EXPECT_THAT(Trace, ElementsAre("attach \"\""));
}

TEST_F(ConvertTxtGrd, TheLongerSideGetsTheNumberOfNodes) {
    Choose("crown.txt", "2,-1,5\n12,4,6\n");
    SelectOption(Form().optMaxNoRows);
    SetText(Form().txtMaxNoRows, "8");
    Press(Form().cmdConvert);
    // 10 / 7 at three decimals is 1.429; 5 / 1.429 is 3.5 and a little less.
    EXPECT_NE(Trace.back().find("NumCols=8, NumRows=3, XMin=2, XMax=12.003, YMin=-1, YMax=3.287, "), std::string::npos)
        << Trace.back();
}

TEST_F(ConvertTxtGrd, AMouldIsTurnedOverInACopyThatGoes) {
    Choose("crown.txt", "0.5,1,2\n2,1.5,-3\n");
    SetText(Form().txtXInt, "0.5");
    SetText(Form().txtYInt, "0.5");
    SetChecked(Form().chkMould, true);
    Press(Form().cmdConvert);
    EXPECT_THAT(Trace.back(), ::testing::StartsWith("call Application.GridData(DataFile=\"crowntemp.txt\", "));
    EXPECT_NE(Trace.back().find("NumCols=4, NumRows=2, XMin=-2, XMax=-0.5, YMin=1, YMax=1.5, "), std::string::npos);
    EXPECT_NE(Trace.back().find("OutGrid=\"crown.grd\""), std::string::npos);
    EXPECT_EQ(Folder.EntryCount(), 2u) << "the settings file and the scan";
}

TEST_F(ConvertTxtGrd, TheOutputAdditionGoesIntoTheName) {
    ChooseHalfWay();
    SetChecked(Form().chkAddOutText, true);
    SetText(Form().txtAddOutText, "_30");
    Press(Form().cmdConvert);
    EXPECT_NE(Trace.back().find("OutGrid=\"crown_30.grd\""), std::string::npos);
}

TEST_F(ConvertTxtGrd, ShowsTheNumberOfTheFileAndItsName) {
    for (const char* const name : {"a.txt", "b.txt"}) {
        Choose(name, "0,0,1\n1,1,1\n");
        Press(Form().cmdAddFilename);
    }
    std::vector<std::string> seen;
    Objects.SetTrace([this, &seen](const std::string& line) {
        if (line.find("GridData") != std::string::npos) {
            seen.push_back(Form().txtProgress.Text + " " + Form().txtCurrentFilename.Text);
            EXPECT_EQ(Form().MousePointer, kPointerHourglass);
        }
    });
    Press(Form().cmdConvert);
    EXPECT_THAT(seen, ElementsAre("1/2 a", "2/2 b"));
    EXPECT_EQ(Services_.Screen.Redraws, 2);
}

TEST_F(ConvertTxtGrd, WithNothingChosenOneMessageAndNoGrid) {
    SetChecked(Form().chkPlotSurfer, true);
    Press(Form().cmdConvert);
    EXPECT_EQ(OnlyBox(), "Filename: Choose filename");
    EXPECT_THAT(TraceOf("call"), IsEmpty());
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
}

TEST_F(ConvertTxtGrd, AFailureLeavesTheBatchAndTheProgress) {
    Choose("a.txt", "0,0,1\n1,1,1\n");
    Press(Form().cmdAddFilename);
    Choose("b.txt", "0,0\n");
    Press(Form().cmdAddFilename);
    EXPECT_TRUE(FailsWith(
        FailureKind::InputPastEnd, [this] { Press(Form().cmdConvert); }, "b.txt"));
    EXPECT_EQ(Form().txtProgress.Text, "2/2");
    EXPECT_EQ(Form().txtCurrentFilename.Text, "b");
    EXPECT_EQ(Form().NoFiles, 2);
    EXPECT_EQ(Form().MousePointer, kPointerHourglass);
}

TEST_F(ConvertTxtGrd, MapsAreMadeWhenAllGridsAre) {
    for (const char* const name : {"a.txt", "b.txt"}) {
        Choose(name, "0,0,1\n1,1,1\n");
        Press(Form().cmdAddFilename);
    }
    SetChecked(Form().chkPlotSurfer, true);
    SetChecked(Form().chkLabelSurfer, true);
    Press(Form().cmdConvert);
    const std::string map = R"(Application.Documents.Item(Index="Plot1").Shapes.AddReliefMap(GridFilename="b.grd"))";
    const std::size_t second = Trace.size() - 12;
    ASSERT_EQ(Trace.size(), 4u + 2u * 12u);
    // The second map: 18 to the right of the first, whose place is 18 + 10.19 less half its length of 12.
    EXPECT_THAT(std::vector<std::string>(Trace.begin() + static_cast<std::ptrdiff_t>(second), Trace.end()),
                ElementsAre("attach \"Surfer.Application\"", "get Application.ActiveDocument.Name", "call " + map,
                            "get " + map + ".XLength", "set " + map + ".Left = 40.19", "get " + map + ".Top",
                            "set " + map + ".Top = 18",
                            "set Application.Documents.Item(Index=\"Plot1\").DefaultFont.HAlign = 1",
                            "set Application.Documents.Item(Index=\"Plot1\").DefaultFont.VAlign = 4",
                            "get " + map + ".XLength", "get " + map + ".YLength",
                            "call Application.Documents.Item(Index=\"Plot1\").Shapes.AddText(X=40.44, Y=9.5, "
                            "Text=\"b.grd\")"));
}

TEST_F(ConvertTxtGrd, MapsOfVersionSixAreReliefMapsTenToARow) {
    UseVersionSix();
    Choose("a.txt", "0,0,1\n1,1,1\n");
    SetChecked(Form().chkPlotSurfer, true);
    SelectOption(Form().optContour);
    Press(Form().cmdConvert);
    EXPECT_THAT(std::vector<std::string>(Trace.begin() + 2, Trace.end()),
                ElementsAre("call Application.ReliefMap(\"a.grd\", -, -, -, -, -, -, -, \"a\")",
                            "call Application.DrawText(4, 6, \"a\", \"atxt\")", "call Application.Select(\"atxt\")",
                            "call Application.TransformSel(4, 2.25)", "call Application.Select(\"a\", \"atxt\")",
                            "call Application.TransformSel(4, 0)", "call Application.Deselect()"));
}

TEST_F(ConvertTxtGrd, EachKindOfMapHasItsCall) {
    SetChecked(Form().chkPlotSurfer, true);
    const std::vector<std::pair<OptionButton*, std::string>> kinds{
        {&Form().optRelief, "AddReliefMap(GridFilename=\"a.grd\")"},
        {&Form().optContour, "AddContourMap(GridFilename=\"a.grd\")"},
        {&Form().optImage, "AddSurface(GridFilename=\"data/Samples/demogrid.grd\")"},
        {&Form().opt3DSurface, "AddSurface(GridFilename=\"a.grd\")"}};
    for (const auto& [option, call] : kinds) {
        Choose("a.txt", "0,0,1\n1,1,1\n");
        SelectOption(*option);
        Trace.clear();
        Press(Form().cmdConvert);
        EXPECT_EQ(TraceOf("call").size(), 2u) << option->Name;
        EXPECT_EQ(TraceOf("call").back(), "call Application.Documents.Item(Index=\"Plot1\").Shapes." + call);
        EXPECT_EQ(TraceOf("LightAzimuth").size(), option == &Form().opt3DSurface ? 1u : 0u);
    }
}

TEST_F(ConvertTxtGrd, ANewSessionIsCreatedWithAPlotDocument) {
    ChooseHalfWay();
    SetChecked(Form().chkStartSurfer, true);
    Press(Form().cmdConvert);
    ASSERT_EQ(Trace.size(), 4u);
    EXPECT_THAT(std::vector<std::string>(Trace.begin(), Trace.begin() + 3),
                ElementsAre("create \"Surfer.Application\"", "set Application.Visible = True",
                            "call Application.Documents.Add(1)"));
    UseVersionSix();
    Trace.clear();
    Press(Form().cmdConvert);
    EXPECT_EQ(Trace.front(), "create \"Surfer.APP\"");
    EXPECT_EQ(Trace.size(), 2u);
}

TEST_F(ConvertTxtGrd, WithoutTheProgramNothingBegins) {
    ChooseHalfWay();
    Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(FailureKind::AutomationFailed, [this] { Press(Form().cmdConvert); }));
    EXPECT_EQ(Form().NoFiles, 0) << "not even the chosen name is added";
    SetChecked(Form().chkStartSurfer, true);
    Press(Form().cmdConvert);
    EXPECT_EQ(TraceOf("GridData").size(), 1u);
}

}  // namespace
}  // namespace crownlab
