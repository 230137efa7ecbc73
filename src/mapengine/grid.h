#pragma once

#include <cstddef>
#include <vector>

namespace crownlab {

/// Height of a blank node, in memory and in files. It reads back as blank from 32 bits too.
inline constexpr double kBlankHeight = 1.70141E+38;

/// True for a height that stands for "no value": at or above the blank value, or not finite.
inline bool IsBlank(double z) { return !(z < kBlankHeight) || z < -1.7976931348623157e308; }

/// Columns, rows and limits of a grid. Limits are positions of the outermost nodes.
struct GridGeometry {
    int Columns = 0;
    int Rows = 0;
    double XMin = 0;
    double XMax = 0;
    double YMin = 0;
    double YMax = 0;

    double SpacingX() const { return (XMax - XMin) / (Columns - 1); }
    double SpacingY() const { return (YMax - YMin) / (Rows - 1); }
    /// Position of a column (from 0); the last one is XMax itself.
    double X(int column) const { return column == Columns - 1 ? XMax : XMin + column * (XMax - XMin) / (Columns - 1); }
    double Y(int row) const { return row == Rows - 1 ? YMax : YMin + row * (YMax - YMin) / (Rows - 1); }
    std::size_t Nodes() const { return static_cast<std::size_t>(Columns) * static_cast<std::size_t>(Rows); }
    /// How far off "on the edge of" reaches: 1E-9 of the larger side.
    double Tolerance() const;
    bool SameShape(const GridGeometry& other) const { return Columns == other.Columns && Rows == other.Rows; }
    friend bool operator==(const GridGeometry&, const GridGeometry&) = default;
};

/// Heights on the nodes of a rectangular lattice: row after row from the lowest y, x running fastest.
struct Grid {
    GridGeometry Shape;
    std::vector<double> Z;  ///< one a node; blank nodes hold kBlankHeight

    Grid() = default;
    /// All nodes blank. AutomationFailed for fewer than two rows or columns or limits that don't rise, OutOfMemory.
    explicit Grid(const GridGeometry& shape);

    std::size_t Index(int column, int row) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(Shape.Columns) +
               static_cast<std::size_t>(column);
    }
    double At(int column, int row) const { return Z[Index(column, row)]; }
    double& At(int column, int row) { return Z[Index(column, row)]; }
};

/// AutomationFailed, with a sentence, for fewer than two rows or columns and for limits that don't rise or aren't
/// finite.
void RequireGeometry(const GridGeometry& shape);

/// Lowest and highest height of the nodes that aren't blank; both blank where there is none.
struct HeightRange {
    double Low = kBlankHeight;
    double High = kBlankHeight;
};
HeightRange Heights(const Grid& grid);

}  // namespace crownlab
