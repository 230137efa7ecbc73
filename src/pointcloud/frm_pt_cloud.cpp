#include "pointcloud/frm_pt_cloud.h"

#include "forms/acts.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/chooser.h"

namespace crownlab {
namespace {

Chooser Lists(FrmPtCloud& form) { return {form.Drive2, form.Dir2, form.File2, nullptr, &form.Text2}; }

void ShowFolder(FrmPtCloud& form) { form.Label2.Caption = form.Dir2.Path; }

void Dir2_Change(FrmPtCloud& form) {
    FolderChosen(Lists(form));
    ShowFolder(form);
}

void File2_Click(FrmPtCloud& form) {
    FileChosen(Lists(form));
    ShowFolder(form);
}

void DirC_Click(FrmPtCloud& form) {
    GoToDefaultDir(form.Shell, Lists(form));
    ShowFolder(form);
}

void cmbFileType_Click(FrmPtCloud& form) {
    constexpr int text = 0;
    constexpr int polygons = 1;
    const int type = form.cmbFileType.Selected;
    SetPattern(form.File2, type == text ? "*.txt;*.dat" : type == polygons ? "*.wrl" : "*.*");
}

void Form_Load(FrmPtCloud& form) {
    form.cmbFileType.Selected = 0;
    form.Frame8.Enabled = !form.chkDefaultSet.Checked;
    ShowFolder(form);
}

bool IsNoName(const std::string& name) { return name == "*.txt,*.dat" || name == "*.grd" || name.empty(); }

/// Shows a message of the chooser; the pointer is normal by then.
void Refuse(FrmPtCloud& form, const char* text) {
    form.MousePointer = kPointerNormal;
    Tell(form, text, "Filename");
}

}  // namespace

FrmPtCloud::FrmPtCloud(Services& services, ShellState& shell)
    : Form(services, "frmPtCloud", "Point Clouds"), Shell(shell) {
    On("Form_Load", Form_Load);
    On(
        "Drive2_Change", +[](FrmPtCloud& form) { DriveChosen(Lists(form)); });
    On("Dir2_Change", Dir2_Change);
    On("File2_Click", File2_Click);
    On("File2_DblClick", cmdAddFilename_Click);
    On("cmbFileType_Click", cmbFileType_Click);
    On("DirC_Click", DirC_Click);
    On("cmdAddFilename_Click", cmdAddFilename_Click);
    On("cmdClearFilenames_Click", cmdClearFilenames_Click);
    On(
        "cmdExit_Click", +[](FrmPtCloud& form) { form.App.Windows->Unload(form.Name); });
    RegisterUndercuts(*this);
    RegisterOutline(*this);
    RegisterPointsToWrl(*this);
    RegisterThickness(*this);
    RegisterJoin(*this);
    RegisterGridTools(*this);
}

void cmdAddFilename_Click(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    if (IsNoName(form.Text2.Text)) return Refuse(form, "Choose grid filename");
    if (Contains(form.Batch, form.File2.Path, form.Text2.Text)) return Refuse(form, "Filename already added");
    form.Batch.push_back(MakeBatchFile(form.File2.Path, form.Text2.Text));
    form.txtNoFiles.Text = std::to_string(form.Batch.size());
    form.MousePointer = kPointerNormal;
}

void cmdClearFilenames_Click(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    form.Batch.clear();
    form.txtNoFiles.Text = "0";
    form.MousePointer = kPointerNormal;
}

void AddIfNoFiles(FrmPtCloud& form) {
    if (form.txtNoFiles.Number() == 0) {
        cmdAddFilename_Click(form);
        form.MousePointer = kPointerHourglass;
    }
}

void StartProgress(FrmPtCloud& form, std::size_t total) { form.pbarPtsPrcd.Max = static_cast<double>(total); }

void ShowProgress(FrmPtCloud& form, std::size_t done, std::size_t total) {
    constexpr std::size_t every = 100;
    if (done % every != 0 && done != total) return;
    form.txtNoPtsPrcd.Text = std::to_string(done);
    form.pbarPtsPrcd.Value = static_cast<double>(done);
    form.App.Screen->Redraw();
}

}  // namespace crownlab
