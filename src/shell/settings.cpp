#include "shell/settings.h"

#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "shell/shell_state.h"
#include "surfer/session.h"

namespace crownlab {

std::string SettingsPath(const ShellState& shell) { return JoinPath(shell.ProgramFolder, "Crownlab.ini"); }

SettingsLines ReadSettings(const ShellState& shell) {
    const std::string path = SettingsPath(shell);
    const std::string text = ReadWholeFile(path);
    FieldReader reader(text, path);
    SettingsLines lines;
    lines.DefaultDir = reader.ReadLine();
    lines.VersionWord = reader.ReadLine();
    return lines;
}

std::string ReadDefaultDir(const ShellState& shell) {
    const std::string path = SettingsPath(shell);
    const std::string text = ReadWholeFile(path);
    return std::string(FieldReader(text, path).ReadLine());
}

void SaveSettings(ShellState& shell) {
    shell.DefaultDir = ReadSettings(shell).DefaultDir;
    ResultFile file(*shell.Files, SettingsPath(shell));
    file.Line(shell.DefaultDir);
    if (shell.Surfer->SurferVersion == "SurferV6") {
        file.Line("SurverV6");
    } else if (shell.Surfer->SurferVersion == "SurferV8") {
        file.Line("SurverV8");
    }
    file.Commit();
    shell.Files->CloseAll();
}

void SaveDefaultDir(ShellState& shell, const std::string& folder) {
    const SettingsLines lines = ReadSettings(shell);
    shell.DefaultDir = lines.DefaultDir;
    shell.Surfer->SurferVersion = lines.VersionWord;
    ResultFile file(*shell.Files, SettingsPath(shell));
    file.Line(folder);
    file.Line(shell.Surfer->SurferVersion);
    file.Commit();
    shell.Files->CloseAll();
}

}  // namespace crownlab
