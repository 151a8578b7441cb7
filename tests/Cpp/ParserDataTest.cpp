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


// --- Extensions: brace initialisers. ---

TEST(ParserDataTest, BraceInitialisersSplitLikeEquals)
{
    EXPECT_TREE("int x{0};\nstd::vector<int> v{1, 2}, w{};\nint a[]{1, 2};\nauto f = [](int x) { return x; };\nNS_END",
                "RootNode 1:1-5:6\n"
                "  DataDeclNode 1:1-1:9\n"
                "    TypeNode 1:1-1:3\n"
                "    IdNode 1:5-1:5 text=\"x\"\n"
                "    ExprNode 1:6-1:9\n"
                "  DataDeclNode 2:1-2:30\n"
                "    TypeNode 2:1-2:16\n"
                "    IdNode 2:18-2:18 text=\"v\"\n"
                "    ExprNode 2:19-2:30\n"
                "  DataDeclNode 3:1-3:14\n"
                "    TypeNode 3:1-3:3\n"
                "    IdNode 3:5-3:7 text=\"a [ ]\"\n"
                "    ExprNode 3:8-3:14\n"
                "  DataDeclNode 4:1-4:33\n"
                "    TypeNode 4:1-4:4\n"
                "    IdNode 4:6-4:6 text=\"f\"\n"
                "    ExprNode 4:8-4:33\n"
                "  DataDeclNode 5:1-5:6\n"
                "    IdNode 5:1-5:6 text=\"NS_END\"\n");
    EXPECT_TREE("class C {\n  Type type_{month_day};\n  int n[2]{1, 2};\n};\nNS_END",
                "RootNode 1:1-5:6\n"
                "  ClassDeclNode 1:1-4:2\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class C\"\n"
                "    ClassBodyNode 1:9-4:1\n"
                "      DataDeclNode 2:3-2:24\n"
                "        TypeNode 2:3-2:6\n"
                "        IdNode 2:8-2:12 text=\"type_\"\n"
                "        ExprNode 2:13-2:24\n"
                "      DataDeclNode 3:3-3:17\n"
                "        TypeNode 3:3-3:5\n"
                "        IdNode 3:7-3:10 text=\"n [ 2 ]\"\n"
                "        ExprNode 3:11-3:17\n"
                "  DataDeclNode 5:1-5:6\n"
                "    IdNode 5:1-5:6 text=\"NS_END\"\n");
}

TEST(ParserDataTest, BracesBehindAClassKeyAnEnumOrABaseClauseStayABody)
{
    EXPECT_TREE("typedef struct { int a; } T;\nstruct S : B { };\nenum class E : int { A };\nNS_END",
                "RootNode 1:1-4:6\n"
                "  ClassDeclNode 1:1-1:25\n"
                "    ClassHeadNode 1:1-1:14\n"
                "      ClassNameNode 1:1-1:14 type=STRUCT_KEY text=\"typedef struct\"\n"
                "    ClassBodyNode 1:16-1:25\n"
                "      DataDeclNode 1:18-1:23\n"
                "        TypeNode 1:18-1:20\n"
                "        IdNode 1:22-1:22 text=\"a\"\n"
                "  DataDeclNode 1:27-1:28\n"
                "    IdNode 1:27-1:27 text=\"T\"\n"
                "  ClassDeclNode 2:1-2:17\n"
                "    ClassHeadNode 2:1-2:12\n"
                "      ClassNameNode 2:1-2:8 type=STRUCT_KEY text=\"struct S\"\n"
                "      BaseClauseListNode 2:12-2:12\n"
                "        BaseClauseNode 2:12-2:12 text=\"B\"\n"
                "    ClassBodyNode 2:14-2:16\n"
                "  EnumDeclNode 3:1-3:25\n"
                "    EnumHeadNode 3:1-3:18 text=\"enum class E : int\"\n"
                "    EnumBodyNode 3:20-3:24\n"
                "      ExprNode 3:22-3:22\n"
                "  DataDeclNode 4:1-4:6\n"
                "    IdNode 4:1-4:6 text=\"NS_END\"\n");
}

TEST(ParserDataTest, BraceInitialiserInAFunctionOfATextTheCoreRulesAccept)
{
    // The core rules take the braces into the name; that text keeps it. Read
    // with the extensions, the braces are the initialiser.
    EXPECT_TREE("void f() { Foo x{1}; }", "RootNode 1:1-1:22\n"
                                          "  FunctionDeclNode 1:1-1:22\n"
                                          "    FunctionHeadNode 1:1-1:8\n"
                                          "      FunctionReturnNode 1:1-1:4\n"
                                          "      IdNode 1:6-1:6 text=\"f\"\n"
                                          "      ParameterListNode 1:7-1:8\n"
                                          "    BlockNode 1:10-1:22\n"
                                          "      DataDeclNode 1:12-1:20\n"
                                          "        TypeNode 1:12-1:14\n"
                                          "        IdNode 1:16-1:19 text=\"x { 1 }\"\n");
    EXPECT_EQ(TwTest::extendedTreeOf("void f() { Foo x{1}; }"), "RootNode 1:1-1:22\n"
                                                                "  FunctionDeclNode 1:1-1:22\n"
                                                                "    FunctionHeadNode 1:1-1:8\n"
                                                                "      FunctionReturnNode 1:1-1:4\n"
                                                                "      IdNode 1:6-1:6 text=\"f\"\n"
                                                                "      ParameterListNode 1:7-1:8\n"
                                                                "    BlockNode 1:10-1:22\n"
                                                                "      DataDeclNode 1:12-1:20\n"
                                                                "        TypeNode 1:12-1:14\n"
                                                                "        IdNode 1:16-1:16 text=\"x\"\n"
                                                                "        ExprNode 1:17-1:20\n");
}

} // namespace
