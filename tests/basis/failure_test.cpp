#include "basis/failure.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>

namespace crownlab {
namespace {

TEST(Failure, SaysKindAndObject) {
    const Failure failure(FailureKind::DivisionByZero, "StepX");
    EXPECT_STREQ(failure.what(), "DivisionByZero: StepX");
    EXPECT_EQ(failure.Object(), "StepX");
    EXPECT_EQ(failure.Handler(), "");
}

TEST(Failure, EachKindHasANameOfItsOwn) {
    std::set<std::string> names;
    for (int kind = 0; kind <= static_cast<int>(FailureKind::OutOfMemory); ++kind) {
        names.insert(std::string(FailureName(static_cast<FailureKind>(kind))));
    }
    EXPECT_EQ(names.size(), 13U);
}

TEST(ExitProgram, IsTakenForAFailureNowhere) { EXPECT_FALSE((std::is_base_of_v<std::exception, ExitProgram>)); }

}  // namespace
}  // namespace crownlab
