#include "mapengine/gridding_report.h"

#include <cmath>

#include "basis/number_text.h"

namespace crownlab {
namespace {

/// Rows that are added one below the other.
class ReportRows {
public:
    ReportRows(Worksheet& sheet, int row) : sheet_(sheet), row_(row) {}

    void Title(const std::string& text) { sheet_.SetCell(row_++, 1, text); }
    void Gap() { ++row_; }
    void Add(const std::string& name, const std::string& value) {
        sheet_.SetCell(row_, 1, name);
        sheet_.SetCell(row_++, 2, value);
    }
    void Add(const std::string& name, double value) { Add(name, GeneralText(value)); }

private:
    Worksheet& sheet_;
    int row_;
};

void AddData(ReportRows& rows, const GriddingFacts& facts) {
    const DataBox box = BoxOf(facts.Used);
    rows.Title("Data");
    rows.Add("File", facts.DataFile);
    rows.Add("Points read", static_cast<double>(facts.PointsRead));
    rows.Add("Points used", static_cast<double>(facts.Used.size()));
    rows.Add("X minimum", box.XMin);
    rows.Add("X maximum", box.XMax);
    rows.Add("Y minimum", box.YMin);
    rows.Add("Y maximum", box.YMax);
    rows.Gap();
}

void AddGrid(ReportRows& rows, const GriddingFacts& facts, const Grid& grid) {
    const GridGeometry& shape = grid.Shape;
    const HeightRange heights = Heights(grid);
    rows.Title("Grid");
    rows.Add("File", facts.OutGrid);
    rows.Add("Method", facts.Method);
    rows.Add("Columns", shape.Columns);
    rows.Add("Rows", shape.Rows);
    rows.Add("X minimum", shape.XMin);
    rows.Add("X maximum", shape.XMax);
    rows.Add("X spacing", shape.SpacingX());
    rows.Add("Y minimum", shape.YMin);
    rows.Add("Y maximum", shape.YMax);
    rows.Add("Y spacing", shape.SpacingY());
    rows.Add("Z minimum", heights.Low);
    rows.Add("Z maximum", heights.High);
}

/// Root of the mean squared difference between points and plane.
double Deviation(const DataPoints& points, const FittedPlane& plane) {
    double sum = 0;
    for (const DataPoint& point : points) {
        const double difference = point.Z - (plane.A + plane.B * point.Y + plane.C * point.X);
        sum += difference * difference;
    }
    return std::sqrt(sum / static_cast<double>(points.size()));
}

}  // namespace

Worksheet GriddingReport(const GriddingFacts& facts, const ScatteredGrid& result, int planeRow) {
    Worksheet sheet;
    ReportRows rows(sheet, 1);
    rows.Title("Gridding report");
    rows.Gap();
    AddData(rows, facts);
    AddGrid(rows, facts, result.Heights);
    if (result.Plane) {
        ReportRows plane(sheet, planeRow - 1);
        plane.Title("Plane z = A00 + A01 y + A10 x");
        plane.Add("A00", result.Plane->A);
        plane.Add("A01", result.Plane->B);
        plane.Add("A10", result.Plane->C);
        plane.Gap();
        plane.Add("Root mean square deviation", Deviation(facts.Used, *result.Plane));
    }
    return sheet;
}

std::string PlaneLine(const FittedPlane& plane) {
    return "z(x,y) = " + GeneralText(plane.A) + " + " + GeneralText(plane.B) + "y + " + GeneralText(plane.C) + "x";
}

}  // namespace crownlab
