#include "pointcloud/enamel_thickness.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "pointcloud/box_grid.h"
#include "pointcloud/nearest_tree.h"

namespace crownlab {
namespace {

/// What no distance reaches: the search starts from it and only nearer points are taken.
constexpr double kFarthest = 1000000;
constexpr std::size_t kMostInB = 32767;

/// One face of the search box as it moves outward with the reach R: it lies at Origin + BoxSize (Number +- R).
struct MovingFace {
    double Coordinate;  ///< of the point, across the face
    double Origin;
    double BoxSize;
    std::int64_t Number;
    bool IsLow;

    double At(std::int64_t reach) const {
        return Origin + BoxSize * static_cast<double>(IsLow ? Number - reach : Number + reach);
    }
    /// Distance from the point, above 0 while the face lies on its own side of it. Never falls as the reach grows:
    /// each operation keeps order under rounding.
    double Outward(std::int64_t reach) const { return IsLow ? Coordinate - At(reach) : At(reach) - Coordinate; }
    double Distance(std::int64_t reach) const { return std::fabs(Coordinate - At(reach)); }
};

/// The smallest reach from `reach` on at which the face is no nearer than `distance`. Behind `reach` that is where
/// the outward distance gets there, found by doubling and halving the step.
std::int64_t FirstReach(const MovingFace& face, double distance, std::int64_t reach) {
    if (face.Distance(reach) >= distance) return reach;
    std::int64_t step = 1;
    while (face.Outward(reach + step) < distance) step *= 2;
    std::int64_t tooNear = reach + step / 2;
    std::int64_t farEnough = reach + step;
    while (farEnough - tooNear > 1) {
        const std::int64_t middle = tooNear + (farEnough - tooNear) / 2;
        (face.Outward(middle) < distance ? tooNear : farEnough) = middle;
    }
    return farEnough;
}

/// The box around a point's bin in which its nearest neighbour is looked for.
struct SearchBox {
    std::array<MovingFace, 6> Faces;

    SearchBox(const CloudPoint& p, const Box& box, const BoxGrid& grid)
        : Faces{{{p.x, grid.X.Origin, grid.BoxSize, box.X - 1, true},
                 {p.x, grid.X.Origin, grid.BoxSize, box.X, false},
                 {p.y, grid.Y.Origin, grid.BoxSize, box.Y - 1, true},
                 {p.y, grid.Y.Origin, grid.BoxSize, box.Y, false},
                 {p.z, grid.Z.Origin, grid.BoxSize, box.Z - 1, true},
                 {p.z, grid.Z.Origin, grid.BoxSize, box.Z, false}}} {}

    /// Distance to the nearer face across an axis (0, 1, 2).
    double NearerFace(std::size_t axis, std::int64_t reach) const {
        return std::min(Faces[2 * axis].Distance(reach), Faces[2 * axis + 1].Distance(reach));
    }
    bool HasNoFaceNearerThan(double distance, std::int64_t reach) const {
        return std::all_of(Faces.begin(), Faces.end(),
                           [&](const MovingFace& face) { return face.Distance(reach) >= distance; });
    }
    /// The smallest reach from `reach` on with no face nearer than `distance`.
    std::int64_t FirstReachOfAll(double distance, std::int64_t reach) const {
        while (!HasNoFaceNearerThan(distance, reach)) {
            for (const MovingFace& face : Faces) reach = FirstReach(face, distance, reach);
        }
        return reach;
    }
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
        reach = search.FirstReachOfAll(least, reach);
        if (reachOfNearest <= reach) return {least, reach};
        const NearestPoint within = target.Tree.NearestAmong(
            p, [&](std::uint32_t slot) { return ReachBetween(box, target.BoxAt(slot)) <= reach; });
        const double found = std::sqrt(within.Squared);
        if (found < kFarthest && search.HasNoFaceNearerThan(found, reach)) return {found, reach};
    }
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
    const Target target{tree, boxesB};

    RequireMemory(static_cast<std::uint64_t>(cloudA.size()) * sizeof(double), "Nearest");
    std::vector<double> nearest(cloudA.size(), 0);
    std::uint32_t lastSlot = 0;
    for (const std::uint32_t j : order) {
        const CloudPoint& p = cloudA[j];
        const NearestPoint found = tree.Nearest(p, lastSlot);
        lastSlot = found.Slot;
        const SearchBox search(p, boxesA[j], grid);
        const Accepted end = EndOfSearch(p, boxesA[j], search, target, found);
        nearest[j] = end.Nearest;
        accepted({.Point = j,
                  .At = p,
                  .FaceX = search.NearerFace(0, end.ShellReach),
                  .FaceY = search.NearerFace(1, end.ShellReach),
                  .FaceZ = search.NearerFace(2, end.ShellReach),
                  .Nearest = end.Nearest,
                  .ShellReach = end.ShellReach});
    }
    return nearest;
}

}  // namespace crownlab
