// Worksheets: a text is taken apart, and what is written of it is taken apart the same.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "basis/failure.h"
#include "mapengine/worksheet.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const crownlab::Worksheet sheet = crownlab::ParseWorksheet(text, "fuzzed");
    const crownlab::Worksheet again = crownlab::ParseWorksheet(crownlab::WorksheetText(sheet), "fuzzed");
    // A second byte order mark is text in the first reading and a mark in the other.
    const bool marked = sheet.Cell(1, 1).rfind("\xEF\xBB\xBF", 0) == 0;
    if (again.Rows != sheet.Rows && !marked) std::abort();
    if (!sheet.Cell(0, 1).empty() || !sheet.Cell(static_cast<int>(sheet.Rows.size()) + 1, 1).empty()) std::abort();
    const auto place = crownlab::ParseCellLabel(text);
    if (place && (place->Row < 1 || place->Column < 1)) std::abort();
    return 0;
}
