#include "mapengine/engine_session.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "mapengine/engine_fixture.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Sessions : public EngineTest {
protected:
    std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const DocumentRef& document : Engine.Session().Documents()) names.push_back(NameOf(document));
        return names;
    }
    /// The session that attaching finds.
    const EngineSession* Found() { return &Engine.Session(); }
};

TEST_F(Sessions, TheEngineRunsWithOneEmptyPlotUnderEitherClass) {
    EXPECT_THAT(Names(), ElementsAre("Plot1"));
    EXPECT_TRUE(Plot().Shapes.empty());
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "Plot1");
    EXPECT_TRUE(static_cast<bool>(Six()));
    EXPECT_TRUE(Fails([&] { Objects.Attach("Surfer"); }, "Surfer"));
    EXPECT_TRUE(Fails([&] { Objects.Attach(""); }, "no running program"));
}

TEST_F(Sessions, BothClassesReachTheSameSession) {
    PutGrid();
    Six().Call("ReliefMap", {"a.grd"});
    EXPECT_EQ(Plot().Shapes.size(), 1U);
    Eight().Object("ActiveDocument").Object("Shapes").Call("AddText", {1, 2, "under the other class"});
    EXPECT_EQ(Plot().Shapes.size(), 2U);
    EXPECT_THAT(Names(), ElementsAre("Plot1"));
}

TEST_F(Sessions, ACreatedSessionHasNoDocumentsAndIsTheOneThatIsFound) {
    const EngineSession* const first = Found();
    const LateBound created = Objects.Create("Surfer.Application");
    EXPECT_NE(Found(), first);
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(Fails([&] { Eight().Object("ActiveDocument"); }, "no document is open"));
    EXPECT_TRUE(Fails([&] { Eight().Object("ActiveWindow"); }, "no document is open"));
    created.Object("Documents").Call("Add", {1});
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "Plot1");
}

TEST_F(Sessions, ACreatedSessionIsFoundUnderTheOtherVersionToo) {
    const LateBound created = Objects.Create("Surfer.Application");
    created.Object("Documents").Call("Add", {1});
    PutGrid();
    Six().Call("ReliefMap", {"a.grd"});
    EXPECT_EQ(Plot().Shapes.size(), 1U);
}

TEST_F(Sessions, WorkOnAnOlderSessionLeavesTheFoundOneAlone) {
    const LateBound older = Eight();
    Objects.Create("Surfer.Application");
    older.Object("Documents").Call("Add", {1});
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_EQ(older.Object("ActiveDocument").GetText("Name"), "Plot2");
}

TEST_F(Sessions, CreatingMakesOneBeFoundWhereNoneWas) {
    Objects.SetFound(false);
    EXPECT_TRUE(Fails([&] { Eight(); }, "\"Surfer.Application\""));
    Objects.Create("Surfer.APP");
    EXPECT_TRUE(static_cast<bool>(Eight()));
}

TEST_F(Sessions, AnUnknownClassCreatesNothing) {
    const EngineSession* const first = Found();
    EXPECT_TRUE(Fails([&] { Objects.Create("Browser.Application"); }, "\"Browser.Application\""));
    EXPECT_EQ(Found(), first);
}

TEST_F(Sessions, ClassesAndMembersAreFoundWhateverTheirCase) {
    EXPECT_EQ(Objects.Attach("surfer.APPLICATION").Object("activedocument").GetText("NAME"), "Plot1");
}

TEST_F(Sessions, VisibleIsSetAndReadUnderVersionEightOnly) {
    EXPECT_EQ(Eight().Get("Visible"), Value(false));
    Eight().Set("Visible", true);
    EXPECT_EQ(Eight().Get("Visible"), Value(true));
    EXPECT_TRUE(Fails([&] { Eight().Set("Visible", "yes"); }, "Visible: the value is neither True nor False"));
    EXPECT_TRUE(Fails([&] { Six().Set("Visible", true); }, "Surfer.APP has no member Visible"));
}

TEST_F(Sessions, EachClassHasItsOwnMembersForDocuments) {
    for (const char* const member : {"FileNew", "FileClose", "Deselect", "GetWksCell", "MapContour", "FileOpen"}) {
        EXPECT_TRUE(Fails([&] { Eight().Call(member); }, std::string("Surfer.Application has no member ") + member));
    }
    for (const char* const member : {"Documents", "ActiveDocument", "ActiveWindow"}) {
        EXPECT_TRUE(Fails([&] { Six().Object(member); }, std::string("Surfer.APP has no member ") + member));
    }
    EXPECT_TRUE(Fails([&] { Six().Call("Gridding"); }, "Surfer.APP has no member Gridding"));
}

TEST_F(Sessions, WhatIsOnlyReadCannotBeSet) {
    EXPECT_TRUE(Fails([&] { Eight().Set("Path", "here"); }, "Path can't be set"));
    EXPECT_TRUE(Fails([&] { Eight().Object("ActiveDocument").Set("Name", "x"); }, "Name can't be set"));
    EXPECT_TRUE(Fails([&] { Eight().Set("Title", "x"); }, "Surfer.Application has no member Title"));
}

TEST_F(Sessions, PropertiesTakeNoArguments) {
    EXPECT_TRUE(Fails([&] { Eight().Object("ActiveDocument", {1}); }, "ActiveDocument takes 0 arguments at most"));
    EXPECT_TRUE(Fails([&] { Six().Call("FileNew", {"x"}); }, "FileNew takes 0 arguments at most"));
}

TEST_F(Sessions, PlotsAreAddedAndFoundByNameAndByPlace) {
    const LateBound documents = Eight().Object("Documents");
    documents.Call("Add", {1});
    documents.Call("Add", {{"DocType", 1}});
    EXPECT_THAT(Names(), ElementsAre("Plot1", "Plot2", "Plot3"));
    EXPECT_EQ(documents.GetNumber("Count"), 3);
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "Plot3");
    EXPECT_EQ(documents.Object("Item", {{"Index", "Plot2"}}).GetText("Name"), "Plot2");
    EXPECT_EQ(documents.Object("Item", {"plot2"}).GetText("Name"), "Plot2");
    EXPECT_EQ(documents.Object("Item", {{"Index", 1}}).GetText("Name"), "Plot1");
    EXPECT_EQ(documents.Object("Item", {"3"}).GetText("Name"), "Plot3") << "a number sent as text is a number";
}

TEST_F(Sessions, DocumentsRefuseWhatTheyDoNotHave) {
    const LateBound documents = Eight().Object("Documents");
    for (const Argument& index : {Argument("Plot2"), Argument(0), Argument(2), Argument(1.5), Argument("")}) {
        EXPECT_TRUE(Fails([&] { documents.Object("Item", {index}); }, "Item: Index no document"));
    }
    EXPECT_TRUE(Fails([&] { documents.Object("Item"); }, "Item: Index is missing"));
    EXPECT_TRUE(Fails([&] { documents.Object("Item", {true}); }, "Item: Index is not a text"));
    EXPECT_TRUE(Fails([&] { documents.Object("Item", {{"Name", "Plot1"}}); }, "Item has no argument Name"));
    EXPECT_TRUE(Fails([&] { documents.Object("Item", {1, 2}); }, "Item takes 1 arguments at most"));
    EXPECT_TRUE(Fails([&] { documents.Call("Add", {2}); }, "Add: DocType 2 is no kind of document"));
    EXPECT_TRUE(Fails([&] { documents.Call("Add", {"plot"}); }, "Add: DocType is not a number"));
    EXPECT_TRUE(Fails([&] { documents.Call("Remove"); }, "the list of documents has no member Remove"));
}

TEST_F(Sessions, ClosingADocumentMakesTheOneBeforeActive) {
    const LateBound first = Eight().Object("ActiveDocument");
    Eight().Object("Documents").Call("Add", {1});
    Eight().Object("ActiveDocument").Call("Close");
    EXPECT_EQ(Eight().Object("ActiveDocument").GetText("Name"), "Plot1");
    Eight().Object("Documents").Call("Add", {1});
    EXPECT_THAT(Names(), ElementsAre("Plot1", "Plot3")) << "a name isn't given twice";
    Eight().Object("ActiveWindow").Call("Close");
    first.Call("Close");
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(Fails([&] { first.Call("Close"); }, "the plot document Plot1 has been closed"));
    EXPECT_TRUE(Fails([&] { first.Object("Shapes"); }, "the plot document Plot1 has been closed"));
}

TEST_F(Sessions, APlotHasNoFileToBeSavedTo) {
    EXPECT_TRUE(Fails([&] { Eight().Object("ActiveDocument").Call("Save"); }, "Plot1 has no file"));
    EXPECT_TRUE(Fails([&] { Six().Call("FileSaveAs", {"plot.dat"}); }, "Plot1 is a plot"));
    EXPECT_EQ(Folder.EntryCount(), 0U);
}

TEST_F(Sessions, FileNewLeavesTheSessionAsAtTheStart) {
    PutGrid();
    Six().Call("ReliefMap", {"a.grd"});
    const LateBound old = Eight().Object("ActiveDocument");
    PutFile("t.txt", "1\t2\r\n");
    Six().Call("FileOpen", {"t.txt", 1});
    Engine.Session().OpenReport({});
    Six().Call("FileNew");
    EXPECT_THAT(Names(), ElementsAre("Plot1"));
    EXPECT_TRUE(Plot().Shapes.empty());
    EXPECT_FALSE(Engine.Session().HasReport());
    EXPECT_TRUE(Fails([&] { old.GetText("Name"); }, "has been closed"));
    EXPECT_TRUE(Fails([&] { Six().Call("GetWksCell", {1, 1, 1}); }, "Handle 1 is no open worksheet"));
}

TEST_F(Sessions, FileCloseClosesTheActiveDocument) {
    PutFile("t.txt", "1\t2\r\n");
    Six().Call("FileOpen", {"t.txt", 1});
    EXPECT_THAT(Names(), ElementsAre("Plot1", "t.txt"));
    Six().Call("FileClose");
    Six().Call("FileClose");
    EXPECT_THAT(Names(), IsEmpty());
    EXPECT_TRUE(Fails([&] { Six().Call("FileClose"); }, "FileClose: no document is open"));
}

TEST_F(Sessions, TheFrontEndHearsOfEachChange) {
    int changes = 0;
    Engine.SetObserver([&] { ++changes; });
    const auto heard = [&](const std::function<void()>& act) {
        const int before = changes;
        act();
        return changes - before;
    };
    PutGrid();
    EXPECT_EQ(heard([&] { Six().Call("ReliefMap", {"a.grd", None, None, None, None, None, None, None, "a"}); }), 1);
    EXPECT_EQ(heard([&] { Six().Call("Select", {"a"}); }), 0) << "nothing to draw";
    EXPECT_EQ(heard([&] { Six().Call("TransformSel", {1, 1}); }), 1);
    EXPECT_EQ(heard([&] { Eight().Object("Documents").Call("Add", {1}); }), 1);
    EXPECT_EQ(heard([&] { Eight().Object("ActiveDocument").Call("Close"); }), 1);
    EXPECT_EQ(heard([&] { Objects.Create("Surfer.APP"); }), 1);
    EXPECT_EQ(heard([&] { Eight().Get("Visible"); }), 0);
    EXPECT_EQ(heard([&] { EXPECT_TRUE(Fails([&] { Six().Call("MapContour", {"none.grd"}); }, "none.grd")); }), 1)
        << "the page is made before the grid is read";
}

TEST_F(Sessions, APlotCountsItsChangesAndTellsWhenItIsClosed) {
    const std::shared_ptr<const PlotDocument> plot = Engine.Session().Plots().at(0);
    const std::uint64_t before = plot->Changes;
    Eight().Object("ActiveDocument").Object("Shapes").Call("AddText", {1, 2, "x"});
    EXPECT_GT(plot->Changes, before);
    EXPECT_TRUE(plot->IsOpen);
    Objects.Create("Surfer.Application");
    EXPECT_TRUE(plot->IsOpen) << "the older session still has it";
    EXPECT_TRUE(Engine.Session().Plots().empty());
}

TEST_F(Sessions, LongerPartsOfACallRunAsideWhileTheHostIsTold) {
    Progress progress;
    const std::thread::id here = std::this_thread::get_id();
    std::thread::id there = here;
    const Value value = Engine.RunAside("GridData", progress, [&] {
        there = std::this_thread::get_id();
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        return Value(7.0);
    });
    EXPECT_EQ(value, Value(7.0));
    EXPECT_NE(there, here);
    EXPECT_GE(Host.Runs, 2);
    EXPECT_EQ(Host.Ends, 1);
}

TEST_F(Sessions, FailuresOfACallAreSaidWithItsName) {
    Progress progress;
    const auto run = [&](const std::function<void()>& act) {
        Engine.RunAside("GridMath", progress, [&] {
            act();
            return Value();
        });
    };
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { run([] { FailCall("no grid"); }); }, "GridMath: no grid"));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { run([] { throw Failure(FailureKind::DiskFull, "out.grd"); }); },
        "GridMath: there is no room on the disk for the file out.grd"));
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [&] { run([] { throw Failure(FailureKind::OutOfMemory, "a grid"); }); }, "a grid"));
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [&] { run([] { throw std::bad_alloc(); }); }, "GridMath"));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { run([] { throw std::runtime_error("broken"); }); }, "GridMath: broken"));
    EXPECT_EQ(Host.Ends, 5);
}

TEST_F(Sessions, TheClipboardIsTheHosts) {
    Engine.Session().SetClipboardText("z(x,y) = 1 + 2y + 3x");
    EXPECT_EQ(Host.Clipboard, "z(x,y) = 1 + 2y + 3x");
}

}  // namespace
}  // namespace crownlab
