#include "mapengine/application_object.h"

#include <array>
#include <string>

#include "basis/text.h"
#include "mapengine/application_members.h"
#include "mapengine/map_engine.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

std::string ClassName(EngineVersion version) {
    return version == EngineVersion::Six ? "Surfer.APP" : "Surfer.Application";
}

/// The member of that name. AutomationFailed if the class has none.
const ApplicationMember& FindMember(std::string_view name, EngineVersion version) {
    for (const auto& members : {ObjectMembers(), HandleMembers(), DrawingMembers()}) {
        for (const ApplicationMember& member : members) {
            if (EqualNoCase(member.Name, name) && member.Only.value_or(version) == version) return member;
        }
    }
    FailCall(ClassName(version) + " has no member " + std::string(name));
}

}  // namespace

Value ApplicationObject::Invoke(std::string_view member, const Arguments& arguments) {
    for (const MemberEntry& entry : GridMembers()) {
        if (EqualNoCase(entry.Name, member)) return engine_.RunMember(entry, version_, arguments, *session_);
    }
    const ApplicationMember& entry = FindMember(member, version_);
    return AsCall(entry.Name, [&] { return entry.Read({engine_, session_}, arguments); });
}

void ApplicationObject::Assign(std::string_view member, const Value& value) {
    const ApplicationMember& entry = FindMember(member, version_);
    if (entry.Write == nullptr) FailCall(std::string(entry.Name) + " can't be set");
    AsCall(entry.Name, [&] {
        entry.Write({engine_, session_}, value);
        return Value();
    });
}

}  // namespace crownlab
