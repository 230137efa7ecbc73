#include "shell/frm_save_file.h"

#include "basis/failure.h"
#include "basis/paths.h"
#include "forms/acts.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/chooser.h"
#include "shell/shell_state.h"

namespace crownlab {
namespace {

constexpr int kTypeText = 0;
constexpr int kTypeCsv = 1;
constexpr const char* kTitle = "Open file";

Chooser Lists(FrmSaveFile& form) { return {form.Drive1, form.Dir1, form.File1, nullptr, &form.txtFileName}; }

void Form_Load(FrmSaveFile& form) {
    // Closing the window by its close box counts as giving up.
    form.Shell.SaveOK = false;
    SelectEntry(form.cmbFileType, kTypeCsv);
    SetPath(form.File1, form.Dir1.Path);
    form.lblFolder.Caption = form.Dir1.Path;
}

void Dir1_Change(FrmSaveFile& form) {
    FolderChosen(Lists(form));
    form.lblFolder.Caption = form.Dir1.Path;
}

}  // namespace

FrmSaveFile::FrmSaveFile(Services& services, ShellState& shell)
    : Form(services, "frmSaveFile", "Save File"), Shell(shell) {
    On("Form_Load", Form_Load);
    On("Drive1_Change", [](FrmSaveFile& form) { DriveChosen(Lists(form)); });
    On("Dir1_Change", Dir1_Change);
    On("File1_Click", [](FrmSaveFile& form) { FileChosen(Lists(form)); });
    On("File1_DblClick", cmdOK_Click);
    On("cmbFileType_Click", cmbFileType_Click);
    On("cmdOK_Click", cmdOK_Click);
    On("cmdCancel_Click", cmdCancel_Click);
}

void cmbFileType_Click(FrmSaveFile& form) {
    const int type = form.cmbFileType.Selected;
    SetPattern(form.File1, type == kTypeText ? "*.txt" : type == kTypeCsv ? "*.csv" : "*.*");
}

void cmdOK_Click(FrmSaveFile& form) {
    std::string name = form.txtFileName.Text;
    if (name.empty()) {
        Tell(form, "Enter filename", kTitle);
        form.Shell.SaveOK = false;
        return;
    }
    if (name == form.File1.FileName) {
        const Button answer =
            form.App.Screen->Ask({.Text = "Overwrite file?", .Title = kTitle, .Buttons = {Button::Ok, Button::Cancel}});
        if (answer == Button::Cancel) {
            form.Shell.SaveOK = false;
            return;
        }
    }
    constexpr std::size_t extensionLength = 4;  // a dot and three letters
    if (name.size() < extensionLength) throw Failure(FailureKind::InvalidCall, "file name \"" + name + "\"");
    if (name[name.size() - extensionLength] != '.') name += form.cmbFileType.Selected == kTypeCsv ? ".csv" : ".txt";
    form.Shell.SavePath = JoinPath(form.Dir1.Path, name);
    form.Shell.SaveOK = true;
    form.App.Windows->Unload(form.Name);
}

void cmdCancel_Click(FrmSaveFile& form) {
    form.Shell.SaveOK = false;
    form.App.Windows->Unload(form.Name);
}

bool AskForSavePath(Services& services, ShellState& shell, const std::string& proposedName) {
    const std::shared_ptr<Form> form = services.Windows->Load("frmSaveFile");
    if (!proposedName.empty()) static_cast<FrmSaveFile&>(*form).txtFileName.Text = proposedName;
    services.Screen->ShowModal(*form);
    return shell.SaveOK;
}

}  // namespace crownlab
