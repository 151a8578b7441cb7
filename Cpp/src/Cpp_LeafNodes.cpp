// Dispatch, copies and own values of the leaf nodes.
#include "Cpp_LeafNodes.h"

#include "Cpp_CommentText.h"
#include "Cpp_Emitter.h"
#include "Cpp_NodeDispatch.h"
#include "Cpp_TokenType.h"
#include "Varnel_Contract.h"

namespace Cpp {

InvalidKeyword::InvalidKeyword() : Trn::Exception("Not a keyword") {}

InvalidId::InvalidId() : Trn::Exception("Invalid name for an Identifier") {}

TW_NODE_DISPATCH(TextNode, emitText)
TW_NODE_DISPATCH(CommentNode, emitComment)
TW_NODE_DISPATCH(PreprocDirectiveNode, emitPreprocDirective)
TW_NODE_DISPATCH(IdNode, emitId)
TW_NODE_DISPATCH(ExprNode, emitExpr)
TW_NODE_DISPATCH(TypeNode, emitType)
TW_NODE_DISPATCH(FunctionReturnNode, emitFunctionReturn)
TW_NODE_DISPATCH(ArgNode, emitArg)
TW_NODE_DISPATCH(KeywordNode, emitKeyword)
TW_NODE_DISPATCH(AccessSpecNode, emitAccessSpec)
TW_NODE_DISPATCH(ClassNameNode, emitClassName)
TW_NODE_DISPATCH(BaseClauseNode, emitBaseClause)
TW_NODE_DISPATCH(EnumHeadNode, emitEnumHead)
TW_NODE_DISPATCH(NamespaceHeadNode, emitNamespaceHead)
TW_NODE_DISPATCH(ParameterNode, emitParameter)


CommentNode::CommentNode(std::string text, bool isProtected) : m_text(std::move(text)), m_isProtected(isProtected)
{
}

CommentNode::CommentNode(std::string text, const Trn::Position& b, const Trn::Position& e, bool isProtected)
    : TextNode(b, e), m_text(std::move(text)), m_isProtected(isProtected)
{
}

bool CommentNode::isLineComment() const
{
    return !m_isProtected && m_text.size() >= 2 && m_text.compare(0, 2, "//") == 0;
}

bool CommentNode::isBlockComment() const
{
    return !m_isProtected && m_text.size() > 2 && m_text.compare(0, 2, "/*") == 0;
}

std::string CommentNode::content() const
{
    std::string text = m_text;
    stripCommentDelimiters(text); // trims at the left whether or not it strips
    return text;
}

IdNode::IdNode(std::string name)
{
    setName(std::move(name));
}

IdNode::IdNode(std::string name, const Trn::Position& b, const Trn::Position& e) : TextNode(b, e)
{
    setName(std::move(name));
}

void IdNode::setName(std::string name)
{
    if (name.empty())
        throw InvalidId();
    m_name = std::move(name);
}

namespace {

// CLASS_KEY (54) to DEFAULT_KEY (104).
void validateKeyword(std::int32_t type)
{
    if (type < CLASS_KEY || type > DEFAULT_KEY)
        throw InvalidKeyword();
}

} // namespace

KeywordNode::KeywordNode(std::int32_t type)
{
    setType(type);
}

KeywordNode::KeywordNode(std::int32_t type, const Trn::Position& b, const Trn::Position& e) : LeafNode(b, e)
{
    setType(type);
}

void KeywordNode::setType(std::int32_t type)
{
    validateKeyword(type);
    m_type = type;
}

AccessSpecNode::AccessSpecNode(std::int32_t type, std::string text, bool extended)
    : m_type(type), m_text(std::move(text)), m_extended(extended)
{
}

AccessSpecNode::AccessSpecNode(std::int32_t type, std::string text, bool extended, const Trn::Position& b,
                               const Trn::Position& e)
    : LeafNode(b, e), m_type(type), m_text(std::move(text)), m_extended(extended)
{
}

std::int32_t AccessSpecNode::kind() const
{
    switch (m_type) {
    case PUBLIC_KEY: return 1;
    case PROTECTED_KEY: return 2;
    case PRIVATE_KEY: return 3;
    case IDENTIFIER: return 4;
    default: return 0;
    }
}

ClassNameNode::ClassNameNode(std::int32_t type, const std::string& name) : m_type(type)
{
    setName(name);
}

ClassNameNode::ClassNameNode(std::int32_t type, const std::string& name, const Trn::Position& b,
                             const Trn::Position& e)
    : LeafNode(b, e), m_type(type)
{
    setName(name);
}

void ClassNameNode::setName(const std::string& n)
{
    TW_REQUIRE(n.length() != 0);
    m_name = n;
}

BaseClauseNode::BaseClauseNode(std::int32_t type, bool isVirtual, const std::string& name)
    : m_type(type), m_isVirtual(isVirtual)
{
    setName(name);
}

BaseClauseNode::BaseClauseNode(std::int32_t type, bool isVirtual, const std::string& name, const Trn::Position& b,
                               const Trn::Position& e)
    : LeafNode(b, e), m_type(type), m_isVirtual(isVirtual)
{
    setName(name);
}

void BaseClauseNode::setName(const std::string& n)
{
    TW_REQUIRE(n.length() != 0);
    m_name = n;
}

} // namespace Cpp
