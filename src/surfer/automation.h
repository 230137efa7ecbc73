#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace crownlab {

class AutomationObject;

/// An object of the other program.
using ObjectRef = std::shared_ptr<AutomationObject>;

/// A position that isn't given.
struct Absent {
    friend bool operator==(const Absent&, const Absent&) = default;
};

/// A table of numbers, row by row.
struct NumberMatrix {
    int Rows = 0;
    int Columns = 0;
    std::vector<double> Values;
    friend bool operator==(const NumberMatrix&, const NumberMatrix&) = default;
};

/// An array that the called member fills; its first element has index 1 there.
using NumberArray = std::shared_ptr<std::vector<double>>;

/// What goes into a call and comes back from one.
using Value = std::variant<Absent, bool, double, std::string, NumberMatrix, NumberArray, ObjectRef>;

/// A value with the name of its argument; without a name it stands at its position.
struct Argument {
    std::string Name;
    Value Content;

    Argument(Value content) : Content(std::move(content)) {}
    Argument(std::string name, Value content) : Name(std::move(name)), Content(std::move(content)) {}
    Argument(const char* text) : Content(std::string(text)) {}
    Argument(const std::string& text) : Content(text) {}
    Argument(std::string name, const char* text) : Name(std::move(name)), Content(std::string(text)) {}
    Argument(std::string name, const std::string& text) : Name(std::move(name)), Content(text) {}
    Argument(bool flag) : Content(flag) {}
    Argument(std::string name, bool flag) : Name(std::move(name)), Content(flag) {}
    Argument(double number) : Content(number) {}
    Argument(std::string name, double number) : Name(std::move(name)), Content(number) {}
    Argument(int number) : Content(static_cast<double>(number)) {}
    Argument(std::string name, int number) : Name(std::move(name)), Content(static_cast<double>(number)) {}
    Argument(Absent) {}
};

/// Arguments in call order.
using Arguments = std::vector<Argument>;

/// An object of the other program as the table of active objects gives it: members by name, without regard to
/// case. Both throw AutomationFailed.
class AutomationObject {
public:
    virtual ~AutomationObject() = default;
    /// Calls the method, or reads the property (with its index, if it has one).
    virtual Value Invoke(std::string_view member, const Arguments& arguments) = 0;
    /// Sets the property.
    virtual void Assign(std::string_view member, const Value& value) = 0;
};

/// Takes the lines of the trace.
using TraceSink = std::function<void(const std::string& line)>;

/// A reached object, with the path by which it was reached. Every use of one that holds nothing is ObjectNotSet.
class LateBound {
public:
    LateBound() = default;
    LateBound(ObjectRef object, std::string path, const TraceSink* trace)
        : object_(std::move(object)), path_(std::move(path)), trace_(trace) {}

    explicit operator bool() const { return object_ != nullptr; }

    /// The value of a property, which the tool takes.
    Value Get(std::string_view member) const;
    std::string GetText(std::string_view member) const;
    double GetNumber(std::string_view member) const;
    /// An object passed through on the way to another.
    LateBound Object(std::string_view member, const Arguments& arguments = {}) const;
    void Set(std::string_view member, const Value& value) const;
    // One for each kind of number: left to themselves a flag and a fraction would go through the whole number.
    void Set(std::string_view member, bool value) const { Set(member, Value(value)); }
    void Set(std::string_view member, int value) const { Set(member, Value(static_cast<double>(value))); }
    void Set(std::string_view member, double value) const { Set(member, Value(value)); }
    void Set(std::string_view member, const std::string& value) const { Set(member, Value(value)); }
    void Set(std::string_view member, const char* value) const { Set(member, Value(std::string(value))); }
    Value Call(std::string_view member, const Arguments& arguments = {}) const;
    /// A call whose result is an object.
    LateBound CallForObject(std::string_view member, const Arguments& arguments = {}) const;

private:
    AutomationObject& Target(std::string_view member) const;
    LateBound Reached(Value result, std::string path) const;
    void Trace(const std::string& line) const;

    ObjectRef object_;
    std::string path_;
    const TraceSink* trace_ = nullptr;
};

/// A program that answers automation calls.
class AutomationServer {
public:
    virtual ~AutomationServer() = default;
    /// The object that runs now under the class name, nullptr if there is none.
    virtual ObjectRef Running(std::string_view className) = 0;
    /// A new object of the class, which is the running one from now on; nullptr if no such class is registered.
    virtual ObjectRef Create(std::string_view className) = 0;
    /// Brings its window to the front, by process id (decimal) or by the start of its title. False if it has none.
    virtual bool ActivateWindow(const std::string& processIdOrTitle) = 0;
    /// Key strokes for its window in front.
    virtual void SendKeys(const std::string& keys) = 0;
};

/// What the program behind the calls needs of the front end. Called on the thread that made the call.
class EngineHost {
public:
    virtual ~EngineHost() = default;
    /// A call is still running, `share` (0 to 1) of its work done. Comes about twenty times a second. The host may
    /// paint, but takes no input.
    virtual void CallRuns(std::string_view member, double share) = 0;
    /// A call has come to its end, well or not.
    virtual void CallEnded() = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
};

/// The system's table of active objects: how a tool reaches the other program.
class ActiveObjects {
public:
    explicit ActiveObjects(AutomationServer& server) : server_(server) {}
    ActiveObjects(const ActiveObjects&) = delete;
    ActiveObjects& operator=(const ActiveObjects&) = delete;

    void SetTrace(TraceSink trace) { trace_ = std::move(trace); }
    /// Whether a running program is found. Creating an object makes one be found.
    void SetFound(bool found) { found_ = found; }

    /// The running object of a class. AutomationFailed if none is found.
    LateBound Attach(const std::string& className);
    /// A new object of a class. AutomationFailed if the class isn't registered.
    LateBound Create(const std::string& className);

private:
    LateBound Root(ObjectRef object) const;

    AutomationServer& server_;
    TraceSink trace_;
    bool found_ = true;
};

/// A value as the trace shows it: texts quoted, numbers in general text, `-` for an absent position.
std::string TraceText(const Value& value);

/// Numbers and texts as a caller takes them. AutomationFailed if the value is of another kind; a text that is a
/// number is taken for it.
double NumberOf(const Value& value, std::string_view what);
std::string TextOf(const Value& value, std::string_view what);

}  // namespace crownlab
