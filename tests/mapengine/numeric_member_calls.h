#pragma once

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <string>

#include "mapengine/engine_call_forms.h"
#include "mapengine/test_grids.h"
#include "support/expect_failure.h"

namespace crownlab {

/// 2 + x over [0, 4] by [0, 6]; 5 columns, 4 rows.
inline Grid Ramp() {
    return GridOf({.Columns = 5, .Rows = 4, .XMin = 0, .XMax = 4, .YMin = 0, .YMax = 6},
                  [](double x, double) { return 2 + x; });
}

/// A cell's number, whatever the locale.
inline double NumberIn(const std::string& cell) {
    double number = std::nan("");
    std::from_chars(cell.data(), cell.data() + cell.size(), number);
    return number;
}

/// A call fails as told, and leaves the folder's files as they are.
inline ::testing::AssertionResult CallFails(EngineForms& engine, bool six, const std::string& member,
                                            const Arguments& arguments, const std::string& words) {
    const std::size_t before = engine.EntryCount();
    const ::testing::AssertionResult failed = FailsWith(
        FailureKind::AutomationFailed, [&] { six ? engine.Six(member, arguments) : engine.Eight(member, arguments); },
        words);
    if (!failed) return failed;
    if (engine.EntryCount() != before) return ::testing::AssertionFailure() << "something was left in the folder";
    return ::testing::AssertionSuccess();
}

}  // namespace crownlab
