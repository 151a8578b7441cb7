// Trimming and unescaping helpers.
#include "Varnel_Text.h"

#include <gtest/gtest.h>

namespace {

TEST(TextTest, Trims)
{
    EXPECT_EQ(Varnel::trimLeft(" \t a b \n"), "a b \n");
    EXPECT_EQ(Varnel::trimRight(" \t a b \r\n"), " \t a b");
    EXPECT_EQ(Varnel::trim("  x  "), "x");
    EXPECT_EQ(Varnel::trim(" \n\t "), "");
    EXPECT_EQ(Varnel::trim(""), "");
}

TEST(TextTest, LowersAsciiCapitalsOnly)
{
    EXPECT_EQ(Varnel::toLower("Main.CPP"), "main.cpp");
    EXPECT_EQ(Varnel::toLower("Proj.VcxProj"), "proj.vcxproj");
    EXPECT_EQ(Varnel::toLower("a_1-B\xC9"), "a_1-b\xC9");
    EXPECT_EQ(Varnel::toLower(""), "");
}

TEST(TextTest, UnescapesBackslashes)
{
    EXPECT_EQ(Varnel::unescapeBackslashes(R"(a\tb\nc\rd\ve\\f)"), "a\tb\nc\rd\ve\\f");
    EXPECT_EQ(Varnel::unescapeBackslashes(R"(\"q\'\z)"), "\"q'z");
    EXPECT_EQ(Varnel::unescapeBackslashes("end\\"), "end");
    EXPECT_EQ(Varnel::unescapeBackslashes(""), "");
}

TEST(TextTest, EscapesControlCharactersToKeepATextOnOneLine)
{
    EXPECT_EQ(Varnel::escapeControlCharacters("a\nb\r\tc\x01\x7f \"q\" \\"), "a\\nb\\r\\tc\\x01\\x7f \"q\" \\");
    EXPECT_EQ(Varnel::escapeControlCharacters("\"q\" \\ \n", true), "\\\"q\\\" \\\\ \\n");
    EXPECT_EQ(Varnel::escapeControlCharacters("caf\xc3\xa9"), "caf\xc3\xa9");
}

} // namespace

