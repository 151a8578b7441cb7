// The expression formatter: unary and binary operators, calls and groups,
// angle brackets, declarators and anchors, adjacent literals, brace
// initializers. Every case also formats its own result again and expects no
// change.
#include "ExprTestSupport.h"

#include "Cpp_TokenType.h"
#include "Kempt_CppExprFormatter.h"
#include "Kempt_PropertyNames.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace Kempt;
using TestSupport::scheme;

const PropertySet& opSpaced()
{
    static const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}});
    return set;
}

const PropertySet& opClosed()
{
    static const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, ""}});
    return set;
}

TEST(CppExprFormatterTest, EmptyTextGivesEmptyText)
{
    EXPECT_EXPR(opSpaced(), "", "");
    EXPECT_EXPR(PropertySet(), "", "");
}

TEST(CppExprFormatterTest, OneTokenIsCopied)
{
    EXPECT_EXPR(opSpaced(), "x", "x");
    EXPECT_EXPR(opSpaced(), "  x  ", "  x  ");
    EXPECT_EXPR(opClosed(), "42", "42");
}

TEST(CppExprFormatterTest, WithoutSettingsEveryGapStays)
{
    const std::string text = "a  =b*  -c ; f ( x,y )[ 1 ]<int>  ( z )";
    EXPECT_EXPR(PropertySet(), text, text);
}

TEST(CppExprFormatterTest, BinaryOperatorsTakeTheOperatorGap)
{
    EXPECT_EXPR(opSpaced(), "a + b * c", "a+b  *c");
    EXPECT_EXPR(opClosed(), "a+b*c", "a + b * c");
    EXPECT_EXPR(opSpaced(), "x == y && z != w", "x==y&&z!=w");
    EXPECT_EXPR(opSpaced(), "a ? b : c", "a?b:c");
}

TEST(CppExprFormatterTest, PointerAtTheStartIsUnary)
{
    // No token before "*": isAssignType holds for no token.
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}, {Prop::WS_BETWEEN_UNARY_OP_OPERAND, ""}});
    EXPECT_EXPR(set, "*p = 1", "* p=1");
    EXPECT_EXPR(set, "-x", "- x");
    // Without a unary setting the operand keeps its gap.
    EXPECT_EXPR(opSpaced(), "* p = 1", "* p=1");
}

TEST(CppExprFormatterTest, UnaryAfterAssignmentKeepsTheOldCompoundApart)
{
    EXPECT_EXPR(opClosed(), "a= -b", "a = -b");
    EXPECT_EXPR(opSpaced(), "a = -b", "a=-b");
    EXPECT_EXPR(opSpaced(), "a = !b", "a=!b");
}

TEST(CppExprFormatterTest, UnaryAfterOperatorsParenthesesAndReturn)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}, {Prop::WS_BETWEEN_UNARY_OP_OPERAND, ""}});
    EXPECT_EXPR(set, "a * -b", "a*- b");
    EXPECT_EXPR(set, "(-b)", "(- b)");
    EXPECT_EXPR(set, "return -b", "return - b");
    EXPECT_EXPR(set, "x; -y", "x; - y");
    EXPECT_EXPR(set, "c ? -a : -b", "c?- a:- b");
}

TEST(CppExprFormatterTest, UnaryGapIsSetBehindTheOperator)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_UNARY_OP_OPERAND, " "}});
    EXPECT_EXPR(set, "! done", "!done");
    EXPECT_EXPR(set, "- x", "-x");
    // "~mask" is one token, a destructor's name.
    EXPECT_EXPR(set, "~mask", "~mask");
}

TEST(CppExprFormatterTest, UnaryOperatorsNeverRunTogether)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, ""}, {Prop::WS_BETWEEN_UNARY_OP_OPERAND, ""}});
    // "--x" or "a--b" would be other tokens.
    EXPECT_EXPR(set, "- -x", "- - x");
    EXPECT_EXPR(set, "a- -b", "a - - b");
    EXPECT_EXPR(set, "a+ +b", "a + + b");
    EXPECT_EXPR(set, "!!x", "! ! x");
    // "~y" would read as a destructor's name.
    EXPECT_EXPR(set, "x= ~ y", "x = ~ y");
}

TEST(CppExprFormatterTest, GapsAroundIncrementStayAsTheyWere)
{
    // The gaps next to "++" and "--" stay whatever the operator gap says;
    // the one behind "+" follows it.
    EXPECT_EXPR(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, ""}}), "i ++ +j", "i ++ + j");
    EXPECT_EXPR(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}), "i ++ + j", "i ++ +j");
    EXPECT_EXPR(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, "  "}}), "i ++ +  j", "i ++ + j");
    EXPECT_EXPR(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, ""}}), "i++  -  --j", "i++  -  --j");
    EXPECT_EXPR(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}), "a + ++b", "a+ ++b");
}

TEST(CppExprFormatterTest, CastBeforeAmpersandMakesItUnary)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}, {Prop::WS_BETWEEN_UNARY_OP_OPERAND, ""}});
    // "&" after a cast with a pointer inside is unary; "(char*)" itself is
    // an expression here, so its "*" takes the operator gap.
    EXPECT_EXPR(set, "x = (char *) &y", "x = (char*) &y");
    EXPECT_EXPR(set, "x = (char *) &y", "x=(char*)&  y");
    // After "(n)" with no pointer inside, "&" is binary.
    EXPECT_EXPR(set, "x = (n) & y", "x=(n)&y");
    EXPECT_EXPR(opClosed(), "x=(n)&y", "x = (n) & y");
}

TEST(CppExprFormatterTest, CastBeforeOperandTakesTheOperatorGap)
{
    EXPECT_EXPR(opSpaced(), "(int) x", "(int)x");
    EXPECT_EXPR(opClosed(), "(int)x", "(int)  x");
    EXPECT_EXPR(opSpaced(), "(T) (y)", "(T)(y)");
}

TEST(CppExprFormatterTest, LessThanWithoutCloseIsAComparison)
{
    EXPECT_EXPR(opSpaced(), "a < b", "a<b");
    EXPECT_EXPR(opClosed(), "a<b", "a  <  b");
    EXPECT_EXPR(opSpaced(), "if_a < b && c", "if_a<b&&c");
}

TEST(CppExprFormatterTest, BalancedAngleBracketsAreATemplateId)
{
    // "a < b > c" is read as a template-id, not as two comparisons.
    EXPECT_EXPR(opSpaced(), "a<b>c", "a<b>c");
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "},
                                    {Prop::WS_AFTER_TP_OPEN_BRACKET, ""},
                                    {Prop::WS_BEFORE_TP_CLOSE_BRACKET, ""}});
    EXPECT_EXPR(set, "a <b> c", "a < b > c");
    EXPECT_EXPR(set, "vector<int> v", "vector< int > v");
}

TEST(CppExprFormatterTest, NestedClosingAnglesKeepTheirBlank)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_TP_CLOSE_BRACKET, ""}, {Prop::WS_AFTER_TP_OPEN_BRACKET, ""}});
    EXPECT_EXPR(set, "std::vector<std::vector<int> > v", "std::vector<std::vector<int> > v");
    EXPECT_EXPR(set, "std::vector<std::vector<int> > v", "std::vector< std::vector< int > > v");
}

TEST(CppExprFormatterTest, EmptyAngleBracketsLoseTheirBlanks)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_TP_CLOSE_BRACKET, " "}, {Prop::WS_AFTER_TP_OPEN_BRACKET, " "}});
    EXPECT_EXPR(set, "f<>()", "f< >()");
    EXPECT_EXPR(set, "X< int > x", "X<int> x");
}

TEST(CppExprFormatterTest, TemplateArgumentsAreSeparatedAsTypes)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_TP_PARAMS, " "},
                                    {Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""},
                                    {Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}},
                                   {{Prop::ASTERISK_ANCHOR, 0}});
    EXPECT_EXPR(set, "map<int, char*> m", "map<int,char *> m");
    // A call behind the brackets, and a declarator.
    EXPECT_EXPR(set, "make<int, int>(a)", "make<int,int>(a)");
}

TEST(CppExprFormatterTest, TemplateFollowedByPointerIsADeclarator)
{
    const PropertySet set =
        scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}, {Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}, {{Prop::ASTERISK_ANCHOR, 1}});
    // Outside a type too: "vector<int> *p" declares p.
    EXPECT_EXPR(set, "vector<int> *p", "vector<int>* p");
}

TEST(CppExprFormatterTest, AdjacentLiteralsJoinWithWrappingOn)
{
    const PropertySet wrap = scheme({}, {}, {{Prop::LINE_WRAP, true}});
    EXPECT_EXPR(wrap, "\"a\" \"b\"", "\"a\"\n\"b\"");
    EXPECT_EXPR(wrap, "\"a\" \"b\" \"c\"", "\"a\"   \"b\"\n   \"c\"");
    // A comment between them stays behind the blank.
    EXPECT_EXPR(wrap, "\"a\" /* c */ \"b\"", "\"a\"   /* c */ \"b\"");
    // Without wrapping the gap stays.
    EXPECT_EXPR(PropertySet(), "\"a\"\n\"b\"", "\"a\"\n\"b\"");
}

TEST(CppExprFormatterTest, LineCommentBetweenLiteralsKeepsItsLine)
{
    const PropertySet wrap = scheme({}, {}, {{Prop::LINE_WRAP, true}});
    EXPECT_EXPR(wrap, "\"a\" // c\n\"b\"", "\"a\" // c\n\"b\"");
}

TEST(CppExprFormatterTest, EmptyParenthesesLoseTheirBlanks)
{
    const PropertySet set = scheme({{Prop::WS_AFTER_EXPR_OPEN_PAREN, " "}, {Prop::WS_BEFORE_EXPR_CLOSE_PAREN, " "}});
    EXPECT_EXPR(set, "foo()", "foo( )");
    EXPECT_EXPR(set, "foo( a )", "foo(a)");
    EXPECT_EXPR(set, "( a + b )", "(a + b)");
}

TEST(CppExprFormatterTest, CallNameGap)
{
    EXPECT_EXPR(scheme({{Prop::WS_AFTER_FN_CALL_NAME, ""}}), "f(x)", "f  (x)");
    EXPECT_EXPR(scheme({{Prop::WS_AFTER_FN_CALL_NAME, " "}}), "f (x)", "f(x)");
    EXPECT_EXPR(scheme({{Prop::WS_AFTER_FN_CALL_NAME, " "}}), "sizeof (x)", "sizeof(x)");
}

TEST(CppExprFormatterTest, CallArgumentsAreSeparated)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_FN_CALL_COMMA, ""},
                                    {Prop::WS_BETWEEN_FN_CALL_ARGS, " "},
                                    {Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "},
                                    {Prop::WS_BETWEEN_UNARY_OP_OPERAND, ""}});
    EXPECT_EXPR(set, "f(a, b, c)", "f(a ,b,c)");
    // Inside a call a comma starts an operand: "-b" is unary.
    EXPECT_EXPR(set, "f(a, -b)", "f(a,- b)");
    // The comma of an inner call is that call's business.
    EXPECT_EXPR(set, "f(a, g(b, c), d)", "f(a,g(b,c),d)");
}

TEST(CppExprFormatterTest, CallArgumentsAlignedLeft)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_FN_CALL_COMMA, ""}}, {}, {{Prop::ALIGN_FN_CALL_ARGS_LEFT, true}});
    EXPECT_EXPR(set, "foo(alpha,\n    beta,\n    gamma)", "foo(alpha, beta, gamma)");
}

TEST(CppExprFormatterTest, BracketGaps)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_LBRACKET, ""}, {Prop::WS_AFTER_LBRACKET, ""}, {Prop::WS_BEFORE_RBRACKET, ""}});
    EXPECT_EXPR(set, "a[i]", "a [ i ]");
    EXPECT_EXPR(set, "m[i][j]", "m [i] [j]");
    EXPECT_EXPR(set, "delete[] p", "delete [] p");
}

TEST(CppExprFormatterTest, NamedCastsFormatTheirTypeAsAType)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""},
                                    {Prop::WS_AFTER_TP_OPEN_BRACKET, ""},
                                    {Prop::WS_BEFORE_TP_CLOSE_BRACKET, ""},
                                    {Prop::WS_AFTER_FN_CALL_NAME, ""}},
                                   {{Prop::ASTERISK_ANCHOR, 0}});
    EXPECT_EXPR(set, "static_cast<char*>(p)", "static_cast< char * > (p)");
    EXPECT_EXPR(set, "reinterpret_cast<int>(x)", "reinterpret_cast<int>(x)");
}

TEST(CppExprFormatterTest, BraceInitializer)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_DD_OPEN_BRACE, " "},
                                    {Prop::WS_AFTER_DD_OPEN_BRACE, ""},
                                    {Prop::WS_BEFORE_DD_CLOSE_BRACE, ""},
                                    {Prop::WS_BEFORE_DD_COMMA, ""},
                                    {Prop::WS_BETWEEN_DD_ELEMENTS, " "}});
    EXPECT_EXPR(set, "= {1, 2, 3}", "={ 1 ,2,3 }");
    EXPECT_EXPR(set, "= {}", "={ }");
    // Inner braces are elements, not initializers of their own.
    EXPECT_EXPR(set, "= {{1,2}, {3,4}}", "= { {1,2},{3,4} }");
}

TEST(CppExprFormatterTest, CommentInAGapIsNeverLost)
{
    EXPECT_EXPR(opSpaced(), "a /* c */ + b", "a /* c */ + b");
    EXPECT_EXPR(opSpaced(), "a /* c */ + b", "a /* c */+b");
    // In front of a comment the source's gap stays.
    EXPECT_EXPR(opSpaced(), "a +/* c */b", "a+/* c */b");
    EXPECT_EXPR(opSpaced(), "a + /* c */ b", "a+ /* c */ b");
    EXPECT_EXPR(opSpaced(), "a + // c\nb", "a+ // c\nb");
    EXPECT_EXPR(opClosed(), "a+ // c\nb", "a + // c\nb");
}

TEST(CppExprFormatterTest, DirectiveInsideAnExpressionKeepsItsLines)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}, {}, {{Prop::ALIGN_PPD_LEFT_MOST, true}});
    EXPECT_EXPR(set, "a +\n#if X\nb\n#else\nc\n#endif\n", "a+\n#if X\nb\n#else\nc\n#endif\n");
}

TEST(CppExprFormatterTest, NewLinesTakeTheStreamsIndent)
{
    const PropertySet set = opSpaced();
    CppExprFormatter f(set);
    // A fresh line gets the indent of the stream the text goes to.
    EXPECT_EQ(f.format("x\n  y;", TestSupport::streamAt(0, "    ", false)), "    x\n    y;");
    // Mid-line, the first line gets none.
    EXPECT_EQ(f.format("x\ny;", TestSupport::streamAt(8, "  ", false)), "x\n  y;");
    // A set operator gap joins the lines.
    EXPECT_EQ(f.format("x = a +\n  b;", TestSupport::streamAt(0, "    ", false)), "    x = a + b;");
}

TEST(CppExprFormatterTest, DeepBracketsAreCopiedNotRecursedForEver)
{
    std::string text;
    for (int i = 0; i < 2000; ++i)
        text += '(';
    text += "a+b";
    for (int i = 0; i < 2000; ++i)
        text += ')';
    const std::string out = TestSupport::format(opSpaced(), text);
    std::string expected = text;
    EXPECT_EQ(out.size() >= text.size(), true);
    // Only blanks were added.
    std::string squeezed;
    for (char c : out)
        if (c != ' ')
            squeezed += c;
    EXPECT_EQ(squeezed, text);
}

// Declarators: formatTypeId, the anchors and their gaps.

TEST(CppExprFormatterTest, AnchorOneWithoutGapPutsTheSymbolAtTheName)
{
    const PropertySet set = scheme({}, {{Prop::ASTERISK_ANCHOR, 1}, {Prop::AMPERSAND_ANCHOR, 1}});
    EXPECT_TYPE_ID(set, noWhiteSpace(), "int *p", "int* p");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "int *p", "int *p");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "int * p", "int * p");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "const T &r", "const T& r");
}

TEST(CppExprFormatterTest, AnchorZeroWithoutGapPutsTheSymbolAtTheType)
{
    const PropertySet set = scheme({}, {{Prop::ASTERISK_ANCHOR, 0}, {Prop::AMPERSAND_ANCHOR, 0}});
    EXPECT_TYPE_ID(set, noWhiteSpace(), "int* p", "int* p");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "int* p", "int *p");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "int * p", "int * p");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "char** argv", "char **argv");
}

TEST(CppExprFormatterTest, AnchorGapAndFarGap)
{
    const PropertySet zero = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}}, {{Prop::ASTERISK_ANCHOR, 0}});
    const WsSetting blank(true, " ");
    EXPECT_TYPE_ID(zero, blank, "int* p", "int  *   p");
    EXPECT_TYPE_ID(zero, blank, "char** argv", "char * * argv");
    const PropertySet one = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}}, {{Prop::ASTERISK_ANCHOR, 1}});
    EXPECT_TYPE_ID(one, blank, "int *p", "int*p");
    EXPECT_TYPE_ID(one, blank, "char **argv", "char** argv");
    // Without a far gap the wider of the source's gaps stands on the far side.
    EXPECT_TYPE_ID(zero, noWhiteSpace(), "int*  p", "int *  p");
    EXPECT_TYPE_ID(zero, noWhiteSpace(), "int* p", "int *p");
    EXPECT_TYPE_ID(one, noWhiteSpace(), "int *p", "int* p");
}

TEST(CppExprFormatterTest, FarGapWithLineBreakKeepsTheSymbolOnTheTypesLine)
{
    const PropertySet one = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}}, {{Prop::ASTERISK_ANCHOR, 1}});
    // The gaps change places: the break goes behind the symbol.
    EXPECT_EQ(TestSupport::formatTypeId(one, "char *", WsSetting(true, "\n")), "char*\n");
}

TEST(CppExprFormatterTest, SymbolAtTheEndOfTheText)
{
    const PropertySet zero = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}}, {{Prop::ASTERISK_ANCHOR, 0}});
    // No right token: the anchor applies.
    EXPECT_TYPE_ID(zero, WsSetting(true, " "), "int* ", "int *");
    // A right token that is no name: as it stands.
    EXPECT_TYPE_ID(zero, WsSetting(true, " "), "int *)", "int *)");
}

TEST(CppExprFormatterTest, NoAnchorKeepsTheDeclarator)
{
    const PropertySet none = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}}, {{Prop::ASTERISK_ANCHOR, -1}});
    EXPECT_TYPE_ID(none, WsSetting(true, " "), "int  *p", "int  *p");
}

TEST(CppExprFormatterTest, ReferenceSymbolsNeverFuse)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_AMPERSAND_ANCHOR, ""}}, {{Prop::AMPERSAND_ANCHOR, 0}});
    // "& &" closed up would read "&&".
    EXPECT_TYPE_ID(set, WsSetting(true, " "), "T& & r", "T & & r");
}

TEST(CppExprFormatterTest, OutsideATypeAProductIsBinary)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}, {{Prop::ASTERISK_ANCHOR, 1}});
    EXPECT_EXPR(set, "a * b", "a*b");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "a *b", "a* b");
    EXPECT_TYPE_ID(set, noWhiteSpace(), "a*b", "a*b");
}

TEST(CppExprFormatterTest, ContractsNameTheirCondition)
{
    // The table never calls a decision with a token it cannot take; the
    // operator predicates behind it are plain tests.
    EXPECT_TRUE(isOpType(Cpp::QUESTION));
    EXPECT_FALSE(isOpType(Cpp::COMMA));
    EXPECT_FALSE(isOpType(Cpp::PLUS_PLUS));
    EXPECT_TRUE(isAssignType(Cpp::END_OF_FILE));
    EXPECT_TRUE(isAssignType(Cpp::BAR_EQUALS));
    EXPECT_FALSE(isAssignType(Cpp::EQUALS_EQUALS));
    EXPECT_TRUE(isBuiltinType(Cpp::WCHAR_T_KEY));
    EXPECT_FALSE(isBuiltinType(Cpp::SIGNED_KEY));
    EXPECT_TRUE(isUnaryOpType(Cpp::TILDE));
    EXPECT_FALSE(isUnaryOpType(Cpp::PLUS_PLUS));
    EXPECT_TRUE(isIncDecType(Cpp::MINUS_MINUS));
}

TEST(CppExprFormatterTest, KeepsTokensAllowsWhiteSpaceOnly)
{
    const MarkerList markers = defaultRegionMarkers();
    EXPECT_TRUE(keepsTokens("a+b*c", "a + b * c", markers));
    EXPECT_TRUE(keepsTokens("f( a ,b )", "f(a, b)", markers));
    EXPECT_TRUE(keepsTokens("/* a\n     b */ x", "/* a\n b */ x", markers));
    EXPECT_TRUE(keepsTokens("a = - b", "a= -b", markers));
    // Tokens run together, or split.
    EXPECT_FALSE(keepsTokens("a - -b", "a--b", markers));
    EXPECT_FALSE(keepsTokens("a & &b", "a&&b", markers));
    EXPECT_FALSE(keepsTokens("int x", "intx", markers));
    EXPECT_FALSE(keepsTokens("x->y", "x- >y", markers));
    EXPECT_FALSE(keepsTokens("a / *b", "a/*b", markers));
    EXPECT_FALSE(keepsTokens("x = ~ y", "x = ~y", markers)); // "~y" is one token
    // A line break that ends a comment, a directive or a continued line.
    EXPECT_FALSE(keepsTokens("a // c\n+ b", "a // c + b", markers));
    EXPECT_FALSE(keepsTokens("#define X 1\ny", "#define X 1 y", markers));
    EXPECT_FALSE(keepsTokens("a \\\nb", "a \\ b", markers));
    EXPECT_TRUE(keepsTokens("a +\n b", "a + b", markers));
    // A character more or less.
    EXPECT_FALSE(keepsTokens("a + b", "a + b;", markers));
    EXPECT_FALSE(keepsTokens("a + b", "a + c", markers));
}

TEST(CppExprFormatterTest, AnchorOutOfRangeFailsTheContract)
{
    const PropertySet set = scheme({}, {{Prop::ASTERISK_ANCHOR, 2}});
    try {
        CppExprFormatter f(set);
        FAIL() << "no contract failure";
    } catch (const Varnel::ContractViolation& v) {
        EXPECT_EQ(v.condition(), "false");
    }
}

} // namespace
