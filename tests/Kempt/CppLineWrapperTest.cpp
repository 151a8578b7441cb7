// The wrap pass: long-line detection with tabs, byte-for-byte copies of
// everything not on a long line, and the constructs whose text it hands to
// the expression line wrapper (statements, conditions, for heads, data
// declarations, parameter lists, member initialisers, base lists, enums).
// Each case runs the pass again over its result and expects no change.
#include "ExprTestSupport.h"

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Kempt_CppLineWrapper.h"
#include "Kempt_PropertyNames.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

using namespace Kempt;
using TestSupport::scheme;

PropertySet wrapOn(std::int32_t margin, const std::vector<std::pair<std::string, std::int32_t>>& more = {},
                   const std::vector<std::pair<std::string, std::string>>& strings = {})
{
    std::vector<std::pair<std::string, std::int32_t>> ints = {
        {Prop::RIGHT_MARGIN, margin},     {Prop::WRAP_STYLE, 1},         {Prop::EXPR_WRAP_STYLE, 2},
        {Prop::COMMA_WRAP_STYLE, 2},      {Prop::SHIFT_WRAP_STYLE, 1},   {Prop::LIST_WRAP_STRATEGY, 1},
        {Prop::TAB_SIZE, 4}};
    for (const auto& m : more)
        ints.push_back(m);
    return scheme(strings, ints, {{Prop::LINE_WRAP, true}});
}

// The text of one wrap pass over `text`.
std::string wrapPass(const std::string& text, const PropertySet& set, std::set<std::int32_t>* longLines = nullptr)
{
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    EXPECT_TRUE(messages.empty()) << "does not parse: " << text;
    std::ostringstream out;
    CppLineWrapper wrapper(FormatSettings(set), text, out);
    if (longLines)
        *longLines = wrapper.longLines();
    root.accept(wrapper);
    return out.str();
}

#define EXPECT_WRAP(set, expected, input)                                                                          \
    do {                                                                                                           \
        EXPECT_EQ(wrapPass((input), (set)), (expected)) << "input:\n" << (input);                                 \
        EXPECT_EQ(wrapPass((expected), (set)), (expected)) << "second run";                                       \
    } while (0)

TEST(CppLineWrapperTest, TextWithoutLongLineComesOutByteForByte)
{
    const std::string text = "int f(int a)\n{\n\treturn a  +  1 ;   \n}\n// done";
    EXPECT_EQ(wrapPass(text, wrapOn(40)), text);
    // Line breaks come out as "\n"; the driver restores the source's.
    EXPECT_EQ(wrapPass("int a;\r\nint b;\r\n", wrapOn(40)), "int a;\nint b;\n");
}

TEST(CppLineWrapperTest, LongLinesCountTabsToTheStop)
{
    std::set<std::int32_t> lines;
    wrapPass("int a;\n\tint bb;\nint c;\n", wrapOn(8), &lines);
    EXPECT_EQ(lines, (std::set<std::int32_t>{2})); // "\tint bb;" is 4 + 7 columns
    wrapPass("int abcd;\n", wrapOn(9), &lines);
    EXPECT_TRUE(lines.empty()); // exactly the margin
}

TEST(CppLineWrapperTest, MarginZeroCopies)
{
    const std::string text = "void f()\n{\n    total = alpha + beta + gamma + delta + epsilon;\n}\n";
    std::set<std::int32_t> lines;
    EXPECT_EQ(wrapPass(text, wrapOn(0), &lines), text);
    EXPECT_TRUE(lines.empty());
}

TEST(CppLineWrapperTest, WrappingOffCopies)
{
    PropertySet set = wrapOn(10);
    set.setBool(Prop::LINE_WRAP, false);
    const std::string text = "void f()\n{\n    total = alpha + beta + gamma;\n}\n";
    EXPECT_EQ(wrapPass(text, set), text);
}

TEST(CppLineWrapperTest, StatementWrapsFromItsIndent)
{
    EXPECT_WRAP(wrapOn(30),
                "void f()\n{\n    a = 1;\n    total = alpha +\n            beta +\n            gamma;\n}\n",
                "void f()\n{\n    a = 1;\n    total = alpha + beta + gamma;\n}\n");
}

TEST(CppLineWrapperTest, ConditionWrapsInsideItsParentheses)
{
    EXPECT_WRAP(wrapOn(30),
                "void f()\n{\n    if (alpha &&\n        beta &&\n        gamma)\n        g();\n}\n",
                "void f()\n{\n    if (alpha && beta && gamma)\n        g();\n}\n");
}

TEST(CppLineWrapperTest, ForHeadBreaksAtItsClauses)
{
    EXPECT_WRAP(wrapOn(30),
                "void f()\n{\n    for (int i = 0;\n         i < count;\n         ++i)\n        g();\n}\n",
                "void f()\n{\n    for (int i = 0; i < count; ++i)\n        g();\n}\n");
}

TEST(CppLineWrapperTest, DataDeclarationKeepsTheTypeAndAlignsUnderTheInitialiser)
{
    EXPECT_WRAP(wrapOn(30),
                "int total = alpha +\n            beta +\n            gamma;\n",
                "int total = alpha + beta + gamma;\n");
}

TEST(CppLineWrapperTest, ParametersFillLinesUnderTheFirst)
{
    EXPECT_WRAP(wrapOn(34),
                "void compute(int alpha, int beta,\n             int gamma);\n",
                "void compute(int alpha, int beta, int gamma);\n");
    EXPECT_WRAP(wrapOn(30, {{Prop::LIST_WRAP_STRATEGY, 2}}),
                "void compute(int alpha,\n             int beta,\n             int gamma);\n",
                "void compute(int alpha, int beta, int gamma);\n");
}

TEST(CppLineWrapperTest, InitialisersMoveBelowTheHeadWhenTheyDoNotFit)
{
    EXPECT_WRAP(wrapOn(40, {}, {{Prop::WRAP_INDENT, "    "}}),
                "Point(int x, int y) : m_x(x), m_y(y),\n                      m_zeta(0),\n                      m_label(nullptr)\n{\n}\n",
                "Point(int x, int y) : m_x(x), m_y(y), m_zeta(0), m_label(nullptr)\n{\n}\n");
    EXPECT_WRAP(wrapOn(40, {}, {{Prop::WRAP_INDENT, "    "}}),
                "Point(int x, int y)\n    : m_x(x), m_y(y), m_zeta(0),\n      m_label(makeDefaultLabel())\n{\n}\n",
                "Point(int x, int y) : m_x(x), m_y(y), m_zeta(0), m_label(makeDefaultLabel())\n{\n}\n");
}

TEST(CppLineWrapperTest, BaseClausesFillLines)
{
    EXPECT_WRAP(wrapOn(40),
                "class Test : public Alpha, public Beta,\n             public Gamma\n{\n};\n",
                "class Test : public Alpha, public Beta, public Gamma\n{\n};\n");
}

TEST(CppLineWrapperTest, EnumElementsFillLines)
{
    EXPECT_WRAP(wrapOn(30),
                "enum Colour { red, green,\n              blue, cyan,\n              magenta };\n",
                "enum Colour { red, green, blue, cyan, magenta };\n");
}

TEST(CppLineWrapperTest, EnumOneElementALineIsLeftAlone)
{
    const std::string text = "enum Colour { red, green, blue, cyan, magenta };\n";
    EXPECT_EQ(wrapPass(text, wrapOn(30, {}, {{Prop::WS_BETWEEN_ENUM_ELEMENTS, "\n"}})), text);
}

TEST(CppLineWrapperTest, CommentsAndStringsAreNeverBroken)
{
    const std::string text = "int x = 1; // a comment that runs well past the margin\n"
                             "const char* s = \"a string literal longer than the margin\";\n";
    EXPECT_EQ(wrapPass(text, wrapOn(30)), text);
}

TEST(CppLineWrapperTest, OnlyTheLongStatementChanges)
{
    EXPECT_WRAP(wrapOn(30),
                "void f()\n{\n    x  =  1 ;\n    total = alpha +\n            beta +\n            gamma;\n    y  =  2 ;\n}\n",
                "void f()\n{\n    x  =  1 ;\n    total = alpha + beta + gamma;\n    y  =  2 ;\n}\n");
}

} // namespace
