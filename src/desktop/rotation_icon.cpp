#include "desktop/rotation_icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <cmath>
#include <numbers>

namespace crownlab {
namespace {

/// Draws on a square of side 16 around its middle; the arrow ends where the arc ends.
void DrawArrow(QPainter& painter, int degrees, const QColor& colour) {
    constexpr double radius = 5.5;
    constexpr int start = 90;  // the top, in Qt's degrees counter-clockwise from the right
    const QRectF circle(-radius, -radius, 2 * radius, 2 * radius);
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::FlatCap));
    painter.drawArc(circle, start * 16, -degrees * 16);

    const double end = (start - degrees) * std::numbers::pi / 180;
    painter.translate(radius * std::cos(end), -radius * std::sin(end));
    painter.rotate(degrees > 0 ? degrees : degrees + 180);
    QPainterPath head;
    head.moveTo(3.6, 0);
    head.lineTo(-1.2, -3.2);
    head.lineTo(-1.2, 3.2);
    head.closeSubpath();
    painter.fillPath(head, colour);
}

QPixmap ArrowPixmap(int degrees, const QColor& colour, int side) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(side / 2.0, side / 2.0);
    painter.scale(side / 16.0, side / 16.0);
    DrawArrow(painter, degrees, colour);
    return pixmap;
}

}  // namespace

QIcon RotationIcon(int degrees, const QColor& colour) {
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64}) icon.addPixmap(ArrowPixmap(degrees, colour, side));
    return icon;
}

}  // namespace crownlab
