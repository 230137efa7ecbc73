#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "forms/controls.h"

namespace crownlab {

class Desk;
class FileTable;
class WindowTable;

/// What every window works with; owned by the application.
struct Services {
    WindowTable* Windows = nullptr;
    Desk* Screen = nullptr;
    FileTable* Files = nullptr;
};

/// Mouse pointers a window may ask for.
inline constexpr int kPointerNormal = 0;
inline constexpr int kPointerHourglass = 11;

/// What came with an event: a key's name, or a mouse position in display pixels.
struct EventArgs {
    std::string Key;
    double X = 0;
    double Y = 0;
};

/// The base of all windows: caption, pointer, controls by name, handlers by name.
///
/// Handlers are free functions named control_event ("cmdExit_Click") and registered under that name. The
/// window itself has the events Form_Load and Form_Unload.
struct Form {
    Form(Services& services, std::string name, std::string caption);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    Services& App;
    std::string Name;
    std::string Caption;
    int MousePointer = kPointerNormal;
    bool Shown = false;
    bool Modal = false;

    template <typename Control>
    void Register(Control* control) {
        RegisterControl(control->Name, control);
    }

    /// The control of that name, nullptr if there is none.
    const ControlRef* Find(std::string_view control) const;
    /// All controls in the order of their declaration.
    const std::vector<ControlRef>& Controls() const { return controls_; }

    /// Ties a handler to its event: a function or lambda that takes its window. The part of the name before the
    /// last underscore has to be a control.
    template <typename Run>
    void On(std::string_view handler, Run run) {
        AddHandler(handler, [this, run](const EventArgs&) { run(AsWindow{*this}); });
    }
    template <typename Run>
    void OnKey(std::string_view handler, Run run) {
        AddHandler(handler, [this, run](const EventArgs& args) { run(AsWindow{*this}, args.Key); });
    }
    template <typename Run>
    void OnMouse(std::string_view handler, Run run) {
        AddHandler(handler, [this, run](const EventArgs& args) { run(AsWindow{*this}, args.X, args.Y); });
    }

    /// A handler that needs more than its window.
    void OnAny(std::string_view handler, std::function<void(const EventArgs&)> run) {
        AddHandler(handler, std::move(run));
    }

    bool HasHandler(std::string_view handler) const;

private:
    friend class WindowTable;
    /// This form as whatever window its handler takes.
    struct AsWindow {
        Form& Self;
        template <typename Window>
        operator Window&() const {
            return static_cast<Window&>(Self);
        }
    };
    void RegisterControl(const std::string& name, ControlRef control);
    void AddHandler(std::string_view handler, std::function<void(const EventArgs&)> run);

    std::vector<ControlRef> controls_;
    std::map<std::string, ControlRef, std::less<>> byName_;
    std::map<std::string, std::function<void(const EventArgs&)>, std::less<>> handlers_;
};

/// Runs the event `event` of `control` if the window has a handler for it. A failure of the handler passes
/// through, marked with the innermost handler's name. A window unloaded meanwhile lives until it returns.
void Fire(Form& form, const std::string& control, std::string_view event, const EventArgs& args = {});
void Fire(const Control& control, std::string_view event, const EventArgs& args = {});

}  // namespace crownlab
