#include "desktop/plot_layers.h"

#include <QPainter>
#include <algorithm>
#include <cmath>
#include <vector>

#include "desktop/map_painter.h"
#include "desktop/plot_page.h"
#include "desktop/plot_surface_painter.h"
#include "desktop/plot_surface_view.h"
#include "mapengine/contour_lines.h"
#include "mapengine/plot_document.h"
#include "mapengine/relief_shading.h"

namespace crownlab {
namespace {

constexpr int kMostLevels = 15;
/// Width of a thin line on paper, and the least on a screen, where thinner ones fade away.
constexpr double kLineWidth = 0.5;      // points
constexpr double kThinnestLine = 0.75;  // pixels

MapTransform TransformOf(const PlotMap& map, const QRectF& frame) {
    return {.Origin = frame.bottomLeft(),
            .X0 = map.Shape.XMin,
            .Y0 = map.Shape.YMin,
            .ScaleX = frame.width() / (map.Shape.XMax - map.Shape.XMin),
            .ScaleY = frame.height() / (map.Shape.YMax - map.Shape.YMin)};
}

MapImage NodeImage(const PlotMap& map) {
    if (map.Kind != MapKind::Relief) return HeightImage(*map.Nodes, map.Heights, PaletteOf(map));
    // The softness by which the map windows show a relief: its shade isn't black.
    ReliefLight light = kMapLight;
    light.AzimuthDegrees = map.Layer.HLightAngle;
    light.AltitudeDegrees = map.Layer.VLightAngle;
    return ReliefImage(*map.Nodes, light, PaletteOf(map));
}

QImage ClearPicture(QSize pixels) {
    QImage picture(pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

QImage FlatPicture(const PlotMap& map, QSize pixels) {
    QImage picture = ClearPicture(pixels);
    const QRectF frame(picture.rect());
    QPainter painter(&picture);
    NodeImage(map).Paint(painter, TransformOf(map, frame), frame);
    return picture;
}

QImage SurfacePicture(const PlotMap& map, QSize pixels) {
    // Twice as large first: edges come out smooth, and no gaps show between the quads.
    constexpr int finer = 2;
    constexpr int coarsest = 20;
    constexpr int finest = 500;
    constexpr int pixelsPerMeshLine = 12;
    constexpr int mostMeshLines = 40;
    constexpr double meshLineShare = 1.0 / 900;
    QImage picture = ClearPicture(pixels * finer);
    const int longer = std::max(pixels.width(), pixels.height());
    QPainter painter(&picture);
    DrawSurface(painter, map, ViewOf(map, QRectF(picture.rect())), PaletteColours(PaletteOf(map)),
                {.MostCells = std::clamp(longer / 2, coarsest, finest),
                 .MeshLines = std::min(longer / pixelsPerMeshLine, mostMeshLines),
                 .MeshWidth = std::max(1.0, finer * longer * meshLineShare)});
    painter.end();
    return picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

MapPalette PaletteOf(const PlotMap& map) {
    return map.Kind == MapKind::Relief ? MapPalette::Ivory : MapPalette::Viridis;
}

bool HasPicture(const PlotMap& map) { return map.Kind != MapKind::Contour || map.Layer.ShowColorScale; }

QImage LayerPicture(const PlotMap& map, QSize pixels) {
    if (!HasPicture(map)) return ClearPicture(pixels);
    return map.Kind == MapKind::Surface ? SurfacePicture(map, pixels) : FlatPicture(map, pixels);
}

void DrawContours(QPainter& painter, const PlotMap& map, const QRectF& frame) {
    if (map.Kind != MapKind::Contour) return;
    const std::vector<double> levels = ContourLevels(map.Heights, kMostLevels);
    painter.save();
    painter.setFont(AxisFont());
    const double unit = std::max(kLineWidth, kThinnestLine / painter.deviceTransform().m11());
    PaintContours(painter, TransformOf(map, frame), frame, TraceContours(*map.Nodes, levels), levels, {}, unit);
    painter.restore();
}

}  // namespace crownlab
