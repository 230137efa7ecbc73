#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "formats/point_text.h"
#include "support/random_numbers.h"

namespace crownlab {

/// Clouds of all families, the same in every run, with the sizes of bins that suit them.
struct NamedCloud {
    std::string Name;
    PointCloud Points;
    double BinSize;
};

/// A number from `low` to `high` with up to three decimals, as scanners write them.
inline double RandomDecimal(RandomNumbers& random, double low, double high) {
    const auto steps = static_cast<std::uint64_t>(std::llround((high - low) * 1000));
    return low + static_cast<double>(random.Below(steps + 1)) / 1000;
}

inline PointCloud RandomBox(RandomNumbers& random, int count, double x, double y, double width, double height) {
    PointCloud cloud;
    for (int i = 0; i < count; ++i) {
        cloud.push_back(
            {RandomDecimal(random, x, x + width), RandomDecimal(random, y, y + height), RandomDecimal(random, -2, 2)});
    }
    return cloud;
}

/// A square lattice; its coordinates lie on the borders of the bins wherever `step` is a multiple of their size.
inline PointCloud Lattice(int columns, int rows, double step, double x0, double y0) {
    PointCloud cloud;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const double wave = std::sin(column * 0.7) * std::cos(row * 0.4);
            cloud.push_back({x0 + column * step, y0 + row * step, wave});
        }
    }
    return cloud;
}

/// Points between two circles.
inline PointCloud Ring(RandomNumbers& random, int count, double inner, double outer) {
    PointCloud cloud;
    while (static_cast<int>(cloud.size()) < count) {
        const CloudPoint p{RandomDecimal(random, -outer, outer), RandomDecimal(random, -outer, outer),
                           RandomDecimal(random, 0, 3)};
        const double radius = std::hypot(p.x, p.y);
        if (radius >= inner && radius <= outer) cloud.push_back(p);
    }
    return cloud;
}

/// A half ball that hangs over its own foot.
inline PointCloud OverhangingCrown(RandomNumbers& random, int count) {
    PointCloud cloud;
    for (int i = 0; i < count; ++i) {
        const double angle = RandomDecimal(random, 0, 6.283);
        const double height = RandomDecimal(random, -1, 1);
        const double radius = std::sqrt(1 - height * height * 0.9);
        cloud.push_back({radius * std::cos(angle), radius * std::sin(angle), height});
    }
    return cloud;
}

inline PointCloud Joined(PointCloud a, const PointCloud& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

inline PointCloud HalfTurned(PointCloud cloud) {
    for (CloudPoint& p : cloud) p = {-p.x, p.y, -p.z};
    return cloud;
}

inline std::vector<NamedCloud> AllCloudFamilies() {
    RandomNumbers random;
    const PointCloud box = RandomBox(random, 400, 0.2, 0.3, 3, 2);
    const PointCloud crown = OverhangingCrown(random, 1500);
    std::vector<NamedCloud> all{
        {"one point", {{1, 2, 3}}, 0.1},
        {"one point at the origin", {{0, 0, 0}}, 0.5},
        {"two points, one above the other", {{1, 1, 1.0}, {1, 1, 0.5}}, 0.2},
        {"line along x", Lattice(40, 1, 0.1, 0.05, 1), 0.1},
        {"line along y", Lattice(1, 40, 0.1, -3, -2), 0.1},
        {"diagonal line", {}, 0.25},
        {"lattice on bin borders", Lattice(12, 9, 0.1, 0.3, -0.2), 0.1},
        {"lattice on borders of three hundredths", Lattice(15, 15, 0.03, -0.21, 0.09), 0.03},
        {"lattice of whole numbers", Lattice(10, 10, 1, -5, -5), 1},
        {"two clusters", Joined(RandomBox(random, 60, 0, 0, 0.5, 0.5), RandomBox(random, 60, 2, 1.5, 0.5, 0.5)), 0.2},
        {"two clusters side by side",
         Joined(RandomBox(random, 60, 0, 0, 0.5, 0.5), RandomBox(random, 60, 2, 0, 0.5, 0.5)), 0.2},
        {"hole", Ring(random, 900, 0.8, 1.5), 0.15},
        {"negative coordinates", RandomBox(random, 300, -7.5, -9.25, 1.5, 1.25), 0.1},
        {"box", box, 0.13},
        {"box, bins wider than it", box, 50},
        {"crown", crown, 0.1},
        {"mould scan", HalfTurned(crown), 0.1},
        {"every point twice", Joined(box, box), 0.2},
        {"a dense spot", Joined(box, RandomBox(random, 130, 1, 1, 0.02, 0.02)), 0.1},
        {"two dense spots, small bins",
         Joined(Joined(RandomBox(random, 90, 0.3, 0.3, 0.01, 0.01), box), RandomBox(random, 90, 3, 2, 0.01, 0.01)),
         0.008},
        {"a hundred points at one place, small bins", Joined(PointCloud(100, CloudPoint{1, 1, 0.5}), box), 0.006},
        {"far from the origin", RandomBox(random, 200, 123456.5, -98765.25, 1, 1), 0.1},
        {"thin and ragged", RandomBox(random, 45, 0, 0, 4, 4), 0.3},
    };
    for (int i = 0; i < 30; ++i) all[5].Points.push_back({i * 0.1, i * 0.1 - 1, i * 0.01});
    return all;
}

}  // namespace crownlab
