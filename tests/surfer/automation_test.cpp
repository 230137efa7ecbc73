#include "surfer/automation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/expect_failure.h"
#include "surfer/scripted_program.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(TraceText, ShowsEachKindOfValue) {
    EXPECT_EQ(TraceText(Absent{}), "-");
    EXPECT_EQ(TraceText(true), "True");
    EXPECT_EQ(TraceText(false), "False");
    EXPECT_EQ(TraceText(3.0), "3");
    EXPECT_EQ(TraceText(0.05), "0.05");
    EXPECT_EQ(TraceText(-0.5), "-0.5");
    EXPECT_EQ(TraceText(-0.0), "0");
    EXPECT_EQ(TraceText(1.70141E+38), "1.70141E+38");
    EXPECT_EQ(TraceText(std::string("a.grd")), "\"a.grd\"");
    EXPECT_EQ(TraceText(std::string("a \"b\"\\c\r\n")), "\"a \\\"b\\\"\\\\c\\r\\n\"");
    EXPECT_EQ(TraceText(NumberMatrix{.Rows = 3, .Columns = 5, .Values = std::vector<double>(15)}), "[3 x 5]");
    EXPECT_EQ(TraceText(std::make_shared<std::vector<double>>(11)), "[11]");
    EXPECT_EQ(TraceText(NumberArray()), "[0]");
    EXPECT_EQ(TraceText(ObjectRef()), "object");
}

TEST(NumberOf, TakesNumbersAndTextsThatAreNumbers) {
    EXPECT_EQ(NumberOf(2.5, "x"), 2.5);
    EXPECT_EQ(NumberOf(std::string(" -2.5E1 "), "x"), -25);
    for (const Value& value : {Value(std::string("2,5")), Value(std::string("")), Value(std::string("2 mm")),
                               Value(true), Value(Absent{}), Value(ObjectRef())}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::AutomationFailed, [&] { NumberOf(value, "the cell"); }, "the cell is not a number"));
    }
}

TEST(TextOf, TakesTextsAndNumbers) {
    EXPECT_EQ(TextOf(std::string("a"), "x"), "a");
    EXPECT_EQ(TextOf(0.5, "x"), "0.5");
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [] { TextOf(true, "the name"); }, "the name is not a text"));
}

class LateBoundTest : public ::testing::Test {
protected:
    LateBound Attach() { return Gateway_.Objects.Attach("Surfer.Application"); }
    ScriptedObject& Root() { return *Gateway_.Server.Root; }

    Gateway Gateway_;
    std::vector<std::string>& Trace = Gateway_.Trace;
};

TEST_F(LateBoundTest, CallsAreTracedWithPositionsNamesAndAbsentPlaces) {
    Arguments got;
    Root().Members["GridBlank"] = [&](const Arguments& arguments) {
        got = arguments;
        EXPECT_EQ(Trace.size(), 2U) << "the line comes before the call runs";
        return Value(7.0);
    };
    const Argument none{Absent{}};
    EXPECT_EQ(Attach().Call("GridBlank", {"a.grd", none, 1, 0.5, true, {"OutGrid", "b.grd"}}), Value(7.0));
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"",
                                   "call Application.GridBlank(\"a.grd\", -, 1, 0.5, True, OutGrid=\"b.grd\")"));
    ASSERT_EQ(got.size(), 6U);
    EXPECT_EQ(got[1].Content, Value(Absent{}));
    EXPECT_EQ(got[5].Name, "OutGrid");
}

TEST_F(LateBoundTest, ACallWithoutArgumentsHasEmptyBrackets) {
    Root().Members["FileNew"] = [](const Arguments&) { return Value(); };
    Attach().Call("FileNew");
    EXPECT_EQ(Trace.back(), "call Application.FileNew()");
}

TEST_F(LateBoundTest, AnArrayIsFilledByTheCalledMember) {
    Root().Members["GridVolume"] = [](const Arguments& arguments) {
        std::get<NumberArray>(arguments.at(0).Content)->at(0) = 12.5;
        return Value();
    };
    const auto results = std::make_shared<std::vector<double>>(11);
    Attach().Call("GridVolume", {{"pResults", results}});
    EXPECT_EQ(results->front(), 12.5);
    EXPECT_EQ(Trace.back(), "call Application.GridVolume(pResults=[11])");
}

TEST_F(LateBoundTest, ObjectsOnTheWayStandInThePathOnly) {
    const auto documents = Root().Child("Documents");
    const auto item = documents->Child("Item");
    const auto shapes = item->Child("Shapes");
    shapes->Members["AddText"] = [](const Arguments&) { return Value(); };
    Attach().Object("Documents").Object("Item", {{"Index", "Plot1"}}).Object("Shapes").Call("AddText", {{"X", 10.44}});
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"",
                                   "call Application.Documents.Item(Index=\"Plot1\").Shapes.AddText(X=10.44)"));
}

TEST_F(LateBoundTest, AnObjectThatACallGivesHasTheCallInItsPath) {
    const auto frame = Root().Child("AddReliefMap");
    const auto layer = frame->Child("Overlays");
    layer->Properties["HLightAngle"] = Value(1.0);
    const LateBound map = Attach().CallForObject("AddReliefMap", {{"GridFilename", "a.grd"}});
    map.Object("Overlays", {1}).Set("HLightAngle", 135);
    EXPECT_THAT(Trace,
                ElementsAre("attach \"Surfer.Application\"", "call Application.AddReliefMap(GridFilename=\"a.grd\")",
                            "set Application.AddReliefMap(GridFilename=\"a.grd\").Overlays(1).HLightAngle = 135"));
}

TEST_F(LateBoundTest, ValuesThatTheToolTakesAreTracedAsGets) {
    Root().Properties["Path"] = Value(std::string("/data"));
    Root().Properties["Count"] = Value(std::string("3"));
    const LateBound program = Attach();
    EXPECT_EQ(program.GetText("Path"), "/data");
    EXPECT_EQ(program.GetNumber("Count"), 3);
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { program.GetNumber("Path"); }, "Path is not a number"));
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"", "get Application.Path", "get Application.Count",
                                   "get Application.Path"));
}

TEST_F(LateBoundTest, PropertiesAreSetWithTheKindOfValueThatIsGiven) {
    const LateBound program = Attach();
    const std::string text = "Invisible";
    program.Set("a", true);
    program.Set("b", 2);
    program.Set("c", 0.4);
    program.Set("d", "Solid");
    program.Set("e", text);
    program.Set("f", Value(NumberMatrix{.Rows = 1, .Columns = 1, .Values = {2}}));
    EXPECT_EQ(Root().Properties["a"], Value(true));
    EXPECT_EQ(Root().Properties["b"], Value(2.0));
    EXPECT_EQ(Root().Properties["c"], Value(0.4));
    EXPECT_EQ(Root().Properties["d"], Value(std::string("Solid")));
    EXPECT_EQ(Root().Properties["e"], Value(std::string("Invisible")));
    Trace.erase(Trace.begin());
    EXPECT_THAT(Trace, ElementsAre("set Application.a = True", "set Application.b = 2", "set Application.c = 0.4",
                                   "set Application.d = \"Solid\"", "set Application.e = \"Invisible\"",
                                   "set Application.f = [1 x 1]"));
}

TEST_F(LateBoundTest, WhatHoldsNothingIsNotSet) {
    const LateBound nothing;
    EXPECT_FALSE(static_cast<bool>(nothing));
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { nothing.Call("GridData"); }, "GridData"));
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { nothing.Get("Name"); }, "Name"));
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { nothing.Set("Left", 1); }, "Left"));
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { nothing.Object("Shapes"); }, "Shapes"));
    EXPECT_TRUE(FailsWith(
        FailureKind::ObjectNotSet, [&] { nothing.CallForObject("Add"); }, "Add"));
    EXPECT_THAT(Trace, IsEmpty());
}

TEST_F(LateBoundTest, AMemberThatGivesNoObjectFailsWhereOneIsWanted) {
    Root().Properties["Name"] = Value(std::string("x"));
    Root().Properties["Empty"] = Value(ObjectRef());
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Attach().Object("Name"); }, "Application.Name is not an object"));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Attach().Object("Empty"); }, "Application.Empty is not an object"));
}

TEST_F(LateBoundTest, AFailedCallIsTracedAndPassedOn) {
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Attach().Call("Fly", {1}); }, "no member Fly"));
    EXPECT_EQ(Trace.back(), "call Application.Fly(1)");
}

TEST_F(LateBoundTest, WithoutATraceNothingIsNoted) {
    Gateway_.Objects.SetTrace(nullptr);
    Attach().Set("Visible", true);
    EXPECT_THAT(Trace, IsEmpty());
}

class ActiveObjectsTest : public LateBoundTest {};

TEST_F(ActiveObjectsTest, AttachFindsTheRunningObject) {
    EXPECT_TRUE(static_cast<bool>(Gateway_.Objects.Attach("Surfer.APP")));
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.APP\""));
}

TEST_F(ActiveObjectsTest, AttachFailsWhereNothingIsFound) {
    Gateway_.Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Attach(); }, "\"Surfer.Application\""));
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"")) << "the attempt is traced";
    Gateway_.Objects.SetFound(true);
    Attach();
}

TEST_F(ActiveObjectsTest, AttachFailsForAnUnknownClass) {
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Gateway_.Objects.Attach(""); }, "\"\""));
}

TEST_F(ActiveObjectsTest, CreatingMakesAnObjectBeFound) {
    Gateway_.Objects.SetFound(false);
    const ScriptedObject* const before = Gateway_.Server.Root.get();
    Gateway_.Objects.Create("Surfer.APP");
    EXPECT_NE(Gateway_.Server.Root.get(), before);
    Attach();
    EXPECT_THAT(Trace, ElementsAre("create \"Surfer.APP\"", "attach \"Surfer.Application\""));
}

TEST_F(ActiveObjectsTest, AClassThatIsNotRegisteredIsNotCreated) {
    Gateway_.Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Gateway_.Objects.Create("Other.Application"); },
        "no class \"Other.Application\" is registered"));
    EXPECT_TRUE(FailsWith(FailureKind::AutomationFailed, [&] { Attach(); })) << "still nothing is found";
}

TEST_F(ActiveObjectsTest, AnAttachedObjectOutlivesANewOne) {
    const LateBound older = Attach();
    const auto first = Gateway_.Server.Root;
    Gateway_.Objects.Create("Surfer.Application");
    older.Set("Visible", true);
    EXPECT_EQ(first->Properties["Visible"], Value(true));
    EXPECT_TRUE(Root().Properties.empty());
}

}  // namespace
}  // namespace crownlab
