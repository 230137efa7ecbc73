#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "surfer/scripted_program.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

/// Writes down what happens to other programs' windows, with the yields in between.
class KeyDesk : public TestDesk {
public:
    bool ActivateWindow(const std::string& window) override {
        Note("activate " + window);
        return true;
    }
    void SendKeys(const std::string& keys) override { Note(keys); }
    void Yield() override {
        TestDesk::Yield();
        if (Events.empty() || Events.back() != "yield") Events.emplace_back("yield");
    }

    std::vector<std::string> Events;
    /// Seconds from one event other than a yield to the next.
    std::vector<double> Waits;

private:
    void Note(const std::string& event) {
        const auto now = std::chrono::steady_clock::now();
        if (!Events.empty()) Waits.push_back(std::chrono::duration<double>(now - last_).count());
        last_ = now;
        Events.push_back(event);
    }
    std::chrono::steady_clock::time_point last_;
};

class ReportCapture : public ::testing::Test {
protected:
    ReportCapture() { Gateway_.Services_.Ties.Screen = &Desk_; }
    std::string Capture(const std::string& tag) { return CaptureReport(Gateway_.App(), Dir, tag); }

    TempFolder Folder;
    std::string Dir = Folder / "";
    Gateway Gateway_;
    KeyDesk Desk_;
};

TEST_F(ReportCapture, SendsTheKeysInOrderWithWaitsBetween) {
    const std::string target = Folder / "Report1.txt";
    EXPECT_EQ(Capture("1"), target);
    EXPECT_THAT(Desk_.Events, ElementsAre("%{TAB}", "yield", "%{TAB}", "yield", "activate Surfer - ", "yield",
                                          "%fs" + target + "~", "yield", "y", "yield", "%fc", "yield"));
    ASSERT_EQ(Desk_.Waits.size(), 5U);
    for (std::size_t i = 2; i < 5; ++i) EXPECT_GE(Desk_.Waits[i], 0.2) << i;
    EXPECT_LT(Desk_.Waits[0], 0.2) << "only the last steps pause";
}

TEST_F(ReportCapture, AMissingFileIsMadeFirst) {
    Capture("A");
    EXPECT_EQ(FileBytes("ReportA.txt"), "junk\r\n");
}

TEST_F(ReportCapture, AFileThatIsThereStays) {
    PutFile("ReportA.txt", "a report\r\n");
    Capture("A");
    EXPECT_EQ(FileBytes("ReportA.txt"), "a report\r\n");
}

TEST_F(ReportCapture, TheWindowIsThatOfTheProcessIfOneIsNamed) {
    Gateway_.Startup().chkSurferPID.Checked = true;
    Gateway_.Startup().txtSurferPID.Text = " 1234 and more";
    Capture("1");
    EXPECT_EQ(Desk_.Events.at(4), "activate 1234");
}

TEST_F(ReportCapture, ANumberIsNeededWithTheCheckAndTheCheckWithTheNumber) {
    Gateway_.Startup().chkSurferPID.Checked = true;
    Capture("1");
    EXPECT_EQ(Desk_.Events.at(4), "activate Surfer - ");
    Desk_.Events.clear();
    Gateway_.Startup().chkSurferPID.Checked = false;
    Gateway_.Startup().txtSurferPID.Text = "1234";
    Capture("1");
    EXPECT_EQ(Desk_.Events.at(4), "activate Surfer - ");
}

TEST_F(ReportCapture, ANumberOfNoProcessIsZero) {
    Gateway_.Startup().chkSurferPID.Checked = true;
    Gateway_.Startup().txtSurferPID.Text = "none";
    Capture("1");
    EXPECT_EQ(Desk_.Events.at(4), "activate 0");
}

TEST_F(ReportCapture, AMissingFolderFailsBeforeAnyKey) {
    Dir = Folder / "missing/";
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { Capture("1"); }));
    EXPECT_TRUE(Desk_.Events.empty());
}

TEST_F(ReportCapture, WaitingEventsRunInAnyOfTheWaits) {
    int presses = 0;
    Desk_.AtYield = [&] { ++presses; };
    Capture("1");
    EXPECT_GT(presses, 3 + 4 * 2);
}

}  // namespace
}  // namespace crownlab
