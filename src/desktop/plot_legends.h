#pragma once

#include <QRectF>

class QPainter;

namespace crownlab {

struct PlotMap;

/// Draws the scale bars of a map, one below the other under its frame: cycles dark and light in turn, with numbers. A
/// bar that is many times as long as the map is told in words.
void DrawScaleBars(QPainter& painter, const PlotMap& map, const QRectF& frame);
QRectF ScaleBarsExtent(const PlotMap& map, const QRectF& frame);

/// Draws the colours of the heights with their numbers, to the right of the frame, if the map shows them.
void DrawColourScale(QPainter& painter, const PlotMap& map, const QRectF& frame);
QRectF ColourScaleExtent(const PlotMap& map, const QRectF& frame);

}  // namespace crownlab
