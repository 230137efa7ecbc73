#include "player/control_values.h"

#include <algorithm>
#include <cmath>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "forms/acts.h"
#include "forms/form.h"
#include "player/script.h"

namespace crownlab {
namespace {

std::string FullName(const Control& control) { return control.Owner->Name + "." + control.Name; }

[[noreturn]] void Refuse(const Control& control, const std::string& value) {
    throw ScriptError{FullName(control) + " can't be set to \"" + value + "\""};
}

std::string OnOff(bool on) { return on ? "on" : "off"; }

bool ParseOnOff(const Control& control, const std::string& value) {
    if (value != "on" && value != "off") Refuse(control, value);
    return value == "on";
}

int ParseWhole(const Control& control, const std::string& value) {
    const NumberPrefix number = ParseNumberPrefix(value);
    constexpr double limit = 1e9;
    if (number.Length == 0 || number.Length != value.size() || std::fabs(number.Value) > limit) Refuse(control, value);
    return static_cast<int>(RoundHalfEven(number.Value));
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : "|") + name;
    return text;
}

struct Show {
    std::string operator()(const Label* c) const { return c->Caption; }
    std::string operator()(const CommandButton* c) const { return c->Caption; }
    std::string operator()(const TextBox* c) const { return c->Text; }
    std::string operator()(const CheckBox* c) const { return OnOff(c->Checked); }
    std::string operator()(const OptionButton* c) const { return OnOff(c->Selected); }
    std::string operator()(const Frame* c) const { return c->Caption; }
    std::string operator()(const ComboBox* c) const { return c->Text(); }
    std::string operator()(const DriveList* c) const { return c->Drive; }
    std::string operator()(const DirList* c) const { return c->Path; }
    std::string operator()(FileList* c) const {
        Refresh(*c);
        return Joined(c->Entries);
    }
    std::string operator()(const PictureBox* c) const {
        return std::to_string(c->Width) + "x" + std::to_string(c->Height);
    }
    std::string operator()(const ProgressBar* c) const {
        return GeneralText(c->Value) + "/" + GeneralText(c->Max) + (c->Visible ? "" : " hidden");
    }
    std::string operator()(const ScrollBar* c) const { return std::to_string(c->Value); }
    std::string operator()(const Slider* c) const { return std::to_string(c->Value); }
    std::string operator()(const TabControl* c) const { return std::to_string(c->Index); }
    std::string operator()(const TabPage* c) const { return c->Caption; }
    std::string operator()(const MenuItem* c) const { return c->Checkable ? OnOff(c->Checked) : c->Caption; }
    std::string operator()(const VrmlView* c) const { return c->SceneFile; }
    std::string operator()(const Line* c) const { throw ScriptError{FullName(*c) + " has no value"}; }
};

struct Set {
    const std::string& Value;

    void operator()(TextBox* c) const { SetText(*c, Value); }
    void operator()(CheckBox* c) const { SetChecked(*c, ParseOnOff(*c, Value)); }
    void operator()(OptionButton* c) const {
        if (!ParseOnOff(*c, Value)) Refuse(*c, Value);
        SelectOption(*c);
    }
    void operator()(ComboBox* c) const {
        if (!Value.empty() && std::find(c->Items.begin(), c->Items.end(), Value) == c->Items.end()) Refuse(*c, Value);
        SelectEntry(*c, Value);
    }
    void operator()(DriveList* c) const { SetPath(*c, Value); }
    void operator()(DirList* c) const { SetPath(*c, Value); }
    void operator()(FileList* c) const {
        Refresh(*c);
        if (std::find(c->Entries.begin(), c->Entries.end(), Value) == c->Entries.end()) Refuse(*c, Value);
        SelectEntry(*c, Value);
    }
    void operator()(ScrollBar* c) const { SetValue(*c, ParseWhole(*c, Value)); }
    void operator()(Slider* c) const { SetValue(*c, ParseWhole(*c, Value)); }
    void operator()(TabControl* c) const {
        const int index = ParseWhole(*c, Value);
        if (index < 0 || index >= static_cast<int>(c->Pages.size())) Refuse(*c, Value);
        SelectPage(*c, index);
    }
    template <typename Other>
    void operator()(Other* c) const {
        Refuse(*c, Value);
    }
};

}  // namespace

std::string ShownValue(const ControlRef& control) { return std::visit(Show{}, control); }

void SetValueFromText(const ControlRef& control, const std::string& value) { std::visit(Set{value}, control); }

}  // namespace crownlab
