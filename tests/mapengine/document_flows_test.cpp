// Whole sequences of calls as the tools make them: figures that come back as files and worksheets.

#include <cmath>

#include "mapengine/engine_fixture.h"

namespace crownlab {
namespace {

class Flows : public EngineTest {
protected:
    double SixNumber(double handle, int row, int column) {
        return NumberOf(Six().Call("GetWksCell", {handle, row, column}), "a cell");
    }
};

TEST_F(Flows, VersionSixLearnsAGridsShapeFromAVolumeReport) {
    PutGrid();
    Six().Call("FileNew");
    Six().Call("GridVolume", {"a.grd", None, None, 0});
    Six().Call("FileSaveAs", {Folder / "volume.dat"});
    const double handle = NumberOf(Six().Call("FileOpen", {Folder / "volume.dat", 1}), "a handle");
    // 4 columns from 0 to 6, 3 rows from 10 to 13, z from 0 to 23.
    EXPECT_EQ(SixNumber(handle, 4, 4), 4);
    EXPECT_EQ(SixNumber(handle, 7, 1), 0);
    EXPECT_EQ(SixNumber(handle, 7, 3), 6);
    EXPECT_EQ(SixNumber(handle, 5, 2), 2);
    EXPECT_EQ(SixNumber(handle, 4, 7), 3);
    EXPECT_EQ(SixNumber(handle, 8, 1), 10);
    EXPECT_EQ(SixNumber(handle, 8, 3), 13);
    EXPECT_EQ(SixNumber(handle, 6, 2), 1.5);
    EXPECT_EQ(SixNumber(handle, 9, 1), 0);
    EXPECT_EQ(SixNumber(handle, 9, 3), 23);
    // The plane z = x / 2 + 10 (y - 10) / 1.5 over 18 square units: mean height 11.5.
    EXPECT_NEAR(SixNumber(handle, 21, 3), 18 * 11.5, 1e-9);
    EXPECT_NEAR(SixNumber(handle, 27, 3), 18, 1e-9);
    EXPECT_NEAR(SixNumber(handle, 34, 3), 18 * std::sqrt(1 + 0.25 + 400.0 / 9), 1e-9);
    Six().Call("FileClose");
    Six().Call("FileClose");
    EXPECT_EQ(Engine.Session().Documents().size(), 1U);
}

TEST_F(Flows, ResidualsAreSavedToTheirDataFileUnderBothVersions) {
    PutGrid();
    for (const bool six : {false, true}) {
        PutFile("zero.dat", "2,10,1.5\r\n6,13,20\r\n7,10,0\r\n");
        if (six) {
            Six().Call("GridResiduals", {"a.grd", "zero.dat", 0, 1, 2, 3});
            Six().Call("FileSaveAs", {"zero.dat"});
            Six().Call("FileClose");
        } else {
            Eight().Call("GridResiduals", {{"InGrid", "a.grd"}, {"DataFile", "zero.dat"}});
            Eight().Object("ActiveDocument").Call("Save");
            Eight().Object("ActiveDocument").Call("Close");
        }
        EXPECT_EQ(FileBytes("zero.dat"), "2,10,1.5,0.5\r\n6,13,20,-3\r\n7,10,0,1.70141E+38\r\n");
        EXPECT_EQ(Engine.Session().Documents().size(), 1U);
    }
}

TEST_F(Flows, ARegressionLeavesAReportThatItsKeysSave) {
    // z = 3 + 2 y + x / 2
    PutFile("plane.dat", "0,0,3\r\n4,0,5\r\n0,1,5\r\n4,1,7\r\n");
    Eight().Call("GridData", {{"DataFile", "plane.dat"},
                              {"NumCols", 3},
                              {"NumRows", 2},
                              {"XMin", 0},
                              {"XMax", 4},
                              {"YMin", 0},
                              {"YMax", 1},
                              {"Algorithm", 7},
                              {"ShowReport", true},
                              {"OutGrid", "p.grd"},
                              {"RegrMaxXOrder", 1},
                              {"RegrMaxYOrder", 1},
                              {"RegrMaxTotalOrder", 1}});
    ASSERT_TRUE(Engine.Session().HasReport());
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fsReport1.txt~");
    Engine.SendKeys("y");
    Engine.SendKeys("%fc");
    Eight().Object("Documents").Call("Open", {"Report1.txt"});
    const LateBound report = Eight().Object("ActiveDocument");
    const auto number = [&](const char* label) { return NumberOf(report.Call("Cells", {label}), label); };
    EXPECT_NEAR(number("B166"), 3, 1e-12);
    EXPECT_NEAR(number("B167"), 2, 1e-12);
    EXPECT_NEAR(number("B168"), 0.5, 1e-12);
    Eight().Object("ActiveWindow").Call("Close");
}

}  // namespace
}  // namespace crownlab
