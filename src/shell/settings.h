#pragma once

#include <string>

namespace crownlab {

struct ShellState;

/// The two lines of Crownlab.ini.
struct SettingsLines {
    std::string DefaultDir;
    std::string VersionWord;
};

/// Path of Crownlab.ini in the application's own folder.
std::string SettingsPath(const ShellState& shell);

/// Reads both lines. FileNotFound if the file is missing, InputPastEnd if it has fewer than two lines.
SettingsLines ReadSettings(const ShellState& shell);

/// The first line alone: the folder that a tool's "Dir" button jumps to. Failures as above.
std::string ReadDefaultDir(const ShellState& shell);

/// Writes the settings after a choice of the version: keeps the first line, and as the second writes
/// "SurverV6" or "SurverV8" (so spelled: the next start doesn't know the word and falls back on version 8;
/// a version choice lasts until the program ends). With any other version no second line is written. Then
/// closes all files of the process. The file has to exist.
void SaveSettings(ShellState& shell);

/// Writes `folder` as the first line, copies the second through as it stands, and closes all files of the
/// process. The version in force becomes what the second line holds.
void SaveDefaultDir(ShellState& shell, const std::string& folder);

}  // namespace crownlab
