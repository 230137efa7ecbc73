#include "mapengine/grid_residuals.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "mapengine/bilinear_height.h"
#include "mapengine/engine_call.h"

namespace crownlab {
namespace {

bool IsNumber(std::string_view field, double& value) {
    const char* const last = field.data() + field.size();
    return !field.empty() && ScanNumber(field.data(), last, value) == last && std::isfinite(value);
}

/// A worksheet quotes its texts itself where they need it.
std::string_view WithoutQuotes(std::string_view field) {
    const bool quoted = field.size() >= 2 && field.front() == '"' && field.back() == '"';
    return quoted ? field.substr(1, field.size() - 2) : field;
}

/// One line of the data.
class DataRecord {
public:
    DataRecord(std::string_view line, std::string name) : reader_(line, name), name_(std::move(name)) {
        while (!reader_.NothingLeft()) fields_.push_back(reader_.ReadToken());
    }

    bool IsEmpty() const { return fields_.empty(); }

    double Number(int column) const {
        const auto place = static_cast<std::size_t>(column);
        if (place > fields_.size()) {
            FailCall(name_ + ": it has " + std::to_string(fields_.size()) + " fields; a number is wanted in field " +
                     std::to_string(column));
        }
        double value = 0;
        const std::string_view field = fields_[place - 1];
        if (!IsNumber(field, value)) FailCall(name_ + ": \"" + std::string(field.substr(0, 30)) + "\" is not a number");
        return value;
    }

    /// As a row of a worksheet.
    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        texts.reserve(fields_.size() + 1);
        for (const std::string_view field : fields_) {
            double value = 0;
            texts.push_back(IsNumber(field, value) ? GeneralText(value) : std::string(WithoutQuotes(field)));
        }
        return texts;
    }

private:
    FieldReader reader_;
    std::string name_;
    std::vector<std::string_view> fields_;
};

double ResidualOf(const Grid& grid, double x, double y, double z) {
    const double height = BilinearHeight(grid, x, y);
    if (IsBlank(height) || IsBlank(z)) return kBlankHeight;
    const double residual = z - height;
    return IsBlank(residual) ? kBlankHeight : residual;
}

}  // namespace

Worksheet Residuals(const Grid& grid, std::string_view data, const std::string& path, const ResidualColumns& columns) {
    Worksheet sheet{.Path = path, .Rows = {}, .Separator = ','};
    FieldReader lines(WithoutByteOrderMark(data), path);
    for (std::uint64_t number = 1; !lines.AtEnd(); ++number) {
        const DataRecord record(lines.ReadLine(), path + ", line " + std::to_string(number));
        if (record.IsEmpty()) continue;
        const double residual =
            ResidualOf(grid, record.Number(columns.X), record.Number(columns.Y), record.Number(columns.Z));
        std::vector<std::string> row = record.Texts();
        const auto place = static_cast<std::size_t>(columns.Residual);
        row.resize(std::max(row.size(), place));
        row[place - 1] = GeneralText(residual);
        sheet.Rows.push_back(std::move(row));
    }
    return sheet;
}

}  // namespace crownlab
