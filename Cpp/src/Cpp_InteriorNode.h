// A node with an ordered list of children that it owns. A plain interior node
// begins where its first child begins and ends where its last child ends, and
// has no position of its own (0, 0 when it has no children).
#ifndef CPP_INTERIORNODE_H
#define CPP_INTERIORNODE_H

#include "Cpp_SyntaxNode.h"

#include <cstddef>
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
    ~InteriorNode() override;

    void setBegin(const Trn::Position& p) override;
    Trn::Position begin() const override;
    void setEnd(const Trn::Position& p) override;
    Trn::Position end() const override;

    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;

    iterator childrenBegin() { return m_children.begin(); }
    const_iterator childrenBegin() const { return m_children.begin(); }
    iterator childrenEnd() { return m_children.end(); }
    const_iterator childrenEnd() const { return m_children.end(); }
    // Removes the slots; the caller deletes what they pointed to.
    iterator erase(iterator first, iterator last) { return m_children.erase(first, last); }
    std::size_t size() const { return m_children.size(); }
    bool empty() const { return m_children.empty(); }

    // Appends and takes ownership; null is ignored, a child already in the
    // list throws Trn::AlreadyExistsException.
    void add(SyntaxNode* child);

protected:
    void swapChildren(InteriorNode& other) noexcept { m_children.swap(other.m_children); }

private:
    ChildList m_children;
};

} // namespace Cpp

#endif
