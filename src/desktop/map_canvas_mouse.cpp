// Mouse and keys on a map.
#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

#include "desktop/map_canvas.h"

namespace crownlab {
namespace {

constexpr double kReach = 8;         // pixels from a point within which the mouse takes it
constexpr double kWheelNotch = 120;  // Qt's eighths of a degree for one step of a usual wheel
constexpr double kZoomStep = 1.2;

double Apart(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

}  // namespace

void MapCanvas::SetTool(MapTool tool) {
    tool_ = tool;
    ShowPointer();
}

void MapCanvas::ShowPointer() {
    if (gesture_ == Gesture::Pan) {
        setCursor(Qt::ClosedHandCursor);
    } else {
        setCursor(tool_ == MapTool::Hand || space_ ? Qt::OpenHandCursor : Qt::CrossCursor);
    }
}

std::optional<PointPlace> MapCanvas::PointAt(QPointF at) const {
    const MapTransform transform = Transform();
    std::optional<PointPlace> nearest;
    double reach = kReach;
    for (std::size_t area = 0; area < points_.Areas().size(); ++area) {
        for (std::size_t index = 0; index < points_.Areas()[area].size(); ++index) {
            const double apart = Apart(at, transform.ToView(points_.Areas()[area][index]));
            if (apart > reach) continue;
            reach = apart;
            nearest = PointPlace{area, index};
        }
    }
    return nearest;
}

void MapCanvas::mousePressEvent(QMouseEvent* event) {
    if (!grid_ || gesture_ != Gesture::None || !Frame().contains(event->position())) return;
    pressed_ = last_ = event->position();
    dragged_ = false;
    const bool left = event->button() == Qt::LeftButton;
    if (event->button() == Qt::MiddleButton || (left && (tool_ == MapTool::Hand || space_))) {
        gesture_ = Gesture::Pan;
    } else if (left) {
        // With Shift a point can be set right beside another.
        const bool apart = event->modifiers().testFlag(Qt::ShiftModifier);
        const std::optional<PointPlace> taken = apart ? std::nullopt : PointAt(pressed_);
        gesture_ = taken ? Gesture::DragPoint : Gesture::Click;
        Select(taken);
        if (OnPoints) OnPoints();
    }
    ShowPointer();
}

void MapCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const bool farEnough = dragged_ || Apart(at, pressed_) >= QApplication::startDragDistance();
    if (gesture_ == Gesture::Click && farEnough) {
        // Nobody clicks over such a distance: the map is to be moved.
        gesture_ = Gesture::Pan;
        ShowPointer();
    }
    if (gesture_ == Gesture::Pan) {
        PanTo(at);
    } else if (gesture_ == Gesture::DragPoint && selected_ && (dragged_ || Apart(at, pressed_) >= 2)) {
        // The point keeps its place under the mouse: by what the mouse moved, not to where it is.
        const MapTransform transform = Transform();
        const QPointF from = transform.ToView(points_.At(*selected_));
        points_.Move(*selected_, transform.ToMap(from + at - last_),
                     dragged_ ? DigitisedPoints::Drag::GoesOn : DigitisedPoints::Drag::Begins);
        dragged_ = true;
        last_ = at;
        update();
        if (OnPoints) OnPoints();
    }
    if (OnHover) OnHover(grid_ && Frame().contains(at) ? std::optional(Transform().ToMap(at)) : std::nullopt);
}

void MapCanvas::mouseReleaseEvent(QMouseEvent* event) {
    const bool ends = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (!ends || gesture_ == Gesture::None) return;
    const Gesture done = std::exchange(gesture_, Gesture::None);
    ShowPointer();
    if (done != Gesture::Click) return;
    Select(points_.Add(Transform().ToMap(pressed_)));
    if (OnPoints) OnPoints();
}

void MapCanvas::wheelEvent(QWheelEvent* event) {
    if (Frame().contains(event->position())) {
        ZoomAt(event->position(), std::pow(kZoomStep, event->angleDelta().y() / kWheelNotch));
    }
    event->accept();
}

void MapCanvas::leaveEvent(QEvent*) {
    if (OnHover) OnHover(std::nullopt);
}

void MapCanvas::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space) {
        space_ = true;
        ShowPointer();
    } else if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Minus) {
        Zoom(event->key() == Qt::Key_Plus ? kZoomStep : 1 / kZoomStep);
    } else if (event->key() == Qt::Key_Escape && selected_) {
        Select(std::nullopt);
        if (OnPoints) OnPoints();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void MapCanvas::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) return QWidget::keyReleaseEvent(event);
    // A held key repeats: only the last release lets it go.
    if (event->isAutoRepeat()) return;
    space_ = false;
    ShowPointer();
}

void MapCanvas::focusOutEvent(QFocusEvent* event) {
    space_ = false;
    ShowPointer();
    QWidget::focusOutEvent(event);
}

}  // namespace crownlab
