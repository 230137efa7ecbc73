#pragma once

#include <cstddef>
#include <vector>

#include "mapengine/grid.h"

namespace crownlab {

/// Weights of a node's neighbours: 2 RowReach + 1 rows from the lowest y, of 2 ColumnReach + 1 weights from the
/// lowest x.
struct FilterWeights {
    int ColumnReach = 0;
    int RowReach = 0;
    std::vector<double> Values;

    /// Place of the neighbour that many nodes away.
    std::size_t Index(int column, int row) const {
        const auto width = 2 * static_cast<std::size_t>(ColumnReach) + 1;
        return static_cast<std::size_t>(row + RowReach) * width + static_cast<std::size_t>(column + ColumnReach);
    }
    double At(int column, int row) const { return Values[Index(column, row)]; }
    double& At(int column, int row) { return Values[Index(column, row)]; }
};

/// The numbers by which a call asks for a filter.
namespace filter_number {
inline constexpr int kMovingAverage = 1;
inline constexpr int kDistance = 2;
inline constexpr int kInverseDistance = 3;
inline constexpr int kGaussian = 4;
inline constexpr int kUserMatrix = 5;
}  // namespace filter_number

/// True for the filters whose window the caller chooses: 1 to 4.
bool HasChosenSize(int filter);

/// Weights over `size` by `size` nodes (odd, 1 at least), with d the distance in nodes and R = (size - 1) / 2:
/// 1 ones; 2 max(0, 1 - d / (R + 1)); 3 1/d, in the middle 1; 4 exp(-alpha d²). Neighbours that no node of a grid of
/// that shape has are left out, however large the window. AutomationFailed if a weight isn't finite.
FilterWeights SizedFilter(int filter, int size, double alpha, const GridGeometry& shape);

/// The weights of a filter of fixed size: 6 to 12, 14 to 16. AutomationFailed for any other number.
FilterWeights FixedFilter(int filter);

/// Ones over `reach` nodes to each side, `centre` in the middle; left out as above.
FilterWeights CentreWeighted(int reach, double centre, const GridGeometry& shape);

}  // namespace crownlab
