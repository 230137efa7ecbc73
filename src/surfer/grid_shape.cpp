#include "surfer/grid_shape.h"

#include "basis/number_text.h"
#include "basis/paths.h"
#include "forms/form.h"
#include "surfer/grid_info.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

/// A worksheet that stands open under version 6.
struct OpenSheet {
    const LateBound& Program;
    Value Handle;

    /// The number that a cell's text starts with, 0 if there is none.
    double Cell(int row, int column) const {
        const Value content = Program.Call("GetWksCell", {Handle, row, column});
        if (const double* const number = std::get_if<double>(&content)) return *number;
        if (std::holds_alternative<Absent>(content)) return 0;
        return TextBoxNumber(TextOf(content, "GetWksCell"));
    }
};

GridShape ShapeInSheet(const OpenSheet& sheet, ShapeOf wanted) {
    GridShape shape;
    shape.NumCols = sheet.Cell(4, 4);
    shape.XMin = sheet.Cell(7, 1);
    shape.XMax = sheet.Cell(7, 3);
    shape.SpacingX = sheet.Cell(5, 2);
    shape.NumRows = sheet.Cell(4, 7);
    shape.YMin = sheet.Cell(8, 1);
    shape.YMax = sheet.Cell(8, 3);
    shape.SpacingY = sheet.Cell(6, 2);
    if (wanted == ShapeOf::PlanAndHeights) {
        shape.ZMin = sheet.Cell(9, 1);
        shape.ZMax = sheet.Cell(9, 3);
    }
    return shape;
}

GridShape ShapeByVolume(const LateBound& program, const std::string& gridFile, const std::string& folder,
                        ShapeOf wanted) {
    const std::string sheetFile = JoinPath(folder, "volume.dat");
    program.Call("FileNew");
    program.Call("GridVolume", {gridFile, Absent{}, Absent{}, 0});
    program.Call("FileSaveAs", {sheetFile});
    const OpenSheet sheet{program, program.Call("FileOpen", {sheetFile, 1})};
    const GridShape shape = ShapeInSheet(sheet, wanted);
    program.Call("FileClose");
    program.Call("FileClose");
    return shape;
}

GridShape ShapeByInfo(Session& session, Services& app, const std::string& gridFile) {
    const HeightLimits own = ReadGridInfo(session, app, gridFile);
    const GridInfo& info = session.Info;
    return {.NumCols = info(1),
            .XMin = info(2),
            .XMax = info(3),
            .SpacingX = info(4),
            .NumRows = info(5),
            .YMin = info(6),
            .YMax = info(7),
            .SpacingY = info(8),
            .ZMin = own.Low,
            .ZMax = own.High};
}

}  // namespace

GridShape ReadGridShape(Session& session, Services& app, const std::string& gridFile, const std::string& folder,
                        ShapeOf wanted) {
    if (session.IsSix()) return ShapeByVolume(session.SurferApp, gridFile, folder, wanted);
    if (session.IsEight()) return ShapeByInfo(session, app, gridFile);
    return {};
}

}  // namespace crownlab
