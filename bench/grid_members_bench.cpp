#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>

#include "bench_grids.h"
#include "mapengine/blanking.h"
#include "mapengine/grid_math.h"
#include "mapengine/grid_transform.h"

namespace crownlab::bench {
namespace {

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

void Tell(benchmark::State& state) {
    state.SetItemsProcessed(state.range(0) * state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

/// An outline with lobes, as around a crown, of 2,000 vertices.
Boundary Outline() {
    Boundary outline;
    for (int i = 0; i < 2000; ++i) {
        const double angle = 2 * std::numbers::pi * i / 2000;
        const double radius = 3.4 + 0.3 * std::sin(5 * angle) + 0.01 * std::sin(311 * angle);
        outline.Points.push_back({5 + radius * std::cos(angle), 4 + radius * std::sin(angle)});
    }
    return outline;
}

void BlankGrid(benchmark::State& state) {
    const Boundary outline = Outline();
    Grid grid = SmoothGrid(static_cast<int>(state.range(0)));
    Progress progress;
    for (auto _ : state) BlankByBoundary(grid, outline, progress);
    double left = 0;
    for (const double z : grid.Z) left += IsBlank(z) ? 0 : 1;
    // The lobes' share of the area: pi (3.4² + 0.3² / 2) of 80, the ripple adds less than a thousandth.
    const double share = left / static_cast<double>(grid.Z.size());
    if (std::fabs(share - std::numbers::pi * (3.4 * 3.4 + 0.045) / 80) > 0.01) state.SkipWithError("wrong area left");
    Tell(state);
}
BENCHMARK(BlankGrid)->Apply(Sizes);

/// The tools' own formulas: the larger of two grids, and a mirror in z.
void GridFormulaOf(benchmark::State& state, const char* function, double (*value)(double a, double b)) {
    const GridFormula formula = ParseGridFormula(function);
    const Grid a = SmoothGrid(static_cast<int>(state.range(0)));
    Grid b = a;
    for (double& z : b.Z) z = 6 - z;
    Grid result = a;
    Progress progress;
    for (auto _ : state) {
        state.PauseTiming();
        result.Z = a.Z;
        state.ResumeTiming();
        ApplyGridFormula(formula, result, &b, progress);
    }
    for (std::size_t i = 0; i < a.Z.size(); i += 997) {
        if (result.Z[i] != value(a.Z[i], b.Z[i])) state.SkipWithError("another value than the formula's");
    }
    Tell(state);
}

void GridMathMax(benchmark::State& state) {
    GridFormulaOf(state, "C=max(A,B)", [](double a, double b) { return a > b ? a : b; });
}
BENCHMARK(GridMathMax)->Apply(Sizes);

void GridMathMirror(benchmark::State& state) {
    GridFormulaOf(state, "C=5.5-A +1.25", [](double a, double) { return 5.5 - a + 1.25; });
}
BENCHMARK(GridMathMirror)->Apply(Sizes);

void TurnGridByAQuarter(benchmark::State& state) {
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)));
    Grid turned;
    for (auto _ : state) turned = TurnGrid(grid, 90);
    if (turned.At(0, 0) != grid.At(0, grid.Shape.Rows - 1)) state.SkipWithError("turned the wrong way");
    Tell(state);
}
BENCHMARK(TurnGridByAQuarter)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
