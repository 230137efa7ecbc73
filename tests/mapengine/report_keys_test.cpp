#include "mapengine/report_keys.h"

#include <filesystem>

#include "mapengine/engine_fixture.h"
#include "support/ordinary_user.h"

namespace crownlab {
namespace {

class Keys : public EngineTest {
protected:
    Keys() { Open("1.5"); }
    void Open(const std::string& value) {
        Worksheet report;
        report.SetCell(2, 1, "A");
        report.SetCell(2, 2, value);
        Engine.Session().OpenReport(report);
    }
    bool HasReport() { return Engine.Session().HasReport(); }
};

TEST_F(Keys, ReachNothingBeforeTheWindowWasActivated) {
    Engine.SendKeys("%fsreport.txt~");
    Engine.SendKeys("%fc");
    EXPECT_EQ(Folder.EntryCount(), 0U);
    EXPECT_TRUE(HasReport());
}

TEST_F(Keys, TheWindowIsActivatedByTheStartOfItsTitle) {
    EXPECT_FALSE(Engine.ActivateWindow("Letters - "));
    EXPECT_FALSE(Engine.ActivateWindow("surfer - "));
    EXPECT_FALSE(Engine.ActivateWindow(""));
    Engine.SendKeys("%fsreport.txt~");
    EXPECT_EQ(Folder.EntryCount(), 0U);
    EXPECT_TRUE(Engine.ActivateWindow("Surfer - "));
    EXPECT_TRUE(Engine.ActivateWindow("Surfer - Plot1"));
    Engine.SendKeys("%fsreport.txt~");
    EXPECT_EQ(FileBytes("report.txt"), "\r\nA\t1.5\r\n");
}

TEST_F(Keys, TheWindowIsActivatedByTheNumberOfThisProcess) {
    EXPECT_FALSE(Engine.ActivateWindow(std::to_string(getpid() + 1)));
    EXPECT_TRUE(Engine.ActivateWindow(std::to_string(getpid())));
    Engine.SendKeys("%fsreport.txt~");
    EXPECT_EQ(FileBytes("report.txt"), "\r\nA\t1.5\r\n");
}

TEST_F(Keys, TakingAnotherWindowToTheFrontEndsIt) {
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%{TAB}");
    Engine.SendKeys("%fsreport.txt~");
    EXPECT_EQ(Folder.EntryCount(), 0U);
}

TEST_F(Keys, AnExistingFileIsOverwrittenAfterAYes) {
    PutFile("report.txt", "junk\r\n");
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fsreport.txt~");
    EXPECT_EQ(FileBytes("report.txt"), "junk\r\n");
    Engine.SendKeys("y");
    EXPECT_EQ(FileBytes("report.txt"), "\r\nA\t1.5\r\n");
    EXPECT_TRUE(HasReport());
    Engine.SendKeys("%fc");
    EXPECT_FALSE(HasReport());
}

TEST_F(Keys, AnythingElseIsANo) {
    PutFile("report.txt", "junk\r\n");
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fsreport.txt~");
    Engine.SendKeys("n");
    Engine.SendKeys("y");
    EXPECT_EQ(FileBytes("report.txt"), "junk\r\n");
    Engine.SendKeys("%fsreport.txt~");
    Engine.SendKeys("%fc");
    EXPECT_TRUE(HasReport()) << "the question had the keys";
}

TEST_F(Keys, AYesWithoutAQuestionDoesNothing) {
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fsreport.txt~");
    PutFile("report.txt", "changed\r\n");
    Engine.SendKeys("y");
    EXPECT_EQ(FileBytes("report.txt"), "changed\r\n");
}

TEST_F(Keys, OfSeveralReportsTheLastHasTheKeys) {
    Open("2.5");
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fsa.txt~");
    Engine.SendKeys("%fc");
    Engine.SendKeys("%fsb.txt~");
    Engine.SendKeys("%fc");
    Engine.SendKeys("%fsc.txt~");
    EXPECT_EQ(FileBytes("a.txt"), "\r\nA\t2.5\r\n");
    EXPECT_EQ(FileBytes("b.txt"), "\r\nA\t1.5\r\n");
    EXPECT_EQ(Folder.EntryCount(), 2U);
}

TEST_F(Keys, PathsMayHoldWhatElseIsAKey) {
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fs" + (Folder / "a~b+c {1}%.txt") + "~");
    EXPECT_EQ(FileBytes("a~b+c {1}%.txt"), "\r\nA\t1.5\r\n");
}

TEST_F(Keys, WhatCannotBeWrittenStaysAsItIs) {
    Engine.ActivateWindow("Surfer - ");
    EXPECT_NO_THROW(Engine.SendKeys("%fsmissing/report.txt~"));
    EXPECT_NO_THROW(Engine.SendKeys("%fs~"));
    EXPECT_EQ(Folder.EntryCount(), 0U);
    EXPECT_TRUE(HasReport());
    std::filesystem::create_directory("closed");
    PutFile("closed/report.txt", "junk\r\n");
    std::filesystem::permissions("closed", std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                                               std::filesystem::perms::others_read |
                                               std::filesystem::perms::others_exec);
    {
        const OrdinaryUser user(Folder.Path());
        if (user.Holds()) {
            Engine.SendKeys("%fsclosed/report.txt~");
            EXPECT_NO_THROW(Engine.SendKeys("y"));
        }
    }
    EXPECT_EQ(FileBytes("closed/report.txt"), "junk\r\n");
    std::filesystem::permissions("closed", std::filesystem::perms::owner_all);
}

TEST_F(Keys, ANewSessionHasNeitherTheFrontNorTheQuestion) {
    PutFile("report.txt", "junk\r\n");
    Engine.ActivateWindow("Surfer - ");
    Engine.SendKeys("%fsreport.txt~");
    Objects.Create("Surfer.Application");
    Open("2.5");
    Engine.SendKeys("y");
    EXPECT_EQ(FileBytes("report.txt"), "junk\r\n");
}

}  // namespace
}  // namespace crownlab
