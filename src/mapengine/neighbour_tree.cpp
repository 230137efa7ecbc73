#include "mapengine/neighbour_tree.h"

#include <algorithm>
#include <numeric>

#include "basis/failure.h"
#include "basis/memory_limit.h"

namespace crownlab {
namespace {

/// The nearest points of one quadrant so far, nearest first.
struct Nearest {
    std::size_t Count = 0;
    double Worst = 0;  ///< squared distance that a further point may have at most
    std::array<double, kQuadrantPoints> Squared;
    std::array<std::uint32_t, kQuadrantPoints> Number;  ///< in the list
    std::array<std::uint32_t, kQuadrantPoints> Slot;    ///< in the tree

    void Offer(double squared, std::uint32_t number, std::uint32_t slot) {
        const bool full = Count == kQuadrantPoints;
        if (full && squared == Worst && number > Number[Count - 1]) return;
        std::size_t at = full ? Count - 1 : Count++;
        for (; at > 0 && (Squared[at - 1] > squared || (Squared[at - 1] == squared && Number[at - 1] > number)); --at) {
            Squared[at] = Squared[at - 1];
            Number[at] = Number[at - 1];
            Slot[at] = Slot[at - 1];
        }
        Squared[at] = squared;
        Number[at] = number;
        Slot[at] = slot;
        if (Count == kQuadrantPoints) Worst = Squared[Count - 1];
    }
};

/// How far `value` lies outside of [low, high].
double Outside(double value, double low, double high) { return std::max({low - value, value - high, 0.0}); }

}  // namespace

NeighbourTree::NeighbourTree(const DataPoints& points) {
    constexpr std::size_t most = std::size_t{1} << 31;
    if (points.size() >= most) throw Failure(FailureKind::OutOfMemory, "the points to grid");
    RequireMemory(points.size() * (3 * sizeof(double) + 3 * sizeof(std::uint32_t)), "the points to grid");
    std::vector<std::uint32_t> order(points.size());
    std::iota(order.begin(), order.end(), 0u);
    x_.reserve(points.size());
    y_.reserve(points.size());
    z_.reserve(points.size());
    number_.reserve(points.size());
    nodes_.reserve(points.size() / (kLeafSize / 4) + 1);
    nodes_.emplace_back();
    Build(points, order, 0, {.First = 0, .Last = static_cast<std::uint32_t>(points.size())});
}

void NeighbourTree::PutLeaf(const DataPoints& points, const std::vector<std::uint32_t>& order, std::uint32_t node,
                            Range range) {
    nodes_[node].First = static_cast<std::uint32_t>(x_.size());
    nodes_[node].Count = range.Last - range.First;
    for (std::uint32_t i = range.First; i < range.Last; ++i) {
        const DataPoint& point = points[order[i]];
        x_.push_back(point.X);
        y_.push_back(point.Y);
        z_.push_back(point.Z);
        number_.push_back(order[i]);
    }
}

void NeighbourTree::Build(const DataPoints& points, std::vector<std::uint32_t>& order, std::uint32_t node,
                          Range range) {
    constexpr double far = std::numeric_limits<double>::infinity();
    Node box{.XMin = far, .XMax = -far, .YMin = far, .YMax = -far};
    for (std::uint32_t i = range.First; i < range.Last; ++i) {
        const DataPoint& point = points[order[i]];
        box.XMin = std::min(box.XMin, point.X);
        box.XMax = std::max(box.XMax, point.X);
        box.YMin = std::min(box.YMin, point.Y);
        box.YMax = std::max(box.YMax, point.Y);
    }
    nodes_[node] = box;
    if (range.Last - range.First <= kLeafSize) {
        PutLeaf(points, order, node, range);
        return;
    }
    const auto along = box.XMax - box.XMin >= box.YMax - box.YMin ? &DataPoint::X : &DataPoint::Y;
    const std::uint32_t middle = range.First + (range.Last - range.First) / 2;
    std::nth_element(order.begin() + range.First, order.begin() + middle, order.begin() + range.Last,
                     [&](std::uint32_t a, std::uint32_t b) {
                         const double left = points[a].*along;
                         const double right = points[b].*along;
                         return left < right || (left == right && a < b);
                     });
    const auto children = static_cast<std::uint32_t>(nodes_.size());
    nodes_.resize(nodes_.size() + 2);
    nodes_[node].First = children;
    Build(points, order, children, {.First = range.First, .Last = middle});
    Build(points, order, children + 1, {.First = middle, .Last = range.Last});
}

/// One question to the tree.
class NeighbourTree::Search {
public:
    Search(const NeighbourTree& tree, double x, double y, double radiusSquared) : tree_(tree), x_(x), y_(y) {
        for (Nearest& quadrant : quadrants_) quadrant.Worst = radiusSquared;
    }

    void Run() {
        Push(0);
        while (depth_ > 0) {
            const Waiting top = stack_[--depth_];
            const Node& node = tree_.nodes_[top.Node];
            if (!MayHelp(node, top.Squared)) continue;
            if (node.Count > 0) {
                Offer(node);
                continue;
            }
            // The nearer one on top.
            const bool secondIsNearer = SquaredTo(tree_.nodes_[node.First + 1]) < SquaredTo(tree_.nodes_[node.First]);
            Push(node.First + (secondIsNearer ? 0 : 1));
            Push(node.First + (secondIsNearer ? 1 : 0));
        }
    }

    void Give(Neighbours& found) const {
        found.Count = 0;
        for (const Nearest& quadrant : quadrants_) {
            for (std::size_t i = 0; i < quadrant.Count; ++i, ++found.Count) {
                const std::uint32_t slot = quadrant.Slot[i];
                found.X[found.Count] = tree_.x_[slot];
                found.Y[found.Count] = tree_.y_[slot];
                found.Z[found.Count] = tree_.z_[slot];
                found.Squared[found.Count] = quadrant.Squared[i];
            }
        }
    }

private:
    struct Waiting {
        std::uint32_t Node;
        double Squared;
    };

    double SquaredTo(const Node& node) const {
        const double dx = Outside(x_, node.XMin, node.XMax);
        const double dy = Outside(y_, node.YMin, node.YMax);
        return dx * dx + dy * dy;
    }

    void Push(std::uint32_t node) {
        const double squared = SquaredTo(tree_.nodes_[node]);
        if (MayHelp(tree_.nodes_[node], squared)) stack_[depth_++] = {node, squared};
    }

    /// Whether a quadrant that the box reaches into may take a point so far away.
    bool MayHelp(const Node& node, double squared) const {
        const bool right = node.XMax >= x_;
        const bool left = node.XMin < x_;
        const bool up = node.YMax >= y_;
        const bool down = node.YMin < y_;
        return (right && up && squared <= quadrants_[0].Worst) || (left && up && squared <= quadrants_[1].Worst) ||
               (right && down && squared <= quadrants_[2].Worst) || (left && down && squared <= quadrants_[3].Worst);
    }

    void Offer(const Node& leaf) {
        for (std::uint32_t slot = leaf.First; slot < leaf.First + leaf.Count; ++slot) {
            const double dx = tree_.x_[slot] - x_;
            const double dy = tree_.y_[slot] - y_;
            const double squared = dx * dx + dy * dy;
            Nearest& quadrant = quadrants_[(dx < 0 ? 1u : 0u) + (dy < 0 ? 2u : 0u)];
            if (squared <= quadrant.Worst) quadrant.Offer(squared, tree_.number_[slot], slot);
        }
    }

    const NeighbourTree& tree_;
    double x_;
    double y_;
    std::array<Nearest, 4> quadrants_;
    // Halved at each level, 2^31 points make fewer than 32 levels; a level leaves one child waiting.
    std::array<Waiting, 64> stack_;
    std::size_t depth_ = 0;
};

void NeighbourTree::FindInQuadrants(double x, double y, double radiusSquared, Neighbours& found) const {
    Search search(*this, x, y, radiusSquared);
    search.Run();
    search.Give(found);
}

}  // namespace crownlab
