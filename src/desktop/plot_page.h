#pragma once

#include <QFont>
#include <QRectF>

namespace crownlab {

struct PlotDocument;
struct PlotMap;
struct PlotText;

/// Plots are drawn in points (1/72 inch) with y running down; page units are centimetres with y running up. Both have
/// their origin in the page's lower left corner, so the page itself lies above y = 0 of the drawing.
inline constexpr double kPointsPerUnit = 72 / 2.54;

/// A place of the page on the drawing.
QPointF OnDrawing(double x, double y);
/// A length of the page on the drawing.
inline double Points(double units) { return units * kPointsPerUnit; }

/// The page of a document that nothing was put on yet.
QRectF PageRectangle();
/// The rectangle of a map, without what stands around it.
QRectF FrameOf(const PlotMap& map);
/// A map with its axes, scale bars and colour scale.
QRectF ExtentOf(const PlotMap& map);
/// The lines of a text.
QRectF ExtentOf(const PlotText& text);
/// All shapes of a document, empty if it has none.
QRectF ExtentOf(const PlotDocument& document);

/// Letters of numbers at axes and bars, and of texts.
QFont AxisFont();
QFont LabelFont();

/// Room that a text of one line takes.
QSizeF TextSize(const QFont& font, const QString& text);

}  // namespace crownlab
