#include "desktop/map_painter.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QPainter>
#include <algorithm>

#include "crown_grid.h"

namespace crownlab {
namespace {

/// A map painted on white paper of that size, kept with the build under a name.
struct Paper {
    QImage Image;
    QRectF Frame;

    Paper(const Grid& grid, const MapPicture& picture, QSize size, const char* name)
        : Image(size, QImage::Format_RGB32) {
        Image.fill(Qt::white);
        QPainter painter(&Image);
        Frame = PaintMap(painter, QRectF(Image.rect()).adjusted(4, 4, -4, -4), grid, picture);
        painter.end();
        QDir().mkpath(CROWNLAB_SCREENSHOTS);
        EXPECT_TRUE(Image.save(QString("%1/%2.png").arg(CROWNLAB_SCREENSHOTS, name)));
    }
    /// The colour at a share of the frame from its lower left corner.
    QColor At(double across, double up) const {
        return Image.pixelColor(static_cast<int>(Frame.left() + across * Frame.width()),
                                static_cast<int>(Frame.bottom() - up * Frame.height()));
    }
    /// Pixels outside the frame that aren't white: axes, numbers, bars.
    int InkOutside(const QRectF& where) const {
        int count = 0;
        for (int y = std::max(0, static_cast<int>(where.top())); y < std::min<double>(Image.height(), where.bottom());
             ++y) {
            for (int x = std::max(0, static_cast<int>(where.left()));
                 x < std::min<double>(Image.width(), where.right()); ++x) {
                if (Image.pixelColor(x, y).lightness() < 128) ++count;
            }
        }
        return count;
    }
};

double Distance(const QColor& a, const MapColour& b) {
    return std::abs(a.red() - b.Red) + std::abs(a.green() - b.Green) + std::abs(a.blue() - b.Blue);
}

TEST(MapTransforms, FitAndInvert) {
    const GridGeometry shape{.Columns = 5, .Rows = 5, .XMin = 100, .XMax = 120, .YMin = -7, .YMax = -2};
    const MapTransform transform = FitMap(shape, QRectF(10, 20, 400, 300));
    EXPECT_EQ(transform.ScaleX, 20);
    EXPECT_EQ(MapRect(transform, shape), QRectF(10, 120, 400, 100));
    const PlanePoint at = transform.ToMap({10, 220});
    EXPECT_NEAR(at.x, 100, 1e-12);
    EXPECT_NEAR(at.y, -7, 1e-12);
    EXPECT_EQ(transform.ToView(at), QPointF(10, 220));
}

TEST(MapPainter, PaintsHeightsWhereTheyLie) {
    const Grid grid = CrownGrid(241, 181);
    const Paper paper(grid, {.Kind = MapView::Image, .ScaleBar = true, .ColourBar = true}, {900, 640},
                      "map-paper-image");
    const HeightRange range = Heights(grid);
    const PaletteTable& table = PaletteColours(MapPalette::Viridis);
    for (const auto& [across, up] : {std::pair(0.3, 0.7), {0.7, 0.3}, {0.5, 0.5}, {0.25, 0.3}}) {
        const double z = grid.At(static_cast<int>(std::lround(across * 240)), static_cast<int>(std::lround(up * 180)));
        EXPECT_LT(Distance(paper.At(across, up), HeightColour(table, range, z)), 24) << across << " " << up;
    }
    EXPECT_EQ(paper.At(0.01, 0.99), QColor(Qt::white)) << "blank nodes are transparent";
    EXPECT_NEAR(paper.Frame.width() / paper.Frame.height(), 12.0 / 9.0, 1e-9) << "one scale for both axes";
}

TEST(MapPainter, PaintsAxesScaleBarAndColourBarInsideThePaper) {
    const Paper paper(CrownGrid(121, 91), {.Kind = MapView::Image, .ScaleBar = true, .ColourBar = true}, {700, 500},
                      "map-paper-small");
    const QRectF& frame = paper.Frame;
    EXPECT_GT(paper.InkOutside({0, frame.top(), frame.left() - 1, frame.height()}), 60) << "numbers of the y axis";
    EXPECT_GT(paper.InkOutside({frame.left(), frame.bottom() + 2, frame.width(), 20}), 60) << "numbers of the x axis";
    EXPECT_GT(paper.InkOutside({frame.right() + 5, frame.top(), 100, frame.height()}), 200) << "colour bar";
    EXPECT_GT(paper.InkOutside({frame.center().x(), frame.bottom() + 25, frame.width() / 2, 40}), 60) << "scale bar";
    for (const QRectF& edge :
         {QRectF(0, 0, 700, 2), QRectF(0, 0, 2, 500), QRectF(698, 0, 2, 500), QRectF(0, 498, 700, 2)}) {
        EXPECT_EQ(paper.InkOutside(edge), 0) << "cut off";
    }
}

TEST(MapPainter, PaintsReliefAndContours) {
    const Grid grid = CrownGrid(241, 181);
    const Paper relief(grid, {.Kind = MapView::Relief}, {800, 620}, "map-paper-relief");
    EXPECT_GT(relief.At(0.2, 0.8).lightness(), relief.At(0.85, 0.12).lightness() + 60)
        << "the light comes from above left";
    const Paper contours(grid, {.Kind = MapView::Contours}, {800, 620}, "map-paper-contours");
    EXPECT_GT(contours.InkOutside(contours.Frame), 3000);
}

TEST(MapPainter, TakesMapsOfAnyMagnitude) {
    for (const double scale : {1e-8, 1.0, 1e8}) {
        Grid grid({.Columns = 3, .Rows = 2, .XMin = -scale, .XMax = scale, .YMin = 5 * scale, .YMax = 6 * scale});
        for (std::size_t i = 0; i < grid.Z.size(); ++i) grid.Z[i] = static_cast<double>(i) * scale;
        for (const MapView kind : {MapView::Relief, MapView::Contours, MapView::Image}) {
            const Paper paper(grid, {.Kind = kind, .ScaleBar = true, .ColourBar = true}, {500, 300},
                              "map-paper-magnitude");
            EXPECT_GT(paper.Frame.width(), 100) << scale;
            for (const QRectF& edge : {QRectF(0, 0, 2, 300), QRectF(498, 0, 2, 300)}) {
                EXPECT_EQ(paper.InkOutside(edge), 0) << "cut off at " << scale;
            }
        }
    }
}

TEST(MapPainter, TakesGridsWithoutHeights) {
    const Grid blank({.Columns = 4, .Rows = 4, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    Grid level = blank;
    std::fill(level.Z.begin(), level.Z.end(), 3.0);
    for (const MapView kind : {MapView::Relief, MapView::Image, MapView::Contours}) {
        const MapPicture picture{.Kind = kind, .ScaleBar = true, .ColourBar = true};
        EXPECT_EQ(Paper(blank, picture, {300, 300}, "map-paper-blank").At(0.5, 0.5), QColor(Qt::white));
        EXPECT_GT(Paper(level, picture, {300, 300}, "map-paper-level").Frame.width(), 100);
    }
}

TEST(MapImages, ShowTheSamePlaceAtEveryZoom) {
    const Grid grid = CrownGrid(800, 600);
    const HeightRange range = Heights(grid);
    const MapImage image = HeightImage(grid, range, MapPalette::Grey);
    const PaletteTable& table = PaletteColours(MapPalette::Grey);
    constexpr int column = 300, row = 410;
    for (const double zoom : {5.0, 40.0, 600.0, 20000.0, 1e7}) {
        QImage paper(200, 200, QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter painter(&paper);
        const MapTransform transform{.Origin = {100.5, 100.5},
                                     .X0 = grid.Shape.X(column),
                                     .Y0 = grid.Shape.Y(row),
                                     .ScaleX = zoom,
                                     .ScaleY = zoom};
        image.Paint(painter, transform, QRectF(paper.rect()));
        painter.end();
        const MapColour wanted = HeightColour(table, range, grid.At(column, row));
        EXPECT_NEAR(paper.pixelColor(100, 100).red(), wanted.Red, zoom < 20 ? 12 : 4) << zoom;
    }
}

}  // namespace
}  // namespace crownlab
