#pragma once

#include "surfer/plot_driver.h"

namespace crownlab {

/// How a sheet of maps looks.
struct SheetOptions {
    SheetLayout Layout{.PerRow = 6};
    SurfaceView View;  ///< its light serves relief maps too
    bool Axes = true;
    bool ScaleBar = false;
    double ScaleBarCycle = 0.05;  ///< length of one of its eight cycles, map units
    bool Label = true;
};

/// Lays one grid out as a map of a sheet: under version 6 as a relief map, ten to a row, whatever the options; under
/// version 8 as they say. Any other version does nothing. A type that is none of the four is ObjectNotSet, a row of no
/// maps DivisionByZero. `session.SurferApp` is the program of version 6; version 8 attaches anew.
void PlotOnSheet(Session& session, WindowTable& windows, const SheetOptions& options, const PlotRequest& request);

}  // namespace crownlab
