#include "surfer/grid_shape.h"

#include <gmock/gmock.h>

#include "support/test_desk.h"
#include "surfer/grid_calls.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A program whose worksheet says the row and column of each cell, as text with a unit behind.
class SheetProgram : public AutomationObject {
public:
    Value Invoke(std::string_view member, const Arguments& arguments) override {
        if (member == "FileOpen") return Value(std::string("sheet"));
        if (member != "GetWksCell") return true;
        const double row = NumberOf(arguments.at(1).Content, "row");
        const double column = NumberOf(arguments.at(2).Content, "column");
        if (row == 8) return Absent{};
        if (row == 4) return row * 10 + column;
        return Value(std::to_string(static_cast<int>(row * 10 + column)) + ".5 mm");
    }
    void Assign(std::string_view, const Value&) override {}
};

class GridShapeTest : public ::testing::Test {
protected:
    GridShapeTest() {
        trace_ = [this](const std::string& line) { Lines.push_back(line); };
        session_.SurferApp = LateBound(std::make_shared<SheetProgram>(), "Application", &trace_);
    }
    std::vector<std::string> Lines;
    TestServices services_;
    Session session_;
    TraceSink trace_;
};

TEST_F(GridShapeTest, OfVersionSixIsReadFromCells) {
    session_.SurferVersion = "SurferV6";
    const GridShape shape = ReadGridShape(session_, services_.Ties, "a.grd", "folder", ShapeOf::PlanAndHeights);
    EXPECT_EQ(shape.NumCols, 44) << "a number";
    EXPECT_EQ(shape.NumRows, 47);
    EXPECT_EQ(shape.XMin, 71.5) << "the number that the text starts with";
    EXPECT_EQ(shape.XMax, 73.5);
    EXPECT_EQ(shape.SpacingX, 52.5);
    EXPECT_EQ(shape.SpacingY, 62.5);
    EXPECT_EQ(shape.YMin, 0) << "an empty cell";
    EXPECT_EQ(shape.ZMin, 91.5);
    EXPECT_EQ(shape.ZMax, 93.5);
}

TEST_F(GridShapeTest, HeightsAreLeftWhereNobodyWantsThem) {
    session_.SurferVersion = "SurferV6";
    const GridShape shape = ReadGridShape(session_, services_.Ties, "a.grd", "folder", ShapeOf::Plan);
    EXPECT_EQ(shape.ZMin, 0);
    EXPECT_EQ(Lines.size(), 4u + 8u + 2u);
}

TEST_F(GridShapeTest, WithoutAVersionNothingIsCalled) {
    EXPECT_EQ(ReadGridShape(session_, services_.Ties, "a.grd", "folder", ShapeOf::Plan).NumCols, 0);
    BlankGrid(session_, "a", "b", "c");
    ConvertGridByPosition(session_, "a", "b");
    ExtractGrid(session_, "a", {}, 1, "b");
    GridFormula(session_, "C=A", "a", {}, "c");
    GridPoints(session_, "a", {}, GriddingMethod::Kriging, "b");
    EXPECT_THAT(Lines, IsEmpty());
}

TEST_F(GridShapeTest, AFormulaOfOneGridHasNoSecond) {
    session_.SurferVersion = "SurferV6";
    GridFormula(session_, "C=A", "a", {}, "c");
    session_.SurferVersion = "SurferV8";
    GridFormula(session_, "C=A", "a", {}, "c");
    EXPECT_THAT(Lines, ElementsAre("call Application.GridMath(\"a\", -, \"c\", -, \"C=A\")",
                                   "call Application.GridMath(Function=\"C=A\", InGridA=\"a\", OutGridC=\"c\")"));
}

}  // namespace
}  // namespace crownlab
