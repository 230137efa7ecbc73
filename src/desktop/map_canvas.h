#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "desktop/digitised_points.h"
#include "desktop/map_painter.h"

namespace crownlab {

/// What the left button of the mouse does on a map. The middle button, and the left one with the space bar, always move
/// the map.
enum class MapTool { Hand, Digitise };

/// How a map shows its grid.
struct MapLook {
    MapView View = MapView::Relief;
    MapPalette Palette = MapPalette::Viridis;
    bool ContourLines = false;  ///< over relief and image too
    double ContourStep = 0;     ///< height from line to line; 0: a round one that gives ten to twenty
    double HeightFactor = 1;    ///< of the relief
    friend bool operator==(const MapLook&, const MapLook&) = default;
};

/// The map of a grid with its axes, and the points that a person digitises on it.
class MapCanvas : public QWidget {
public:
    explicit MapCanvas(DigitisedPoints& points, QWidget* parent = nullptr);

    /// Shows a grid, all of it.
    void SetGrid(std::shared_ptr<const Grid> grid);
    void SetLook(const MapLook& look);
    const MapLook& Look() const { return look_; }
    void SetTool(MapTool tool);
    MapTool Tool() const { return tool_; }

    /// All of the map, as large as it fits.
    void Fit();
    /// Larger (above 1) or smaller about the middle.
    void Zoom(double factor);

    /// Where map positions lie in the widget.
    MapTransform Transform() const;
    /// The part of the widget inside the axes.
    QRectF Frame() const;
    /// Levels of the lines that are drawn.
    const std::vector<double>& ContourLevelsShown() const { return levels_; }

    void Select(std::optional<PointPlace> place);
    std::optional<PointPlace> Selected() const { return selected_; }
    /// The points were changed by other means than the mouse.
    void PointsChanged();

    std::function<void(std::optional<PlanePoint>)> OnHover;  ///< the place under the mouse, none beside the map
    std::function<void()> OnPoints;                          ///< the mouse changed the points or which is selected

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void wheelEvent(QWheelEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// What a pressed button has begun.
    enum class Gesture { None, Pan, Click, DragPoint };

    bool ShowsColourBar() const;
    QRectF ColourBarRect() const;
    void Redraw();
    void DrawBase();
    void PaintMapInside(QPainter& painter) const;
    void MakeImage();
    void MakeContours();
    void ZoomAt(QPointF at, double factor);
    void PanTo(QPointF at);
    std::optional<PointPlace> PointAt(QPointF at) const;
    void ShowPointer();

    DigitisedPoints& points_;
    std::shared_ptr<const Grid> grid_;
    HeightRange range_;
    MapLook look_;
    MapTool tool_ = MapTool::Hand;
    MapImage image_;
    std::vector<double> levels_;
    std::vector<ContourLine> contours_;
    QPixmap base_;  ///< the map without points, null when it has to be drawn anew

    // Map position in the middle of the frame, and pixels for one map unit.
    double middleX_ = 0;
    double middleY_ = 0;
    double scale_ = 1;
    bool fitted_ = true;  ///< stays fitted when the size changes

    Gesture gesture_ = Gesture::None;
    QPointF pressed_;
    QPointF last_;
    std::optional<PointPlace> selected_;
    bool dragged_ = false;
    bool space_ = false;
};

}  // namespace crownlab
