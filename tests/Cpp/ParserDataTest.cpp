// The parser on data declarations: the split into type, name and the rest,
// and function pointer declarators.
#include "ParserTestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(ParserDataTest, TypeNameAndTheRestToTheSemicolon)
{
    EXPECT_TREE("int a = 1, b = 2;",
                "RootNode 1:1-1:17\n"
                "  DataDeclNode 1:1-1:17\n"
                "    TypeNode 1:1-1:3\n"
                "    IdNode 1:5-1:5 text=\"a\"\n"
                "    ExprNode 1:7-1:17\n");
    EXPECT_TREE("void f() { int a = 1, b = 2; }",
                "RootNode 1:1-1:30\n"
                "  FunctionDeclNode 1:1-1:30\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:30\n"
                "      DataDeclNode 1:12-1:28\n"
                "        TypeNode 1:12-1:14\n"
                "        IdNode 1:16-1:16 text=\"a\"\n"
                "        ExprNode 1:18-1:28\n");
}

TEST(ParserDataTest, ArrayBracketsStayWithTheName)
{
    EXPECT_TREE("int a[10], *b;",
                "RootNode 1:1-1:14\n"
                "  DataDeclNode 1:1-1:14\n"
                "    TypeNode 1:1-1:3\n"
                "    IdNode 1:5-1:9 text=\"a [ 10 ]\"\n"
                "    ExprNode 1:10-1:14\n");
}

TEST(ParserDataTest, CommaInsideAngleBrackets)
{
    EXPECT_TREE("std::map<int, int> m;",
                "RootNode 1:1-1:21\n"
                "  DataDeclNode 1:1-1:21\n"
                "    TypeNode 1:1-1:18\n"
                "    IdNode 1:20-1:20 text=\"m\"\n");
}

TEST(ParserDataTest, ConstructorStyleInitialiser)
{
    // In a block, where the statement is tried as a declaration.
    EXPECT_TREE("void f() { A a(1); }",
                "RootNode 1:1-1:20\n"
                "  FunctionDeclNode 1:1-1:20\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:20\n"
                "      DataDeclNode 1:12-1:18\n"
                "        TypeNode 1:12-1:12\n"
                "        IdNode 1:14-1:14 text=\"a\"\n"
                "        ExprNode 1:15-1:18\n");
}

TEST(ParserDataTest, BitFieldInAClass)
{
    EXPECT_TREE("class C { unsigned x : 3; };",
                "RootNode 1:1-1:28\n"
                "  ClassDeclNode 1:1-1:28\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class C\"\n"
                "    ClassBodyNode 1:9-1:27\n"
                "      DataDeclNode 1:11-1:25\n"
                "        TypeNode 1:11-1:18\n"
                "        IdNode 1:20-1:20 text=\"x\"\n"
                "        ExprNode 1:22-1:25\n");
}

TEST(ParserDataTest, SoleNameInAClassHasNoType)
{
    EXPECT_TREE("class C { x; };",
                "RootNode 1:1-1:15\n"
                "  ClassDeclNode 1:1-1:15\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class C\"\n"
                "    ClassBodyNode 1:9-1:14\n"
                "      DataDeclNode 1:11-1:12\n"
                "        IdNode 1:11-1:11 text=\"x\"\n");
}

TEST(ParserDataTest, CallInAFunctionIsAnExpression)
{
    EXPECT_TREE("void f() { foo(x); }",
                "RootNode 1:1-1:20\n"
                "  FunctionDeclNode 1:1-1:20\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:20\n"
                "      ExprNode 1:12-1:18\n");
}

TEST(ParserDataTest, ProductStatementIsADeclarationForWantOfATypeTable)
{
    EXPECT_TREE("void f() { a * b; }",
                "RootNode 1:1-1:19\n"
                "  FunctionDeclNode 1:1-1:19\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:19\n"
                "      DataDeclNode 1:12-1:17\n"
                "        TypeNode 1:12-1:14\n"
                "        IdNode 1:16-1:16 text=\"b\"\n");
}

TEST(ParserDataTest, FunctionPointer)
{
    EXPECT_TREE("int (*f)(int);",
                "RootNode 1:1-1:14\n"
                "  FunctionPtrDeclNode 1:1-1:14\n"
                "    TypeNode 1:1-1:3\n"
                "    IdNode 1:5-1:8 text=\"( * f )\"\n"
                "    ParameterListNode 1:9-1:13\n"
                "      ParameterNode 1:10-1:12\n");
    EXPECT_TREE("char *(*g)(int) const;",
                "RootNode 1:1-1:22\n"
                "  FunctionPtrDeclNode 1:1-1:22\n"
                "    TypeNode 1:1-1:6\n"
                "    IdNode 1:7-1:10 text=\"( * g )\"\n"
                "    ParameterListNode 1:11-1:15\n"
                "      ParameterNode 1:12-1:14\n"
                "    TextNode 1:17-1:21\n");
    EXPECT_TREE("void (f)(int);",
                "RootNode 1:1-1:14\n"
                "  FunctionPtrDeclNode 1:1-1:14\n"
                "    TypeNode 1:1-1:4\n"
                "    IdNode 1:6-1:8 text=\"( f )\"\n"
                "    ParameterListNode 1:9-1:13\n"
                "      ParameterNode 1:10-1:12\n");
    EXPECT_TREE("int (*h) PROTO((int));",
                "RootNode 1:1-1:22\n"
                "  FunctionPtrDeclNode 1:1-1:22\n"
                "    TypeNode 1:1-1:3\n"
                "    IdNode 1:5-1:14 text=\"( * h ) PROTO\"\n"
                "    ParameterListNode 1:15-1:21\n"
                "      ParameterNode 1:16-1:20\n");
    EXPECT_EQ(TwTest::messagesOf("int (*f) x y;"),
              "1:12 code=0 Expected \"(\" as part of pointer-to-function declaration. Got: y\n"
              "1:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserDataTest, NameOfTheFirstDeclaratorComesBeforeItsSplit)
{
    EXPECT_TREE("int a = b, c;",
                "RootNode 1:1-1:13\n"
                "  DataDeclNode 1:1-1:13\n"
                "    TypeNode 1:1-1:3\n"
                "    IdNode 1:5-1:5 text=\"a\"\n"
                "    ExprNode 1:7-1:13\n");
}

TEST(ParserDataTest, NamesAreNormalised)
{
    EXPECT_TREE("void f() { long x /* c */ [ 4 ]; }",
                "RootNode 1:1-1:34\n"
                "  FunctionDeclNode 1:1-1:34\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 1:10-1:34\n"
                "      DataDeclNode 1:12-1:32\n"
                "        TypeNode 1:12-1:15\n"
                "        IdNode 1:17-1:31 text=\"x [ 4 ]\"\n");
}

TEST(ParserDataTest, DeclarationWithoutANameIsItsType)
{
    EXPECT_TREE("int;",
                "RootNode 1:1-1:4\n"
                "  DataDeclNode 1:1-1:4\n"
                "    TypeNode 1:1-1:3\n");
}

TEST(ParserDataTest, MissingSemicolonAtTheEndOfTheFile)
{
    EXPECT_EQ(TwTest::messagesOf("int a = 1"), "1:1 code=7 The statement cannot be parsed.\n");
}


// --- Extensions: ">>" closes two template argument lists when two are open. ---

TEST(ParserDataTest, DoubleAngleInTheTypeOfSeveralDeclarators)
{
    // The first declarator ends at the comma behind the type's ">>".
    EXPECT_TREE("std::map<int, std::vector<int>> a, b;\nNS_END",
                "RootNode 1:1-2:6\n"
                "  DataDeclNode 1:1-1:37\n"
                "    TypeNode 1:1-1:31\n"
                "    IdNode 1:33-1:33 text=\"a\"\n"
                "    ExprNode 1:34-1:37\n"
                "  DataDeclNode 2:1-2:6\n"
                "    IdNode 2:1-2:6 text=\"NS_END\"\n");
    // A text the core rules accept keeps its tree; a shift stays a shift.
    EXPECT_EQ(TwTest::extendedTreeOf("std::vector<std::vector<int>> v;"),
              TwTest::treeOf("std::vector<std::vector<int>> v;"));
    EXPECT_EQ(TwTest::extendedTreeOf("int x = a >> 2, y;"), TwTest::treeOf("int x = a >> 2, y;"));
}

} // namespace
