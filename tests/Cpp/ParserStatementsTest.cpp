// The parser on statements and blocks: the kinds and extents of statements,
// control statements with all their parts, case labels, labels and asm.
#include "ParserTestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(ParserStatementsTest, IfElseIsOneStatementWithTwoPartsAndBracelessBlocks)
{
    EXPECT_TREE("void f() { if (a) b; else c; }",
                "RootNode 1:1-1:30\n"
                "  FunctionDeclNode 1:1-1:30\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:30\n"
                "      CtrlStmtNode 1:12-1:28\n"
                "        CtrlSubStmtNode 1:12-1:20\n"
                "          CtrlSubStmtHeadNode 1:12-1:17\n"
                "            KeywordNode 1:12-1:13 type=IF_KEY\n"
                "            ExprNode 1:15-1:17\n"
                "          BlockNode 1:19-1:20\n"
                "            ExprNode 1:19-1:20\n"
                "        CtrlSubStmtNode 1:22-1:28\n"
                "          CtrlSubStmtHeadNode 1:22-1:25\n"
                "            KeywordNode 1:22-1:25 type=ELSE_KEY\n"
                "          BlockNode 1:27-1:28\n"
                "            ExprNode 1:27-1:28\n");
}

TEST(ParserStatementsTest, DoWhileHasTwoPartsTheSecondWithoutBody)
{
    EXPECT_TREE("void f() { do x(); while (y); }",
                "RootNode 1:1-1:31\n"
                "  FunctionDeclNode 1:1-1:31\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:31\n"
                "      CtrlStmtNode 1:12-1:29\n"
                "        CtrlSubStmtNode 1:12-1:18\n"
                "          CtrlSubStmtHeadNode 1:12-1:13\n"
                "            KeywordNode 1:12-1:13 type=DO_KEY\n"
                "          BlockNode 1:15-1:18\n"
                "            ExprNode 1:15-1:18\n"
                "        CtrlSubStmtNode 1:20-1:29\n"
                "          CtrlSubStmtHeadNode 1:20-1:29\n"
                "            KeywordNode 1:20-1:24 type=WHILE_KEY\n"
                "            ExprNode 1:26-1:28\n");
}

TEST(ParserStatementsTest, CommentBetweenBraceAndElseIsAChildOfTheStatement)
{
    EXPECT_TREE("void f() { if (a) { } // c\n else { } }",
                "RootNode 1:1-2:11\n"
                "  FunctionDeclNode 1:1-2:11\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-2:11\n"
                "      CtrlStmtNode 1:12-2:9\n"
                "        CtrlSubStmtNode 1:12-1:21\n"
                "          CtrlSubStmtHeadNode 1:12-1:17\n"
                "            KeywordNode 1:12-1:13 type=IF_KEY\n"
                "            ExprNode 1:15-1:17\n"
                "          BlockNode 1:19-1:21\n"
                "        CommentNode 1:23-2:0 text=\"// c\\n\"\n"
                "        CtrlSubStmtNode 2:2-2:9\n"
                "          CtrlSubStmtHeadNode 2:2-2:5\n"
                "            KeywordNode 2:2-2:5 type=ELSE_KEY\n"
                "          BlockNode 2:7-2:9\n");
}

TEST(ParserStatementsTest, DeclarationOrExpressionByAttempt)
{
    EXPECT_TREE("void f() { T * x; a * b; foo(x); }",
                "RootNode 1:1-1:34\n"
                "  FunctionDeclNode 1:1-1:34\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:34\n"
                "      DataDeclNode 1:12-1:17\n"
                "        TypeNode 1:12-1:14\n"
                "        IdNode 1:16-1:16 text=\"x\"\n"
                "      DataDeclNode 1:19-1:24\n"
                "        TypeNode 1:19-1:21\n"
                "        IdNode 1:23-1:23 text=\"b\"\n"
                "      ExprNode 1:26-1:32\n");
}

TEST(ParserStatementsTest, MacroCallWithoutSemicolonBeforeTheClosingBrace)
{
    EXPECT_TREE("void f() { FOO(x) }",
                "RootNode 1:1-1:19\n"
                "  FunctionDeclNode 1:1-1:19\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:19\n"
                "      ExprNode 1:12-1:17\n");
}

TEST(ParserStatementsTest, RunawayHeadIsCodeTwelve)
{
    EXPECT_EQ(TwTest::messagesOf("void f() { if (a { } }"),
              "1:18 code=12 Expected \")\". Possible unbalanced parentheses.\n");
    EXPECT_EQ(TwTest::messagesOf("void f() { while (a) if (b return; }"),
              "1:28 code=12 Expected \")\". Possible unbalanced parentheses.\n");
    EXPECT_EQ(TwTest::messagesOf("void f() { if a; }"), "1:15 code=13 Expected \"(\".\n");
}

TEST(ParserStatementsTest, AccessLabelInsideAFunctionIsCodeEight)
{
    EXPECT_EQ(TwTest::messagesOf("void f()\n{\n    public:\n    x = 1;\n}\n"),
              "3:5 code=8 public: protected: private: labels are not allowed inside block statements.\n");
    // The block goes on: several messages can come from one block.
    EXPECT_EQ(TwTest::messagesOf("void f() { namespace x; template y; private: z; }"),
              "1:12 code=10 Namespace declarations are not allowed inside block statements.\n"
              "1:25 code=9 template declarations are not allowed inside block statements.\n"
              "1:37 code=8 public: protected: private: labels are not allowed inside block statements.\n");
}

TEST(ParserStatementsTest, AsmToTheEndOfTheLineOrToTheClosingBrace)
{
    EXPECT_TREE("void f() {\n  __asm mov eax, 1\n  __asm { mov eax, 2 }\n  asm(\"nop\");\n}",
                "RootNode 1:1-5:1\n"
                "  FunctionDeclNode 1:1-5:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-5:1\n"
                "      AsmNode 2:3-2:18 form=0\n"
                "        TextNode 2:3-2:7\n"
                "        BlockNode 2:9-2:18\n"
                "          TextNode 2:9-2:18\n"
                "      AsmNode 3:3-3:22 form=2\n"
                "        TextNode 3:3-3:7\n"
                "        BlockNode 3:9-3:22\n"
                "          TextNode 3:9-3:22\n"
                "      AsmNode 4:3-4:13 form=1\n"
                "        TextNode 4:3-4:5\n"
                "        BlockNode 4:6-4:13\n"
                "          TextNode 4:6-4:13\n");
}

TEST(ParserStatementsTest, SwitchWithCaseLabels)
{
    EXPECT_TREE("void f() { switch (x) { case A::B: a(); break; default: b(); } }",
                "RootNode 1:1-1:64\n"
                "  FunctionDeclNode 1:1-1:64\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:64\n"
                "      CtrlStmtNode 1:12-1:62\n"
                "        CtrlSubStmtNode 1:12-1:62\n"
                "          CtrlSubStmtHeadNode 1:12-1:21\n"
                "            KeywordNode 1:12-1:17 type=SWITCH_KEY\n"
                "            ExprNode 1:19-1:21\n"
                "          BlockNode 1:23-1:62\n"
                "            CaseNode 1:25-1:34\n"
                "              KeywordNode 1:25-1:28 type=CASE_KEY\n"
                "              ExprNode 1:30-1:33\n"
                "            ExprNode 1:36-1:39\n"
                "            ExprNode 1:41-1:46\n"
                "            CaseNode 1:48-1:55\n"
                "              KeywordNode 1:48-1:54 type=DEFAULT_KEY\n"
                "            ExprNode 1:57-1:60\n");
    EXPECT_EQ(TwTest::messagesOf("void f() { switch (x) { default a(); } }"),
              "1:33 code=0 Expected a : immediately following 'default'. Got: a\n");
}

TEST(ParserStatementsTest, LabelsAndJumps)
{
    EXPECT_TREE("void f() { again: goto again; }",
                "RootNode 1:1-1:31\n"
                "  FunctionDeclNode 1:1-1:31\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:31\n"
                "      LabelNode 1:12-1:17\n"
                "        IdNode 1:12-1:16 text=\"again\"\n"
                "      ExprNode 1:19-1:29\n");
}

TEST(ParserStatementsTest, TryWithCatchParts)
{
    EXPECT_TREE("void f() { try { } catch (A& a) { } catch (...) { } }",
                "RootNode 1:1-1:53\n"
                "  FunctionDeclNode 1:1-1:53\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:53\n"
                "      CtrlStmtNode 1:12-1:51\n"
                "        CtrlSubStmtNode 1:12-1:18\n"
                "          CtrlSubStmtHeadNode 1:12-1:14\n"
                "            KeywordNode 1:12-1:14 type=TRY_KEY\n"
                "          BlockNode 1:16-1:18\n"
                "        CtrlSubStmtNode 1:20-1:35\n"
                "          CtrlSubStmtHeadNode 1:20-1:31\n"
                "            KeywordNode 1:20-1:24 type=CATCH_KEY\n"
                "            ExprNode 1:26-1:31\n"
                "          BlockNode 1:33-1:35\n"
                "        CtrlSubStmtNode 1:37-1:51\n"
                "          CtrlSubStmtHeadNode 1:37-1:47\n"
                "            KeywordNode 1:37-1:41 type=CATCH_KEY\n"
                "            ExprNode 1:43-1:47\n"
                "          BlockNode 1:49-1:51\n");
}

TEST(ParserStatementsTest, EmptyBodiesAndWhileWithoutBody)
{
    EXPECT_TREE("void f() { for (;;) ; while (x); }",
                "RootNode 1:1-1:34\n"
                "  FunctionDeclNode 1:1-1:34\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:34\n"
                "      CtrlStmtNode 1:12-1:21\n"
                "        CtrlSubStmtNode 1:12-1:21\n"
                "          CtrlSubStmtHeadNode 1:12-1:19\n"
                "            KeywordNode 1:12-1:14 type=FOR_KEY\n"
                "            ExprNode 1:16-1:19\n"
                "          BlockNode 1:21-1:21\n"
                "      CtrlStmtNode 1:23-1:32\n"
                "        CtrlSubStmtNode 1:23-1:32\n"
                "          CtrlSubStmtHeadNode 1:23-1:32\n"
                "            KeywordNode 1:23-1:27 type=WHILE_KEY\n"
                "            ExprNode 1:29-1:31\n");
}

// The else part of a chain holds a statement with the inner `if` alone; the
// parts that continue the chain are siblings of the first `if`.
TEST(ParserStatementsTest, ElseIfChainPartsAreSiblings)
{
    EXPECT_TREE("void f() { if (a) b; else if (c) d; else e; }",
                "RootNode 1:1-1:45\n"
                "  FunctionDeclNode 1:1-1:45\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:45\n"
                "      CtrlStmtNode 1:12-1:43\n"
                "        CtrlSubStmtNode 1:12-1:20\n"
                "          CtrlSubStmtHeadNode 1:12-1:17\n"
                "            KeywordNode 1:12-1:13 type=IF_KEY\n"
                "            ExprNode 1:15-1:17\n"
                "          BlockNode 1:19-1:20\n"
                "            ExprNode 1:19-1:20\n"
                "        CtrlSubStmtNode 1:22-1:35\n"
                "          CtrlSubStmtHeadNode 1:22-1:25\n"
                "            KeywordNode 1:22-1:25 type=ELSE_KEY\n"
                "          BlockNode 1:27-1:35\n"
                "            CtrlStmtNode 1:27-1:35\n"
                "              CtrlSubStmtNode 1:27-1:35\n"
                "                CtrlSubStmtHeadNode 1:27-1:32\n"
                "                  KeywordNode 1:27-1:28 type=IF_KEY\n"
                "                  ExprNode 1:30-1:32\n"
                "                BlockNode 1:34-1:35\n"
                "                  ExprNode 1:34-1:35\n"
                "        CtrlSubStmtNode 1:37-1:43\n"
                "          CtrlSubStmtHeadNode 1:37-1:40\n"
                "            KeywordNode 1:37-1:40 type=ELSE_KEY\n"
                "          BlockNode 1:42-1:43\n"
                "            ExprNode 1:42-1:43\n");
}

TEST(ParserStatementsTest, CommentsInAnElseIfChainStayWhereTheyAre)
{
    // Between `}` and `else` a comment is a part of the statement; between
    // `else` and `if` it stays in the gap in front of the unbraced body.
    EXPECT_TREE("void f() { if (a) { } // c\n else /* d */ if (b) { } else { } }",
                "RootNode 1:1-2:35\n"
                "  FunctionDeclNode 1:1-2:35\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-2:35\n"
                "      CtrlStmtNode 1:12-2:33\n"
                "        CtrlSubStmtNode 1:12-1:21\n"
                "          CtrlSubStmtHeadNode 1:12-1:17\n"
                "            KeywordNode 1:12-1:13 type=IF_KEY\n"
                "            ExprNode 1:15-1:17\n"
                "          BlockNode 1:19-1:21\n"
                "        CommentNode 1:23-2:0 text=\"// c\\n\"\n"
                "        CtrlSubStmtNode 2:2-2:24\n"
                "          CtrlSubStmtHeadNode 2:2-2:5\n"
                "            KeywordNode 2:2-2:5 type=ELSE_KEY\n"
                "          BlockNode 2:15-2:24\n"
                "            CtrlStmtNode 2:15-2:24\n"
                "              CtrlSubStmtNode 2:15-2:24\n"
                "                CtrlSubStmtHeadNode 2:15-2:20\n"
                "                  KeywordNode 2:15-2:16 type=IF_KEY\n"
                "                  ExprNode 2:18-2:20\n"
                "                BlockNode 2:22-2:24\n"
                "        CtrlSubStmtNode 2:26-2:33\n"
                "          CtrlSubStmtHeadNode 2:26-2:29\n"
                "            KeywordNode 2:26-2:29 type=ELSE_KEY\n"
                "          BlockNode 2:31-2:33\n");
}

TEST(ParserStatementsTest, DeclarationsInBlocks)
{
    EXPECT_TREE("void f() { static int n = 0; typedef struct { int x; } P; extern \"C\" int g(); }",
                "RootNode 1:1-1:79\n"
                "  FunctionDeclNode 1:1-1:79\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:79\n"
                "      DataDeclNode 1:12-1:28\n"
                "        TypeNode 1:12-1:21\n"
                "        IdNode 1:23-1:23 text=\"n\"\n"
                "        ExprNode 1:25-1:28\n"
                "      ClassDeclNode 1:30-1:54\n"
                "        ClassHeadNode 1:30-1:43\n"
                "          ClassNameNode 1:30-1:43 type=STRUCT_KEY text=\"typedef struct\"\n"
                "        ClassBodyNode 1:45-1:54\n"
                "          DataDeclNode 1:47-1:52\n"
                "            TypeNode 1:47-1:49\n"
                "            IdNode 1:51-1:51 text=\"x\"\n"
                "      DataDeclNode 1:56-1:57\n"
                "        IdNode 1:56-1:56 text=\"P\"\n"
                "      DataDeclNode 1:70-1:77\n"
                "        TypeNode 1:70-1:72\n"
                "        IdNode 1:74-1:74 text=\"g\"\n"
                "        ExprNode 1:75-1:77\n");
}

TEST(ParserStatementsTest, DirectivesAndCommentsInABlock)
{
    EXPECT_TREE("void f() {\n#ifdef A\n  a();\n#endif\n  // done\n}",
                "RootNode 1:1-6:1\n"
                "  FunctionDeclNode 1:1-6:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-6:1\n"
                "      PreprocDirectiveNode 2:1-3:0\n"
                "      ExprNode 3:3-3:6\n"
                "      PreprocDirectiveNode 4:1-5:0\n"
                "      CommentNode 5:3-6:0 text=\"// done\\n\"\n");
}

TEST(ParserStatementsTest, EndOfInputInsideABlock)
{
    EXPECT_EQ(TwTest::messagesOf("void f() { x = 1;"), "1:17 code=1 Unexpected EOF found.\n");
}

// --- Extensions: lambdas with statement bodies, braced lists, if constexpr. ---

TEST(ParserStatementsTest, LambdaBodiesAndBracedListsBelongToTheirStatement)
{
    // A lambda's body in a declaration, an argument, behind its introducer or
    // its parameters, and a braced list behind `return`: each statement is
    // one node, however many semicolons its braces hold.
    EXPECT_TREE("void f()\n{\n"
                "    auto add = [&](int x) { g(x); return x; };\n"
                "    sort(b, e, [](int a, int c) { return a < c; });\n"
                "    [&] { add(3); }();\n"
                "    [](int x) mutable -> int { return x; }(1);\n"
                "    return {1, 2};\n"
                "}\n",
                "RootNode 1:1-8:1\n"
                "  FunctionDeclNode 1:1-8:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 2:1-8:1\n"
                "      DataDeclNode 3:5-3:46\n"
                "        TypeNode 3:5-3:8\n"
                "        IdNode 3:10-3:12 text=\"add\"\n"
                "        ExprNode 3:14-3:46\n"
                "      ExprNode 4:5-4:51\n"
                "      ExprNode 5:5-5:22\n"
                "      ExprNode 6:5-6:46\n"
                "      ExprNode 7:5-7:18\n");
}

TEST(ParserStatementsTest, LambdaInAControlStatementsHead)
{
    EXPECT_TREE("void f() {\n  if (any(b, e, [](int x) { return x > 0; }))\n    g();\n}\n",
                "RootNode 1:1-4:1\n"
                "  FunctionDeclNode 1:1-4:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-4:1\n"
                "      CtrlStmtNode 2:3-3:8\n"
                "        CtrlSubStmtNode 2:3-3:8\n"
                "          CtrlSubStmtHeadNode 2:3-2:45\n"
                "            KeywordNode 2:3-2:4 type=IF_KEY\n"
                "            ExprNode 2:6-2:45\n"
                "          BlockNode 3:5-3:8\n"
                "            ExprNode 3:5-3:8\n");
    // A head that runs into a brace behind a plain name has still run away.
    EXPECT_EQ(TwTest::messagesOf("void f() {\n  if (a { }\n}\n"),
              "2:9 code=12 Expected \")\". Possible unbalanced parentheses.\n");
}

TEST(ParserStatementsTest, IfConstexprBeginsItsConditionWithTheWord)
{
    // The word lies inside the condition's node, so every pass keeps it.
    EXPECT_TREE("void f() {\n  if constexpr (N > 2) { g(); }\n}\n",
                "RootNode 1:1-3:1\n"
                "  FunctionDeclNode 1:1-3:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-3:1\n"
                "      CtrlStmtNode 2:3-2:31\n"
                "        CtrlSubStmtNode 2:3-2:31\n"
                "          CtrlSubStmtHeadNode 2:3-2:22\n"
                "            KeywordNode 2:3-2:4 type=IF_KEY\n"
                "            ExprNode 2:6-2:22\n"
                "          BlockNode 2:24-2:31\n"
                "            ExprNode 2:26-2:29\n");
}

TEST(ParserStatementsTest, MacroBeforeABlockKeepsItsBlock)
{
    // `FOREACH(x, list) {`: the braces behind a call stay a block, with the
    // extensions as without them.
    const std::string text = "void f() {\n  FOREACH(x, list) {\n    g(x);\n  }\n}\n";
    EXPECT_EQ(TwTest::extendedTreeOf(text), TwTest::treeOf(text));
    const std::string withReturn = "void f() {\n  TRY {\n    return 1;\n  }\n}\n";
    EXPECT_EQ(TwTest::extendedTreeOf(withReturn), TwTest::treeOf(withReturn));
}

TEST(ParserStatementsTest, BracedListInARangeForAndAMacroInPlaceOfConstexpr)
{
    EXPECT_TREE("void f() {\n  for (int i : {0, 1}) g(i);\n  if _CONSTEXPR (N > 1) g(0);\n}\n",
                "RootNode 1:1-4:1\n"
                "  FunctionDeclNode 1:1-4:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-4:1\n"
                "      CtrlStmtNode 2:3-2:28\n"
                "        CtrlSubStmtNode 2:3-2:28\n"
                "          CtrlSubStmtHeadNode 2:3-2:22\n"
                "            KeywordNode 2:3-2:5 type=FOR_KEY\n"
                "            ExprNode 2:7-2:22\n"
                "          BlockNode 2:24-2:28\n"
                "            ExprNode 2:24-2:28\n"
                "      CtrlStmtNode 3:3-3:29\n"
                "        CtrlSubStmtNode 3:3-3:29\n"
                "          CtrlSubStmtHeadNode 3:3-3:23\n"
                "            KeywordNode 3:3-3:4 type=IF_KEY\n"
                "            ExprNode 3:6-3:23\n"
                "          BlockNode 3:25-3:29\n"
                "            ExprNode 3:25-3:29\n");
}

// --- Later extensions: braced values in conditions. ---

TEST(ParserStatementsTest, BracedValueInConditionIsNoRunawayHead)
{
    // `T{}` inside a condition, and the body of a requires expression, whose
    // braces may hold semicolons.
    EXPECT_TREE("void f() {\n"
                "  if (n != size_t{}) { g(); }\n"
                "  if constexpr (requires { x.f(); }) { }\n"
                "}\n",
                "RootNode 1:1-4:1\n"
                "  FunctionDeclNode 1:1-4:1\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-4:1\n"
                "      CtrlStmtNode 2:3-2:29\n"
                "        CtrlSubStmtNode 2:3-2:29\n"
                "          CtrlSubStmtHeadNode 2:3-2:20\n"
                "            KeywordNode 2:3-2:4 type=IF_KEY\n"
                "            ExprNode 2:6-2:20\n"
                "          BlockNode 2:22-2:29\n"
                "            ExprNode 2:24-2:27\n"
                "      CtrlStmtNode 3:3-3:40\n"
                "        CtrlSubStmtNode 3:3-3:40\n"
                "          CtrlSubStmtHeadNode 3:3-3:36\n"
                "            KeywordNode 3:3-3:4 type=IF_KEY\n"
                "            ExprNode 3:6-3:36\n"
                "          BlockNode 3:38-3:40\n");
}

TEST(ParserStatementsTest, BracesWithStatementsStillShowARunawayHead)
{
    const std::string messages = TwTest::messagesOf("void f() {\n  if (a { b; }\n}\n");
    EXPECT_NE(messages.find("code=12"), std::string::npos) << messages;
}

} // namespace
