#include "shell/frm_def_dir.h"

#include "basis/paths.h"
#include "forms/acts.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "shell/settings.h"
#include "shell/shell_state.h"

namespace crownlab {

FrmDefDir::FrmDefDir(Services& services, ShellState& shell)
    : Form(services, "frmDefDir", "Set Default Directory"), Shell(shell) {
    On("Drive1_Change", [](FrmDefDir& form) { Drive1_Change(form); });
    On("Dir1_Change", [](FrmDefDir& form) { Dir1_Change(form); });
    On("DirC_Click", [](FrmDefDir& form) { DirC_Click(form); });
    On("cmdUpdateDefDir_Click", cmdUpdateDefDir_Click);
}

void Drive1_Change(FrmDefDir& form) {
    SetPath(form.Dir1, form.Drive1.Drive);
    form.lblDefDir.Caption = form.Dir1.Path;
}

void Dir1_Change(FrmDefDir& form) { form.lblDefDir.Caption = form.Dir1.Path; }

void DirC_Click(FrmDefDir& form) {
    const std::string folder = ReadDefaultDir(form.Shell);
    if (!IsFolder(folder)) {
        Tell(form, "Choose a new default directory and save.");
        return;
    }
    SetPath(form.Drive1, folder.substr(0, 3));
    SetPath(form.Dir1, folder);
    form.lblDefDir.Caption = folder;
}

void cmdUpdateDefDir_Click(FrmDefDir& form) {
    SaveDefaultDir(form.Shell, form.lblDefDir.Caption);
    form.App.Windows->Unload(form.Name);
}

}  // namespace crownlab
