// The viewer as a person uses it: with the mouse, on surfaces in files.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>

#include "desktop/entry_list.h"
#include "desktop/picture_view.h"
#include "desktop/vrml_widget.h"
#include "desktop_session.h"
#include "viewer/frm_csv_view.h"

namespace crownlab {
namespace {

class Viewer : public ::testing::Test {
protected:
    Viewer() { PutFile(Session.Folder / "hill.csv", HillFile(20, 10)); }

    FormWindow& Open() { return Session.Open("frmCSVView"); }
    FrmCSVView& Form() { return static_cast<FrmCSVView&>(*Session.App.Windows().Load("frmCSVView")); }
    template <typename Widget>
    Widget& Find(const char* name) {
        return Session.Find<Widget>("frmCSVView", name);
    }
    void Click(const char* name) { Session.Click("frmCSVView", name); }
    QString Text(const char* label) { return Find<QLabel>(label).text(); }
    void ClickFile(int row) {
        auto& files = Find<EntryList>("File1");
        QTest::mouseClick(files.viewport(), Qt::LeftButton, {}, files.visualItemRect(files.item(row)).center());
    }
    /// Chooses and reads a file of the samples.
    void TakeTeeth() {
        ASSERT_TRUE(QFile::copy(QString("%1/teeth.csv").arg(CROWNLAB_SAMPLES), "teeth.csv"));
        Open();
        Session.Type("frmCSVView", "Text1", "teeth.csv");
    }

    DesktopSession Session;
    // A multi-tooth file tells of each tooth that its spacing isn't found.
    BoxAnswers Boxes{[](QMessageBox& box) { PressIn(box, QMessageBox::Ok); }};
};

TEST_F(Viewer, AClickOnAFileReadsAndShowsIt) {
    Open();
    ClickFile(0);
    EXPECT_EQ(Find<QLineEdit>("Text1").text(), "hill.csv");
    EXPECT_EQ(Form().State.NumX, 22);
    EXPECT_EQ(Form().State.NumY, 12);
    // 22 by 12 cells: 313 by floor(313 / (22 / 12)) pixels.
    auto& view = Find<PictureView>("picBoxD");
    EXPECT_NEAR(view.Target().width() / view.Target().height(), 313.0 / 170, 1e-9);
    const QImage picture = view.grab().toImage();
    EXPECT_GT(qGray(picture.pixel(picture.rect().center())), 200) << "the top of the hill is bright";
}

TEST_F(Viewer, TheMouseReadsTheSurface) {
    Open();
    ClickFile(0);
    auto& view = Find<PictureView>("picBoxD");
    const QRectF target = view.Target();
    // The middle of the cell in column 3, second row from the top: 22 by 12 cells with a ring of empty ones.
    MoveOver(view, QPointF(target.x() + target.width() * 2.5 / 22, target.y() + target.height() * 1.5 / 12));
    EXPECT_EQ(Text("lblX_D"), "3");
    EXPECT_EQ(Text("lblY_D"), "11");
    EXPECT_EQ(Text("lblXR_D"), "2");
    EXPECT_EQ(Text("lblYR_D"), "10");
    EXPECT_NE(Text("lblZ_D"), "-");
    MoveOver(view, target.topLeft() + QPointF(1, 1));
    EXPECT_EQ(Text("lblZ_D"), "-") << "an empty cell";
}

TEST_F(Viewer, PatchesAreCountedAtAPress) {
    Open();
    ClickFile(0);
    Session.Type("frmCSVView", "txtMinClumpSize", "4");
    EXPECT_EQ(Text("lblClumpNameID"), "cl_asp8_4");
    Click("cmdProcClump");
    EXPECT_EQ(Text("lblNoClumps").toInt(), Form().State.Clump.ClumpSizes.size());
    EXPECT_GT(Text("lblNoClumps").toInt(), 1);
    EXPECT_TRUE(QFile::exists("cl_asp8_4/hill-cl_asp8_4results.csv"));
    EXPECT_TRUE(Form().picBoxI4.Image != nullptr);
}

TEST_F(Viewer, ScrollBarAndTextBoxOfTheLightFollowEachOther) {
    Open();
    Find<QScrollBar>("vscSRVert").setValue(60);
    EXPECT_EQ(Find<QLineEdit>("txtSRVert").text(), "60");
    Session.Type("frmCSVView", "txtSRHoriz", "90");
    EXPECT_EQ(Find<QScrollBar>("vscSRHoriz").value(), 90);
    EXPECT_EQ(Find<QLineEdit>("txtSRHoriz").text(), "90");
}

TEST_F(Viewer, BoxesAreCopied) {
    Open();
    ClickFile(0);
    EXPECT_EQ(Find<QComboBox>("cmbPicBoxCopyTo").currentText(), "1");
    Click("cmdCopyPicBox");
    ASSERT_NE(Form().picBoxI1.Image, nullptr);
    QTest::keyClick(&Find<QComboBox>("cmbPicBoxCopyTo"), Qt::Key_Down);
    Click("cmdCopyPicBox");
    EXPECT_NE(Form().picBoxI2.Image, nullptr);
}

TEST_F(Viewer, RotationTurnsThePicture) {
    Open();
    ClickFile(0);
    Click("cmdRotateACW");
    EXPECT_EQ(Form().State.NumX, 12);
    const QRectF target = Find<PictureView>("picBoxD").Target();
    EXPECT_LT(target.width(), target.height());
    EXPECT_FALSE(Find<QPushButton>("cmdRotateACW").icon().isNull());
}

TEST_F(Viewer, AreaWithoutVolumeHasNoRatio) {
    Open();
    Click("chkCSVol");
    EXPECT_FALSE(Find<QCheckBox>("chkCSVol").isChecked());
    EXPECT_FALSE(Find<QCheckBox>("chkCSSAVolRat").isChecked());
}

TEST_F(Viewer, WhatHasNoFunctionDoesNothing) {
    Open();
    for (const char* const name : {"cmdOutputMultiTIF", "Command1", "picSRLight", "lblAspectRotate", "chkCSLaP"})
        Click(name);
    EXPECT_TRUE(Boxes.Boxes.empty());
    EXPECT_TRUE(Session.IsOpen("frmCSVView"));
}

TEST_F(Viewer, AFailureIsShownAndTheViewerGoesOn) {
    Open();
    Click("cmdCalcStats");
    ASSERT_EQ(Boxes.Boxes.size(), 1u);
    EXPECT_TRUE(Boxes.Boxes[0].Text.contains("SubscriptOutOfRange"));
    EXPECT_TRUE(Boxes.Boxes[0].Text.contains("frmCSVView.cmdCalcStats_Click"));
    ClickFile(0);
    EXPECT_EQ(Form().State.NumX, 22);
}

TEST_F(Viewer, NoFileChosenIsABoxWithItsTitle) {
    Open();
    Click("cmdReadCSV");
    ASSERT_EQ(Boxes.Boxes.size(), 1u);
    EXPECT_EQ(Boxes.Boxes[0].Title, "Filename");
    EXPECT_EQ(Boxes.Boxes[0].Text, "Choose csv filename");
}

TEST_F(Viewer, TheSurfaceIsSavedUnderANameAskedFor) {
    Open();
    ClickFile(0);
    Queue(Session.Window("frmCSVView"), [this] {
        Session.Type("frmSaveFile", "txtFileName", "copy.csv");
        Session.Click("frmSaveFile", "cmdOK");
    });
    Click("cmdOutputCSV");
    EXPECT_TRUE(QFile::exists("copy.csv"));
    EXPECT_FALSE(Session.App.Windows().IsLoaded("frmSaveFile"));
    const auto& files = Find<EntryList>("File1");
    EXPECT_TRUE(QTest::qWaitFor([&files] { return files.count() == 2; }))
        << "coming back to the window lists the new file";
}

TEST_F(Viewer, TheModelIsShownAndFitted) {
    Open();
    ClickFile(0);
    Click("cmdCopyWRL");
    EXPECT_TRUE(QFile::exists("temp.wrl"));
    EXPECT_EQ(Form().Cortona1.FitCount, 1u);
    EXPECT_EQ(Find<VrmlWidget>("Cortona1").Sentence().isEmpty(), VrmlWidget::CanDraw());
}

TEST_F(Viewer, TeethFollowTheSlider) {
    TakeTeeth();
    Click("cmdReadMultiCSV");
    const int teeth = Text("lblNoTeeth").toInt();
    ASSERT_GT(teeth, 2);
    auto& slider = Find<QSlider>("sldToothNo");
    EXPECT_EQ(slider.minimum(), 1);
    EXPECT_EQ(slider.maximum(), teeth);
    slider.setValue(3);
    EXPECT_EQ(Find<QLineEdit>("txtCurrTooth").text(), "3");
    EXPECT_FALSE(Find<QLineEdit>("txtParam_11").text().isEmpty());
    EXPECT_EQ(Find<QLineEdit>("txtViewTeethEnd").text().toInt(), teeth);
}

TEST_F(Viewer, EscapeEndsTheFilm) {
    TakeTeeth();
    Click("cmdReadMultiCSV");
    const int teeth = Text("lblNoTeeth").toInt();
    auto& button = Find<QPushButton>("cmdViewMultiCSV");
    Queue(button, [&button] { QTest::keyClick(&button, Qt::Key_Escape); });
    Click("cmdViewMultiCSV");
    EXPECT_LT(Find<QLineEdit>("txtCurrTooth").text().toInt(), teeth);
    Click("cmdViewMultiCSV");
    EXPECT_EQ(Find<QLineEdit>("txtCurrTooth").text().toInt(), teeth) << "the next film runs to its end";
}

TEST_F(Viewer, EscapeEndsTheReading) {
    TakeTeeth();
    auto& button = Find<QPushButton>("cmdReadMultiCSV");
    Queue(button, [&button] { QTest::keyClick(&button, Qt::Key_Escape); });
    Click("cmdReadMultiCSV");
    EXPECT_EQ(Text("lblNoTeeth"), "0");
    EXPECT_FALSE(Session.Desk.IsRunning());
}

TEST_F(Viewer, MayBeClosedWhileAFilmRuns) {
    TakeTeeth();
    Click("cmdReadMultiCSV");
    FormWindow* const window = &Session.Window("frmCSVView");
    Queue(*window, [window] { window->close(); });
    Click("cmdViewMultiCSV");
    EXPECT_FALSE(Session.App.Windows().IsLoaded("frmCSVView"));
    EXPECT_FALSE(Session.Ended) << "the main window is still there";
    Open();
    ClickFile(0);
    EXPECT_EQ(Form().State.NumX, 22);
}

}  // namespace
}  // namespace crownlab
