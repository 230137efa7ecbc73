#include <benchmark/benchmark.h>

#include <cmath>
#include <numbers>

#include "bench_grids.h"
#include "mapengine/blanking.h"

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
        outline.Points.push_back({6 + radius * std::cos(angle), 4.5 + radius * std::sin(angle)});
    }
    return outline;
}

void BlankGrid(benchmark::State& state) {
    const Boundary outline = Outline();
    Grid grid = SmoothGrid(static_cast<int>(state.range(0)), false);
    Progress progress;
    for (auto _ : state) BlankByBoundary(grid, outline, progress);
    double left = 0;
    for (const double z : grid.Z) left += IsBlank(z) ? 0 : 1;
    // The lobes' share of the area: pi (3.4² + 0.3² / 2) of 108, the ripple adds less than a thousandth.
    const double share = left / static_cast<double>(grid.Z.size());
    if (std::fabs(share - std::numbers::pi * (3.4 * 3.4 + 0.045) / 108) > 0.01) state.SkipWithError("wrong area left");
    Tell(state);
}
BENCHMARK(BlankGrid)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
