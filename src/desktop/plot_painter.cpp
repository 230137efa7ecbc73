#include "desktop/plot_painter.h"

#include <QFileInfo>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/plot_axes.h"
#include "desktop/plot_layers.h"
#include "desktop/plot_legends.h"
#include "desktop/plot_page.h"
#include "desktop/plot_surface_view.h"
#include "desktop/shown_text.h"
#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

constexpr double kPointsPerInch = 72;
/// Side of the largest picture that a map is drawn with.
constexpr double kMostPixels = 3000;

void DrawSentence(QPainter& painter, const QRectF& frame, const QString& sentence) {
    painter.setPen(QPen(Qt::gray, 0.5));
    painter.setBrush(QColor(0xf4, 0xf4, 0xf4));
    painter.drawRect(frame);
    painter.setPen(Qt::black);
    painter.setFont(LabelFont());
    painter.drawText(frame, Qt::AlignCenter | Qt::TextWordWrap, sentence);
}

void DrawFlatMap(QPainter& painter, const PlotMap& map, const QRectF& frame, const DrawBody& body) {
    body(painter, map, frame);
    DrawAxes(painter, map, frame);
}

void DrawSurfaceMap(QPainter& painter, const PlotMap& map, const QRectF& frame, const DrawBody& body) {
    const SurfaceView view = ViewOf(map, frame);
    DrawSurfaceAxes(painter, map, view, AxisSide::Behind);
    body(painter, map, frame);
    DrawSurfaceAxes(painter, map, view, AxisSide::Before);
}

void Draw(QPainter& painter, const PlotMap& map, const DrawBody& body) {
    const QRectF frame = FrameOf(map);
    const QString sentence = SentenceOf(map);
    if (!sentence.isEmpty()) {
        DrawSentence(painter, frame, sentence);
    } else if (map.Kind == MapKind::Surface) {
        DrawSurfaceMap(painter, map, frame, body);
    } else {
        DrawFlatMap(painter, map, frame, body);
    }
    DrawScaleBars(painter, map, frame);
    DrawColourScale(painter, map, frame);
}

void Draw(QPainter& painter, const PlotText& text, const DrawBody&) {
    painter.setPen(Qt::black);
    painter.setFont(LabelFont());
    constexpr int middle = 2;
    constexpr int right = 3;
    const int align = text.Font.HAlign == middle  ? Qt::AlignHCenter
                      : text.Font.HAlign == right ? Qt::AlignRight
                                                  : Qt::AlignLeft;
    painter.drawText(ExtentOf(text), align | Qt::AlignTop | Qt::TextDontClip, ShownText(text.Text));
}

}  // namespace

void DrawPlot(QPainter& painter, const PlotDocument& document, const QRectF& part, const DrawBody& body) {
    for (const PlotShape& shape : document.Shapes) {
        std::visit(
            [&](const auto& one) {
                if (part.intersects(ExtentOf(one))) Draw(painter, one, body);
            },
            shape);
    }
}

DrawBody BodyForPaper(double dotsPerInch) {
    return [dotsPerInch](QPainter& painter, const PlotMap& map, const QRectF& frame) {
        const double wanted = dotsPerInch / kPointsPerInch;
        const double scale = std::min(wanted, kMostPixels / std::max(frame.width(), frame.height()));
        const QSize pixels = (frame.size() * scale).toSize().expandedTo({1, 1});
        painter.save();
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        if (HasPicture(map)) painter.drawImage(frame, LayerPicture(map, pixels));
        painter.restore();
        DrawContours(painter, map, frame);
    };
}

QString SentenceOf(const PlotMap& map) {
    if (map.Nodes != nullptr && !IsBlank(map.Heights.Low)) return {};
    const QString name = QFileInfo(ShownText(map.GridFilename)).fileName();
    return map.Nodes == nullptr ? QStringLiteral("%1 can't be read any more.").arg(name)
                                : QStringLiteral("%1 has no heights: all its nodes are blank.").arg(name);
}

}  // namespace crownlab
