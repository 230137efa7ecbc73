#include "player/player_desk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "player/script.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

class PlayerDeskTest : public ::testing::Test {
protected:
    /// A handler that yields `times` times and writes each down.
    void YieldTimes(const std::string& name, int times) {
        for (int i = 1; i <= times; ++i) {
            Lines.push_back(name + std::to_string(i));
            Desk_.Yield();
        }
    }

    std::vector<std::string> Lines;
    FileTable Files;
    PlayerDesk Desk_{[this](const std::string& line) { Lines.push_back(line); }, Files};
};

TEST_F(PlayerDeskTest, RunsAnActAtTheYieldItWaitsFor) {
    Desk_.QueueAtYield(2, [this] { Lines.emplace_back("act"); });
    EXPECT_TRUE(Desk_.Act("a", [this] { YieldTimes("yield ", 3); }));
    EXPECT_THAT(Lines, ElementsAre("yield 1", "yield 2", "act", "yield 3"));
}

TEST_F(PlayerDeskTest, RunsSeveralActsInTheirOrder) {
    Desk_.QueueAtYield(1, [this] { Lines.emplace_back("first"); });
    Desk_.QueueAtYield(1, [this] { Lines.emplace_back("second"); });
    Desk_.Act("a", [this] { YieldTimes("yield ", 1); });
    EXPECT_THAT(Lines, ElementsAre("yield 1", "first", "second"));
}

TEST_F(PlayerDeskTest, WhatWaitsIsForTheNextHandlerOnly) {
    Desk_.QueueAtYield(2, [this] { Lines.emplace_back("act"); });
    Desk_.Act("a", [this] { YieldTimes("first ", 1); });
    Desk_.Act("a", [this] { YieldTimes("second ", 2); });
    EXPECT_THAT(Lines, ElementsAre("first 1", "second 1", "second 2"));
}

TEST_F(PlayerDeskTest, ANestedHandlerCountsItsOwnYields) {
    Desk_.QueueAtYield(1, [this] { Desk_.Act("b", [this] { YieldTimes("inner ", 2); }); });
    Desk_.QueueAtYield(2, [this] { Lines.emplace_back("outer act"); });
    Desk_.Act("a", [this] { YieldTimes("outer ", 2); });
    EXPECT_THAT(Lines, ElementsAre("outer 1", "inner 1", "inner 2", "outer 2", "outer act"));
}

TEST_F(PlayerDeskTest, AFailureInsideAYieldLeavesTheOuterHandlerRunning) {
    Desk_.QueueAtYield(1, [this] { Desk_.Act("b", [] { throw Failure(FailureKind::Overflow, "NumX"); }); });
    EXPECT_TRUE(Desk_.Act("a", [this] { YieldTimes("outer ", 2); }));
    EXPECT_THAT(Lines, ElementsAre("outer 1", "failure Overflow in b: NumX", "outer 2"));
    EXPECT_EQ(Desk_.Failures(), 1);
}

TEST_F(PlayerDeskTest, AnswersFromTheQueueOrWithTheFirstButton) {
    const MessageBox box{.Text = "a\n\"b\"", .Title = "t", .Buttons = {Button::Yes, Button::No}};
    Desk_.QueueAnswer({.Pressed = Button::No, .Digitised = {}});
    EXPECT_EQ(Desk_.Ask(box), Button::No);
    EXPECT_EQ(Desk_.Ask(box), Button::Yes);
    EXPECT_THAT(Lines, ElementsAre("box \"t\" \"a\\n\\\"b\\\"\" -> No", "box \"t\" \"a\\n\\\"b\\\"\" -> Yes"));
}

TEST_F(PlayerDeskTest, RefusesAnAnswerThatIsNotOffered) {
    Desk_.QueueAnswer({.Pressed = Button::Yes, .Digitised = {}});
    EXPECT_THROW(Desk_.Ask({.Text = "a", .Title = "", .Buttons = {Button::Ok}}), ScriptError);
}

TEST_F(PlayerDeskTest, WritesDigitisedPointsBeforeTheBoxIsAnswered) {
    const TempFolder folder;
    Desk_.QueueAnswer({.Pressed = Button::Ok, .Digitised = {.File = "digit.dat", .Points = {"1,2", "3,4"}}});
    Desk_.Ask({.Text = "a", .Title = "", .Buttons = {Button::Ok}});
    EXPECT_EQ(FileBytes("digit.dat"), "1,2\r\n3,4\r\n");
}

}  // namespace
}  // namespace crownlab
