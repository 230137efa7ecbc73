#include "desktop/plot_pictures.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "desktop/plot_layers.h"

namespace crownlab {
namespace {

constexpr qsizetype kMostBytes = 256LL * 1024 * 1024;
/// Side of the largest picture on the screen: when zoomed in farther, it is stretched.
constexpr double kMostPixels = 2500;

QSize PixelsOf(const QRectF& frame, double scale) {
    const double bounded = std::min(scale, kMostPixels / std::max({frame.width(), frame.height(), 1.0}));
    return (frame.size() * bounded).toSize().expandedTo({1, 1});
}

/// The layer with its lines.
QImage WholePicture(const PlotMap& map, QSize pixels, double pointWidth) {
    QImage picture = LayerPicture(map, pixels);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = pixels.width() / pointWidth;
    painter.scale(scale, scale);
    DrawContours(painter, map, QRectF(0, 0, pointWidth, pixels.height() / scale));
    return picture;
}

/// Draws a picture into its frame; one of the right size pixel for pixel, which is many times faster.
void Put(QPainter& painter, const QImage& picture, const QRectF& frame, QSize pixels) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF target = toDevice.mapRect(frame);
    const bool fits = picture.size() == pixels && std::fabs(target.width() - pixels.width()) < 1 &&
                      std::fabs(target.height() - pixels.height()) < 1;
    if (!fits) {
        painter.drawImage(frame, picture);
        return;
    }
    const QPoint at = target.topLeft().toPoint();
    const QTransform before = painter.worldTransform();
    painter.setWorldTransform(QTransform::fromTranslate(at.x(), at.y()) * toDevice.inverted() * before);
    painter.drawImage(QPoint(0, 0), picture);
    painter.setWorldTransform(before);
}

}  // namespace

void PlotPictures::Begin(int milliseconds, bool keepOld) {
    allowed_ = milliseconds;
    keepOld_ = keepOld;
    madeOne_ = false;
    complete_ = true;
    time_.start();
}

void PlotPictures::Draw(QPainter& painter, const PlotMap& map, const QRectF& frame, double scale) {
    const Key key{map.Nodes, map.Kind, map.Shape, map.Layer, map.XLength, map.YLength};
    const QSize pixels = PixelsOf(frame, scale);
    const QImage* picture = Find(key, pixels);
    if (picture == nullptr) {
        const QImage* const other = FindAny(key);
        const bool make = HasTime() && !(keepOld_ && other != nullptr);
        if (!make) complete_ = false;
        picture = make ? Make(key, map, pixels, frame.width()) : other;
    }
    if (picture != nullptr) {
        Put(painter, *picture, frame, pixels);
        return;
    }
    painter.setPen(QPen(Qt::lightGray, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
}

const QImage* PlotPictures::Find(const Key& key, QSize pixels) {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return entry.Picture.size() == pixels && entry.Of == key;
    });
    if (found == entries_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found);
    return &entries_.front().Picture;
}

const QImage* PlotPictures::FindAny(const Key& key) const {
    const auto found =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.Of == key; });
    return found == entries_.end() ? nullptr : &found->Picture;
}

const QImage* PlotPictures::Make(const Key& key, const PlotMap& map, QSize pixels, double pointWidth) {
    madeOne_ = true;
    // One picture of a map is enough: sizes follow one another when a person zooms.
    entries_.remove_if([&](const Entry& entry) { return entry.Of == key; });
    entries_.push_front({key, WholePicture(map, pixels, pointWidth)});
    qsizetype bytes = 0;
    for (auto entry = entries_.begin(); entry != entries_.end();) {
        bytes += entry->Picture.sizeInBytes();
        entry = bytes > kMostBytes && entry != entries_.begin() ? entries_.erase(entry) : std::next(entry);
    }
    return &entries_.front().Picture;
}

}  // namespace crownlab
