#include "desktop/plot_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "desktop/plot_page.h"
#include "desktop/plot_painter.h"

namespace crownlab {
namespace {

constexpr double kPointsPerInch = 72;
constexpr double kMargin = 20;  // points around the drawing
const QColor kPageOutline(0xc8, 0xc8, 0xc8);
constexpr double kSmallestSize = 0.005;
constexpr double kLargestSize = 20;
constexpr double kKeyZoom = 1.25;
/// A wheel's notch, in Qt's eighths of a degree.
constexpr double kNotch = 120;
/// How long pictures may keep a drawing; what isn't ready then comes with the next one.
constexpr int kDrawingTime = 60;  // milliseconds
/// So long after the last change of size or drawing pictures are drawn anew.
constexpr int kRest = 150;  // milliseconds

}  // namespace

PlotView::PlotView(std::shared_ptr<const PlotDocument> document, QWidget* parent)
    : QAbstractScrollArea(parent), document_(std::move(document)) {
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setCursor(Qt::OpenHandCursor);
    settle_.setSingleShot(true);
    QObject::connect(&settle_, &QTimer::timeout, this, [this] {
        zooming_ = false;
        viewport()->update();
    });
    TakeExtent();
}

void PlotView::Follow() {
    if (seenChanges_ != document_->Changes) TakeExtent();
}

void PlotView::TakeExtent() {
    seenChanges_ = document_->Changes;
    const QRectF drawing = ExtentOf(*document_);
    const QMarginsF margins(kMargin, kMargin, kMargin, kMargin);
    shown_ = (drawing.isNull() ? PageRectangle() : drawing).marginsAdded(margins);
    sheet_ = shown_ | PageRectangle().marginsAdded(margins);
    // While a batch is plotted every map makes the others smaller: they are stretched until it rests.
    zooming_ = true;
    settle_.start(kRest);
    if (fits_) {
        Fit();
    } else {
        Place(scale_, middle_);
    }
}

double PlotView::ActualScale() const { return viewport()->logicalDpiX() / kPointsPerInch; }

QPointF PlotView::ViewportMiddle() const { return {viewport()->width() / 2.0, viewport()->height() / 2.0}; }

QTransform PlotView::ToViewport() const {
    const QPointF shift = ViewportMiddle() - scale_ * middle_;
    return QTransform(scale_, 0, 0, scale_, shift.x(), shift.y());
}

QPointF PlotView::OnViewport(double x, double y) const { return ToViewport().map(OnDrawing(x, y)); }

QPointF PlotView::OnPage(QPointF at) const {
    const QPointF drawing = middle_ + (at - ViewportMiddle()) / scale_;
    return {drawing.x() / kPointsPerUnit, -drawing.y() / kPointsPerUnit};
}

void PlotView::Fit() {
    const double scale = std::min(viewport()->width() / shown_.width(), viewport()->height() / shown_.height());
    Place(scale, shown_.center());
    fits_ = true;
}

void PlotView::ShowActualSize() { ZoomAt(ActualScale() / scale_, ViewportMiddle()); }

void PlotView::Zoom(double factor) { ZoomAt(factor, ViewportMiddle()); }

void PlotView::ZoomAt(double factor, QPointF at) {
    const double scale = std::clamp(scale_ * factor, kSmallestSize * ActualScale(), kLargestSize * ActualScale());
    const QPointF fixed = middle_ + (at - ViewportMiddle()) / scale_;
    zooming_ = true;
    settle_.start(kRest);
    Place(scale, fixed - (at - ViewportMiddle()) / scale);
    fits_ = false;
}

void PlotView::Place(double scale, QPointF middle) {
    const bool resized = scale != scale_;
    scale_ = std::max(scale, 1e-6);
    const auto within = [](double wanted, double low, double high, double half) {
        return high - low <= 2 * half ? (low + high) / 2 : std::clamp(wanted, low + half, high - half);
    };
    // A drawing that fits stays where it is put, so that zooming keeps what is at the mouse.
    const QPointF half = ViewportMiddle() / scale_;
    const QRectF reach = sheet_.marginsAdded({half.x() / 2, half.y() / 2, half.x() / 2, half.y() / 2});
    middle_ = {within(middle.x(), reach.left(), reach.right(), half.x()),
               within(middle.y(), reach.top(), reach.bottom(), half.y())};
    SetBars();
    viewport()->update();
    if (resized && OnSize) OnSize();
}

void PlotView::SetBars() {
    settingBars_ = true;
    const QPointF corner = middle_ - ViewportMiddle() / scale_;
    const auto set = [this](QScrollBar& bar, double from, double low, double high, int page) {
        // All that is seen and all that there is.
        const double first = std::min(low, from);
        const double last = std::max(high, from + page / scale_);
        bar.setRange(0, static_cast<int>(std::lround((last - first) * scale_)) - page);
        bar.setPageStep(page);
        bar.setSingleStep(std::max(1, page / 12));
        bar.setValue(static_cast<int>(std::lround((from - first) * scale_)));
    };
    set(*horizontalScrollBar(), corner.x(), sheet_.left(), sheet_.right(), viewport()->width());
    set(*verticalScrollBar(), corner.y(), sheet_.top(), sheet_.bottom(), viewport()->height());
    settingBars_ = false;
}

void PlotView::scrollContentsBy(int dx, int dy) {
    if (settingBars_) return;
    fits_ = false;
    Place(scale_, middle_ - QPointF(dx, dy) / scale_);
}

void PlotView::resizeEvent(QResizeEvent*) {
    if (fits_) {
        Fit();
    } else {
        Place(scale_, middle_);
    }
}

void PlotView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), Qt::white);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(ToViewport());
    painter.setPen(QPen(kPageOutline, 0, Qt::DashLine));
    painter.drawRect(PageRectangle());
    const QRectF part = ToViewport().inverted().mapRect(QRectF(event->rect()));
    pictures_.Begin(kDrawingTime, zooming_);
    DrawPlot(painter, *document_, part, [this](QPainter& on, const PlotMap& map, const QRectF& frame) {
        pictures_.Draw(on, map, frame, scale_ * devicePixelRatioF());
    });
    if (!pictures_.IsComplete() && !settle_.isActive()) settle_.start(0);
}

void PlotView::wheelEvent(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    if (event->modifiers() & Qt::ShiftModifier) {
        // Some platforms turn the wheel's axis themselves where Shift is held.
        const int across = turned.x() != 0 ? turned.x() : turned.y();
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - across);
    } else {
        ZoomAt(std::pow(kKeyZoom, turned.y() / kNotch), event->position());
    }
    event->accept();
}

void PlotView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    dragged_ = event->position();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void PlotView::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const QPointF moved = event->position() - dragged_;
    dragged_ = event->position();
    fits_ = false;
    Place(scale_, middle_ - moved / scale_);
}

void PlotView::mouseReleaseEvent(QMouseEvent*) { viewport()->setCursor(Qt::OpenHandCursor); }

void PlotView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Plus: Zoom(kKeyZoom); break;
        case Qt::Key_Minus: Zoom(1 / kKeyZoom); break;
        default: QAbstractScrollArea::keyPressEvent(event);
    }
}

}  // namespace crownlab
