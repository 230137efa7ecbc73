#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "formats/point_text.h"

namespace crownlab {

/// A point of a tree and its squared distance from a place.
struct NearestPoint {
    std::uint32_t Slot = 0;  ///< place in the tree's own order, see NearestTree::Index
    double Squared = std::numeric_limits<double>::infinity();
};

/// Exact search for the nearest of a set of points: a binary tree over the points, halved along the longer
/// side, each node with the box around its points (J. L. Bentley, "Multidimensional binary search trees used
/// for associative searching", 1975, with boxes instead of planes).
///
/// The squared distance is (dx dx + dy dy) + dz dz in 64-bit floats. That of a node's box is reckoned by the
/// same operations in the same order on differences that are no larger, and rounding keeps order; so no point
/// of a node comes out nearer than its box, and leaving out boxes loses nothing to the last bit.
class NearestTree {
public:
    /// Up to 2^32 - 1 points.
    explicit NearestTree(const PointCloud& points);

    std::size_t Size() const { return index_.size(); }
    /// Place in the cloud, from 0, of the point at a slot.
    std::uint32_t Index(std::uint32_t slot) const { return index_[slot]; }
    /// Squared distance between `p` and the point at a slot.
    double Squared(const CloudPoint& p, std::uint32_t slot) const;

    /// The nearest point to `p`; the tree must not be empty. `start` is where a near point is guessed: the
    /// answer to a place close by makes the search short. Among equally near points any may be given.
    NearestPoint Nearest(const CloudPoint& p, std::uint32_t start) const;

    /// The nearest among the points whose slot `admits`; its Squared stays infinite if there is none.
    template <typename Admits>
    NearestPoint NearestAmong(const CloudPoint& p, const Admits& admits) const {
        NearestPoint best;
        Search(p, best, admits);
        return best;
    }

private:
    static constexpr std::size_t kLeafSize = 8;
    struct Node {
        CloudPoint Low;
        CloudPoint High;
        std::uint32_t First = 0;
        std::uint32_t Last = 0;   ///< one behind
        std::uint32_t Right = 0;  ///< second child (the first one follows its parent); 0 for a leaf
    };

    std::uint32_t Build(const PointCloud& points, std::uint32_t first, std::uint32_t last);
    static double BoxSquared(const CloudPoint& p, const Node& node);
    template <typename Admits>
    void Search(const CloudPoint& p, NearestPoint& best, const Admits& admits) const;

    std::vector<Node> nodes_;
    std::vector<std::uint32_t> index_;
    std::vector<double> x_;
    std::vector<double> y_;
    std::vector<double> z_;
};

inline double NearestTree::Squared(const CloudPoint& p, std::uint32_t slot) const {
    const double dx = p.x - x_[slot];
    const double dy = p.y - y_[slot];
    const double dz = p.z - z_[slot];
    return (dx * dx + dy * dy) + dz * dz;
}

inline double NearestTree::BoxSquared(const CloudPoint& p, const Node& node) {
    const auto outside = [](double value, double low, double high) {
        const double below = low - value;
        const double above = value - high;
        const double more = below > above ? below : above;
        return more > 0 ? more : 0;
    };
    const double dx = outside(p.x, node.Low.x, node.High.x);
    const double dy = outside(p.y, node.Low.y, node.High.y);
    const double dz = outside(p.z, node.Low.z, node.High.z);
    return (dx * dx + dy * dy) + dz * dz;
}

template <typename Admits>
void NearestTree::Search(const CloudPoint& p, NearestPoint& best, const Admits& admits) const {
    struct Waiting {
        std::uint32_t Node;
        double Squared;
    };
    // Halving 2^32 points leaves fewer levels than this.
    std::array<Waiting, 64> stack;
    std::size_t depth = 0;
    stack[depth++] = {0, BoxSquared(p, nodes_[0])};
    while (depth > 0) {
        const Waiting top = stack[--depth];
        if (!(top.Squared < best.Squared)) continue;
        std::uint32_t at = top.Node;
        while (nodes_[at].Right != 0) {
            std::uint32_t near = at + 1;
            std::uint32_t far = nodes_[at].Right;
            double nearSquared = BoxSquared(p, nodes_[near]);
            double farSquared = BoxSquared(p, nodes_[far]);
            if (farSquared < nearSquared) {
                std::swap(near, far);
                std::swap(nearSquared, farSquared);
            }
            if (farSquared < best.Squared) stack[depth++] = {far, farSquared};
            if (!(nearSquared < best.Squared)) break;
            at = near;
        }
        if (nodes_[at].Right != 0) continue;
        for (std::uint32_t slot = nodes_[at].First; slot < nodes_[at].Last; ++slot) {
            const double squared = Squared(p, slot);
            if (squared < best.Squared && admits(slot)) best = {slot, squared};
        }
    }
}

}  // namespace crownlab
