#include "mapengine/node_heights.h"

#include <cstdint>

namespace crownlab {
namespace {

/// Fewer neighbours than these leave a node blank.
constexpr std::size_t kFewestNeighbours = 8;

/// Nodes that a thread takes at a time: some milliseconds of the dearest method.
constexpr std::int64_t kNodesAtATime = 128;

double HalfDiagonalSquared(const DataPoints& points) {
    const DataBox box = BoxOf(points);
    return (box.Width() * box.Width() + box.Height() * box.Height()) / 4;
}

}  // namespace

void FillNodes(Grid& grid, Progress& progress, const HeightAt& height) {
    const GridGeometry& shape = grid.Shape;
    const auto nodes = static_cast<std::int64_t>(shape.Nodes());
    ForEachBlock(nodes, kNodesAtATime, progress, [&](std::int64_t first, std::int64_t last) {
        for (std::int64_t node = first; node < last; ++node) {
            const int column = static_cast<int>(node % shape.Columns);
            const int row = static_cast<int>(node / shape.Columns);
            const double z = height(shape.X(column), shape.Y(row));
            grid.Z[static_cast<std::size_t>(node)] = IsBlank(z) ? kBlankHeight : z;
        }
    });
}

void FillFromNeighbours(Grid& grid, const DataPoints& points, Progress& progress, HeightFromNeighbours height) {
    const NeighbourTree tree(points);
    const double radiusSquared = HalfDiagonalSquared(points);
    FillNodes(grid, progress, [&](double x, double y) {
        Neighbours found;
        tree.FindInQuadrants(x, y, radiusSquared, found);
        // A point at the place lies in the first quadrant, before all others.
        if (found.Count > 0 && found.Squared[0] == 0) return found.Z[0];
        return found.Count < kFewestNeighbours ? kBlankHeight : height(found);
    });
}

}  // namespace crownlab
