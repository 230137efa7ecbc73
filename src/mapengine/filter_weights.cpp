#include "mapengine/filter_weights.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "basis/memory_limit.h"
#include "mapengine/engine_call.h"

namespace crownlab {
namespace {

FilterWeights Zeros(int columnReach, int rowReach) {
    const std::uint64_t count =
        (2 * static_cast<std::uint64_t>(columnReach) + 1) * (2 * static_cast<std::uint64_t>(rowReach) + 1);
    RequireMemory(count * sizeof(double), "the weights of a filter");
    FilterWeights weights{.ColumnReach = columnReach, .RowReach = rowReach, .Values = {}};
    weights.Values.assign(count, 0.0);
    return weights;
}

/// Fills the weights by `weightAt(column, row)`, the neighbour's place from the node.
template <typename Act>
void Fill(FilterWeights& weights, const Act& weightAt) {
    for (int row = -weights.RowReach; row <= weights.RowReach; ++row) {
        for (int column = -weights.ColumnReach; column <= weights.ColumnReach; ++column) {
            weights.At(column, row) = weightAt(column, row);
        }
    }
}

/// Zeros over `reach` nodes to each side, no farther than the grid's own nodes lie apart.
FilterWeights ZerosWithin(int reach, const GridGeometry& shape) {
    return Zeros(std::min(reach, shape.Columns - 1), std::min(reach, shape.Rows - 1));
}

double Squared(int column, int row) { return static_cast<double>(column) * column + static_cast<double>(row) * row; }

/// In extended precision, whose library function is the same on every processor.
double Exponential(double x) { return static_cast<double>(std::exp(static_cast<long double>(x))); }

double SizedWeight(int filter, double squared, double reach, double alpha) {
    using namespace filter_number;
    switch (filter) {
        case kDistance: return std::max(0.0, 1 - std::sqrt(squared) / (reach + 1));
        case kInverseDistance: return squared == 0 ? 1 : 1 / std::sqrt(squared);
        case kGaussian: return Exponential(-alpha * squared);
        default: return 1;
    }
}

/// Three by three: the middle, the four sides, the four corners.
FilterWeights ThreeByThree(double middle, double side, double corner) {
    FilterWeights weights = Zeros(1, 1);
    Fill(weights, [&](int column, int row) {
        if (column == 0 && row == 0) return middle;
        return column == 0 || row == 0 ? side : corner;
    });
    return weights;
}

/// Five by five, with ones in the middle and on four nodes two steps away: along the axes, or across them.
FilterWeights FiveNodes(bool along) {
    FilterWeights weights = Zeros(2, 2);
    Fill(weights, [&](int column, int row) {
        if (column == 0 && row == 0) return 1.0;
        const int farther = std::max(std::abs(column), std::abs(row));
        const int nearer = std::min(std::abs(column), std::abs(row));
        return farther == 2 && nearer == (along ? 0 : 2) ? 1.0 : 0.0;
    });
    return weights;
}

}  // namespace

bool HasChosenSize(int filter) { return filter >= filter_number::kMovingAverage && filter <= filter_number::kGaussian; }

FilterWeights SizedFilter(int filter, int size, double alpha, const GridGeometry& shape) {
    const int reach = (size - 1) / 2;
    FilterWeights weights = ZerosWithin(reach, shape);
    Fill(weights, [&](int column, int row) { return SizedWeight(filter, Squared(column, row), reach, alpha); });
    if (!std::all_of(weights.Values.begin(), weights.Values.end(), [](double w) { return std::isfinite(w); })) {
        FailCall("Param1 makes a weight of the filter too large for a number");
    }
    return weights;
}

FilterWeights FixedFilter(int filter) {
    switch (filter) {
        case 6: return FiveNodes(true);
        case 7: return FiveNodes(false);
        case 8: return ThreeByThree(1, 1, 1);
        case 9: return ThreeByThree(4, 2, 1);
        case 10: return ThreeByThree(1, 1, 1);
        case 11: return ThreeByThree(2, 1, 1);
        case 12: return ThreeByThree(4, 1, 1);
        case 14: return ThreeByThree(9, -1, -1);
        case 15: return ThreeByThree(5, -1, 0);
        case 16: return ThreeByThree(5, -2, 1);
        default: FailCall("Filter " + std::to_string(filter) + " stands for no filter");
    }
}

FilterWeights CentreWeighted(int reach, double centre, const GridGeometry& shape) {
    FilterWeights weights = ZerosWithin(reach, shape);
    Fill(weights, [&](int column, int row) { return column == 0 && row == 0 ? centre : 1.0; });
    return weights;
}

}  // namespace crownlab
