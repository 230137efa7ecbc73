#include "forms/acts.h"

#include <algorithm>

#include "basis/failure.h"
#include "basis/paths.h"
#include "forms/form.h"

namespace crownlab {
namespace {

/// The drive that `text` chooses, as the list shows it.
std::string TakenDrive(const std::string& text) {
#ifdef _WIN32
    const std::string drive = text.substr(0, 2) + kPathSeparator;
    if (text.empty() || !IsFolder(drive)) throw Failure(FailureKind::PathNotFound, "drive \"" + text + "\"");
    return drive;
#else
    const bool absolute = !text.empty() && text.front() == kPathSeparator;
    if (!absolute) throw Failure(FailureKind::PathNotFound, "drive \"" + text + "\"");
    return std::string(1, kPathSeparator);
#endif
}

template <typename Bar>
void Move(Bar& bar, int value) {
    const int limited = std::clamp(value, std::min(bar.Min, bar.Max), std::max(bar.Min, bar.Max));
    if (bar.Value == limited) return;
    bar.Value = limited;
    Fire(bar, "Change");
}

}  // namespace

void SetText(TextBox& box, const std::string& text) {
    if (box.Text == text) return;
    box.Text = text;
    Fire(box, "Change");
}

void SetChecked(CheckBox& box, bool checked) {
    if (box.Checked == checked) return;
    box.Checked = checked;
    Fire(box, "Click");
}

void SelectOption(OptionButton& option) {
    for (const ControlRef& other : option.Owner->Controls()) {
        OptionButton* const* const sibling = std::get_if<OptionButton*>(&other);
        if (sibling != nullptr && (*sibling)->Container == option.Container) (*sibling)->Selected = false;
    }
    option.Selected = true;
    Fire(option, "Click");
}

void SelectEntry(ComboBox& box, int index) {
    if (index < -1 || index >= static_cast<int>(box.Items.size())) throw Failure(FailureKind::InvalidCall, box.Name);
    box.Selected = index;
    Fire(box, "Click");
}

void SelectEntry(ComboBox& box, const std::string& text) {
    if (text.empty()) return SelectEntry(box, -1);
    const auto found = std::find(box.Items.begin(), box.Items.end(), text);
    if (found == box.Items.end()) throw Failure(FailureKind::InvalidCall, box.Name + " has no entry \"" + text + "\"");
    SelectEntry(box, static_cast<int>(found - box.Items.begin()));
}

void SetValue(ScrollBar& bar, int value) { Move(bar, value); }
void SetValue(Slider& slider, int value) { Move(slider, value); }

void SelectPage(TabControl& tabs, int index) {
    if (index < 0 || index >= static_cast<int>(tabs.Pages.size())) throw Failure(FailureKind::InvalidCall, tabs.Name);
    tabs.Index = index;
    Fire(tabs, "Click");
}

void SetPath(DriveList& drives, const std::string& drive) {
    const std::string taken = TakenDrive(drive);
    if (drives.Drive == taken) return;
    drives.Drive = taken;
    Fire(drives, "Change");
}

void SetPath(DirList& folders, const std::string& path) {
    if (path.empty() || !IsFolder(path)) throw Failure(FailureKind::PathNotFound, "folder \"" + path + "\"");
    const std::string absolute = AbsolutePath(path);
    if (folders.Path == absolute) return;
    folders.Path = absolute;
    Fire(folders, "Change");
}

void SetPath(FileList& files, const std::string& path) {
    if (path.empty() || !IsFolder(path)) throw Failure(FailureKind::PathNotFound, "folder \"" + path + "\"");
    files.Path = AbsolutePath(path);
    files.FileName.clear();
    Refresh(files);
}

void SetPattern(FileList& files, const std::string& pattern) {
    files.Pattern = pattern;
    files.FileName.clear();
    Refresh(files);
}

void Refresh(FileList& files) {
    files.Entries = ListFiles(files.Path, files.Pattern);
    const bool stillThere =
        std::find(files.Entries.begin(), files.Entries.end(), files.FileName) != files.Entries.end();
    if (!stillThere) files.FileName.clear();
}

void Refresh(DirList& folders) { ++folders.ReadCount; }

void SelectEntry(FileList& files, const std::string& name) {
    Refresh(files);
    if (std::find(files.Entries.begin(), files.Entries.end(), name) == files.Entries.end()) {
        throw Failure(FailureKind::FileNotFound, JoinPath(files.Path, name));
    }
    files.FileName = name;
    Fire(files, "Click");
}

void Press(const Control& control) { Fire(control, "Click"); }
void DoubleClick(const Control& control) { Fire(control, "DblClick"); }
void PressKey(const Control& control, const std::string& key) { Fire(control, "KeyDown", {.Key = key}); }
void MoveMouse(const PictureBox& box, double x, double y) { Fire(box, "MouseMove", {.Key = {}, .X = x, .Y = y}); }

}  // namespace crownlab
