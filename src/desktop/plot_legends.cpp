#include "desktop/plot_legends.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdint>

#include "basis/number_text.h"
#include "desktop/map_painter.h"
#include "desktop/plot_layers.h"
#include "desktop/plot_page.h"
#include "desktop/shown_text.h"
#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

// Lengths in points. Bars begin below the numbers of the axes and the label that tools put below a map.
constexpr double kFirstBar = 33;
constexpr double kBarDistance = 26;
constexpr double kBarHeight = 6;
constexpr double kTextGap = 1;
/// A bar of more map widths than this is only told.
constexpr double kLongestBar = 3;
/// Cycles narrower than this run into one another, and are drawn as one grey bar.
constexpr double kNarrowestCycle = 0.5;

constexpr double kScaleAway = 24;
constexpr double kScaleWidth = 14;
constexpr double kLowestScale = 85;
constexpr double kScaleLine = 0.5;

/// A scale bar as it stands on the drawing.
struct BarPlace {
    QRectF Bar;
    double Cycle = 0;  ///< length of one, 0 where the bar is only told
    QString Told;
};

BarPlace PlaceBar(const PlotMap& map, const QRectF& frame, std::size_t index) {
    const ScaleBar& bar = map.ScaleBars[index];
    const double perUnit = frame.width() / (map.Shape.XMax - map.Shape.XMin);
    const double cycle = bar.CycleSpacing * perUnit;
    const double length = cycle * bar.NumCycles;
    const double top = frame.bottom() + kFirstBar + kBarDistance * static_cast<double>(index);
    if (std::isfinite(length) && length <= kLongestBar * frame.width()) {
        return {.Bar = {frame.center().x() - length / 2, top, length, kBarHeight}, .Cycle = cycle, .Told = {}};
    }
    const QString told = QStringLiteral("The scale bar, %1 cycles of %2, is too long to be drawn.")
                             .arg(bar.NumCycles)
                             .arg(ShownText(GeneralText(bar.CycleSpacing)));
    const QSizeF size = TextSize(AxisFont(), told);
    return {.Bar = {frame.center().x() - size.width() / 2, top, size.width(), size.height()}, .Told = told};
}

QString BarNumber(const ScaleBar& bar, std::int64_t cycle) {
    // Products of decimal fractions show their last binary place: 3 times 0.1 is meant to be 0.3.
    constexpr int digits = 12;
    return ShownText(
        GeneralText(QString::number(bar.LabelIncrement * static_cast<double>(cycle), 'g', digits).toDouble()));
}

/// Every how many cycles there is room for a number.
std::int64_t CyclesPerNumber(const ScaleBar& bar, double cycle) {
    const double widest = TextSize(AxisFont(), BarNumber(bar, bar.NumCycles)).width() + 2 * kTextGap;
    std::int64_t each = 1;
    while (each < bar.NumCycles && static_cast<double>(each) * cycle < widest) each *= 2;
    return each;
}

QRectF NumberBox(const BarPlace& place, double x, const QString& text) {
    const QSizeF size = TextSize(AxisFont(), text);
    return {QPointF(x - size.width() / 2, place.Bar.bottom() + kTextGap), size};
}

void DrawBar(QPainter& painter, const ScaleBar& bar, const BarPlace& place) {
    painter.setPen(QPen(Qt::black, 0.5));
    painter.setFont(AxisFont());
    if (place.Cycle == 0) {
        painter.drawText(place.Bar, Qt::AlignCenter | Qt::TextDontClip, place.Told);
        return;
    }
    const bool tells = place.Cycle >= kNarrowestCycle;
    painter.fillRect(place.Bar, tells ? Qt::white : Qt::gray);
    for (int i = 0; tells && i < bar.NumCycles; i += 2) {
        painter.fillRect(QRectF(place.Bar.left() + i * place.Cycle, place.Bar.top(), place.Cycle, kBarHeight),
                         Qt::black);
    }
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.Bar);
    const std::int64_t each = CyclesPerNumber(bar, place.Cycle);
    for (std::int64_t i = 0; i <= bar.NumCycles; i += each) {
        const QString text = BarNumber(bar, i);
        painter.drawText(NumberBox(place, place.Bar.left() + static_cast<double>(i) * place.Cycle, text),
                         Qt::AlignCenter | Qt::TextDontClip, text);
    }
}

QRectF ScaleBox(const QRectF& frame) {
    const double height = std::max(kLowestScale, 0.6 * frame.height());
    return {frame.right() + kScaleAway, frame.center().y() - height / 2, kScaleWidth, height};
}

bool HasColourScale(const PlotMap& map) { return map.Layer.ShowColorScale && !IsBlank(map.Heights.Low); }

}  // namespace

void DrawScaleBars(QPainter& painter, const PlotMap& map, const QRectF& frame) {
    for (std::size_t i = 0; i < map.ScaleBars.size(); ++i) {
        DrawBar(painter, map.ScaleBars[i], PlaceBar(map, frame, i));
    }
}

QRectF ScaleBarsExtent(const PlotMap& map, const QRectF& frame) {
    QRectF extent;
    for (std::size_t i = 0; i < map.ScaleBars.size(); ++i) {
        const BarPlace place = PlaceBar(map, frame, i);
        extent |= place.Bar;
        if (place.Cycle == 0) continue;
        const ScaleBar& bar = map.ScaleBars[i];
        extent |= NumberBox(place, place.Bar.left(), BarNumber(bar, 0));
        extent |= NumberBox(place, place.Bar.right(), BarNumber(bar, bar.NumCycles));
    }
    return extent;
}

void DrawColourScale(QPainter& painter, const PlotMap& map, const QRectF& frame) {
    if (!HasColourScale(map)) return;
    painter.save();
    painter.setFont(AxisFont());
    PaintColourBar(painter, ScaleBox(frame), map.Heights, PaletteOf(map), Qt::black, kScaleLine);
    painter.restore();
}

QRectF ColourScaleExtent(const PlotMap& map, const QRectF& frame) {
    if (!HasColourScale(map)) return {};
    const QFontMetricsF metrics(AxisFont());
    const QRectF box = ScaleBox(frame);
    return box.adjusted(0, -metrics.height() / 2, ColourBarNumbersWidth(metrics, box, map.Heights, kScaleLine),
                        metrics.height() / 2);
}

}  // namespace crownlab
