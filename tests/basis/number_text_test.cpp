#include "basis/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "basis/rounding.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

/// Digits and power of ten of a positive number at `significant` digits: 0.d1d2d3... times ten to the Point.
struct SlowDecimal {
    std::string Digits;
    int Point = 0;
};

/// By printf, whatever the locale's decimal point.
SlowDecimal SlowDigits(double value, int significant) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*e", significant - 1, value);
    SlowDecimal decimal;
    const char* p = text.data();
    for (; *p != 'e'; ++p) {
        if (*p >= '0' && *p <= '9') decimal.Digits += *p;
    }
    decimal.Point = std::atoi(p + 1) + 1;
    while (decimal.Digits.size() > 1 && decimal.Digits.back() == '0') decimal.Digits.pop_back();
    return decimal;
}

/// The rule as it is told, one step after the other.
std::string SlowRecordText(double value, int significant) {
    if (value == 0) return "0";
    const std::string sign = value < 0 ? "-" : "";
    const SlowDecimal decimal = SlowDigits(std::fabs(value), significant);
    const int count = static_cast<int>(decimal.Digits.size());
    if (decimal.Point > 15 || count - decimal.Point > 15) {
        const int exponent = decimal.Point - 1;
        std::string text = sign + decimal.Digits.substr(0, 1);
        if (count > 1) text += "." + decimal.Digits.substr(1);
        const std::string size = std::to_string(std::abs(exponent));
        return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
    }
    if (decimal.Point <= 0) {
        return sign + "." + std::string(static_cast<std::size_t>(-decimal.Point), '0') + decimal.Digits;
    }
    if (count <= decimal.Point) {
        return sign + decimal.Digits + std::string(static_cast<std::size_t>(decimal.Point - count), '0');
    }
    const auto point = static_cast<std::size_t>(decimal.Point);
    return sign + decimal.Digits.substr(0, point) + "." + decimal.Digits.substr(point);
}

TEST(RecordText, HasNoZeroBeforeThePoint) {
    EXPECT_EQ(RecordText(0.5), ".5");
    EXPECT_EQ(RecordText(-0.25), "-.25");
    EXPECT_EQ(RecordText(0.001), ".001");
    EXPECT_EQ(RecordText(1.5), "1.5");
}

TEST(RecordText, WritesWholeNumbersWithoutAPoint) {
    EXPECT_EQ(RecordText(0.0), "0");
    EXPECT_EQ(RecordText(12.0), "12");
    EXPECT_EQ(RecordText(-9999.0), "-9999");
    EXPECT_EQ(RecordText(1234567.0), "1234567");
    EXPECT_EQ(RecordText(999999999999999.0), "999999999999999");
}

TEST(RecordText, WritesMinusZeroAsZero) {
    EXPECT_EQ(RecordText(-0.0), "0");
    EXPECT_EQ(RecordText(-0.0F), "0");
    EXPECT_EQ(GeneralText(-0.0), "0");
}

TEST(RecordText, KeepsFifteenDigits) {
    EXPECT_EQ(RecordText(1.0 / 3), ".333333333333333");
    EXPECT_EQ(RecordText(2.0 / 3), ".666666666666667");
    EXPECT_EQ(RecordText(100.0 / 3), "33.3333333333333");
    EXPECT_EQ(RecordText(0.1 + 0.2), ".3");
    EXPECT_EQ(RecordText(4.0 * std::atan(1.0)), "3.14159265358979");
}

TEST(RecordText, TurnsToAnExponentWhereFixedNotationNeedsMoreThanFifteenDigits) {
    EXPECT_EQ(RecordText(1e14), "100000000000000");
    EXPECT_EQ(RecordText(1e15), "1E+15");
    EXPECT_EQ(RecordText(-1.5e15), "-1.5E+15");
    EXPECT_EQ(RecordText(1.70141e38), "1.70141E+38");
    EXPECT_EQ(RecordText(1e-15), ".000000000000001");
    EXPECT_EQ(RecordText(1e-16), "1E-16");
    EXPECT_EQ(RecordText(1.5e-15), "1.5E-15");
    EXPECT_EQ(RecordText(0.0123456789012345), "1.23456789012345E-02");
    EXPECT_EQ(RecordText(0.123456789012345), ".123456789012345");
    EXPECT_EQ(RecordText(1e100), "1E+100");
    EXPECT_EQ(RecordText(std::numeric_limits<double>::max()), "1.79769313486232E+308");
    EXPECT_EQ(RecordText(5e-324), "4.94065645841247E-324");
}

TEST(RecordText, KeepsSevenDigitsOf32BitFloats) {
    EXPECT_EQ(RecordText(0.1F), ".1");
    EXPECT_EQ(RecordText(1.0F / 3), ".3333333");
    EXPECT_EQ(RecordText(16777216.0F), "16777220");
    EXPECT_EQ(RecordText(1.70141e38F), "1.70141E+38");
    EXPECT_EQ(RecordText(-2.5F), "-2.5");
}

TEST(RecordText, NamesWhatIsNotFinite) {
    EXPECT_EQ(RecordText(std::numeric_limits<double>::infinity()), "INF");
    EXPECT_EQ(RecordText(-std::numeric_limits<double>::infinity()), "-INF");
    EXPECT_EQ(RecordText(std::numeric_limits<double>::quiet_NaN()), "NAN");
}

TEST(RecordText, EqualsTheSlowRuleOnRandomNumbers) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 200000; ++i) {
        const double value = random.Mixed();
        ASSERT_EQ(RecordText(value), SlowRecordText(value, 15));
    }
}

TEST(RecordText, EqualsTheSlowRuleOnRandom32BitFloats) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 200000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random.Bits());
        float value = 0;
        std::memcpy(&value, &bits, sizeof(value));
        if (!std::isfinite(value)) continue;
        const bool whole = std::fabs(value) < 1e6F && value == std::floor(value);
        ASSERT_EQ(RecordText(value), SlowRecordText(value, whole ? 15 : 7));
    }
}

TEST(RecordText, ReadsBackWithinFifteenDigits) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 100000; ++i) {
        const double value = random.Mixed();
        const std::string text = RecordText(value);
        const double again = TextBoxNumber(text);
        ASSERT_LE(std::fabs(again - value), std::fabs(value) * 5.3e-15 + 5e-324) << text;
        ASSERT_EQ(RecordText(again), text) << "a number that was written and read is written the same";
    }
}

TEST(RecordText, FitsTheBufferItIsPromised) {
    std::array<char, kNumberTextMax> buffer{};
    for (const double value : {-std::numeric_limits<double>::max(), -std::numeric_limits<double>::min(), -5e-324,
                               -0.000123456789012345, -123456.789012345}) {
        EXPECT_LE(AppendRecordText(buffer.data(), value) - buffer.data(), kNumberTextMax);
    }
    const long long lowest = std::numeric_limits<long long>::min();
    char* const end = AppendRecordText(buffer.data(), lowest);
    EXPECT_EQ(std::string(buffer.data(), end), std::to_string(lowest));
}

TEST(GeneralText, PutsAZeroBeforeThePoint) {
    EXPECT_EQ(GeneralText(0.5), "0.5");
    EXPECT_EQ(GeneralText(-0.25), "-0.25");
    EXPECT_EQ(GeneralText(12.5), "12.5");
    EXPECT_EQ(GeneralText(0.0), "0");
    EXPECT_EQ(GeneralText(1e15), "1E+15");
    EXPECT_EQ(GeneralText(1e-16), "1E-16");
}

TEST(GeneralText, DiffersFromRecordTextInThatZeroOnly) {
    RandomNumbers random;
    for (int i = 0; i < 20000; ++i) {
        const double value = random.Mixed();
        std::string expected = RecordText(value);
        const std::size_t point = expected.front() == '-' ? 1 : 0;
        if (expected[point] == '.') expected.insert(point, "0");
        ASSERT_EQ(GeneralText(value), expected);
    }
}

TEST(TextBoxNumber, IsTheNumberAtTheStart) {
    EXPECT_EQ(TextBoxNumber("12"), 12);
    EXPECT_EQ(TextBoxNumber(" \t 12.5 mm"), 12.5);
    EXPECT_EQ(TextBoxNumber("-3e2x"), -300);
    EXPECT_EQ(TextBoxNumber("+7"), 7);
    EXPECT_EQ(TextBoxNumber(".5"), 0.5);
    EXPECT_EQ(TextBoxNumber("5."), 5);
    EXPECT_EQ(TextBoxNumber("1,5"), 1);
    EXPECT_EQ(TextBoxNumber("1.2.3"), 1.2);
    EXPECT_EQ(TextBoxNumber("1e"), 1);
    EXPECT_EQ(TextBoxNumber("1e+"), 1);
    EXPECT_EQ(TextBoxNumber("0x10"), 0);
}

TEST(TextBoxNumber, IsZeroWhereThereIsNone) {
    for (const char* const text :
         {"", " ", "abc", "-", "+", ".", "-.", "e5", "nan", "inf", "--1", "+-1", "- 1", ",1"}) {
        EXPECT_EQ(TextBoxNumber(text), 0) << text;
    }
}

TEST(TextBoxNumber, OverflowsBeyond64BitFloats) {
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { TextBoxNumber("1e309"); }, "1e309"));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { TextBoxNumber("-" + std::string(400, '9')); }));
    EXPECT_EQ(TextBoxNumber("1e-400"), 0);
}

TEST(ParseNumberPrefix, CountsTheCharactersItUsed) {
    EXPECT_EQ(ParseNumberPrefix("  12x").Length, 4U);
    EXPECT_EQ(ParseNumberPrefix("x12").Length, 0U);
    EXPECT_EQ(ParseNumberPrefix("1e5").Length, 3U);
    EXPECT_EQ(ParseNumberPrefix("1e5").Value, 1e5);
}

double Scanned(const std::string& text) {
    double value = -1;
    const char* const end = ScanNumber(text.data(), text.data() + text.size(), value);
    EXPECT_EQ(end, text.data() + text.size()) << text;
    return value;
}

TEST(ScanNumber, TellsTooSmallFromTooLarge) {
    const std::string zeros(400, '0');
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Scanned("1e400"), infinity);
    EXPECT_EQ(Scanned("-1e400"), -infinity);
    EXPECT_EQ(Scanned("1e-400"), 0);
    EXPECT_EQ(Scanned("1" + zeros), infinity);
    EXPECT_EQ(Scanned("0" + std::string(400, '9')), infinity) << "zeros in front change nothing";
    EXPECT_EQ(Scanned("1" + zeros + "e-5"), infinity) << "a negative exponent alone doesn't make it small";
    EXPECT_EQ(Scanned("." + zeros + "1"), 0);
    EXPECT_EQ(Scanned("." + zeros + "1e5"), 0) << "a positive exponent alone doesn't make it large";
    EXPECT_EQ(Scanned("0." + zeros + "1e+390"), 1e-11);
    EXPECT_EQ(Scanned("1e99999999999999999999"), infinity);
    EXPECT_EQ(Scanned("1e-99999999999999999999"), 0);
    EXPECT_EQ(Scanned("0e99999999999999999999"), 0);
    EXPECT_EQ(Scanned("-0e999"), 0);
}

/// A text that is a number, of any shape.
std::string RandomNumberText(RandomNumbers& random) {
    std::string text = random.Below(3) == 0 ? (random.Below(2) == 0 ? "-" : "+") : "";
    const std::uint64_t before = random.Below(20);
    const std::uint64_t behind = random.Below(20) + (before == 0 ? 1 : 0);
    for (std::uint64_t i = 0; i < before; ++i) text += static_cast<char>('0' + random.Below(10));
    if (behind > 0 || random.Below(2) == 0) text += '.';
    for (std::uint64_t i = 0; i < behind; ++i) text += static_cast<char>('0' + random.Below(10));
    if (random.Below(3) == 0) {
        text += random.Below(2) == 0 ? 'e' : 'E';
        text += random.Below(2) == 0 ? "-" : (random.Below(2) == 0 ? "+" : "");
        text += std::to_string(random.Below(random.Below(10) == 0 ? 400 : 30));
    }
    return text;
}

/// What the C library makes of `text`. Its decimal point follows the locale.
double LibraryValue(std::string text) {
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text.replace(point, 1, std::localeconv()->decimal_point);
    return std::strtod(text.c_str(), nullptr);
}

TEST(ScanNumber, EqualsTheLibraryBitForBit) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    for (int i = 0; i < 300000; ++i) {
        const std::string text = RandomNumberText(random);
        const double expected = LibraryValue(text);
        double value = -1;
        const char* const end = ScanNumber(text.data(), text.data() + text.size(), value);
        ASSERT_EQ(end, text.data() + text.size()) << text;
        ASSERT_EQ(value, expected) << text;
        ASSERT_EQ(std::signbit(value), std::signbit(expected)) << text;
    }
}

TEST(ScanNumber, EndsAtTheFirstCharacterThatCannotBelongToIt) {
    for (const char* const text : {"12,5", "12 5", "12\n", "12x", "12.5.5", "1e5e5", "1-1"}) {
        double value = 0;
        const std::string all = text;
        const char* const end = ScanNumber(all.data(), all.data() + all.size(), value);
        EXPECT_LT(end, all.data() + all.size()) << text;
        EXPECT_GT(end, all.data()) << text;
    }
}

TEST(AppendRoundedText, WritesWhatRoundingAndRecordTextWrite) {
    RandomNumbers random;
    const auto text = [](double value, int decimals) {
        std::array<char, kNumberTextMax> buffer;
        return std::string(buffer.data(), AppendRoundedText(buffer.data(), value, decimals));
    };
    const std::vector<double> edges{0,     -0.0,  0.00005, 0.00015,    -0.00005, 1,           -1,
                                    0.5,   -0.25, 9999,    99999,      0.99995,  1.70141E+38, 1e11,
                                    -1e11, 1e15,  1e-300,  12345.6789, 100.01};
    for (int decimals = 0; decimals <= 6; ++decimals) {
        for (const double value : edges) {
            EXPECT_EQ(text(value, decimals), RecordText(RoundDecimals(value, decimals))) << value;
        }
        for (int i = 0; i < 20'000; ++i) {
            const double value =
                i % 2 == 0 ? random.Mixed() : random.ShortDecimal() * static_cast<double>(random.Below(99'999)) / 7;
            ASSERT_EQ(text(value, decimals), RecordText(RoundDecimals(value, decimals))) << value;
        }
    }
}

}  // namespace
}  // namespace crownlab
