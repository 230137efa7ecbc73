#pragma once

#include <string>
#include <vector>

namespace crownlab {

/// A table of texts, as worksheets and reports hold it.
struct Worksheet {
    std::string Path;  ///< file it was read from or is to be saved to, empty for none
    std::vector<std::vector<std::string>> Rows;

    /// The text at row and column, both from 1; empty outside of the table.
    std::string Cell(int row, int column) const;
    /// Sets a cell; the table grows as needed.
    void SetCell(int row, int column, std::string text);
};

/// Rows and columns of a text file, separated by tabs where the file has any, else by commas; quotes around a
/// text are taken off. Throws what reading a file throws.
Worksheet ReadWorksheet(const std::string& path);

/// The table as text, columns separated by `separator`, CR LF.
std::string WorksheetText(const Worksheet& sheet, char separator);

}  // namespace crownlab
