#pragma once

#include "forms/form.h"

namespace crownlab {

struct ShellState;

/// The window that changes the default folder.
struct FrmDefDir : Form {
    FrmDefDir(Services& services, ShellState& shell);

    ShellState& Shell;
    DriveList Drive1{*this, "Drive1"};
    DirList Dir1{*this, "Dir1"};
    Label lblDefDir{*this, "lblDefDir"};
    CommandButton DirC{*this, "DirC", "Dir"};
    CommandButton cmdUpdateDefDir{*this, "cmdUpdateDefDir", "Update dir and exit"};
};

void Drive1_Change(FrmDefDir& form);
void Dir1_Change(FrmDefDir& form);
void DirC_Click(FrmDefDir& form);
void cmdUpdateDefDir_Click(FrmDefDir& form);

}  // namespace crownlab
