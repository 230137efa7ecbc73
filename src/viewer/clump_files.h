#pragma once

#include <string>

#include "viewer/summary_stats.h"
#include "viewer/viewer_state.h"

namespace crownlab {

class FileTable;

/// What a patch count writes. Names start from `Folder` (with its separator), the surface's base name and
/// the run's identifier.
struct ClumpReport {
    std::string Folder;
    std::string BaseName;
    const ClumpResult* Result = nullptr;
    SummaryStatsResult Sizes;  ///< of the patch sizes
};

/// Statistics of patch sizes: all 0 without a patch, the one size with one.
SummaryStatsResult SizesOf(const std::vector<double>& clumpSizes);

/// Folder + base + "-" + identifier + "results.csv": one line of results, then number and size of each patch.
void WriteClumpResults(FileTable& files, const ClumpReport& report);

/// Folder + base + "-" + identifier + ".csv": x, y and patch number of each cell of a patch, row by row.
void WriteClumpCells(FileTable& files, const ClumpReport& report, const LabelGrid& clumps);

/// Folder + "00" + identifier + "allresults.csv": a line for each surface. With `append` the line is added,
/// else the file is made anew with its header.
void WriteClumpAllResults(FileTable& files, const ClumpReport& report, bool append);

/// Path of the patch image.
std::string ClumpImagePath(const ClumpReport& report);

}  // namespace crownlab
