#include "desktop/map_icons.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>
#include <QRadialGradient>

namespace crownlab {
namespace {

// All are drawn on a field of 24 by 24.
const QColor kInk(60, 64, 72);
const QColor kAccent(196, 22, 60);

QPen Line(double width = 1.6, const QColor& colour = kInk) {
    return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void DrawRelief(QPainter& painter) {
    QRadialGradient light(QPointF(8, 8), 14);
    light.setColorAt(0, QColor(253, 248, 235));
    light.setColorAt(0.6, QColor(176, 148, 114));
    light.setColorAt(1, QColor(60, 45, 36));
    painter.setBrush(light);
    painter.drawEllipse(QPointF(12, 12), 8.5, 8.5);
}

void DrawImage(QPainter& painter) {
    QLinearGradient colours(QPointF(4, 20), QPointF(20, 4));
    colours.setColorAt(0, QColor(68, 1, 84));
    colours.setColorAt(0.5, QColor(33, 144, 141));
    colours.setColorAt(1, QColor(253, 231, 37));
    painter.setBrush(colours);
    painter.drawRect(QRectF(4, 5, 16, 14));
}

void DrawContours(QPainter& painter) {
    painter.drawEllipse(QPointF(12, 12.5), 9, 7.5);
    painter.drawEllipse(QPointF(11, 12), 6, 4.8);
    painter.drawEllipse(QPointF(10, 11.5), 2.6, 2);
}

void DrawSurface(QPainter& painter) {
    QPainterPath hill(QPointF(3, 17));
    hill.cubicTo(7, 16, 7, 5, 11, 5);
    hill.cubicTo(15, 5, 14, 14, 21, 12);
    hill.lineTo(21, 17);
    hill.lineTo(12, 21);
    hill.closeSubpath();
    painter.setBrush(QColor(205, 184, 150));
    painter.drawPath(hill);
    painter.drawLine(QPointF(12, 21), QPointF(12, 13));
}

void DrawHand(QPainter& painter) {
    // Arrows to all sides: the map is moved.
    painter.drawLine(QPointF(12, 4), QPointF(12, 20));
    painter.drawLine(QPointF(4, 12), QPointF(20, 12));
    for (int turn = 0; turn < 4; ++turn) {
        painter.drawPolyline(QPolygonF{QPointF(9, 7), QPointF(12, 3.5), QPointF(15, 7)});
        painter.translate(12, 12);
        painter.rotate(90);
        painter.translate(-12, -12);
    }
}

void DrawDigitise(QPainter& painter) {
    painter.drawPolyline(QPolygonF{QPointF(5, 18), QPointF(9, 7), QPointF(19, 10)});
    painter.setPen(Line(1.4, kAccent));
    painter.setBrush(Qt::white);
    for (const QPointF at : {QPointF(5, 18), QPointF(9, 7), QPointF(19, 10)}) painter.drawEllipse(at, 2.8, 2.8);
}

void DrawZoom(QPainter& painter, bool in) {
    painter.drawEllipse(QPointF(10.5, 10.5), 6.5, 6.5);
    painter.setPen(Line(2.4));
    painter.drawLine(QPointF(15.5, 15.5), QPointF(20.5, 20.5));
    painter.setPen(Line());
    painter.drawLine(QPointF(7.5, 10.5), QPointF(13.5, 10.5));
    if (in) painter.drawLine(QPointF(10.5, 7.5), QPointF(10.5, 13.5));
}

void DrawFit(QPainter& painter) {
    for (int turn = 0; turn < 4; ++turn) {
        painter.drawPolyline(QPolygonF{QPointF(4, 9), QPointF(4, 4), QPointF(9, 4)});
        painter.translate(12, 12);
        painter.rotate(90);
        painter.translate(-12, -12);
    }
    painter.setBrush(QColor(205, 184, 150));
    painter.drawEllipse(QPointF(12, 12), 4.5, 3.8);
}

void DrawOpen(QPainter& painter) {
    painter.setBrush(QColor(232, 210, 160));
    painter.drawPolygon(QPolygonF{QPointF(3, 19), QPointF(3, 6), QPointF(9, 6), QPointF(11, 8.5), QPointF(19, 8.5),
                                  QPointF(19, 11), QPointF(6.5, 11)});
    painter.drawPolygon(QPolygonF{QPointF(3, 19), QPointF(6.5, 11), QPointF(22, 11), QPointF(18.5, 19)});
}

void Draw(QPainter& painter, MapIcon which) {
    switch (which) {
        case MapIcon::Relief: return DrawRelief(painter);
        case MapIcon::Image: return DrawImage(painter);
        case MapIcon::Contours: return DrawContours(painter);
        case MapIcon::Surface: return DrawSurface(painter);
        case MapIcon::Hand: return DrawHand(painter);
        case MapIcon::Digitise: return DrawDigitise(painter);
        case MapIcon::ZoomIn: return DrawZoom(painter, true);
        case MapIcon::ZoomOut: return DrawZoom(painter, false);
        case MapIcon::Fit: return DrawFit(painter);
        case MapIcon::Open: return DrawOpen(painter);
    }
}

}  // namespace

QIcon MakeMapIcon(MapIcon which) {
    QIcon icon;
    for (const int size : {24, 48, 72}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 24.0, size / 24.0);
        painter.setPen(Line());
        Draw(painter, which);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace crownlab
