// The node classes: ranges of leaves, lists and composites, validation of
// their own values, ownership and deep copies.
#include "Cpp_Nodes.h"
#include "Cpp_TokenType.h"
#include "Cpp_TreeDump.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Trn::Position;

TEST(SyntaxNodeTest, PlainInteriorNodeWithoutChildrenHasNoRange)
{
    Cpp::CtrlStmtNode node;
    EXPECT_EQ(node.begin(), Position());
    EXPECT_EQ(node.end(), Position());
    node.setBegin(Position(3, 4));
    node.setEnd(Position(3, 9));
    EXPECT_EQ(node.begin(), Position());
    EXPECT_EQ(node.end(), Position());
}

TEST(SyntaxNodeTest, BlockWithoutBracesIsLocatedByItsStatement)
{
    Cpp::BlockNode block;
    block.add(new Cpp::ExprNode(Position(2, 5), Position(2, 9)));
    EXPECT_EQ(block.begin(), Position(2, 5));
    EXPECT_EQ(block.end(), Position(2, 9));
    Cpp::LinkageBlockBodyNode body;
    body.add(new Cpp::ExprNode(Position(1, 1), Position(1, 2)));
    EXPECT_EQ(body.end(), Position(1, 2));
    // With braces, the block's own positions count.
    block.setBegin(Position(2, 1));
    block.setEnd(Position(2, 11));
    EXPECT_EQ(block.begin(), Position(2, 1));
    EXPECT_EQ(block.end(), Position(2, 11));
}

TEST(SyntaxNodeTest, EmptyClassBodyReportsItsDelimiters)
{
    Cpp::ClassBodyNode body(Position(4, 1), Position(5, 1));
    EXPECT_TRUE(body.empty());
    EXPECT_EQ(body.begin(), Position(4, 1));
    EXPECT_EQ(body.end(), Position(5, 1));
    // A delimited list other than a block never falls back to its children.
    Cpp::ParameterListNode parameters;
    parameters.add(new Cpp::ParameterNode(false, Position(1, 2), Position(1, 3)));
    EXPECT_EQ(parameters.begin(), Position());
}

TEST(SyntaxNodeTest, KeywordRangeIsChecked)
{
    EXPECT_THROW(Cpp::KeywordNode(53), Cpp::InvalidKeyword);
    EXPECT_THROW(Cpp::KeywordNode(105, Position(1, 1), Position(1, 8)), Cpp::InvalidKeyword);
    EXPECT_EQ(Cpp::KeywordNode(54).type(), Cpp::CLASS_KEY);
    EXPECT_EQ(Cpp::KeywordNode(104).type(), Cpp::DEFAULT_KEY);
    try {
        Cpp::KeywordNode node(Cpp::IDENTIFIER);
        FAIL();
    } catch (const Cpp::InvalidKeyword& e) {
        EXPECT_EQ(e.what(), "Not a keyword");
    }
}

TEST(SyntaxNodeTest, NamesAreNeverEmpty)
{
    try {
        Cpp::IdNode node("");
        FAIL();
    } catch (const Cpp::InvalidId& e) {
        EXPECT_EQ(e.what(), "Invalid name for an Identifier");
    }
    Cpp::IdNode id("x");
    EXPECT_THROW(id.setName(""), Cpp::InvalidId);
    EXPECT_EQ(id.name(), "x");
    Cpp::ClassNameNode name;
    try {
        name.setName("");
        FAIL();
    } catch (const Varnel::ContractViolation& v) {
        EXPECT_EQ(v.condition(), "n.length() != 0");
    }
    Cpp::BaseClauseNode clause;
    EXPECT_THROW(clause.setName(""), Varnel::ContractViolation);
}

TEST(SyntaxNodeTest, CaseKeywordMustBeCaseOrDefault)
{
    Cpp::CaseNode node;
    node.setKeyword(new Cpp::KeywordNode(Cpp::DEFAULT_KEY));
    node.setKeyword(nullptr);
    EXPECT_EQ(node.keyword(), nullptr);
    EXPECT_THROW(node.setKeyword(new Cpp::KeywordNode(Cpp::IF_KEY)), Varnel::ContractViolation);
}

TEST(SyntaxNodeTest, CompositeRangeComesFromItsOwnPositionsOrItsChildren)
{
    Cpp::DataDeclNode node(nullptr, new Cpp::IdNode("x", Position(1, 5), Position(1, 5)),
                           new Cpp::ExprNode(Position(1, 7), Position(1, 9)));
    EXPECT_EQ(node.begin(), Position(1, 5));
    EXPECT_EQ(node.end(), Position(1, 9));
    node.setEnd(Position(1, 10));
    EXPECT_EQ(node.end(), Position(1, 10));
    node.setInitializer(nullptr);
    EXPECT_EQ(node.end(), Position(1, 10));
    Cpp::DataDeclNode empty;
    EXPECT_EQ(empty.begin(), Position());
    EXPECT_EQ(empty.end(), Position());
}

TEST(SyntaxNodeTest, ConstructorRangeFollowsTheText)
{
    Cpp::CtorDeclNode node(new Cpp::FunctionHeadNode(nullptr, new Cpp::IdNode("A", Position(1, 1), Position(1, 1)),
                                                     nullptr, nullptr, nullptr, nullptr),
                           new Cpp::BlockNode(Position(1, 20), Position(1, 22)), new Cpp::InitializerListNode);
    EXPECT_EQ(node.begin(), Position(1, 1));
    EXPECT_EQ(node.end(), Position(1, 22));
}

TEST(SyntaxNodeTest, CloneOfAConstructorIsDeep)
{
    auto original = std::make_unique<Cpp::CtorDeclNode>(
        new Cpp::FunctionHeadNode(nullptr, new Cpp::IdNode("A", Position(1, 1), Position(1, 1)),
                                  new Cpp::ParameterListNode(Position(1, 2), Position(1, 3)), nullptr, nullptr,
                                  nullptr),
        new Cpp::BlockNode(Position(1, 14), Position(1, 15)), new Cpp::InitializerListNode);
    original->initializers()->add(new Cpp::InitializerNode(new Cpp::IdNode("b", Position(1, 7), Position(1, 7)),
                                                           new Cpp::ArgListNode(Position(1, 8), Position(1, 10))));
    const std::string dump = Cpp::dumpTree(*original);
    std::unique_ptr<Cpp::SyntaxNode> copy(original->clone());
    auto* ctor = dynamic_cast<Cpp::CtorDeclNode*>(copy.get());
    ASSERT_NE(ctor, nullptr);
    EXPECT_NE(ctor->head(), original->head());
    EXPECT_NE(ctor->block(), original->block());
    EXPECT_NE(ctor->initializers(), original->initializers());
    EXPECT_NE(*ctor->initializers()->childrenBegin(), *original->initializers()->childrenBegin());
    EXPECT_EQ(Cpp::dumpTree(*copy), dump);
    copy.reset();
    EXPECT_EQ(Cpp::dumpTree(*original), dump);
}

TEST(SyntaxNodeTest, AssignmentCopiesAndSelfAssignmentChangesNothing)
{
    Cpp::ClassDeclNode a(new Cpp::ClassHeadNode(new Cpp::ClassNameNode(Cpp::CLASS_KEY, "class A", {1, 1}, {1, 7}),
                                                nullptr),
                         nullptr);
    Cpp::ClassDeclNode b;
    b = a;
    EXPECT_NE(b.head(), a.head());
    EXPECT_EQ(Cpp::dumpTree(b), Cpp::dumpTree(a));
    const Cpp::ClassDeclNode& same = b;
    b = same;
    EXPECT_EQ(Cpp::dumpTree(b), Cpp::dumpTree(a));
    Cpp::RootNode root;
    root.add(new Cpp::CommentNode("// x", {1, 1}, {1, 4}));
    Cpp::RootNode other;
    other = root;
    EXPECT_EQ(Cpp::dumpTree(other), Cpp::dumpTree(root));
    EXPECT_NE(*other.childrenBegin(), *root.childrenBegin());
}

TEST(SyntaxNodeTest, SetReplacesTheChild)
{
    Cpp::LabelNode label(new Cpp::IdNode("a", {1, 1}, {1, 1}));
    label.setName(new Cpp::IdNode("b", {2, 1}, {2, 1}));
    EXPECT_EQ(label.name()->name(), "b");
    EXPECT_EQ(label.begin(), Position(2, 1));
}

TEST(SyntaxNodeTest, CommentText)
{
    EXPECT_TRUE(Cpp::CommentNode("//").isLineComment());
    EXPECT_FALSE(Cpp::CommentNode("//").isBlockComment());
    EXPECT_FALSE(Cpp::CommentNode("/*").isBlockComment());
    EXPECT_TRUE(Cpp::CommentNode("/**/").isBlockComment());
    EXPECT_FALSE(Cpp::CommentNode("/").isLineComment());
    EXPECT_FALSE(Cpp::CommentNode("// x", true).isLineComment());
    EXPECT_FALSE(Cpp::CommentNode("/* x */", true).isBlockComment());
    EXPECT_EQ(Cpp::CommentNode("  /* text").content(), "/* text");
    EXPECT_EQ(Cpp::CommentNode("/* text */").content(), " text ");
    EXPECT_EQ(Cpp::CommentNode("// text  \n").content(), " text  \n");
    EXPECT_EQ(Cpp::CommentNode("  x").content(), "x");
    EXPECT_EQ(Cpp::CommentNode("/").content(), "/");
}

TEST(SyntaxNodeTest, AccessKinds)
{
    EXPECT_EQ(Cpp::AccessSpecNode(Cpp::PUBLIC_KEY, "public", false).kind(), 1);
    EXPECT_EQ(Cpp::AccessSpecNode(Cpp::PROTECTED_KEY, "protected", false).kind(), 2);
    EXPECT_EQ(Cpp::AccessSpecNode(Cpp::PRIVATE_KEY, "private", false).kind(), 3);
    EXPECT_EQ(Cpp::AccessSpecNode(Cpp::IDENTIFIER, "signals", false).kind(), 4);
}

TEST(SyntaxNodeTest, DuplicateChildIsRefused)
{
    Cpp::BlockNode block;
    auto* child = new Cpp::ExprNode({1, 1}, {1, 2});
    block.add(child);
    EXPECT_THROW(block.add(child), Trn::AlreadyExistsException);
    block.add(nullptr);
    EXPECT_EQ(block.size(), 1u);
}

} // namespace
