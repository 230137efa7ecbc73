#pragma once

#include <string>

#include "basis/result_file.h"
#include "forms/window_table.h"
#include "shell/shell_state.h"
#include "surfer/session.h"

namespace crownlab {

class Failure;

/// Everything that lives as long as the process: open files, settings, session, and the one instance of
/// each window. A front end makes one with its desk.
class Application {
public:
    /// `programFolder` is the folder in which Crownlab.ini lies.
    /// `objects` is where the mapping program is found.
    Application(Desk& desk, std::string programFolder, ActiveObjects& objects);
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    WindowTable& Windows() { return windows_; }
    ShellState& Shell() { return shell_; }
    FileTable& Files() { return files_; }

    /// Start-up: loads and shows the main window.
    void Start();

private:
    void AddMakers();

    FileTable files_;
    Session session_;
    ShellState shell_;
    Services services_;
    WindowTable windows_{services_};
};

/// True for the failures by which the program itself ends: at start-up, and of the menu item "New".
bool EndsProgram(const Failure& failure);

}  // namespace crownlab
