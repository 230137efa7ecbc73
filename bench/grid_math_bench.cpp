#include <benchmark/benchmark.h>

#include "bench_grids.h"
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

/// The tools' own formulas: the larger of two grids, and a mirror in z.
void GridFormulaOf(benchmark::State& state, const char* function, double (*value)(double a, double b)) {
    const GridFormula formula = ParseGridFormula(function);
    const Grid a = SmoothGrid(static_cast<int>(state.range(0)), false);
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
    const Grid grid = SmoothGrid(static_cast<int>(state.range(0)), false);
    Grid turned;
    for (auto _ : state) turned = TurnGrid(grid, 90);
    if (turned.At(0, 0) != grid.At(0, grid.Shape.Rows - 1)) state.SkipWithError("turned the wrong way");
    Tell(state);
}
BENCHMARK(TurnGridByAQuarter)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
