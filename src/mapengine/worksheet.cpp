#include "mapengine/worksheet.h"

#include <string_view>
#include <utility>

#include "basis/field_reader.h"
#include "basis/paths.h"

namespace crownlab {
namespace {

/// One field off the start of `line`, which is left behind its separator.
std::string TakeField(std::string_view& line, char separator) {
    std::string field;
    std::size_t at = 0;
    if (!line.empty() && line.front() == '"') {
        for (++at; at < line.size(); ++at) {
            if (line[at] != '"') {
                field += line[at];
            } else if (at + 1 < line.size() && line[at + 1] == '"') {
                field += line[++at];
            } else {
                ++at;
                break;
            }
        }
    }
    const std::size_t end = line.find(separator, at);
    field += line.substr(at, end == std::string_view::npos ? end : end - at);
    line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    return field;
}

std::vector<std::string> Fields(std::string_view line, char separator) {
    std::vector<std::string> fields;
    while (!line.empty()) fields.push_back(TakeField(line, separator));
    return fields;
}

}  // namespace

std::string Worksheet::Cell(int row, int column) const {
    if (row < 1 || column < 1 || static_cast<std::size_t>(row) > Rows.size()) return {};
    const std::vector<std::string>& cells = Rows[static_cast<std::size_t>(row) - 1];
    return static_cast<std::size_t>(column) > cells.size() ? std::string()
                                                           : cells[static_cast<std::size_t>(column) - 1];
}

void Worksheet::SetCell(int row, int column, std::string text) {
    if (Rows.size() < static_cast<std::size_t>(row)) Rows.resize(static_cast<std::size_t>(row));
    std::vector<std::string>& cells = Rows[static_cast<std::size_t>(row) - 1];
    if (cells.size() < static_cast<std::size_t>(column)) cells.resize(static_cast<std::size_t>(column));
    cells[static_cast<std::size_t>(column) - 1] = std::move(text);
}

Worksheet ReadWorksheet(const std::string& path) {
    const FileText file = ReadFileText(path);
    const std::string_view text = WithoutByteOrderMark(file.View());
    const char separator = text.find('\t') != std::string_view::npos ? '\t' : ',';
    Worksheet sheet{.Path = path, .Rows = {}};
    FieldReader lines(text, path);
    while (!lines.AtEnd()) sheet.Rows.push_back(Fields(lines.ReadLine(), separator));
    return sheet;
}

std::string WorksheetText(const Worksheet& sheet, char separator) {
    std::string text;
    for (const std::vector<std::string>& row : sheet.Rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += separator;
            text += row[i];
        }
        text += "\r\n";
    }
    return text;
}

}  // namespace crownlab
