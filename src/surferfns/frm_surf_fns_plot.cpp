#include "forms/acts.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"

namespace crownlab {
namespace {

SheetOptions OptionsOf(const FrmSurfFns& form) {
    constexpr int perspective = 1;
    constexpr int orthographic = 2;
    SheetOptions options;
    options.Layout = {.PerRow = form.txtNoInPlotRow.Number(),
                      .SpacingX = form.txtPlotSpacX.Number(),
                      .SpacingY = form.txtPlotSpacY.Number()};
    options.View = {.Azimuth = form.txtAzimuth.Number(),
                    .Zenith = form.txtZenith.Number(),
                    .Projection = form.optProjO.Selected ? orthographic : perspective,
                    .Rotation = form.txtRot.Number(),
                    .Tilt = form.txtTilt.Number()};
    options.Axes = form.chkShowAxes.Checked;
    options.ScaleBar = form.chkScaleBar.Checked;
    options.ScaleBarCycle = form.txtScaleBar.Number();
    options.Label = form.chkLabelSurfer.Checked;
    return options;
}

/// Light, projection and view that a button sets.
struct PresetView {
    const char* Azimuth;
    const char* Zenith;
    OptionButton FrmSurfFns::*Projection;
    const char* Rotation;
    const char* Tilt;
};

void ShowPreset(FrmSurfFns& form, const PresetView& view) {
    SetText(form.txtAzimuth, view.Azimuth);
    SetText(form.txtZenith, view.Zenith);
    SelectOption(form.*view.Projection);
    SetText(form.txtRot, view.Rotation);
    SetText(form.txtTilt, view.Tilt);
}

void cmdPresetA_Click(FrmSurfFns& form) { ShowPreset(form, {"0", "90", &FrmSurfFns::optProjO, "0", "90"}); }
void cmdPresetD_Click(FrmSurfFns& form) { ShowPreset(form, {"135", "45", &FrmSurfFns::optProjP, "45", "30"}); }

}  // namespace

int ChosenPlotType(const FrmSurfFns& form) {
    if (form.optRelief.Selected) return kPlotRelief;
    if (form.optContour.Selected) return kPlotContour;
    if (form.optImage.Selected) return kPlotImage;
    return form.opt3DSurface.Selected ? kPlotSurface : 0;
}

void PlotSurfer(FrmSurfFns& form, const std::string& gridPath, const std::string& baseName, int plotType, int slot) {
    PlotOnSheet(SessionOf(form), *form.App.Windows, OptionsOf(form),
                {.GridPath = gridPath, .BaseName = baseName, .NameAddition = {}, .Type = plotType, .Slot = slot});
}

void cmdPlotGrid_Click(FrmSurfFns& form) {
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) {
        BatchFile& file = FileAt(form, i);
        file.OutputPath = file.InputPath;
        PlotSurfer(form, file.OutputPath, file.FileBase, ChosenPlotType(form), i);
    }
    EndToolAsChosen(form);
}

void RegisterPlot(FrmSurfFns& form) {
    form.On("cmdPlotGrid_Click", cmdPlotGrid_Click);
    form.On("cmdPresetA_Click", cmdPresetA_Click);
    form.On("cmdPresetD_Click", cmdPresetD_Click);
}

}  // namespace crownlab
