// The window of batch functions as a person has it before him.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

#include "desktop_session.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

constexpr const char* kForm = "frmSurfFns";

class SurfFns : public ::testing::Test {
protected:
    SurfFns() { PutFile(Session.Folder / "m1.grd", "DSAA\n3 2\n0 4\n1 3\n3 3\n3 3 3\n3 3 3\n"); }
    template <typename Widget>
    Widget& Find(const char* name) {
        return Session.Find<Widget>(kForm, name);
    }
    QStringList Entries(const char* list) {
        QStringList names;
        for (int i = 0; i < Find<QListWidget>(list).count(); ++i) names << Find<QListWidget>(list).item(i)->text();
        return names;
    }

    DesktopSession Session;
};

TEST_F(SurfFns, IsOpenedByItsMenuItem) {
    Session.Choose("mnuSurfFns");
    ASSERT_TRUE(Session.IsOpen(kForm));
    EXPECT_EQ(Session.Window(kForm).windowTitle(), "Surfer Functions");
    Session.Click(kForm, "cmdExit");
    EXPECT_FALSE(Session.IsOpen(kForm));
}

TEST_F(SurfFns, OptionsOfEachGroupExcludeOneAnotherOnly) {
    Session.Open(kForm);
    for (const char* const name : {"optRotate", "optRotate180", "optMirrorZ", "optRedAreaDig", "optRedRowMax",
                                   "optProjO", "optContour", "optDefFilter"}) {
        Session.Click(kForm, name);
    }
    for (const char* const name : {"optRotate", "optRotate180", "optMirrorZ", "optRedAreaDig", "optRedRowMax",
                                   "optProjO", "optContour", "optDefFilter", "optRegridGrd", "optCompareMax"}) {
        EXPECT_TRUE(Find<QRadioButton>(name).isChecked()) << name;
    }
    for (const char* const name : {"optMirror", "optRotate90", "optMirrorX", "optRedAreaMax", "optRedRowFactor",
                                   "optProjP", "optRelief", "optPDFilter"}) {
        EXPECT_FALSE(Find<QRadioButton>(name).isChecked()) << name;
    }
}

TEST_F(SurfFns, CurvatureShowsTheFilterThatItTakes) {
    Session.Open(kForm);
    Session.Click(kForm, "chkCurvature");
    EXPECT_EQ(Find<QLineEdit>("txtFilterSize").text(), "9");
    EXPECT_EQ(Find<QLineEdit>("txtNoTimes").text(), "3");
    EXPECT_TRUE(Find<QRadioButton>("optDefFilter").isChecked());
}

TEST_F(SurfFns, RefShowsFoldersAndFilesMadeMeanwhile) {
    Session.Open(kForm);
    const int folders = Find<QListWidget>("Dir2").count();
    QDir(QString::fromStdString(Session.Folder.Path())).mkdir("new");
    PutFile(Session.Folder / "m2.grd", "x");
    Session.Click(kForm, "cmdRefreshDir");
    EXPECT_EQ(Find<QListWidget>("Dir2").count(), folders + 1);
    EXPECT_THAT(Entries("File2"), ElementsAre("m1.grd", "m2.grd"));
}

TEST_F(SurfFns, TheMouseRunsATool) {
    Session.Open(kForm);
    Session.Click(kForm, "cmdAddAllFilenames");
    EXPECT_EQ(Find<QLineEdit>("txtNoFiles").text(), "1");
    Session.Click(kForm, "cmdSAVol");
    EXPECT_NE(FileBytes(Session.Folder / "00SAallresults.csv").find("\"m1\",8,0,8,0,0\r\n"), std::string::npos);
    EXPECT_EQ(Find<QLineEdit>("txtNoFiles").text(), "0");
}

TEST_F(SurfFns, EachToolRunsByItsButton) {
    PutFile(Session.Folder / "m2.grd", "DSAA\n3 2\n0 4\n1 3\n1 2\n1 2 1\n1 1 1\n");
    Session.Open(kForm);
    Session.Click(kForm, "chkPlotSurfer");
    Session.Click(kForm, "chkRedRow");
    Session.Type(kForm, "txtRedRowFactor", "1");
    Session.Click(kForm, "optTerrain");
    BoxAnswers boxes([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    for (const char* const button : {"cmdProcess", "cmdReZero", "cmdCompareGrids", "cmdExtract"}) {
        Session.Click(kForm, "cmdAddAllFilenames");
        Session.Click(kForm, button);
        EXPECT_EQ(Find<QLineEdit>("txtNoFiles").text(), "0") << button;
    }
    for (const char* const name : {"m1ts.grd", "m2tsresults.csv", "m1rz.grd", "m2rz.grd", "m1_top+plane.grd"}) {
        EXPECT_TRUE(QFile::exists(QString::fromStdString(Session.Folder / name))) << name;
    }
    ASSERT_EQ(boxes.Boxes.size(), 2U);
    EXPECT_EQ(boxes.Boxes[1].Text, "Grid extraction for m2 not required");
}

TEST_F(SurfFns, BubblesAreDigitisedWhileTheBoxWaits) {
    Session.Open(kForm);
    Session.Click(kForm, "chkPlotSurfer");
    Session.Click(kForm, "optBlankMultiInside");
    BoxAnswers boxes([this](QMessageBox& box) {
        PutFile(Session.Folder / "digit.dat", "-1,0\r\n1,0\r\n1,2\r\n-1\r\n3,0\r\n5,0\r\n5,2\r\n");
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click(kForm, "cmdAddAllFilenames");
    Session.Click(kForm, "cmdBlank");
    ASSERT_EQ(boxes.Boxes.size(), 1U);
    EXPECT_TRUE(boxes.Boxes[0].Text.contains("Type '-1' between separate areas."));
    EXPECT_EQ(FileBytes(Session.Folder / "m1blnmpts.bln").substr(0, 19), " 4             1 \r\n");
    EXPECT_TRUE(QFile::exists(QString::fromStdString(Session.Folder / "m1u.grd")));
}

}  // namespace
}  // namespace crownlab
