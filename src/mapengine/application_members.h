#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "mapengine/member_object.h"

namespace crownlab {

/// A member of the application object beside those that work on grid files.
struct ApplicationMember {
    std::string_view Name;
    /// The one class that has it; none: both.
    std::optional<EngineVersion> Only;
    Value (*Read)(const EngineContext& context, const Arguments& arguments);
    void (*Write)(const EngineContext& context, const Value& value) = nullptr;
};

/// What the version with objects for documents has, and what both have.
std::span<const ApplicationMember> ObjectMembers();
/// Version 6: documents and worksheets by handle.
std::span<const ApplicationMember> HandleMembers();
/// Version 6: maps and texts by name.
std::span<const ApplicationMember> DrawingMembers();

}  // namespace crownlab
