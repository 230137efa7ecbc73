#include <gmock/gmock.h>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "forms/acts.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer_window.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

/// A tooth whose 3 by 3 cells hold one height in the middle.
std::string ToothOf(double parameter1, double height) {
    return "0,0\n" + GeneralText(parameter1) + ",0,0,0,0,0,0,0,0,0\n1,1,0\n2,2,-9\n3,1,-1\n4,2,-" +
           GeneralText(height) + "\n666\n";
}

const std::string kNoPoints = "0,0\n7,0,0,0,0,0,0,0,0,0\n666\n";

class ViewerOutputsTest : public ::testing::Test {
protected:
    void ReadTeeth(const std::string& text) {
        PutFile(folder_ / "teeth.csv", text);
        window_.Choose("teeth.csv");
        Press(Form().cmdReadMultiCSV);
    }
    void ReadSurface(const std::string& text) {
        PutFile(folder_ / "surface.csv", text);
        window_.Choose("surface.csv");
        Press(Form().cmdReadCSV);
    }
    std::string ToothFile(const std::string& name) { return folder_ / ("teeth/" + name); }
    FrmCSVView& Form() { return window_.Form(); }
    ViewerState& State() { return Form().State; }

    TempFolder folder_;
    ViewerWindow window_;
};

TEST_F(ViewerOutputsTest, SingleCsvIsTheToothInHand) {
    ReadTeeth(ToothOf(0.001, 5) + ToothOf(0.002, 6));
    Form().txtCurrTooth.Text = "2";
    Press(Form().cmdOutputSingleCSV);
    EXPECT_EQ(FileBytes(ToothFile("P200_0_0_0_0_0_0_0_0_0_0.csv")),
              "-9999,-9999,9999\r\n1,-9999,9999\r\n10001,-9999,9999\r\n"
              "-9999,1,9999\r\n4,2,6\r\n10001,1,9999\r\n"
              "-9999,10001,9999\r\n1,10001,9999\r\n10001,10001,9999\r\n");
    EXPECT_EQ(State().Names.OutputFileName, ToothFile("P200_0_0_0_0_0_0_0_0_0_0.csv"));
    EXPECT_FALSE(IsFile(ToothFile("P100_0_0_0_0_0_0_0_0_0_0.csv")));
}

TEST_F(ViewerOutputsTest, EmptyTeethAreSkippedInSilence) {
    ReadTeeth(kNoPoints + ToothOf(0.001, 5));
    for (const Control* button : std::initializer_list<const Control*>{
             &Form().cmdOutputSingleCSV, &Form().cmdOutputSingleTIF, &Form().cmdOutputSingleWRL}) {
        Press(*button);
    }
    EXPECT_FALSE(IsFolder(folder_ / "teeth"));
    Press(Form().cmdOutputMultiCSV);
    EXPECT_EQ(ListFiles(folder_ / "teeth", "*.*"), (std::vector<std::string>{"P100_0_0_0_0_0_0_0_0_0_0.csv"}));
    EXPECT_TRUE(window_.Screen.Opened.empty());
}

TEST_F(ViewerOutputsTest, TheToothNumberHasToBeOne) {
    ReadTeeth(ToothOf(0.001, 5));
    for (const char* text : {"", "0", "-1", "10001"}) {
        Form().txtCurrTooth.Text = text;
        EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Press(Form().cmdOutputSingleCSV); })) << text;
    }
    // A place in memory behind the last tooth is an empty tooth.
    Form().txtCurrTooth.Text = "10000";
    EXPECT_NO_THROW(Press(Form().cmdOutputSingleCSV));
}

TEST_F(ViewerOutputsTest, TheButtonTifWritesABitmap) {
    ReadTeeth(ToothOf(0.001, 9));
    Press(Form().cmdOutputSingleTIF);
    const std::string bitmap = FileBytes(ToothFile("P100_0_0_0_0_0_0_0_0_0_0.bmp"));
    // 3 + 4 pixels both ways, 21 bytes a row padded to 24.
    ASSERT_EQ(bitmap.size(), 54u + 24 * 7);
    const auto blueOf = [&](std::size_t x, std::size_t y) {
        return static_cast<unsigned char>(bitmap[54 + 24 * (6 - y) + 3 * x]);
    };
    EXPECT_EQ(blueOf(1, 1), 255) << "the highest cell";
    EXPECT_EQ(blueOf(0, 0), 0) << "an empty cell";
    EXPECT_EQ(blueOf(3, 0), 255) << "the margin";
    Press(Form().cmdOutputMultiTIF);
    EXPECT_EQ(ListFiles(folder_ / "teeth", "*.*").size(), 1u) << "that button does nothing";
}

TEST_F(ViewerOutputsTest, TheFinishedModelIsOfferedForOpening) {
    ReadTeeth(ToothOf(0.001, 5));
    Press(Form().cmdOutputSingleWRL);
    const std::string path = ToothFile("P100_0_0_0_0_0_0_0_0_0_0.wrl");
    EXPECT_THAT(window_.Screen.Opened, ElementsAre(path));
    const std::string model = FileBytes(path);
    EXPECT_NE(model.find("# VRML of P100_0_0_0_0_0_0_0_0_0_0.wrl\r\n"), std::string::npos);
    EXPECT_NE(model.find("        height [\r\n 0  0  0 \r\n 0  5  0 \r\n 0  0  0 \r\n        ]\r\n"),
              std::string::npos);
}

TEST_F(ViewerOutputsTest, CopyShowsTheSurfaceAndFollowsIt) {
    ReadSurface("0,0,1\n1,0,2\n0,1,3\n1,1,4\n");
    Press(Form().cmdCopyWRL);
    EXPECT_EQ(Form().Cortona1.SceneFile, folder_ / "temp.wrl");
    EXPECT_EQ(Form().Cortona1.LoadCount, 1u);
    // Empty cells of the ring stand at the lowest level.
    EXPECT_NE(FileBytes(folder_ / "temp.wrl").find(" 1  1  1  1 \r\n 1  3  4  1 \r\n 1  1  2  1 \r\n"),
              std::string::npos);
    Press(Form().cmdViewCSV);
    EXPECT_EQ(Form().Cortona1.LoadCount, 2u) << "an active view follows each drawing";
    Press(Form().cmdMirrorHoriz);
    EXPECT_EQ(Form().Cortona1.LoadCount, 3u);
    EXPECT_NE(FileBytes(folder_ / "temp.wrl").find(" 1  2  1  1 \r\n"), std::string::npos);
    Fire(Form().Cortona1, "SceneLoaded");
    EXPECT_EQ(Form().Cortona1.FitCount, 1u);
}

TEST_F(ViewerOutputsTest, ViewsThatWereNeverActiveAreLeftAlone) {
    ReadSurface("0,0,1\n1,0,2\n0,1,3\n1,1,4\n");
    EXPECT_FALSE(IsFile(folder_ / "temp.wrl"));
}

/// A surface of 28 by 18 points, which is 30 by 20 cells with the ring.
std::string WideSurface() {
    std::string text;
    for (int y = 0; y < 18; ++y) {
        for (int x = 0; x < 28; ++x)
            text += std::to_string(x) + "," + std::to_string(y) + "," + std::to_string(x + 100 * y) + "\n";
    }
    return text;
}

TEST_F(ViewerOutputsTest, TurningSwapsTheSides) {
    ReadSurface(WideSurface());
    ASSERT_EQ(State().NumX, 30);
    ASSERT_EQ(State().NumY, 20);
    const SurfaceGrid before = State().CellGrid;
    Press(Form().cmdRotateACW);
    EXPECT_EQ(State().NumX, 20);
    EXPECT_EQ(State().NumY, 30);
    EXPECT_EQ(State().CellGrid.NumX, 20);
    // What was below on the left is now below on the right.
    EXPECT_EQ(State().CellGrid.Point(19, 2), before.Point(2, 2));
    EXPECT_EQ(Form().picBoxD.Width, 208);
    EXPECT_EQ(Form().picBoxD.Height, 313);
    Press(Form().cmdRotateCW);
    EXPECT_EQ(State().CellGrid.Z, before.Z);
    EXPECT_EQ(State().NumX, 30);
}

TEST_F(ViewerOutputsTest, MirrorTwiceRestoresGridAndPicture) {
    ReadSurface(WideSurface());
    const SurfaceGrid before = State().CellGrid;
    const Raster picture = *Form().picBoxD.Image;
    for (const Control* button : std::initializer_list<const Control*>{&Form().cmdMirrorHoriz, &Form().cmdMirrorVert}) {
        Press(*button);
        EXPECT_NE(Form().picBoxD.Image->Pixels, picture.Pixels);
        Press(*button);
        EXPECT_EQ(State().CellGrid.Z, before.Z);
        EXPECT_EQ(State().CellGrid.Point(5, 7), before.Point(5, 7));
        EXPECT_EQ(Form().picBoxD.Image->Pixels, picture.Pixels);
    }
}

TEST_F(ViewerOutputsTest, HalfATurnIsBothMirrorsOnTheImage) {
    ReadSurface(WideSurface());
    Press(Form().cmdRotate180);
    const Raster turned = *Form().picBoxD.Image;
    Press(Form().cmdRotate180);
    Press(Form().cmdMirrorHoriz);
    Press(Form().cmdMirrorVert);
    EXPECT_EQ(Form().picBoxD.Image->Pixels, turned.Pixels);
}

}  // namespace
}  // namespace crownlab
