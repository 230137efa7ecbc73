#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "viewer/surface_grid.h"
#include "viewer/viewer_state.h"

namespace crownlab {

// The patch count: contiguous cells of one category are one patch (A. R. Evans, G. P. Wilson, M. Fortelius
// & J. Jernvall, "High-level similarity of dentitions in carnivorans and rodents", Nature 445, 2007).
// Labelling is by one scan and four passes over the grid, each from another corner; a chain of labels that
// four passes don't shorten stays two labels.

/// How values become categories.
struct ClassRule {
    int NumCategories = 0;
    double HalfSector = 0;
    int SectorWidth = 0;     ///< 0 is DivisionByZero
    bool VoidHoriz = false;  ///< cells below the minimum slope have no category (else one of their own)
};

/// Eight-sector rule and its like: sectors of 360 / numCategories degrees, the width rounded half to even, the
/// first one around 0. DivisionByZero for 0 categories, Overflow beyond 16 bits.
ClassRule OrientationRule(double numCategories, bool voidHoriz);

/// One category a contour band from the lowest to the highest.
ClassRule ContourRule(double lowest, double highest, bool voidHoriz);

/// Level 1: the category of each value; kEmptyCellZ for a cell without one.
std::vector<double> Categorise(const SurfaceGrid& values, const ClassRule& rule);

/// A stage of the count without labels yet. OutOfMemory.
LabelGrid EmptyLabels(int numX, int numY, const std::shared_ptr<const std::vector<Place>>& places);

/// Labels the table of equivalences has room for.
inline constexpr int kMaxLabels = 10000;
/// The table, all entries 0: entry q is the smaller label that q equals. Entry 0 is unused.
std::vector<std::int16_t> EmptyEquivTable();

/// Level 2: first labels by one scan, row by row. A cell takes the label of the cell before it in x, else of
/// that before it in y, if the category is the same, else a new one. `lastLabel` is the last label given
/// (cell (1,1) takes 1 and counts as two). Overflow beyond 32767 labels.
struct FirstLabelsResult {
    LabelGrid Labels;
    int LastLabel = 0;
};
FirstLabelsResult FirstLabels(const std::vector<double>& category, const SurfaceGrid& like);

/// The four passes by their order of scan:
///
///     1  rows from the first, columns from the first     3  rows from the last, columns from the last
///     2  columns from the first, rows from the first     4  columns from the last, rows from the last
enum class Pass { One = 1, Two, Three, Four };

/// Number from 0 of the cell (column, row) in the order of a pass.
std::size_t ScanPosition(Pass pass, int numX, int numY, int column, int row);

/// Indices, row by row, of the cells that have a side neighbour with the same category and another label.
/// They are few, and the cells between them leave no trace in a pass.
std::vector<std::size_t> CellsWithPairs(const std::vector<double>& category, const LabelGrid& labels);

/// Enters equivalences for those of `cells` (from CellsWithPairs) with scan positions in [first, last): for
/// each of the four side neighbours (y+1, y-1, x+1, x-1, in this order) with the same category and another
/// label, the greater label gets the smaller as its entry, replacing any it had. SubscriptOutOfRange for a
/// label that the table has no room for.
void FindEquiv(const std::vector<double>& category, const LabelGrid& labels, const std::vector<std::size_t>& cells,
               Pass pass, std::size_t first, std::size_t last, std::vector<std::int16_t>& equivTable);

/// Shortens chains: for k from `from` down to `to`, with m the entry of k and t the entry of m, neither 0,
/// every entry m becomes t. Near-linear in the number of labels; same result as the plain loops, as an
/// entry is always smaller than its label.
void ShortenEquivTable(std::vector<std::int16_t>& equivTable, int numLabels, int from, int to);

/// Writes the cells [first, last) of `fixed` from `labels` through the table.
void FixEquiv(const LabelGrid& labels, const std::vector<std::int16_t>& equivTable, std::size_t first, std::size_t last,
              LabelGrid& fixed);

/// Patches of more than `minClumpSize` cells.
struct ClumpSelection {
    std::vector<std::int16_t> LabelToClump;  ///< by label; 0 for a dropped one
    std::vector<double> ClumpSizes;
};
ClumpSelection SelectClumps(const LabelGrid& labels, int numLabels, int minClumpSize);

/// Level 7: patch numbers, cells of dropped patches void.
LabelGrid ClumpNumbers(const LabelGrid& labels, const ClumpSelection& selection);

/// Cells of `grid` with a surface that don't lie in its first or last row or column.
std::int32_t CountInnerCells(const SurfaceGrid& grid);

/// 1 / the sum of the squared shares of the patches in all inner cells (inverse Simpson index); 0 without
/// patches. The shares need not add to 1, as dropped patches are part of the whole.
double PatchDiversity(const std::vector<double>& clumpSizes, std::int32_t totalCells);

}  // namespace crownlab
