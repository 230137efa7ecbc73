#pragma once

#include <QOpenGLWidget>
#include <QPointF>

#include "desktop/vrml_scene.h"

namespace crownlab {

/// The surface that a VRML model is drawn on.
class VrmlCanvas : public QOpenGLWidget {
public:
    explicit VrmlCanvas(QWidget* parent = nullptr);
    ~VrmlCanvas() override;

    VrmlScene& Scene() { return scene_; }
    /// Shows all of the model, at once or as soon as the widget has a size.
    void Fit();

protected:
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    VrmlScene scene_;
    unsigned context_ = 0;
    bool fitWaits_ = false;
    QPointF last_;
};

}  // namespace crownlab
