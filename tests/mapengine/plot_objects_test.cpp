#include "mapengine/plot_objects.h"

#include <gmock/gmock.h>

#include <array>

#include "basis/paths.h"
#include "mapengine/engine_fixture.h"

namespace crownlab {
namespace {

using ::testing::HasSubstr;

class PlotObjects : public EngineTest {
protected:
    LateBound Page() { return Eight().Object("ActiveDocument"); }
    LateBound Add(const char* member, const std::string& path = "a.grd") {
        return Page().Object("Shapes").CallForObject(member, {{"GridFilename", path}});
    }
    static double Get(const LateBound& object, const char* member) { return object.GetNumber(member); }
};

TEST_F(PlotObjects, AMapStartsInTheMiddleOfThePageWithItsLongerSideAtFifteen) {
    PutGrid();
    const LateBound map = Add("AddReliefMap");
    // 6 wide, 3 high.
    EXPECT_EQ(Get(map, "XLength"), 15);
    EXPECT_EQ(Get(map, "YLength"), 7.5);
    EXPECT_DOUBLE_EQ(Get(map, "Left"), 10.795 - 7.5);
    EXPECT_DOUBLE_EQ(Get(map, "Top"), 13.97 + 3.75);
    EXPECT_EQ(Map().Kind, MapKind::Relief);
    EXPECT_EQ(Map().GridFilename, "a.grd");
    EXPECT_EQ(Map().Shape.Columns, 4);
    EXPECT_EQ(Map().Heights.Low, 0);
    EXPECT_EQ(Map().Heights.High, 23);
    EXPECT_EQ(Map().Nodes->At(3, 2), 23);
}

TEST_F(PlotObjects, ATallMapHasItsHeightAtFifteen) {
    FileTable files;
    WriteGrid(files, "tall.grd",
              Grid(GridGeometry{.Columns = 2, .Rows = 2, .XMin = -1, .XMax = 1, .YMin = 0, .YMax = 8}),
              GridFormat::AsciiGrid);
    const LateBound map = Add("AddContourMap", "tall.grd");
    EXPECT_EQ(Get(map, "XLength"), 3.75);
    EXPECT_EQ(Get(map, "YLength"), 15);
    EXPECT_DOUBLE_EQ(Get(map, "Left"), 10.795 - 1.875);
    EXPECT_DOUBLE_EQ(Get(map, "Top"), 13.97 + 7.5);
}

TEST_F(PlotObjects, EachKindOfMapIsAdded) {
    PutGrid();
    for (const char* const member : {"AddContourMap", "AddImageMap", "AddReliefMap", "AddSurface"}) Add(member);
    ASSERT_EQ(Plot().Shapes.size(), 4U);
    EXPECT_EQ(Map(0).Kind, MapKind::Contour);
    EXPECT_EQ(Map(1).Kind, MapKind::Image);
    EXPECT_EQ(Map(2).Kind, MapKind::Relief);
    EXPECT_EQ(Map(3).Kind, MapKind::Surface);
}

TEST_F(PlotObjects, AGridThatCannotBeReadGivesNoMap) {
    PutFile("damaged.grd", "DSBB\x02");
    PutFile("text.grd", "1 2 3\r\n");
    for (const char* const member : {"AddContourMap", "AddImageMap", "AddReliefMap", "AddSurface"}) {
        EXPECT_TRUE(Fails([&] { Add(member, "none.grd"); }, "none.grd"));
        EXPECT_TRUE(Fails([&] { Add(member, "damaged.grd"); }, "damaged.grd"));
        EXPECT_TRUE(Fails([&] { Add(member, "text.grd"); }, "text.grd"));
        EXPECT_TRUE(Fails([&] { Add(member, ""); }, std::string(member) + ": GridFilename is empty"));
        EXPECT_TRUE(Fails([&] { Page().Object("Shapes").Call(member); }, "GridFilename is missing"));
        EXPECT_TRUE(Fails([&] { Page().Object("Shapes").Call(member, {{"Grid", "a.grd"}}); }, "has no argument Grid"));
        EXPECT_TRUE(Fails([&] { Page().Object("Shapes").Call(member, {5}); }, "GridFilename is not a text"));
    }
    EXPECT_TRUE(Plot().Shapes.empty());
}

TEST_F(PlotObjects, MapsAreMoved) {
    PutGrid();
    const LateBound map = Add("AddContourMap");
    map.Set("Left", Value(18 + 10.19 - 7.5));
    map.Set("Top", Value(std::string("-0.5")));
    EXPECT_DOUBLE_EQ(Map().Left, 20.69);
    EXPECT_EQ(Map().Top, -0.5);
    EXPECT_EQ(Get(map, "Top"), -0.5);
    EXPECT_TRUE(Fails([&] { map.Set("Left", "left"); }, "Left: the value is not a number"));
    EXPECT_TRUE(Fails([&] { map.Set("Left", Value(std::numeric_limits<double>::infinity())); }, "not a finite"));
    EXPECT_TRUE(Fails([&] { map.Set("XLength", 3); }, "XLength can't be set"));
    EXPECT_TRUE(Fails([&] { map.Get("Width"); }, "the map has no member Width"));
}

TEST_F(PlotObjects, AMapHasOneLayer) {
    PutGrid();
    const LateBound map = Add("AddContourMap");
    map.Object("Overlays", {1});
    map.Object("Overlays", {{"Index", 1}});
    for (const int index : {0, 2, -1}) {
        EXPECT_TRUE(Fails([&] { map.Object("Overlays", {index}); }, "Overlays: Index"));
    }
    EXPECT_TRUE(Fails([&] { map.Object("Overlays"); }, "Index is missing"));
}

TEST_F(PlotObjects, AReliefHasALight) {
    PutGrid();
    const LateBound layer = Add("AddReliefMap").Object("Overlays", {1});
    EXPECT_EQ(Get(layer, "HLightAngle"), 135);
    EXPECT_EQ(Get(layer, "VLightAngle"), 45);
    layer.Set("HLightAngle", 0);
    layer.Set("VLightAngle", 90);
    EXPECT_EQ(Map().Layer.HLightAngle, 0);
    EXPECT_EQ(Map().Layer.VLightAngle, 90);
    EXPECT_EQ(Get(layer, "VLightAngle"), 90);
    EXPECT_TRUE(Fails([&] { layer.Set("LightAzimuth", 1); }, "the relief map has no member LightAzimuth"));
    EXPECT_TRUE(Fails([&] { layer.Set("ShowColorScale", true); }, "the relief map has no member ShowColorScale"));
}

TEST_F(PlotObjects, ContoursAndImagesHaveAColourScale) {
    PutGrid();
    for (const char* const member : {"AddContourMap", "AddImageMap"}) {
        const LateBound layer = Add(member).Object("Overlays", {1});
        EXPECT_EQ(layer.Get("ShowColorScale"), Value(false));
        layer.Set("ShowColorScale", false);
        layer.Set("ShowColorScale", true);
        EXPECT_EQ(layer.Get("ShowColorScale"), Value(true));
        EXPECT_TRUE(Map(Plot().Shapes.size() - 1).Layer.ShowColorScale);
        EXPECT_TRUE(Fails([&] { layer.Set("HLightAngle", 1); }, "the contour or image map has no member HLightAngle"));
    }
}

TEST_F(PlotObjects, ASurfaceHasItsOwnLightAndView) {
    PutGrid();
    const LateBound layer = Add("AddSurface").Object("Overlays", {1});
    layer.Set("LightAzimuth", 0);
    layer.Set("LightZenith", 90);
    layer.Set("ViewProjection", 2);
    layer.Set("ViewRotation", -10);
    layer.Set("ViewTilt", 60);
    EXPECT_EQ(Map().Layer.LightAzimuth, 0);
    EXPECT_EQ(Map().Layer.LightZenith, 90);
    EXPECT_EQ(Map().Layer.ViewProjection, 2);
    EXPECT_EQ(Map().Layer.ViewRotation, -10);
    EXPECT_EQ(Map().Layer.ViewTilt, 60);
    EXPECT_TRUE(Fails([&] { layer.Set("ViewProjection", 3); }, "ViewProjection: 3 is not one of 1 to 2"));
    EXPECT_TRUE(Fails([&] { layer.Set("ViewProjection", Value(1.5)); }, "1.5 is not a whole number"));
    EXPECT_TRUE(Fails([&] { layer.Set("HLightAngle", 1); }, "the surface has no member HLightAngle"));
}

TEST_F(PlotObjects, ASurfaceHasAsManyMapUnitsToAPageUnitAlongZAsItIsTold) {
    PutGrid();
    const LateBound frame = Add("AddSurface");
    const LateBound layer = frame.Object("Overlays", {1});
    EXPECT_DOUBLE_EQ(Get(layer, "xMapPerPU"), 6.0 / 15);
    EXPECT_DOUBLE_EQ(Get(layer, "zMapPerPU"), 23 / 3.75) << "the heights take a quarter of the longer side";
    layer.Set("zMapPerPU", layer.GetNumber("xMapPerPU"));
    EXPECT_EQ(Map().Layer.ZMapPerPU, Map().Layer.XMapPerPU);
    EXPECT_TRUE(Fails([&] { layer.Set("zMapPerPU", 0); }, "zMapPerPU: 0 is not above 0"));
    layer.Set("xMapPerPU", Value(0.5));
    EXPECT_EQ(Get(frame, "XLength"), 12);
    EXPECT_EQ(Get(frame, "YLength"), 6);
    EXPECT_TRUE(Fails([&] { layer.Set("xMapPerPU", Value(1e-308)); }, "larger than any page"));
    EXPECT_EQ(Get(layer, "xMapPerPU"), 0.5);
}

TEST_F(PlotObjects, ALevelSurfaceHasTheScaleOfItsSides) {
    FileTable files;
    Grid level(GridGeometry{.Columns = 2, .Rows = 2, .XMin = 0, .XMax = 30, .YMin = 0, .YMax = 1});
    WriteGrid(files, "blank.grd", level, GridFormat::Binary64);
    level.Z.assign(4, 7);
    WriteGrid(files, "level.grd", level, GridFormat::Binary64);
    for (const char* const path : {"blank.grd", "level.grd"}) {
        EXPECT_EQ(Get(Add("AddSurface", path).Object("Overlays", {1}), "zMapPerPU"), 2);
    }
}

TEST_F(PlotObjects, FlatMapsHaveFourAxesAndSurfacesFive) {
    PutGrid();
    const LateBound flat = Add("AddContourMap");
    const LateBound surface = Add("AddSurface");
    for (int index = 1; index <= 4; ++index) flat.Object("Axes", {index});
    for (int index = 1; index <= 5; ++index) surface.Object("Axes", {index});
    EXPECT_TRUE(Fails([&] { flat.Object("Axes", {5}); }, "Axes: Index 5 is not one of 1 to 4"));
    EXPECT_TRUE(Fails([&] { surface.Object("Axes", {6}); }, "Axes: Index 6 is not one of 1 to 5"));
    EXPECT_TRUE(Fails([&] { flat.Object("Axes", {0}); }, "Axes: Index 0"));
}

TEST_F(PlotObjects, AxesAreHidden) {
    PutGrid();
    const LateBound axis = Add("AddContourMap").Object("Axes", {3});
    axis.Set("ShowLabels", false);
    axis.Set("MajorTickType", 1);
    axis.Object("AxisLine").Set("Style", "Invisible");
    const MapAxis& left = Map().Axes[2];
    EXPECT_FALSE(left.ShowLabels);
    EXPECT_EQ(left.MajorTickType, 1);
    EXPECT_EQ(left.LineStyle, "Invisible");
    EXPECT_EQ(axis.Object("AxisLine").GetText("Style"), "Invisible");
    EXPECT_TRUE(Map().Axes[0].ShowLabels) << "the others stay";
    EXPECT_EQ(Map().Axes[0].LineStyle, "Solid");
    EXPECT_TRUE(Fails([&] { axis.Set("MajorTickType", 0); }, "MajorTickType: 0 is not one of 1 to 4"));
    EXPECT_TRUE(Fails([&] { axis.Object("AxisLine").Set("Style", "Dotty"); }, "Style: \"Dotty\" is no style"));
    EXPECT_TRUE(Fails([&] { axis.Set("Style", "Solid"); }, "the axis has no member Style"));
}

TEST_F(PlotObjects, ScaleBarsAreAddedAndStyled) {
    PutGrid();
    const LateBound bars = Add("AddReliefMap").Object("ScaleBars");
    const LateBound bar = bars.CallForObject("Add");
    EXPECT_EQ(Get(bar, "CycleSpacing"), 0.5) << "the round length below a tenth of 6";
    EXPECT_EQ(Get(bar, "LabelIncrement"), 0.5);
    bar.Set("CycleSpacing", Value(0.05));
    bar.Set("LabelIncrement", Value(0.1));
    bar.Set("NumCycles", 8);
    ASSERT_EQ(Map().ScaleBars.size(), 1U);
    EXPECT_EQ(Map().ScaleBars[0].CycleSpacing, 0.05);
    EXPECT_EQ(Map().ScaleBars[0].LabelIncrement, 0.1);
    EXPECT_EQ(Map().ScaleBars[0].NumCycles, 8);
    bars.Call("Add");
    EXPECT_EQ(Get(bars, "Count"), 2);
    EXPECT_EQ(Get(bars.Object("Item", {1}), "NumCycles"), 8);
    EXPECT_TRUE(Fails([&] { bars.Object("Item", {3}); }, "Item: Index 3 is not one of 1 to 2"));
    EXPECT_TRUE(Fails([&] { bar.Set("CycleSpacing", 0); }, "CycleSpacing: 0 is not above 0"));
    EXPECT_TRUE(Fails([&] { bar.Set("NumCycles", 0); }, "NumCycles: 0 is not one of"));
}

TEST_F(PlotObjects, AScaleBarIsReachedByItsPlaceToo) {
    PutGrid();
    const LateBound map = Add("AddReliefMap");
    map.Object("ScaleBars").Call("Add");
    map.Object("ScaleBars", {1}).Set("NumCycles", 3);
    EXPECT_EQ(Map().ScaleBars[0].NumCycles, 3);
    EXPECT_TRUE(Fails([&] { map.Object("ScaleBars", {2}); }, "ScaleBars: Index 2 is not one of 1 to 1"));
}

TEST_F(PlotObjects, ATextTakesTheFontThatIsTheDefaultThen) {
    const LateBound shapes = Page().Object("Shapes");
    shapes.Call("AddText", {{"X", 1.5}, {"Y", -2}, {"Text", "before"}});
    Page().Object("DefaultFont").Set("HAlign", 2);
    Page().Object("DefaultFont").Set("VAlign", 6);
    shapes.Call("AddText", {{"X", 3}, {"Y", 4}, {"Text", "after"}});
    EXPECT_EQ(Text(0).Text, "before");
    EXPECT_EQ(Text(0).X, 1.5);
    EXPECT_EQ(Text(0).Y, -2);
    EXPECT_EQ(Text(0).Font.HAlign, 1);
    EXPECT_EQ(Text(0).Font.VAlign, 4);
    EXPECT_EQ(Text(1).Font.HAlign, 2);
    EXPECT_EQ(Text(1).Font.VAlign, 6);
    EXPECT_EQ(Page().Object("DefaultFont").GetNumber("HAlign"), 2);
}

TEST_F(PlotObjects, TheFontBelongsToItsDocument) {
    const LateBound first = Page();
    first.Object("DefaultFont").Set("HAlign", 3);
    Eight().Object("Documents").Call("Add", {1});
    EXPECT_EQ(Page().Object("DefaultFont").GetNumber("HAlign"), 1);
    EXPECT_EQ(first.Object("DefaultFont").GetNumber("HAlign"), 3);
    for (const auto& [member, value] :
         {std::pair("HAlign", 0), std::pair("HAlign", 4), std::pair("VAlign", 3), std::pair("VAlign", 7)}) {
        EXPECT_TRUE(
            Fails([&, name = member, number = value] { Page().Object("DefaultFont").Set(name, number); }, member));
    }
}

TEST_F(PlotObjects, TextsNeedAllOfTheirArguments) {
    const LateBound shapes = Page().Object("Shapes");
    EXPECT_TRUE(Fails([&] { shapes.Call("AddText", {{"X", 1}, {"Text", "a"}}); }, "AddText: Y is missing"));
    EXPECT_TRUE(Fails([&] { shapes.Call("AddText", {{"X", "a"}, {"Y", 1}, {"Text", "a"}}); }, "X is not a number"));
    EXPECT_TRUE(Fails([&] { shapes.Call("AddText", {{"X", 1}, {"Y", 1}, {"Text", ""}}); }, "Text is empty"));
    EXPECT_TRUE(Fails([&] { shapes.Call("AddText", {{"X", 1}, {"X", 1}, {"Text", "a"}}); }, "X is given twice"));
    EXPECT_TRUE(Plot().Shapes.empty());
}

TEST_F(PlotObjects, TextsAreReadAndChanged) {
    const LateBound text = Page().Object("Shapes").CallForObject("AddText", {1, 2, "a"});
    text.Set("X", 5);
    text.Set("Text", "b");
    EXPECT_EQ(Text(0).X, 5);
    EXPECT_EQ(text.GetNumber("Y"), 2);
    EXPECT_EQ(text.GetText("Text"), "b");
}

TEST_F(PlotObjects, ObjectsOfAClosedDocumentFail) {
    PutGrid();
    const LateBound map = Add("AddReliefMap");
    const LateBound layer = map.Object("Overlays", {1});
    const LateBound font = Page().Object("DefaultFont");
    Page().Call("Close");
    EXPECT_TRUE(Fails([&] { map.GetNumber("Left"); }, "the plot document Plot1 has been closed"));
    EXPECT_TRUE(Fails([&] { layer.Set("HLightAngle", 1); }, "has been closed"));
    EXPECT_TRUE(Fails([&] { font.Set("HAlign", 1); }, "has been closed"));
}

TEST_F(PlotObjects, AddingShapesKeepsEarlierObjectsGood) {
    PutGrid();
    const LateBound first = Add("AddReliefMap");
    for (int i = 0; i < 50; ++i) Add("AddContourMap");
    first.Set("Left", 1);
    EXPECT_EQ(Map(0).Left, 1);
    EXPECT_NE(Map(50).Left, 1);
}

TEST_F(PlotObjects, AMapKeepsItsHeightsWhenTheFileChanges) {
    PutGrid();
    Add("AddReliefMap");
    PutFile("a.grd", "gone");
    EXPECT_EQ(Map().Nodes->At(2, 1), 12);
}

TEST_F(PlotObjects, TheSampleSurfaceIsThere) {
    const std::string path = Eight().GetText("Path");
    EXPECT_EQ(Six().GetText("Path"), path);
    EXPECT_THAT(path, HasSubstr("crownlab"));
    Add("AddSurface", JoinPath(JoinPath(path, "Samples"), "demogrid.grd"));
    EXPECT_EQ(Map().Shape.Columns, 97);
    EXPECT_EQ(Map().Shape.Rows, 65);
    // Base of the slope at the origin; the hills are too far to matter there.
    EXPECT_NEAR(Map().Nodes->At(0, 0), 1.5, 0.01);
    EXPECT_NEAR(Map().Heights.High, 4.1, 0.05);
}

TEST(PlotDocuments, ALargeGridIsThinnedForDrawing) {
    Grid grid(GridGeometry{.Columns = 2501, .Rows = 1002, .XMin = 0, .XMax = 2500, .YMin = 0, .YMax = 1001});
    for (std::size_t i = 0; i < grid.Z.size(); ++i) grid.Z[i] = static_cast<double>(i);
    const PlotMap map = MakeMap(MapKind::Image, "large.grd", grid);
    EXPECT_EQ(map.Shape, grid.Shape);
    EXPECT_EQ(map.Heights.High, 2501.0 * 1002 - 1) << "the range is that of all nodes";
    // 2.5 million nodes, a million at most: every second row and column.
    EXPECT_EQ(map.Nodes->Shape,
              (GridGeometry{.Columns = 1251, .Rows = 501, .XMin = 0, .XMax = 2500, .YMin = 0, .YMax = 1000}));
    EXPECT_EQ(map.Nodes->At(3, 2), grid.At(6, 4));
    EXPECT_EQ(map.Nodes->At(1250, 500), grid.At(2500, 1000));
}

TEST(PlotDocuments, ALongThinGridKeepsItsShortSide) {
    Grid grid(GridGeometry{.Columns = 2'000'001, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    const PlotMap map = MakeMap(MapKind::Image, "thin.grd", grid);
    EXPECT_EQ(map.Nodes->Shape.Rows, 2);
    EXPECT_LE(map.Nodes->Shape.Nodes(), 2'000'002U);
}

TEST(PlotDocuments, ScaleBarsStartWithARoundLengthOfAboutATenth) {
    const auto spacing = [](double width) {
        const Grid grid(GridGeometry{.Columns = 2, .Rows = 2, .XMin = 0, .XMax = width, .YMin = 0, .YMax = width});
        return MakeScaleBar(MakeMap(MapKind::Contour, "a.grd", grid)).CycleSpacing;
    };
    EXPECT_DOUBLE_EQ(spacing(10), 1);
    EXPECT_DOUBLE_EQ(spacing(19), 1);
    EXPECT_DOUBLE_EQ(spacing(20), 2);
    EXPECT_DOUBLE_EQ(spacing(51), 5);
    EXPECT_DOUBLE_EQ(spacing(0.3), 0.02);
    EXPECT_GT(spacing(1e-300), 0);
    EXPECT_GT(spacing(1e300), 0);
}

}  // namespace
}  // namespace crownlab
