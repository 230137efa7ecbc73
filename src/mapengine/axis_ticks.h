#pragma once

#include <string>
#include <vector>

namespace crownlab {

/// A round number: 1, 2 or 5 times a power of ten.
struct RoundNumber {
    int Digit = 1;
    int Exponent = 0;
    double Value() const;
};

/// Smallest round number that is `least` or more. InvalidCall for a number that isn't above zero and finite.
RoundNumber RoundNumberFrom(double least);
/// Largest round number that is `most` or less, as for the length of a scale bar. InvalidCall as above.
RoundNumber RoundNumberUpTo(double most);

/// Where an axis has its marks.
struct AxisTicks {
    RoundNumber Step;
    std::vector<double> At;  ///< multiples of the step from low to high, each the double nearest to it
};

/// Marks at round numbers from `low` to `high` (both included), at most `most` of them. None where the limits don't
/// rise, aren't finite, or lie so near one another that doubles don't tell the marks apart.
AxisTicks TicksBetween(double low, double high, int most);

/// The number at a mark, with as many decimals as the step needs: "0", "2.5", "-0.25", "1E+20".
std::string TickText(const AxisTicks& ticks, double at);

}  // namespace crownlab
