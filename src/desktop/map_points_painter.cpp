#include "desktop/map_points_painter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <array>

namespace crownlab {
namespace {

constexpr double kRadius = 4.5;
const QColor kSelected(255, 170, 0);

QColor ColourOfArea(std::size_t area) {
    static const std::array colours{QColor(196, 22, 60), QColor(18, 86, 190), QColor(14, 120, 60),
                                    QColor(128, 34, 160)};
    return colours[area % colours.size()];
}

QPen RoundPen(const QColor& colour, double width, Qt::PenStyle style = Qt::SolidLine) {
    return {colour, width, style, Qt::RoundCap, Qt::RoundJoin};
}

void PaintOutline(QPainter& painter, const QPolygonF& line, const QColor& colour) {
    painter.setBrush(Qt::NoBrush);
    for (const QPen& pen : {RoundPen(QColor(255, 255, 255, 170), 4), RoundPen(colour, 1.6)}) {
        painter.setPen(pen);
        painter.drawPolyline(line);
    }
    if (line.size() < 3) return;
    painter.setPen(RoundPen(colour, 1.2, Qt::DashLine));
    painter.drawLine(line.back(), line.front());
}

void PaintMark(QPainter& painter, QPointF at, const QString& number, const QColor& colour, bool selected) {
    painter.setPen(RoundPen(colour, 1.8));
    painter.setBrush(selected ? kSelected : QColor(Qt::white));
    const double radius = selected ? kRadius + 1.5 : kRadius;
    painter.drawEllipse(at, radius, radius);
    QPainterPath letters;
    letters.addText(at + QPointF(radius + 3, -radius), painter.font(), number);
    painter.strokePath(letters, RoundPen(QColor(255, 255, 255, 220), 3.5));
    painter.fillPath(letters, colour);
}

}  // namespace

QString PointNumber(const DigitisedAreas& areas, PointPlace place) {
    const QString number = QString::number(place.Index + 1);
    return areas.size() > 1 ? QStringLiteral("%1.%2").arg(place.Area + 1).arg(number) : number;
}

void PaintPoints(QPainter& painter, const MapTransform& transform, const QRectF& clip, const DigitisedAreas& areas,
                 std::optional<PointPlace> selected) {
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont bold = painter.font();
    bold.setBold(true);
    painter.setFont(bold);
    for (std::size_t area = 0; area < areas.size(); ++area) {
        QPolygonF line;
        for (const PlanePoint& point : areas[area]) line.append(transform.ToView(point));
        const QColor colour = ColourOfArea(area);
        PaintOutline(painter, line, colour);
        for (std::size_t index = 0; index < areas[area].size(); ++index) {
            const PointPlace place{area, index};
            PaintMark(painter, line[static_cast<qsizetype>(index)], PointNumber(areas, place), colour,
                      place == selected);
        }
    }
    painter.restore();
}

}  // namespace crownlab
