#include "pointcloud/nearest_tree.h"

#include <algorithm>
#include <numeric>

#include "basis/failure.h"

namespace crownlab {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

double Along(const CloudPoint& p, int axis) { return axis == 0 ? p.x : axis == 1 ? p.y : p.z; }

struct Extent {
    CloudPoint Low{kInfinite, kInfinite, kInfinite};
    CloudPoint High{-kInfinite, -kInfinite, -kInfinite};
};

Extent ExtentOf(const PointCloud& points, const std::uint32_t* first, const std::uint32_t* last) {
    Extent extent;
    for (; first != last; ++first) {
        const CloudPoint& p = points[*first];
        extent.Low = {std::min(extent.Low.x, p.x), std::min(extent.Low.y, p.y), std::min(extent.Low.z, p.z)};
        extent.High = {std::max(extent.High.x, p.x), std::max(extent.High.y, p.y), std::max(extent.High.z, p.z)};
    }
    return extent;
}

int LongerSide(const Extent& extent) {
    const double x = extent.High.x - extent.Low.x;
    const double y = extent.High.y - extent.Low.y;
    const double z = extent.High.z - extent.Low.z;
    return x >= y && x >= z ? 0 : y >= z ? 1 : 2;
}

}  // namespace

NearestTree::NearestTree(const PointCloud& points) {
    constexpr std::size_t most = 1u << 28;
    if (points.empty()) throw Failure(FailureKind::SubscriptOutOfRange, "a tree of no points");
    if (points.size() > most) throw Failure(FailureKind::OutOfMemory, "a tree of points");
    std::vector<std::uint32_t> order(points.size());
    std::iota(order.begin(), order.end(), 0u);
    const Range all{0, static_cast<std::uint32_t>(order.size())};
    root_ = order.size() <= kWidth ? BuildLeaf(points, order, all) : BuildNode(points, order, all);
}

std::uint32_t NearestTree::BuildLeaf(const PointCloud& points, const std::vector<std::uint32_t>& order, Range range) {
    const auto self = static_cast<std::uint32_t>(leaves_.size());
    Leaf& leaf = leaves_.emplace_back();
    for (std::uint32_t i = 0; i < kWidth; ++i) {
        const bool there = range.First + i < range.Last;
        const std::uint32_t point = there ? order[range.First + i] : 0;
        leaf.X[i] = there ? points[point].x : kInfinite;
        leaf.Y[i] = there ? points[point].y : kInfinite;
        leaf.Z[i] = there ? points[point].z : kInfinite;
        index_.push_back(point);
    }
    return self | kLeaf;
}

void NearestTree::PutBox(Node& node, std::size_t lane, const PointCloud& points,
                         const std::vector<std::uint32_t>& order, Range range) {
    const Extent extent = ExtentOf(points, order.data() + range.First, order.data() + range.Last);
    node.LowX[lane] = extent.Low.x;
    node.LowY[lane] = extent.Low.y;
    node.LowZ[lane] = extent.Low.z;
    node.HighX[lane] = extent.High.x;
    node.HighY[lane] = extent.High.y;
    node.HighZ[lane] = extent.High.z;
}

std::uint32_t NearestTree::BuildNode(const PointCloud& points, std::vector<std::uint32_t>& order, Range range) {
    constexpr int halvings = 3;
    std::vector<Range> parts{range};
    for (int i = 0; i < halvings; ++i) {
        std::vector<Range> halves;
        for (const Range& part : parts) {
            if (part.Last - part.First <= kWidth) {
                halves.push_back(part);
                continue;
            }
            std::uint32_t* const first = order.data() + part.First;
            std::uint32_t* const last = order.data() + part.Last;
            const int axis = LongerSide(ExtentOf(points, first, last));
            const std::uint32_t half = (part.Last - part.First) / 2;
            std::nth_element(first, first + half, last, [&](std::uint32_t a, std::uint32_t b) {
                return Along(points[a], axis) < Along(points[b], axis);
            });
            halves.push_back({part.First, part.First + half});
            halves.push_back({part.First + half, part.Last});
        }
        parts.swap(halves);
    }
    const auto self = static_cast<std::uint32_t>(nodes_.size());
    nodes_.emplace_back();
    Node node{};
    for (Lanes* const side : {&node.LowX, &node.LowY, &node.LowZ, &node.HighX, &node.HighY, &node.HighZ}) {
        side->fill(kInfinite);
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        PutBox(node, i, points, order, parts[i]);
        const bool isLeaf = parts[i].Last - parts[i].First <= kWidth;
        node.Children[i] = isLeaf ? BuildLeaf(points, order, parts[i]) : BuildNode(points, order, parts[i]);
    }
    nodes_[self] = node;
    return self;
}

CROWNLAB_WIDE NearestPoint NearestTree::Nearest(const CloudPoint& p, std::uint32_t start) const {
    NearestPoint best{start, Squared(p, start)};
    Search(p, best, [](std::uint32_t) { return true; });
    return best;
}

}  // namespace crownlab
