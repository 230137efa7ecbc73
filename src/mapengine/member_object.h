#pragma once

#include <cmath>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "basis/text.h"
#include "mapengine/engine_call.h"

namespace crownlab {

class EngineSession;
class MapEngine;

/// A member of an automation object: a method, or a property with `Write` if it can be set.
template <typename Object>
struct ObjectMember {
    std::string_view Name;
    Value (*Read)(Object& object, const Arguments& arguments);
    void (*Write)(Object& object, const Value& value) = nullptr;
};

/// An automation object whose members stand in a table: `Object` has a static `Members()` and a static `kKind`, what
/// it is called in messages.
template <typename Object>
class MemberObject : public AutomationObject {
public:
    Value Invoke(std::string_view member, const Arguments& arguments) override {
        const ObjectMember<Object>& entry = Find(member);
        return AsCall(entry.Name, [&] { return entry.Read(Self(), arguments); });
    }
    void Assign(std::string_view member, const Value& value) override {
        const ObjectMember<Object>& entry = Find(member);
        if (entry.Write == nullptr) FailCall(std::string(entry.Name) + " can't be set");
        AsCall(entry.Name, [&] {
            entry.Write(Self(), value);
            return Value();
        });
    }

private:
    Object& Self() { return static_cast<Object&>(*this); }
    const ObjectMember<Object>& Find(std::string_view member) {
        for (const ObjectMember<Object>& entry : Object::Members()) {
            if (EqualNoCase(entry.Name, member)) return entry;
        }
        FailCall("the " + std::string(Object::kKind) + " has no member " + std::string(member));
    }
};

/// What every object of a session works on.
struct EngineContext {
    MapEngine& Engine;
    std::shared_ptr<EngineSession> Session;
};

/// Fails unless there are no arguments.
inline void TakeNone(std::string_view member, const Arguments& arguments) { CallArguments(member, {}, arguments); }

/// The values that properties take. AutomationFailed, with what is wrong, for others.
double FiniteValue(const Value& value);
double PositiveValue(const Value& value);
int WholeValue(const Value& value);
bool FlagValue(const Value& value);
/// A whole number from `First` to `Last`.
template <int First, int Last>
int RangeValue(const Value& value) {
    const int number = WholeValue(value);
    if (number < First || number > Last) {
        FailCall(std::to_string(number) + " is not one of " + std::to_string(First) + " to " + std::to_string(Last));
    }
    return number;
}

inline Value ToValue(double number) { return number; }
inline Value ToValue(int number) { return static_cast<double>(number); }
inline Value ToValue(bool flag) { return flag; }
inline Value ToValue(const std::string& text) { return text; }

/// A property that is a field of the object's `Record()`.
template <typename Object, auto Field>
Value ReadField(Object& object, const Arguments& arguments) {
    TakeNone("a property", arguments);
    return ToValue(object.Record().*Field);
}
template <typename Object, auto Field, auto Check>
void WriteField(Object& object, const Value& value) {
    object.Record().*Field = Check(value);
    object.Touch();
}

}  // namespace crownlab
