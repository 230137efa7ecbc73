#include "basis/field_reader.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "basis/failure.h"
#include "basis/number_text.h"

namespace crownlab {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsLineEnd(char c) { return c == '\n' || c == '\r'; }

/// Behind the line end at `p` (LF, CR or CR LF).
const char* BehindLineEnd(const char* p, const char* last) {
    if (*p == '\r' && p + 1 != last && p[1] == '\n') return p + 2;
    return p + 1;
}

const char* FindLineEnd(const char* p, const char* last) {
    return std::find_if(p, last, [](char c) { return IsLineEnd(c); });
}

}  // namespace

std::string_view WithoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.substr(0, mark.size()) == mark ? text.substr(mark.size()) : text;
}

std::uint64_t CountLines(std::string_view text) {
    text = WithoutByteOrderMark(text);
    if (text.empty()) return 0;
    // Without a branch for each byte: texts of tens of megabytes are counted in a few milliseconds.
    std::uint64_t lineFeeds = 0;
    std::uint64_t loneReturns = 0;
    const char* const bytes = text.data();
    const std::size_t beforeLast = text.size() - 1;
    for (std::size_t i = 0; i < beforeLast; ++i) {
        lineFeeds += static_cast<std::uint64_t>(bytes[i] == '\n');
        loneReturns += static_cast<std::uint64_t>(bytes[i] == '\r') & static_cast<std::uint64_t>(bytes[i + 1] != '\n');
    }
    lineFeeds += static_cast<std::uint64_t>(text.back() == '\n');
    loneReturns += static_cast<std::uint64_t>(text.back() == '\r');
    return lineFeeds + loneReturns + (IsLineEnd(text.back()) ? 0 : 1);
}

FieldReader::FieldReader(std::string_view text, std::string name)
    : first_(WithoutByteOrderMark(text).data()),
      position_(first_),
      last_(text.data() + text.size()),
      name_(std::move(name)) {}

void FieldReader::SkipToField() {
    while (position_ != last_ && (IsBlank(*position_) || IsLineEnd(*position_))) ++position_;
    if (position_ == last_) throw Failure(FailureKind::InputPastEnd, name_);
}

void FieldReader::SkipBehindField() {
    while (position_ != last_ && IsBlank(*position_)) ++position_;
    if (position_ == last_) return;
    if (*position_ == ',') {
        ++position_;
    } else if (IsLineEnd(*position_)) {
        position_ = BehindLineEnd(position_, last_);
    }
}

bool FieldReader::NothingLeft() const {
    return std::all_of(position_, last_, [](char c) { return IsBlank(c) || IsLineEnd(c); });
}

std::uint64_t FieldReader::LineNumber(const char* at) const {
    return CountLines({first_, static_cast<std::size_t>(at - first_) + (at == last_ ? 0 : 1)});
}

void FieldReader::FailAtNumber(const char* field) const {
    const char* const end = std::find_if(field, last_, [](char c) { return c == ',' || IsLineEnd(c); });
    constexpr std::ptrdiff_t shown = 30;
    const std::string text(field, std::min(end, field + std::min(shown, last_ - field)));
    throw Failure(FailureKind::TypeMismatch,
                  name_ + ", line " + std::to_string(LineNumber(field)) + ": \"" + text + "\" is not a number");
}

double FieldReader::ReadNumber() {
    SkipToField();
    double value = 0;
    const char* const end = ScanNumber(position_, last_, value);
    if (end == position_ || (end != last_ && *end != ',' && !IsBlank(*end) && !IsLineEnd(*end))) {
        FailAtNumber(position_);
    }
    if (std::isinf(value)) {
        throw Failure(FailureKind::Overflow, name_ + ", line " + std::to_string(LineNumber(position_)));
    }
    position_ = end;
    SkipBehindField();
    return value;
}

double FieldReader::ReadNumber(LastField& last) {
    SkipToField();
    const auto left = static_cast<std::size_t>(last_ - position_);
    const std::size_t length = last.Text.size();
    const bool same = length != 0 && length < left && std::memcmp(position_, last.Text.data(), length) == 0;
    if (same && (position_[length] == ',' || IsBlank(position_[length]) || IsLineEnd(position_[length]))) {
        position_ += length;
        SkipBehindField();
        return last.Value;
    }
    const char* const start = position_;
    last.Value = ReadNumber();
    const char* const end =
        std::find_if(start, position_, [](char c) { return c == ',' || IsBlank(c) || IsLineEnd(c); });
    last.Text = {start, static_cast<std::size_t>(end - start)};
    return last.Value;
}

std::string FieldReader::ReadText() {
    SkipToField();
    std::string text;
    if (*position_ == '"') {
        const char* const end = std::find(position_ + 1, last_, '"');
        text.assign(position_ + 1, end);
        position_ = end == last_ ? last_ : end + 1;
    } else {
        const char* const end = std::find_if(position_, last_, [](char c) { return c == ',' || IsLineEnd(c); });
        text.assign(position_, end);
        while (!text.empty() && IsBlank(text.back())) text.pop_back();
        position_ = end;
    }
    SkipBehindField();
    return text;
}

std::string_view FieldReader::ReadToken() {
    SkipToField();
    const char* const start = position_;
    position_ = std::find_if(start, last_, [](char c) { return c == ',' || IsBlank(c) || IsLineEnd(c); });
    const char* const end = position_;
    SkipBehindField();
    return {start, static_cast<std::size_t>(end - start)};
}

std::string_view FieldReader::ReadLine() {
    if (position_ == last_) throw Failure(FailureKind::InputPastEnd, name_);
    const char* const start = position_;
    const char* const end = FindLineEnd(start, last_);
    position_ = end == last_ ? last_ : BehindLineEnd(end, last_);
    return {start, static_cast<std::size_t>(end - start)};
}

}  // namespace crownlab
