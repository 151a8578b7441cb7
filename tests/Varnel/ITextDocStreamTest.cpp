// ITextDocStream: characters and positions, whatever the line endings, with
// put-back over newlines.
#include "Varnel_ITextDocStream.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

struct Step {
    int c;
    std::int32_t line;
    std::int32_t col;
    friend bool operator==(const Step&, const Step&) = default;
};

std::vector<Step> readSteps(const std::string& raw)
{
    std::istringstream source(raw);
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    std::vector<Step> steps;
    for (int c = in.get(); c != std::char_traits<char>::eof(); c = in.get())
        steps.push_back({c, in.line(), in.col()});
    return steps;
}

TEST(ITextDocStreamTest, LineEndingsGiveSameCharactersAndPositions)
{
    const auto lf = readSteps("ab\ncd\n");
    EXPECT_EQ(readSteps("ab\r\ncd\r\n"), lf);
    EXPECT_EQ(readSteps("ab\rcd\r"), lf);
    ASSERT_EQ(lf.size(), 6u);
    EXPECT_EQ(lf[2], (Step{'\n', 2, 0}));
    EXPECT_EQ(lf[3], (Step{'c', 2, 1}));
}

TEST(ITextDocStreamTest, UnreadOverNewlineRestoresEndOfPreviousLine)
{
    std::istringstream source("abc\nd");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    for (int i = 0; i < 4; ++i)
        in.get();
    EXPECT_EQ(in.line(), 2);
    EXPECT_EQ(in.col(), 0);
    ASSERT_TRUE(in.unget());
    EXPECT_EQ(in.line(), 1);
    EXPECT_EQ(in.col(), 3);
    EXPECT_EQ(in.get(), '\n');
    EXPECT_EQ(in.get(), 'd');
    EXPECT_EQ(in.line(), 2);
    EXPECT_EQ(in.col(), 1);
}

TEST(ITextDocStreamTest, MoreThanFourConsecutiveUnreadsFail)
{
    std::istringstream source("abcdefgh");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    Varnel::ITextDocBuf& buf = in.buf();
    for (int i = 0; i < 6; ++i)
        buf.getChar();
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(buf.ungetChar()) << i;
    EXPECT_FALSE(buf.ungetChar());
    EXPECT_EQ(buf.col(), 2);
    EXPECT_EQ(buf.getChar(), 'c');
}

TEST(ITextDocStreamTest, UnreadAtStartFails)
{
    std::istringstream source("a");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    EXPECT_FALSE(in.buf().ungetChar());
    EXPECT_EQ(in.line(), 1);
    EXPECT_EQ(in.col(), 0);
}

TEST(ITextDocStreamTest, EmptyDocumentEndsAtOnceAtFirstPosition)
{
    std::istringstream source("");
    Varnel::ITextDocStream in(source, 0, 1, 3, 5);
    EXPECT_EQ(in.get(), std::char_traits<char>::eof());
    EXPECT_EQ(in.line(), 3);
    EXPECT_EQ(in.col(), 5);
}

TEST(ITextDocStreamTest, TabAtLineStartCountsOne)
{
    std::istringstream source("\tx");
    Varnel::ITextDocStream in(source, 0, 8, 1, 0);
    EXPECT_EQ(in.get(), '\t');
    EXPECT_EQ(in.col(), 1);
}

TEST(ITextDocStreamTest, ValuesBelowMinimumAreRaised)
{
    std::istringstream source("");
    Varnel::ITextDocStream in(source, 0, 0, 0, -3);
    EXPECT_EQ(in.buf().tabSize(), 1);
    EXPECT_EQ(in.line(), 1);
    EXPECT_EQ(in.col(), 0);
}

TEST(ITextDocStreamTest, PeekDoesNotAdvanceAndUnreadAfterPeekWorks)
{
    std::istringstream source("ab\ncd");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    Varnel::ITextDocBuf& buf = in.buf();
    EXPECT_EQ(buf.getChar(), 'a');
    EXPECT_EQ(buf.getChar(), 'b');
    EXPECT_EQ(buf.peekChar(), '\n');
    EXPECT_EQ(buf.col(), 2);
    ASSERT_TRUE(buf.ungetChar());
    EXPECT_EQ(buf.col(), 1);
    EXPECT_EQ(buf.getChar(), 'b');
    EXPECT_EQ(buf.getChar(), '\n');
    EXPECT_EQ(buf.line(), 2);
    EXPECT_EQ(buf.getChar(), 'c');
}

TEST(ITextDocStreamTest, PutBackOfAnotherCharacterAfterPeek)
{
    std::istringstream source("xy");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    Varnel::ITextDocBuf& buf = in.buf();
    buf.getChar();
    buf.peekChar();
    ASSERT_TRUE(buf.ungetChar('q'));
    EXPECT_EQ(buf.getChar(), 'q');
    EXPECT_EQ(buf.getChar(), 'y');
}

TEST(ITextDocStreamTest, StandardStreamOperationsKeepPositions)
{
    std::istringstream source("word rest");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    std::string word;
    in >> word;
    EXPECT_EQ(word, "word");
    EXPECT_EQ(in.col(), 4);
    EXPECT_EQ(in.peek(), ' ');
    EXPECT_EQ(in.col(), 4);
}

TEST(ITextDocStreamTest, LastLineLength)
{
    std::istringstream source("abc\nde\nf");
    Varnel::ITextDocStream in(source, 0, 1, 1, 0);
    while (in.get() != std::char_traits<char>::eof()) {
    }
    EXPECT_EQ(in.buf().lastLineLength(), 2);
}

} // namespace
