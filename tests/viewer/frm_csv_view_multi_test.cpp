#include <gmock/gmock.h>

#include "basis/number_text.h"
#include "forms/acts.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer_window.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

/// A tooth of four points whose y always changes; its heights reach `height`.
std::string Tooth4(double height, double parameter11 = 0) {
    return "0," + GeneralText(parameter11) + "\n1,2,3,4,5,6,7,8,9,10\n1,1,0\n2,2,-" + GeneralText(height) +
           "\n3,1,-1\n4,2,-2\n666\n";
}

/// A tooth without points.
const std::string kNoPoints = "0,1\n1,2,3,4,5,6,7,8,9,10\n666\n";

class MultiToothTest : public ::testing::Test {
protected:
    void Read(const std::string& text) {
        PutFile(folder_ / "teeth.csv", text);
        window_.Choose("teeth.csv");
        Press(Form().cmdReadMultiCSV);
    }
    FrmCSVView& Form() { return window_.Form(); }
    ViewerState& State() { return Form().State; }

    TempFolder folder_;
    ViewerWindow window_;
};

TEST_F(MultiToothTest, ReadsTeethAndShowsTheFirst) {
    Read(Tooth4(5, 50) + kNoPoints + Tooth4(7, 70));
    EXPECT_EQ(State().NumTeeth, 3);
    EXPECT_EQ(State().Teeth.size(), 10000u);
    EXPECT_EQ(Form().lblNoTeeth.Caption, "3");
    EXPECT_EQ(Form().txtCurrTooth.Text, "1");
    EXPECT_EQ(Form().txtViewTeethStart.Text, "1");
    EXPECT_EQ(Form().txtViewTeethEnd.Text, "3");
    EXPECT_EQ(Form().ParamBox(11).Text, "50");
    EXPECT_EQ(Form().ParamBox(10).Text, "10");
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
    // One yield a tooth of the read, one of the film.
    EXPECT_EQ(window_.Screen.Yields, 4);
    // The x spacing is never found; a tooth without points has none to look for.
    EXPECT_THAT(window_.Screen.Boxes, ElementsAre("Error", "Error"));
}

TEST_F(MultiToothTest, HeightsAreNegatedAndLifted) {
    Read(Tooth4(5) + Tooth4(7));
    EXPECT_TRUE(Form().chkOrigModelFile.Checked);
    // z of 0, -5, -1, -2 become 0, 5, 1, 2: the lowest is 0 already.
    EXPECT_EQ(State().Teeth[0].ZMin, 0);
    EXPECT_EQ(State().Teeth[0].ZMax, 5);
    EXPECT_EQ(State().AllZMin, 0);
    EXPECT_EQ(State().AllZMax, 7);
    EXPECT_EQ(State().Teeth[0].NumX, 3);
    EXPECT_EQ(State().Teeth[0].NumY, 3);
    // All points of such a tooth fall into its middle cell, where the last one stays.
    EXPECT_EQ(State().Teeth[0].Grid.Point(2, 2), (SurfacePoint{4, 2, 2}));
    EXPECT_EQ(State().Teeth[0].Grid.z(1, 1), kEmptyCellZ);
}

TEST_F(MultiToothTest, AToothOfTooFewPointsStaysWithZeros) {
    Read(kNoPoints + Tooth4(5));
    EXPECT_TRUE(State().Teeth[0].Grid.Empty());
    EXPECT_EQ(State().Teeth[0].Params[0], 1);
    EXPECT_FALSE(State().BoxD.Drawn) << "the film blanks the display";
    EXPECT_EQ(State().Teeth[1].ZMax, 5);
}

TEST_F(MultiToothTest, NoSentinelAtAllIsOneTooth) {
    Read("0,1\n1,2,3,4,5,6,7,8,9,10\n1,1,0\n2,2,-5\n3,1,-1\n4,2,-2");
    EXPECT_EQ(State().NumTeeth, 1);
    EXPECT_EQ(Form().sldToothNo.Max, 1);
    EXPECT_EQ(Form().sldToothNo.Step, 1);
}

TEST_F(MultiToothTest, TwoPointsOfOneYInARowDivideByZero) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero,
                          [&] { Read("0,1\n1,2,3,4,5,6,7,8,9,10\n1,1,0\n2,1,-5\n3,1,-1\n4,2,-2\n666\n"); }));
    EXPECT_THAT(window_.Screen.Boxes, ElementsAre("Error"));
}

TEST_F(MultiToothTest, DefaultGridSizeGathersAToothInOneCell) {
    SelectOption(Form().optDefaultGridSize);
    Read(Tooth4(5));
    EXPECT_EQ(State().Teeth[0].NumX, 1);
    EXPECT_EQ(State().Teeth[0].NumY, 1);
}

TEST_F(MultiToothTest, OtherGridSizeBeforeAnyReadHasNoCells) {
    SelectOption(Form().optOtherGridSize);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Read(Tooth4(5)); }, "CellGrid"));
}

TEST_F(MultiToothTest, AToothOfMoreThan24ColumnsFails) {
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange,
        [&] { Read("0,1\n1,2,3,4,5,6,7,8,9,10\n0,1,0\n230000,2,-5\n3,1,-1\n4,2,-2\n666\n"); }, "MultiGrid"));
    // 23 steps of spacing reach over 24 columns with the ring, which is allowed.
    EXPECT_NO_THROW(Read("0,1\n1,2,3,4,5,6,7,8,9,10\n1,1,0\n209999,2,-5\n3,1,-1\n4,2,-2\n666\n"));
    EXPECT_EQ(State().Teeth[0].NumX, 24);
}

TEST_F(MultiToothTest, BadNumbersOfTeethInMemory) {
    for (const char* text : {"", "0", "-1", "0.5"}) {
        Form().txtMTAIF.Text = text;
        EXPECT_TRUE(FailsWith(
            FailureKind::SubscriptOutOfRange, [&] { Read(Tooth4(5)); }, "MaxTeeth"))
            << text;
    }
    Form().txtMTAIF.Text = "32768";
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Read(Tooth4(5)); }, "MaxTeeth"));
    Form().txtMTAIF.Text = "32767";
    EXPECT_NO_THROW(Read(Tooth4(5)));
}

TEST_F(MultiToothTest, SliderStepIsATenthOfTheOrderOfMagnitude) {
    const auto stepOf = [&](int teeth) {
        std::string text;
        for (int i = 0; i < teeth; ++i) text += kNoPoints;
        Read(text);
        return Form().sldToothNo.Step;
    };
    EXPECT_EQ(stepOf(2), 1);
    EXPECT_EQ(stepOf(31), 1);
    EXPECT_EQ(stepOf(32), 10);  // log10 is above 1.5
    EXPECT_EQ(stepOf(317), 100);
    EXPECT_EQ(stepOf(1000), 100);
}

TEST_F(MultiToothTest, EscapeLeavesTheRead) {
    window_.Screen.AtYield(2, [&] { PressKey(Form().cmdReadMultiCSV, "Escape"); });
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    EXPECT_EQ(window_.Screen.Yields, 2);
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
    EXPECT_EQ(State().Teeth[0].ZMax, 5);
    EXPECT_TRUE(State().Teeth[1].Grid.Empty());
    EXPECT_EQ(Form().lblNoTeeth.Caption, "0");
    // The next read starts uncancelled.
    Read(Tooth4(5));
    EXPECT_EQ(Form().lblNoTeeth.Caption, "1");
}

TEST_F(MultiToothTest, OtherKeysDoNothing) {
    window_.Screen.AtYield(1, [&] { PressKey(Form().cmdReadMultiCSV, "Return"); });
    Read(Tooth4(5) + Tooth4(6));
    EXPECT_EQ(Form().lblNoTeeth.Caption, "2");
}

TEST_F(MultiToothTest, EscapeEndsTheFilm) {
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    window_.Screen.Yields = 0;
    window_.Screen.AtYield(3, [&] { PressKey(Form().cmdViewMultiCSV, "Escape"); });
    Press(Form().cmdViewMultiCSV);
    EXPECT_EQ(Form().txtCurrTooth.Text, "2");
    EXPECT_EQ(State().CurrTooth, 2);
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
}

TEST_F(MultiToothTest, RangesOutsideTheFileShowNothing) {
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    window_.Screen.Yields = 0;
    SelectOption(Form().optViewTeethSubset);
    const std::vector<std::pair<const char*, const char*>> ranges{
        {"1", "4"}, {"0", "2"}, {"3", "2"}, {"", ""}, {"1", "3.2"}};
    for (const auto& [first, last] : ranges) {
        Form().txtViewTeethStart.Text = first;
        Form().txtViewTeethEnd.Text = last;
        Press(Form().cmdViewMultiCSV);
    }
    EXPECT_EQ(window_.Screen.Yields, 0);
    Form().txtViewTeethStart.Text = "2";
    Form().txtViewTeethEnd.Text = "3";
    Press(Form().cmdViewMultiCSV);
    EXPECT_EQ(window_.Screen.Yields, 2);
    EXPECT_EQ(Form().sldToothNo.Value, 2) << "the slider stands at the first";
}

TEST_F(MultiToothTest, TheSliderShowsItsTooth) {
    Read(Tooth4(5, 50) + Tooth4(6, 60));
    SetValue(Form().sldToothNo, 2);
    EXPECT_EQ(Form().txtCurrTooth.Text, "2");
    EXPECT_EQ(Form().ParamBox(11).Text, "60");
    EXPECT_EQ(State().ViewFirst, 2);
    EXPECT_EQ(State().ViewLast, 2);
    const int yields = window_.Screen.Yields;
    SetValue(Form().sldToothNo, 2);
    EXPECT_EQ(window_.Screen.Yields, yields);
}

TEST_F(MultiToothTest, OneGreyScaleForAllTeeth) {
    Read(Tooth4(5) + Tooth4(7));
    EXPECT_EQ(State().Data.ZMax, 5);
    SetChecked(Form().chkZScaleAllT, true);
    SetValue(Form().sldToothNo, 2);
    SetValue(Form().sldToothNo, 1);
    EXPECT_EQ(State().Data.ZMax, 7);
    EXPECT_EQ(State().NumX, 3);
}

TEST_F(MultiToothTest, BeforeAnyRead) {
    Press(Form().cmdViewMultiCSV);
    EXPECT_EQ(window_.Screen.Yields, 0) << "no tooth, no film";
    for (const Control* button : std::initializer_list<const Control*>{
             &Form().cmdCalcStats, &Form().cmdOutputSingleCSV, &Form().cmdOutputMultiCSV, &Form().cmdOutputSingleTIF,
             &Form().cmdOutputSingleWRL, &Form().cmdCopyWRL, &Form().cmdShannonInfo, &Form().cmdCSSort,
             &Form().cmdMirrorHoriz, &Form().cmdMirrorVert, &Form().cmdRotateCW, &Form().cmdRotateACW,
             &Form().cmdRotate180, &Form().chkZScaleAllT}) {
        EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Press(*button); })) << button->Name;
    }
}

TEST_F(MultiToothTest, PressingItselfAtAYieldReadsNested) {
    PutFile(folder_ / "other.csv", Tooth4(9));
    window_.Screen.AtYield(2, [&] {
        window_.Choose("other.csv");
        Press(Form().cmdReadMultiCSV);
    });
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    // The outer read goes on with its own file behind the nested one.
    EXPECT_EQ(State().Teeth[0].ZMax, 9);
    EXPECT_EQ(State().Teeth[1].ZMax, 6);
    EXPECT_EQ(State().Teeth[2].ZMax, 7);
}

TEST_F(MultiToothTest, ANestedReadOfFewerTeethFailsTheOuterOne) {
    PutFile(folder_ / "other.csv", Tooth4(9));
    window_.Screen.AtYield(3, [&] {
        window_.Choose("other.csv");
        Form().txtMTAIF.Text = "1";
        Press(Form().cmdReadMultiCSV);
    });
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Read(Tooth4(5) + Tooth4(6) + Tooth4(7)); }, "tooth 3"));
}

TEST_F(MultiToothTest, ReadingASurfaceAtAYieldLeavesTheReadWhole) {
    PutFile(folder_ / "surface.csv", "0,0,1\n1,0,2\n0,1,3\n1,1,4\n");
    window_.Screen.AtYield(2, [&] {
        window_.Choose("surface.csv");
        Press(Form().cmdReadCSV);
    });
    Read(Tooth4(5) + Tooth4(6));
    EXPECT_EQ(State().Teeth[1].ZMax, 6);
    EXPECT_EQ(Form().lblNoTeeth.Caption, "2");
}

TEST_F(MultiToothTest, ClosingTheWindowAtAYieldEndsInPeace) {
    const std::weak_ptr<crownlab::Form> closed = window_.Windows.Find("frmCSVView");
    window_.Screen.AtYield(2, [&] { window_.Windows.Unload("frmCSVView"); });
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    EXPECT_TRUE(closed.expired()) << "gone when its handler returned";
    EXPECT_EQ(Form().lblNoTeeth.Caption, "0") << "the next window is a new one";
}

TEST_F(MultiToothTest, TheFilmBearsTheSame) {
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    PutFile(folder_ / "other.csv", Tooth4(9));
    window_.Screen.Yields = 0;
    window_.Screen.AtYield(2, [&] { Press(Form().cmdViewMultiCSV); });
    Press(Form().cmdViewMultiCSV);
    EXPECT_EQ(window_.Screen.Yields, 6);

    window_.Screen.Yields = 0;
    window_.Screen.AtYield(2, [&] {
        window_.Choose("other.csv");
        Form().txtMTAIF.Text = "1";
        Press(Form().cmdReadMultiCSV);
    });
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { Press(Form().cmdViewMultiCSV); }, "tooth 2"));

    Form().txtMTAIF.Text = "10";
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    const std::weak_ptr<crownlab::Form> closed = window_.Windows.Find("frmCSVView");
    window_.Screen.Yields = 0;
    window_.Screen.AtYield(2, [&] { window_.Windows.Unload("frmCSVView"); });
    Press(Form().cmdViewMultiCSV);
    EXPECT_EQ(window_.Screen.Yields, 3);
    EXPECT_TRUE(closed.expired());
}

TEST_F(MultiToothTest, TheSliderBearsTheSame) {
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    window_.Screen.Yields = 0;
    window_.Screen.AtYield(1, [&] { SetValue(Form().sldToothNo, 3); });
    SetValue(Form().sldToothNo, 2);
    EXPECT_EQ(Form().txtCurrTooth.Text, "2") << "the outer film goes on with its own tooth";
    window_.Screen.Yields = 0;
    window_.Screen.AtYield(1, [&] { window_.Windows.Unload("frmCSVView"); });
    SetValue(Form().sldToothNo, 1);
    EXPECT_FALSE(window_.Windows.IsLoaded("frmCSVView"));
}

TEST_F(MultiToothTest, TooManyTeethAreRefusedOrSplit) {
    Form().txtMTAIF.Text = "2";
    SetChecked(Form().chkSplitMTAIF, false);
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    EXPECT_THAT(window_.Screen.Boxes, ElementsAre("More than2 teeth in file; file must be split"));
    EXPECT_EQ(State().NumTeeth, 0);
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
    EXPECT_EQ(folder_.EntryCount(), 1u);

    SetChecked(Form().chkSplitMTAIF, true);
    Read(Tooth4(5) + Tooth4(6) + Tooth4(7));
    EXPECT_EQ(window_.Screen.Boxes.back(), "File split - use split files for viewing.");
    EXPECT_EQ(folder_.EntryCount(), 3u);
    EXPECT_EQ(window_.Screen.Yields, 0);
}

}  // namespace
}  // namespace crownlab
