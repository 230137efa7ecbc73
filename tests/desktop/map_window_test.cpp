// The map window as a person uses it: with the mouse.
#include "desktop/map_window.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QDoubleSpinBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>
#include <fstream>

#include "crown_grid.h"
#include "desktop/map_windows.h"
#include "desktop/vrml_widget.h"
#include "desktop_session.h"
#include "formats/boundary_file.h"
#include "mapengine/bilinear_height.h"
#include "mapengine/grid_file.h"
#include "support/ordinary_user.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

void Keep(QWidget& window, const char* name) {
    QTest::qWait(60);
    QDir().mkpath(CROWNLAB_SCREENSHOTS);
    const QString path = QString("%1/%2.png").arg(CROWNLAB_SCREENSHOTS, name);
    EXPECT_TRUE(window.grab().save(path)) << path.toStdString();
}

class TheMapWindow : public ::testing::Test {
public:
    ~TheMapWindow() override {
        if (Window != nullptr) Window->Points().MarkSaved();
        delete Window;
    }

protected:
    TheMapWindow() {
        WriteGrid(Files, GridPath(), Crown, GridFormat::Binary64);
        Window = Maps.Open(GridPath(), nullptr);
        if (Window == nullptr || !QTest::qWaitForWindowExposed(Window)) throw std::logic_error("no map");
    }
    std::string GridPath() const { return Folder / "crown.grd"; }
    MapCanvas& Canvas() { return Window->Canvas(); }
    template <typename Widget>
    Widget& Find(const char* name) {
        auto* const widget = Window->findChild<Widget*>(name);
        if (widget == nullptr) throw std::logic_error(std::string("no ") + name);
        return *widget;
    }
    void Choose(const char* action) { Find<QAction>(action).trigger(); }
    /// Where a map position lies in the canvas, in whole pixels.
    QPoint Pixel(double x, double y) { return Canvas().Transform().ToView(x, y).toPoint(); }
    void ClickMap(double x, double y, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(&Canvas(), Qt::LeftButton, keys, Pixel(x, y));
    }
    void DragMap(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&Canvas(), button, {}, from);
        for (int step = 1; step <= 5; ++step) MoveTo(from + (to - from) * step / 5, button);
        QTest::mouseRelease(&Canvas(), button, {}, to);
    }
    /// A move with a button held; none for hovering.
    void MoveTo(QPointF to, Qt::MouseButtons held = Qt::NoButton) {
        QMouseEvent move(QEvent::MouseMove, to, Canvas().mapToGlobal(to), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(&Canvas(), &move);
    }
    void Wheel(QPointF at, int notches) {
        QWheelEvent wheel(at, Canvas().mapToGlobal(at), {}, QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Canvas(), &wheel);
    }
    /// Map units of one pixel.
    double PixelSize() { return 1 / Canvas().Transform().ScaleX; }
    void DigitiseTriangle() {
        Choose("actionDigitise");
        ClickMap(3, 4);
        ClickMap(9, 4);
        ClickMap(6, 9);
    }
    QString Cell(int row, int column) { return Find<QTableWidget>("tablePoints").item(row, column)->text(); }

    const TempFolder Folder;
    FileTable Files;
    const Grid Crown = CrownGrid(241, 181);
    MapWindows Maps{[](SideWindow&) {}};
    QPointer<MapWindow> Window;
};

TEST_F(TheMapWindow, TellsTheGridAndThePlaceUnderTheMouse) {
    EXPECT_EQ(Find<QLabel>("labelGrid").text().toStdString().substr(0, 23), "241 x 181 nodes, height");
    EXPECT_TRUE(Window->windowTitle().startsWith("crown.grd - Map"));
    const QPoint at = Pixel(3.5, 8.3);
    const PlanePoint place = Canvas().Transform().ToMap(at);
    MoveTo(at);
    const QStringList parts = Find<QLabel>("labelPlace").text().split(' ', Qt::SkipEmptyParts);
    ASSERT_EQ(parts.size(), 6);
    EXPECT_NEAR(parts[1].toDouble(), place.x, PixelSize());
    EXPECT_NEAR(parts[3].toDouble(), place.y, PixelSize());
    EXPECT_NEAR(parts[5].toDouble(), BilinearHeight(Crown, place.x, place.y), 1e-3);
    MoveTo(Pixel(0.1, 2.1));
    EXPECT_TRUE(Find<QLabel>("labelPlace").text().endsWith(QChar(0x2013))) << "blank there";
    MoveTo({2, 2});
    EXPECT_EQ(Find<QLabel>("labelPlace").text(), "") << "beside the map";
}

TEST_F(TheMapWindow, FitsZoomsAtTheMouseAndPans) {
    const QRectF frame = Canvas().Frame();
    const QRectF fitted = MapRect(Canvas().Transform(), Crown.Shape);
    EXPECT_TRUE(frame.contains(fitted));
    EXPECT_GT(fitted.width() / frame.width(), 0.7);

    const QPointF at(Pixel(9, 8));
    const PlanePoint before = Canvas().Transform().ToMap(at);
    const double scale = Canvas().Transform().ScaleX;
    Wheel(at, 3);
    EXPECT_NEAR(Canvas().Transform().ScaleX, scale * 1.2 * 1.2 * 1.2, 1e-9);
    EXPECT_NEAR(Canvas().Transform().ToMap(at).x, before.x, 1e-9);
    EXPECT_NEAR(Canvas().Transform().ToMap(at).y, before.y, 1e-9);

    const QPointF place = Canvas().Transform().ToView(6, 6);
    DragMap({300, 300}, {360, 280});
    EXPECT_NEAR(Canvas().Transform().ToView(6, 6).x(), place.x() + 60, 1e-6);
    EXPECT_NEAR(Canvas().Transform().ToView(6, 6).y(), place.y() - 20, 1e-6);

    Choose("actionZoomOut");
    Choose("actionFit");
    EXPECT_EQ(MapRect(Canvas().Transform(), Crown.Shape), fitted);
    Choose("actionZoomIn");
    EXPECT_NEAR(Canvas().Transform().ScaleX, scale * 1.5, 1e-9);
    EXPECT_NEAR(Canvas().Transform().X0, 6, 1e-9);
}

TEST_F(TheMapWindow, HasRoomForItsNumbersAtEveryZoom) {
    const auto inkAtTheLeftEdge = [this] {
        const QImage image = Canvas().grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) count += image.pixelColor(1, y).lightness() < 200 ? 1 : 0;
        return count;
    };
    for (int notches = 0; notches < 50; ++notches) {
        if (notches % 7 == 0) {
            EXPECT_EQ(inkAtTheLeftEdge(), 0) << "cut off after " << notches;
        }
        Wheel(QPointF(Pixel(3.77, 8.313)), 1);
    }
    EXPECT_EQ(inkAtTheLeftEdge(), 0);
    Keep(*Window, "map-zoomed");
}

TEST_F(TheMapWindow, StaysFittedWhenItsSizeChanges) {
    Window->resize(800, 600);
    QTest::qWait(50);
    const QRectF fitted = MapRect(Canvas().Transform(), Crown.Shape);
    EXPECT_TRUE(Canvas().Frame().contains(fitted));
    EXPECT_TRUE(fitted.width() > Canvas().Frame().width() - 12 || fitted.height() > Canvas().Frame().height() - 12);
}

TEST_F(TheMapWindow, MovesByTheMiddleButtonAndBySpaceWhileDigitising) {
    Choose("actionDigitise");
    const QPointF place = Canvas().Transform().ToView(6, 6);
    DragMap({300, 300}, {340, 300}, Qt::MiddleButton);
    EXPECT_NEAR(Canvas().Transform().ToView(6, 6).x(), place.x() + 40, 1e-6);
    QTest::keyPress(&Canvas(), Qt::Key_Space);
    DragMap({300, 300}, {300, 250});
    EXPECT_NEAR(Canvas().Transform().ToView(6, 6).y(), place.y() - 50, 1e-6);
    QTest::keyRelease(&Canvas(), Qt::Key_Space);
    DragMap({300, 300}, {300, 350});
    EXPECT_NEAR(Canvas().Transform().ToView(6, 6).y(), place.y(), 1e-6) << "a drag on empty ground moves the map too";
    EXPECT_EQ(Window->Points().Count(), 0u);
    Choose("actionHand");
    ClickMap(6, 6);
    EXPECT_EQ(Window->Points().Count(), 0u) << "the hand sets no points";
}

TEST_F(TheMapWindow, DigitisesAnOutlineThatLandsInTheFile) {
    Choose("actionDigitise");
    std::vector<PlanePoint> outline;
    for (int i = 0; i < 24; ++i) {
        outline.push_back({6 + 4.5 * std::cos(i * 0.2618), 6.5 + 3 * std::sin(i * 0.2618)});
        ClickMap(outline.back().x, outline.back().y);
    }
    EXPECT_EQ(Find<QTableWidget>("tablePoints").rowCount(), 24);
    EXPECT_TRUE(Window->isWindowModified());
    Keep(*Window, "map-outline");
    QTest::mouseClick(&Find<QPushButton>("buttonSave"), Qt::LeftButton);
    EXPECT_FALSE(Window->isWindowModified());
    const std::vector<PlanePoint> read = ReadDigitisedPoints(Folder / "digit.dat");
    ASSERT_THAT(read, SizeIs(24));
    for (std::size_t i = 0; i < read.size(); ++i) {
        EXPECT_NEAR(read[i].x, outline[i].x, PixelSize());
        EXPECT_NEAR(read[i].y, outline[i].y, PixelSize());
    }
    EXPECT_EQ(read, Window->Points().Areas()[0]) << "digit for digit";
}

TEST_F(TheMapWindow, DigitisesFinerTheCloserItLooks) {
    Choose("actionDigitise");
    for (int i = 0; i < 8; ++i) Wheel(QPointF(Pixel(4.2, 7.7)), 5);
    const double pixel = PixelSize();
    EXPECT_LT(pixel, 3e-5);
    const QPoint at = Canvas().Frame().center().toPoint();
    const PlanePoint wanted = Canvas().Transform().ToMap(at);
    QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, at);
    Window->SavePoints();
    EXPECT_THAT(ReadDigitisedPoints(Folder / "digit.dat"), ElementsAre(wanted));
}

TEST_F(TheMapWindow, ListsPointsWithTheirHeights) {
    DigitiseTriangle();
    EXPECT_EQ(Cell(0, 0), "1");
    EXPECT_EQ(Cell(2, 0), "3");
    const PlanePoint& first = Window->Points().At({0, 0});
    EXPECT_NEAR(Cell(0, 1).toDouble(), first.x, 1e-3);
    EXPECT_NEAR(Cell(0, 2).toDouble(), first.y, 1e-3);
    EXPECT_NEAR(Cell(0, 3).toDouble(), BilinearHeight(Crown, first.x, first.y), 1e-3);
    ClickMap(0.05, 2.05);
    EXPECT_EQ(Cell(3, 3), QString(QChar(0x2013)));
}

TEST_F(TheMapWindow, DragsAPoint) {
    DigitiseTriangle();
    const PlanePoint before = Window->Points().At({0, 1});
    const QPoint from = Canvas().Transform().ToView(before).toPoint() + QPoint(3, 2);
    DragMap(from, from + QPoint(-50, 30));
    ASSERT_EQ(Window->Points().Count(), 3u);
    const PlanePoint after = Window->Points().At({0, 1});
    EXPECT_NEAR(after.x, before.x - 50 * PixelSize(), 1e-9);
    EXPECT_NEAR(after.y, before.y - 30 * PixelSize(), 1e-9);
    EXPECT_NEAR(Cell(1, 1).toDouble(), after.x, 1e-3);
    Choose("actionUndo");
    EXPECT_EQ(Window->Points().At({0, 1}), before);
    Choose("actionRedo");
    EXPECT_EQ(Window->Points().At({0, 1}), after);
}

TEST_F(TheMapWindow, TakesAPointInsteadOfSettingOneOnIt) {
    DigitiseTriangle();
    ClickMap(9, 4);
    EXPECT_EQ(Window->Points().Count(), 3u);
    EXPECT_EQ(Canvas().Selected(), (PointPlace{0, 1}));
    ClickMap(9, 4, Qt::ShiftModifier);
    EXPECT_EQ(Window->Points().Count(), 4u) << "with Shift it sets one";
    ClickMap(5, 5);
    QTest::mouseDClick(&Canvas(), Qt::LeftButton, {}, Pixel(5, 5));
    QTest::mouseRelease(&Canvas(), Qt::LeftButton, {}, Pixel(5, 5));
    EXPECT_EQ(Window->Points().Count(), 5u) << "a double click sets one point";
}

TEST_F(TheMapWindow, DeletesTheChosenPointByKey) {
    DigitiseTriangle();
    ClickMap(9, 4);
    QTest::keyClick(&Canvas(), Qt::Key_Delete);
    ASSERT_EQ(Window->Points().Count(), 2u);
    EXPECT_NEAR(Window->Points().At({0, 1}).x, 6, PixelSize());
    QTest::keyClick(&Canvas(), Qt::Key_Delete);
    EXPECT_EQ(Window->Points().Count(), 2u) << "none is chosen";
    QTest::keyClick(&Canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Window->Points().Count(), 3u);
    QTest::keyClick(&Canvas(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Window->Points().Count(), 2u) << "the third one is taken back";
}

TEST_F(TheMapWindow, ChoosesAPointInTheList) {
    DigitiseTriangle();
    auto& table = Find<QTableWidget>("tablePoints");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(0, 1)).center());
    EXPECT_EQ(Canvas().Selected(), (PointPlace{0, 0}));
    QTest::mouseClick(&Find<QPushButton>("buttonDelete"), Qt::LeftButton);
    EXPECT_EQ(Window->Points().Count(), 2u);
    QTest::mouseClick(&Find<QPushButton>("buttonUndo"), Qt::LeftButton);
    EXPECT_EQ(Window->Points().Count(), 3u);
}

TEST_F(TheMapWindow, StartsTheNextArea) {
    DigitiseTriangle();
    QTest::mouseClick(&Find<QPushButton>("buttonNextArea"), Qt::LeftButton);
    EXPECT_FALSE(Find<QPushButton>("buttonNextArea").isEnabled()) << "it has no points yet";
    ClickMap(5, 6);
    ClickMap(7, 6);
    EXPECT_EQ(Cell(3, 0), "2.1");
    Keep(*Window, "map-areas");
    QTest::keyClick(Window, Qt::Key_S, Qt::ControlModifier);
    const std::string text = FileBytes(Folder / "digit.dat");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 6);
    EXPECT_NE(text.find("\r\n-1\r\n"), std::string::npos);
    EXPECT_EQ(ReadPointFile(Folder / "digit.dat"), Window->Points().Areas());
}

TEST_F(TheMapWindow, KeepsThePointsWhenSavingFails) {
    PutFile(Folder / "digit.dat", "1,1\r\n");
    QFile::setPermissions(QString::fromStdString(Folder / "digit.dat"), QFile::ReadOwner | QFile::ReadOther);
    DigitiseTriangle();
    Window->StartWait({.Grid = GridPath(), .PointFile = Folder / "digit.dat"});
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    const OrdinaryUser user(Folder.Path());
    Window->SavePoints();
    QTest::qWait(60);
    EXPECT_EQ(FileBytes(Folder / "digit.dat"), "1,1\r\n");
    ASSERT_THAT(answers.Boxes, SizeIs(1));
    EXPECT_TRUE(answers.Boxes[0].Text.contains("digit.dat: it can't be written there."))
        << answers.Boxes[0].Text.toStdString();
    EXPECT_TRUE(answers.Boxes[0].Text.contains("still on the map"));
    EXPECT_EQ(Window->Points().Count(), 3u);
    EXPECT_TRUE(Window->HasUnsavedPoints());
    Find<QLineEdit>("editFileName").setText("missing/digit.dat");
    Window->SavePoints();
    QTest::qWait(60);
    ASSERT_THAT(answers.Boxes, SizeIs(2));
    EXPECT_TRUE(answers.Boxes[1].Text.contains("there is no such folder"));
    Find<QLineEdit>("editFileName").setText("other.dat");
    Window->SavePoints();
    EXPECT_FALSE(Window->HasUnsavedPoints());
    EXPECT_THAT(ReadDigitisedPoints(Folder / "other.dat"), SizeIs(3));
}

TEST_F(TheMapWindow, AsksBeforeItReplacesAFileThatNobodyProposed) {
    PutFile(Folder / "digit.dat", "7,7\r\n");
    DigitiseTriangle();
    {
        BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Cancel); });
        Window->SavePoints();
        QTest::qWait(60);
        ASSERT_THAT(answers.Boxes, SizeIs(1));
        EXPECT_EQ(answers.Boxes[0].Text, "digit.dat is there already. Replace it?");
    }
    EXPECT_EQ(FileBytes(Folder / "digit.dat"), "7,7\r\n");
    BoxAnswers answers([](QMessageBox& box) { QTest::mouseClick(box.defaultButton(), Qt::LeftButton); });
    Window->SavePoints();
    QTest::qWait(60);
    EXPECT_FALSE(Window->HasUnsavedPoints());
    ClickMap(5, 5);
    Window->SavePoints();
    QTest::qWait(60);
    EXPECT_THAT(answers.Boxes, SizeIs(1)) << "the file is this window's by now";
    EXPECT_THAT(ReadDigitisedPoints(Folder / "digit.dat"), SizeIs(4));
}

TEST_F(TheMapWindow, AsksBeforeUnsavedPointsAreLost) {
    DigitiseTriangle();
    std::vector<QMessageBox::StandardButton> presses{QMessageBox::Cancel, QMessageBox::Save};
    BoxAnswers answers([&presses](QMessageBox& box) {
        const auto press = presses.front();
        presses.erase(presses.begin());
        PressIn(box, press);
    });
    Window->close();
    QTest::qWait(60);
    ASSERT_THAT(answers.Boxes, SizeIs(1));
    EXPECT_EQ(answers.Boxes[0].Text, "There are points that aren't saved.");
    ASSERT_FALSE(Window.isNull());
    EXPECT_TRUE(Window->isVisible());
    EXPECT_EQ(Window->Points().Count(), 3u);
    Window->close();
    QTest::qWait(60);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(Window.isNull());
    EXPECT_THAT(ReadDigitisedPoints(Folder / "digit.dat"), SizeIs(3));
}

TEST_F(TheMapWindow, GivesPointsUpWhenToldTo) {
    DigitiseTriangle();
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Discard); });
    Window->close();
    QTest::qWait(60);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(Window.isNull());
    EXPECT_FALSE(QFile::exists(QString::fromStdString(Folder / "digit.dat")));
}

TEST_F(TheMapWindow, ClosesAtOnceWithoutPoints) {
    Window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(Window.isNull());
}

TEST_F(TheMapWindow, TakesADroppedGrid) {
    const Grid other = CrownGrid(31, 21);
    WriteGrid(Files, Folder / "other.GRD", other, GridFormat::AsciiGrid);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(Folder / "other.GRD"))});
    QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window, &drop);
    EXPECT_EQ(Window->GridPath(), Folder / "other.GRD");
    EXPECT_TRUE(Find<QLabel>("labelGrid").text().startsWith("31 x 21 nodes"));
    QMimeData text;
    text.setText("no grid");
    QDragEnterEvent refused({50, 50}, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window, &refused);
    EXPECT_FALSE(refused.isAccepted());
}

TEST_F(TheMapWindow, SaysWhatIsWrongWithAGrid) {
    PutFile(Folder / "bad.grd", "DSBBxx");
    EXPECT_NE(Window->OpenGrid(Folder / "bad.grd"), "");
    EXPECT_EQ(Window->GridPath(), GridPath()) << "the map stays";
    BoxAnswers answers([](QMessageBox& box) { PressIn(box, QMessageBox::Ok); });
    EXPECT_EQ(Maps.Open(Folder / "none.grd", Window), nullptr);
    QTest::qWait(60);
    ASSERT_THAT(answers.Boxes, SizeIs(1));
    EXPECT_TRUE(answers.Boxes[0].Text.contains("none.grd"));
}

TEST_F(TheMapWindow, ShowsTheSameGridOnce) {
    EXPECT_EQ(Maps.Open(GridPath(), nullptr), Window);
    MapWindow* const other = Maps.Open("", nullptr);
    EXPECT_NE(other, Window);
    Keep(*other, "map-empty");
    delete other;
}

TEST_F(TheMapWindow, ShowsEveryView) {
    Keep(*Window, "map-relief");
    const QPoint middle = Pixel(3.6, 8.4);
    const QColor relief = Canvas().grab().toImage().pixelColor(middle);
    EXPECT_GT(relief.red(), relief.blue()) << "ivory";
    Choose("actionImage");
    EXPECT_TRUE(Canvas().Frame().contains(MapRect(Canvas().Transform(), Crown.Shape))) << "still fitted beside the bar";
    Keep(*Window, "map-colours");
    const QColor cusp = Canvas().grab().toImage().pixelColor(Pixel(3.55, 8.35));
    EXPECT_GT(cusp.red() + cusp.green(), 380) << "yellow, the highest";
    EXPECT_LT(cusp.blue(), 80);
    Find<QCheckBox>("checkLines").setChecked(true);
    EXPECT_FALSE(Canvas().ContourLevelsShown().empty());
    Find<QComboBox>("comboPalette").setCurrentIndex(3);
    Keep(*Window, "map-colours-lines");
    Choose("actionContours");
    EXPECT_THAT(Canvas().ContourLevelsShown(), SizeIs(::testing::Ge(7)));
    Find<QDoubleSpinBox>("spinStep").setValue(0.25);
    EXPECT_EQ(Canvas().ContourLevelsShown()[1] - Canvas().ContourLevelsShown()[0], 0.25);
    Keep(*Window, "map-contours");
    Choose("actionRelief");
    Find<QDoubleSpinBox>("spinStep").setValue(0);
    Find<QDoubleSpinBox>("spinFactor").setValue(3);
    Keep(*Window, "map-relief-lines");
}

/// The manual's pictures. CROWNLAB_GRID names another grid to take them of.
TEST_F(TheMapWindow, IsDigitisedForATool) {
    const QString path = qEnvironmentVariable("CROWNLAB_GRID", QString::fromStdString(GridPath()));
    ASSERT_EQ(Window->OpenGrid(path.toStdString()), "");
    Window->StartWait({.Grid = path.toStdString(), .PointFile = Folder / "digit.dat"});
    const GridGeometry shape = ReadGrid(path.toStdString()).Shape;
    const double width = shape.XMax - shape.XMin, height = shape.YMax - shape.YMin;
    for (int i = 0; i < 9; ++i) {
        const double turn = i * 0.69813;
        ClickMap(shape.XMin + width * (0.33 + 0.16 * std::cos(turn)),
                 shape.YMin + height * (0.66 + 0.2 * std::sin(turn)));
    }
    EXPECT_EQ(Window->Points().Count(), 9u);
    Keep(*Window, "map-digitise");
    Window->SavePoints();
    EXPECT_THAT(ReadDigitisedPoints(Folder / "digit.dat"), SizeIs(9));
    EXPECT_EQ(Find<QPushButton>("buttonSave").text(), "Saved");
    for (const auto& [action, name] : {std::pair("actionImage", "map-real-colours"),
                                       {"actionContours", "map-real-contours"},
                                       {"actionSurface", "map-real-surface"}}) {
        Choose(action);
        Keep(*Window, name);
    }
}

TEST_F(TheMapWindow, ShowsTheSurfaceInSpace) {
    Choose("actionSurface");
    auto* const space = dynamic_cast<VrmlWidget*>(Window->findChild<QWidget*>("mapSpace"));
    ASSERT_NE(space, nullptr);
    EXPECT_FALSE(Find<QAction>("actionDigitise").isEnabled());
    if (!VrmlWidget::CanDraw()) {
        EXPECT_EQ(space->Sentence(), "The surface can't be shown: there is no OpenGL here.");
        return;
    }
    EXPECT_EQ(space->Sentence(), "");
    Keep(*Window, "map-surface");
    const auto coloured = [space] {
        QTest::qWait(60);
        const QImage image = space->grab().toImage();
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y).saturation() > 60 ? 1 : 0;
        }
        return count;
    };
    const int all = space->width() * space->height();
    const int before = coloured();
    EXPECT_GT(before, all / 8);
    Choose("actionZoomOut");
    EXPECT_LT(coloured(), before);
    Choose("actionFit");
    EXPECT_NEAR(coloured(), before, 0.05 * before);
    Find<QDoubleSpinBox>("spinFactor").setValue(2);
    Find<QComboBox>("comboPalette").setCurrentIndex(1);
    Keep(*Window, "map-surface-ivory");
    Choose("actionRelief");
    EXPECT_TRUE(Find<QAction>("actionDigitise").isEnabled());
    EXPECT_TRUE(Canvas().isVisible());
}

}  // namespace
}  // namespace crownlab
