#include "convert/grid_points.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "formats/point_extents.h"

namespace crownlab {
namespace {

/// Calls `take` for each record of x, y, z.
template <typename Take>
void ForEachRecord(const FileText& text, const std::string& path, const Take& take) {
    FieldReader reader(text.View(), path);
    FieldReader::LastField lastY;
    while (!reader.NothingLeft()) {
        const double x = reader.ReadNumber();
        const double y = reader.ReadNumber(lastY);
        take(CloudPoint{x, y, reader.ReadNumber()});
    }
}

CloudPoint Lowest(const FileText& text, const std::string& path) {
    constexpr double farAway = 1'000'000;
    CloudPoint low{farAway, farAway, farAway};
    ForEachRecord(text, path, [&low](const CloudPoint& point) {
        low.x = std::min(low.x, point.x);
        low.y = std::min(low.y, point.y);
        if (point.z < kBlankHeightFrom) low.z = std::min(low.z, point.z);
    });
    return low;
}

/// Longest text of one number: a sign, the 309 digits of the largest one, a point and a decimal.
constexpr std::size_t kLongestDecimals = 320;

/// A number so large that it has no decimals: its 15 digits, and noughts for the others.
char* AppendDigits(char* end, double value) {
    char text[kNumberTextMax];
    constexpr int decimals = 14;
    const char* const last =
        std::to_chars(text, text + sizeof text, std::fabs(value), std::chars_format::scientific, decimals).ptr;
    int exponent = 0;
    // Behind the e and its plus.
    std::from_chars(std::find<const char*>(text, last, 'e') + 2, last, exponent);
    if (value < 0) *end++ = '-';
    *end++ = text[0];
    end = std::copy_n(text + 2, 14, end);
    end = std::fill_n(end, exponent - 14, '0');
    *end++ = '.';
    *end++ = '0';
    return end;
}

char* AppendGeneral(char* end, double value) {
    constexpr int decimals = 3;
    char* const start = end;
    end = AppendGeneralText(end, RoundDecimals(value, decimals));
    if (std::find(start, end, '.') != end) return end;
    *end++ = '.';
    *end++ = '0';
    return end;
}

char* AppendDecimals(char* end, double value) {
    constexpr double exponentFrom = 1e15;
    if (std::fabs(value) >= exponentFrom) return AppendDigits(end, Finite(value, "shifted point"));
    // Whole thousandths are exact up to here, and their digits are those of the rounded number.
    constexpr double thousand = 1000;
    constexpr double exactBelow = 1e12;
    if (std::fabs(value) >= exactBelow) return AppendGeneral(end, value);
    const auto thousandths = static_cast<long long>(RoundHalfEven(value * thousand));
    if (thousandths < 0) *end++ = '-';
    const long long whole = std::abs(thousandths);
    end = AppendRecordText(end, whole / 1000);
    *end++ = '.';
    const std::array<char, 3> digits{static_cast<char>('0' + whole / 100 % 10),
                                     static_cast<char>('0' + whole / 10 % 10), static_cast<char>('0' + whole % 10)};
    const std::size_t shown = digits[2] != '0' ? 3 : (digits[1] != '0' ? 2 : 1);
    return std::copy_n(digits.begin(), shown, end);
}

}  // namespace

std::string OneToThreeDecimals(double value) {
    char text[kLongestDecimals];
    return {text, AppendDecimals(text, value)};
}

void WriteShiftedPoints(FileTable& files, const std::string& input, const std::string& output) {
    const FileText text = ReadFileText(input);
    const CloudPoint low = Lowest(text, input);
    ResultFile file(files, output);
    ForEachRecord(text, input, [&](const CloudPoint& point) {
        if (!(point.z < kBlankHeightFrom)) return;
        char line[3 * (kLongestDecimals + 1)];
        char* end = AppendDecimals(line, point.x - low.x);
        *end++ = ' ';
        end = AppendDecimals(end, point.y - low.y);
        *end++ = ' ';
        end = AppendDecimals(end, point.z - low.z);
        file.Line({line, static_cast<std::size_t>(end - line)});
    });
    file.Commit();
}

}  // namespace crownlab
