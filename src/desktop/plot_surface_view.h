#pragma once

#include <QPointF>
#include <QRectF>
#include <vector>

namespace crownlab {

struct MapLayer;
struct PlotMap;

/// How a 3D surface stands on the page: the box around it is turned counter-clockwise about its height axis, tilted
/// towards the viewer (0 from the side, 90 from above) and put into the map's rectangle. The box keeps the scale of the
/// page as long as it fits there, and is made smaller, but never larger, where it doesn't: maps of one size stand
/// beside one another whatever their view. Seen from above without turn, an orthographic surface lies exactly where
/// the flat map of the same grid would.
class SurfaceView {
public:
    /// Lengths of the sides of the box, in the units of the drawing.
    struct Box {
        double X = 1;
        double Y = 1;
        double Z = 1;
    };
    /// `frame` is the rectangle on the drawing, whose y runs down.
    SurfaceView(const MapLayer& layer, const Box& box, const QRectF& frame);

    /// Place on the drawing of a point of the box, given as shares of its sides (0 to 1 each, z from its floor).
    QPointF Place(double x, double y, double z) const;

    /// Where the eye stands, as shares of the sides; far away for an orthographic view.
    double EyeX() const { return eyeX_; }
    double EyeY() const { return eyeY_; }

    /// Sides of the box's floor that stand between the viewer and the surface, in the order of a map's axes: bottom,
    /// top, left, right.
    bool IsInFront(int side) const;

private:
    struct Turned {
        double Across;
        double Up;
        double Near;
    };
    Turned Turn(double x, double y, double z) const;
    QPointF Projected(double x, double y, double z) const;

    Box box_;
    double cosTurn_ = 1;
    double sinTurn_ = 0;
    double cosTilt_ = 0;
    double sinTilt_ = 1;
    double distance_ = 0;  ///< of the eye from the middle of the box, 0 for an orthographic view
    double eyeX_ = 0;
    double eyeY_ = 0;
    double scale_ = 1;
    QPointF shift_;
};

/// The view of a map of kind Surface that stands in `frame`.
SurfaceView ViewOf(const PlotMap& map, const QRectF& frame);

/// Cells 0 to count - 1 of equal or unequal width, those farther from the eye before those nearer to it. `edges` are
/// the count + 1 rising borders of the cells, in the unit of `eye`.
std::vector<int> FarToNear(const std::vector<double>& edges, double eye);

}  // namespace crownlab
