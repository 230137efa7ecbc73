#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace crownlab {

/// Field input over the text of a whole file, which has to outlive the reader.
///
/// Blanks, tabs and line ends before a field are skipped, and a UTF-8 byte order mark at the start. A
/// number ends at a comma, blank or line end; the blanks behind it and then at most one comma or line end
/// belong to it. LF, CR LF, CR and a missing last line end are all read.
class FieldReader {
public:
    /// `name` is the file's name for messages.
    FieldReader(std::string_view text, std::string name);

    /// The next field as a number. InputPastEnd if only blanks and line ends are left, TypeMismatch if the
    /// field is empty or no number, Overflow if the number is beyond 64-bit floats.
    double ReadNumber();

    /// A field that was read, with its text in the reader's own.
    struct LastField {
        std::string_view Text;
        double Value = 0;
    };
    /// As ReadNumber(), and quicker where the field's text is that of `last`, as for the coordinates of a lattice.
    /// `last` becomes the field.
    double ReadNumber(LastField& last);

    /// The next field as text: in double quotes, or up to the next comma or line end without blanks at its
    /// end. InputPastEnd as above.
    std::string ReadText();

    /// The next field up to a comma, blank or line end, as it stands; empty where a comma comes with nothing
    /// before it. InputPastEnd as above.
    std::string_view ReadToken();

    /// The rest of the current line without its line end. InputPastEnd at the end of the text.
    std::string_view ReadLine();

    /// True where no character is left.
    bool AtEnd() const { return position_ == last_; }
    /// True where nothing but blanks and line ends is left.
    bool NothingLeft() const;

private:
    void SkipToField();
    void SkipBehindField();
    [[noreturn]] void FailAtNumber(const char* field) const;
    std::uint64_t LineNumber(const char* at) const;

    const char* first_;
    const char* position_;
    const char* last_;
    std::string name_;
};

/// Number of lines as a line reader counts them: line ends, and a last line without one.
std::uint64_t CountLines(std::string_view text);

/// `text` without a UTF-8 byte order mark at its start.
std::string_view WithoutByteOrderMark(std::string_view text);

}  // namespace crownlab
