#pragma once

#include <QRectF>

class QPainter;

namespace crownlab {

struct PlotMap;
class SurfaceView;

/// Draws the four axes of a flat map around its frame: line, marks at round numbers and the numbers, each unless the
/// axis hides it.
void DrawAxes(QPainter& painter, const PlotMap& map, const QRectF& frame);

/// Which axes of a surface: those that it may hide, and those that stand before it.
enum class AxisSide { Behind, Before };

/// Draws the axes of a surface along the sides of the floor of its box; the fifth, the height axis, stands at the
/// corner of the floor that lies farthest to the left.
void DrawSurfaceAxes(QPainter& painter, const PlotMap& map, const SurfaceView& view, AxisSide side);

/// What flat axes take up around the frame.
QRectF AxesExtent(const PlotMap& map, const QRectF& frame);

}  // namespace crownlab
