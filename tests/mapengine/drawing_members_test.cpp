#include <gmock/gmock.h>

#include "mapengine/engine_fixture.h"

namespace crownlab {
namespace {

class Drawing : public EngineTest {
protected:
    void Relief(const std::string& name, const std::string& path = "a.grd") {
        Six().Call("ReliefMap", {path, None, None, None, None, None, None, None, name});
    }
};

TEST_F(Drawing, AReliefMapHasItsNameInTheNinthPosition) {
    PutGrid();
    Relief("tooth");
    EXPECT_EQ(Map().Kind, MapKind::Relief);
    EXPECT_EQ(Map().ObjectName, "tooth");
    EXPECT_DOUBLE_EQ(Map().Left, 10.795 - 7.5);
    EXPECT_TRUE(Fails(
        [&] {
            Six().Call("ReliefMap", {"a.grd", 1, 2, 3, 4, 5, 6, 7, "n", 10});
        },
        "9 arguments at most"));
    EXPECT_TRUE(Fails([&] { Relief("x", "none.grd"); }, "ReliefMap: there is no file none.grd"));
    EXPECT_TRUE(Fails([&] { Relief("x", ""); }, "ReliefMap: GridFile is empty"));
    EXPECT_EQ(Plot().Shapes.size(), 1U);
}

TEST_F(Drawing, AContourMapIsDrawnWithoutAName) {
    PutGrid();
    Six().Call("MapContour", {"a.grd", 1});
    EXPECT_EQ(Map().Kind, MapKind::Contour);
    EXPECT_EQ(Map().ObjectName, "");
    EXPECT_TRUE(Fails([&] { Six().Call("MapContour"); }, "MapContour: GridFile is missing"));
}

TEST_F(Drawing, ASlotIsDrawnAndMovedAsTheSheetWantsIt) {
    PutGrid();
    Relief("tooth");
    Six().Call("DrawText", {4, 6, "tooth", "toothtxt"});
    const double left = Map(0).Left;
    const double top = Map(0).Top;
    Six().Call("Select", {"toothtxt"});
    Six().Call("TransformSel", {4, 2.25});
    EXPECT_EQ(Text(1).X, 8);
    EXPECT_EQ(Text(1).Y, 8.25);
    EXPECT_EQ(Map(0).Left, left);
    Six().Call("Select", {"tooth", "toothtxt"});
    Six().Call("TransformSel", {4, -7});
    EXPECT_DOUBLE_EQ(Map(0).Left, left + 4);
    EXPECT_DOUBLE_EQ(Map(0).Top, top - 7);
    EXPECT_EQ(Text(1).X, 12);
    EXPECT_EQ(Text(1).Y, 1.25);
    Six().Call("Deselect");
    EXPECT_TRUE(Fails([&] { Six().Call("TransformSel", {1, 1}); }, "TransformSel: nothing is selected on Plot1"));
}

TEST_F(Drawing, ANameGivenTwiceMeansTheNewestObject) {
    PutGrid();
    Relief("tooth");
    Relief("tooth");
    Six().Call("Select", {"tooth", "tooth"});
    Six().Call("TransformSel", {1, 0});
    EXPECT_DOUBLE_EQ(Map(0).Left, 3.295);
    EXPECT_DOUBLE_EQ(Map(1).Left, 4.295) << "moved once";
}

TEST_F(Drawing, NamesThatAreNumbersAreNames) {
    PutGrid();
    Relief("12");
    Six().Call("Select", {12});
    Six().Call("TransformSel", {1, 0});
    EXPECT_DOUBLE_EQ(Map().Left, 4.295);
}

TEST_F(Drawing, OnlyWhatIsThereIsSelected) {
    PutGrid();
    Six().Call("MapContour", {"a.grd", 1});
    EXPECT_TRUE(Fails([&] { Six().Call("Select", {"tooth"}); }, "Select: there is no object \"tooth\" on Plot1"));
    EXPECT_TRUE(Fails([&] { Six().Call("Select", {""}); }, "there is no object \"\""));
    Relief("tooth");
    EXPECT_TRUE(Fails([&] { Six().Call("Select", {"tooth", "other"}); }, "\"other\""));
    EXPECT_TRUE(Fails([&] { Six().Call("TransformSel", {1, 1}); }, "nothing is selected"));
    EXPECT_TRUE(Fails([&] { Six().Call("Select", {"tooth", "tooth", "tooth"}); }, "Select takes 2 arguments at most"));
}

TEST_F(Drawing, MovesAndTextsNeedNumbers) {
    EXPECT_TRUE(Fails([&] { Six().Call("DrawText", {4, "up", "a", "b"}); }, "DrawText: Y is not a number"));
    EXPECT_TRUE(Fails([&] { Six().Call("DrawText", {4, 6}); }, "DrawText: Text is missing"));
    Six().Call("DrawText", {4, 6, "a"});
    EXPECT_EQ(Text(0).ObjectName, "");
    EXPECT_TRUE(Fails([&] { Six().Call("TransformSel", {1}); }, "TransformSel: YOffset is missing"));
}

TEST_F(Drawing, WithoutAPlotANewOneIsDrawnOn) {
    PutGrid();
    Objects.Create("Surfer.APP");
    EXPECT_TRUE(Engine.Session().Documents().empty());
    Relief("tooth");
    EXPECT_EQ(Plot().Name, "Plot1");
    EXPECT_EQ(Plot().Shapes.size(), 1U);
}

TEST_F(Drawing, TheLastPlotIsDrawnOnThoughAWorksheetIsActive) {
    PutGrid();
    Engine.Session().AddPlot();
    Engine.Session().OpenWorksheet({});
    Relief("tooth");
    EXPECT_EQ(Plot().Name, "Plot2");
    EXPECT_EQ(Plot().Shapes.size(), 1U);
}

}  // namespace
}  // namespace crownlab
