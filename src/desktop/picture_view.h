#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>

#include "forms/raster.h"

namespace crownlab {

/// Shows the raster of a picture box, smoothly stretched to the largest size of the told shape that fits.
class PictureView : public QWidget {
public:
    explicit PictureView(QWidget* parent = nullptr);

    /// Display pixels that the record tells; positions of the mouse are given in these.
    void SetShape(QSize told);
    /// The first `columns` by `rows` pixels of `raster` fill the box. No raster shows an empty box.
    void SetPicture(std::shared_ptr<const Raster> raster, int columns, int rows);
    /// Where the picture lies in the widget, in the widget's own coordinates.
    QRectF Target() const;

    std::function<void(double x, double y)> OnMove;
    std::function<void()> OnClick;

    QSize sizeHint() const override { return hint_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    const QPixmap& Stretched(QSize devicePixels);

    QSize told_;
    QSize hint_;  ///< first told size: the layout stays as it is when another surface is less wide
    std::shared_ptr<const Raster> raster_;
    int columns_ = 0;
    int rows_ = 0;
    QPixmap stretched_;
};

}  // namespace crownlab
