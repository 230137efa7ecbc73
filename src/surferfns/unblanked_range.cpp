#include "surferfns/unblanked_range.h"

#include <algorithm>
#include <cmath>

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

/// First and last of the columns or rows that have a node, 0 while there is none.
struct Span {
    double First = 0;
    double Last = 0;

    void Take(double index) {
        if (First == 0 || index < First) First = index;
        Last = std::max(Last, index);
    }
};

/// One node on, unless that is the grid's edge; then two more, as far as the grid goes.
Span Widened(const Span& span, double count) {
    constexpr double margin = 2;
    const double first = span.First == 1 ? 1 : span.First - 1;
    const double last = span.Last == count ? count : span.Last + 1;
    return {.First = std::max(first - margin, 1.0), .Last = std::min(last + margin, count)};
}

}  // namespace

GridPart UnblankedRange(const std::string& text, const GridShape& grid) {
    constexpr double blankFrom = 1e38;
    const FileText content = ReadFileText(text);
    FieldReader reader(content.View(), text);
    Span columns;
    Span rows;
    for (int row = 1; row <= grid.NumRows; ++row) {
        for (int column = 1; column <= grid.NumCols; ++column) {
            reader.ReadNumber();
            reader.ReadNumber();
            if (!(reader.ReadNumber() < blankFrom)) continue;
            columns.Take(column);
            rows.Take(row);
        }
    }
    if (columns.First == 0) return WholeRange(grid);
    columns = Widened(columns, grid.NumCols);
    rows = Widened(rows, grid.NumRows);
    return {columns.First, columns.Last, rows.First, rows.Last};
}

double StepForMost(const GridPart& part, double most) {
    const double span = std::max(part.LastColumn - part.FirstColumn, part.LastRow - part.FirstRow);
    if (!(most < span)) return 1;
    return ToInt16(std::floor(Divide(span, most, "txtRedRowMax")) + 1, "step of the extraction");
}

}  // namespace crownlab
