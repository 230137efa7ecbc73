#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

#include "basis/dispatch.h"
#include "formats/point_text.h"

namespace crownlab {

/// A point of a tree and its squared distance from a place.
struct NearestPoint {
    std::uint32_t Slot = 0;  ///< place in the tree's own order, see NearestTree::Index
    double Squared = std::numeric_limits<double>::infinity();
};

/// Exact search for the nearest of a set of points: a tree over the points, halved along the longer side (J. L.
/// Bentley, "Multidimensional binary search trees used for associative searching", 1975), three halvings a level, so
/// that a node holds the boxes around the points of its eight children side by side for wide registers.
///
/// The squared distance is (dx dx + dy dy) + dz dz in 64-bit floats. That of a box is reckoned by the same operations
/// in the same order on differences that are no larger, and rounding keeps order; so no point of a box comes out
/// nearer than its box, and leaving out boxes loses nothing to the last bit.
class NearestTree {
public:
    /// From 1 to 2^28 points.
    explicit NearestTree(const PointCloud& points);

    /// Slots go from 0 to here; those of no point lie in between, infinitely far from everything.
    std::uint32_t SlotCount() const { return static_cast<std::uint32_t>(index_.size()); }
    /// Place in the cloud, from 0, of the point at a slot.
    std::uint32_t Index(std::uint32_t slot) const { return index_[slot]; }

    /// The nearest point to `p`. `start` is the slot of a point, where a near one is guessed: the answer to a place
    /// close by makes the search short. Among equally near points any may be given.
    NearestPoint Nearest(const CloudPoint& p, std::uint32_t start) const;

    /// The nearest among the points whose slot `admits`; its Squared stays infinite if there is none.
    template <typename Admits>
    NearestPoint NearestAmong(const CloudPoint& p, const Admits& admits) const {
        NearestPoint best;
        Search(p, best, admits);
        return best;
    }

    /// Squared distance between `p` and the point at a slot.
    double Squared(const CloudPoint& p, std::uint32_t slot) const;

private:
    static constexpr std::uint32_t kWidth = 8;
    /// Set in the number of a child that is a leaf.
    static constexpr std::uint32_t kLeaf = 1u << 31;
    using Lanes = std::array<double, kWidth>;
    /// Boxes of eight children; of those that aren't there the corners are infinite.
    struct Node {
        Lanes LowX, LowY, LowZ, HighX, HighY, HighZ;
        std::array<std::uint32_t, kWidth> Children;
    };
    /// Eight points; those that aren't there are infinitely far.
    struct Leaf {
        Lanes X, Y, Z;
    };
    struct Range {
        std::uint32_t First = 0;
        std::uint32_t Last = 0;  ///< one behind
    };

    std::uint32_t BuildNode(const PointCloud& points, std::vector<std::uint32_t>& order, Range range);
    std::uint32_t BuildLeaf(const PointCloud& points, const std::vector<std::uint32_t>& order, Range range);
    static void PutBox(Node& node, std::size_t lane, const PointCloud& points, const std::vector<std::uint32_t>& order,
                       Range range);
    static Lanes BoxesSquared(const CloudPoint& p, const Node& node);
    static Lanes PointsSquared(const CloudPoint& p, const Leaf& leaf);
    template <typename Admits>
    void SearchLeaf(const CloudPoint& p, std::uint32_t leaf, NearestPoint& best, const Admits& admits) const;
    template <typename Admits>
    void Search(const CloudPoint& p, NearestPoint& best, const Admits& admits) const;

    std::uint32_t root_ = 0;
    std::vector<Node> nodes_;
    std::vector<Leaf> leaves_;
    std::vector<std::uint32_t> index_;  ///< one a slot: kWidth a leaf
};

CROWNLAB_INLINE double NearestTree::Squared(const CloudPoint& p, std::uint32_t slot) const {
    const Leaf& leaf = leaves_[slot / kWidth];
    const double dx = p.x - leaf.X[slot % kWidth];
    const double dy = p.y - leaf.Y[slot % kWidth];
    const double dz = p.z - leaf.Z[slot % kWidth];
    return (dx * dx + dy * dy) + dz * dz;
}

CROWNLAB_INLINE NearestTree::Lanes NearestTree::BoxesSquared(const CloudPoint& p, const Node& node) {
    const auto outside = [](double value, double low, double high) {
        const double below = low - value;
        const double above = value - high;
        const double more = below > above ? below : above;
        return more > 0 ? more : 0;
    };
    Lanes squared;
    for (std::size_t i = 0; i < kWidth; ++i) {
        const double dx = outside(p.x, node.LowX[i], node.HighX[i]);
        const double dy = outside(p.y, node.LowY[i], node.HighY[i]);
        const double dz = outside(p.z, node.LowZ[i], node.HighZ[i]);
        squared[i] = (dx * dx + dy * dy) + dz * dz;
    }
    return squared;
}

CROWNLAB_INLINE NearestTree::Lanes NearestTree::PointsSquared(const CloudPoint& p, const Leaf& leaf) {
    Lanes squared;
    for (std::size_t i = 0; i < kWidth; ++i) {
        const double dx = p.x - leaf.X[i];
        const double dy = p.y - leaf.Y[i];
        const double dz = p.z - leaf.Z[i];
        squared[i] = (dx * dx + dy * dy) + dz * dz;
    }
    return squared;
}

template <typename Admits>
CROWNLAB_INLINE void NearestTree::SearchLeaf(const CloudPoint& p, std::uint32_t leaf, NearestPoint& best,
                                             const Admits& admits) const {
    const Lanes squared = PointsSquared(p, leaves_[leaf]);
    for (std::uint32_t i = 0; i < kWidth; ++i) {
        const std::uint32_t slot = leaf * kWidth + i;
        if (squared[i] < best.Squared && admits(slot)) best = {slot, squared[i]};
    }
}

template <typename Admits>
CROWNLAB_INLINE void NearestTree::Search(const CloudPoint& p, NearestPoint& best, const Admits& admits) const {
    struct Waiting {
        std::uint32_t Child;
        double Squared;
    };
    // 2^28 points make fewer than 10 levels; a level leaves 7 children waiting at most.
    std::array<Waiting, 80> stack;
    std::size_t depth = 0;
    stack[depth++] = {root_, 0};
    while (depth > 0) {
        const Waiting top = stack[--depth];
        if (!(top.Squared < best.Squared)) continue;
        if ((top.Child & kLeaf) != 0) {
            SearchLeaf(p, top.Child & ~kLeaf, best, admits);
            continue;
        }
        const Node& node = nodes_[top.Child];
        const Lanes squared = BoxesSquared(p, node);
        const std::size_t base = depth;
        for (std::size_t i = 0; i < kWidth; ++i) {
            if (!(squared[i] < best.Squared)) continue;
            // Nearest on top.
            std::size_t at = depth++;
            for (; at > base && stack[at - 1].Squared < squared[i]; --at) stack[at] = stack[at - 1];
            stack[at] = {node.Children[i], squared[i]};
        }
    }
}

}  // namespace crownlab
