#include "surfer/session.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "support/expect_failure.h"
#include "surfer/scripted_program.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

class SessionTest : public ::testing::Test {
protected:
    SessionTest() {
        Gateway_.Server.Make = [] {
            auto program = std::make_shared<ScriptedObject>();
            program->Child("Documents")->Members["Add"] = [](const Arguments&) { return Value(); };
            return program;
        };
    }
    std::string ClassName() { return SurferClassName(State, Gateway_.Windows()); }
    LateBound Prepare(bool startNew) { return PrepareSurfer(State, Gateway_.Windows(), startNew); }

    Gateway Gateway_;
    Session& State = Gateway_.State;
    std::vector<std::string>& Trace = Gateway_.Trace;
};

TEST_F(SessionTest, TheClassIsThatOfTheCheckedVersion) {
    Gateway_.ChooseVersion(6);
    State.SurferVersion = "something else";
    EXPECT_EQ(ClassName(), "Surfer.APP");
    EXPECT_EQ(State.SurferVersion, "SurferV6");
    Gateway_.ChooseVersion(8);
    State.SurferVersion = "something else";
    EXPECT_EQ(ClassName(), "Surfer.Application");
    EXPECT_EQ(State.SurferVersion, "SurferV8");
}

TEST_F(SessionTest, WithBothCheckedItIsSixAndWithNeitherNone) {
    Gateway_.Startup().mnuSurf6.Checked = true;
    EXPECT_EQ(ClassName(), "Surfer.APP");
    Gateway_.ChooseVersion(0);
    State.SurferVersion = "whatever";
    EXPECT_EQ(ClassName(), "");
    EXPECT_EQ(State.SurferVersion, "whatever");
}

TEST_F(SessionTest, TheMainWindowIsLoadedIfItHasToBe) {
    EXPECT_FALSE(Gateway_.Windows().IsLoaded("frmStartup"));
    EXPECT_EQ(ClassName(), "Surfer.Application");
    EXPECT_TRUE(Gateway_.Windows().IsLoaded("frmStartup"));
}

TEST_F(SessionTest, PrepareAttachesUnderVersionEightAndShowsTheProgram) {
    Prepare(false);
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"", "set Application.Visible = True"));
}

TEST_F(SessionTest, PrepareCreatesUnderVersionEightWithAPlotDocument) {
    Prepare(true);
    EXPECT_THAT(Trace, ElementsAre("create \"Surfer.Application\"", "set Application.Visible = True",
                                   "call Application.Documents.Add(1)"));
}

TEST_F(SessionTest, PrepareDoesNothingFurtherUnderVersionSix) {
    Gateway_.ChooseVersion(6);
    EXPECT_TRUE(static_cast<bool>(Prepare(false)));
    EXPECT_TRUE(static_cast<bool>(Prepare(true)));
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.APP\"", "create \"Surfer.APP\""));
}

TEST_F(SessionTest, PrepareFailsWithoutARunningProgramButCreatesOne) {
    Gateway_.Objects.SetFound(false);
    EXPECT_TRUE(FailsWith(FailureKind::AutomationFailed, [&] { Prepare(false); }));
    EXPECT_NO_THROW(Prepare(true));
    EXPECT_NO_THROW(Prepare(false));
}

TEST_F(SessionTest, PrepareFailsWithNeitherVersionChecked) {
    Gateway_.ChooseVersion(0);
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Prepare(false); }, "\"\""));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Prepare(true); }, "no class \"\" is registered"));
}

TEST_F(SessionTest, StartCreatesUnderVersionEightWithAPlotDocument) {
    Gateway_.Objects.SetFound(false);
    StartSurfer(State, Gateway_.Windows());
    EXPECT_THAT(Trace, ElementsAre("create \"Surfer.Application\"", "set Application.Visible = True",
                                   "call Application.Documents.Add(1)"));
    EXPECT_FALSE(static_cast<bool>(State.SurferApp)) << "the tools attach by themselves";
}

TEST_F(SessionTest, StartOnlyCreatesUnderVersionSix) {
    Gateway_.ChooseVersion(6);
    StartSurfer(State, Gateway_.Windows());
    EXPECT_THAT(Trace, ElementsAre("create \"Surfer.APP\""));
}

TEST_F(SessionTest, StartFailsWhereTheClassIsNotRegistered) {
    Gateway_.Server.Classes = {"Surfer.APP"};
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { StartSurfer(State, Gateway_.Windows()); }, "\"Surfer.Application\""));
    EXPECT_THAT(Trace, ElementsAre("create \"Surfer.Application\""));
}

TEST_F(SessionTest, AttachFollowsTheMenusAtEachCall) {
    AttachSurfer(State, Gateway_.Windows());
    Gateway_.Startup().mnuSurf6.Checked = true;
    AttachSurfer(State, Gateway_.Windows());
    EXPECT_THAT(Trace, ElementsAre("attach \"Surfer.Application\"", "attach \"Surfer.APP\""));
    EXPECT_TRUE(State.IsSix());
}

TEST(PauseTest, YieldsForAFifthOfASecond) {
    TestDesk desk;
    const auto start = std::chrono::steady_clock::now();
    Pause(desk);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(took.count(), 0.2);
    EXPECT_LT(took.count(), 2) << "a busy machine may take longer than the fifth, but not by this much";
    EXPECT_GT(desk.Yields, 1) << "at each round";
}

}  // namespace
}  // namespace crownlab
