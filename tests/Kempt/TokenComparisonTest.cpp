// compareTokens: white space never counts; dropped, added, changed and
// reordered tokens do; comments count by their words and directives by their
// tokens; braces left out by position and through a brace rewrite; positions and descriptions of a difference.
#include "Kempt_TokenComparison.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Change = Kempt::TokenComparison::Change;
using Kempt::compareTokens;
using Kempt::TokenComparison;
using Trn::Position;

// Both orders, so that neither side is favoured.
void expectSame(const std::string& a, const std::string& b, const Kempt::TokenComparisonOptions& options = {})
{
    const TokenComparison ab = compareTokens(a, b, options);
    EXPECT_TRUE(ab.same) << ab.describe() << "\n--- a:\n" << a << "\n--- b:\n" << b;
    EXPECT_EQ(ab.change, Change::NONE);
    const TokenComparison ba = compareTokens(b, a, options);
    EXPECT_TRUE(ba.same) << ba.describe() << "\n--- a:\n" << b << "\n--- b:\n" << a;
}

void expectDifferent(const std::string& a, const std::string& b, const Kempt::TokenComparisonOptions& options = {})
{
    EXPECT_FALSE(compareTokens(a, b, options).same) << "--- a:\n" << a << "\n--- b:\n" << b;
    EXPECT_FALSE(compareTokens(b, a, options).same) << "--- a:\n" << b << "\n--- b:\n" << a;
}

// ---- white space between tokens ----

TEST(TokenComparisonTest, IdenticalTextsAreTheSame)
{
    const TokenComparison c = compareTokens("int f(int a) { return a + 1; }\n", "int f(int a) { return a + 1; }\n");
    EXPECT_TRUE(c.same);
    EXPECT_EQ(c.describe(), "same tokens");
    EXPECT_EQ(c.beforePosition, Position());
}

TEST(TokenComparisonTest, EmptyTextsAreTheSame)
{
    expectSame("", "");
    expectSame("", " \n\t\r\n");
}

TEST(TokenComparisonTest, BlanksTabsAndNewlinesBetweenTokensDoNotCount)
{
    expectSame("int f(int a){return a+1;}", "int\nf (\tint  a )\n{\n    return a + 1;\n}\n");
    expectSame("a=b;", "a\f=\vb ;");
}

TEST(TokenComparisonTest, LineEndingsDoNotCount)
{
    expectSame("int a;\r\nint b;\r\n", "int a;\nint b;\n");
    expectSame("int a;\rint b;\r", "int a;\nint b;\n");
}

TEST(TokenComparisonTest, TheEndOfAQualifiedNameMayMoveToTheNextLine)
{
    // The lexer reads "A::\n   b" as one name, "A::b".
    expectSame("A::b x;", "A::\n   b x;");
}

// ---- tokens that change ----

TEST(TokenComparisonTest, DroppedTokenIsCaughtWithItsPosition)
{
    const TokenComparison c = compareTokens("int a;\nint b = 1;\nint c;\n", "int a;\nint b 1;\nint c;\n");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.change, Change::DROPPED);
    EXPECT_EQ(c.beforeToken, "=");
    EXPECT_EQ(c.beforePosition, Position(2, 7));
    EXPECT_EQ(c.afterToken, "1");
    EXPECT_EQ(c.afterPosition, Position(2, 7));
    EXPECT_EQ(c.describe(), "token \"=\" was dropped");
}

TEST(TokenComparisonTest, AddedTokenIsCaught)
{
    const TokenComparison c = compareTokens("f(a, b);\n", "f(a, , b);\n");
    EXPECT_EQ(c.change, Change::ADDED);
    EXPECT_EQ(c.afterToken, ",");
    EXPECT_EQ(c.afterPosition, Position(1, 6));
    EXPECT_EQ(c.beforeToken, "b");
    EXPECT_EQ(c.beforePosition, Position(1, 6));
    EXPECT_EQ(c.describe(), "token \",\" was added");
}

TEST(TokenComparisonTest, ChangedTokenIsCaught)
{
    const TokenComparison c = compareTokens("x = a + b;", "x = a - b;");
    EXPECT_EQ(c.change, Change::CHANGED);
    EXPECT_EQ(c.beforeToken, "+");
    EXPECT_EQ(c.afterToken, "-");
    EXPECT_EQ(c.describe(), "token \"+\" became \"-\"");
}

TEST(TokenComparisonTest, ReorderedTokensAreCaught)
{
    const TokenComparison c = compareTokens("int a; int b;", "int b; int a;");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.beforeToken, "a");
    EXPECT_EQ(c.afterToken, "b");
    EXPECT_EQ(c.change, Change::CHANGED);
}

TEST(TokenComparisonTest, JoiningOrSplittingTokensIsCaught)
{
    expectDifferent("a + + b", "a ++ b");
    expectDifferent("x = - -1;", "x = --1;");
    expectDifferent("int ab;", "int a b;");
    expectDifferent("A::b", "A ::b");
}

TEST(TokenComparisonTest, ATextThatRunsOutIsPlacedBehindItsEnd)
{
    const TokenComparison dropped = compareTokens("a;\nb;\n", "a;\n");
    EXPECT_EQ(dropped.change, Change::DROPPED);
    EXPECT_EQ(dropped.beforeToken, "b");
    EXPECT_EQ(dropped.beforePosition, Position(2, 1));
    EXPECT_EQ(dropped.afterToken, "");
    EXPECT_EQ(dropped.afterPosition, Position(2, 1));

    const TokenComparison added = compareTokens("a", "a b");
    EXPECT_EQ(added.change, Change::ADDED);
    EXPECT_EQ(added.beforeToken, "");
    EXPECT_EQ(added.beforePosition, Position(1, 2));
    EXPECT_EQ(added.afterPosition, Position(1, 3));

    const TokenComparison fromEmpty = compareTokens("", "x");
    EXPECT_EQ(fromEmpty.beforePosition, Position(1, 1));
    EXPECT_EQ(fromEmpty.describe(), "token \"x\" was added");
}

TEST(TokenComparisonTest, PositionsCountLinesOfEveryLineEnding)
{
    const TokenComparison c = compareTokens("a;\r\nb;\r\n\tc;\r\n", "a;\nb;\n\td;\n");
    EXPECT_EQ(c.beforePosition, Position(3, 2));
    EXPECT_EQ(c.afterPosition, Position(3, 2));
}

TEST(TokenComparisonTest, StringAndCharacterLiteralsCountExactly)
{
    expectDifferent("s = \"a b\";", "s = \"a  b\";");
    expectDifferent("s = \"a\\\n  b\";", "s = \"a\\\nb\";");
    expectDifferent("c = ' ';", "c = '\t';");
    expectSame("s = \"a b\" \"c\";", "s =\n    \"a b\"\n    \"c\";");
}

TEST(TokenComparisonTest, CharactersWithoutATokenCountToo)
{
    // "$", "@" and bytes above 127 give no token, yet may not vanish.
    const TokenComparison c = compareTokens("int $x;\n", "int x;\n");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.beforeToken, "$");
    EXPECT_EQ(c.beforePosition, Position(1, 5));
    expectDifferent("a @ b", "a b");
    expectDifferent("int caf\xc3\xa9;", "int caf;");
    expectSame("int $x;", "int  $x ;");
    // "123abc" reads as "abc"; the "123" still counts.
    expectDifferent("123abc", "abc");
    expectSame("x = 123abc;", "x =\n  123abc;");
}

TEST(TokenComparisonTest, LineContinuationCountsWithoutItsTrailingBlanks)
{
    expectSame("a \\\nb", "a \\   \n    b");
    expectDifferent("a \\\nb", "a\nb");
}

// ---- comments ----

TEST(TokenComparisonTest, ReindentedCommentLinesAreNoDifference)
{
    expectSame("    /* first\n     * second\n     */\nint x;\n", "/* first\n * second\n */\nint x;\n");
    expectSame("/*\n\tone\n\t\ttwo\n*/", "/*\n    one\n        two\n*/");
    expectSame("int a; // note\n", "int a;    // note\r\n");
}

TEST(TokenComparisonTest, CommentWordsCount)
{
    const TokenComparison c = compareTokens("/* one two */ x;", "/* one too */ x;");
    EXPECT_EQ(c.change, Change::CHANGED);
    EXPECT_EQ(c.describe(), "token \"/* one two */\" became \"/* one too */\"");
    expectDifferent("// one two\nx;", "// onetwo\nx;");
    // White space may change inside a comment, not where there was none.
    expectDifferent("/*a*/", "/* a */");
    expectDifferent("//x\n", "// x\n");
}

TEST(TokenComparisonTest, DroppedOrMovedCommentIsCaught)
{
    const TokenComparison c = compareTokens("int a; // keep\nint b;\n", "int a;\nint b;\n");
    EXPECT_EQ(c.change, Change::DROPPED);
    EXPECT_EQ(c.beforeToken, "// keep\n");
    EXPECT_EQ(c.describe(), "token \"// keep\\n\" was dropped");
    expectDifferent("int a; // c\nint b;\n", "int a;\nint b; // c\n");
}

TEST(TokenComparisonTest, CommentKindCounts)
{
    expectDifferent("// note\nx;", "/* note */\nx;");
}

TEST(TokenComparisonTest, CommentWordsDoNotMatchCode)
{
    expectDifferent("/* a */ b;", "a /* b; */");
}

// ---- directives ----

TEST(TokenComparisonTest, WhiteSpaceInsideADirectiveDoesNotCount)
{
    expectSame("#define X 1\n", "#  define   X\t1\n");
    expectSame("#if defined(A) && B\n#endif\n", "    #if defined ( A )&&B\n#endif\n");
    expectSame("#define M(a, b) \\\n    ((a) + (b))\n", "#define M(a,b)\\\n\t((a)+(b))\n");
}

TEST(TokenComparisonTest, ReindentedDirectiveContinuationLinesAreNoDifference)
{
    expectSame("  #define LONG(x) \\\n      do { \\\n          f(x); \\\n      } while (0)\n",
               "#define LONG(x) \\\n    do { \\\n        f(x); \\\n    } while (0)\n");
}

TEST(TokenComparisonTest, DirectiveTokensCount)
{
    const TokenComparison c = compareTokens("int a;\n#define X 1\n", "int a;\n#define X 2\n");
    EXPECT_EQ(c.change, Change::CHANGED);
    EXPECT_EQ(c.beforeToken, "1");
    EXPECT_EQ(c.afterToken, "2");
    EXPECT_EQ(c.beforePosition, Position(2, 11));
    expectDifferent("#define X -1\n", "#define X - 1\n#undef X\n");
    expectDifferent("#define A - -1\n", "#define A --1\n");
    expectDifferent("#ifdef A\n", "#ifndef A\n");
}

TEST(TokenComparisonTest, TheLineADirectiveEndsOnCounts)
{
    // Joining the next line into a directive changes what the preprocessor sees.
    const TokenComparison c = compareTokens("#if A\nB\n#endif\n", "#if A B\n#endif\n");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.beforeToken, "\n");
    EXPECT_EQ(c.beforePosition, Position(1, 6));
    EXPECT_EQ(c.afterToken, "B");
    // So does a line continuation that goes or comes.
    expectDifferent("#define X \\\n 1\n", "#define X\n 1\n");
}

TEST(TokenComparisonTest, ADirectiveDoesNotMatchTheSameTokensInCode)
{
    expectDifferent("#define X 1\n", "define X 1\n");
}

TEST(TokenComparisonTest, FunctionLikeMacroKeepsItsParenthesisAtTheName)
{
    const TokenComparison c = compareTokens("#define F(x) x\n", "#define F (x) x\n");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.beforeToken, "F(");
    EXPECT_EQ(c.afterToken, "F");
    expectSame("#define F(x) (x)\n", "#  define F(x)   ( x )\n");
    expectSame("#define F (x)\n", "#define F  ( x )\n");
    // Only a "#define" has this rule.
    expectSame("#if F(x)\n", "#if F (x)\n");
}

TEST(TokenComparisonTest, IncludeNameCountsExactly)
{
    expectSame("#include <a/b.h>\n", "#  include   <a/b.h>\n");
    expectSame("#include \"a.h\"\n", "#include   \"a.h\"\n");
    expectDifferent("#include <a b.h>\n", "#include <a  b.h>\n");
    expectDifferent("#include <a.h>\n", "#include < a.h >\n");
    expectDifferent("#include <a.h> // x\n", "#include <a.h> // y\n");
}

TEST(TokenComparisonTest, CommentInsideADirectiveCountsByItsWords)
{
    expectSame("#endif /* A */\n", "#endif   /*   A */\n");
    expectDifferent("#endif /* A */\n", "#endif /* B */\n");
}

TEST(TokenComparisonTest, StringizingInAMacroBody)
{
    expectSame("#define S(x) #x\n", "#define S(x) # x\n");
    expectDifferent("#define S(x) #x\n", "#define S(x) x\n");
    expectSame("#define J(a, b) a ## b\n", "#define J(a,b) a##b\n");
}

TEST(TokenComparisonTest, DeeplyNestedDirectiveTextCountsByItsWords)
{
    const std::string deep = "#define X # # # # # # # # # # # # a b\n";
    expectSame(deep, "#define X # # # # # # # # # # # #  a   b\n");
    expectDifferent(deep, "#define X # # # # # # # # # # # # a c\n");
}

// ---- braces ----

TEST(TokenComparisonTest, OnlyTheBracesNamedByPositionAreLeftOut)
{
    expectDifferent("if (a) b;", "if (a) {b;}");
    Kempt::TokenComparisonOptions added;
    added.bracesOutAfter = {Position(1, 8), Position(1, 11)};
    EXPECT_TRUE(compareTokens("if (a) b;", "if (a) {b;}", added).same);
    Kempt::TokenComparisonOptions removed;
    removed.bracesOutBefore = {Position(2, 11), Position(1, 8)}; // in any order
    EXPECT_TRUE(compareTokens("if (a) { b;\n          }", "if (a)  b;", removed).same);
    // Another brace still counts.
    EXPECT_FALSE(compareTokens("if (a) b; }", "if (a) {b;}", added).same);
}

TEST(TokenComparisonTest, ANamedBraceThatIsNotThereIsADifference)
{
    Kempt::TokenComparisonOptions options;
    options.bracesOutBefore = {Position(1, 1)};
    const TokenComparison c = compareTokens("a;", "a;", options);
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.beforePosition, Position(1, 1));
}

TEST(TokenComparisonTest, LeavingBracesOutStillCatchesEverythingElse)
{
    Kempt::TokenComparisonOptions added;
    added.bracesOutAfter = {Position(1, 8), Position(1, 11)};
    EXPECT_FALSE(compareTokens("if (a) b;", "if (a) {c;}", added).same);
    EXPECT_FALSE(compareTokens("if (a) b; // x\n", "if (a) {b;}\n", added).same);
    // Braces inside a directive are never left out: the rewriter leaves directives alone.
    Kempt::TokenComparisonOptions inDirective;
    inDirective.bracesOutBefore = {Position(1, 11)};
    EXPECT_FALSE(compareTokens("#define B {\n", "#define B\n", inDirective).same);
}

// ---- through a brace rewrite ----

// `if (a) { b; }` rewritten to `if (a)  b;` and then laid out.
Kempt::BraceRewrite removedRewrite()
{
    Kempt::BraceRewrite r;
    r.text = "void f() { if (a)  b; c(); }\n";
    r.edits.removed = {Position(1, 19), Position(1, 24)};
    return r;
}

const char* const REMOVED_INPUT = "void f() { if (a) { b; } c(); }\n";

TEST(TokenComparisonTest, ARewriteAcceptsExactlyItsBraces)
{
    const Kempt::BraceRewrite r = removedRewrite();
    EXPECT_TRUE(compareTokens(REMOVED_INPUT, r, "void f()\n{\n    if (a)\n        b;\n    c();\n}\n").same);

    Kempt::BraceRewrite added;
    added.text = "if (a) {b;}\n";
    added.edits.added = {Position(1, 8), Position(1, 11)};
    EXPECT_TRUE(compareTokens("if (a) b;\n", added, "if (a)\n{\n    b;\n}\n").same);
}

TEST(TokenComparisonTest, ARewriterThatDropsAnyOtherTokenIsRefused)
{
    // The rewriter lost the ";" behind b as well.
    Kempt::BraceRewrite lostSemicolon = removedRewrite();
    lostSemicolon.text = "void f() { if (a)  b c(); }\n";
    const TokenComparison c = compareTokens(REMOVED_INPUT, lostSemicolon, "void f() { if (a)  b c(); }\n");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.describe(), "token \";\" was dropped");

    // The rewriter dropped the function's own "}" and did not say so.
    Kempt::BraceRewrite lostBrace = removedRewrite();
    lostBrace.text = "void f() { if (a)  b; c(); \n";
    EXPECT_FALSE(compareTokens(REMOVED_INPUT, lostBrace, lostBrace.text).same);

    // It says it removed the function's braces: they are not where it says.
    Kempt::BraceRewrite wrongPlace = removedRewrite();
    wrongPlace.edits.removed = {Position(1, 10), Position(1, 24)};
    EXPECT_FALSE(compareTokens(REMOVED_INPUT, wrongPlace, wrongPlace.text).same);
}

TEST(TokenComparisonTest, ALaterPassThatChangesATokenIsToldWhereItStoodInTheInput)
{
    const Kempt::BraceRewrite r = removedRewrite();
    const TokenComparison c = compareTokens(REMOVED_INPUT, r, "void f()\n{\n    if (a)\n        b;\n    d();\n}\n");
    EXPECT_FALSE(c.same);
    EXPECT_EQ(c.describe(), "token \"c\" became \"d\"");
    EXPECT_EQ(c.beforePosition, Position(1, 26));
    EXPECT_EQ(c.afterPosition, Position(5, 5));
}

// ---- descriptions ----

TEST(TokenComparisonTest, DescriptionEscapesAndShortensTokenTexts)
{
    const std::string longComment = "/* " + std::string(100, 'x') + " */";
    const TokenComparison c = compareTokens(longComment + "\n", "\n");
    EXPECT_EQ(c.describe(), "token \"/* " + std::string(57, 'x') + "...\" was dropped");

    const TokenComparison quoted = compareTokens("s = \"a\\tb\";", "s = \"a\\nb\";");
    EXPECT_EQ(quoted.describe(), "token \"\\\"a\\\\tb\\\"\" became \"\\\"a\\\\nb\\\"\"");
}

} // namespace
