#include <benchmark/benchmark.h>

#include <cmath>
#include <limits>
#include <random>

#include "formats/point_text.h"
#include "pointcloud/enamel_thickness.h"

namespace crownlab::bench {
namespace {

constexpr std::size_t kInnerPoints = 30000;
constexpr double kBinSize = 0.25;

/// Points at random over the upper three quarters of a sphere, with six decimals: a crown without fissures.
PointCloud Shell(std::size_t points, double radius, CloudPoint centre, unsigned seed) {
    constexpr double fullTurn = 6.283185307179586;
    std::mt19937_64 engine(seed);
    const auto fraction = [&] { return static_cast<double>(engine() >> 11) / 9007199254740992.0; };
    const auto six = [](double value) { return std::nearbyint(value * 1e6) / 1e6; };
    PointCloud cloud;
    cloud.reserve(points);
    for (std::size_t i = 0; i < points; ++i) {
        const double z = 1.5 * fraction() - 0.5;
        const double angle = fullTurn * fraction();
        const double across = std::sqrt(1 - z * z);
        cloud.push_back({six(centre.x + radius * across * std::cos(angle)),
                         six(centre.y + radius * across * std::sin(angle)), six(centre.z + radius * z)});
    }
    return cloud;
}

/// Runs the search and checks a few of the points against all of the other cloud.
void Measure(benchmark::State& state, const PointCloud& outer, const PointCloud& inner) {
    std::vector<double> nearest;
    std::int64_t reach = 0;
    for (auto _ : state) {
        reach = 0;
        nearest = EnamelThickness(outer, inner, kBinSize, [&](const ThicknessSearch& s) { reach += s.ShellReach; });
    }
    for (std::size_t j = 0; j < outer.size(); j += outer.size() / 16) {
        double least = std::numeric_limits<double>::infinity();
        for (const CloudPoint& q : inner) {
            const double dx = outer[j].x - q.x;
            const double dy = outer[j].y - q.y;
            const double dz = outer[j].z - q.z;
            least = std::min(least, std::sqrt(dx * dx + dy * dy + dz * dz));
        }
        if (nearest[j] != least) state.SkipWithError("not the nearest point");
    }
    state.counters["mean_reach"] = static_cast<double>(reach) / static_cast<double>(outer.size());
    state.SetComplexityN(state.range(0));
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(250000)->Arg(500000)->Arg(1000000)->Unit(benchmark::kMillisecond)->Complexity();
}

/// The outer surface of a crown against the inner one, an enamel of 1 between them.
void ThicknessToInnerSurface(benchmark::State& state) {
    Measure(state, Shell(static_cast<std::size_t>(state.range(0)), 5, {}, 1), Shell(kInnerPoints, 4, {}, 2));
}
BENCHMARK(ThicknessToInnerSurface)->Apply(Sizes);

/// A surface against another scan of itself.
void ThicknessToRescan(benchmark::State& state) {
    Measure(state, Shell(static_cast<std::size_t>(state.range(0)), 5, {}, 1), Shell(kInnerPoints, 5, {}, 3));
}
BENCHMARK(ThicknessToRescan)->Apply(Sizes);

/// Two clouds that were never brought into one frame: hundreds of shells for each point.
void ThicknessToFarCloud(benchmark::State& state) {
    const CloudPoint away{60, -45, 80};
    Measure(state, Shell(static_cast<std::size_t>(state.range(0)), 5, {}, 1), Shell(kInnerPoints, 5, away, 2));
}
BENCHMARK(ThicknessToFarCloud)->Apply(Sizes);

}  // namespace
}  // namespace crownlab::bench
