#include <filesystem>
#include <system_error>

#include "basis/paths.h"
#include "formats/point_extents.h"
#include "formats/unblanked_points.h"
#include "forms/desk.h"
#include "surfer/grid_calls.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/node_layout.h"

namespace crownlab {
namespace {

/// The folder of one kind of result beside the input, made if it isn't there. `name` ends in the resolution's text and
/// the kind.
std::string ResultFolder(const BatchFile& file, const std::string& name) {
    const std::string folder = file.FileDir + name;
    if (!IsFolder(folder)) MakeFolder(folder);
    return WithSeparator(folder);
}

/// A grid as text without its blank nodes.
void WriteUnblankedText(FrmSurfFns& form, const BatchFile& file, const std::string& grid, const std::string& text) {
    ConvertGridByPosition(SessionOf(form), grid, text);
    RemoveBlankPoints(*form.App.Files, text, file.FileDir + "temp.dat");
}

/// The points to be gridded: the input itself, or the grid's nodes in a file that goes again.
std::string DataFileOf(FrmSurfFns& form, const BatchFile& file) {
    if (form.optRegridTxt.Selected) return file.InputPath;
    std::string dataFile = file.Stem + ".txt";
    WriteUnblankedText(form, file, file.InputPath, dataFile);
    return dataFile;
}

/// Grids the points anew and returns the path of the grid.
std::string MakeRawGrid(FrmSurfFns& form, const BatchFile& file, const std::string& resolution) {
    const std::string dataFile = DataFileOf(form, file);
    std::string rawGrid = ResultFolder(file, resolution + "_grd") + file.FileBase + resolution + ".grd";
    const GridShape nodes = NodesAlongLongerSide(ReadPointExtents(dataFile), form.txtExactNoRC.Number());
    GridPoints(SessionOf(form), dataFile, nodes, GriddingMethod::Kriging, rawGrid);
    if (form.optRegridGrd.Selected) {
        std::error_code gone;
        std::filesystem::remove(dataFile, gone);
    }
    return rawGrid;
}

void RegridFile(FrmSurfFns& form, int place, const std::string& blankFile) {
    BatchFile& file = FileAt(form, place);
    const std::string resolution = form.txtExactNoRC.Text;
    const std::string blanked = resolution + "b";
    const std::string rawGrid = MakeRawGrid(form, file, resolution);
    file.OutputPath = ResultFolder(file, blanked + "_grd") + file.FileBase + blanked + ".grd";
    BlankGrid(SessionOf(form), rawGrid, blankFile, file.OutputPath);
    WriteUnblankedText(form, file, file.OutputPath,
                       ResultFolder(file, blanked + "_dat") + file.FileBase + blanked + ".dat");
    if (!form.chkPlotSurfer.Checked) return;
    const int type = form.optTerrain.Selected ? kPlotImage : ChosenPlotType(form);
    PlotSurfer(form, file.OutputPath, file.FileBase + blanked, type, place);
}

std::string BlankFileOf(FrmSurfFns& form, const BatchFile& file) {
    return OutlineOfGrid(file.Stem, form.optRegridGrd.Selected ? form.txtRegridDelChar.Number() : 0);
}

}  // namespace

void cmdRegridExactResol_Click(FrmSurfFns& form) {
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) {
        const std::string blankFile = BlankFileOf(form, FileAt(form, i));
        if (!IsFile(blankFile)) {
            Refuse(form, "Check that blanking file (file no. " + std::to_string(i) + ") is in correct directory.");
            return EndTool(form);
        }
        RegridFile(form, i, blankFile);
    }
    EndTool(form);
}

void RegisterRegrid(FrmSurfFns& form) { form.On("cmdRegridExactResol_Click", cmdRegridExactResol_Click); }

}  // namespace crownlab
