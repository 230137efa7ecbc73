#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace crownlab {

/// The viewer's random numbers. A fresh one always gives the same sequence, on every platform, until it is
/// seeded from the clock.
struct RandomSource {
    std::mt19937 Engine;
};

/// The next number, at least 0 and below 1.
double NextRandom(RandomSource& random);

/// What the generator is seeded from.
struct ClockReading {
    int Day = 1;  ///< of the month
    int Minute = 0;
    int Second = 0;
};
ClockReading PresentClock();

/// Takes one number, then steps the generator as often as the clock says: day, minutes as parts of 60 and
/// seconds as parts of 3600 added, rounded at three decimals, times 1000. At most 32,000 steps.
void SeedRandom(RandomSource& random, const ClockReading& clock);

/// `picks` different numbers from 1 to `count`, ascending, every set of them as likely as any other (R. W.
/// Floyd, in J. Bentley, "Programming pearls: a sample of brilliance", 1987: one random number a pick, no
/// list of all numbers). All of them if `picks` is `count` or more, none if it is 0 or less. OutOfMemory.
std::vector<double> PickTeeth(std::int32_t count, std::int32_t picks, RandomSource& random);

}  // namespace crownlab
