#include "convert/tiff_text.h"

#include <algorithm>

#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/result_file.h"
#include "basis/rounding.h"

namespace crownlab {

TiffShape ShapeOfTiffText(std::string_view text, const std::string& name) {
    FieldReader reader(text, name);
    const std::string_view first = reader.ReadLine();
    return {.Columns = static_cast<std::uint64_t>(std::count(first.begin(), first.end(), '\t')) + 1,
            .Rows = CountLines(text)};
}

std::vector<double> ReadTiffValues(std::string_view text, const std::string& name, TiffShape shape) {
    // A value takes two characters at least, its end included, so that a text of many tabs and many lines can't ask
    // for more room than it fills.
    const std::uint64_t mostValues = text.size() / 2 + 1;
    const bool canHoldAll = shape.Columns <= mostValues / std::max<std::uint64_t>(shape.Rows, 1);
    const std::uint64_t count = canHoldAll ? shape.Columns * shape.Rows : mostValues + 1;
    const std::uint64_t room = std::min(mostValues, count);
    RequireMemory(room * sizeof(double), name);
    std::vector<double> values;
    values.reserve(static_cast<std::size_t>(room));
    FieldReader reader(text, name);
    for (std::uint64_t i = 0; i < count; ++i) values.push_back(reader.ReadNumber());
    return values;
}

void WriteTiffPoints(ResultFile& file, const std::vector<double>& values, TiffShape shape, const TiffScale& scale) {
    for (std::uint64_t row = 0; row < shape.Rows; ++row) {
        const double y = static_cast<double>(row) * scale.YInterval;
        const std::uint64_t imageRow = shape.Rows - 1 - row;
        for (std::uint64_t column = 0; column < shape.Columns; ++column) {
            const double value = values[static_cast<std::size_t>(imageRow * shape.Columns + column)];
            file.Record(static_cast<double>(column) * scale.XInterval, y, Finite(scale.ZInterval * value, "height"));
        }
    }
}

}  // namespace crownlab
