#pragma once

#include <string>
#include <vector>

#include "viewer/surface_grid.h"
#include "viewer/viewer_state.h"

namespace crownlab {

class FileTable;

/// Spacing that a search starts from; a result of this size means that none was found.
inline constexpr double kNoStep = 10000;

/// Computes the extents of `points` and makes their z fit for use: z above 1e36 (a blank of the source
/// grid) becomes the lowest z. With `originalModelFile` each z is negated first and in the end lifted so
/// that the lowest is 0; `zOrigin` then takes the amount subtracted.
///
/// Minima start at 100000 and maxima at -100000: coordinates beyond are never taken as an extent. A z
/// between -0.0001 and 0 doesn't lower the minimum.
SurfaceExtents FindSurfaceExtents(std::vector<SurfacePoint>& points, bool originalModelFile, double& zOrigin);

/// Smallest differences of x and of y between consecutive points that aren't 0 at six decimals, themselves
/// rounded at ten; kNoStep where there are none.
struct SurfaceSteps {
    double X = kNoStep;
    double Y = kNoStep;
};
SurfaceSteps FindSteps(const std::vector<SurfacePoint>& points);

/// Limits of the grid. Mode 1: 1 to 24 both ways; mode 2: the extents and one step around them, so that the
/// surface gets a ring of empty cells; any other mode leaves `old`.
GridLimits LimitsForMode(int mode, const SurfaceExtents& extents, const SurfaceSteps& steps, const GridLimits& old);

/// 1 + (limits / step) rounded half to even. Overflow above 32767 columns or rows, DivisionByZero for a step of 0.
struct GridSize {
    int NumX = 0;
    int NumY = 0;
};
GridSize SizeOfGrid(const GridLimits& limits, const SurfaceSteps& steps);

/// How the place of a point becomes a cell number.
enum class CellRule { Rounded, Floored };

/// The grid of cells: each point goes to its cell, a later one replacing an earlier, and a cell whose x, y
/// and z are all 0 counts as not reached and becomes an empty one. A point outside is SubscriptOutOfRange;
/// OutOfMemory before anything is made.
SurfaceGrid BuildCells(const std::vector<SurfacePoint>& points, const GridLimits& limits, const SurfaceSteps& steps,
                       GridSize size, CellRule rule);

/// Writes all cells row by row as x, y, z records; empty cells have z 9999.
void WriteSurfaceFile(FileTable& files, const std::string& path, const SurfaceGrid& grid);

}  // namespace crownlab
