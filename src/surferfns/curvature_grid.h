#pragma once

#include <string>

namespace crownlab {

struct Session;

/// Makes the grid of the greatest curvature over directions of 0 to 180 degrees, 10 apart, of a grid: beside it, under
/// its name less four characters and "_curv10.grd". The grids of single directions ("0.grd" to "18.grd") and of the
/// running maximum ("m0.grd" to "m17.grd") replace what has their names and are deleted at the end. Their calls
/// throw AutomationFailed; a grid that is missing at the end is FileNotFound.
void MakeCurvatureGrid(const Session& session, const std::string& grid);

}  // namespace crownlab
