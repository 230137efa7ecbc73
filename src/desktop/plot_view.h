#pragma once

#include <QAbstractScrollArea>
#include <QTimer>
#include <functional>
#include <memory>

#include "desktop/plot_pictures.h"

namespace crownlab {

/// Shows one plot document: the page, and whatever lies beyond it. The wheel zooms at the mouse, the left button drags,
/// keys and scroll bars scroll. It fits all of the drawing until a person chooses another size.
class PlotView : public QAbstractScrollArea {
public:
    explicit PlotView(std::shared_ptr<const PlotDocument> document, QWidget* parent = nullptr);

    const std::shared_ptr<const PlotDocument>& Document() const { return document_; }
    /// Shows what changed in the document since the last call.
    void Follow();

    /// Shows all of the drawing, now and as it grows.
    void Fit();
    /// A page unit is a centimetre on the screen.
    void ShowActualSize();
    /// `factor` times as large, with what lies in the middle kept there.
    void Zoom(double factor);
    /// Size as a share of the actual one.
    double Size() const { return scale_ / ActualScale(); }
    /// Called after a change of size.
    std::function<void()> OnSize;

    /// Where a place of the page (page units) is on the viewport.
    QPointF OnViewport(double x, double y) const;
    /// The place of the page at a point of the viewport.
    QPointF OnPage(QPointF at) const;
    /// True if all pictures were drawn as they should be, none of them stretched or left out for want of time.
    bool IsSettled() const { return !settle_.isActive() && pictures_.IsComplete(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void TakeExtent();
    double ActualScale() const;
    QTransform ToViewport() const;
    QPointF ViewportMiddle() const;
    /// Shows `middle` of the drawing in the middle, as far as the sheet reaches.
    void Place(double scale, QPointF middle);
    void ZoomAt(double factor, QPointF at);
    void SetBars();

    std::shared_ptr<const PlotDocument> document_;
    PlotPictures pictures_;
    QTimer settle_;
    std::uint64_t seenChanges_ = 0;
    QRectF sheet_;      ///< what can be scrolled to, in units of the drawing
    QRectF shown_;      ///< what Fit shows
    QPointF middle_;    ///< of the viewport, on the drawing
    double scale_ = 1;  ///< pixels a point
    bool fits_ = true;
    bool zooming_ = false;
    bool settingBars_ = false;
    QPointF dragged_;
};

}  // namespace crownlab
