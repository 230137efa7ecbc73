#include "surferfns/smoothing.h"

#include <array>
#include <cstdint>
#include <limits>

#include "basis/failure.h"
#include "basis/memory_limit.h"

namespace crownlab {
namespace {

constexpr int kUserDefined = 5;

/// Which of the boxes a filter's name tells.
enum class Tells { Nothing, Size, SizeAndWeight, All };

struct KnownFilter {
    const char* Entry;
    int Code;
    const char* Name;
    Tells Boxes;
};

constexpr std::array<KnownFilter, 14> kFilters{{
    {"Moving average (nxn)", 1, "_fa", Tells::Size},
    {"Distance weighting (nxn)", 2, "_fd", Tells::SizeAndWeight},
    {"Inverse distance (nxn)", 3, "_fid", Tells::All},
    {"Gaussian LP (nxn)", 4, "_glp", Tells::SizeAndWeight},
    {"5 node + average (5x5)", 6, "_5n+", Tells::Nothing},
    {"5 node x average (5x5)", 7, "_5nx", Tells::Nothing},
    {"9 node average (3x3)", 8, "_9na", Tells::Nothing},
    {"Gaussian (3x3)", 9, "_glp3", Tells::Nothing},
    {"Low pass 1 (3x3)", 10, "_lp1", Tells::Nothing},
    {"Low pass 2 (3x3)", 11, "_lp2", Tells::Nothing},
    {"Low pass 3 (3x3)", 12, "_lp3", Tells::Nothing},
    {"High pass 1 (3x3)", 14, "_hp1", Tells::Nothing},
    {"High pass 2 (3x3)", 15, "_hp2", Tells::Nothing},
    {"High pass 3 (3x3)", 16, "_hp3", Tells::Nothing},
}};

std::string BoxesText(Tells boxes, const FilterTexts& texts) {
    switch (boxes) {
        case Tells::Nothing: return {};
        case Tells::Size: return texts.Size;
        case Tells::SizeAndWeight: return texts.Size + "," + texts.Weight;
        case Tells::All: return texts.Size + "," + texts.Weight + "," + texts.CentreWeight;
    }
    return {};
}

}  // namespace

std::optional<SmoothingFilter> PreDefinedFilter(const std::string& entry, const FilterTexts& texts) {
    for (const KnownFilter& filter : kFilters) {
        if (entry == filter.Entry) return SmoothingFilter{filter.Code, filter.Name + BoxesText(filter.Boxes, texts)};
    }
    return std::nullopt;
}

SmoothingFilter DefinedFilter(const FilterTexts& texts) {
    return {kUserDefined, "_fwa" + BoxesText(Tells::SizeAndWeight, texts)};
}

NumberMatrix FilterWeights(double n, double centre) {
    constexpr double most = 1e6;  // sides beyond this are more than any machine holds
    if (n < 1) throw Failure(FailureKind::SubscriptOutOfRange, "FilterWeights");
    if (n > most) throw Failure(FailureKind::OutOfMemory, "FilterWeights");
    const auto side = static_cast<std::uint64_t>(n);
    RequireMemory(side * side * sizeof(double), "FilterWeights");
    NumberMatrix weights{static_cast<int>(side), static_cast<int>(side), std::vector<double>(side * side, 1.0)};
    weights.Values[side * side / 2] = centre;
    return weights;
}

}  // namespace crownlab
