#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "mapengine/data_points.h"

namespace crownlab {

/// Nearest points that a quadrant gives at most.
inline constexpr std::size_t kQuadrantPoints = 16;

/// What the four quadrants around a place hold: (dx >= 0, dy >= 0), (dx < 0, dy >= 0), (dx >= 0, dy < 0),
/// (dx < 0, dy < 0), dx and dy being point less place; in each the nearest first.
struct Neighbours {
    static constexpr std::size_t kMost = 4 * kQuadrantPoints;
    std::size_t Count = 0;
    std::array<double, kMost> X;
    std::array<double, kMost> Y;
    std::array<double, kMost> Z;
    std::array<double, kMost> Squared;  ///< distance, squared
};

/// Exact quadrant search: a tree over the points, halved along the longer side (J. L. Bentley, "Multidimensional
/// binary search trees used for associative searching", 1975).
///
/// Squared distances are dx dx + dy dy in 64-bit floats, those of boxes too; rounding keeps order, so no point of a
/// box comes out nearer than its box, and leaving out boxes loses nothing to the last bit. The points keep no
/// reference to the list they came from.
class NeighbourTree {
public:
    /// Fewer than 2^31 points.
    explicit NeighbourTree(const DataPoints& points);

    /// The 16 nearest points of each quadrant whose squared distance is at most `radiusSquared`; equally near ones in
    /// the order of the list.
    void FindInQuadrants(double x, double y, double radiusSquared, Neighbours& found) const;

private:
    static constexpr std::uint32_t kLeafSize = 8;

    /// A box with two children, or of points.
    struct Node {
        double XMin, XMax, YMin, YMax;
        std::uint32_t First = 0;  ///< first point, or the first of two children that stand side by side
        std::uint32_t Count = 0;  ///< points of a leaf, 0 for a node with children
    };
    struct Range {
        std::uint32_t First = 0;
        std::uint32_t Last = 0;  ///< one behind
    };
    class Search;

    void Build(const DataPoints& points, std::vector<std::uint32_t>& order, std::uint32_t node, Range range);
    void PutLeaf(const DataPoints& points, const std::vector<std::uint32_t>& order, std::uint32_t node, Range range);

    std::vector<Node> nodes_;
    // The points in the order of the tree.
    std::vector<double> x_;
    std::vector<double> y_;
    std::vector<double> z_;
    std::vector<std::uint32_t> number_;  ///< place in the list
};

}  // namespace crownlab
