#include "bench_clouds.h"

#include <cmath>
#include <random>

#include "basis/rounding.h"

namespace crownlab::bench {

PointCloud CrownCloud(std::size_t points) {
    constexpr double density = 35000;
    const double side = std::sqrt(static_cast<double>(points) / density);
    std::mt19937_64 engine(20070111);
    const auto uniform = [&] { return static_cast<double>(engine() >> 11) / 9007199254740992.0; };
    PointCloud cloud;
    cloud.reserve(points);
    for (std::size_t i = 0; i < points; ++i) {
        const double x = side * uniform();
        const double y = side * uniform();
        const double z = 2 + std::sin(3 * x) * std::cos(2 * y) - (uniform() < 0.2 ? uniform() : 0);
        cloud.push_back({RoundDecimals(x, 6), RoundDecimals(y, 6), RoundDecimals(z, 6)});
    }
    return cloud;
}

}  // namespace crownlab::bench
