// Message boxes, modal windows, and what the other windows may do meanwhile.
#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>

#include "basis/failure.h"
#include "desktop/entry_list.h"
#include "desktop_session.h"
#include "probe_session.h"

namespace crownlab {
namespace {

TEST(Boxes, TellTextTitleAndAnswer) {
    ProbeSession session;
    Button answer = Button::Ok;
    session.On("cmdRun_Click", [&] {
        answer = session.Desk.Ask({.Text = "a & b <b>c</b>", .Title = "Asked", .Buttons = {Button::Yes, Button::No}});
    });
    BoxAnswers answers([](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        PressIn(box, QMessageBox::No);
    });
    session.Click("cmdRun");
    EXPECT_EQ(answer, Button::No);
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_EQ(answers.Boxes[0].Title, "Asked");
    EXPECT_EQ(answers.Boxes[0].Text, "a & b <b>c</b>");
}

TEST(Boxes, CloseButtonIsCancelOrElseOk) {
    ProbeSession session;
    std::vector<Button> answers;
    session.On("cmdRun_Click", [&] {
        answers.push_back(session.Desk.Ask({.Text = "a", .Title = {}, .Buttons = {Button::Ok, Button::Cancel}}));
        answers.push_back(session.Desk.Ask({.Text = "b", .Title = {}, .Buttons = {Button::Ok}}));
    });
    BoxAnswers closer([](QMessageBox& box) { box.close(); });
    session.Click("cmdRun");
    EXPECT_THAT(answers, ::testing::ElementsAre(Button::Cancel, Button::Ok));
}

TEST(Boxes, FormWindowsRefuseInputMeanwhile) {
    ProbeSession session;
    int others = 0;
    session.Window("frmSecond");
    session.On("cmdRun_Click", [&] { Tell(session.Probe(), "wait"); });
    session.On("cmdOther_Click", [&] { ++others; });
    session.On(
        "cmdOther_Click", [&] { ++others; }, "frmSecond");
    BoxAnswers answers([&](QMessageBox& box) {
        session.Click("cmdOther");
        session.Click("cmdOther", "frmSecond");
        QTest::keyClick(&session.Find<QLineEdit>("txtWord"), Qt::Key_A);
        session.Window("frmSecond").close();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        PressIn(box, QMessageBox::Ok);
    });
    session.Click("cmdRun");
    EXPECT_EQ(others, 0);
    EXPECT_EQ(session.Probe().txtWord.Text, "word");
    EXPECT_TRUE(session.Windows.IsLoaded("frmSecond"));
    session.Click("cmdOther");
    EXPECT_EQ(others, 1);
}

TEST(Boxes, OfNestedHandlersAnswerFromTheInnermost) {
    ProbeSession session;
    std::vector<std::string> order;
    session.On("cmdRun_Click", [&] {
        Queue(session.Window(), [&] { session.Click("cmdOther"); });
        while (order.empty()) session.Desk.Yield();
        Tell(session.Probe(), "outer");
        order.emplace_back("outer");
    });
    session.On("cmdOther_Click", [&] {
        Tell(session.Probe(), "inner");
        order.emplace_back("inner");
    });
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    session.Click("cmdRun");
    EXPECT_THAT(order, ::testing::ElementsAre("inner", "outer"));
}

TEST(Failures, AreShownWithTheirHandler) {
    ProbeSession session;
    session.On("cmdRun_Click", [] { throw Failure(FailureKind::Overflow, "NumX"); });
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    session.Click("cmdRun");
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_EQ(
        answers.Boxes[0].Text,
        "Failure: Overflow\nIn: frmProbe.cmdRun_Click\nConcerning: NumX\n\nThe command was stopped where it stood; "
        "Crownlab goes on.");
}

TEST(Failures, OfOtherKindsAreShownToo) {
    ProbeSession session;
    session.On("cmdRun_Click", [] { throw std::bad_alloc(); });
    session.On("cmdOther_Click", [] { throw std::runtime_error("odd"); });
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    session.Click("cmdRun");
    session.Click("cmdOther");
    ASSERT_EQ(answers.Boxes.size(), 2u);
    EXPECT_TRUE(answers.Boxes[0].Text.contains("OutOfMemory"));
    EXPECT_TRUE(answers.Boxes[1].Text.contains("InvalidCall"));
    EXPECT_TRUE(answers.Boxes[1].Text.contains("odd"));
}

/// frmSaveFile as a tool opens it: modally.
class SaveDialog : public ::testing::Test {
protected:
    /// Shows the dialog and runs `act` while it waits.
    void Show(const std::function<void()>& act) {
        Session.Desk.Act("test", [&] {
            const std::shared_ptr<Form> form = Session.App.Windows().Load("frmSaveFile");
            Queue(Session.Window("frmStartup"), act);
            Session.Desk.ShowModal(*form);
        });
    }
    ShellState& Shell() { return Session.App.Shell(); }

    DesktopSession Session;
};

TEST_F(SaveDialog, StaysUpAfterAFailure) {
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    Show([&] {
        Session.Type("frmSaveFile", "txtFileName", "out");
        Session.Click("frmSaveFile", "cmdOK");
        EXPECT_TRUE(Session.IsOpen("frmSaveFile"));
        Session.Click("frmSaveFile", "cmdCancel");
    });
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_TRUE(answers.Boxes[0].Text.contains("frmSaveFile.cmdOK_Click"));
}

TEST_F(SaveDialog, ReturnsThePathWhenConfirmed) {
    Show([&] {
        Session.Type("frmSaveFile", "txtFileName", "out.txt");
        Session.Click("frmSaveFile", "cmdOK");
    });
    EXPECT_FALSE(Session.App.Windows().IsLoaded("frmSaveFile"));
    EXPECT_TRUE(Shell().SaveOK);
    EXPECT_EQ(Shell().SavePath, Session.Folder / "out.txt");
}

TEST_F(SaveDialog, EnterConfirmsAndEscapeGivesUp) {
    Show([&] {
        Session.Type("frmSaveFile", "txtFileName", "result");
        QTest::keyClick(&Session.Find<QLineEdit>("frmSaveFile", "txtFileName"), Qt::Key_Return);
    });
    EXPECT_TRUE(Shell().SaveOK);
    EXPECT_EQ(Shell().SavePath, Session.Folder / "result.csv");
    Show([&] { QTest::keyClick(&Session.Find<QLineEdit>("frmSaveFile", "txtFileName"), Qt::Key_Escape); });
    EXPECT_FALSE(Shell().SaveOK);
}

TEST_F(SaveDialog, CloseBoxGivesUp) {
    Show([&] { Session.Window("frmSaveFile").close(); });
    EXPECT_FALSE(Shell().SaveOK);
    EXPECT_FALSE(Session.App.Windows().IsLoaded("frmSaveFile"));
}

TEST_F(SaveDialog, AsksBeforeOverwriting) {
    PutFile(Session.Folder / "there.csv", "");
    std::vector<QMessageBox::StandardButton> presses{QMessageBox::Cancel, QMessageBox::Ok};
    BoxAnswers answers([&](QMessageBox& box) {
        const auto press = presses.front();
        presses.erase(presses.begin());
        PressIn(box, press);
    });
    Show([&] {
        auto& files = Session.Find<EntryList>("frmSaveFile", "File1");
        QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, files.visualItemRect(files.item(0)).center());
        EXPECT_EQ(Session.Find<QLineEdit>("frmSaveFile", "txtFileName").text(), "there.csv");
        Session.Click("frmSaveFile", "cmdOK");
        EXPECT_TRUE(Session.IsOpen("frmSaveFile")) << "Cancel leaves the dialog up";
        Session.Click("frmSaveFile", "cmdOK");
    });
    ASSERT_EQ(answers.Boxes.size(), 2u);
    EXPECT_EQ(answers.Boxes[0].Text, "Overwrite file?");
    EXPECT_EQ(answers.Boxes[0].Title, "Open file");
    EXPECT_TRUE(Shell().SaveOK);
    EXPECT_EQ(Shell().SavePath, Session.Folder / "there.csv");
}

TEST_F(SaveDialog, OtherWindowsRefuseInputMeanwhile) {
    Session.Open("frmDefDir");
    Show([&] {
        Session.Click("frmDefDir", "cmdUpdateDefDir");
        Session.Window("frmDefDir").close();
        EXPECT_TRUE(Session.IsOpen("frmDefDir"));
        Session.Click("frmSaveFile", "cmdCancel");
    });
    EXPECT_TRUE(Session.IsOpen("frmDefDir"));
    Session.Click("frmDefDir", "cmdUpdateDefDir");
    EXPECT_FALSE(Session.IsOpen("frmDefDir"));
}

}  // namespace
}  // namespace crownlab
