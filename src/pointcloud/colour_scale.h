#pragma once

#include <cstdint>
#include <vector>

namespace crownlab {

/// One colour; its parts go from 0 to 1.
struct ScaleColour {
    double Red = 0;
    double Green = 0;
    double Blue = 0;
    friend bool operator==(const ScaleColour&, const ScaleColour&) = default;
};

/// A rainbow over the values of a cloud: low is red, then yellow, green, cyan, blue, and the highest goes on to
/// magenta.
struct ColourScale {
    std::vector<ScaleColour> Table;
    /// For each value the number of its colour, from 1 by the formula floor((t - low) / step) + 1: at the very ends
    /// rounding can put it one off the table.
    std::vector<std::int16_t> Numbers;
};

/// Width of one colour in units of the value.
inline constexpr double kColourStep = 0.1;

/// Makes the scale. Its ends are the whole steps around the values, of which those beyond 1,000,000 (as smallest)
/// and -1,000,000 (as largest) aren't found. Overflow for a colour number above 32767.
ColourScale MakeColourScale(const std::vector<double>& values);

/// The colour at `f`, above 0 up to 1, on the rainbow.
ScaleColour RainbowColour(double f);

}  // namespace crownlab
