// The composite nodes of statements: the parts of a control statement, case
// and statement labels, and asm statements. Fields, ownership and range follow
// the rules of Cpp_DeclNodes.h.
#ifndef CPP_STATEMENTNODES_H
#define CPP_STATEMENTNODES_H

#include "Cpp_DeclNodes.h"

namespace Cpp {

// A keyword with its parenthesised condition; the condition is null for
// try, do and else. The condition's span holds its outer parentheses.
class CtrlSubStmtHeadNode : public SyntaxNode {
public:
    CtrlSubStmtHeadNode() = default;
    CtrlSubStmtHeadNode(KeywordNode* keyword, ExprNode* condition);
    TW_NODE_COPYABLE(CtrlSubStmtHeadNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(KeywordNode, keyword, setKeyword)
    TW_CHILD_FIELD(ExprNode, condition, setCondition)
};

// One keyword part of a control statement: head and body. The while of a do,
// and a while with an empty body, have no body.
class CtrlSubStmtNode : public SyntaxNode {
public:
    CtrlSubStmtNode() = default;
    CtrlSubStmtNode(CtrlSubStmtHeadNode* head, BlockNode* body);
    TW_NODE_COPYABLE(CtrlSubStmtNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(CtrlSubStmtHeadNode, head, setHead)
    TW_CHILD_FIELD(BlockNode, body, setBody)
};

// "case expr:" or "default:"; the own end lies at the colon.
class CaseNode : public SyntaxNode {
public:
    CaseNode() = default;
    CaseNode(KeywordNode* keyword, ExprNode* expression);
    TW_NODE_COPYABLE(CaseNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    KeywordNode* keyword() const { return m_keyword.get(); }
    // Contract: null, or a keyword of type CASE_KEY or DEFAULT_KEY.
    void setKeyword(KeywordNode* k);
    TW_CHILD_FIELD(ExprNode, expression, setExpression)

private:
    NodePtr<KeywordNode> m_keyword;
};

// A statement label; the own end lies at the colon.
class LabelNode : public SyntaxNode {
public:
    LabelNode() = default;
    explicit LabelNode(IdNode* name);
    TW_NODE_COPYABLE(LabelNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(IdNode, name, setName)
};

// An asm statement: the keyword as text, and a block holding the body as one
// text node. `form` is 2 for a body in braces, 1 for a single line with
// parentheses, 0 for a plain single line.
class AsmNode : public SyntaxNode {
public:
    static constexpr std::int32_t LINE_FORM = 0;
    static constexpr std::int32_t CALL_FORM = 1;
    static constexpr std::int32_t BLOCK_FORM = 2;

    AsmNode() = default;
    AsmNode(TextNode* text, BlockNode* body, std::int32_t form);
    TW_NODE_COPYABLE(AsmNode);
    void accept(Emitter& emitter) override;
    SyntaxNode* clone() const override;
    TW_COMPOSITE_RANGE
    TW_CHILD_FIELD(TextNode, text, setText)
    TW_CHILD_FIELD(BlockNode, body, setBody)
    std::int32_t form() const { return m_form; }
    void setForm(std::int32_t form) { m_form = form; }

private:
    std::int32_t m_form = LINE_FORM;
};

#undef TW_COMPOSITE_RANGE
#undef TW_CHILD_FIELD

} // namespace Cpp

#endif
