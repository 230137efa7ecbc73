#include "basis/paths.h"
#include "basis/rounding.h"
#include "forms/desk.h"
#include "surfer/digitise_area.h"
#include "surfer/grid_calls.h"
#include "surfer/grid_shape.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/unblanked_range.h"

namespace crownlab {
namespace {

/// The part of one grid that is kept, and how its file is called.
struct ExtractPlan {
    GridPart Part;
    double Step = 1;
    std::string Suffix;
};

/// The nodes between two digitised corners. False if the person cancelled or the corners aren't in order.
bool TakeDigitisedPart(FrmSurfFns& form, int place, const GridShape& grid, ExtractPlan& plan) {
    const BatchFile& file = FileAt(form, place);
    const auto box = DigitiseBox(form.App, {file.FileDir, file.FileBase});
    if (!box) {
        form.MousePointer = kPointerNormal;
        return false;
    }
    if (!CornersInOrder(box->LowerLeft, box->UpperRight)) {
        Refuse(form, "Points invalid - redigitise points.");
        return false;
    }
    plan.Part = RangeBetween(grid, box->LowerLeft, box->UpperRight);
    plan.Suffix = "ed";
    return true;
}

/// The nodes round all that aren't blank. The grid's text takes the place of digitised points, and goes again.
void TakeUnblankedPart(FrmSurfFns& form, int place, const GridShape& grid, ExtractPlan& plan) {
    const BatchFile& file = FileAt(form, place);
    const std::string text = file.FileDir + "digit.dat";
    ConvertGridByName(SessionOf(form), file.InputPath, text);
    plan.Part = UnblankedRange(text, grid);
    RemoveFile(text);
    plan.Suffix = "em";
}

void TakeStep(FrmSurfFns& form, ExtractPlan& plan) {
    if (!form.chkRedRow.Checked) return;
    if (form.optRedRowFactor.Selected) {
        plan.Step = ToInt16(form.txtRedRowFactor.Number(), "txtRedRowFactor");
        plan.Suffix += "rf" + form.txtRedRowFactor.Text;
    } else {
        plan.Step = StepForMost(plan.Part, form.txtRedRowMax.Number());
        plan.Suffix += "rm" + form.txtRedRowMax.Text;
    }
}

/// False if the person cancelled or a message ended the tool.
bool MakePlan(FrmSurfFns& form, int place, const GridShape& grid, ExtractPlan& plan) {
    plan.Part = WholeRange(grid);
    if (form.chkRedArea.Checked && form.optRedAreaDig.Selected) {
        if (!TakeDigitisedPart(form, place, grid, plan)) return false;
    } else if (form.chkRedArea.Checked) {
        TakeUnblankedPart(form, place, grid, plan);
    }
    TakeStep(form, plan);
    return true;
}

bool ExtractFile(FrmSurfFns& form, int place) {
    Session& session = SessionOf(form);
    const GridShape grid =
        ReadGridShape(session, form.App, FileAt(form, place).InputPath, form.Label1.Caption, ShapeOf::Plan);
    ExtractPlan plan;
    if (!MakePlan(form, place, grid, plan)) return false;
    BatchFile& file = FileAt(form, place);
    file.OutputPath = file.Stem + plan.Suffix + ".grd";
    if (plan.Step == 1 && plan.Part == WholeRange(grid)) {
        Tell(form, "Grid extraction for " + file.FileBase + " not required");
        return true;
    }
    ExtractGrid(session, file.InputPath, plan.Part, plan.Step, file.OutputPath);
    if (!form.chkPlotSurfer.Checked) return true;
    PlotSurfer(form, file.OutputPath, file.FileBase + plan.Suffix, ChosenPlotType(form), place);
    return true;
}

}  // namespace

void cmdExtract_Click(FrmSurfFns& form) {
    if (!form.chkRedArea.Checked && !form.chkRedRow.Checked) return;
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) {
        if (!ExtractFile(form, i)) return;
    }
    EndTool(form);
}

void RegisterExtract(FrmSurfFns& form) { form.On("cmdExtract_Click", cmdExtract_Click); }

}  // namespace crownlab
