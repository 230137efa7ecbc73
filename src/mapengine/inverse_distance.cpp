#include "mapengine/inverse_distance.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "mapengine/node_heights.h"

namespace crownlab {
namespace {

/// Weights are taken relative to the nearest point's, so that none overflows.
double WeightedMean(const double* squared, const double* z, std::size_t stride, std::size_t count, double nearest) {
    double sum = 0;
    double weights = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const double weight = nearest / squared[i];
        sum += weight * z[i * stride];
        weights += weight;
    }
    return sum / weights;
}

double HeightFrom(const Neighbours& found) {
    const double nearest = *std::min_element(found.Squared.begin(), found.Squared.begin() + found.Count);
    return WeightedMean(found.Squared.data(), found.Z.data(), 1, found.Count, nearest);
}

double HeightFromAll(const DataPoints& points, double x, double y) {
    std::array<double, kAllPointsUpTo> squared;
    double nearest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double dx = points[i].X - x;
        const double dy = points[i].Y - y;
        squared[i] = dx * dx + dy * dy;
        if (squared[i] == 0) return points[i].Z;
        nearest = std::min(nearest, squared[i]);
    }
    constexpr std::size_t stride = sizeof(DataPoint) / sizeof(double);
    return WeightedMean(squared.data(), &points[0].Z, stride, points.size(), nearest);
}

}  // namespace

Grid InverseDistanceGrid(const DataPoints& points, const GridGeometry& shape, Progress& progress) {
    Grid grid(shape);
    if (points.size() > kAllPointsUpTo) {
        FillFromNeighbours(grid, points, progress, HeightFrom);
    } else {
        FillNodes(grid, progress, [&](double x, double y) { return HeightFromAll(points, x, y); });
    }
    return grid;
}

}  // namespace crownlab
