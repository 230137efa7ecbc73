#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "mapengine/grid_file.h"
#include "mapengine/map_engine.h"
#include "mapengine/scattered_points.h"
#include "support/expect_failure.h"
#include "support/ordinary_user.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr std::string_view kEight = "Surfer.Application";
constexpr std::string_view kSix = "Surfer.APP";

/// Notes what the engine puts on the clipboard.
class NotingHost : public EngineHost {
public:
    void CallRuns(std::string_view, double) override {}
    void CallEnded() override {}
    void SetClipboardText(const std::string& text) override { Clipboard = text; }

    std::string Clipboard = "untouched";
};

/// The plane z = 12.5 - 0.25 y + 0.125 x at five places.
constexpr const char* kPlaneData = "0,0,12.5\n4,0,13\n0,2,12\n4,2,12.5\n1,1,12.375\n";

class GridData : public ::testing::Test {
protected:
    void SetUp() override { PutFile(data_, kPlaneData); }

    Value Call(std::string_view className, const Arguments& arguments) {
        return engine_.Running(className)->Invoke("GridData", arguments);
    }
    Grid Made(std::string_view className, const Arguments& arguments) {
        std::filesystem::remove(out_);
        const Value result = Call(className, arguments);
        EXPECT_EQ(TraceText(result), "True");
        return ReadGrid(out_);
    }
    /// The call fails for that reason and leaves the folder as it was.
    ::testing::AssertionResult Refuses(std::string_view className, const Arguments& arguments, const std::string& why) {
        const std::size_t before = folder_.EntryCount();
        const std::string bytes = FileBytes(out_);
        const auto result = FailsWith(
            FailureKind::AutomationFailed, [&] { Call(className, arguments); }, why);
        if (folder_.EntryCount() != before || FileBytes(out_) != bytes) {
            return ::testing::AssertionFailure() << "the output was touched";
        }
        return result;
    }
    /// Cells of the open report, as a tool sees them once its keys have saved it.
    std::string ReportText() {
        std::string path = folder_ / "Report1.txt";
        EXPECT_TRUE(engine_.ActivateWindow("Surfer - "));
        engine_.SendKeys("%fs" + path + "~");
        engine_.SendKeys("y");
        engine_.SendKeys("%fc");
        return path;
    }
    Worksheet Report() { return ReadWorksheet(ReportText()); }

    TempFolder folder_;
    std::string data_ = folder_ / "in.dat";
    std::string out_ = folder_ / "out.grd";
    NotingHost host_;
    MapEngine engine_{host_};
};

void ExpectPlane(const Grid& grid) {
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            const double expected = 12.5 - 0.25 * grid.Shape.Y(row) + 0.125 * grid.Shape.X(column);
            EXPECT_NEAR(grid.At(column, row), expected, 1e-6);
        }
    }
}

TEST_F(GridData, NamedTriangulation) {
    const Grid grid = Made(kEight, {{"DataFile", data_},
                                    {"NumCols", 9},
                                    {"NumRows", 5},
                                    {"XMin", 0},
                                    {"XMax", 4},
                                    {"YMin", 0},
                                    {"YMax", 2},
                                    {"Algorithm", 9},
                                    {"ShowReport", false},
                                    {"OutGrid", out_}});
    EXPECT_EQ(grid.Shape, ShapeOf(9, 5, 0, 4, 0, 2));
    ExpectPlane(grid);
    EXPECT_EQ(FileBytes(out_).substr(0, 4), "DSRB");
    EXPECT_EQ(host_.Clipboard, "untouched");
    EXPECT_FALSE(engine_.Session().HasReport());
}

TEST_F(GridData, NamedWithColumnsAndFilter) {
    PutFile(data_, "1 5 7 1\n2 5 6 0\n3 1E38 6 1\n4 1.70141E+38 7 0\n5 9 7 0\n");
    const Grid grid = Made(kEight, {{"DataFile", data_},
                                    {"XCol", 3},
                                    {"yCol", 4},
                                    {"zCol", 2},
                                    {"NumCols", 2},
                                    {"NumRows", 2},
                                    {"Algorithm", 2},
                                    {"ShowReport", false},
                                    {"ExclusionFilter", "Z > 1E38"},
                                    {"OutGrid", out_}});
    // What is left: (7, 1) and (6, 0) at 5, and (7, 0) at 9.
    EXPECT_EQ(grid.Shape, ShapeOf(2, 2, 6, 7, 0, 1));
    EXPECT_EQ(grid.At(0, 0), 5);
    EXPECT_EQ(grid.At(1, 0), 9);
    EXPECT_EQ(grid.At(1, 1), 5);
}

TEST_F(GridData, NumbersSentAsTextAreNumbers) {
    const Grid grid = Made(kEight, {{"DataFile", data_},
                                    {"NumCols", "9"},
                                    {"NumRows", "5"},
                                    {"XMin", "0"},
                                    {"XMax", " 4.0 "},
                                    {"Algorithm", "9"},
                                    {"OutGrid", out_}});
    EXPECT_EQ(grid.Shape, ShapeOf(9, 5, 0, 4, 0, 2));
}

TEST_F(GridData, LimitsAndCountsThatArentGivenFollowFromTheData) {
    EXPECT_EQ(Made(kEight, {{"DataFile", data_}, {"Algorithm", 9}, {"OutGrid", out_}}).Shape,
              ShapeOf(100, 51, 0, 4, 0, 2));  // 49.5 intervals, to the even 50
    EXPECT_EQ(Made(kEight, {{"DataFile", data_}, {"Algorithm", 9}, {"YMax", 8}, {"OutGrid", out_}}).Shape,
              ShapeOf(51, 100, 0, 4, 0, 8));
    EXPECT_EQ(Made(kEight, {{"DataFile", data_}, {"Algorithm", 9}, {"XMax", 990}, {"OutGrid", out_}}).Shape,
              ShapeOf(100, 2, 0, 990, 0, 2));
    EXPECT_EQ(Made(kEight, {{"DataFile", data_}, {"Algorithm", 9}, {"NumRows", 7}, {"OutGrid", out_}}).Shape,
              ShapeOf(100, 7, 0, 4, 0, 2));
    EXPECT_EQ(Made(kSix, {data_, 0, 1, 2, Absent(), Absent(), Absent(), Absent(), Absent(), Absent(), Absent(),
                          Absent(), 6, out_})
                  .Shape,
              ShapeOf(100, 51, 0, 4, 0, 2));
}

TEST_F(GridData, ByPositionWithCountsInPlaces9And10) {
    const Grid grid =
        Made(kSix, {data_, 0, 1, 2, Absent(), Absent(), Absent(), Absent(), 9, 5, Absent(), Absent(), 6, out_});
    EXPECT_EQ(grid.Shape, ShapeOf(9, 5, 0, 4, 0, 2));
    ExpectPlane(grid);
    EXPECT_EQ(FileBytes(out_).substr(0, 4), "DSBB");
    EXPECT_EQ(host_.Clipboard, "untouched");
}

TEST_F(GridData, ByPositionWithRangesAndRowsBeforeColumnsInPlaces11And12) {
    const Grid grid = Made(kSix, {data_, 0, 1, 2, 1, 3, 0.5, 1.5, Absent(), Absent(), 5, 9, 6, out_});
    EXPECT_EQ(grid.Shape, ShapeOf(9, 5, 1, 3, 0.5, 1.5));
    ExpectPlane(grid);
}

TEST_F(GridData, ByPositionWithRangesAndCountsInPlaces9And10) {
    const Grid grid = Made(kSix, {data_, 0, 1, 2, 1, 3, 0.5, 1.5, 9, 5, Absent(), Absent(), 1, out_});
    EXPECT_EQ(grid.Shape, ShapeOf(9, 5, 1, 3, 0.5, 1.5));
    // Places 9 and 10 go before 11 and 12.
    EXPECT_EQ(Made(kSix, {data_, 0, 1, 2, 1, 3, 0.5, 1.5, 9, 5, 50, 60, 1, out_}).Shape, grid.Shape);
}

/// The 54 places of a regression.
Arguments RegressionByPosition(const std::string& data, const std::string& out) {
    Arguments arguments = {data, 0, 1, 2, -1, 5, 0, 3, 7, 4, Absent(), Absent(), 3, out, 1};
    while (arguments.size() < 50) arguments.emplace_back(Absent());
    for (int i = 0; i < 4; ++i) arguments.emplace_back(1);
    return arguments;
}

TEST_F(GridData, RegressionByPositionPutsThePlaneOnTheClipboard) {
    const Grid grid = Made(kSix, RegressionByPosition(data_, out_));
    EXPECT_EQ(grid.Shape, ShapeOf(7, 4, -1, 5, 0, 3));
    ExpectPlane(grid);
    EXPECT_EQ(host_.Clipboard, "z(x,y) = 12.5 + -0.25y + 0.125x");
    EXPECT_FALSE(engine_.Session().HasReport());
}

TEST_F(GridData, RegressionByPositionWithoutReportLeavesTheClipboard) {
    Arguments arguments = RegressionByPosition(data_, out_);
    arguments[14] = Argument(0);
    Made(kSix, arguments);
    EXPECT_EQ(host_.Clipboard, "untouched");
}

Arguments NamedRegression(const std::string& data, const std::string& out, int algorithm) {
    return {
        {"DataFile", data},   {"NumCols", 10},      {"NumRows", 10},          {"XMin", -1},         {"XMax", 5},
        {"YMin", 0},          {"YMax", 3},          {"Algorithm", algorithm}, {"ShowReport", true}, {"OutGrid", out},
        {"RegrMaxXOrder", 1}, {"RegrMaxYOrder", 1}, {"RegrMaxTotalOrder", 1}};
}

TEST_F(GridData, NamedRegressionHoldsThePlaneInRows166To168OfItsReport) {
    ExpectPlane(Made(kEight, NamedRegression(data_, out_, 7)));
    const Worksheet report = Report();
    EXPECT_EQ(report.Cell(166, 2), "12.5");
    EXPECT_EQ(report.Cell(167, 2), "-0.25");
    EXPECT_EQ(report.Cell(168, 2), "0.125");
    EXPECT_EQ(report.Cell(165, 2), "");
    EXPECT_EQ(host_.Clipboard, "untouched");
}

TEST_F(GridData, RegressionByItsArgumentsHoldsThePlaneInRows170To172) {
    ExpectPlane(Made(kEight, NamedRegression(data_, out_, 6)));
    const Worksheet report = Report();
    EXPECT_EQ(report.Cell(170, 2), "12.5");
    EXPECT_EQ(report.Cell(171, 2), "-0.25");
    EXPECT_EQ(report.Cell(172, 2), "0.125");
}

TEST_F(GridData, TheReportTellsDataAndGrid) {
    PutFile(data_, std::string(kPlaneData) + "0,0,99\n7,7,1E38\n");
    Made(kEight, NamedRegression(data_, out_, 7));
    const std::string text = FileBytes(ReportText());
    for (const char* const line : {"Points read\t7\r\n", "Points used\t5\r\n", "Method\tpolynomial regression\r\n",
                                   "Columns\t10\r\n", "Root mean square deviation\t0\r\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line << text;
    }
}

TEST_F(GridData, EachClassHasItsNumbersOfMethods) {
    const auto height = [&](std::string_view className, int algorithm) {
        return Made(className, {{"DataFile", data_},
                                {"NumCols", 3},
                                {"NumRows", 3},
                                {"Algorithm", algorithm},
                                {"OutGrid", out_},
                                {"OutFmt", 2}})
            .At(1, 1);
    };
    PutFile(data_, "0 0 0\n4 0 0\n0 4 0\n4 4 8\n3 2 1\n");
    // In the middle: the weights of the corners are 1/8, that of the last point 1; the plane is flat along its fall.
    EXPECT_DOUBLE_EQ(height(kEight, 1), (8.0 / 8 + 1) / (4.0 / 8 + 1));
    EXPECT_DOUBLE_EQ(height(kSix, 0), height(kEight, 1));
    EXPECT_EQ(height(kEight, 2), height(kSix, 1));
    EXPECT_NE(height(kEight, 2), height(kEight, 1));
    EXPECT_EQ(height(kEight, 7), height(kSix, 3));
    EXPECT_NE(height(kEight, 7), height(kEight, 2));
    EXPECT_EQ(height(kEight, 9), height(kSix, 6));
    EXPECT_NEAR(height(kEight, 9), 2.0 / 3, 1e-12);
}

TEST_F(GridData, OtherNumbersStandForNoMethod) {
    const auto refuses = [&](std::string_view className, int algorithm) {
        return Refuses(className, {{"DataFile", data_}, {"Algorithm", algorithm}, {"OutGrid", out_}}, "Algorithm");
    };
    for (const int algorithm : {-1, 0, 3, 4, 5, 6, 8, 10}) EXPECT_TRUE(refuses(kEight, algorithm)) << algorithm;
    for (const int algorithm : {-1, 2, 4, 5, 7, 8, 9}) EXPECT_TRUE(refuses(kSix, algorithm)) << algorithm;
    EXPECT_TRUE(Refuses(kEight, {{"DataFile", data_}, {"OutGrid", out_}}, "Algorithm is missing"));
    EXPECT_TRUE(Refuses(kEight, {{"DataFile", data_}, {"Algorithm", 2.5}, {"OutGrid", out_}}, "Algorithm"));
}

TEST_F(GridData, WrongArgumentsAreNamed) {
    const auto with = [&](const Argument& further) {
        return Arguments{{"DataFile", data_}, {"Algorithm", 7}, {"OutGrid", out_}, further};
    };
    EXPECT_TRUE(Refuses(kEight, with({"NumCols", 1}), "NumCols is 1"));
    EXPECT_TRUE(Refuses(kEight, with({"NumRows", 0}), "NumRows is 0"));
    EXPECT_TRUE(Refuses(kEight, with({"NumCols", -5}), "NumCols is -5"));
    EXPECT_TRUE(Refuses(kEight, with({"NumCols", 2.5}), "NumCols"));
    EXPECT_TRUE(Refuses(kEight, with({"NumCols", "many"}), "NumCols"));
    EXPECT_TRUE(Refuses(kEight, with({"XMin", 4}), "x limits 4 to 4 don't rise"));
    EXPECT_TRUE(Refuses(kEight, with({"YMax", -1}), "y limits 0 to -1 don't rise"));
    EXPECT_TRUE(Refuses(kEight, with({"XMin", true}), "XMin"));
    EXPECT_TRUE(Refuses(kEight, with({"XCol", 0}), "XCol is 0; the first column is 1"));
    EXPECT_TRUE(Refuses(kSix,
                        {data_, -1, 1, 2, Absent(), Absent(), Absent(), Absent(), 5, 5, Absent(), Absent(), 6, out_},
                        "XCol is -1; the first column is 0"));
    EXPECT_TRUE(Refuses(kEight, with({"zCol", 4}), data_ + ": line 1 has 3 fields, 4 are needed"));
    EXPECT_TRUE(Refuses(kSix, {{"DataFile", data_}, {"Algorithm", 3}, {"OutGrid", out_}, {"zCol", 2147483647}},
                        data_ + ": line 1 has 3 fields"));
    EXPECT_TRUE(Refuses(kEight, with({"ExclusionFilter", "X > 5"}), "ExclusionFilter is \"X > 5\""));
    EXPECT_TRUE(Refuses(kEight, with({"RegrMaxXOrder", 2}), "RegrMaxXOrder is not 1"));
    EXPECT_TRUE(Refuses(kEight, with({"ShowReport", "yes"}), "ShowReport"));
    EXPECT_TRUE(Refuses(kEight, with({"OutFmt", 9}), "OutFmt 9"));
    EXPECT_TRUE(Refuses(kEight, with({"Smoothness", 1}), "no argument Smoothness"));
    EXPECT_TRUE(Refuses(kEight, with({"Algorithm", 7}), "Algorithm is given twice"));
    EXPECT_TRUE(Refuses(kEight, {{"Algorithm", 7}, {"OutGrid", out_}}, "DataFile is missing"));
    EXPECT_TRUE(Refuses(kEight, {{"DataFile", data_}, {"Algorithm", 7}}, "OutGrid is missing"));
    EXPECT_TRUE(Refuses(kSix, Arguments(55, Argument(Absent())), "54 arguments at most"));
}

TEST_F(GridData, DamagedDataAreNamedAndAnOldOutputStays) {
    PutFile(out_, "an old grid");
    for (const int algorithm : {1, 2, 7, 9}) {
        const Arguments arguments = {{"DataFile", data_}, {"Algorithm", algorithm}, {"OutGrid", out_}};
        PutFile(data_, "0 0 1\n4 0\n");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": line 2 has 2 fields"));
        PutFile(data_, "0 0 1\n\n4 0 z\n");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": line 3 holds \"z\""));
        PutFile(data_, "");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": there is no point to grid"));
        PutFile(data_, "0 0 1E37\n1 1 1.70141E+38\n");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": there is no point to grid"));
        PutFile(data_, "3 4 5\n");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": x limits 3 to 3 don't rise"));
        PutFile(data_, "3 4 5\n3 4 6\n3 4 7\n");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": x limits 3 to 3 don't rise"));
        PutFile(data_, "3 4 5\n4 4 6\n5 4 7\n");
        EXPECT_TRUE(Refuses(kEight, arguments, data_ + ": y limits 4 to 4 don't rise"));
    }
    EXPECT_TRUE(Refuses(kEight, {{"DataFile", folder_ / "no.dat"}, {"Algorithm", 9}, {"OutGrid", out_}}, "no.dat"));
}

TEST_F(GridData, OnePointOrALineWithLimitsGiven) {
    const auto arguments = [&](int algorithm) {
        return Arguments{{"DataFile", data_}, {"NumCols", 3}, {"NumRows", 3},           {"XMin", 0},      {"XMax", 6},
                         {"YMin", 0},         {"YMax", 6},    {"Algorithm", algorithm}, {"OutGrid", out_}};
    };
    PutFile(data_, "3 4 5\n3 4 6\n");
    for (const int algorithm : {1, 2}) {
        for (const double z : Made(kEight, arguments(algorithm)).Z) EXPECT_EQ(z, 5);
    }
    std::filesystem::remove(out_);
    EXPECT_TRUE(Refuses(kEight, arguments(9), data_ + ": triangulation needs three points, there are 1"));
    EXPECT_TRUE(Refuses(kEight, arguments(7), data_ + ": a plane needs three points, there are 1"));
    PutFile(data_, "1 1 5\n2 2 6\n4 4 8\n");
    for (const int algorithm : {1, 2}) EXPECT_EQ(BlankNodes(Made(kEight, arguments(algorithm))), 0u);
    std::filesystem::remove(out_);
    EXPECT_TRUE(Refuses(kEight, arguments(9), data_ + ": triangulation needs points that don't all lie on a line"));
    EXPECT_TRUE(Refuses(kEight, arguments(7), data_ + ": a plane needs points that don't all lie on a line"));
}

TEST_F(GridData, TooManyNodesAreRefusedBeforeWork) {
    const Arguments arguments = {
        {"DataFile", data_}, {"NumCols", 2147483647}, {"NumRows", 2147483647}, {"Algorithm", 2}, {"OutGrid", out_}};
    EXPECT_TRUE(FailsWith(FailureKind::OutOfMemory, [&] { Call(kEight, arguments); }));
    EXPECT_EQ(folder_.EntryCount(), 1u);
}

TEST_F(GridData, AFolderThatCantBeWrittenIsNamed) {
    const std::string locked = folder_ / "locked";
    std::filesystem::create_directory(locked);
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                                             std::filesystem::perms::others_read | std::filesystem::perms::others_exec);
    {
        const OrdinaryUser user(folder_.Path());
        ASSERT_TRUE(user.Holds());
        const Arguments arguments = {{"DataFile", data_}, {"Algorithm", 9}, {"OutGrid", locked + "/out.grd"}};
        EXPECT_TRUE(Refuses(kEight, arguments, locked));
    }
    const Arguments nowhere = {{"DataFile", data_}, {"Algorithm", 9}, {"OutGrid", folder_ / "no/out.grd"}};
    EXPECT_TRUE(Refuses(kEight, nowhere, "no"));
}

TEST_F(GridData, OutputOverTheInputWorks) {
    const Value result = Call(kEight, {{"DataFile", data_}, {"Algorithm", 9}, {"OutGrid", data_}});
    EXPECT_EQ(TraceText(result), "True");
    ExpectPlane(ReadGrid(data_));
}

TEST_F(GridData, APlaneBeyondNumbersIsRefused) {
    PutFile(data_, "0 0 -1.5E308\n1 0 -1E308\n0 1 -1E308\n");
    EXPECT_TRUE(Refuses(kEight, {{"DataFile", data_}, {"Algorithm", 7}, {"OutGrid", out_}},
                        data_ + ": the plane is beyond 64-bit floats"));
}

TEST_F(GridData, VeryLargeAndVerySmallPlacesAreGriddedAlike) {
    const auto heights = [&](const std::string& exponent, int algorithm) {
        PutFile(data_, "0e" + exponent + " 0 1\n4e" + exponent + " 0 2\n0 3e" + exponent + " 5\n4e" + exponent + " 3e" +
                           exponent + " 7\n1e" + exponent + " 2e" + exponent + " -1\n");
        return Made(kEight,
                    {{"DataFile", data_}, {"NumCols", 5}, {"NumRows", 4}, {"Algorithm", algorithm}, {"OutGrid", out_}})
            .Z;
    };
    for (const int algorithm : {1, 2, 7, 9}) {
        const std::vector<double> expected = heights("0", algorithm);
        for (const char* const exponent : {"-250", "-120", "120", "250"}) {
            const std::vector<double> given = heights(exponent, algorithm);
            for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_NEAR(given[i], expected[i], 1e-9) << exponent;
        }
    }
}

}  // namespace
}  // namespace crownlab
