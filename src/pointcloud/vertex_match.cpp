#include "pointcloud/vertex_match.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <numeric>

#include "basis/memory_limit.h"

namespace crownlab {
namespace {

/// Side of a cell in tolerances. A box around a point is two wide, so that it meets two cells an axis at most.
constexpr double kCellTolerances = 4;

bool Matches(const CloudPoint& p, const CloudPoint& v, double tolerance) {
    return p.x - tolerance < v.x && p.x + tolerance > v.x && p.y - tolerance < v.y && p.y + tolerance > v.y &&
           p.z - tolerance < v.z && p.z + tolerance > v.z;
}

std::uint64_t Mixed(std::uint64_t h, double cell) {
    std::uint64_t bits = 0;
    const double noMinusZero = cell + 0.0;
    std::memcpy(&bits, &noMinusZero, sizeof(bits));
    h = (h ^ bits) * 0x9E3779B97F4A7C15u;
    return h ^ (h >> 32);
}

std::uint64_t HashOf(double x, double y, double z) { return Mixed(Mixed(Mixed(0, x), y), z); }

/// Cells that an interval around a coordinate can meet: those of its ends and its middle, each once. Division and
/// floor keep order, so a vertex strictly between the ends lies in a cell between theirs; for numbers so large
/// that a step of rounding is wider than a cell, only the coordinate itself lies between the ends.
struct CellsAlong {
    std::array<double, 3> Cells;
    std::size_t Count = 0;

    CellsAlong(double coordinate, double tolerance, double cell) {
        for (const double at : {coordinate - tolerance, coordinate, coordinate + tolerance}) {
            const double number = std::floor(at / cell);
            if (Count == 0 || Cells[Count - 1] != number) Cells[Count++] = number;
        }
    }
};

/// Vertices by the cell of space they lie in: cells are hashed into buckets, each with its vertices in rising order.
/// What else the hash puts into a bucket does no harm, as every candidate is tested.
class VertexCells {
public:
    VertexCells(const PointCloud& vertices, double tolerance)
        : vertices_(vertices), tolerance_(tolerance), cell_(kCellTolerances * tolerance) {
        std::size_t buckets = 1;
        while (buckets < 2 * vertices.size()) buckets *= 2;
        RequireMemory((static_cast<std::uint64_t>(buckets) + 2 * vertices.size()) * sizeof(std::uint32_t),
                      "VertexCells");
        mask_ = buckets - 1;
        start_.assign(buckets + 1, 0);
        std::vector<std::uint32_t> bucketOf(vertices.size());
        for (std::size_t v = 0; v < vertices.size(); ++v) {
            bucketOf[v] = static_cast<std::uint32_t>(BucketOf(vertices[v]));
            ++start_[bucketOf[v] + 1];
        }
        std::partial_sum(start_.begin(), start_.end(), start_.begin());
        members_.resize(vertices.size());
        std::vector<std::uint32_t> next(start_.begin(), start_.end() - 1);
        for (std::size_t v = 0; v < vertices.size(); ++v) members_[next[bucketOf[v]]++] = static_cast<std::uint32_t>(v);
    }

    /// The lowest matching vertex from `first` on and below `last`; `last` if there is none.
    std::size_t FirstMatch(const CloudPoint& p, std::size_t first, std::size_t last) const {
        const CellsAlong xs(p.x, tolerance_, cell_);
        const CellsAlong ys(p.y, tolerance_, cell_);
        const CellsAlong zs(p.z, tolerance_, cell_);
        for (std::size_t i = 0; i < xs.Count; ++i) {
            for (std::size_t j = 0; j < ys.Count; ++j) {
                for (std::size_t k = 0; k < zs.Count; ++k) {
                    last = FirstInBucket(p, HashOf(xs.Cells[i], ys.Cells[j], zs.Cells[k]) & mask_, first, last);
                }
            }
        }
        return last;
    }

private:
    std::size_t BucketOf(const CloudPoint& v) const {
        return HashOf(std::floor(v.x / cell_), std::floor(v.y / cell_), std::floor(v.z / cell_)) & mask_;
    }

    std::size_t FirstInBucket(const CloudPoint& p, std::size_t bucket, std::size_t first, std::size_t last) const {
        const auto end = members_.begin() + start_[bucket + 1];
        auto at = std::lower_bound(members_.begin() + start_[bucket], end, first);
        for (; at != end && *at < last; ++at) {
            if (Matches(p, vertices_[*at], tolerance_)) return *at;
        }
        return last;
    }

    const PointCloud& vertices_;
    double tolerance_;
    double cell_;
    std::size_t mask_ = 0;
    std::vector<std::uint32_t> start_;
    std::vector<std::uint32_t> members_;
};

}  // namespace

VertexMatch MatchVertices(const PointCloud& points, const PointCloud& vertices, double tolerance,
                          const std::function<void(std::size_t)>& shown) {
    const std::size_t count = vertices.size();
    const VertexCells cells(vertices, tolerance);
    VertexMatch match{std::vector<std::int32_t>(points.size(), 0), std::vector<std::int32_t>(count, 0)};
    std::size_t lastMatch = 0;
    for (std::size_t j = 0; j < points.size(); ++j) {
        const CloudPoint& p = points[j];
        // Points in the order of the vertices: the next vertex is the one.
        std::size_t v = lastMatch;
        while (v < std::min(lastMatch + 2, count) && !Matches(p, vertices[v], tolerance)) ++v;
        if (v == std::min(lastMatch + 2, count)) v = cells.FirstMatch(p, v, count);
        if (v == count) {
            v = cells.FirstMatch(p, 0, lastMatch);
            if (v == lastMatch) v = count;
        }
        if (v < count) {
            match.PointVertex[j] = static_cast<std::int32_t>(v + 1);
            match.VertexPoint[v] = static_cast<std::int32_t>(j + 1);
            lastMatch = v;
        }
        shown(j + 1);
    }
    return match;
}

}  // namespace crownlab
