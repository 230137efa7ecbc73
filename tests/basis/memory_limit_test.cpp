#include "basis/memory_limit.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <vector>

#include "support/expect_failure.h"

namespace crownlab {
namespace {

/// Sets CROWNLAB_MEMORY until it goes.
class MemorySetting {
public:
    explicit MemorySetting(const char* value) { setenv("CROWNLAB_MEMORY", value, 1); }
    MemorySetting(const MemorySetting&) = delete;
    MemorySetting& operator=(const MemorySetting&) = delete;
    ~MemorySetting() { unsetenv("CROWNLAB_MEMORY"); }
};

TEST(MemoryBound, FollowsTheEnvironment) {
    const std::uint64_t machine = MemoryBound();
    EXPECT_GT(machine, 1U << 28) << "four fifths of this machine's memory";
    {
        const MemorySetting setting("123456789");
        EXPECT_EQ(MemoryBound(), 123456789U);
    }
    for (const char* const text : {"", "0", "many"}) {
        const MemorySetting setting(text);
        EXPECT_EQ(MemoryBound(), machine) << "\"" << text << "\" is no bound";
    }
}

TEST(RequireMemory, RefusesWhatPassesTheBound) {
    const MemorySetting setting("1000000000");
    EXPECT_NO_THROW(RequireMemory(100000000, "grid"));
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [] { RequireMemory(1000000001, "grid"); }, "grid"));
    EXPECT_TRUE(
        FailsWith(FailureKind::OutOfMemory, [] { RequireMemory(std::numeric_limits<std::uint64_t>::max(), "grid"); }));
}

#ifdef __linux__
TEST(RequireMemory, CountsWhatTheProcessHoldsAlready) {
    const MemorySetting setting("200000000");
    const std::vector<char> held(150000000, 'x');
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [] { RequireMemory(100000000, "grid"); }, "grid"));
    EXPECT_EQ(held.back(), 'x');
}
#endif

}  // namespace
}  // namespace crownlab
