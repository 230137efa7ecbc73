#pragma once

#include <string>

namespace crownlab {

class FileTable;
class LateBound;

/// Areas of a grid above and below the height 0, in squared map units.
struct SurfaceAreas {
    double PositivePlanar = 0;
    double NegativePlanar = 0;
    double PositiveSurface = 0;
    double NegativeSurface = 0;
    double BlankedPlanar = 0;
};

/// Has version 8 of `program` measure a grid. AutomationFailed.
SurfaceAreas MeasureAreas(const LateBound& program, const std::string& grid);

/// Adds a line to the table of areas. The first line replaces an older table and gets the heads.
void WriteAreas(FileTable& files, const std::string& table, const std::string& name, const SurfaceAreas& areas,
                bool first);

}  // namespace crownlab
