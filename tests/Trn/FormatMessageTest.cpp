// Messages: the coded texts and equality.
#include "Trn_FormatMessage.h"

#include <gtest/gtest.h>

namespace {

TEST(FormatMessageTest, CodedTexts)
{
    EXPECT_EQ(Trn::messageText(1), "Unexpected EOF found.");
    EXPECT_EQ(Trn::messageText(2), "Unexpected token. Was expecting to find \";\" or \"{\".");
    EXPECT_EQ(Trn::messageText(5), Trn::messageText(6));
    EXPECT_EQ(Trn::messageText(7), "The statement cannot be parsed.");
    EXPECT_EQ(Trn::messageText(8), "public: protected: private: labels are not allowed inside block statements.");
    EXPECT_EQ(Trn::messageText(12), "Expected \")\". Possible unbalanced parentheses.");
    EXPECT_EQ(Trn::messageText(15),
              "Expected an identifier, an integer literal or the \"using\" keyword as part of the embedded compiler "
              "extension syntax \"interrupt n using n\"");
}

TEST(FormatMessageTest, CodeOutsideTableIsUnknown)
{
    EXPECT_EQ(Trn::messageText(0), "Unknown error.");
    EXPECT_EQ(Trn::messageText(16), "Unknown error.");
    EXPECT_EQ(Trn::messageText(-1), "Unknown error.");
}

TEST(FormatMessageTest, CodedAndComposedMessagesAreErrors)
{
    const auto coded = Trn::FormatMessage::coded(8, Trn::Position(3, 4));
    EXPECT_EQ(coded.severity, 3);
    EXPECT_EQ(coded.code, 8);
    EXPECT_EQ(coded.position, Trn::Position(3, 4));
    EXPECT_EQ(coded.text, Trn::messageText(8));
    const auto composed = Trn::FormatMessage::composed("Expected '{'. Got: x", Trn::Position(1, 1));
    EXPECT_EQ(composed.code, 0);
    EXPECT_EQ(composed.severity, 3);
}

TEST(FormatMessageTest, EqualityNeedsAllFourFields)
{
    const Trn::FormatMessage m(3, Trn::Position(1, 2), 7, "t");
    EXPECT_EQ(m, Trn::FormatMessage(3, Trn::Position(1, 2), 7, "t"));
    EXPECT_NE(m, Trn::FormatMessage(2, Trn::Position(1, 2), 7, "t"));
    EXPECT_NE(m, Trn::FormatMessage(3, Trn::Position(1, 3), 7, "t"));
    EXPECT_NE(m, Trn::FormatMessage(3, Trn::Position(1, 2), 8, "t"));
    EXPECT_NE(m, Trn::FormatMessage(3, Trn::Position(1, 2), 7, "u"));
}

} // namespace
