// Lists, tokens that span lines, directives and aligned assignments.
#include "ExprTestSupport.h"

#include "Cpp_TokenType.h"
#include "Kempt_ExprFormatterBase.h"
#include "Kempt_ScratchStream.h"
#include "Kempt_SourceText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace Kempt;
using TestSupport::scheme;
using TestSupport::streamAt;

const WsSetting NONE;
const WsSetting EMPTY(true, "");
const WsSetting BLANK(true, " ");
const WsSetting NEWLINE(true, "\n");

ExprFormatterBase base(const PropertySet& set = PropertySet())
{
    return ExprFormatterBase(set, defaultRegionMarkers());
}

std::string separate(const std::string& text, const WsSetting& before, const WsSetting& after,
                     std::int32_t separator = Cpp::COMMA)
{
    return base().separateList(text, separator, before, after, streamAt());
}

std::string align(const std::string& text, const WsSetting& before, const WsSetting& after,
                  const Varnel::StreamState& state = streamAt(), std::int32_t separator = Cpp::COMMA)
{
    return base().alignList(text, separator, before, after, state);
}

// reindentToken of the token from `begin` through `end`, written to a stream
// with `indent`, from column 0.
std::string reindent(const ExprFormatterBase& b, const std::string& text, Trn::Position begin, Trn::Position end,
                     const std::string& indent)
{
    SourceText source(text);
    SourceReader in(source);
    ScratchStream scratch(streamAt(0, indent, false));
    b.reindentToken(begin, end, in, scratch.out());
    scratch.out() << in.rest();
    return scratch.str();
}

TEST(ExprFormatterBaseTest, SeparateListWithoutSettingsIsTheText)
{
    EXPECT_EQ(separate("a ,b", NONE, NONE), "a ,b");
}

TEST(ExprFormatterBaseTest, SeparateListSetsBothSides)
{
    EXPECT_EQ(separate("a ,b,  c", EMPTY, BLANK), "a, b, c");
    EXPECT_EQ(separate("a,b", BLANK, BLANK), "a , b");
    // Only one side set: the other stays.
    EXPECT_EQ(separate("a ,  b", NONE, BLANK), "a , b");
    EXPECT_EQ(separate("a ,  b", EMPTY, NONE), "a,  b");
}

TEST(ExprFormatterBaseTest, ListWithoutSeparatorAtDepthZeroIsItsTokens)
{
    EXPECT_EQ(separate("f(a,b)", EMPTY, BLANK), "f(a,b)");
    EXPECT_EQ(align("f(a,b)", EMPTY, NEWLINE), "f(a,b)");
    EXPECT_EQ(separate("x", EMPTY, BLANK), "x");
}

TEST(ExprFormatterBaseTest, CommasInsideBracketsAreNotSeparators)
{
    EXPECT_EQ(separate("a,b(c,d),e", EMPTY, BLANK), "a, b(c,d), e");
    EXPECT_EQ(separate("a,{1,2},x[1,2]", EMPTY, BLANK), "a, {1,2}, x[1,2]");
}

TEST(ExprFormatterBaseTest, AngleBracketsCountAsBrackets)
{
    EXPECT_EQ(separate("a<b,c>,d", EMPTY, BLANK), "a<b,c>, d");
    // "a < b, c": the count never returns to 0, and the comma is not seen.
    EXPECT_EQ(separate("a < b,c", EMPTY, BLANK), "a < b,c");
}

TEST(ExprFormatterBaseTest, SeparateListBeforeADirectiveBreaksTheLine)
{
    const std::string out = base(scheme({}, {}, {{Prop::ALIGN_PPD_LEFT_MOST, false}}))
                                .separateList("a, #if X\nb", Cpp::COMMA, EMPTY, BLANK, streamAt());
    EXPECT_EQ(out, "a,\n#if X\nb");
}

TEST(ExprFormatterBaseTest, SeparateListKeepsALineCommentsPlace)
{
    EXPECT_EQ(separate("a,   // c\nb", EMPTY, BLANK), "a,   // c\nb");
    EXPECT_EQ(separate("a ,/* c */b", EMPTY, BLANK), "a,/* c */b");
}

TEST(ExprFormatterBaseTest, SeparatorAtTheEnd)
{
    EXPECT_EQ(separate("a,  ", EMPTY, BLANK), "a, ");
}

TEST(ExprFormatterBaseTest, AlignListOnOneLineIsSeparateList)
{
    EXPECT_EQ(align("a ,b,  c", EMPTY, BLANK), "a, b, c");
}

TEST(ExprFormatterBaseTest, AlignListPutsElementsUnderTheFirst)
{
    // The list starts at column 4 (behind "foo(").
    EXPECT_EQ(align("alpha, beta, gamma", EMPTY, NEWLINE, streamAt(4)), "alpha,\n    beta,\n    gamma");
    EXPECT_EQ(align("  alpha,beta", EMPTY, NEWLINE, streamAt(4)), "  alpha,\n      beta");
}

TEST(ExprFormatterBaseTest, AlignListWithSeparatorFirst)
{
    // ", b" ends where the elements begin.
    EXPECT_EQ(align("a(1), b(2)", NEWLINE, BLANK, streamAt(2)), "a(1)\n, b(2)");
    // No first element: the separator goes at the blanks behind the break.
    EXPECT_EQ(align(" : ", WsSetting(true, "\n    "), BLANK, streamAt(10), Cpp::COLON), "\n    : ");
}

TEST(ExprFormatterBaseTest, LineCommentAfterCommaKeepsTheBreak)
{
    // The element behind the comment is written on its own line, in the
    // column of the first element.
    EXPECT_EQ(align("a, // c\nb, c", EMPTY, BLANK, streamAt(4)), "a, // c\n    b, c");
}

TEST(ExprFormatterBaseTest, EmitTokensPlacesDirectivesAndComments)
{
    const ExprFormatterBase b = base(scheme({{Prop::LEFT_MARGIN, ""}}, {}, {{Prop::ALIGN_PPD_LEFT_MOST, true}}));
    ScratchStream scratch(streamAt(0, "    ", false));
    b.emitTokens("x\n  #if A\n  y /* a\n       b */\n", scratch.out());
    EXPECT_EQ(scratch.str(), "    x\n#if A\n    y /* a\n         b */\n");
}

TEST(ExprFormatterBaseTest, ReindentTokenOnOneLineIsACopy)
{
    EXPECT_EQ(reindent(base(), "  /* c */ x", {1, 3}, {1, 9}, "    "), "    /* c */ x");
}

TEST(ExprFormatterBaseTest, ReindentTokenKeepsTheShapeOfABlockComment)
{
    const std::string text = "  /* first\n   * second\n     third */";
    // From column 2 to column 4: every line moves by 2.
    EXPECT_EQ(reindent(base(), text, {1, 3}, {3, 13}, "    "), "    /* first\n     * second\n       third */");
    // From column 2 to column 0.
    EXPECT_EQ(reindent(base(), text, {1, 3}, {3, 13}, ""), "/* first\n * second\n   third */");
}

TEST(ExprFormatterBaseTest, ReindentTokenTakesOnlyTheWhiteSpaceThatExists)
{
    // The later lines are indented less than the first character: they lose
    // what blanks they have, and no other character.
    const std::string text = "        /* a\n  b\nc */";
    EXPECT_EQ(reindent(base(), text, {1, 9}, {3, 4}, "  "), "  /* a\n  b\n  c */");
}

TEST(ExprFormatterBaseTest, ReindentTokenInPlaceIsExact)
{
    // The column does not change: tabs and blanks pass as they are.
    const std::string text = "    /* a\n\t  b */";
    EXPECT_EQ(reindent(base(), text, {1, 5}, {2, 7}, "    "), text);
}

TEST(ExprFormatterBaseTest, EmitDirectivePlacement)
{
    const std::string text = "  #define A \\\n    1\n";
    const auto place = [&](const PropertySet& set) {
        const ExprFormatterBase b = base(set);
        SourceText source(text);
        SourceReader in(source);
        ScratchStream scratch(streamAt(0, "    ", false));
        b.emitDirective({1, 3}, {3, 0}, in, scratch.out());
        return scratch.str();
    };
    // Left-most at the margin.
    EXPECT_EQ(place(scheme({{Prop::LEFT_MARGIN, ""}}, {}, {{Prop::ALIGN_PPD_LEFT_MOST, true}})), "#define A \\\n  1\n");
    // With the code.
    EXPECT_EQ(place(scheme({}, {}, {{Prop::ALIGN_PPD_LEFT_MOST, false}})), "    #define A \\\n      1\n");
    // Not in the scheme: as it stands.
    EXPECT_EQ(place(PropertySet()), text);
}

TEST(ExprFormatterBaseTest, AlignAssignmentsWithoutAssignmentIsUnchanged)
{
    const std::string text = "red,\nyellow,\ngreen";
    EXPECT_EQ(base().alignAssignments(text, streamAt()), text);
}

TEST(ExprFormatterBaseTest, AlignAssignmentsLinesUpTheOperators)
{
    // Widest left side "yellow" ends at 6; +2 is 8, a tab stop of 4. The
    // stream expands tabs (CONVERT_WS 1).
    Varnel::StreamState blanks = streamAt();
    blanks.tabMode = 1;
    EXPECT_EQ(base().alignAssignments("red = 1,\nyellow = 2,\nx,\ngreen=3", blanks),
              "red     = 1,\nyellow  = 2,\nx,\ngreen   =3");
    // A second run changes nothing.
    EXPECT_EQ(base().alignAssignments("red     = 1,\nyellow  = 2,\nx,\ngreen   =3", blanks),
              "red     = 1,\nyellow  = 2,\nx,\ngreen   =3");
    // Tabs kept (CONVERT_WS 0): the padding is made of tabs.
    EXPECT_EQ(base().alignAssignments("red = 1,\nyellow = 2", streamAt()), "red\t\t= 1,\nyellow\t= 2");
}

TEST(ExprFormatterBaseTest, TrimRightKeepsALineCommentsNewline)
{
    EXPECT_EQ(trimRightKeepingLineEnd("x // c\n  "), "x // c\n");
    EXPECT_EQ(trimRightKeepingLineEnd("x /* c */ \n "), "x /* c */");
    EXPECT_EQ(trimRightKeepingLineEnd("#if X\n"), "#if X\n");
    EXPECT_EQ(trimRightKeepingLineEnd("a  "), "a");
}

TEST(SourceTextTest, PositionsFollowTheLexer)
{
    const SourceText text("ab\r\ncd\n\re");
    EXPECT_EQ(text.text(), "ab\ncd\n\ne");
    EXPECT_EQ(text.offsetOf({1, 1}), 0u);
    EXPECT_EQ(text.offsetOf({2, 0}), 2u); // the newline ending line 1
    EXPECT_EQ(text.offsetOf({2, 2}), 4u);
    EXPECT_EQ(text.offsetOf({4, 1}), 7u);
    EXPECT_EQ(text.offsetOf({9, 1}), text.size());
    EXPECT_EQ(text.offsetOf({0, 0}), std::string::npos);
    EXPECT_EQ(text.positionOf(2), Trn::Position(2, 0));
    EXPECT_EQ(text.positionOf(4), Trn::Position(2, 2));
    EXPECT_EQ(text.slice({1, 2}, {2, 1}), "b\nc");
}

TEST(SourceTextTest, ReaderMovesForwardOnly)
{
    const SourceText text("int x;\nint y;");
    SourceReader in(text);
    EXPECT_EQ(in.readUpTo({1, 5}), "int ");
    EXPECT_EQ(in.readThrough({1, 5}), "x");
    EXPECT_EQ(in.readThrough({1, 2}), "");
    EXPECT_EQ(in.lineBeforeCursor(), "int x");
    EXPECT_EQ(in.readThrough({2, 0}), ";\n");
    EXPECT_EQ(in.lineBeforeCursor(), "");
    EXPECT_EQ(in.sourceColumnOf({2, 5}, 4), 4);
    EXPECT_EQ(in.rest(), "int y;");
    EXPECT_TRUE(in.atEnd());
    EXPECT_EQ(in.readThrough({9, 9}), "");
}

TEST(SourceTextTest, SourceColumnCountsTabs)
{
    const SourceText text("\tx");
    SourceReader in(text);
    EXPECT_EQ(in.sourceColumnOf({1, 2}, 4), 4);
    EXPECT_EQ(in.sourceColumnOf({1, 2}, 8), 8);
}

} // namespace
