#include "mapengine/grid_filter.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <vector>

#include "basis/dispatch.h"
#include "basis/memory_limit.h"

namespace crownlab {
namespace {

constexpr int kBlockRows = 16;

/// Nodes that are reckoned side by side, so that their sums stay in registers.
constexpr int kLanes = 16;

/// A weight that isn't 0, and its neighbour's place from the node.
struct Term {
    int Row = 0;
    std::ptrdiff_t Column = 0;
    double Weight = 0;
};

std::vector<Term> TermsOf(const FilterWeights& weights) {
    std::vector<Term> terms;
    for (int row = -weights.RowReach; row <= weights.RowReach; ++row) {
        for (int column = -weights.ColumnReach; column <= weights.ColumnReach; ++column) {
            const double weight = weights.At(column, row);
            if (weight != 0) terms.push_back({row, column, weight});
        }
    }
    return terms;
}

/// The weighted heights and the weights used, of kLanes nodes.
struct LaneSums {
    std::array<double, kLanes> Heights{};
    std::array<double, kLanes> Weights{};
};

/// A term's factor, and the rows of heights and of used nodes at its place for the first of the lanes.
struct TermRow {
    double Weight = 0;
    const double* Heights = nullptr;
    const double* Used = nullptr;
};

#ifdef __GNUC__

/// Four numbers at a time, whatever registers the processor has.
using Quad = double __attribute__((vector_size(32)));

CROWNLAB_INLINE void AddProduct(Quad& sum, const Quad& weight, const double* values) {
    Quad quad;
    std::memcpy(&quad, values, sizeof(quad));
    sum += weight * quad;
}

/// A node that isn't used has height 0 and 0 as factor of its weight, and so adds nothing to either sum. The eight
/// sums are named one by one: as arrays compilers keep them in memory.
CROWNLAB_WIDE void AddUp(std::span<const TermRow> terms, std::ptrdiff_t at, LaneSums& sums) {
    Quad z0{}, z1{}, z2{}, z3{};
    Quad w0{}, w1{}, w2{}, w3{};
    for (const TermRow& term : terms) {
        const Quad weight = Quad{} + term.Weight;
        const double* const z = term.Heights + at;
        const double* const used = term.Used + at;
        AddProduct(z0, weight, z);
        AddProduct(z1, weight, z + 4);
        AddProduct(z2, weight, z + 8);
        AddProduct(z3, weight, z + 12);
        AddProduct(w0, weight, used);
        AddProduct(w1, weight, used + 4);
        AddProduct(w2, weight, used + 8);
        AddProduct(w3, weight, used + 12);
    }
    const Quad heights[] = {z0, z1, z2, z3};
    const Quad weights[] = {w0, w1, w2, w3};
    static_assert(sizeof(heights) == sizeof(sums.Heights), "as many sums as there are lanes");
    std::memcpy(sums.Heights.data(), heights, sizeof(heights));
    std::memcpy(sums.Weights.data(), weights, sizeof(weights));
}

#else

void AddUp(std::span<const TermRow> terms, std::ptrdiff_t at, LaneSums& sums) {
    sums = {};
    for (const TermRow& term : terms) {
        for (std::size_t i = 0; i < kLanes; ++i) {
            sums.Heights[i] += term.Weight * term.Heights[at + static_cast<std::ptrdiff_t>(i)];
            sums.Weights[i] += term.Weight * term.Used[at + static_cast<std::ptrdiff_t>(i)];
        }
    }
}

#endif

/// Heights with zeros for blank nodes and around the grid, and 1 or 0 for each node as it is used or not.
class PaddedGrid {
public:
    PaddedGrid(const Grid& grid, int reach)
        : shape_(grid.Shape),
          reach_(reach),
          stride_(static_cast<std::size_t>(grid.Shape.Columns) + 2 * static_cast<std::size_t>(reach) + kLanes) {
        const std::size_t count = stride_ * static_cast<std::size_t>(grid.Shape.Rows);
        RequireMemory(2 * count * sizeof(double), "a filter");
        heights_.resize(count);
        used_.resize(count);
    }

    void Take(const Grid& grid, Progress& progress) {
        ForEachBlock(shape_.Rows, kBlockRows, progress, [&](std::int64_t first, std::int64_t last) {
            for (auto row = static_cast<int>(first); row < static_cast<int>(last); ++row) TakeRow(grid, row);
        });
    }

    /// From the row's first node.
    const double* Heights(int row) const { return heights_.data() + Start(row); }
    const double* Used(int row) const { return used_.data() + Start(row); }

private:
    std::size_t Start(int row) const {
        return stride_ * static_cast<std::size_t>(row) + static_cast<std::size_t>(reach_);
    }

    void TakeRow(const Grid& grid, int row) {
        const double* const z = grid.Z.data() + grid.Index(0, row);
        double* const heights = heights_.data() + Start(row);
        double* const used = used_.data() + Start(row);
        for (int i = 0; i < shape_.Columns; ++i) {
            const bool blank = IsBlank(z[i]);
            heights[i] = blank ? 0 : z[i];
            used[i] = blank ? 0 : 1;
        }
    }

    GridGeometry shape_;
    int reach_;
    std::size_t stride_;
    std::vector<double> heights_;
    std::vector<double> used_;
};

double Quotient(double sum, double weights) {
    if (weights == 0) return kBlankHeight;
    const double z = sum / weights;
    return IsBlank(z) ? kBlankHeight : z;
}

/// Filters one row into `result`, which holds the grid's own row: its blank nodes stay.
void FilterRow(const PaddedGrid& padded, const std::vector<Term>& terms, const GridGeometry& shape, int row,
               std::vector<TermRow>& termRows, std::span<double> result) {
    termRows.clear();
    for (const Term& term : terms) {
        const int from = row + term.Row;
        if (from < 0 || from >= shape.Rows) continue;
        termRows.push_back({term.Weight, padded.Heights(from) + term.Column, padded.Used(from) + term.Column});
    }
    LaneSums sums;
    for (int column = 0; column < shape.Columns; column += kLanes) {
        AddUp(termRows, column, sums);
        const int lanes = std::min(kLanes, shape.Columns - column);
        const auto nodes = result.subspan(static_cast<std::size_t>(column), static_cast<std::size_t>(lanes));
        for (std::size_t lane = 0; lane < nodes.size(); ++lane) {
            if (!IsBlank(nodes[lane])) nodes[lane] = Quotient(sums.Heights[lane], sums.Weights[lane]);
        }
    }
}

}  // namespace

Grid FilterGrid(Grid grid, const FilterWeights& weights, int passes, Progress& progress) {
    if (passes == 0) return grid;
    const std::vector<Term> terms = TermsOf(weights);
    PaddedGrid padded(grid, weights.ColumnReach);
    for (int pass = 0; pass < passes; ++pass) {
        // The share done is that of all passes; only a single one tells its own.
        Progress ofPass;
        padded.Take(grid, ofPass);
        ForEachBlock(
            grid.Shape.Rows, kBlockRows, passes == 1 ? progress : ofPass, [&](std::int64_t first, std::int64_t last) {
                std::vector<TermRow> termRows;
                for (auto row = static_cast<int>(first); row < static_cast<int>(last); ++row) {
                    FilterRow(
                        padded, terms, grid.Shape, row, termRows,
                        std::span(grid.Z).subspan(grid.Index(0, row), static_cast<std::size_t>(grid.Shape.Columns)));
                }
            });
        progress.SetShare((pass + 1.0) / passes);
    }
    return grid;
}

}  // namespace crownlab
