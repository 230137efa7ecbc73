// The text of an image becomes points of a lattice, and these a grid.
#include <gmock/gmock.h>

#include "conversion_window.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ConvertTiffGrd : public ConversionWindow {
protected:
    ConvertTiffGrd() {
        SelectTypes("Tiff text file (*.txt)", "Surfer grid file (*.grd)");
        Choose("image.txt", "0\t51\t102\t153\n204\t255\t0\t51\n");
    }
    void FillFields() {
        SetText(Form().X_Field, "2");
        SetText(Form().Y_Field, "3");
        SetText(Form().Z_Field, "5.1");
    }
    /// The settings file and the image: nothing else lies in the folder.
    bool NothingWritten() const { return Folder.EntryCount() == 2; }
};

TEST_F(ConvertTiffGrd, ByNameUnderVersionEight) {
    FillFields();
    Press(Form().cmdConvert);
    // 2 / 4 columns, 3 / 2 rows, 5.1 / 255 = 0.02 a value; the last row of the image has y = 0.
    EXPECT_EQ(FileBytes("image.csv"),
              "0,0,4.08\r\n.5,0,5.1\r\n1,0,0\r\n1.5,0,1.02\r\n"
              "0,1.5,0\r\n.5,1.5,1.02\r\n1,1.5,2.04\r\n1.5,1.5,3.06\r\n");
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"", "set Application.Visible = True",
                                   "call Application.GridData(DataFile=\"image.csv\", NumCols=4, NumRows=2, XMin=0, "
                                   "XMax=1.5, YMin=0, YMax=1.5, Algorithm=9, ShowReport=False, "
                                   "OutGrid=\"image.grd\")"));
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
    EXPECT_EQ(Form().txtNoFiles.Text, "0");
}

TEST_F(ConvertTiffGrd, ByPositionUnderVersionSixRowsBeforeColumns) {
    UseVersionSix();
    FillFields();
    Press(Form().cmdConvert);
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.APP\"",
                                   "call Application.GridData(\"image.csv\", 0, 1, 2, 0, 1.5, 0, 1.5, -, -, 2, 4, 6, "
                                   "\"image.grd\")"));
}

TEST_F(ConvertTiffGrd, VoxelSizesGiveTheFieldOfView) {
    SelectPage(Form().SSTab1, 1);
    SetText(Form().X_Input_Int, "0.25");
    SetText(Form().Y_Input_Int, "2");
    SetText(Form().Z_Input_Height, "255");
    Press(Form().cmdConvert);
    EXPECT_EQ(Form().X_Field.Text, "1");
    EXPECT_EQ(Form().Y_Field.Text, "4");
    EXPECT_EQ(Form().Z_Field.Text, "");
    EXPECT_EQ(FileBytes("image.csv"),
              "0,0,204\r\n.25,0,255\r\n.5,0,0\r\n.75,0,51\r\n"
              "0,2,0\r\n.25,2,51\r\n.5,2,102\r\n.75,2,153\r\n");
    EXPECT_NE(Trace.back().find("XMin=0, XMax=0.75, YMin=0, YMax=2, "), std::string::npos) << Trace.back();
}

TEST_F(ConvertTiffGrd, EachFieldOfViewIsNeeded) {
    for (TextBox* const missing : {&Form().X_Field, &Form().Y_Field, &Form().Z_Field}) {
        FillFields();
        SetText(*missing, "");
        Services_.Screen.Boxes.clear();
        Press(Form().cmdConvert);
        EXPECT_EQ(OnlyBox(), "Input fields of view: Input all fields of view") << missing->Name;
        EXPECT_TRUE(NothingWritten());
        EXPECT_EQ(Form().MousePointer, kPointerNormal);
    }
    EXPECT_THAT(TraceOf("call"), IsEmpty());
}

TEST_F(ConvertTiffGrd, EachVoxelSizeIsNeeded) {
    FillFields();
    SelectPage(Form().SSTab1, 1);
    for (TextBox* const missing : {&Form().X_Input_Int, &Form().Y_Input_Int, &Form().Z_Input_Height}) {
        for (TextBox* const box : {&Form().X_Input_Int, &Form().Y_Input_Int, &Form().Z_Input_Height})
            SetText(*box, "1");
        SetText(*missing, "");
        Services_.Screen.Boxes.clear();
        Press(Form().cmdConvert);
        EXPECT_EQ(OnlyBox(), "Input voxel sizes: Input voxel sizes and z height") << missing->Name;
        EXPECT_TRUE(NothingWritten());
    }
}

TEST_F(ConvertTiffGrd, TheGridPageIsNoDataType) {
    FillFields();
    SelectPage(Form().SSTab1, 2);
    Press(Form().cmdConvert);
    EXPECT_EQ(OnlyBox(), "Choose data type: Choose data type (field of view or voxel size)");
    EXPECT_TRUE(NothingWritten());
}

TEST_F(ConvertTiffGrd, AnOlderWorkingFileOutlivesAMessage) {
    PutFile(Folder / "image.csv", "older");
    Press(Form().cmdConvert);
    EXPECT_EQ(FileBytes("image.csv"), "older");
}

TEST_F(ConvertTiffGrd, WithNoNameOneMessageAfterTheProgramWasReached) {
    for (const char* const name : {"", "*.txt"}) {
        SetText(Form().Text1, name);
        Services_.Screen.Boxes.clear();
        Press(Form().cmdConvert);
        EXPECT_EQ(OnlyBox(), "Filename: Choose text filename");
        EXPECT_EQ(Form().MousePointer, kPointerNormal);
    }
    Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(FailureKind::AutomationFailed, [this] { Press(Form().cmdConvert); }));
}

TEST_F(ConvertTiffGrd, ATrailingTabOfTheFirstLineRunsPastTheEnd) {
    FillFields();
    Choose("image.txt", "1\t2\t\n3\t4\t\n");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [this] { Press(Form().cmdConvert); }));
    EXPECT_TRUE(NothingWritten());
    EXPECT_EQ(Form().MousePointer, kPointerHourglass);
}

TEST_F(ConvertTiffGrd, IsNoBatch) {
    FillFields();
    Press(Form().cmdAddFilename);
    Choose("other.txt", "1\t2\n3\t4\n");
    SetChecked(Form().chkAddOutText, true);
    Press(Form().cmdAddFilename);
    Press(Form().cmdConvert);
    EXPECT_EQ(TraceOf("GridData").size(), 1u);
    EXPECT_NE(Trace.back().find("OutGrid=\"other.grd\""), std::string::npos) << "without the output addition";
    EXPECT_EQ(Form().txtNoFiles.Text, "0");
}

TEST_F(ConvertTiffGrd, ANameWithoutABaseIsInvalid) {
    FillFields();
    SetText(Form().Text1, ".txt");
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [this] { Press(Form().cmdConvert); }));
    SetText(Form().Text1, "gone.txt");
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [this] { Press(Form().cmdConvert); }));
}

TEST_F(ConvertTiffGrd, AFieldOfViewBeyondNumbersOverflows) {
    SelectPage(Form().SSTab1, 1);
    SetText(Form().X_Input_Int, "1e308");
    SetText(Form().Y_Input_Int, "1");
    SetText(Form().Z_Input_Height, "1");
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [this] { Press(Form().cmdConvert); }, "X_Field"));
    EXPECT_TRUE(NothingWritten());
}

}  // namespace
}  // namespace crownlab
