// The parser on functions: heads found by looking back from the parameter
// list, parameter lists, member initialisers and qualifiers.
#include "ParserTestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(ParserFunctionsTest, QualifiersExceptionSpecificationAndPureSpecifier)
{
    EXPECT_TREE("void A::f() const throw() = 0;",
                "RootNode 1:1-1:30\n"
                "  FunctionDeclNode 1:1-1:30\n"
                "    FunctionHeadNode 1:1-1:30\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:9 text=\"A::f\"\n"
                "      ParameterListNode 1:10-1:11\n"
                "      TextNode 1:13-1:17\n"
                "      ExprNode 1:19-1:25\n"
                "      ExprNode 1:27-1:29\n");
}

TEST(ParserFunctionsTest, ConversionOperatorHasNoReturnType)
{
    EXPECT_TREE("operator int() const;",
                "RootNode 1:1-1:21\n"
                "  FunctionDeclNode 1:1-1:21\n"
                "    FunctionHeadNode 1:1-1:21\n"
                "      IdNode 1:1-1:12 text=\"operator int\"\n"
                "      ParameterListNode 1:13-1:14\n"
                "      TextNode 1:16-1:20\n");
}

TEST(ParserFunctionsTest, QualifiedOperatorIsJoinedFromThreeTokens)
{
    EXPECT_TREE("T A::operator+(const T&) const;",
                "RootNode 1:1-1:31\n"
                "  FunctionDeclNode 1:1-1:31\n"
                "    FunctionHeadNode 1:1-1:31\n"
                "      FunctionReturnNode 1:1-1:1\n"
                "      IdNode 1:3-1:14 text=\"A::operator +\"\n"
                "      ParameterListNode 1:15-1:24\n"
                "        ParameterNode 1:16-1:23\n"
                "      TextNode 1:26-1:30\n");
}

TEST(ParserFunctionsTest, ArrayNewOperator)
{
    EXPECT_TREE("void* operator new[](size_t);",
                "RootNode 1:1-1:29\n"
                "  FunctionDeclNode 1:1-1:29\n"
                "    FunctionHeadNode 1:1-1:29\n"
                "      FunctionReturnNode 1:1-1:5\n"
                "      IdNode 1:7-1:20 text=\"operator new [ ]\"\n"
                "      ParameterListNode 1:21-1:28\n"
                "        ParameterNode 1:22-1:27\n");
}

TEST(ParserFunctionsTest, LessThanOperatorAndTemplateCall)
{
    EXPECT_TREE("bool operator<(const X&);",
                "RootNode 1:1-1:25\n"
                "  FunctionDeclNode 1:1-1:25\n"
                "    FunctionHeadNode 1:1-1:25\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:14 text=\"operator <\"\n"
                "      ParameterListNode 1:15-1:24\n"
                "        ParameterNode 1:16-1:23\n");
    EXPECT_TREE("foo<int>(x);",
                "RootNode 1:1-1:12\n"
                "  FunctionDeclNode 1:1-1:12\n"
                "    FunctionHeadNode 1:1-1:12\n"
                "      IdNode 1:1-1:8 text=\"foo < int >\"\n"
                "      ParameterListNode 1:9-1:11\n"
                "        ParameterNode 1:10-1:10\n");
    EXPECT_TREE("A<B>::~A() {}",
                "RootNode 1:1-1:13\n"
                "  FunctionDeclNode 1:1-1:13\n"
                "    FunctionHeadNode 1:1-1:10\n"
                "      IdNode 1:1-1:8 text=\"A < B >::~A\"\n"
                "      ParameterListNode 1:9-1:10\n"
                "    BlockNode 1:12-1:13\n");
}

TEST(ParserFunctionsTest, ConstructorWithTwoInitialisers)
{
    EXPECT_TREE("A::A() : b(1), c(2, 3) { }",
                "RootNode 1:1-1:26\n"
                "  CtorDeclNode 1:1-1:26\n"
                "    FunctionHeadNode 1:1-1:6\n"
                "      IdNode 1:1-1:4 text=\"A::A\"\n"
                "      ParameterListNode 1:5-1:6\n"
                "    InitializerListNode 1:10-1:22\n"
                "      InitializerNode 1:10-1:13\n"
                "        IdNode 1:10-1:10 text=\"b\"\n"
                "        ArgListNode 1:11-1:13\n"
                "          ArgNode 1:12-1:12\n"
                "      InitializerNode 1:16-1:22\n"
                "        IdNode 1:16-1:16 text=\"c\"\n"
                "        ArgListNode 1:17-1:22\n"
                "          ArgNode 1:18-1:18\n"
                "          ArgNode 1:21-1:21\n"
                "    BlockNode 1:24-1:26\n");
    EXPECT_TREE("A::A() : Base<T>(x), m(f(1, 2)) {}",
                "RootNode 1:1-1:34\n"
                "  CtorDeclNode 1:1-1:34\n"
                "    FunctionHeadNode 1:1-1:6\n"
                "      IdNode 1:1-1:4 text=\"A::A\"\n"
                "      ParameterListNode 1:5-1:6\n"
                "    InitializerListNode 1:10-1:31\n"
                "      InitializerNode 1:10-1:19\n"
                "        IdNode 1:10-1:16 text=\"Base < T >\"\n"
                "        ArgListNode 1:17-1:19\n"
                "          ArgNode 1:18-1:18\n"
                "      InitializerNode 1:22-1:31\n"
                "        IdNode 1:22-1:22 text=\"m\"\n"
                "        ArgListNode 1:23-1:31\n"
                "          ArgNode 1:24-1:26\n"
                "          ArgNode 1:29-1:30\n"
                "    BlockNode 1:33-1:34\n");
}

TEST(ParserFunctionsTest, CommaInParenthesesIsNotAtDepthOne)
{
    EXPECT_TREE("void f(int a = (1, 2), int b);",
                "RootNode 1:1-1:30\n"
                "  FunctionDeclNode 1:1-1:30\n"
                "    FunctionHeadNode 1:1-1:30\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:29\n"
                "        ParameterNode 1:8-1:21\n"
                "        ParameterNode 1:24-1:28\n");
}

TEST(ParserFunctionsTest, TemplateParameterWithNestedTemplateArguments)
{
    EXPECT_TREE("template<class T, class U = X<T, 2> > class Y;",
                "RootNode 1:1-1:46\n"
                "  TemplateNode 1:1-1:37\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:9-1:37\n"
                "      ParameterNode 1:10-1:16\n"
                "      ParameterNode 1:19-1:35 endsInAngle=1\n"
                "  DataDeclNode 1:39-1:46\n"
                "    TypeNode 1:39-1:43\n"
                "    IdNode 1:45-1:45 text=\"Y\"\n");
}

TEST(ParserFunctionsTest, InterruptTailIsOneQualifierSpan)
{
    EXPECT_TREE("void f(void) interrupt 3 using 2 { }",
                "RootNode 1:1-1:36\n"
                "  FunctionDeclNode 1:1-1:36\n"
                "    FunctionHeadNode 1:1-1:32\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:12\n"
                "        ParameterNode 1:8-1:11\n"
                "      TextNode 1:14-1:32\n"
                "    BlockNode 1:34-1:36\n");
    EXPECT_EQ(TwTest::messagesOf("void f(void) interrupt 3 + { }"),
              "1:26 code=15 Expected an identifier, an integer literal or the \"using\" keyword as part of the "
              "embedded compiler extension syntax \"interrupt n using n\"\n");
}

TEST(ParserFunctionsTest, PureSpecifierOtherThanZeroIsComposedMessage)
{
    EXPECT_EQ(TwTest::messagesOf("int f() = 1;"),
              "1:9 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n"
              "1:9 code=0 Expected '= 0' to indicate a pure virtual function. Got: \n");
}

TEST(ParserFunctionsTest, ExceptionSpecifications)
{
    EXPECT_TREE("void f() throw(int, char) {}",
                "RootNode 1:1-1:28\n"
                "  FunctionDeclNode 1:1-1:28\n"
                "    FunctionHeadNode 1:1-1:25\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "      ExprNode 1:10-1:25\n"
                "    BlockNode 1:27-1:28\n");
    EXPECT_EQ(TwTest::messagesOf("void f() throw int;"),
              "1:16 code=0 Expected '(' as part of exception specification clause 'throw()'. Got: int\n"
              "1:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserFunctionsTest, CommentsAndDirectivesBetweenParameters)
{
    EXPECT_TREE("void f(int, /* c */ int) ;",
                "RootNode 1:1-1:26\n"
                "  FunctionDeclNode 1:1-1:26\n"
                "    FunctionHeadNode 1:1-1:26\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:24\n"
                "        ParameterNode 1:8-1:10\n"
                "        CommentNode 1:13-1:19 text=\"/* c */\"\n"
                "        ParameterNode 1:21-1:23\n");
    EXPECT_TREE("void f(\n#ifdef X\n int a,\n#endif\n int b);",
                "RootNode 1:1-5:8\n"
                "  FunctionDeclNode 1:1-5:8\n"
                "    FunctionHeadNode 1:1-5:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-5:7\n"
                "        PreprocDirectiveNode 2:1-3:0\n"
                "        ParameterNode 3:2-3:6\n"
                "        PreprocDirectiveNode 4:1-5:0\n"
                "        ParameterNode 5:2-5:6\n");
}

TEST(ParserFunctionsTest, CommentBeforeTheBody)
{
    EXPECT_TREE("void f() // c\n{ }",
                "RootNode 1:1-2:3\n"
                "  FunctionDeclNode 1:1-2:3\n"
                "    FunctionHeadNode 1:1-1:8\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "    BlockNode 2:1-2:3\n");
}

TEST(ParserFunctionsTest, HeadsWithoutAName)
{
    EXPECT_EQ(TwTest::messagesOf("a * (b);"), "1:3 code=0 Expected \"operator\". Got: *\n"
                                              "1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("* (b);"), "1:1 code=0 Could not recognize overloaded operator.\n"
                                            "1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("(b);"), "1:1 code=0 Expected function name. Got: (\n"
                                          "1:1 code=7 The statement cannot be parsed.\n");
    EXPECT_EQ(TwTest::messagesOf("1 (b);"), "1:1 code=0 Expected function name. Got: 1\n"
                                            "1:1 code=7 The statement cannot be parsed.\n");
}

TEST(ParserFunctionsTest, InitializerFaults)
{
    EXPECT_EQ(TwTest::messagesOf("A::A() : 1(2) {}"),
              "1:10 code=0 Expected a variable name for an initializer. Got: \"1\n");
    EXPECT_EQ(TwTest::messagesOf("A::A() : b {}"), "1:12 code=1 Unexpected EOF found.\n");
}

// --- Extensions: the words between a parameter list and a body, in a text
// the core rules refuse. They join the qualifiers' span. ---

TEST(ParserFunctionsTest, WordsBetweenParametersAndBodyJoinTheQualifiers)
{
    EXPECT_TREE("class A {\n  void f() const override { }\n};",
                "RootNode 1:1-3:2\n"
                "  ClassDeclNode 1:1-3:2\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
                "    ClassBodyNode 1:9-3:1\n"
                "      FunctionDeclNode 2:3-2:29\n"
                "        FunctionHeadNode 2:3-2:25\n"
                "          FunctionReturnNode 2:3-2:6\n"
                "          IdNode 2:8-2:8 text=\"f\"\n"
                "          ParameterListNode 2:9-2:10\n"
                "          TextNode 2:12-2:25\n"
                "        BlockNode 2:27-2:29\n");
    // A macro's parentheses and those of `noexcept(...)` are not the
    // parameter list; "->" takes its type along.
    EXPECT_TREE("void g() noexcept(noexcept(x)) -> int { return 1; }",
                "RootNode 1:1-1:51\n"
                "  FunctionDeclNode 1:1-1:51\n"
                "    FunctionHeadNode 1:1-1:37\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"g\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "      TextNode 1:10-1:37\n"
                "    BlockNode 1:39-1:51\n"
                "      ExprNode 1:41-1:49\n");
    EXPECT_TREE("auto k() const& -> std::vector<int> { }",
                "RootNode 1:1-1:39\n"
                "  FunctionDeclNode 1:1-1:39\n"
                "    FunctionHeadNode 1:1-1:35\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"k\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "      TextNode 1:10-1:35\n"
                "    BlockNode 1:37-1:39\n");
}

TEST(ParserFunctionsTest, RequiresClauseBeforeTheBody)
{
    EXPECT_TREE("template <class T> void r(T) requires C<T> && (sizeof(T) > 4) { }",
                "RootNode 1:1-1:65\n"
                "  TemplateNode 1:1-1:18\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:10-1:18\n"
                "      ParameterNode 1:11-1:17\n"
                "  FunctionDeclNode 1:20-1:65\n"
                "    FunctionHeadNode 1:20-1:61\n"
                "      FunctionReturnNode 1:20-1:23\n"
                "      IdNode 1:25-1:25 text=\"r\"\n"
                "      ParameterListNode 1:26-1:28\n"
                "        ParameterNode 1:27-1:27\n"
                "      TextNode 1:30-1:61\n"
                "    BlockNode 1:63-1:65\n");
}

TEST(ParserFunctionsTest, WordsBeforeMemberInitialisersOrAPureSpecifier)
{
    EXPECT_TREE("A::A() noexcept : x(1) { }",
                "RootNode 1:1-1:26\n"
                "  CtorDeclNode 1:1-1:26\n"
                "    FunctionHeadNode 1:1-1:15\n"
                "      IdNode 1:1-1:4 text=\"A::A\"\n"
                "      ParameterListNode 1:5-1:6\n"
                "      TextNode 1:8-1:15\n"
                "    InitializerListNode 1:19-1:22\n"
                "      InitializerNode 1:19-1:22\n"
                "        IdNode 1:19-1:19 text=\"x\"\n"
                "        ArgListNode 1:20-1:22\n"
                "          ArgNode 1:21-1:21\n"
                "    BlockNode 1:24-1:26\n");
    // Ending in `;`, the words stay what the core rules make of them: a
    // declaration of their own (`j`).
    EXPECT_TREE("class A {\n  virtual void h() const OVERRIDE = 0;\n  void i() && { }\n  void j() const; \n};",
                "RootNode 1:1-5:2\n"
                "  ClassDeclNode 1:1-5:2\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
                "    ClassBodyNode 1:9-5:1\n"
                "      FunctionDeclNode 2:3-2:38\n"
                "        FunctionHeadNode 2:3-2:38\n"
                "          FunctionReturnNode 2:3-2:14\n"
                "          IdNode 2:16-2:16 text=\"h\"\n"
                "          ParameterListNode 2:17-2:18\n"
                "          TextNode 2:20-2:33\n"
                "          ExprNode 2:35-2:37\n"
                "      FunctionDeclNode 3:3-3:17\n"
                "        FunctionHeadNode 3:3-3:13\n"
                "          FunctionReturnNode 3:3-3:6\n"
                "          IdNode 3:8-3:8 text=\"i\"\n"
                "          ParameterListNode 3:9-3:10\n"
                "          TextNode 3:12-3:13\n"
                "        BlockNode 3:15-3:17\n"
                "      FunctionDeclNode 4:3-4:17\n"
                "        FunctionHeadNode 4:3-4:17\n"
                "          FunctionReturnNode 4:3-4:6\n"
                "          IdNode 4:8-4:8 text=\"j\"\n"
                "          ParameterListNode 4:9-4:10\n"
                "          TextNode 4:12-4:16\n");
    EXPECT_EQ(TwTest::extendedTreeOf("class A { void f() const override; };"),
              "RootNode 1:1-1:37\n"
              "  ClassDeclNode 1:1-1:37\n"
              "    ClassHeadNode 1:1-1:7\n"
              "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
              "    ClassBodyNode 1:9-1:36\n"
              "      FunctionDeclNode 1:11-1:24\n"
              "        FunctionHeadNode 1:11-1:24\n"
              "          FunctionReturnNode 1:11-1:14\n"
              "          IdNode 1:16-1:16 text=\"f\"\n"
              "          ParameterListNode 1:17-1:18\n"
              "          TextNode 1:20-1:24\n"
              "      DataDeclNode 1:26-1:34\n"
              "        IdNode 1:26-1:33 text=\"override\"\n"
              "! 1:26 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n");
}

TEST(ParserFunctionsTest, WordsBehindAParameterListKeepTheirOtherMeanings)
{
    // `MACRO(x) T y;` is a macro and a declaration; the interrupt tail is one
    // span; a macro label after a macro call stays a label.
    EXPECT_EQ(TwTest::extendedTreeOf("MACRO(x) Foo y;"), TwTest::treeOf("MACRO(x) Foo y;"));
    EXPECT_EQ(TwTest::extendedTreeOf("void f(void) interrupt 3 using 2 { }"),
              TwTest::treeOf("void f(void) interrupt 3 using 2 { }"));
    const std::string qt = "class Q {\n  Q_PROPERTY(int x READ x)\nsignals:\n  void changed();\n};";
    EXPECT_EQ(TwTest::extendedTreeOf(qt), TwTest::treeOf(qt));
    EXPECT_NE(TwTest::treeOf(qt).find("AccessSpecNode 3:1-3:8 kind=4 text=\"signals\""), std::string::npos);
    // A run ending in "=" that no `0`, `default` or `delete` follows is no
    // such run either.
    EXPECT_EQ(TwTest::extendedTreeOf("MACRO(x) Foo y = 1;"), TwTest::treeOf("MACRO(x) Foo y = 1;"));
}

TEST(ParserFunctionsTest, NoWordsAreTakenBehindAnExceptionSpecification)
{
    EXPECT_EQ(TwTest::messagesOf("class A { void f() throw() override { } };"),
              "1:28 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n"
              "1:37 code=0 Expected an identifier for the class name.\n"
              "1:28 code=7 The statement cannot be parsed.\n"
              "1:1 code=7 The statement cannot be parsed.\n");
}


// --- Extensions: ">>" closes two template argument lists when two are open. ---

TEST(ParserFunctionsTest, DoubleAngleClosesTwoTemplateArgumentLists)
{
    // The template's own list may close with it; its last parameter ends in
    // front of the ">>".
    EXPECT_TREE("template <class T, class = std::enable_if_t<std::is_integral<T>::value>>\nstruct A : B<C<T>> { };",
                "RootNode 1:1-2:23\n"
                "  TemplateNode 1:1-1:72\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:10-1:72\n"
                "      ParameterNode 1:11-1:17\n"
                "      ParameterNode 1:20-1:70 endsInAngle=1\n"
                "  ClassDeclNode 2:1-2:23\n"
                "    ClassHeadNode 2:1-2:18\n"
                "      ClassNameNode 2:1-2:8 type=STRUCT_KEY text=\"struct A\"\n"
                "      BaseClauseListNode 2:12-2:18\n"
                "        BaseClauseNode 2:12-2:18 text=\"B < C < T >>\"\n"
                "    ClassBodyNode 2:20-2:22\n");
    EXPECT_TREE("std::vector<std::vector<int>> f(int a) { }",
                "RootNode 1:1-1:42\n"
                "  FunctionDeclNode 1:1-1:42\n"
                "    FunctionHeadNode 1:1-1:38\n"
                "      FunctionReturnNode 1:1-1:29\n"
                "      IdNode 1:31-1:31 text=\"f\"\n"
                "      ParameterListNode 1:32-1:38\n"
                "        ParameterNode 1:33-1:37\n"
                "    BlockNode 1:40-1:42\n");
    EXPECT_TREE("void f(A<B<int>> x, int y) { }",
                "RootNode 1:1-1:30\n"
                "  FunctionDeclNode 1:1-1:30\n"
                "    FunctionHeadNode 1:1-1:26\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:26\n"
                "        ParameterNode 1:8-1:18 endsInAngle=1\n"
                "        ParameterNode 1:21-1:25\n"
                "    BlockNode 1:28-1:30\n");
}

TEST(ParserFunctionsTest, DoubleAngleEndsTemplateArgumentsOfAName)
{
    EXPECT_TREE("template <> void f<A<int>>(int x) { }\nNS_END",
                "RootNode 1:1-2:6\n"
                "  TemplateNode 1:1-1:11\n"
                "    KeywordNode 1:1-1:8 type=TEMPLATE_KEY\n"
                "    ParameterListNode 1:10-1:11\n"
                "  FunctionDeclNode 1:13-1:37\n"
                "    FunctionHeadNode 1:13-1:33\n"
                "      FunctionReturnNode 1:13-1:16\n"
                "      IdNode 1:18-1:26 text=\"f < A < int >>\"\n"
                "      ParameterListNode 1:27-1:33\n"
                "        ParameterNode 1:28-1:32\n"
                "    BlockNode 1:35-1:37\n"
                "  DataDeclNode 2:1-2:6\n"
                "    IdNode 2:1-2:6 text=\"NS_END\"\n");
    EXPECT_TREE("void A<B<C>>::f() { }\nNS_END",
                "RootNode 1:1-2:6\n"
                "  FunctionDeclNode 1:1-1:21\n"
                "    FunctionHeadNode 1:1-1:17\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:15 text=\"A < B < C >>::f\"\n"
                "      ParameterListNode 1:16-1:17\n"
                "    BlockNode 1:19-1:21\n"
                "  DataDeclNode 2:1-2:6\n"
                "    IdNode 2:1-2:6 text=\"NS_END\"\n");
}

TEST(ParserFunctionsTest, DoubleAngleStaysAShiftElsewhere)
{
    // Behind `operator`, with fewer than two angle brackets open, or in
    // parentheses inside a template's list, ">>" is the shift operator.
    EXPECT_TREE("struct A { bool operator>>(int); };\nNS_END",
                "RootNode 1:1-2:6\n"
                "  ClassDeclNode 1:1-1:35\n"
                "    ClassHeadNode 1:1-1:8\n"
                "      ClassNameNode 1:1-1:8 type=STRUCT_KEY text=\"struct A\"\n"
                "    ClassBodyNode 1:10-1:34\n"
                "      FunctionDeclNode 1:12-1:32\n"
                "        FunctionHeadNode 1:12-1:32\n"
                "          FunctionReturnNode 1:12-1:15\n"
                "          IdNode 1:17-1:26 text=\"operator >>\"\n"
                "          ParameterListNode 1:27-1:31\n"
                "            ParameterNode 1:28-1:30\n"
                "  DataDeclNode 2:1-2:6\n"
                "    IdNode 2:1-2:6 text=\"NS_END\"\n");
    EXPECT_EQ(TwTest::extendedTreeOf("template <int N = (8 >> 1)> struct A { };"),
              TwTest::treeOf("template <int N = (8 >> 1)> struct A { };"));
    EXPECT_EQ(TwTest::extendedTreeOf("void g(int y = 4 >> 1, int z);"), TwTest::treeOf("void g(int y = 4 >> 1, int z);"));
}


// --- Extensions: `= default` and `= delete` where `= 0` stands. ---

TEST(ParserFunctionsTest, DefaultedAndDeletedFunctionsKeepTheirSpecifierInTheHead)
{
    EXPECT_TREE("class A {\n  A() = default;\n  A(const A&) = delete;\n  A& operator=(A&&) noexcept = default;\n  virtual ~A() = 0;\n};",
                "RootNode 1:1-6:2\n"
                "  ClassDeclNode 1:1-6:2\n"
                "    ClassHeadNode 1:1-1:7\n"
                "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
                "    ClassBodyNode 1:9-6:1\n"
                "      FunctionDeclNode 2:3-2:16\n"
                "        FunctionHeadNode 2:3-2:16\n"
                "          IdNode 2:3-2:3 text=\"A\"\n"
                "          ParameterListNode 2:4-2:5\n"
                "          ExprNode 2:7-2:15\n"
                "      FunctionDeclNode 3:3-3:23\n"
                "        FunctionHeadNode 3:3-3:23\n"
                "          IdNode 3:3-3:3 text=\"A\"\n"
                "          ParameterListNode 3:4-3:13\n"
                "            ParameterNode 3:5-3:12\n"
                "          ExprNode 3:15-3:22\n"
                "      FunctionDeclNode 4:3-4:39\n"
                "        FunctionHeadNode 4:3-4:39\n"
                "          FunctionReturnNode 4:3-4:4\n"
                "          IdNode 4:6-4:14 text=\"operator =\"\n"
                "          ParameterListNode 4:15-4:19\n"
                "            ParameterNode 4:16-4:18\n"
                "          TextNode 4:21-4:28\n"
                "          ExprNode 4:30-4:38\n"
                "      FunctionDeclNode 5:3-5:19\n"
                "        FunctionHeadNode 5:3-5:19\n"
                "          FunctionReturnNode 5:3-5:9\n"
                "          IdNode 5:11-5:12 text=\"~A\"\n"
                "          ParameterListNode 5:13-5:14\n"
                "          ExprNode 5:16-5:18\n");
    EXPECT_TREE("void f() = delete;",
                "RootNode 1:1-1:18\n"
                "  FunctionDeclNode 1:1-1:18\n"
                "    FunctionHeadNode 1:1-1:18\n"
                "      FunctionReturnNode 1:1-1:4\n"
                "      IdNode 1:6-1:6 text=\"f\"\n"
                "      ParameterListNode 1:7-1:8\n"
                "      ExprNode 1:10-1:17\n");
}

TEST(ParserFunctionsTest, OtherValuesBehindAHeadStayRefused)
{
    // Also in a text that the extensions read; `= delete` behind a data
    // declarator is its initialiser, as before.
    EXPECT_EQ(TwTest::messagesOf("int f() = 1;\nNS_END"),
              "1:9 code=2 Unexpected token. Was expecting to find \";\" or \"{\".\n"
              "1:9 code=0 Expected '= 0' to indicate a pure virtual function. Got: \n");
    EXPECT_EQ(TwTest::extendedTreeOf("int x = delete;"), TwTest::treeOf("int x = delete;"));
}


// --- Extensions: member initialisers with braces. ---

TEST(ParserFunctionsTest, MemberInitialisersWithBracesAndPackExpansions)
{
    // Braces delimit the arguments as parentheses do; "..." behind an
    // initialiser stays text between the initialisers.
    EXPECT_TREE("A::A() : x{1}, Base<T>{2, 3}, y(f({4})), Ts(args)... { }\nNS_END",
                "RootNode 1:1-2:6\n"
                "  CtorDeclNode 1:1-1:56\n"
                "    FunctionHeadNode 1:1-1:6\n"
                "      IdNode 1:1-1:4 text=\"A::A\"\n"
                "      ParameterListNode 1:5-1:6\n"
                "    InitializerListNode 1:10-1:49\n"
                "      InitializerNode 1:10-1:13\n"
                "        IdNode 1:10-1:10 text=\"x\"\n"
                "        ArgListNode 1:11-1:13\n"
                "          ArgNode 1:12-1:12\n"
                "      InitializerNode 1:16-1:28\n"
                "        IdNode 1:16-1:22 text=\"Base < T >\"\n"
                "        ArgListNode 1:23-1:28\n"
                "          ArgNode 1:24-1:24\n"
                "          ArgNode 1:27-1:27\n"
                "      InitializerNode 1:31-1:39\n"
                "        IdNode 1:31-1:31 text=\"y\"\n"
                "        ArgListNode 1:32-1:39\n"
                "          ArgNode 1:33-1:38\n"
                "      InitializerNode 1:42-1:49\n"
                "        IdNode 1:42-1:43 text=\"Ts\"\n"
                "        ArgListNode 1:44-1:49\n"
                "          ArgNode 1:45-1:48\n"
                "    BlockNode 1:54-1:56\n"
                "  DataDeclNode 2:1-2:6\n"
                "    IdNode 2:1-2:6 text=\"NS_END\"\n");
}

TEST(ParserFunctionsTest, BracesThatNoInitialiserOrBodyFollowsAreTheBody)
{
    // `b {}` with nothing behind: the braces are the body, and `b` lacks its
    // arguments, in the extended reading as in the core one.
    EXPECT_EQ(TwTest::messagesOf("A::A() : b {}\nNS_END"), "1:12 code=1 Unexpected EOF found.\n");
}

// --- Later extensions: an attribute between a name and its parameters. ---

TEST(ParserFunctionsTest, AttributeBetweenNameAndParameters)
{
    // The attribute lies in the gap between the id and the parameter list.
    const std::string tree = TwTest::laterTreeOf("auto operator() [[nodiscard]] (T&& x) const { return 1; }\n");
    EXPECT_NE(tree.find("IdNode 1:6-1:15 text=\"operator ( )\""), std::string::npos) << tree;
    EXPECT_NE(tree.find("ParameterListNode 1:31-1:37"), std::string::npos) << tree;
    EXPECT_EQ(tree.find("! "), std::string::npos) << tree;
}

} // namespace
