#include "surferfns/node_layout.h"

#include <algorithm>

#include "basis/rounding.h"
#include "basis/text.h"

namespace crownlab {
namespace {

constexpr int kDecimals = 3;

double RoundedSpacing(double range, double n) {
    return RoundDecimals(Divide(range, n - 1, "nodes along the longer side"), kDecimals);
}

}  // namespace

GridShape NodesAlongLongerSide(const PointExtents& extents, double n) {
    const double count = RoundHalfEven(n);
    const double rangeX = extents.XMax - extents.XMin;
    const double rangeY = extents.YMax - extents.YMin;
    const bool alongX = rangeX > rangeY;
    const double spacing = RoundedSpacing(alongX ? rangeX : rangeY, count);
    const double across = RoundHalfEven(Divide(alongX ? rangeY : rangeX, spacing, "Spacing"));
    GridShape nodes;
    nodes.NumCols = alongX ? count : across;
    nodes.NumRows = alongX ? across : count;
    nodes.SpacingX = spacing;
    nodes.SpacingY = spacing;
    nodes.XMin = extents.XMin;
    nodes.XMax = extents.XMin + (nodes.NumCols - 1) * spacing;
    nodes.YMin = extents.YMin;
    nodes.YMax = extents.YMin + (nodes.NumRows - 1) * spacing;
    return nodes;
}

GridShape RoundedToThousandths(const GridShape& grid) {
    GridShape rounded = grid;
    rounded.SpacingX = RoundDecimals(grid.SpacingX, kDecimals);
    rounded.XMin = RoundDecimals(grid.XMin, kDecimals);
    rounded.XMax = rounded.XMin + (grid.NumCols - 1) * rounded.SpacingX;
    rounded.SpacingY = RoundDecimals(grid.SpacingY, kDecimals);
    rounded.YMin = RoundDecimals(grid.YMin, kDecimals);
    rounded.YMax = rounded.YMin + (grid.NumRows - 1) * rounded.SpacingY;
    return rounded;
}

std::string OutlineOfGrid(const std::string& stem, double less) {
    const auto size = static_cast<double>(stem.size());
    // Half to even of what is kept, as the length of a text is.
    const double kept = RoundHalfEven(size - less);
    const double taken = std::clamp(size - kept, 0.0, size + 1);
    return LessLast(stem, static_cast<std::size_t>(taken), "name of the grid") + "blnpts.bln";
}

}  // namespace crownlab
