#include "pointcloud/colour_scale.h"

#include <cmath>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

struct ScaleEnds {
    double Low = 0;
    double High = 0;
};

ScaleEnds FindEnds(const std::vector<double>& values) {
    double low = 1000000;
    double high = -1000000;
    for (const double t : values) {
        if (t < low) low = t;
        if (t > high) high = t;
    }
    return {kColourStep * std::floor(Divide(low, kColourStep, "ScaleLow")),
            kColourStep * (std::floor(Divide(high, kColourStep, "ScaleHigh")) + 1)};
}

}  // namespace

ScaleColour RainbowColour(double f) {
    constexpr double band = 5;
    if (f <= 1.0 / 5) return {1, band * f, 0};
    if (f <= 2.0 / 5) return {1 - band * (f - 1.0 / 5), 1, 0};
    if (f <= 3.0 / 5) return {0, 1, band * (f - 2.0 / 5)};
    if (f <= 4.0 / 5) return {0, 1 - band * (f - 3.0 / 5), 1};
    return {band * (f - 4.0 / 5), 0, 1};
}

ColourScale MakeColourScale(const std::vector<double>& values) {
    const ScaleEnds ends = FindEnds(values);
    const double count = RoundHalfEven(std::fabs(ends.Low - ends.High) / kColourStep);
    ColourScale scale;
    scale.Numbers.reserve(values.size());
    for (const double t : values) {
        scale.Numbers.push_back(FloorToInt16(std::floor((t - ends.Low) / kColourStep) + 1, "PointColour"));
    }
    // Values below -1,000,000 alone make a table that has nothing to do with their own few colours.
    constexpr double most = 1e15;
    if (!(count < most)) throw Failure(FailureKind::OutOfMemory, "ColourTable");
    const auto colours = static_cast<std::size_t>(count);
    RequireMemory(static_cast<std::uint64_t>(colours) * sizeof(ScaleColour), "ColourTable");
    scale.Table.reserve(colours);
    for (std::size_t c = 1; c <= colours; ++c) scale.Table.push_back(RainbowColour(static_cast<double>(c) / count));
    return scale;
}

}  // namespace crownlab
