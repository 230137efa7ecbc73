#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "formats/point_text.h"
#include "pointcloud/bin_grid.h"

namespace crownlab {

class FileTable;

/// A bin by column and row.
struct BinPosition {
    std::int64_t Column = 0;
    std::int64_t Row = 0;
    friend bool operator==(const BinPosition&, const BinPosition&) = default;
};

/// What stops a walk.
enum class WalkError { None, NoEmptyBin, NoOccupiedBin, TooManyPositions };

/// The message of a walk that was stopped.
std::string WalkErrorText(WalkError error);

/// The walk around the occupied bins, over the empty bins that touch them, clockwise from the left of the
/// leftmost bin of the lowest row. The start stands first and last.
struct OutlineWalk {
    std::vector<BinPosition> Bins;
    WalkError Error = WalkError::None;
};
OutlineWalk WalkAround(const BinGrid& grid);

/// A vertex chosen for a position of the walk; all 0 where none qualified.
struct OutlineVertex {
    double x = 0;
    double y = 0;
    double Distance = 0;  ///< from the nearest point
};

/// For each position the corner, side middle or centre of its bin that is nearest to the cloud but farther
/// than a quarter of a bin; the first of equals.
std::vector<OutlineVertex> PlaceVertices(const BinGrid& grid, const std::vector<BinPosition>& walk);

/// The vertices less than three quarters of a bin from the cloud. One that never was placed passes too, and
/// shows as a spike towards the origin. Overflow above 32767.
std::vector<OutlineVertex> KeepVertices(const std::vector<OutlineVertex>& vertices, double binSize);

/// Writes a boundary file: number of vertices and flag 0, then x, y, each vertex as the mean of itself and
/// its two neighbours around the ring. SubscriptOutOfRange below two vertices.
void WriteOutline(FileTable& files, const std::string& path, const std::vector<OutlineVertex>& vertices);

/// Middles of every third bin, both ways, with nothing in the nine bins around and no walk through them, at
/// the height `z`. They go into holes of the cloud too. OutOfMemory.
PointCloud FillPoints(const BinGrid& grid, const std::vector<BinPosition>& walk, double z);

}  // namespace crownlab
