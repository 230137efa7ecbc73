#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

#include "mapengine/grid.h"
#include "support/random_numbers.h"

namespace crownlab {

/// A grid whose heights are height(x, y) at its nodes.
template <typename Height>
Grid GridOf(const GridGeometry& shape, const Height& height) {
    Grid grid(shape);
    for (int row = 0; row < shape.Rows; ++row) {
        for (int column = 0; column < shape.Columns; ++column) {
            grid.At(column, row) = height(shape.X(column), shape.Y(row));
        }
    }
    return grid;
}

/// Columns, rows, spacings that differ in x and y, lower left corner away from zero.
inline GridGeometry ShapeOf(int columns, int rows, double dx = 0.5, double dy = 0.25) {
    return {.Columns = columns,
            .Rows = rows,
            .XMin = 3,
            .XMax = 3 + dx * (columns - 1),
            .YMin = -7,
            .YMax = -7 + dy * (rows - 1)};
}

/// Whole heights from -5 to 5, so that zeros and equal neighbours are common; every `blankEvery`th or so blank, 0 for
/// none.
inline Grid RandomGrid(RandomNumbers& random, const GridGeometry& shape, std::uint64_t blankEvery) {
    Grid grid(shape);
    for (double& z : grid.Z) {
        const bool blank = blankEvery != 0 && random.Below(blankEvery) == 0;
        z = blank ? kBlankHeight : static_cast<double>(random.Below(11)) - 5;
    }
    return grid;
}

/// The environment's bound on worker threads, for as long as this lives.
class ThreadBound {
public:
    explicit ThreadBound(const char* threads) { setenv("CROWNLAB_THREADS", threads, 1); }
    ThreadBound(const ThreadBound&) = delete;
    ThreadBound& operator=(const ThreadBound&) = delete;
    ~ThreadBound() { unsetenv("CROWNLAB_THREADS"); }
};

inline bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(double)) == 0;
}

/// Equal shapes, the same nodes blank, the others within `tolerance` of one another, relative above 1.
inline ::testing::AssertionResult GridsAgree(const Grid& a, const Grid& b, double tolerance) {
    if (!(a.Shape == b.Shape)) return ::testing::AssertionFailure() << "the shapes differ";
    for (std::size_t i = 0; i < a.Z.size(); ++i) {
        const double bound = tolerance * std::max(1.0, std::abs(b.Z[i]));
        const bool same = IsBlank(a.Z[i]) || IsBlank(b.Z[i]) ? a.Z[i] == b.Z[i] : std::abs(a.Z[i] - b.Z[i]) <= bound;
        if (same) continue;
        return ::testing::AssertionFailure()
               << "column " << i % static_cast<std::size_t>(a.Shape.Columns) << ", row "
               << i / static_cast<std::size_t>(a.Shape.Columns) << ": " << a.Z[i] << " against " << b.Z[i];
    }
    return ::testing::AssertionSuccess();
}

}  // namespace crownlab
