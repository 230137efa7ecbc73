#pragma once

#include <string>
#include <string_view>

namespace crownlab {

/// A to Z made small; all other bytes stay, whatever the locale.
std::string LowerCase(std::string_view text);

/// Equal without regard to the case of A to Z.
bool EqualNoCase(std::string_view a, std::string_view b);

/// Order without regard to the case of A to Z; ties are decided by bytes. True if a comes before b.
bool LessNoCase(std::string_view a, std::string_view b);

/// `text` without blanks at both ends.
std::string Trimmed(std::string_view text);

/// A text as output lines show it: in quotes, with \n, \r, \" and \\.
std::string QuotedText(std::string_view text);

/// True if `name` matches one of the patterns in `patterns` ("*.csv;*.dat"), where * stands for any text
/// and ? for one character. Case is disregarded, and "*.*" means all.
bool MatchesPattern(std::string_view name, std::string_view patterns);

/// `text` less its last `count` characters. InvalidCall if it is shorter; `what` names the text then.
std::string LessLast(std::string_view text, std::size_t count, std::string_view what);

}  // namespace crownlab
