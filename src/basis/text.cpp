#include "basis/text.h"

#include <algorithm>

#include "basis/failure.h"

namespace crownlab {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Greedy match with one point of return for the last star, linear in practice.
bool MatchesOne(std::string_view name, std::string_view pattern) {
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

}  // namespace

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), Lower);
    return lower;
}

bool EqualNoCase(std::string_view a, std::string_view b) { return LowerCase(a) == LowerCase(b); }

bool LessNoCase(std::string_view a, std::string_view b) {
    const std::string lowerA = LowerCase(a);
    const std::string lowerB = LowerCase(b);
    return lowerA != lowerB ? lowerA < lowerB : a < b;
}

std::string Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool MatchesPattern(std::string_view name, std::string_view patterns) {
    const std::string lowerName = LowerCase(name);
    const std::string lowerPatterns = LowerCase(patterns);
    std::string_view rest = lowerPatterns;
    while (true) {
        const std::size_t end = rest.find(';');
        const std::string pattern = Trimmed(rest.substr(0, end));
        if (pattern == "*.*" || MatchesOne(lowerName, pattern)) return true;
        if (end == std::string_view::npos) return false;
        rest.remove_prefix(end + 1);
    }
}

std::string LessLast(std::string_view text, std::size_t count, std::string_view what) {
    if (text.size() < count) throw Failure(FailureKind::InvalidCall, std::string(what));
    return std::string(text.substr(0, text.size() - count));
}

std::string QuotedText(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        switch (c) {
            case '\n': quoted += "\\n"; break;
            case '\r': quoted += "\\r"; break;
            case '"': quoted += "\\\""; break;
            case '\\': quoted += "\\\\"; break;
            default: quoted += c;
        }
    }
    return quoted + '"';
}

}  // namespace crownlab
