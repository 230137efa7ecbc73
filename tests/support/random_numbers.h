#pragma once

#include <cstdint>
#include <cstring>
#include <random>

namespace crownlab {

/// Seeded numbers for property tests; a failing test prints kRandomSeed.
inline constexpr std::uint64_t kRandomSeed = 20261121;

/// Numbers of all magnitudes and shapes: any bit pattern that is finite, decimals of few digits, whole numbers.
class RandomNumbers {
public:
    std::uint64_t Bits() { return engine_(); }
    /// From 0 to n - 1.
    std::uint64_t Below(std::uint64_t n) { return engine_() % n; }

    double AnyFinite() {
        while (true) {
            const std::uint64_t bits = engine_();
            double value = 0;
            std::memcpy(&value, &bits, sizeof(value));
            if (value - value == 0) return value;
        }
    }
    /// A decimal of up to 9 digits with up to 6 of them behind the point, as scan files hold them.
    double ShortDecimal() {
        static constexpr double kScales[] = {1, 10, 100, 1000, 10000, 100000, 1000000};
        const auto digits = static_cast<double>(static_cast<std::int64_t>(Below(2000000000)) - 1000000000);
        return digits / kScales[Below(7)];
    }
    double Mixed() { return Below(2) == 0 ? AnyFinite() : ShortDecimal(); }

private:
    std::mt19937_64 engine_{kRandomSeed};
};

}  // namespace crownlab
