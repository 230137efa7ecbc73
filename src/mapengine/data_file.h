#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "mapengine/data_points.h"

namespace crownlab {

/// Columns of a data file that hold the coordinates, from 1.
struct DataColumns {
    int X = 1;
    int Y = 2;
    int Z = 3;
};

/// Reads data records, a line each: fields separated by commas, blanks or tabs, of which the named columns are
/// numbers. Lines of nothing but blanks are skipped. AutomationFailed, with file and line, for a line of too few
/// fields, for a field that is no number and for a file that can't be read; OutOfMemory.
DataPoints ReadDataFile(const std::string& path, const DataColumns& columns);

/// The number of an exclusion filter "Z > number": points above it are left out. Blanks and letter case don't matter;
/// nothing for any other filter.
std::optional<double> ParseExclusionFilter(std::string_view filter);

}  // namespace crownlab
