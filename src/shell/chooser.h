#pragma once

#include <string>

#include "forms/controls.h"

namespace crownlab {

struct ShellState;

/// The list controls by which a tool window lets a person choose a file. Each window has them under its
/// own names; this ties together the ones that belong to one another.
struct Chooser {
    DriveList& Drive;
    DirList& Dir;
    FileList& File;
    TextBox* Path = nullptr;  ///< shows the folder, where the window has such a box
    TextBox* Name = nullptr;  ///< shows the selected file name
};

/// A drive was chosen: the folder list goes there.
void DriveChosen(const Chooser& chooser);
/// A folder was chosen: the file list and the path box follow.
void FolderChosen(const Chooser& chooser);
/// A file was clicked: the name box shows it.
void FileChosen(const Chooser& chooser);
/// The "Dir" button: all lists go to the default folder. PathNotFound if that is no longer there.
void GoToDefaultDir(const ShellState& shell, const Chooser& chooser);

}  // namespace crownlab
