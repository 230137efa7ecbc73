#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "basis/failure.h"

namespace crownlab {

/// Fails unless `act` throws a Failure of that kind whose object holds `words`.
inline ::testing::AssertionResult FailsWith(FailureKind kind, const std::function<void()>& act,
                                            const std::string& words = {}) {
    try {
        act();
    } catch (const Failure& failure) {
        if (failure.Kind() != kind) return ::testing::AssertionFailure() << "threw " << failure.what();
        if (failure.Object().find(words) != std::string::npos) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "threw " << failure.what() << ", without \"" << words << "\"";
    }
    return ::testing::AssertionFailure() << "threw nothing, expected " << FailureName(kind);
}

}  // namespace crownlab
