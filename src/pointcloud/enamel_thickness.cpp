#include "pointcloud/enamel_thickness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "pointcloud/box_grid.h"
#include "pointcloud/nearest_tree.h"

namespace crownlab {
namespace {

/// What no distance reaches: the search starts from it and only nearer points are taken.
constexpr double kFarthest = 1000000;
constexpr std::size_t kMostInB = 32767;

/// The box around a point's bin in which its nearest neighbour is looked for. A face lies at
/// Origin + BoxSize (Number + Outward reach), where Outward is -1 for the low face of an axis and 1 for the high one.
class SearchBox {
public:
    SearchBox(const CloudPoint& p, const Box& box, const BoxGrid& grid) : boxSize_(grid.BoxSize) {
        PutAxis(0, p.x, box.X, grid.X);
        PutAxis(1, p.y, box.Y, grid.Y);
        PutAxis(2, p.z, box.Z, grid.Z);
    }

    /// Distance to the nearer face across an axis (0, 1, 2).
    double NearerFace(std::size_t axis, std::int64_t reach) const {
        return std::min(std::fabs(Outside(2 * axis, reach)), std::fabs(Outside(2 * axis + 1, reach)));
    }
    double NearestFace(std::int64_t reach) const {
        double nearest = std::fabs(Outside(0, reach));
        for (std::size_t i = 1; i < kFaces; ++i) nearest = std::min(nearest, std::fabs(Outside(i, reach)));
        return nearest;
    }

    /// The smallest reach from `reach` on with no face nearer than `distance`.
    std::int64_t FirstReach(double distance, std::int64_t reach) const {
        // Rounding can leave a point outside its own bin, and then faces come nearer at first; by less than a bin, as
        // the grid takes care that its numbers are exact to that.
        double nearest = NearestFace(reach);
        while (!Holds(reach) && nearest < distance) nearest = NearestFace(++reach);
        if (nearest >= distance) return reach;
        // From here on no face comes nearer with a larger reach: each operation keeps order under rounding. So where
        // the distance is reached can be estimated, and a step or two lead to the exact place.
        const std::int64_t start = reach;
        reach = start + static_cast<std::int64_t>(std::ceil((distance - nearest) / boxSize_));
        while (NearestFace(reach) < distance) ++reach;
        while (reach - 1 > start && NearestFace(reach - 1) >= distance) --reach;
        return reach;
    }

private:
    static constexpr std::size_t kFaces = 6;
    using Sides = std::array<double, kFaces>;

    void PutAxis(std::size_t axis, double coordinate, std::int64_t number, const BoxAxis& grid) {
        for (const std::size_t side : {2 * axis, 2 * axis + 1}) {
            coordinate_[side] = coordinate;
            origin_[side] = grid.Origin;
        }
        number_[2 * axis] = static_cast<double>(number - 1);
        number_[2 * axis + 1] = static_cast<double>(number);
    }
    /// Distance by which the face lies beyond the point, below 0 if it lies on the wrong side of it.
    double Outside(std::size_t side, std::int64_t reach) const {
        static constexpr Sides outward{-1, 1, -1, 1, -1, 1};
        const double face = origin_[side] + boxSize_ * (number_[side] + outward[side] * static_cast<double>(reach));
        return (face - coordinate_[side]) * outward[side];
    }
    bool Holds(std::int64_t reach) const {
        bool holds = true;
        for (std::size_t i = 0; i < kFaces; ++i) holds = holds && Outside(i, reach) >= 0;
        return holds;
    }

    double boxSize_;
    Sides coordinate_;
    Sides origin_;
    Sides number_;
};

/// By how many bins the search box around `from` has to reach out to hold `to`.
std::int64_t ReachBetween(const Box& from, const Box& to) {
    return std::max({std::abs(from.X - to.X), std::abs(from.Y - to.Y), std::abs(from.Z - to.Z)});
}

struct Accepted {
    double Nearest = 0;
    std::int64_t ShellReach = 0;
};

/// The second cloud, made ready for searches.
struct Target {
    const NearestTree& Tree;
    const std::vector<Box>& Boxes;  ///< one a point, in the order of the cloud

    const Box& BoxAt(std::uint32_t slot) const { return Boxes[Tree.Index(slot)]; }
};

/// Where widening shell by shell comes to its end, without widening.
///
/// Let N(R) be the least distance to the points in the bins within reach R, and m the least distance of all. The
/// search ends at the first R with N(R) < 1,000,000 and no face nearer than N(R). As N(R) >= m, no R at which a
/// face is nearer than m can be that; so the first R that keeps all faces at m or beyond is where to start. If the
/// bin of the nearest point lies within it, N(R) = m and the search ends there. If not, though no face is nearer
/// than the point, the point lies on a face or rounding hides on which side; then N(R) is found among the points
/// within reach, for this R and the next ones, until one is accepted. That is the nearest point's own reach at
/// the latest, two or three steps on. Square roots keep order, so the least root is the root of the least square.
Accepted EndOfSearch(const CloudPoint& p, const Box& box, const SearchBox& search, const Target& target,
                     const NearestPoint& nearest) {
    const double least = std::sqrt(nearest.Squared);
    if (!(least < kFarthest)) throw Failure(FailureKind::Overflow, "ShellReach");
    const std::int64_t reachOfNearest = ReachBetween(box, target.BoxAt(nearest.Slot));
    for (std::int64_t reach = 0;; ++reach) {
        reach = search.FirstReach(least, reach);
        if (reachOfNearest <= reach) return {least, reach};
        const NearestPoint within = target.Tree.NearestAmong(
            p, [&](std::uint32_t slot) { return ReachBetween(box, target.BoxAt(slot)) <= reach; });
        const double found = std::sqrt(within.Squared);
        if (found < kFarthest && search.NearestFace(reach) >= found) return {found, reach};
    }
}

/// A point of the first cloud with its bin.
struct Query {
    std::uint32_t Point = 0;
    CloudPoint At;
    Box Bin;
};

/// Copies the next points in the order of bins, which lie anywhere in memory: fetched together they come much faster
/// than one by one between searches.
void Gather(std::vector<Query>& queries, const PointCloud& cloud, const std::vector<Box>& boxes,
            std::span<const std::uint32_t> order) {
    queries.clear();
    for (const std::uint32_t j : order) queries.push_back({j, cloud[j], boxes[j]});
}

/// Runs the searches in the given order of points; the distances are in the order of the cloud.
std::vector<double> SearchAll(const PointCloud& cloud, const std::vector<Box>& boxes,
                              const std::vector<std::uint32_t>& order, const BoxGrid& grid, const Target& target,
                              const std::function<void(const ThicknessSearch&)>& accepted) {
    RequireMemory(static_cast<std::uint64_t>(cloud.size()) * sizeof(double), "Nearest");
    std::vector<double> nearest(cloud.size(), 0);
    constexpr std::size_t together = 512;
    std::vector<Query> queries;
    queries.reserve(together);
    std::uint32_t lastSlot = 0;
    for (std::size_t first = 0; first < order.size(); first += together) {
        Gather(queries, cloud, boxes, std::span(order).subspan(first, std::min(together, order.size() - first)));
        for (const Query& query : queries) {
            const NearestPoint found = target.Tree.Nearest(query.At, lastSlot);
            lastSlot = found.Slot;
            const SearchBox search(query.At, query.Bin, grid);
            const Accepted end = EndOfSearch(query.At, query.Bin, search, target, found);
            nearest[query.Point] = end.Nearest;
            accepted({.Point = query.Point,
                      .At = query.At,
                      .FaceX = search.NearerFace(0, end.ShellReach),
                      .FaceY = search.NearerFace(1, end.ShellReach),
                      .FaceZ = search.NearerFace(2, end.ShellReach),
                      .Nearest = end.Nearest,
                      .ShellReach = end.ShellReach});
        }
    }
    return nearest;
}

}  // namespace

std::vector<double> EnamelThickness(const PointCloud& cloudA, const PointCloud& cloudB, double boxSize,
                                    const std::function<void(const ThicknessSearch&)>& accepted) {
    const BoxGrid grid = LayBoxes(FindCloudExtents(cloudA), FindCloudExtents(cloudB), boxSize);
    const std::vector<Box> boxesA = BoxesOf(cloudA, grid);
    const std::vector<std::uint32_t> order = OrderByBox(boxesA, grid);
    if (cloudA.empty() || cloudB.empty()) throw Failure(FailureKind::SubscriptOutOfRange, "empty cloud");
    if (cloudB.size() > kMostInB) throw Failure(FailureKind::Overflow, "more than 32767 points in the second file");
    const std::vector<Box> boxesB = BoxesOf(cloudB, grid);
    OrderByBox(boxesB, grid);
    const NearestTree tree(cloudB);
    return SearchAll(cloudA, boxesA, order, grid, {tree, boxesB}, accepted);
}

}  // namespace crownlab
