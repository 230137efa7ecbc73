// The window of batch functions as a person has it before him.
#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDir>
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

}  // namespace
}  // namespace crownlab
