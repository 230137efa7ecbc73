#pragma once

#include <cstddef>
#include <vector>

namespace crownlab {

/// A square system of linear equations.
struct LinearSystem {
    std::size_t Size = 0;
    std::vector<double> Columns;  ///< Size x Size coefficients, column by column
    std::vector<double> Right;    ///< Size right sides

    explicit LinearSystem(std::size_t size) : Size(size), Columns(size * size), Right(size) {}
    double& At(std::size_t row, std::size_t column) { return Columns[column * Size + row]; }
};

/// The solution by LU with full pivoting; a solution with some zeros where the equations don't fix all unknowns.
/// Elimination goes step by step, not by blocks whose size follows the processor, so the result has the same bits
/// everywhere.
std::vector<double> Solve(const LinearSystem& system);

}  // namespace crownlab
