#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "forms/raster.h"

namespace crownlab {

struct Form;
struct Frame;
struct TabPage;
struct Control;

/// Where a control lies: its form, a frame or a tab page. Made from any of the three.
struct ParentRef {
    ParentRef(Form& form) : Owner(&form) {}
    ParentRef(Frame& frame);
    ParentRef(TabPage& page);

    Form* Owner;
    Control* Container = nullptr;  ///< frame or tab page; none if the control lies on the form itself
};

/// What all control records share. A control registers itself with its form by name, so records are
/// neither copied nor moved. Assigning a field fires nothing; a person's act goes through `forms/acts.h`.
struct Control {
    Control(ParentRef parent, std::string name)
        : Owner(parent.Owner), Container(parent.Container), Name(std::move(name)) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form* Owner;
    Control* Container;
    std::string Name;
    bool Enabled = true;
    bool Visible = true;
};

/// False if the control or a container around it is disabled or hidden.
bool IsUsable(const Control& control);

struct Label : Control {
    Label(ParentRef parent, std::string name, std::string caption = {});
    std::string Caption;
    /// Red, green, blue as red + 256 green + 65536 blue; kButtonTextColour is the system's own.
    std::uint32_t ForeColour;
};
inline constexpr std::uint32_t kButtonTextColour = 0x80000012u;
inline constexpr std::uint32_t kRed = 255;

struct CommandButton : Control {
    CommandButton(ParentRef parent, std::string name, std::string caption = {});
    std::string Caption;
};

struct TextBox : Control {
    TextBox(ParentRef parent, std::string name, std::string text = {});
    std::string Text;
    /// The text as a number (0 if it starts with none).
    double Number() const;
};

struct CheckBox : Control {
    CheckBox(ParentRef parent, std::string name, std::string caption, bool checked = false);
    std::string Caption;
    bool Checked;
};

/// Of the option buttons of one parent, one at most is selected.
struct OptionButton : Control {
    OptionButton(ParentRef parent, std::string name, std::string caption, bool selected = false);
    std::string Caption;
    bool Selected;
};

struct Frame : Control {
    Frame(ParentRef parent, std::string name, std::string caption = {});
    std::string Caption;
};

struct ComboBox : Control {
    ComboBox(ParentRef parent, std::string name, std::vector<std::string> items = {}, int selected = -1);
    std::vector<std::string> Items;
    int Selected;  ///< index from 0, -1 for none
    std::string Text() const;
};

struct DriveList : Control {
    DriveList(ParentRef parent, std::string name);
    std::string Drive;
};

struct DirList : Control {
    DirList(ParentRef parent, std::string name);
    std::string Path;             ///< absolute, without a separator at the end ("/" excepted)
    std::uint64_t ReadCount = 0;  ///< rises with each wish to have the folders in it read anew
};

struct FileList : Control {
    FileList(ParentRef parent, std::string name, std::string pattern = "*.*");
    std::string Path;
    std::string Pattern;
    std::vector<std::string> Entries;  ///< as last read; by name without regard to case
    std::string FileName;              ///< selected entry, empty for none
};

/// A picture box. What it shows is a raster of one pixel a cell, which the screen stretches.
struct PictureBox : Control {
    PictureBox(ParentRef parent, std::string name, int width = 0, int height = 0);
    int Width;   ///< display pixels
    int Height;  ///< display pixels
    /// What was drawn last; shared, as the off-screen box and a visible one often hold the same raster.
    std::shared_ptr<const Raster> Image;
    /// Columns and rows of `Image` that fill the box, its margin left out.
    int ImageColumns = 0;
    int ImageRows = 0;
    bool OffScreen = false;  ///< a drawing surface only; it has no place on the window
};

struct ProgressBar : Control {
    ProgressBar(ParentRef parent, std::string name, bool visible = false);
    double Value = 0;
    double Max = 100;
};

struct ScrollBar : Control {
    ScrollBar(ParentRef parent, std::string name, int min, int max);
    int Min;
    int Max;
    int Value;
};

struct Slider : Control {
    Slider(ParentRef parent, std::string name);
    int Min = 0;
    int Max = 10;
    int Value = 0;
    int Step = 1;  ///< by how much a click beside the handle or a page key moves it
};

struct TabControl : Control {
    TabControl(ParentRef parent, std::string name);
    std::vector<TabPage*> Pages;
    int Index = 0;
};

struct TabPage : Control {
    TabPage(TabControl& tabs, std::string name, std::string caption);
    std::string Caption;
    TabControl* Tabs;
};

struct MenuItem : Control {
    MenuItem(ParentRef parent, std::string name, std::string caption, bool checkable = false, bool checked = false);
    /// An item of the menu `menu`.
    MenuItem(MenuItem& menu, std::string name, std::string caption, bool checkable = false, bool checked = false);
    std::string Caption;
    bool Checkable;
    bool Checked;
};

/// A decorative line.
struct Line : Control {
    Line(ParentRef parent, std::string name);
};

/// A view of a VRML file. Where it can't be drawn it says so; its record works all the same.
struct VrmlView : Control {
    VrmlView(ParentRef parent, std::string name);
    std::string SceneFile;        ///< file to show, empty for none
    std::uint64_t LoadCount = 0;  ///< rises with each load, so that the same file is read anew
    std::uint64_t FitCount = 0;   ///< rises with each command "Fit"
};

using ControlRef = std::variant<Label*, CommandButton*, TextBox*, CheckBox*, OptionButton*, Frame*, ComboBox*,
                                DriveList*, DirList*, FileList*, PictureBox*, ProgressBar*, ScrollBar*, Slider*,
                                TabControl*, TabPage*, MenuItem*, Line*, VrmlView*>;

/// The part that all kinds share.
Control& Base(const ControlRef& control);

}  // namespace crownlab
