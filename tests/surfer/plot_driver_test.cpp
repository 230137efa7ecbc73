#include "surfer/plot_driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "basis/paths.h"
#include "support/expect_failure.h"
#include "surfer/scripted_program.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Lines = std::vector<std::string>;

constexpr const char* kShapes = "Application.Documents.Item(Index=\"Plot1\").Shapes";

/// The trace of a map's adding, up to its type's own settings.
Lines Added(const std::string& call) {
    return {"attach \"Surfer.Application\"", "get Application.ActiveDocument.Name",
            "call " + std::string(kShapes) + "." + call};
}

Lines Placed(const std::string& call, const std::string& left, const std::string& top) {
    const std::string frame = std::string(kShapes) + "." + call;
    return {"get " + frame + ".XLength", "set " + frame + ".Left = " + left, "get " + frame + ".Top",
            "set " + frame + ".Top = " + top};
}

Lines Labelled(const std::string& call, const std::string& x, const std::string& y, const std::string& text) {
    const std::string frame = std::string(kShapes) + "." + call;
    return {"set Application.Documents.Item(Index=\"Plot1\").DefaultFont.HAlign = 1",
            "set Application.Documents.Item(Index=\"Plot1\").DefaultFont.VAlign = 4", "get " + frame + ".XLength",
            "get " + frame + ".YLength",
            "call " + std::string(kShapes) + ".AddText(X=" + x + ", Y=" + y + ", Text=\"" + text + "\")"};
}

Lines Joined(std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

/// A program with one plot document, whose maps are 15 by 7.5 page units with their tops at 17.75.
class PlotDriver : public ::testing::Test {
protected:
    PlotDriver() {
        ScriptedObject& program = *Gateway_.Server.Root;
        program.Properties["Path"] = Value(std::string("/data"));
        program.Child("ActiveDocument")->Properties["Name"] = Value(std::string("Plot1"));
        const auto document = program.Child("Documents")->Child("Item");
        document->Child("DefaultFont");
        const auto shapes = document->Child("Shapes");
        for (const char* const add : {"AddReliefMap", "AddContourMap", "AddSurface"}) {
            const auto frame = shapes->Child(add);
            frame->Properties = {{"XLength", Value(15.0)}, {"YLength", Value(7.5)}, {"Top", Value(17.75)}};
            frame->Child("Overlays")->Properties["xMapPerPU"] = Value(0.4);
        }
        shapes->Members["AddText"] = [](const Arguments&) { return Value(); };
        for (const char* const member : {"ReliefMap", "DrawText", "Select", "TransformSel", "Deselect"}) {
            program.Members[member] = [](const Arguments&) { return Value(); };
        }
    }

    Lines Plot(const PlotRequest& request) {
        const LateBound program = AttachSurfer(Gateway_.State, Gateway_.Windows());
        Gateway_.Trace.clear();
        // What a failure of the program would leave of the map before must not carry over.
        for (const char* const add : {"AddReliefMap", "AddContourMap", "AddSurface"}) SetTop(add);
        PlotSurfer(Gateway_.State, Gateway_.Windows(), program, request);
        return Gateway_.Trace;
    }
    PlotRequest Request(int type, int slot, bool label = false) {
        return {.GridPath = "a.grd", .BaseName = "a", .NameAddition = "_c", .Type = type, .Slot = slot, .Label = label};
    }

    Gateway Gateway_;

private:
    void SetTop(const char* add) {
        const auto child = [](AutomationObject& object, const char* member) {
            return std::get<ObjectRef>(object.Invoke(member, {}));
        };
        const ObjectRef item = child(*child(*Gateway_.Server.Root, "Documents"), "Item");
        child(*child(*item, "Shapes"), add)->Assign("Top", Value(17.75));
    }
};

const std::string kRelief = "AddReliefMap(GridFilename=\"a.grd\")";
const std::string kContour = "AddContourMap(GridFilename=\"a.grd\")";
const std::string kSurface = "AddSurface(GridFilename=\"a.grd\")";

TEST_F(PlotDriver, AReliefMapStandsInItsSlot) {
    EXPECT_THAT(Plot(Request(1, 1)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "20.69", "17.75")})));
}

TEST_F(PlotDriver, EightMapsStandInARow) {
    EXPECT_THAT(Plot(Request(1, 8)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "146.69", "17.75")})));
    EXPECT_THAT(Plot(Request(1, 9)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "20.69", "-0.25")})));
    EXPECT_THAT(Plot(Request(1, 10)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "38.69", "-0.25")})));
    EXPECT_THAT(Plot(Request(1, 16)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "146.69", "-0.25")})));
    EXPECT_THAT(Plot(Request(1, 17)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "20.69", "-18.25")})));
}

TEST_F(PlotDriver, AContourMapHasNothingOfItsOwn) {
    EXPECT_THAT(Plot(Request(2, 11)), ElementsAreArray(Joined({Added(kContour), Placed(kContour, "56.69", "-0.25")})));
}

TEST_F(PlotDriver, TheImageTypeShowsTheSampleWhateverTheGrid) {
    const std::string sample = JoinPath(JoinPath("/data", "Samples"), "demogrid.grd");
    const std::string call = "AddSurface(GridFilename=" + TraceText(sample) + ")";
    Lines expected = Joined({Added(call), Placed(call, "20.69", "17.75")});
    expected.insert(expected.begin() + 2, "get Application.Path");
    EXPECT_THAT(Plot(Request(3, 1)), ElementsAreArray(expected));
    PlotRequest other = Request(3, 1);
    other.GridPath = "no such file";
    EXPECT_THAT(Plot(other), ElementsAreArray(expected));
}

TEST_F(PlotDriver, ASurfaceGetsItsLightAndView) {
    const std::string layer = std::string(kShapes) + "." + kSurface + ".Overlays(1).";
    const Lines view{"get " + layer + "xMapPerPU",          "set " + layer + "zMapPerPU = 0.4",
                     "set " + layer + "LightAzimuth = 135", "set " + layer + "LightZenith = 45",
                     "set " + layer + "ViewProjection = 1", "set " + layer + "ViewRotation = 45",
                     "set " + layer + "ViewTilt = 30"};
    EXPECT_THAT(Plot(Request(4, 9)),
                ElementsAreArray(Joined({Added(kSurface), view, Placed(kSurface, "20.69", "-0.25")})));
}

TEST_F(PlotDriver, TheLabelStandsBelowTheMap) {
    EXPECT_THAT(Plot(Request(1, 1, true)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "20.69", "17.75"),
                                                                    Labelled(kRelief, "20.94", "9.75", "a_c.grd")})));
    EXPECT_THAT(Plot(Request(1, 8, true)), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "146.69", "17.75"),
                                                                    Labelled(kRelief, "146.94", "9.75", "a_c.grd")})));
    EXPECT_THAT(Plot(Request(2, 9, true)), ElementsAreArray(Joined({Added(kContour), Placed(kContour, "20.69", "-0.25"),
                                                                    Labelled(kContour, "20.94", "-8.25", "a_c.grd")})));
}

TEST_F(PlotDriver, WithoutANameThereIsNoLabel) {
    PlotRequest request = Request(1, 1, true);
    request.BaseName.clear();
    EXPECT_THAT(Plot(request), ElementsAreArray(Joined({Added(kRelief), Placed(kRelief, "20.69", "17.75")})));
}

TEST_F(PlotDriver, AnyOtherTypeHasNoMapToPlace) {
    for (const int type : {0, 5}) {
        EXPECT_TRUE(FailsWith(FailureKind::ObjectNotSet, [&] { Plot(Request(type, 1)); }));
        EXPECT_THAT(Gateway_.Trace,
                    ElementsAre("attach \"Surfer.Application\"", "get Application.ActiveDocument.Name"));
    }
}

/// The lines of a map in version 6.
Lines ReliefRow(const std::string& x, const std::string& y) {
    return {R"(call Application.ReliefMap("a.grd", -, -, -, -, -, -, -, "a"))",
            R"(call Application.DrawText(4, 6, "a", "atxt"))",
            R"(call Application.Select("atxt"))",
            "call Application.TransformSel(4, 2.25)",
            R"(call Application.Select("a", "atxt"))",
            "call Application.TransformSel(" + x + ", " + y + ")",
            "call Application.Deselect()"};
}

TEST_F(PlotDriver, VersionSixDrawsTenReliefMapsInARow) {
    Gateway_.ChooseVersion(6);
    EXPECT_THAT(Plot(Request(1, 1)), ElementsAreArray(ReliefRow("4", "0")));
    EXPECT_THAT(Plot(Request(1, 8)), ElementsAreArray(ReliefRow("32", "0")));
    EXPECT_THAT(Plot(Request(1, 9)), ElementsAreArray(ReliefRow("36", "0")));
    EXPECT_THAT(Plot(Request(1, 10)), ElementsAreArray(ReliefRow("40", "0")));
    EXPECT_THAT(Plot(Request(1, 11)), ElementsAreArray(ReliefRow("4", "-7")));
    EXPECT_THAT(Plot(Request(1, 21)), ElementsAreArray(ReliefRow("4", "-14")));
}

TEST_F(PlotDriver, VersionSixHeedsNeitherTypeNorLabel) {
    Gateway_.ChooseVersion(6);
    for (const int type : {1, 2, 3, 4, 0}) {
        for (const bool label : {false, true}) {
            EXPECT_THAT(Plot(Request(type, 11, label)), ElementsAreArray(ReliefRow("4", "-7")));
        }
    }
}

TEST_F(PlotDriver, AnyOtherVersionDoesNothing) {
    const LateBound program = AttachSurfer(Gateway_.State, Gateway_.Windows());
    Gateway_.Trace.clear();
    Gateway_.State.SurferVersion = "SurferV9";
    PlotSurfer(Gateway_.State, Gateway_.Windows(), program, Request(1, 1, true));
    EXPECT_THAT(Gateway_.Trace, IsEmpty());
}

TEST_F(PlotDriver, WithoutAnOpenDocumentThePageFails) {
    Gateway_.Server.Root->Members.erase("ActiveDocument");
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Plot(Request(1, 1)); }, "ActiveDocument"));
}

TEST(PlotPlaces, ARowEndsWhereItsLengthSays) {
    const SheetLayout six{.PerRow = 6, .SpacingX = 18, .SpacingY = 18};
    EXPECT_EQ(PlaceOfSlot(six, 6).Row, 0);
    EXPECT_EQ(PlaceOfSlot(six, 6).Column, 6);
    EXPECT_EQ(PlaceOfSlot(six, 7).Row, 1);
    EXPECT_EQ(PlaceOfSlot(six, 7).Column, 1);
    const SheetLayout half{.PerRow = 2.5, .SpacingX = 1, .SpacingY = 1};
    EXPECT_EQ(PlaceOfSlot(half, 4).Row, 1) << "floor(3 / 2.5)";
    EXPECT_EQ(PlaceOfSlot(half, 4).Column, 1.5);
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [] { PlaceOfSlot({.PerRow = 0}, 1); }));
}

}  // namespace
}  // namespace crownlab
