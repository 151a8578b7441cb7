// Child lists: ownership, positions taken from the children, deep copies.
#include "Cpp_Emitter.h"
#include "Cpp_RootNode.h"
#include "Trn_Exception.h"

#include <gtest/gtest.h>

namespace {

// A leaf with a fixed range that counts its live instances.
class SpanNode : public Cpp::SyntaxNode {
public:
    SpanNode(Trn::Position b, Trn::Position e) : m_begin(b), m_end(e) { ++live; }
    SpanNode(const SpanNode& o) : Cpp::SyntaxNode(o), m_begin(o.m_begin), m_end(o.m_end) { ++live; }
    ~SpanNode() override { --live; }
    void setBegin(const Trn::Position& p) override { m_begin = p; }
    Trn::Position begin() const override { return m_begin; }
    void setEnd(const Trn::Position& p) override { m_end = p; }
    Trn::Position end() const override { return m_end; }
    void accept(Cpp::Emitter&) override {}
    Cpp::SyntaxNode* clone() const override { return new SpanNode(*this); }
    static inline int live = 0;

private:
    Trn::Position m_begin, m_end;
};

class RootCounter : public Cpp::Emitter {
public:
    void emitRoot(Cpp::RootNode&) override { ++roots; }
    void emitInterior(Cpp::InteriorNode&) override { ++interiors; }
    int roots = 0;
    int interiors = 0;
};

TEST(InteriorNodeTest, EmptyNodeHasNoPosition)
{
    Cpp::InteriorNode node;
    EXPECT_EQ(node.begin(), Trn::Position());
    EXPECT_EQ(node.end(), Trn::Position());
    node.setBegin(Trn::Position(4, 4));
    EXPECT_EQ(node.begin(), Trn::Position());
    EXPECT_TRUE(node.empty());
}

TEST(InteriorNodeTest, RangeComesFromFirstAndLastChild)
{
    Cpp::RootNode root;
    root.add(new SpanNode({1, 1}, {1, 5}));
    root.add(new SpanNode({2, 1}, {3, 7}));
    EXPECT_EQ(root.begin(), Trn::Position(1, 1));
    EXPECT_EQ(root.end(), Trn::Position(3, 7));
    root.setEnd(Trn::Position(4, 1));
    EXPECT_EQ((*(root.childrenEnd() - 1))->end(), Trn::Position(4, 1));
    EXPECT_EQ(root.size(), 2u);
}

TEST(InteriorNodeTest, AddIgnoresNullAndRefusesDuplicates)
{
    Cpp::RootNode root;
    root.add(nullptr);
    EXPECT_TRUE(root.empty());
    auto* child = new SpanNode({1, 1}, {1, 1});
    root.add(child);
    EXPECT_THROW(root.add(child), Trn::AlreadyExistsException);
    EXPECT_EQ(root.size(), 1u);
}

TEST(InteriorNodeTest, LongListsRefuseDuplicatesToo)
{
    Cpp::RootNode root;
    std::vector<SpanNode*> children;
    for (int i = 0; i < 100; ++i) {
        children.push_back(new SpanNode({i + 1, 1}, {i + 1, 2}));
        root.add(children.back());
    }
    EXPECT_THROW(root.add(children[3]), Trn::AlreadyExistsException);
    EXPECT_THROW(root.add(children[99]), Trn::AlreadyExistsException);
    // A slot rewritten through an iterator is seen by the next add.
    auto* replacement = new SpanNode({5, 1}, {5, 2});
    auto slot = root.childrenBegin() + 4;
    delete *slot;
    *slot = replacement;
    EXPECT_THROW(root.add(replacement), Trn::AlreadyExistsException);
    root.erase(root.childrenBegin(), root.childrenBegin() + 1);
    EXPECT_EQ(root.size(), 99u);
    auto* fresh = new SpanNode({200, 1}, {200, 2});
    root.add(fresh);
    EXPECT_THROW(root.add(fresh), Trn::AlreadyExistsException);
    EXPECT_EQ(root.size(), 100u);
    delete children[0]; // erased from the list above, so not owned by it
}

TEST(InteriorNodeTest, OwnsAndDeepCopiesChildren)
{
    SpanNode::live = 0;
    {
        auto* root = new Cpp::RootNode;
        root->add(new SpanNode({1, 1}, {1, 2}));
        std::unique_ptr<Cpp::SyntaxNode> copy(root->clone());
        EXPECT_EQ(SpanNode::live, 2);
        delete root;
        EXPECT_EQ(SpanNode::live, 1);
        EXPECT_EQ(copy->begin(), Trn::Position(1, 1));
    }
    EXPECT_EQ(SpanNode::live, 0);
}

TEST(InteriorNodeTest, AcceptDispatchesOneLevel)
{
    Cpp::RootNode root;
    root.add(new Cpp::InteriorNode);
    RootCounter counter;
    root.accept(counter);
    EXPECT_EQ(counter.roots, 1);
    EXPECT_EQ(counter.interiors, 0);
    (*root.childrenBegin())->accept(counter);
    EXPECT_EQ(counter.interiors, 1);
}

TEST(InteriorNodeTest, EmitterWithoutOverridesVisitsRootOnly)
{
    Cpp::RootNode root;
    root.add(new SpanNode({1, 1}, {1, 2}));
    Cpp::Emitter plain;
    root.accept(plain);
    EXPECT_EQ(root.size(), 1u);
}

} // namespace
