#include "viewer/surface_wrl.h"

#include <algorithm>

#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "formats/vrml_templates.h"

namespace crownlab {
namespace {

double ScaleOf(const SurfaceGrid& grid, const SurfaceModel& model) {
    constexpr double smallest = 0.001;
    const double scale = Divide(kModelWidth, (grid.NumX - 1) * model.StepX, "width of the model");
    return std::max(smallest, RoundDecimals(scale, 3));
}

vrml::Vector PositionOf(const SurfaceGrid& grid, const SurfaceModel& model, double scale) {
    const double width = (grid.NumX - 1) * model.StepX * scale;
    const double depth = (grid.NumY - 1) * model.StepX * scale;
    const double height = model.ZLow * scale + 2 * std::max(width, depth);
    return {.A = vrml::Number(width / 2, 3), .B = vrml::Number(height, 3), .C = vrml::Number(depth / 2, 3)};
}

void WriteHeights(ResultFile& file, const SurfaceGrid& grid, double zLow) {
    for (int row = grid.NumY; row >= 1; --row) {
        for (int column = 1; column <= grid.NumX; ++column) {
            const double z = grid.z(column, row);
            file.PrintNumber(RoundDecimals(z == kEmptyCellZ ? zLow : z, 4));
        }
        file.EndLine();
    }
}

/// The part of `path` behind its folder.
std::string FileNameOf(const std::string& path) { return path.substr(path.rfind(kPathSeparator) + 1); }

}  // namespace

void WriteSurfaceWrl(FileTable& files, const std::string& path, const SurfaceGrid& grid, const SurfaceModel& model) {
    grid.RequireCells("CellGrid");
    const double scale = ScaleOf(grid, model);
    ResultFile file(files, path);
    vrml::WriteHeader(file, FileNameOf(path));
    vrml::WriteNavigation(file, "ANY", "EXAMINE");
    file.Line();
    vrml::WriteBackground(file);
    file.Line();
    vrml::WriteDirectionalLight(file, "-1 -1 -1", "0.25");
    file.Line();
    vrml::WriteViewpoint(file, "Start", PositionOf(grid, model, scale), "0 0.707 0.707 3.141");
    file.Line();
    vrml::WriteTransformStart(file, vrml::Number(scale, 3));
    vrml::WriteShapeStart(file);
    vrml::WriteElevationGridStart(file, grid.NumX, grid.NumY, vrml::Number(model.StepX, 4),
                                  vrml::Number(model.StepY, 4));
    WriteHeights(file, grid, model.ZLow);
    vrml::WriteElevationGridEnd(file);
    vrml::WriteTransformEnd(file);
    file.Commit();
}

}  // namespace crownlab
