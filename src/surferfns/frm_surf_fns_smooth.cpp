#include <cmath>

#include "forms/acts.h"
#include "surfer/session.h"
#include "surferfns/curvature_grid.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/smoothing.h"

namespace crownlab {
namespace {

FilterTexts TextsOf(const FrmSurfFns& form) {
    return {form.txtFilterSize.Text, form.txtWeight.Text, form.txtCWeight.Text};
}

/// Half-width of the filter, (n - 1) / 2.
double HalfWidth(const FrmSurfFns& form) { return (form.txtFilterSize.Number() - 1) / 2; }

/// False if a message ended the tool.
bool SmoothBySix(FrmSurfFns& form, BatchFile& file) {
    if (!form.optDefFilter.Selected) {
        Refuse(form, "Must only use 'Define filter' option with Surfer v6.", "Filter");
        return false;
    }
    const double r = HalfWidth(form);
    file.OutputPath = file.Stem + "sm" + form.txtFilterSize.Text + ".grd";
    SessionOf(form).SurferApp.Call("GridMatrixSmooth",
                                   {file.InputPath, 0, form.txtWeight.Text, Absent{}, r, r, file.OutputPath});
    return true;
}

bool SmoothByEight(FrmSurfFns& form, BatchFile& file) {
    const double n = form.txtFilterSize.Number();
    const double passes = form.txtNoTimes.Number();
    SmoothingFilter filter = DefinedFilter(TextsOf(form));
    NumberMatrix weights;
    if (form.optPDFilter.Selected) {
        const auto chosen = PreDefinedFilter(form.cmbPDFilter.Text(), TextsOf(form));
        if (!chosen) {
            Refuse(form, "Choose filter.", "Filter");
            return false;
        }
        filter = *chosen;
    } else {
        weights = FilterWeights(n, form.txtWeight.Number());
    }
    if (passes > 1) filter.Suffix += "x" + form.txtNoTimes.Text;
    file.OutputPath = file.Stem + filter.Suffix + ".grd";
    SessionOf(form).SurferApp.Call("GridFilter", {file.InputPath, filter.Code, Absent{}, Absent{}, passes, Absent{},
                                                  Absent{}, n, n, Absent{}, Absent{}, Value(weights), file.OutputPath});
    return true;
}

bool SmoothFile(FrmSurfFns& form, int place) {
    BatchFile& file = FileAt(form, place);
    const Session& session = SessionOf(form);
    if (session.IsSix() && !SmoothBySix(form, file)) return false;
    if (session.IsEight() && !SmoothByEight(form, file)) return false;
    if (form.chkPlotSurfer.Checked) PlotSurfer(form, file.OutputPath, file.FileBase, ChosenPlotType(form), place);
    if (form.chkCurvature.Checked) MakeCurvatureGrid(session, file.OutputPath);
    return true;
}

}  // namespace

void cmdSmooth_Click(FrmSurfFns& form) {
    StartTool(form);
    if (const double r = HalfWidth(form); r != std::floor(r)) {
        return Refuse(form, "Filter size must be odd number.", "Filter");
    }
    for (int i = 1; i <= form.FileCount; ++i) {
        if (!SmoothFile(form, i)) return;
    }
    EndTool(form);
}

void chkCurvature_Click(FrmSurfFns& form) {
    const bool wanted = form.chkCurvature.Checked;
    SetText(form.txtFilterSize, wanted ? "9" : "3");
    SetText(form.txtWeight, wanted ? "4" : "3");
    SelectOption(wanted ? form.optDefFilter : form.optPDFilter);
    SetText(form.txtNoTimes, wanted ? "3" : "1");
}

void RegisterSmooth(FrmSurfFns& form) {
    form.On("cmdSmooth_Click", cmdSmooth_Click);
    form.On("chkCurvature_Click", chkCurvature_Click);
}

}  // namespace crownlab
