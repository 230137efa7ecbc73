#include "mapengine/node_differences.h"

#include <algorithm>
#include <utility>

namespace crownlab {
namespace {

constexpr int kNoRow = -100;

}  // namespace

RowWindow::RowWindow(const Grid& grid) : grid_(grid), middle_(kNoRow) {
    for (std::vector<double>& row : rows_) row.assign(static_cast<std::size_t>(grid.Shape.Columns) + 4, kBlankHeight);
}

void RowWindow::MoveTo(int row) {
    const bool next = middle_ != kNoRow && row == middle_ + 1;
    middle_ = row;
    if (next) {
        for (std::size_t slot = 0; slot + 1 < 5; ++slot) {
            rows_[slot].swap(rows_[slot + 1]);
            whole_[slot] = whole_[slot + 1];
        }
        Fill(4, row + 2);
        return;
    }
    for (std::size_t slot = 0; slot < 5; ++slot) Fill(slot, row - 2 + static_cast<int>(slot));
}

void RowWindow::Fill(std::size_t slot, int row) {
    std::vector<double>& nodes = rows_[slot];
    if (row < 0 || row >= grid_.Shape.Rows) {
        std::fill(nodes.begin(), nodes.end(), kBlankHeight);
        whole_[slot] = false;
        return;
    }
    const double* const z = grid_.Z.data() + grid_.Index(0, row);
    std::copy(z, z + grid_.Shape.Columns, nodes.begin() + 2);
    double highest = z[0];
    for (int i = 1; i < grid_.Shape.Columns; ++i) highest = std::max(highest, z[i]);
    whole_[slot] = !IsBlank(highest);
}

}  // namespace crownlab
