#include <benchmark/benchmark.h>

#include "bench_surfaces.h"
#include "viewer/aspect_slope.h"
#include "viewer/render.h"

namespace crownlab::bench {
namespace {

void AspectSlopeArrays(benchmark::State& state) {
    const SurfaceGrid work = SmoothSurface(static_cast<int>(state.range(0)));
    SurfaceGrid slope(work, 0);
    SurfaceGrid aspect(work, 0);
    for (auto _ : state) {
        AspectSlope(work, {.StepX = 0.01, .UseMinSlope = false, .MinSlope = 0}, slope, aspect);
        benchmark::DoNotOptimize(aspect.Z.data());
    }
    const ValueRange range = RangeOf(aspect);
    if (range.Min < 0 || range.Max > 360) state.SkipWithError("an orientation is no angle");
    state.SetComplexityN(state.range(0) * state.range(0));
}
BENCHMARK(AspectSlopeArrays)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
