#pragma once

#include <string>
#include <vector>

namespace crownlab {

class FileTable;

/// What a terrain grid holds, which decides its scale and how often it is counted.
enum class Terrain { Slope, Aspect };

/// Heights of the nodes of a grid's text that aren't blank (above 1E38), in file order. SubscriptOutOfRange for more
/// than 1,000,000 of them, and what reading the text throws.
std::vector<double> ReadTerrainValues(const std::string& path);

/// Counts of values in bins of `binWidth` degrees that are centred on 0, `binWidth` and so on: 90 degrees of slope or
/// 360 of aspect. What lies in the half bin below the top of the scale falls into the first one, aspects near 360 with
/// those near 0. SubscriptOutOfRange for a value off the scale, and for more than 10,000 values in a bin.
std::vector<int> CountInBins(const std::vector<double>& values, Terrain terrain, double binWidth);

/// Writes the tables of frequencies, and for slope mean and standard deviation (divisor n - 1), to `path`. Each table
/// is added as soon as it is counted. Throws what CountInBins throws, and DivisionByZero for the mean of no value and
/// the deviation of one.
void WriteTerrainResults(FileTable& files, const std::string& path, const std::vector<double>& values, Terrain terrain);

}  // namespace crownlab
