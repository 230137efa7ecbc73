#pragma once

#include <array>
#include <string>

#include "mapengine/grid.h"
#include "mapengine/grid_volume.h"
#include "mapengine/worksheet.h"

namespace crownlab {

/// A measured surface as a report names it.
struct ReportedSurface {
    std::string Path;               ///< file of the grid
    const Grid* Heights = nullptr;  ///< nullptr for a constant
    double Constant = 0;
};

/// The figures of a volume as a worksheet, numbers with all their digits. Scripts find them by row and column:
/// (4,4) columns, (4,7) rows, (5,2) and (6,2) spacings, (7,1) and (7,3) x limits, (8,1) and (8,3) y limits, (9,1) and
/// (9,3) z limits of the upper grid; (21,3) volume above, (27,3) its planar area, (34,3) its surface area. A lower
/// grid is described in six more rows, so the last three stand six lower with it.
Worksheet VolumeReport(const ReportedSurface& upper, const ReportedSurface& lower, const GridVolumes& volumes);

/// How many figures a caller's array takes.
inline constexpr int kVolumeFigures = 11;

/// The figures in the order of a caller's array: net volume by Simpson's rule and by the 3/8 rule; above and below:
/// volumes, planar areas, surface areas; the blank planar area; two zeros.
std::array<double, kVolumeFigures> VolumeFigures(const GridVolumes& volumes);

}  // namespace crownlab
