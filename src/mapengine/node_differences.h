#pragma once

#include <span>
#include <vector>

#include "mapengine/grid.h"

namespace crownlab {

/// First difference at a node between two neighbours `step` away; any of them may be blank, and blank comes out
/// where there is none.
inline double FirstDifference(double before, double here, double after, double step) {
    if (IsBlank(here)) return kBlankHeight;
    if (!IsBlank(before) && !IsBlank(after)) return (after - before) / (2 * step);
    if (!IsBlank(after)) return (after - here) / step;
    if (!IsBlank(before)) return (here - before) / step;
    return kBlankHeight;
}

/// Second difference at z[2] of five nodes in a row, `step` apart: central, or from the nodes of one side.
inline double SecondDifference(const double (&z)[5], double step) {
    if (IsBlank(z[2])) return kBlankHeight;
    const bool before = !IsBlank(z[1]);
    const bool after = !IsBlank(z[3]);
    if (before && after) return (z[1] - 2 * z[2] + z[3]) / (step * step);
    if (after && !IsBlank(z[4])) return (z[2] - 2 * z[3] + z[4]) / (step * step);
    if (before && !IsBlank(z[0])) return (z[2] - 2 * z[1] + z[0]) / (step * step);
    return kBlankHeight;
}

/// Five rows of a grid around one, each with two blank nodes at both ends; rows off the grid are blank throughout.
/// The differences of a row's nodes are taken from it without regard to the edges.
class RowWindow {
public:
    explicit RowWindow(const Grid& grid);

    /// Puts a row in the middle. Cheapest for the row after the last one.
    void MoveTo(int row);

    /// Nodes of the row `offset` (-2 to 2) from the middle; [-2] to [Columns + 1] may be read.
    const double* Row(int offset) const { return rows_[static_cast<std::size_t>(offset + 2)].data() + 2; }
    /// True if the rows from -1 to 1 are on the grid and hold no blank node.
    bool IsWhole() const { return whole_[1] && whole_[2] && whole_[3]; }

private:
    void Fill(std::size_t slot, int row);

    const Grid& grid_;
    std::vector<double> rows_[5];
    bool whole_[5] = {};
    int middle_;
};

}  // namespace crownlab
