// A cell, its corners by their bits and its edges:
//
//     8 --- N --- 4
//     |           |        A corner's bit is set where its height is the level or more. A segment runs from one
//     W           E        edge to another with the set corners on its left.
//     |           |
//     1 --- S --- 2
#include "mapengine/contour_lines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "mapengine/axis_ticks.h"

namespace crownlab {
namespace {

/// An edge of the lattice: twice the index of its left or lower node, plus 1 if it runs along y.
using Edge = std::uint64_t;

struct Segment {
    Edge From = 0;
    Edge To = 0;
};

enum Side : std::uint8_t { S, E, N, W };
struct Step {
    Side From;
    Side To;
};
struct CellCase {
    int Count;
    std::array<Step, 2> Steps;
};

/// By the sum of the bits. Cases 5 and 10 are those whose saddle is low; 16 and 17 the same with a high one.
constexpr std::array<CellCase, 18> kCases{{
    {0, {}},
    {1, {{{S, W}}}},
    {1, {{{E, S}}}},
    {1, {{{E, W}}}},
    {1, {{{N, E}}}},
    {2, {{{S, W}, {N, E}}}},
    {1, {{{N, S}}}},
    {1, {{{N, W}}}},
    {1, {{{W, N}}}},
    {1, {{{S, N}}}},
    {2, {{{E, S}, {W, N}}}},
    {1, {{{E, N}}}},
    {1, {{{W, E}}}},
    {1, {{{S, E}}}},
    {1, {{{W, S}}}},
    {0, {}},
    {2, {{{S, E}, {N, W}}}},
    {2, {{{W, S}, {E, N}}}},
}};

/// The case of a cell from its corners' heights over the level.
std::size_t CaseOf(double sw, double se, double ne, double nw) {
    const std::size_t bits = (sw >= 0 ? 1u : 0u) | (se >= 0 ? 2u : 0u) | (ne >= 0 ? 4u : 0u) | (nw >= 0 ? 8u : 0u);
    // The saddle's height over the level is (sw ne - se nw) / (sw + ne - se - nw).
    if (bits == 5 && sw * ne >= se * nw) return 16;
    if (bits == 10 && se * nw >= sw * ne) return 17;
    return bits;
}

class Tracer {
public:
    Tracer(const Grid& grid, double level) : grid_(grid), level_(level) {}

    std::vector<ContourLine> Trace() {
        for (int row = 0; row + 1 < grid_.Shape.Rows; ++row) MarchRow(row);
        std::sort(segments_.begin(), segments_.end(),
                  [](const Segment& a, const Segment& b) { return a.From < b.From; });
        used_.assign(segments_.size(), false);
        std::vector<Edge> ends;
        for (const Segment& segment : segments_) ends.push_back(segment.To);
        std::sort(ends.begin(), ends.end());
        for (std::size_t i = 0; i < segments_.size(); ++i) {
            if (!std::binary_search(ends.begin(), ends.end(), segments_[i].From)) Follow(i);
        }
        for (std::size_t i = 0; i < segments_.size(); ++i) {
            if (!used_[i]) Follow(i);
        }
        return std::move(lines_);
    }

private:
    void MarchRow(int row) {
        const double* const low = grid_.Z.data() + grid_.Index(0, row);
        const double* const high = low + grid_.Shape.Columns;
        for (int column = 0; column + 1 < grid_.Shape.Columns; ++column) {
            const double sw = low[column], se = low[column + 1], nw = high[column], ne = high[column + 1];
            const int above = (sw >= level_) + (se >= level_) + (ne >= level_) + (nw >= level_);
            if (above == 0 || above == 4 || IsBlank(sw) || IsBlank(se) || IsBlank(ne) || IsBlank(nw)) continue;
            const CellCase& cell = kCases[CaseOf(sw - level_, se - level_, ne - level_, nw - level_)];
            for (std::size_t i = 0; i < static_cast<std::size_t>(cell.Count); ++i) {
                segments_.push_back({EdgeOf(column, row, cell.Steps[i].From), EdgeOf(column, row, cell.Steps[i].To)});
            }
        }
    }

    Edge EdgeOf(int column, int row, Side side) const {
        switch (side) {
            case S: return 2 * grid_.Index(column, row);
            case N: return 2 * grid_.Index(column, row + 1);
            case W: return 2 * grid_.Index(column, row) + 1;
            case E: return 2 * grid_.Index(column + 1, row) + 1;
        }
        return 0;
    }

    /// Where the level crosses an edge. Reckoned from the same end by both of its cells.
    PlanePoint Crossing(Edge edge) const {
        const GridGeometry& shape = grid_.Shape;
        const std::size_t node = edge / 2;
        const int column = static_cast<int>(node % static_cast<std::size_t>(shape.Columns));
        const int row = static_cast<int>(node / static_cast<std::size_t>(shape.Columns));
        const bool alongY = edge % 2 == 1;
        const double from = grid_.Z[node];
        const double to = alongY ? grid_.At(column, row + 1) : grid_.At(column + 1, row);
        const double share = (level_ - from) / (to - from);
        if (alongY) return {shape.X(column), std::lerp(shape.Y(row), shape.Y(row + 1), share)};
        return {std::lerp(shape.X(column), shape.X(column + 1), share), shape.Y(row)};
    }

    void Follow(std::size_t first) {
        ContourLine line{.Level = level_, .Closed = false, .Points = {Crossing(segments_[first].From)}};
        const Edge start = segments_[first].From;
        for (std::size_t at = first; at < segments_.size() && !used_[at];) {
            used_[at] = true;
            const Edge to = segments_[at].To;
            line.Closed = to == start;
            if (!line.Closed) Append(line.Points, Crossing(to));
            at = SegmentFrom(to);
        }
        // Where the line touches nodes, crossings of several edges fall on one place.
        while (line.Closed && line.Points.size() > 1 && line.Points.back() == line.Points.front()) {
            line.Points.pop_back();
        }
        if (line.Points.size() >= (line.Closed ? 3u : 2u)) lines_.push_back(std::move(line));
    }

    static void Append(std::vector<PlanePoint>& points, const PlanePoint& point) {
        if (points.back() != point) points.push_back(point);
    }

    /// The segment that begins on an edge, the number of segments if there is none.
    std::size_t SegmentFrom(Edge edge) const {
        const auto found = std::lower_bound(segments_.begin(), segments_.end(), edge,
                                            [](const Segment& segment, Edge wanted) { return segment.From < wanted; });
        return found != segments_.end() && found->From == edge ? static_cast<std::size_t>(found - segments_.begin())
                                                               : segments_.size();
    }

    const Grid& grid_;
    double level_;
    std::vector<Segment> segments_;
    std::vector<bool> used_;
    std::vector<ContourLine> lines_;
};

}  // namespace

std::vector<ContourLine> TraceContours(const Grid& grid, double level) { return Tracer(grid, level).Trace(); }

std::vector<ContourLine> TraceContours(const Grid& grid, const std::vector<double>& levels) {
    std::vector<ContourLine> lines;
    for (const double level : levels) {
        std::vector<ContourLine> ofLevel = TraceContours(grid, level);
        std::move(ofLevel.begin(), ofLevel.end(), std::back_inserter(lines));
    }
    return lines;
}

std::vector<double> ContourLevels(const HeightRange& range, int most) {
    if (IsBlank(range.Low) || IsBlank(range.High)) return {};
    std::vector<double> levels = TicksBetween(range.Low, range.High, most).At;
    std::erase_if(levels, [&range](double level) { return level <= range.Low || level >= range.High; });
    return levels;
}

}  // namespace crownlab
