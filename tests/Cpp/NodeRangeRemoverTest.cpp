// Folding the nodes that lie in given ranges into protected comments.
#include "Cpp_NodeRangeRemover.h"
#include "Cpp_Nodes.h"
#include "Cpp_TreeDump.h"
#include "ParserTestSupport.h"

#include <gtest/gtest.h>

namespace {

using Trn::Position;
using Trn::Range;

std::string foldedTree(const std::string& text, const Trn::RangeList& ranges)
{
    TwTest::Parsed parsed;
    TwTest::parseText(text, parsed);
    EXPECT_TRUE(parsed.messages.empty());
    Cpp::NodeRangeRemover remover(ranges);
    parsed.root.accept(remover);
    return Cpp::dumpTree(parsed.root);
}

const char* const CLASS_TEXT = "class A {\n"
                               "  int a;\n"
                               "  int b;\n"
                               "  int c;\n"
                               "  int d;\n"
                               "};\n";

TEST(NodeRangeRemoverTest, RangeOverTwoNeighbouringMembersLeavesOneProtectedComment)
{
    EXPECT_EQ(foldedTree(CLASS_TEXT, {Range(Position(2, 3), Position(3, 8))}),
              "RootNode 1:1-6:2\n"
              "  ClassDeclNode 1:1-6:2\n"
              "    ClassHeadNode 1:1-1:7\n"
              "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
              "    ClassBodyNode 1:9-6:1\n"
              "      CommentNode 2:3-3:8 protected=1\n"
              "      DataDeclNode 4:3-4:8\n"
              "        TypeNode 4:3-4:5\n"
              "        IdNode 4:7-4:7 text=\"c\"\n"
              "      DataDeclNode 5:3-5:8\n"
              "        TypeNode 5:3-5:5\n"
              "        IdNode 5:7-5:7 text=\"d\"\n");
}

TEST(NodeRangeRemoverTest, TouchingRangesFormOneRunUnlessANodeLiesBetween)
{
    const std::string oneRun = foldedTree(CLASS_TEXT, {Range(Position(2, 3), Position(3, 8)),
                                                       Range(Position(3, 9), Position(5, 8))});
    EXPECT_NE(oneRun.find("      CommentNode 2:3-5:8 protected=1\n"), std::string::npos) << oneRun;
    const std::string twoRuns = foldedTree(CLASS_TEXT, {Range(Position(2, 3), Position(2, 8)),
                                                        Range(Position(4, 3), Position(4, 8))});
    EXPECT_NE(twoRuns.find("      CommentNode 2:3-2:8 protected=1\n"
                           "      DataDeclNode 3:3-3:8\n"
                           "        TypeNode 3:3-3:5\n"
                           "        IdNode 3:7-3:7 text=\"b\"\n"
                           "      CommentNode 4:3-4:8 protected=1\n"),
              std::string::npos)
        << twoRuns;
}

TEST(NodeRangeRemoverTest, RangeFromInsideAFunctionBodyToBehindTheFunction)
{
    EXPECT_EQ(foldedTree("void f() {\n  a();\n  b();\n}\nint x;\nint y;\n", {Range(Position(3, 3), Position(5, 6))}),
              "RootNode 1:1-6:6\n"
              "  FunctionDeclNode 1:1-4:1\n"
              "    FunctionHeadNode 1:1-1:8\n"
              "      FunctionReturnNode 1:1-1:4\n"
              "      IdNode 1:6-1:6 text=\"f\"\n"
              "      ParameterListNode 1:7-1:8\n"
              "    BlockNode 1:10-4:1\n"
              "      ExprNode 2:3-2:6\n"
              "      CommentNode 3:3-3:6 protected=1\n"
              "  CommentNode 5:1-5:6 protected=1\n"
              "  DataDeclNode 6:1-6:6\n"
              "    TypeNode 6:1-6:3\n"
              "    IdNode 6:5-6:5 text=\"y\"\n");
}

TEST(NodeRangeRemoverTest, ChildFieldsSetToNullLeaveTheParentsRange)
{
    // The range holds the type only: the field goes, the declaration stays.
    EXPECT_EQ(foldedTree("int x;\n", {Range(Position(1, 1), Position(1, 3))}),
              "RootNode 1:1-1:6\n"
              "  DataDeclNode 1:1-1:6\n"
              "    IdNode 1:5-1:5 text=\"x\"\n");
    // Visited on its own, a declaration whose fields all go keeps its range.
    Cpp::DataDeclNode node(new Cpp::TypeNode({1, 1}, {1, 3}), new Cpp::IdNode("x", {1, 5}, {1, 5}),
                           new Cpp::ExprNode({1, 7}, {1, 10}));
    Cpp::NodeRangeRemover remover({Range(Position(1, 1), Position(1, 10))});
    node.accept(remover);
    EXPECT_EQ(node.type(), nullptr);
    EXPECT_EQ(node.name(), nullptr);
    EXPECT_EQ(node.initializer(), nullptr);
    EXPECT_EQ(node.begin(), Position(1, 1));
    EXPECT_EQ(node.end(), Position(1, 10));
}

TEST(NodeRangeRemoverTest, EmptyRangeListRemovesNothing)
{
    TwTest::Parsed parsed;
    TwTest::parseText(CLASS_TEXT, parsed);
    const std::string before = Cpp::dumpTree(parsed.root);
    Cpp::NodeRangeRemover remover({});
    parsed.root.accept(remover);
    EXPECT_EQ(Cpp::dumpTree(parsed.root), before);
}

TEST(NodeRangeRemoverTest, WholeTextInARange)
{
    EXPECT_EQ(foldedTree("int a;\nint b;\n", {Range(Position(1, 1), Position(3, 0))}),
              "RootNode 1:1-2:6\n"
              "  CommentNode 1:1-2:6 protected=1\n");
}

} // namespace
