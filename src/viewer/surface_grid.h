#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "basis/failure.h"
#include "formats/point_text.h"

namespace crownlab {

/// z of a cell that no point reached: void, not surface. It isn't the blank value of the mapping program.
inline constexpr double kEmptyCellZ = 9999;

/// One point of a surface, in the file's own units (usually millimetres).
using SurfacePoint = CloudPoint;

/// Where a cell lies in the plane.
struct Place {
    double x = 0;
    double y = 0;
};

/// A regular grid of cells in one block: column I from 1 to NumX (x), row J from 1 to NumY, row 1 being the
/// lowest y. Cells lie row after row.
///
///     row NumY   . . . .      the display turns this over: its row 1 is the grid's row NumY
///     ...        . . . .
///     row 1      . . . .
///                1  ...  NumX
///
/// Grids of one surface differ in z only, so they share their places, which are never changed in the block:
/// copying a grid copies z and a pointer.
struct SurfaceGrid {
    int NumX = 0;
    int NumY = 0;
    std::shared_ptr<const std::vector<Place>> Places;
    std::vector<double> Z;

    SurfaceGrid() = default;
    /// z of all cells is `z`; the places are those of `like`.
    SurfaceGrid(const SurfaceGrid& like, double z)
        : NumX(like.NumX), NumY(like.NumY), Places(like.Places), Z(like.Z.size(), z) {}

    bool Empty() const { return Z.empty(); }
    std::size_t Size() const { return Z.size(); }
    std::size_t At(int column, int row) const {
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(NumX) +
               static_cast<std::size_t>(column - 1);
    }
    double z(int column, int row) const { return Z[At(column, row)]; }
    double& z(int column, int row) { return Z[At(column, row)]; }
    SurfacePoint Point(int column, int row) const {
        const std::size_t at = At(column, row);
        return {(*Places)[at].x, (*Places)[at].y, Z[at]};
    }
    /// SubscriptOutOfRange unless the cell is inside.
    void Require(int column, int row, std::string_view name) const {
        if (column < 1 || row < 1 || column > NumX || row > NumY) {
            throw Failure(FailureKind::SubscriptOutOfRange, std::string(name));
        }
    }
    /// SubscriptOutOfRange if there is no cell at all, as before the first surface is read.
    void RequireCells(std::string_view name) const {
        if (Empty()) throw Failure(FailureKind::SubscriptOutOfRange, std::string(name));
    }
};

/// Bytes of one cell of a grid that has places of its own, for memory checks.
inline constexpr std::uint64_t kCellBytes = sizeof(Place) + sizeof(double);

}  // namespace crownlab
