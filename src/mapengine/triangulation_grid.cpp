#include "mapengine/triangulation_grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "mapengine/delaunay.h"
#include "mapengine/engine_call.h"

// A row of nodes cuts a triangle from one edge to another. Places and heights where it crosses an edge are reckoned
// from the edge alone, lower end first, so that the two triangles of an edge get the same ones: no node falls between
// them, and the surface has no step. Between the crossings heights are linear, never beyond those of the corners,
// however thin the triangle:
//
//        C
//       / \         .
//      L-o-R---- row
//     /     `\      .
//    A--------B

namespace crownlab {
namespace {

/// Where a row crosses an edge.
struct Crossing {
    double X = 0;
    double Z = 0;
};

/// The part of a row inside of a triangle.
struct Cut {
    Crossing Left{.X = std::numeric_limits<double>::infinity(), .Z = 0};
    Crossing Right{.X = -std::numeric_limits<double>::infinity(), .Z = 0};

    void Take(const Crossing& crossing) {
        if (crossing.X < Left.X) Left = crossing;
        if (crossing.X > Right.X) Right = crossing;
    }
    double HeightAt(double x) const {
        if (x == Left.X) return Left.Z;
        if (x == Right.X) return Right.Z;
        return Left.Z + (Right.Z - Left.Z) * ((x - Left.X) / (Right.X - Left.X));
    }
};

/// The crossing of an edge with the row at `y`, which it reaches and doesn't lie in.
Crossing CrossingOf(const DataPoint& a, const DataPoint& b, double y) {
    const DataPoint& low = a.Y < b.Y ? a : b;
    const DataPoint& high = a.Y < b.Y ? b : a;
    if (y == low.Y) return {.X = low.X, .Z = low.Z};
    if (y == high.Y) return {.X = high.X, .Z = high.Z};
    const double share = (y - low.Y) / (high.Y - low.Y);
    return {.X = low.X + (high.X - low.X) * share, .Z = low.Z + (high.Z - low.Z) * share};
}

/// Numbers of nodes along one axis, from First to one before Last.
struct NodeRange {
    int First = 0;
    int Last = 0;
    bool Empty() const { return First >= Last; }
};

/// The nodes of one axis: rising positions that are evenly spaced but for rounding.
class Axis {
public:
    explicit Axis(std::vector<double> positions)
        : positions_(std::move(positions)), span_(positions_.back() - positions_.front()) {}

    double operator[](int node) const { return positions_[static_cast<std::size_t>(node)]; }
    int Count() const { return static_cast<int>(positions_.size()); }

    /// The nodes from `low` to `high`, both included.
    NodeRange Within(double low, double high) const { return {.First = FirstFrom(low), .Last = FirstBeyond(high)}; }

private:
    /// A node near the position, found by the spacing.
    int Guess(double position) const {
        const double last = Count() - 1;
        return static_cast<int>(std::clamp((position - positions_.front()) / span_ * last, 0.0, last));
    }
    int FirstFrom(double low) const {
        int node = Guess(low);
        while (node > 0 && (*this)[node - 1] >= low) --node;
        while (node < Count() && (*this)[node] < low) ++node;
        return node;
    }
    int FirstBeyond(double high) const {
        int node = Guess(high);
        while (node > 0 && (*this)[node - 1] > high) --node;
        while (node < Count() && (*this)[node] <= high) ++node;
        return node;
    }

    std::vector<double> positions_;
    double span_;
};

Axis Columns(const GridGeometry& shape) {
    std::vector<double> positions(static_cast<std::size_t>(shape.Columns));
    for (int i = 0; i < shape.Columns; ++i) positions[static_cast<std::size_t>(i)] = shape.X(i);
    return Axis(std::move(positions));
}

Axis Rows(const GridGeometry& shape) {
    std::vector<double> positions(static_cast<std::size_t>(shape.Rows));
    for (int i = 0; i < shape.Rows; ++i) positions[static_cast<std::size_t>(i)] = shape.Y(i);
    return Axis(std::move(positions));
}

/// Paints triangles into a grid.
class Painter {
public:
    Painter(const DataPoints& points, const Triangulation& triangulation, Grid& grid)
        : points_(points),
          triangulation_(triangulation),
          grid_(grid),
          columns_(Columns(grid.Shape)),
          rows_(Rows(grid.Shape)) {}

    void Run(Progress& progress) {
        FindRows(progress);
        // Each block goes through all triangles, in their order: of those that share a node the first one counts.
        constexpr std::int64_t blocks = 32;
        const std::int64_t count = rows_.Count();
        ForEachBlock(count, (count + blocks - 1) / blocks, progress, [&](std::int64_t first, std::int64_t last) {
            PaintRows(static_cast<int>(first), static_cast<int>(last));
        });
        for (const auto& [from, to] : triangulation_.Hull) PaintHullEdge(points_[from], points_[to]);
    }

private:
    /// The rows of each triangle.
    void FindRows(Progress& progress) {
        const auto& triangles = triangulation_.Triangles;
        reached_.resize(triangles.size());
        constexpr std::int64_t block = 1 << 14;
        ForEachBlock(static_cast<std::int64_t>(triangles.size()), block, progress,
                     [&](std::int64_t first, std::int64_t last) {
                         for (auto i = static_cast<std::size_t>(first); i < static_cast<std::size_t>(last); ++i) {
                             const auto [a, b, c] = triangles[i];
                             const auto [low, high] = std::minmax({points_[a].Y, points_[b].Y, points_[c].Y});
                             reached_[i] = rows_.Within(low, high);
                         }
                     });
    }

    void PaintRows(int first, int last) {
        for (std::size_t i = 0; i < reached_.size(); ++i) {
            const int end = std::min(reached_[i].Last, last);
            for (int row = std::max(reached_[i].First, first); row < end; ++row) {
                PaintCut(row, CutOf(triangulation_.Triangles[i], rows_[row]));
            }
        }
    }

    Cut CutOf(const CornerNumbers& triangle, double y) const {
        Cut cut;
        for (std::size_t i = 0; i < triangle.size(); ++i) {
            const DataPoint& a = points_[triangle[i]];
            const DataPoint& b = points_[triangle[(i + 1) % triangle.size()]];
            // Both ends of an edge in the row belong to other edges too.
            if (a.Y != b.Y && std::min(a.Y, b.Y) <= y && y <= std::max(a.Y, b.Y)) cut.Take(CrossingOf(a, b, y));
        }
        return cut;
    }

    void PaintCut(int row, const Cut& cut) {
        const NodeRange nodes = columns_.Within(cut.Left.X, cut.Right.X);
        for (int column = nodes.First; column < nodes.Last; ++column) {
            Put(column, row, cut.HeightAt(columns_[column]));
        }
    }

    void Put(int column, int row, double z) {
        double& node = grid_.At(column, row);
        if (node == kBlankHeight) node = z;
    }

    /// Nodes outside of the hull but on its edge.
    void PaintHullEdge(const DataPoint& a, const DataPoint& b) {
        const double tolerance = grid_.Shape.Tolerance();
        const NodeRange rows = rows_.Within(std::min(a.Y, b.Y) - tolerance, std::max(a.Y, b.Y) + tolerance);
        for (int row = rows.First; row < rows.Last; ++row) PaintHullRow(a, b, row, tolerance);
    }

    void PaintHullRow(const DataPoint& a, const DataPoint& b, int row, double tolerance) {
        const double dx = b.X - a.X;
        const double dy = b.Y - a.Y;
        const double squared = dx * dx + dy * dy;
        const auto [low, high] = NearRow(a, b, rows_[row], tolerance);
        const NodeRange nodes = columns_.Within(low, high);
        for (int column = nodes.First; column < nodes.Last; ++column) {
            if (grid_.At(column, row) != kBlankHeight) continue;
            const double along = ((columns_[column] - a.X) * dx + (rows_[row] - a.Y) * dy) / squared;
            const double share = std::clamp(along, 0.0, 1.0);
            const double offX = columns_[column] - (a.X + share * dx);
            const double offY = rows_[row] - (a.Y + share * dy);
            if (offX * offX + offY * offY <= tolerance * tolerance) Put(column, row, a.Z + share * (b.Z - a.Z));
        }
    }

    /// Lowest and highest x of what of an edge lies within the tolerance of a row, and the tolerance more.
    static std::pair<double, double> NearRow(const DataPoint& a, const DataPoint& b, double y, double tolerance) {
        const double low = std::max(y - tolerance, std::min(a.Y, b.Y));
        const double high = std::min(y + tolerance, std::max(a.Y, b.Y));
        const bool level = a.Y == b.Y || low > high;
        const double first = level ? a.X : CrossingOf(a, b, low).X;
        const double second = level ? b.X : CrossingOf(a, b, high).X;
        return {std::min(first, second) - tolerance, std::max(first, second) + tolerance};
    }

    const DataPoints& points_;
    const Triangulation& triangulation_;
    Grid& grid_;
    Axis columns_;
    Axis rows_;
    std::vector<NodeRange> reached_;  ///< one a triangle
};

}  // namespace

Grid TriangulationGrid(const DataPoints& points, const GridGeometry& shape, Progress& progress) {
    if (points.size() < 3) {
        FailCall("triangulation needs three points, there are " + std::to_string(points.size()));
    }
    if (AllOnALine(points, kLineShare)) FailCall("triangulation needs points that don't all lie on a line");
    Grid grid(shape);
    const Triangulation triangulation = Triangulate(points);
    Painter(points, triangulation, grid).Run(progress);
    for (double& z : grid.Z) {
        if (IsBlank(z)) z = kBlankHeight;
    }
    return grid;
}

}  // namespace crownlab
