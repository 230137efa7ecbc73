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

/// Rows and columns of a text, separated by tabs where it has any, else by commas; quotes around a field are taken off.
/// OutOfMemory. `path` is the file that the text is from.
Worksheet ParseWorksheet(std::string_view text, const std::string& path);

/// The same of a text file. AutomationFailed for one that can't be read.
Worksheet ReadWorksheet(const std::string& path);

/// The table as text, CR LF, which reads back the same. A field that holds the separator or a quote stands in quotes,
/// and an empty one that is alone in its row.
std::string WorksheetText(const Worksheet& sheet);

/// Row and column, both from 1.
struct CellPlace {
    int Row = 0;
    int Column = 0;
};

/// The place that a label like "B166" or "aa3" names; nothing if it is no label or beyond 32 bits.
std::optional<CellPlace> ParseCellLabel(std::string_view label);

}  // namespace crownlab
