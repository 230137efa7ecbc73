#include "mapengine/kriging.h"

#include <cmath>
#include <vector>

#include "mapengine/linear_system.h"
#include "mapengine/local_kriging.h"
#include "mapengine/node_heights.h"

namespace crownlab {
namespace {

double Distance(const DataPoint& point, double x, double y) {
    const double dx = point.X - x;
    const double dy = point.Y - y;
    return std::sqrt(dx * dx + dy * dy);
}

/// The dual form for all points at once: z(x, y) = Level - sum of Factors[i] times the distance to point i, where the
/// factors add up to 0 and the surface passes through all points.
struct DualKriging {
    double Level = 0;
    std::vector<double> Factors;
};

DualKriging SolveDual(const DataPoints& points) {
    const std::size_t count = points.size();
    const DataBox box = BoxOf(points);
    // Distances and heights near 1 and 0 keep the equations balanced.
    const double side = box.Side() > 0 ? box.Side() : 1;
    const double level = points[0].Z;
    LinearSystem system(count + 1);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = 0; j < count; ++j) system.At(j, i) = -Distance(points[j], points[i].X, points[i].Y) / side;
        system.At(count, i) = 1;
        system.At(i, count) = 1;
        system.Right[i] = points[i].Z - level;
    }
    DualKriging dual{.Level = 0, .Factors = Solve(system)};
    dual.Level = dual.Factors.back() + level;
    dual.Factors.pop_back();
    for (double& factor : dual.Factors) factor /= side;
    return dual;
}

double HeightFromAll(const DataPoints& points, const DualKriging& dual, double x, double y) {
    double sum = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double distance = Distance(points[i], x, y);
        if (distance == 0) return points[i].Z;
        sum += dual.Factors[i] * distance;
    }
    return dual.Level - sum;
}

}  // namespace

Grid KrigingGrid(const DataPoints& points, const GridGeometry& shape, Progress& progress) {
    Grid grid(shape);
    if (points.size() > kAllPointsUpTo) {
        FillFromNeighbours(grid, points, progress, LocalKriging);
        return grid;
    }
    const DualKriging dual = SolveDual(points);
    FillNodes(grid, progress, [&](double x, double y) { return HeightFromAll(points, dual, x, y); });
    return grid;
}

}  // namespace crownlab
