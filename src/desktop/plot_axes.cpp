#include "desktop/plot_axes.h"

#include <QLineF>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>

#include "basis/text.h"
#include "desktop/plot_page.h"
#include "desktop/plot_surface_view.h"
#include "desktop/shown_text.h"
#include "mapengine/axis_ticks.h"
#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

constexpr double kTickLength = 3;  // points, as all lengths here
constexpr double kTextGap = 1;
constexpr double kLineWidth = 0.6;
/// Marks stand at least this far apart.
constexpr double kTickDistance = 40;
constexpr int kMostTicks = 12;
constexpr double kHeightTickDistance = 20;

enum TickType { kTicksOutside = 2, kTicksInside = 3, kTicksAcross = 4 };

/// An axis on the drawing.
struct AxisLine {
    const MapAxis& Axis;
    QPointF From;
    QPointF To;
    double Low;       ///< number at From
    double High;      ///< and at To
    QPointF Outward;  ///< of length 1, away from the map
};

bool HasLine(const MapAxis& axis) { return !EqualNoCase(axis.LineStyle, "Invisible"); }
bool HasTicks(const MapAxis& axis) { return axis.MajorTickType >= kTicksOutside && axis.MajorTickType <= kTicksAcross; }
bool TicksPointOut(const MapAxis& axis) { return HasTicks(axis) && axis.MajorTickType != kTicksInside; }

AxisTicks TicksOf(const AxisLine& line, double apart) {
    const double length = QLineF(line.From, line.To).length();
    return TicksBetween(line.Low, line.High, std::clamp(static_cast<int>(length / apart), 2, kMostTicks));
}

void DrawTick(QPainter& painter, const AxisLine& line, QPointF at) {
    const QPointF out = TicksPointOut(line.Axis) ? kTickLength * line.Outward : QPointF(0, 0);
    const QPointF in = line.Axis.MajorTickType == kTicksOutside ? QPointF(0, 0) : -kTickLength * line.Outward;
    painter.drawLine(at + out, at + in);
}

/// The rectangle of a number that stands outward of `at`.
QRectF NumberBox(const AxisLine& line, QPointF at, const QString& text) {
    const QSizeF size = TextSize(AxisFont(), text);
    const double away = kTextGap + (TicksPointOut(line.Axis) ? kTickLength : 0);
    const QPointF half(size.width() / 2, size.height() / 2);
    const QPointF centre = at + away * line.Outward + QPointF(line.Outward.x() * half.x(), line.Outward.y() * half.y());
    return {centre - half, size};
}

void DrawAxis(QPainter& painter, const AxisLine& line, double apart) {
    painter.setPen(QPen(Qt::black, kLineWidth, Qt::SolidLine, Qt::SquareCap));
    painter.setFont(AxisFont());
    if (HasLine(line.Axis)) painter.drawLine(line.From, line.To);
    const AxisTicks ticks = TicksOf(line, apart);
    for (const double value : ticks.At) {
        const QPointF at = line.From + (value - line.Low) / (line.High - line.Low) * (line.To - line.From);
        if (HasTicks(line.Axis)) DrawTick(painter, line, at);
        if (!line.Axis.ShowLabels) continue;
        const QString text = ShownText(TickText(ticks, value));
        painter.drawText(NumberBox(line, at, text), Qt::AlignCenter | Qt::TextDontClip, text);
    }
}

std::array<AxisLine, 4> FlatAxes(const PlotMap& map, const QRectF& frame) {
    const GridGeometry& shape = map.Shape;
    return {{{map.Axes[0], frame.bottomLeft(), frame.bottomRight(), shape.XMin, shape.XMax, {0, 1}},
             {map.Axes[1], frame.topLeft(), frame.topRight(), shape.XMin, shape.XMax, {0, -1}},
             {map.Axes[2], frame.bottomLeft(), frame.topLeft(), shape.YMin, shape.YMax, {-1, 0}},
             {map.Axes[3], frame.bottomRight(), frame.topRight(), shape.YMin, shape.YMax, {1, 0}}}};
}

/// Across the line, away from `inside`.
QPointF AwayFrom(QPointF inside, QPointF from, QPointF to) {
    const QPointF along = to - from;
    const double length = std::hypot(along.x(), along.y());
    if (!(length > 0)) return {0, 1};
    const QPointF across(-along.y() / length, along.x() / length);
    const QPointF out = (from + to) / 2 - inside;
    return QPointF::dotProduct(across, out) < 0 ? -across : across;
}

/// Two ends of a side of the floor, as shares of the box.
struct FloorSide {
    QPointF From;
    QPointF To;
};
constexpr int kFloorSides = 4;

FloorSide SideOf(int axis) {
    switch (axis) {
        case 0: return {{0, 0}, {1, 0}};
        case 1: return {{0, 1}, {1, 1}};
        case 2: return {{0, 0}, {0, 1}};
        default: return {{1, 0}, {1, 1}};
    }
}

/// An axis of the floor as it is drawn: of two opposite sides, numbers stand at the one that is in front.
MapAxis FloorAxis(const PlotMap& map, const SurfaceView& view, int axis) {
    const int opposite = axis ^ 1;
    MapAxis drawn = map.Axes[static_cast<std::size_t>(axis)];
    if (view.IsInFront(axis + 1) == view.IsInFront(opposite + 1)) return drawn;
    const bool either = drawn.ShowLabels || map.Axes[static_cast<std::size_t>(opposite)].ShowLabels;
    drawn.ShowLabels = either && view.IsInFront(axis + 1);
    return drawn;
}

void DrawFloorAxis(QPainter& painter, const PlotMap& map, const SurfaceView& view, int axis) {
    const FloorSide side = SideOf(axis);
    const QPointF from = view.Place(side.From.x(), side.From.y(), 0);
    const QPointF to = view.Place(side.To.x(), side.To.y(), 0);
    const bool alongX = axis < 2;
    const GridGeometry& shape = map.Shape;
    const MapAxis drawn = FloorAxis(map, view, axis);
    DrawAxis(painter,
             {drawn, from, to, alongX ? shape.XMin : shape.YMin, alongX ? shape.XMax : shape.YMax,
              AwayFrom(view.Place(0.5, 0.5, 0), from, to)},
             kTickDistance);
}

QPointF LeftmostCorner(const SurfaceView& view) {
    QPointF best(0, 0);
    for (const QPointF corner : {QPointF(1, 0), QPointF(0, 1), QPointF(1, 1)}) {
        const double left = view.Place(corner.x(), corner.y(), 0).x();
        // Of corners above one another, as seen from the side, the first one counts.
        if (left < view.Place(best.x(), best.y(), 0).x() - kTextGap) best = corner;
    }
    return best;
}

void DrawHeightAxis(QPainter& painter, const PlotMap& map, const SurfaceView& view) {
    const QPointF corner = LeftmostCorner(view);
    const QPointF from = view.Place(corner.x(), corner.y(), 0);
    const QPointF to = view.Place(corner.x(), corner.y(), 1);
    // Seen from above it is a point.
    if (QLineF(from, to).length() < kTickLength || IsBlank(map.Heights.Low)) return;
    DrawAxis(painter, {map.Axes[4], from, to, map.Heights.Low, map.Heights.High, {-1, 0}}, kHeightTickDistance);
}

}  // namespace

void DrawAxes(QPainter& painter, const PlotMap& map, const QRectF& frame) {
    for (const AxisLine& line : FlatAxes(map, frame)) DrawAxis(painter, line, kTickDistance);
}

void DrawSurfaceAxes(QPainter& painter, const PlotMap& map, const SurfaceView& view, AxisSide side) {
    for (int axis = 0; axis < kFloorSides; ++axis) {
        if (view.IsInFront(axis + 1) == (side == AxisSide::Before)) DrawFloorAxis(painter, map, view, axis);
    }
    if (side == AxisSide::Behind) DrawHeightAxis(painter, map, view);
}

QRectF AxesExtent(const PlotMap& map, const QRectF& frame) {
    QRectF extent = frame;
    for (const AxisLine& line : FlatAxes(map, frame)) {
        const AxisTicks ticks = TicksOf(line, kTickDistance);
        for (const double value : ticks.At) {
            const QPointF at = line.From + (value - line.Low) / (line.High - line.Low) * (line.To - line.From);
            if (TicksPointOut(line.Axis)) extent |= QRectF(at, at + kTickLength * line.Outward).normalized();
            if (line.Axis.ShowLabels) extent |= NumberBox(line, at, ShownText(TickText(ticks, value)));
        }
    }
    return extent;
}

}  // namespace crownlab
