// TokenIterator: pairs of neighbouring tokens, fenced regions folded into one
// empty comment token, and skipToMatching.
#include "Kempt_TokenIterator.h"

#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Kempt::TokenIterator;
using Trn::Position;

// Every token the iterator gives, in the usual loop.
std::vector<Trn::Token> walk(const std::string& text, const Kempt::MarkerList& markers = Kempt::defaultRegionMarkers())
{
    std::vector<Trn::Token> tokens;
    TokenIterator it(text, markers);
    for (it.advance(); it.more(); it.advance())
        tokens.push_back(it.left());
    if (it.left().type() != Cpp::END_OF_FILE)
        tokens.push_back(it.left());
    return tokens;
}

std::vector<std::string> texts(const std::vector<Trn::Token>& tokens)
{
    std::vector<std::string> out;
    for (const auto& t : tokens)
        out.push_back(t.text());
    return out;
}

TEST(TokenIteratorTest, StartsBeforeTheFirstToken)
{
    TokenIterator it("a b");
    EXPECT_EQ(it.left().type(), Cpp::END_OF_FILE);
    EXPECT_EQ(it.left().start(), Position());
    EXPECT_EQ(it.right().type(), 0);
    EXPECT_EQ(it.right().start(), Position());
    EXPECT_TRUE(it.more());
}

TEST(TokenIteratorTest, EmptyTextEndsAtOnce)
{
    TokenIterator it("");
    it.advance();
    EXPECT_EQ(it.left().type(), Cpp::END_OF_FILE);
    EXPECT_EQ(it.right().type(), Cpp::END_OF_FILE);
    EXPECT_FALSE(it.more());
}

TEST(TokenIteratorTest, WhiteSpaceOnlyTextEndsAtOnce)
{
    TokenIterator it("  \n\t ");
    it.advance();
    EXPECT_EQ(it.left().type(), Cpp::END_OF_FILE);
    EXPECT_FALSE(it.more());
}

TEST(TokenIteratorTest, OneTokenStandsInLeftAfterTheFirstAdvance)
{
    TokenIterator it("  x ");
    it.advance();
    EXPECT_FALSE(it.more());
    EXPECT_EQ(it.left().type(), Cpp::IDENTIFIER);
    EXPECT_EQ(it.left().text(), "x");
    EXPECT_EQ(it.right().type(), Cpp::END_OF_FILE);
}

TEST(TokenIteratorTest, PairsMoveOneTokenAtATime)
{
    TokenIterator it("a = b;");
    ++it;
    EXPECT_EQ(it.left().text(), "a");
    EXPECT_EQ(it.right().type(), Cpp::EQUALS);
    ++it;
    EXPECT_EQ(it.left().type(), Cpp::EQUALS);
    EXPECT_EQ(it.right().text(), "b");
    ++it;
    EXPECT_EQ(it.right().type(), Cpp::SEMICOLON);
    EXPECT_TRUE(it.more());
    ++it;
    EXPECT_EQ(it.left().type(), Cpp::SEMICOLON);
    EXPECT_FALSE(it.more());
}

TEST(TokenIteratorTest, AdvanceAtTheEndChangesNothing)
{
    TokenIterator it("a b");
    it.advance().advance();
    EXPECT_EQ(it.left().text(), "b");
    EXPECT_FALSE(it.more());
    it.advance();
    EXPECT_EQ(it.left().text(), "b");
    EXPECT_EQ(it.right().type(), Cpp::END_OF_FILE);
}

TEST(TokenIteratorTest, TokensKeepTheirTextAndPositions)
{
    const auto tokens = walk("x  // c\n/* b */ y");
    ASSERT_EQ(tokens.size(), 4u);
    EXPECT_EQ(tokens[1].type(), Cpp::LINE_COMMENT);
    EXPECT_EQ(tokens[1].text(), "// c\n");
    EXPECT_EQ(tokens[2].type(), Cpp::BLOCK_COMMENT);
    EXPECT_EQ(tokens[2].start(), Position(2, 1));
    EXPECT_EQ(tokens[3].start(), Position(2, 9));
}

TEST(TokenIteratorTest, RegionComesOutAsOneEmptyCommentToken)
{
    const auto tokens = walk("a\n// TW-FORMAT-OFF\nint   b;\n/* TW-FORMAT-ON */ c");
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(tokens[0].text(), "a");
    EXPECT_EQ(tokens[1].type(), Cpp::BLOCK_COMMENT); // the closing comment's type
    EXPECT_EQ(tokens[1].text(), "");
    EXPECT_EQ(tokens[1].start(), Position(2, 1));
    EXPECT_EQ(tokens[1].end(), Position(4, 18));
    EXPECT_EQ(tokens[2].text(), "c");
}

TEST(TokenIteratorTest, RegionClosedByLineCommentHasLineCommentType)
{
    const auto tokens = walk("/*TW-FORMAT-OFF*/ x y // TW-FORMAT-ON\nz");
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[0].type(), Cpp::LINE_COMMENT);
    EXPECT_EQ(tokens[0].start(), Position(1, 1));
    EXPECT_EQ(tokens[0].end(), Position(2, 0));
}

TEST(TokenIteratorTest, NestedRegionClosesOnlyWithTheOutermostEndMarker)
{
    const auto tokens = walk("//TW-FORMAT-OFF\n"
                             "a\n"
                             "//TW-FORMAT-OFF\n"
                             "b\n"
                             "//TW-FORMAT-ON\n"
                             "c\n"
                             "//TW-FORMAT-ON\n"
                             "d");
    EXPECT_EQ(texts(tokens), (std::vector<std::string>{"", "d"}));
    EXPECT_EQ(tokens[0].start(), Position(1, 1));
    EXPECT_EQ(tokens[0].end(), Position(8, 0));
}

TEST(TokenIteratorTest, NestedRegionOfAnotherMarkerPairNeedsItsOwnEnd)
{
    // "}}" does not close the outer region: only "TW-FORMAT-ON" does, once the
    // inner "{{AFX" level is closed.
    const auto tokens = walk("//TW-FORMAT-OFF\n//{{AFX_DATA\n//TW-FORMAT-ON\nx\n//}}AFX_DATA\ny\n//TW-FORMAT-ON\nz");
    EXPECT_EQ(texts(tokens), (std::vector<std::string>{"", "z"}));
}

TEST(TokenIteratorTest, MarkersFollowedByMoreWordsOpenAndClose)
{
    const auto tokens = walk("// TW-FORMAT-OFF: a table\nx;\n// TW-FORMAT-ON again\ny");
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[0].text(), "");
    EXPECT_EQ(tokens[1].text(), "y");
}

TEST(TokenIteratorTest, EndMarkerOutsideARegionIsAPlainComment)
{
    const auto tokens = walk("// TW-FORMAT-ON\nx");
    ASSERT_EQ(tokens.size(), 2u);
    EXPECT_EQ(tokens[0].type(), Cpp::LINE_COMMENT);
    EXPECT_EQ(tokens[0].text(), "// TW-FORMAT-ON\n");
}

TEST(TokenIteratorTest, OpenRegionSwallowsTheRestOfTheText)
{
    const auto tokens = walk("a /* TW-FORMAT-OFF */ b c");
    EXPECT_EQ(texts(tokens), (std::vector<std::string>{"a"}));
}

TEST(TokenIteratorTest, MarkerMustStandAtTheStartOfTheComment)
{
    const auto tokens = walk("// no TW-FORMAT-OFF\nx");
    EXPECT_EQ(tokens.size(), 2u);
}

TEST(TokenIteratorTest, OwnMarkerListReplacesTheDefaults)
{
    const Kempt::MarkerList markers = {{"KEEP", "END KEEP"}};
    EXPECT_EQ(texts(walk("a /* KEEP */ b /* END KEEP */ c", markers)), (std::vector<std::string>{"a", "", "c"}));
    EXPECT_EQ(walk("// TW-FORMAT-OFF\nx", markers).size(), 2u);
}

TEST(TokenIteratorTest, EmptyBeginMarkerMatchesNothing)
{
    const Kempt::MarkerList markers = {{"", "X"}};
    EXPECT_EQ(texts(walk("/* a */ b", markers)), (std::vector<std::string>{"/* a */", "b"}));
}

TEST(TokenIteratorTest, IdentifierMarkersAreNotRegionsHere)
{
    // Only comments fence regions in a gap; the message map macros are found
    // by the scanner of the whole text.
    EXPECT_EQ(walk("BEGIN_MESSAGE_MAP x END_MESSAGE_MAP").size(), 3u);
}

TEST(TokenIteratorTest, SkipToMatchingStopsAtTheClosingBracket)
{
    TokenIterator it("f(a, (b), c) + d");
    it.advance();
    ASSERT_EQ(it.right().type(), Cpp::LPAREN);
    it.advance(); // right is the first argument, inside the open bracket
    EXPECT_TRUE(Kempt::skipToMatching(it, Cpp::LPAREN, Cpp::RPAREN));
    EXPECT_EQ(it.right().type(), Cpp::RPAREN);
    EXPECT_EQ(it.right().start(), Position(1, 12));
    it.advance();
    EXPECT_EQ(it.right().type(), Cpp::PLUS);
}

TEST(TokenIteratorTest, SkipToMatchingWhenRightIsAlreadyTheClosingBracket)
{
    TokenIterator it("()");
    it.advance();
    EXPECT_TRUE(Kempt::skipToMatching(it, Cpp::LPAREN, Cpp::RPAREN));
    EXPECT_EQ(it.right().type(), Cpp::RPAREN);
}

TEST(TokenIteratorTest, SkipToMatchingFailsOnUnbalancedText)
{
    TokenIterator it("f(a, (b)");
    it.advance().advance();
    EXPECT_FALSE(Kempt::skipToMatching(it, Cpp::LPAREN, Cpp::RPAREN));
    EXPECT_FALSE(it.more());
}

TEST(TokenIteratorTest, SkipToMatchingWithEqualTypesViolatesTheContract)
{
    TokenIterator it("(a)");
    it.advance();
    try {
        Kempt::skipToMatching(it, Cpp::LPAREN, Cpp::LPAREN);
        FAIL() << "no violation";
    } catch (const Varnel::ContractViolation& v) {
        EXPECT_EQ(v.condition(), "left != right");
    }
}

} // namespace
