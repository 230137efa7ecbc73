// The road of one tooth as a person walks it: from the sample scan to its patch count, by mouse and keys.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <filesystem>

#include "desktop_session.h"

namespace crownlab {
namespace {

class Road : public ::testing::Test {
protected:
    Road() { std::filesystem::copy_file(CROWNLAB_SAMPLES "/scan.txt", Session.Folder / "scan.txt"); }

    void ChooseEntry(const char* form, const char* list, const QString& name, bool twice = false) {
        auto& entries = Session.Find<QListWidget>(form, list);
        const QList<QListWidgetItem*> found = entries.findItems(name, Qt::MatchEndsWith);
        ASSERT_EQ(found.size(), 1) << name.toStdString();
        entries.scrollToItem(found.front());
        const QPoint place = entries.visualItemRect(found.front()).center();
        QTest::mouseClick(entries.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        if (twice) QTest::mouseDClick(entries.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    void ChooseType(const char* list, const QString& text) {
        auto& box = Session.Find<QComboBox>("frmConversion", list);
        for (int i = 0; i < box.count() && box.currentText() != text; ++i) QTest::keyClick(&box, Qt::Key_Down);
        ASSERT_EQ(box.currentText(), text);
    }
    bool Has(const std::string& name) const { return std::filesystem::exists(Session.Folder / name); }

    DesktopSession Session;
};

TEST_F(Road, LeadsFromTheScanToThePatchCount) {
    const BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });

    Session.Choose("mnuPtCloud");
    ChooseEntry("frmPtCloud", "File2", "scan.txt");
    Session.Type("frmPtCloud", "txtSearchRadius", "0.064");
    Session.Click("frmPtCloud", "cmdRemoveUndercuts");
    ASSERT_TRUE(Has("scan-uct256_064.txt"));

    Session.Click("frmPtCloud", "DirC");
    ChooseEntry("frmPtCloud", "File2", "scan-uct256_064.txt");
    Session.Type("frmPtCloud", "txtBlnBinSize", "0.192");
    Session.Click("frmPtCloud", "cmdCreateBlankingFile");
    ASSERT_TRUE(Has("scan-uct256_064pblnpts.bln"));

    Session.Choose("mnuConversion");
    ChooseType("cmbFromFileType", "Text file (Hawk) (*.txt)");
    ChooseType("cmbToFileType", "Surfer grid file (*.grd)");
    ChooseEntry("frmConversion", "File1", "scan-uct256_064p.txt");
    Session.Click("frmConversion", "optMaxNoRows");
    Session.Click("frmConversion", "chkAddOutText");
    Session.Click("frmConversion", "cmdConvert");
    ASSERT_TRUE(Has("scan-uct256_064p_.grd"));

    Session.Choose("mnuSurfFns");
    ChooseEntry("frmSurfFns", "File2", "scan-uct256_064p_.grd");
    Session.Click("frmSurfFns", "cmdRegridExactResol");
    ASSERT_TRUE(Has("150b_dat/scan-uct256_064p_150b.dat"));

    Session.Choose("mnuCSVView");
    ChooseEntry("frmCSVView", "Dir1", "150b_dat", true);
    ChooseEntry("frmCSVView", "File1", "scan-uct256_064p_150b.dat");
    Session.Click("frmCSVView", "cmdProcClump");
    EXPECT_EQ(Session.Find<QLabel>("frmCSVView", "lblNoClumps").text(), "117");
    EXPECT_EQ(Session.Find<QLabel>("frmCSVView", "lblPDClumped").text(), "24.815");
    EXPECT_TRUE(answers.Boxes.empty()) << answers.Boxes.front().Text.toStdString();
}

}  // namespace
}  // namespace crownlab
