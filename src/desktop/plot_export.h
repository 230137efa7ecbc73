#pragma once

#include <QByteArray>
#include <QSizeF>
#include <string>

class QPrinter;

namespace crownlab {

struct PlotDocument;

/// What a saved plot shows: all shapes of the document with a little white around them, the page if it has none.
/// Size in points.
QSizeF SavedSize(const PlotDocument& document);

/// The plot as a PDF of one page of its own size; one of more than 5 metres, the most that readers take, is made
/// smaller. InvalidCall if it can't be made.
QByteArray PlotAsPdf(const PlotDocument& document);
QByteArray PlotAsSvg(const PlotDocument& document);
/// 150 dots an inch, less where the picture would have more than 30 million dots or a side of more than 16000.
QByteArray PlotAsPng(const PlotDocument& document);

/// Saves the plot under `path` in the form that its ending says (pdf, svg or png, in any letter case), whole or not at
/// all. InvalidCall for another ending, and what writing a file throws.
void SavePlot(const PlotDocument& document, const std::string& path);

/// Prints the plot on one page, in its own size or as large as it fits. False if the printer can't be had.
bool PrintPlot(const PlotDocument& document, QPrinter& printer);

}  // namespace crownlab
