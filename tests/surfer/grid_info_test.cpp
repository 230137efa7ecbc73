#include "surfer/grid_info.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "surfer/scripted_program.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

/// 3 columns by 2 rows.
constexpr const char* kSmallGrid =
    "1 5 7\r\n1.5 5 8\r\n2 5 9\r\n"
    "1 5.25 5\r\n1.5 5.25 6\r\n2 5.25 7.5\r\n";

class GridInfoTest : public ::testing::Test {
protected:
    GridInfoTest() {
        Gateway_.Server.Root->Members["GridConvert"] = [this](const Arguments& arguments) {
            PutFile(std::get<std::string>(arguments.at(1).Content), Nodes);
            return Value();
        };
    }
    HeightLimits Read(const std::string& nodes, const std::string& grid = "tooth.grd") {
        Nodes = nodes;
        return ReadGridInfo(State, Gateway_.App(), grid);
    }
    std::vector<double> Numbers() {
        std::vector<double> numbers;
        for (int i = 1; i <= 10; ++i) numbers.push_back(State.Info(i));
        return numbers;
    }

    TempFolder Folder;
    Gateway Gateway_;
    Session& State = Gateway_.State;
    std::string Nodes;
};

TEST_F(GridInfoTest, ShapeAndLimitsComeFromTheNodes) {
    const HeightLimits own = Read(kSmallGrid);
    EXPECT_THAT(Numbers(), ElementsAre(3, 1, 2, 0.5, 2, 5, 5.25, 0.25, 0, 9));
    EXPECT_EQ(own.Low, 5);
    EXPECT_EQ(own.High, 9);
}

TEST_F(GridInfoTest, TheTextIsMadeByNamedArgumentsUnderVersionEightAndDeleted) {
    Read(kSmallGrid, Folder / "tooth.grd");
    EXPECT_THAT(Gateway_.Trace, ElementsAre("attach \"Surfer.Application\"", "set Application.Visible = True",
                                            "call Application.GridConvert(InGrid=\"" + (Folder / "tooth.grd") +
                                                "\", OutGrid=\"" + (Folder / "toothtemp.dat") + "\", OutFmt=4)"));
    EXPECT_EQ(Folder.EntryCount(), 0U);
    EXPECT_TRUE(static_cast<bool>(State.SurferApp));
}

TEST_F(GridInfoTest, TheTextIsMadeByPositionUnderVersionSix) {
    Gateway_.ChooseVersion(6);
    Read(kSmallGrid, "a b.grd");
    EXPECT_THAT(Gateway_.Trace,
                ElementsAre("attach \"Surfer.APP\"", "call Application.GridConvert(\"a b.grd\", \"a btemp.dat\", 3)"));
}

TEST_F(GridInfoTest, CommasAndBlanksSeparateTheFields) {
    Read("1,5,7\n1.5 , 5 , 8\n2\t5\t9\n1,5.25,5\n1.5,5.25,6\n2,5.25,7.5");
    EXPECT_THAT(Numbers(), ElementsAre(3, 1, 2, 0.5, 2, 5, 5.25, 0.25, 0, 9));
}

TEST_F(GridInfoTest, HeightLimitsPersistOverAllGridsReadAndHoldZero) {
    Read("0 0 5\n1 0 9\n0 1 6\n1 1 7\n");
    const HeightLimits second = Read("0 0 1\n1 0 2\n0 1 1\n1 1 2\n");
    EXPECT_EQ(State.Info(9), 0);
    EXPECT_EQ(State.Info(10), 9);
    EXPECT_EQ(second.Low, 1) << "those of the second grid alone";
    EXPECT_EQ(second.High, 2);
    const HeightLimits third = Read("0 0 -4\n1 0 -3\n0 1 -4\n1 1 -3\n");
    EXPECT_EQ(State.Info(9), -4);
    EXPECT_EQ(State.Info(10), 9);
    EXPECT_EQ(third.High, -3);
}

TEST_F(GridInfoTest, BlankNodesCountInRowsAndColumnsButNotInTheHeights) {
    const HeightLimits own = Read("0 0 1.70141E+38\n1 0 2\n0 1 3\n1 1 1E37\n0 2 9.9E36\n1 2 1.70141E+38\n");
    EXPECT_EQ(State.Info(1), 2);
    EXPECT_EQ(State.Info(5), 3);
    EXPECT_EQ(State.Info(10), 9.9E36) << "a height below 1E37 is one";
    EXPECT_EQ(own.Low, 2);
}

TEST_F(GridInfoTest, AGridOfBlanksHasNoHeightsOfItsOwn) {
    const HeightLimits own = Read("0 0 1.70141E+38\n1 0 1.70141E+38\n0 1 1.70141E+38\n1 1 1.70141E+38\n");
    EXPECT_EQ(own.Low, 0);
    EXPECT_EQ(own.High, 0);
    EXPECT_EQ(State.Info(9), 0);
    EXPECT_EQ(State.Info(10), 0);
}

TEST_F(GridInfoTest, AGridOfOneRowTakesTheColumnsOfTheGridBefore) {
    Read(kSmallGrid);
    Read("0 4 1\n1 4 1\n2 4 1\n3 4 1\n4 4 1\n5 4 1\n6 4 1\n");
    EXPECT_EQ(State.Info(1), 3) << "as it was";
    EXPECT_EQ(State.Info(5), 2) << "7 / 3, rounded";
    EXPECT_EQ(State.Info(8), 0);
    EXPECT_EQ(State.Info(4), 1);
}

TEST_F(GridInfoTest, TheFirstGridOfARunNeedsASecondRow) {
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { Read("0 4 1\n1 4 1\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { Read(""); }));
}

TEST_F(GridInfoTest, RowsAreRoundedHalfToEven) {
    Read("0 0 1\n1 0 1\n0 1 1\n1 1 1\n0 2 1\n");
    EXPECT_EQ(State.Info(5), 2) << "5 / 2";
    Read("0 0 1\n1 0 1\n0 1 1\n1 1 1\n0 2 1\n1 2 1\n0 3 1\n");
    EXPECT_EQ(State.Info(5), 4) << "7 / 2";
}

TEST_F(GridInfoTest, OneColumnIsTakenApartAtEachNode) {
    Read("3 0 1\n3 2 1\n3 4 1\n");
    EXPECT_THAT(Numbers(), ElementsAre(1, 3, 3, 0, 3, 0, 4, 2, 0, 1));
}

TEST_F(GridInfoTest, TheYSpacingIsRoundedToSixDecimals) {
    Read("0 0.1 1\n1 0.1 1\n0 0.4333333333 1\n1 0.4333333333 1\n");
    EXPECT_EQ(State.Info(8), 0.333333);
    EXPECT_EQ(State.Info(7), 0.4333333333);
}

TEST_F(GridInfoTest, TheXSpacingIsNotRounded) {
    Read("0.1 0 1\n0.4333333333 0 1\n0.1 1 1\n0.4333333333 1 1\n");
    EXPECT_EQ(State.Info(4), 0.4333333333 - 0.1);
}

TEST_F(GridInfoTest, ASpacingThatRoundsToNothingEndsNoRow) {
    // The second row is 4E-7 higher; only the third one is far enough.
    Read("0 0 1\n1 0 1\n0 0.0000004 1\n1 0.0000004 1\n0 0.000002 1\n1 0.000002 1\n");
    EXPECT_EQ(State.Info(1), 4);
    EXPECT_EQ(State.Info(5), 2) << "6 / 4, rounded half to even";
    EXPECT_EQ(State.Info(8), 0.000002);
}

TEST_F(GridInfoTest, RowsThatRunDownHaveAPositiveSpacing) {
    Read("2 5 1\n1 5 1\n2 4.5 1\n1 4.5 1\n");
    EXPECT_THAT(Numbers(), ElementsAre(2, 1, 2, 1, 2, 4.5, 5, 0.5, 0, 1));
}

TEST_F(GridInfoTest, AGridBeyondAMillionKeepsThatBound) {
    Read("2000000 -3000000 1\n2000001 -3000000 1\n2000000 -2999999 1\n2000001 -2999999 1\n");
    EXPECT_EQ(State.Info(2), 1'000'000);
    EXPECT_EQ(State.Info(3), 2'000'001);
    EXPECT_EQ(State.Info(6), -3'000'000);
    EXPECT_EQ(State.Info(7), -1'000'000);
}

TEST_F(GridInfoTest, MoreRowsThanSixteenBitsHoldOverflow) {
    std::string nodes;
    for (int row = 0; row < 32767; ++row) nodes += "0 " + std::to_string(row) + " 1\n";
    Read(nodes);
    EXPECT_EQ(State.Info(5), 32767);
    nodes += "0 40000 1\n";
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Read(nodes); }, "number of rows"));
    EXPECT_EQ(State.Info(5), 32767) << "no shape is told then";
}

TEST_F(GridInfoTest, AShortNameFailsBehindTheAttach) {
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { Read(kSmallGrid, "grd"); }));
    EXPECT_THAT(Gateway_.Trace, ElementsAre("attach \"Surfer.Application\"", "set Application.Visible = True"));
    Gateway_.Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(FailureKind::AutomationFailed, [&] { Read(kSmallGrid, "grd"); }));
}

TEST_F(GridInfoTest, ANameOfFourCharactersIsAllExtension) {
    Read(kSmallGrid, ".grd");
    EXPECT_EQ(Gateway_.Trace.back(), "call Application.GridConvert(InGrid=\".grd\", OutGrid=\"temp.dat\", OutFmt=4)");
}

TEST_F(GridInfoTest, AFailedConversionLeavesTheShapeOfTheGridBefore) {
    Read(kSmallGrid);
    Gateway_.Server.Root->Members["GridConvert"] = [](const Arguments&) -> Value {
        throw Failure(FailureKind::AutomationFailed, "no such grid");
    };
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Read(kSmallGrid); }, "no such grid"));
    EXPECT_EQ(State.Info(1), 3);
}

TEST_F(GridInfoTest, ADamagedTextFailsAndStays) {
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read("0 0 1\n1 0\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Read("0 0 1\nx 0 1\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Read("0 0 nan\n"); }));
    EXPECT_EQ(Folder.EntryCount(), 1U) << "nothing mends what a failure leaves";
}

TEST_F(GridInfoTest, AnyOtherVersionWordConvertsNothing) {
    Gateway_.Server.Classes.emplace_back("");
    Gateway_.ChooseVersion(0);
    State.SurferVersion = "SurferV9";
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { Read(kSmallGrid); }, "toothtemp.dat"));
    EXPECT_THAT(Gateway_.Trace, ElementsAre("attach \"\""));
}

}  // namespace
}  // namespace crownlab
