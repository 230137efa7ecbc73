#include "basis/field_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

std::vector<double> AllNumbers(const std::string& text) {
    FieldReader reader(text, "a.csv");
    std::vector<double> numbers;
    while (!reader.NothingLeft()) numbers.push_back(reader.ReadNumber());
    return numbers;
}

using Numbers = std::vector<double>;

TEST(FieldReader, SeparatesByCommasBlanksAndLineEnds) {
    EXPECT_EQ(AllNumbers("1,2,3"), (Numbers{1, 2, 3}));
    EXPECT_EQ(AllNumbers("1 2 3"), (Numbers{1, 2, 3}));
    EXPECT_EQ(AllNumbers("1\n2\n3\n"), (Numbers{1, 2, 3}));
    EXPECT_EQ(AllNumbers("1\t2\t,\t3"), (Numbers{1, 2, 3}));
    EXPECT_EQ(AllNumbers(" 1 , 2 ,\r\n 3 "), (Numbers{1, 2, 3}));
}

TEST(FieldReader, ReadsEveryKindOfLineEnd) {
    EXPECT_EQ(AllNumbers("1,2\r\n3,4\r\n"), (Numbers{1, 2, 3, 4}));
    EXPECT_EQ(AllNumbers("1,2\n3,4"), (Numbers{1, 2, 3, 4}));
    EXPECT_EQ(AllNumbers("1,2\r3,4\r"), (Numbers{1, 2, 3, 4}));
}

TEST(FieldReader, SkipsByteOrderMarkAtTheStartOnly) {
    EXPECT_EQ(AllNumbers("\xEF\xBB\xBF"
                         "1,2"),
              (Numbers{1, 2}));
    FieldReader reader(
        "1\n\xEF\xBB\xBF"
        "2",
        "a.csv");
    reader.ReadNumber();
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { reader.ReadNumber(); }));
}

TEST(FieldReader, TakesEmptyLinesForNoField) { EXPECT_EQ(AllNumbers("\n\n1\n\n \t\n2\n\n"), (Numbers{1, 2})); }

TEST(FieldReader, TakesAtMostOneCommaBehindANumber) {
    // The comma belongs to the 1, so the line end behind it is skipped as blank space.
    EXPECT_EQ(AllNumbers("1,\n2"), (Numbers{1, 2}));
    FieldReader reader("1,,2", "a.csv");
    EXPECT_EQ(reader.ReadNumber(), 1);
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [&] { reader.ReadNumber(); }, "\"\" is not a number"));
}

TEST(FieldReader, TakesACommaAfterALineEndForAnEmptyField) {
    FieldReader reader("1\n,2", "a.csv");
    EXPECT_EQ(reader.ReadNumber(), 1);
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { reader.ReadNumber(); }));
}

TEST(FieldReader, ReadsASignInFront) { EXPECT_EQ(AllNumbers("+7 -7"), (Numbers{7, -7})); }

TEST(FieldReader, RefusesWhatIsNoNumber) {
    for (const char* const text :
         {"nan", "inf", "-inf", "x", "1x", "1.2.3", "0x10", "1e", "\"1\"", ",", "1;2", "1-2"}) {
        EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [text] { FieldReader(text, "a.csv").ReadNumber(); })) << text;
    }
}

TEST(FieldReader, NamesFileLineAndText) {
    FieldReader reader("1\r\n2\r\nthree,4\r\n", "teeth/a.csv");
    reader.ReadNumber();
    reader.ReadNumber();
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [&] { reader.ReadNumber(); }, "teeth/a.csv, line 3: \"three\" is not a number"));
}

TEST(FieldReader, ShowsOnlyTheStartOfALongText) {
    const std::string text(500, 'x');
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [&] { FieldReader(text, "a").ReadNumber(); }, "\"" + text.substr(0, 30) + "\""));
}

TEST(FieldReader, OverflowsBeyond64BitFloats) {
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { FieldReader("\n1e999", "a.csv").ReadNumber(); }, "a.csv, line 2"));
}

TEST(FieldReader, FailsPastTheEnd) {
    for (const char* const text : {"", " ", "\n", " \t\r\n \n", "\xEF\xBB\xBF"}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::InputPastEnd, [text] { FieldReader(text, "a.csv").ReadNumber(); }, "a.csv"));
        EXPECT_TRUE(FailsWith(
            FailureKind::InputPastEnd, [text] { FieldReader(text, "a.csv").ReadText(); }, "a.csv"));
    }
}

TEST(FieldReader, ReadsText) {
    FieldReader reader("\"a, b\",plain text  ,\"\"\r\n\"open", "a.csv");
    EXPECT_EQ(reader.ReadText(), "a, b");
    EXPECT_EQ(reader.ReadText(), "plain text");
    EXPECT_EQ(reader.ReadText(), "");
    EXPECT_EQ(reader.ReadText(), "open");
    EXPECT_TRUE(reader.AtEnd());
}

TEST(FieldReader, MixesTextNumbersAndLines) {
    FieldReader reader("name 1\n\"tooth\",12.5\r\nrest of the line\n", "a.csv");
    EXPECT_EQ(reader.ReadLine(), "name 1");
    EXPECT_EQ(reader.ReadText(), "tooth");
    EXPECT_EQ(reader.ReadNumber(), 12.5);
    EXPECT_EQ(reader.ReadLine(), "rest of the line");
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { reader.ReadLine(); }));
}

TEST(FieldReader, KeepsEmptyLinesOfALineReader) {
    FieldReader reader("\r\n\n\ra", "a");
    EXPECT_EQ(reader.ReadLine(), "");
    EXPECT_EQ(reader.ReadLine(), "");
    EXPECT_EQ(reader.ReadLine(), "");
    EXPECT_EQ(reader.ReadLine(), "a");
}

TEST(FieldReader, TokensEndAtCommasBlanksAndLineEnds) {
    FieldReader reader("a b,c ,\td\r\n\n ]  \n,x", "a");
    for (const std::string_view token : {"a", "b", "c", "d", "]", "", "x"}) EXPECT_EQ(reader.ReadToken(), token);
    EXPECT_TRUE(reader.AtEnd());
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { static_cast<void>(reader.ReadToken()); }));
}

TEST(FieldReader, NumbersAndLinesFollowTokens) {
    FieldReader reader("[ 1 2,] rest \nnext", "a");
    EXPECT_EQ(reader.ReadToken(), "[");
    EXPECT_EQ(reader.ReadNumber(), 1);
    EXPECT_EQ(reader.ReadNumber(), 2);
    EXPECT_EQ(reader.ReadToken(), "]");
    EXPECT_EQ(reader.ReadLine(), "rest ");
}

TEST(CountLines, CountsLineEndsAndALastLineWithoutOne) {
    EXPECT_EQ(CountLines(""), 0U);
    EXPECT_EQ(CountLines("a"), 1U);
    EXPECT_EQ(CountLines("a\n"), 1U);
    EXPECT_EQ(CountLines("a\nb"), 2U);
    EXPECT_EQ(CountLines("\n\n"), 2U);
    EXPECT_EQ(CountLines("a\r\nb\r\n"), 2U);
    EXPECT_EQ(CountLines("a\rb"), 2U);
    EXPECT_EQ(CountLines("a\r"), 1U);
    EXPECT_EQ(CountLines("\r\r\n\n"), 3U);
    EXPECT_EQ(CountLines("\xEF\xBB\xBF"), 0U);
    EXPECT_EQ(CountLines("\xEF\xBB\xBF\n"), 1U);
}

TEST(CountLines, AgreesWithReadingLineByLine) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers random;
    constexpr std::string_view characters = "ab,\n\r ";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (std::uint64_t length = random.Below(12); length > 0; --length) text += characters[random.Below(6)];
        FieldReader reader(text, "a");
        std::uint64_t lines = 0;
        for (; !reader.AtEnd(); ++lines) reader.ReadLine();
        ASSERT_EQ(CountLines(text), lines) << ::testing::PrintToString(text);
    }
}

TEST(FieldReader, RepeatedFieldsReadTheSame) {
    FieldReader reader("1.5 1.5,1.50 1.5\r\n1.5\t1.55 1.5 -2 x", "a.txt");
    FieldReader::LastField last;
    for (const double expected : {1.5, 1.5, 1.5, 1.5, 1.5, 1.55, 1.5, -2.0})
        EXPECT_EQ(reader.ReadNumber(last), expected);
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { reader.ReadNumber(last); }));
    EXPECT_EQ(last.Value, -2);
    FieldReader atEnd("7 7", "a.txt");
    FieldReader::LastField seven;
    EXPECT_EQ(atEnd.ReadNumber(seven), 7);
    EXPECT_EQ(atEnd.ReadNumber(seven), 7);
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { atEnd.ReadNumber(seven); }));
    FieldReader wrong("7 7x", "a.txt");
    EXPECT_EQ(wrong.ReadNumber(seven), 7);
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { wrong.ReadNumber(seven); }));
}

TEST(CountLines, CountsEveryKindOfLineEnd) {
    EXPECT_EQ(CountLines("a\r\nb\rc\nd"), 4u);
    EXPECT_EQ(CountLines("\r\r\n\n\r"), 4u);
    EXPECT_EQ(CountLines("\n"), 1u);
    EXPECT_EQ(CountLines("\r"), 1u);
    EXPECT_EQ(CountLines("x"), 1u);
}

}  // namespace
}  // namespace crownlab
