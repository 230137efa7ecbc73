#include "mapengine/grid_slice.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "mapengine/bilinear_height.h"
#include "mapengine/grid_axis.h"

namespace crownlab {
namespace {

/// In extended precision, so that far coordinates don't overflow.
double Length(const PlanePoint& from, const PlanePoint& to) {
    const long double dx = static_cast<long double>(to.x) - from.x;
    const long double dy = static_cast<long double>(to.y) - from.y;
    return static_cast<double>(std::sqrt(dx * dx + dy * dy));
}

/// A crossing of a segment: its share of the way, and the place.
struct Crossing {
    double Share = 0;
    PlanePoint At;
};

bool Earlier(const Crossing& a, const Crossing& b) { return a.Share < b.Share; }

/// One walk along a line.
class Walk {
public:
    Walk(const Grid& grid, const std::function<void(const SlicePlace&)>& take)
        : grid_(grid),
          take_(take),
          columns_(grid.Shape, GridAxis::Direction::X),
          rows_(grid.Shape, GridAxis::Direction::Y),
          tolerance_(grid.Shape.Tolerance()) {}

    void Start(const PlanePoint& vertex) { Tell(vertex, 0); }

    void Segment(const PlanePoint& from, const PlanePoint& to) {
        const double start = travelled_;
        const double length = Length(from, to);
        FindCrossings(from, to, length);
        for (const Crossing& crossing : crossings_) {
            const double way = crossing.Share * length;
            // The places of the two vertices are theirs.
            if (way <= tolerance_ || length - way <= tolerance_) continue;
            Tell(crossing.At, start + way);
        }
        travelled_ = start + length;
        if (travelled_ - told_ > tolerance_) Tell(to, travelled_);
    }

private:
    void Tell(const PlanePoint& at, double distance) {
        told_ = distance;
        take_({.X = at.x, .Y = at.y, .Z = BilinearHeight(grid_, at.x, at.y), .Distance = distance});
    }

    void FindCrossings(const PlanePoint& from, const PlanePoint& to, double length) {
        crossings_.clear();
        CrossColumns(from, to);
        const auto middle = static_cast<std::ptrdiff_t>(crossings_.size());
        CrossRows(from, to);
        // Each of the two runs is in order already.
        std::inplace_merge(crossings_.begin(), crossings_.begin() + middle, crossings_.end(), Earlier);
        JoinAtNodes(length);
    }

    /// The nodes of an axis whose grid lines a segment crosses, in the order of the crossings.
    template <typename Act>
    void ForLinesBetween(const GridAxis& axis, double from, double to, const Act& act) const {
        const double low = std::min(from, to);
        const double high = std::max(from, to);
        if (low == high || high < axis.Min() || low > axis.Max()) return;
        const int first = axis.IntervalOf(low);
        const int last = axis.IntervalOf(high) + 1;
        for (int k = first; k <= last; ++k) {
            const int node = from < to ? k : last - (k - first);
            const double position = axis.Position(node);
            if (position < low || position > high) continue;
            const bool along = std::fabs(position - from) <= tolerance_ && std::fabs(position - to) <= tolerance_;
            if (!along) act(position, (position - from) / (to - from));
        }
    }

    bool IsOn(const GridAxis& axis, double at) const {
        return at >= axis.Min() - tolerance_ && at <= axis.Max() + tolerance_;
    }

    void CrossColumns(const PlanePoint& from, const PlanePoint& to) {
        ForLinesBetween(columns_, from.x, to.x, [&](double x, double share) {
            const double y = from.y + share * (to.y - from.y);
            if (IsOn(rows_, y)) crossings_.push_back({share, {x, std::clamp(y, rows_.Min(), rows_.Max())}});
        });
    }

    void CrossRows(const PlanePoint& from, const PlanePoint& to) {
        ForLinesBetween(rows_, from.y, to.y, [&](double y, double share) {
            const double x = from.x + share * (to.x - from.x);
            if (IsOn(columns_, x)) crossings_.push_back({share, {std::clamp(x, columns_.Min(), columns_.Max()), y}});
        });
    }

    /// A column and a row that are crossed at the same place are crossed at their node.
    void JoinAtNodes(double length) {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < crossings_.size(); ++i) {
            Crossing crossing = crossings_[i];
            if (i + 1 < crossings_.size() && (crossings_[i + 1].Share - crossing.Share) * length <= tolerance_) {
                crossing.At = NodeNear(crossing.At);
                ++i;
            }
            crossings_[kept++] = crossing;
        }
        crossings_.resize(kept);
    }

    PlanePoint NodeNear(const PlanePoint& at) const { return {Nearest(columns_, at.x), Nearest(rows_, at.y)}; }

    static double Nearest(const GridAxis& axis, double at) {
        const int node = axis.IntervalOf(at);
        const double before = axis.Position(node);
        const double after = axis.Position(node + 1);
        return at - before <= after - at ? before : after;
    }

    const Grid& grid_;
    const std::function<void(const SlicePlace&)>& take_;
    GridAxis columns_;
    GridAxis rows_;
    double tolerance_;
    double travelled_ = 0;
    double told_ = 0;
    std::vector<Crossing> crossings_;
};

}  // namespace

void WalkSlice(const Grid& grid, std::span<const PlanePoint> line, const std::function<void(const SlicePlace&)>& take) {
    if (line.empty()) return;
    Walk walk(grid, take);
    walk.Start(line.front());
    for (std::size_t i = 1; i < line.size(); ++i) walk.Segment(line[i - 1], line[i]);
}

}  // namespace crownlab
