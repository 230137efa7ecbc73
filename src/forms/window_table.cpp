#include "forms/window_table.h"

#include <algorithm>
#include <utility>

#include "basis/failure.h"
#include "forms/desk.h"

namespace crownlab {

void WindowTable::AddMaker(const std::string& name, Maker maker) { makers_[name] = std::move(maker); }

std::shared_ptr<Form> WindowTable::Load(const std::string& name) {
    if (auto form = Find(name)) return form;
    const auto maker = makers_.find(name);
    if (maker == makers_.end()) throw Failure(FailureKind::ObjectNotSet, name);
    std::shared_ptr<Form> form = maker->second();
    loaded_[name] = form;
    try {
        Fire(*form, "Form", "Load");
    } catch (...) {
        // A window whose load failed never came up.
        loaded_.erase(name);
        throw;
    }
    return form;
}

void WindowTable::Show(const std::string& name) {
    const std::shared_ptr<Form> form = Load(name);
    form->Shown = true;
    services_.Screen->FormShown(*form);
}

void WindowTable::Unload(const std::string& name) {
    const std::shared_ptr<Form> form = Find(name);
    if (!form) return;
    Fire(*form, "Form", "Unload");
    loaded_.erase(name);
    form->Shown = false;
    services_.Screen->FormUnloaded(*form);
}

std::shared_ptr<Form> WindowTable::Find(std::string_view name) const {
    const auto found = loaded_.find(name);
    return found == loaded_.end() ? nullptr : found->second;
}

std::vector<std::shared_ptr<Form>> WindowTable::Loaded() const {
    std::vector<std::shared_ptr<Form>> forms;
    for (const auto& [name, form] : loaded_) forms.push_back(form);
    return forms;
}

std::vector<std::string> WindowTable::Names() const {
    std::vector<std::string> names;
    for (const auto& [name, maker] : makers_) names.push_back(name);
    return names;
}

const ControlRef* WindowTable::FindControl(const std::string& form, const std::string& control) {
    return Load(form)->Find(control);
}

void WindowTable::FailToFind(const std::string& form, const std::string& control) {
    throw Failure(FailureKind::ObjectNotSet, form + "." + control);
}

std::shared_ptr<Form> WindowTable::KeepAlive(const Form& form) const {
    const auto isForm = [&form](const std::shared_ptr<Form>& held) { return held.get() == &form; };
    const auto loaded =
        std::find_if(loaded_.begin(), loaded_.end(), [&](const auto& entry) { return isForm(entry.second); });
    if (loaded != loaded_.end()) return loaded->second;
    const auto busy = std::find_if(busy_.begin(), busy_.end(), isForm);
    return busy != busy_.end() ? *busy : nullptr;
}

void WindowTable::Run(Form& form, const std::string& handler, const EventArgs& args) {
    const auto found = form.handlers_.find(handler);
    if (found == form.handlers_.end()) return;
    struct Running {
        WindowTable& Table;
        explicit Running(WindowTable& table, std::shared_ptr<Form> held) : Table(table) {
            Table.busy_.push_back(std::move(held));
            ++Table.running_;
        }
        ~Running() {
            --Table.running_;
            Table.busy_.pop_back();
        }
    } running(*this, KeepAlive(form));
    try {
        found->second(args);
    } catch (Failure& failure) {
        if (failure.Handler().empty()) failure.SetHandler(form.Name + "." + handler);
        throw;
    }
}

}  // namespace crownlab
