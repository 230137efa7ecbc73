#include "pointcloud/nearest_tree.h"

#include <algorithm>
#include <limits>
#include <numeric>

#include "basis/failure.h"

namespace crownlab {
namespace {

double Along(const CloudPoint& p, int axis) { return axis == 0 ? p.x : axis == 1 ? p.y : p.z; }

int LongerSide(const CloudPoint& low, const CloudPoint& high) {
    const double x = high.x - low.x;
    const double y = high.y - low.y;
    const double z = high.z - low.z;
    return x >= y && x >= z ? 0 : y >= z ? 1 : 2;
}

}  // namespace

NearestTree::NearestTree(const PointCloud& points) {
    if (points.size() >= std::numeric_limits<std::uint32_t>::max()) throw Failure(FailureKind::OutOfMemory, "points");
    const auto count = static_cast<std::uint32_t>(points.size());
    index_.resize(count);
    std::iota(index_.begin(), index_.end(), 0u);
    if (count > 0) Build(points, 0, count);
    for (std::vector<double>* const axis : {&x_, &y_, &z_}) axis->reserve(count);
    for (const std::uint32_t i : index_) {
        x_.push_back(points[i].x);
        y_.push_back(points[i].y);
        z_.push_back(points[i].z);
    }
}

std::uint32_t NearestTree::Build(const PointCloud& points, std::uint32_t first, std::uint32_t last) {
    const auto self = static_cast<std::uint32_t>(nodes_.size());
    Node node{.Low = points[index_[first]], .High = points[index_[first]], .First = first, .Last = last};
    for (std::uint32_t i = first; i < last; ++i) {
        const CloudPoint& p = points[index_[i]];
        node.Low = {std::min(node.Low.x, p.x), std::min(node.Low.y, p.y), std::min(node.Low.z, p.z)};
        node.High = {std::max(node.High.x, p.x), std::max(node.High.y, p.y), std::max(node.High.z, p.z)};
    }
    nodes_.push_back(node);
    if (last - first <= kLeafSize) return self;
    const int axis = LongerSide(node.Low, node.High);
    const std::uint32_t middle = first + (last - first) / 2;
    std::nth_element(index_.begin() + first, index_.begin() + middle, index_.begin() + last,
                     [&](std::uint32_t a, std::uint32_t b) { return Along(points[a], axis) < Along(points[b], axis); });
    Build(points, first, middle);
    nodes_[self].Right = Build(points, middle, last);
    return self;
}

NearestPoint NearestTree::Nearest(const CloudPoint& p, std::uint32_t start) const {
    NearestPoint best{start, Squared(p, start)};
    Search(p, best, [](std::uint32_t) { return true; });
    return best;
}

}  // namespace crownlab
