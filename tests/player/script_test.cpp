#include "player/script.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace crownlab {
namespace {

using Words = std::vector<std::string>;

std::string ErrorOf(const std::string& line, const ScriptValues& values = {}) {
    try {
        Script(line, values).Next();
    } catch (const ScriptError& error) {
        return error.Text;
    }
    return "none";
}

TEST(SplitWords, SeparatesByBlanksAndTabs) {
    EXPECT_EQ(SplitWords("press  a.b\tc"), (Words{"press", "a.b", "c"}));
    EXPECT_EQ(SplitWords("  "), Words{});
    EXPECT_EQ(SplitWords(""), Words{});
}

TEST(SplitWords, KeepsBlanksInQuotes) {
    EXPECT_EQ(SplitWords("set a \"two words\" b"), (Words{"set", "a", "two words", "b"}));
    EXPECT_EQ(SplitWords("\"\""), Words{""});
    EXPECT_EQ(SplitWords("\"say \"\"x\"\"\""), Words{"say \"x\""});
    EXPECT_EQ(SplitWords("\"# none\""), Words{"# none"});
    EXPECT_EQ(SplitWords("a\"b"), Words{"a\"b"}) << "a quote inside a word is a character";
}

TEST(SplitWords, EndsAtAComment) {
    EXPECT_EQ(SplitWords("# all"), Words{});
    EXPECT_EQ(SplitWords("press a # why"), (Words{"press", "a"}));
    EXPECT_EQ(SplitWords("tooth#1.csv"), Words{"tooth#1.csv"}) << "inside a word it is a character";
}

TEST(SplitWords, RefusesOpenQuotes) {
    EXPECT_EQ(ErrorOf("set \"a"), "a quote is not closed");
    EXPECT_EQ(ErrorOf("set \"a\"\""), "a quote is not closed");
    EXPECT_EQ(ErrorOf("set \"a\"b"), "a blank is missing behind a quoted word");
}

TEST(ReplaceNames, TakesValuesFromTheCommandLine) {
    const ScriptValues values{{"FILE", "a b.csv"}, {"N", "2"}, {"N1", "3"}, {"_x", "y"}};
    EXPECT_EQ(ReplaceNames("$FILE", values), "a b.csv");
    EXPECT_EQ(ReplaceNames("x${N}1-$N1.$_x", values), "x21-3.y");
    EXPECT_EQ(ReplaceNames("$$N", values), "$N");
    EXPECT_EQ(ReplaceNames("5$$", values), "5$");
    EXPECT_EQ(Script("set a \"$FILE\"", values).Next(), (Words{"set", "a", "a b.csv"}));
    EXPECT_EQ(Script("set a $FILE", values).Next(), (Words{"set", "a", "a b.csv"})) << "a value stays one word";
}

TEST(ReplaceNames, RefusesUnknownNames) {
    EXPECT_EQ(ErrorOf("$GONE"), "unknown name $GONE");
    EXPECT_EQ(ErrorOf("${GONE}"), "unknown name $GONE");
    EXPECT_EQ(ErrorOf("${GONE"), "a brace is not closed in ${GONE");
    EXPECT_EQ(ErrorOf("$"), "unknown name $");
    EXPECT_EQ(ErrorOf("$1"), "unknown name $");
    EXPECT_EQ(ErrorOf("# $GONE"), "none") << "comments aren't looked at";
}

TEST(ReplaceNames, DoesNotLookIntoAValue) { EXPECT_EQ(ReplaceNames("$A", {{"A", "$B"}}), "$B"); }

TEST(Script, CountsLinesWithCommentsAndEmptyOnes) {
    Script script("\xEF\xBB\xBF# first\r\n\r\nstart\n  \npress a", {});
    EXPECT_EQ(script.Next(), Words{"start"});
    EXPECT_EQ(script.LineNumber(), 3);
    EXPECT_EQ(script.Next(), (Words{"press", "a"}));
    EXPECT_EQ(script.LineNumber(), 5);
    EXPECT_EQ(script.Next(), Words{});
}

}  // namespace
}  // namespace crownlab
