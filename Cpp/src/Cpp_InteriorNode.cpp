// Ownership and positions of child lists, and the range rules of delimited
// and composite nodes.
#include "Cpp_InteriorNode.h"

#include "Cpp_Emitter.h"
#include "Trn_Exception.h"

#include <algorithm>
#include <iterator>
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

InteriorNode::iterator InteriorNode::childrenBegin()
{
    m_index.reset();
    return m_children.begin();
}

InteriorNode::iterator InteriorNode::childrenEnd()
{
    m_index.reset();
    return m_children.end();
}

InteriorNode::iterator InteriorNode::erase(iterator first, iterator last)
{
    m_index.reset();
    return m_children.erase(first, last);
}

void InteriorNode::add(SyntaxNode* child)
{
    if (!child)
        return;
    if (m_children.size() < INDEXED_FROM) {
        if (std::find(m_children.begin(), m_children.end(), child) != m_children.end())
            throw Trn::AlreadyExistsException();
        m_children.push_back(child);
        return;
    }
    if (!m_index)
        m_index = std::make_unique<Index>(m_children.begin(), m_children.end());
    if (!m_index->insert(child).second)
        throw Trn::AlreadyExistsException();
    try {
        m_children.push_back(child);
    } catch (...) {
        m_index->erase(child);
        throw;
    }
}

Trn::Position DelimitedNode::begin() const
{
    return fallsBack() ? InteriorNode::begin() : m_begin;
}

Trn::Position DelimitedNode::end() const
{
    return fallsBack() ? InteriorNode::end() : m_end;
}

Trn::Position compositeBegin(const Trn::Position& own, std::initializer_list<const SyntaxNode*> fields)
{
    if (!own.isNull())
        return own;
    for (const SyntaxNode* field : fields)
        if (field)
            return field->begin();
    return Trn::Position();
}

Trn::Position compositeEnd(const Trn::Position& own, std::initializer_list<const SyntaxNode*> fields)
{
    if (!own.isNull())
        return own;
    for (auto it = std::rbegin(fields); it != std::rend(fields); ++it)
        if (*it)
            return (*it)->end();
    return Trn::Position();
}

} // namespace Cpp
