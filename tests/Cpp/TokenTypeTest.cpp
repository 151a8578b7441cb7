// The token vocabulary: fixed numbers, names and word tables.
#include "Cpp_TokenType.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

TEST(TokenTypeTest, FixedNumbers)
{
    EXPECT_EQ(Cpp::END_OF_FILE, -1);
    EXPECT_EQ(Cpp::INVALID_TOKEN, 0);
    EXPECT_EQ(Cpp::PREPROC_DIRECTIVE, 1);
    EXPECT_EQ(Cpp::SEMICOLON, 6);
    EXPECT_EQ(Cpp::ARROW_STAR, 52);
    EXPECT_EQ(Cpp::LINE_CONTINUATION, 53);
    EXPECT_EQ(Cpp::CLASS_KEY, 54);
    EXPECT_EQ(Cpp::STRUCT_KEY, 55);
    EXPECT_EQ(Cpp::FRIEND_KEY, 72);
    EXPECT_EQ(Cpp::STATIC_CAST_KEY, 77);
    EXPECT_EQ(Cpp::REINTERPRET_CAST_KEY, 80);
    EXPECT_EQ(Cpp::IF_KEY, 94);
    EXPECT_EQ(Cpp::UNUSED_KEY, 96);
    EXPECT_EQ(Cpp::RETURN_KEY, 108);
    EXPECT_EQ(Cpp::CHAR_KEY, 109);
    EXPECT_EQ(Cpp::VOID_KEY, 117);
    EXPECT_EQ(Cpp::LINE_COMMENT, 118);
    EXPECT_EQ(Cpp::BLOCK_COMMENT, 119);
    EXPECT_EQ(Cpp::IDENTIFIER, 120);
}

TEST(TokenTypeTest, NamesFollowNumbers)
{
    EXPECT_STREQ(Cpp::tokenTypeName(-1), "END_OF_FILE");
    EXPECT_STREQ(Cpp::tokenTypeName(0), "INVALID_TOKEN");
    EXPECT_STREQ(Cpp::tokenTypeName(82), "OPERATOR_KEY");
    EXPECT_STREQ(Cpp::tokenTypeName(120), "IDENTIFIER");
    EXPECT_STREQ(Cpp::tokenTypeName(121), "UNKNOWN");
    EXPECT_STREQ(Cpp::tokenTypeName(-2), "UNKNOWN");
}

TEST(TokenTypeTest, KeywordMapHoldsSixtyThreeWords)
{
    const auto& words = Cpp::keywordMap();
    EXPECT_EQ(words.size(), 63u);
    for (const auto& [word, type] : words) {
        EXPECT_GE(type, Cpp::FIRST_KEYWORD) << word;
        EXPECT_LE(type, Cpp::LAST_KEYWORD) << word;
        EXPECT_NE(type, Cpp::UNUSED_KEY) << word;
    }
    EXPECT_EQ(Cpp::keywordType("wchar_t"), Cpp::WCHAR_T_KEY);
    EXPECT_EQ(Cpp::keywordType("Int"), Cpp::INVALID_TOKEN);
    EXPECT_EQ(Cpp::keywordType("nullptr"), Cpp::INVALID_TOKEN);
}

TEST(TokenTypeTest, SplitWords)
{
    EXPECT_TRUE(Cpp::isSplitWord("new"));
    EXPECT_TRUE(Cpp::isSplitWord("delete"));
    EXPECT_TRUE(Cpp::isSplitWord("operator"));
    EXPECT_FALSE(Cpp::isSplitWord("throw"));
}

TEST(TokenTypeTest, TablesBuiltOnceWhenManyThreadsAskFirst)
{
    std::vector<std::thread> threads;
    std::vector<std::int32_t> seen(8, 0);
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&seen, i] { seen[static_cast<std::size_t>(i)] = Cpp::keywordType("friend"); });
    for (auto& t : threads)
        t.join();
    for (const std::int32_t type : seen)
        EXPECT_EQ(type, Cpp::FRIEND_KEY);
}

} // namespace
