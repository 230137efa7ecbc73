#include "basis/arc_tangent.h"
#include "basis/number_text.h"
#include "surfer/grid_calls.h"
#include "surfer/grid_info.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/terrain_statistics.h"

namespace crownlab {
namespace {

/// Mirrors heights within the grid's own range, so that the highest point takes the lowest height.
std::string MirrorFormula(const HeightLimits& own) {
    return "C=" + GeneralText(own.High) + "-A +" + GeneralText(own.Low);
}

void MirrorHeights(FrmSurfFns& form, const std::string& inGrid, const std::string& outGrid) {
    const HeightLimits own = ReadGridInfo(SessionOf(form), form.App, inGrid);
    GridFormula(SessionOf(form), MirrorFormula(own), inGrid, {}, outGrid);
}

/// Gives the output its name, by what the process is called there.
const std::string& NameOutput(BatchFile& file, const std::string& suffix) {
    file.OutputPath = file.Stem + suffix + ".grd";
    return file.OutputPath;
}

std::string MirrorFile(FrmSurfFns& form, BatchFile& file) {
    if (form.optMirrorX.Selected) {
        MirrorGrid(SessionOf(form), file.InputPath, GridMirror::Columns, NameOutput(file, "mx"));
        return "mx";
    }
    if (form.optMirrorY.Selected) {
        MirrorGrid(SessionOf(form), file.InputPath, GridMirror::Rows, NameOutput(file, "my"));
        return "my";
    }
    MirrorHeights(form, file.InputPath, NameOutput(file, "mz"));
    return "mz";
}

/// The form turns clockwise, the program counter-clockwise.
std::string RotateFile(FrmSurfFns& form, BatchFile& file) {
    constexpr int quarter = 90;
    const int quarters = form.optRotate90.Selected ? 1 : form.optRotate180.Selected ? 2 : 3;
    std::string suffix = "r" + std::to_string(quarters * quarter);
    RotateGrid(SessionOf(form), file.InputPath, -quarters * quarter, NameOutput(file, suffix));
    return suffix;
}

/// Half a turn about the y axis, as it makes a tooth of a mould.
std::string MouldRotateFile(FrmSurfFns& form, BatchFile& file) {
    const std::string turned = file.Stem + "temp.grd";
    MirrorHeights(form, file.InputPath, turned);
    MirrorGrid(SessionOf(form), turned, GridMirror::Columns, NameOutput(file, "mr"));
    return "mr";
}

/// Processes that only version 8 has. Empty where nothing is done.
std::string ProcessByEight(FrmSurfFns& form, BatchFile& file) {
    if (form.optMirror.Selected) return MirrorFile(form, file);
    if (form.optRotate.Selected) return RotateFile(form, file);
    if (form.optMouldRotate.Selected) return MouldRotateFile(form, file);
    GridFormula(SessionOf(form), "C=1/A", file.InputPath, {}, NameOutput(file, "inv"));
    return "inv";
}

std::string TerrainSuffix(const FrmSurfFns& form, const Session& session, Terrain terrain) {
    if (terrain == Terrain::Slope) return "ts";
    return session.IsEight() ? "ta" + form.txtTAMinSlope.Text : "ta";
}

/// Slope or aspect of a grid, with the tables of its values.
std::string TerrainFile(FrmSurfFns& form, BatchFile& file) {
    constexpr double halfTurn = 180;
    const Session& session = SessionOf(form);
    const Terrain terrain = form.cmbProcess.Text() == "Terrain slope" ? Terrain::Slope : Terrain::Aspect;
    std::string suffix = TerrainSuffix(form, session, terrain);
    NameOutput(file, suffix);
    if (terrain == Terrain::Slope) {
        TerrainSlope(session, file.InputPath, file.OutputPath);
    } else {
        TerrainAspect(session, file.InputPath, form.txtTAMinSlope.Number() / halfTurn * kFullPi, file.OutputPath);
    }
    const std::string text = file.Stem + "temp.dat";
    ConvertGridByName(session, file.OutputPath, text);
    WriteTerrainResults(*form.App.Files, file.Stem + suffix + "results.csv", ReadTerrainValues(text), terrain);
    return suffix;
}

void PlotProcessed(FrmSurfFns& form, int place, const std::string& suffix) {
    if (!form.chkPlotSurfer.Checked) return;
    const BatchFile& file = FileAt(form, place);
    const bool image = form.optTerrain.Selected || form.optInverse.Selected;
    PlotSurfer(form, file.OutputPath, file.FileBase + suffix, image ? kPlotImage : ChosenPlotType(form), place);
}

/// False after a message.
bool ProcessFile(FrmSurfFns& form, int place) {
    BatchFile& file = FileAt(form, place);
    file.OutputPath.clear();
    std::string suffix;
    if (form.optTerrain.Selected) {
        if (form.cmbProcess.Text().empty()) {
            Refuse(form, "Choose processing procedure.", "Process");
            return false;
        }
        suffix = TerrainFile(form, file);
    } else if (SessionOf(form).IsEight()) {
        suffix = ProcessByEight(form, file);
    }
    PlotProcessed(form, place, suffix);
    return true;
}

}  // namespace

void cmdProcess_Click(FrmSurfFns& form) {
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) {
        if (!ProcessFile(form, i)) return;
    }
    EndTool(form);
}

void RegisterProcess(FrmSurfFns& form) { form.On("cmdProcess_Click", cmdProcess_Click); }

}  // namespace crownlab
