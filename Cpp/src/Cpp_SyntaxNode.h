// The root of the C++ node classes, the abstract leaf and declaration bases,
// and the owning pointer that composite nodes keep their children in. The
// tree is an outline of the text: nodes hold positions, and printing reads the
// text again by position. accept() dispatches one level to the Emitter;
// clone() makes a deep heap copy of the most derived class.
//
// Invariants:
//  1. A node's begin() is at or before its end(); 0, 0 means "no position".
//  2. A parent owns its children; destroying the root destroys the tree.
//  3. Assignment is copy-and-swap: a throw while copying leaves the target as
//     it was.
#ifndef CPP_SYNTAXNODE_H
#define CPP_SYNTAXNODE_H

#include "Trn_SyntaxNode.h"

#include <initializer_list>
#include <memory>
#include <utility>

namespace Cpp {

class Emitter;

class SyntaxNode : public Trn::SyntaxNode {
public:
    virtual void accept(Emitter& emitter) = 0;
    virtual SyntaxNode* clone() const = 0;

protected:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode&) = default;
    SyntaxNode& operator=(const SyntaxNode&) = default;
};

// Copy construction is deep (child lists and NodePtr fields clone what they
// hold); assignment builds a copy and then moves it in, which cannot throw.
// Used inside every node class.
#define TW_NODE_COPYABLE(Class)                                                                                \
    Class(const Class& other) = default;                                                                       \
    Class& operator=(const Class& other)                                                                       \
    {                                                                                                          \
        if (this != &other) {                                                                                  \
            Class copy(other);                                                                                 \
            *this = std::move(copy);                                                                           \
        }                                                                                                      \
        return *this;                                                                                          \
    }                                                                                                          \
    Class(Class&&) noexcept = default;                                                                         \
    Class& operator=(Class&&) noexcept = default

// A node that covers one stretch of text and has no children.
class LeafNode : public SyntaxNode {
public:
    void setBegin(const Trn::Position& p) override { m_begin = p; }
    Trn::Position begin() const override { return m_begin; }
    void setEnd(const Trn::Position& p) override { m_end = p; }
    Trn::Position end() const override { return m_end; }

protected:
    LeafNode() = default;
    LeafNode(const Trn::Position& b, const Trn::Position& e) : m_begin(b), m_end(e) {}
    LeafNode(const LeafNode&) = default;
    LeafNode& operator=(const LeafNode&) = default;
    LeafNode(LeafNode&&) noexcept = default;
    LeafNode& operator=(LeafNode&&) noexcept = default;

private:
    Trn::Position m_begin;
    Trn::Position m_end;
};

// The base of the declarations: class, enum, namespace, linkage block,
// function, function pointer and data declarations.
class DeclNode : public SyntaxNode {
protected:
    DeclNode() = default;
    DeclNode(const DeclNode&) = default;
    DeclNode& operator=(const DeclNode&) = default;
    DeclNode(DeclNode&&) noexcept = default;
    DeclNode& operator=(DeclNode&&) noexcept = default;
};

// The exclusive owner of one child field of a composite node: copying clones
// the child, resetting deletes the old one.
template <typename T>
class NodePtr {
public:
    NodePtr() = default;
    explicit NodePtr(T* node) : m_node(node) {}
    NodePtr(const NodePtr& other) : m_node(other.m_node ? static_cast<T*>(other.m_node->clone()) : nullptr) {}
    NodePtr(NodePtr&&) noexcept = default;
    NodePtr& operator=(NodePtr other) noexcept
    {
        m_node.swap(other.m_node);
        return *this;
    }

    T* get() const { return m_node.get(); }
    void reset(T* node) { m_node.reset(node); }

private:
    std::unique_ptr<T> m_node;
};

// The range of a node with child fields: its own position when it has one,
// else that of its first (last) child present, in field order.
Trn::Position compositeBegin(const Trn::Position& own, std::initializer_list<const SyntaxNode*> fields);
Trn::Position compositeEnd(const Trn::Position& own, std::initializer_list<const SyntaxNode*> fields);

} // namespace Cpp

#endif
