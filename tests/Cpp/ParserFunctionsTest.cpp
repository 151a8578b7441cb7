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

} // namespace
