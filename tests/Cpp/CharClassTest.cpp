// The lexer's character table agrees with the C library in the "C" locale.
#include "Cpp_CharClass.h"

#include <gtest/gtest.h>

#include <cctype>

namespace {

TEST(CharClassTest, MatchesCLibraryForEveryByte)
{
    using namespace Cpp::CharClass;
    for (int c = 0; c < 256; ++c) {
        const int ch = static_cast<char>(c); // as the lexer sees a byte
        const auto u = static_cast<unsigned char>(c);
        EXPECT_EQ(isSpace(ch), std::isspace(u) != 0) << c;
        EXPECT_EQ(isAlpha(ch), std::isalpha(u) != 0) << c;
        EXPECT_EQ(isAlnum(ch), std::isalnum(u) != 0) << c;
        EXPECT_EQ(isDigit(ch), std::isdigit(u) != 0) << c;
        EXPECT_EQ(isXDigit(ch), std::isxdigit(u) != 0) << c;
        EXPECT_EQ(isPunct(ch), std::ispunct(u) != 0) << c;
    }
    EXPECT_FALSE(isSpace(END));
    EXPECT_FALSE(isPunct(END));
}

} // namespace
