#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace crownlab {

/// A table of texts, as worksheets and reports hold it.
struct Worksheet {
    std::string Path;  ///< file it was read from or is to be saved to, empty for none
    std::vector<std::vector<std::string>> Rows;
    char Separator = '\t';  ///< between the columns of the file

    /// The text at row and column, both from 1; empty outside of the table.
    std::string Cell(int row, int column) const;
    /// Sets a cell; the table grows as needed.
    void SetCell(int row, int column, std::string text);
};

/// Rows and columns of a text file, separated by tabs where the file has any, else by commas; quotes around a
/// text are taken off. AutomationFailed for a file that can't be read, OutOfMemory.
Worksheet ReadWorksheet(const std::string& path);

/// The table as text, CR LF. A field that holds the separator or a quote stands in quotes.
std::string WorksheetText(const Worksheet& sheet);

/// Row and column, both from 1.
struct CellPlace {
    int Row = 0;
    int Column = 0;
};

/// The place that a label like "B166" or "aa3" names; nothing if it is no label or beyond 32 bits.
std::optional<CellPlace> ParseCellLabel(std::string_view label);

}  // namespace crownlab
