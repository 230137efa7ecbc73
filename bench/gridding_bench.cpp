#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <random>

#include "mapengine/inverse_distance.h"
#include "mapengine/kriging.h"
#include "mapengine/scattered_grid.h"
#include "mapengine/triangulation_grid.h"

namespace crownlab {
namespace {

constexpr std::uint64_t kSeed = 20261121;

double Dome(double x, double y) { return 3 + std::sin(x * 1.7) * std::cos(y * 1.3) + 0.1 * x; }

/// Points at random places of a box of 10 by 8.
DataPoints RandomPoints(std::int64_t count) {
    std::mt19937_64 engine(kSeed);
    const auto upTo = [&](double end) { return end * static_cast<double>(engine() >> 11) * 0x1p-53; };
    DataPoints points(static_cast<std::size_t>(count));
    for (DataPoint& point : points) {
        point.X = upTo(10);
        point.Y = upTo(8);
        point.Z = Dome(point.X, point.Y);
    }
    return points;
}

/// A square lattice of points, all of whose squares are cocircular.
DataPoints LatticePoints(std::int64_t side) {
    DataPoints points;
    for (std::int64_t i = 0; i < side * side; ++i) {
        const double x = 3.17 + 0.05 * static_cast<double>(i % side);
        const double y = 0.05 * static_cast<double>(i / side);
        points.push_back({.X = x, .Y = y, .Z = Dome(x, y)});
    }
    return points;
}

/// A grid over the inner part of the points, so that no node has to be blank.
GridGeometry InnerShape(const DataPoints& points, int columns, int rows) {
    const DataBox box = BoxOf(points);
    return {.Columns = columns,
            .Rows = rows,
            .XMin = box.XMin + 0.01 * box.Width(),
            .XMax = box.XMax - 0.01 * box.Width(),
            .YMin = box.YMin + 0.01 * box.Height(),
            .YMax = box.YMax - 0.01 * box.Height()};
}

void RunGridding(benchmark::State& state, GriddingMethod method, const DataPoints& points, const GridGeometry& shape) {
    double worst = 0;
    for (auto _ : state) {
        Progress progress;
        const Grid grid = GridPoints(method, points, shape, progress).Heights;
        const int column = shape.Columns / 3;
        const int row = shape.Rows / 4;
        worst = std::fabs(grid.At(column, row) - Dome(shape.X(column), shape.Y(row)));
    }
    if (!(worst < 0.2)) state.SkipWithError("a height is far from the surface that the points were taken from");
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(shape.Nodes()));
    state.counters["threads"] = WorkerThreads();
}

/// 50,000 points; nodes along the longer side.
void RunScattered(benchmark::State& state, GriddingMethod method) {
    const DataPoints points = RandomPoints(50'000);
    const auto columns = static_cast<int>(state.range(0));
    RunGridding(state, method, points, InnerShape(points, columns, columns * 150 / 188));
}

void Kriging(benchmark::State& state) { RunScattered(state, GriddingMethod::Kriging); }
BENCHMARK(Kriging)->Arg(188)->Arg(376)->Arg(752)->Unit(benchmark::kMillisecond)->UseRealTime();

void InverseDistance(benchmark::State& state) { RunScattered(state, GriddingMethod::InverseDistance); }
BENCHMARK(InverseDistance)->Arg(188)->Arg(376)->Arg(752)->Unit(benchmark::kMillisecond)->UseRealTime();

/// As many points as nodes, at random places.
void TriangulationRandom(benchmark::State& state) {
    const auto side = static_cast<int>(state.range(0));
    const DataPoints points = RandomPoints(state.range(0) * state.range(0));
    RunGridding(state, GriddingMethod::Triangulation, points, InnerShape(points, side, side));
}
BENCHMARK(TriangulationRandom)->Arg(250)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// As many points as nodes, on a lattice.
void TriangulationLattice(benchmark::State& state) {
    const auto side = static_cast<int>(state.range(0));
    const DataPoints points = LatticePoints(state.range(0));
    RunGridding(state, GriddingMethod::Triangulation, points, InnerShape(points, side, side));
}
BENCHMARK(TriangulationLattice)->Arg(250)->Arg(500)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

/// All of 250 points for each node.
void KrigingAllPoints(benchmark::State& state) {
    const DataPoints points = RandomPoints(250);
    const auto columns = static_cast<int>(state.range(0));
    RunGridding(state, GriddingMethod::Kriging, points, InnerShape(points, columns, columns * 150 / 188));
}
BENCHMARK(KrigingAllPoints)->Arg(188)->Arg(376)->Arg(752)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace crownlab
