#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace crownlab {

class FileTable;
class ResultFile;

/// One point of a cloud, in the file's own unit.
struct CloudPoint {
    double x = 0;
    double y = 0;
    double z = 0;
    friend bool operator==(const CloudPoint&, const CloudPoint&) = default;
};

/// A cloud in the order of its file.
using PointCloud = std::vector<CloudPoint>;

/// Reads a point cloud text file: as many points as the file has lines, three numbers each, separated by
/// commas, blanks, tabs or line ends; no header. A short line takes what it misses from the next, and a
/// blank line counts as a point, so that the values run out at the end: InputPastEnd. TypeMismatch for what
/// isn't a number, SubscriptOutOfRange for a file without a line, and what reading a file throws.
PointCloud ReadPointText(const std::string& path);

/// The same for a variant with a fourth number on each line.
struct ValuedCloud {
    PointCloud Points;
    std::vector<double> Values;  ///< one a point
};
ValuedCloud ReadValuedPointText(const std::string& path);

/// Writes a line x,y,z in general form (up to 15 digits).
void WritePointLine(ResultFile& file, const CloudPoint& point);
/// Numbers of one line in general form, separated by commas.
void WriteNumberLine(ResultFile& file, std::initializer_list<double> numbers);

/// Writes all points, a line each.
void WritePointText(FileTable& files, const std::string& path, const PointCloud& points);

}  // namespace crownlab
