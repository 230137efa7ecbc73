// The main window, the menus, and how the program ends.
#include <gmock/gmock.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include "desktop_session.h"
#include "forms/acts.h"

namespace crownlab {
namespace {

QString MenuText(DesktopSession& session, const char* item) {
    return session.Window("frmStartup").findChild<QAction*>(item)->text();
}

QString Description(DesktopSession& session) { return session.Find<QLabel>("frmStartup", "lblDescrip").text(); }

QColor TextColour(DesktopSession& session, const char* label) {
    return session.Find<QLabel>("frmStartup", label).palette().color(QPalette::WindowText);
}

TEST(Startup, ShowsTheMainWindow) {
    DesktopSession session;
    EXPECT_TRUE(session.IsOpen("frmStartup"));
    EXPECT_EQ(session.Window("frmStartup").windowTitle(), "The Crownlab");
    EXPECT_EQ(MenuText(session, "mnuFile"), "&File");
    EXPECT_EQ(MenuText(session, "mnuSurfVers"), "Surfer &version");
    EXPECT_FALSE(session.Ended);
}

TEST(Startup, MenusNestAsTheirItemsDo) {
    DesktopSession session;
    const QMenu* const file = session.Window("frmStartup").findChild<QAction*>("mnuFile")->menu();
    ASSERT_NE(file, nullptr);
    QStringList texts;
    for (const QAction* const action : file->actions()) texts << action->text();
    EXPECT_EQ(texts, QStringList({"&New", "&Set default directory", "Surfer &version", "S&tart Surfer", "E&xit"}));
    const QMenu* const versions = file->actions()[2]->menu();
    ASSERT_NE(versions, nullptr);
    EXPECT_EQ(versions->actions().size(), 2);
}

TEST(Startup, ANameClickedTurnsRedAndIsDescribed) {
    DesktopSession session;
    const QColor plain = TextColour(session, "lblTooth");
    session.Click("frmStartup", "lblTooth");
    EXPECT_EQ(TextColour(session, "lblTooth"), QColor(Qt::red));
    session.Click("frmStartup", "lblPlane");
    EXPECT_EQ(TextColour(session, "lblTooth"), plain);
    EXPECT_EQ(TextColour(session, "lblPlane"), QColor(Qt::red));
    EXPECT_TRUE(Description(session).startsWith("Fits planes to points"));
    session.Click("frmStartup", "Label2");
    EXPECT_EQ(TextColour(session, "lblPlane"), plain);
    EXPECT_EQ(Description(session), "");
}

TEST(Startup, ANameCanBeChosenByTheKeyboard) {
    DesktopSession session;
    auto& label = session.Find<QLabel>("frmStartup", "lblTransform");
    EXPECT_EQ(label.focusPolicy(), Qt::TabFocus);
    QTest::keyClick(&label, Qt::Key_Space);
    EXPECT_EQ(TextColour(session, "lblTransform"), QColor(Qt::red));
}

TEST(Startup, AVersionChosenIsCheckedAloneAndWritten) {
    DesktopSession session;
    auto* const six = session.Window("frmStartup").findChild<QAction*>("mnuSurf6");
    auto* const eight = session.Window("frmStartup").findChild<QAction*>("mnuSurf8");
    EXPECT_FALSE(six->isChecked());
    EXPECT_TRUE(eight->isChecked());
    six->trigger();
    EXPECT_TRUE(six->isChecked());
    EXPECT_FALSE(eight->isChecked());
    EXPECT_EQ(FileBytes(session.Folder / "Crownlab.ini"), session.Folder.Path() + "\r\nSurverV6\r\n");
    // Qt would take the check mark off an item that is chosen again.
    six->trigger();
    EXPECT_TRUE(six->isChecked());
}

TEST(Startup, AToolOpenedTwiceIsOneWindow) {
    DesktopSession session;
    session.Choose("mnuCSVView");
    const FormWindow* const window = &session.Window("frmCSVView");
    session.Type("frmCSVView", "Text1", "kept.csv");
    session.Choose("mnuCSVView");
    EXPECT_EQ(&session.Window("frmCSVView"), window);
    EXPECT_EQ(session.Find<QLineEdit>("frmCSVView", "Text1").text(), "kept.csv");
}

TEST(Startup, AToolOfALaterVersionSaysSo) {
    DesktopSession session;
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    session.Choose("mnuRake");
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_EQ(answers.Boxes[0].Title, "Crownlab");
    EXPECT_EQ(answers.Boxes[0].Text, "This tool (frmRake) is not part of this version yet.");
}

TEST(Ending, TheCloseBoxOfTheMainWindowHidesIt) {
    DesktopSession session;
    session.Click("frmStartup", "lblTooth");
    session.Open("frmAbout");
    session.Window("frmStartup").close();
    EXPECT_FALSE(session.IsOpen("frmStartup"));
    EXPECT_TRUE(session.App.Windows().IsLoaded("frmStartup"));
    EXPECT_EQ(session.Get<Label>("frmStartup", "lblTooth").ForeColour, kRed);
    EXPECT_FALSE(session.Ended);
    session.Click("frmAbout", "Command1");
    EXPECT_EQ(session.Ended, 0);
}

TEST(Ending, TheLastWindowClosedEndsTheProgram) {
    DesktopSession session;
    session.Open("frmCSVView").close();
    EXPECT_FALSE(session.App.Windows().IsLoaded("frmCSVView"));
    EXPECT_FALSE(session.Ended);
    session.Window("frmStartup").close();
    EXPECT_EQ(session.Ended, 0);
}

TEST(Ending, ExitEndsAtOnce) {
    DesktopSession session;
    session.Open("frmCSVView");
    session.Choose("mnuExit");
    EXPECT_EQ(session.Ended, 0);
    EXPECT_TRUE(session.App.Windows().IsLoaded("frmCSVView"));
}

TEST(Ending, AMissingSettingsFileStopsTheStart) {
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    DesktopSession session(std::nullopt);
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_TRUE(answers.Boxes[0].Text.contains("FileNotFound"));
    EXPECT_TRUE(answers.Boxes[0].Text.contains("frmStartup.Form_Load"));
    EXPECT_TRUE(answers.Boxes[0].Text.contains("Crownlab ends."));
    EXPECT_EQ(session.Ended, kStatusEndedByFailure);
    EXPECT_FALSE(session.IsOpen("frmStartup"));
}

TEST(Ending, NewEndsTheProgramByAFailure) {
    DesktopSession session;
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    session.Choose("mnuNew");
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_TRUE(answers.Boxes[0].Text.contains("ObjectNotSet"));
    EXPECT_EQ(session.Ended, kStatusEndedByFailure);
}

TEST(Ending, AnyOtherFailureGoesOn) {
    DesktopSession session("gone\r\nSurferV8\r\n");
    session.Open("frmCSVView");
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    session.Click("frmCSVView", "Command3");
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_TRUE(answers.Boxes[0].Text.contains("frmCSVView.Command3_Click"));
    EXPECT_TRUE(answers.Boxes[0].Text.contains("Crownlab goes on."));
    EXPECT_FALSE(session.Ended);
    EXPECT_FALSE(session.Desk.IsRunning());
}

}  // namespace
}  // namespace crownlab
