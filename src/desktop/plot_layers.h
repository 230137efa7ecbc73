#pragma once

#include <QImage>
#include <QRectF>

class QPainter;

namespace crownlab {

struct PlotMap;

/// The colour that a map gives to a height: its palette, in steps between the lines of a contour map.
QRgb LayerColour(const PlotMap& map, double z);

/// How a map shows its grid, as a picture that fills its frame, row 0 at the top; clear where the grid is blank. A
/// contour map without colour scale has lines only: its picture is clear.
QImage LayerPicture(const PlotMap& map, QSize pixels);

/// The lines of a contour map; nothing for the other kinds.
void DrawContours(QPainter& painter, const PlotMap& map, const QRectF& frame);

}  // namespace crownlab
