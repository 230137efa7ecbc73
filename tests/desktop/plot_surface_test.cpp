// How a 3D surface stands in its map's rectangle, and how it is drawn.
#include <gmock/gmock.h>

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/plot_surface_painter.h"
#include "desktop/plot_surface_view.h"
#include "plot_samples.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

constexpr int kPerspective = 1;
constexpr int kOrthographic = 2;

MapLayer Layer(int projection, double rotation, double tilt) {
    MapLayer layer;
    layer.ViewProjection = projection;
    layer.ViewRotation = rotation;
    layer.ViewTilt = tilt;
    return layer;
}

void ExpectNear(QPointF found, QPointF expected) {
    EXPECT_NEAR(found.x(), expected.x(), 1e-6);
    EXPECT_NEAR(found.y(), expected.y(), 1e-6);
}

/// Place of a point of the box in shares of the frame, (0, 0) at its lower left corner.
QPointF InFrame(const SurfaceView& view, const QRectF& frame, double x, double y, double z) {
    const QPointF at = view.Place(x, y, z);
    return {(at.x() - frame.left()) / frame.width(), (frame.bottom() - at.y()) / frame.height()};
}

double LengthOfSide(const SurfaceView& view, QPointF from, QPointF to) {
    const QPointF side = view.Place(to.x(), to.y(), 0) - view.Place(from.x(), from.y(), 0);
    return std::hypot(side.x(), side.y());
}

TEST(SurfaceView, FromAboveIsTheFlatMap) {
    const QRectF frame(100, 50, 300, 200);
    const SurfaceView view(Layer(kOrthographic, 0, 90), {.X = 300, .Y = 200, .Z = 120}, frame);
    for (const double z : {0.0, 0.4, 1.0}) {
        ExpectNear(InFrame(view, frame, 0, 0, z), {0, 0});
        ExpectNear(InFrame(view, frame, 1, 0.25, z), {1, 0.25});
        ExpectNear(InFrame(view, frame, 0.3, 1, z), {0.3, 1});
    }
}

TEST(SurfaceView, FromTheSideShowsHeightsInTheScaleOfThePage) {
    const QRectF frame(0, 0, 300, 200);
    const SurfaceView view(Layer(kOrthographic, 0, 0), {.X = 300, .Y = 200, .Z = 120}, frame);
    ExpectNear(view.Place(0, 0.7, 0), {0, 160});
    ExpectNear(view.Place(1, 0.2, 1), {300, 40});
}

TEST(SurfaceView, TurnsCounterClockwise) {
    const QRectF frame(0, 0, 200, 200);
    const SurfaceView view(Layer(kOrthographic, 90, 90), {.X = 200, .Y = 100, .Z = 10}, frame);
    // +x points up now, +y to the left.
    ExpectNear(view.Place(1, 0.5, 0), {100, 0});
    ExpectNear(view.Place(0.5, 1, 0), {50, 100});
}

TEST(SurfaceView, TheBoxFitsItsFrameAndIsNeverEnlarged) {
    RandomNumbers random;
    const auto between = [&random](double low, double high) {
        constexpr int steps = 10000;
        return low + (high - low) * static_cast<double>(random.Below(steps)) / steps;
    };
    for (int i = 0; i < 200; ++i) {
        const QRectF frame(between(-50, 50), 20, between(10, 400), between(10, 400));
        const SurfaceView::Box box{.X = frame.width(), .Y = frame.height(), .Z = between(0, 900)};
        const SurfaceView view(Layer(1 + i % 2, between(-400, 400), between(-90, 90)), box, frame);
        double left = 1e9;
        double right = -1e9;
        double top = 1e9;
        double bottom = -1e9;
        for (int corner = 0; corner < 8; ++corner) {
            const QPointF at = view.Place(corner & 1, corner >> 1 & 1, corner >> 2 & 1);
            left = std::min(left, at.x());
            right = std::max(right, at.x());
            top = std::min(top, at.y());
            bottom = std::max(bottom, at.y());
        }
        EXPECT_GE(left, frame.left() - 1e-6);
        EXPECT_LE(right, frame.right() + 1e-6);
        EXPECT_GE(top, frame.top() - 1e-6);
        EXPECT_LE(bottom, frame.bottom() + 1e-6);
        EXPECT_NEAR((left + right) / 2, frame.center().x(), 1e-6);
        EXPECT_NEAR((top + bottom) / 2, frame.center().y(), 1e-6);
        if (i % 2 == 1) {
            EXPECT_LE(LengthOfSide(view, {0, 0}, {1, 0}), box.X + 1e-6);
            EXPECT_LE(LengthOfSide(view, {0, 0}, {0, 1}), box.Y + 1e-6);
        }
    }
}

TEST(SurfaceView, PerspectiveMakesWhatIsNearLarger) {
    const QRectF frame(0, 0, 300, 300);
    const SurfaceView::Box box{.X = 300, .Y = 300, .Z = 50};
    const SurfaceView perspective(Layer(kPerspective, 0, 30), box, frame);
    EXPECT_GT(LengthOfSide(perspective, {0, 0}, {1, 0}), 1.1 * LengthOfSide(perspective, {0, 1}, {1, 1}));
    const SurfaceView orthographic(Layer(kOrthographic, 0, 30), box, frame);
    EXPECT_NEAR(LengthOfSide(orthographic, {0, 0}, {1, 0}), LengthOfSide(orthographic, {0, 1}, {1, 1}), 1e-9);
}

TEST(SurfaceView, KnowsTheSidesInFront) {
    const SurfaceView::Box box{.X = 300, .Y = 300, .Z = 50};
    const SurfaceView view(Layer(kOrthographic, 45, 30), box, QRectF(0, 0, 300, 300));
    EXPECT_TRUE(view.IsInFront(1));
    EXPECT_FALSE(view.IsInFront(2));
    EXPECT_TRUE(view.IsInFront(3));
    EXPECT_FALSE(view.IsInFront(4));
    const SurfaceView turned(Layer(kOrthographic, 225, 30), box, QRectF(0, 0, 300, 300));
    EXPECT_FALSE(turned.IsInFront(1));
    EXPECT_TRUE(turned.IsInFront(2));
    EXPECT_TRUE(turned.IsInFront(4));
}

TEST(SurfaceView, TakesAnyNumbers) {
    PlotMap map = MapAt(MapKind::Surface, LevelGrid(2), 0, 10);
    for (const double scale : {0.0, -1.0, 1e-300, 1e300, std::nan("")}) {
        map.Layer.ZMapPerPU = scale;
        map.Layer.ViewRotation = scale;
        const QPointF at = ViewOf(map, QRectF(0, 0, 300, 200)).Place(0.5, 0.5, 0.5);
        EXPECT_TRUE(std::isfinite(at.x()) && std::isfinite(at.y())) << scale;
    }
}

TEST(FarToNear, GoesTowardsTheEyeFromBothSides) {
    const std::vector<double> edges{0, 1, 2, 3, 4};
    EXPECT_THAT(FarToNear(edges, -100), ElementsAre(3, 2, 1, 0));
    EXPECT_THAT(FarToNear(edges, 100), ElementsAre(0, 1, 2, 3));
    EXPECT_THAT(FarToNear(edges, 1.5), ElementsAre(0, 3, 2, 1));
    EXPECT_THAT(FarToNear(edges, 2), ElementsAre(0, 1, 3, 2));
}

/// A palette whose colour is the height itself, in grey.
PaletteTable GreyLevels() {
    PaletteTable table;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto level = static_cast<std::uint8_t>(i);
        table[i] = {level, level, level};
    }
    return table;
}

QImage Drawn(const PlotMap& map, const PaletteTable& colours) {
    QImage picture(300, 200, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    DrawSurface(painter, map, ViewOf(map, QRectF(picture.rect())), colours, {.MostCells = 400, .MeshLines = 0});
    return picture;
}

TEST(DrawSurface, FillsTheFrameFromAbove) {
    PlotMap map = MapAt(MapKind::Surface, LevelGrid(2), 0, 10);
    map.Layer = Layer(kOrthographic, 0, 90);
    map.Layer.LightZenith = 90;
    const QImage picture = Drawn(map, GreyLevels());
    for (const QPoint at : {QPoint(2, 2), QPoint(297, 197), QPoint(150, 100)}) {
        EXPECT_EQ(picture.pixelColor(at).alpha(), 255);
        EXPECT_NEAR(picture.pixelColor(at).red(), 128, 2) << "the middle of a range without width, in full light";
    }
}

TEST(DrawSurface, BlankCellsAreLeftOutAndAThirdCornerMakesATriangle) {
    Grid grid = LevelGrid(2, 4, 3);
    grid.At(3, 2) = kBlankHeight;
    PlotMap map = MapAt(MapKind::Surface, grid, 0, 10);
    map.Layer = Layer(kOrthographic, 0, 90);
    const QImage picture = Drawn(map, GreyLevels());
    EXPECT_EQ(picture.pixelColor(290, 10).alpha(), 0) << "the blank corner";
    EXPECT_EQ(picture.pixelColor(210, 90).alpha(), 255) << "the triangle that is left of its cell";
    grid.At(3, 1) = kBlankHeight;
    map = MapAt(MapKind::Surface, grid, 0, 10);
    map.Layer = Layer(kOrthographic, 0, 90);
    EXPECT_EQ(Drawn(map, GreyLevels()).pixelColor(210, 90).alpha(), 0);
}

TEST(DrawSurface, WhatIsNearHidesWhatIsBehind) {
    // A wall at low y, and one of half its height behind it. Only the cells of the lower one are a quarter high on
    // average: their colour shows whether they are seen.
    Grid grid = LevelGrid(0, 31, 21);
    for (int column = 0; column < 31; ++column) {
        grid.At(column, 2) = 1;
        grid.At(column, 18) = 0.5;
    }
    PaletteTable colours;
    colours.fill({60, 60, 60});
    std::fill(colours.begin() + 50, colours.begin() + 80, MapColour{250, 250, 250});
    PlotMap map = MapAt(MapKind::Surface, grid, 0, 10);
    const auto brightPixels = [&](double rotation) {
        map.Layer = Layer(kOrthographic, rotation, 2);
        map.Layer.ZMapPerPU = map.Layer.XMapPerPU = 0.2;
        map.Layer.LightZenith = 90;
        const QImage picture = Drawn(map, colours);
        int bright = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) bright += picture.pixelColor(x, y).red() > 100 ? 1 : 0;
        }
        return bright;
    };
    EXPECT_EQ(brightPixels(0), 0) << "behind the high wall";
    EXPECT_GT(brightPixels(180), 5000) << "before it";
    EXPECT_GT(brightPixels(90), 100) << "beside it";
}

TEST(DrawSurface, SlopesTowardsTheLightAreBrighter) {
    Grid roof = LevelGrid(0, 61, 21);
    for (int row = 0; row < 21; ++row) {
        for (int column = 0; column < 61; ++column) roof.At(column, row) = 1.5 - std::fabs(roof.Shape.X(column) - 1.5);
    }
    PlotMap map = MapAt(MapKind::Surface, roof, 0, 10);
    map.Layer = Layer(kOrthographic, 0, 90);
    map.Layer.ZMapPerPU = map.Layer.XMapPerPU = 0.2;
    PaletteTable white;
    white.fill({255, 255, 255});
    map.Layer.LightAzimuth = 180;
    map.Layer.LightZenith = 45;
    const QImage fromWest = Drawn(map, white);
    EXPECT_NEAR(fromWest.pixelColor(75, 100).red(), 255, 2) << "45 degrees, straight into the light";
    EXPECT_LT(fromWest.pixelColor(225, 100).red(), 160);
    map.Layer.LightAzimuth = 0;
    const QImage fromEast = Drawn(map, white);
    EXPECT_NEAR(fromEast.pixelColor(225, 100).red(), 255, 2);
    EXPECT_EQ(fromEast.pixelColor(75, 100).red(), fromWest.pixelColor(225, 100).red());
}

TEST(DrawSurface, EveryNthRowOfAFineGridAndTheLastOnes) {
    const Grid fine = LevelGrid(1, 1001, 700);
    PlotMap map = MapAt(MapKind::Surface, fine, 0, 10);
    map.Layer = Layer(kOrthographic, 0, 90);
    QImage picture(300, 200, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    DrawSurface(painter, map, ViewOf(map, QRectF(picture.rect())), GreyLevels(), {.MostCells = 7, .MeshLines = 5});
    painter.end();
    EXPECT_EQ(picture.pixelColor(298, 1).alpha(), 255) << "up to the last row and column";
    EXPECT_EQ(picture.pixelColor(1, 198).alpha(), 255);
}

}  // namespace
}  // namespace crownlab
