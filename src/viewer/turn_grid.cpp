#include "viewer/turn_grid.h"

#include <algorithm>

#include "basis/memory_limit.h"

namespace crownlab {
namespace {

/// Cells are moved in squares of this side: a transposition walks one of its two grids across the rows, and
/// the cells of a square stay in the processor's cache for both.
constexpr int kSquare = 32;

/// Cells of one square of `turned`, whose lowest column and row are given.
template <typename Source>
void FillSquare(const SurfaceGrid& grid, int firstColumn, int firstRow, Source source, std::vector<Place>& places,
                SurfaceGrid& turned) {
    const int lastColumn = std::min(turned.NumX, firstColumn + kSquare - 1);
    const int lastRow = std::min(turned.NumY, firstRow + kSquare - 1);
    for (int row = firstRow; row <= lastRow; ++row) {
        for (int column = firstColumn; column <= lastColumn; ++column) {
            const std::size_t to = turned.At(column, row);
            const std::size_t from = source(column, row);
            places[to] = (*grid.Places)[from];
            turned.Z[to] = grid.Z[from];
        }
    }
}

/// A grid of that size whose cell (I, J) is the cell of `grid` at index source(I, J).
template <typename Source>
SurfaceGrid Rearranged(const SurfaceGrid& grid, int numX, int numY, Source source) {
    grid.RequireCells("CellGrid");
    RequireMemory(grid.Size() * kCellBytes, "CellGrid");
    SurfaceGrid turned;
    turned.NumX = numX;
    turned.NumY = numY;
    turned.Z.resize(grid.Size());
    const auto places = std::make_shared<std::vector<Place>>(grid.Size());
    for (int row = 1; row <= numY; row += kSquare) {
        for (int column = 1; column <= numX; column += kSquare) FillSquare(grid, column, row, source, *places, turned);
    }
    turned.Places = places;
    return turned;
}

}  // namespace

SurfaceGrid MirroredColumns(const SurfaceGrid& grid) {
    return Rearranged(grid, grid.NumX, grid.NumY, [&](int i, int j) { return grid.At(grid.NumX - i + 1, j); });
}

SurfaceGrid MirroredRows(const SurfaceGrid& grid) {
    return Rearranged(grid, grid.NumX, grid.NumY, [&](int i, int j) { return grid.At(i, grid.NumY - j + 1); });
}

SurfaceGrid Transposed(const SurfaceGrid& grid) {
    return Rearranged(grid, grid.NumY, grid.NumX, [&](int i, int j) { return grid.At(j, i); });
}

}  // namespace crownlab
