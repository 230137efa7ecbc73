#include "forms/form.h"

#include <stdexcept>
#include <utility>

#include "basis/failure.h"
#include "forms/window_table.h"

namespace crownlab {

Form::Form(Services& services, std::string name, std::string caption)
    : App(services), Name(std::move(name)), Caption(std::move(caption)) {}

void Form::RegisterControl(const std::string& name, ControlRef control) {
    if (!byName_.emplace(name, control).second) throw std::logic_error(Name + " has two controls named " + name);
    controls_.push_back(control);
}

const ControlRef* Form::Find(std::string_view control) const {
    const auto found = byName_.find(control);
    return found == byName_.end() ? nullptr : &found->second;
}

void Form::AddHandler(std::string_view handler, std::function<void(const EventArgs&)> run) {
    const std::string_view control = handler.substr(0, handler.rfind('_'));
    if (control != "Form" && Find(control) == nullptr) {
        throw std::logic_error(Name + " has no control for the handler " + std::string(handler));
    }
    handlers_[std::string(handler)] = std::move(run);
}

bool Form::HasHandler(std::string_view handler) const { return handlers_.find(handler) != handlers_.end(); }

void Fire(Form& form, const std::string& control, std::string_view event, const EventArgs& args) {
    form.App.Windows->Run(form, control + "_" + std::string(event), args);
}

void Fire(const Control& control, std::string_view event, const EventArgs& args) {
    Fire(*control.Owner, control.Name, event, args);
}

}  // namespace crownlab
