#include "mapengine/volume_report.h"

#include <charconv>
#include <cmath>
#include <string_view>

#include "basis/number_text.h"

namespace crownlab {
namespace {

// Rows of the report whose lower surface is a constant.
constexpr int kUpperRow = 3;
constexpr int kLowerRow = 11;
constexpr int kNetRow = 16;
constexpr int kVolumeRow = 21;
constexpr int kPlanarRow = 27;
constexpr int kSurfaceRow = 34;

/// Rows by which a described lower grid moves what stands below it.
constexpr int kGridRows = 6;

/// Shortest text that reads back the same, in plain notation where that is readable.
std::string AllDigits(double value) {
    const double size = std::fabs(value);
    const bool plain = size == 0 || (size >= 1e-5 && size < 1e16);
    std::array<char, 64> text;
    char* const end = std::to_chars(text.data(), text.data() + text.size(), value + 0.0,
                                    plain ? std::chars_format::fixed : std::chars_format::scientific)
                          .ptr;
    for (char* p = text.data(); p != end; ++p) {
        if (*p == 'e') *p = 'E';
    }
    return {text.data(), end};
}

class ReportRows {
public:
    void Text(int row, int column, std::string_view text) { sheet_.SetCell(row, column, std::string(text)); }
    void Number(int row, int column, double value) { sheet_.SetCell(row, column, AllDigits(value)); }
    void Count(int row, int column, int value) { sheet_.SetCell(row, column, std::to_string(value)); }

    /// A figure with its label, the number in the third column.
    void Figure(int row, std::string_view label, double value) {
        Text(row, 1, label);
        Number(row, 3, value);
    }
    void Limits(int row, double low, std::string_view between, double high) {
        Number(row, 1, low);
        Text(row, 2, between);
        Number(row, 3, high);
    }
    Worksheet Take() { return std::move(sheet_); }

private:
    Worksheet sheet_;
};

/// A grid's shape and limits from `row` on: the rows of the upper grid are numbered from its heading.
void DescribeGrid(ReportRows& rows, int row, const Grid& grid) {
    const GridGeometry& shape = grid.Shape;
    rows.Text(row, 1, "Size");
    rows.Text(row, 3, "columns");
    rows.Count(row, 4, shape.Columns);
    rows.Text(row, 6, "rows");
    rows.Count(row, 7, shape.Rows);
    rows.Text(row + 1, 1, "Spacing in x");
    rows.Number(row + 1, 2, shape.SpacingX());
    rows.Text(row + 2, 1, "Spacing in y");
    rows.Number(row + 2, 2, shape.SpacingY());
    rows.Limits(row + 3, shape.XMin, "<= x <=", shape.XMax);
    rows.Limits(row + 4, shape.YMin, "<= y <=", shape.YMax);
    const HeightRange range = Heights(grid);
    rows.Limits(row + 5, range.Low, "<= z <=", range.High);
}

void DescribeLower(ReportRows& rows, const ReportedSurface& lower) {
    rows.Text(kLowerRow, 1, "Lower surface");
    if (lower.Heights == nullptr) {
        rows.Text(kLowerRow + 1, 1, "Constant");
        rows.Number(kLowerRow + 1, 2, lower.Constant);
    } else {
        rows.Text(kLowerRow, 2, lower.Path);
        DescribeGrid(rows, kLowerRow + 1, *lower.Heights);
    }
}

void DescribeVolumes(ReportRows& rows, int down, const GridVolumes& volumes) {
    rows.Text(down + kNetRow - 1, 1, "Net volume");
    rows.Figure(down + kNetRow, "Simpson's rule", volumes.Simpson);
    rows.Figure(down + kNetRow + 1, "3/8 rule", volumes.ThreeEighths);
    rows.Text(down + kVolumeRow - 1, 1, "Volumes between the surfaces");
    rows.Figure(down + kVolumeRow, "Upper above lower", volumes.Above);
    rows.Figure(down + kVolumeRow + 1, "Upper below lower", volumes.Below);
    rows.Figure(down + kVolumeRow + 2, "Above less below", volumes.Above - volumes.Below);
    rows.Text(down + kPlanarRow - 1, 1, "Planar areas");
    rows.Figure(down + kPlanarRow, "Upper above lower", volumes.PlanarAbove);
    rows.Figure(down + kPlanarRow + 1, "Upper below lower", volumes.PlanarBelow);
    rows.Figure(down + kPlanarRow + 2, "Blank", volumes.PlanarBlank);
    rows.Text(down + kSurfaceRow - 1, 1, "Areas of the upper surface");
    rows.Figure(down + kSurfaceRow, "Upper above lower", volumes.SurfaceAbove);
    rows.Figure(down + kSurfaceRow + 1, "Upper below lower", volumes.SurfaceBelow);
}

}  // namespace

Worksheet VolumeReport(const ReportedSurface& upper, const ReportedSurface& lower, const GridVolumes& volumes) {
    ReportRows rows;
    rows.Text(1, 1, "Volume between two surfaces");
    rows.Text(kUpperRow, 1, "Upper surface");
    rows.Text(kUpperRow, 2, upper.Path);
    DescribeGrid(rows, kUpperRow + 1, *upper.Heights);
    DescribeLower(rows, lower);
    DescribeVolumes(rows, lower.Heights == nullptr ? 0 : kGridRows, volumes);
    return rows.Take();
}

std::array<double, kVolumeFigures> VolumeFigures(const GridVolumes& volumes) {
    return {volumes.Simpson,
            volumes.ThreeEighths,
            volumes.Above,
            volumes.Below,
            volumes.PlanarAbove,
            volumes.PlanarBelow,
            volumes.SurfaceAbove,
            volumes.SurfaceBelow,
            volumes.PlanarBlank,
            0,
            0};
}

}  // namespace crownlab
