#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

namespace crownlab {

/// `x` rounded to the nearest whole number, halves to the even one.
///
/// Adding and taking away 1.5 x 2^52 leaves exactly that for numbers below 2^51, larger ones by way of the
/// library; without the detour the compiler can round several numbers at once.
inline double RoundHalfEven(double x) {
    constexpr double shift = 6755399441055744.0;
    constexpr double limit = 2251799813685248.0;
    if (x < limit && x > -limit) return (x + shift) - shift;
    return std::nearbyint(x);
}

/// `x` rounded half to even at `decimals` decimals (0 to 15), by scaling with the power of ten.
/// A number whose scaled value isn't finite is returned as it is, as it has no such decimals.
double RoundDecimals(double x, int decimals);

/// `x` rounded half to even as a 16-bit signed integer. `what` names the value in the Overflow failure.
std::int16_t ToInt16(double x, std::string_view what);

/// As ToInt16 for 32 bits.
std::int32_t ToInt32(double x, std::string_view what);

/// `x` rounded down as a 16-bit signed integer (Overflow beyond its range).
std::int16_t FloorToInt16(double x, std::string_view what);

/// a / b. Throws DivisionByZero whenever b is 0, whatever a is, and Overflow if the result isn't finite.
double Divide(double a, double b, std::string_view what);

/// `x` itself if it is finite, else Overflow.
double Finite(double x, std::string_view what);

/// Square root; InvalidCall for a negative number.
double SquareRoot(double x, std::string_view what);

/// base ^ exponent; InvalidCall for a negative base with a fractional exponent, DivisionByZero for 0 to a
/// negative power, Overflow if the result isn't finite.
double Power(double base, double exponent, std::string_view what);

/// Natural logarithm; InvalidCall for 0 or less.
double Logarithm(double x, std::string_view what);

/// Logarithm to base 10 as ln(x) / ln(10); InvalidCall for 0 or less.
double Log10(double x);

/// Arc cosine in radians as arctangent(-x / sqrt(1 - x²)) + 2 arctangent(1). `x` has to lie strictly
/// between -1 and 1: at the ends the division fails, beyond them the root. Nothing is clamped.
double ArcCos(double x);

}  // namespace crownlab
