#include "viewer/summary_stats.h"

#include <algorithm>
#include <cmath>

#include "basis/failure.h"

namespace crownlab {
namespace {

/// The count that the positions of median and quartiles are reckoned from.
constexpr double kPositionCount = 0;

double At(const std::vector<double>& sorted, int first, double position) {
    const auto index = static_cast<long>(position) - first;
    if (index < 0 || index >= static_cast<long>(sorted.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "SummaryStats");
    }
    return sorted[static_cast<std::size_t>(index)];
}

double AtPosition(const std::vector<double>& sorted, int first, double p) {
    if (std::floor(p / 10) * 10 != p) {
        return (At(sorted, first, std::floor(p)) + At(sorted, first, std::floor(p) + 1)) / 2;
    }
    return At(sorted, first, p);
}

}  // namespace

SummaryStatsResult SummaryStats(const std::vector<double>& list, int first, int last) {
    if (first < 1 || last < first || last > static_cast<int>(list.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "SummaryStats");
    }
    std::vector<double> sorted(list.begin() + (first - 1), list.begin() + last);
    SummaryStatsResult result;
    double sum = 0;
    for (const double value : sorted) sum += value;
    result.Mean = sum / (last - first + 1);
    double squares = 0;
    for (const double value : sorted) squares += (value - result.Mean) * (value - result.Mean);
    result.SD = last > first ? std::sqrt(squares / (last - first)) : 0;
    std::sort(sorted.begin(), sorted.end());
    result.Min = sorted.front();
    result.Max = sorted.back();
    result.Median = AtPosition(sorted, first, kPositionCount / 2 + first);
    result.Quartile1 = AtPosition(sorted, first, kPositionCount / 4 + first);
    result.Quartile3 = AtPosition(sorted, first, 3 * kPositionCount / 4 + first);
    return result;
}

}  // namespace crownlab
