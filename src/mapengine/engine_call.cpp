#include "mapengine/engine_call.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <new>

#include "basis/failure.h"
#include "basis/number_text.h"
#include "basis/text.h"

namespace crownlab {
namespace {

bool IsIn(const Positions& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view known) { return EqualNoCase(known, name); });
}

[[noreturn]] void FailMember(std::string_view member, const std::string& why) {
    const std::string name(member);
    FailCall(why.compare(0, name.size(), name) == 0 ? why : name + ": " + why);
}

}  // namespace

Value AsCall(std::string_view member, const std::function<Value()>& act) {
    try {
        return act();
    } catch (const Failure& failure) {
        if (failure.Kind() == FailureKind::OutOfMemory) throw;
        FailMember(member, SentenceOf(failure));
    } catch (const std::bad_alloc&) {
        throw Failure(FailureKind::OutOfMemory, std::string(member));
    } catch (const std::exception& error) {
        FailMember(member, error.what());
    }
}

void FailCall(const std::string& sentence) { throw Failure(FailureKind::AutomationFailed, sentence); }

std::string SentenceOf(const Failure& failure) {
    const std::string& object = failure.Object();
    switch (failure.Kind()) {
        case FailureKind::AutomationFailed: return object;
        case FailureKind::FileNotFound: return "there is no file " + object;
        case FailureKind::PathNotFound: return "there is no folder for the file " + object;
        case FailureKind::PermissionDenied: return "access to the file " + object + " is denied";
        case FailureKind::DiskFull: return "there is no room on the disk for the file " + object;
        default: return std::string(FailureName(failure.Kind())) + ": " + object;
    }
}

CallArguments::CallArguments(std::string_view member, const Positions& positions, const Arguments& given,
                             const Positions& onlyNamed)
    : member_(member) {
    std::size_t position = 0;
    for (const Argument& argument : given) {
        if (argument.Name.empty()) {
            if (position == positions.size()) {
                FailCall(std::string(member) + " takes " + std::to_string(positions.size()) + " arguments at most");
            }
            const std::string_view name = positions[position++];
            if (!name.empty()) Add(name, argument.Content);
            continue;
        }
        if (!IsIn(positions, argument.Name) && !IsIn(onlyNamed, argument.Name)) {
            FailCall(std::string(member) + " has no argument " + argument.Name);
        }
        Add(argument.Name, argument.Content);
    }
}

void CallArguments::Add(std::string_view name, const Value& content) {
    if (std::holds_alternative<Absent>(content)) return;
    if (Find(name) != nullptr) Fail(name, "is given twice");
    values_.push_back({name, &content});
}

const Value* CallArguments::Find(std::string_view name) const {
    for (const Named& value : values_) {
        if (EqualNoCase(value.Name, name)) return value.Content;
    }
    return nullptr;
}

void CallArguments::Fail(std::string_view name, const std::string& why) const {
    FailCall(std::string(member_) + ": " + std::string(name) + " " + why);
}

const Value& CallArguments::Require(std::string_view name) const {
    const Value* const value = Find(name);
    if (value == nullptr) Fail(name, "is missing");
    return *value;
}

bool CallArguments::IsNumber(std::string_view name) const {
    const Value* const value = Find(name);
    if (value == nullptr) return false;
    if (const std::string* const text = std::get_if<std::string>(value)) {
        const std::string number = Trimmed(*text);
        double scanned = 0;
        return !number.empty() &&
               ScanNumber(number.data(), number.data() + number.size(), scanned) == number.data() + number.size();
    }
    return std::holds_alternative<double>(*value);
}

std::string CallArguments::Text(std::string_view name) const {
    const std::string* const text = std::get_if<std::string>(&Require(name));
    if (text == nullptr) Fail(name, "is not a text");
    if (text->empty()) Fail(name, "is empty");
    return *text;
}

std::optional<std::string> CallArguments::OptionalText(std::string_view name) const {
    if (!Has(name)) return std::nullopt;
    return Text(name);
}

std::string CallArguments::NameOrNumber(std::string_view name) const {
    return TextOf(Require(name), std::string(member_) + ": " + std::string(name));
}

double CallArguments::Number(std::string_view name) const {
    const Value& value = Require(name);
    const double number = NumberOf(value, std::string(member_) + ": " + std::string(name));
    if (!std::isfinite(number)) Fail(name, "is not a finite number");
    return number;
}

double CallArguments::Number(std::string_view name, double otherwise) const {
    return Has(name) ? Number(name) : otherwise;
}

std::optional<double> CallArguments::OptionalNumber(std::string_view name) const {
    if (!Has(name)) return std::nullopt;
    return Number(name);
}

int CallArguments::Whole(std::string_view name) const {
    const double number = Number(name);
    if (number != std::floor(number) || std::fabs(number) > std::numeric_limits<int>::max()) {
        Fail(name, "is not a whole number of 32 bits");
    }
    return static_cast<int>(number);
}

int CallArguments::Whole(std::string_view name, int otherwise) const { return Has(name) ? Whole(name) : otherwise; }

bool CallArguments::Flag(std::string_view name, bool otherwise) const {
    const Value* const value = Find(name);
    if (value == nullptr) return otherwise;
    if (const bool* const flag = std::get_if<bool>(value)) return *flag;
    if (const double* const number = std::get_if<double>(value)) return *number != 0;
    Fail(name, "is neither True nor False");
}

const NumberMatrix& CallArguments::Matrix(std::string_view name) const {
    const NumberMatrix* const matrix = std::get_if<NumberMatrix>(&Require(name));
    if (matrix == nullptr) Fail(name, "is not a table of numbers");
    return *matrix;
}

NumberArray CallArguments::Array(std::string_view name) const {
    const NumberArray* const array = std::get_if<NumberArray>(&Require(name));
    if (array == nullptr || !*array) Fail(name, "is not an array of numbers");
    return *array;
}

}  // namespace crownlab
