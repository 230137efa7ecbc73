#pragma once

#include <string>

namespace crownlab {

class WindowTable;

/// What the tools share about the mapping program Surfer.
struct Session {
    /// "SurferV6" or "SurferV8"; for a short time whatever the second line of the settings file holds.
    std::string SurferVersion;
};

/// The automation class of the version that is checked in the menus of frmStartup (loaded if it has to be):
/// "Surfer.APP" for version 6, "Surfer.Application" for version 8. Puts `session.SurferVersion` right.
/// With neither checked the result is empty and the version is left alone.
std::string SurferClassName(Session& session, WindowTable& windows);

}  // namespace crownlab
