#include "desktop/plot_view.h"

#include <gmock/gmock.h>

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "crown_grid.h"
#include "desktop/plot_page.h"
#include "plot_samples.h"

namespace crownlab {
namespace {

/// Height 0 to the left, 1 to the right of the middle: violet and yellow in an image.
Grid TwoHalves() {
    Grid grid = LevelGrid(0, 301, 201);
    for (int row = 0; row < 201; ++row) {
        for (int column = 151; column < 301; ++column) grid.At(column, row) = 1;
    }
    return grid;
}

const QColor kLow(68, 1, 84);
const QColor kHigh(253, 231, 37);

bool IsNear(const QColor& a, const QColor& b) {
    return std::abs(a.red() - b.red()) < 12 && std::abs(a.green() - b.green()) < 12 &&
           std::abs(a.blue() - b.blue()) < 12;
}

std::shared_ptr<PlotDocument> DocumentOf(std::initializer_list<PlotMap> maps) {
    auto document = std::make_shared<PlotDocument>();
    document->Name = "Plot1";
    for (const PlotMap& map : maps) document->Shapes.emplace_back(map);
    return document;
}

/// A view that is shown, with its document.
struct Shown {
    explicit Shown(std::shared_ptr<PlotDocument> document, QSize size = {900, 700})
        : Document(std::move(document)), View(Document) {
        View.resize(size);
        View.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&View));
    }
    QColor At(double x, double y) { return ColourOnPage(View, Settled(View), x, y); }

    std::shared_ptr<PlotDocument> Document;
    PlotView View;
};

void Wheel(PlotView& view, QPointF at, int turned, Qt::KeyboardModifiers keys = Qt::NoModifier) {
    QWheelEvent event(at, view.viewport()->mapToGlobal(at), QPoint(), QPoint(0, turned), Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
}

void Drag(PlotView& view, QPointF from, QPointF to) {
    const auto send = [&view](QEvent::Type type, QPointF at, Qt::MouseButtons held) {
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    };
    send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    send(QEvent::MouseMove, to, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, to, Qt::NoButton);
}

TEST(PlotView, MapsStandWhereTheyAreTold) {
    PlotMap first = MapAt(MapKind::Image, TwoHalves(), 20, 19);
    PlotMap second = MapAt(MapKind::Image, TwoHalves(), 38, 1);
    HideAxes(first);
    HideAxes(second);
    Shown shown(DocumentOf({first, second}));
    const QImage picture = Settled(shown.View);
    const auto at = [&](double x, double y) { return ColourOnPage(shown.View, picture, x, y); };
    // 15 wide and 10 high, from the upper left corner.
    for (const QPointF corner : {QPointF(20, 19), QPointF(38, 1)}) {
        for (const double y : {corner.y() - 0.2, corner.y() - 9.8}) {
            EXPECT_TRUE(IsNear(at(corner.x() + 0.2, y), kLow)) << at(corner.x() + 0.2, y).name().toStdString();
            EXPECT_TRUE(IsNear(at(corner.x() + 7.3, y), kLow));
            EXPECT_TRUE(IsNear(at(corner.x() + 7.8, y), kHigh));
            EXPECT_TRUE(IsNear(at(corner.x() + 14.8, y), kHigh));
            EXPECT_EQ(at(corner.x() - 0.2, y), QColor(Qt::white));
            EXPECT_EQ(at(corner.x() + 15.2, y), QColor(Qt::white));
        }
        EXPECT_EQ(at(corner.x() + 7, corner.y() + 0.2), QColor(Qt::white));
        EXPECT_EQ(at(corner.x() + 7, corner.y() - 10.2), QColor(Qt::white));
    }
}

TEST(PlotView, LaterShapesLieOverEarlierOnes) {
    PlotMap below = MapAt(MapKind::Image, LevelGrid(0), 5, 20);
    PlotMap above = MapAt(MapKind::Image, LevelGrid(0), 10, 20);
    below.Heights = {.Low = 0, .High = 1};
    above.Heights = {.Low = -1, .High = 0};
    Shown shown(DocumentOf({below, above}));
    EXPECT_TRUE(IsNear(shown.At(7, 15), kLow));
    EXPECT_TRUE(IsNear(shown.At(12, 15), kHigh));
}

TEST(PlotView, BlankNodesShowThePaper) {
    Grid grid = TwoHalves();
    for (int row = 0; row < 201; ++row) {
        for (int column = 200; column < 301; ++column) grid.At(column, row) = kBlankHeight;
    }
    for (const MapKind kind : {MapKind::Image, MapKind::Relief, MapKind::Contour}) {
        PlotMap map = MapAt(kind, grid, 5, 20);
        HideAxes(map);
        map.Layer.ShowColorScale = true;
        Shown shown(DocumentOf({map}));
        EXPECT_EQ(shown.At(18, 15), QColor(Qt::white));
        EXPECT_NE(shown.At(8, 15), QColor(Qt::white));
    }
}

TEST(PlotView, ContoursRunWhereTheHeightIs) {
    Grid slope = LevelGrid(0, 61, 41);
    for (int row = 0; row < 41; ++row) {
        for (int column = 0; column < 61; ++column) slope.At(column, row) = slope.Shape.X(column) / 3 * 10;
    }
    PlotMap map = MapAt(MapKind::Contour, slope, 5, 20);
    HideAxes(map);
    Shown shown(DocumentOf({map}));
    const QImage picture = Settled(shown.View);
    // Round levels of a slope from 0 to 10 over 15 units; 5 is one of them. Its number leaves a gap somewhere.
    const auto darkest = [&](double x) {
        int lightest = 255;
        for (int tenth = 110; tenth < 190; ++tenth) {
            lightest = std::min(lightest, ColourOnPage(shown.View, picture, x, 0.1 * tenth).lightness());
        }
        return lightest;
    };
    EXPECT_LT(std::min({darkest(12.47), darkest(12.5), darkest(12.53)}), 180);
    EXPECT_EQ(darkest(12.5 + 0.4), 255) << "between two lines";
}

TEST(PlotView, LightComesFromWhereTheReliefSays) {
    Grid roof = LevelGrid(0, 301, 201);
    for (int row = 0; row < 201; ++row) {
        for (int column = 0; column < 301; ++column) roof.At(column, row) = -std::fabs(roof.Shape.X(column) - 1.5);
    }
    PlotMap west = MapAt(MapKind::Relief, roof, 5, 20);
    west.Layer.HLightAngle = 180;
    PlotMap east = MapAt(MapKind::Relief, roof, 5, 5);
    east.Layer.HLightAngle = 0;
    Shown shown(DocumentOf({west, east}));
    EXPECT_GT(shown.At(8, 15).lightness(), shown.At(17, 15).lightness() + 50);
    EXPECT_LT(shown.At(8, 0).lightness(), shown.At(17, 0).lightness() - 50);
}

TEST(PlotView, SurfacesStandInTheirFrames) {
    PlotMap above = MapAt(MapKind::Surface, TwoHalves(), 5, 20);
    above.Layer.ViewProjection = 2;
    above.Layer.ViewRotation = 0;
    above.Layer.ViewTilt = 90;
    above.Layer.LightZenith = 90;
    HideAxes(above);
    PlotMap turned = above;
    turned.Top = 5;
    turned.Layer.ViewRotation = 180;
    Shown shown(DocumentOf({above, turned}));
    // Between two lines of the mesh.
    EXPECT_TRUE(IsNear(shown.At(8.2, 11.2), kLow));
    EXPECT_TRUE(IsNear(shown.At(16.45, 11.2), kHigh));
    EXPECT_TRUE(IsNear(shown.At(8.2, -3.8), kHigh));
    EXPECT_TRUE(IsNear(shown.At(16.45, -3.8), kLow));
    EXPECT_EQ(shown.At(4.8, 15), QColor(Qt::white));
}

TEST(PlotView, AnEmptyPageIsFitted) {
    Shown shown(DocumentOf({}));
    const QPointF low = shown.View.OnViewport(0, 0);
    const QPointF high = shown.View.OnViewport(21.59, 27.94);
    EXPECT_GT(low.x(), 0);
    EXPECT_LT(low.y(), shown.View.viewport()->height());
    EXPECT_GT(high.y(), 0);
    EXPECT_GT(low.y() - high.y(), 0.9 * shown.View.viewport()->height());
    EXPECT_EQ(shown.At(10, 10), QColor(Qt::white));
}

TEST(PlotView, FitsAsTheDrawingGrows) {
    const auto sheet = std::make_shared<PlotDocument>();
    Shown shown(sheet);
    for (int i = 0; i < 6; ++i) {
        sheet->Shapes.emplace_back(MapAt(MapKind::Image, LevelGrid(1), 20 + 18.0 * i, 20));
        ++sheet->Changes;
        shown.View.Follow();
    }
    const QRectF window(shown.View.viewport()->rect());
    EXPECT_TRUE(window.contains(shown.View.OnViewport(20, 20)));
    EXPECT_TRUE(window.contains(shown.View.OnViewport(20 + 18 * 5 + 15, 10)));
    shown.View.resize(400, 300);
    QTest::qWait(20);
    EXPECT_TRUE(QRectF(shown.View.viewport()->rect()).contains(shown.View.OnViewport(20 + 18 * 5 + 15, 10)));
}

TEST(PlotView, KeepsItsPlaceOnceAPersonHasChosenIt) {
    const auto sheet = CrownSheet();
    Shown shown(sheet);
    shown.View.Zoom(4);
    const QPointF before = shown.View.OnViewport(40, 10);
    sheet->Shapes.emplace_back(MapAt(MapKind::Image, LevelGrid(1), 200, 100));
    ++sheet->Changes;
    shown.View.Follow();
    const QPointF after = shown.View.OnViewport(40, 10);
    EXPECT_NEAR(after.x(), before.x(), 1e-6);
    EXPECT_NEAR(after.y(), before.y(), 1e-6);
    shown.View.Fit();
    EXPECT_TRUE(QRectF(shown.View.viewport()->rect()).contains(shown.View.OnViewport(214, 100)));
}

TEST(PlotView, TheWheelZoomsAtTheMouse) {
    Shown shown(CrownSheet());
    const QPointF mouse(612, 204);
    const QPointF before = shown.View.OnPage(mouse);
    const double size = shown.View.Size();
    Wheel(shown.View, mouse, 360);
    EXPECT_NEAR(shown.View.Size(), size * 1.25 * 1.25 * 1.25, 1e-9);
    const QPointF after = shown.View.OnPage(mouse);
    EXPECT_NEAR(after.x(), before.x(), 1e-6);
    EXPECT_NEAR(after.y(), before.y(), 1e-6);
    Wheel(shown.View, mouse, -240);
    EXPECT_NEAR(shown.View.Size(), size * 1.25, 1e-9);
    EXPECT_NEAR(shown.View.OnPage(mouse).x(), before.x(), 1e-6);
    for (int i = 0; i < 100; ++i) Wheel(shown.View, mouse, 1200);
    EXPECT_NEAR(shown.View.Size(), 20, 1e-9) << "no farther";
    for (int i = 0; i < 100; ++i) Wheel(shown.View, mouse, -1200);
    EXPECT_NEAR(shown.View.Size(), 0.005, 1e-9);
    EXPECT_FALSE(Settled(shown.View).isNull());
}

TEST(PlotView, ActualSizeIsACentimetreOnTheScreen) {
    Shown shown(CrownSheet());
    shown.View.ShowActualSize();
    EXPECT_NEAR(shown.View.Size(), 1, 1e-9);
    const double pixels = shown.View.OnViewport(11, 0).x() - shown.View.OnViewport(10, 0).x();
    EXPECT_NEAR(pixels, shown.View.logicalDpiX() / 2.54, 1e-6);
}

TEST(PlotView, DragsAndScrolls) {
    Shown shown(CrownSheet());
    shown.View.Zoom(6);
    const QPointF grabbed = shown.View.OnPage({400, 300});
    Drag(shown.View, {400, 300}, {350, 340});
    const QPointF dropped = shown.View.OnPage({350, 340});
    EXPECT_NEAR(dropped.x(), grabbed.x(), 1e-6);
    EXPECT_NEAR(dropped.y(), grabbed.y(), 1e-6);
    const QPointF before = shown.View.OnViewport(40, 10);
    QScrollBar& bar = *shown.View.verticalScrollBar();
    bar.setValue(bar.value() + 30);
    EXPECT_NEAR(shown.View.OnViewport(40, 10).y(), before.y() - 30, 1.01);
    const int across = shown.View.horizontalScrollBar()->value();
    Wheel(shown.View, {100, 100}, -120, Qt::ShiftModifier);
    EXPECT_EQ(shown.View.horizontalScrollBar()->value(), across + 120);
    QTest::keyClick(shown.View.viewport(), Qt::Key_Plus);
    QTest::keyClick(&shown.View, Qt::Key_Down);
    EXPECT_GT(bar.value(), 0);
}

TEST(PlotView, BarsTellHowMuchIsSeen) {
    Shown shown(CrownSheet(), {1500, 800});
    QTest::qWait(20);
    const QScrollBar& bar = *shown.View.horizontalScrollBar();
    const double pixelsAUnit = shown.View.OnViewport(1, 0).x() - shown.View.OnViewport(0, 0).x();
    EXPECT_EQ(bar.pageStep(), shown.View.viewport()->width());
    // The page is left of what is fitted.
    const double left = shown.View.OnViewport(0, 0).x();
    EXPECT_LT(left, 0);
    EXPECT_NEAR(bar.value(), -left + 20 / kPointsPerUnit * pixelsAUnit, 2);
    EXPECT_NEAR(bar.maximum(), bar.value(), 2) << "nothing right of it";
}

TEST(PlotView, TheSheetCannotBeLost) {
    Shown shown(CrownSheet());
    shown.View.Zoom(3);
    for (int i = 0; i < 50; ++i) Drag(shown.View, {0, 0}, {800, 600});
    const QRectF window(shown.View.viewport()->rect());
    const QRectF page(shown.View.OnViewport(0, 27.94), shown.View.OnViewport(21.59, 0));
    EXPECT_TRUE(window.intersects(page.adjusted(-50, -50, 50, 50)));
}

TEST(PlotPictures, AreMadeOnceAndWithinTheTimeThatIsAllowed) {
    PlotPictures pictures;
    QImage paper(400, 400, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    const PlotMap first = MapAt(MapKind::Image, TwoHalves(), 0, 0);
    const PlotMap second = MapAt(MapKind::Image, LevelGrid(1), 0, 0);
    const auto drawBoth = [&](double scale, bool keepOld) {
        pictures.Begin(0, keepOld);
        pictures.Draw(painter, first, QRectF(0, 0, 150, 100), scale);
        pictures.Draw(painter, second, QRectF(200, 0, 150, 100), scale);
        return pictures.IsComplete();
    };
    EXPECT_FALSE(drawBoth(1, false)) << "one picture is made whatever the time";
    EXPECT_EQ(paper.pixelColor(275, 50), QColor(Qt::white));
    EXPECT_TRUE(drawBoth(1, false));
    EXPECT_NE(paper.pixelColor(275, 50), QColor(Qt::white));
    EXPECT_TRUE(drawBoth(1, false)) << "and kept";
    EXPECT_FALSE(drawBoth(2, true)) << "stretched while the size changes";
    EXPECT_TRUE(IsNear(paper.pixelColor(20, 50), kLow));
    EXPECT_FALSE(drawBoth(2, false));
    EXPECT_TRUE(drawBoth(2, false));
}

TEST(PlotPictures, BelongToWhatTheyWereMadeOf) {
    PlotPictures pictures;
    QImage paper(200, 200, QImage::Format_RGB32);
    QPainter painter(&paper);
    PlotMap map = MapAt(MapKind::Image, TwoHalves(), 0, 0);
    const auto draw = [&] {
        pictures.Begin(1000, false);
        pictures.Draw(painter, map, QRectF(0, 0, 150, 100), 1);
        return paper.pixelColor(20, 50);
    };
    EXPECT_TRUE(IsNear(draw(), kLow));
    map.Kind = MapKind::Relief;
    const QColor relief = draw();
    EXPECT_FALSE(IsNear(relief, kLow));
    map.Layer.VLightAngle = 5;
    EXPECT_FALSE(IsNear(draw(), relief));
    map.Kind = MapKind::Image;
    map.Nodes = std::make_shared<const Grid>(LevelGrid(1));
    EXPECT_TRUE(IsNear(draw(), kHigh));
}

TEST(PlotView, ASheetOfManyLargeGridsIsDrawnStepByStep) {
    const auto sheet = std::make_shared<PlotDocument>();
    const Grid crown = CrownGrid(900, 700);
    for (int i = 0; i < 12; ++i) {
        // Grids of their own, as a batch has them.
        const int row = i / 4;
        PlotMap map =
            MapAt(i % 2 == 0 ? MapKind::Relief : MapKind::Surface, crown, 20 + 18.0 * (i % 4), 20 - 18.0 * row);
        sheet->Shapes.emplace_back(map);
    }
    Shown shown(sheet, {1400, 1000});
    EXPECT_FALSE(Settled(shown.View).isNull());
    QElapsedTimer time;
    time.start();
    constexpr int times = 20;
    for (int i = 0; i < times; ++i) {
        Drag(shown.View, {400, 300}, {401, 301});
        shown.View.viewport()->repaint();
    }
    std::printf("%.1f ms a repaint\n", static_cast<double>(time.elapsed()) / times);
    EXPECT_TRUE(shown.View.IsSettled()) << "nothing is made anew when the sheet moves";
}

TEST(PlotView, ShowsASheet) {
    Shown shown(CrownSheet(), {1500, 800});
    KeepPicture(Settled(shown.View), "plot-sheet");
}

}  // namespace
}  // namespace crownlab
