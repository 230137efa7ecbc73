// Maps while a tool's box waits for points, and maps at the end of the program.
#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "basis/failure.h"
#include "crown_grid.h"
#include "desktop_session.h"
#include "mapengine/grid_file.h"
#include "probe_session.h"
#include "surfer/digitise_step.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

std::vector<MapWindow*> OpenMaps() {
    std::vector<MapWindow*> maps;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        auto* const map = dynamic_cast<MapWindow*>(widget);
        if (map != nullptr && map->isVisible()) maps.push_back(map);
    }
    return maps;
}

void ClickMap(MapWindow& map, double x, double y) {
    QTest::mouseClick(&map.Canvas(), Qt::LeftButton, {}, map.Canvas().Transform().ToView(x, y).toPoint());
}

template <typename Widget>
Widget& FindIn(QWidget& window, const char* name) {
    auto* const widget = window.findChild<Widget*>(name);
    if (widget == nullptr) throw std::logic_error(std::string("no ") + name);
    return *widget;
}

class DigitiseBoxes : public ::testing::Test {
public:
    ~DigitiseBoxes() override {
        for (MapWindow* const map : OpenMaps()) map->Points().MarkSaved();
    }

protected:
    DigitiseBoxes() {
        WriteGrid(Session.Files, Session.Folder / "m1.grd", CrownGrid(121, 91), GridFormat::Binary32);
        WriteGrid(Session.Files, Session.Folder / "m2.grd", CrownGrid(61, 46), GridFormat::Binary32);
        Session.On("cmdRun_Click", [this] { Answers.push_back(Ask("m1.grd", "digit.dat")); });
        Session.Window();
    }
    Button Ask(const std::string& grid, const std::string& file) {
        return Session.Desk.Ask({.Text = "Use 'Digitise' to outline cusp.",
                                 .Title = "Digitise map",
                                 .Buttons = {Button::Ok, Button::Cancel},
                                 .Digitise = {Session.Folder / grid, Session.Folder / file}});
    }
    static void PressOpenMap(QMessageBox& box) {
        QTest::mouseClick(&FindIn<QPushButton>(box, "buttonOpenMap"), Qt::LeftButton);
    }
    /// The only map that is open, ready for the mouse.
    static MapWindow& Map() {
        if (OpenMaps().size() != 1) throw std::logic_error("not one map");
        MapWindow& map = *OpenMaps().front();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&map));
        return map;
    }

    ProbeSession Session;
    std::vector<Button> Answers;
};

TEST_F(DigitiseBoxes, OpenTheMapAndTakeThePointsThatWereSavedMeanwhile) {
    BoxAnswers answers([this](QMessageBox& box) {
        PressOpenMap(box);
        EXPECT_TRUE(box.isVisible()) << "it is no answer";
        EXPECT_THAT(Answers, IsEmpty());
        MapWindow& map = Map();
        EXPECT_EQ(map.GridPath(), Session.Folder / "m1.grd");
        EXPECT_EQ(map.Canvas().Tool(), MapTool::Digitise);
        EXPECT_EQ(FindIn<QLineEdit>(map, "editFileName").text(), "digit.dat");
        EXPECT_TRUE(FindIn<QLabel>(map, "labelNotice").isVisible());
        ClickMap(map, 4, 5);
        ClickMap(map, 8, 5);
        ClickMap(map, 6, 8);
        Session.Click("cmdOther");
        QTest::mouseClick(&FindIn<QPushButton>(map, "buttonSave"), Qt::LeftButton);
        QTest::qWait(50);
        map.grab().save(QString("%1/map-waiting.png").arg(CROWNLAB_SCREENSHOTS));
        box.grab().save(QString("%1/map-box.png").arg(CROWNLAB_SCREENSHOTS));
        PressIn(box, QMessageBox::Ok);
    });
    int others = 0;
    Session.On("cmdOther_Click", [&others] { ++others; });
    Session.Click("cmdRun");
    EXPECT_THAT(Answers, ElementsAre(Button::Ok));
    EXPECT_EQ(others, 0) << "forms still refuse input";
    EXPECT_THAT(ReadDigitisedPoints(Session.Folder / "digit.dat"), SizeIs(3));
    EXPECT_FALSE(FindIn<QLabel>(Map(), "labelNotice").isVisible()) << "the tool waits no more";
    ASSERT_THAT(answers.Boxes, SizeIs(1));
    EXPECT_EQ(answers.Boxes[0].Text, "Use 'Digitise' to outline cusp.");
}

TEST_F(DigitiseBoxes, ReplaceAnOldPointFileWithoutAQuestion) {
    PutFile(Session.Folder / "digit.dat", "1,1\r\n");
    BoxAnswers answers([this](QMessageBox& box) {
        PressOpenMap(box);
        ClickMap(Map(), 4, 5);
        Map().SavePoints();
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click("cmdRun");
    EXPECT_THAT(answers.Boxes, SizeIs(1));
    EXPECT_EQ(ReadDigitisedPoints(Session.Folder / "digit.dat"), Map().Points().Areas()[0]);
}

TEST_F(DigitiseBoxes, AskAgainOnTheSameMapWithItsPoints) {
    BoxAnswers answers([this](QMessageBox& box) {
        PressOpenMap(box);
        ClickMap(Map(), 4 + static_cast<double>(Answers.size()), 5);
        Map().SavePoints();
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click("cmdRun");
    Session.Click("cmdRun");
    EXPECT_EQ(Map().Points().Count(), 2u) << "\"redigitise\": the first one is still there";
    Session.On("cmdRun_Click", [this] { Answers.push_back(Ask("m1.grd", "digit1.dat")); });
    Session.Click("cmdRun");
    EXPECT_EQ(Map().Points().Count(), 1u) << "another file begins anew";
    EXPECT_EQ(FindIn<QLineEdit>(Map(), "editFileName").text(), "digit1.dat");
    Session.On("cmdRun_Click", [this] { Answers.push_back(Ask("m2.grd", "digit1.dat")); });
    Session.Click("cmdRun");
    EXPECT_EQ(Map().GridPath(), Session.Folder / "m2.grd") << "the next grid of a batch takes the window over";
    EXPECT_EQ(Map().Points().Count(), 1u);
    EXPECT_THAT(ReadDigitisedPoints(Session.Folder / "digit1.dat"), SizeIs(1));
}

TEST_F(DigitiseBoxes, LeaveAMapWithUnsavedPointsAlone) {
    BoxAnswers answers([this](QMessageBox& box) {
        PressOpenMap(box);
        if (Answers.empty()) ClickMap(Map(), 4, 5);
        PressIn(box, Answers.empty() ? QMessageBox::Cancel : QMessageBox::Ok);
    });
    Session.Click("cmdRun");
    Session.On("cmdRun_Click", [this] { Answers.push_back(Ask("m2.grd", "digit.dat")); });
    Session.Click("cmdRun");
    EXPECT_THAT(Answers, ElementsAre(Button::Cancel, Button::Ok));
    EXPECT_THAT(OpenMaps(), SizeIs(2));
}

TEST_F(DigitiseBoxes, SayWhenTheGridCantBeRead) {
    Session.On("cmdRun_Click", [this] { Answers.push_back(Ask("none.grd", "digit.dat")); });
    QString problem;
    BoxAnswers answers([this, &problem](QMessageBox& box) {
        if (box.windowTitle() == "Map") {
            problem = box.text();
            PressIn(box, QMessageBox::Ok);
            for (QWidget* const widget : QApplication::topLevelWidgets()) {
                auto* const waiting = dynamic_cast<QMessageBox*>(widget);
                if (waiting == nullptr || waiting->windowTitle() != "Digitise map") continue;
                EXPECT_TRUE(waiting->isVisible());
                PressIn(*waiting, QMessageBox::Cancel);
            }
            return;
        }
        PressOpenMap(box);
    });
    Session.Click("cmdRun");
    EXPECT_TRUE(problem.contains("none.grd")) << problem.toStdString();
    EXPECT_THAT(Answers, ElementsAre(Button::Cancel));
    EXPECT_THAT(OpenMaps(), IsEmpty());
}

TEST_F(DigitiseBoxes, OfOtherKindsHaveNoMapButton) {
    Session.On("cmdRun_Click", [this] { Tell(Session.Probe(), "plain"); });
    BoxAnswers answers([](QMessageBox& box) {
        EXPECT_EQ(box.findChild<QPushButton*>("buttonOpenMap"), nullptr);
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click("cmdRun");
    EXPECT_THAT(answers.Boxes, SizeIs(1));
}

TEST_F(DigitiseBoxes, OutliveTheirMap) {
    BoxAnswers answers([](QMessageBox& box) {
        PressOpenMap(box);
        Map().close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        PressOpenMap(box);
        EXPECT_THAT(OpenMaps(), SizeIs(1)) << "it can be opened again";
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click("cmdRun");
    EXPECT_THAT(Answers, ElementsAre(Button::Ok));
}

TEST_F(DigitiseBoxes, OfTheNextToolStandOverAFormThoughAMapIsInFront) {
    BoxAnswers answers([this](QMessageBox& box) {
        if (Answers.empty()) {
            PressOpenMap(box);
        } else {
            EXPECT_EQ(dynamic_cast<MapWindow*>(box.parentWidget()), nullptr) << "it would go with the map";
            Map().close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        PressIn(box, QMessageBox::Ok);
    });
    Session.Click("cmdRun");
    Map().activateWindow();
    QTest::qWait(20);
    Session.Click("cmdRun");
    EXPECT_THAT(Answers, ElementsAre(Button::Ok, Button::Ok));
}

class MapsAndTheProgram : public ::testing::Test {
protected:
    MapsAndTheProgram() {
        WriteGrid(Session.App.Files(), Session.Folder / "m1.grd", CrownGrid(61, 46), GridFormat::Binary32);
        Map = Session.Desk.Maps().Open(Session.Folder / "m1.grd", nullptr);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(Map));
    }
    void SetAPoint() {
        Map->UseTool(MapTool::Digitise);
        ClickMap(*Map, 5, 5);
        ASSERT_TRUE(Map->HasUnsavedPoints());
    }

    DesktopSession Session;
    QPointer<MapWindow> Map;
};

TEST_F(MapsAndTheProgram, AMapKeepsItAliveAndItsEndEndsIt) {
    Session.Window("frmStartup").close();
    QTest::qWait(20);
    EXPECT_FALSE(Session.Ended);
    Map->close();
    QTest::qWait(20);
    EXPECT_EQ(Session.Ended, 0);
}

TEST_F(MapsAndTheProgram, ExitClosesMaps) {
    Session.Choose("mnuExit");
    QTest::qWait(20);
    EXPECT_EQ(Session.Ended, 0);
    EXPECT_TRUE(Map.isNull());
}

TEST_F(MapsAndTheProgram, ExitWaitsForUnsavedPoints) {
    SetAPoint();
    std::vector<QMessageBox::StandardButton> presses{QMessageBox::Cancel, QMessageBox::Save};
    BoxAnswers answers([&presses](QMessageBox& box) {
        const auto press = presses.front();
        presses.erase(presses.begin());
        PressIn(box, press);
    });
    Session.Choose("mnuExit");
    QTest::qWait(60);
    EXPECT_FALSE(Session.Ended);
    EXPECT_FALSE(Session.IsOpen("frmStartup")) << "the forms have gone";
    ASSERT_FALSE(Map.isNull());
    Map->close();
    QTest::qWait(60);
    EXPECT_EQ(Session.Ended, 0);
    EXPECT_THAT(ReadDigitisedPoints(Session.Folder / "digit.dat"), SizeIs(1));
}

TEST_F(MapsAndTheProgram, ClosingTheLastFormLeavesTheMapToBeSaved) {
    SetAPoint();
    Session.Window("frmStartup").close();
    EXPECT_FALSE(Session.Ended);
    Map->SavePoints();
    Map->close();
    QTest::qWait(20);
    EXPECT_EQ(Session.Ended, 0);
}

}  // namespace
}  // namespace crownlab
