#pragma once

#include <string>

#include "formats/lattice_text.h"

namespace crownlab {

class FileTable;

/// A number with one to three decimals, halves to the even digit: "0.0", "1.25", "-3.125", and no exponent. Overflow if
/// it isn't finite.
std::string OneToThreeDecimals(double value);

/// Shifts the points of `input` so that the surface begins at 0, 0, 0, and writes those that aren't blank to `output`,
/// a line each, with blanks between. Minima start at 1,000,000: points wholly beyond that are shifted by it. Throws
/// what reading and writing files throw.
void WriteShiftedPoints(FileTable& files, const std::string& input, const std::string& output);

}  // namespace crownlab
