// A node with an ordered list of children that it owns. A plain interior node
// begins where its first child begins and ends where its last child ends, and
// has no position of its own (0, 0 when it has no children).
//
// DelimitedNode is the base of the interior nodes written between delimiters
// (braces, parentheses, angle brackets): they keep the position of the opening
// delimiter and of the closing one as their own range.
#ifndef CPP_INTERIORNODE_H
#define CPP_INTERIORNODE_H

#include "Cpp_SyntaxNode.h"

#include <cstddef>
#include <memory>
#include <unordered_set>
#include <vector>

namespace Cpp {

class InteriorNode : public SyntaxNode {
public:
    using ChildList = std::vector<SyntaxNode*>;
    using iterator = ChildList::iterator;
    using const_iterator = ChildList::const_iterator;

    InteriorNode() = default;
    InteriorNode(const InteriorNode& other);
    InteriorNode& operator=(const InteriorNode& other);
    InteriorNode(InteriorNode&& other) noexcept : SyntaxNode(other) { swapChildren(other); }
    InteriorNode& operator=(InteriorNode&& other) noexcept
    {
        swapChildren(other);
        return *this;
    }
    ~InteriorNode() override;

    void setBegin(const Trn::Position& p) override;
    Trn::Position begin() const override;
    void setEnd(const Trn::Position& p) override;
    Trn::Position end() const override;

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    // The mutable iterators allow a slot to be rewritten in place.
    virtual iterator childrenBegin();
    virtual const_iterator childrenBegin() const { return m_children.begin(); }
    virtual iterator childrenEnd();
    virtual const_iterator childrenEnd() const { return m_children.end(); }
    // Removes the slots; the caller deletes what they pointed to.
    virtual iterator erase(iterator first, iterator last);
    virtual std::size_t size() const { return m_children.size(); }
    virtual bool empty() const { return m_children.empty(); }

    // Appends and takes ownership; null is ignored, a child already in the
    // list throws Trn::AlreadyExistsException.
    void add(SyntaxNode* child);

protected:
    void swapChildren(InteriorNode& other) noexcept
    {
        m_children.swap(other.m_children);
        m_index.swap(other.m_index);
    }

private:
    // From this many children on, add() finds duplicates by a hash index
    // instead of a search of the list, so that a list of n children is built
    // in O(n). The index holds exactly the children while it exists: it is
    // dropped whenever the list can change other than by add() (a mutable
    // iterator handed out, erase), and rebuilt from the list when next needed.
    static constexpr std::size_t INDEXED_FROM = 32;
    using Index = std::unordered_set<const SyntaxNode*>;

    ChildList m_children;
    std::unique_ptr<Index> m_index;
};

class DelimitedNode : public InteriorNode {
public:
    void setBegin(const Trn::Position& p) override { m_begin = p; }
    Trn::Position begin() const override;
    void setEnd(const Trn::Position& p) override { m_end = p; }
    Trn::Position end() const override;

protected:
    // `fallsBack`: with no position of its own and with children, the node
    // is located by its children (a block around one unbraced statement).
    explicit DelimitedNode(bool fallsBack) : m_fallsBack(fallsBack) {}
    DelimitedNode(bool fallsBack, const Trn::Position& b, const Trn::Position& e)
        : m_begin(b), m_end(e), m_fallsBack(fallsBack)
    {
    }
    DelimitedNode(const DelimitedNode&) = default;
    DelimitedNode& operator=(const DelimitedNode&) = default;
    DelimitedNode(DelimitedNode&&) noexcept = default;
    DelimitedNode& operator=(DelimitedNode&&) noexcept = default;

private:
    bool fallsBack() const { return m_fallsBack && m_begin.isNull() && m_end.isNull() && !empty(); }

    Trn::Position m_begin;
    Trn::Position m_end;
    bool m_fallsBack;
};

} // namespace Cpp

#endif
