#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <vector>

#include "basis/number_text.h"
#include "mapengine/engine_call_forms.h"
#include "mapengine/grid_derivatives.h"
#include "mapengine/grid_filter.h"
#include "mapengine/numeric_member_calls.h"
#include "mapengine/test_grids.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

Grid Level(double z) {
    return GridOf({.Columns = 5, .Rows = 4, .XMin = 0, .XMax = 4, .YMin = 0, .YMax = 6},
                  [=](double, double) { return z; });
}

/// A bumpy surface with blank nodes.
Grid Bumps() {
    Grid grid = GridOf({.Columns = 14, .Rows = 11, .XMin = 1, .XMax = 3.6, .YMin = -2, .YMax = 3},
                       [](double x, double y) { return std::sin(2 * x) * std::cos(y) + x * y / 9; });
    grid.At(6, 5) = kBlankHeight;
    return grid;
}

NumberArray Figures(std::size_t count = 11) { return std::make_shared<std::vector<double>>(count, -1.0); }

/// Argument of an array.
Argument ArrayArgument(const NumberArray& array) { return {"pResults", Value(array)}; }

// ---- GridVolume

TEST(GridVolumeMember, FillsTheCallersArrayFromItsFirstElement) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    const NumberArray figures = Figures(13);
    engine.Eight("GridVolume", {{"Upper", upper}, {"Lower", 0}, ArrayArgument(figures), {"ShowReport", false}});
    // 2 + x over 24: 96; sqrt(2) of 24.
    const std::vector<double> expected{96, 96, 96, 0, 24, 0, 24 * std::numbers::sqrt2, 0, 0, 0, 0, -1, -1};
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR((*figures)[i], expected[i], 1e-12) << i + 1;
    EXPECT_TRUE(engine.Sheet().Rows.empty());
    EXPECT_TRUE(engine.Report().Rows.empty());
}

TEST(GridVolumeMember, AgainstASecondGridAndWithoutShowReport) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    const std::string lower = engine.Put("b.grd", Level(4));
    const NumberArray figures = Figures();
    engine.Eight("GridVolume", {{"Upper", upper}, {"Lower", lower}, ArrayArgument(figures)});
    // x - 2: above beyond the middle, a wedge of 2 by 2 over 6.
    const std::vector<double> expected{0, 0, 12, 12, 12, 12, 12 * std::numbers::sqrt2, 12 * std::numbers::sqrt2,
                                       0, 0, 0};
    for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR((*figures)[i], expected[i], 1e-12) << i + 1;
}

TEST(GridVolumeMember, NumberSentAsTextIsAConstant) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    const NumberArray figures = Figures();
    engine.Eight("GridVolume", {{"Upper", upper}, {"Lower", " 1.5 "}, ArrayArgument(figures)});
    EXPECT_NEAR((*figures)[2], 96 - 36, 1e-12);
}

TEST(GridVolumeMember, ShownReportStandsOpenAsReport) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    engine.Eight("GridVolume", {{"Upper", upper}, {"Lower", 0}, {"ShowReport", true}});
    EXPECT_EQ(engine.Report().Cell(21, 3), "96");
    EXPECT_TRUE(engine.Sheet().Rows.empty());
}

TEST(GridVolumeMember, SixOpensAWorksheetWithItsCells) {
    EngineForms engine;
    Grid grid = GridOf({.Columns = 5, .Rows = 4, .XMin = -0.1, .XMax = 0.3, .YMin = 0, .YMax = 1},
                       [](double x, double) { return 1 + x; });
    grid.At(0, 0) = kBlankHeight;
    engine.Six("GridVolume", {engine.Put("a.grd", grid), None(), None(), 0});
    EXPECT_EQ(engine.Cell(4, 4), "5");
    EXPECT_EQ(engine.Cell(4, 7), "4");
    EXPECT_EQ(engine.Cell(5, 2), "0.1");
    EXPECT_EQ(engine.Cell(6, 2), "0.3333333333333333");  // all of its digits
    EXPECT_EQ(engine.Cell(7, 1), "-0.1");
    EXPECT_EQ(engine.Cell(7, 3), "0.30000000000000004");  // origin and four spacings, as the file holds it
    EXPECT_EQ(engine.Cell(8, 1), "0");
    EXPECT_EQ(engine.Cell(8, 3), "1");
    EXPECT_EQ(engine.Cell(9, 1), "0.9");
    EXPECT_EQ(engine.Cell(9, 3), "1.3");
    const double cells = 11 * 0.1 / 3;
    EXPECT_NEAR(NumberIn(engine.Cell(27, 3)), cells, 1e-15);
    EXPECT_NEAR(NumberIn(engine.Cell(34, 3)), cells * std::numbers::sqrt2, 1e-15);
    // 1 + x over all cells is 0.44, less the left-out cell of mean height 0.95.
    EXPECT_NEAR(NumberIn(engine.Cell(21, 3)), 0.44 - 0.95 * 0.1 / 3, 1e-15);
    EXPECT_EQ(engine.EntryCount(), 1u);
}

TEST(GridVolumeMember, SixWithALowerGridHasItsLastCellsSixLower) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    const std::string lower = engine.Put("b.grd", Level(1.5));
    engine.Six("GridVolume", {upper, None(), lower});
    EXPECT_EQ(engine.Cell(4, 4), "5");
    EXPECT_EQ(engine.Cell(9, 1), "2");
    EXPECT_EQ(engine.Cell(9, 3), "6");
    EXPECT_NEAR(NumberIn(engine.Cell(27, 3)), 60, 1e-12);
    EXPECT_NEAR(NumberIn(engine.Cell(33, 3)), 24, 1e-12);
    EXPECT_NEAR(NumberIn(engine.Cell(40, 3)), 24 * std::numbers::sqrt2, 1e-12);
}

TEST(GridVolumeMember, SixReadsTheCellsBackFromTheSavedText) {
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", Ramp());
    const std::string saved = engine.Path("volume.dat");
    engine.Six("FileNew", {});
    engine.Six("GridVolume", {grid, None(), None(), 0});
    engine.Six("FileSaveAs", {saved});
    const Value handle = engine.Six("FileOpen", {saved, 1});
    const auto cell = [&](int row, int column) {
        return std::get<std::string>(engine.Six("GetWksCell", {Argument(handle), row, column}));
    };
    EXPECT_EQ(cell(4, 4), "5");
    EXPECT_EQ(cell(4, 7), "4");
    EXPECT_EQ(cell(5, 2), "1");
    EXPECT_EQ(cell(6, 2), "2");
    EXPECT_EQ(cell(7, 1), "0");
    EXPECT_EQ(cell(7, 3), "4");
    EXPECT_EQ(cell(8, 1), "0");
    EXPECT_EQ(cell(8, 3), "6");
    EXPECT_EQ(cell(9, 1), "2");
    EXPECT_EQ(cell(9, 3), "6");
    EXPECT_EQ(cell(21, 3), "96");
    EXPECT_EQ(cell(27, 3), "24");
    EXPECT_NEAR(NumberIn(cell(34, 3)), 24 * std::numbers::sqrt2, 1e-12);
    EXPECT_NE(FileBytes(saved).find("5\t\trows\t4\r\n"), std::string::npos);
    engine.Six("FileClose", {});
    engine.Six("FileClose", {});
}

TEST(GridVolumeMember, EveryNumberOfTheSheetReadsBackTheSame) {
    EngineForms engine;
    const Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 1e-7, .XMax = 1e22, .YMin = -1234567.25, .YMax = 1e15},
                             [](double, double) { return 2.0; });
    engine.Six("GridVolume", {engine.Put("a.grd", grid), None(), None(), 0});
    const Grid read = engine.Get("a.grd");
    EXPECT_EQ(engine.Cell(7, 1), "1E-07");
    EXPECT_EQ(engine.Cell(7, 3), "1E+22");
    EXPECT_EQ(engine.Cell(8, 1), "-1234567.25");
    EXPECT_EQ(NumberIn(engine.Cell(8, 3)), read.Shape.YMax);
    EXPECT_EQ(NumberIn(engine.Cell(5, 2)), read.Shape.SpacingX());
}

TEST(GridVolumeMember, WrongArgumentsFail) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    const std::string other = engine.Put("b.grd", Bumps());
    const Argument grid("Upper", upper);
    const Argument zero("Lower", 0);
    const std::string member = "GridVolume";
    EXPECT_TRUE(CallFails(engine, false, member, {zero}, "Upper is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid}, "Lower is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {{"Upper", 3}, zero}, "Upper is not a text"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Lower", true}}, "Lower is not a text"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Lower", HUGE_VAL}}, "Lower is not a finite number"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Lower", other}}, "14 columns and 11 rows"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Lower", engine.Path("c.grd")}}, "c.grd"));
    EXPECT_TRUE(CallFails(engine, false, member, {{"Upper", engine.Path("c.grd")}, zero}, "c.grd"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, zero, {"pResults", 5}}, "pResults is not an array"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, zero, ArrayArgument(Figures(10))},
                          "pResults has 10 elements; 11 are needed"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, zero, {"ShowReport", "yes"}}, "ShowReport"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, zero, {"Elsewhere", 1}}, "no argument Elsewhere"));
    EXPECT_TRUE(CallFails(engine, false, member, {upper, 0, None(), false, 1}, "4 arguments at most"));
    EXPECT_TRUE(CallFails(engine, true, member, {upper, None(), None(), "zero"}, "LowerConstant is not a number"));
    EXPECT_TRUE(engine.Sheet().Rows.empty());
}

TEST(GridVolumeMember, FailedCallLeavesTheArrayAlone) {
    EngineForms engine;
    const std::string upper = engine.Put("a.grd", Ramp());
    const NumberArray figures = Figures();
    EXPECT_TRUE(CallFails(engine, false, "GridVolume",
                          {{"Upper", upper}, {"Lower", engine.Put("b.grd", Bumps())}, ArrayArgument(figures)}, "rows"));
    EXPECT_EQ(*figures, std::vector<double>(11, -1.0));
}

// ---- GridSlice

TEST(GridSliceMember, WritesRecordsOfEachLine) {
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", Ramp());
    const std::string lines = engine.PutText("l.bln", "2,0\r\n0.5,1\r\n1.5,1\r\n3\r\n-1 3\r\n0.25 3\r\n0.25 3\r\n");
    const std::string expected =
        "0.5,1,2.5,0,1\r\n"
        "1,1,3,0.5,1\r\n"
        "1.5,1,3.5,1,1\r\n"
        "-1,3,1.70141E+38,0,2\r\n"
        "0,3,2,1,2\r\n"
        "0.25,3,2.25,1.25,2\r\n";
    engine.Eight("GridSlice", {{"InGrid", grid}, {"BlankFile", lines}, {"OutDataFile", engine.Path("out8.dat")}});
    EXPECT_EQ(FileBytes(engine.Path("out8.dat")), expected);
    engine.Six("GridSlice", {grid, lines, None(), engine.Path("out6.dat")});
    EXPECT_EQ(FileBytes(engine.Path("out6.dat")), expected);
}

TEST(GridSliceMember, NumbersHaveFifteenDigitsAndNoMinusZero) {
    EngineForms engine;
    const Grid grid = GridOf({.Columns = 2, .Rows = 2, .XMin = -1, .XMax = 1, .YMin = -1, .YMax = 1},
                             [](double, double) { return -0.0; });
    const std::string lines = engine.PutText("l.bln", "1 0\n-0.0,0.33333333333333331\n");
    engine.Eight("GridSlice",
                 {{"InGrid", engine.Put("a.grd", grid)}, {"BlankFile", lines}, {"OutDataFile", engine.Path("o.dat")}});
    EXPECT_EQ(FileBytes(engine.Path("o.dat")), "0,0.333333333333333,0,0,1\r\n");
}

TEST(GridSliceMember, OutputMayTakeThePlaceOfTheLine) {
    EngineForms engine;
    const std::string grid = engine.Put("a.grd", Ramp());
    const std::string lines = engine.PutText("l.bln", "1,0\n2,3\n");
    engine.Eight("GridSlice", {{"InGrid", grid}, {"BlankFile", lines}, {"OutDataFile", lines}});
    EXPECT_EQ(FileBytes(lines), "2,3,4,0,1\r\n");
}

TEST(GridSliceMember, WrongArgumentsAndFilesFail) {
    EngineForms engine;
    const Argument grid("InGrid", engine.Put("a.grd", Ramp()));
    const Argument line("BlankFile", engine.PutText("l.bln", "2,0\n1,1\n2,2\n"));
    const Argument broken("BlankFile", engine.PutText("b.bln", "3,0\n1,1\n2,2\n"));
    const Argument wordy("BlankFile", engine.PutText("w.bln", "2,0\n1,one\n2,2\n"));
    const Argument damaged("InGrid", engine.PutText("d.grd", FileBytes(engine.Path("a.grd")).substr(0, 150)));
    const Argument out("OutDataFile", engine.Path("out.dat"));
    const std::string member = "GridSlice";
    EXPECT_TRUE(CallFails(engine, false, member, {line, out}, "InGrid is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, out}, "BlankFile is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, line}, "OutDataFile is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, line, {"OutDataFile", ""}}, "OutDataFile is empty"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"BlankFile", engine.Path("none.bln")}, out}, "none.bln"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, broken, out}, "b.bln"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, wordy, out}, "\"one\" is not a number"));
    EXPECT_TRUE(CallFails(engine, false, member, {damaged, line, out}, "d.grd"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, line, {"OutDataFile", engine.Path("no/out.dat")}}, "out.dat"));
}

// ---- GridCalculus

TEST(GridCalculusMember, EightByName) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Bumps());
    const Grid grid = engine.Get("a.grd");
    Progress progress;
    engine.Eight("GridCalculus",
                 {{"InGrid", input}, {"Operation", 3}, {"Param1", 30}, {"OutGrid", engine.Path("c.grd")}});
    EXPECT_TRUE(SameBits(engine.Get("c.grd").Z, CurvatureGrid(grid, 30, progress).Z));
    engine.Eight("GridCalculus", {{"InGrid", input}, {"Operation", 4}, {"OutGrid", engine.Path("s.grd")}});
    EXPECT_TRUE(SameBits(engine.Get("s.grd").Z, SlopeGrid(grid, progress).Z));
    engine.Eight(
        "GridCalculus",
        {{"InGrid", input}, {"Operation", 5}, {"Param1", 0.5}, {"OutGrid", engine.Path("t.grd")}, {"OutFmt", 3}});
    EXPECT_TRUE(SameBits(engine.Get("t.grd").Z, AspectGrid(grid, 0.5, progress).Z));
    EXPECT_EQ(FileBytes(engine.Path("t.grd")).substr(0, 4), "DSRB");
}

TEST(GridCalculusMember, SixByPosition) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Bumps());
    const Grid grid = engine.Get("a.grd");
    Progress progress;
    const auto inFloats = [](const Grid& result) {
        std::vector<double> z;
        for (const double height : result.Z) {
            z.push_back(IsBlank(height) ? kBlankHeight : static_cast<double>(static_cast<float>(height)));
        }
        return z;
    };
    engine.Six("GridCalculus", {input, 0, 2, 30, None(), None(), None(), None(), engine.Path("c.grd")});
    EXPECT_EQ(FileBytes(engine.Path("c.grd")).substr(0, 4), "DSBB");
    EXPECT_TRUE(SameBits(engine.Get("c.grd").Z, inFloats(CurvatureGrid(grid, 30, progress))));
    engine.Six("GridCalculus", {input, 1, None(), None(), 0, None(), None(), None(), engine.Path("s.grd")});
    EXPECT_TRUE(SameBits(engine.Get("s.grd").Z, inFloats(SlopeGrid(grid, progress))));
    engine.Six("GridCalculus", {input, 1, None(), None(), 1, None(), None(), None(), engine.Path("t.grd")});
    EXPECT_TRUE(SameBits(engine.Get("t.grd").Z, inFloats(AspectGrid(grid, 0, progress))));
}

TEST(GridCalculusMember, OutputMayTakeThePlaceOfTheInput) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Ramp());
    engine.Eight("GridCalculus", {{"InGrid", input}, {"Operation", 4}, {"OutGrid", input}});
    for (const double slope : engine.Get("a.grd").Z) EXPECT_NEAR(slope, 45, 1e-13);
}

TEST(GridCalculusMember, WrongArgumentsFail) {
    EngineForms engine;
    const std::string path = engine.Put("a.grd", Ramp());
    const Argument grid("InGrid", path);
    const Argument out("OutGrid", engine.Path("out.grd"));
    const Argument curvature("Operation", 3);
    const std::string member = "GridCalculus";
    EXPECT_TRUE(CallFails(engine, false, member, {curvature, {"Param1", 1}, out}, "InGrid is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, out}, "Operation is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Operation", 2}, out}, "Operation 2 stands for no operation"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Operation", 3.5}, out}, "Operation is not a whole number"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, curvature, out}, "Param1 is missing"));
    EXPECT_TRUE(
        CallFails(engine, false, member, {grid, curvature, {"Param1", "steep"}, out}, "Param1 is not a number"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Operation", 4}}, "OutGrid is missing"));
    EXPECT_TRUE(CallFails(engine, false, member, {grid, {"Operation", 4}, out, {"OutFmt", 9}}, "OutFmt 9"));
    EXPECT_TRUE(
        CallFails(engine, false, member, {{"InGrid", engine.Path("none.grd")}, {"Operation", 4}, out}, "none.grd"));
    const Argument target(engine.Path("out.grd"));
    EXPECT_TRUE(CallFails(engine, true, member, {path, 2, 2, 30, None(), None(), None(), None(), target}, "Kind 2"));
    EXPECT_TRUE(
        CallFails(engine, true, member, {path, 0, 1, 30, None(), None(), None(), None(), target}, "Directional 1"));
    EXPECT_TRUE(
        CallFails(engine, true, member, {path, 1, None(), None(), 2, None(), None(), None(), target}, "Terrain 2"));
    EXPECT_TRUE(
        CallFails(engine, true, member, {path, 1, None(), None(), 0, None(), None(), None()}, "OutGrid is missing"));
}

// ---- GridFilter and GridMatrixSmooth

NumberMatrix CentredMatrix(int size, double centre) {
    NumberMatrix matrix{.Rows = size, .Columns = size, .Values = {}};
    matrix.Values.assign(static_cast<std::size_t>(size) * static_cast<std::size_t>(size), 1.0);
    matrix.Values[matrix.Values.size() / 2] = centre;
    return matrix;
}

Grid Filtered(const Grid& grid, const FilterWeights& weights, int passes = 1) {
    Progress progress;
    return FilterGrid(grid, weights, passes, progress);
}

TEST(GridFilterMember, EightByName) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Bumps());
    const Grid grid = engine.Get("a.grd");
    const Argument in("InGrid", input);
    const Argument out("OutGrid", engine.Path("f.grd"));
    engine.Eight("GridFilter", {in,
                                {"Filter", 5},
                                {"NumPasses", 3},
                                {"NumRow", 9},
                                {"NumCol", 9},
                                {"UserFilter", Value(CentredMatrix(9, 4))},
                                out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, CentreWeighted(4, 4, grid.Shape), 3).Z));
    engine.Eight("GridFilter", {in, {"Filter", 4}, {"Param1", "0.25"}, {"NumRow", 5}, {"NumCol", 5}, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, SizedFilter(4, 5, 0.25, grid.Shape)).Z));
    // The fixed filters have no use for a size.
    engine.Eight("GridFilter", {in, {"Filter", 16}, {"NumRow", 8}, {"NumCol", 4}, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, FixedFilter(16)).Z));
    engine.Eight("GridFilter", {in, {"Filter", 7}, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, FixedFilter(7)).Z));
    engine.Eight("GridFilter", {in, {"Filter", 7}, {"NumPasses", 0}, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, grid.Z));
}

TEST(GridFilterMember, EightByThirteenPositions) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Bumps());
    const Grid grid = engine.Get("a.grd");
    const std::string out = engine.Path("f.grd");
    const Argument none = None();
    const Argument matrix{Value(CentredMatrix(3, 3))};
    engine.Eight("GridFilter", {input, 5, none, none, 2, none, none, 3, 3, none, none, matrix, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, CentreWeighted(1, 3, grid.Shape), 2).Z));
    // The weights stand there whatever the filter.
    engine.Eight("GridFilter", {input, 4, none, none, 1, none, none, 3, 3, none, none, matrix, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, SizedFilter(4, 3, 1, grid.Shape)).Z));
    engine.Eight("GridFilter", {input, 1, none, none, 1, none, none, 5, 5, none, none, none, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, SizedFilter(1, 5, 1, grid.Shape)).Z));
    engine.Eight("GridFilter", {input, 6, none, none, 1, none, none, 3, 3, none, none, matrix, out});
    EXPECT_TRUE(SameBits(engine.Get("f.grd").Z, Filtered(grid, FixedFilter(6)).Z));
}

TEST(GridFilterMember, OutputMayTakeThePlaceOfTheInput) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Level(3));
    engine.Eight("GridFilter", {{"InGrid", input}, {"Filter", 8}, {"OutGrid", input}});
    EXPECT_TRUE(SameBits(engine.Get("a.grd").Z, Level(3).Z));
}

TEST(GridFilterMember, WrongArgumentsFail) {
    EngineForms engine;
    const Argument in("InGrid", engine.Put("a.grd", Ramp()));
    const Argument out("OutGrid", engine.Path("out.grd"));
    const std::string member = "GridFilter";
    const auto fails = [&](Arguments more, const std::string& words) {
        more.push_back(in);
        more.push_back(out);
        return CallFails(engine, false, member, more, words);
    };
    const Argument rows("NumRow", 3);
    const Argument columns("NumCol", 3);
    EXPECT_TRUE(fails({rows, columns}, "Filter is missing"));
    EXPECT_TRUE(fails({{"Filter", 13}}, "Filter 13 stands for no filter"));
    EXPECT_TRUE(fails({{"Filter", "soft"}}, "Filter is not a number"));
    EXPECT_TRUE(fails({{"Filter", 1}, columns}, "NumRow is missing"));
    EXPECT_TRUE(fails({{"Filter", 1}, {"NumRow", 4}, {"NumCol", 4}}, "NumRow 4 is not an odd number"));
    EXPECT_TRUE(fails({{"Filter", 1}, {"NumRow", 3}, {"NumCol", 2}}, "NumCol 2 is not an odd number"));
    EXPECT_TRUE(fails({{"Filter", 1}, {"NumRow", -3}, {"NumCol", -3}}, "NumRow -3 is not an odd number"));
    EXPECT_TRUE(fails({{"Filter", 1}, rows, {"NumCol", 5}}, "NumRow 3 is not NumCol, which is 5"));
    EXPECT_TRUE(fails({{"Filter", 1}, {"NumRow", 2.5}, columns}, "NumRow is not a whole number"));
    EXPECT_TRUE(fails({{"Filter", 8}, {"NumPasses", -1}}, "NumPasses -1"));
    EXPECT_TRUE(fails({{"Filter", 5}, rows, columns}, "UserFilter is missing"));
    EXPECT_TRUE(fails({{"Filter", 5}, rows, columns, {"UserFilter", 3}}, "UserFilter is not a table"));
    EXPECT_TRUE(fails({{"Filter", 5}, rows, columns, {"UserFilter", Value(CentredMatrix(5, 1))}},
                      "UserFilter has 5 rows and 5 columns, not 3 of each"));
    EXPECT_TRUE(fails({{"Filter", 5}, rows, columns, {"UserFilter", Value(CentredMatrix(3, std::nan("")))}},
                      "UserFilter has a weight that is not a finite number"));
    EXPECT_TRUE(fails({{"Filter", 4}, rows, columns, {"Param1", -1e300}}, "Param1"));
    EXPECT_TRUE(CallFails(engine, false, member, {in, {"Filter", 8}}, "OutGrid is missing"));
    EXPECT_TRUE(
        CallFails(engine, false, member, {{"InGrid", engine.Path("none.grd")}, {"Filter", 8}, out}, "none.grd"));
}

TEST(GridMatrixSmoothMember, BySevenPositionsUnderBothVersions) {
    EngineForms engine;
    const std::string input = engine.Put("a.grd", Bumps());
    const Grid grid = engine.Get("a.grd");
    const Grid smooth = Filtered(grid, CentreWeighted(2, 4, grid.Shape));
    // The weight comes as the text of its box.
    engine.Eight("GridMatrixSmooth", {input, 0, "4", None(), 2, 2, engine.Path("8.grd")});
    EXPECT_TRUE(SameBits(engine.Get("8.grd").Z, smooth.Z));
    engine.Six("GridMatrixSmooth", {input, 0, "4", None(), 2, 2, engine.Path("6.grd")});
    EXPECT_TRUE(GridsAgree(engine.Get("6.grd"), smooth, 1e-7));
    EXPECT_EQ(FileBytes(engine.Path("6.grd")).substr(0, 4), "DSBB");
}

TEST(GridMatrixSmoothMember, WrongArgumentsFail) {
    EngineForms engine;
    const std::string in = engine.Put("a.grd", Ramp());
    const std::string out = engine.Path("out.grd");
    const std::string member = "GridMatrixSmooth";
    for (const bool six : {true, false}) {
        EXPECT_TRUE(CallFails(engine, six, member, {None(), 0, 3, None(), 1, 1, out}, "InGrid is missing"));
        EXPECT_TRUE(CallFails(engine, six, member, {in, 0, "much", None(), 1, 1, out}, "CentreWeight is not a number"));
        EXPECT_TRUE(
            CallFails(engine, six, member, {in, 0, 3, None(), 1.5, 1.5, out}, "HalfRows is not a whole number"));
        EXPECT_TRUE(CallFails(engine, six, member, {in, 0, 3, None(), -1, -1, out}, "HalfRows -1"));
        EXPECT_TRUE(CallFails(engine, six, member, {in, 0, 3, None(), 1, 2, out}, "HalfColumns 2 is not HalfRows"));
        EXPECT_TRUE(CallFails(engine, six, member, {in, 0, 3, None(), 1, 1}, "OutGrid is missing"));
        EXPECT_TRUE(CallFails(engine, six, member, {in, 0, 3, None(), 1, 1, engine.Path("no/out.grd")}, "out.grd"));
    }
}

}  // namespace
}  // namespace crownlab
