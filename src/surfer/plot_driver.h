#pragma once

#include <string>

#include "surfer/automation.h"

namespace crownlab {

struct Session;
class WindowTable;

/// Kinds of map, with the numbers that the tools use.
inline constexpr int kPlotRelief = 1;
inline constexpr int kPlotContour = 2;
inline constexpr int kPlotImage = 3;
inline constexpr int kPlotSurface = 4;

/// Distances on the page that all plots share, in page units.
inline constexpr double kMapCentreX = 10.19;
inline constexpr double kLabelX = 10.44;
inline constexpr double kLabelY = 13.5;

/// One map of a batch.
struct PlotRequest {
    std::string GridPath;
    std::string BaseName;      ///< label text without extension, empty for none
    std::string NameAddition;  ///< goes between the base name and ".grd" in the label
    int Type = kPlotRelief;
    int Slot = 1;  ///< place in the batch, from 1
    bool Label = false;
};

/// Version 6: a relief map and its text, ten to a row, whatever the type.
void PlotReliefRow(const LateBound& program, const std::string& gridPath, const std::string& baseName, int slot);

/// The plot document that a tool's maps go to, and its shapes.
struct PlotPage {
    LateBound Document;
    LateBound Shapes;
};

/// Attaches and takes the active document. AutomationFailed if none is open.
PlotPage ActivePlotPage(Session& session, WindowTable& windows);

/// Where the maps of a batch stand under version 8.
struct SheetLayout {
    double PerRow = 8;
    double SpacingX = 18;
    double SpacingY = 18;
};

/// Column (from 1) and row (from 0) of a slot. DivisionByZero for a row of no maps.
struct SheetPlace {
    double Column = 1;
    double Row = 0;
};
SheetPlace PlaceOfSlot(const SheetLayout& layout, int slot);

/// Moves a map frame to its place.
void PlaceMap(const LateBound& frame, const SheetLayout& layout, const SheetPlace& place);

/// Writes the label of a map, `text`, below it.
void LabelMap(const PlotPage& page, const LateBound& frame, const SheetLayout& layout, const SheetPlace& place,
              const std::string& text);

/// Light and view of a 3D surface.
struct SurfaceView {
    double Azimuth = 135;
    double Zenith = 45;
    int Projection = 1;  ///< 1 perspective, 2 orthographic
    double Rotation = 45;
    double Tilt = 30;
};
void SetSurfaceView(const LateBound& surface, const SurfaceView& view);

/// Lays one grid out as a map of a sheet, as the conversion window does it. `program` is that window's own session. Any
/// other version does nothing. The image type shows the program's own sample surface, whatever the grid: that is how
/// this sheet has always been.
void PlotSurfer(Session& session, WindowTable& windows, const LateBound& program, const PlotRequest& request);

}  // namespace crownlab
