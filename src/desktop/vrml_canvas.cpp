#include "desktop/vrml_canvas.h"

#include <QMouseEvent>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
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
    QOpenGLFunctions& gl = *context()->functions();
    // The scene library takes it for granted, Qt leaves it off: without it what is drawn last covers what is nearer.
    gl.glEnable(GL_DEPTH_TEST);
    scene_.Draw(pixels, context_);
    // It clears to transparent: the window would shine through the sky.
    gl.glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_TRUE);
    gl.glClearColor(0, 0, 0, 1);
    gl.glClear(GL_COLOR_BUFFER_BIT);
    gl.glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
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
