#include "surfer/grid_calls.h"

#include <gmock/gmock.h>

#include "surfer/session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A program that agrees to everything.
class WillingProgram : public AutomationObject {
public:
    Value Invoke(std::string_view, const Arguments&) override { return true; }
    void Assign(std::string_view, const Value&) override {}
};

class GridCalls : public ::testing::Test {
protected:
    GridCalls() {
        trace_ = [this](const std::string& line) { Lines.push_back(line); };
        session_.SurferApp = LateBound(std::make_shared<WillingProgram>(), "Application", &trace_);
    }
    const Session& Six() { return Of("SurferV6"); }
    const Session& Eight() { return Of("SurferV8"); }
    const Session& Of(const char* version) {
        session_.SurferVersion = version;
        return session_;
    }

    std::vector<std::string> Lines;
    Session session_;
    TraceSink trace_;
};

TEST_F(GridCalls, TerrainHasNumbersOfItsOwnInEachVersion) {
    TerrainSlope(Six(), "a", "b");
    TerrainAspect(Six(), "a", 0.5, "b");
    TerrainSlope(Eight(), "a", "b");
    TerrainAspect(Eight(), "a", 0.5, "b");
    EXPECT_THAT(
        Lines,
        ElementsAre("call Application.GridCalculus(\"a\", 1, -, -, 0, -, -, -, \"b\")",
                    "call Application.GridCalculus(\"a\", 1, -, -, 1, -, -, -, \"b\")",
                    "call Application.GridCalculus(InGrid=\"a\", Operation=4, OutGrid=\"b\")",
                    "call Application.GridCalculus(InGrid=\"a\", Operation=5, Param1=0.5, OutGrid=\"b\", OutFmt=3)"));
}

TEST_F(GridCalls, TransformationsGoByName) {
    MirrorGrid(Eight(), "a", GridMirror::Columns, "b");
    MirrorGrid(Eight(), "a", GridMirror::Rows, "b");
    RotateGrid(Eight(), "a", -270, "b");
    OffsetGrid(Eight(), "a", -0.0, 2.5, "b");
    OffsetGrid(Six(), "a", 1, 2, "b");
    EXPECT_THAT(
        Lines,
        ElementsAre("call Application.GridTransform(InGrid=\"a\", Operation=4, OutGrid=\"b\")",
                    "call Application.GridTransform(InGrid=\"a\", Operation=5, OutGrid=\"b\")",
                    "call Application.GridTransform(InGrid=\"a\", Operation=3, Rotation=-270, OutGrid=\"b\")",
                    "call Application.GridTransform(InGrid=\"a\", Operation=1, XOffset=0, YOffset=2.5, OutGrid=\"b\")",
                    "call Application.GridTransform(InGrid=\"a\", Operation=1, XOffset=1, YOffset=2, OutGrid=\"b\")"));
}

TEST_F(GridCalls, TextIsFormatThreeOrFour) {
    ConvertGridByName(Six(), "a", "b");
    ConvertGridByName(Eight(), "a", "b");
    EXPECT_THAT(Lines, ElementsAre("call Application.GridConvert(\"a\", \"b\", 3)",
                                   "call Application.GridConvert(InGrid=\"a\", OutGrid=\"b\", OutFmt=4)"));
}

TEST_F(GridCalls, PointsCanBeLeftOutUnderVersionEight) {
    const GridShape nodes{.NumCols = 5, .XMin = 0, .XMax = 4, .SpacingX = 1, .NumRows = 3, .YMin = 1, .YMax = 2};
    GridPoints(Six(), "d", nodes, GriddingMethod::Kriging, "g", "Z > 1E38");
    GridPoints(Eight(), "d", nodes, GriddingMethod::Kriging, "g", "Z > 1E38");
    GridPoints(Eight(), "d", nodes, GriddingMethod::Triangulation, "g");
    const std::string named =
        "call Application.GridData(DataFile=\"d\", XCol=1, yCol=2, zCol=3, NumCols=5, NumRows=3, XMin=0, XMax=4, "
        "YMin=1, YMax=2, Algorithm=";
    EXPECT_THAT(Lines, ElementsAre("call Application.GridData(\"d\", 0, 1, 2, 0, 4, 1, 2, 5, 3, -, -, 1, \"g\")",
                                   named + "2, ShowReport=False, OutGrid=\"g\", ExclusionFilter=\"Z > 1E38\")",
                                   named + "9, ShowReport=False, OutGrid=\"g\")"));
}

TEST_F(GridCalls, PartsHaveAnOrderOfTheirOwnInEachVersion) {
    const GridPart part{.FirstColumn = 1, .LastColumn = 2, .FirstRow = 3, .LastRow = 4};
    ExtractGrid(Six(), "a", part, 5, "b");
    ExtractGrid(Eight(), "a", part, 5, "b");
    EXPECT_THAT(Lines, ElementsAre("call Application.GridExtract(\"a\", 3, 1, 4, 2, 5, 5, \"b\")",
                                   "call Application.GridExtract(InGrid=\"a\", r1=3, r2=4, rFreq=5, c1=1, c2=2, "
                                   "cFreq=5, OutGrid=\"b\")"));
}

TEST_F(GridCalls, WithoutAVersionNothingIsCalled) {
    TerrainSlope(Of("SurverV8"), "a", "b");
    TerrainAspect(session_, "a", 1, "b");
    ConvertGridByName(session_, "a", "b");
    EXPECT_THAT(Lines, IsEmpty());
}

}  // namespace
}  // namespace crownlab
