// OTextDocStream: columns, the three tab modes, line endings and literal
// tracking.
#include "Varnel_Contract.h"
#include "Varnel_OTextDocStream.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

struct Written {
    std::string text;
    std::int32_t line;
    std::int32_t col;
};

Written write(std::int32_t tabMode, std::int32_t tabSize, const std::string& text,
              std::int32_t lineEnding = Varnel::LineBuf::NATIVE)
{
    std::ostringstream target;
    Written w;
    {
        Varnel::OTextDocStream out(target, tabMode, tabSize, 1, 0, lineEnding);
        out << text;
        out.flush();
        w.line = out.line();
        w.col = out.col();
    }
    w.text = target.str();
    return w;
}

TEST(OTextDocStreamTest, StartsAtFirstLineAndColumn)
{
    std::ostringstream target;
    Varnel::OTextDocStream out(target, 0, 4, 3, 7);
    EXPECT_EQ(out.line(), 3);
    EXPECT_EQ(out.col(), 7);
}

TEST(OTextDocStreamTest, ValuesBelowMinimumAreRaised)
{
    std::ostringstream target;
    Varnel::OTextDocStream out(target, 0, 0, 0, -5);
    EXPECT_EQ(out.buf().tabSize(), 1);
    EXPECT_EQ(out.line(), 1);
    EXPECT_EQ(out.col(), 0);
}

TEST(OTextDocStreamTest, TabModeOutsideRangeFailsTheContract)
{
    std::ostringstream target;
    try {
        Varnel::OTextDocStream out(target, 3, 4);
        FAIL() << "no violation";
    } catch (const Varnel::ContractViolation& v) {
        EXPECT_EQ(v.condition(), "false");
    }
    EXPECT_THROW(Varnel::OTextDocBuf::checkTabMode(-1), Varnel::ContractViolation);
    EXPECT_EQ(Varnel::OTextDocBuf::checkTabMode(2), 2);
}

TEST(OTextDocStreamTest, PositionAfterNewlineTabAndText)
{
    const Written w = write(0, 4, "ab\n\tc");
    EXPECT_EQ(w.text, "ab\n\tc");
    EXPECT_EQ(w.line, 2);
    EXPECT_EQ(w.col, 5);
}

TEST(OTextDocStreamTest, TabOnAStopMovesAWholeTab)
{
    EXPECT_EQ(write(0, 4, "abcd\t").col, 8);
    EXPECT_EQ(write(0, 4, "abc\t").col, 4);
}

TEST(OTextDocStreamTest, ModeZeroPassesEverything)
{
    const Written w = write(0, 4, "a\t b        c");
    EXPECT_EQ(w.text, "a\t b        c");
}

TEST(OTextDocStreamTest, ModeOneTabAfterOneCharacterIsThreeBlanks)
{
    const Written w = write(1, 4, "a\tb");
    EXPECT_EQ(w.text, "a   b");
    EXPECT_EQ(w.col, 5);
}

TEST(OTextDocStreamTest, ModeOneTabAtAStopIsAWholeTabOfBlanks)
{
    EXPECT_EQ(write(1, 4, "\tx").text, "    x");
    EXPECT_EQ(write(1, 4, "abcd\tx").text, "abcd    x");
}

TEST(OTextDocStreamTest, ModeTwoEightBlanksAtColumnZeroGiveTwoTabs)
{
    const Written w = write(2, 4, "        ");
    EXPECT_EQ(w.text, "\t\t");
    EXPECT_EQ(w.col, 8);
}

TEST(OTextDocStreamTest, ModeTwoSixBlanksGiveATabAndTwoBlanks)
{
    const Written w = write(2, 4, "      x");
    EXPECT_EQ(w.text, "\t  x");
    EXPECT_EQ(w.col, 7);
}

TEST(OTextDocStreamTest, ModeTwoTwoBlanksAfterACharacterStayBlanks)
{
    const Written w = write(2, 4, "a  b");
    EXPECT_EQ(w.text, "a  b");
    EXPECT_EQ(w.col, 4);
}

TEST(OTextDocStreamTest, ModeTwoRunOffAStopIsFilledWithBlanksUpToTheStop)
{
    // Blanks at columns 1 to 3 go out as they come; from the stop at 4 on
    // they are held and make a tab.
    EXPECT_EQ(write(2, 4, "a       b").text, "a   \tb");
}

TEST(OTextDocStreamTest, ModeTwoHeldBlanksCountInTheColumnAndGoOutOnFlush)
{
    std::ostringstream target;
    Varnel::OTextDocStream out(target, 2, 4);
    out << "  ";
    EXPECT_EQ(out.col(), 2);
    EXPECT_EQ(target.str(), "");
    out.flush();
    EXPECT_EQ(target.str(), "  ");
}

TEST(OTextDocStreamTest, ModeTwoHeldBlanksGoOutOnDestruction)
{
    std::ostringstream target;
    {
        Varnel::OTextDocStream out(target, 2, 4);
        out << "x;\n   ";
    }
    EXPECT_EQ(target.str(), "x;\n   ");
}

TEST(OTextDocStreamTest, ModeTwoBlanksBeforeATabStayBlanks)
{
    EXPECT_EQ(write(2, 4, "  \tx").text, "  \tx");
}

TEST(OTextDocStreamTest, ModeOneKeepsATabInsideAStringLiteral)
{
    // The kept tab moves the column to 8, so the second tab is one blank wide.
    EXPECT_EQ(write(1, 4, "s = \"a\tb\";\tx").text, "s = \"a\tb\"; x");
}

TEST(OTextDocStreamTest, ModeOneKeepsATabAfterAnEscapedQuoteInsideAString)
{
    EXPECT_EQ(write(1, 4, "\"a\\\"\tb\"").text, "\"a\\\"\tb\"");
}

TEST(OTextDocStreamTest, ModeOneKeepsATabInsideACharacterLiteral)
{
    EXPECT_EQ(write(1, 4, "c = '\t';").text, "c = '\t';");
}

TEST(OTextDocStreamTest, AnotherQuoteKindDoesNotEndALiteral)
{
    // The double quote inside the character literal opens nothing, and the
    // apostrophe inside the string ends nothing.
    EXPECT_EQ(write(1, 4, "'\"'\tx").text, "'\"' x");
    EXPECT_EQ(write(1, 4, "\"'\t\"").text, "\"'\t\"");
}

TEST(OTextDocStreamTest, NewlineEndsAnUnterminatedLiteral)
{
    std::ostringstream target;
    Varnel::OTextDocStream out(target, 1, 4);
    out << "\"abc";
    EXPECT_TRUE(out.buf().inLiteral());
    out << "\n\tx";
    EXPECT_FALSE(out.buf().inLiteral());
    out.flush();
    EXPECT_EQ(target.str(), "\"abc\n    x");
}

TEST(OTextDocStreamTest, EscapedNewlineContinuesALiteral)
{
    // "a\<newline>        b": the blanks belong to the string, in every mode.
    EXPECT_EQ(write(2, 4, "\"a\\\n        b\"\t").text, "\"a\\\n        b\"\t");
    EXPECT_EQ(write(1, 4, "\"a\\\n\tb\"\tx").text, "\"a\\\n\tb\"  x");
}

TEST(OTextDocStreamTest, ModeTwoKeepsBlanksInsideALiteral)
{
    EXPECT_EQ(write(2, 4, "\"        \"").text, "\"        \"");
}

TEST(OTextDocStreamTest, EscapedQuoteOutsideALiteralOpensNone)
{
    EXPECT_EQ(write(1, 4, "\\'\tx").text, "\\'  x");
}

TEST(OTextDocStreamTest, LineEndings)
{
    EXPECT_EQ(write(0, 4, "a\nb\n", Varnel::LineBuf::CRLF).text, "a\r\nb\r\n");
    EXPECT_EQ(write(0, 4, "a\nb\n", Varnel::LineBuf::LF).text, "a\nb\n");
    EXPECT_EQ(write(0, 4, "a\nb\n", Varnel::LineBuf::NATIVE).text, "a\nb\n");
    // Columns count characters of the text, not of the line ending.
    EXPECT_EQ(write(0, 4, "a\nbc", Varnel::LineBuf::CRLF).col, 2);
}

TEST(OTextDocStreamTest, SetTabModeWritesHeldBlanksFirst)
{
    std::ostringstream target;
    Varnel::OTextDocStream out(target, 2, 4);
    out << "  ";
    out.buf().setTabMode(0);
    EXPECT_EQ(target.str(), "  ");
    out << "  ";
    out.flush();
    EXPECT_EQ(target.str(), "    ");
}

TEST(OTextDocStreamTest, FailingTargetSetsTheStreamState)
{
    std::ostream broken(nullptr); // no buffer to write to
    Varnel::OTextDocStream out(broken, 0, 4);
    out << "x";
    EXPECT_FALSE(out.good());
}

// Every tab mode gives the same column for the same text: the column is the
// one the text would have when displayed with the tab size.
TEST(OTextDocStreamTest, ColumnIsTheSameInEveryMode)
{
    const std::string texts[] = {"a\tb", "        x", "ab  \t  cd   e", "\t\t x", "x     \"\t\"  y"};
    for (std::int32_t size = 1; size <= 9; ++size) {
        for (const auto& text : texts) {
            const std::int32_t col = write(0, size, text).col;
            EXPECT_EQ(write(1, size, text).col, col) << size << " " << text;
            EXPECT_EQ(write(2, size, text).col, col) << size << " " << text;
        }
    }
}

// Mode 1 output holds no tab outside a literal, and mode 2 output read back
// with the same tab size lands every character at the same column as mode 0.
TEST(OTextDocStreamTest, ExpandedAndCompressedTextsDisplayAlike)
{
    auto columnsOf = [](const std::string& text, std::int32_t size) {
        std::string shown;
        std::int32_t col = 0;
        for (const char c : text) {
            if (c == '\t') {
                const std::int32_t next = (col / size + 1) * size;
                shown.append(static_cast<std::size_t>(next - col), ' ');
                col = next;
            } else {
                shown += c;
                ++col;
            }
        }
        return shown;
    };
    const std::string texts[] = {"a\tb", "        x", "ab  \t  cd   e", "\t\t x", "  a      b  "};
    for (std::int32_t size = 1; size <= 9; ++size) {
        for (const auto& text : texts) {
            const std::string shown = columnsOf(text, size);
            const std::string expanded = write(1, size, text).text;
            EXPECT_EQ(expanded.find('\t'), std::string::npos);
            EXPECT_EQ(expanded, shown) << size << " " << text;
            EXPECT_EQ(columnsOf(write(2, size, text).text, size), shown) << size << " " << text;
        }
    }
}

} // namespace
