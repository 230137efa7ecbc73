#include "mapengine/data_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/text.h"
#include "mapengine/engine_call.h"
#include "mapengine/input_file.h"

namespace crownlab {
namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t'; }
bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

/// A wanted column and where its number goes.
struct WantedColumn {
    int Column = 1;
    double DataPoint::*Into = &DataPoint::X;
};

/// The records of a text, read from its start to its end.
class Records {
public:
    Records(std::string_view text, const std::string& path, const DataColumns& columns)
        : at_(text.data()),
          last_(text.data() + text.size()),
          path_(path),
          wanted_{{{columns.X, &DataPoint::X}, {columns.Y, &DataPoint::Y}, {columns.Z, &DataPoint::Z}}} {
        std::sort(wanted_.begin(), wanted_.end(),
                  [](const WantedColumn& a, const WantedColumn& b) { return a.Column < b.Column; });
    }

    /// The next record; false at the end.
    bool Next(DataPoint& point) {
        for (; SkipSpaces(); NextLine()) {
            if (IsLineEnd(*at_)) continue;
            ReadRecord(point);
            NextLine();
            return true;
        }
        return false;
    }

private:
    bool AtLineEnd() const { return at_ == last_ || IsLineEnd(*at_); }

    /// False if nothing is left.
    bool SkipSpaces() {
        while (at_ != last_ && IsSpace(*at_)) ++at_;
        return at_ != last_;
    }

    void NextLine() {
        while (!AtLineEnd()) ++at_;
        if (at_ == last_) return;
        if (*at_ == '\r' && at_ + 1 != last_ && at_[1] == '\n') ++at_;
        ++at_;
        ++line_;
    }

    void ReadRecord(DataPoint& point) {
        int column = 1;
        for (const WantedColumn& wanted : wanted_) {
            for (; column < wanted.Column; ++column) SkipField(column);
            // Two coordinates may come from one column.
            if (column > wanted.Column) {
                point.*wanted.Into = number_;
                continue;
            }
            point.*wanted.Into = ReadNumber(column++);
        }
    }

    /// At the start of a field; the blanks before it don't count.
    void RequireField(int column) {
        SkipSpaces();
        if (!AtLineEnd()) return;
        Fail("has " + std::to_string(column - 1) + " fields, " + std::to_string(wanted_.back().Column) + " are needed");
    }

    void SkipField(int column) {
        RequireField(column);
        while (!AtLineEnd() && !IsSpace(*at_) && *at_ != ',') ++at_;
        SkipSeparator();
    }

    double ReadNumber(int column) {
        RequireField(column);
        const char* const end = ScanNumber(at_, last_, number_);
        const bool whole = end != at_ && (end == last_ || IsSpace(*end) || IsLineEnd(*end) || *end == ',');
        if (!whole || !std::isfinite(number_)) FailAtNumber();
        at_ = end;
        SkipSeparator();
        return number_;
    }

    void SkipSeparator() {
        SkipSpaces();
        if (at_ != last_ && *at_ == ',') ++at_;
    }

    [[noreturn]] void FailAtNumber() const {
        constexpr std::ptrdiff_t shown = 30;
        const char* const end = std::find_if(at_, at_ + std::min(shown, last_ - at_),
                                             [](char c) { return c == ',' || IsSpace(c) || IsLineEnd(c); });
        Fail("holds \"" + std::string(at_, end) + "\" where a number has to be");
    }

    [[noreturn]] void Fail(const std::string& why) const {
        FailCall(path_ + ": line " + std::to_string(line_) + " " + why);
    }

    const char* at_;
    const char* last_;
    const std::string& path_;
    std::array<WantedColumn, 3> wanted_;
    std::uint64_t line_ = 1;
    double number_ = 0;
};

/// More records than a text can hold.
std::uint64_t MostRecords(std::string_view text) {
    constexpr std::uint64_t shortestRecord = 2;
    return std::min<std::uint64_t>(CountLines(text), text.size() / shortestRecord + 1);
}

}  // namespace

DataPoints ReadDataFile(const std::string& path, const DataColumns& columns) {
    const FileText file = ReadInputFile(path);
    const std::string_view text = WithoutByteOrderMark(file.View());
    const std::uint64_t most = MostRecords(text);
    RequireMemory(most * sizeof(DataPoint), path);
    DataPoints points;
    points.reserve(most);
    Records records(text, path, columns);
    DataPoint point;
    while (records.Next(point)) points.push_back(point);
    return points;
}

std::optional<double> ParseExclusionFilter(std::string_view filter) {
    const std::string text = Trimmed(filter);
    const char* at = text.data();
    const char* const last = at + text.size();
    const auto take = [&](char wanted) {
        const bool there = at != last && *at == wanted;
        if (there) ++at;
        while (at != last && IsSpace(*at)) ++at;
        return there;
    };
    if (!take('Z') && !take('z')) return std::nullopt;
    if (!take('>')) return std::nullopt;
    double number = 0;
    const char* const end = ScanNumber(at, last, number);
    if (end != last || end == at || !std::isfinite(number)) return std::nullopt;
    return number;
}

}  // namespace crownlab
