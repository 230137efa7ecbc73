#include "mapengine/application_object.h"

#include <string>

#include "basis/text.h"
#include "mapengine/map_engine.h"
#include "mapengine/members.h"

namespace crownlab {

Value ApplicationObject::Invoke(std::string_view member, const Arguments& arguments) {
    for (const MemberEntry& entry : GridMembers()) {
        if (EqualNoCase(entry.Name, member)) return engine_.RunMember(entry, version_, arguments, *session_);
    }
    FailCall("the application has no member " + std::string(member));
}

void ApplicationObject::Assign(std::string_view member, const Value& value) {
    if (EqualNoCase(member, "Visible") && std::holds_alternative<bool>(value)) return;
    FailCall("the application has no property " + std::string(member));
}

}  // namespace crownlab
