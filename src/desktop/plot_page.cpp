#include "desktop/plot_page.h"

#include <QFontMetricsF>
#include <QStringList>
#include <algorithm>

#include "desktop/plot_axes.h"
#include "desktop/plot_legends.h"
#include "desktop/shown_text.h"
#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

/// Numbers at the axes have to end above the labels that tools put half a page unit below a map.
constexpr int kAxisLetters = 7;    // points
constexpr int kLabelLetters = 12;  // points

QFont PlotFont(int points) {
    QFont font;
    font.setFamilies({"Liberation Sans", "Arial", "DejaVu Sans"});
    font.setStyleHint(QFont::SansSerif);
    // A pixel is a point here: the painter's scale makes it one on paper and screen.
    font.setPixelSize(points);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(QFont::PreferOutline);
    return font;
}

/// How much of its size a text lies to the left of, or below, its point.
double ShareBefore(int align, int first) { return align == first + 1 ? 0.5 : align == first + 2 ? 1 : 0; }

}  // namespace

QPointF OnDrawing(double x, double y) { return {Points(x), -Points(y)}; }

QRectF PageRectangle() { return {OnDrawing(0, kPageHeight), QSizeF(Points(kPageWidth), Points(kPageHeight))}; }

QRectF FrameOf(const PlotMap& map) {
    return {OnDrawing(map.Left, map.Top), QSizeF(Points(map.XLength), Points(map.YLength))};
}

QRectF ExtentOf(const PlotMap& map) {
    const QRectF frame = FrameOf(map);
    const QRectF axes = map.Kind == MapKind::Surface ? frame : AxesExtent(map, frame);
    return axes | ScaleBarsExtent(map, frame) | ColourScaleExtent(map, frame);
}

QRectF ExtentOf(const PlotText& text) {
    QSizeF size(0, 0);
    for (const QString& line : ShownText(text.Text).split('\n')) {
        const QSizeF one = TextSize(LabelFont(), line);
        size = {std::max(size.width(), one.width()), size.height() + one.height()};
    }
    const QPointF at = OnDrawing(text.X, text.Y);
    constexpr int left = 1;
    constexpr int top = 4;
    return {at.x() - ShareBefore(text.Font.HAlign, left) * size.width(),
            at.y() - ShareBefore(text.Font.VAlign, top) * size.height(), size.width(), size.height()};
}

QRectF ExtentOf(const PlotDocument& document) {
    QRectF extent;
    for (const PlotShape& shape : document.Shapes) {
        extent |= std::visit([](const auto& one) { return ExtentOf(one); }, shape);
    }
    return extent;
}

QFont AxisFont() {
    static const QFont font = PlotFont(kAxisLetters);
    return font;
}

QFont LabelFont() {
    static const QFont font = PlotFont(kLabelLetters);
    return font;
}

QSizeF TextSize(const QFont& font, const QString& text) {
    const QFontMetricsF metrics(font);
    return {metrics.horizontalAdvance(text), metrics.height()};
}

}  // namespace crownlab
