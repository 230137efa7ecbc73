#pragma once

#include <array>
#include <string>

#include "surfer/automation.h"

namespace crownlab {

struct Services;
class Desk;
class WindowTable;

/// The shape of a grid as the tools share it: ten numbers with indices from 1.
///
/// 1 columns, 2 to 4 x minimum, maximum and spacing, 5 rows, 6 to 8 the same of y, 9 and 10 lowest and highest z of
/// all grids read so far in this run, with 0 among them.
class GridInfo {
public:
    double operator()(int index) const { return values_[static_cast<std::size_t>(index) - 1]; }
    double& operator()(int index) { return values_[static_cast<std::size_t>(index) - 1]; }

private:
    std::array<double, 10> values_{};
};

/// What the tools share about the mapping program Surfer.
struct Session {
    /// "SurferV6" or "SurferV8"; for a short time whatever the second line of the settings file holds.
    std::string SurferVersion;
    /// Where running programs are found.
    ActiveObjects* Objects = nullptr;
    /// The program as the point cloud window, the batch functions and the grid's shape use it.
    LateBound SurferApp;
    GridInfo Info;
    /// Nodes in a row of the last grid that had a second row: one without is taken to be as wide.
    double KeptColumns = 0;
    /// Highest and lowest z over all grids whose shape was read; they start at 0 and are never reset.
    double KeptZMin = 0;
    double KeptZMax = 0;

    bool IsSix() const { return SurferVersion == "SurferV6"; }
    bool IsEight() const { return SurferVersion == "SurferV8"; }
};

/// The automation class of the version that is checked in the menus of frmStartup (loaded if it has to be):
/// "Surfer.APP" for version 6, "Surfer.Application" for version 8. Puts `session.SurferVersion` right.
/// With neither checked the result is empty and the version is left alone.
std::string SurferClassName(Session& session, WindowTable& windows);

/// The running program of the chosen version. AutomationFailed if none is found.
LateBound AttachSurfer(Session& session, WindowTable& windows);

/// The start of a tool that has a check box "Start new Surfer (v8)": attaches, or with `startNew` creates a session,
/// under version 8 with a plot document. Version 8 is made visible; version 6 is visible already.
LateBound PrepareSurfer(Session& session, WindowTable& windows, bool startNew);

/// The menu item that starts the program: a new session, under version 8 with a plot document standing open.
void StartSurfer(Session& session, WindowTable& windows);

/// 0.2 seconds of the clock, in which waiting events run.
void Pause(Desk& desk);

/// Saves the report that stands open in the program as `dir`Report`tag`.txt, by key strokes; there is no other way
/// to it. A file of that name is made first where there is none, so that the program always asks about overwriting
/// and the answer is always needed. Whether the keys arrived can't be known. Returns the file's name.
std::string CaptureReport(Services& app, const std::string& dir, const std::string& tag);

}  // namespace crownlab
