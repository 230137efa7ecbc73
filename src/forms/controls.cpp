#include "forms/controls.h"

#include <utility>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "forms/form.h"

namespace crownlab {
namespace {

/// The drive of a path: on a platform without drives the root is the only one.
std::string DriveOf(const std::string& path) {
#ifdef _WIN32
    return path.substr(0, 3);
#else
    (void)path;
    return "/";
#endif
}

}  // namespace

ParentRef::ParentRef(Frame& frame) : Owner(frame.Owner), Container(&frame) {}
ParentRef::ParentRef(TabPage& page) : Owner(page.Owner), Container(&page) {}

bool IsUsable(const Control& control) {
    for (const Control* c = &control; c != nullptr; c = c->Container) {
        if (!c->Enabled || !c->Visible) return false;
    }
    return true;
}

Label::Label(ParentRef parent, std::string name, std::string caption)
    : Control(parent, std::move(name)), Caption(std::move(caption)), ForeColour(kButtonTextColour) {
    Owner->Register(this);
}

CommandButton::CommandButton(ParentRef parent, std::string name, std::string caption)
    : Control(parent, std::move(name)), Caption(std::move(caption)) {
    Owner->Register(this);
}

TextBox::TextBox(ParentRef parent, std::string name, std::string text)
    : Control(parent, std::move(name)), Text(std::move(text)) {
    Owner->Register(this);
}

double TextBox::Number() const { return TextBoxNumber(Text); }

CheckBox::CheckBox(ParentRef parent, std::string name, std::string caption, bool checked)
    : Control(parent, std::move(name)), Caption(std::move(caption)), Checked(checked) {
    Owner->Register(this);
}

OptionButton::OptionButton(ParentRef parent, std::string name, std::string caption, bool selected)
    : Control(parent, std::move(name)), Caption(std::move(caption)), Selected(selected) {
    Owner->Register(this);
}

Frame::Frame(ParentRef parent, std::string name, std::string caption)
    : Control(parent, std::move(name)), Caption(std::move(caption)) {
    Owner->Register(this);
}

ComboBox::ComboBox(ParentRef parent, std::string name, std::vector<std::string> items, int selected)
    : Control(parent, std::move(name)), Items(std::move(items)), Selected(selected) {
    Owner->Register(this);
}

std::string ComboBox::Text() const {
    const bool valid = Selected >= 0 && Selected < static_cast<int>(Items.size());
    return valid ? Items[static_cast<std::size_t>(Selected)] : std::string();
}

DriveList::DriveList(ParentRef parent, std::string name)
    : Control(parent, std::move(name)), Drive(DriveOf(CurrentFolder())) {
    Owner->Register(this);
}

DirList::DirList(ParentRef parent, std::string name) : Control(parent, std::move(name)), Path(CurrentFolder()) {
    Owner->Register(this);
}

FileList::FileList(ParentRef parent, std::string name, std::string pattern)
    : Control(parent, std::move(name)), Path(CurrentFolder()), Pattern(std::move(pattern)) {
    Owner->Register(this);
    Entries = ListFiles(Path, Pattern);
}

PictureBox::PictureBox(ParentRef parent, std::string name, int width, int height)
    : Control(parent, std::move(name)), Width(width), Height(height) {
    Owner->Register(this);
}

ProgressBar::ProgressBar(ParentRef parent, std::string name, bool visible) : Control(parent, std::move(name)) {
    Visible = visible;
    Owner->Register(this);
}

ScrollBar::ScrollBar(ParentRef parent, std::string name, int min, int max)
    : Control(parent, std::move(name)), Min(min), Max(max), Value(min) {
    Owner->Register(this);
}

Slider::Slider(ParentRef parent, std::string name) : Control(parent, std::move(name)) { Owner->Register(this); }

TabControl::TabControl(ParentRef parent, std::string name) : Control(parent, std::move(name)) { Owner->Register(this); }

TabPage::TabPage(TabControl& tabs, std::string name, std::string caption)
    : Control(ParentRef(*tabs.Owner), std::move(name)), Caption(std::move(caption)), Tabs(&tabs) {
    Container = &tabs;
    tabs.Pages.push_back(this);
    Owner->Register(this);
}

MenuItem::MenuItem(ParentRef parent, std::string name, std::string caption, bool checkable, bool checked)
    : Control(parent, std::move(name)), Caption(std::move(caption)), Checkable(checkable), Checked(checked) {
    Owner->Register(this);
}

MenuItem::MenuItem(MenuItem& menu, std::string name, std::string caption, bool checkable, bool checked)
    : MenuItem(ParentRef(*menu.Owner), std::move(name), std::move(caption), checkable, checked) {
    Container = &menu;
}

Line::Line(ParentRef parent, std::string name) : Control(parent, std::move(name)) { Owner->Register(this); }

VrmlView::VrmlView(ParentRef parent, std::string name) : Control(parent, std::move(name)) { Owner->Register(this); }

Control& Base(const ControlRef& control) {
    return *std::visit([](auto* c) -> Control* { return c; }, control);
}

}  // namespace crownlab
