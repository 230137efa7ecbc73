#pragma once

#include <string>

namespace crownlab {

class FileTable;
struct Session;

/// What the shell's routines keep for the whole process.
struct ShellState {
    std::string ProgramFolder;  ///< the application's own folder, in which Crownlab.ini lies
    std::string DefaultDir;     ///< first line of Crownlab.ini as last read
    bool SaveOK = false;        ///< frmSaveFile was confirmed
    std::string SavePath;       ///< full path chosen there
    Session* Surfer = nullptr;
    FileTable* Files = nullptr;
};

}  // namespace crownlab
