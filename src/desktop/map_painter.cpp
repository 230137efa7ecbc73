// The transform, the picture of a grid, and a whole map put together. Lines and numbers: map_painter_lines.cpp.
#include "desktop/map_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace crownlab {
namespace {

QRgb Opaque(const MapColour& colour) { return qRgb(colour.Red, colour.Green, colour.Blue); }

/// A picture of the nodes whose pixels `pixel` gives by the index of the node.
template <typename PixelOf>
MapImage MakeImage(const Grid& grid, const PixelOf& pixel) {
    const GridGeometry& shape = grid.Shape;
    QImage image(shape.Columns, shape.Rows, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < shape.Rows; ++row) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(shape.Rows - 1 - row));
        const std::size_t first = grid.Index(0, row);
        for (int column = 0; column < shape.Columns; ++column) {
            line[column] = pixel(first + static_cast<std::size_t>(column));
        }
    }
    return {std::move(image), shape};
}

}  // namespace

MapTransform FitMap(const GridGeometry& shape, const QRectF& area) {
    const double width = shape.XMax - shape.XMin, height = shape.YMax - shape.YMin;
    const double scale = std::max(1e-300, std::min(area.width() / width, area.height() / height));
    return {.Origin = area.center(),
            .X0 = shape.XMin + width / 2,
            .Y0 = shape.YMin + height / 2,
            .ScaleX = scale,
            .ScaleY = scale};
}

QRectF MapRect(const MapTransform& transform, const GridGeometry& shape) {
    return {transform.ToView(shape.XMin, shape.YMax), transform.ToView(shape.XMax, shape.YMin)};
}

MapImage::MapImage(QImage nodes, const GridGeometry& shape) : shape_(shape), levels_{std::move(nodes)} {
    constexpr int smallest = 64;  // pixels: below this nothing is gained
    while (std::max(levels_.back().width(), levels_.back().height()) > smallest) {
        const QImage& last = levels_.back();
        levels_.push_back(last.scaled((last.width() + 1) / 2, (last.height() + 1) / 2, Qt::IgnoreAspectRatio,
                                      Qt::SmoothTransformation));
    }
}

void MapImage::Paint(QPainter& painter, const MapTransform& transform, const QRectF& clip) const {
    const QRectF limits = MapRect(transform, shape_);
    const QRectF seen = limits & clip;
    if (IsNull() || seen.isEmpty()) return;
    // Each node is the middle of its pixel, so the picture reaches half a pixel beyond the limits.
    const double nodeWidth = transform.ScaleX * shape_.SpacingX(), nodeHeight = transform.ScaleY * shape_.SpacingY();
    const QRectF whole = limits.adjusted(-nodeWidth / 2, -nodeHeight / 2, nodeWidth / 2, nodeHeight / 2);
    std::size_t level = 0;
    const double device = std::max(1e-9, std::abs(painter.deviceTransform().m11()));
    for (double size = nodeWidth * device; size < 0.6 && level + 1 < levels_.size(); size *= 2) ++level;
    const QImage& image = levels_[level];

    // Only the pixels that are seen, and two more on each side: far zoomed in the whole picture is far too large.
    const double pixelWidth = whole.width() / image.width(), pixelHeight = whole.height() / image.height();
    const QRect pixels =
        QRectF(QPointF((seen.left() - whole.left()) / pixelWidth, (seen.top() - whole.top()) / pixelHeight),
               QSizeF(seen.width() / pixelWidth, seen.height() / pixelHeight))
            .toAlignedRect()
            .adjusted(-2, -2, 2, 2) &
        image.rect();
    const QRectF target(whole.left() + pixels.left() * pixelWidth, whole.top() + pixels.top() * pixelHeight,
                        pixels.width() * pixelWidth, pixels.height() * pixelHeight);
    painter.save();
    painter.setClipRect(seen, Qt::IntersectClip);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, image, QRectF(pixels));
    painter.restore();
}

MapImage ReliefImage(const Grid& grid, const ReliefLight& light, MapPalette palette) {
    const std::vector<std::uint8_t> shades = ShadeRelief(grid, light);
    const PaletteTable& colours = PaletteColours(palette);
    return MakeImage(grid, [&](std::size_t node) { return shades[node] == 0 ? 0 : Opaque(colours[shades[node]]); });
}

MapImage HeightImage(const Grid& grid, const HeightRange& range, MapPalette palette) {
    const PaletteTable& colours = PaletteColours(palette);
    return MakeImage(grid, [&](std::size_t node) {
        return IsBlank(grid.Z[node]) ? 0 : Opaque(HeightColour(colours, range, grid.Z[node]));
    });
}

QRectF PaintMap(QPainter& painter, const QRectF& area, const Grid& grid, const MapPicture& picture) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const HeightRange range = Heights(grid);
    const bool bar = picture.ColourBar && picture.Kind == MapView::Image && !IsBlank(range.Low);
    const double barWidth = metrics.height();
    QRectF room = area;
    if (picture.Axes) room = room.marginsRemoved(AxesMargins(metrics, grid.Shape, picture.Unit));
    if (picture.ScaleBar) room.setBottom(room.bottom() - 2 * metrics.height());
    const double numbers = ColourBarNumbersWidth(metrics, room, range, picture.Unit);
    if (bar) room.setRight(room.right() - 2 * barWidth - numbers);
    const MapTransform transform = FitMap(grid.Shape, room);
    const QRectF frame = MapRect(transform, grid.Shape);

    if (picture.Kind == MapView::Relief) ReliefImage(grid, picture.Light).Paint(painter, transform, frame);
    if (picture.Kind == MapView::Image) HeightImage(grid, range, picture.Palette).Paint(painter, transform, frame);
    if (picture.Kind == MapView::Contours) {
        constexpr int mostLevels = 15;
        const std::vector<double> levels = picture.Levels.empty() ? ContourLevels(range, mostLevels) : picture.Levels;
        PaintContours(painter, transform, frame, TraceContours(grid, levels), levels, {}, picture.Unit);
    }
    if (picture.Axes) PaintAxes(painter, transform, frame, picture.Ink, picture.Unit);
    if (picture.ScaleBar) {
        PaintScaleBar(painter, transform, {frame.right(), area.bottom() - 2 * picture.Unit}, frame.width() / 3,
                      picture.Ink, picture.Unit);
    }
    if (bar) {
        const QRectF colours(frame.right() + barWidth, frame.top(), barWidth, frame.height());
        PaintColourBar(painter, colours, range, picture.Palette, picture.Ink, picture.Unit);
    }
    return frame;
}

}  // namespace crownlab
