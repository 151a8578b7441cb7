// Ownership and positions of child lists.
#include "Cpp_InteriorNode.h"

#include "Cpp_Emitter.h"
#include "Trn_Exception.h"

#include <algorithm>
#include <memory>

namespace Cpp {

InteriorNode::InteriorNode(const InteriorNode& other) : SyntaxNode(other)
{
    m_children.reserve(other.m_children.size());
    try {
        for (const SyntaxNode* child : other.m_children)
            m_children.push_back(child ? child->clone() : nullptr);
    } catch (...) {
        for (SyntaxNode*& child : m_children)
            delete child;
        throw;
    }
}

InteriorNode& InteriorNode::operator=(const InteriorNode& other)
{
    if (this != &other) {
        InteriorNode copy(other);
        swapChildren(copy);
    }
    return *this;
}

InteriorNode::~InteriorNode()
{
    for (SyntaxNode*& child : m_children) {
        delete child;
        child = nullptr;
    }
}

void InteriorNode::setBegin(const Trn::Position& p)
{
    if (!m_children.empty() && m_children.front())
        m_children.front()->setBegin(p);
}

Trn::Position InteriorNode::begin() const
{
    return (m_children.empty() || !m_children.front()) ? Trn::Position() : m_children.front()->begin();
}

void InteriorNode::setEnd(const Trn::Position& p)
{
    if (!m_children.empty() && m_children.back())
        m_children.back()->setEnd(p);
}

Trn::Position InteriorNode::end() const
{
    return (m_children.empty() || !m_children.back()) ? Trn::Position() : m_children.back()->end();
}

void InteriorNode::accept(Emitter& emitter)
{
    emitter.emitInterior(*this);
}

SyntaxNode* InteriorNode::clone() const
{
    return new InteriorNode(*this);
}

void InteriorNode::add(SyntaxNode* child)
{
    if (!child)
        return;
    if (std::find(m_children.begin(), m_children.end(), child) != m_children.end())
        throw Trn::AlreadyExistsException();
    m_children.push_back(child);
}

} // namespace Cpp
