#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "formats/point_text.h"

namespace crownlab {

/// The nodes of a grid as its text has them: row after row, x running fastest.
struct Lattice {
    int Cols = 0;
    int Rows = 0;
    std::vector<CloudPoint> Nodes;

    /// The node in column i of row j, both from 1.
    const CloudPoint& At(int i, int j) const { return Nodes[Index(i, j)]; }
    CloudPoint& At(int i, int j) { return Nodes[Index(i, j)]; }
    std::size_t Index(int i, int j) const {
        return static_cast<std::size_t>(j - 1) * static_cast<std::size_t>(Cols) + static_cast<std::size_t>(i - 1);
    }
};

/// Reads a grid's text. The first change of y ends the first row; the rows are the file's lines over the columns, 16
/// bits. InputPastEnd if y never changes (a grid of one row) or values are missing, Overflow for more than 32,767 rows,
/// TypeMismatch for what isn't a number, OutOfMemory, and what reading a file throws.
Lattice ReadLattice(const std::string& path);

}  // namespace crownlab
