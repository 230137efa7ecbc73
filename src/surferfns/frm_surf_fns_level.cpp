// Moving grids to the origin, and comparing them two by two.
#include "basis/number_text.h"
#include "basis/paths.h"
#include "surfer/grid_calls.h"
#include "surfer/grid_shape.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"

namespace crownlab {
namespace {

void PlotResult(FrmSurfFns& form, int place, const std::string& suffix) {
    if (!form.chkPlotSurfer.Checked) return;
    const BatchFile& file = FileAt(form, place);
    PlotSurfer(form, file.OutputPath, file.FileBase + suffix, ChosenPlotType(form), place);
}

void ReZeroFile(FrmSurfFns& form, int place) {
    Session& session = SessionOf(form);
    BatchFile& file = FileAt(form, place);
    const GridShape grid =
        ReadGridShape(session, form.App, file.InputPath, form.Label1.Caption, ShapeOf::PlanAndHeights);
    const std::string moved = file.FileDir + "tempgrid.grd";
    file.OutputPath = file.Stem + "rz.grd";
    OffsetGrid(session, file.InputPath, -grid.XMin, -grid.YMin, moved);
    GridFormula(session, "C = A - " + GeneralText(grid.ZMin), moved, {}, file.OutputPath);
    PlotResult(form, place, "rz");
    RemoveFile(moved);
}

void ComparePair(FrmSurfFns& form, int place) {
    const std::string addition = form.txtCompGridOutGridText.Text;
    BatchFile& file = FileAt(form, place);
    file.OutputPath = file.Stem + addition + ".grd";
    GridFormula(SessionOf(form), form.optCompareMax.Selected ? "C=max(A,B)" : "C=min(A,B)", file.InputPath,
                FileAt(form, place + 1).InputPath, file.OutputPath);
    PlotResult(form, place, addition);
}

}  // namespace

void cmdReZero_Click(FrmSurfFns& form) {
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) ReZeroFile(form, i);
    EndTool(form);
}

void cmdCompareGrids_Click(FrmSurfFns& form) {
    constexpr int pair = 2;
    StartTool(form);
    if (form.FileCount < pair) return;
    for (int i = 1; i <= form.FileCount; i += pair) ComparePair(form, i);
    EndTool(form);
}

void RegisterLevel(FrmSurfFns& form) {
    form.On("cmdReZero_Click", cmdReZero_Click);
    form.On("cmdCompareGrids_Click", cmdCompareGrids_Click);
}

}  // namespace crownlab
