// What a person does to a widget reaches its record, and what a handler does to a record reaches its widget.
#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QTest>
#include <filesystem>
#include <map>

#include "basis/paths.h"
#include "desktop/entry_list.h"
#include "desktop/shown_text.h"
#include "desktop_session.h"
#include "probe_session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

class Controls : public ::testing::Test {
protected:
    Controls() { Session.Window(); }
    /// Runs `change` as a handler does and lets the desktop copy the records.
    void InHandler(const std::function<void(FrmProbe&)>& change) {
        Session.Desk.Act("test", [&] { change(Session.Probe()); });
    }
    template <typename Widget>
    Widget& Find(const char* name) {
        return Session.Find<Widget>(name);
    }
    /// Counts the runs of a handler.
    int& Count(const char* handler) {
        int& count = counts_[handler];
        Session.On(handler, [&count] { ++count; });
        return count;
    }
    FrmProbe& Probe() { return Session.Probe(); }

    ProbeSession Session;

private:
    std::map<std::string, int> counts_;
};

TEST_F(Controls, ShowTheirRecordsAtFirst) {
    EXPECT_EQ(Session.Window().windowTitle(), "Probe of frmProbe");
    EXPECT_EQ(Find<QPushButton>("cmdRun").text(), "Run");
    EXPECT_EQ(Find<QLineEdit>("txtWord").text(), "word");
    EXPECT_EQ(Find<QGroupBox>("fraGroup").title(), "Group");
    EXPECT_TRUE(Find<QRadioButton>("optOne").isChecked());
    EXPECT_EQ(Find<QComboBox>("cmbPick").currentText(), "b");
    EXPECT_EQ(Find<QComboBox>("cmbPick").count(), 3);
    EXPECT_EQ(Find<QTabWidget>("tabTools").tabText(1), "Second");
    EXPECT_EQ(Find<QScrollBar>("vscLight").maximum(), 90);
}

TEST_F(Controls, LabelsShowMarkUpAndAmpersandsAsTheyAre) {
    const auto& label = Find<QLabel>("lblNote");
    EXPECT_EQ(label.text(), "a&b <i>c</i>");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.buddy(), nullptr) << "a buddy would make & an access key";
}

TEST_F(Controls, EnabledAndVisibleFollowTheRecord) {
    InHandler([](FrmProbe& probe) {
        probe.cmdRun.Enabled = false;
        probe.txtWord.Visible = false;
        probe.fraGroup.Enabled = false;
    });
    EXPECT_FALSE(Find<QPushButton>("cmdRun").isEnabled());
    EXPECT_FALSE(Find<QLineEdit>("txtWord").isVisible());
    EXPECT_FALSE(Find<QRadioButton>("optOne").isEnabled()) << "a frame disables what lies in it";
    const int& pressed = Count("cmdRun_Click");
    Session.Click("cmdRun");
    EXPECT_EQ(pressed, 0);
}

TEST_F(Controls, TypingIsAChangeForEachKey) {
    const int& changed = Count("txtWord_Change");
    auto& box = Find<QLineEdit>("txtWord");
    box.setFocus();
    box.selectAll();
    QKeyEvent umlaut(QEvent::KeyPress, Qt::Key_Adiaeresis, Qt::NoModifier, "\u00e4");
    QApplication::sendEvent(&box, &umlaut);
    QTest::keyClick(&box, Qt::Key_B);
    EXPECT_EQ(changed, 2);
    EXPECT_EQ(Probe().txtWord.Text, "\u00e4b");
}

TEST_F(Controls, AHandlersTextLeavesTheCursorOfSomeoneWhoTypes) {
    Session.On("txtWord_Change", [&] { Probe().txtWord.Text = "12345"; });
    auto& box = Find<QLineEdit>("txtWord");
    Session.Window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Session.Window()));
    box.setFocus();
    box.setCursorPosition(1);
    QTest::keyClicks(&box, "x");
    EXPECT_EQ(box.text(), "12345");
    EXPECT_EQ(box.cursorPosition(), 2);
}

TEST_F(Controls, ACheckBoxThatItsHandlerClearsIsShownClear) {
    Session.On("chkTick_Click", [&] { Probe().chkTick.Checked = false; });
    Session.Click("chkTick");
    EXPECT_FALSE(Probe().chkTick.Checked);
    EXPECT_FALSE(Find<QCheckBox>("chkTick").isChecked());
}

TEST_F(Controls, OptionsOfOneParentExcludeOneAnother) {
    const int& chosen = Count("optTwo_Click");
    Session.Click("optTwo");
    EXPECT_TRUE(Probe().optTwo.Selected);
    EXPECT_FALSE(Probe().optOne.Selected);
    EXPECT_FALSE(Find<QRadioButton>("optOne").isChecked());
    EXPECT_TRUE(Find<QRadioButton>("optLoose").isChecked()) << "it has another parent";
    Session.Click("optTwo");
    EXPECT_EQ(chosen, 2) << "a click on the chosen option counts";
    EXPECT_TRUE(Find<QRadioButton>("optTwo").isChecked());
}

TEST_F(Controls, AllOptionsMayBeClear) {
    InHandler([](FrmProbe& probe) { probe.optOne.Selected = false; });
    EXPECT_FALSE(Find<QRadioButton>("optOne").isChecked());
    EXPECT_FALSE(Find<QRadioButton>("optTwo").isChecked());
    Session.Click("optTwo");
    EXPECT_TRUE(Find<QRadioButton>("optTwo").isChecked());
}

TEST_F(Controls, AHandlerMaySelectAnotherOption) {
    Session.On("optTwo_Click", [&] {
        Probe().optTwo.Selected = false;
        Probe().optOne.Selected = true;
    });
    Session.Click("optTwo");
    EXPECT_TRUE(Find<QRadioButton>("optOne").isChecked());
    EXPECT_FALSE(Find<QRadioButton>("optTwo").isChecked());
}

TEST_F(Controls, ComboBoxSelects) {
    const int& picked = Count("cmbPick_Click");
    auto& combo = Find<QComboBox>("cmbPick");
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(Probe().cmbPick.Selected, 2);
    EXPECT_EQ(picked, 1);
    InHandler([](FrmProbe& probe) {
        probe.cmbPick.Items = {"x", "y"};
        probe.cmbPick.Selected = -1;
    });
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(combo.count(), 2);
    EXPECT_EQ(picked, 1) << "copying a record is no act";
}

TEST_F(Controls, BarsAndSlidersMove) {
    const int& changed = Count("vscLight_Change");
    Find<QScrollBar>("vscLight").setValue(45);
    EXPECT_EQ(Probe().vscLight.Value, 45);
    InHandler([](FrmProbe& probe) {
        probe.vscLight.Value = 90;
        probe.sldTooth.Min = 1;
        probe.sldTooth.Max = 300;
        probe.sldTooth.Step = 100;
        probe.sldTooth.Value = 7;
    });
    EXPECT_EQ(changed, 1);
    EXPECT_EQ(Find<QScrollBar>("vscLight").value(), 90);
    auto& slider = Find<QSlider>("sldTooth");
    EXPECT_EQ(slider.value(), 7);
    QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_EQ(Probe().sldTooth.Value, 107);
}

TEST_F(Controls, ProgressBarShowsItsShare) {
    InHandler([](FrmProbe& probe) {
        probe.prgDone.Max = 4;
        probe.prgDone.Value = 1;
    });
    const auto& bar = Find<QProgressBar>("prgDone");
    EXPECT_EQ(4 * bar.value(), bar.maximum());
    InHandler([](FrmProbe& probe) { probe.prgDone.Visible = false; });
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(Controls, TabsTurnBothWays) {
    const int& turned = Count("tabTools_Click");
    auto& tabs = Find<QTabWidget>("tabTools");
    tabs.setCurrentIndex(1);
    EXPECT_EQ(Probe().tabTools.Index, 1);
    EXPECT_EQ(turned, 1);
    InHandler([](FrmProbe& probe) {
        probe.tabTools.Index = 0;
        probe.pagSecond.Enabled = false;
    });
    EXPECT_EQ(tabs.currentIndex(), 0);
    EXPECT_FALSE(tabs.isTabEnabled(1));
    EXPECT_EQ(turned, 1);
}

TEST_F(Controls, MenuItemsFire) {
    const int& chosen = Count("mnuItem_Click");
    auto* const item = Session.Window().findChild<QAction*>("mnuItem");
    item->trigger();
    EXPECT_EQ(chosen, 1);
    EXPECT_FALSE(item->isChecked()) << "its record decides about the check mark";
    InHandler([](FrmProbe& probe) {
        probe.mnuItem.Checked = true;
        probe.mnuItem.Enabled = false;
    });
    EXPECT_TRUE(item->isChecked());
    EXPECT_FALSE(item->isEnabled());
}

TEST_F(Controls, KeysAreToldWithTheirNames) {
    std::vector<std::string> keys;
    Probe().OnAny("cmdRun_KeyDown", [&keys](const EventArgs& args) { keys.push_back(args.Key); });
    // Keys are watched where a handler waits for them, which is settled when a window is made.
    Session.Desk.Act("test", [&] { Session.Windows.Unload("frmProbe"); });
    Session.Probe().OnAny("cmdRun_KeyDown", [&keys](const EventArgs& args) { keys.push_back(args.Key); });
    auto& button = Session.Find<QPushButton>("cmdRun");
    QTest::keyClick(&button, Qt::Key_Escape);
    QTest::keyClick(&button, Qt::Key_F1);
    EXPECT_THAT(keys, ElementsAre("Escape", "F1"));
}

class Lists : public Controls {
protected:
    void ClickRow(const char* list, int row, bool twice = false) {
        auto& entries = Find<EntryList>(list);
        const QPoint at = entries.visualItemRect(entries.item(row)).center();
        QTest::mouseClick(entries.viewport(), Qt::LeftButton, {}, at);
        if (twice) QTest::mouseDClick(entries.viewport(), Qt::LeftButton, {}, at);
    }
    QStringList Shown(const char* list) {
        auto& entries = Find<EntryList>(list);
        QStringList names;
        for (int i = 0; i < entries.count(); ++i) names << entries.item(i)->text().trimmed();
        return names;
    }
    /// Puts files and folders into the session's folder and reads the lists anew, as coming back to the window does.
    void Put(const std::vector<std::string>& files, const std::vector<std::string>& folders = {}) {
        for (const std::string& name : files) PutFile(Session.Folder / name, "");
        for (const std::string& name : folders) std::filesystem::create_directory(Session.Folder / name);
        QEvent activated(QEvent::WindowActivate);
        QApplication::sendEvent(&Session.Window(), &activated);
    }
};

TEST_F(Lists, FilesAreReadAnewWhenTheWindowComesToTheFront) {
    EXPECT_EQ(Shown("File1"), QStringList());
    Put({"b.csv", "a.csv", "c.txt"});
    EXPECT_EQ(Shown("File1"), QStringList({"a.csv", "b.csv"}));
}

TEST_F(Lists, AFolderThatIsGoneKeepsTheOldNames) {
    Put({"a.csv"});
    Probe().File1.Path = Session.Folder / "gone";
    Put({"b.csv"});
    EXPECT_EQ(Shown("File1"), QStringList({"a.csv"}));
}

TEST_F(Lists, AClickChoosesAFileAndCountsEachTime) {
    Put({"a.csv", "b.csv"});
    const int& clicked = Count("File1_Click");
    ClickRow("File1", 1);
    EXPECT_EQ(Probe().File1.FileName, "b.csv");
    EXPECT_EQ(clicked, 1);
    ClickRow("File1", 1);
    EXPECT_EQ(clicked, 2);
    QTest::keyClick(&Find<EntryList>("File1"), Qt::Key_Up);
    EXPECT_EQ(Probe().File1.FileName, "a.csv");
    EXPECT_EQ(clicked, 3);
}

TEST_F(Lists, ADoubleClickAndEnterTakeAFile) {
    Put({"a.csv", "b.csv"});
    const int& taken = Count("File1_DblClick");
    ClickRow("File1", 0, true);
    EXPECT_EQ(Probe().File1.FileName, "a.csv");
    EXPECT_EQ(taken, 1);
    QTest::keyClick(&Find<EntryList>("File1"), Qt::Key_Return);
    EXPECT_EQ(taken, 2);
}

TEST_F(Lists, FoldersAreEnteredByADoubleClick) {
    Put({}, {"Teeth", "more"});
    const int& entered = Count("Dir1_Change");
    const QStringList shown = Shown("Dir1");
    EXPECT_EQ(shown.first(), "/");
    EXPECT_EQ(shown.mid(shown.size() - 2), QStringList({"more", "Teeth"}));
    const int current = Find<EntryList>("Dir1").currentRow();
    EXPECT_EQ(JoinPath("/tmp", RecordText(shown[current])), JoinPath("/tmp", RecordText(shown[shown.size() - 3])));
    ClickRow("Dir1", static_cast<int>(shown.size()) - 1);
    EXPECT_EQ(entered, 0) << "a single click only marks the folder";
    ClickRow("Dir1", static_cast<int>(shown.size()) - 1, true);
    EXPECT_EQ(entered, 1);
    EXPECT_EQ(Probe().Dir1.Path, Session.Folder / "Teeth");
    // And up again by Enter on the line above.
    auto& list = Find<EntryList>("Dir1");
    list.setCurrentRow(list.currentRow() - 1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(Probe().Dir1.Path, Session.Folder.Path());
}

TEST_F(Lists, AFolderGoneMeanwhileIsAFailureOfItsList) {
    Put({}, {"gone"});
    std::filesystem::remove(Session.Folder / "gone");
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    ClickRow("Dir1", Find<EntryList>("Dir1").count() - 1, true);
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_TRUE(answers.Boxes[0].Text.contains("PathNotFound"));
    EXPECT_EQ(Probe().Dir1.Path, Session.Folder.Path());
}

TEST_F(Lists, TheRootIsADriveAndAFolder) {
    EXPECT_EQ(Find<QComboBox>("Drive1").currentText(), "/");
    ClickRow("Dir1", 0, true);
    EXPECT_EQ(Probe().Dir1.Path, "/");
    EXPECT_EQ(Find<EntryList>("Dir1").currentRow(), 0);
}

}  // namespace
}  // namespace crownlab
