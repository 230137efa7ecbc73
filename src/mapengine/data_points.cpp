#include "mapengine/data_points.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

#include "basis/failure.h"
#include "basis/memory_limit.h"

namespace crownlab {
namespace {

/// Bits of a coordinate; minus zero is zero.
std::uint64_t Bits(double value) { return std::bit_cast<std::uint64_t>(value + 0.0); }

/// Finaliser of splitmix64 (G. Steele and others, "Fast splittable pseudorandom number generators", 2014).
std::uint64_t Mixed(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
    return value ^ (value >> 31);
}

std::uint64_t HashOfPlace(const DataPoint& point) { return Mixed(Mixed(Bits(point.X)) + Bits(point.Y)); }

/// Places seen so far: an open table of point numbers, at most half full.
class SeenPlaces {
public:
    explicit SeenPlaces(const DataPoints& points) : points_(points) {
        if (points.size() >= kNone) throw Failure(FailureKind::OutOfMemory, "the points to grid");
        const std::size_t slots = std::bit_ceil(2 * points.size() + 1);
        RequireMemory(slots * sizeof(std::uint32_t), "the points to grid");
        slots_.assign(slots, kNone);
    }

    /// True if no point seen before lies where point `number` lies; remembers it then.
    bool TakeNew(std::size_t number) {
        const std::size_t mask = slots_.size() - 1;
        const DataPoint& point = points_[number];
        for (std::size_t slot = HashOfPlace(point) & mask;; slot = (slot + 1) & mask) {
            if (slots_[slot] == kNone) {
                slots_[slot] = static_cast<std::uint32_t>(number);
                return true;
            }
            const DataPoint& seen = points_[slots_[slot]];
            if (seen.X == point.X && seen.Y == point.Y) return false;
        }
    }

private:
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
    const DataPoints& points_;
    std::vector<std::uint32_t> slots_;
};

/// Moves the first points of all places to the front.
void DropRepeatedPlaces(DataPoints& points) {
    SeenPlaces seen(points);
    std::size_t kept = 0;
    // A point moves to the front of its old place at most, where no seen point's number can point to any more: the
    // numbers remembered are those of the new places.
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[kept] = points[i];
        if (seen.TakeNew(kept)) ++kept;
    }
    points.resize(kept);
}

/// Farthest point from `from`.
const DataPoint& Farthest(const DataPoints& points, const DataPoint& from) {
    const auto squared = [&](const DataPoint& point) {
        const double dx = point.X - from.X;
        const double dy = point.Y - from.Y;
        return dx * dx + dy * dy;
    };
    return *std::max_element(points.begin(), points.end(),
                             [&](const DataPoint& a, const DataPoint& b) { return squared(a) < squared(b); });
}

}  // namespace

DataPoints PointsToGrid(DataPoints points, std::optional<double> above) {
    std::erase_if(points, [&](const DataPoint& point) {
        return point.Z >= kNoHeightFrom || (above.has_value() && point.Z > *above);
    });
    DropRepeatedPlaces(points);
    return points;
}

DataBox BoxOf(const DataPoints& points) {
    DataBox box{.XMin = points[0].X, .XMax = points[0].X, .YMin = points[0].Y, .YMax = points[0].Y};
    for (const DataPoint& point : points) {
        box.XMin = std::min(box.XMin, point.X);
        box.XMax = std::max(box.XMax, point.X);
        box.YMin = std::min(box.YMin, point.Y);
        box.YMax = std::max(box.YMax, point.Y);
    }
    return box;
}

bool AllOnALine(const DataPoints& points, double share) {
    if (points.size() < 3) return true;
    const DataPoint& from = Farthest(points, points[0]);
    const DataPoint& to = Farthest(points, from);
    const double length = std::hypot(to.X - from.X, to.Y - from.Y);
    const double alongX = (to.X - from.X) / length;
    const double alongY = (to.Y - from.Y) / length;
    const double tolerance = share * BoxOf(points).Side();
    return std::all_of(points.begin(), points.end(), [&](const DataPoint& point) {
        return std::fabs((point.X - from.X) * alongY - (point.Y - from.Y) * alongX) <= tolerance;
    });
}

}  // namespace crownlab
