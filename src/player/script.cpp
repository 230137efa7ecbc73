#include "player/script.h"

#include <algorithm>
#include <utility>

#include "basis/field_reader.h"

namespace crownlab {
namespace {

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }
bool StartsName(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }
bool ContinuesName(char c) { return StartsName(c) || (c >= '0' && c <= '9'); }

/// Takes a quoted word off `rest`, which starts with its quote.
std::string TakeQuoted(std::string_view& rest) {
    std::string word;
    std::size_t i = 1;
    for (; i < rest.size(); ++i) {
        if (rest[i] != '"') {
            word += rest[i];
        } else if (i + 1 < rest.size() && rest[i + 1] == '"') {
            word += rest[++i];
        } else {
            break;
        }
    }
    if (i == rest.size()) throw ScriptError{"a quote is not closed"};
    rest.remove_prefix(i + 1);
    if (!rest.empty() && !IsBlank(rest.front())) throw ScriptError{"a blank is missing behind a quoted word"};
    return word;
}

std::string_view TakeName(std::string_view word, std::size_t& at) {
    if (at < word.size() && word[at] == '{') {
        const std::size_t end = word.find('}', at);
        if (end == std::string_view::npos) throw ScriptError{"a brace is not closed in " + std::string(word)};
        const std::string_view name = word.substr(at + 1, end - at - 1);
        at = end + 1;
        return name;
    }
    const std::size_t start = at;
    if (at < word.size() && StartsName(word[at])) {
        while (at < word.size() && ContinuesName(word[at])) ++at;
    }
    return word.substr(start, at - start);
}

}  // namespace

Script::Script(std::string_view text, ScriptValues values) : values_(std::move(values)) {
    FieldReader reader(text, "script");
    while (!reader.AtEnd()) lines_.emplace_back(reader.ReadLine());
}

std::vector<std::string> Script::Next() {
    while (line_ < static_cast<int>(lines_.size())) {
        const std::string& line = lines_[static_cast<std::size_t>(line_++)];
        std::vector<std::string> words = SplitWords(line);
        if (words.empty()) continue;
        for (std::string& word : words) word = ReplaceNames(word, values_);
        return words;
    }
    return {};
}

std::vector<std::string> SplitWords(std::string_view line) {
    std::vector<std::string> words;
    std::string_view rest = line;
    while (true) {
        while (!rest.empty() && IsBlank(rest.front())) rest.remove_prefix(1);
        if (rest.empty() || rest.front() == '#') return words;
        if (rest.front() == '"') {
            words.push_back(TakeQuoted(rest));
        } else {
            const std::size_t size = std::min(rest.find_first_of(kBlanks), rest.size());
            words.emplace_back(rest.substr(0, size));
            rest.remove_prefix(size);
        }
    }
}

std::string ReplaceNames(std::string_view word, const ScriptValues& values) {
    std::string replaced;
    for (std::size_t i = 0; i < word.size();) {
        if (word[i] != '$') {
            replaced += word[i++];
            continue;
        }
        ++i;
        if (i < word.size() && word[i] == '$') {
            replaced += word[i++];
            continue;
        }
        const std::string name(TakeName(word, i));
        const auto value = values.find(name);
        if (value == values.end()) throw ScriptError{"unknown name $" + name};
        replaced += value->second;
    }
    return replaced;
}

}  // namespace crownlab
