#include <gtest/gtest.h>

#include <string>

#include "basis/number_text.h"
#include "mapengine/numeric_member_calls.h"

namespace crownlab {
namespace {

TEST(GridResidualsMember, EightSavesTheDataFileItself) {
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", Ramp());
    const std::string data = engine.PutText("d.dat", "0.5,1,0\r\n\r\n 1.25\t2  10\r\n9,9,0\r\n");
    engine.Eight("GridResiduals", {{"InGrid", grid}, {"DataFile", data}});
    EXPECT_EQ(FileBytes(data).substr(0, 9), "0.5,1,0\r\n");  // until it is saved
    engine.ActiveDocument("Save");
    engine.ActiveDocument("Close");
    EXPECT_EQ(FileBytes(data), "0.5,1,0,-2.5\r\n1.25,2,10,6.75\r\n9,9,0,1.70141E+38\r\n");
    EXPECT_TRUE(engine.Sheet().Rows.empty());
}

TEST(GridResidualsMember, SixSavesWhereItIsTold) {
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", Ramp());
    const std::string text = "0.5,1,0\r\n1.23456789012345678,2,10\r\n";
    const std::string data = engine.PutText("d.dat", text);
    const std::string saved = "0.5,1,0,-2.5\r\n1.23456789012346,2,10,6.76543210987654\r\n";
    engine.Six("GridResiduals", {grid, data, 0, 1, 2, 3});
    engine.Six("FileSaveAs", {engine.Path("other.dat")});
    EXPECT_EQ(FileBytes(engine.Path("other.dat")), saved);
    EXPECT_EQ(FileBytes(data), text);
    engine.Six("FileSaveAs", {data});
    engine.Six("FileClose", {});
    EXPECT_EQ(FileBytes(data), saved);
}

TEST(GridResidualsMember, OtherColumns) {
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", Ramp());
    const std::string data = engine.PutText("d.dat", "\"name\",7,1,0.5\n");
    engine.Six("GridResiduals", {grid, data, 3, 2, 1, 5});
    EXPECT_EQ(WorksheetText(engine.Sheet()), "name,7,1,0.5,,4.5\r\n");
    engine.Eight("GridResiduals",
                 {{"InGrid", grid}, {"DataFile", data}, {"XCol", 4}, {"yCol", 3}, {"zCol", 2}, {"ResidCol", 1}});
    EXPECT_EQ(WorksheetText(engine.Sheet()), "4.5,7,1,0.5\r\n");
}

TEST(GridResidualsMember, BlankWhereTheGridHasNoHeight) {
    EngineForms engine;
    Grid ramp = Ramp();
    ramp.At(1, 1) = kBlankHeight;
    const std::string grid = engine.Put("a.grd", ramp);
    const std::string data = engine.PutText("d.dat", "0.5,1,0\n0,2,0\n2.5,1,1\n1.5,1,1e37\n");
    engine.Eight("GridResiduals", {{"InGrid", grid}, {"DataFile", data}});
    EXPECT_EQ(engine.Cell(1, 4), "1.70141E+38");
    EXPECT_EQ(engine.Cell(2, 4), "-2");
    EXPECT_EQ(engine.Cell(3, 4), "-3.5");
    EXPECT_EQ(engine.Cell(4, 4), "1.70141E+38");
}

TEST(GridResidualsMember, HeightsOfAClosedForm) {
    // A saddle x y is bilinear in every cell.
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", GridOf(ShapeOf(6, 9), [](double x, double y) { return x * y; }));
    std::string text;
    RandomNumbers random;
    std::vector<double> expected;
    for (int i = 0; i < 200; ++i) {
        const double x = 3 + static_cast<double>(random.Below(2500)) / 1000;
        const double y = -7 + static_cast<double>(random.Below(2000)) / 1000;
        text += GeneralText(x) + " " + GeneralText(y) + " 1\n";
        expected.push_back(1 - x * y);
    }
    engine.Eight("GridResiduals", {{"InGrid", grid}, {"DataFile", engine.PutText("d.dat", text)}});
    for (int i = 0; i < 200; ++i) {
        EXPECT_NEAR(NumberIn(engine.Cell(i + 1, 4)), expected[static_cast<std::size_t>(i)], 1e-12);
    }
}

TEST(GridResidualsMember, WrongArgumentsAndDataFail) {
    EngineForms engine;
    const Argument grid("InGrid", engine.Put("a.grd", Ramp()));
    const Argument data("DataFile", engine.PutText("d.dat", "1,2,3\n"));
    const std::string member = "GridResiduals";
    EXPECT_TRUE(CallFails(engine, false, member, {data}, "InGrid is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid}, "DataFile is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"DataFile", engine.Path("none.dat")}}, "none.dat"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, data, {"XCol", 0}}, "XCol 0"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, data, {"ResidCol", 100000}}, "ResidCol 100000"));
    const Argument few("DataFile", engine.PutText("few.dat", "1,2,3\n\n1,2\n"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, few}, "few.dat, line 3: it has 2 fields"));
    const Argument words("DataFile", engine.PutText("words.dat", "1,2,3\n1,two,3\n"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, words}, "words.dat, line 2: \"two\" is not a number"));
    EXPECT_TRUE(CallFails(engine, true, member,
                          {Argument(engine.Path("a.grd")), Argument(engine.Path("d.dat")), -1, 1, 2, 3}, "XCol -1"));
    EXPECT_TRUE(engine.Sheet().Rows.empty());
}

}  // namespace
}  // namespace crownlab
