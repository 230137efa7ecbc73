#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>

#include "basis/result_file.h"
#include "bench_clouds.h"
#include "bench_surfaces.h"
#include "pointcloud/coloured_wrl.h"

namespace crownlab::bench {
namespace {

/// A model of a cloud's points with a face for each three of them that follow one another.
void WriteModel(FileTable& files, const std::string& path, const PointCloud& cloud) {
    ResultFile file(files, path);
    file.Line("#VRML V2.0 utf8");
    file.Line("          point [");
    for (const CloudPoint& p : cloud) {
        file.Line("            " + std::to_string(p.x) + " " + std::to_string(p.y) + " " + std::to_string(p.z) + ",");
    }
    file.Line("          ]");
    file.Line("        coordIndex [");
    for (std::size_t i = 2; i < cloud.size(); ++i) {
        const std::string corners = std::to_string(i - 2) + ", " + std::to_string(i - 1) + ", " + std::to_string(i);
        file.Line("          " + corners + ", -1,");
    }
    file.Line("        ]");
    file.Commit();
}

/// The whole tool between reading the points and showing the end: a points file in random order, colours by height.
void PointsToWrl(benchmark::State& state) {
    const ScratchFolder folder;
    FileTable files;
    PointCloud cloud = CrownCloud(static_cast<std::size_t>(state.range(0)));
    WriteModel(files, folder.Path("model.wrl"), cloud);
    std::mt19937_64 engine(4);
    std::shuffle(cloud.begin(), cloud.end(), engine);
    std::vector<double> values;
    for (const CloudPoint& p : cloud) values.push_back(p.z);
    std::size_t matched = 0;
    for (auto _ : state) {
        const ColourScale scale = MakeColourScale(values);
        const WrlPolygons polygons = ReadWrlPolygons(folder.Path("model.wrl"));
        const VertexMatch match = MatchVertices(cloud, polygons.Points, kMatchTolerance, [](std::size_t) {});
        WriteColouredWrl(
            files, folder.Path("coloured.wrl"),
            {.Model = polygons, .Points = cloud, .Match = match, .Scale = &scale, .PointsAsVertices = true});
        matched =
            cloud.size() - static_cast<std::size_t>(std::count(match.PointVertex.begin(), match.PointVertex.end(), 0));
    }
    if (matched != cloud.size()) state.SkipWithError("points without a vertex");
    if (std::filesystem::file_size(folder.Path("coloured.wrl")) < cloud.size() * 10) state.SkipWithError("no model");
    state.SetComplexityN(state.range(0));
}
BENCHMARK(PointsToWrl)->Arg(125000)->Arg(250000)->Arg(500000)->Unit(benchmark::kMillisecond)->Complexity();

}  // namespace
}  // namespace crownlab::bench
