#include "basis/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <type_traits>

#include "basis/failure.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

/// Digits before or behind the point up to which fixed notation is kept.
constexpr int kFixedDigits = 15;

/// A number as 0.d1d2d3... times ten to the power of `Point`, without zeros at the end.
struct Decimal {
    std::array<char, 20> Digits{};
    int Count = 0;
    int Point = 0;
};

/// Takes apart the scientific text of a positive number ("1.2345e-07").
Decimal SplitScientific(const char* first, const char* last) {
    Decimal decimal;
    const char* p = first;
    for (; p != last && *p != 'e'; ++p) {
        if (*p != '.' && decimal.Count < static_cast<int>(decimal.Digits.size())) {
            decimal.Digits[static_cast<std::size_t>(decimal.Count++)] = *p;
        }
    }
    int exponent = 0;
    if (p != last) {
        ++p;
        const bool negative = *p == '-';
        if (*p == '-' || *p == '+') ++p;
        std::from_chars(p, last, exponent);
        if (negative) exponent = -exponent;
    }
    while (decimal.Count > 1 && decimal.Digits[static_cast<std::size_t>(decimal.Count - 1)] == '0') --decimal.Count;
    decimal.Point = exponent + 1;
    return decimal;
}

/// True if any decimal of up to 15 digits that reads back as `value` is also what `value` rounds to at 15
/// digits. Below the smallest normal number, and for the 7 digits of a 32-bit float, that doesn't hold.
bool ShortestIsRounded(double value) { return value >= std::numeric_limits<double>::min(); }
bool ShortestIsRounded(float) { return false; }

/// Digits of a positive number at no more than `significant` digits. The shortest digits that read back
/// the same are found much faster, and are few enough for most numbers.
template <typename Float>
Decimal ToDecimal(Float value, int significant) {
    std::array<char, 48> text;
    char* const last = text.data() + text.size();
    if (ShortestIsRounded(value)) {
        const auto shortest = std::to_chars(text.data(), last, value, std::chars_format::scientific);
        const Decimal decimal = SplitScientific(text.data(), shortest.ptr);
        if (decimal.Count <= significant) return decimal;
    }
    const auto rounded = std::to_chars(text.data(), last, value, std::chars_format::scientific, significant - 1);
    return SplitScientific(text.data(), rounded.ptr);
}

char* AppendDigits(char* out, const Decimal& decimal, int from, int to) {
    for (int i = from; i < to; ++i) *out++ = i < decimal.Count ? decimal.Digits[static_cast<std::size_t>(i)] : '0';
    return out;
}

char* AppendExponentForm(char* out, const Decimal& decimal) {
    *out++ = decimal.Digits[0];
    if (decimal.Count > 1) {
        *out++ = '.';
        out = AppendDigits(out, decimal, 1, decimal.Count);
    }
    const int exponent = decimal.Point - 1;
    *out++ = 'E';
    *out++ = exponent < 0 ? '-' : '+';
    const int size = std::abs(exponent);
    if (size < 10) *out++ = '0';
    return std::to_chars(out, out + 4, size).ptr;
}

char* AppendDecimal(char* out, const Decimal& decimal, bool zeroBeforePoint) {
    const int behind = std::max(0, decimal.Count - decimal.Point);
    if (decimal.Point > kFixedDigits || behind > kFixedDigits) return AppendExponentForm(out, decimal);
    if (decimal.Point > 0) {
        out = AppendDigits(out, decimal, 0, decimal.Point);
    } else if (zeroBeforePoint) {
        *out++ = '0';
    }
    if (behind > 0) {
        *out++ = '.';
        for (int i = decimal.Point; i < 0; ++i) *out++ = '0';
        out = AppendDigits(out, decimal, std::max(0, decimal.Point), decimal.Count);
    }
    return out;
}

/// Numbers of at most six decimals, as nearly all coordinates are: the decimal found by scaling is the
/// shortest text if dividing it again gives back the very number. Returns nullptr where that doesn't hold.
char* AppendFewDecimals(char* out, double value, bool zeroBeforePoint) {
    constexpr double scale = 1e6;
    constexpr double limit = 1e15;
    const double scaled = value * scale;
    if (!(scaled < limit)) return nullptr;
    const double whole = std::nearbyint(scaled);
    if (whole / scale != value) return nullptr;
    const auto digits = static_cast<std::uint64_t>(whole);
    const std::uint64_t before = digits / 1000000;
    auto behind = static_cast<std::uint32_t>(digits % 1000000);
    if (before != 0 || zeroBeforePoint) out = std::to_chars(out, out + kNumberTextMax, before).ptr;
    if (behind == 0) return out;
    *out++ = '.';
    int places = 6;
    for (; behind % 10 == 0; behind /= 10) --places;
    for (int i = places - 1; i >= 0; --i, behind /= 10) out[i] = static_cast<char>('0' + behind % 10);
    return out + places;
}

char* AppendText(char* out, const char* text) {
    const std::size_t size = std::strlen(text);
    std::memcpy(out, text, size);
    return out + size;
}

template <typename Float>
char* AppendNumber(char* out, Float value, int significant, bool zeroBeforePoint) {
    if (std::isnan(value)) return AppendText(out, "NAN");
    if (value < 0) {
        *out++ = '-';
        value = -value;
    }
    if (std::isinf(value)) return AppendText(out, "INF");
    if (value == 0) {
        *out++ = '0';
        return out;
    }
    if constexpr (std::is_same_v<Float, double>) {
        if (char* const end = AppendFewDecimals(out, value, zeroBeforePoint)) return end;
    }
    return AppendDecimal(out, ToDecimal(value, significant), zeroBeforePoint);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// End of the number that starts at `p` behind a sign, or `p` if there is none.
const char* NumberEnd(const char* p, const char* last) {
    const char* const start = p;
    int digits = 0;
    for (; p != last && IsDigit(*p); ++p) ++digits;
    if (p != last && *p == '.') {
        ++p;
        for (; p != last && IsDigit(*p); ++p) ++digits;
    }
    if (digits == 0) return start;
    if (p != last && (*p == 'e' || *p == 'E')) {
        const char* q = p + 1;
        if (q != last && (*q == '-' || *q == '+')) ++q;
        if (q != last && IsDigit(*q)) {
            while (q != last && IsDigit(*q)) ++q;
            p = q;
        }
    }
    return p;
}

/// True if the unsigned decimal number in [p, end), which is beyond the range of 64-bit floats, is small
/// rather than large: by the power of ten of its first digit that isn't 0.
bool IsBelowOne(const char* p, const char* end) {
    const char* const exponentMark = std::find_if(p, end, [](char c) { return c == 'e' || c == 'E'; });
    const char* const point = std::find(p, exponentMark, '.');
    const char* const leading = std::find_if(p, exponentMark, [](char c) { return c >= '1' && c <= '9'; });
    const std::ptrdiff_t power = leading < point ? point - leading - 1 : point - leading;
    if (exponentMark == end) return power < 0;
    const char* const exponentText = exponentMark[1] == '+' ? exponentMark + 2 : exponentMark + 1;
    std::int64_t exponent = 0;
    // An exponent too long for any integer decides alone.
    const auto read = std::from_chars(exponentText, end, exponent);
    if (read.ec == std::errc::result_out_of_range) return *exponentText == '-';
    return exponent < -power;
}

/// Whole powers of ten that a 64-bit float holds exactly.
constexpr std::array<double, 23> kExactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Plain decimals whose digits fit 53 bits and whose point shift is an exact power of ten: one correctly
/// rounded division then gives the nearest float (W. D. Clinger, "How to read floating point numbers
/// accurately", 1990). Returns nullptr where that doesn't hold.
const char* ScanPlainDecimal(const char* p, const char* last, double& value) {
    constexpr int digitsThatFit = 15;
    std::uint64_t mantissa = 0;
    int digits = 0;
    int decimals = 0;
    for (; p != last && IsDigit(*p); ++p, ++digits) mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p - '0');
    if (p != last && *p == '.') {
        ++p;
        const char* const behind = p;
        for (; p != last && IsDigit(*p); ++p) mantissa = mantissa * 10 + static_cast<std::uint64_t>(*p - '0');
        decimals = static_cast<int>(p - behind);
        digits += decimals;
    }
    if (digits == 0 || digits > digitsThatFit) return nullptr;
    if (p != last && (*p == 'e' || *p == 'E')) return nullptr;
    value = static_cast<double>(mantissa) / kExactPowers[static_cast<std::size_t>(decimals)];
    return p;
}

}  // namespace

char* AppendRecordText(char* buffer, double value) { return AppendNumber(buffer, value, 15, false); }

char* AppendGeneralText(char* buffer, double value) { return AppendNumber(buffer, value, 15, true); }

char* AppendRecordText(char* buffer, long long value) {
    return std::to_chars(buffer, buffer + kNumberTextMax, value).ptr;
}

std::string RecordText(double value) {
    std::array<char, kNumberTextMax> buffer;
    return {buffer.data(), AppendRecordText(buffer.data(), value)};
}

std::string RecordText(float value) {
    std::array<char, kNumberTextMax> buffer;
    return {buffer.data(), AppendNumber(buffer.data(), value, 7, false)};
}

std::string GeneralText(double value) {
    std::array<char, kNumberTextMax> buffer;
    return {buffer.data(), AppendNumber(buffer.data(), value, 15, true)};
}

const char* ScanNumber(const char* first, const char* last, double& value) {
    const char* p = first;
    bool negative = false;
    if (p != last && (*p == '-' || *p == '+')) negative = *p++ == '-';
    if (const char* const end = ScanPlainDecimal(p, last, value)) {
        if (negative) value = -value;
        return end;
    }
    const char* const end = NumberEnd(p, last);
    if (end == p) return first;
    const auto result = std::from_chars(p, end, value);
    if (result.ec == std::errc::result_out_of_range) {
        // from_chars leaves the value alone.
        value = IsBelowOne(p, end) ? 0 : std::numeric_limits<double>::infinity();
    }
    if (negative) value = -value;
    return end;
}

NumberPrefix ParseNumberPrefix(std::string_view text) {
    const char* first = text.data();
    const char* const last = first + text.size();
    while (first != last && (*first == ' ' || *first == '\t')) ++first;
    NumberPrefix prefix;
    const char* const end = ScanNumber(first, last, prefix.Value);
    if (end == first) return {};
    if (std::isinf(prefix.Value)) throw Failure(FailureKind::Overflow, std::string(text));
    prefix.Length = static_cast<std::size_t>(end - text.data());
    return prefix;
}

double TextBoxNumber(std::string_view text) { return ParseNumberPrefix(text).Value; }

char* AppendRoundedText(char* buffer, double value, int decimals) {
    constexpr double exactBelow = 1e15;
    constexpr std::array<long long, 7> powers{1, 10, 100, 1'000, 10'000, 100'000, 1'000'000};
    const long long power = powers.at(static_cast<std::size_t>(decimals));
    const double scaled = value * static_cast<double>(power);
    if (!(scaled < exactBelow && scaled > -exactBelow)) {
        return AppendRecordText(buffer, RoundDecimals(value, decimals));
    }
    const auto units = static_cast<long long>(RoundHalfEven(scaled));
    if (units == 0) return AppendRecordText(buffer, 0LL);
    if (units < 0) *buffer++ = '-';
    const long long whole = units < 0 ? -units : units;
    if (whole >= power) buffer = AppendRecordText(buffer, whole / power);
    long long rest = whole % power;
    if (rest == 0) return buffer;
    *buffer++ = '.';
    for (long long place = power / 10; rest != 0; place /= 10) {
        *buffer++ = static_cast<char>('0' + rest / place);
        rest %= place;
    }
    return buffer;
}

}  // namespace crownlab
