// The conversion as a person does it: by mouse and keys.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>

#include "desktop_session.h"

namespace crownlab {
namespace {

constexpr const char* kForm = "frmConversion";

class Conversion : public ::testing::Test {
protected:
    void OpenWith(const std::string& name, const std::string& bytes) {
        PutFile(Session.Folder / name, bytes);
        Session.Choose("mnuConversion");
        ASSERT_TRUE(Session.IsOpen(kForm));
    }
    /// Goes down a list of types until it shows `text`.
    void ChooseType(const char* list, const QString& text) {
        auto& box = Session.Find<QComboBox>(kForm, list);
        for (int i = 0; i < box.count() && box.currentText() != text; ++i) QTest::keyClick(&box, Qt::Key_Down);
        ASSERT_EQ(box.currentText(), text);
    }
    void ChooseFile(int row) {
        auto& files = Session.Find<QListWidget>(kForm, "File1");
        const QPoint place = files.visualItemRect(files.item(row)).center();
        QTest::mouseClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
    }
    QString TextOf(const char* box) { return Session.Find<QLineEdit>(kForm, box).text(); }
    void TurnTo(int page) {
        QTabBar& bar = *Session.Find<QTabWidget>(kForm, "SSTab1").tabBar();
        QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, bar.tabRect(page).center());
    }
    bool IsOn(const char* option) { return Session.Find<QRadioButton>(kForm, option).isChecked(); }

    DesktopSession Session;
};

TEST_F(Conversion, AClickedScanBecomesAGrid) {
    OpenWith("scan.txt", "0,0,1\n1,0,2\n0,1,3\n1,1,2.5\n");
    ChooseType("cmbFromFileType", "Text file (Hawk) (*.txt)");
    ChooseType("cmbToFileType", "Surfer grid file (*.grd)");
    ChooseFile(0);
    EXPECT_EQ(TextOf("Text1"), "scan.txt");
    Session.Click(kForm, "cmdExamineFile");
    EXPECT_EQ(TextOf("txtNoPts"), "4");
    EXPECT_EQ(TextOf("txtRXMax"), "1");
    Session.Type(kForm, "txtXInt", "0.5");
    Session.Type(kForm, "txtYInt", "0.5");
    Session.Click(kForm, "cmdConvert");
    EXPECT_FALSE(FileBytes(Session.Folder / "scan.grd").empty());
    EXPECT_EQ(TextOf("txtNoFiles"), "0");
}

TEST_F(Conversion, ADoubleClickAddsAndASecondIsRefused) {
    OpenWith("scan.txt", "0,0,1\n");
    ChooseType("cmbFromFileType", "Tiff text file (*.txt)");
    auto& files = Session.Find<QListWidget>(kForm, "File1");
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    for (int i = 0; i < 2; ++i) {
        const QPoint place = files.visualItemRect(files.item(0)).center();
        QTest::mouseClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        QTest::mouseDClick(files.viewport(), Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_EQ(TextOf("txtNoFiles"), "1");
    }
    ASSERT_EQ(answers.Boxes.size(), 1u);
    EXPECT_EQ(answers.Boxes[0].Title, "Filename");
    EXPECT_EQ(answers.Boxes[0].Text, "Filename already added");
}

TEST_F(Conversion, APageOfSizesSelectsItsOption) {
    OpenWith("image.txt", "1\t2\n3\t4\n");
    EXPECT_TRUE(IsOn("optInFOV"));
    TurnTo(1);
    EXPECT_TRUE(IsOn("optInVox"));
    EXPECT_FALSE(IsOn("optInFOV"));
    TurnTo(2);
    EXPECT_TRUE(IsOn("optInGRD"));
    TurnTo(0);
    EXPECT_TRUE(IsOn("optInFOV"));
    EXPECT_FALSE(IsOn("optInGRD"));
    EXPECT_FALSE(IsOn("optInVox"));
}

TEST_F(Conversion, VoxelSizesShowTheFieldOfView) {
    OpenWith("image.txt", "1\t2\n3\t4\n");
    ChooseType("cmbFromFileType", "Tiff text file (*.txt)");
    ChooseType("cmbToFileType", "Surfer grid file (*.grd)");
    ChooseFile(0);
    TurnTo(1);
    Session.Type(kForm, "X_Input_Int", "0.5");
    Session.Type(kForm, "Y_Input_Int", "2");
    Session.Type(kForm, "Z_Input_Height", "255");
    Session.Click(kForm, "cmdConvert");
    TurnTo(0);
    EXPECT_EQ(TextOf("X_Field"), "1");
    EXPECT_EQ(TextOf("Y_Field"), "4");
    EXPECT_EQ(FileBytes(Session.Folder / "image.csv"), "0,0,3\r\n.5,0,4\r\n0,2,1\r\n.5,2,2\r\n");
    EXPECT_FALSE(FileBytes(Session.Folder / "image.grd").empty());
}

}  // namespace
}  // namespace crownlab
