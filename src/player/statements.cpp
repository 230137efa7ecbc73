#include "player/statements.h"

#include <algorithm>
#include <array>

#include "application/application.h"
#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/text.h"
#include "forms/acts.h"
#include "player/control_values.h"
#include "shell/frm_startup.h"

namespace crownlab {
namespace {

int ParseYieldNumber(const std::string& word) {
    const NumberPrefix number = ParseNumberPrefix(word);
    constexpr double most = 1e9;
    if (number.Length != word.size() || number.Value < 1 || number.Value > most ||
        number.Value != static_cast<int>(number.Value)) {
        throw ScriptError{"\"" + word + "\" is not a count of yields"};
    }
    return static_cast<int>(number.Value);
}

double ParsePixel(const std::string& word) {
    const NumberPrefix number = ParseNumberPrefix(word);
    if (number.Length != word.size() || word.empty()) throw ScriptError{"\"" + word + "\" is not a position"};
    return number.Value;
}

Button ParseButton(const std::string& word) {
    for (const Button button : {Button::Ok, Button::Cancel, Button::Yes, Button::No}) {
        if (word == ButtonName(button)) return button;
    }
    throw ScriptError{"\"" + word + "\" is not a button"};
}

/// File and points behind the word at `first`.
DigitisedPoints ParsePoints(const std::vector<std::string>& words, std::size_t first) {
    if (words.size() <= first) throw ScriptError{"a file name is missing"};
    DigitisedPoints points{.File = words[first], .Points = {}};
    for (std::size_t i = first + 1; i < words.size(); ++i) {
        if (words[i].find(',') == std::string::npos) throw ScriptError{"\"" + words[i] + "\" is not a point x,y"};
        points.Points.push_back(words[i]);
    }
    return points;
}

/// What a click does something to by itself; all else takes a value.
bool CanBePressed(const ControlRef& control) {
    return std::holds_alternative<CommandButton*>(control) || std::holds_alternative<MenuItem*>(control) ||
           std::holds_alternative<Label*>(control) || std::holds_alternative<PictureBox*>(control);
}

/// A number from 1 of the line that holds byte `at`.
std::uint64_t LineOf(std::string_view text, std::size_t at) { return CountLines(text.substr(0, at)) + 1; }

}  // namespace

const std::vector<Player::StatementEntry>& Player::Statements() {
    static const std::vector<StatementEntry> table{
        {"program", 1, 1, "program DIR", &Player::DoProgram},
        {"folder", 1, 1, "folder DIR", &Player::DoFolder},
        {"start", 0, 0, "start", &Player::DoStart},
        {"open", 1, 1, "open FORM", &Player::DoOpen},
        {"close", 1, 1, "close FORM", &Player::DoClose},
        {"set", 2, 2, "set FORM.CONTROL VALUE", &Player::DoSet},
        {"press", 1, 1, "press FORM.CONTROL", &Player::DoPress},
        {"double", 1, 1, "double FORM.CONTROL", &Player::DoDouble},
        {"key", 2, 2, "key FORM.CONTROL NAME", &Player::DoKey},
        {"key-at-yield", 3, 3, "key-at-yield N FORM.CONTROL NAME", &Player::DoKeyAtYield},
        {"press-at-yield", 2, 2, "press-at-yield N FORM.CONTROL", &Player::DoPressAtYield},
        {"close-at-yield", 2, 2, "close-at-yield N FORM", &Player::DoCloseAtYield},
        {"move", 3, 3, "move FORM.PICTURE X Y", &Player::DoMove},
        {"answer", 1, -1, "answer BUTTON [write FILE X,Y ...]", &Player::DoAnswer},
        {"digitise", 1, -1, "digitise FILE X,Y ...", &Player::DoDigitise},
        {"surfer", 1, 1, "surfer on|off", &Player::DoSurfer},
        {"show", 1, 1, "show FORM.CONTROL", &Player::DoShow},
        {"save", 2, 2, "save FORM.PICTURE FILE", &Player::DoSave},
        {"expect", 2, 2, "expect FORM.CONTROL VALUE", &Player::DoExpect},
        {"expect-file", 2, 2, "expect-file FILE GOLDEN", &Player::DoExpectFile},
        {"expect-no-file", 1, 1, "expect-no-file FILE", &Player::DoExpectNoFile},
    };
    return table;
}

std::shared_ptr<Form> Player::FindForm(const std::string& name) {
    EnsureStarted();
    std::shared_ptr<Form> form = application_->Windows().Find(name);
    if (!form) throw ScriptError{"the window " + name + " is not open"};
    if (!modal_.empty() && modal_.back() != form.get()) {
        throw ScriptError{modal_.back()->Name + " waits for an answer; " + name + " can't be touched"};
    }
    return form;
}

Player::Target Player::Find(const std::string& name) {
    const std::size_t point = name.find('.');
    if (point == std::string::npos) throw ScriptError{"\"" + name + "\" is not FORM.CONTROL"};
    Target target{.Window = FindForm(name.substr(0, point)), .Control = nullptr, .ControlName = name.substr(point + 1)};
    target.Control = target.Window->Find(target.ControlName);
    return target;
}

/// As Find, for what a person does: the control has to be there, enabled and visible.
Player::Target Player::FindForPerson(const std::string& name) {
    Target target = Find(name);
    if (target.Control == nullptr) throw ScriptError{"there is no control " + name};
    if (!target.Window->Shown) throw ScriptError{"the window " + target.Window->Name + " is hidden"};
    if (!IsUsable(Base(*target.Control))) throw ScriptError{name + " is disabled or hidden"};
    return target;
}

std::string Player::ValueOf(const std::string& name) {
    const Target target = Find(name);
    if (target.Control == nullptr && target.ControlName == "MousePointer")
        return std::to_string(target.Window->MousePointer);
    if (target.Control == nullptr) throw ScriptError{"there is no control " + name};
    return ShownValue(*target.Control);
}

void Player::DoProgram(const Words& words) {
    if (application_) throw ScriptError{"program comes too late: a window is open"};
    if (!IsFolder(words[1])) throw ScriptError{"no folder " + words[1]};
    programFolder_ = AbsolutePath(words[1]);
}

void Player::DoFolder(const Words& words) { ChangeFolder(words[1]); }

void Player::DoStart(const Words&) { EnsureStarted(); }

void Player::DoOpen(const Words& words) {
    EnsureStarted();
    if (!modal_.empty()) FindForm(words[1]);
    if (words[1] == "frmStartup") {
        application_->Windows().Show("frmStartup");
        return;
    }
    for (const MenuWindow& entry : MenuWindows()) {
        if (words[1] != entry.Window) continue;
        const std::shared_ptr<Form> startup = application_->Windows().Find("frmStartup");
        Act("frmStartup." + std::string(entry.Item) + "_Click", [&] { Press(Base(*startup->Find(entry.Item))); });
        return;
    }
    throw ScriptError{"no menu item opens " + words[1]};
}

void Player::CloseForm(const std::string& name) {
    const std::shared_ptr<Form> form = FindForm(name);
    if (!form->Shown) throw ScriptError{"the window " + name + " is hidden"};
    // The main window lives as long as the process; its close box hides it.
    if (name == "frmStartup") {
        form->Shown = false;
    } else {
        Act(name + ".Form_Unload", [&] { application_->Windows().Unload(name); });
    }
}

void Player::DoClose(const Words& words) { CloseForm(words[1]); }

void Player::DoSet(const Words& words) {
    const Target target = FindForPerson(words[1]);
    Act(words[1] + "_Change", [&] { SetValueFromText(*target.Control, words[2]); });
}

void Player::DoPress(const Words& words) {
    const Target target = FindForPerson(words[1]);
    if (!CanBePressed(*target.Control)) throw ScriptError{words[1] + " can't be pressed; use set"};
    Act(words[1] + "_Click", [&] { Press(Base(*target.Control)); });
}

void Player::DoDouble(const Words& words) {
    const Target target = FindForPerson(words[1]);
    FileList* const* const files = std::get_if<FileList*>(target.Control);
    if (files != nullptr && (*files)->FileName.empty()) throw ScriptError{words[1] + " has no selected entry"};
    Act(words[1] + "_DblClick", [&] { DoubleClick(Base(*target.Control)); });
}

void Player::DoKey(const Words& words) {
    const Target target = FindForPerson(words[1]);
    Act(words[1] + "_KeyDown", [&] { PressKey(Base(*target.Control), words[2]); });
}

void Player::DoKeyAtYield(const Words& words) {
    desk_.QueueAtYield(ParseYieldNumber(words[1]), [this, words] { DoKey({"key", words[2], words[3]}); });
}

void Player::DoPressAtYield(const Words& words) {
    desk_.QueueAtYield(ParseYieldNumber(words[1]), [this, words] { DoPress({"press", words[2]}); });
}

void Player::DoCloseAtYield(const Words& words) {
    desk_.QueueAtYield(ParseYieldNumber(words[1]), [this, words] { CloseForm(words[2]); });
}

void Player::DoMove(const Words& words) {
    const Target target = FindForPerson(words[1]);
    PictureBox* const* const box = std::get_if<PictureBox*>(target.Control);
    if (box == nullptr) throw ScriptError{words[1] + " is not a picture box"};
    const double x = ParsePixel(words[2]);
    const double y = ParsePixel(words[3]);
    Act(words[1] + "_MouseMove", [&] { MoveMouse(**box, x, y); });
}

void Player::DoAnswer(const Words& words) {
    QueuedAnswer answer{.Pressed = ParseButton(words[1]), .Digitised = {}};
    if (words.size() > 2) {
        if (words[2] != "write") throw ScriptError{"usage: answer BUTTON [write FILE X,Y ...]"};
        answer.Digitised = ParsePoints(words, 3);
    }
    desk_.QueueAnswer(std::move(answer));
}

void Player::DoDigitise(const Words& words) { desk_.Digitise(ParsePoints(words, 1)); }

void Player::DoSurfer(const Words& words) {
    if (words[1] != "on" && words[1] != "off") throw ScriptError{"usage: surfer on|off"};
    objects_.SetFound(words[1] == "on");
}

void Player::DoShow(const Words& words) { print_("show " + words[1] + " = " + QuotedText(ValueOf(words[1]))); }

void Player::DoSave(const Words& words) {
    const Target target = Find(words[1]);
    PictureBox* const* const box = target.Control != nullptr ? std::get_if<PictureBox*>(target.Control) : nullptr;
    if (box == nullptr) throw ScriptError{words[1] + " is not a picture box"};
    if (!(*box)->Image) throw ScriptError{words[1] + " holds no picture"};
    SaveBitmap(files_, *(*box)->Image, words[2]);
}

void Player::DoExpect(const Words& words) {
    const std::string found = ValueOf(words[1]);
    if (found != words[2]) Fail("expected " + words[1] + " = " + QuotedText(words[2]) + ", found " + QuotedText(found));
}

void Player::DoExpectFile(const Words& words) {
    if (!IsFile(words[1])) Fail("expected file " + QuotedText(words[1]) + ", found none");
    const std::string found = ReadWholeFile(words[1]);
    const std::string golden = ReadWholeFile(words[2]);
    if (found == golden) return;
    const auto differ = std::mismatch(found.begin(), found.end(), golden.begin(), golden.end());
    const auto at = static_cast<std::size_t>(differ.first - found.begin());
    Fail("expected file " + QuotedText(words[1]) + " = " + QuotedText(words[2]) + ", found a difference at byte " +
         std::to_string(at) + ", line " + std::to_string(LineOf(found, at)));
}

void Player::DoExpectNoFile(const Words& words) {
    if (IsFile(words[1]) || IsFolder(words[1])) Fail("expected no file " + QuotedText(words[1]) + ", found one");
}

}  // namespace crownlab
