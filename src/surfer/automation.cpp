#include "surfer/automation.h"

#include <utility>

#include "basis/failure.h"
#include "basis/number_text.h"
#include "basis/text.h"

namespace crownlab {
namespace {

struct TraceForm {
    std::string operator()(Absent) const { return "-"; }
    std::string operator()(bool flag) const { return flag ? "True" : "False"; }
    std::string operator()(double number) const { return GeneralText(number); }
    std::string operator()(const std::string& text) const { return QuotedText(text); }
    std::string operator()(const NumberMatrix& matrix) const {
        return "[" + std::to_string(matrix.Rows) + " x " + std::to_string(matrix.Columns) + "]";
    }
    std::string operator()(const NumberArray& array) const {
        return "[" + std::to_string(array ? array->size() : 0) + "]";
    }
    std::string operator()(const ObjectRef&) const { return "object"; }
};

std::string ArgumentsText(const Arguments& arguments) {
    std::string text = "(";
    for (const Argument& argument : arguments) {
        if (text.size() > 1) text += ", ";
        if (!argument.Name.empty()) text += argument.Name + "=";
        text += TraceText(argument.Content);
    }
    return text + ")";
}

}  // namespace

std::string TraceText(const Value& value) { return std::visit(TraceForm{}, value); }

double NumberOf(const Value& value, std::string_view what) {
    if (const double* const number = std::get_if<double>(&value)) return *number;
    if (const std::string* const text = std::get_if<std::string>(&value)) {
        const std::string trimmed = Trimmed(*text);
        const NumberPrefix number = ParseNumberPrefix(trimmed);
        if (number.Length > 0 && number.Length == trimmed.size()) return number.Value;
    }
    throw Failure(FailureKind::AutomationFailed, std::string(what) + " is not a number");
}

std::string TextOf(const Value& value, std::string_view what) {
    if (const std::string* const text = std::get_if<std::string>(&value)) return *text;
    if (const double* const number = std::get_if<double>(&value)) return GeneralText(*number);
    throw Failure(FailureKind::AutomationFailed, std::string(what) + " is not a text");
}

AutomationObject& LateBound::Target(std::string_view member) const {
    if (!object_) throw Failure(FailureKind::ObjectNotSet, std::string(member));
    return *object_;
}

void LateBound::Trace(const std::string& line) const {
    if (trace_ != nullptr && *trace_) (*trace_)(line);
}

LateBound LateBound::Reached(Value result, std::string path) const {
    ObjectRef* const object = std::get_if<ObjectRef>(&result);
    if (object == nullptr || !*object) throw Failure(FailureKind::AutomationFailed, path + " is not an object");
    return {std::move(*object), std::move(path), trace_};
}

Value LateBound::Get(std::string_view member) const {
    AutomationObject& target = Target(member);
    Trace("get " + path_ + "." + std::string(member));
    return target.Invoke(member, {});
}

std::string LateBound::GetText(std::string_view member) const { return TextOf(Get(member), member); }

double LateBound::GetNumber(std::string_view member) const { return NumberOf(Get(member), member); }

LateBound LateBound::Object(std::string_view member, const Arguments& arguments) const {
    std::string path = path_ + "." + std::string(member) + (arguments.empty() ? "" : ArgumentsText(arguments));
    return Reached(Target(member).Invoke(member, arguments), std::move(path));
}

void LateBound::Set(std::string_view member, const Value& value) const {
    AutomationObject& target = Target(member);
    Trace("set " + path_ + "." + std::string(member) + " = " + TraceText(value));
    target.Assign(member, value);
}

Value LateBound::Call(std::string_view member, const Arguments& arguments) const {
    AutomationObject& target = Target(member);
    Trace("call " + path_ + "." + std::string(member) + ArgumentsText(arguments));
    return target.Invoke(member, arguments);
}

LateBound LateBound::CallForObject(std::string_view member, const Arguments& arguments) const {
    std::string path = path_ + "." + std::string(member) + ArgumentsText(arguments);
    return Reached(Call(member, arguments), std::move(path));
}

LateBound ActiveObjects::Root(ObjectRef object) const { return {std::move(object), "Application", &trace_}; }

LateBound ActiveObjects::Attach(const std::string& className) {
    if (trace_) trace_("attach " + QuotedText(className));
    ObjectRef object = found_ ? server_.Running(className) : nullptr;
    if (!object) throw Failure(FailureKind::AutomationFailed, "no running program answers as \"" + className + "\"");
    return Root(std::move(object));
}

LateBound ActiveObjects::Create(const std::string& className) {
    if (trace_) trace_("create " + QuotedText(className));
    ObjectRef object = server_.Create(className);
    if (!object) throw Failure(FailureKind::AutomationFailed, "no class \"" + className + "\" is registered");
    found_ = true;
    return Root(std::move(object));
}

}  // namespace crownlab
