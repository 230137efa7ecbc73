#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace crownlab {

/// The script itself is wrong. Not derived from std::exception, so that no event dispatch on the way takes
/// it for a failure of a handler.
struct ScriptError {
    std::string Text;
};

/// Values of $NAME, as given on the command line.
using ScriptValues = std::map<std::string, std::string>;

/// One statement a line; words are separated by blanks, a word with blanks stands in double quotes, a quote
/// inside is doubled, # at the start of a word begins a comment.
class Script {
public:
    Script(std::string_view text, ScriptValues values);

    /// Words of the next line that has any, $NAME and ${NAME} replaced; empty at the end. Throws ScriptError
    /// for an open quote or an unknown name.
    std::vector<std::string> Next();
    /// Number from 1 of the line that Next returned or failed at.
    int LineNumber() const { return line_; }

private:
    std::vector<std::string> lines_;
    ScriptValues values_;
    int line_ = 0;
};

/// Splits one line into words as above, without replacing names.
std::vector<std::string> SplitWords(std::string_view line);

/// Replaces $NAME, ${NAME} and $$ in one word.
std::string ReplaceNames(std::string_view word, const ScriptValues& values);

}  // namespace crownlab
