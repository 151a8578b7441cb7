// Tree dumps: one line per node, attributes, indentation and escapes.
#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Cpp_TreeDump.h"

#include <gtest/gtest.h>

namespace {

TEST(TreeDumpTest, LinesIndentedByDepthWithClassNamesAndRanges)
{
    Cpp::RootNode root;
    auto* label = new Cpp::LabelNode(new Cpp::IdNode("done", {3, 1}, {3, 4}));
    label->setEnd({3, 5});
    root.add(label);
    EXPECT_EQ(Cpp::dumpTree(root), "RootNode 3:1-3:5\n"
                                   "  LabelNode 3:1-3:5\n"
                                   "    IdNode 3:1-3:4 text=\"done\"\n");
}

TEST(TreeDumpTest, OwnAttributes)
{
    Cpp::CommentNode comment("// a \"b\"\t\\\n", {1, 1}, {2, 0});
    EXPECT_EQ(Cpp::describeNode(comment), "CommentNode 1:1-2:0 text=\"// a \\\"b\\\"\\t\\\\\\n\"");
    Cpp::CommentNode region(std::string(), {1, 1}, {9, 0}, true);
    EXPECT_EQ(Cpp::describeNode(region), "CommentNode 1:1-9:0 protected=1");
    Cpp::AccessSpecNode access(Cpp::PUBLIC_KEY, "public", false, {2, 1}, {2, 7});
    EXPECT_EQ(Cpp::describeNode(access), "AccessSpecNode 2:1-2:7 kind=1 text=\"public\"");
    Cpp::KeywordNode keyword(Cpp::WHILE_KEY, {1, 1}, {1, 5});
    EXPECT_EQ(Cpp::describeNode(keyword), "KeywordNode 1:1-1:5 type=WHILE_KEY");
    Cpp::BaseClauseNode clause(Cpp::BaseClauseNode::NO_ACCESS, true, "B", {1, 11}, {1, 19});
    EXPECT_EQ(Cpp::describeNode(clause), "BaseClauseNode 1:11-1:19 virtual=1 text=\"B\"");
    Cpp::ParameterNode parameter(true, {1, 2}, {1, 9});
    EXPECT_EQ(Cpp::describeNode(parameter), "ParameterNode 1:2-1:9 endsInAngle=1");
    Cpp::NamespaceHeadNode unnamed(std::string(), {1, 1}, {1, 9});
    EXPECT_EQ(Cpp::describeNode(unnamed), "NamespaceHeadNode 1:1-1:9");
    Cpp::AsmNode asmNode(nullptr, nullptr, Cpp::AsmNode::BLOCK_FORM);
    EXPECT_EQ(Cpp::describeNode(asmNode), "AsmNode 0:0-0:0 form=2");
}

TEST(TreeDumpTest, ChildrenInTextOrder)
{
    Cpp::CtorDeclNode ctor(new Cpp::FunctionHeadNode, new Cpp::BlockNode, new Cpp::InitializerListNode);
    const auto children = Cpp::childrenOf(ctor);
    ASSERT_EQ(children.size(), 3u);
    EXPECT_EQ(Cpp::nodeClassName(*children[0]), "FunctionHeadNode");
    EXPECT_EQ(Cpp::nodeClassName(*children[1]), "InitializerListNode");
    EXPECT_EQ(Cpp::nodeClassName(*children[2]), "BlockNode");
    Cpp::DataDeclNode data(nullptr, new Cpp::IdNode("x"), nullptr);
    EXPECT_EQ(Cpp::childrenOf(data).size(), 1u);
}

} // namespace
