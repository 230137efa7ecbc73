#pragma once

#include <string>

#include "forms/controls.h"

namespace crownlab {

/// What a person does to a control: each stores the new state, then runs the registered handler. A Change
/// runs only if the value differs, a selection's Click always. Both front ends use these, and handlers
/// where an act of theirs is to have the effects of a person's.

/// Types a text; Change.
void SetText(TextBox& box, const std::string& text);
/// Ticks or clears; Click if the state differs.
void SetChecked(CheckBox& box, bool checked);
/// Selects an option and clears the others of its parent; Click.
void SelectOption(OptionButton& option);
/// Selects the entry of that index, -1 for none; Click. InvalidCall outside the list.
void SelectEntry(ComboBox& box, int index);
/// Selects the entry with that text, "" for none. InvalidCall if there is none.
void SelectEntry(ComboBox& box, const std::string& text);
/// Moves a bar or slider; limited to its range; Change if the value differs.
void SetValue(ScrollBar& bar, int value);
void SetValue(Slider& slider, int value);
/// Turns to a page; Click. InvalidCall if there is no such page.
void SelectPage(TabControl& tabs, int index);

/// Chooses a drive; Change. Where there are no drives any absolute path, or beginning of one, means "/".
/// PathNotFound for an empty text or a drive that isn't there.
void SetPath(DriveList& drives, const std::string& drive);
/// Chooses a folder; Change. PathNotFound if there is no such folder.
void SetPath(DirList& folders, const std::string& path);

/// Shows another folder or pattern, reads the names and selects none. PathNotFound.
void SetPath(FileList& files, const std::string& path);
void SetPattern(FileList& files, const std::string& pattern);
/// Reads the names anew; a selected name that is still there stays selected.
void Refresh(FileList& files);
/// Has the folders of a list read anew.
void Refresh(DirList& folders);
/// Selects a name of the list (read anew); Click. FileNotFound if it isn't in it.
void SelectEntry(FileList& files, const std::string& name);

/// Presses a button, menu item, label or picture box; Click.
void Press(const Control& control);
/// DblClick.
void DoubleClick(const Control& control);
/// KeyDown with the key's name ("Escape").
void PressKey(const Control& control, const std::string& key);
/// MouseMove at a position in display pixels from the box's upper left corner.
void MoveMouse(const PictureBox& box, double x, double y);

}  // namespace crownlab
