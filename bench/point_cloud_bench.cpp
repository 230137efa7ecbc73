#include <benchmark/benchmark.h>

#include <filesystem>

#include "basis/result_file.h"
#include "bench_clouds.h"
#include "bench_surfaces.h"
#include "formats/point_text.h"
#include "pointcloud/blanking_outline.h"
#include "pointcloud/undercuts.h"

namespace crownlab::bench {
namespace {

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(500000)->Arg(1000000)->Arg(2000000)->Unit(benchmark::kMillisecond)->Complexity();
}

void ReadPoints(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string path = folder.Path("cloud.txt");
    FileTable files;
    const PointCloud cloud = CrownCloud(static_cast<std::size_t>(state.range(0)));
    WritePointText(files, path, cloud);
    PointCloud read = ReadPointText(path);
    for (auto _ : state) read = ReadPointText(path);
    if (read != cloud) state.SkipWithError("other points were read than written");
    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(path));
    state.SetBytesProcessed(bytes * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadPoints)->Apply(Sizes);

void WritePoints(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string path = folder.Path("cloud.txt");
    FileTable files;
    const PointCloud cloud = CrownCloud(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) WritePointText(files, path, cloud);
    const auto bytes = static_cast<std::int64_t>(std::filesystem::file_size(path));
    if (bytes < state.range(0) * 6) state.SkipWithError("the file isn't whole");
    state.SetBytesProcessed(bytes * static_cast<std::int64_t>(state.iterations()));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(WritePoints)->Apply(Sizes);

/// Bins and decisions, without reading and writing. The radius is in thousandths.
void Undercuts(benchmark::State& state) {
    const PointCloud cloud = CrownCloud(static_cast<std::size_t>(state.range(0)));
    const CloudExtents extents = FindCloudExtents(cloud);
    UndercutOptions options;
    options.PrimaryRadius = static_cast<double>(state.range(1)) / 1000;
    options.Threshold = 4 * options.PrimaryRadius;
    std::size_t rejected = 0;
    double binSize = 0;
    for (auto _ : state) {
        const BinGrid grid = FillBins(cloud, extents, options.PrimaryRadius, options.PrimaryRadius, kUndercutBins);
        const UndercutResult result = FindUndercuts(grid, options, [](std::size_t) {});
        rejected = 0;
        for (const std::uint8_t r : result.Rejected) rejected += r;
        binSize = grid.Plan().BinSize;
    }
    if (rejected == 0 || rejected > cloud.size() / 2) state.SkipWithError("not a fifth of the points was rejected");
    state.counters["rejected"] = static_cast<double>(rejected);
    state.counters["bin_size"] = binSize;
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Undercuts)->ArgsProduct({{500000, 1000000, 2000000}, {10, 20}})->Unit(benchmark::kMillisecond);

void Outline(benchmark::State& state) {
    const PointCloud cloud = CrownCloud(static_cast<std::size_t>(state.range(0)));
    std::size_t vertices = 0;
    for (auto _ : state) {
        const CloudExtents extents = FindCloudExtents(cloud);
        const BinGrid grid = FillBins(cloud, extents, 0.1, 0.1, kOutlineBins);
        const OutlineWalk walk = WalkAround(grid);
        vertices = KeepVertices(PlaceVertices(grid, walk.Bins), grid.Plan().BinSize).size();
    }
    if (vertices < 4) state.SkipWithError("no outline was found");
    state.counters["vertices"] = static_cast<double>(vertices);
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Outline)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
