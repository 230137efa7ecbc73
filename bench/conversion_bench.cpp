#include <benchmark/benchmark.h>

#include "basis/paths.h"
#include "basis/result_file.h"
#include "bench_clouds.h"
#include "bench_surfaces.h"
#include "convert/mould_copy.h"
#include "convert/tiff_text.h"
#include "formats/point_extents.h"

namespace crownlab::bench {
namespace {

std::int64_t Times(std::uint64_t bytes, const benchmark::State& state) {
    return static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations());
}

/// A scan of a mould is turned over and its limits are found, from and to the page cache.
void TurnMouldOver(benchmark::State& state) {
    const ScratchFolder folder;
    const std::string input = folder.Path("scan.txt");
    const std::string output = folder.Path("scantemp.txt");
    FileTable files;
    const auto count = static_cast<std::size_t>(state.range(0));
    WritePointText(files, input, CrownCloud(count));
    PointExtents extents;
    for (auto _ : state) {
        WriteMouldCopy(files, input, output);
        extents = ReadPointExtents(output);
    }
    if (extents.Count != count) state.SkipWithError("points were lost");
    state.SetBytesProcessed(Times(ReadFileText(input).View().size(), state));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(TurnMouldOver)->Arg(125'000)->Arg(500'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond)->Complexity();

std::string ImageText(std::uint64_t side) {
    std::string text;
    for (std::uint64_t row = 0; row < side; ++row) {
        for (std::uint64_t column = 0; column < side; ++column) {
            if (column != 0) text += '\t';
            text += std::to_string((row * row + 3 * column) % 256);
        }
        text += "\r\n";
    }
    return text;
}

/// The text of a square image is read and written as the points of a lattice.
void ImageToPoints(benchmark::State& state) {
    const ScratchFolder folder;
    const auto side = static_cast<std::uint64_t>(state.range(0));
    const std::string text = ImageText(side);
    FileTable files;
    std::size_t values = 0;
    for (auto _ : state) {
        ResultFile file(files, folder.Path("image.csv"));
        const TiffShape shape = ShapeOfTiffText(text, "image.txt");
        const std::vector<double> heights = ReadTiffValues(text, "image.txt", shape);
        WriteTiffPoints(file, heights, shape, {.XInterval = 0.01, .YInterval = 0.01, .ZInterval = 0.02});
        file.Commit();
        values = heights.size();
    }
    if (values != side * side) state.SkipWithError("the image has another size than its text");
    state.SetBytesProcessed(Times(ReadFileText(folder.Path("image.csv")).View().size(), state));
    state.SetComplexityN(state.range(0) * state.range(0));
}
BENCHMARK(ImageToPoints)->Arg(500)->Arg(1000)->Arg(2000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
