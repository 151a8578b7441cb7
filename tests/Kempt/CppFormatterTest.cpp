// The format pass: blocks and the indent model, lists, the root and its left
// margin, function heads, parameter lists, member initialisers, comments and
// directives, and the constructs it leaves as they stand. Each case formats
// its expected text again and expects no change.
#include "ExprTestSupport.h"

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Kempt_CppFormatter.h"
#include "Kempt_FormatEngine.h"
#include "Kempt_PropertyNames.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

namespace {

using namespace Kempt;
using TestSupport::scheme;

// The text of one format pass over `text`.
std::string formatPass(const std::string& text, const PropertySet& set)
{
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    EXPECT_TRUE(messages.empty()) << "does not parse: " << text;
    std::ostringstream out;
    CppFormatter formatter(text, out, FormatSettings(set));
    root.accept(formatter);
    return out.str();
}

#define EXPECT_FORMAT(set, expected, input)                                                                        \
    do {                                                                                                           \
        EXPECT_EQ(formatPass((input), (set)), (expected)) << "input:\n" << (input);                               \
        EXPECT_EQ(formatPass((expected), (set)), (expected)) << "second run";                                     \
    } while (0)

// The scheme of most cases: function bodies in braces on their own lines,
// indented by four.
PropertySet functions()
{
    return scheme({{Prop::WS_BEFORE_FN_OPEN_BRACE, "\n"},
                   {Prop::WS_AFTER_FN_OPEN_BRACE, "\n"},
                   {Prop::WS_BEFORE_FN_CLOSE_BRACE, "\n"},
                   {Prop::INDENT_FN_CONTENT, "    "},
                   {Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "},
                   {Prop::LEFT_MARGIN, ""}},
                  {{Prop::TAB_SIZE, 4}, {Prop::CONVERT_WS, 1}});
}

PropertySet with(PropertySet set, const std::string& name, const std::string& value)
{
    set.setString(name, value);
    return set;
}

PropertySet withInt(PropertySet set, const std::string& name, std::int32_t value)
{
    set.setInt(name, value);
    return set;
}

PropertySet withBool(PropertySet set, const std::string& name, bool value)
{
    set.setBool(name, value);
    return set;
}

const std::string MIXED = "// a file\n"
                          "#include <x.h>\n"
                          "  namespace   N {  int  a=1 ; }\n"
                          "class  C : public B {\n"
                          "  public :\n"
                          "      C( int  x ) : m( x ) { }\n"
                          "};\n"
                          "template< class T >  T  f( T * p ) ;\n"
                          "int g(int a,char*b)\n"
                          "{ if(a){  return  -a ;}\n"
                          "   /* c\n"
                          "         d */\n"
                          "  return f(a,b)+1;}\n"
                          "\n"
                          "   // the end\n";

// The core: blocks, lists, the root.

TEST(CppFormatterTest, NoWhiteSpaceSettingsReproduceTheInput)
{
    EXPECT_FORMAT(PropertySet(), MIXED, MIXED);
    // Tabs, trailing blanks and a file without a final newline too.
    const std::string tabs = "void\tf( )\t{\n\t x( a ,b ) ;  \n\t}";
    EXPECT_FORMAT(PropertySet(), tabs, tabs);
}

TEST(CppFormatterTest, DirectivesInAListWithoutSettingsKeepTheirBlankLines)
{
    const std::string text = "EV(r,\n\n#if X\n\tA(c),\n#endif\n\n\tB(s)\n)\n";
    EXPECT_FORMAT(PropertySet(), text, text);
    // With a gap between parameters set, a directive still starts its line.
    EXPECT_FORMAT(scheme({{Prop::WS_BETWEEN_FN_PARAMS, " "}}), "EV(r,\n#if X\n\tA(c),\n#endif\n\n\tB(s)\n)\n", text);
}

TEST(CppFormatterTest, AFileOfCommentsOnly)
{
    const std::string text = "// one\n\n/* two\n   lines */\n  // three";
    EXPECT_FORMAT(PropertySet(), text, text);
    // At the top level a left margin replaces the leading blanks.
    EXPECT_FORMAT(scheme({{Prop::LEFT_MARGIN, ""}}), "// one\n\n/* two\n   lines */\n// three",
                  "// one\n\n/* two\n   lines */\n  // three");
}

TEST(CppFormatterTest, EmptyFileAndBlankFile)
{
    EXPECT_FORMAT(functions(), "", "");
    EXPECT_FORMAT(functions(), "\n\n", "\n\n");
}

TEST(CppFormatterTest, EmptyBlockWithBreaksAfterOpenAndBeforeClose)
{
    // "{", break, "}".
    EXPECT_FORMAT(functions(), "void f()\n{\n}\n", "void f() { }\n");
    EXPECT_FORMAT(functions(), "void f()\n{\n}\n", "void f()\n{\n\n\n}\n");
    // A comment inside stays between them, on a line of its own.
    EXPECT_FORMAT(functions(), "void f()\n{\n    /* c */\n}\n", "void f() { /* c */ }\n");
    EXPECT_FORMAT(functions(), "void f()\n{\n    // c\n}\n", "void f() {   // c\n}\n");
}

TEST(CppFormatterTest, EmptyBlockOnOneLine)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_FN_OPEN_BRACE, " "},
                                    {Prop::WS_AFTER_FN_OPEN_BRACE, " "},
                                    {Prop::WS_BEFORE_FN_CLOSE_BRACE, " "}});
    EXPECT_FORMAT(set, "void f() { }", "void f()\n{\n\n}");
    EXPECT_FORMAT(set, "void f() { /* c */ }", "void f()\n{/* c */}");
}

TEST(CppFormatterTest, LineCommentBeforeClosingBraceKeepsItsNewline)
{
    // With WS_BEFORE_FN_CLOSE_BRACE " " the brace still goes on the next line.
    const PropertySet blank = with(functions(), Prop::WS_BEFORE_FN_CLOSE_BRACE, " ");
    EXPECT_FORMAT(blank, "void f()\n{\n    x(); // c\n}", "void f() { x(); // c\n}");
    // With "\n" the comment's newline is the break: no blank line.
    EXPECT_FORMAT(functions(), "void f()\n{\n    x(); // c\n}", "void f() { x(); // c\n   }");
    // With "\n\n" one blank line.
    const PropertySet two = with(functions(), Prop::WS_BEFORE_FN_CLOSE_BRACE, "\n\n");
    EXPECT_FORMAT(two, "void f()\n{\n    x(); // c\n\n}", "void f() { x(); // c\n}");
}

TEST(CppFormatterTest, ContentIndentFollowsTheFunctionsColumn)
{
    // A function that begins at column 2 (no left margin: the top level
    // keeps the source's indentation) indents its body from there; its
    // braces go where WS_BEFORE_FN_OPEN_BRACE and the indent of their place
    // put them.
    PropertySet set = functions();
    set.erase(Prop::LEFT_MARGIN);
    EXPECT_FORMAT(set, "  void f()\n{\n      x();\n}", "  void f() {\nx();\n}");
    // A constructor, without return type, takes the column of its name.
    EXPECT_FORMAT(set, "  Foo::Foo()\n{\n      x();\n}", "  Foo::Foo() {\nx();\n}");
}

TEST(CppFormatterTest, IndentNotSetKeepsTheSourceIndentation)
{
    PropertySet set = functions();
    set.erase(Prop::INDENT_FN_CONTENT);
    set.erase(Prop::LEFT_MARGIN);
    EXPECT_FORMAT(set, "void f()\n{\n  x();\n      y();\n}", "void f() {\n  x();\n      y();\n}");
}

TEST(CppFormatterTest, LeftMarginStartsEveryTopLevelLine)
{
    const PropertySet set = with(functions(), Prop::LEFT_MARGIN, "  ");
    // An empty line stays empty; the body indents from the margin.
    EXPECT_FORMAT(set, "  // c\n\n  void f()\n  {\n      x();\n  }\n\n  int g();\n",
                  "// c\n\nvoid f() {\nx();\n}\n\nint g();\n");
}

TEST(CppFormatterTest, ParameterListsOneALine)
{
    const PropertySet set = withBool(scheme({{Prop::WS_BEFORE_FN_COMMA, ""}}), Prop::ALIGN_FN_PARAMS_LEFT, true);
    EXPECT_FORMAT(set, "void function(int a,\n              char b,\n              long c);",
                  "void function(int a, char b,long c);");
    // A comment behind a comma keeps its line; nothing is added behind it.
    EXPECT_FORMAT(set, "void f(int a, // first\n       char b);", "void f(int a, // first\n char b);");
}

TEST(CppFormatterTest, ParameterListSpacing)
{
    const PropertySet set = scheme({{Prop::WS_BEFORE_FN_COMMA, ""},
                                    {Prop::WS_BETWEEN_FN_PARAMS, " "},
                                    {Prop::WS_AFTER_FN_OPEN_PAREN, ""},
                                    {Prop::WS_BEFORE_FN_CLOSE_PAREN, ""},
                                    {Prop::WS_AFTER_FN_NAME, ""}});
    EXPECT_FORMAT(set, "void f(int a, char b);", "void f ( int a ,char b );");
    // An empty list loses its blanks.
    EXPECT_FORMAT(set, "void f();", "void f( );");
    EXPECT_FORMAT(scheme({{Prop::WS_AFTER_FN_OPEN_PAREN, ""}}), "void f();", "void f( );");
    // Neither set: kept.
    EXPECT_FORMAT(PropertySet(), "void f( );", "void f( );");
}

TEST(CppFormatterTest, MemberInitialisers)
{
    const PropertySet set = with(with(with(with(with(functions(), Prop::WS_BEFORE_CLASS_INIT_LIST, " "),
                                                    Prop::WS_BEFORE_CLASS_INITS, " "),
                                               Prop::WS_BEFORE_CLASS_INITS_COMMA, ""),
                                          Prop::WS_BETWEEN_CLASS_INITS, " "),
                                     Prop::WS_AFTER_CLASS_INIT_LIST, "\n");
    EXPECT_FORMAT(set, "Cls::Cls(char* p1, int p2) : m_P1(p1), m_P2(p2)\n{\n    ++m_Count;\n}",
                  "Cls::Cls(char* p1, int p2):m_P1(p1),m_P2(p2){\n++m_Count;}");
}

TEST(CppFormatterTest, MemberInitialisersOneALine)
{
    const PropertySet set = with(with(with(with(functions(), Prop::WS_BEFORE_CLASS_INIT_LIST, "\n    "),
                                           Prop::WS_BEFORE_CLASS_INITS, " "),
                                      Prop::WS_BETWEEN_CLASS_INITS, "\n"),
                                 Prop::WS_AFTER_CLASS_INIT_LIST, "\n");
    EXPECT_FORMAT(set, "A::A()\n    : a(1),\n      b(2)\n{\n}", "A::A() : a(1), b(2) {}");
}

TEST(CppFormatterTest, ExpressionStatementsAreFormatted)
{
    EXPECT_FORMAT(functions(), "int f()\n{\n    return strcmp(a, b) == 0;\n}", "int f(){\nreturn strcmp(a, b)==0;}");
}

// Function heads.

TEST(CppFormatterTest, ReturnTypeGapAndAnchors)
{
    const PropertySet zero = scheme({{Prop::WS_AFTER_FN_DECL_RETURN_TYPE, " "}, {Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}},
                                    {{Prop::ASTERISK_ANCHOR, 0}});
    EXPECT_FORMAT(zero, "char* f();", "char   *f();");
    const PropertySet one = withInt(zero, Prop::ASTERISK_ANCHOR, 1);
    EXPECT_FORMAT(one, "char *f();", "char*   f();");
    // A break after the return type of a definition: the symbol stays with
    // the type.
    const PropertySet gnu = with(one, Prop::WS_AFTER_FN_DEFN_RETURN_TYPE, "\n");
    EXPECT_FORMAT(gnu, "char*\nf()\n{\n}", "char *f()\n{\n}");
    EXPECT_FORMAT(gnu, "int\nf()\n{\n}", "int f()\n{\n}");
}

TEST(CppFormatterTest, AlignedNamesPutTheSymbolInTheColumn)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}},
                                   {{Prop::ASTERISK_ANCHOR, 1}, {Prop::TAB_SIZE, 4}, {Prop::CONVERT_WS, 1}},
                                   {{Prop::ALIGN_FN_DECL_NAMES_LEFT, true}});
    // "VeryLong " is 9 wide: the column is 12; the "*" stands in it.
    EXPECT_FORMAT(set, "int         *f();\nVeryLong    g();", "int* f();\nVeryLong g();");
    // Hanging: the "*" one column left of the names.
    const PropertySet hanging = withBool(set, Prop::HANGING_ASTERISK, true);
    EXPECT_FORMAT(hanging, "int        *f();\nVeryLong    g();", "int* f();\nVeryLong g();");
}

TEST(CppFormatterTest, AlignedPrototypesOfTheFunctionsSample)
{
    const PropertySet set = scheme({{Prop::WS_BETWEEN_ASTERISK_ANCHOR, ""}, {Prop::WS_AFTER_FN_DECL_RETURN_TYPE, " "}},
                                   {{Prop::ASTERISK_ANCHOR, 0}, {Prop::TAB_SIZE, 4}, {Prop::CONVERT_WS, 1}},
                                   {{Prop::ALIGN_FN_DECL_NAMES_LEFT, true}});
    EXPECT_FORMAT(set, "void    callme1(int ph);\nString* callme2(int ph);\nint f() {}",
                  "void callme1(int ph);\nString* callme2(int ph);\nint f() {}");
}

TEST(CppFormatterTest, CommentBetweenReturnTypeAndNameIsNeverAligned)
{
    const PropertySet set =
        scheme({}, {{Prop::TAB_SIZE, 4}, {Prop::CONVERT_WS, 1}}, {{Prop::ALIGN_FN_DECL_NAMES_LEFT, true}});
    EXPECT_FORMAT(set, "VeryLong    g();\nint /* c */ f();", "VeryLong g();\nint /* c */ f();");
}

TEST(CppFormatterTest, DoNotFormatKeepsTheTypeButNotTheParameters)
{
    const PropertySet set = withBool(scheme({{Prop::WS_AFTER_FN_DECL_RETURN_TYPE, " "},
                                             {Prop::WS_BEFORE_FN_COMMA, ""},
                                             {Prop::WS_BETWEEN_FN_PARAMS, " "}}),
                                     Prop::FN_DO_NOT_FORMAT, true);
    EXPECT_FORMAT(set, "unsigned    long   f(int a, int b);", "unsigned    long   f(int a,int b);");
}

TEST(CppFormatterTest, PureSpecifierFollowsTheOperatorGap)
{
    EXPECT_FORMAT(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, " "}}), "virtual void f() const = 0;",
                  "virtual void f() const=0;");
    EXPECT_FORMAT(scheme({{Prop::WS_BETWEEN_EXPR_OP_OPERANDS, ""}}), "virtual void f() const=0;",
                  "virtual void f() const = 0;");
}

TEST(CppFormatterTest, FunctionPointers)
{
    const PropertySet set = scheme({{Prop::WS_AFTER_FN_OPEN_PAREN, ""},
                                    {Prop::WS_BEFORE_FN_CLOSE_PAREN, ""},
                                    {Prop::WS_BEFORE_FN_COMMA, ""},
                                    {Prop::WS_BETWEEN_FN_PARAMS, " "}});
    // The blanks inside the name's parentheses next to them go; the others stay.
    EXPECT_FORMAT(set, "int (* fp)(int a, int b);", "int ( * fp )( int a ,int b );");
}

// Comments and directives.

TEST(CppFormatterTest, BlockCommentKeepsItsShapeWhenItMoves)
{
    EXPECT_FORMAT(functions(), "void f()\n{\n    /* one\n     * two\n     */\n    x();\n}",
                  "void f()\n{\n/* one\n * two\n */\nx();\n}");
    EXPECT_FORMAT(functions(), "void f()\n{\n    /* one\n         two */\n}", "void f()\n{\n        /* one\n             two */\n}");
}

TEST(CppFormatterTest, TrailingLineCommentKeepsItsDistance)
{
    EXPECT_FORMAT(functions(), "void f()\n{\n    x();   // c\n    y();\n}", "void f()\n{\nx();   // c\ny();\n}");
}

TEST(CppFormatterTest, DirectiveInsideAFunction)
{
    // Left-most: at column 0; the statement behind takes the block's indent.
    const PropertySet leftMost = withBool(functions(), Prop::ALIGN_PPD_LEFT_MOST, true);
    EXPECT_FORMAT(leftMost, "void f()\n{\n#if X\n    x();\n#endif\n}", "void f()\n{\n#if X\nx();\n  #endif\n}");
    // With the code.
    const PropertySet withCode = withBool(functions(), Prop::ALIGN_PPD_LEFT_MOST, false);
    EXPECT_FORMAT(withCode, "void f()\n{\n    #if X\n    x();\n    #endif\n}", "void f()\n{\n#if X\nx();\n#endif\n}");
    // Not in the scheme: as they stand.
    EXPECT_FORMAT(functions(), "void f()\n{\n  #if X\n    x();\n#endif\n}", "void f()\n{\n  #if X\nx();\n#endif\n}");
}

TEST(CppFormatterTest, ProtectedRegionWhoseColumnStaysIsUnchanged)
{
    const std::string text = "void f()\n{\n    // TW-FORMAT-OFF\n    x  (  a,b );\n\ty;\n    // TW-FORMAT-ON\n    z();\n}";
    // The driver folds the region; through it, the region is byte for byte.
    std::istringstream in(text);
    std::ostringstream out;
    FormatMessageList messages;
    UpdateFunctor update;
    ASSERT_EQ(FormatEngine().format(FormatSettings(functions()), in, out, messages, update), 0);
    EXPECT_EQ(out.str(), text);
}

// Constructs whose layout is not set yet come out as they stand.

TEST(CppFormatterTest, ClassesNamespacesEnumsTemplatesDataAndStatementsStandAsTheyAre)
{
    const std::string text = "namespace  N{ int  a=1 ;\n  class C{ public: int x ; };}\n"
                             "enum E{ A=1 , B };\n"
                             "template< class T > class D { };\n"
                             "extern \"C\" {  int  b ; }\n"
                             "struct S { int  x; }  s ;\n"
                             "int  a ,b=2 ;\n";
    EXPECT_FORMAT(functions(), text, text);
}

TEST(CppFormatterTest, StatementsInAFunctionMoveAsABlock)
{
    // The "if" and the data declaration keep their inner layout and move to
    // the body's indent.
    EXPECT_FORMAT(functions(), "void f()\n{\n    int  a = 1;\n    if(a)\n    {\n      b ( ) ;\n    }\n}",
                  "void f()\n{\nint  a = 1;\nif(a)\n{\n  b ( ) ;\n}\n}");
}

TEST(CppFormatterTest, ContinuedStringInAnExpressionKeepsItsCharacters)
{
    // The line behind the backslash is part of the literal: its blanks stay.
    EXPECT_FORMAT(functions(), "void f()\n{\n    g(\"a\\\n  b\",1);\n}", "void f()\n{\ng(\"a\\\n  b\",1);\n}");
}

TEST(CppFormatterTest, LiteralsSpanningLinesAreNeverShifted)
{
    const std::string in = "void f()\n{\nif (a)\n  s = \"x\\\n  y\";\n}";
    EXPECT_FORMAT(functions(), "void f()\n{\n    if (a)\n      s = \"x\\\n  y\";\n}", in);
}

} // namespace
