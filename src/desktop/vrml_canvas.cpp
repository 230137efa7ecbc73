#include "desktop/vrml_canvas.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace crownlab {

VrmlCanvas::VrmlCanvas(QWidget* parent) : QOpenGLWidget(parent) {
    QSurfaceFormat format;
    format.setDepthBufferSize(24);
    format.setSamples(4);
    setFormat(format);
}

VrmlCanvas::~VrmlCanvas() { makeCurrent(); }

void VrmlCanvas::Fit() {
    fitWaits_ = true;
    update();
}

void VrmlCanvas::initializeGL() { context_ = VrmlScene::NewContext(); }

void VrmlCanvas::paintGL() {
    const QSize pixels = size() * devicePixelRatioF();
    if (fitWaits_) scene_.Fit(pixels);
    fitWaits_ = false;
    scene_.Draw(pixels, context_);
}

void VrmlCanvas::mousePressEvent(QMouseEvent* event) { last_ = event->position(); }

void VrmlCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPointF moved = event->position() - last_;
    last_ = event->position();
    if (event->buttons() & Qt::LeftButton) {
        scene_.Turn(moved.x() / width(), moved.y() / height());
    } else if (event->buttons() & (Qt::MiddleButton | Qt::RightButton)) {
        const double side = std::min(width(), height());
        scene_.Shift(moved.x() / side, moved.y() / side);
    }
    update();
}

void VrmlCanvas::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 120;  // Qt's eighths of a degree for one step of a usual wheel
    scene_.Approach(std::pow(0.9, event->angleDelta().y() / notch));
    event->accept();
    update();
}

}  // namespace crownlab
