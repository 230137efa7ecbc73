#pragma once

#include <vector>

namespace crownlab {

struct SummaryStatsResult {
    double Mean = 0;
    double SD = 0;  ///< with divisor n - 1
    double Min = 0;
    double Max = 0;
    double Median = 0;
    double Quartile1 = 0;
    double Quartile3 = 0;
};

/// Summary of list[first..last], positions counted from 1 (`list` holds the value of position 1 at index 0).
///
/// Median and quartiles are read at a position reckoned from a count that is 0: with first = 1 all three
/// are the mean of the two smallest values. Results files carry them under their names, so they stay
/// comparable with all earlier ones.
///
/// Throws SubscriptOutOfRange for a range outside the list or without the two values that the median needs.
SummaryStatsResult SummaryStats(const std::vector<double>& list, int first, int last);

}  // namespace crownlab
