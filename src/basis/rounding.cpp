#include "basis/rounding.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "basis/arc_tangent.h"
#include "basis/failure.h"

namespace crownlab {
namespace {

constexpr std::array<double, 16> kPowersOfTen{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                              1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

template <typename Int>
Int ToInt(double rounded, std::string_view what) {
    constexpr double low = std::numeric_limits<Int>::min();
    constexpr double high = std::numeric_limits<Int>::max();
    if (!(rounded >= low && rounded <= high)) throw Failure(FailureKind::Overflow, std::string(what));
    return static_cast<Int>(rounded);
}

}  // namespace

double RoundDecimals(double x, int decimals) {
    const double scale = kPowersOfTen.at(static_cast<std::size_t>(decimals));
    const double scaled = x * scale;
    if (!std::isfinite(scaled)) return x;
    return RoundHalfEven(scaled) / scale;
}

std::int16_t ToInt16(double x, std::string_view what) { return ToInt<std::int16_t>(std::nearbyint(x), what); }
std::int32_t ToInt32(double x, std::string_view what) { return ToInt<std::int32_t>(std::nearbyint(x), what); }
std::int16_t FloorToInt16(double x, std::string_view what) { return ToInt<std::int16_t>(std::floor(x), what); }

double Divide(double a, double b, std::string_view what) {
    if (b == 0) throw Failure(FailureKind::DivisionByZero, std::string(what));
    return Finite(a / b, what);
}

double Finite(double x, std::string_view what) {
    if (!std::isfinite(x)) throw Failure(FailureKind::Overflow, std::string(what));
    return x;
}

double SquareRoot(double x, std::string_view what) {
    if (x < 0) throw Failure(FailureKind::InvalidCall, std::string(what));
    return std::sqrt(x);
}

double Power(double base, double exponent, std::string_view what) {
    if (base < 0 && exponent != std::floor(exponent)) throw Failure(FailureKind::InvalidCall, std::string(what));
    if (base == 0 && exponent < 0) throw Failure(FailureKind::DivisionByZero, std::string(what));
    return Finite(std::pow(base, exponent), what);
}

double Logarithm(double x, std::string_view what) {
    if (!(x > 0)) throw Failure(FailureKind::InvalidCall, std::string(what));
    return std::log(x);
}

double Log10(double x) { return Logarithm(x, "Log10") / std::log(10.0); }

double ArcCos(double x) {
    const double root = SquareRoot(1 - x * x, "ArcCos");
    return ArcTangent(Divide(-x, root, "ArcCos")) + 2 * ArcTangent(1);
}

}  // namespace crownlab
