#include "mapengine/axis_ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "basis/failure.h"
#include "basis/number_text.h"

namespace crownlab {
namespace {

constexpr std::array<int, 3> kDigits{1, 2, 5};
/// Beyond these many digits before or behind the point a number is shorter with an exponent.
constexpr int kMostFixedDigits = 9;
/// Counts of steps are exact in doubles up to here.
constexpr double kMostSteps = 4503599627370496.0;  // 2^52

/// digit * 10^exponent times `count`, rounded once where the power is a double of its own.
double Multiple(double count, RoundNumber step) {
    const double whole = count * step.Digit;
    return step.Exponent < 0 ? whole / std::pow(10.0, -step.Exponent) : whole * std::pow(10.0, step.Exponent);
}

int PowerBelow(double value) {
    if (!(value > 0) || !std::isfinite(value)) {
        throw Failure(FailureKind::InvalidCall, "no round number near " + GeneralText(value));
    }
    return static_cast<int>(std::floor(std::log10(value))) - 1;
}

}  // namespace

double RoundNumber::Value() const { return Multiple(1, *this); }

RoundNumber RoundNumberFrom(double least) {
    // One power below what the logarithm says, which may be a last place off.
    for (int exponent = PowerBelow(least);; ++exponent) {
        for (const int digit : kDigits) {
            const RoundNumber number{digit, exponent};
            if (number.Value() >= least) return number;
        }
    }
}

RoundNumber RoundNumberUpTo(double most) {
    RoundNumber best{1, PowerBelow(most)};
    for (int exponent = best.Exponent; exponent <= best.Exponent + 3; ++exponent) {
        for (const int digit : kDigits) {
            const RoundNumber number{digit, exponent};
            if (number.Value() > most) return best;
            best = number;
        }
    }
    return best;
}

AxisTicks TicksBetween(double low, double high, int most) {
    if (!(low < high) || !std::isfinite(high - low) || most < 1) return {};
    AxisTicks ticks{.Step = RoundNumberFrom((high - low) / most), .At = {}};
    // A span of `most` steps can hold one mark more than that: then the next round step does.
    for (int tries = 0; tries < 2; ++tries) {
        const double step = ticks.Step.Value();
        if (std::max(std::abs(low), std::abs(high)) / step > kMostSteps) return {.Step = ticks.Step, .At = {}};
        ticks.At.clear();
        const double first = std::floor(low / step);
        const int number = static_cast<int>(std::ceil(high / step) - first);
        for (int i = 0; i <= number; ++i) {
            const double at = Multiple(first + i, ticks.Step);
            if (at >= low && at <= high) ticks.At.push_back(at == 0 ? 0 : at);
        }
        if (ticks.At.size() <= static_cast<std::size_t>(most)) break;
        ticks.Step = RoundNumberFrom(step * 1.5);
    }
    return ticks;
}

std::string TickText(const AxisTicks& ticks, double at) {
    const int decimals = std::max(0, -ticks.Step.Exponent);
    if (decimals > kMostFixedDigits || std::abs(at) >= std::pow(10.0, kMostFixedDigits)) return GeneralText(at);
    std::array<char, 64> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), at == 0 ? 0 : at, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

}  // namespace crownlab
