// The parser on classes, enums, namespaces, templates and linkage blocks.
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Cpp_TreeDump.h"
#include "ParserTestSupport.h"
#include "Trn_TokenStream.h"
#include "Varnel_IMemBuf.h"

#include "Cpp_Lexer.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

TEST(ParserClassesTest, DeclspecAndTemplateArgumentsStayInTheNamesAndOneBaseClause)
{
    EXPECT_TREE("class __declspec(dllexport) A : public B<C, D> { int x; };",
                "RootNode 1:1-1:58\n"
                "  ClassDeclNode 1:1-1:58\n"
                "    ClassHeadNode 1:1-1:46\n"
                "      ClassNameNode 1:1-1:29 type=CLASS_KEY text=\"class __declspec ( dllexport ) A\"\n"
                "      BaseClauseListNode 1:33-1:46\n"
                "        BaseClauseNode 1:33-1:46 access=PUBLIC_KEY text=\"B < C , D >\"\n"
                "    ClassBodyNode 1:48-1:57\n"
                "      DataDeclNode 1:50-1:55\n"
                "        TypeNode 1:50-1:52\n"
                "        IdNode 1:54-1:54 text=\"x\"\n");
}

TEST(ParserClassesTest, ForwardDeclaration)
{
    // At file level `class A;` is classified as data at its semicolon...
    EXPECT_TREE("class A;",
                "RootNode 1:1-1:8\n"
                "  DataDeclNode 1:1-1:8\n"
                "    TypeNode 1:1-1:5\n"
                "    IdNode 1:7-1:7 text=\"A\"\n");
    // ...and the class routine gives it a head without a body.
    EXPECT_EQ(Cpp::ParserTestAccess::classDump("class A"), "ClassDeclNode 1:1-1:7\n"
                                                           "  ClassHeadNode 1:1-1:7\n"
                                                           "    ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n");
}

TEST(ParserClassesTest, AccessLabelsWithWordsAndMacroLabels)
{
    EXPECT_TREE("class Q { public slots: void f(); signals: void g(); };",
                "RootNode 1:1-1:55\n"
                "  ClassDeclNode 1:1-1:55\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class Q\"\n"
                "    ClassBodyNode 1:9-1:54\n"
                "      AccessSpecNode 1:11-1:23 kind=1 text=\"public slots\" extended=1\n"
                "      FunctionDeclNode 1:25-1:33\n"
                "        FunctionHeadNode 1:25-1:33\n"
                "          FunctionReturnNode 1:25-1:28\n"
                "          IdNode 1:30-1:30 text=\"f\"\n"
                "          ParameterListNode 1:31-1:32\n"
                "      AccessSpecNode 1:35-1:42 kind=4 text=\"signals\"\n"
                "      FunctionDeclNode 1:44-1:52\n"
                "        FunctionHeadNode 1:44-1:52\n"
                "          FunctionReturnNode 1:44-1:47\n"
                "          IdNode 1:49-1:49 text=\"g\"\n"
                "          ParameterListNode 1:50-1:51\n");
}

TEST(ParserClassesTest, BaseClauses)
{
    EXPECT_TREE("struct S : virtual public B, private C { S() : B(1), C(2, 3) {} };",
                "RootNode 1:1-1:66\n"
                "  ClassDeclNode 1:1-1:66\n"
                "    ClassHeadNode 1:1-1:38\n"
                "      ClassNameNode 1:1-1:8 type=STRUCT_KEY text=\"struct S\"\n"
                "      BaseClauseListNode 1:12-1:38\n"
                "        BaseClauseNode 1:12-1:27 access=PUBLIC_KEY virtual=1 text=\"B\"\n"
                "        BaseClauseNode 1:30-1:38 access=PRIVATE_KEY text=\"C\"\n"
                "    ClassBodyNode 1:40-1:65\n"
                "      CtorDeclNode 1:42-1:63\n"
                "        FunctionHeadNode 1:42-1:44\n"
                "          IdNode 1:42-1:42 text=\"S\"\n"
                "          ParameterListNode 1:43-1:44\n"
                "        InitializerListNode 1:48-1:60\n"
                "          InitializerNode 1:48-1:51\n"
                "            IdNode 1:48-1:48 text=\"B\"\n"
                "            ArgListNode 1:49-1:51\n"
                "              ArgNode 1:50-1:50\n"
                "          InitializerNode 1:54-1:60\n"
                "            IdNode 1:54-1:54 text=\"C\"\n"
                "            ArgListNode 1:55-1:60\n"
                "              ArgNode 1:56-1:56\n"
                "              ArgNode 1:59-1:59\n"
                "        BlockNode 1:62-1:63\n");
    EXPECT_EQ(TwTest::messagesOf("class A : public public B {};"),
              "1:18 code=0 Not expecting to find keyword \"public\"\n1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("class A : B virtual {};"),
              "1:13 code=0 Not expecting to find keyword \"virtual\"\n1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("class A : B % {};"),
              "1:13 code=0 Unexpected Token: \"%\"\n1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("class A : public {};"),
              "1:18 code=0 Unexpected Token: \"{\"\n1:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserClassesTest, HeadWithoutClassKey)
{
    // The core rules refuse a class key inside a macro's parentheses; the
    // extensions read it (ClassKeyInsideAMacroHeadsAClass).
    EXPECT_EQ(TwTest::coreMessagesOf("ALIGNED(struct) S : public B { };"),
              "1:17 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n"
              "1:19 code=0 Expected an identifier for the class name.\n"
              "1:17 code=7 The statement cannot be parsed.\n");
}

TEST(ParserClassesTest, ClassBodyFaults)
{
    EXPECT_EQ(TwTest::messagesOf("class A { namespace x; };"),
              "1:11 code=0 Namespace declaration illegal inside class declaration.\n");
    EXPECT_EQ(TwTest::messagesOf("class A { public int x; };"),
              "1:18 code=0 Expected ':' Found: int\n");
    EXPECT_EQ(TwTest::messagesOf("class A { int f() = 2; };"),
              "1:19 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n"
              "1:19 code=0 Expected '= 0' to indicate a pure virtual function. Got: \n");
}

TEST(ParserClassesTest, NamespaceAliasHasNoNode)
{
    EXPECT_TREE("namespace a = b;\nint x;",
                "RootNode 2:1-2:6\n"
                "  DataDeclNode 2:1-2:6\n"
                "    TypeNode 2:1-2:3\n"
                "    IdNode 2:5-2:5 text=\"x\"\n");
}

TEST(ParserClassesTest, Namespaces)
{
    EXPECT_TREE("namespace { int x; }",
                "RootNode 1:1-1:20\n"
                "  NamespaceDeclNode 1:1-1:20\n"
                "    NamespaceHeadNode 1:1-1:9\n"
                "    NamespaceBodyNode 1:11-1:20\n"
                "      DataDeclNode 1:13-1:18\n"
                "        TypeNode 1:13-1:15\n"
                "        IdNode 1:17-1:17 text=\"x\"\n");
    EXPECT_TREE("namespace n { namespace m { } namespace k = n; }",
                "RootNode 1:1-1:48\n"
                "  NamespaceDeclNode 1:1-1:48\n"
                "    NamespaceHeadNode 1:1-1:11 text=\"n\"\n"
                "    NamespaceBodyNode 1:13-1:48\n"
                "      NamespaceDeclNode 1:15-1:29\n"
                "        NamespaceHeadNode 1:15-1:25 text=\"m\"\n"
                "        NamespaceBodyNode 1:27-1:29\n"
                "      DataDeclNode 1:41-1:46\n"
                "        IdNode 1:41-1:41 text=\"k\"\n"
                "        ExprNode 1:43-1:46\n");
    EXPECT_EQ(TwTest::messagesOf("namespace n int x;"), "1:13 code=0 Expected:: \"{\".\n");
}

TEST(ParserClassesTest, LinkageAndExternDeclarations)
{
    EXPECT_TREE("extern \"C\" int x;",
                "RootNode 1:1-1:17\n"
                "  DataDeclNode 1:1-1:17\n"
                "    TypeNode 1:1-1:14\n"
                "    IdNode 1:16-1:16 text=\"x\"\n");
    EXPECT_TREE("extern \"C\" { int f(); }",
                "RootNode 1:1-1:23\n"
                "  LinkageBlockNode 1:1-1:23\n"
                "    ExprNode 1:1-1:10\n"
                "    LinkageBlockBodyNode 1:12-1:23\n"
                "      FunctionDeclNode 1:14-1:21\n"
                "        FunctionHeadNode 1:14-1:21\n"
                "          FunctionReturnNode 1:14-1:16\n"
                "          IdNode 1:18-1:18 text=\"f\"\n"
                "          ParameterListNode 1:19-1:20\n");
    // Each is reported, stepped over, and the body goes on.
    EXPECT_EQ(TwTest::messagesOf("extern \"C\" { template<class T> void f(); }"),
              "1:14 code=0 templates cannot be declared to have 'C' linkage.\n");
    EXPECT_EQ(TwTest::messagesOf("extern \"C\" { int a; private int b; }"),
              "1:21 code=0 public: protected: private: labels are illegal inside linkage blocks.\n");
    EXPECT_EQ(TwTest::messagesOf("extern \"C\" { default while }"),
              "1:14 code=0 control statements (e.g. if, else, while) are illegal inside linkage blocks.\n"
              "1:22 code=0 control statements (e.g. if, else, while) are illegal inside linkage blocks.\n");
}

TEST(ParserClassesTest, EnumeratorWithACommentBehindIt)
{
    EXPECT_TREE("enum E {\n  A, // first\n  B /* second */\n};",
                "RootNode 1:1-4:2\n"
                "  EnumDeclNode 1:1-4:2\n"
                "    EnumHeadNode 1:1-1:6 text=\"enum E\"\n"
                "    EnumBodyNode 1:8-4:1\n"
                "      ExprNode 2:3-2:3\n"
                "      CommentNode 2:6-3:0 text=\"// first\\n\"\n"
                "      ExprNode 3:3-3:3\n"
                "      CommentNode 3:5-3:16 text=\"/* second */\"\n");
}

TEST(ParserClassesTest, EnumeratorsWithParenthesesAndTypedefEnum)
{
    EXPECT_TREE("enum E { A = (1 << 2), B };",
                "RootNode 1:1-1:27\n"
                "  EnumDeclNode 1:1-1:27\n"
                "    EnumHeadNode 1:1-1:6 text=\"enum E\"\n"
                "    EnumBodyNode 1:8-1:26\n"
                "      ExprNode 1:10-1:21\n"
                "      ExprNode 1:24-1:24\n");
    EXPECT_TREE("typedef enum { X = 1 } T;",
                "RootNode 1:1-1:25\n"
                "  EnumDeclNode 1:1-1:22\n"
                "    EnumHeadNode 1:1-1:12 text=\"typedef enum\"\n"
                "    EnumBodyNode 1:14-1:22\n"
                "      ExprNode 1:16-1:20\n"
                "  DataDeclNode 1:24-1:25\n"
                "    IdNode 1:24-1:24 text=\"T\"\n");
    EXPECT_EQ(TwTest::messagesOf("enum E { A, struct };"),
              "1:13 code=0 Expected \"}\" first to close enum declaration.\n1:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserClassesTest, TemplatesAndExplicitInstantiation)
{
    EXPECT_TREE("template<class T> void f(T);\ntemplate class A<int>;",
                "RootNode 1:1-2:22\n"
                "  TemplateNode 1:1-1:17\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:9-1:17\n"
                "      ParameterNode 1:10-1:16\n"
                "  FunctionDeclNode 1:19-1:28\n"
                "    FunctionHeadNode 1:19-1:28\n"
                "      FunctionReturnNode 1:19-1:22\n"
                "      IdNode 1:24-1:24 text=\"f\"\n"
                "      ParameterListNode 1:25-1:27\n"
                "        ParameterNode 1:26-1:26\n"
                "  ExprNode 2:1-2:22\n");
}


// --- Extensions: namespace heads with macros, attributes and `inline`. ---

TEST(ParserClassesTest, NamespaceHeadWithAMacroAndInlineNamespace)
{
    EXPECT_TREE("namespace std _GLIBCXX_VISIBILITY(default)\n{\ninline namespace __cxx11 {\nint x;\n}\n}\nNS_END",
                "RootNode 1:1-7:6\n"
                "  NamespaceDeclNode 1:1-6:1\n"
                "    NamespaceHeadNode 1:1-1:42 text=\"std _GLIBCXX_VISIBILITY ( default )\"\n"
                "    NamespaceBodyNode 2:1-6:1\n"
                "      NamespaceDeclNode 3:1-5:1\n"
                "        NamespaceHeadNode 3:1-3:24 text=\"__cxx11\"\n"
                "        NamespaceBodyNode 3:26-5:1\n"
                "          DataDeclNode 4:1-4:6\n"
                "            TypeNode 4:1-4:3\n"
                "            IdNode 4:5-4:5 text=\"x\"\n"
                "  DataDeclNode 7:1-7:6\n"
                "    IdNode 7:1-7:6 text=\"NS_END\"\n");
    EXPECT_TREE("inline namespace v1 { }\nnamespace [[deprecated]] old { }\nnamespace a::inline b { }\nnamespace fs = std::filesystem;\nNS_END",
                "RootNode 1:1-5:6\n"
                "  NamespaceDeclNode 1:1-1:23\n"
                "    NamespaceHeadNode 1:1-1:19 text=\"v1\"\n"
                "    NamespaceBodyNode 1:21-1:23\n"
                "  NamespaceDeclNode 2:1-2:32\n"
                "    NamespaceHeadNode 2:1-2:28 text=\"[ [ deprecated ] ] old\"\n"
                "    NamespaceBodyNode 2:30-2:32\n"
                "  NamespaceDeclNode 3:1-3:25\n"
                "    NamespaceHeadNode 3:1-3:21 text=\"a::inline b\"\n"
                "    NamespaceBodyNode 3:23-3:25\n"
                "  DataDeclNode 5:1-5:6\n"
                "    IdNode 5:1-5:6 text=\"NS_END\"\n");
}

TEST(ParserClassesTest, NamespaceHeadNearMisses)
{
    // A plain head keeps its tree; `inline` before anything else is a
    // declaration's; words that no "{" follows are still refused.
    EXPECT_EQ(TwTest::extendedTreeOf("namespace a { }"), TwTest::treeOf("namespace a { }"));
    EXPECT_TREE("inline int f() { return 1; }\nNS_END",
                "RootNode 1:1-2:6\n"
                "  FunctionDeclNode 1:1-1:28\n"
                "    FunctionHeadNode 1:1-1:14\n"
                "      FunctionReturnNode 1:1-1:10\n"
                "      IdNode 1:12-1:12 text=\"f\"\n"
                "      ParameterListNode 1:13-1:14\n"
                "    BlockNode 1:16-1:28\n"
                "      ExprNode 1:18-1:26\n"
                "  DataDeclNode 2:1-2:6\n"
                "    IdNode 2:1-2:6 text=\"NS_END\"\n");
    EXPECT_EQ(TwTest::messagesOf("namespace a b c;\n"), "1:16 code=0 Expected:: \"{\".\n");
    EXPECT_EQ(TwTest::messagesOf("namespace n int x;"), "1:13 code=0 Expected:: \"{\".\n");
}

// --- Extensions: class keys inside macros, base clauses with packs,
// parentheses and comparisons. ---

TEST(ParserClassesTest, ClassKeyInsideAMacroHeadsAClass)
{
    EXPECT_TREE("ALIGNED16(struct)\nA : public B\n{\n  int x;\n};\n",
                "RootNode 1:1-5:2\n"
                "  ClassDeclNode 1:1-5:2\n"
                "    ClassHeadNode 1:1-2:12\n"
                "      ClassNameNode 1:1-2:1 type=STRUCT_KEY text=\"ALIGNED16 ( struct ) A\"\n"
                "      BaseClauseListNode 2:5-2:12\n"
                "        BaseClauseNode 2:5-2:12 access=PUBLIC_KEY text=\"B\"\n"
                "    ClassBodyNode 3:1-5:1\n"
                "      DataDeclNode 4:3-4:8\n"
                "        TypeNode 4:3-4:5\n"
                "        IdNode 4:7-4:7 text=\"x\"\n");
    // Any other word in the parentheses keeps the macro a call.
    EXPECT_EQ(TwTest::extendedTreeOf("ALIGNED(16) int x;"), TwTest::treeOf("ALIGNED(16) int x;"));
}

TEST(ParserClassesTest, BaseClausesWithPacksParenthesesAndComparisons)
{
    EXPECT_TREE("template <class... Ts> struct B : Base<Ts>..., decltype(f(1)), C<(N > 0)> { };",
                "RootNode 1:1-1:78\n"
                "  TemplateNode 1:1-1:22\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:10-1:22\n"
                "      ParameterNode 1:11-1:21\n"
                "  ClassDeclNode 1:24-1:78\n"
                "    ClassHeadNode 1:24-1:73\n"
                "      ClassNameNode 1:24-1:31 type=STRUCT_KEY text=\"struct B\"\n"
                "      BaseClauseListNode 1:35-1:73\n"
                "        BaseClauseNode 1:35-1:45 text=\"Base < Ts > . . .\"\n"
                "        BaseClauseNode 1:48-1:61 text=\"decltype ( f ( 1 ) )\"\n"
                "        BaseClauseNode 1:64-1:73 text=\"C < ( N > 0 ) >\"\n"
                "    ClassBodyNode 1:75-1:77\n");
    EXPECT_TREE("struct A : T... { };",
                "RootNode 1:1-1:20\n"
                "  ClassDeclNode 1:1-1:20\n"
                "    ClassHeadNode 1:1-1:15\n"
                "      ClassNameNode 1:1-1:8 type=STRUCT_KEY text=\"struct A\"\n"
                "      BaseClauseListNode 1:12-1:15\n"
                "        BaseClauseNode 1:12-1:15 text=\"T . . .\"\n"
                "    ClassBodyNode 1:17-1:19\n");
}

TEST(ParserClassesTest, ComparisonOrOperatorInADeclarationLevelMacroCall)
{
    // An angle bracket left open at the end of the parentheses was no
    // template argument list.
    EXPECT_EQ(TwTest::messagesOf("struct A {\n  static_assert(N < 200, \"too big\");\n};\nDEFINE_OP(Lt, <);\n"), "");
    EXPECT_EQ(TwTest::coreMessagesOf("DEFINE_OP(Lt, <);"), "1:16 code=0 Expected '>'. Got: )\n");
}

// --- Later extensions: requires clauses, comparisons in a template's list. ---

TEST(ParserClassesTest, RequiresClauseBelongsToTheTemplateHead)
{
    // The template node reaches the end of the clause, which the passes copy
    // as it stands; `(N < 2)` in a template's list is a comparison.
    EXPECT_TREE("template <class T>\n"
                "  requires C<T> && (sizeof(T) > 2)\n"
                "void f(T x);\n"
                "template <bool B = (N < 2)>\n"
                "struct S { };\n"
                "void g() { if (n != int{}) { } }\n",
                "RootNode 1:1-6:32\n"
                "  TemplateNode 1:1-2:34\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:10-1:18\n"
                "      ParameterNode 1:11-1:17\n"
                "  FunctionDeclNode 3:1-3:12\n"
                "    FunctionHeadNode 3:1-3:12\n"
                "      FunctionReturnNode 3:1-3:4\n"
                "      IdNode 3:6-3:6 text=\"f\"\n"
                "      ParameterListNode 3:7-3:11\n"
                "        ParameterNode 3:8-3:10\n"
                "  TemplateNode 4:1-4:27\n"
                "    KeywordNode 4:1-4:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 4:10-4:27\n"
                "      ParameterNode 4:11-4:26\n"
                "  ClassDeclNode 5:1-5:13\n"
                "    ClassHeadNode 5:1-5:8\n"
                "      ClassNameNode 5:1-5:8 type=STRUCT_KEY text=\"struct S\"\n"
                "    ClassBodyNode 5:10-5:12\n"
                "  FunctionDeclNode 6:1-6:32\n"
                "    FunctionHeadNode 6:1-6:8\n"
                "      FunctionReturnNode 6:1-6:4\n"
                "      IdNode 6:6-6:6 text=\"g\"\n"
                "      ParameterListNode 6:7-6:8\n"
                "    BlockNode 6:10-6:32\n"
                "      CtrlStmtNode 6:12-6:30\n"
                "        CtrlSubStmtNode 6:12-6:30\n"
                "          CtrlSubStmtHeadNode 6:12-6:26\n"
                "            KeywordNode 6:12-6:13 type=IF_KEY\n"
                "            ExprNode 6:15-6:26\n"
                "          BlockNode 6:28-6:30\n");
}

TEST(ParserClassesTest, RequiresClauseEndsAtItsLastTerm)
{
    // `!`, `true`, qualified names behind template arguments; the declaration
    // after the clause is read as usual.
    const std::string tree
        = TwTest::laterTreeOf("template <class T> requires !C<T>::value || true\nstruct A { };\n");
    EXPECT_NE(tree.find("TemplateNode 1:1-1:48"), std::string::npos) << tree;
    EXPECT_NE(tree.find("ClassNameNode 2:1-2:8 type=STRUCT_KEY text=\"struct A\""), std::string::npos) << tree;
}

TEST(ParserClassesTest, BracesInTemplateArgumentsOfAClassHeadAreAValue)
{
    const std::string tree = TwTest::laterTreeOf(
        "template <class V, class T>\n"
        "struct Impl<V, T, void_t<decltype(F<V>::Run(std::declval<T>(), {}))>>\n"
        "    : std::true_type {};\n");
    EXPECT_NE(tree.find("ClassNameNode 2:1-2:69 type=STRUCT_KEY"), std::string::npos) << tree;
    EXPECT_NE(tree.find("BaseClauseNode 3:7-3:20 text=\"std::true_type\""), std::string::npos) << tree;
    EXPECT_NE(tree.find("ClassBodyNode 3:22-3:23"), std::string::npos) << tree;
}

TEST(ParserClassesTest, RequiresExpressionInAClause)
{
    const std::string tree
        = TwTest::laterTreeOf("template <class T> requires requires (T& t) { t.f(); }\nvoid f(T x);\n");
    EXPECT_NE(tree.find("TemplateNode 1:1-1:54"), std::string::npos) << tree;
    EXPECT_NE(tree.find("IdNode 2:6-2:6 text=\"f\""), std::string::npos) << tree;
}

} // namespace
