#pragma once

#include <optional>

#include "desktop/digitised_points.h"
#include "desktop/map_painter.h"

class QPainter;
class QRectF;

namespace crownlab {

/// Draws digitised points over a map, inside `clip`: each with its number in its area ("2.1" where there are several
/// areas), joined in their order, and the edge that closes an area of three and more dashed.
void PaintPoints(QPainter& painter, const MapTransform& transform, const QRectF& clip, const DigitisedAreas& areas,
                 std::optional<PointPlace> selected);

/// The number of a point as a person reads it.
QString PointNumber(const DigitisedAreas& areas, PointPlace place);

}  // namespace crownlab
