#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <list>
#include <memory>

#include "mapengine/plot_document.h"

class QPainter;
class QRectF;

namespace crownlab {

/// Pictures of maps as they were drawn last, so that a page with many large grids scrolls and zooms smoothly. Those
/// that were not needed for longest go first.
class PlotPictures {
public:
    /// Begins a drawing, which may spend `milliseconds` on pictures that aren't there yet; at least one is made. Called
    /// with `keepOld`, pictures of another size are good enough.
    void Begin(int milliseconds, bool keepOld);
    /// Draws the map into its frame, from a picture of `scale` pixels a point: from the one of that size, else, if
    /// there is no time left, from another one stretched, else as an empty frame.
    void Draw(QPainter& painter, const PlotMap& map, const QRectF& frame, double scale);
    /// False if the last drawing had to do with less than the right picture somewhere.
    bool IsComplete() const { return complete_; }

private:
    /// All that a picture depends on but its size.
    struct Key {
        std::shared_ptr<const Grid> Nodes;
        MapKind Kind;
        GridGeometry Shape;
        MapLayer Layer;
        double XLength;
        double YLength;
        friend bool operator==(const Key&, const Key&) = default;
    };
    struct Entry {
        Key Of;
        QImage Picture;
    };

    const QImage* Find(const Key& key, QSize pixels);
    const QImage* FindAny(const Key& key) const;
    const QImage* Make(const Key& key, const PlotMap& map, QSize pixels, double pointWidth);
    bool HasTime() const { return !madeOne_ || time_.elapsed() < allowed_; }

    std::list<Entry> entries_;  ///< the last one used first
    QElapsedTimer time_;
    int allowed_ = 0;
    bool keepOld_ = false;
    bool madeOne_ = false;
    bool complete_ = true;
};

}  // namespace crownlab
