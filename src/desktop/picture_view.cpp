#include "desktop/picture_view.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace crownlab {
namespace {

/// A view of the raster's pixels that copies nothing; it lives no longer than the raster.
QImage ImageOf(const Raster& raster, int columns, int rows) {
    static_assert(sizeof(Colour) == 3, "pixels are three bytes, as QImage::Format_RGB888 has them");
    const auto* bytes = reinterpret_cast<const uchar*>(raster.Pixels.data());
    return {bytes, columns, rows, static_cast<qsizetype>(raster.Width) * 3, QImage::Format_RGB888};
}

}  // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureView::SetShape(QSize told) {
    if (told == told_) return;
    told_ = told;
    if (!hint_.isValid()) {
        hint_ = told;
        updateGeometry();
    }
    update();
}

void PictureView::SetPicture(std::shared_ptr<const Raster> raster, int columns, int rows) {
    raster_ = std::move(raster);
    columns_ = raster_ ? std::clamp(columns, 0, raster_->Width) : 0;
    rows_ = raster_ ? std::clamp(rows, 0, raster_->Height) : 0;
    stretched_ = {};
    update();
}

QRectF PictureView::Target() const {
    const QSizeF told = told_.isEmpty() ? QSizeF(1, 1) : QSizeF(told_);
    const QSizeF shown = told.scaled(QSizeF(size()), Qt::KeepAspectRatio);
    return {QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown};
}

const QPixmap& PictureView::Stretched(QSize devicePixels) {
    if (stretched_.size() != devicePixels) {
        const QImage image = ImageOf(*raster_, columns_, rows_);
        stretched_ = QPixmap::fromImage(image.scaled(devicePixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return stretched_;
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRectF target = Target();
    const QSize devicePixels = (target.size() * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
    if (columns_ > 0 && rows_ > 0) {
        painter.drawPixmap(target, Stretched(devicePixels), QRectF(QPointF(0, 0), QSizeF(devicePixels)));
        return;
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.setBrush(palette().color(QPalette::AlternateBase));
    painter.drawRect(target.adjusted(0.5, 0.5, -0.5, -0.5));
}

void PictureView::mouseMoveEvent(QMouseEvent* event) {
    const QRectF target = Target();
    if (!OnMove || !target.contains(event->position())) return;
    const QPointF inside = event->position() - target.topLeft();
    OnMove(inside.x() * told_.width() / target.width(), inside.y() * told_.height() / target.height());
}

void PictureView::mouseReleaseEvent(QMouseEvent* event) {
    if (OnClick && event->button() == Qt::LeftButton && Target().contains(event->position())) OnClick();
}

}  // namespace crownlab
