#include "surferfns/frm_surf_fns.h"

#include <algorithm>

#include "basis/failure.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "forms/acts.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/chooser.h"
#include "shell/shell_state.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

Chooser Lists(FrmSurfFns& form) { return {form.Drive2, form.Dir2, form.File2, nullptr, &form.Text2}; }

void ShowFolder(FrmSurfFns& form) { form.Label2.Caption = form.Dir2.Path; }

void Dir2_Change(FrmSurfFns& form) {
    FolderChosen(Lists(form));
    ShowFolder(form);
}

void File2_Click(FrmSurfFns& form) {
    FileChosen(Lists(form));
    ShowFolder(form);
}

void DirC_Click(FrmSurfFns& form) {
    GoToDefaultDir(form.Shell, Lists(form));
    ShowFolder(form);
}

void cmbFileType_Click(FrmSurfFns& form) {
    constexpr int grid = 0;
    constexpr int hawk = 1;
    const int type = form.cmbFileType.Selected;
    SetPattern(form.File2, type == grid ? "*.grd" : type == hawk ? "*.txt" : "*.*");
}

void Form_Load(FrmSurfFns& form) {
    form.cmbFileType.Selected = 0;
    form.cmbPDFilter.Selected = 0;
    form.cmbProcess.Selected = 0;
    ShowFolder(form);
}

bool IsNoName(const std::string& name) { return name == "*.grd" || name.empty(); }

bool IsInBatch(FrmSurfFns& form, const std::string& path) {
    for (int i = 1; i <= form.FileCount; ++i) {
        if (FileAt(form, i).InputPath == path) return true;
    }
    return false;
}

/// Clicks the name at that place of the list, as a person would.
void SelectPlace(FrmSurfFns& form, const std::string& name) {
    form.File2.FileName = name;
    Fire(form.File2, "Click");
}

}  // namespace

FrmSurfFns::FrmSurfFns(Services& services, ShellState& shell)
    : Form(services, "frmSurfFns", "Surfer Functions"), Shell(shell) {
    On("Form_Load", Form_Load);
    On(
        "Drive2_Change", +[](FrmSurfFns& form) { DriveChosen(Lists(form)); });
    On("Dir2_Change", Dir2_Change);
    On("File2_Click", File2_Click);
    On("File2_DblClick", cmdAddFilename_Click);
    On("cmbFileType_Click", cmbFileType_Click);
    On("DirC_Click", DirC_Click);
    On("cmdRefreshDir_Click", cmdRefreshDir_Click);
    On("cmdAddFilename_Click", cmdAddFilename_Click);
    On("cmdAddAllFilenames_Click", cmdAddAllFilenames_Click);
    On("cmdClearFilenames_Click", cmdClearFilenames_Click);
    On(
        "cmdExit_Click", +[](FrmSurfFns& form) { form.App.Windows->Unload(form.Name); });
    RegisterSmooth(*this);
    RegisterRegrid(*this);
    RegisterFixResolution(*this);
    RegisterArea(*this);
    RegisterPlot(*this);
    RegisterProcess(*this);
    RegisterBlank(*this);
    RegisterExtract(*this);
    RegisterLevel(*this);
}

void cmdAddFilename_Click(FrmSurfFns& form) {
    form.MousePointer = kPointerHourglass;
    if (IsNoName(form.Text2.Text)) return Refuse(form, "Choose grid filename", "Filename");
    if (IsInBatch(form, JoinPath(form.File2.Path, form.Text2.Text))) {
        return Refuse(form, "Filename already added", "Filename");
    }
    const BatchFile file = MakeBatchFile(form.File2.Path, form.Text2.Text);
    form.FileCount = ToInt16(form.FileCount + 1, "FileCount");
    form.Batch.resize(static_cast<std::size_t>(std::max(form.FileCount, 0)));
    FileAt(form, form.FileCount) = file;
    form.txtNoFiles.Text = std::to_string(form.FileCount);
    form.MousePointer = kPointerNormal;
}

void cmdAddAllFilenames_Click(FrmSurfFns& form) {
    const std::vector<std::string> names = form.File2.Entries;
    if (names.empty()) return;
    for (const std::string& name : names) {
        SelectPlace(form, name);
        cmdAddFilename_Click(form);
    }
    SelectPlace(form, names.front());
}

void cmdClearFilenames_Click(FrmSurfFns& form) {
    form.FileCount = 0;
    form.Batch.assign(1, {});
    form.txtNoFiles.Text = "0";
}

void cmdRefreshDir_Click(FrmSurfFns& form) {
    Refresh(form.Dir2);
    Refresh(form.File2);
}

Session& SessionOf(FrmSurfFns& form) { return *form.Shell.Surfer; }

void StartTool(FrmSurfFns& form) {
    form.MousePointer = kPointerHourglass;
    Session& session = SessionOf(form);
    session.SurferApp = PrepareSurfer(session, *form.App.Windows, form.chkStartSurfer.Checked);
    form.FileCount = ToInt16(form.txtNoFiles.Number(), "FileCount");
    if (form.FileCount != 0) return;
    cmdAddFilename_Click(form);
    form.MousePointer = kPointerHourglass;
}

void EndTool(FrmSurfFns& form) {
    cmdClearFilenames_Click(form);
    form.MousePointer = kPointerNormal;
}

void EndToolAsChosen(FrmSurfFns& form) {
    if (form.chkClearFilenames.Checked) cmdClearFilenames_Click(form);
    form.MousePointer = kPointerNormal;
}

void Refuse(FrmSurfFns& form, const std::string& text, const std::string& title) {
    form.MousePointer = kPointerNormal;
    Tell(form, text, title);
}

BatchFile& FileAt(FrmSurfFns& form, int place) {
    if (place < 1 || place > static_cast<int>(form.Batch.size())) {
        throw Failure(FailureKind::SubscriptOutOfRange, "file no. " + std::to_string(place));
    }
    return form.Batch[static_cast<std::size_t>(place) - 1];
}

}  // namespace crownlab
