// The offset calculators: runs of declarations and the columns they get.
#include "ExprTestSupport.h"

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Kempt_OffsetCalculator.h"
#include "Kempt_SourceText.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace Kempt;
using TestSupport::scheme;

struct Parsed {
    std::unique_ptr<SourceText> source;
    std::unique_ptr<Cpp::RootNode> root;
};

Parsed parse(const std::string& text)
{
    Parsed parsed;
    parsed.source = std::make_unique<SourceText>(text);
    std::istringstream in(text);
    Cpp::Lexer lexer(in);
    parsed.root = std::make_unique<Cpp::RootNode>();
    Trn::FormatMessageList messages;
    Cpp::Parser().parse(lexer, *parsed.root, messages);
    EXPECT_TRUE(messages.empty()) << text;
    return parsed;
}

// Every node of the tree of a given class, in text order.
template <typename Node>
class Collector : public Cpp::Emitter {
public:
    std::vector<const Node*> nodes;

    void visit(Cpp::SyntaxNode* node)
    {
        if (!node)
            return;
        if (const auto* n = dynamic_cast<const Node*>(node))
            nodes.push_back(n);
        if (auto* interior = dynamic_cast<Cpp::InteriorNode*>(node))
            for (auto it = interior->childrenBegin(); it != interior->childrenEnd(); ++it)
                visit(*it);
        if (auto* cls = dynamic_cast<Cpp::ClassDeclNode*>(node))
            visit(cls->body());
        if (auto* ns = dynamic_cast<Cpp::NamespaceDeclNode*>(node))
            visit(ns->body());
        if (auto* fn = dynamic_cast<Cpp::FunctionDeclNode*>(node))
            visit(fn->block());
    }
};

template <typename Node>
std::vector<const Node*> all(Cpp::RootNode& root)
{
    Collector<Node> c;
    c.visit(&root);
    return c.nodes;
}

// The offsets of the data declarations, in text order; -1 for none.
std::vector<int> dataOffsets(const OffsetMap& map, Cpp::RootNode& root)
{
    std::vector<int> out;
    for (const auto* node : all<Cpp::DataDeclNode>(root)) {
        const auto it = map.find(node);
        out.push_back(it == map.end() ? -1 : it->second);
    }
    return out;
}

std::vector<int> functionOffsets(const OffsetMap& map, Cpp::RootNode& root)
{
    std::vector<int> out;
    for (const auto* node : all<Cpp::FunctionDeclNode>(root)) {
        const auto it = map.find(node);
        out.push_back(it == map.end() ? -1 : it->second);
    }
    return out;
}

std::vector<int> initializerColumns(const std::string& text, const PropertySet& set)
{
    Parsed p = parse(text);
    DataOffsetCalculator calc(*p.source, set);
    p.root->accept(calc);
    return dataOffsets(calc.offsets(), *p.root);
}

struct Names {
    std::vector<int> data;
    std::vector<int> functions;
};

Names nameColumns(const std::string& text, const PropertySet& set)
{
    Parsed p = parse(text);
    NameOffsetCalculator calc(*p.source, FormatSettings(set));
    p.root->accept(calc);
    return {dataOffsets(calc.dataOffsets(), *p.root), functionOffsets(calc.functionOffsets(), *p.root)};
}

const PropertySet& initializersOn()
{
    static const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}}, {{Prop::ALIGN_DD_INITIALIZERS, true}});
    return set;
}

using V = std::vector<int>;

TEST(DataOffsetCalculatorTest, OneDeclarationAloneGetsATabStop)
{
    // "int a" is 5 wide; one more is 6; the next stop is 8.
    EXPECT_EQ(initializerColumns("int a = 1;", initializersOn()), V({8}));
}

TEST(DataOffsetCalculatorTest, ARunSharesTheWidest)
{
    EXPECT_EQ(initializerColumns("int a = 1;\ndouble speed = 2;\n\nchar c;", initializersOn()), V({16, 16, 16}));
}

TEST(DataOffsetCalculatorTest, ADeclarationOverSeveralLinesDoesNotWidenTheRun)
{
    EXPECT_EQ(initializerColumns("int\n    xxxxxxxxxxxxxxxxxxxx = 1;\nint a = 2;", initializersOn()), V({8, 8}));
}

TEST(DataOffsetCalculatorTest, TemplateInFrontIsMeasuredFromTheKeyword)
{
    // "template <class T> T x" is 22 wide: 23, next stop 24. The template
    // does not end the run of "int a".
    EXPECT_EQ(initializerColumns("int a = 1;\ntemplate <class T> T x = 1;", initializersOn()), V({24, 24}));
}

TEST(DataOffsetCalculatorTest, StatementsAndBlocksEndARun)
{
    EXPECT_EQ(initializerColumns("void f()\n{\n    int a = 1;\n    g();\n    double speed = 2;\n}", initializersOn()),
              V({8, 16}));
}

TEST(DataOffsetCalculatorTest, AccessLabelsEndARun)
{
    EXPECT_EQ(initializerColumns("struct S {\npublic:\n    int a;\nprivate:\n    double speed;\n};", initializersOn()),
              V({8, 16}));
}

TEST(NameOffsetCalculatorTest, DataNamesAlign)
{
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}}, {{Prop::ALIGN_DD_NAMES_LEFT, true}});
    // "int " 4, "double " 7: the column is 8.
    EXPECT_EQ(nameColumns("int a;\ndouble b;", set).data, V({8, 8}));
    // One alone.
    EXPECT_EQ(nameColumns("int a;", set).data, V({4}));
}

TEST(NameOffsetCalculatorTest, PointerWithAnchorOneCountsThroughTheSymbolsColumn)
{
    // With anchor 1 the "*" stands in the column: "int " is what is in
    // front of it. With anchor 0 it is part of the type: "int* ".
    const PropertySet one = scheme({}, {{Prop::TAB_SIZE, 4}, {Prop::ASTERISK_ANCHOR, 1}}, {{Prop::ALIGN_DD_NAMES_LEFT, true}});
    const PropertySet zero = scheme({}, {{Prop::TAB_SIZE, 4}, {Prop::ASTERISK_ANCHOR, 0}}, {{Prop::ALIGN_DD_NAMES_LEFT, true}});
    EXPECT_EQ(nameColumns("int *p;", one).data, V({4}));
    EXPECT_EQ(nameColumns("int **p;", one).data, V({4}));
    EXPECT_EQ(nameColumns("int *p;", zero).data, V({8}));
}

TEST(NameOffsetCalculatorTest, HangingSymbolsAskForRoom)
{
    // "int" + blank is 4, on a stop: the hanging "*" needs the column left
    // of the names, so the run moves on by a stop.
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}, {Prop::ASTERISK_ANCHOR, 1}},
                                   {{Prop::ALIGN_DD_NAMES_LEFT, true}, {Prop::HANGING_ASTERISK, true}});
    EXPECT_EQ(nameColumns("int *p;", set).data, V({8}));
}

TEST(NameOffsetCalculatorTest, CommentInTheWayLeavesTheDeclarationOut)
{
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}}, {{Prop::ALIGN_DD_NAMES_LEFT, true}});
    EXPECT_EQ(nameColumns("int a;\nunsigned long /* c */ b;", set).data, V({4, -1}));
}

TEST(NameOffsetCalculatorTest, PrototypesAlignApartFromDataOutsideAClass)
{
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}},
                                   {{Prop::ALIGN_DD_NAMES_LEFT, true}, {Prop::ALIGN_FN_DECL_NAMES_LEFT, true}});
    const Names n = nameColumns("void f();\nVeryLongName g();\nint i;\nchar c;", set);
    EXPECT_EQ(n.functions, V({16, 16}));
    EXPECT_EQ(n.data, V({8, 8}));
}

TEST(NameOffsetCalculatorTest, DefinitionEndsTheRunOfPrototypes)
{
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}}, {{Prop::ALIGN_FN_DECL_NAMES_LEFT, true}});
    const Names n = nameColumns("void f();\nvoid g() { }\nVeryLongName h();", set);
    EXPECT_EQ(n.functions, V({8, -1, 16}));
}

TEST(NameOffsetCalculatorTest, PrototypeInARunOfMembersSharesTheirColumn)
{
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}}, {{Prop::ALIGN_CLASS_MEMBER_NAMES_LEFT, true}});
    const Names n = nameColumns("class A {\npublic:\n    int a;\n    void f();\nprivate:\n    double d;\n};", set);
    // "double " is the widest: 7, stop 8; "void " and "int " line up with it.
    EXPECT_EQ(n.data, V({8, 8}));
    EXPECT_EQ(n.functions, V({8}));
}

TEST(NameOffsetCalculatorTest, TemplateKeepsAMemberInTheRun)
{
    const PropertySet set = scheme({}, {{Prop::TAB_SIZE, 4}}, {{Prop::ALIGN_CLASS_MEMBER_NAMES_LEFT, true}});
    const Names n = nameColumns("class A {\n    int a;\n    template <class T> T get();\n};", set);
    // "template <class T> T " is 21 wide, the next stop 24.
    EXPECT_EQ(n.data, V({24}));
    EXPECT_EQ(n.functions, V({24}));
}

TEST(NameOffsetCalculatorTest, AlignmentOffTakesNoPart)
{
    const Names n = nameColumns("int a;\nvoid f();", scheme({}, {{Prop::TAB_SIZE, 4}}));
    EXPECT_EQ(n.data, V({-1}));
    EXPECT_EQ(n.functions, V({-1}));
}

} // namespace
