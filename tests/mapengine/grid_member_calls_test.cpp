// The members that make a grid of a grid, called in all the ways in which the tools call them.

#include <gtest/gtest.h>

#include <filesystem>

#include "engine_call_forms.h"
#include "mapengine/grid_file.h"
#include "mapengine/map_engine.h"
#include "support/expect_failure.h"
#include "support/ordinary_user.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {
namespace fs = std::filesystem;

const Absent kAbsent;

/// Five columns, four rows, one unit apart; z = 10 column + row.
Grid NumberedGrid() {
    Grid grid(GridGeometry{.Columns = 5, .Rows = 4, .XMin = 0, .XMax = 4, .YMin = 0, .YMax = 3});
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 5; ++column) grid.At(column, row) = 10 * column + row;
    }
    return grid;
}

/// The engine under both of its classes.
class TestEngine {
public:
    Value Six(std::string_view member, const Arguments& arguments) {
        return engine_.Running("Surfer.APP")->Invoke(member, arguments);
    }
    Value Eight(std::string_view member, const Arguments& arguments) {
        return engine_.Running("Surfer.Application")->Invoke(member, arguments);
    }

private:
    SilentHost host_;
    MapEngine engine_{host_};
};

class GridMembersCalled : public ::testing::Test {
protected:
    GridMembersCalled() {
        Put("in.grd", NumberedGrid());
        PutFile("ring.bln", "4,0\n0.5,0.5\n3.5,0.5\n3.5,2.5\n0.5,2.5\n");
    }

    void Put(const std::string& name, const Grid& grid) { WriteGrid(files_, name, grid, GridFormat::Binary64); }
    /// First four bytes of the output, which tell its format.
    static std::string Tag() { return FileBytes("out.grd").substr(0, 4); }
    /// The output's heights; the file is taken away.
    static std::vector<double> TakeHeights() {
        const Grid grid = ReadGrid("out.grd");
        fs::remove("out.grd");
        return grid.Z;
    }
    /// The call fails with a sentence that starts with the member's name and holds `words`, and leaves no file.
    ::testing::AssertionResult Fails(const std::string& member, const Arguments& arguments, const std::string& words,
                                     bool six = false) {
        fs::remove("out.grd");
        const std::size_t before = folder_.EntryCount();
        const auto call = [&] { six ? engine_.Six(member, arguments) : engine_.Eight(member, arguments); };
        const ::testing::AssertionResult failed = FailsWith(FailureKind::AutomationFailed, call, words);
        if (!failed) return failed;
        const ::testing::AssertionResult named = FailsWith(FailureKind::AutomationFailed, call, member + ": ");
        if (!named && words.find(member) == std::string::npos) return named;
        if (folder_.EntryCount() != before) return ::testing::AssertionFailure() << "a file was left behind";
        return ::testing::AssertionSuccess();
    }

    TempFolder folder_;
    FileTable files_;
    TestEngine engine_;
};

TEST_F(GridMembersCalled, ConvertWritesTheFormatAskedFor) {
    engine_.Eight("GridConvert", {{"InGrid", "in.grd"}, {"OutGrid", "out.grd"}, {"OutFmt", 4}});
    EXPECT_EQ(FileBytes("out.grd").substr(0, 15), "0 0 0\r\n1 0 10\r\n");
    const std::string text = FileBytes("out.grd");
    engine_.Eight("GridConvert", {"in.grd", "out.grd", 4});
    EXPECT_EQ(FileBytes("out.grd"), text);
    engine_.Six("GridConvert", {"in.grd", "out.grd", 3});
    EXPECT_EQ(FileBytes("out.grd"), text);
    engine_.Six("GridConvert", {"in.grd", "out.grd", 1});
    EXPECT_EQ(Tag(), "DSBB");
    engine_.Six("GridConvert", {"in.grd", "out.grd"});
    EXPECT_EQ(Tag(), "DSBB");
    engine_.Eight("GridConvert", {"in.grd", "out.grd", 2});
    EXPECT_EQ(Tag(), "DSAA");
    engine_.Eight("GridConvert", {"in.grd", "out.grd", "3"});
    EXPECT_EQ(Tag(), "DSRB");
    engine_.Eight("gridconvert", {{"OUTGRID", "out.grd"}, {"ingrid", "in.grd"}});
    EXPECT_EQ(Tag(), "DSRB");
    EXPECT_EQ(TakeHeights(), NumberedGrid().Z);
}

TEST_F(GridMembersCalled, BlankTakesBothForms) {
    std::vector<double> expected = NumberedGrid().Z;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const std::size_t column = i % 5, row = i / 5;
        if (column < 1 || column > 3 || row < 1 || row > 2) expected[i] = kBlankHeight;
    }
    engine_.Eight("GridBlank", {{"InGrid", "in.grd"}, {"BlankFile", "ring.bln"}, {"OutGrid", "out.grd"}});
    EXPECT_EQ(Tag(), "DSRB");
    EXPECT_EQ(TakeHeights(), expected);
    engine_.Six("GridBlank", {"in.grd", "ring.bln", "out.grd", 1});
    EXPECT_EQ(Tag(), "DSBB");
    EXPECT_EQ(TakeHeights(), expected);
    engine_.Eight("GridBlank",
                  {{"InGrid", "in.grd"}, {"BlankFile", "ring.bln"}, {"OutGrid", "out.grd"}, {"OutFmt", 4}});
    EXPECT_EQ(FileBytes("out.grd").substr(0, 21), "0 0 1.70141E+38\r\n1 0 ");
    const std::string text = FileBytes("out.grd");
    engine_.Six("GridBlank", {"in.grd", "ring.bln", "out.grd", 3});
    EXPECT_EQ(FileBytes("out.grd"), text);
}

TEST_F(GridMembersCalled, BlankTakesRingsOneAfterTheOther) {
    // Two rings that blank outside leave what lies in both; one that blanks inside takes from that.
    PutFile("ring.bln",
            "4,0\n0.5,-1\n9,-1\n9,9\n0.5,9\n"
            "4\n-1,-1\n3.5,-1\n3.5,9\n-1,9\n"
            "4,1\n1.5,0.5\n2.5,0.5\n2.5,1.5\n1.5,1.5\n");
    engine_.Eight("GridBlank", {{"InGrid", "in.grd"}, {"BlankFile", "ring.bln"}, {"OutGrid", "out.grd"}});
    const double b = kBlankHeight;
    EXPECT_EQ(TakeHeights(),
              (std::vector<double>{b, 10, 20, 30, b, b, 11, b, 31, b, b, 12, 22, 32, b, b, 13, 23, 33, b}));
}

TEST_F(GridMembersCalled, MathTakesBothForms) {
    Grid other = NumberedGrid();
    other.Shape.XMin = 100;
    other.Shape.XMax = 108;
    for (double& z : other.Z) z = 12;
    Put("b.grd", other);
    const std::vector<double> larger{12, 12, 20, 30, 40, 12, 12, 21, 31, 41, 12, 12, 22, 32, 42, 12, 13, 23, 33, 43};
    engine_.Eight("GridMath",
                  {{"Function", "C=max(A,B)"}, {"InGridA", "in.grd"}, {"InGridB", "b.grd"}, {"OutGridC", "out.grd"}});
    // Limits may differ: the result has those of A.
    EXPECT_EQ(ReadGrid("out.grd").Shape, NumberedGrid().Shape);
    EXPECT_EQ(Tag(), "DSRB");
    EXPECT_EQ(TakeHeights(), larger);
    engine_.Eight("GridMath",
                  {{"InGridA", "in.grd"}, {"InGridB", "b.grd"}, {"OutGridC", "out.grd"}, {"Function", "C=max(A,B)"}});
    EXPECT_EQ(TakeHeights(), larger);
    engine_.Eight("GridMath", {"C=max(A,B)", "in.grd", "b.grd", "out.grd"});
    EXPECT_EQ(TakeHeights(), larger);
    engine_.Six("GridMath", {"in.grd", "b.grd", "out.grd", kAbsent, "C=max(A,B)"});
    EXPECT_EQ(Tag(), "DSBB");
    EXPECT_EQ(TakeHeights(), larger);
    engine_.Six("GridMath", {"in.grd", "b.grd", "out.grd", 1, "C=max(A,B)"});
    EXPECT_EQ(TakeHeights(), larger);
    engine_.Six("GridMath", {"in.grd", kAbsent, "out.grd", kAbsent, "C=A"});
    EXPECT_EQ(TakeHeights(), NumberedGrid().Z);
    engine_.Eight("GridMath", {{"InGridA", "in.grd"}, {"OutGridC", "out.grd"}, {"Function", "C = A - 1"}});
    EXPECT_EQ(TakeHeights()[7], 20);
}

TEST_F(GridMembersCalled, ExtractHasItsOrderByClass) {
    const std::vector<double> expected{12, 22, 32, 13, 23, 33};  // rows 3 to 4, columns 2 to 4
    engine_.Eight("GridExtract", {{"InGrid", "in.grd"},
                                  {"r1", 3},
                                  {"r2", 4},
                                  {"rFreq", 1},
                                  {"c1", 2},
                                  {"c2", 4},
                                  {"cFreq", 1},
                                  {"OutGrid", "out.grd"}});
    EXPECT_EQ(Tag(), "DSRB");
    EXPECT_EQ(ReadGrid("out.grd").Shape,
              (GridGeometry{.Columns = 3, .Rows = 2, .XMin = 1, .XMax = 3, .YMin = 2, .YMax = 3}));
    EXPECT_EQ(TakeHeights(), expected);
    engine_.Eight("GridExtract", {"in.grd", 3, 4, 1, 2, 4, 1, "out.grd"});
    EXPECT_EQ(TakeHeights(), expected);
    engine_.Six("GridExtract", {"in.grd", 3, 2, 4, 4, 1, 1, "out.grd"});
    EXPECT_EQ(Tag(), "DSBB");
    EXPECT_EQ(TakeHeights(), expected);
    engine_.Eight("GridExtract", {"in.grd", 1, 4, 3, 1, 5, 2, "out.grd"});
    EXPECT_EQ(TakeHeights(), (std::vector<double>{0, 20, 40, 3, 23, 43}));
}

TEST_F(GridMembersCalled, ExtractTakesMinusOneForTheWholeGrid) {
    engine_.Eight("GridExtract", {{"InGrid", "in.grd"},
                                  {"r1", -1},
                                  {"r2", -1},
                                  {"rFreq", 3},
                                  {"c1", -1},
                                  {"c2", -1},
                                  {"cFreq", 3},
                                  {"OutGrid", "out.grd"}});
    EXPECT_EQ(TakeHeights(), (std::vector<double>{0, 30, 3, 33}));
    engine_.Six("GridExtract", {"in.grd", 2, 1, 3, 5, -1, -1, "out.grd"});
    EXPECT_EQ(TakeHeights(), (std::vector<double>{1, 11, 21, 31, 41, 2, 12, 22, 32, 42}));
    engine_.Eight("GridExtract", {{"InGrid", "in.grd"}, {"OutGrid", "out.grd"}});
    EXPECT_EQ(TakeHeights(), NumberedGrid().Z);
}

TEST_F(GridMembersCalled, ExtractKeepsWhatABoxHasOfTheGrid) {
    engine_.Eight("GridExtract", {"in.grd", -3, 2, 1, 4, 100, 1, "out.grd"});
    EXPECT_EQ(TakeHeights(), (std::vector<double>{30, 40, 31, 41}));
    for (const Arguments& arguments : {
             Arguments{"in.grd", 5, 9, 1, 1, 5, 1, "out.grd"},
             Arguments{"in.grd", -9, -3, 1, 1, 5, 1, "out.grd"},
             Arguments{"in.grd", 4, 1, 1, 1, 5, 1, "out.grd"},
             Arguments{"in.grd", 3, -1, 1, 1, 5, 1, "out.grd"},
             Arguments{"in.grd", 1, 4, 4, 1, 5, 1, "out.grd"},
             Arguments{"in.grd", 1, 4, 1, 2, 2, 1, "out.grd"},
         }) {
        EXPECT_TRUE(Fails("GridExtract", arguments, "there have to be two of each at least"));
    }
    EXPECT_TRUE(Fails("GridExtract", {"in.grd", 1, 4, 0, 1, 5, 1, "out.grd"}, "rFreq is not a step of 1 or more"));
    EXPECT_TRUE(Fails("GridExtract", {"in.grd", 1, 4, 1, 1, 5, -2, "out.grd"}, "cFreq is not a step of 1 or more"));
    EXPECT_TRUE(Fails("GridExtract", {"in.grd", 1.5, 4, 1, 1, 5, 1, "out.grd"}, "r1 is not a whole number"));
}

TEST_F(GridMembersCalled, TransformHasItsNumbersByClass) {
    const auto eight = [&](int operation) {
        engine_.Eight("GridTransform", {{"InGrid", "in.grd"}, {"Operation", operation}, {"OutGrid", "out.grd"}});
    };
    const auto six = [&](int operation) {
        engine_.Six("GridTransform", {"in.grd", operation, kAbsent, kAbsent, kAbsent, kAbsent, kAbsent, "out.grd", 1});
    };
    eight(4);
    const std::vector<double> columnsReversed = TakeHeights();
    EXPECT_EQ(columnsReversed[0], 40);
    eight(5);
    const std::vector<double> rowsReversed = TakeHeights();
    EXPECT_EQ(rowsReversed[0], 3);
    six(3);
    EXPECT_EQ(TakeHeights(), columnsReversed);
    six(4);
    EXPECT_EQ(TakeHeights(), rowsReversed);
    EXPECT_TRUE(Fails("GridTransform", {"in.grd", 5, kAbsent, kAbsent, kAbsent, kAbsent, kAbsent, "out.grd"},
                      "Operation 5 stands for no transformation", true));
    EXPECT_TRUE(Fails("GridTransform", {{"InGrid", "in.grd"}, {"Operation", 2}, {"OutGrid", "out.grd"}},
                      "Operation 2 stands for no transformation"));
}

TEST_F(GridMembersCalled, TransformWritesTextOfTheMirroredGrid) {
    engine_.Six("GridTransform", {"in.grd", 4, kAbsent, kAbsent, kAbsent, kAbsent, kAbsent, "out.grd", 3});
    const std::string text = FileBytes("out.grd");
    EXPECT_EQ(text.substr(0, 16), "0 0 3\r\n1 0 13\r\n2");
    engine_.Eight("GridTransform", {{"InGrid", "in.grd"}, {"Operation", 5}, {"OutGrid", "out.grd"}, {"OutFmt", 4}});
    EXPECT_EQ(FileBytes("out.grd"), text);
}

TEST_F(GridMembersCalled, TransformOffsetsAndTurns) {
    engine_.Eight("GridTransform",
                  {{"InGrid", "in.grd"}, {"Operation", 1}, {"XOffset", -2}, {"YOffset", 0.5}, {"OutGrid", "out.grd"}});
    EXPECT_EQ(ReadGrid("out.grd").Shape,
              (GridGeometry{.Columns = 5, .Rows = 4, .XMin = -2, .XMax = 2, .YMin = 0.5, .YMax = 3.5}));
    engine_.Eight("GridTransform", {{"InGrid", "in.grd"}, {"Operation", 3}, {"Rotation", -90}, {"OutGrid", "out.grd"}});
    EXPECT_EQ(ReadGrid("out.grd").Shape,
              (GridGeometry{.Columns = 4, .Rows = 5, .XMin = 0, .XMax = 3, .YMin = 0, .YMax = 4}));
    // Clockwise: what was the left column, upwards, is the upper row, to the right.
    EXPECT_EQ(ReadGrid("out.grd").At(0, 4), 0);
    EXPECT_EQ(ReadGrid("out.grd").At(3, 4), 3);
    EXPECT_TRUE(Fails("GridTransform", {{"InGrid", "in.grd"}, {"Operation", 3}, {"OutGrid", "out.grd"}},
                      "Rotation is missing"));
    EXPECT_TRUE(Fails("GridTransform",
                      {{"InGrid", "in.grd"}, {"Operation", 3}, {"Rotation", 30}, {"OutGrid", "out.grd"}},
                      "a grid can't be turned by 30 degrees"));
}

TEST_F(GridMembersCalled, TheOutputMayBeTheInput) {
    engine_.Eight("GridTransform", {{"InGrid", "in.grd"}, {"Operation", 4}, {"OutGrid", "in.grd"}});
    EXPECT_EQ(ReadGrid("in.grd").Z[0], 40);
    engine_.Eight("GridMath",
                  {{"InGridA", "in.grd"}, {"InGridB", "in.grd"}, {"OutGridC", "in.grd"}, {"Function", "C=A+B"}});
    EXPECT_EQ(ReadGrid("in.grd").Z[0], 80);
    engine_.Eight("GridBlank", {{"InGrid", "in.grd"}, {"BlankFile", "ring.bln"}, {"OutGrid", "in.grd"}});
    EXPECT_EQ(ReadGrid("in.grd").Z[0], kBlankHeight);
    engine_.Eight("GridExtract", {"in.grd", 2, 3, 1, 2, 4, 1, "in.grd"});
    EXPECT_EQ(ReadGrid("in.grd").Z.size(), 6U);
    engine_.Eight("GridConvert", {"in.grd", "in.grd", 2});
    EXPECT_EQ(FileBytes("in.grd").substr(0, 4), "DSAA");
}

TEST_F(GridMembersCalled, WrongArgumentsAreNamed) {
    EXPECT_TRUE(Fails("GridConvert", {{"InGrid", "in.grd"}}, "OutGrid is missing"));
    EXPECT_TRUE(Fails("GridConvert", {kAbsent, "out.grd"}, "InGrid is missing"));
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", 5}, "OutGrid is not a text"));
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", ""}, "OutGrid is empty"));
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", "out.grd", "four"}, "OutFmt is not a number"));
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", "out.grd", 5}, "OutFmt 5 stands for no format"));
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", "out.grd", 4}, "OutFmt 4 stands for no format", true));
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", "out.grd", 4, 1}, "GridConvert takes 3 arguments at most"));
    EXPECT_TRUE(Fails("GridConvert", {{"Grid", "in.grd"}, {"OutGrid", "out.grd"}}, "GridConvert has no argument Grid"));
    EXPECT_TRUE(
        Fails("GridConvert", {"in.grd", {"InGrid", "in.grd"}, {"OutGrid", "out.grd"}}, "InGrid is given twice"));
    EXPECT_TRUE(Fails("GridMath", {{"Function", "C=A-B"}, {"InGridA", "in.grd"}, {"OutGridC", "out.grd"}},
                      "InGridB is missing, and B occurs in the formula"));
    EXPECT_TRUE(Fails("GridMath", {{"Function", "C=A-"}, {"InGridA", "in.grd"}, {"OutGridC", "out.grd"}},
                      "the formula \"C=A-\" can't be understood: "));
}

TEST_F(GridMembersCalled, WrongInputsAreNamed) {
    PutFile("text.grd", "1 2 3\r\n");
    PutFile("short.bln", "4,1\n1,1\n");
    EXPECT_TRUE(Fails("GridConvert", {"none.grd", "out.grd"}, "there is no file none.grd"));
    EXPECT_TRUE(Fails("GridConvert", {"text.grd", "out.grd"}, "text.grd: it is not a grid"));
    EXPECT_TRUE(Fails("GridBlank", {"text.grd", "ring.bln", "out.grd"}, "text.grd: it is not a grid"));
    EXPECT_TRUE(Fails("GridBlank", {"in.grd", "none.bln", "out.grd"}, "there is no file none.bln"));
    EXPECT_TRUE(
        Fails("GridBlank", {"in.grd", "short.bln", "out.grd"}, "short.bln, line 2: the file ends after 1 of 4 points"));
    EXPECT_TRUE(Fails("GridExtract", {"text.grd", 1, 2, 1, 1, 2, 1, "out.grd"}, "text.grd: it is not a grid"));
    EXPECT_TRUE(Fails("GridTransform", {"text.grd", 4, kAbsent, kAbsent, kAbsent, kAbsent, kAbsent, "out.grd"},
                      "text.grd: it is not a grid"));
    EXPECT_TRUE(Fails("GridMath", {"C=A", "text.grd", kAbsent, "out.grd"}, "text.grd: it is not a grid"));
    EXPECT_TRUE(Fails("GridMath", {"C=A-B", "in.grd", "text.grd", "out.grd"}, "text.grd: it is not a grid"));
    engine_.Eight("GridExtract", {"in.grd", 1, 3, 1, 1, 5, 1, "small.grd"});
    EXPECT_TRUE(
        Fails("GridMath", {"C=A-B", "in.grd", "small.grd", "out.grd"}, "InGridB has 5 by 3 nodes, InGridA 5 by 4"));
}

TEST_F(GridMembersCalled, AnOutputThatCanNotBeWrittenLeavesTheOldOne) {
    const std::string old = "an older result";
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", "none/out.grd"}, "there is no folder for the file none/out.grd"));
    EXPECT_TRUE(
        Fails("GridConvert", {"in.grd", folder_.Path()}, "access to the file " + folder_.Path() + " is denied"));
    fs::create_directory("shut");
    PutFile("shut/out.grd", old);
    {
        const OrdinaryUser user(folder_.Path());
        ASSERT_TRUE(user.Holds());
        EXPECT_TRUE(Fails("GridConvert", {"in.grd", "shut/out.grd"}, "access to the file shut/out.grd is denied"));
        EXPECT_TRUE(Fails("GridConvert", {"in.grd", "shut/new.grd"}, "access to the file shut/new.grd is denied"));
    }
    EXPECT_EQ(FileBytes("shut/out.grd"), old);
    EXPECT_FALSE(fs::exists("shut/new.grd"));
    EXPECT_EQ(std::distance(fs::directory_iterator("shut"), {}), 1);
}

#ifdef __linux__
TEST_F(GridMembersCalled, AFullDiskLeavesTheOldOutput) {
    Grid large(GridGeometry{.Columns = 300, .Rows = 200, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    for (double& z : large.Z) z = 0.5;
    Put("large.grd", large);
    PutFile("old.grd", "an older result");
    const std::size_t before = folder_.EntryCount();
    {
        const SmallDisk disk(100000);
        for (const int format : {1, 2, 3, 4}) {
            EXPECT_TRUE(FailsWith(
                FailureKind::AutomationFailed,
                [&] {
                    engine_.Eight("GridConvert", {"large.grd", "old.grd", format});
                },
                "GridConvert: there is no room on the disk for the file old.grd"));
        }
    }
    EXPECT_EQ(FileBytes("old.grd"), "an older result");
    EXPECT_EQ(folder_.EntryCount(), before);
    EXPECT_TRUE(Fails("GridConvert", {"in.grd", "/dev/full"}, "there is no room on the disk for the file /dev/full"));
}
#endif

}  // namespace
}  // namespace crownlab
