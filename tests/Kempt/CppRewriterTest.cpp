// The brace pass on its own: its raw output before the formatter lays it out,
// the braces it reports as added and removed, and the places it must leave
// alone.
#include "Cpp_RootNode.h"
#include "Kempt.h"
#include "Kempt_CppRewriter.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using Trn::Position;

struct Styles {
    std::int32_t ifElse = 0;
    std::int32_t forStyle = 0;
    std::int32_t whileStyle = 0;
};

Kempt::PropertySet withStyles(Styles s)
{
    Kempt::PropertySet set;
    set.setInt(Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, s.ifElse);
    set.setInt(Kempt::Prop::FOR_CS_SINGLE_STMT_BRACE_STYLE, s.forStyle);
    set.setInt(Kempt::Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE, s.whileStyle);
    return set;
}

struct Rewritten {
    std::string text;
    Kempt::BraceEdits edits;
};

Rewritten rewrite(const std::string& text, Styles s)
{
    Cpp::RootNode root;
    Kempt::FormatMessageList messages;
    EXPECT_TRUE(Kempt::analyseText(text, Kempt::defaultRegionMarkers(), root, messages)) << text;
    std::ostringstream out;
    Kempt::CppRewriter rewriter(withStyles(s), text, out);
    root.accept(rewriter);
    return {out.str(), rewriter.edits()};
}

// The body of a function, rewritten: "void f() { " + body + " }".
std::string inFunction(const std::string& body, Styles s)
{
    const std::string text = rewrite("void f() { " + body + " }", s).text;
    const std::string head = "void f() { ";
    EXPECT_EQ(text.substr(0, head.size()), head);
    EXPECT_EQ(text.substr(text.size() - 2), " }");
    return text.substr(head.size(), text.size() - head.size() - 2);
}

constexpr Styles ALL_ADD{1, 1, 1};
constexpr Styles ALL_REMOVE{2, 2, 2};

TEST(CppRewriterTest, AddsBracesDirectlyAgainstTheStatement)
{
    EXPECT_EQ(inFunction("if (a) b;", {1, 0, 0}), "if (a) {b;}");
}

TEST(CppRewriterTest, RemovesBracesLeavingTheInnerGapsForTheFormatter)
{
    EXPECT_EQ(inFunction("if (a) { b; }", {2, 0, 0}), "if (a)  b;");
    EXPECT_EQ(inFunction("if (a) {\n    b;\n}", {2, 0, 0}), "if (a) \n    b;");
    EXPECT_EQ(inFunction("if (a) { b; c; }", {2, 0, 0}), "if (a) { b; c; }");
}

TEST(CppRewriterTest, ACommentBesideTheStatementIsAChild)
{
    EXPECT_EQ(inFunction("if (a) { /* c */ b; }", {2, 0, 0}), "if (a) { /* c */ b; }");
}

TEST(CppRewriterTest, BothBranchesOfAnIfElseGainBraces)
{
    EXPECT_EQ(inFunction("if (a) b; else c;", {1, 0, 0}), "if (a) {b;} else {c;}");
}

TEST(CppRewriterTest, AnElseIfChainStaysAChain)
{
    EXPECT_EQ(inFunction("if (a) b; else if (c) d; else e;", {1, 0, 0}), "if (a) {b;} else if (c) {d;} else {e;}");
    EXPECT_EQ(inFunction("if (a) {b;} else if (c) {d;} else {e;}", {2, 0, 0}), "if (a) b; else if (c) d; else e;");
}

TEST(CppRewriterTest, DoSwitchAndTryAreNeverTouched)
{
    EXPECT_EQ(inFunction("do x; while (a);", ALL_ADD), "do x; while (a);");
    EXPECT_EQ(inFunction("do { x; } while (a);", ALL_REMOVE), "do { x; } while (a);");
    EXPECT_EQ(inFunction("switch (a) { case 1: if (b) c; }", ALL_ADD), "switch (a) { case 1: if (b) c; }");
    EXPECT_EQ(inFunction("try { if (a) b; } catch (...) { if (c) d; }", ALL_ADD),
              "try { if (a) b; } catch (...) { if (c) d; }");
}

TEST(CppRewriterTest, TheWhileStyleAppliesToWhileStatementsOnly)
{
    EXPECT_EQ(inFunction("while (a) b; do c; while (d);", {0, 0, 1}), "while (a) {b;} do c; while (d);");
    EXPECT_EQ(inFunction("while (a) b; for (;;) c; if (d) e;", {0, 0, 1}), "while (a) {b;} for (;;) c; if (d) e;");
    EXPECT_EQ(inFunction("for (;;) c;", {0, 1, 0}), "for (;;) {c;}");
}

TEST(CppRewriterTest, NestedStatementsTakeTheirOwnStyle)
{
    EXPECT_EQ(inFunction("for (;;) if (a) b;", {0, 1, 0}), "for (;;) {if (a) b;}");
    EXPECT_EQ(inFunction("for (;;) if (a) b;", {1, 1, 0}), "for (;;) {if (a) {b;}}");
    EXPECT_EQ(inFunction("for (;;) { if (a) { b; } }", {2, 0, 0}), "for (;;) { if (a)  b; }");
}

TEST(CppRewriterTest, StatementsInsideABodyOfSeveralStatementsAreStillRewritten)
{
    EXPECT_EQ(inFunction("if (a) { b; if (c) d; }", {1, 0, 0}), "if (a) { b; if (c) {d;} }");
}

TEST(CppRewriterTest, WithAllStylesLeftTheTextIsUnchanged)
{
    const std::string text = "void f()\n{\n    if (a) b; else { c; }\n    for (;;) { d; }\n}\n";
    const Rewritten r = rewrite(text, {0, 0, 0});
    EXPECT_EQ(r.text, text);
    EXPECT_TRUE(r.edits.empty());
}

TEST(CppRewriterTest, BracesThatHoldAnElseToItsIfStay)
{
    // Without them the else would belong to `if (b)`.
    EXPECT_EQ(inFunction("if (a) { if (b) c; } else d;", ALL_REMOVE), "if (a) { if (b) c; } else d;");
    EXPECT_EQ(inFunction("if (a) { for (;;) while (x) if (b) c; } else d;", ALL_REMOVE),
              "if (a) { for (;;) while (x) if (b) c; } else d;");
    EXPECT_EQ(inFunction("if (a) { if (b) c; else if (e) f; } else d;", ALL_REMOVE),
              "if (a) { if (b) c; else if (e) f; } else d;");
    // Removing the outer braces would leave the inner ones holding the
    // statement; they then stay.
    EXPECT_EQ(inFunction("if (a) { for (;;) { if (b) c; } } else d;", ALL_REMOVE),
              "if (a)  for (;;) { if (b) c; } else d;");
    // An if with its own else keeps them too: two elses in a row read as one if's.
    EXPECT_EQ(inFunction("if (a) { if (b) c; else e; } else d;", ALL_REMOVE), "if (a) { if (b) c; else e; } else d;");
    // No else behind: the braces go.
    EXPECT_EQ(inFunction("if (a) { if (b) c; else e; }", ALL_REMOVE), "if (a)  if (b) c; else e;");
    EXPECT_EQ(inFunction("if (a) { if (b) c; }", ALL_REMOVE), "if (a)  if (b) c;");
    EXPECT_EQ(inFunction("if (a) { for (;;) c; } else d;", ALL_REMOVE), "if (a)  for (;;) c; else d;");
}

TEST(CppRewriterTest, AnElseIfChainBehindAnIfKeepsTheBracesThatCloseIt)
{
    EXPECT_EQ(inFunction("if (a) x; else if (b) { if (c) y; } else z;", ALL_REMOVE),
              "if (a) x; else if (b) { if (c) y; } else z;");
}

TEST(CppRewriterTest, BracesRoundADeclarationOrAStraySemicolonStay)
{
    EXPECT_EQ(inFunction("if (a) { int x = f(); }", ALL_REMOVE), "if (a) { int x = f(); }");
    EXPECT_EQ(inFunction("if (a) { b;; } else c;", ALL_REMOVE), "if (a) { b;; } else c;");
}

TEST(CppRewriterTest, AStatementTheParserTookApartIsLeftAlone)
{
    // `return` inside a macro's arguments ends the statement early for the parser.
    EXPECT_EQ(inFunction("if (a) ASSERT_DEATH(return, \"\"); if (b) c(\")\", ')');", ALL_ADD),
              "if (a) ASSERT_DEATH(return, \"\"); if (b) {c(\")\", ')');}");
}

TEST(CppRewriterTest, ACaseLabelBesideTheStatementsIsPassedOver)
{
    // The body of the switch is the labelled statement; the parser makes the
    // label a statement of the block around.
    EXPECT_EQ(inFunction("switch (0)\n case 0:\n if (a) b;", ALL_ADD), "switch (0)\n case 0:\n if (a) {b;}");
}

TEST(CppRewriterTest, EmptyBodiesAreLeftAlone)
{
    EXPECT_EQ(inFunction("if (a) ; else {}", ALL_ADD), "if (a) ; else {}");
    EXPECT_EQ(inFunction("if (a) ; else {}", ALL_REMOVE), "if (a) ; else {}");
}

TEST(CppRewriterTest, TemplatedDeclarationsAreNotEntered)
{
    const std::string text = "template <class T> void f() { if (a) b; }\n"
                             "template <class T> struct S { void g() { if (a) b; } };\n"
                             "void h() { if (a) b; }\n";
    EXPECT_EQ(rewrite(text, ALL_ADD).text, "template <class T> void f() { if (a) b; }\n"
                                           "template <class T> struct S { void g() { if (a) b; } };\n"
                                           "void h() { if (a) {b;} }\n");
}

TEST(CppRewriterTest, NamespacesClassesAndLinkageBlocksAreWalked)
{
    const std::string text = "namespace n { struct S { void g() { if (a) b; } }; }\n"
                             "extern \"C\" { void h() { while (a) b; } }\n"
                             "S::S() : m(0) { for (;;) c; }\n";
    EXPECT_EQ(rewrite(text, ALL_ADD).text, "namespace n { struct S { void g() { if (a) {b;} } }; }\n"
                                           "extern \"C\" { void h() { while (a) {b;} } }\n"
                                           "S::S() : m(0) { for (;;) {c;} }\n");
}

TEST(CppRewriterTest, TellsTheBracesItAddedAndRemoved)
{
    const Rewritten added = rewrite("void f() {\n  if (a) b;\n}\n", ALL_ADD);
    EXPECT_EQ(added.text, "void f() {\n  if (a) {b;}\n}\n");
    EXPECT_TRUE(added.edits.removed.empty());
    EXPECT_EQ(added.edits.added, (std::vector<Position>{Position(2, 10), Position(2, 13)}));

    const Rewritten removed = rewrite("void f() {\n  if (a) {\n    b;\n  }\n}\n", ALL_REMOVE);
    EXPECT_EQ(removed.text, "void f() {\n  if (a) \n    b;\n}\n");
    EXPECT_TRUE(removed.edits.added.empty());
    EXPECT_EQ(removed.edits.removed, (std::vector<Position>{Position(2, 10), Position(4, 3)}));
}

TEST(CppRewriterTest, AStyleOutsideItsRangeIsAContractFailure)
{
    Kempt::PropertySet set = withStyles({0, 3, 0});
    std::ostringstream out;
    EXPECT_THROW(Kempt::CppRewriter(set, "", out), Varnel::ContractViolation);
    EXPECT_THROW(Kempt::CppRewriter::anyStyleSet(withStyles({-1, 0, 0})), Varnel::ContractViolation);
    EXPECT_FALSE(Kempt::CppRewriter::anyStyleSet(withStyles({0, 0, 0})));
    EXPECT_TRUE(Kempt::CppRewriter::anyStyleSet(withStyles({0, 0, 2})));
}

TEST(CppRewriterTest, TheDriverRewritesFirstAndTellsTheEdits)
{
    const Kempt::FormatSettings settings(withStyles(ALL_ADD));
    Kempt::BraceRewrite r;
    Kempt::FormatMessageList messages;
    ASSERT_EQ(Kempt::FormatEngine().rewriteBraces(settings, "void f() { if (a) b; }\r\n", r, messages), 0);
    EXPECT_EQ(r.text, "void f() { if (a) {b;} }\r\n");
    EXPECT_EQ(r.edits.added, (std::vector<Position>{Position(1, 19), Position(1, 22)}));

    // Without a style, the text as it is.
    Kempt::BraceRewrite same;
    ASSERT_EQ(Kempt::FormatEngine().rewriteBraces(Kempt::FormatSettings(withStyles({})), "if", same, messages), 0);
    EXPECT_EQ(same.text, "if");
}

TEST(CppRewriterTest, TheWholeRunKeepsCrLfAndPassesTheTokenCheck)
{
    const std::string input = "void f()\r\n{\r\n    if (a) {\r\n        b();\r\n    }\r\n    while (c) d();\r\n}\r\n";
    for (const Styles styles : {ALL_ADD, ALL_REMOVE}) {
        const Kempt::FormatSettings settings(withStyles(styles));
        std::istringstream in(input);
        std::ostringstream out;
        Kempt::FormatMessageList messages;
        Kempt::UpdateFunctor noProgress;
        ASSERT_EQ(Kempt::FormatEngine().format(settings, in, out, messages, noProgress), 0);
        const std::string output = out.str();
        EXPECT_EQ(output.find('\n'), output.find("\r\n") + 1) << output;
        EXPECT_TRUE(Kempt::compareFormatted(settings, input, output).same) << output;
        // Without the brace styles the same output is refused.
        EXPECT_FALSE(Kempt::compareFormatted(Kempt::FormatSettings(withStyles({})), input, output).same) << output;
    }
}

} // namespace
