#include "desktop/plot_layers.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/plot_surface_painter.h"
#include "desktop/plot_surface_view.h"
#include "mapengine/contour_lines.h"
#include "mapengine/height_colours.h"
#include "mapengine/map_height.h"
#include "mapengine/plot_document.h"
#include "mapengine/progress.h"
#include "mapengine/relief_shading.h"

namespace crownlab {
namespace {

constexpr int kMostLevels = 20;
constexpr double kContourWidth = 0.5;  // points
/// Lines thinner than this fade away on a screen.
constexpr double kThinnestLine = 0.7;  // pixels

QRgb Rgb(const MapColour& colour) { return qRgb(colour.Red, colour.Green, colour.Blue); }

const PaletteTable& Palette(const PlotMap& map) {
    return PaletteColours(map.Kind == MapKind::Relief ? MapPalette::Ivory : MapPalette::Viridis);
}

/// The middle of the step between two contour lines in which a height lies.
double MiddleOfStep(const std::vector<double>& levels, const HeightRange& range, double z) {
    const auto above = std::upper_bound(levels.begin(), levels.end(), z);
    const double low = above == levels.begin() ? range.Low : *(above - 1);
    const double high = above == levels.end() ? range.High : *above;
    return std::midpoint(low, high);
}

/// A picture with one pixel a node, row 0 of the picture being the grid's last row.
template <typename ColourOf>
QImage NodePicture(const Grid& grid, const ColourOf& colourOf) {
    QImage picture(grid.Shape.Columns, grid.Shape.Rows, QImage::Format_ARGB32_Premultiplied);
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(grid.Shape.Rows - 1 - row));
        for (int column = 0; column < grid.Shape.Columns; ++column) line[column] = colourOf(grid.Index(column, row));
    }
    return picture;
}

QImage ReliefPicture(const PlotMap& map) {
    const Grid& grid = *map.Nodes;
    const std::vector<std::uint8_t> shades = ShadeRelief(
        grid, {.AzimuthDegrees = map.Layer.HLightAngle, .AltitudeDegrees = map.Layer.VLightAngle, .HeightFactor = 1});
    const PaletteTable& colours = Palette(map);
    return NodePicture(grid, [&](std::size_t node) { return shades[node] == 0 ? 0U : Rgb(colours[shades[node]]); });
}

QImage HeightPicture(const PlotMap& map) {
    const Grid& grid = *map.Nodes;
    return NodePicture(grid, [&](std::size_t node) {
        return IsBlank(grid.Z[node]) ? 0U : Rgb(HeightColour(Palette(map), map.Heights, grid.Z[node]));
    });
}

/// Steps of colour whose borders are the contour lines themselves.
QImage StepPicture(const PlotMap& map, QSize pixels) {
    const std::vector<double> levels = ContourLevels(map.Heights, kMostLevels);
    const GridGeometry& shape = map.Shape;
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    Progress progress;
    constexpr int rowsAtOnce = 16;
    uchar* const bits = picture.bits();
    ForEachBlock(pixels.height(), rowsAtOnce, progress, [&](std::int64_t first, std::int64_t last) {
        for (std::int64_t y = first; y < last; ++y) {
            auto* const line = reinterpret_cast<QRgb*>(bits + y * picture.bytesPerLine());
            const double north = std::lerp(shape.YMax, shape.YMin, (static_cast<double>(y) + 0.5) / pixels.height());
            for (int x = 0; x < pixels.width(); ++x) {
                const double east = std::lerp(shape.XMin, shape.XMax, (x + 0.5) / pixels.width());
                const double z = MapHeight(*map.Nodes, east, north);
                line[x] = IsBlank(z) ? 0U
                                     : Rgb(HeightColour(Palette(map), map.Heights,
                                                        MiddleOfStep(levels, map.Heights, z)));
            }
        }
    });
    return picture;
}

QImage Clear(QSize pixels) {
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

/// Where the pixels of a node picture come to lie so that their middles are the nodes: half a spacing beyond the nodes
/// on each side. What reaches beyond the map's limits is cut off.
QRectF NodeRectangle(const PlotMap& map, QSize pixels) {
    const GridGeometry& nodes = map.Nodes->Shape;
    const double perX = pixels.width() / (map.Shape.XMax - map.Shape.XMin);
    const double perY = pixels.height() / (map.Shape.YMax - map.Shape.YMin);
    const double left = (nodes.XMin - nodes.SpacingX() / 2 - map.Shape.XMin) * perX;
    const double top = (map.Shape.YMax - nodes.YMax - nodes.SpacingY() / 2) * perY;
    return {left, top, nodes.Columns * nodes.SpacingX() * perX, nodes.Rows * nodes.SpacingY() * perY};
}

QImage Fitted(const PlotMap& map, const QImage& nodes, QSize pixels) {
    QImage picture = Clear(pixels);
    const QRectF target = NodeRectangle(map, pixels);
    const QSize size = target.size().toSize().expandedTo({1, 1});
    // A painter leaves pixels out where it makes a picture much smaller; scaling takes the mean of all.
    const bool smaller = size.width() < nodes.width() && size.height() < nodes.height();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target,
                      smaller ? nodes.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation) : nodes);
    return picture;
}

QImage SurfacePicture(const PlotMap& map, QSize pixels) {
    // Twice as large first: edges come out smooth, and no gaps show between the quads.
    constexpr int finer = 2;
    QImage picture = Clear(pixels * finer);
    QPainter painter(&picture);
    const QRectF frame(QPointF(0, 0), QSizeF(picture.size()));
    const int longer = std::max(pixels.width(), pixels.height());
    constexpr int coarsest = 20;
    constexpr int finest = 500;
    constexpr int pixelsPerMeshLine = 12;
    constexpr int mostMeshLines = 40;
    DrawSurface(painter, map, ViewOf(map, frame), Palette(map),
                {.MostCells = std::clamp(longer / 2, coarsest, finest),
                 .MeshLines = std::min(longer / pixelsPerMeshLine, mostMeshLines)});
    painter.end();
    return picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

QRgb LayerColour(const PlotMap& map, double z) {
    if (map.Kind == MapKind::Contour) z = MiddleOfStep(ContourLevels(map.Heights, kMostLevels), map.Heights, z);
    return Rgb(HeightColour(Palette(map), map.Heights, z));
}

QImage LayerPicture(const PlotMap& map, QSize pixels) {
    switch (map.Kind) {
        case MapKind::Relief: return Fitted(map, ReliefPicture(map), pixels);
        case MapKind::Image: return Fitted(map, HeightPicture(map), pixels);
        case MapKind::Surface: return SurfacePicture(map, pixels);
        case MapKind::Contour: return map.Layer.ShowColorScale ? StepPicture(map, pixels) : Clear(pixels);
    }
    return Clear(pixels);
}

void DrawContours(QPainter& painter, const PlotMap& map, const QRectF& frame) {
    if (map.Kind != MapKind::Contour) return;
    const GridGeometry& shape = map.Shape;
    const auto place = [&](const PlanePoint& point) {
        return QPointF(frame.left() + (point.x - shape.XMin) / (shape.XMax - shape.XMin) * frame.width(),
                       frame.bottom() - (point.y - shape.YMin) / (shape.YMax - shape.YMin) * frame.height());
    };
    QPen pen(Qt::black, std::max(kContourWidth, kThinnestLine / painter.worldTransform().m11()));
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    for (const ContourLine& line : TraceContours(*map.Nodes, ContourLevels(map.Heights, kMostLevels))) {
        QPolygonF points;
        for (const PlanePoint& point : line.Points) points.append(place(point));
        if (line.Closed) points.append(points.front());
        painter.drawPolyline(points);
    }
}

}  // namespace crownlab
