#include "viewer/random_teeth.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <unordered_set>

#include "basis/memory_limit.h"
#include "basis/rounding.h"
#include "viewer/sort_list.h"

namespace crownlab {

double NextRandom(RandomSource& random) {
    constexpr double range = 4294967296.0;  // of the engine's 32 bits
    return random.Engine() / range;
}

ClockReading PresentClock() {
    const std::time_t now = std::time(nullptr);
    const std::tm* const local = std::localtime(&now);
    if (local == nullptr) return {};
    return {.Day = local->tm_mday, .Minute = local->tm_min, .Second = local->tm_sec};
}

void SeedRandom(RandomSource& random, const ClockReading& clock) {
    NextRandom(random);
    const double number = RoundDecimals(clock.Day + clock.Minute / 60.0 + clock.Second / 3600.0, 3);
    const std::int32_t steps = ToInt32(number * 1000, "steps of the generator");
    for (std::int32_t step = 0; step < steps; ++step) NextRandom(random);
}

std::vector<double> PickTeeth(std::int32_t count, std::int32_t picks, RandomSource& random) {
    const std::int32_t taken = std::min(count, picks);
    if (taken <= 0) return {};
    constexpr std::uint64_t bytesPerPick = 40;  // a node of the set and its place in the list
    RequireMemory(static_cast<std::uint64_t>(taken) * bytesPerPick, "picked teeth");

    std::unordered_set<std::int64_t> chosen;
    for (std::int64_t last = std::int64_t{count} - taken + 1; last <= count; ++last) {
        const auto candidate =
            1 + static_cast<std::int64_t>(std::floor(NextRandom(random) * static_cast<double>(last)));
        if (!chosen.insert(candidate).second) chosen.insert(last);
    }
    std::vector<double> numbers(chosen.begin(), chosen.end());
    SortList(numbers, 0, static_cast<std::ptrdiff_t>(numbers.size()) - 1);
    return numbers;
}

}  // namespace crownlab
