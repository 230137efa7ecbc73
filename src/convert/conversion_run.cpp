#include "convert/conversion_run.h"

#include "basis/failure.h"
#include "basis/rounding.h"
#include "convert/frm_conversion.h"
#include "forms/desk.h"
#include "shell/shell_state.h"
#include "surfer/plot_driver.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

/// The kind of map that is selected; 0 for none.
int PlotType(const FrmConversion& form) {
    int type = 0;
    if (form.optRelief.Selected) type = kPlotRelief;
    if (form.optContour.Selected) type = kPlotContour;
    if (form.optImage.Selected) type = kPlotImage;
    if (form.opt3DSurface.Selected) type = kPlotSurface;
    return type;
}

void PlotFile(FrmConversion& form, int index) {
    form.CurrentFile = index;
    const BatchFile& file = FileOfBatch(form, index);
    PlotSurfer(*form.Shell.Surfer, *form.App.Windows, form.SurferApp,
               {.GridPath = file.OutputPath,
                .BaseName = file.FileBase,
                .NameAddition = form.OutputAddition,
                .Type = PlotType(form),
                .Slot = index,
                .Label = form.chkLabelSurfer.Checked});
}

}  // namespace

void PrepareProgram(FrmConversion& form) {
    form.SurferApp = PrepareSurfer(*form.Shell.Surfer, *form.App.Windows, form.chkStartSurfer.Checked);
}

void TakeNoFiles(FrmConversion& form) {
    form.NoFiles = ToInt32(form.txtNoFiles.Number(), "txtNoFiles");
    if (form.NoFiles == 0) cmdAddFilename_Click(form);
}

BatchFile& FileOfBatch(FrmConversion& form, int index) {
    if (index < 1 || index > static_cast<int>(form.Batch.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "file " + std::to_string(index) + " of the batch");
    }
    return form.Batch[static_cast<std::size_t>(index - 1)];
}

BatchFile& StartFile(FrmConversion& form, int index) {
    form.CurrentFile = index;
    BatchFile& file = FileOfBatch(form, index);
    form.txtProgress.Text = std::to_string(index) + "/" + std::to_string(form.NoFiles);
    form.txtCurrentFilename.Text = file.FileBase;
    form.App.Screen->Redraw();
    return file;
}

void EndGridding(FrmConversion& form) {
    if (form.chkPlotSurfer.Checked) {
        for (int index = 1; index <= form.NoFiles; ++index) PlotFile(form, index);
    }
    form.txtProgress.Text.clear();
    form.txtCurrentFilename.Text.clear();
    cmdClearFilenames_Click(form);
}

bool IsNoTextName(const std::string& name) { return name.empty() || name == "*.txt"; }

void TellAndStop(FrmConversion& form, const char* text, const char* title) {
    form.MousePointer = kPointerNormal;
    Tell(form, text, title);
}

}  // namespace crownlab
