// Where shapes stand on the drawing, and what stands around maps.
#include "desktop/plot_page.h"

#include <gmock/gmock.h>

#include <QPainter>

#include "desktop/plot_axes.h"
#include "desktop/plot_legends.h"
#include "desktop/plot_painter.h"
#include "plot_samples.h"

namespace crownlab {
namespace {

constexpr double kTolerance = 1e-9;

TEST(PlotPage, CentimetresUpBecomePointsDown) {
    EXPECT_NEAR(OnDrawing(2.54, 0).x(), 72, kTolerance);
    EXPECT_NEAR(OnDrawing(0, 2.54).y(), -72, kTolerance);
    EXPECT_NEAR(PageRectangle().width(), 612, 1e-6) << "8.5 inches";
    EXPECT_NEAR(PageRectangle().height(), 792, 1e-6) << "11 inches";
    EXPECT_NEAR(PageRectangle().bottom(), 0, kTolerance) << "the origin is the lower left corner";
}

TEST(PlotPage, AMapStandsAtItsUpperLeftCorner) {
    const QRectF frame = FrameOf(MapAt(MapKind::Relief, LevelGrid(1), 2.54, 25.4));
    EXPECT_NEAR(frame.left(), 72, kTolerance);
    EXPECT_NEAR(frame.top(), -720, kTolerance);
    EXPECT_NEAR(frame.width(), 15 / 2.54 * 72, kTolerance);
    EXPECT_NEAR(frame.height(), 10 / 2.54 * 72, kTolerance) << "the grid is 3 by 2";
}

PlotText TextAt(int horizontal, int vertical, const char* words = "m1.grd") {
    PlotText text;
    text.X = 10;
    text.Y = 5;
    text.Text = words;
    text.Font = {.HAlign = horizontal, .VAlign = vertical};
    return text;
}

TEST(PlotPage, TextsLieAtTheirPointAsTheyAreAligned) {
    const QPointF at = OnDrawing(10, 5);
    const QRectF leftTop = ExtentOf(TextAt(1, 4));
    EXPECT_NEAR(leftTop.left(), at.x(), kTolerance);
    EXPECT_NEAR(leftTop.top(), at.y(), kTolerance) << "it hangs below its point";
    EXPECT_GT(leftTop.width(), 20);
    const QRectF middle = ExtentOf(TextAt(2, 5));
    EXPECT_NEAR(middle.center().x(), at.x(), kTolerance);
    EXPECT_NEAR(middle.center().y(), at.y(), kTolerance);
    const QRectF rightBottom = ExtentOf(TextAt(3, 6));
    EXPECT_NEAR(rightBottom.right(), at.x(), kTolerance);
    EXPECT_NEAR(rightBottom.bottom(), at.y(), kTolerance);
    EXPECT_NEAR(ExtentOf(TextAt(1, 4, "a\nb")).height(), 2 * leftTop.height(), kTolerance);
}

/// A drawing of 4 pixels a point of the map and what is around it.
class Picture {
public:
    explicit Picture(const PlotMap& map) : part_(FrameOf(map).marginsAdded({60, 60, 90, 110})) {
        picture_ = QImage((part_.size() * kScale).toSize(), QImage::Format_RGB32);
        picture_.fill(Qt::white);
        PlotDocument document;
        document.Shapes.emplace_back(map);
        QPainter painter(&picture_);
        painter.scale(kScale, kScale);
        painter.translate(-part_.topLeft());
        DrawPlot(painter, document, part_, BodyForPaper(72));
    }

    QColor At(QPointF drawing) const { return picture_.pixelColor(((drawing - part_.topLeft()) * kScale).toPoint()); }
    /// Number of pixels in a part of the drawing that aren't white.
    int Inked(const QRectF& part) const {
        const QRect pixels = QRectF((part.topLeft() - part_.topLeft()) * kScale, part.size() * kScale).toRect();
        int number = 0;
        for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
            for (int x = pixels.left(); x <= pixels.right(); ++x) number += picture_.pixelColor(x, y) != Qt::white;
        }
        return number;
    }
    const QImage& Image() const { return picture_; }

private:
    static constexpr double kScale = 4;
    QRectF part_;
    QImage picture_;
};

QRectF Below(const QRectF& frame, double from, double to) {
    return {frame.left(), frame.bottom() + from, frame.width(), to - from};
}
QRectF LeftOf(const QRectF& frame) { return {frame.left() - 40, frame.top(), 38, frame.height()}; }
QRectF RightOf(const QRectF& frame) { return {frame.right() + 2, frame.top(), 60, frame.height()}; }
QRectF Above(const QRectF& frame) { return {frame.left(), frame.top() - 40, frame.width(), 38}; }

TEST(PlotAxes, NumbersBelowAndLeftAndEndBeforeTheLabel) {
    const PlotMap map = MapAt(MapKind::Image, LevelGrid(1), 2, 20);
    const QRectF frame = FrameOf(map);
    const Picture picture(map);
    EXPECT_GT(picture.Inked(Below(frame, 4, 13)), 200);
    EXPECT_GT(picture.Inked(LeftOf(frame)), 200);
    EXPECT_GT(picture.Inked(Above(frame)), 10) << "ticks alone";
    EXPECT_LT(picture.Inked(Above(frame)), 400);
    // Tools put the label 0.47 units below the map.
    EXPECT_EQ(picture.Inked(Below(frame, 0.47 * kPointsPerUnit, 60)), 0);
    const QRectF extent = AxesExtent(map, frame);
    EXPECT_LT(extent.left(), frame.left() - 5);
    EXPECT_LE(extent.bottom(), frame.bottom() + 0.47 * kPointsPerUnit);
}

TEST(PlotAxes, HiddenOnesLeaveNothing) {
    PlotMap map = MapAt(MapKind::Image, LevelGrid(1), 2, 20);
    HideAxes(map);
    const QRectF frame = FrameOf(map);
    const Picture picture(map);
    for (const QRectF& side : {Below(frame, 1, 60), LeftOf(frame), RightOf(frame), Above(frame)}) {
        EXPECT_EQ(picture.Inked(side), 0);
    }
    EXPECT_EQ(AxesExtent(map, frame), frame);
}

TEST(PlotAxes, EachHidesWhatItSays) {
    PlotMap map = MapAt(MapKind::Contour, LevelGrid(1), 2, 20);
    HideAxes(map);
    map.Axes[0].LineStyle = "Solid";
    const QRectF frame = FrameOf(map);
    const Picture line(map);
    EXPECT_LT(line.At(QPointF(frame.center().x(), frame.bottom())).lightness(), 200);
    EXPECT_EQ(line.At(QPointF(frame.center().x(), frame.top())), QColor(Qt::white));
    EXPECT_EQ(line.Inked(Below(frame, 1, 60)), 0) << "no ticks, no numbers";
    map.Axes[0] = {.ShowLabels = false, .MajorTickType = 2, .LineStyle = "invisible"};
    const Picture ticks(map);
    EXPECT_GT(ticks.Inked(Below(frame, 0.5, 3)), 20);
    EXPECT_EQ(ticks.Inked(Below(frame, 4, 60)), 0);
    map.Axes[0].MajorTickType = 3;
    EXPECT_EQ(Picture(map).Inked(Below(frame, 0.5, 60)), 0) << "inside";
}

TEST(PlotAxes, OfASurfaceAreFive) {
    PlotMap map = MapAt(MapKind::Surface, LevelGrid(1), 2, 20);
    map.Heights = {.Low = 0, .High = 3};
    const QRectF all = FrameOf(map).marginsAdded({30, 30, 30, 30});
    const int inked = Picture(map).Inked(all);
    for (std::size_t i = 0; i < 5; ++i) map.Axes[i].LineStyle = "Invisible";
    const int noLines = Picture(map).Inked(all);
    EXPECT_LT(noLines, inked);
    map.Axes[4].ShowLabels = false;
    const int noHeights = Picture(map).Inked(all);
    EXPECT_LT(noHeights, noLines) << "the height axis has numbers of its own";
    HideAxes(map);
    const int bare = Picture(map).Inked(all);
    EXPECT_LT(bare, noHeights);
    EXPECT_GT(bare, 1000) << "the surface itself";
}

TEST(PlotScaleBar, CyclesAreDarkAndLightInTurnInTheScaleOfTheMap) {
    PlotMap map = MapAt(MapKind::Relief, LevelGrid(1), 2, 20);
    map.ScaleBars.push_back({.CycleSpacing = 0.25, .LabelIncrement = 0.25, .NumCycles = 8});
    const QRectF frame = FrameOf(map);
    const QRectF extent = ScaleBarsExtent(map, frame);
    const Picture picture(map);
    // 8 cycles of 0.25 are 2 of the 3 units of the map.
    const double left = frame.center().x() - frame.width() / 3;
    const double y = extent.top() + 3;
    for (int cycle = 0; cycle < 8; ++cycle) {
        const double middle = left + (cycle + 0.5) * frame.width() / 12;
        EXPECT_EQ(picture.At({middle, y}), QColor(cycle % 2 == 0 ? Qt::black : Qt::white)) << cycle;
    }
    EXPECT_EQ(picture.At({left - 4, y}), QColor(Qt::white));
    EXPECT_EQ(picture.At({left + frame.width() * 2 / 3 + 4, y}), QColor(Qt::white));
    EXPECT_GT(picture.Inked({left - 10, extent.bottom() - 8, frame.width(), 8}), 100) << "numbers";
    EXPECT_GT(extent.top(), frame.bottom() + 0.47 * kPointsPerUnit + 12) << "below the label";
}

TEST(PlotScaleBar, ManyCyclesAndTooLongOnes) {
    PlotMap map = MapAt(MapKind::Relief, LevelGrid(1), 2, 20);
    const QRectF frame = FrameOf(map);
    map.ScaleBars.push_back({.CycleSpacing = 1e-9, .LabelIncrement = 1, .NumCycles = 2'000'000'000});
    EXPECT_NEAR(ScaleBarsExtent(map, frame).width(), frame.width() * 2 / 3, 60);
    EXPECT_GT(Picture(map).Inked(Below(frame, 30, 60)), 100);
    map.ScaleBars[0] = {.CycleSpacing = 1e300, .LabelIncrement = 1e300, .NumCycles = 8};
    EXPECT_LT(ScaleBarsExtent(map, frame).width(), frame.width());
    EXPECT_GT(Picture(map).Inked(Below(frame, 30, 60)), 100) << "told in words";
}

TEST(PlotColourScale, StandsRightOfTheFrame) {
    Grid grid = LevelGrid(1);
    grid.At(0, 0) = 2;
    PlotMap map = MapAt(MapKind::Contour, grid, 2, 20);
    HideAxes(map);
    const QRectF frame = FrameOf(map);
    EXPECT_EQ(Picture(map).Inked(RightOf(frame)), 0);
    map.Layer.ShowColorScale = true;
    const Picture picture(map);
    EXPECT_GT(picture.Inked(RightOf(frame)), 1000);
    const QRectF extent = ColourScaleExtent(map, frame);
    EXPECT_GT(extent.left(), frame.right());
    const double x = extent.left() + 5;
    EXPECT_GT(picture.At({x, extent.top() + 10}).lightness(), picture.At({x, extent.bottom() - 10}).lightness());
    EXPECT_EQ(picture.At({x, extent.bottom() - 10}).alpha(), 255);
}

TEST(PlotPainter, AMapWithoutHeightsSaysSo) {
    Grid grid = LevelGrid(1);
    std::fill(grid.Z.begin(), grid.Z.end(), kBlankHeight);
    for (const MapKind kind : {MapKind::Relief, MapKind::Contour, MapKind::Image, MapKind::Surface}) {
        PlotMap map = MapAt(kind, grid, 2, 20, "/teeth/void.grd");
        EXPECT_EQ(SentenceOf(map), "void.grd has no heights: all its nodes are blank.");
        map.Layer.ShowColorScale = true;
        const QRectF frame = FrameOf(map);
        const Picture picture(map);
        EXPECT_GT(picture.Inked(frame.adjusted(10, 10, -10, -10)), 100);
    }
}

}  // namespace
}  // namespace crownlab
