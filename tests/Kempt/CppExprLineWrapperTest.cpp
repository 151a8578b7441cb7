// The expression line wrapper and its break-point finders: the rungs of the
// ladder, the continuation styles, WRAP_INDENT, the for head, lists, string
// literals, and texts that cannot be wrapped. Each wrapped result keeps the
// tokens of its input and is wrapped again without change.
#include "ExprTestSupport.h"

#include "Cpp_TokenType.h"
#include "Kempt_CppExprFormatter.h"
#include "Kempt_CppExprLineWrapper.h"
#include "Kempt_PropertyNames.h"
#include "Kempt_WrapFinders.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

namespace {

using namespace Kempt;
using TestSupport::scheme;
using TestSupport::streamAt;

// Wrapping on at `margin`, WRAP_STYLE `style`, after-operator and
// after-comma breaks, every list strategy 2 unless told.
PropertySet wrapScheme(std::int32_t margin, std::int32_t style = 1,
                       const std::vector<std::pair<std::string, std::int32_t>>& more = {},
                       const std::vector<std::pair<std::string, std::string>>& strings = {})
{
    std::vector<std::pair<std::string, std::int32_t>> ints = {{Prop::RIGHT_MARGIN, margin},
                                                              {Prop::WRAP_STYLE, style},
                                                              {Prop::EXPR_WRAP_STYLE, 2},
                                                              {Prop::COMMA_WRAP_STYLE, 2},
                                                              {Prop::SHIFT_WRAP_STYLE, 1},
                                                              {Prop::LIST_WRAP_STRATEGY, 2}};
    for (const auto& m : more) {
        for (auto& i : ints)
            if (i.first == m.first)
                i.second = m.second;
        if (std::none_of(ints.begin(), ints.end(), [&](const auto& i) { return i.first == m.first; }))
            ints.push_back(m);
    }
    return scheme(strings, ints, {{Prop::LINE_WRAP, true}});
}

// Wraps `text` as an expression written at `col` on a line indented by
// `base` blanks, checks tokens and stability, and returns the result.
std::string wrapped(const PropertySet& set, const std::string& text, std::int32_t col = 0, std::int32_t base = 0)
{
    CppExprLineWrapper wrapper(set);
    const Varnel::StreamState state = streamAt(col, std::string(static_cast<std::size_t>(base), ' '));
    const std::string once = wrapper.wrapExpression(text, state);
    EXPECT_TRUE(keepsTokens(text, once, MarkerList())) << once;
    EXPECT_EQ(wrapper.wrapExpression(once, state), once) << "not stable";
    return once;
}

std::string violation(const std::function<void()>& f)
{
    try {
        f();
    } catch (const Varnel::ContractViolation& v) {
        return v.condition();
    }
    return "";
}

TEST(CppExprLineWrapperTest, TextThatFitsIsUnchanged)
{
    EXPECT_EQ(wrapped(wrapScheme(40), "a = b + c;"), "a = b + c;");
}

TEST(CppExprLineWrapperTest, LineOfExactlyTheMarginStays)
{
    const std::string text = "total = alpha + beta + gamma + abcd;"; // 36 columns
    EXPECT_EQ(wrapped(wrapScheme(36), text), text);
    EXPECT_NE(wrapped(wrapScheme(35), text), text);
}

TEST(CppExprLineWrapperTest, NeedsWrapCountsTabsToTheNextStop)
{
    CppExprLineWrapper wrapper(wrapScheme(10, 1, {{Prop::TAB_SIZE, 8}}));
    EXPECT_FALSE(wrapper.needsWrap("a\tb", streamAt(0, "", true, 8))); // 9 columns
    EXPECT_TRUE(wrapper.needsWrap("ab\tcde", streamAt(0, "", true, 8))); // 11 columns
    EXPECT_TRUE(wrapper.needsWrap("abc", streamAt(8, "", true, 8)));
}

TEST(CppExprLineWrapperTest, MarginZeroNeedsWrapButNothingBreaks)
{
    const PropertySet set = wrapScheme(0);
    CppExprLineWrapper wrapper(set);
    EXPECT_TRUE(wrapper.needsWrap("a + b", streamAt()));
    EXPECT_EQ(wrapper.wrapExpression("a + b + c;", streamAt()), "a + b + c;");
}

TEST(CppExprLineWrapperTest, WrappingOffLeavesTheText)
{
    PropertySet set = wrapScheme(10);
    set.setBool(Prop::LINE_WRAP, false);
    CppExprLineWrapper wrapper(set);
    EXPECT_EQ(wrapper.wrapExpression("alpha + beta + gamma;", streamAt()), "alpha + beta + gamma;");
}

TEST(CppExprLineWrapperTest, ReturnStaysOnTheFirstLine)
{
    EXPECT_EQ(wrapped(wrapScheme(20, 1, {{Prop::EXPR_WRAP_STYLE, 1}}), "return alpha + beta + gamma;"),
              "return alpha\n"
              "     + beta\n"
              "     + gamma;");
}

TEST(CppExprLineWrapperTest, AfterOperatorStyleEndsLinesWithTheOperator)
{
    EXPECT_EQ(wrapped(wrapScheme(20), "return alpha + beta + gamma;"),
              "return alpha +\n"
              "       beta +\n"
              "       gamma;");
}

TEST(CppExprLineWrapperTest, AssignmentLeftSideStays)
{
    EXPECT_EQ(wrapped(wrapScheme(20), "x = yankee + zulu + xray;"),
              "x = yankee +\n"
              "    zulu +\n"
              "    xray;");
}

TEST(CppExprLineWrapperTest, SlashAssignDoesNotSplit)
{
    // No split at "/=": the search stops at the first "+", so the whole text
    // is wrapped and its continuation aligns with "x".
    EXPECT_EQ(wrapped(wrapScheme(20), "x /= yankee + zulu + xray;"),
              "x /= yankee +\n"
              "zulu +\n"
              "xray;");
}

TEST(CppExprLineWrapperTest, TemplateAngleIsNoBreakPoint)
{
    EXPECT_EQ(wrapped(wrapScheme(30), "ok = lookup<Key, Value>(table) < limit;"),
              "ok = lookup<Key, Value>(table) <\n"
              "     limit;");
}

TEST(CppExprLineWrapperTest, SignIsNoBreakPoint)
{
    EXPECT_EQ(wrapped(wrapScheme(20), "v = -first - (-second) - third;"),
              "v = -first -\n"
              "    (-second) -\n"
              "    third;");
}

TEST(CppExprLineWrapperTest, CallArgumentsBreakFirstAndTheNameStays)
{
    EXPECT_EQ(wrapped(wrapScheme(30), "compute(alphabet, betatron, gammaray);"),
              "compute(alphabet,\n"
              "        betatron,\n"
              "        gammaray);");
}

TEST(CppExprLineWrapperTest, EachElementOnALineWithStrategyTwo)
{
    EXPECT_EQ(wrapped(wrapScheme(30), "x = compute(alphabet, betatron + 1, gammaray);"),
              "x = compute(alphabet,\n"
              "            betatron + 1,\n"
              "            gammaray);");
}

TEST(CppExprLineWrapperTest, FillStrategyPutsAsManyAsFit)
{
    EXPECT_EQ(wrapped(wrapScheme(30, 1, {{Prop::LIST_WRAP_STRATEGY, 1}}), "x = compute(aa, bb, cc, dd, ee, ff, gg, hh);"),
              "x = compute(aa, bb, cc, dd,\n"
              "            ee, ff, gg, hh);");
}

TEST(CppExprLineWrapperTest, LineCommentForcesTheNextTokenDown)
{
    EXPECT_EQ(wrapped(wrapScheme(80), "total = first + // one\n second + third;", 0, 0),
              "total = first + // one\n second + third;");
    EXPECT_EQ(wrapped(wrapScheme(20), "total = first + // one\n second + third + fourth;"),
              "total = first + // one\n"
              "        second +\n"
              "        third +\n"
              "        fourth;");
}

TEST(CppExprLineWrapperTest, ShiftsLineUpUnderTheFirstOperator)
{
    EXPECT_EQ(wrapped(wrapScheme(30), "cout << alpha << beta << gamma << delta;"),
              "cout << alpha << beta << gamma\n"
              "     << delta;");
}

TEST(CppExprLineWrapperTest, ShiftsAfterTheOperator)
{
    EXPECT_EQ(wrapped(wrapScheme(30, 1, {{Prop::SHIFT_WRAP_STYLE, 2}}), "cout << alpha << beta << gamma << delta;"),
              "cout << alpha << beta <<\n"
              "        gamma << delta;");
}

TEST(CppExprLineWrapperTest, ATakenRungBreaksAtEveryPointOfItsKind)
{
    EXPECT_EQ(wrapped(wrapScheme(20), "x = aa + bb + cc + dd;"),
              "x = aa +\n"
              "    bb +\n"
              "    cc +\n"
              "    dd;");
}

TEST(CppExprLineWrapperTest, LogicalRungBreaksEveryOperatorOfTheLevel)
{
    EXPECT_EQ(wrapped(wrapScheme(30), "ok = alpha && beta || gamma && delta;"),
              "ok = alpha &&\n"
              "     beta ||\n"
              "     gamma &&\n"
              "     delta;");
}

TEST(CppExprLineWrapperTest, WrapIndentFromTheBaseColumn)
{
    const PropertySet set = wrapScheme(24, 2, {}, {{Prop::WRAP_INDENT, "  "}});
    EXPECT_EQ(wrapped(set, "total = alpha + beta + gamma;", 4, 4),
              "total = alpha +\n"
              "      beta +\n"
              "      gamma;");
}

TEST(CppExprLineWrapperTest, StyleZeroContinuesAtTheBaseColumn)
{
    EXPECT_EQ(wrapped(wrapScheme(24, 0), "total = alpha + beta + gamma;", 4, 4),
              "total = alpha +\n"
              "    beta +\n"
              "    gamma;");
}

TEST(CppExprLineWrapperTest, OldCastIsTheLastBreakPoint)
{
    EXPECT_EQ(wrapped(wrapScheme(20), "p = (unsigned long)(char)qqqqqq;"),
              "p = (unsigned long)\n"
              "    (char)\n"
              "    qqqqqq;");
}

TEST(CppExprLineWrapperTest, UnbreakableTextStays)
{
    const std::string text = "s = \"a string literal much longer than the margin\";";
    EXPECT_EQ(wrapped(wrapScheme(20), text), text);
    EXPECT_EQ(wrapped(wrapScheme(10), "aVeryLongIdentifierName.another.third;"),
              "aVeryLongIdentifierName.another.third;");
}

TEST(CppExprLineWrapperTest, AdjacentLiteralsGoOnLinesOfTheirOwn)
{
    EXPECT_EQ(wrapped(wrapScheme(20), "puts(\"first part\" \"second part\");"),
              "puts(\"first part\"\n"
              "     \"second part\");");
}

TEST(CppExprLineWrapperTest, BraceGroupsWrapTheirElements)
{
    EXPECT_EQ(wrapped(wrapScheme(24, 1, {{Prop::LIST_WRAP_STRATEGY, 1}}), "a = {one, two, three, four, five};"),
              "a = {one, two, three,\n"
              "     four, five};");
}

TEST(CppExprLineWrapperTest, ForHeadBreaksAfterEachSemicolon)
{
    CppExprLineWrapper wrapper(wrapScheme(30));
    EXPECT_EQ(wrapper.wrapForHead("int index = 0; index < count; ++index", streamAt(9, "    ")),
              "int index = 0;\n"
              "         index < count;\n"
              "         ++index");
    // A clause still too long goes down the ladder by itself.
    EXPECT_EQ(wrapper.wrapForHead("i = 0; i < firstLimit + secondLimit + third; ++i", streamAt(9, "    ")),
              "i = 0;\n"
              "         i <\n"
              "         firstLimit +\n"
              "         secondLimit +\n"
              "         third;\n"
              "         ++i");
}

TEST(CppExprLineWrapperTest, ForHeadThatFitsIsUnchanged)
{
    CppExprLineWrapper wrapper(wrapScheme(80));
    EXPECT_EQ(wrapper.wrapForHead("i = 0; i < n; ++i", streamAt(5)), "i = 0; i < n; ++i");
}

TEST(CppExprLineWrapperTest, ListStrategyZeroLeavesLists)
{
    CppExprLineWrapper wrapper(wrapScheme(10, 1, {{Prop::LIST_WRAP_STRATEGY, 0}}));
    EXPECT_EQ(wrapper.wrapList("alpha, beta, gamma", streamAt()), "alpha, beta, gamma");
}

TEST(CppExprLineWrapperTest, CommaListFillsLines)
{
    CppExprLineWrapper wrapper(wrapScheme(16, 1, {{Prop::LIST_WRAP_STRATEGY, 1}}));
    EXPECT_EQ(wrapper.wrapCommaList("alpha, beta, gamma, delta", streamAt()),
              "alpha, beta,\n"
              "gamma, delta");
    EXPECT_EQ(wrapper.wrapCommaList("a, b", streamAt()), "a, b");
}

TEST(CppExprLineWrapperTest, BeforeCommaStyle)
{
    CppExprLineWrapper wrapper(wrapScheme(16, 1, {{Prop::LIST_WRAP_STRATEGY, 1}, {Prop::COMMA_WRAP_STYLE, 1}}));
    EXPECT_EQ(wrapper.wrapCommaList("alpha, beta, gamma, delta", streamAt()),
              "alpha, beta\n"
              ", gamma, delta");
}

TEST(CppExprLineWrapperTest, StoredStyleOutOfRangeFailsTheContract)
{
    const PropertySet set = wrapScheme(20, 3);
    EXPECT_EQ(violation([&] { CppExprLineWrapper wrapper(set); }), "false");
}

TEST(CppExprLineWrapperTest, NegativeMarginFailsTheContract)
{
    const PropertySet set = wrapScheme(-1);
    EXPECT_EQ(violation([&] { CppExprLineWrapper wrapper(set); }), "m_RightMargin >= 0");
}

TEST(WrapFindersTest, CommasOnlyAtDepthZero)
{
    const std::vector<WrapToken> tokens = wrapTokens("a, f(b, c), d<e, g>, h");
    FindFirstElem commas(commaTokens());
    const std::vector<std::size_t> points = commas(tokens);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(tokens[points[0]].begin, 1u);
}

TEST(WrapFindersTest, ComparisonIsABinaryBreakPoint)
{
    const std::vector<WrapToken> tokens = wrapTokens("a < b");
    FindFirstBinaryOp binary;
    EXPECT_EQ(binary(tokens).size(), 1u);
    EXPECT_TRUE(binary.isWrapToken(Cpp::LESS_THAN));
    EXPECT_FALSE(binary.isWrapToken(Cpp::ASTERISK));
    EXPECT_FALSE(binary.isWrapToken(Cpp::AMPERSAND));
    EXPECT_FALSE(binary.isWrapToken(Cpp::CARET));
}

TEST(WrapFindersTest, SignsAreNoBreakPoints)
{
    FindFirstBinaryOp binary;
    EXPECT_TRUE(binary(wrapTokens("-a")).empty());
    EXPECT_TRUE(binary(wrapTokens("a * -b")).empty());
    EXPECT_EQ(binary(wrapTokens("a - b")).size(), 1u);
}

TEST(WrapFindersTest, OldCastNeedsAnOperandBehind)
{
    FindFirstOldCast casts;
    EXPECT_EQ(casts(wrapTokens("(long)x")).size(), 1u);
    EXPECT_TRUE(casts(wrapTokens("f(x) + y")).empty());
    EXPECT_TRUE(casts(wrapTokens("(a) + b")).empty());
}

TEST(WrapFindersTest, TokensCarryTheirByteRanges)
{
    const std::string text = "ab +\n  \"s\"";
    const std::vector<WrapToken> tokens = wrapTokens(text);
    ASSERT_EQ(tokens.size(), 3u);
    EXPECT_EQ(text.substr(tokens[0].begin, tokens[0].end - tokens[0].begin), "ab");
    EXPECT_EQ(text.substr(tokens[1].begin, tokens[1].end - tokens[1].begin), "+");
    EXPECT_EQ(text.substr(tokens[2].begin, tokens[2].end - tokens[2].begin), "\"s\"");
}

} // namespace
