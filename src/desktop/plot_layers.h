#pragma once

#include <QImage>
#include <QRectF>

#include "mapengine/height_colours.h"

class QPainter;

namespace crownlab {

struct PlotMap;

/// The colours that a map gives to heights, or to light and shade.
MapPalette PaletteOf(const PlotMap& map);

/// True if a map has more than lines.
bool HasPicture(const PlotMap& map);

/// How a map shows its grid, as a picture that fills its frame, row 0 at the top; clear where the grid is blank. Lines
/// aren't in it: a contour map without colour scale is clear.
QImage LayerPicture(const PlotMap& map, QSize pixels);

/// The lines of a contour map; nothing for the other kinds.
void DrawContours(QPainter& painter, const PlotMap& map, const QRectF& frame);

}  // namespace crownlab
