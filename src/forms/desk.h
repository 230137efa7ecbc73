#pragma once

#include <functional>
#include <string>
#include <vector>

#include "basis/failure.h"
#include "forms/form.h"

namespace crownlab {

/// Buttons of a message box, and what the person pressed.
enum class Button { Ok, Cancel, Yes, No };

std::string_view ButtonName(Button button);

/// What a box waits for when a person is to digitise points on a map: the front end offers to open it.
struct DigitiseOffer {
    std::string Grid;       ///< grid to be shown, empty if no box of this kind
    std::string PointFile;  ///< where the points are to be saved
};

struct MessageBox {
    std::string Text;
    std::string Title;  ///< empty: the desktop shows the program's name
    std::vector<Button> Buttons{Button::Ok};
    DigitiseOffer Digitise{};
};

/// How a handler meets the person. The desktop and the script player each make one.
///
/// During Ask, Yield and ShowModal other handlers may run. After each of them a handler keeps no pointer or
/// size from before: it fetches its arrays again and tests its indices.
class Desk {
public:
    virtual ~Desk() = default;

    /// Shows a box and waits for its answer.
    virtual Button Ask(const MessageBox& box) = 0;
    /// Lets waiting events of the person run.
    virtual void Yield() = 0;
    /// Shows what the control records hold now, without taking any input.
    virtual void Redraw() = 0;
    /// Shows a loaded window and returns when it has been unloaded; other windows refuse input meanwhile.
    virtual void ShowModal(Form& form) = 0;

    /// A window became visible or is to come to the front.
    virtual void FormShown(Form& form) = 0;
    /// A window left the table.
    virtual void FormUnloaded(Form& form) = 0;

    /// Brings a window of another program to the front, by process id or by the start of its title. False if
    /// there is none.
    virtual bool ActivateWindow(const std::string& processIdOrTitle) = 0;
    /// Sends key strokes to the window in front.
    virtual void SendKeys(const std::string& keys) = 0;
    virtual std::string ClipboardText() = 0;
    /// Offers a finished file to whatever opens files of its kind.
    virtual void OpenFile(const std::string& path) = 0;

    /// Says which failure ended which handler.
    virtual void ShowFailure(const Failure& failure) = 0;
};

/// A plain box with OK.
void Tell(Form& form, const std::string& text, const std::string& title = {});

/// Runs one act of the person as a front end does: a failure of its handlers is shown by the desk and ends
/// there. Returns false if there was one. `where` names the act ("frmCSVView.cmdReadCSV_Click") for a
/// failure outside any handler. Other exceptions are shown as InvalidCall, a lack of memory as OutOfMemory.
bool Dispatch(Desk& desk, const std::string& where, const std::function<void()>& act);

}  // namespace crownlab
