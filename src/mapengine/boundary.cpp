#include "mapengine/boundary.h"

#include <cmath>
#include <cstdint>

#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "mapengine/engine_call.h"
#include "mapengine/input_file.h"

namespace crownlab {
namespace {

bool IsGap(char c) { return c == ' ' || c == '\t'; }

/// Takes the next field off the front of a line, with the separator behind it.
std::string_view TakeField(std::string_view& line) {
    std::size_t first = 0;
    while (first < line.size() && IsGap(line[first])) ++first;
    std::size_t last = first;
    while (last < line.size() && !IsGap(line[last]) && line[last] != ',') ++last;
    const std::string_view field = line.substr(first, last - first);
    while (last < line.size() && IsGap(line[last])) ++last;
    if (last < line.size() && line[last] == ',') ++last;
    line.remove_prefix(last);
    return field;
}

bool IsEmpty(std::string_view line) { return line.find_first_not_of(" \t") == std::string_view::npos; }

/// The lines of a boundary file that aren't empty.
class BoundaryLines {
public:
    BoundaryLines(std::string_view text, const std::string& name) : reader_(text, name), name_(name) {}

    /// Goes to the next line; false at the end of the file.
    bool Next() {
        do {
            if (reader_.AtEnd()) return false;
            line_ = reader_.ReadLine();
            ++number_;
        } while (IsEmpty(line_));
        return true;
    }
    bool HasField() const { return !IsEmpty(line_); }
    double TakeNumber() {
        const std::string_view field = TakeField(line_);
        double value = 0;
        const char* const last = field.data() + field.size();
        if (field.empty() || ScanNumber(field.data(), last, value) != last || !std::isfinite(value)) {
            Fail(field.empty() ? "a number is missing"
                               : "\"" + std::string(field.substr(0, 30)) + "\" is not a number");
        }
        return value;
    }
    [[noreturn]] void Fail(const std::string& why) const {
        FailCall(name_ + ", line " + std::to_string(number_) + ": " + why);
    }

private:
    FieldReader reader_;
    std::string name_;
    std::string_view line_;
    std::uint64_t number_ = 0;
};

/// Reads the ring whose head is the current line.
Boundary ReadBoundary(BoundaryLines& lines) {
    const double count = lines.TakeNumber();
    if (count < 0 || count != std::floor(count)) lines.Fail(GeneralText(count) + " is no count of points");
    Boundary boundary;
    boundary.BlanksInside = lines.HasField() && lines.TakeNumber() != 0;
    while (static_cast<double>(boundary.Points.size()) < count) {
        if (!lines.Next()) {
            lines.Fail("the file ends after " + std::to_string(boundary.Points.size()) + " of " + GeneralText(count) +
                       " points");
        }
        const double x = lines.TakeNumber();
        boundary.Points.push_back({x, lines.TakeNumber()});
    }
    return boundary;
}

}  // namespace

std::vector<Boundary> ParseBoundaries(std::string_view text, const std::string& name) {
    BoundaryLines lines(text, name);
    std::vector<Boundary> boundaries;
    while (lines.Next()) boundaries.push_back(ReadBoundary(lines));
    if (boundaries.empty()) FailCall(name + ": there is no boundary in it");
    return boundaries;
}

std::vector<Boundary> ReadBoundaries(const std::string& path) {
    const FileText file = ReadInputFile(path);
    return ParseBoundaries(file.View(), path);
}

}  // namespace crownlab
