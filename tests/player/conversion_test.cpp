// What the conversion leaves on the disk, with the map engine behind it.
#include <gtest/gtest.h>

#include "mapengine/grid_file.h"
#include "played.h"

namespace crownlab {
namespace {

const char* const kVersions[] = {"mnuSurf6", "mnuSurf8"};

std::string Start(const std::string& version, const std::string& from) {
    return "start\npress frmStartup." + version + "\nopen frmConversion\nset frmConversion.cmbFromFileType \"" + from +
           "\"\nset frmConversion.cmbToFileType \"Surfer grid file (*.grd)\"\n";
}

std::string ConvertPoints(const std::string& version, const std::string& options) {
    return Start(version, "Text file (Hawk) (*.txt)") + options +
           "set frmConversion.File1 scan.txt\npress frmConversion.cmdConvert\n";
}

void ExpectPlayed(const std::string& script) {
    const Played played = Play(script);
    EXPECT_EQ(played.Status, kStatusGood);
    for (const std::string& line : played.Lines) ADD_FAILURE() << line;
    for (const std::string& line : played.Complaints) ADD_FAILURE() << line;
}

TEST(Conversion, PointsOnTheNodesKeepTheirHeights) {
    for (const char* const version : kVersions) {
        TempFolder folder;
        PutFile("scan.txt", "0,1,1\n0.5,1,2\n1,1,4\n0,1.25,8\n0.5,1.25,16\n1,1.25,32\n");
        ExpectPlayed(ConvertPoints(version, "set frmConversion.txtXInt 0.5\nset frmConversion.txtYInt 0.25\n"));
        const Grid grid = ReadGrid("scan.grd");
        EXPECT_EQ(grid.Shape, (GridGeometry{.Columns = 3, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 1, .YMax = 1.25}));
        EXPECT_EQ(grid.Z, (std::vector<double>{1, 2, 4, 8, 16, 32})) << version;
    }
}

TEST(Conversion, AMouldComesOutTurnedOver) {
    for (const char* const version : kVersions) {
        TempFolder folder;
        PutFile("scan.txt", "0,1,1\n0.5,1,2\n1,1,4\n0,1.25,8\n0.5,1.25,16\n1,1.25,32\n");
        ExpectPlayed(ConvertPoints(version,
                                   "set frmConversion.chkMould on\nset frmConversion.txtXInt 0.5\n"
                                   "set frmConversion.txtYInt 0.25\n"));
        const Grid grid = ReadGrid("scan.grd");
        EXPECT_EQ(grid.Shape, (GridGeometry{.Columns = 3, .Rows = 2, .XMin = -1, .XMax = 0, .YMin = 1, .YMax = 1.25}));
        EXPECT_EQ(grid.Z, (std::vector<double>{-4, -2, -1, -32, -16, -8})) << version;
        EXPECT_EQ(folder.EntryCount(), 3u) << "settings, scan and grid";
    }
}

TEST(Conversion, BlankPointsSetTheLimitsButNoHeights) {
    TempFolder folder;
    PutFile("scan.txt", "0,0,3\n1,0,3\n0,1,3\n2,3,1.70141E+38\n");
    ExpectPlayed(ConvertPoints("mnuSurf8", "set frmConversion.txtXInt 1\nset frmConversion.txtYInt 1\n"));
    const Grid grid = ReadGrid("scan.grd");
    EXPECT_EQ(grid.Shape, (GridGeometry{.Columns = 3, .Rows = 4, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 3}));
    for (const double z : grid.Z) EXPECT_NEAR(z, 3, 1e-12);
}

TEST(Conversion, AnImageStandsUprightOnItsNodes) {
    for (const char* const version : kVersions) {
        TempFolder folder;
        PutFile("image.txt", "10\t20\t30\t40\n50\t60\t70\t80\n90\t100\t110\t255\n");
        ExpectPlayed(Start(version, "Tiff text file (*.txt)") +
                     "set frmConversion.X_Field 2\nset frmConversion.Y_Field 6\nset frmConversion.Z_Field 510\n"
                     "set frmConversion.File1 image.txt\npress frmConversion.cmdConvert\n");
        const Grid grid = ReadGrid("image.grd");
        EXPECT_EQ(grid.Shape, (GridGeometry{.Columns = 4, .Rows = 3, .XMin = 0, .XMax = 1.5, .YMin = 0, .YMax = 4}));
        const std::vector<double> upright{180, 200, 220, 510, 100, 120, 140, 160, 20, 40, 60, 80};
        ASSERT_EQ(grid.Z.size(), upright.size());
        for (std::size_t i = 0; i < upright.size(); ++i)
            EXPECT_NEAR(grid.Z[i], upright[i], 1e-9) << version << " " << i;
    }
}

TEST(Conversion, AnImageOfOneRowMakesNoGrid) {
    TempFolder folder;
    PutFile("image.txt", "1\t2\t3\n");
    PutFile("image.grd", "older");
    const Played played = Play(Start("mnuSurf8", "Tiff text file (*.txt)") +
                               "set frmConversion.X_Field 3\nset frmConversion.Y_Field 1\nset frmConversion.Z_Field 1\n"
                               "set frmConversion.File1 image.txt\npress frmConversion.cmdConvert\n");
    EXPECT_EQ(played.Status, kStatusFailure);
    ASSERT_EQ(played.Lines.size(), 1u);
    EXPECT_EQ(played.Lines[0].rfind("failure AutomationFailed in frmConversion.cmdConvert_Click: GridData", 0), 0u)
        << played.Lines[0];
    EXPECT_EQ(FileBytes("image.grd"), "older");
    EXPECT_EQ(FileBytes("image.csv"),
              "0,0,3.92156862745098E-03\r\n1,0,7.84313725490196E-03\r\n2,0,1.17647058823529E-02\r\n");
}

}  // namespace
}  // namespace crownlab
