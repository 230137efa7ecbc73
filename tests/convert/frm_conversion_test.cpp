#include "convert/frm_conversion.h"

#include <gmock/gmock.h>

#include "conversion_window.h"
#include "convert/file_types.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(ConversionWindow, StartsWithTheFirstOptionOfEachGroup) {
    FrmConversion& form = Form();
    EXPECT_EQ(form.Caption, "File Format Conversion");
    for (const ControlRef& control : form.Controls()) {
        if (OptionButton* const* const option = std::get_if<OptionButton*>(&control)) {
            const bool first = *option == &form.optOutAuto || *option == &form.optKrig ||
                               *option == &form.optInterval || *option == &form.Option3 || *option == &form.optRelief ||
                               *option == &form.optInFOV;
            EXPECT_EQ((*option)->Selected, first) << (*option)->Name;
        }
        if (CheckBox* const* const box = std::get_if<CheckBox*>(&control)) {
            EXPECT_FALSE((*box)->Checked) << (*box)->Name;
        }
    }
    EXPECT_EQ(form.Text1.Text, "");
    EXPECT_EQ(form.txtPath.Text, Folder.Path());
    EXPECT_EQ(form.cmbFromFileType.Text(), "");
    EXPECT_THAT(form.cmbToFileType.Items, IsEmpty());
    EXPECT_EQ(form.SSTab1.Index, 0);
    EXPECT_EQ(form.NoFiles, 0);
}

TEST_F(ConversionWindow, ListsEverySourceTypeInItsOrder) {
    ASSERT_EQ(Form().cmbFromFileType.Items.size(), SourceTypes().size());
    for (std::size_t i = 0; i < SourceTypes().size(); ++i) {
        EXPECT_EQ(Form().cmbFromFileType.Items[i], SourceTypes()[i].Name);
    }
}

struct TypeCase {
    const char* From;
    const char* Pattern;
    std::vector<std::string> Targets;
};

TEST_F(ConversionWindow, ASourceTypeSetsThePatternAndWhatItCanBecome) {
    const std::vector<TypeCase> cases{
        {"Tiff text file (*.txt)", "*.txt", {"Surfer grid file (*.grd)", "VRML file (*.wrl)"}},
        {"Text file (Hawk) (*.txt)", "*.txt", {"Surfer grid file (*.grd)"}},
        {"CSV file (*.csv,*.dat)", "*.csv;*.dat", {"VRML file (*.wrl)", "Tiff DEM file (*.tif)"}},
        {"Surfer grid file (*.grd)",
         "*.grd",
         {"Picza file (*.pix)", "VRML file ElevationGrid (*.wrl)", "VRML file Polygons (*.wrl)",
          "VRML file Polygons - surface (*.wrl)", "DAT text file (*.dat)", "XYZ text file (*.xyz)",
          "AutoCAD DXF file (*.dxf)"}},
        {"Picza file (*.pix)", "*.pix", {"Surfer grid file (*.grd)", "CSV file (*.csv,*.dat)"}},
        {"VRML file (*.wrl)", "*.wrl", {}},
        {"Show all files (*.*)", "*.*", {}}};
    for (const TypeCase& type : cases) {
        SelectEntry(Form().cmbFromFileType, type.From);
        EXPECT_EQ(Form().File1.Pattern, type.Pattern) << type.From;
        EXPECT_EQ(Form().cmbToFileType.Items, type.Targets) << type.From;
        EXPECT_EQ(Form().cmbToFileType.Selected, -1) << type.From;
        if (!type.Targets.empty()) SelectEntry(Form().cmbToFileType, 0);
    }
}

TEST_F(ConversionWindow, NoSourceTypeEmptiesTheTargetsOnly) {
    SelectEntry(Form().cmbFromFileType, 3);
    SelectEntry(Form().cmbFromFileType, -1);
    EXPECT_EQ(Form().File1.Pattern, "*.grd");
    EXPECT_THAT(Form().cmbToFileType.Items, IsEmpty());
}

TEST_F(ConversionWindow, AddingFillsTheEntry) {
    Choose("m1.txt", "");
    SetChecked(Form().chkAddOutText, true);
    SetText(Form().txtAddOutText, "_a");
    Press(Form().cmdAddFilename);
    EXPECT_EQ(Form().NoFiles, 1);
    EXPECT_EQ(Form().txtNoFiles.Text, "1");
    ASSERT_EQ(Form().Batch.size(), 1u);
    const BatchFile& file = Form().Batch[0];
    EXPECT_EQ(file.InputPath, Folder / "m1.txt");
    EXPECT_EQ(file.FileDir, Folder.Path() + "/");
    EXPECT_EQ(file.FileBase, "m1");
    EXPECT_EQ(file.Stem, Folder / "m1");
    EXPECT_EQ(Form().FileExtension, ".txt");
    EXPECT_EQ(Form().OutputAddition, "_a");
}

TEST_F(ConversionWindow, TheOutputAdditionIsThatOfTheLastAdding) {
    Choose("m1.txt", "");
    SetChecked(Form().chkAddOutText, true);
    Press(Form().cmdAddFilename);
    EXPECT_EQ(Form().OutputAddition, "_");
    SetChecked(Form().chkAddOutText, false);
    EXPECT_EQ(Form().OutputAddition, "_");
    Choose("m2.txt", "");
    Press(Form().cmdAddFilename);
    EXPECT_EQ(Form().OutputAddition, "");
}

TEST_F(ConversionWindow, ANameWithoutABaseIsRefusedAndNothingIsAdded) {
    for (const char* const name : {".txt", "a", "*.wrl"}) {
        SetText(Form().Text1, name);
        if (std::string(name) == "*.wrl") {
            Press(Form().cmdAddFilename);
            EXPECT_EQ(Form().NoFiles, 1) << "of the patterns only five are known";
        } else {
            EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [this] { Press(Form().cmdAddFilename); })) << name;
            EXPECT_EQ(Form().NoFiles, 0) << name;
        }
    }
    EXPECT_THAT(Services_.Screen.Boxes, IsEmpty());
}

TEST_F(ConversionWindow, EachOfThePatternsIsNoName) {
    for (const char* const name : {"", "*.pix", "*.dat", "*.csv", "*.grd", "*.txt"}) {
        SetText(Form().Text1, name);
        Form().MousePointer = kPointerHourglass;
        Services_.Screen.Boxes.clear();
        Press(Form().cmdAddFilename);
        EXPECT_EQ(OnlyBox(), "Filename: Choose filename") << name;
        EXPECT_EQ(Form().MousePointer, kPointerNormal) << name;
    }
    EXPECT_EQ(Form().NoFiles, 0);
}

TEST_F(ConversionWindow, AddingAllFilesTakesTheListAndChoosesItsFirst) {
    for (const char* const name : {"c.txt", "A.txt", "b.txt", "x.dat"}) PutFile(Folder / name, "");
    SelectEntry(Form().cmbFromFileType, 0);
    Press(Form().cmdAddAllFilenames);
    std::vector<std::string> bases;
    for (const BatchFile& file : Form().Batch) bases.push_back(file.FileBase);
    EXPECT_THAT(bases, ElementsAre("A", "b", "c"));
    EXPECT_EQ(Form().File1.FileName, "A.txt");
    EXPECT_EQ(Form().Text1.Text, "A.txt");
    Press(Form().cmdAddAllFilenames);
    EXPECT_EQ(Services_.Screen.Boxes.size(), 3u) << "each is in the batch already";
    EXPECT_EQ(Form().NoFiles, 3);
}

TEST_F(ConversionWindow, AddingAllOfAnEmptyListDoesNothing) {
    SelectEntry(Form().cmbFromFileType, 4);
    SetText(Form().Text1, "left");
    Press(Form().cmdAddAllFilenames);
    EXPECT_EQ(Form().NoFiles, 0);
    EXPECT_EQ(Form().Text1.Text, "left");
    EXPECT_THAT(Services_.Screen.Boxes, IsEmpty());
}

TEST_F(ConversionWindow, ATypedCountIsTakenAndATypedZeroTakesTheChosenFile) {
    SelectTypes("Text file (Hawk) (*.txt)", "Surfer grid file (*.grd)");
    for (const char* const name : {"a.txt", "b.txt", "c.txt"}) {
        Choose(name, "0,0,1\n1,1,1\n");
        Press(Form().cmdAddFilename);
    }
    SetText(Form().txtNoFiles, "2");
    Press(Form().cmdConvert);
    EXPECT_EQ(TraceOf("GridData").size(), 2u);
    EXPECT_EQ(Form().NoFiles, 0);

    Press(Form().cmdAddAllFilenames);
    SelectEntry(Form().File1, "c.txt");
    SetText(Form().txtNoFiles, "0");
    Trace.clear();
    Press(Form().cmdConvert);
    EXPECT_EQ(TraceOf("GridData").size(), 1u);
    EXPECT_EQ(TraceOf("DataFile=\"c.txt\"").size(), 1u);
}

TEST_F(ConversionWindow, ATypedCountBeyondTheBatchFailsAtTheFileThatIsntThere) {
    SelectTypes("Text file (Hawk) (*.txt)", "Surfer grid file (*.grd)");
    Choose("a.txt", "0,0,1\n1,1,1\n");
    Press(Form().cmdAddFilename);
    SetText(Form().txtNoFiles, "2147483647");
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [this] { Press(Form().cmdConvert); }));
    EXPECT_EQ(TraceOf("GridData").size(), 1u);
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [this] {
        Choose("b.txt", "");
        Press(Form().cmdAddFilename);
    }));
    Press(Form().cmdClearFilenames);
    Press(Form().cmdAddFilename);
    EXPECT_EQ(Form().NoFiles, 1);
}

TEST_F(ConversionWindow, TheInputPageAndItsOptionGoTogether) {
    SelectPage(Form().SSTab1, 1);
    EXPECT_TRUE(Form().optInVox.Selected);
    EXPECT_FALSE(Form().optInFOV.Selected);
    SelectPage(Form().SSTab1, 2);
    EXPECT_TRUE(Form().optInGRD.Selected);
    EXPECT_FALSE(Form().optInVox.Selected);
    SelectPage(Form().SSTab1, 0);
    EXPECT_TRUE(Form().optInFOV.Selected);
    EXPECT_FALSE(Form().optInGRD.Selected);
    SelectOption(Form().optInVox);
    EXPECT_FALSE(Form().optInFOV.Selected) << "one of the three, though each has a page of its own";
}

TEST_F(ConversionWindow, ExamineShowsCountAndRanges) {
    Choose("points.txt", "1.5,-2,7\n-0.25,4,1.70141E+38\n0,0,0\n");
    SetText(Form().txtXInt, "0.5");
    SetText(Form().txtYInt, "2");
    Press(Form().cmdExamineFile);
    EXPECT_EQ(Form().txtNoPts.Text, "3");
    EXPECT_EQ(Form().txtRXMin.Text, "-0.25");
    EXPECT_EQ(Form().txtRXMax.Text, "1.5");
    EXPECT_EQ(Form().txtRYMin.Text, "-2");
    EXPECT_EQ(Form().txtRYMax.Text, "4");
    // 3.5 by 3 intervals: 10.5, rounded to the even 10.
    EXPECT_EQ(Form().txtNoOutputPts.Text, "10");
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
    EXPECT_EQ(Form().NoFiles, 0);
}

TEST_F(ConversionWindow, ExamineTakesTheFirstFileOfTheBatch) {
    Choose("a.txt", "0,0,1\n");
    Press(Form().cmdAddFilename);
    Choose("b.txt", "0,0,1\n1,1,1\n");
    Press(Form().cmdAddFilename);
    SetText(Form().Text1, "");
    Press(Form().cmdExamineFile);
    EXPECT_EQ(Form().txtNoPts.Text, "1");
}

TEST_F(ConversionWindow, ExamineWithoutIntervalsLeavesTheCountAsItWas) {
    Choose("points.txt", "0,0,1\n10,10,1\n");
    SetText(Form().txtNoOutputPts, "as it was");
    for (const char* const interval : {"0", "-1", "", "none"}) {
        SetText(Form().txtYInt, interval);
        Press(Form().cmdExamineFile);
        EXPECT_EQ(Form().txtNoOutputPts.Text, "as it was");
    }
    EXPECT_EQ(Form().txtNoPts.Text, "2");
}

TEST_F(ConversionWindow, ExamineCountsNodesIn32Bits) {
    Choose("points.txt", "0,0,1\n46341,46341,1\n");
    SetText(Form().txtXInt, "1");
    SetText(Form().txtYInt, "1");
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [this] { Press(Form().cmdExamineFile); }, "txtNoOutputPts"));
    EXPECT_EQ(Form().txtRXMax.Text, "46341") << "shown before";
    PutFile(Folder / "points.txt", "0,0,1\n46340,46340,1\n");
    Press(Form().cmdExamineFile);
    EXPECT_EQ(Form().txtNoOutputPts.Text, "2147395600");
}

TEST_F(ConversionWindow, ExamineWithNothingChosen) {
    for (const char* const name : {"", "*.txt"}) {
        SetText(Form().Text1, name);
        Services_.Screen.Boxes.clear();
        Press(Form().cmdExamineFile);
        EXPECT_EQ(OnlyBox(), "Filename: Choose text filename");
        EXPECT_EQ(Form().MousePointer, kPointerHourglass);
    }
}

TEST_F(ConversionWindow, APairWithoutAConverterRunsNothingAndClearsTheBatch) {
    for (const SourceType& type : SourceTypes()) {
        if (!type.Targets.empty()) continue;
        Choose("a.txt", "");
        Press(Form().cmdAddFilename);
        SelectEntry(Form().cmbFromFileType, std::string(type.Name));
        Press(Form().cmdConvert);
        EXPECT_EQ(Form().txtNoFiles.Text, "0");
        EXPECT_THAT(Form().Batch, IsEmpty());
        SelectEntry(Form().cmbFromFileType, 0);
    }
    EXPECT_THAT(Trace, IsEmpty());
    EXPECT_THAT(Services_.Screen.Boxes, IsEmpty());
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
}

TEST_F(ConversionWindow, ExitUnloads) {
    Press(Form().cmdExit);
    EXPECT_FALSE(Services_.Windows.IsLoaded("frmConversion"));
}

}  // namespace
}  // namespace crownlab
