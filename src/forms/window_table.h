#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/form.h"

namespace crownlab {

/// The windows of the program: one instance of each at most, under its own name. This is how windows reach
/// one another.
class WindowTable {
public:
    using Maker = std::function<std::shared_ptr<Form>()>;

    explicit WindowTable(Services& services) : services_(services) {}
    WindowTable(const WindowTable&) = delete;
    WindowTable& operator=(const WindowTable&) = delete;

    /// Tells how the window `name` is made.
    void AddMaker(const std::string& name, Maker maker);
    bool HasMaker(std::string_view name) const { return makers_.find(name) != makers_.end(); }

    /// The window, made and its load handler run, hidden, if it isn't loaded. ObjectNotSet if no window has that name.
    std::shared_ptr<Form> Load(const std::string& name);
    /// Loads the window if need be and brings it to the front, not modally.
    void Show(const std::string& name);
    /// Runs the unload handler and takes the window out of the table. It is destroyed when its last running
    /// handler has returned. Nothing happens if it isn't loaded.
    void Unload(const std::string& name);
    bool IsLoaded(std::string_view name) const { return loaded_.find(name) != loaded_.end(); }

    /// The loaded window, nullptr if it isn't loaded.
    std::shared_ptr<Form> Find(std::string_view name) const;
    /// The loaded windows by name.
    std::vector<std::shared_ptr<Form>> Loaded() const;
    /// Names of all windows that can be made.
    std::vector<std::string> Names() const;

    /// A control of another window, which is loaded if need be. ObjectNotSet if there is none of that kind.
    template <typename Kind>
    Kind& Get(const std::string& form, const std::string& control) {
        const ControlRef* const found = FindControl(form, control);
        Kind* const* const record = found != nullptr ? std::get_if<Kind*>(found) : nullptr;
        if (record == nullptr) FailToFind(form, control);
        return **record;
    }

    /// Runs the handler if the window has it. See Fire.
    void Run(Form& form, const std::string& handler, const EventArgs& args);
    /// Handlers running now, one inside the other.
    int RunningHandlers() const { return running_; }

private:
    const ControlRef* FindControl(const std::string& form, const std::string& control);
    [[noreturn]] static void FailToFind(const std::string& form, const std::string& control);
    std::shared_ptr<Form> KeepAlive(const Form& form) const;

    Services& services_;
    std::map<std::string, Maker, std::less<>> makers_;
    std::map<std::string, std::shared_ptr<Form>, std::less<>> loaded_;
    /// Windows with a running handler: unloaded ones live on in here.
    std::vector<std::shared_ptr<Form>> busy_;
    int running_ = 0;
};

}  // namespace crownlab
