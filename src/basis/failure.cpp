#include "basis/failure.h"

#include <utility>

namespace crownlab {

std::string_view FailureName(FailureKind kind) {
    switch (kind) {
        case FailureKind::Overflow: return "Overflow";
        case FailureKind::SubscriptOutOfRange: return "SubscriptOutOfRange";
        case FailureKind::DivisionByZero: return "DivisionByZero";
        case FailureKind::FileNotFound: return "FileNotFound";
        case FailureKind::PathNotFound: return "PathNotFound";
        case FailureKind::InputPastEnd: return "InputPastEnd";
        case FailureKind::TypeMismatch: return "TypeMismatch";
        case FailureKind::InvalidCall: return "InvalidCall";
        case FailureKind::ObjectNotSet: return "ObjectNotSet";
        case FailureKind::AutomationFailed: return "AutomationFailed";
        case FailureKind::DiskFull: return "DiskFull";
        case FailureKind::PermissionDenied: return "PermissionDenied";
        case FailureKind::OutOfMemory: return "OutOfMemory";
    }
    return "InvalidCall";
}

Failure::Failure(FailureKind kind, std::string object)
    : kind_(kind), object_(std::move(object)), text_(std::string(FailureName(kind)) + ": " + object_) {}

void Failure::SetHandler(std::string handler) { handler_ = std::move(handler); }

}  // namespace crownlab
