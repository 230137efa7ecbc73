#pragma once

#include <QImage>
#include <memory>
#include <string>

#include "mapengine/plot_document.h"

namespace crownlab {

class PlotView;

/// A grid of `columns` by `rows` nodes over 0 to 3 and 0 to 2, all of height `z`.
Grid LevelGrid(double z, int columns = 31, int rows = 21);

/// The grid as a map with its upper left corner at (left, top).
PlotMap MapAt(MapKind kind, const Grid& grid, double left, double top, const std::string& path = "a.grd");

/// All axes without line, marks and numbers, as tools hide them.
void HideAxes(PlotMap& map);

/// A sheet as tools lay it out: four maps of a crown to a row, 18 units apart, one of each kind, with labels; the
/// second row without axes, with scale bars.
std::shared_ptr<PlotDocument> CrownSheet();

/// Waits until all pictures of the view are drawn, and returns what it shows.
QImage Settled(PlotView& view);

/// The colour that the view shows at a place of the page.
QColor ColourOnPage(const PlotView& view, const QImage& shown, double x, double y);

/// Keeps a picture with the build, to be looked at.
void KeepPicture(const QImage& picture, const char* name);

}  // namespace crownlab
