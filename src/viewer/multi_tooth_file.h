#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "viewer/surface_grid.h"

namespace crownlab {

class FieldReader;
class FileTable;

/// A multi-tooth file, the output of a tooth development model, holds for each tooth
///
///     unused, parameter 11
///     parameters 1 to 10
///     x, y, z            one point a line
///     ...
///     666                the sentinel
///
/// Any line in which the text 666 stands anywhere ends a tooth, a coordinate such as 0.6667 too. The last
/// tooth may end with the file instead.

/// True for a line that ends a tooth.
bool IsSentinel(std::string_view line);

/// Where the teeth of a file end.
struct SentinelScan {
    /// Entry 0 is 0; entry t is the number (from 1) of the line that ends tooth t, one past the last line
    /// for a last tooth without a sentinel.
    std::vector<std::int64_t> SentinelLine{0};

    int NumTeeth() const { return static_cast<int>(SentinelLine.size()) - 1; }
    /// Points of tooth t by the lines between the sentinels; negative for a tooth of too few lines.
    std::int64_t ToothPoints(int tooth) const;
};

/// First pass over a file. InvalidCall for an empty one, SubscriptOutOfRange above 1,000,000 teeth. `name`
/// is the file's name for messages.
SentinelScan ScanSentinels(std::string_view text, const std::string& name);

/// Teeth of this many points or fewer have no surface.
inline constexpr std::int64_t kTooFewPoints = 3;

/// Takes the parameters of a tooth off the file: two values, of which the second is parameter 11, then
/// parameters 1 to 10. Entry i of the result is parameter i + 1.
std::array<double, 11> ReadToothParams(FieldReader& reader);

/// Takes `count` points off the file. OutOfMemory before anything is read.
std::vector<SurfacePoint> ReadToothPoints(FieldReader& reader, std::int64_t count);

/// Writes the lines of a file unchanged to files of `maxTeeth` teeth each, named `stem`-1.csv, `stem`-2.csv
/// and so on. A sentinel line stays with its tooth. Each part is written whole or not at all; there is no
/// empty last one. Returns the number of parts.
int SplitMultiToothFile(FileTable& files, std::string_view text, int maxTeeth, const std::string& stem);

}  // namespace crownlab
