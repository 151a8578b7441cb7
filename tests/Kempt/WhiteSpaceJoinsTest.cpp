// White-space joins: trimming and setting the edges of a gap without losing a
// comment or a directive, and without anything behind a "//" comment.
#include "Kempt_WhiteSpaceJoins.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace {

using namespace Kempt;

std::string trimLeading(std::string a)
{
    return trimLeadingWhiteSpace(a);
}

std::string trimTrailing(std::string a)
{
    return trimTrailingWhiteSpace(a);
}

std::string leading(std::string a, const std::string& b)
{
    return setLeadingWhiteSpace(a, b);
}

std::string trailing(std::string a, const std::string& b)
{
    return setTrailingWhiteSpace(a, b);
}

std::string surrounding(std::string a, const std::string& b, const std::string& c)
{
    return setSurroundingWhiteSpace(a, b, c);
}

TEST(WhiteSpaceJoinsTest, StartsAndEndsWithLineComment)
{
    EXPECT_TRUE(startsWithLineComment("  // c\n  "));
    EXPECT_TRUE(startsWithLineComment("#define X\n"));
    EXPECT_FALSE(startsWithLineComment("/* c */ // d\n"));
    EXPECT_FALSE(startsWithLineComment("  "));
    EXPECT_FALSE(startsWithLineComment(""));
    EXPECT_TRUE(endsWithLineComment("/* c */ // d\n  "));
    EXPECT_TRUE(endsWithLineComment(" // d"));
    EXPECT_TRUE(endsWithLineComment("\n#endif\n"));
    EXPECT_FALSE(endsWithLineComment("// d\n/* e */"));
    EXPECT_FALSE(endsWithLineComment(""));
}

TEST(WhiteSpaceJoinsTest, TheReturnedStringIsTheArgument)
{
    std::string a = "  x";
    EXPECT_EQ(&trimLeadingWhiteSpace(a), &a);
    EXPECT_EQ(a, "x");
    EXPECT_EQ(&setSurroundingWhiteSpace(a, " ", " "), &a);
    EXPECT_EQ(a, " x ");
}

TEST(WhiteSpaceJoinsTest, TrimLeading)
{
    EXPECT_EQ(trimLeading(" \n\t/* c */ "), "/* c */ ");
    EXPECT_EQ(trimLeading("   "), "");
    // Behind a leading "//" comment only the rest is trimmed.
    EXPECT_EQ(trimLeading("  // c\n   /* d */"), "  // c\n/* d */");
    // Without a newline the text stays.
    EXPECT_EQ(trimLeading("  // c"), "  // c");
}

TEST(WhiteSpaceJoinsTest, TrimTrailing)
{
    EXPECT_EQ(trimTrailing(" /* c */ \n\t"), " /* c */");
    EXPECT_EQ(trimTrailing("// c\n   "), "// c\n");
    // The comment's own newline is not trimmed away.
    EXPECT_EQ(trimTrailing(" // c\n"), " // c\n");
    EXPECT_EQ(trimTrailing(" // c"), " // c");
}

TEST(WhiteSpaceJoinsTest, SetLeading)
{
    EXPECT_EQ(leading("  \n x", " "), " x");
    EXPECT_EQ(leading("  // c\n   /* d */", "\t"), "  // c\n\t/* d */");
}

TEST(WhiteSpaceJoinsTest, SetLeadingOnALineCommentWithoutNewlineIsEmpty)
{
    EXPECT_EQ(leading("// c", " "), "");
    EXPECT_EQ(leading("  // c", "\n"), "");
}

TEST(WhiteSpaceJoinsTest, SetTrailing)
{
    EXPECT_EQ(trailing(" /* c */  \n", " "), " /* c */ ");
    EXPECT_EQ(trailing("  \n ", "\n  "), "\n  ");
    // Behind a "//" comment a value without a newline is not added.
    EXPECT_EQ(trailing(" // c\n   ", " "), " // c\n");
    // A value with a newline replaces the comment's newline.
    EXPECT_EQ(trailing(" // c\n   ", "\n\t"), " // c\n\t");
}

TEST(WhiteSpaceJoinsTest, SetSurrounding)
{
    EXPECT_EQ(surrounding("  /* c */  ", "\n", " "), "\n/* c */ ");
    // A gap of white space only: the leading value is trimmed away again.
    EXPECT_EQ(surrounding("   ", "\n", " "), " ");
    // c is appended even behind a "//" comment: its newline keeps it apart.
    EXPECT_EQ(surrounding(" // c\n   ", " ", " "), " // c\n ");
    // A leading comment keeps its place; the trailing white space is c.
    EXPECT_EQ(surrounding("// a\n  x  ", "\t", "\n"), "// a\n\tx\n");
}

TEST(WhiteSpaceJoinsTest, DirectivesCountAsLineComments)
{
    EXPECT_EQ(trailing("\n#endif\n  ", " "), "\n#endif\n");
    EXPECT_EQ(leading("#if X\n  y", "  "), "#if X\n  y");
}

TEST(WhiteSpaceJoinsTest, NoCommentIsEverLost)
{
    const std::string gaps[] = {"", " ", "\n\n  ", " // a\n", "/* b */", " /* b */ // a\n  ", "// a", "\n#if X\n"};
    const std::string values[] = {"", " ", "\n", "\n\t"};
    auto comments = [](const std::string& s) {
        std::string out;
        for (char c : s)
            if (!std::isspace(static_cast<unsigned char>(c)))
                out += c;
        return out;
    };
    for (const auto& gap : gaps) {
        for (const auto& b : values) {
            EXPECT_EQ(comments(trimLeading(gap)), comments(gap));
            EXPECT_EQ(comments(trimTrailing(gap)), comments(gap));
            EXPECT_EQ(comments(trailing(gap, b)), comments(gap)) << "[" << gap << "] [" << b << "]";
            // The one exception: a "//" comment with no newline behind it.
            if (gap != "// a") {
                EXPECT_EQ(comments(leading(gap, b)), comments(gap)) << "[" << gap << "] [" << b << "]";
                EXPECT_EQ(comments(surrounding(gap, b, b)), comments(gap)) << "[" << gap << "] [" << b << "]";
            }
        }
    }
}

} // namespace
