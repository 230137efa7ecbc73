#pragma once

#include <string>

#include "forms/form.h"

namespace crownlab {

struct ShellState;

/// The dialog in which a person names an output. Shown modally; leaves its answer in SaveOK and SavePath.
struct FrmSaveFile : Form {
    FrmSaveFile(Services& services, ShellState& shell);

    ShellState& Shell;
    Label lblFileName{*this, "lblFileName", "File name:"};
    TextBox txtFileName{*this, "txtFileName"};
    FileList File1{*this, "File1", "*.txt"};
    Label lblFileType{*this, "lblFileType", "List files of type:"};
    ComboBox cmbFileType{
        *this, "cmbFileType", {"*.txt (text files)", "*.csv (comma-delimited files)", "*.* (all files)"}};
    Label lblFolders{*this, "lblFolders", "Folders:"};
    Label lblFolder{*this, "lblFolder"};
    DirList Dir1{*this, "Dir1"};
    Label lblDrives{*this, "lblDrives", "Drives:"};
    DriveList Drive1{*this, "Drive1"};
    CommandButton cmdOK{*this, "cmdOK", "OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};
};

void cmdOK_Click(FrmSaveFile& form);
void cmdCancel_Click(FrmSaveFile& form);
void cmbFileType_Click(FrmSaveFile& form);

/// Shows the dialog with `proposedName` in its name box and waits. True if a name was confirmed, which is
/// then in `shell.SavePath`.
bool AskForSavePath(Services& services, ShellState& shell, const std::string& proposedName = {});

}  // namespace crownlab
