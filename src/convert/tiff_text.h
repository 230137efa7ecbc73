#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace crownlab {

class FileTable;
class ResultFile;

/// Columns and rows of an image that was saved as text.
struct TiffShape {
    std::uint64_t Columns = 0;
    std::uint64_t Rows = 0;
};

/// What one step of an image is in map units.
struct TiffScale {
    double XInterval = 0;  ///< from column to column
    double YInterval = 0;  ///< from row to row
    double ZInterval = 0;  ///< from one value (0 to 255) to the next
};

/// The shape by the text itself: one column more than the first line has tabs, a row a line. So a tab at the end of the
/// first line counts one column too many. InputPastEnd for a text without a line.
TiffShape ShapeOfTiffText(std::string_view text, const std::string& name);

/// The values row after row, the top row of the image first. InputPastEnd if there are fewer than the shape says,
/// TypeMismatch for what isn't a number.
std::vector<double> ReadTiffValues(std::string_view text, const std::string& name, TiffShape shape);

/// Writes the image as points, a record x, y, z each, from the origin on, x fastest. The image's last row comes first:
/// so its top has the largest y. `values` as ReadTiffValues gives them.
void WriteTiffPoints(ResultFile& file, const std::vector<double>& values, TiffShape shape, const TiffScale& scale);

}  // namespace crownlab
