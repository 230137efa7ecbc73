#include "mapengine/worksheet.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>

#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/text.h"
#include "mapengine/input_file.h"

namespace crownlab {
namespace {

/// One field off the start of `line`, which is left behind its separator; `more` if there was one.
std::string TakeField(std::string_view& line, char separator, bool& more) {
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
    more = end != std::string_view::npos;
    line.remove_prefix(more ? end + 1 : line.size());
    return field;
}

std::vector<std::string> Fields(std::string_view line, char separator) {
    std::vector<std::string> fields;
    if (line.empty()) return fields;
    bool more = true;
    while (more) fields.push_back(TakeField(line, separator, more));
    return fields;
}

/// A file of nothing but separators needs many times its size as a table.
void RequireCells(std::string_view text, char separator, const std::string& path) {
    const auto cells = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), separator));
    const std::uint64_t lines = CountLines(text);
    RequireMemory((cells + lines) * sizeof(std::string) + lines * sizeof(std::vector<std::string>), path);
}

void AppendField(std::string& text, const std::string& field, char separator) {
    const bool plain = field.find(separator) == std::string::npos && field.find('"') == std::string::npos;
    if (plain) {
        text += field;
        return;
    }
    text += '"';
    for (const char c : field) text += c == '"' ? std::string("\"\"") : std::string(1, c);
    text += '"';
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

Worksheet ParseWorksheet(std::string_view text, const std::string& path) {
    text = WithoutByteOrderMark(text);
    const char separator = text.find('\t') != std::string_view::npos ? '\t' : ',';
    RequireCells(text, separator, path);
    Worksheet sheet{.Path = path, .Rows = {}, .Separator = separator};
    FieldReader lines(text, path);
    while (!lines.AtEnd()) sheet.Rows.push_back(Fields(lines.ReadLine(), separator));
    return sheet;
}

Worksheet ReadWorksheet(const std::string& path) { return ParseWorksheet(ReadInputFile(path).View(), path); }

std::string WorksheetText(const Worksheet& sheet) {
    std::string text;
    for (const std::vector<std::string>& row : sheet.Rows) {
        if (row.size() == 1 && row.front().empty()) text += "\"\"";
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += sheet.Separator;
            AppendField(text, row[i], sheet.Separator);
        }
        text += "\r\n";
    }
    return text;
}

std::optional<CellPlace> ParseCellLabel(std::string_view label) {
    constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
    constexpr int letters = 26;
    const std::string lower = LowerCase(label);
    std::size_t at = 0;
    std::int64_t column = 0;
    for (; at < lower.size() && lower[at] >= 'a' && lower[at] <= 'z'; ++at) {
        column = column * letters + (lower[at] - 'a') + 1;
        if (column > most) return std::nullopt;
    }
    std::int64_t row = 0;
    const std::size_t digits = at;
    for (; at < lower.size() && lower[at] >= '0' && lower[at] <= '9'; ++at) {
        row = row * 10 + (lower[at] - '0');
        if (row > most) return std::nullopt;
    }
    if (column == 0 || row == 0 || at < lower.size() || lower[digits] == '0') return std::nullopt;
    return CellPlace{.Row = static_cast<int>(row), .Column = static_cast<int>(column)};
}

}  // namespace crownlab
