// What a map shows. What the mouse does on it: map_canvas_mouse.cpp.
#include "desktop/map_canvas.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/map_points_painter.h"

namespace crownlab {
namespace {

constexpr double kGap = 8;  // pixels around the axes
constexpr double kColourBarWidth = 18;
/// How far the map can be zoomed in and out, from where all of it fits.
constexpr double kMostZoom = 1000;
constexpr int kZoomDigits = 3;
constexpr int kMostLevels = 20;
/// More lines than this aren't told apart, and take too long.
constexpr double kMostLines = 500;
const QColor kInk(50, 50, 50);
const QColor kBesideTheGrid(236, 236, 238);

}  // namespace

MapCanvas::MapCanvas(DigitisedPoints& points, QWidget* parent) : QWidget(parent), points_(points) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(240, 180);
    ShowPointer();
}

void MapCanvas::SetGrid(std::shared_ptr<const Grid> grid) {
    grid_ = std::move(grid);
    range_ = Heights(*grid_);
    MakeImage();
    MakeContours();
    Fit();
}

void MapCanvas::SetLook(const MapLook& look) {
    if (look == look_) return;
    const bool sameLines =
        look.ContourLines == look_.ContourLines && look.ContourStep == look_.ContourStep && look.View == look_.View;
    look_ = look;
    if (!grid_) return;
    MakeImage();
    if (!sameLines) MakeContours();
    if (fitted_) Fit();
    Redraw();
}

void MapCanvas::MakeImage() {
    image_ = {};
    if (look_.View == MapView::Relief) {
        ReliefLight light = kMapLight;
        light.HeightFactor = look_.HeightFactor;
        image_ = ReliefImage(*grid_, light);
    } else if (look_.View == MapView::Image) {
        image_ = HeightImage(*grid_, range_, look_.Palette);
    }
}

void MapCanvas::MakeContours() {
    levels_.clear();
    contours_.clear();
    if (look_.View != MapView::Contours && !look_.ContourLines) return;
    const double span = range_.High - range_.Low;
    if (look_.ContourStep > 0 && span / look_.ContourStep <= kMostLines) {
        const double first = std::floor(range_.Low / look_.ContourStep) + 1;
        for (int i = 0; (first + i) * look_.ContourStep < range_.High; ++i) {
            levels_.push_back((first + i) * look_.ContourStep);
        }
    } else {
        levels_ = ContourLevels(range_, kMostLevels);
    }
    contours_ = TraceContours(*grid_, levels_);
}

bool MapCanvas::ShowsColourBar() const { return grid_ && look_.View == MapView::Image && !IsBlank(range_.Low); }

QRectF MapCanvas::Frame() const {
    if (!grid_) return rect();
    const QFontMetricsF metrics(font());
    QRectF frame = QRectF(rect()).marginsRemoved(AxesMargins(metrics, grid_->Shape, 1));
    // Zoomed in, the numbers grow by the digits of kMostZoom.
    frame.adjust(kGap / 2 + kZoomDigits * metrics.horizontalAdvance('0'), kGap, -kGap, -kGap);
    if (ShowsColourBar()) {
        frame.setRight(frame.right() - 2 * kGap - kColourBarWidth - ColourBarNumbersWidth(metrics, frame, range_, 1));
    }
    // Whole pixels, so that the lines are sharp.
    return frame.toAlignedRect().adjusted(0, 0, -1, -1).toRectF().translated(0.5, 0.5);
}

QRectF MapCanvas::ColourBarRect() const {
    const QRectF frame = Frame();
    return {frame.right() + 2 * kGap, frame.top(), kColourBarWidth, frame.height()};
}

MapTransform MapCanvas::Transform() const {
    return {.Origin = Frame().center(), .X0 = middleX_, .Y0 = middleY_, .ScaleX = scale_, .ScaleY = scale_};
}

void MapCanvas::Fit() {
    if (!grid_) return;
    constexpr double margin = 4;
    const MapTransform fit = FitMap(grid_->Shape, Frame().adjusted(margin, margin, -margin, -margin));
    middleX_ = fit.X0;
    middleY_ = fit.Y0;
    scale_ = fit.ScaleX;
    fitted_ = true;
    Redraw();
}

void MapCanvas::Zoom(double factor) { ZoomAt(Frame().center(), factor); }

void MapCanvas::ZoomAt(QPointF at, double factor) {
    if (!grid_) return;
    const double fit = FitMap(grid_->Shape, Frame()).ScaleX;
    const double scale = std::clamp(scale_ * factor, fit / kMostZoom, fit * kMostZoom);
    const PlanePoint fixed = Transform().ToMap(at);
    const QPointF fromMiddle = at - Frame().center();
    middleX_ = fixed.x - fromMiddle.x() / scale;
    middleY_ = fixed.y + fromMiddle.y() / scale;
    scale_ = scale;
    fitted_ = false;
    Redraw();
}

void MapCanvas::PanTo(QPointF at) {
    middleX_ -= (at.x() - last_.x()) / scale_;
    middleY_ += (at.y() - last_.y()) / scale_;
    last_ = at;
    fitted_ = false;
    Redraw();
}

void MapCanvas::Redraw() {
    base_ = {};
    update();
}

void MapCanvas::resizeEvent(QResizeEvent*) {
    if (fitted_) Fit();
    Redraw();
}

void MapCanvas::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) Redraw();
    QWidget::changeEvent(event);
}

void MapCanvas::PaintMapInside(QPainter& painter) const {
    const QRectF frame = Frame();
    const MapTransform transform = Transform();
    const QRectF limits = MapRect(transform, grid_->Shape);
    painter.fillRect(frame, kBesideTheGrid);
    painter.fillRect(limits & frame, Qt::white);
    image_.Paint(painter, transform, frame);
    ContourStyle style;
    if (look_.View != MapView::Contours) style.Halo = QColor(255, 255, 255, 190);
    if (look_.View == MapView::Image) style.Line = QColor(20, 20, 20, 200);
    PaintContours(painter, transform, frame, contours_, levels_, style, 1);
    painter.save();
    painter.setClipRect(frame);
    painter.setPen(QPen(QColor(150, 150, 155), 1));
    painter.drawRect(limits);
    painter.restore();
}

void MapCanvas::DrawBase() {
    base_ = QPixmap(size() * devicePixelRatioF());
    base_.setDevicePixelRatio(devicePixelRatioF());
    base_.fill(palette().color(QPalette::Base));
    QPainter painter(&base_);
    painter.setFont(font());
    PaintMapInside(painter);
    const QRectF frame = Frame();
    PaintAxes(painter, Transform(), frame, kInk, 1);
    const QPointF barEnd = frame.bottomRight() - QPointF(14, 12);
    // Once to learn where it lies: it needs a ground that it can be read on.
    const QRectF bar = PaintScaleBar(painter, Transform(), barEnd, frame.width() / 4, Qt::transparent, 1);
    painter.fillRect(bar.adjusted(-6, -3, 6, 6), QColor(255, 255, 255, 205));
    PaintScaleBar(painter, Transform(), barEnd, frame.width() / 4, kInk, 1);
    if (ShowsColourBar()) PaintColourBar(painter, ColourBarRect(), range_, look_.Palette, kInk, 1);
}

void MapCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!grid_) {
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("Open a grid, or drop one here."));
        return;
    }
    if (base_.isNull() || base_.size() != size() * devicePixelRatioF()) DrawBase();
    painter.drawPixmap(0, 0, base_);
    PaintPoints(painter, Transform(), Frame(), points_.Areas(), selected_);
}

void MapCanvas::Select(std::optional<PointPlace> place) {
    selected_ = place && points_.Holds(*place) ? place : std::nullopt;
    update();
}

void MapCanvas::PointsChanged() { Select(selected_); }

}  // namespace crownlab
