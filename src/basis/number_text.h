#pragma once

#include <string>
#include <string_view>

namespace crownlab {

/// Longest text that the functions below make, for callers with their own buffer.
inline constexpr int kNumberTextMax = 32;

/// Shortest form for records: up to 15 significant digits, no zero before the point (".5", "-.25"), minus
/// zero as "0". Fixed notation as long as no more than 15 digits are needed before or behind the point,
/// else "1.70141E+38", "1.5E-16" (sign and at least two digits). Numbers that aren't finite don't occur in
/// results; they come out as "INF", "-INF" and "NAN" so that no writer can crash on them.
std::string RecordText(double value);
/// As above for a 32-bit float: up to 7 significant digits.
std::string RecordText(float value);
/// Writes RecordText(value) to `buffer` (kNumberTextMax characters at least); returns the end.
char* AppendRecordText(char* buffer, double value);
/// The same for whole numbers, which is the common case of counts.
char* AppendRecordText(char* buffer, long long value);

/// Writes RecordText of `value` rounded half to even at `decimals` decimals (0 to 6) to `buffer`; returns the end. As
/// long as the number of last decimals is exact, it is these that are written, which takes a fraction of the time.
char* AppendRoundedText(char* buffer, double value, int decimals);

/// Writes GeneralText(value) to `buffer`; returns the end.
char* AppendGeneralText(char* buffer, double value);

/// General form, as joined into names, labels and text boxes: as RecordText with a zero before the point.
std::string GeneralText(double value);

/// What a number starts with in `text`: blanks and tabs skipped, an optional sign, digits with at most one
/// point, an optional exponent. `Length` counts the characters used, 0 where no number starts.
struct NumberPrefix {
    double Value = 0;
    std::size_t Length = 0;
};
/// Throws Overflow if the number is beyond 64-bit floats.
NumberPrefix ParseNumberPrefix(std::string_view text);

/// A text box read as a number: the number at the start of its text, 0 if there is none.
double TextBoxNumber(std::string_view text);

/// Reads an unblanked decimal number from [first, last); returns the end of it, or `first` if none starts
/// there. "nan" and "inf" aren't numbers. Sets `value` to an infinity if the number is out of range.
const char* ScanNumber(const char* first, const char* last, double& value);

}  // namespace crownlab
