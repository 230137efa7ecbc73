#include "mapengine/blanking.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace crownlab {
namespace {

/// Where a node lies, as seen from a ring.
enum class Place : std::uint8_t { Outside, Inside, Edge };

/// An edge of the ring, its lower end first, so that the same edge run back gives the same crossings.
struct Edge {
    PlanePoint Low;
    PlanePoint High;
};

/// First of the ascending `positions` that isn't below `at`.
int FirstFrom(const std::vector<double>& positions, double at) {
    return static_cast<int>(std::lower_bound(positions.begin(), positions.end(), at) - positions.begin());
}

/// x at which the edge passes height y. In halves, as the difference of two coordinates may be beyond any number.
double CrossingAt(const Edge& edge, double y) {
    const double height = 0.5 * edge.High.y - 0.5 * edge.Low.y;
    if (height == 0) return edge.Low.x;
    return std::lerp(edge.Low.x, edge.High.x, std::clamp((0.5 * y - 0.5 * edge.Low.y) / height, 0.0, 1.0));
}

double SquaredDistance(const Edge& edge, double x, double y) {
    const double alongX = edge.High.x - edge.Low.x;
    const double alongY = edge.High.y - edge.Low.y;
    const double length = alongX * alongX + alongY * alongY;
    const double projection = (x - edge.Low.x) * alongX + (y - edge.Low.y) * alongY;
    const double t = length > 0 ? std::clamp(projection / length, 0.0, 1.0) : 0.0;
    const double dx = x - (edge.Low.x + t * alongX);
    const double dy = y - (edge.Low.y + t * alongY);
    return dx * dx + dy * dy;
}

std::vector<Edge> EdgesOf(const std::vector<PlanePoint>& points) {
    std::vector<Edge> edges;
    edges.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const PlanePoint& from = points[i];
        const PlanePoint& to = points[i + 1 < points.size() ? i + 1 : 0];
        const bool rises = from.y < to.y || (from.y == to.y && from.x <= to.x);
        edges.push_back(rises ? Edge{from, to} : Edge{to, from});
    }
    return edges;
}

class Blanking {
public:
    Blanking(Grid& grid, const Boundary& boundary)
        : grid_(grid),
          edges_(EdgesOf(boundary.Points)),
          blanks_(boundary.BlanksInside ? Place::Inside : Place::Outside),
          tolerance_(grid.Shape.Tolerance()) {
        for (int column = 0; column < grid.Shape.Columns; ++column) x_.push_back(grid.Shape.X(column));
        for (int row = 0; row < grid.Shape.Rows; ++row) y_.push_back(grid.Shape.Y(row));
    }

    void BlankRows(int first, int last) const {
        std::vector<RowMarks> marks(static_cast<std::size_t>(last - first));
        for (const Edge& edge : edges_) MarkEdge(edge, first, last, marks);
        std::vector<Place> places(x_.size());
        for (int row = first; row < last; ++row) BlankRow(row, marks[static_cast<std::size_t>(row - first)], places);
    }

private:
    /// Columns from First to Last - 1.
    struct Columns {
        int First;
        int Last;
    };
    struct RowMarks {
        std::vector<double> Crossings;
        std::vector<Columns> OnEdge;
    };

    /// Adds what the edge means to the rows from `first` to `last` - 1.
    void MarkEdge(const Edge& edge, int first, int last, std::vector<RowMarks>& marks) const {
        const double reach = 2 * tolerance_;
        if (edge.High.y + reach < y_[static_cast<std::size_t>(first)] ||
            edge.Low.y - reach > y_[static_cast<std::size_t>(last - 1)]) {
            return;
        }
        for (int row = std::max(first, FirstFrom(y_, edge.Low.y - reach)); row < last; ++row) {
            const double y = y_[static_cast<std::size_t>(row)];
            if (y > edge.High.y + reach) return;
            RowMarks& mark = marks[static_cast<std::size_t>(row - first)];
            // Half open, so that two edges that meet at the row's height count once where the ring passes through it.
            if (edge.Low.y <= y && y < edge.High.y) mark.Crossings.push_back(CrossingAt(edge, y));
            MarkEdgeColumns(edge, y, mark);
        }
    }

    void MarkEdgeColumns(const Edge& edge, double y, RowMarks& mark) const {
        const double reach = 2 * tolerance_;
        // The part of the edge that lies within reach of the row, and not much more than the nodes near it.
        const bool level = edge.High.y - edge.Low.y <= reach;
        const double a = level ? edge.Low.x : CrossingAt(edge, y - reach);
        const double b = level ? edge.High.x : CrossingAt(edge, y + reach);
        const auto isNear = [&](int column) {
            return SquaredDistance(edge, x_[static_cast<std::size_t>(column)], y) <= tolerance_ * tolerance_;
        };
        // Nodes near a straight line lie side by side.
        int first = FirstFrom(x_, std::min(a, b) - reach);
        int last = FirstFrom(x_, std::max(a, b) + reach);
        while (first < last && !isNear(first)) ++first;
        while (first < last && !isNear(last - 1)) --last;
        if (first < last) mark.OnEdge.push_back({first, last});
    }

    void BlankRow(int row, RowMarks& marks, std::vector<Place>& places) const {
        std::fill(places.begin(), places.end(), Place::Outside);
        std::sort(marks.Crossings.begin(), marks.Crossings.end());
        for (std::size_t i = 0; i + 1 < marks.Crossings.size(); i += 2) {
            std::fill(places.begin() + FirstFrom(x_, marks.Crossings[i]),
                      places.begin() + FirstFrom(x_, marks.Crossings[i + 1]), Place::Inside);
        }
        for (const Columns& near : marks.OnEdge) {
            std::fill(places.begin() + near.First, places.begin() + near.Last, Place::Edge);
        }
        double* const z = &grid_.At(0, row);
        for (std::size_t i = 0; i < places.size(); ++i) z[i] = places[i] == blanks_ ? kBlankHeight : z[i];
    }

    Grid& grid_;
    std::vector<Edge> edges_;
    Place blanks_;
    double tolerance_;
    std::vector<double> x_;
    std::vector<double> y_;
};

}  // namespace

void BlankByBoundary(Grid& grid, const Boundary& boundary, Progress& progress) {
    constexpr std::int64_t rowsAtOnce = 64;
    const Blanking blanking(grid, boundary);
    ForEachBlock(grid.Shape.Rows, rowsAtOnce, progress, [&](std::int64_t first, std::int64_t last) {
        blanking.BlankRows(static_cast<int>(first), static_cast<int>(last));
    });
}

}  // namespace crownlab
