#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace crownlab {

/// What went wrong when a handler could not go on.
enum class FailureKind {
    Overflow,
    SubscriptOutOfRange,
    DivisionByZero,
    FileNotFound,
    PathNotFound,
    InputPastEnd,
    TypeMismatch,
    InvalidCall,
    ObjectNotSet,
    AutomationFailed,
    DiskFull,
    PermissionDenied,
    OutOfMemory,
};

/// The name of a kind as it is shown to a person, e.g. "DivisionByZero".
std::string_view FailureName(FailureKind kind);

/// An unhandled failure of a handler. It ends the handler; only the event dispatch of a front end
/// catches it. State changed so far stays as it is.
class Failure : public std::exception {
public:
    /// `object` names the value, file or control concerned, in words fit for a message.
    Failure(FailureKind kind, std::string object);

    FailureKind Kind() const { return kind_; }
    const std::string& Object() const { return object_; }
    /// "form.handler" of the innermost handler that ended by this failure, empty until known.
    const std::string& Handler() const { return handler_; }
    void SetHandler(std::string handler);
    const char* what() const noexcept override { return text_.c_str(); }

private:
    FailureKind kind_;
    std::string object_;
    std::string handler_;
    std::string text_;
};

/// Thrown by the menu item that ends the process at once. Not a failure, and not derived from
/// std::exception, so that no dispatch takes it for one.
struct ExitProgram {};

}  // namespace crownlab
