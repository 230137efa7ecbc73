// Contours, axes, scale bar and colour bar of a painted map.
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <functional>

#include "basis/number_text.h"
#include "desktop/map_painter.h"
#include "desktop/shown_text.h"
#include "mapengine/axis_ticks.h"

namespace crownlab {
namespace {

constexpr double kTickLength = 5;  // thin lines
constexpr double kTextGap = 3;
constexpr double kContourWidth = 0.9;
constexpr double kStrongContourWidth = 1.8;

QString TextOf(const AxisTicks& ticks, double at) { return ShownText(TickText(ticks, at)); }

double WidestText(const QFontMetricsF& metrics, const AxisTicks& ticks) {
    double widest = 0;
    for (const double at : ticks.At) widest = std::max(widest, metrics.horizontalAdvance(TextOf(ticks, at)));
    return widest;
}

/// Marks whose numbers stand beside one another with room between, along `length`.
AxisTicks TicksAcross(const QFontMetricsF& metrics, double low, double high, double length) {
    const double digit = metrics.horizontalAdvance(QLatin1Char('0'));
    for (int most = std::clamp(static_cast<int>(length / (6 * digit)), 2, 20); most > 2; --most) {
        AxisTicks ticks = TicksBetween(low, high, most);
        const double apart = ticks.Step.Value() / (high - low) * length;
        if (WidestText(metrics, ticks) + 2 * digit <= apart) return ticks;
    }
    return TicksBetween(low, high, 2);
}

/// Marks whose numbers stand above one another.
AxisTicks TicksUp(const QFontMetricsF& metrics, double low, double high, double length) {
    return TicksBetween(low, high, std::clamp(static_cast<int>(length / (2.2 * metrics.height())), 2, 20));
}

QPen Ink(const QColor& colour, double width) { return {colour, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin}; }

QPolygonF Polyline(const MapTransform& transform, const ContourLine& line) {
    QPolygonF polyline;
    polyline.reserve(static_cast<qsizetype>(line.Points.size()) + 1);
    for (const PlanePoint& point : line.Points) polyline.append(transform.ToView(point));
    if (line.Closed) polyline.append(polyline.front());
    return polyline;
}

/// True for the levels that are drawn stronger: whole multiples of five steps.
bool IsStrong(double level, double step) {
    const double fives = level / (5 * step);
    return std::abs(fives - std::round(fives)) < 1e-6;
}

/// The number of a level with as many decimals as the step between levels has.
QString LevelText(double level, double step) {
    constexpr int mostDecimals = 9;
    for (int decimals = 0; decimals <= mostDecimals; ++decimals) {
        const double scaled = step * std::pow(10.0, decimals);
        if (std::abs(scaled - std::round(scaled)) > 1e-6 * std::abs(scaled)) continue;
        return std::abs(level) < 1e9 ? QString::number(level, 'f', decimals) : ShownText(GeneralText(level));
    }
    return ShownText(GeneralText(level));
}

/// A number on a line: where, and how it is turned (degrees, never upside down).
struct NumberPlace {
    QPointF At;
    double Turn = 0;
};

/// The straightest run of a line that a number of that width fits on. False if there is none inside `clip`.
bool FindNumberPlace(const QPolygonF& line, double width, const QRectF& clip, NumberPlace& place) {
    constexpr double straightest = 0.9;  // chord over length
    double best = straightest;
    bool found = false;
    qsizetype last = 0;
    double length = 0;
    for (qsizetype first = 0; first < line.size(); ++first) {
        while (last + 1 < line.size() && length < width) {
            ++last;
            length += std::hypot(line[last].x() - line[last - 1].x(), line[last].y() - line[last - 1].y());
        }
        if (length < width) break;
        const QPointF chord = line[last] - line[first];
        const QPointF middle = (line[last] + line[first]) / 2;
        const double straight = std::hypot(chord.x(), chord.y()) / length;
        if (straight > best && clip.contains(line[first]) && clip.contains(line[last])) {
            best = straight + 0.01;  // the first of many alike
            double turn = std::atan2(chord.y(), chord.x()) * 180 / M_PI;
            if (turn > 90) turn -= 180;
            if (turn <= -90) turn += 180;
            place = {middle, turn};
            found = true;
        }
        if (last > first)
            length -= std::hypot(line[first + 1].x() - line[first].x(), line[first + 1].y() - line[first].y());
    }
    return found;
}

void PaintNumber(QPainter& painter, const NumberPlace& place, const QString& text, const ContourStyle& style,
                 double unit) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    QPainterPath letters;
    letters.addText(-metrics.horizontalAdvance(text) / 2, (metrics.ascent() - metrics.descent()) / 2, painter.font(),
                    text);
    painter.save();
    painter.translate(place.At);
    painter.rotate(place.Turn);
    painter.strokePath(letters, QPen(style.Halo, 4 * unit, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(letters, style.Line);
    painter.restore();
}

}  // namespace

void PaintContours(QPainter& painter, const MapTransform& transform, const QRectF& clip,
                   const std::vector<ContourLine>& lines, const std::vector<double>& levels, const ContourStyle& style,
                   double unit) {
    if (lines.empty()) return;
    const double step = levels.size() > 1 ? levels[1] - levels[0] : 1;
    painter.save();
    painter.setClipRect(clip, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * 0.85);
    painter.setFont(font);
    const QFontMetricsF metrics(font, painter.device());
    std::vector<std::pair<NumberPlace, QString>> places;
    for (const ContourLine& line : lines) {
        const QPolygonF polyline = Polyline(transform, line);
        if (!polyline.boundingRect().adjusted(-1, -1, 1, 1).intersects(clip)) continue;
        const bool strong = IsStrong(line.Level, step);
        painter.setPen(QPen(style.Line, (strong ? kStrongContourWidth : kContourWidth) * unit, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(polyline);
        if (!style.Numbers) continue;
        const QString text = LevelText(line.Level, step);
        NumberPlace place;
        const double width = metrics.horizontalAdvance(text);
        if (FindNumberPlace(polyline, 1.6 * width, clip, place)) places.emplace_back(place, text);
    }
    for (const auto& [place, text] : places) PaintNumber(painter, place, text, style, unit);
    painter.restore();
}

QMarginsF AxesMargins(const QFontMetricsF& metrics, const GridGeometry& shape, double unit) {
    // How many numbers there will be depends on the frame: room for those of few and of many.
    const auto widest = [&metrics](double low, double high) {
        return std::max(WidestText(metrics, TicksBetween(low, high, 6)),
                        WidestText(metrics, TicksBetween(low, high, 20)));
    };
    const double gap = (kTickLength + kTextGap) * unit;
    const double up = widest(shape.YMin, shape.YMax);
    // The outermost numbers of the x axis reach half beyond the frame.
    const double half = widest(shape.XMin, shape.XMax) / 2;
    return {std::max(up + gap + kTextGap * unit, half), metrics.height() / 2, half + unit, metrics.height() + gap};
}

void PaintAxes(QPainter& painter, const MapTransform& transform, const QRectF& frame, const QColor& ink, double unit) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const PlanePoint low = transform.ToMap(frame.bottomLeft()), high = transform.ToMap(frame.topRight());
    const double tick = kTickLength * unit, gap = kTextGap * unit;
    painter.save();
    painter.setPen(Ink(ink, unit));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
    const AxisTicks across = TicksAcross(metrics, low.x, high.x, frame.width());
    for (const double at : across.At) {
        const QPointF foot(transform.ToView(at, 0).x(), frame.bottom());
        painter.drawLine(foot, foot + QPointF(0, tick));
        const QString text = TextOf(across, at);
        painter.drawText(foot + QPointF(-metrics.horizontalAdvance(text) / 2, tick + gap + metrics.ascent()), text);
    }
    const AxisTicks up = TicksUp(metrics, low.y, high.y, frame.height());
    for (const double at : up.At) {
        const QPointF foot(frame.left(), transform.ToView(0, at).y());
        painter.drawLine(foot, foot - QPointF(tick, 0));
        const QString text = TextOf(up, at);
        painter.drawText(
            foot + QPointF(-tick - gap - metrics.horizontalAdvance(text), (metrics.ascent() - metrics.descent()) / 2),
            text);
    }
    painter.restore();
}

QRectF PaintScaleBar(QPainter& painter, const MapTransform& transform, QPointF rightEnd, double most, const QColor& ink,
                     double unit) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    if (!(most > 0) || !std::isfinite(most / transform.ScaleX)) return {};
    const double units = RoundNumberUpTo(most / transform.ScaleX).Value();
    const double length = units * transform.ScaleX;
    const QString text = ShownText(GeneralText(units));
    const double half = kTickLength * unit;
    painter.save();
    painter.setPen(Ink(ink, 2 * unit));
    const QPointF leftEnd = rightEnd - QPointF(length, 0);
    painter.drawPolyline(QPolygonF{leftEnd - QPointF(0, half), leftEnd, rightEnd, rightEnd - QPointF(0, half)});
    const double textWidth = metrics.horizontalAdvance(text);
    const QPointF middle((leftEnd.x() + rightEnd.x()) / 2 - textWidth / 2,
                         rightEnd.y() - kTextGap * unit - metrics.descent());
    painter.drawText(middle, text);
    painter.restore();
    const double width = std::max(length, textWidth);
    const double height = metrics.height() + kTextGap * unit;
    return QRectF((leftEnd.x() + rightEnd.x() - width) / 2, rightEnd.y() - height, width, height)
        .adjusted(-unit, 0, unit, unit);
}

void PaintColourBar(QPainter& painter, const QRectF& bar, const HeightRange& range, MapPalette palette,
                    const QColor& ink, double unit) {
    const QFontMetricsF metrics(painter.font(), painter.device());
    const PaletteTable& colours = PaletteColours(palette);
    painter.save();
    QImage strip(1, static_cast<int>(colours.size()), QImage::Format_RGB32);
    for (int i = 0; i < strip.height(); ++i) {
        const MapColour& colour = colours[colours.size() - 1 - static_cast<std::size_t>(i)];
        strip.setPixel(0, i, qRgb(colour.Red, colour.Green, colour.Blue));
    }
    painter.drawImage(bar, strip);
    painter.setPen(Ink(ink, unit));
    painter.drawRect(bar);
    const AxisTicks ticks = TicksUp(metrics, range.Low, range.High, bar.height());
    for (const double at : ticks.At) {
        const double y = bar.bottom() - (at - range.Low) / (range.High - range.Low) * bar.height();
        painter.drawLine(QPointF(bar.right(), y), QPointF(bar.right() + kTickLength * unit, y));
        painter.drawText(
            QPointF(bar.right() + (kTickLength + kTextGap) * unit, y + (metrics.ascent() - metrics.descent()) / 2),
            TextOf(ticks, at));
    }
    painter.restore();
}

double ColourBarNumbersWidth(const QFontMetricsF& metrics, const QRectF& bar, const HeightRange& range, double unit) {
    return (kTickLength + kTextGap) * unit + WidestText(metrics, TicksUp(metrics, range.Low, range.High, bar.height()));
}

}  // namespace crownlab
