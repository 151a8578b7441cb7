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

TEST(TextTest, UnescapesBackslashes)
{
    EXPECT_EQ(Varnel::unescapeBackslashes(R"(a\tb\nc\rd\ve\\f)"), "a\tb\nc\rd\ve\\f");
    EXPECT_EQ(Varnel::unescapeBackslashes(R"(\"q\'\z)"), "\"q'z");
    EXPECT_EQ(Varnel::unescapeBackslashes("end\\"), "end");
    EXPECT_EQ(Varnel::unescapeBackslashes(""), "");
}

} // namespace
