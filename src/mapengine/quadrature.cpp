#include "mapengine/quadrature.h"

#include <cstddef>
#include <span>

namespace crownlab {
namespace {

/// Lays a rule over as many intervals as it fits on, one after the other, and trapezoids over the rest.
std::vector<double> Composite(int nodes, std::span<const double> rule) {
    const std::size_t intervals = static_cast<std::size_t>(nodes) - 1;
    const std::size_t step = rule.size() - 1;
    std::vector<double> weights(intervals + 1, 0.0);
    std::size_t at = 0;
    for (; at + step <= intervals; at += step) {
        for (std::size_t k = 0; k <= step; ++k) weights[at + k] += rule[k];
    }
    for (; at < intervals; ++at) {
        weights[at] += 0.5;
        weights[at + 1] += 0.5;
    }
    return weights;
}

}  // namespace

std::vector<double> SimpsonWeights(int nodes) {
    static constexpr double rule[] = {1.0 / 3, 4.0 / 3, 1.0 / 3};
    return Composite(nodes, rule);
}

std::vector<double> ThreeEighthsWeights(int nodes) {
    static constexpr double rule[] = {3.0 / 8, 9.0 / 8, 9.0 / 8, 3.0 / 8};
    return Composite(nodes, rule);
}

}  // namespace crownlab
