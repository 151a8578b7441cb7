// Dump lines: escapes of the token text and the line layout.
#include "Cpp_TokenDump.h"
#include "Cpp_TokenType.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

TEST(TokenDumpTest, QuoteEscapes)
{
    EXPECT_EQ(Cpp::quoteText("a\\b\"c\nd\re\tf"), R"("a\\b\"c\nd\re\tf")");
    EXPECT_EQ(Cpp::quoteText(std::string("\x01\x1f\x7f", 3)), R"("\x01\x1f\x7f")");
    EXPECT_EQ(Cpp::quoteText(std::string("\0", 1)), R"("\x00")");
    EXPECT_EQ(Cpp::quoteText("\xc3\xa9"), "\"\xc3\xa9\"");
    EXPECT_EQ(Cpp::quoteText(""), "\"\"");
}

TEST(TokenDumpTest, LineLayout)
{
    const Trn::Token t(Cpp::IDENTIFIER, Trn::Position(3, 4), Trn::Position(3, 6), "abc", std::string("abc"));
    EXPECT_EQ(Cpp::dumpLine(t), R"(3:4 3:6 120 IDENTIFIER "abc")");
}

TEST(TokenDumpTest, DumpStopsBeforeEndOfFile)
{
    std::istringstream in("int x;");
    std::ostringstream out;
    Cpp::dumpTokens(in, out);
    EXPECT_EQ(out.str(), "1:1 1:3 113 INT_KEY \"int\"\n1:5 1:5 120 IDENTIFIER \"x\"\n1:6 1:6 6 SEMICOLON \";\"\n");
}

} // namespace
