#include "shell/chooser.h"

#include "forms/acts.h"
#include "shell/settings.h"

namespace crownlab {

void DriveChosen(const Chooser& chooser) { SetPath(chooser.Dir, chooser.Drive.Drive); }

void FolderChosen(const Chooser& chooser) {
    SetPath(chooser.File, chooser.Dir.Path);
    if (chooser.Path != nullptr) chooser.Path->Text = chooser.Dir.Path;
}

void FileChosen(const Chooser& chooser) {
    if (chooser.Name != nullptr) chooser.Name->Text = chooser.File.FileName;
}

void GoToDefaultDir(const ShellState& shell, const Chooser& chooser) {
    const std::string folder = ReadDefaultDir(shell);
    constexpr std::size_t driveLength = 3;  // letter, colon, separator
    SetPath(chooser.Drive, folder.substr(0, driveLength));
    SetPath(chooser.Dir, folder);
    SetPath(chooser.File, chooser.Dir.Path);
    if (chooser.Path != nullptr) chooser.Path->Text = chooser.Dir.Path;
}

}  // namespace crownlab
