#pragma once

#include <QRectF>
#include <functional>

class QPainter;

namespace crownlab {

struct PlotDocument;
struct PlotMap;

/// Draws how a map shows its grid into its frame: the part of a map that is worth keeping as a picture.
using DrawBody = std::function<void(QPainter& painter, const PlotMap& map, const QRectF& frame)>;

/// Draws those shapes of a document that reach into `part` of the drawing (see plot_page.h for its units), later ones
/// over earlier ones. A map without any height says so in its frame.
void DrawPlot(QPainter& painter, const PlotDocument& document, const QRectF& part, const DrawBody& body);

/// A body for paper and files: pictures of `dotsPerInch` where there are cells, lines as lines.
DrawBody BodyForPaper(double dotsPerInch);

/// What a map says in its frame in place of its grid, empty if it has heights to show.
QString SentenceOf(const PlotMap& map);

}  // namespace crownlab
